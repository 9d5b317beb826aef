#include "xml/handlers/ZQXMLActionExitGuideHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQExitGuideStruct> kLeaves[] = {
    {tag_closeAll, loadWord<&ZQExitGuideStruct::closeAll, ENUM_BOOLEAN>},
};

}  // namespace

ZQXMLActionExitGuideHandler::ZQXMLActionExitGuideHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLActionExitGuideHandler::Init(ZQExitGuideStruct* exitGuide) {
  currentTag = 0;
  CleanReferences();
  target = exitGuide;
  *target = {};
}

void ZQXMLActionExitGuideHandler::PreProcess(int) {}

void ZQXMLActionExitGuideHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_exitGuide) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLActionExitGuideHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionExitGuideHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_exitGuide) {
    refuseElement();
  }
}

void ZQXMLActionExitGuideHandler::PostProcess(int tag) {
  if (tag == tag_exitGuide) {
    handlerStack->Pop();
  }
}

void ZQXMLActionExitGuideHandler::CleanReferences() {}
