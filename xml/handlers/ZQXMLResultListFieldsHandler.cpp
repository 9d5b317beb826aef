#include "xml/handlers/ZQXMLResultListFieldsHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQEntryListFieldStruct> kLeaves[] = {
    {tag_fieldID, loadUnsigned<&ZQEntryListFieldStruct::fieldId>},
    {tag_fieldSeparator,
     [](ZQEntryListFieldStruct& field, const LeafText& leaf) {
       constexpr int kLimit = 9;
       fillArray(field.fieldSeparator, leaf.text, kLimit);
     }},
    {tag_fieldWidth, loadSigned<&ZQEntryListFieldStruct::fieldWidth>},
};

}  // namespace

ZQXMLResultListFieldsHandler::ZQXMLResultListFieldsHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLResultListFieldsHandler::Init(ZQEntryListFieldList* list) {
  currentTag = 0;
  CleanReferences();
  leaves.empty();
  target = list;
  *target = {};
}

void ZQXMLResultListFieldsHandler::PreProcess(int) {}

void ZQXMLResultListFieldsHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_resultListField) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else if (tag != tag_resultListFields) {
    refuseElement();
  }
}

void ZQXMLResultListFieldsHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLResultListFieldsHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_resultListField) {
    AddEntry();
  } else if (tag == tag_resultListFields) {
    entries.moveTo(target->numItems, target->items);
  } else if (!leaves.has(tag)) {
    refuseElement();
  }
}

void ZQXMLResultListFieldsHandler::PostProcess(int tag) {
  if (tag == tag_resultListFields) {
    handlerStack->Pop();
  }
}

void ZQXMLResultListFieldsHandler::CleanReferences() {
  entries.clean();
}

void ZQXMLResultListFieldsHandler::AddEntry() {
  leaves.loadAll(entries.add(), locator);
}
