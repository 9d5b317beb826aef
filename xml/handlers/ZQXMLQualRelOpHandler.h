// Reads "relationalOperation", a comparison of two operands.
#ifndef ZQXML_XML_HANDLERS_ZQXMLQUALRELOPHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLQUALRELOPHANDLER_H

#include <memory>

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLQualValueArithHandler;

class ZQXMLQualRelOpHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLQualRelOpHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLQualRelOpHandler() override;

  void Init(ZQRelOpStruct* operation);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQRelOpStruct* target = nullptr;
  LeafTable<ZQRelOpStruct> leaves;
  std::unique_ptr<ZQXMLQualValueArithHandler> operand;
};

#endif
