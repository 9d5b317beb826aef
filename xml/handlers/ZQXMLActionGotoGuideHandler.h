// Reads the "gotoGuide" action.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONGOTOGUIDEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONGOTOGUIDEHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLActionGotoGuideHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionGotoGuideHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQGotoGuideLabelStruct* gotoGuide);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQGotoGuideLabelStruct* target = nullptr;
  LeafTable<ZQGotoGuideLabelStruct> leaves;
};

#endif
