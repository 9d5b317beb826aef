// Filters and escalations, and what active links have in common with them. See values.h for what
// holds for all writers.
#ifndef ZQXML_XML_WRITERS_WORKFLOW_H
#define ZQXML_XML_WRITERS_WORKFLOW_H

#include "xml/writers/objecthead.h"

class ElementSink;

// A null part is left out of the object.
struct FilterParts {
  const uint32_t* executionOrder;
  const ZQWorkflowConnectStruct* workflowConnect;
  const uint32_t* executeOn;
  const uint32_t* enabled;
  const ZQQualifierStruct* query;
  const ZQFilterActionList* actionList;
  const ZQFilterActionList* elseList;
};

struct EscalationParts {
  const ZQEscalationTmStruct* escalationTime;
  const ZQWorkflowConnectStruct* workflowConnect;
  const uint32_t* enabled;
  const ZQQualifierStruct* query;
  const ZQFilterActionList* actionList;
  const ZQFilterActionList* elseList;
};

int writeFilter(ElementSink& sink, const HeadParts& head, const FilterParts& filter);
int writeEscalation(ElementSink& sink, const HeadParts& head, const EscalationParts& escalation);

// Elements of an object, each left out for null and where there is nothing to write.
void writeExecutionOrder(ElementSink& sink, const uint32_t* order);
void writeWorkflowConnect(ElementSink& sink, const ZQWorkflowConnectStruct* connect);
void writeEnabled(ElementSink& sink, const uint32_t* enabled);
int writeRunIf(ElementSink& sink, const ZQQualifierStruct* query);

#endif
