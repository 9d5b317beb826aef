// Reads "inputField", "outputField" or "setField", a field and what is assigned to it.
#ifndef ZQXML_XML_HANDLERS_ZQXMLFIELDASSIGNHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLFIELDASSIGNHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLFieldAssignValueHandler.h"
#include "zqxml/records.h"

class ZQXMLFieldAssignHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLFieldAssignHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQFieldAssignStruct* fieldAssign);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQFieldAssignStruct* target = nullptr;
  LeafTable<ZQFieldAssignStruct> leaves;
  ZQXMLFieldAssignValueHandler value;
};

#endif
