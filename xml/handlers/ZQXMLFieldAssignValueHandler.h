// Reads an assignment, which says where a value comes from. Its host is "fieldValue",
// "functionParameter", "inputValue", "left", "right" or "targetFieldValue". Of several children the
// last one decides.
#ifndef ZQXML_XML_HANDLERS_ZQXMLFIELDASSIGNVALUEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLFIELDASSIGNVALUEHANDLER_H

#include <cstdint>
#include <memory>

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLActionDDEHandler.h"
#include "xml/handlers/ZQXMLAssignFieldHandler.h"
#include "xml/handlers/ZQXMLAssignSQLHandler.h"
#include "xml/handlers/ZQXMLValueHandler.h"
#include "zqxml/records.h"

class ZQXMLAssignArithHandler;
class ZQXMLAssignFilterAPIHandler;
class ZQXMLAssignFunctionHandler;

class ZQXMLFieldAssignValueHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLFieldAssignValueHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLFieldAssignValueHandler() override;

  void Init(ZQAssignStruct* assignment);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void SetType(uint32_t type);

  ZQAssignStruct* target = nullptr;
  LeafTable<ZQAssignStruct> leaves;
  ZQXMLValueHandler value;
  ZQXMLAssignFieldHandler field;
  ZQXMLActionDDEHandler dde;
  ZQXMLAssignSQLHandler sql;
  std::unique_ptr<ZQXMLAssignArithHandler> arithmetic;
  std::unique_ptr<ZQXMLAssignFunctionHandler> function;
  std::unique_ptr<ZQXMLAssignFilterAPIHandler> filterApi;
};

#endif
