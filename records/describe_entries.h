// The description of complex entries and what the server fills; see records/describe.h.
#ifndef ZQXML_RECORDS_DESCRIBE_ENTRIES_H
#define ZQXML_RECORDS_DESCRIBE_ENTRIES_H

#include "records/description.h"

namespace records {

template <>
struct Description<ZQComplexEntryCreate> {
  static void visit(auto& v, auto& r) {
    v.chars("formName", r.formName);
    v.chars("serverName", r.serverName);
    v.scalar("foreignKeyId", r.foreignKeyId);
    v.record("children", r.children);
    v.record("fieldValues", r.fieldValues);
    v.scalar("primaryKeyId", r.primaryKeyId);
    v.record("primaryKeyValue", r.primaryKeyValue);
    v.scalar("distinguishingKeyId", r.distinguishingKeyId);
    v.record("distinguishingKeyValue", r.distinguishingKeyValue);
  }
};

template <>
struct Description<ZQComplexEntrySet> {
  static void visit(auto& v, auto& r) {
    v.chars("formName", r.formName);
    v.chars("serverName", r.serverName);
    v.scalar("primaryKeyId", r.primaryKeyId);
    v.record("primaryKeyValue", r.primaryKeyValue);
    v.scalar("distinguishingKeyId", r.distinguishingKeyId);
    v.record("distinguishingKeyValue", r.distinguishingKeyValue);
    v.scalar("foreignKeyId", r.foreignKeyId);
    v.record("children", r.children);
    v.record("fieldValues", r.fieldValues);
  }
};

template <>
struct Description<ZQComplexEntryGetOut> {
  static void visit(auto& v, auto& r) {
    v.record("entryId", r.entryId);
    v.record("fieldValues", r.fieldValues);
    v.array("numChildLists", r.numChildLists, "childLists", r.childLists);
  }
};

template <>
struct Description<ZQXMLValueInfoStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("tag", r.tag);
    v.record("value", r.value);
  }
};

template <>
struct Description<ZQComplexEntryGetIn> {
  static void visit(auto& v, auto& r) {
    v.record("qualifier", r.qualifier);
    v.chars("formName", r.formName);
    v.scalar("mapType", r.mapType);
    v.scalar("primaryKeyId", r.primaryKeyId);
    v.scalar("distinguishingKeyId", r.distinguishingKeyId);
    v.scalar("foreignKeyId", r.foreignKeyId);
    v.record("fieldIdList", r.fieldIdList);
    v.record("children", r.children);
  }
};

template <>
struct Description<ZQComplexEntryOptions> {
  static void visit(auto& v, auto& r) {
    v.scalar("maxReturnEntries", r.maxReturnEntries);
    v.scalar("setOption", r.setOption);
    v.scalar("documentType", r.documentType);
  }
};

template <>
struct Description<ZQDisplayStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("vuiId", r.vuiId);
    v.chars("label", r.label);
  }
};

template <>
struct Description<ZQContainerOwnerObjIdStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("ownerType", r.ownerType);
    v.scalar("ownerId", r.ownerId);
  }
};

template <>
struct Description<ZQContainerInfoStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("name", r.name);
    v.scalar("containerType", r.containerType);
    v.record("ownerObjList", r.ownerObjList);
  }
};

template <>
struct Description<ZQLocalizedRequestStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("name", r.name);
    v.scalar("messageType", r.messageType);
    v.scalar("internalId", r.internalId);
  }
};

template <>
struct Description<ZQServerInfoStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("operation", r.operation);
    v.record("value", r.value);
  }
};

template <>
struct Description<ZQStatisticsResultStruct> {
  static void visit(auto& v, auto& r) {
    v.record("groupByValues", r.groupByValues);
    v.record("result", r.result);
  }
};

template <>
struct Description<ZQFullTextInfoStruct> {
  static constexpr uint32_t kTags[] = {1, 2, 3, 4, 5, 6};
  static void visit(auto& v, auto& r) {
    v.tag("tag", r.tag, kTags);
    switch (r.tag) {
      case 1:
      case 3:
      case 4:
      case 5:
      case 6:
        v.record("value", r.u.value);
        break;
      case 2:
        v.record("valueList", r.u.valueList);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQSignalStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("signalType", r.signalType);
    v.text("signalText", r.signalText);
  }
};

template <>
struct Description<ZQGroupInfoStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("groupId", r.groupId);
    v.scalar("groupType", r.groupType);
    v.text("groupName", r.groupName);
  }
};

template <>
struct Description<ZQUserInfoStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("userName", r.userName);
    v.scalar("userType", r.userType);
    v.text("emailAddress", r.emailAddress);
  }
};

}  // namespace records

#endif
