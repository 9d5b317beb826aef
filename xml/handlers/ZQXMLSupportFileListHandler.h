// Reads "supportFileList".
#ifndef ZQXML_XML_HANDLERS_ZQXMLSUPPORTFILELISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLSUPPORTFILELISTHANDLER_H

#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLSupportFileHandler.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

class ZQXMLSupportFileListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLSupportFileListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQSupportFileInfoList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQSupportFileInfoList* target = nullptr;
  ZQXMLSupportFileHandler file;
  PendingList<ZQSupportFileInfoStruct, FreeZQSupportFileInfoStruct> files;
};

#endif
