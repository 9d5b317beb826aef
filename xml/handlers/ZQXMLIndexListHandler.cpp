#include "xml/handlers/ZQXMLIndexListHandler.h"

#include <iterator>

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQIndexStruct> kLeaves[] = {
    {tag_indexName, loadName<&ZQIndexStruct::indexName>},
    {tag_uniqueIndex, loadWord<&ZQIndexStruct::uniqueIndex, ENUM_UNIQUE_INDEX>},
};

}  // namespace

ZQXMLIndexListHandler::ZQXMLIndexListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLIndexListHandler::Init(ZQIndexList* list) {
  currentTag = 0;
  CleanReferences();
  leaves.empty();
  fields = {};
  target = list;
  *target = {};
}

void ZQXMLIndexListHandler::PreProcess(int) {}

void ZQXMLIndexListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  switch (tag) {
    case tag_formIndex:
      leaves.empty();
      fields = {};
      break;
    case tag_fieldID:
      fieldIdText.Empty();
      currentTag = tag;
      break;
    case tag_formIndexList:
    case tag_fieldIDList:
      break;
    default:
      if (!leaves.open(tag)) {
        refuseElement();
      }
      currentTag = tag;
      break;
  }
}

void ZQXMLIndexListHandler::Characters(const char* text, unsigned) {
  if (currentTag == tag_fieldID) {
    fieldIdText += text;
  } else if (currentTag != 0) {
    leaves.append(text);
  }
}

void ZQXMLIndexListHandler::EndElement(int tag) {
  currentTag = 0;
  switch (tag) {
    case tag_formIndex:
      AddIndexEntry();
      break;
    case tag_fieldID:
      AddFieldId();
      break;
    case tag_formIndexList:
      indexes.moveTo(target->numItems, target->items);
      break;
    case tag_fieldIDList:
      break;
    default:
      if (!leaves.has(tag)) {
        refuseElement();
      }
      break;
  }
}

void ZQXMLIndexListHandler::PostProcess(int tag) {
  if (tag == tag_formIndexList) {
    handlerStack->Pop();
  }
}

void ZQXMLIndexListHandler::CleanReferences() {
  indexes.clean();
}

// Throws ZQXMLException 8944 with the place for more fields than an index has room for.
void ZQXMLIndexListHandler::AddFieldId() {
  if (fields.numFields == std::size(fields.fieldIds)) {
    throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME, locator);
  }
  fields.fieldIds[fields.numFields++] = unsignedNumber(fieldIdText);
}

void ZQXMLIndexListHandler::AddIndexEntry() {
  ZQIndexStruct& index = indexes.add();
  index = fields;
  leaves.loadAll(index, locator);
}
