#include "xml/handlers/ZQXMLActionGotoHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

enum GotoTag : uint32_t { kFieldReference = 1, kAbsolute = 2, kForward = 3, kBackward = 4 };

template <uint32_t kTag>
void loadSteps(ZQGotoActionStruct& action, const LeafText& leaf) {
  action = {kTag, signedNumber(leaf.text)};
}

constexpr Leaf<ZQGotoActionStruct> kLeaves[] = {
    {tag_fieldIDReference,
     [](ZQGotoActionStruct& action, const LeafText& leaf) {
       action = {kFieldReference, static_cast<int32_t>(unsignedNumber(leaf.text))};
     }},
    {tag_absoluteOrder, loadSteps<kAbsolute>},
    {tag_offsetForward, loadSteps<kForward>},
    {tag_offsetBackward, loadSteps<kBackward>},
};

}  // namespace

ZQXMLActionGotoHandler::ZQXMLActionGotoHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLActionGotoHandler::Init(ZQGotoActionStruct* gotoAction) {
  currentTag = 0;
  CleanReferences();
  target = gotoAction;
  *target = {};
}

void ZQXMLActionGotoHandler::PreProcess(int) {}

void ZQXMLActionGotoHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_goto) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else if (tag != tag_executionOrder) {
    refuseElement();
  }
}

void ZQXMLActionGotoHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionGotoHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_goto && tag != tag_executionOrder) {
    refuseElement();
  }
}

void ZQXMLActionGotoHandler::PostProcess(int tag) {
  if (tag == tag_goto) {
    handlerStack->Pop();
  }
}

void ZQXMLActionGotoHandler::CleanReferences() {}
