/* The layout of the records is a contract: each size and offset is pinned. */
#include "layout.h"

#include <zqxml/records.h>

SIZE(ZQComplexEntryCreateList, 16);
ALIGNED(ZQComplexEntryCreateList, 8);
AT(ZQComplexEntryCreateList, numItems, 0);
AT(ZQComplexEntryCreateList, items, 8);
STRIDE(ZQComplexEntryCreateList, 416);

SIZE(ZQComplexEntryCreate, 416);
ALIGNED(ZQComplexEntryCreate, 8);
AT(ZQComplexEntryCreate, formName, 0);
WIDTH(ZQComplexEntryCreate, formName, 255);
AT(ZQComplexEntryCreate, serverName, 255);
WIDTH(ZQComplexEntryCreate, serverName, 65);
AT(ZQComplexEntryCreate, foreignKeyId, 320);
WIDTH(ZQComplexEntryCreate, foreignKeyId, 4);
AT(ZQComplexEntryCreate, parent, 328);
WIDTH(ZQComplexEntryCreate, parent, 8);
AT(ZQComplexEntryCreate, children, 336);
WIDTH(ZQComplexEntryCreate, children, 16);
AT(ZQComplexEntryCreate, fieldValues, 352);
WIDTH(ZQComplexEntryCreate, fieldValues, 16);
AT(ZQComplexEntryCreate, primaryKeyId, 368);
WIDTH(ZQComplexEntryCreate, primaryKeyId, 4);
AT(ZQComplexEntryCreate, primaryKeyValue, 376);
WIDTH(ZQComplexEntryCreate, primaryKeyValue, 16);
AT(ZQComplexEntryCreate, distinguishingKeyId, 392);
WIDTH(ZQComplexEntryCreate, distinguishingKeyId, 4);
AT(ZQComplexEntryCreate, distinguishingKeyValue, 400);
WIDTH(ZQComplexEntryCreate, distinguishingKeyValue, 16);

SIZE(ZQComplexEntrySetList, 16);
ALIGNED(ZQComplexEntrySetList, 8);
AT(ZQComplexEntrySetList, numItems, 0);
AT(ZQComplexEntrySetList, items, 8);
STRIDE(ZQComplexEntrySetList, 416);

SIZE(ZQComplexEntrySet, 416);
ALIGNED(ZQComplexEntrySet, 8);
AT(ZQComplexEntrySet, formName, 0);
WIDTH(ZQComplexEntrySet, formName, 255);
AT(ZQComplexEntrySet, serverName, 255);
WIDTH(ZQComplexEntrySet, serverName, 65);
AT(ZQComplexEntrySet, primaryKeyId, 320);
WIDTH(ZQComplexEntrySet, primaryKeyId, 4);
AT(ZQComplexEntrySet, primaryKeyValue, 328);
WIDTH(ZQComplexEntrySet, primaryKeyValue, 16);
AT(ZQComplexEntrySet, distinguishingKeyId, 344);
WIDTH(ZQComplexEntrySet, distinguishingKeyId, 4);
AT(ZQComplexEntrySet, distinguishingKeyValue, 352);
WIDTH(ZQComplexEntrySet, distinguishingKeyValue, 16);
AT(ZQComplexEntrySet, foreignKeyId, 368);
WIDTH(ZQComplexEntrySet, foreignKeyId, 4);
AT(ZQComplexEntrySet, parent, 376);
WIDTH(ZQComplexEntrySet, parent, 8);
AT(ZQComplexEntrySet, children, 384);
WIDTH(ZQComplexEntrySet, children, 16);
AT(ZQComplexEntrySet, fieldValues, 400);
WIDTH(ZQComplexEntrySet, fieldValues, 16);

