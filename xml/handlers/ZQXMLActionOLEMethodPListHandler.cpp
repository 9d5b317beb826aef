#include "xml/handlers/ZQXMLActionOLEMethodPListHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQCOMMethodParmStruct> kLeaves[] = {
    {tag_parameterName, loadText<&ZQCOMMethodParmStruct::parameterName>},
    {tag_parameterType, loadSigned<&ZQCOMMethodParmStruct::parameterType>},
};

}  // namespace

ZQXMLActionOLEMethodPListHandler::ZQXMLActionOLEMethodPListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), value(info) {}

void ZQXMLActionOLEMethodPListHandler::Init(ZQCOMMethodParmList* list) {
  currentTag = 0;
  CleanReferences();
  target = list;
  *target = {};
}

void ZQXMLActionOLEMethodPListHandler::PreProcess(int tag) {
  if (tag == tag_parameterValue) {
    giveTo(value, OpenEntry().parameterValue, FreeZQCOMValueStruct);
  }
}

void ZQXMLActionOLEMethodPListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_methodParameter) {
    parameters.add();
    leaves.empty();
  } else if (leaves.open(tag)) {
    OpenEntry();
    currentTag = tag;
  } else if (tag != tag_methodParameterList) {
    refuseElement();
  }
}

void ZQXMLActionOLEMethodPListHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionOLEMethodPListHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_methodParameter) {
    parameters.close();
  } else if (tag == tag_methodParameterList) {
    parameters.moveTo(target->numItems, target->items);
  } else if (!leaves.has(tag)) {
    refuseElement();
  } else {
    leaves.close(tag, OpenEntry(), locator);
  }
}

void ZQXMLActionOLEMethodPListHandler::PostProcess(int tag) {
  if (tag == tag_methodParameterList) {
    handlerStack->Pop();
  }
}

void ZQXMLActionOLEMethodPListHandler::CleanReferences() {
  parameters.clean();
}

// The entry that is being read. Throws ZQXMLException 8941 with the element's name if there is
// none.
ZQCOMMethodParmStruct& ZQXMLActionOLEMethodPListHandler::OpenEntry() const {
  if (parameters.open() == nullptr) {
    refuseElement();
  }
  return *parameters.open();
}
