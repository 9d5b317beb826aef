/* The layout of the records is a contract: each size and offset is pinned. */
#include "layout.h"

#include <zqxml/records.h>

SIZE(ZQBoolean, 1);
SIZE(ZQNameType, 255);
SIZE(ZQAccessNameType, 31);
SIZE(ZQServerNameType, 65);
SIZE(ZQEntryIdType, 16);
SIZE(ZQCurrencyCodeType, 4);
SIZE(ZQInternalId, 4);
SIZE(ZQTimestamp, 4);

SIZE(ZQStatusStruct, 24);
ALIGNED(ZQStatusStruct, 8);
AT(ZQStatusStruct, messageType, 0);
WIDTH(ZQStatusStruct, messageType, 4);
AT(ZQStatusStruct, messageNum, 4);
WIDTH(ZQStatusStruct, messageNum, 4);
AT(ZQStatusStruct, messageText, 8);
WIDTH(ZQStatusStruct, messageText, 8);
AT(ZQStatusStruct, appendedText, 16);
WIDTH(ZQStatusStruct, appendedText, 8);

SIZE(ZQByteList, 16);
ALIGNED(ZQByteList, 8);
AT(ZQByteList, byteType, 0);
WIDTH(ZQByteList, byteType, 4);
AT(ZQByteList, numItems, 4);
WIDTH(ZQByteList, numItems, 4);
AT(ZQByteList, bytes, 8);
WIDTH(ZQByteList, bytes, 8);

SIZE(ZQCoordStruct, 8);
ALIGNED(ZQCoordStruct, 4);
AT(ZQCoordStruct, x, 0);
WIDTH(ZQCoordStruct, x, 4);
AT(ZQCoordStruct, y, 4);
WIDTH(ZQCoordStruct, y, 4);

SIZE(ZQBufStruct, 16);
ALIGNED(ZQBufStruct, 8);
AT(ZQBufStruct, bufferSize, 0);
WIDTH(ZQBufStruct, bufferSize, 4);
AT(ZQBufStruct, bufferData, 8);
WIDTH(ZQBufStruct, bufferData, 8);

SIZE(ZQLocStruct, 24);
ALIGNED(ZQLocStruct, 8);
AT(ZQLocStruct, locationType, 0);
WIDTH(ZQLocStruct, locationType, 4);
AT(ZQLocStruct, u, 8);
WIDTH(ZQLocStruct, u, 16);
AT(ZQLocStruct, u.fileName, 8);
WIDTH(ZQLocStruct, u.fileName, 8);
AT(ZQLocStruct, u.buffer, 8);
WIDTH(ZQLocStruct, u.buffer, 16);

SIZE(ZQAttachStruct, 40);
ALIGNED(ZQAttachStruct, 8);
AT(ZQAttachStruct, attachmentName, 0);
WIDTH(ZQAttachStruct, attachmentName, 8);
AT(ZQAttachStruct, originalSize, 8);
WIDTH(ZQAttachStruct, originalSize, 4);
AT(ZQAttachStruct, compressedSize, 12);
WIDTH(ZQAttachStruct, compressedSize, 4);
AT(ZQAttachStruct, location, 16);
WIDTH(ZQAttachStruct, location, 24);

SIZE(ZQFuncCurrencyStruct, 16);
ALIGNED(ZQFuncCurrencyStruct, 8);
AT(ZQFuncCurrencyStruct, value, 0);
WIDTH(ZQFuncCurrencyStruct, value, 8);
AT(ZQFuncCurrencyStruct, currencyCode, 8);
WIDTH(ZQFuncCurrencyStruct, currencyCode, 4);

SIZE(ZQFuncCurrencyList, 16);
ALIGNED(ZQFuncCurrencyList, 8);
AT(ZQFuncCurrencyList, numItems, 0);
AT(ZQFuncCurrencyList, items, 8);
STRIDE(ZQFuncCurrencyList, 16);

