#include "xml/handlers/ZQXMLActionDDEHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQDDEStruct> kLeaves[] = {
    {tag_serviceName, loadText<&ZQDDEStruct::serviceName>},
    {tag_topic, loadText<&ZQDDEStruct::topic>},
    {tag_item, loadText<&ZQDDEStruct::item>},
    {tag_action, loadWord<&ZQDDEStruct::action, ENUM_DDE>},
    {tag_pathToProgram, loadText<&ZQDDEStruct::pathToProgram>},
    {tag_command, loadText<&ZQDDEStruct::command>},
};

}  // namespace

ZQXMLActionDDEHandler::ZQXMLActionDDEHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLActionDDEHandler::Init(ZQDDEStruct* dde) {
  currentTag = 0;
  CleanReferences();
  target = dde;
  *target = {};
}

void ZQXMLActionDDEHandler::PreProcess(int) {}

void ZQXMLActionDDEHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_dde) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLActionDDEHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionDDEHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_dde) {
    refuseElement();
  }
}

void ZQXMLActionDDEHandler::PostProcess(int tag) {
  if (tag == tag_dde) {
    handlerStack->Pop();
  }
}

void ZQXMLActionDDEHandler::CleanReferences() {}
