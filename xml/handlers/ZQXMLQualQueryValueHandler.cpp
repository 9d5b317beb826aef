#include "xml/handlers/ZQXMLQualQueryValueHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLQualHandler.h"
#include "zqxml/free.h"

namespace {

constexpr Leaf<ZQQueryValueStruct> kLeaves[] = {
    {tag_formName, loadName<&ZQQueryValueStruct::formName>},
    {tag_serverName, loadName<&ZQQueryValueStruct::serverName>},
    {tag_valueFieldID, loadUnsigned<&ZQQueryValueStruct::valueFieldId>},
    {tag_multipleMatchOption, loadWord<&ZQQueryValueStruct::multipleMatchOption, ENUM_QUERY_MULTI>},
};

}  // namespace

ZQXMLQualQueryValueHandler::ZQXMLQualQueryValueHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

ZQXMLQualQueryValueHandler::~ZQXMLQualQueryValueHandler() = default;

void ZQXMLQualQueryValueHandler::Init(ZQQueryValueStruct* query) {
  currentTag = 0;
  CleanReferences();
  target = query;
  *target = {};
}

void ZQXMLQualQueryValueHandler::PreProcess(int tag) {
  if (tag == tag_queryQualification) {
    releaseBlock(target->queryQualification, FreeZQQualifierStruct);
    target->queryQualification = newRecord<ZQQualifierStruct>();
    giveTo(lazily(qualifier), *target->queryQualification, FreeZQQualifierStruct);
  }
}

void ZQXMLQualQueryValueHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_queryValue) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLQualQueryValueHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLQualQueryValueHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_queryValue) {
    refuseElement();
  }
}

void ZQXMLQualQueryValueHandler::PostProcess(int tag) {
  if (tag == tag_queryValue) {
    handlerStack->Pop();
  }
}

void ZQXMLQualQueryValueHandler::CleanReferences() {}
