// Reads a filter.
#ifndef ZQXML_XML_HANDLERS_ZQXMLFILTERHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLFILTERHANDLER_H

#include <cstdint>

#include "xml/ObjectHead.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLFilterActionListHandler.h"
#include "xml/handlers/ZQXMLQualHandler.h"
#include "xml/handlers/ZQXMLWorkflowConnectHandler.h"
#include "zqxml/records.h"

class ZQXMLFilterHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLFilterHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQXMLFilter* filter, uint32_t* objectType);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQXMLFilter* target = nullptr;
  ObjectHead<ZQXMLFilter> head;
  ZQXMLWorkflowConnectHandler workflowConnect;
  ZQXMLQualHandler qualifier;
  ZQXMLFilterActionListHandler actions;
};

#endif
