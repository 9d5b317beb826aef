// Reads "queryValue", an operand that is the result of a query.
#ifndef ZQXML_XML_HANDLERS_ZQXMLQUALQUERYVALUEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLQUALQUERYVALUEHANDLER_H

#include <memory>

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLQualHandler;

class ZQXMLQualQueryValueHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLQualQueryValueHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLQualQueryValueHandler() override;

  void Init(ZQQueryValueStruct* query);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQQueryValueStruct* target = nullptr;
  LeafTable<ZQQueryValueStruct> leaves;
  std::unique_ptr<ZQXMLQualHandler> qualifier;
};

#endif