SIZE(ZQCurrencyStruct, 32);
ALIGNED(ZQCurrencyStruct, 8);
AT(ZQCurrencyStruct, value, 0);
WIDTH(ZQCurrencyStruct, value, 8);
AT(ZQCurrencyStruct, currencyCode, 8);
WIDTH(ZQCurrencyStruct, currencyCode, 4);
AT(ZQCurrencyStruct, conversionDate, 12);
WIDTH(ZQCurrencyStruct, conversionDate, 4);
AT(ZQCurrencyStruct, functionalCurrencies, 16);
WIDTH(ZQCurrencyStruct, functionalCurrencies, 16);

SIZE(ZQCoordList, 16);
ALIGNED(ZQCoordList, 8);
AT(ZQCoordList, numItems, 0);
AT(ZQCoordList, items, 8);
STRIDE(ZQCoordList, 8);

SIZE(ZQValueStruct, 16);
ALIGNED(ZQValueStruct, 8);
AT(ZQValueStruct, dataType, 0);
WIDTH(ZQValueStruct, dataType, 4);
AT(ZQValueStruct, u, 8);
WIDTH(ZQValueStruct, u, 8);
AT(ZQValueStruct, u.keywordValue, 8);
WIDTH(ZQValueStruct, u.keywordValue, 4);
AT(ZQValueStruct, u.integerValue, 8);
WIDTH(ZQValueStruct, u.integerValue, 4);
AT(ZQValueStruct, u.realValue, 8);
WIDTH(ZQValueStruct, u.realValue, 8);
AT(ZQValueStruct, u.characterValue, 8);
WIDTH(ZQValueStruct, u.characterValue, 8);
AT(ZQValueStruct, u.diaryValue, 8);
WIDTH(ZQValueStruct, u.diaryValue, 8);
AT(ZQValueStruct, u.enumValue, 8);
WIDTH(ZQValueStruct, u.enumValue, 4);
AT(ZQValueStruct, u.timeValue, 8);
WIDTH(ZQValueStruct, u.timeValue, 4);
AT(ZQValueStruct, u.maskValue, 8);
WIDTH(ZQValueStruct, u.maskValue, 4);
AT(ZQValueStruct, u.byteList, 8);
WIDTH(ZQValueStruct, u.byteList, 8);
AT(ZQValueStruct, u.decimalValue, 8);
WIDTH(ZQValueStruct, u.decimalValue, 8);
AT(ZQValueStruct, u.attachmentValue, 8);
WIDTH(ZQValueStruct, u.attachmentValue, 8);
AT(ZQValueStruct, u.currencyValue, 8);
WIDTH(ZQValueStruct, u.currencyValue, 8);
AT(ZQValueStruct, u.dateValue, 8);
WIDTH(ZQValueStruct, u.dateValue, 4);
AT(ZQValueStruct, u.timeOfDayValue, 8);
WIDTH(ZQValueStruct, u.timeOfDayValue, 4);
AT(ZQValueStruct, u.unsignedLongValue, 8);
WIDTH(ZQValueStruct, u.unsignedLongValue, 4);
AT(ZQValueStruct, u.coordinateList, 8);
WIDTH(ZQValueStruct, u.coordinateList, 8);
AT(ZQValueStruct, u.viewValue, 8);
WIDTH(ZQValueStruct, u.viewValue, 8);
AT(ZQValueStruct, u.displayValue, 8);
WIDTH(ZQValueStruct, u.displayValue, 8);

SIZE(ZQFieldValueStruct, 24);
ALIGNED(ZQFieldValueStruct, 8);
AT(ZQFieldValueStruct, fieldId, 0);
WIDTH(ZQFieldValueStruct, fieldId, 4);
AT(ZQFieldValueStruct, value, 8);
WIDTH(ZQFieldValueStruct, value, 16);

