#include "xml/handlers/ZQXMLActionCallGuideHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQCallGuideStruct> kLeaves[] = {
    {tag_serverName, loadName<&ZQCallGuideStruct::serverName>},
    {tag_guideName, loadName<&ZQCallGuideStruct::guideName>},
    {tag_guideMode, loadSigned<&ZQCallGuideStruct::guideMode>},
    {tag_loopTableFieldID, loadUnsigned<&ZQCallGuideStruct::loopTableFieldId>},
};

}  // namespace

ZQXMLActionCallGuideHandler::ZQXMLActionCallGuideHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLActionCallGuideHandler::Init(ZQCallGuideStruct* callGuide) {
  currentTag = 0;
  CleanReferences();
  target = callGuide;
  *target = {};
}

void ZQXMLActionCallGuideHandler::PreProcess(int) {}

void ZQXMLActionCallGuideHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_callGuide) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLActionCallGuideHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionCallGuideHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_callGuide) {
    refuseElement();
  }
}

void ZQXMLActionCallGuideHandler::PostProcess(int tag) {
  if (tag == tag_callGuide) {
    handlerStack->Pop();
  }
}

void ZQXMLActionCallGuideHandler::CleanReferences() {}
