// Reads the "oleAutomation" action. Its "action" is a text.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONOLEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONOLEHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLActionOLEMethodListHandler.h"
#include "zqxml/records.h"

class ZQXMLActionOLEHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionOLEHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQAutomationStruct* automation);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQAutomationStruct* target = nullptr;
  LeafTable<ZQAutomationStruct> leaves;
  ZQXMLActionOLEMethodListHandler methods;
};

#endif
