// Reads "sql", the SQL statement of an assignment.
#ifndef ZQXML_XML_HANDLERS_ZQXMLASSIGNSQLHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLASSIGNSQLHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLAssignSQLHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLAssignSQLHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQAssignSQLStruct* sql);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQAssignSQLStruct* target = nullptr;
  LeafTable<ZQAssignSQLStruct> leaves;
};

#endif