SIZE(ZQPropStruct, 24);
ALIGNED(ZQPropStruct, 8);
AT(ZQPropStruct, property, 0);
WIDTH(ZQPropStruct, property, 4);
AT(ZQPropStruct, value, 8);
WIDTH(ZQPropStruct, value, 16);

SIZE(ZQPermissionStruct, 8);
ALIGNED(ZQPermissionStruct, 4);
AT(ZQPermissionStruct, groupId, 0);
WIDTH(ZQPermissionStruct, groupId, 4);
AT(ZQPermissionStruct, permissions, 4);
WIDTH(ZQPermissionStruct, permissions, 4);

SIZE(ZQSortStruct, 8);
ALIGNED(ZQSortStruct, 4);
AT(ZQSortStruct, fieldId, 0);
WIDTH(ZQSortStruct, fieldId, 4);
AT(ZQSortStruct, sortOrder, 4);
WIDTH(ZQSortStruct, sortOrder, 4);

SIZE(ZQIndexStruct, 324);
ALIGNED(ZQIndexStruct, 4);
AT(ZQIndexStruct, numFields, 0);
WIDTH(ZQIndexStruct, numFields, 4);
AT(ZQIndexStruct, fieldIds, 4);
WIDTH(ZQIndexStruct, fieldIds, 64);
AT(ZQIndexStruct, uniqueIndex, 68);
WIDTH(ZQIndexStruct, uniqueIndex, 1);
AT(ZQIndexStruct, indexName, 69);
WIDTH(ZQIndexStruct, indexName, 255);

SIZE(ZQNameList, 16);
ALIGNED(ZQNameList, 8);
AT(ZQNameList, numItems, 0);
AT(ZQNameList, items, 8);
STRIDE(ZQNameList, 255);

SIZE(ZQStructItemStruct, 280);
ALIGNED(ZQStructItemStruct, 8);
AT(ZQStructItemStruct, itemType, 0);
WIDTH(ZQStructItemStruct, itemType, 4);
AT(ZQStructItemStruct, name, 4);
WIDTH(ZQStructItemStruct, name, 255);
AT(ZQStructItemStruct, selectedElements, 264);
WIDTH(ZQStructItemStruct, selectedElements, 16);

SIZE(ZQEntryListFieldStruct, 20);
ALIGNED(ZQEntryListFieldStruct, 4);
AT(ZQEntryListFieldStruct, fieldId, 0);
WIDTH(ZQEntryListFieldStruct, fieldId, 4);
AT(ZQEntryListFieldStruct, fieldWidth, 4);
WIDTH(ZQEntryListFieldStruct, fieldWidth, 4);
AT(ZQEntryListFieldStruct, fieldSeparator, 8);
WIDTH(ZQEntryListFieldStruct, fieldSeparator, 11);

SIZE(ZQEntryIdList, 16);
ALIGNED(ZQEntryIdList, 8);
AT(ZQEntryIdList, numItems, 0);
AT(ZQEntryIdList, items, 8);
STRIDE(ZQEntryIdList, 16);

SIZE(ZQEntryListStruct, 24);
ALIGNED(ZQEntryListStruct, 8);
AT(ZQEntryListStruct, entryId, 0);
WIDTH(ZQEntryListStruct, entryId, 16);
AT(ZQEntryListStruct, shortDescription, 16);
WIDTH(ZQEntryListStruct, shortDescription, 8);

SIZE(ZQFieldValueList, 16);
ALIGNED(ZQFieldValueList, 8);
AT(ZQFieldValueList, numItems, 0);
AT(ZQFieldValueList, items, 8);
STRIDE(ZQFieldValueList, 24);

SIZE(ZQEntryListFieldValueStruct, 24);
ALIGNED(ZQEntryListFieldValueStruct, 8);
AT(ZQEntryListFieldValueStruct, entryId, 0);
WIDTH(ZQEntryListFieldValueStruct, entryId, 16);
AT(ZQEntryListFieldValueStruct, entryValues, 16);
WIDTH(ZQEntryListFieldValueStruct, entryValues, 8);