SIZE(ZQComplexEntryGetOut, 48);
ALIGNED(ZQComplexEntryGetOut, 8);
AT(ZQComplexEntryGetOut, entryId, 0);
WIDTH(ZQComplexEntryGetOut, entryId, 16);
AT(ZQComplexEntryGetOut, fieldValues, 16);
WIDTH(ZQComplexEntryGetOut, fieldValues, 16);
AT(ZQComplexEntryGetOut, numChildLists, 32);
WIDTH(ZQComplexEntryGetOut, numChildLists, 4);
AT(ZQComplexEntryGetOut, childLists, 40);
WIDTH(ZQComplexEntryGetOut, childLists, 8);

SIZE(ZQXMLValueInfoStruct, 24);
ALIGNED(ZQXMLValueInfoStruct, 8);
AT(ZQXMLValueInfoStruct, tag, 0);
WIDTH(ZQXMLValueInfoStruct, tag, 4);
AT(ZQXMLValueInfoStruct, value, 8);
WIDTH(ZQXMLValueInfoStruct, value, 16);

SIZE(ZQComplexEntryGetInList, 16);
ALIGNED(ZQComplexEntryGetInList, 8);
AT(ZQComplexEntryGetInList, numItems, 0);
AT(ZQComplexEntryGetInList, items, 8);
STRIDE(ZQComplexEntryGetInList, 328);

SIZE(ZQComplexEntryGetIn, 328);
ALIGNED(ZQComplexEntryGetIn, 8);
AT(ZQComplexEntryGetIn, qualifier, 0);
WIDTH(ZQComplexEntryGetIn, qualifier, 24);
AT(ZQComplexEntryGetIn, formName, 24);
WIDTH(ZQComplexEntryGetIn, formName, 255);
AT(ZQComplexEntryGetIn, mapType, 280);
WIDTH(ZQComplexEntryGetIn, mapType, 4);
AT(ZQComplexEntryGetIn, primaryKeyId, 284);
WIDTH(ZQComplexEntryGetIn, primaryKeyId, 4);
AT(ZQComplexEntryGetIn, distinguishingKeyId, 288);
WIDTH(ZQComplexEntryGetIn, distinguishingKeyId, 4);
AT(ZQComplexEntryGetIn, foreignKeyId, 292);
WIDTH(ZQComplexEntryGetIn, foreignKeyId, 4);
AT(ZQComplexEntryGetIn, fieldIdList, 296);
WIDTH(ZQComplexEntryGetIn, fieldIdList, 16);
AT(ZQComplexEntryGetIn, children, 312);
WIDTH(ZQComplexEntryGetIn, children, 16);

SIZE(ZQComplexEntryOptions, 12);
ALIGNED(ZQComplexEntryOptions, 4);
AT(ZQComplexEntryOptions, maxReturnEntries, 0);
WIDTH(ZQComplexEntryOptions, maxReturnEntries, 4);
AT(ZQComplexEntryOptions, setOption, 4);
WIDTH(ZQComplexEntryOptions, setOption, 4);
AT(ZQComplexEntryOptions, documentType, 8);
WIDTH(ZQComplexEntryOptions, documentType, 4);

SIZE(ZQDisplayStruct, 260);
ALIGNED(ZQDisplayStruct, 4);
AT(ZQDisplayStruct, vuiId, 0);
WIDTH(ZQDisplayStruct, vuiId, 4);
AT(ZQDisplayStruct, label, 4);
WIDTH(ZQDisplayStruct, label, 255);

SIZE(ZQContainerOwnerObjIdStruct, 8);
ALIGNED(ZQContainerOwnerObjIdStruct, 4);
AT(ZQContainerOwnerObjIdStruct, ownerType, 0);
WIDTH(ZQContainerOwnerObjIdStruct, ownerType, 4);
AT(ZQContainerOwnerObjIdStruct, ownerId, 4);
WIDTH(ZQContainerOwnerObjIdStruct, ownerId, 4);

SIZE(ZQContainerInfoStruct, 280);
ALIGNED(ZQContainerInfoStruct, 8);
AT(ZQContainerInfoStruct, name, 0);
WIDTH(ZQContainerInfoStruct, name, 255);
AT(ZQContainerInfoStruct, containerType, 256);
WIDTH(ZQContainerInfoStruct, containerType, 4);
AT(ZQContainerInfoStruct, ownerObjList, 264);
WIDTH(ZQContainerInfoStruct, ownerObjList, 16);

