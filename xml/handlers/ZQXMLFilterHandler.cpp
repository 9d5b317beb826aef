#include "xml/handlers/ZQXMLFilterHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/WordList.h"
#include "zqxml/free.h"
#include "zqxml/objects.h"
#include "zqxml/parser.h"

namespace {

void LoadExecuteOnValue(ZQXMLFilter& filter, const LeafText& leaf) {
  filter.executeOn = 0;
  forEachWord(leaf.text, [&](const char* word) {
    filter.executeOn |= ZQXMLHandlerUtils::GetEnumValue(ENUM_FILTER_EXECUTE, word, leaf.locator);
  });
}

constexpr auto kLeaves = objectLeaves<ZQXMLFilter>({
    {tag_filterName, loadName<&ZQXMLFilter::name>},
    {tag_executionOrder, loadSigned<&ZQXMLFilter::executionOrder>},
    {tag_executeOn, LoadExecuteOnValue},
    {tag_enabled, loadWord<&ZQXMLFilter::enabled, ENUM_BOOLEAN>},
});

}  // namespace

ZQXMLFilterHandler::ZQXMLFilterHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info),
      head(info, {ZQXML_FILTER, tag_filter, FreeZQXMLFilter, kLeaves}),
      workflowConnect(info),
      qualifier(info),
      actions(info) {}

void ZQXMLFilterHandler::Init(ZQXMLFilter* filter, uint32_t* objectType) {
  currentTag = 0;
  CleanReferences();
  target = filter;
  head.Init(filter, objectType);
}

// Children read their elements also in an object that is dropped.
void ZQXMLFilterHandler::PreProcess(int tag) {
  switch (tag) {
    case tag_workflowConnect:
      giveTo(workflowConnect, target->workflowConnect, FreeZQWorkflowConnectStruct);
      break;
    case tag_runIfQualification:
      giveTo(qualifier, target->query, FreeZQQualifierStruct);
      break;
    case tag_ifActions:
      giveTo(actions, target->actionList, FreeZQFilterActionList);
      break;
    case tag_elseActions:
      giveTo(actions, target->elseList, FreeZQFilterActionList);
      break;
    default:
      head.PreProcess(tag);
      break;
  }
}

void ZQXMLFilterHandler::StartElement(int tag, const xercesc::Attributes& attributes) {
  currentTag = head.StartElement(tag, attributes);
}

void ZQXMLFilterHandler::Characters(const char* text, unsigned) {
  head.Characters(text);
}

void ZQXMLFilterHandler::EndElement(int tag) {
  currentTag = 0;
  head.EndElement(tag);
}

void ZQXMLFilterHandler::PostProcess(int tag) {
  head.PostProcess(tag);
}

void ZQXMLFilterHandler::CleanReferences() {
  head.CleanReferences();
}
