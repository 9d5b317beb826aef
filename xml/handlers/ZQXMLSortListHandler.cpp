#include "xml/handlers/ZQXMLSortListHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQSortStruct> kLeaves[] = {
    {tag_fieldID, loadUnsigned<&ZQSortStruct::fieldId>},
    {tag_sortOrder, loadWord<&ZQSortStruct::sortOrder, ENUM_SORT_ORDER>},
};

}  // namespace

ZQXMLSortListHandler::ZQXMLSortListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLSortListHandler::Init(ZQSortList* list) {
  currentTag = 0;
  CleanReferences();
  leaves.empty();
  target = list;
  *target = {};
}

void ZQXMLSortListHandler::PreProcess(int) {}

void ZQXMLSortListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_sort) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else if (tag != tag_sortList) {
    refuseElement();
  }
}

void ZQXMLSortListHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLSortListHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_sort) {
    AddEntry();
  } else if (tag == tag_sortList) {
    entries.moveTo(target->numItems, target->items);
  } else if (!leaves.has(tag)) {
    refuseElement();
  }
}

void ZQXMLSortListHandler::PostProcess(int tag) {
  if (tag == tag_sortList) {
    handlerStack->Pop();
  }
}

void ZQXMLSortListHandler::CleanReferences() {
  entries.clean();
}

void ZQXMLSortListHandler::AddEntry() {
  leaves.loadAll(entries.add(), locator);
}
