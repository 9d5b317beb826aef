#include "xml/handlers/ZQXMLActionOLEValueHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "zqxml/free.h"

namespace {

enum ValueType : uint32_t { kNone = 0, kField = 1, kValue = 2 };

constexpr Leaf<ZQCOMValueStruct> kLeaves[] = {
    {tag_valueIdentifier, loadText<&ZQCOMValueStruct::valueIdentifier>},
    {tag_transID, loadUnsigned<&ZQCOMValueStruct::transId>},
    {tag_fieldID,
     [](ZQCOMValueStruct& value, const LeafText& leaf) {
       if (value.valueType == kField) {
         value.u.fieldId = unsignedNumber(leaf.text);
       }
     }},
};

bool isHost(int tag) {
  return tag == tag_parameterValue || tag == tag_methodReturnValue;
}

}  // namespace

ZQXMLActionOLEValueHandler::ZQXMLActionOLEValueHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), valueHandler(info) {}

void ZQXMLActionOLEValueHandler::Init(ZQCOMValueStruct* value) {
  currentTag = 0;
  CleanReferences();
  target = value;
  *target = {};
}

void ZQXMLActionOLEValueHandler::PreProcess(int tag) {
  if (tag == tag_value) {
    SetType(kValue);
    giveTo(valueHandler, target->u.value, FreeZQValueStruct);
  }
}

void ZQXMLActionOLEValueHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (isHost(tag)) {
    SetType(kNone);
    leaves.empty();
    return;
  }
  if (tag == tag_fieldID) {
    SetType(kField);
  }
  if (!leaves.open(tag)) {
    refuseElement();
  }
  currentTag = tag;
}

void ZQXMLActionOLEValueHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionOLEValueHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && !isHost(tag)) {
    refuseElement();
  }
}

void ZQXMLActionOLEValueHandler::PostProcess(int tag) {
  if (isHost(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLActionOLEValueHandler::CleanReferences() {}

// Of field and value the one that begins last counts.
void ZQXMLActionOLEValueHandler::SetType(uint32_t type) {
  if (target->valueType == kValue) {
    releaseRecord(target->u.value, FreeZQValueStruct);
  }
  target->u = {};
  target->valueType = type;
}
