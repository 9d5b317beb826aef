// Reads the "goto" action. Of several children the last one counts.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONGOTOHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONGOTOHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLActionGotoHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionGotoHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQGotoActionStruct* gotoAction);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQGotoActionStruct* target = nullptr;
  LeafTable<ZQGotoActionStruct> leaves;
};

#endif
