// The frame of definition documents.
#ifndef ZQXML_XML_DOCUMENTFRAME_H
#define ZQXML_XML_DOCUMENTFRAME_H

#include "zqxml/builders.hpp"

// What SetDocHeaderToXML and SetDocFooterToXML write.
void appendDocumentHeader(ZQGNString& text);
void appendDocumentFooter(ZQGNString& text);

#endif
