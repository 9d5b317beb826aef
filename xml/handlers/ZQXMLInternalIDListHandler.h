// Reads lists of ids of groups and fields: "accessList", "subAdminAccessList" and "fieldIDList".
// Any of them takes both "groupID" and "fieldID".
#ifndef ZQXML_XML_HANDLERS_ZQXMLINTERNALIDLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLINTERNALIDLISTHANDLER_H

#include "xml/PendingList.h"
#include "xml/ZQGNString.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLInternalIDListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLInternalIDListHandler(const ZQXMLHandlerInfo* info) : ZQXMLBaseHandler(info) {}

  void Init(ZQInternalIdList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQInternalIdList* target = nullptr;
  ZQGNString idText;
  PendingList<ZQInternalId> ids;
};

#endif
