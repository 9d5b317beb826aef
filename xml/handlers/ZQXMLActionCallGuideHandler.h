// Reads the "callGuide" action.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONCALLGUIDEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONCALLGUIDEHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLActionCallGuideHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionCallGuideHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQCallGuideStruct* callGuide);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQCallGuideStruct* target = nullptr;
  LeafTable<ZQCallGuideStruct> leaves;
};

#endif