SIZE(ZQDiaryStruct, 48);
ALIGNED(ZQDiaryStruct, 8);
AT(ZQDiaryStruct, user, 0);
WIDTH(ZQDiaryStruct, user, 31);
AT(ZQDiaryStruct, timestamp, 32);
WIDTH(ZQDiaryStruct, timestamp, 4);
AT(ZQDiaryStruct, value, 40);
WIDTH(ZQDiaryStruct, value, 8);

SIZE(ZQStatusHistoryStruct, 36);
ALIGNED(ZQStatusHistoryStruct, 4);
AT(ZQStatusHistoryStruct, user, 0);
WIDTH(ZQStatusHistoryStruct, user, 31);
AT(ZQStatusHistoryStruct, timestamp, 32);
WIDTH(ZQStatusHistoryStruct, timestamp, 4);

SIZE(ZQPropList, 16);
ALIGNED(ZQPropList, 8);
AT(ZQPropList, numItems, 0);
AT(ZQPropList, items, 8);
STRIDE(ZQPropList, 24);

SIZE(ZQDisplayInstanceStruct, 24);
ALIGNED(ZQDisplayInstanceStruct, 8);
AT(ZQDisplayInstanceStruct, vuiId, 0);
WIDTH(ZQDisplayInstanceStruct, vuiId, 4);
AT(ZQDisplayInstanceStruct, displayProperties, 8);
WIDTH(ZQDisplayInstanceStruct, displayProperties, 16);

SIZE(ZQDisplayInstanceList, 32);
ALIGNED(ZQDisplayInstanceList, 8);
AT(ZQDisplayInstanceList, commonProperties, 0);
WIDTH(ZQDisplayInstanceList, commonProperties, 16);
AT(ZQDisplayInstanceList, numInstances, 16);
WIDTH(ZQDisplayInstanceList, numInstances, 4);
AT(ZQDisplayInstanceList, instances, 24);
WIDTH(ZQDisplayInstanceList, instances, 8);

SIZE(ZQQualifierBranches, 16);
ALIGNED(ZQQualifierBranches, 8);
AT(ZQQualifierBranches, left, 0);
WIDTH(ZQQualifierBranches, left, 8);
AT(ZQQualifierBranches, right, 8);
WIDTH(ZQQualifierBranches, right, 8);

SIZE(ZQQualifierStruct, 24);
ALIGNED(ZQQualifierStruct, 8);
AT(ZQQualifierStruct, operation, 0);
WIDTH(ZQQualifierStruct, operation, 4);
AT(ZQQualifierStruct, u, 8);
WIDTH(ZQQualifierStruct, u, 16);
AT(ZQQualifierStruct, u.branches, 8);
WIDTH(ZQQualifierStruct, u.branches, 16);
AT(ZQQualifierStruct, u.notQualifier, 8);
WIDTH(ZQQualifierStruct, u.notQualifier, 8);
AT(ZQQualifierStruct, u.relationalOperation, 8);
WIDTH(ZQQualifierStruct, u.relationalOperation, 8);
AT(ZQQualifierStruct, u.fieldId, 8);
WIDTH(ZQQualifierStruct, u.fieldId, 4);

SIZE(ZQStatHistoryValue, 8);
ALIGNED(ZQStatHistoryValue, 4);
AT(ZQStatHistoryValue, statusState, 0);
WIDTH(ZQStatHistoryValue, statusState, 4);
AT(ZQStatHistoryValue, statusInfo, 4);
WIDTH(ZQStatHistoryValue, statusInfo, 4);

SIZE(ZQCurrencyPartStruct, 12);
ALIGNED(ZQCurrencyPartStruct, 4);
AT(ZQCurrencyPartStruct, words, 0);
WIDTH(ZQCurrencyPartStruct, words, 12);

