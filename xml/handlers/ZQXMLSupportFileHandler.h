// Reads "supportFile", a file that goes with an active link.
#ifndef ZQXML_XML_HANDLERS_ZQXMLSUPPORTFILEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLSUPPORTFILEHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLSupportFileHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLSupportFileHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQSupportFileInfoStruct* file);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQSupportFileInfoStruct* target = nullptr;
  LeafTable<ZQSupportFileInfoStruct> leaves;
};

#endif
