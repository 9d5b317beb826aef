// Deep free of records: lists whose elements own nothing, lists of lists, and the small lists of
// the server's client interface. The other records stand in zqfree_*.cpp by family.

#include "records/verbs.h"
#include "zqxml/free.h"

namespace {

thread_local int tUnwindings = 0;

}  // namespace

namespace records {

Unwinding::Unwinding() {
  ++tUnwindings;
}
Unwinding::~Unwinding() {
  --tUnwindings;
}
bool Unwinding::active() {
  return tUnwindings > 0;
}

}  // namespace records

using records::freeList;
using records::freePlainList;

namespace {

void freeText(char** text, ZQBoolean) {
  records::release(*text);
}

void freeEntryListLine(ZQEntryListStruct* line, ZQBoolean) {
  records::release(line->shortDescription);
  FreeZQEntryIdList(&line->entryId, 0);
}

void freeServerInfo(ZQServerInfoStruct* info, ZQBoolean) {
  FreeZQValueStruct(&info->value, 0);
}

void freeStatisticsResult(ZQStatisticsResultStruct* result, ZQBoolean) {
  FreeZQValueList(&result->groupByValues, 0);
  FreeZQValueStruct(&result->result, 0);
}

void freeFullTextInfo(ZQFullTextInfoStruct* info, ZQBoolean) {
  switch (info->tag) {
    case 2:
      FreeZQValueList(&info->u.valueList, 0);
      break;
    case 1:
    case 3:
    case 4:
    case 5:
    case 6:
      FreeZQValueStruct(&info->u.value, 0);
      break;
    default:
      break;
  }
}

void freeDiaryEntry(ZQDiaryStruct* entry, ZQBoolean) {
  records::release(entry->value);
}
void freeSignal(ZQSignalStruct* signal, ZQBoolean) {
  records::release(signal->signalText);
}
void freeGroupInfo(ZQGroupInfoStruct* group, ZQBoolean) {
  records::release(group->groupName);
}
void freeUserInfo(ZQUserInfoStruct* user, ZQBoolean) {
  records::release(user->emailAddress);
}

void freeContainerInfo(ZQContainerInfoStruct* info, ZQBoolean) {
  FreeZQContainerOwnerObjList(&info->ownerObjList, 0);
}

}  // namespace

void FreeZQEntryIdList(ZQEntryIdList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQInternalIdList(ZQInternalIdList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQNameList(ZQNameList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQAccessNameList(ZQAccessNameList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQServerNameList(ZQServerNameList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQTimestampList(ZQTimestampList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQUnsignedIntList(ZQUnsignedIntList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQEntryListFieldList(ZQEntryListFieldList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQSortList(ZQSortList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQIndexList(ZQIndexList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQDisplayList(ZQDisplayList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQCoordList(ZQCoordList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQPermissionList(ZQPermissionList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQStatusHistoryList(ZQStatusHistoryList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQFieldMappingList(ZQFieldMappingList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQBooleanList(ZQBooleanList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQContainerOwnerObjList(ZQContainerOwnerObjList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQContainerTypeList(ZQContainerTypeList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQLocalizedRequestList(ZQLocalizedRequestList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQServerInfoRequestList(ZQServerInfoRequestList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQFullTextInfoRequestList(ZQFullTextInfoRequestList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

// The count and the array stand behind the type, which stays.
void FreeZQByteList(ZQByteList* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  if (list->numItems != 0) {
    free(list->bytes);
  }
  list->numItems = 0;
  list->bytes = nullptr;
  records::finishFree(list, freeStruct);
}

// Deliberate: the selected elements stay allocated. The caller frees them by itself.
void FreeZQStructItemList(ZQStructItemList* list, ZQBoolean freeStruct) {
  if (list != nullptr && records::hasItems(*list) && records::Unwinding::active()) {
    for (uint32_t i = 0; i < list->numItems; ++i) {
      FreeZQNameList(&list->items[i].selectedElements, 0);
    }
  }
  freePlainList(list, freeStruct);
}

void FreeZQEntryIdListList(ZQEntryIdListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQEntryIdList);
}

void FreeZQInternalIdListList(ZQInternalIdListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQInternalIdList);
}

void FreeZQValueListList(ZQValueListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQValueList);
}

void FreeZQFieldValueListList(ZQFieldValueListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQFieldValueList);
}

void FreeZQEntryListFieldListList(ZQEntryListFieldListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQEntryListFieldList);
}

void FreeZQSortListList(ZQSortListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQSortList);
}

void FreeZQIndexListList(ZQIndexListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQIndexList);
}

void FreeZQPropListList(ZQPropListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQPropList);
}

void FreeZQPermissionListList(ZQPermissionListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQPermissionList);
}

void FreeZQBooleanListList(ZQBooleanListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQBooleanList);
}

void FreeZQActiveLinkActionListList(ZQActiveLinkActionListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQActiveLinkActionList);
}

void FreeZQDisplayInstanceListList(ZQDisplayInstanceListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQDisplayInstanceList);
}

void FreeZQTextStringList(ZQTextStringList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeText);
}

void FreeZQEntryListList(ZQEntryListList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeEntryListLine);
}

void FreeZQEntryListFieldValueStruct(ZQEntryListFieldValueStruct* line, ZQBoolean freeStruct) {
  if (line == nullptr) {
    return;
  }
  FreeZQEntryIdList(&line->entryId, 0);
  FreeZQFieldValueList(line->entryValues, 1);
  line->entryValues = nullptr;
  records::finishFree(line, freeStruct);
}

void FreeZQEntryListFieldValueList(ZQEntryListFieldValueList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQEntryListFieldValueStruct);
}

void FreeZQDiaryList(ZQDiaryList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeDiaryEntry);
}

void FreeZQServerInfoList(ZQServerInfoList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeServerInfo);
}

void FreeZQStatisticsResultList(ZQStatisticsResultList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeStatisticsResult);
}

void FreeZQStatisticsList(ZQStatisticsList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQFieldValueOrArithStruct);
}

void FreeZQFullTextInfoList(ZQFullTextInfoList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeFullTextInfo);
}

void FreeZQSignalList(ZQSignalList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeSignal);
}

void FreeZQGroupInfoList(ZQGroupInfoList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeGroupInfo);
}

void FreeZQUserInfoList(ZQUserInfoList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeUserInfo);
}

void FreeZQContainerInfoList(ZQContainerInfoList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeContainerInfo);
}
