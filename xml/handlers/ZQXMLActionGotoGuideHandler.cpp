#include "xml/handlers/ZQXMLActionGotoGuideHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQGotoGuideLabelStruct> kLeaves[] = {
    {tag_label, loadText<&ZQGotoGuideLabelStruct::label>},
};

}  // namespace

ZQXMLActionGotoGuideHandler::ZQXMLActionGotoGuideHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLActionGotoGuideHandler::Init(ZQGotoGuideLabelStruct* gotoGuide) {
  currentTag = 0;
  CleanReferences();
  target = gotoGuide;
  *target = {};
}

void ZQXMLActionGotoGuideHandler::PreProcess(int) {}

void ZQXMLActionGotoGuideHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_gotoGuide) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLActionGotoGuideHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionGotoGuideHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_gotoGuide) {
    refuseElement();
  }
}

void ZQXMLActionGotoGuideHandler::PostProcess(int tag) {
  if (tag == tag_gotoGuide) {
    handlerStack->Pop();
  }
}

void ZQXMLActionGotoGuideHandler::CleanReferences() {}
