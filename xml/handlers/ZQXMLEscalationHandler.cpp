#include "xml/handlers/ZQXMLEscalationHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "zqxml/free.h"
#include "zqxml/objects.h"
#include "zqxml/parser.h"

namespace {

constexpr auto kLeaves = objectLeaves<ZQXMLEscalation>({
    {tag_escalationName, loadName<&ZQXMLEscalation::name>},
    {tag_enabled, loadWord<&ZQXMLEscalation::enabled, ENUM_BOOLEAN>},
});

}  // namespace

ZQXMLEscalationHandler::ZQXMLEscalationHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info),
      head(info, {ZQXML_ESCALATION, tag_escalation, FreeZQXMLEscalation, kLeaves}),
      escalationTime(info),
      workflowConnect(info),
      qualifier(info),
      actions(info) {}

void ZQXMLEscalationHandler::Init(ZQXMLEscalation* escalation, uint32_t* objectType) {
  currentTag = 0;
  CleanReferences();
  target = escalation;
  head.Init(escalation, objectType);
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
  currentTag = head.StartElement(tag, attributes);
}

void ZQXMLEscalationHandler::Characters(const char* text, unsigned) {
  head.Characters(text);
}

void ZQXMLEscalationHandler::EndElement(int tag) {
  currentTag = 0;
  head.EndElement(tag);
}

void ZQXMLEscalationHandler::PostProcess(int tag) {
  head.PostProcess(tag);
}

void ZQXMLEscalationHandler::CleanReferences() {
  head.CleanReferences();
}
