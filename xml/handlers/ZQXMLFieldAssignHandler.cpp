#include "xml/handlers/ZQXMLFieldAssignHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "zqxml/free.h"

namespace {

constexpr Leaf<ZQFieldAssignStruct> kLeaves[] = {
    {tag_fieldID, loadUnsigned<&ZQFieldAssignStruct::fieldId>},
};

bool isHost(int tag) {
  return tag == tag_inputField || tag == tag_outputField || tag == tag_setField;
}

}  // namespace

ZQXMLFieldAssignHandler::ZQXMLFieldAssignHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), value(info) {}

void ZQXMLFieldAssignHandler::Init(ZQFieldAssignStruct* fieldAssign) {
  currentTag = 0;
  CleanReferences();
  target = fieldAssign;
  *target = {};
}

void ZQXMLFieldAssignHandler::PreProcess(int tag) {
  if (tag == tag_fieldValue) {
    giveTo(value, target->assignment, FreeZQAssignStruct);
  }
}

void ZQXMLFieldAssignHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (isHost(tag)) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLFieldAssignHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLFieldAssignHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && !isHost(tag)) {
    refuseElement();
  }
}

void ZQXMLFieldAssignHandler::PostProcess(int tag) {
  if (isHost(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLFieldAssignHandler::CleanReferences() {}
