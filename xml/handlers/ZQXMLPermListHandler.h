// Reads permissions: "modifyPermissionList" and "viewPermissionList". Either of them takes the
// entries and words of both.
#ifndef ZQXML_XML_HANDLERS_ZQXMLPERMLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLPERMLISTHANDLER_H

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLPermListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLPermListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQPermissionList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void AddEntry();

  ZQPermissionList* target = nullptr;
  LeafTable<ZQPermissionStruct> leaves;
  PendingList<ZQPermissionStruct> entries;
};

#endif
