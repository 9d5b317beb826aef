// Reads "field" or "targetField", a field of some entry of a form.
#ifndef ZQXML_XML_HANDLERS_ZQXMLASSIGNFIELDHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLASSIGNFIELDHANDLER_H

#include <cstdint>

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLQualHandler.h"
#include "zqxml/records.h"

class ZQXMLAssignFieldHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLAssignFieldHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQAssignFieldStruct* field);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void SetTag(uint32_t tag);

  ZQAssignFieldStruct* target = nullptr;
  LeafTable<ZQAssignFieldStruct> leaves;
  ZQXMLQualHandler qualifier;
};

#endif
