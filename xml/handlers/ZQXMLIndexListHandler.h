// Reads "formIndexList", the indexes of a form.
#ifndef ZQXML_XML_HANDLERS_ZQXMLINDEXLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLINDEXLISTHANDLER_H

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQGNString.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLIndexListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLIndexListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQIndexList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void AddFieldId();
  void AddIndexEntry();

  ZQIndexList* target = nullptr;
  LeafTable<ZQIndexStruct> leaves;
  ZQGNString fieldIdText;
  // The fields of the open index.
  ZQIndexStruct fields = {};
  PendingList<ZQIndexStruct> indexes;
};

#endif
