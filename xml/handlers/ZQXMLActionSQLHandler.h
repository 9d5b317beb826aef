// Reads the "sql" action of filters, escalations and active links.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONSQLHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONSQLHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLActionSQLHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionSQLHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQSQLStruct* sql);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQSQLStruct* target = nullptr;
  LeafTable<ZQSQLStruct> leaves;
};

#endif
