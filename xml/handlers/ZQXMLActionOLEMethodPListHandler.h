// Reads "methodParameterList", the parameters of an automation call.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONOLEMETHODPLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONOLEMETHODPLISTHANDLER_H

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLActionOLEValueHandler.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

class ZQXMLActionOLEMethodPListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionOLEMethodPListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQCOMMethodParmList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQCOMMethodParmStruct& OpenEntry() const;

  ZQCOMMethodParmList* target = nullptr;
  LeafTable<ZQCOMMethodParmStruct> leaves;
  ZQXMLActionOLEValueHandler value;
  PendingList<ZQCOMMethodParmStruct, FreeZQCOMMethodParmStruct> parameters;
};

#endif
