#include "xml/handlers/ZQXMLAssignFilterAPIHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLFieldAssignValueHandler.h"

namespace {

constexpr Leaf<ZQAssignFilterApiStruct> kLeaves[] = {
    {tag_serviceName, loadName<&ZQAssignFilterApiStruct::serviceName>},
    {tag_valueIndex, loadSigned<&ZQAssignFilterApiStruct::valueIndex>},
};

}  // namespace

ZQXMLAssignFilterAPIHandler::ZQXMLAssignFilterAPIHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

ZQXMLAssignFilterAPIHandler::~ZQXMLAssignFilterAPIHandler() = default;

void ZQXMLAssignFilterAPIHandler::Init(ZQAssignFilterApiStruct* call) {
  currentTag = 0;
  CleanReferences();
  target = call;
  *target = {};
}

void ZQXMLAssignFilterAPIHandler::PreProcess(int tag) {
  if (tag == tag_inputValue) {
    giveTo(lazily(assignment), assignments.add(), FreeZQAssignStruct);
  }
}

void ZQXMLAssignFilterAPIHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_filterAPI) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else if (tag != tag_inputValueList) {
    refuseElement();
  }
}

void ZQXMLAssignFilterAPIHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLAssignFilterAPIHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_inputValueList) {
    GenInputValueList();
  } else if (!leaves.close(tag, *target, locator) && tag != tag_filterAPI) {
    refuseElement();
  }
}

void ZQXMLAssignFilterAPIHandler::PostProcess(int tag) {
  if (tag == tag_filterAPI) {
    handlerStack->Pop();
    CleanReferences();
  }
}

void ZQXMLAssignFilterAPIHandler::CleanReferences() {
  assignments.clean();
}

// Of two lists the later one counts.
void ZQXMLAssignFilterAPIHandler::GenInputValueList() {
  releaseArray(target->numItems, target->inputValues, FreeZQAssignStruct);
  assignments.moveTo(target->numItems, target->inputValues);
}
