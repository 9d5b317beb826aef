// Reads "filterAPI", a call of a filter API service.
#ifndef ZQXML_XML_HANDLERS_ZQXMLASSIGNFILTERAPIHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLASSIGNFILTERAPIHANDLER_H

#include <memory>

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

class ZQXMLFieldAssignValueHandler;

class ZQXMLAssignFilterAPIHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLAssignFilterAPIHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLAssignFilterAPIHandler() override;

  void Init(ZQAssignFilterApiStruct* call);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void GenInputValueList();

  ZQAssignFilterApiStruct* target = nullptr;
  LeafTable<ZQAssignFilterApiStruct> leaves;
  std::unique_ptr<ZQXMLFieldAssignValueHandler> assignment;
  PendingList<ZQAssignStruct, FreeZQAssignStruct> assignments;
};

#endif
