#include "xml/handlers/ZQXMLAssignFunctionHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLFieldAssignValueHandler.h"

namespace {

constexpr Leaf<ZQFunctionAssignStruct> kLeaves[] = {
    {tag_functionType, loadWord<&ZQFunctionAssignStruct::functionCode, ENUM_FUNCTION>},
};

}  // namespace

ZQXMLAssignFunctionHandler::ZQXMLAssignFunctionHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

ZQXMLAssignFunctionHandler::~ZQXMLAssignFunctionHandler() = default;

void ZQXMLAssignFunctionHandler::Init(ZQFunctionAssignStruct* function) {
  currentTag = 0;
  CleanReferences();
  target = function;
  *target = {};
}

void ZQXMLAssignFunctionHandler::PreProcess(int tag) {
  if (tag == tag_functionParameter) {
    giveTo(lazily(assignment), assignments.add(), FreeZQAssignStruct);
  }
}

void ZQXMLAssignFunctionHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_function) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else if (tag != tag_functionParameterList) {
    refuseElement();
  }
}

void ZQXMLAssignFunctionHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLAssignFunctionHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_functionParameterList) {
    GenFuncParamList();
  } else if (!leaves.close(tag, *target, locator) && tag != tag_function) {
    refuseElement();
  }
}

void ZQXMLAssignFunctionHandler::PostProcess(int tag) {
  if (tag == tag_function) {
    handlerStack->Pop();
    CleanReferences();
  }
}

void ZQXMLAssignFunctionHandler::CleanReferences() {
  assignments.clean();
}

// Of two lists the later one counts.
void ZQXMLAssignFunctionHandler::GenFuncParamList() {
  releaseArray(target->numItems, target->parameterList, FreeZQAssignStruct);
  assignments.moveTo(target->numItems, target->parameterList);
}
