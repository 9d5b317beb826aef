#include "xml/handlers/ZQXMLPermListHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

// Both kinds of rights have one text.
int textTag(int tag) {
  return tag == tag_viewRights ? tag_modifyRights : tag;
}

constexpr Leaf<ZQPermissionStruct> kLeaves[] = {
    {tag_groupID, loadUnsigned<&ZQPermissionStruct::groupId>},
    {tag_modifyRights, loadWord<&ZQPermissionStruct::permissions, ENUM_PERMISSION>},
};

bool isList(int tag) {
  return tag == tag_modifyPermissionList || tag == tag_viewPermissionList;
}

bool isEntry(int tag) {
  return tag == tag_modifyPermission || tag == tag_viewPermission;
}

}  // namespace

ZQXMLPermListHandler::ZQXMLPermListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLPermListHandler::Init(ZQPermissionList* list) {
  currentTag = 0;
  CleanReferences();
  leaves.empty();
  target = list;
  *target = {};
}

void ZQXMLPermListHandler::PreProcess(int) {}

void ZQXMLPermListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (isEntry(tag)) {
    leaves.empty();
  } else if (leaves.open(textTag(tag))) {
    currentTag = tag;
  } else if (!isList(tag)) {
    refuseElement();
  }
}

void ZQXMLPermListHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLPermListHandler::EndElement(int tag) {
  currentTag = 0;
  if (isEntry(tag)) {
    AddEntry();
  } else if (isList(tag)) {
    entries.moveTo(target->numItems, target->items);
  } else if (!leaves.has(textTag(tag))) {
    refuseElement();
  }
}

void ZQXMLPermListHandler::PostProcess(int tag) {
  if (isList(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLPermListHandler::CleanReferences() {
  entries.clean();
}

void ZQXMLPermListHandler::AddEntry() {
  leaves.loadAll(entries.add(), locator);
}
