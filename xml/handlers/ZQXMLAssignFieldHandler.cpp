#include "xml/handlers/ZQXMLAssignFieldHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "zqxml/free.h"

namespace {

enum FieldTag : uint32_t { kField = 1, kStatusHistory = 4 };

constexpr Leaf<ZQAssignFieldStruct> kLeaves[] = {
    {tag_serverName, loadName<&ZQAssignFieldStruct::serverName>},
    {tag_formName, loadName<&ZQAssignFieldStruct::formName>},
    {tag_fieldID, [](ZQAssignFieldStruct& field,
                     const LeafText& leaf) { field.u.fieldId = unsignedNumber(leaf.text); }},
    {tag_statusState,
     [](ZQAssignFieldStruct& field, const LeafText& leaf) {
       field.u.statHistory.statusState = unsignedNumber(leaf.text);
     }},
    {tag_statusInfo,
     [](ZQAssignFieldStruct& field, const LeafText& leaf) {
       field.u.statHistory.statusInfo =
           ZQXMLHandlerUtils::GetEnumValue(ENUM_STATUS_TAG, leaf.text, leaf.locator);
     }},
    {tag_noMatchOption, loadWord<&ZQAssignFieldStruct::noMatchOption, ENUM_NO_MATCH>},
    {tag_multipleMatchOption,
     loadWord<&ZQAssignFieldStruct::multipleMatchOption, ENUM_MULTI_MATCH>},
};

bool isHost(int tag) {
  return tag == tag_field || tag == tag_targetField;
}

}  // namespace

ZQXMLAssignFieldHandler::ZQXMLAssignFieldHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), qualifier(info) {}

void ZQXMLAssignFieldHandler::Init(ZQAssignFieldStruct* field) {
  currentTag = 0;
  CleanReferences();
  target = field;
  *target = {};
}

void ZQXMLAssignFieldHandler::PreProcess(int tag) {
  if (tag == tag_qualification) {
    giveTo(qualifier, target->qualifier, FreeZQQualifierStruct);
  }
}

void ZQXMLAssignFieldHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (isHost(tag)) {
    leaves.empty();
    return;
  }
  if (tag == tag_statusHistoryValue) {
    SetTag(kStatusHistory);
    return;
  }
  if (tag == tag_fieldID) {
    SetTag(kField);
  }
  if (!leaves.open(tag)) {
    refuseElement();
  }
  currentTag = tag;
}

void ZQXMLAssignFieldHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLAssignFieldHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && !isHost(tag) && tag != tag_statusHistoryValue) {
    refuseElement();
  }
}

void ZQXMLAssignFieldHandler::PostProcess(int tag) {
  if (isHost(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLAssignFieldHandler::CleanReferences() {}

// Neither a field nor a part of the status history owns memory.
void ZQXMLAssignFieldHandler::SetTag(uint32_t tag) {
  if (target->tag != tag) {
    target->u = {};
    target->tag = tag;
  }
}