SIZE(ZQLocalizedRequestStruct, 264);
ALIGNED(ZQLocalizedRequestStruct, 4);
AT(ZQLocalizedRequestStruct, name, 0);
WIDTH(ZQLocalizedRequestStruct, name, 255);
AT(ZQLocalizedRequestStruct, messageType, 256);
WIDTH(ZQLocalizedRequestStruct, messageType, 4);
AT(ZQLocalizedRequestStruct, internalId, 260);
WIDTH(ZQLocalizedRequestStruct, internalId, 4);

SIZE(ZQServerInfoStruct, 24);
ALIGNED(ZQServerInfoStruct, 8);
AT(ZQServerInfoStruct, operation, 0);
WIDTH(ZQServerInfoStruct, operation, 4);
AT(ZQServerInfoStruct, value, 8);
WIDTH(ZQServerInfoStruct, value, 16);

SIZE(ZQStatisticsResultStruct, 32);
ALIGNED(ZQStatisticsResultStruct, 8);
AT(ZQStatisticsResultStruct, groupByValues, 0);
WIDTH(ZQStatisticsResultStruct, groupByValues, 16);
AT(ZQStatisticsResultStruct, result, 16);
WIDTH(ZQStatisticsResultStruct, result, 16);

SIZE(ZQFullTextInfoStruct, 24);
ALIGNED(ZQFullTextInfoStruct, 8);
AT(ZQFullTextInfoStruct, tag, 0);
WIDTH(ZQFullTextInfoStruct, tag, 4);
AT(ZQFullTextInfoStruct, u, 8);
WIDTH(ZQFullTextInfoStruct, u, 16);
AT(ZQFullTextInfoStruct, u.value, 8);
WIDTH(ZQFullTextInfoStruct, u.value, 16);
AT(ZQFullTextInfoStruct, u.valueList, 8);
WIDTH(ZQFullTextInfoStruct, u.valueList, 16);

SIZE(ZQSignalStruct, 16);
ALIGNED(ZQSignalStruct, 8);
AT(ZQSignalStruct, signalType, 0);
WIDTH(ZQSignalStruct, signalType, 4);
AT(ZQSignalStruct, signalText, 8);
WIDTH(ZQSignalStruct, signalText, 8);

SIZE(ZQGroupInfoStruct, 16);
ALIGNED(ZQGroupInfoStruct, 8);
AT(ZQGroupInfoStruct, groupId, 0);
WIDTH(ZQGroupInfoStruct, groupId, 4);
AT(ZQGroupInfoStruct, groupType, 4);
WIDTH(ZQGroupInfoStruct, groupType, 4);
AT(ZQGroupInfoStruct, groupName, 8);
WIDTH(ZQGroupInfoStruct, groupName, 8);

SIZE(ZQUserInfoStruct, 48);
ALIGNED(ZQUserInfoStruct, 8);
AT(ZQUserInfoStruct, userName, 0);
WIDTH(ZQUserInfoStruct, userName, 31);
AT(ZQUserInfoStruct, userType, 32);
WIDTH(ZQUserInfoStruct, userType, 4);
AT(ZQUserInfoStruct, emailAddress, 40);
WIDTH(ZQUserInfoStruct, emailAddress, 8);

SIZE(ZQDisplayList, 16);
ALIGNED(ZQDisplayList, 8);
AT(ZQDisplayList, numItems, 0);
AT(ZQDisplayList, items, 8);
STRIDE(ZQDisplayList, 260);

SIZE(ZQContainerTypeList, 16);
ALIGNED(ZQContainerTypeList, 8);
AT(ZQContainerTypeList, numItems, 0);
AT(ZQContainerTypeList, items, 8);
STRIDE(ZQContainerTypeList, 4);

