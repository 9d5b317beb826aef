// The builders and the documents of filters and escalations.

#include "xml/ObjectDocument.h"
#include "xml/builders.h"
#include "xml/writers/workflow.h"
#include "zqxml/definitions.h"

using xercesc::DOMDocument;
using xercesc::DOMElement;

int CreateFilterNode(DOMDocument* document, DOMElement* element, const char* name,
                     const uint32_t* executionOrder, const ZQWorkflowConnectStruct* workflowConnect,
                     const uint32_t* executeOn, const uint32_t* enabled,
                     const ZQQualifierStruct* query, const ZQFilterActionList* actionList,
                     const ZQFilterActionList* elseList, const char* owner, const char* lastChanged,
                     const ZQTimestamp* modifiedDate, const char* helpText, char* changeDiary,
                     const ZQPropList* objPropList, const int32_t* xmlDocVersion) {
  return buildNodes(document, element, [&](ElementSink& sink) {
    return writeFilter(
        sink,
        {tag_filterName, name, owner, lastChanged, modifiedDate, helpText, changeDiary, objPropList,
         xmlDocVersion},
        {executionOrder, workflowConnect, executeOn, enabled, query, actionList, elseList});
  });
}

int CreateEscalationNode(DOMDocument* document, DOMElement* element, const char* name,
                         const ZQEscalationTmStruct* escalationTime,
                         const ZQWorkflowConnectStruct* workflowConnect, const uint32_t* enabled,
                         const ZQQualifierStruct* query, const ZQFilterActionList* actionList,
                         const ZQFilterActionList* elseList, const char* owner,
                         const char* lastChanged, const ZQTimestamp* modifiedDate,
                         const char* helpText, char* changeDiary, const ZQPropList* objPropList,
                         const int32_t* xmlDocVersion) {
  return buildNodes(document, element, [&](ElementSink& sink) {
    return writeEscalation(sink,
                           {tag_escalationName, name, owner, lastChanged, modifiedDate, helpText,
                            changeDiary, objPropList, xmlDocVersion},
                           {escalationTime, workflowConnect, enabled, query, actionList, elseList});
  });
}

int SetFilterToXML(ZQXMLOutputDoc* outputDoc, unsigned includeDocFrame, const char* name,
                   const uint32_t* executionOrder, const ZQWorkflowConnectStruct* workflowConnect,
                   const uint32_t* executeOn, const uint32_t* enabled,
                   const ZQQualifierStruct* query, const ZQFilterActionList* actionList,
                   const ZQFilterActionList* elseList, const char* owner, const char* lastChanged,
                   const ZQTimestamp* modifiedDate, const char* helpText, char* changeDiary,
                   const ZQPropList* objPropList, const int32_t* xmlDocVersion,
                   ZQStatusList* status) {
  return writeObjectDocument(
      outputDoc, includeDocFrame, tag_filter, status, [&](ElementSink& sink) {
        return writeFilter(
            sink,
            {tag_filterName, name, owner, lastChanged, modifiedDate, helpText, changeDiary,
             objPropList, xmlDocVersion},
            {executionOrder, workflowConnect, executeOn, enabled, query, actionList, elseList});
      });
}

int SetEscalationToXML(ZQXMLOutputDoc* outputDoc, unsigned includeDocFrame, const char* name,
                       const ZQEscalationTmStruct* escalationTime,
                       const ZQWorkflowConnectStruct* workflowConnect, const uint32_t* enabled,
                       const ZQQualifierStruct* query, const ZQFilterActionList* actionList,
                       const ZQFilterActionList* elseList, const char* owner,
                       const char* lastChanged, const ZQTimestamp* modifiedDate,
                       const char* helpText, char* changeDiary, const ZQPropList* objPropList,
                       const int32_t* xmlDocVersion, ZQStatusList* status) {
  return writeObjectDocument(
      outputDoc, includeDocFrame, tag_escalation, status, [&](ElementSink& sink) {
        return writeEscalation(
            sink,
            {tag_escalationName, name, owner, lastChanged, modifiedDate, helpText, changeDiary,
             objPropList, xmlDocVersion},
            {escalationTime, workflowConnect, enabled, query, actionList, elseList});
      });
}
