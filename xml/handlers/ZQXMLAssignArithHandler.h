// Reads "arithmetic", the arithmetic of two assignments.
#ifndef ZQXML_XML_HANDLERS_ZQXMLASSIGNARITHHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLASSIGNARITHHANDLER_H

#include <memory>

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLFieldAssignValueHandler;

class ZQXMLAssignArithHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLAssignArithHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLAssignArithHandler() override;

  void Init(ZQArithOpAssignStruct* operation);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQArithOpAssignStruct* target = nullptr;
  LeafTable<ZQArithOpAssignStruct> leaves;
  std::unique_ptr<ZQXMLFieldAssignValueHandler> operand;
};

#endif
