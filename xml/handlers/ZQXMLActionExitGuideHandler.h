// Reads the "exitGuide" action.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONEXITGUIDEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONEXITGUIDEHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLActionExitGuideHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionExitGuideHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQExitGuideStruct* exitGuide);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQExitGuideStruct* target = nullptr;
  LeafTable<ZQExitGuideStruct> leaves;
};

#endif
