// Reads "resultListFields", the columns of result lists.
#ifndef ZQXML_XML_HANDLERS_ZQXMLRESULTLISTFIELDSHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLRESULTLISTFIELDSHANDLER_H

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLResultListFieldsHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLResultListFieldsHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQEntryListFieldList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void AddEntry();

  ZQEntryListFieldList* target = nullptr;
  LeafTable<ZQEntryListFieldStruct> leaves;
  PendingList<ZQEntryListFieldStruct> entries;
};

#endif
