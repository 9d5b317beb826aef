// Reads lists of assignments to fields: "inputFieldList", "outputFieldList" and "setFieldList". Any
// of them takes the entries of all.
#ifndef ZQXML_XML_HANDLERS_ZQXMLFIELDASSIGNLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLFIELDASSIGNLISTHANDLER_H

#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLFieldAssignHandler.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

class ZQXMLFieldAssignListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLFieldAssignListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQFieldAssignList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQFieldAssignList* target = nullptr;
  ZQXMLFieldAssignHandler fieldAssign;
  PendingList<ZQFieldAssignStruct, FreeZQFieldAssignStruct> assigns;
};

#endif
