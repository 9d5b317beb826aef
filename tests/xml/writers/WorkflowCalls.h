// Filters and escalations as the arguments of the calls that write them.
#ifndef ZQXML_TESTS_XML_WRITERS_WORKFLOWCALLS_H
#define ZQXML_TESTS_XML_WRITERS_WORKFLOWCALLS_H

#include <xercesc/dom/DOM.hpp>

#include "zqxml/builders.hpp"
#include "zqxml/definitions.h"

// All parts are null until they are set.
struct WorkflowParts {
  const char* name = nullptr;
  const ZQWorkflowConnectStruct* workflowConnect = nullptr;
  const uint32_t* enabled = nullptr;
  const ZQQualifierStruct* query = nullptr;
  const ZQFilterActionList* actionList = nullptr;
  const ZQFilterActionList* elseList = nullptr;
  const char* owner = nullptr;
  const char* lastChanged = nullptr;
  const ZQTimestamp* modifiedDate = nullptr;
  const char* helpText = nullptr;
  char* changeDiary = nullptr;
  const ZQPropList* objPropList = nullptr;
  const int32_t* xmlDocVersion = nullptr;
};

struct FilterCall : WorkflowParts {
  static constexpr const char* kElement = "filter";
  static constexpr const char* kNameElement = "filterName";

  const uint32_t* executionOrder = nullptr;
  const uint32_t* executeOn = nullptr;

  int set(ZQXMLOutputDoc* doc, unsigned frame, ZQStatusList* status) const {
    return SetFilterToXML(doc, frame, name, executionOrder, workflowConnect, executeOn, enabled,
                          query, actionList, elseList, owner, lastChanged, modifiedDate, helpText,
                          changeDiary, objPropList, xmlDocVersion, status);
  }
  int build(xercesc::DOMDocument* document, xercesc::DOMElement* element) const {
    return CreateFilterNode(document, element, name, executionOrder, workflowConnect, executeOn,
                            enabled, query, actionList, elseList, owner, lastChanged, modifiedDate,
                            helpText, changeDiary, objPropList, xmlDocVersion);
  }
};

struct EscalationCall : WorkflowParts {
  static constexpr const char* kElement = "escalation";
  static constexpr const char* kNameElement = "escalationName";

  const ZQEscalationTmStruct* escalationTime = nullptr;

  int set(ZQXMLOutputDoc* doc, unsigned frame, ZQStatusList* status) const {
    return SetEscalationToXML(doc, frame, name, escalationTime, workflowConnect, enabled, query,
                              actionList, elseList, owner, lastChanged, modifiedDate, helpText,
                              changeDiary, objPropList, xmlDocVersion, status);
  }
  int build(xercesc::DOMDocument* document, xercesc::DOMElement* element) const {
    return CreateEscalationNode(document, element, name, escalationTime, workflowConnect, enabled,
                                query, actionList, elseList, owner, lastChanged, modifiedDate,
                                helpText, changeDiary, objPropList, xmlDocVersion);
  }
};

#endif
