// Reads "arithmeticOperation" inside a condition.
#ifndef ZQXML_XML_HANDLERS_ZQXMLQUALARITHHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLQUALARITHHANDLER_H

#include <memory>

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLQualValueArithHandler;

class ZQXMLQualArithHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLQualArithHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLQualArithHandler() override;

  void Init(ZQArithOpStruct* operation);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQArithOpStruct* target = nullptr;
  LeafTable<ZQArithOpStruct> leaves;
  std::unique_ptr<ZQXMLQualValueArithHandler> operand;
};

#endif
