/**
 * @file
 * Deep copy of records: a second tree of blocks on the C heap that shares nothing with the first.
 *
 * All functions have one pattern, `CopyZQ<Record>(dest, source)`:
 *
 * - `dest` is storage of the caller and is taken as uninitialised: nothing in it is freed. Free the copy with the Free
 *   function of its record and `freeStruct` 0.
 * - The result is 0, or 300 (ZQ_MESSAGE_OUT_OF_MEMORY) if memory ran out. Menus have two more results. No status list
 *   is filled.
 * - After a failure everything that was allocated has been given back: every owned pointer in `dest` is null, a list is
 *   empty, and the tag of the record's own union is that of the source.
 * - A null `dest` or a null `source` gives 0. From a null source a list comes out empty, any other record untouched.
 * - A null pointer copies as null, a count without an array as an empty list. A tag that the record doesn't know is
 *   copied with its bits and owns nothing. Names are copied with all their bytes.
 *
 * A function that deviates says so. CopyZQStatusStruct and CopyZQStatusList stand in zqxml/status.h.
 *
 * The copy of a value may change the attachment behind its source, see CopyZQValueStruct: two threads must not copy one
 * record at a time.
 */
#ifndef ZQXML_COPY_H
#define ZQXML_COPY_H

#include "zqxml/export.h"
#include "zqxml/messages.h"
#include "zqxml/records.h"

ZQXML_BEGIN_DECLS

/**
 * Copies a tagged value.
 * An attachment whose location is a buffer with bytes in it is copied with its bytes. Deliberate: every other location,
 * so above all a file, moves: `dest` takes the file name as it is, and the attachment behind `source` loses its
 * location. If memory runs out for a currency, a zeroed block may stand in `dest`: free the record.
 */
ZQXML_API unsigned CopyZQValueStruct(ZQValueStruct *dest, const ZQValueStruct *source);

/** Copies a list of values. */
ZQXML_API unsigned CopyZQValueList(ZQValueList *dest, const ZQValueList *source);

/** Copies a field and its value. After a failure the whole record is zeroed, `fieldId` included. */
ZQXML_API unsigned CopyZQFieldValueStruct(ZQFieldValueStruct *dest, const ZQFieldValueStruct *source);

/** Copies a list of fields with values. */
ZQXML_API unsigned CopyZQFieldValueList(ZQFieldValueList *dest, const ZQFieldValueList *source);

/** Copies an amount in a functional currency. Deliberate: if memory runs out the result is 0 and `value` is null. */
ZQXML_API unsigned CopyZQFuncCurrencyStruct(ZQFuncCurrencyStruct *dest, const ZQFuncCurrencyStruct *source);

/**
 * Copies a list of amounts in functional currencies.
 * Deliberate: a null or empty source leaves `dest` untouched, and a text that finds no memory is null without a
 * failure.
 */
ZQXML_API unsigned CopyZQFuncCurrencyList(ZQFuncCurrencyList *dest, const ZQFuncCurrencyList *source);

/** Copies an amount of money. After a failure the whole record is zeroed. */
ZQXML_API unsigned CopyZQCurrencyStruct(ZQCurrencyStruct *dest, const ZQCurrencyStruct *source);

/** Copies a list of properties. */
ZQXML_API unsigned CopyZQPropList(ZQPropList *dest, const ZQPropList *source);

/** Copies the look of a field in a view. */
ZQXML_API unsigned CopyZQDisplayInstanceStruct(ZQDisplayInstanceStruct *dest, const ZQDisplayInstanceStruct *source);

/** Copies the look of a field in all views. */
ZQXML_API unsigned CopyZQDisplayInstanceList(ZQDisplayInstanceList *dest, const ZQDisplayInstanceList *source);

/** Copies a list of unsigned numbers. A null source leaves `dest` untouched. */
ZQXML_API unsigned CopyZQUnsignedIntList(ZQUnsignedIntList *dest, const ZQUnsignedIntList *source);

/** Copies a list of ids. */
ZQXML_API unsigned CopyZQInternalIdList(ZQInternalIdList *dest, const ZQInternalIdList *source);

/** Copies a list of names. A null source leaves `dest` untouched. */
ZQXML_API unsigned CopyZQNameList(ZQNameList *dest, const ZQNameList *source);

/** Copies a list of user or group names. A null source leaves `dest` untouched. */
ZQXML_API unsigned CopyZQAccessNameList(ZQAccessNameList *dest, const ZQAccessNameList *source);

/** Copies a list of texts, each owned or null. A null text stays null. */
ZQXML_API unsigned CopyZQTextStringList(ZQTextStringList *dest, const ZQTextStringList *source);

/** Copies a list of permissions. A null source leaves `dest` untouched. */
ZQXML_API unsigned CopyZQPermissionList(ZQPermissionList *dest, const ZQPermissionList *source);

/**
 * Copies a list of fields to sort by.
 * A null source leaves `dest` untouched. Deliberate: if memory runs out the result is 0 and `dest` is empty.
 */
ZQXML_API unsigned CopyZQSortList(ZQSortList *dest, const ZQSortList *source);

