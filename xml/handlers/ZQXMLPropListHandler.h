// Reads lists of properties: "objectProperties", "commonProperties", "displayProperties",
// "properties" and "propertyList".
#ifndef ZQXML_XML_HANDLERS_ZQXMLPROPLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLPROPLISTHANDLER_H

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLValueHandler.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

class ZQXMLPropListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLPropListHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLPropListHandler() override;

  void Init(ZQPropList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void AddPropEntry();

  ZQPropList* target = nullptr;
  LeafTable<ZQPropStruct> leaves;
  ZQXMLValueHandler valueHandler;
  // The value of the open entry, until that ends.
  ZQValueStruct value = {};
  PendingList<ZQPropStruct, FreeZQPropStruct> properties;
};

#endif
