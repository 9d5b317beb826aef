// The chain of objects that a parse builds.
#ifndef ZQXML_XML_OBJECTCHAIN_H
#define ZQXML_XML_OBJECTCHAIN_H

#include "zqxml/records.h"

// Frees a chain that nobody will see, with all that it owns: unlike FreeZQXMLObjectList also the
// contents of containers and fields.
void releaseChain(ZQXMLObjectList*& chain);

#endif