SIZE(ZQContainerOwnerObjIdList, 16);
ALIGNED(ZQContainerOwnerObjIdList, 8);
AT(ZQContainerOwnerObjIdList, numItems, 0);
AT(ZQContainerOwnerObjIdList, items, 8);
STRIDE(ZQContainerOwnerObjIdList, 8);

SIZE(ZQContainerInfoList, 16);
ALIGNED(ZQContainerInfoList, 8);
AT(ZQContainerInfoList, numItems, 0);
AT(ZQContainerInfoList, items, 8);
STRIDE(ZQContainerInfoList, 280);

SIZE(ZQLocalizedRequestList, 16);
ALIGNED(ZQLocalizedRequestList, 8);
AT(ZQLocalizedRequestList, numItems, 0);
AT(ZQLocalizedRequestList, items, 8);
STRIDE(ZQLocalizedRequestList, 264);

SIZE(ZQServerInfoRequestList, 16);
ALIGNED(ZQServerInfoRequestList, 8);
AT(ZQServerInfoRequestList, numItems, 0);
AT(ZQServerInfoRequestList, items, 8);
STRIDE(ZQServerInfoRequestList, 4);

SIZE(ZQServerInfoList, 16);
ALIGNED(ZQServerInfoList, 8);
AT(ZQServerInfoList, numItems, 0);
AT(ZQServerInfoList, items, 8);
STRIDE(ZQServerInfoList, 24);

SIZE(ZQStatisticsResultList, 16);
ALIGNED(ZQStatisticsResultList, 8);
AT(ZQStatisticsResultList, numItems, 0);
AT(ZQStatisticsResultList, items, 8);
STRIDE(ZQStatisticsResultList, 32);

SIZE(ZQStatisticsList, 16);
ALIGNED(ZQStatisticsList, 8);
AT(ZQStatisticsList, numItems, 0);
AT(ZQStatisticsList, items, 8);
STRIDE(ZQStatisticsList, 24);

SIZE(ZQFullTextInfoRequestList, 16);
ALIGNED(ZQFullTextInfoRequestList, 8);
AT(ZQFullTextInfoRequestList, numItems, 0);
AT(ZQFullTextInfoRequestList, items, 8);
STRIDE(ZQFullTextInfoRequestList, 4);

SIZE(ZQFullTextInfoList, 16);
ALIGNED(ZQFullTextInfoList, 8);
AT(ZQFullTextInfoList, numItems, 0);
AT(ZQFullTextInfoList, items, 8);
STRIDE(ZQFullTextInfoList, 24);

SIZE(ZQSignalList, 16);
ALIGNED(ZQSignalList, 8);
AT(ZQSignalList, numItems, 0);
AT(ZQSignalList, items, 8);
STRIDE(ZQSignalList, 16);

SIZE(ZQGroupInfoList, 16);
ALIGNED(ZQGroupInfoList, 8);
AT(ZQGroupInfoList, numItems, 0);
AT(ZQGroupInfoList, items, 8);
STRIDE(ZQGroupInfoList, 16);

SIZE(ZQUserInfoList, 16);
ALIGNED(ZQUserInfoList, 8);
AT(ZQUserInfoList, numItems, 0);
AT(ZQUserInfoList, items, 8);
STRIDE(ZQUserInfoList, 48);

SIZE(ZQComplexEntryGetOutList, 16);
ALIGNED(ZQComplexEntryGetOutList, 8);
AT(ZQComplexEntryGetOutList, numItems, 0);
AT(ZQComplexEntryGetOutList, items, 8);
STRIDE(ZQComplexEntryGetOutList, 48);

SIZE(ZQXMLValueInfoList, 16);
ALIGNED(ZQXMLValueInfoList, 8);
AT(ZQXMLValueInfoList, numItems, 0);
AT(ZQXMLValueInfoList, items, 8);
STRIDE(ZQXMLValueInfoList, 24);

typedef int layout_entries_is_checked_by_compiling;
