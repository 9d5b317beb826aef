#include "xml/handlers/ZQXMLActionOLEMethodListHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQCOMMethodStruct> kLeaves[] = {
    {tag_methodName, loadText<&ZQCOMMethodStruct::methodName>},
    {tag_methodIdentifier, loadText<&ZQCOMMethodStruct::methodIdentifier>},
    {tag_methodType, loadSigned<&ZQCOMMethodStruct::methodType>},
};

}  // namespace

ZQXMLActionOLEMethodListHandler::ZQXMLActionOLEMethodListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), value(info), parameters(info) {}

void ZQXMLActionOLEMethodListHandler::Init(ZQCOMMethodList* list) {
  currentTag = 0;
  CleanReferences();
  target = list;
  *target = {};
}

void ZQXMLActionOLEMethodListHandler::PreProcess(int tag) {
  if (tag == tag_methodReturnValue) {
    giveTo(value, OpenEntry().returnValue, FreeZQCOMValueStruct);
  } else if (tag == tag_methodParameterList) {
    giveTo(parameters, OpenEntry().parameters, FreeZQCOMMethodParmList);
  }
}

void ZQXMLActionOLEMethodListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_comMethod) {
    methods.add();
    leaves.empty();
  } else if (leaves.open(tag)) {
    OpenEntry();
    currentTag = tag;
  } else if (tag != tag_comMethodList) {
    refuseElement();
  }
}

void ZQXMLActionOLEMethodListHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionOLEMethodListHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_comMethod) {
    methods.close();
  } else if (tag == tag_comMethodList) {
    methods.moveTo(target->numItems, target->items);
  } else if (!leaves.has(tag)) {
    refuseElement();
  } else {
    leaves.close(tag, OpenEntry(), locator);
  }
}

void ZQXMLActionOLEMethodListHandler::PostProcess(int tag) {
  if (tag == tag_comMethodList) {
    handlerStack->Pop();
  }
}

void ZQXMLActionOLEMethodListHandler::CleanReferences() {
  methods.clean();
}

// The entry that is being read. Throws ZQXMLException 8941 with the element's name if there is
// none.
ZQCOMMethodStruct& ZQXMLActionOLEMethodListHandler::OpenEntry() const {
  if (methods.open() == nullptr) {
    refuseElement();
  }
  return *methods.open();
}
