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

constexpr Leaf<ZQXMLFilter> kLeaves[] = {
    {tag_executionOrder, loadSigned<&ZQXMLFilter::executionOrder>},
    {tag_executeOn, LoadExecuteOnValue},
    {tag_enabled, loadWord<&ZQXMLFilter::enabled, ENUM_BOOLEAN>},
};

}  // namespace

ZQXMLFilterHandler::ZQXMLFilterHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info),
      head(info, ZQXML_FILTER, tag_filterName),
      leaves(kLeaves),
      workflowConnect(info),
      qualifier(info),
      actions(info) {}

void ZQXMLFilterHandler::Init(ZQXMLFilter* filter, uint32_t* objectType) {
  currentTag = 0;
  CleanReferences();
  target = filter;
  *target = {};
  head.Init(ObjectHeadFields::of(*target), objectType);
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
  currentTag = 0;
  if (head.isDropped()) {
    return;
  }
  if (tag == tag_filter) {
    leaves.empty();
    head.openObject(attributes);
    return;
  }
  // Both are told, so that the text goes to the element that began last.
  const bool inHead = head.open(tag);
  const bool inLeaves = leaves.open(tag);
  if (!inHead && !inLeaves) {
    refuseElement();
  }
  currentTag = tag;
}

void ZQXMLFilterHandler::Characters(const char* text, unsigned) {
  head.append(text);
  leaves.append(text);
}

void ZQXMLFilterHandler::EndElement(int tag) {
  currentTag = 0;
  if (!head.isDropped() && !head.close(tag) && !leaves.close(tag, *target, locator) &&
      tag != tag_filter) {
    refuseElement();
  }
}

void ZQXMLFilterHandler::PostProcess(int tag) {
  if (tag == tag_filter) {
    handlerStack->Pop();
    head.closeObject(*target, FreeZQXMLFilter);
  }
}

void ZQXMLFilterHandler::CleanReferences() {}
