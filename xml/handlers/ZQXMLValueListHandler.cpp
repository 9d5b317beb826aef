#include "xml/handlers/ZQXMLValueListHandler.h"

#include "xml/ZQXMLTagHash.h"

ZQXMLValueListHandler::ZQXMLValueListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), value(info) {}

void ZQXMLValueListHandler::Init(ZQValueList* list) {
  currentTag = 0;
  CleanReferences();
  target = list;
  *target = {};
}

void ZQXMLValueListHandler::PreProcess(int tag) {
  if (tag == tag_value) {
    giveTo(value, values.add(), FreeZQValueStruct);
  }
}

void ZQXMLValueListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag != tag_valueList) {
    refuseElement();
  }
}

void ZQXMLValueListHandler::Characters(const char*, unsigned) {}

void ZQXMLValueListHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag != tag_valueList) {
    refuseElement();
  }
  values.moveTo(target->numItems, target->items);
}

void ZQXMLValueListHandler::PostProcess(int tag) {
  if (tag == tag_valueList) {
    handlerStack->Pop();
  }
}

void ZQXMLValueListHandler::CleanReferences() {
  values.clean();
}
