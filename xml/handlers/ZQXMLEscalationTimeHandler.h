// Reads "escalationTime": an interval, or the days and hours of a calendar.
#ifndef ZQXML_XML_HANDLERS_ZQXMLESCALATIONTIMEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLESCALATIONTIMEHANDLER_H

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLEscalationTimeHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLEscalationTimeHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQEscalationTmStruct* time);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQEscalationTmStruct* target = nullptr;
  LeafTable<ZQEscalationTmStruct> leaves;
};

#endif
