#include "xml/handlers/ZQXMLQualArithHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLQualValueArithHandler.h"
#include "zqxml/free.h"

namespace {

constexpr Leaf<ZQArithOpStruct> kLeaves[] = {
    {tag_operation, loadWord<&ZQArithOpStruct::operation, ENUM_OPERATION>},
};

}  // namespace

ZQXMLQualArithHandler::ZQXMLQualArithHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

ZQXMLQualArithHandler::~ZQXMLQualArithHandler() = default;

void ZQXMLQualArithHandler::Init(ZQArithOpStruct* operation) {
  currentTag = 0;
  CleanReferences();
  target = operation;
  *target = {};
}

void ZQXMLQualArithHandler::PreProcess(int tag) {
  if (tag == tag_left) {
    giveTo(lazily(operand), target->operandLeft, FreeZQFieldValueOrArithStruct);
  } else if (tag == tag_right) {
    giveTo(lazily(operand), target->operandRight, FreeZQFieldValueOrArithStruct);
  }
}

void ZQXMLQualArithHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (leaves.open(tag)) {
    leaves[tag].Empty();
    currentTag = tag;
  } else if (tag != tag_arithmeticOperation) {
    refuseElement();
  }
}

void ZQXMLQualArithHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLQualArithHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_arithmeticOperation) {
    refuseElement();
  }
}

void ZQXMLQualArithHandler::PostProcess(int tag) {
  if (tag == tag_arithmeticOperation) {
    handlerStack->Pop();
  }
}

void ZQXMLQualArithHandler::CleanReferences() {}
