// The way out for all documents.
#ifndef ZQXML_XML_WRITETOXMLDOC_H
#define ZQXML_XML_WRITETOXMLDOC_H

#include "zqxml/records.h"

class ZQGNString;

// Hands a text over to where the document goes. Returns 0, or message 8952, 8954, 301 or 300.
int WriteToXMLDoc(ZQGNString& text, ZQXMLOutputDoc* outputDoc);

#endif
