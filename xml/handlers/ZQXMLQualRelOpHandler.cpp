#include "xml/handlers/ZQXMLQualRelOpHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLQualValueArithHandler.h"
#include "zqxml/free.h"

namespace {

constexpr Leaf<ZQRelOpStruct> kLeaves[] = {
    {tag_operation, loadWord<&ZQRelOpStruct::operation, ENUM_OPERATION>},
};

}  // namespace

ZQXMLQualRelOpHandler::ZQXMLQualRelOpHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

ZQXMLQualRelOpHandler::~ZQXMLQualRelOpHandler() = default;

void ZQXMLQualRelOpHandler::Init(ZQRelOpStruct* operation) {
  currentTag = 0;
  CleanReferences();
  target = operation;
  *target = {};
}

void ZQXMLQualRelOpHandler::PreProcess(int tag) {
  if (tag == tag_left) {
    giveTo(lazily(operand), target->operandLeft, FreeZQFieldValueOrArithStruct);
  } else if (tag == tag_right) {
    giveTo(lazily(operand), target->operandRight, FreeZQFieldValueOrArithStruct);
  }
}

void ZQXMLQualRelOpHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (leaves.open(tag)) {
    leaves[tag].Empty();
    currentTag = tag;
  } else if (tag != tag_relationalOperation) {
    refuseElement();
  }
}

void ZQXMLQualRelOpHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLQualRelOpHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_relationalOperation) {
    refuseElement();
  }
}

void ZQXMLQualRelOpHandler::PostProcess(int tag) {
  if (tag == tag_relationalOperation) {
    handlerStack->Pop();
  }
}

void ZQXMLQualRelOpHandler::CleanReferences() {}
