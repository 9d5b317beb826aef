// Reads "ifActions" and "elseActions" of filters and escalations.
#ifndef ZQXML_XML_HANDLERS_ZQXMLFILTERACTIONLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLFILTERACTIONLISTHANDLER_H

#include <cstdint>

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLActionCallGuideHandler.h"
#include "xml/handlers/ZQXMLActionExitGuideHandler.h"
#include "xml/handlers/ZQXMLActionFilterMsgHandler.h"
#include "xml/handlers/ZQXMLActionGotoGuideHandler.h"
#include "xml/handlers/ZQXMLActionGotoHandler.h"
#include "xml/handlers/ZQXMLActionNotifyHandler.h"
#include "xml/handlers/ZQXMLActionPushFieldListHandler.h"
#include "xml/handlers/ZQXMLActionSQLHandler.h"
#include "xml/handlers/ZQXMLFieldAssignListHandler.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

class ZQXMLFilterActionListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLFilterActionListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQFilterActionList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQFilterActionStruct& OpenAction() const;
  ZQFilterActionStruct& SetAction(uint32_t action);

  ZQFilterActionList* target = nullptr;
  LeafTable<ZQFilterActionStruct> leaves;
  ZQXMLActionNotifyHandler notify;
  ZQXMLActionFilterMsgHandler message;
  ZQXMLFieldAssignListHandler setFields;
  ZQXMLActionPushFieldListHandler pushFields;
  ZQXMLActionSQLHandler sql;
  ZQXMLActionGotoHandler gotoAction;
  ZQXMLActionCallGuideHandler callGuide;
  ZQXMLActionExitGuideHandler exitGuide;
  ZQXMLActionGotoGuideHandler gotoGuide;
  PendingList<ZQFilterActionStruct, FreeZQFilterActionStruct> actions;
};

#endif
