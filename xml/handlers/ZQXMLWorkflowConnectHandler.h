// Reads "workflowConnect", the forms that an object of workflow is bound to.
#ifndef ZQXML_XML_HANDLERS_ZQXMLWORKFLOWCONNECTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLWORKFLOWCONNECTHANDLER_H

#include "xml/PendingList.h"
#include "xml/ZQGNString.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLWorkflowConnectHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLWorkflowConnectHandler(const ZQXMLHandlerInfo* info) : ZQXMLBaseHandler(info) {}

  void Init(ZQWorkflowConnectStruct* connect);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  struct FormName {
    ZQNameType name;
  };

  void AddFormNameEntry();
  void GenFormNameList();

  ZQWorkflowConnectStruct* target = nullptr;
  ZQGNString formName;
  PendingList<FormName> formNames;
};

#endif
