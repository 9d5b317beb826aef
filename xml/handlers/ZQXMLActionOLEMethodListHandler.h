// Reads "comMethodList", the calls of an automation.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONOLEMETHODLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONOLEMETHODLISTHANDLER_H

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLActionOLEMethodPListHandler.h"
#include "xml/handlers/ZQXMLActionOLEValueHandler.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

class ZQXMLActionOLEMethodListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionOLEMethodListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQCOMMethodList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQCOMMethodStruct& OpenEntry() const;

  ZQCOMMethodList* target = nullptr;
  LeafTable<ZQCOMMethodStruct> leaves;
  ZQXMLActionOLEValueHandler value;
  ZQXMLActionOLEMethodPListHandler parameters;
  PendingList<ZQCOMMethodStruct, FreeZQCOMMethodStruct> methods;
};

#endif
