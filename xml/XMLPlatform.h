// The start-up of the XML platform, once per process.
#ifndef ZQXML_XML_XMLPLATFORM_H
#define ZQXML_XML_XMLPLATFORM_H

#include "zqxml/records.h"

// Every entry that uses the XML parser begins with this. Returns 0, or the severity of the record
// that was added.
int ensureXMLPlatform(ZQStatusList* status);

#endif
