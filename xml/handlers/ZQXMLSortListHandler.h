// Reads "sortList", the fields that entries are sorted by.
#ifndef ZQXML_XML_HANDLERS_ZQXMLSORTLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLSORTLISTHANDLER_H

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLSortListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLSortListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQSortList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void AddEntry();

  ZQSortList* target = nullptr;
  LeafTable<ZQSortStruct> leaves;
  PendingList<ZQSortStruct> entries;
};

#endif
