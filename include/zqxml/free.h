/**
 * @file
 * Deep free of records: everything a record owns is given back to the C heap, block by block.
 *
 * All functions have one pattern, `FreeZQ<Record>(record, freeStruct)`:
 *
 * - A null record is ignored. Null pointers in a record are skipped. A tag that the record doesn't know owns nothing.
 * - With `freeStruct` 0 the record itself stays: it lies in storage of the caller, or inside another record. What hung
 *   from it is freed, each pointer to it is null, counts and tags of unions are 0, and everything else stays as it was.
 *   A second call does nothing.
 * - With `freeStruct` not 0 the record is a heap block of its own and is freed at the end.
 * - A list with `numItems` 0 and non-null `items` keeps that array: it is not freed, and with `freeStruct` 0 `items` is
 *   null all the same.
 *
 * A function that deviates says so. FreeZQStatusList stands in zqxml/status.h.
 */
#ifndef ZQXML_FREE_H
#define ZQXML_FREE_H

#include "zqxml/export.h"
#include "zqxml/records.h"

ZQXML_BEGIN_DECLS

/** Frees a tagged value. With `freeStruct` 0 the whole record is zeroed, whatever its type. */
ZQXML_API void FreeZQValueStruct(ZQValueStruct *record, ZQBoolean freeStruct);

/** Frees a list of values. */
ZQXML_API void FreeZQValueList(ZQValueList *list, ZQBoolean freeStruct);

/** Frees a list of value lists. */
ZQXML_API void FreeZQValueListList(ZQValueListList *list, ZQBoolean freeStruct);

/** Frees a field and its value. The `fieldId` stays. */
ZQXML_API void FreeZQFieldValueStruct(ZQFieldValueStruct *record, ZQBoolean freeStruct);

/** Frees a list of fields with values. */
ZQXML_API void FreeZQFieldValueList(ZQFieldValueList *list, ZQBoolean freeStruct);

/** Frees a list of lists of fields with values. */
ZQXML_API void FreeZQFieldValueListList(ZQFieldValueListList *list, ZQBoolean freeStruct);

/** Frees a byte list. The `byteType` stays. */
ZQXML_API void FreeZQByteList(ZQByteList *list, ZQBoolean freeStruct);

/** Frees the bytes of an attachment. */
ZQXML_API void FreeZQBufStruct(ZQBufStruct *record, ZQBoolean freeStruct);

/**
 * Frees the location of an attachment.
 * With `freeStruct` 0 the whole record is zeroed. A location that is neither 1 nor 2 owns nothing.
 */
ZQXML_API void FreeZQLocStruct(ZQLocStruct *record, ZQBoolean freeStruct);

/** Frees an attachment. With `freeStruct` 0 both sizes are 0 as well. */
ZQXML_API void FreeZQAttachStruct(ZQAttachStruct *record, ZQBoolean freeStruct);

/** Frees an amount in a functional currency. */
ZQXML_API void FreeZQFuncCurrencyStruct(ZQFuncCurrencyStruct *record, ZQBoolean freeStruct);

/** Frees a list of amounts in functional currencies. */
ZQXML_API void FreeZQFuncCurrencyList(ZQFuncCurrencyList *list, ZQBoolean freeStruct);

/** Frees an amount of money. */
ZQXML_API void FreeZQCurrencyStruct(ZQCurrencyStruct *record, ZQBoolean freeStruct);

/** Frees a list of amounts of money. */
ZQXML_API void FreeZQCurrencyList(ZQCurrencyList *list, ZQBoolean freeStruct);

/** Frees a list of points. */
ZQXML_API void FreeZQCoordList(ZQCoordList *list, ZQBoolean freeStruct);

/** Frees a property. With `freeStruct` 0 `property` is 0 as well. */
ZQXML_API void FreeZQPropStruct(ZQPropStruct *record, ZQBoolean freeStruct);

/** Frees a list of properties. */
ZQXML_API void FreeZQPropList(ZQPropList *list, ZQBoolean freeStruct);

/** Frees a list of property lists. */
ZQXML_API void FreeZQPropListList(ZQPropListList *list, ZQBoolean freeStruct);

/** Frees the look of a field in a view. */
ZQXML_API void FreeZQDisplayInstanceStruct(ZQDisplayInstanceStruct *record, ZQBoolean freeStruct);

/** Frees the look of a field in all views. */
ZQXML_API void FreeZQDisplayInstanceList(ZQDisplayInstanceList *list, ZQBoolean freeStruct);

