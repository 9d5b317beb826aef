// Writes the filters and escalations of a chain as one document.
#ifndef ZQXML_TESTS_XML_HANDLERS_WORKFLOWDOCUMENT_H
#define ZQXML_TESTS_XML_HANDLERS_WORKFLOWDOCUMENT_H

#include <gtest/gtest.h>

#include <string>

#include "zqxml/zqxml.h"

// All parts of an object, by its Set function. The diary is consumed.
inline int setObject(ZQXMLOutputDoc* doc, ZQXMLFilter& o, ZQStatusList* status) {
  return SetFilterToXML(doc, 0, o.name, &o.executionOrder, &o.workflowConnect, &o.executeOn,
                        &o.enabled, &o.query, &o.actionList, &o.elseList, o.owner, o.lastChanged,
                        &o.modifiedDate, o.helpText, o.changeDiary, &o.objPropList,
                        &o.xmlDocVersion, status);
}

inline int setObject(ZQXMLOutputDoc* doc, ZQXMLEscalation& o, ZQStatusList* status) {
  return SetEscalationToXML(doc, 0, o.name, &o.escalationTime, &o.workflowConnect, &o.enabled,
                            &o.query, &o.actionList, &o.elseList, o.owner, o.lastChanged,
                            &o.modifiedDate, o.helpText, o.changeDiary, &o.objPropList,
                            &o.xmlDocVersion, status);
}

// What a call with an output document wrote.
template <typename Call>
std::string writtenBy(Call call) {
  ZQXMLOutputDoc doc = {1, {}};
  EXPECT_EQ(call(&doc), 0);
  const std::string text = doc.u.doc != nullptr ? doc.u.doc : "";
  FreeZQXMLOutputDocInternal(&doc, 0);
  return text;
}

template <typename Object>
std::string objectText(Object& object) {
  return writtenBy([&](ZQXMLOutputDoc* doc) { return setObject(doc, object, nullptr); });
}

// The document with its header and footer.
inline std::string documentOf(const ZQXMLParsedStream& stream) {
  std::string text = writtenBy([](ZQXMLOutputDoc* doc) { return SetDocHeaderToXML(doc, nullptr); });
  for (ZQXMLObjectList* node = stream.objectList; node != nullptr; node = node->next) {
    text += node->objectType == ZQXML_FILTER ? objectText(node->object.filter)
                                             : objectText(node->object.escalation);
  }
  return text + writtenBy([](ZQXMLOutputDoc* doc) { return SetDocFooterToXML(doc, nullptr); });
}

#endif
