// Reads the "notify" action.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONNOTIFYHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONNOTIFYHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLInternalIDListHandler.h"
#include "zqxml/records.h"

class ZQXMLActionNotifyHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionNotifyHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQFilterActionNotify* notify);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQFilterActionNotify* target = nullptr;
  LeafTable<ZQFilterActionNotify> leaves;
  ZQXMLInternalIDListHandler fieldIds;
};

#endif
