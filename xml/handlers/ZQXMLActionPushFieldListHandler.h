// Reads "pushFieldList", fields of other forms and what is assigned to them.
#ifndef ZQXML_XML_HANDLERS_ZQXMLACTIONPUSHFIELDLISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLACTIONPUSHFIELDLISTHANDLER_H

#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLAssignFieldHandler.h"
#include "xml/handlers/ZQXMLFieldAssignValueHandler.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

inline void freePushFields(ZQPushFieldsStruct* push, ZQBoolean) {
  FreeZQAssignFieldStruct(&push->field, 0);
  FreeZQAssignStruct(&push->assignment, 0);
}

class ZQXMLActionPushFieldListHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLActionPushFieldListHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQPushFieldsList* list);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQPushFieldsStruct& OpenEntry() const;

  ZQPushFieldsList* target = nullptr;
  ZQXMLAssignFieldHandler field;
  ZQXMLFieldAssignValueHandler value;
  PendingList<ZQPushFieldsStruct, freePushFields> pushFields;
};

#endif