SIZE(ZQValueList, 16);
ALIGNED(ZQValueList, 8);
AT(ZQValueList, numItems, 0);
AT(ZQValueList, items, 8);
STRIDE(ZQValueList, 16);

SIZE(ZQFieldValueOrArithStruct, 24);
ALIGNED(ZQFieldValueOrArithStruct, 8);
AT(ZQFieldValueOrArithStruct, tag, 0);
WIDTH(ZQFieldValueOrArithStruct, tag, 4);
AT(ZQFieldValueOrArithStruct, u, 8);
WIDTH(ZQFieldValueOrArithStruct, u, 16);
AT(ZQFieldValueOrArithStruct, u.fieldId, 8);
WIDTH(ZQFieldValueOrArithStruct, u.fieldId, 4);
AT(ZQFieldValueOrArithStruct, u.value, 8);
WIDTH(ZQFieldValueOrArithStruct, u.value, 16);
AT(ZQFieldValueOrArithStruct, u.arithOp, 8);
WIDTH(ZQFieldValueOrArithStruct, u.arithOp, 8);
AT(ZQFieldValueOrArithStruct, u.statHistory, 8);
WIDTH(ZQFieldValueOrArithStruct, u.statHistory, 8);
AT(ZQFieldValueOrArithStruct, u.valueSet, 8);
WIDTH(ZQFieldValueOrArithStruct, u.valueSet, 16);
AT(ZQFieldValueOrArithStruct, u.currencyField, 8);
WIDTH(ZQFieldValueOrArithStruct, u.currencyField, 8);
AT(ZQFieldValueOrArithStruct, u.variable, 8);
WIDTH(ZQFieldValueOrArithStruct, u.variable, 4);
AT(ZQFieldValueOrArithStruct, u.queryValue, 8);
WIDTH(ZQFieldValueOrArithStruct, u.queryValue, 8);

SIZE(ZQRelOpStruct, 56);
ALIGNED(ZQRelOpStruct, 8);
AT(ZQRelOpStruct, operation, 0);
WIDTH(ZQRelOpStruct, operation, 4);
AT(ZQRelOpStruct, operandLeft, 8);
WIDTH(ZQRelOpStruct, operandLeft, 24);
AT(ZQRelOpStruct, operandRight, 32);
WIDTH(ZQRelOpStruct, operandRight, 24);

SIZE(ZQArithOpStruct, 56);
ALIGNED(ZQArithOpStruct, 8);
AT(ZQArithOpStruct, operation, 0);
WIDTH(ZQArithOpStruct, operation, 4);
AT(ZQArithOpStruct, operandLeft, 8);
WIDTH(ZQArithOpStruct, operandLeft, 24);
AT(ZQArithOpStruct, operandRight, 32);
WIDTH(ZQArithOpStruct, operandRight, 24);

SIZE(ZQQueryValueStruct, 336);
ALIGNED(ZQQueryValueStruct, 8);
AT(ZQQueryValueStruct, formName, 0);
WIDTH(ZQQueryValueStruct, formName, 255);
AT(ZQQueryValueStruct, serverName, 255);
WIDTH(ZQQueryValueStruct, serverName, 65);
AT(ZQQueryValueStruct, queryQualification, 320);
WIDTH(ZQQueryValueStruct, queryQualification, 8);
AT(ZQQueryValueStruct, valueFieldId, 328);
WIDTH(ZQQueryValueStruct, valueFieldId, 4);
AT(ZQQueryValueStruct, multipleMatchOption, 332);
WIDTH(ZQQueryValueStruct, multipleMatchOption, 4);

SIZE(ZQEnumItemStruct, 260);
ALIGNED(ZQEnumItemStruct, 4);
AT(ZQEnumItemStruct, itemNumber, 0);
WIDTH(ZQEnumItemStruct, itemNumber, 4);
AT(ZQEnumItemStruct, itemName, 4);
WIDTH(ZQEnumItemStruct, itemName, 255);

