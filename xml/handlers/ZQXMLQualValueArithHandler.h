// Reads an operand, "left" or "right" of a comparison or of arithmetic.
#ifndef ZQXML_XML_HANDLERS_ZQXMLQUALVALUEARITHHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLQUALVALUEARITHHANDLER_H

#include <cstdint>
#include <memory>

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLValueHandler.h"
#include "xml/handlers/ZQXMLValueListHandler.h"
#include "zqxml/records.h"

class ZQXMLQualArithHandler;
class ZQXMLQualQueryValueHandler;

class ZQXMLQualValueArithHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLQualValueArithHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLQualValueArithHandler() override;

  void Init(ZQFieldValueOrArithStruct* operand);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void SetTag(uint32_t tag);

  ZQFieldValueOrArithStruct* target = nullptr;
  LeafTable<ZQFieldValueOrArithStruct> leaves;
  ZQXMLValueHandler value;
  ZQXMLValueListHandler valueList;
  std::unique_ptr<ZQXMLQualArithHandler> arithmetic;
  std::unique_ptr<ZQXMLQualQueryValueHandler> queryValue;
};

#endif