/**
 * Copies a list of indexes.
 * A null source leaves `dest` untouched. Deliberate: if memory runs out the result is 0 and `dest` is empty.
 */
ZQXML_API unsigned CopyZQIndexList(ZQIndexList *dest, const ZQIndexList *source);

/** Copies the name of an object, with its selected elements. */
ZQXML_API unsigned CopyZQStructItemStruct(ZQStructItemStruct *dest, const ZQStructItemStruct *source);

/** Copies a list of names of objects. Unlike the free, it takes the selected elements along. */
ZQXML_API unsigned CopyZQStructItemList(ZQStructItemList *dest, const ZQStructItemList *source);

/** Copies a list of values of an enumeration. A null source leaves `dest` untouched. */
ZQXML_API unsigned CopyZQEnumItemList(ZQEnumItemList *dest, const ZQEnumItemList *source);

/** Copies a list of currencies. */
ZQXML_API unsigned CopyZQCurrencyDetailList(ZQCurrencyDetailList *dest, const ZQCurrencyDetailList *source);

/**
 * Copies a list of columns of an entry list.
 * A null source leaves `dest` untouched. Deliberate: if memory runs out the result is 0 and `dest` is empty.
 */
ZQXML_API unsigned CopyZQEntryListFieldList(ZQEntryListFieldList *dest, const ZQEntryListFieldList *source);

/**
 * Copies a condition.
 * Trees of any depth need a constant amount of stack. The two nodes below an "and" or "or" are allocated before either
 * is copied.
 */
ZQXML_API unsigned CopyZQQualifierStruct(ZQQualifierStruct *dest, const ZQQualifierStruct *source);

/** Copies a relation. */
ZQXML_API unsigned CopyZQRelOpStruct(ZQRelOpStruct *dest, const ZQRelOpStruct *source);

/**
 * Copies arithmetic of two operands.
 * Both operands are copied whatever the operation, so that the left one of a negation must hold a valid tag too.
 */
ZQXML_API unsigned CopyZQArithOpStruct(ZQArithOpStruct *dest, const ZQArithOpStruct *source);

/** Copies an operand. */
ZQXML_API unsigned CopyZQFieldValueOrArithStruct(ZQFieldValueOrArithStruct *dest,
                                                   const ZQFieldValueOrArithStruct *source);

/** Copies a value by a query. */
ZQXML_API unsigned CopyZQQueryValueStruct(ZQQueryValueStruct *dest, const ZQQueryValueStruct *source);

/** Copies an assignment. Assignments nested to any depth need a constant amount of stack. */
ZQXML_API unsigned CopyZQAssignStruct(ZQAssignStruct *dest, const ZQAssignStruct *source);

/** Copies a field of some entry of a form. */
ZQXML_API unsigned CopyZQAssignFieldStruct(ZQAssignFieldStruct *dest, const ZQAssignFieldStruct *source);

/** Copies arithmetic of two assignments. */
ZQXML_API unsigned CopyZQArithOpAssignStruct(ZQArithOpAssignStruct *dest, const ZQArithOpAssignStruct *source);

/** Copies a function call. */
ZQXML_API unsigned CopyZQFunctionAssignStruct(ZQFunctionAssignStruct *dest, const ZQFunctionAssignStruct *source);

/** Copies a DDE conversation. */
ZQXML_API unsigned CopyZQDDEStruct(ZQDDEStruct *dest, const ZQDDEStruct *source);

/** Copies an assignment by an SQL statement. */
ZQXML_API unsigned CopyZQAssignSQLStruct(ZQAssignSQLStruct *dest, const ZQAssignSQLStruct *source);

/** Copies an assignment by a filter API call. */
ZQXML_API unsigned CopyZQAssignFilterApiStruct(ZQAssignFilterApiStruct *dest, const ZQAssignFilterApiStruct *source);

/** Copies a field and its new value. */
ZQXML_API unsigned CopyZQFieldAssignStruct(ZQFieldAssignStruct *dest, const ZQFieldAssignStruct *source);

/** Copies a list of fields with their new values. */
ZQXML_API unsigned CopyZQFieldAssignList(ZQFieldAssignList *dest, const ZQFieldAssignList *source);

/** Copies a field of another form and its new value. */
ZQXML_API unsigned CopyZQPushFieldsStruct(ZQPushFieldsStruct *dest, const ZQPushFieldsStruct *source);

/** Copies a list of fields of other forms with their new values. */
ZQXML_API unsigned CopyZQPushFieldsList(ZQPushFieldsList *dest, const ZQPushFieldsList *source);

/** Copies a binding of workflow. */
ZQXML_API unsigned CopyZQWorkflowConnectStruct(ZQWorkflowConnectStruct *dest, const ZQWorkflowConnectStruct *source);

/** Copies a notification. */
ZQXML_API unsigned CopyZQFilterActionNotify(ZQFilterActionNotify *dest, const ZQFilterActionNotify *source);

/** Copies a message of a filter. */
ZQXML_API unsigned CopyZQFilterStatusStruct(ZQFilterStatusStruct *dest, const ZQFilterStatusStruct *source);

