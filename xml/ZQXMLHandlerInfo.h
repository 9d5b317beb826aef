// What all handlers of a document parser share. The targets change with every document and every
// event, which is why there is one more pointer to each.
#ifndef ZQXML_XML_ZQXMLHANDLERINFO_H
#define ZQXML_XML_ZQXMLHANDLERINFO_H

#include <xercesc/sax/Locator.hpp>
#include <xercesc/util/XercesDefs.hpp>

#include "zqxml/records.h"

class DocumentLimits;
class ZQXMLHandlerStack;

struct ZQXMLHandlerInfo {
  ZQXMLHandlerStack* handlerStack;
  ZQStructItemList* const* objectSelection;
  const xercesc::Locator* const* locator;
  const XMLCh* const* elementName;
  // Null for none.
  DocumentLimits* limits = nullptr;
};

#endif
