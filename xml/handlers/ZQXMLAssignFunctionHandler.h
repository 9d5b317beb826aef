// Reads "function", a function of assignments.
#ifndef ZQXML_XML_HANDLERS_ZQXMLASSIGNFUNCTIONHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLASSIGNFUNCTIONHANDLER_H

#include <memory>

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

class ZQXMLFieldAssignValueHandler;

class ZQXMLAssignFunctionHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLAssignFunctionHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLAssignFunctionHandler() override;

  void Init(ZQFunctionAssignStruct* function);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void GenFuncParamList();

  ZQFunctionAssignStruct* target = nullptr;
  LeafTable<ZQFunctionAssignStruct> leaves;
  std::unique_ptr<ZQXMLFieldAssignValueHandler> assignment;
  PendingList<ZQAssignStruct, FreeZQAssignStruct> assignments;
};

#endif