/** Frees a list of looks of fields. */
ZQXML_API void FreeZQDisplayInstanceListList(ZQDisplayInstanceListList *list, ZQBoolean freeStruct);

/** Frees a list of unsigned numbers. */
ZQXML_API void FreeZQUnsignedIntList(ZQUnsignedIntList *list, ZQBoolean freeStruct);

/** Frees a list of ids. */
ZQXML_API void FreeZQInternalIdList(ZQInternalIdList *list, ZQBoolean freeStruct);

/** Frees a list of id lists. */
ZQXML_API void FreeZQInternalIdListList(ZQInternalIdListList *list, ZQBoolean freeStruct);

/** Frees a list of times. */
ZQXML_API void FreeZQTimestampList(ZQTimestampList *list, ZQBoolean freeStruct);

/** Frees a list of truth values. */
ZQXML_API void FreeZQBooleanList(ZQBooleanList *list, ZQBoolean freeStruct);

/** Frees a list of lists of truth values. */
ZQXML_API void FreeZQBooleanListList(ZQBooleanListList *list, ZQBoolean freeStruct);

/** Frees a list of names. */
ZQXML_API void FreeZQNameList(ZQNameList *list, ZQBoolean freeStruct);

/** Frees a list of user or group names. */
ZQXML_API void FreeZQAccessNameList(ZQAccessNameList *list, ZQBoolean freeStruct);

/** Frees a list of server names. */
ZQXML_API void FreeZQServerNameList(ZQServerNameList *list, ZQBoolean freeStruct);

/** Frees a list of texts, each owned or null. */
ZQXML_API void FreeZQTextStringList(ZQTextStringList *list, ZQBoolean freeStruct);

/** Frees a list of parts of an entry id. */
ZQXML_API void FreeZQEntryIdList(ZQEntryIdList *list, ZQBoolean freeStruct);

/** Frees a list of entry ids. */
ZQXML_API void FreeZQEntryIdListList(ZQEntryIdListList *list, ZQBoolean freeStruct);

/** Frees a list of permissions. */
ZQXML_API void FreeZQPermissionList(ZQPermissionList *list, ZQBoolean freeStruct);

/** Frees a list of permission lists. */
ZQXML_API void FreeZQPermissionListList(ZQPermissionListList *list, ZQBoolean freeStruct);

/** Frees a list of fields to sort by. */
ZQXML_API void FreeZQSortList(ZQSortList *list, ZQBoolean freeStruct);

/** Frees a list of sort lists. */
ZQXML_API void FreeZQSortListList(ZQSortListList *list, ZQBoolean freeStruct);

/** Frees a list of indexes. */
ZQXML_API void FreeZQIndexList(ZQIndexList *list, ZQBoolean freeStruct);

/** Frees a list of index lists. */
ZQXML_API void FreeZQIndexListList(ZQIndexListList *list, ZQBoolean freeStruct);

/**
 * Frees a list of names of objects.
 * Deliberate: `selectedElements` of the elements stay allocated; the caller frees them.
 */
ZQXML_API void FreeZQStructItemList(ZQStructItemList *list, ZQBoolean freeStruct);

/** Frees a list of columns of an entry list. */
ZQXML_API void FreeZQEntryListFieldList(ZQEntryListFieldList *list, ZQBoolean freeStruct);

/** Frees a list of lists of columns. */
ZQXML_API void FreeZQEntryListFieldListList(ZQEntryListFieldListList *list, ZQBoolean freeStruct);

/** Frees a list of lines of an entry list. */
ZQXML_API void FreeZQEntryListList(ZQEntryListList *list, ZQBoolean freeStruct);

/** Frees a line of an entry list, by values. */
ZQXML_API void FreeZQEntryListFieldValueStruct(ZQEntryListFieldValueStruct *record, ZQBoolean freeStruct);

/** Frees a list of lines of an entry list, by values. */
ZQXML_API void FreeZQEntryListFieldValueList(ZQEntryListFieldValueList *list, ZQBoolean freeStruct);

/** Frees a list of diary entries. */
ZQXML_API void FreeZQDiaryList(ZQDiaryList *list, ZQBoolean freeStruct);

/** Frees a status history. */
ZQXML_API void FreeZQStatusHistoryList(ZQStatusHistoryList *list, ZQBoolean freeStruct);

/** Frees a condition. Trees of any depth need a constant amount of stack. */
ZQXML_API void FreeZQQualifierStruct(ZQQualifierStruct *record, ZQBoolean freeStruct);

