// Reads "parameterValue" or "methodReturnValue", a value of an automation call.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONOLEVALUEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONOLEVALUEHANDLER_H

#include <cstdint>

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLValueHandler.h"
#include "zqxml/records.h"

class ZQXMLActionOLEValueHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionOLEValueHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQCOMValueStruct* value);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void SetType(uint32_t type);

  ZQCOMValueStruct* target = nullptr;
  LeafTable<ZQCOMValueStruct> leaves;
  ZQXMLValueHandler valueHandler;
};

#endif