SIZE(ZQStatusList, 16);
ALIGNED(ZQStatusList, 8);
AT(ZQStatusList, numItems, 0);
AT(ZQStatusList, items, 8);
STRIDE(ZQStatusList, 24);

SIZE(ZQInternalIdList, 16);
ALIGNED(ZQInternalIdList, 8);
AT(ZQInternalIdList, numItems, 0);
AT(ZQInternalIdList, items, 8);
STRIDE(ZQInternalIdList, 4);

SIZE(ZQInternalIdListList, 16);
ALIGNED(ZQInternalIdListList, 8);
AT(ZQInternalIdListList, numItems, 0);
AT(ZQInternalIdListList, items, 8);
STRIDE(ZQInternalIdListList, 16);

SIZE(ZQUnsignedIntList, 16);
ALIGNED(ZQUnsignedIntList, 8);
AT(ZQUnsignedIntList, numItems, 0);
AT(ZQUnsignedIntList, items, 8);
STRIDE(ZQUnsignedIntList, 4);

SIZE(ZQTimestampList, 16);
ALIGNED(ZQTimestampList, 8);
AT(ZQTimestampList, numItems, 0);
AT(ZQTimestampList, items, 8);
STRIDE(ZQTimestampList, 4);

SIZE(ZQBooleanList, 16);
ALIGNED(ZQBooleanList, 8);
AT(ZQBooleanList, numItems, 0);
AT(ZQBooleanList, items, 8);
STRIDE(ZQBooleanList, 1);

SIZE(ZQBooleanListList, 16);
ALIGNED(ZQBooleanListList, 8);
AT(ZQBooleanListList, numItems, 0);
AT(ZQBooleanListList, items, 8);
STRIDE(ZQBooleanListList, 16);

SIZE(ZQAccessNameList, 16);
ALIGNED(ZQAccessNameList, 8);
AT(ZQAccessNameList, numItems, 0);
AT(ZQAccessNameList, items, 8);
STRIDE(ZQAccessNameList, 31);

SIZE(ZQServerNameList, 16);
ALIGNED(ZQServerNameList, 8);
AT(ZQServerNameList, numItems, 0);
AT(ZQServerNameList, items, 8);
STRIDE(ZQServerNameList, 65);

SIZE(ZQEntryIdListList, 16);
ALIGNED(ZQEntryIdListList, 8);
AT(ZQEntryIdListList, numItems, 0);
AT(ZQEntryIdListList, items, 8);
STRIDE(ZQEntryIdListList, 16);

SIZE(ZQTextStringList, 16);
ALIGNED(ZQTextStringList, 8);
AT(ZQTextStringList, numItems, 0);
AT(ZQTextStringList, items, 8);
STRIDE(ZQTextStringList, 8);

SIZE(ZQCurrencyList, 16);
ALIGNED(ZQCurrencyList, 8);
AT(ZQCurrencyList, numItems, 0);
AT(ZQCurrencyList, items, 8);
STRIDE(ZQCurrencyList, 32);

SIZE(ZQValueListList, 16);
ALIGNED(ZQValueListList, 8);
AT(ZQValueListList, numItems, 0);
AT(ZQValueListList, items, 8);
STRIDE(ZQValueListList, 16);

SIZE(ZQFieldValueListList, 16);
ALIGNED(ZQFieldValueListList, 8);
AT(ZQFieldValueListList, numItems, 0);
AT(ZQFieldValueListList, items, 8);
STRIDE(ZQFieldValueListList, 16);

SIZE(ZQPropListList, 16);
ALIGNED(ZQPropListList, 8);
AT(ZQPropListList, numItems, 0);
AT(ZQPropListList, items, 8);
STRIDE(ZQPropListList, 16);

SIZE(ZQPermissionList, 16);
ALIGNED(ZQPermissionList, 8);
AT(ZQPermissionList, numItems, 0);
AT(ZQPermissionList, items, 8);
STRIDE(ZQPermissionList, 8);