/** Copies an SQL action. */
ZQXML_API unsigned CopyZQSQLStruct(ZQSQLStruct *dest, const ZQSQLStruct *source);

/** Copies an action of a filter or an escalation. */
ZQXML_API unsigned CopyZQFilterActionStruct(ZQFilterActionStruct *dest, const ZQFilterActionStruct *source);

/** Copies a list of filter actions. */
ZQXML_API unsigned CopyZQFilterActionList(ZQFilterActionList *dest, const ZQFilterActionList *source);

/** Copies a macro. */
ZQXML_API unsigned CopyZQActiveLinkMacroStruct(ZQActiveLinkMacroStruct *dest, const ZQActiveLinkMacroStruct *source);

/** Copies an automation value. */
ZQXML_API unsigned CopyZQCOMValueStruct(ZQCOMValueStruct *dest, const ZQCOMValueStruct *source);

/** Copies a list of method parameters. */
ZQXML_API unsigned CopyZQCOMMethodParmList(ZQCOMMethodParmList *dest, const ZQCOMMethodParmList *source);

/** Copies an automation action. */
ZQXML_API unsigned CopyZQAutomationStruct(ZQAutomationStruct *dest, const ZQAutomationStruct *source);

/** Copies a window to open. Deliberate: a sort list that finds no memory is empty, and the result is 0 all the same. */
ZQXML_API unsigned CopyZQOpenDlgStruct(ZQOpenDlgStruct *dest, const ZQOpenDlgStruct *source);

/** Copies an action of an active link. */
ZQXML_API unsigned CopyZQActiveLinkActionStruct(ZQActiveLinkActionStruct *dest, const ZQActiveLinkActionStruct *source);

/**
 * Copies a list of active link actions.
 * Deliberate: if memory runs out for the array, `numItems` is that of the source beside null `items`.
 */
ZQXML_API unsigned CopyZQActiveLinkActionList(ZQActiveLinkActionList *dest, const ZQActiveLinkActionList *source);

/** Copies the kind of a form. */
ZQXML_API unsigned CopyZQCompoundSchema(ZQCompoundSchema *dest, const ZQCompoundSchema *source);

/**
 * Copies the limits of a currency field.
 * Deliberate: functional currencies that find no memory are left out, and the result is 0 all the same.
 */
ZQXML_API unsigned CopyZQCurrencyLimitsStruct(ZQCurrencyLimitsStruct *dest, const ZQCurrencyLimitsStruct *source);

/** Copies the limits of a field. */
ZQXML_API unsigned CopyZQFieldLimitStruct(ZQFieldLimitStruct *dest, const ZQFieldLimitStruct *source);

/** Copies a field. */
ZQXML_API unsigned CopyZQFieldInfoStruct(ZQFieldInfoStruct *dest, const ZQFieldInfoStruct *source);

/** Copies a list of fields. */
ZQXML_API unsigned CopyZQFieldInfoList(ZQFieldInfoList *dest, const ZQFieldInfoList *source);

/** Copies a view of a form. */
ZQXML_API unsigned CopyZQVuiInfoStruct(ZQVuiInfoStruct *dest, const ZQVuiInfoStruct *source);

/** Copies a list of views. */
ZQXML_API unsigned CopyZQVuiInfoList(ZQVuiInfoList *dest, const ZQVuiInfoList *source);

/** Copies a support file of an active link. A size of 0 gives null content. */
ZQXML_API unsigned CopyZQSupportFileInfoStruct(ZQSupportFileInfoStruct *dest, const ZQSupportFileInfoStruct *source);

/** Copies a list of support files. */
ZQXML_API unsigned CopyZQSupportFileInfoList(ZQSupportFileInfoList *dest, const ZQSupportFileInfoList *source);

/**
 * Copies a menu.
 *
 * Menus nested to any depth need a constant amount of stack.
 *
 * @return 0, or 300; 131 if an item in it has an unknown type; 206 if it or a menu below it has a type above 6: if it
 *         is `source` itself, the type of `dest` is 0
 */
ZQXML_API unsigned CopyZQCharMenuStruct(ZQCharMenuStruct *dest, const ZQCharMenuStruct *source);

/**
 * Copies an item of a menu.
 *
 * @return 0, or 300; 131 if the item or one below it has an unknown type; 206 if a menu below it has a type above 6
 */
ZQXML_API unsigned CopyZQCharMenuItemStruct(ZQCharMenuItemStruct *dest, const ZQCharMenuItemStruct *source);

/** Copies a list of owners of a container. */
ZQXML_API unsigned CopyZQContainerOwnerObjList(ZQContainerOwnerObjList *dest, const ZQContainerOwnerObjList *source);

/** Copies a list of owners of a container, by their ids. A null source leaves `dest` untouched. */
ZQXML_API unsigned CopyZQContainerOwnerObjIdList(ZQContainerOwnerObjIdList *dest,
                                                   const ZQContainerOwnerObjIdList *source);

/** Copies a list of references. */
ZQXML_API unsigned CopyZQReferenceList(ZQReferenceList *dest, const ZQReferenceList *source);

ZQXML_END_DECLS

#endif
