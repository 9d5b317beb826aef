#include "xml/handlers/ZQXMLEscalationHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "zqxml/free.h"
#include "zqxml/objects.h"
#include "zqxml/parser.h"

namespace {

constexpr Leaf<ZQXMLEscalation> kLeaves[] = {
    {tag_enabled, loadWord<&ZQXMLEscalation::enabled, ENUM_BOOLEAN>},
};

}  // namespace

ZQXMLEscalationHandler::ZQXMLEscalationHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info),
      head(info, ZQXML_ESCALATION, tag_escalationName),
      leaves(kLeaves),
      escalationTime(info),
      workflowConnect(info),
      qualifier(info),
      actions(info) {}

void ZQXMLEscalationHandler::Init(ZQXMLEscalation* escalation, uint32_t* objectType) {
  currentTag = 0;
  CleanReferences();
  target = escalation;
  *target = {};
  head.Init(ObjectHeadFields::of(*target), objectType);
}

// Children read their elements also in an object that is dropped.
void ZQXMLEscalationHandler::PreProcess(int tag) {
  switch (tag) {
    case tag_escalationTime:
      giveTo(escalationTime, target->escalationTime, freeNothing<ZQEscalationTmStruct>);
      break;
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

void ZQXMLEscalationHandler::StartElement(int tag, const xercesc::Attributes& attributes) {
  currentTag = 0;
  if (head.isDropped()) {
    return;
  }
  if (tag == tag_escalation) {
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

void ZQXMLEscalationHandler::Characters(const char* text, unsigned) {
  head.append(text);
  leaves.append(text);
}

void ZQXMLEscalationHandler::EndElement(int tag) {
  currentTag = 0;
  if (!head.isDropped() && !head.close(tag) && !leaves.close(tag, *target, locator) &&
      tag != tag_escalation) {
    refuseElement();
  }
}

void ZQXMLEscalationHandler::PostProcess(int tag) {
  if (tag == tag_escalation) {
    handlerStack->Pop();
    head.closeObject(*target, FreeZQXMLEscalation);
  }
}

void ZQXMLEscalationHandler::CleanReferences() {}