/**
 * Frees a list of conditions.
 * Deliberate: with `freeStruct` 0 `numItems` and `items` stay as they were, and `items` alone decides whether there is
 * an array. Clear the list yourself; it must not be freed again.
 */
ZQXML_API void FreeZQQualifierList(ZQQualifierList *list, ZQBoolean freeStruct);

/** Frees a relation. */
ZQXML_API void FreeZQRelOpStruct(ZQRelOpStruct *record, ZQBoolean freeStruct);

/**
 * Frees arithmetic of two operands.
 * Deliberate: with operation 6, negation, `operandLeft` is left alone, however it is filled.
 */
ZQXML_API void FreeZQArithOpStruct(ZQArithOpStruct *record, ZQBoolean freeStruct);

/**
 * Frees an operand.
 * The tag stays. Deliberate: the top node of a query's `queryQualification` stays allocated, with operation 0; what
 * hangs from it is freed. A caller that wants that node back keeps its address.
 */
ZQXML_API void FreeZQFieldValueOrArithStruct(ZQFieldValueOrArithStruct *record, ZQBoolean freeStruct);

/** Frees an assignment. Assignments nested to any depth need a constant amount of stack. */
ZQXML_API void FreeZQAssignStruct(ZQAssignStruct *record, ZQBoolean freeStruct);

/** Frees a field of some entry of a form. The tag stays. */
ZQXML_API void FreeZQAssignFieldStruct(ZQAssignFieldStruct *record, ZQBoolean freeStruct);

/** Frees arithmetic of two assignments. */
ZQXML_API void FreeZQArithOpAssignStruct(ZQArithOpAssignStruct *record, ZQBoolean freeStruct);

/** Frees a function call. */
ZQXML_API void FreeZQFunctionAssignStruct(ZQFunctionAssignStruct *record, ZQBoolean freeStruct);

/** Frees a DDE conversation. */
ZQXML_API void FreeZQDDEStruct(ZQDDEStruct *record, ZQBoolean freeStruct);

/** Frees an assignment by an SQL statement. */
ZQXML_API void FreeZQAssignSQLStruct(ZQAssignSQLStruct *record, ZQBoolean freeStruct);

/** Frees an assignment by a filter API call. */
ZQXML_API void FreeZQAssignFilterApiStruct(ZQAssignFilterApiStruct *record, ZQBoolean freeStruct);

/** Frees a field and its new value. */
ZQXML_API void FreeZQFieldAssignStruct(ZQFieldAssignStruct *record, ZQBoolean freeStruct);

/** Frees a list of fields with their new values. */
ZQXML_API void FreeZQFieldAssignList(ZQFieldAssignList *list, ZQBoolean freeStruct);

/** Frees a list of fields of other forms with their new values. */
ZQXML_API void FreeZQPushFieldsList(ZQPushFieldsList *list, ZQBoolean freeStruct);

/** Frees a binding of workflow. */
ZQXML_API void FreeZQWorkflowConnectStruct(ZQWorkflowConnectStruct *record, ZQBoolean freeStruct);

/** Frees a list of bindings of workflow. */
ZQXML_API void FreeZQWorkflowConnectList(ZQWorkflowConnectList *list, ZQBoolean freeStruct);

/** Frees the settings of a mail notification. */
ZQXML_API void FreeZQFilterActionNotifyAdvanced(ZQFilterActionNotifyAdvanced *record, ZQBoolean freeStruct);

/** Frees an SQL action. */
ZQXML_API void FreeZQSQLStruct(ZQSQLStruct *record, ZQBoolean freeStruct);

/** Frees a jump to a label of a guide. */
ZQXML_API void FreeZQGotoGuideLabelStruct(ZQGotoGuideLabelStruct *record, ZQBoolean freeStruct);

/** Frees an action of a filter or an escalation. */
ZQXML_API void FreeZQFilterActionStruct(ZQFilterActionStruct *record, ZQBoolean freeStruct);

/** Frees a list of filter actions. */
ZQXML_API void FreeZQFilterActionList(ZQFilterActionList *list, ZQBoolean freeStruct);

/** Frees a parameter of a macro. */
ZQXML_API void FreeZQMacroParmStruct(ZQMacroParmStruct *record, ZQBoolean freeStruct);

/** Frees a list of macro parameters. */
ZQXML_API void FreeZQMacroParmList(ZQMacroParmList *list, ZQBoolean freeStruct);

/** Frees an automation value. */
ZQXML_API void FreeZQCOMValueStruct(ZQCOMValueStruct *record, ZQBoolean freeStruct);

