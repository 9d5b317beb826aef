#include "xml/handlers/ZQXMLAssignArithHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLFieldAssignValueHandler.h"
#include "zqxml/free.h"

namespace {

constexpr Leaf<ZQArithOpAssignStruct> kLeaves[] = {
    {tag_operation, loadWord<&ZQArithOpAssignStruct::operation, ENUM_OPERATION>},
};

}  // namespace

ZQXMLAssignArithHandler::ZQXMLAssignArithHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

ZQXMLAssignArithHandler::~ZQXMLAssignArithHandler() = default;

void ZQXMLAssignArithHandler::Init(ZQArithOpAssignStruct* operation) {
  currentTag = 0;
  CleanReferences();
  target = operation;
  *target = {};
}

void ZQXMLAssignArithHandler::PreProcess(int tag) {
  if (tag == tag_left) {
    giveTo(lazily(operand), target->operandLeft, FreeZQAssignStruct);
  } else if (tag == tag_right) {
    giveTo(lazily(operand), target->operandRight, FreeZQAssignStruct);
  }
}

void ZQXMLAssignArithHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_arithmetic) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLAssignArithHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

// The word is looked up here, at the end of the host: it has to be there.
void ZQXMLAssignArithHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_arithmetic) {
    leaves.loadAll(*target, locator);
  } else if (!leaves.has(tag)) {
    refuseElement();
  }
}

void ZQXMLAssignArithHandler::PostProcess(int tag) {
  if (tag == tag_arithmetic) {
    handlerStack->Pop();
  }
}

void ZQXMLAssignArithHandler::CleanReferences() {}
