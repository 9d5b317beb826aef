// Reads "valueList", a list of typed values.
#ifndef ZQXML_XML_HANDLERS_ZQXMLVALUELISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLVALUELISTHANDLER_H

#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLValueHandler.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

class ZQXMLValueListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLValueListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQValueList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQValueList* target = nullptr;
  ZQXMLValueHandler value;
  PendingList<ZQValueStruct, FreeZQValueStruct> values;
};

#endif