/** Frees a parameter of an automation method. */
ZQXML_API void FreeZQCOMMethodParmStruct(ZQCOMMethodParmStruct *record, ZQBoolean freeStruct);

/** Frees a list of method parameters. */
ZQXML_API void FreeZQCOMMethodParmList(ZQCOMMethodParmList *list, ZQBoolean freeStruct);

/** Frees an automation method. */
ZQXML_API void FreeZQCOMMethodStruct(ZQCOMMethodStruct *record, ZQBoolean freeStruct);

/** Frees a list of methods. */
ZQXML_API void FreeZQCOMMethodList(ZQCOMMethodList *list, ZQBoolean freeStruct);

/** Frees an automation action. */
ZQXML_API void FreeZQAutomationStruct(ZQAutomationStruct *record, ZQBoolean freeStruct);

/** Frees a window to open. */
ZQXML_API void FreeZQOpenDlgStruct(ZQOpenDlgStruct *record, ZQBoolean freeStruct);

/** Frees a pause. */
ZQXML_API void FreeZQWaitStruct(ZQWaitStruct *record, ZQBoolean freeStruct);

/** Frees an action of an active link. */
ZQXML_API void FreeZQActiveLinkActionStruct(ZQActiveLinkActionStruct *record, ZQBoolean freeStruct);

/** Frees a list of active link actions. */
ZQXML_API void FreeZQActiveLinkActionList(ZQActiveLinkActionList *list, ZQBoolean freeStruct);

/** Frees a list of lists of active link actions. */
ZQXML_API void FreeZQActiveLinkActionListList(ZQActiveLinkActionListList *list, ZQBoolean freeStruct);

/** Frees the kind of a form. */
ZQXML_API void FreeZQCompoundSchema(ZQCompoundSchema *record, ZQBoolean freeStruct);

/** Frees a list of kinds of forms. */
ZQXML_API void FreeZQCompoundSchemaList(ZQCompoundSchemaList *list, ZQBoolean freeStruct);

/** Frees a list of field mappings. */
ZQXML_API void FreeZQFieldMappingList(ZQFieldMappingList *list, ZQBoolean freeStruct);

/** Frees the limits of a currency field. */
ZQXML_API void FreeZQCurrencyLimitsStruct(ZQCurrencyLimitsStruct *record, ZQBoolean freeStruct);

/** Frees the limits of a field. */
ZQXML_API void FreeZQFieldLimitStruct(ZQFieldLimitStruct *record, ZQBoolean freeStruct);

/** Frees a list of limits. */
ZQXML_API void FreeZQFieldLimitList(ZQFieldLimitList *list, ZQBoolean freeStruct);

/** Frees a field. */
ZQXML_API void FreeZQFieldInfoStruct(ZQFieldInfoStruct *record, ZQBoolean freeStruct);

/** Frees a list of fields. */
ZQXML_API void FreeZQFieldInfoList(ZQFieldInfoList *list, ZQBoolean freeStruct);

/** Frees a view of a form. */
ZQXML_API void FreeZQVuiInfoStruct(ZQVuiInfoStruct *record, ZQBoolean freeStruct);

/** Frees a list of views. */
ZQXML_API void FreeZQVuiInfoList(ZQVuiInfoList *list, ZQBoolean freeStruct);

/** Frees a support file of an active link. With `freeStruct` 0 `fileSize` is 0 as well. */
ZQXML_API void FreeZQSupportFileInfoStruct(ZQSupportFileInfoStruct *record, ZQBoolean freeStruct);

/** Frees a list of support files. */
ZQXML_API void FreeZQSupportFileInfoList(ZQSupportFileInfoList *list, ZQBoolean freeStruct);

/** Frees a menu. Menus nested to any depth need a constant amount of stack. */
ZQXML_API void FreeZQCharMenuStruct(ZQCharMenuStruct *record, ZQBoolean freeStruct);

/** Frees a list of menus. */
ZQXML_API void FreeListZQCharMenuStruct(ZQCharMenuStructList *list, ZQBoolean freeStruct);

/** Frees an item of a menu. */
ZQXML_API void FreeZQCharMenuItemStruct(ZQCharMenuItemStruct *record, ZQBoolean freeStruct);

/** Frees a list of menu items. Its elements are menu items; for whole menus see FreeListZQCharMenuStruct. */
ZQXML_API void FreeZQCharMenuList(ZQCharMenuList *list, ZQBoolean freeStruct);

