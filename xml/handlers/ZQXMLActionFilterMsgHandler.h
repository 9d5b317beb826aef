// Reads the "message" action of filters and escalations.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONFILTERMSGHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONFILTERMSGHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLActionFilterMsgHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionFilterMsgHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQFilterStatusStruct* message);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQFilterStatusStruct* target = nullptr;
  LeafTable<ZQFilterStatusStruct> leaves;
};

#endif
