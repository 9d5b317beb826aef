// The handler of the outermost element when objects are read. It starts a node of the chain and the
// object's own handler for each object, and owns the handlers of all kinds of objects.
#ifndef ZQXML_XML_HANDLERS_ZQXMLROOTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLROOTHANDLER_H

#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/handlers/ZQXMLEscalationHandler.h"
#include "xml/handlers/ZQXMLFilterHandler.h"
#include "zqxml/records.h"

class ZQXMLRootHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLRootHandler(const ZQXMLHandlerInfo* info);

  // `objectList` is where the head of the chain is kept, which begins empty.
  void Init(ZQXMLObjectList** objectList);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  ZQXMLObjectList& GenNewObjectNode();
  void DestroyUnusedNodes();

  ZQXMLObjectList** objectListHead = nullptr;
  ZQXMLObjectList* lastNode = nullptr;
  ZQXMLFilterHandler filter;
  ZQXMLEscalationHandler escalation;
};

#endif