/** Frees a menu for the server's use. */
ZQXML_API void FreeZQCharMenuSSStruct(ZQCharMenuSSStruct *record, ZQBoolean freeStruct);

/** Frees a list of owners of a container. */
ZQXML_API void FreeZQContainerOwnerObjList(ZQContainerOwnerObjList *list, ZQBoolean freeStruct);

/** Frees a reference of a container. The `dataSource` stays. */
ZQXML_API void FreeZQReferenceStruct(ZQReferenceStruct *record, ZQBoolean freeStruct);

/** Frees a list of references. */
ZQXML_API void FreeZQReferenceList(ZQReferenceList *list, ZQBoolean freeStruct);

/** Frees an entry to create. The `parent` is not owned. Trees of any depth need a constant amount of stack. */
ZQXML_API void FreeZQComplexEntryCreate(ZQComplexEntryCreate *record, ZQBoolean freeStruct);

/** Frees a list of entries to create. */
ZQXML_API void FreeZQComplexEntryCreateList(ZQComplexEntryCreateList *list, ZQBoolean freeStruct);

/** Frees an entry to set. The `parent` is not owned. Trees of any depth need a constant amount of stack. */
ZQXML_API void FreeZQComplexEntrySet(ZQComplexEntrySet *record, ZQBoolean freeStruct);

/** Frees a list of entries to set. */
ZQXML_API void FreeZQComplexEntrySetList(ZQComplexEntrySetList *list, ZQBoolean freeStruct);

/** Frees what is fetched of a form. Trees of any depth need a constant amount of stack. */
ZQXML_API void FreeZQComplexEntryGetIn(ZQComplexEntryGetIn *record, ZQBoolean freeStruct);

/** Frees a list of what is fetched, form by form. */
ZQXML_API void FreeZQComplexEntryGetInList(ZQComplexEntryGetInList *list, ZQBoolean freeStruct);

/** Frees a retrieved entry. Trees of any depth need a constant amount of stack. */
ZQXML_API void FreeZQComplexEntryGetOut(ZQComplexEntryGetOut *record, ZQBoolean freeStruct);

/** Frees a list of retrieved entries. */
ZQXML_API void FreeZQComplexEntryGetOutList(ZQComplexEntryGetOutList *list, ZQBoolean freeStruct);

/** Frees a list of views with their labels. */
ZQXML_API void FreeZQDisplayList(ZQDisplayList *list, ZQBoolean freeStruct);

/** Frees a list of container types. */
ZQXML_API void FreeZQContainerTypeList(ZQContainerTypeList *list, ZQBoolean freeStruct);

/** Frees a list of containers. */
ZQXML_API void FreeZQContainerInfoList(ZQContainerInfoList *list, ZQBoolean freeStruct);

/** Frees a list of localized texts that are asked for. */
ZQXML_API void FreeZQLocalizedRequestList(ZQLocalizedRequestList *list, ZQBoolean freeStruct);

/** Frees a list of numbers of settings that are asked for. */
ZQXML_API void FreeZQServerInfoRequestList(ZQServerInfoRequestList *list, ZQBoolean freeStruct);

/** Frees a list of settings of the server. */
ZQXML_API void FreeZQServerInfoList(ZQServerInfoList *list, ZQBoolean freeStruct);

/** Frees a list of operands of statistics. */
ZQXML_API void FreeZQStatisticsList(ZQStatisticsList *list, ZQBoolean freeStruct);

/** Frees a list of statistical results. */
ZQXML_API void FreeZQStatisticsResultList(ZQStatisticsResultList *list, ZQBoolean freeStruct);

/** Frees a list of tags of settings that are asked for. */
ZQXML_API void FreeZQFullTextInfoRequestList(ZQFullTextInfoRequestList *list, ZQBoolean freeStruct);

/**
 * Frees a list of settings of the full text search.
 * Tag 2 owns a value list, tags 1 and 3 to 6 a value, others nothing.
 */
ZQXML_API void FreeZQFullTextInfoList(ZQFullTextInfoList *list, ZQBoolean freeStruct);

/** Frees a list of signals. */
ZQXML_API void FreeZQSignalList(ZQSignalList *list, ZQBoolean freeStruct);

/** Frees a list of groups. */
ZQXML_API void FreeZQGroupInfoList(ZQGroupInfoList *list, ZQBoolean freeStruct);

/** Frees a list of users. */
ZQXML_API void FreeZQUserInfoList(ZQUserInfoList *list, ZQBoolean freeStruct);

ZQXML_END_DECLS

#endif
