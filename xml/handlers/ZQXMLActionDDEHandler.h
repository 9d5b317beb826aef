// Reads "dde", a DDE conversation.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONDDEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONDDEHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLActionDDEHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionDDEHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQDDEStruct* dde);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQDDEStruct* target = nullptr;
  LeafTable<ZQDDEStruct> leaves;
};

#endif
