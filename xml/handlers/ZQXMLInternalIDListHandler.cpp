#include "xml/handlers/ZQXMLInternalIDListHandler.h"

#include "xml/LeafTable.h"
#include "xml/ZQXMLTagHash.h"

namespace {

bool isList(int tag) {
  return tag == tag_accessList || tag == tag_subAdminAccessList || tag == tag_fieldIDList;
}

bool isId(int tag) {
  return tag == tag_groupID || tag == tag_fieldID;
}

}  // namespace

void ZQXMLInternalIDListHandler::Init(ZQInternalIdList* list) {
  currentTag = 0;
  CleanReferences();
  target = list;
  *target = {};
}

void ZQXMLInternalIDListHandler::PreProcess(int) {}

void ZQXMLInternalIDListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (isId(tag)) {
    idText.Empty();
    currentTag = tag;
  } else if (!isList(tag)) {
    refuseElement();
  }
}

void ZQXMLInternalIDListHandler::Characters(const char* text, unsigned) {
  if (currentTag != 0) {
    idText += text;
  }
}

void ZQXMLInternalIDListHandler::EndElement(int tag) {
  currentTag = 0;
  if (isId(tag)) {
    ids.add() = unsignedNumber(idText);
  } else if (isList(tag)) {
    ids.moveTo(target->numItems, target->items);
  } else {
    refuseElement();
  }
}

void ZQXMLInternalIDListHandler::PostProcess(int tag) {
  if (isList(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLInternalIDListHandler::CleanReferences() {
  ids.clean();
}
