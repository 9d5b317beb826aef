#include "xml/handlers/ZQXMLActionFilterMsgHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQFilterStatusStruct> kLeaves[] = {
    {tag_messageType, loadWord<&ZQFilterStatusStruct::messageType, ENUM_FILTER_MESSAGE>},
    {tag_messageText, loadText<&ZQFilterStatusStruct::messageText>},
    {tag_messageNumber, loadSigned<&ZQFilterStatusStruct::messageNumber>},
};

}  // namespace

ZQXMLActionFilterMsgHandler::ZQXMLActionFilterMsgHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLActionFilterMsgHandler::Init(ZQFilterStatusStruct* message) {
  currentTag = 0;
  CleanReferences();
  target = message;
  *target = {};
}

void ZQXMLActionFilterMsgHandler::PreProcess(int) {}

void ZQXMLActionFilterMsgHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_message) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLActionFilterMsgHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionFilterMsgHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_message) {
    refuseElement();
  }
}

void ZQXMLActionFilterMsgHandler::PostProcess(int tag) {
  if (tag == tag_message) {
    handlerStack->Pop();
  }
}

void ZQXMLActionFilterMsgHandler::CleanReferences() {}
