#include "xml/handlers/ZQXMLActionPushFieldListHandler.h"

#include "xml/ZQXMLTagHash.h"

ZQXMLActionPushFieldListHandler::ZQXMLActionPushFieldListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), field(info), value(info) {}

void ZQXMLActionPushFieldListHandler::Init(ZQPushFieldsList* list) {
  currentTag = 0;
  CleanReferences();
  target = list;
  *target = {};
}

void ZQXMLActionPushFieldListHandler::PreProcess(int tag) {
  if (tag == tag_targetField) {
    giveTo(field, OpenEntry().field, FreeZQAssignFieldStruct);
  } else if (tag == tag_targetFieldValue) {
    giveTo(value, OpenEntry().assignment, FreeZQAssignStruct);
  }
}

void ZQXMLActionPushFieldListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_pushField) {
    pushFields.add();
  } else if (tag != tag_pushFieldList) {
    refuseElement();
  }
}

void ZQXMLActionPushFieldListHandler::Characters(const char*, unsigned) {}

void ZQXMLActionPushFieldListHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_pushField) {
    pushFields.close();
  } else if (tag == tag_pushFieldList) {
    pushFields.moveTo(target->numItems, target->items);
  } else {
    refuseElement();
  }
}

void ZQXMLActionPushFieldListHandler::PostProcess(int tag) {
  if (tag == tag_pushFieldList) {
    handlerStack->Pop();
  }
}

void ZQXMLActionPushFieldListHandler::CleanReferences() {
  pushFields.clean();
}

// The entry that is being read. Throws ZQXMLException 8941 with the element's name if there is
// none.
ZQPushFieldsStruct& ZQXMLActionPushFieldListHandler::OpenEntry() const {
  if (pushFields.open() == nullptr) {
    refuseElement();
  }
  return *pushFields.open();
}
