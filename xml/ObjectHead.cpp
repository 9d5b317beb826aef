#include "xml/ObjectHead.h"

#include <cstdlib>

#include "xml/ZQXMLText.h"
#include "zqxml/free.h"

ObjectHeadBase::ObjectHeadBase(const ZQXMLHandlerInfo* handlerInfo, uint32_t objectKind)
    : info(handlerInfo), kind(objectKind), changeHistory(handlerInfo), properties(handlerInfo) {}

void ObjectHeadBase::Init(const Fields& head, uint32_t* type) {
  fields = head;
  objectType = type;
  if (objectType != nullptr) {
    *objectType = kind;
  }
  dropped = false;
}

void ObjectHeadBase::CleanReferences() {
  changeHistory.CleanReferences();
  properties.CleanReferences();
}

void ObjectHeadBase::PreProcess(int tag) {
  if (tag == tag_changeHistory && fields.changeDiary != nullptr) {
    free(*fields.changeDiary);
    changeHistory.Init(fields.changeDiary);
    info->handlerStack->Push(&changeHistory, info->locator);
  } else if (tag == tag_objectProperties && fields.objPropList != nullptr) {
    releaseRecord(*fields.objPropList, FreeZQPropList);
    properties.Init(fields.objPropList);
    info->handlerStack->Push(&properties, info->locator);
  }
}

void ObjectHeadBase::ReadAttributes(const xercesc::Attributes& attributes) {
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

void ObjectHeadBase::AskForObject() {
  dropped = objectType != nullptr &&
            !ZQXMLHandlerUtils::IsObjectRequested(kind, fields.name, *info->objectSelection);
}

void ObjectHeadBase::refuseElement() const {
  throw ZQXMLException(ZQ_MESSAGE_ELEMENT_NOT_ALLOWED, info->elementName, info->locator);
}
