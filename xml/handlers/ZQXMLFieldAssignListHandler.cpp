#include "xml/handlers/ZQXMLFieldAssignListHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

bool isList(int tag) {
  return tag == tag_inputFieldList || tag == tag_outputFieldList || tag == tag_setFieldList;
}

bool isEntry(int tag) {
  return tag == tag_inputField || tag == tag_outputField || tag == tag_setField;
}

}  // namespace

ZQXMLFieldAssignListHandler::ZQXMLFieldAssignListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), fieldAssign(info) {}

void ZQXMLFieldAssignListHandler::Init(ZQFieldAssignList* list) {
  currentTag = 0;
  CleanReferences();
  target = list;
  *target = {};
}

void ZQXMLFieldAssignListHandler::PreProcess(int tag) {
  if (isEntry(tag)) {
    giveTo(fieldAssign, assigns.add(), FreeZQFieldAssignStruct);
  }
}

void ZQXMLFieldAssignListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (!isList(tag)) {
    refuseElement();
  }
}

void ZQXMLFieldAssignListHandler::Characters(const char*, unsigned) {}

void ZQXMLFieldAssignListHandler::EndElement(int tag) {
  currentTag = 0;
  if (!isList(tag)) {
    refuseElement();
  }
  assigns.moveTo(target->numItems, target->items);
}

void ZQXMLFieldAssignListHandler::PostProcess(int tag) {
  if (isList(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLFieldAssignListHandler::CleanReferences() {
  assigns.clean();
}
