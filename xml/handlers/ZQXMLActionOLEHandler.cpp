#include "xml/handlers/ZQXMLActionOLEHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "zqxml/free.h"

namespace {

constexpr Leaf<ZQAutomationStruct> kLeaves[] = {
    {tag_automationServerName, loadText<&ZQAutomationStruct::automationServerName>},
    {tag_classID, loadText<&ZQAutomationStruct::classID>},
    {tag_action, loadText<&ZQAutomationStruct::action>},
    {tag_visible, loadWord<&ZQAutomationStruct::visible, ENUM_BOOLEAN>},
};

}  // namespace

ZQXMLActionOLEHandler::ZQXMLActionOLEHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), methods(info) {}

void ZQXMLActionOLEHandler::Init(ZQAutomationStruct* automation) {
  currentTag = 0;
  CleanReferences();
  target = automation;
  *target = {};
}

void ZQXMLActionOLEHandler::PreProcess(int tag) {
  if (tag == tag_comMethodList) {
    giveTo(methods, target->methods, FreeZQCOMMethodList);
  }
}

void ZQXMLActionOLEHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_oleAutomation) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLActionOLEHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionOLEHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_oleAutomation) {
    refuseElement();
  }
}

void ZQXMLActionOLEHandler::PostProcess(int tag) {
  if (tag == tag_oleAutomation) {
    handlerStack->Pop();
  }
}

void ZQXMLActionOLEHandler::CleanReferences() {}
