#include "xml/handlers/ZQXMLPropListHandler.h"

#include <utility>

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQPropStruct> kLeaves[] = {
    {tag_tag, loadSigned<&ZQPropStruct::property>},
};

bool isList(int tag) {
  switch (tag) {
    case tag_objectProperties:
    case tag_commonProperties:
    case tag_displayProperties:
    case tag_properties:
    case tag_propertyList:
      return true;
    default:
      return false;
  }
}

}  // namespace

ZQXMLPropListHandler::ZQXMLPropListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), valueHandler(info) {}

ZQXMLPropListHandler::~ZQXMLPropListHandler() {
  ZQXMLPropListHandler::CleanReferences();
}

void ZQXMLPropListHandler::Init(ZQPropList* list) {
  currentTag = 0;
  CleanReferences();
  leaves.empty();
  target = list;
  *target = {};
}

void ZQXMLPropListHandler::PreProcess(int tag) {
  if (tag == tag_value) {
    giveTo(valueHandler, value, FreeZQValueStruct);
  }
}

void ZQXMLPropListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_property) {
    leaves.empty();
    releaseRecord(value, FreeZQValueStruct);
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else if (!isList(tag)) {
    refuseElement();
  }
}

void ZQXMLPropListHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLPropListHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_property) {
    AddPropEntry();
  } else if (isList(tag)) {
    properties.moveTo(target->numItems, target->items);
    CleanReferences();
  } else if (!leaves.has(tag)) {
    refuseElement();
  }
}

void ZQXMLPropListHandler::PostProcess(int tag) {
  if (isList(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLPropListHandler::CleanReferences() {
  releaseRecord(value, FreeZQValueStruct);
  properties.clean();
}

void ZQXMLPropListHandler::AddPropEntry() {
  ZQPropStruct& property = properties.add();
  property.value = std::exchange(value, {});
  leaves.loadAll(property, locator);
}
