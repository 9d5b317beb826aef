#include "xml/ObjectHead.h"

#include <cstdlib>

#include "xml/ZQXMLTagHash.h"
#include "xml/ZQXMLText.h"
#include "zqxml/free.h"

namespace {

std::array<Leaf<ObjectHeadFields>, 5> headRows(int nameTag) {
  using Fields = ObjectHeadFields;
  return {{
      {nameTag, [](Fields& head, const LeafText& leaf) { fillArray(*head.name, leaf.text); }},
      {tag_owner, [](Fields& head, const LeafText& leaf) { fillArray(*head.owner, leaf.text); }},
      {tag_lastModifiedBy,
       [](Fields& head, const LeafText& leaf) { fillArray(*head.lastChanged, leaf.text); }},
      {tag_modifiedDate,
       [](Fields& head, const LeafText& leaf) {
         ZQXMLHandlerUtils::ConvertISOTimeToUnixTime(leaf.text, head.modifiedDate);
       }},
      {tag_helpText,
       [](Fields& head, const LeafText& leaf) { replaceText(*head.helpText, leaf.text); }},
  }};
}

}  // namespace

ObjectHead::ObjectHead(const ZQXMLHandlerInfo* handlerInfo, uint32_t objectKind, int nameTag)
    : info(handlerInfo),
      kind(objectKind),
      rows(headRows(nameTag)),
      leaves(rows),
      changeHistory(handlerInfo),
      properties(handlerInfo) {}

void ObjectHead::Init(const ObjectHeadFields& head, uint32_t* type) {
  CleanReferences();
  fields = head;
  objectType = type;
  *objectType = kind;
  dropped = false;
}

void ObjectHead::CleanReferences() {
  changeHistory.CleanReferences();
  properties.CleanReferences();
}

void ObjectHead::PreProcess(int tag) {
  switch (tag) {
    case tag_changeHistory:
      free(*fields.changeDiary);
      changeHistory.Init(fields.changeDiary);
      info->handlerStack->Push(&changeHistory, info->locator);
      break;
    case tag_objectProperties:
      FreeZQPropList(fields.objPropList, 0);
      properties.Init(fields.objPropList);
      info->handlerStack->Push(&properties, info->locator);
      break;
    default:
      break;
  }
}

void ObjectHead::openObject(const xercesc::Attributes& attributes) {
  leaves.empty();
  for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
    const XMLCh* name = attributes.getQName(i);
    switch (gTagHash.Get(name)) {
      case tag_zqDocVersion:
        *fields.xmlDocVersion = signedNumber(ZQXMLToLocal(attributes.getValue(i)).c_str());
        break;
      case tag_version:
      case tag_xmlns:
      case tag_xmlns_xsi:
      case tag_xsi_schemaLocation:
      case tag_xsi_type:
        break;
      default:
        throw ZQXMLException(ZQ_MESSAGE_ATTRIBUTE_NOT_ALLOWED, &name, info->locator);
    }
  }
}

bool ObjectHead::close(int tag) {
  if (!leaves.close(tag, fields, info->locator)) {
    return false;
  }
  if (tag == rows.front().tag) {
    dropped = !ZQXMLHandlerUtils::IsObjectRequested(kind, *fields.name, *info->objectSelection);
  }
  return true;
}