SIZE(ZQPermissionListList, 16);
ALIGNED(ZQPermissionListList, 8);
AT(ZQPermissionListList, numItems, 0);
AT(ZQPermissionListList, items, 8);
STRIDE(ZQPermissionListList, 16);

SIZE(ZQSortList, 16);
ALIGNED(ZQSortList, 8);
AT(ZQSortList, numItems, 0);
AT(ZQSortList, items, 8);
STRIDE(ZQSortList, 8);

SIZE(ZQSortListList, 16);
ALIGNED(ZQSortListList, 8);
AT(ZQSortListList, numItems, 0);
AT(ZQSortListList, items, 8);
STRIDE(ZQSortListList, 16);

SIZE(ZQIndexList, 16);
ALIGNED(ZQIndexList, 8);
AT(ZQIndexList, numItems, 0);
AT(ZQIndexList, items, 8);
STRIDE(ZQIndexList, 324);

SIZE(ZQIndexListList, 16);
ALIGNED(ZQIndexListList, 8);
AT(ZQIndexListList, numItems, 0);
AT(ZQIndexListList, items, 8);
STRIDE(ZQIndexListList, 16);

SIZE(ZQStructItemList, 16);
ALIGNED(ZQStructItemList, 8);
AT(ZQStructItemList, numItems, 0);
AT(ZQStructItemList, items, 8);
STRIDE(ZQStructItemList, 280);

SIZE(ZQEntryListFieldList, 16);
ALIGNED(ZQEntryListFieldList, 8);
AT(ZQEntryListFieldList, numItems, 0);
AT(ZQEntryListFieldList, items, 8);
STRIDE(ZQEntryListFieldList, 20);

SIZE(ZQEntryListFieldListList, 16);
ALIGNED(ZQEntryListFieldListList, 8);
AT(ZQEntryListFieldListList, numItems, 0);
AT(ZQEntryListFieldListList, items, 8);
STRIDE(ZQEntryListFieldListList, 16);

SIZE(ZQEntryListList, 16);
ALIGNED(ZQEntryListList, 8);
AT(ZQEntryListList, numItems, 0);
AT(ZQEntryListList, items, 8);
STRIDE(ZQEntryListList, 24);

SIZE(ZQEntryListFieldValueList, 16);
ALIGNED(ZQEntryListFieldValueList, 8);
AT(ZQEntryListFieldValueList, numItems, 0);
AT(ZQEntryListFieldValueList, items, 8);
STRIDE(ZQEntryListFieldValueList, 24);

SIZE(ZQDiaryList, 16);
ALIGNED(ZQDiaryList, 8);
AT(ZQDiaryList, numItems, 0);
AT(ZQDiaryList, items, 8);
STRIDE(ZQDiaryList, 48);

SIZE(ZQStatusHistoryList, 16);
ALIGNED(ZQStatusHistoryList, 8);
AT(ZQStatusHistoryList, numItems, 0);
AT(ZQStatusHistoryList, items, 8);
STRIDE(ZQStatusHistoryList, 36);

SIZE(ZQQualifierList, 16);
ALIGNED(ZQQualifierList, 8);
AT(ZQQualifierList, numItems, 0);
AT(ZQQualifierList, items, 8);
STRIDE(ZQQualifierList, 24);

SIZE(ZQEnumItemList, 16);
ALIGNED(ZQEnumItemList, 8);
AT(ZQEnumItemList, numItems, 0);
AT(ZQEnumItemList, items, 8);
STRIDE(ZQEnumItemList, 260);

SIZE(ZQDisplayInstanceListList, 16);
ALIGNED(ZQDisplayInstanceListList, 8);
AT(ZQDisplayInstanceListList, numItems, 0);
AT(ZQDisplayInstanceListList, items, 8);
STRIDE(ZQDisplayInstanceListList, 32);

typedef int layout_core_is_checked_by_compiling;
