/**
 * @file
 * The limits that keep a hostile document from using up memory or the stack.
 */
#ifndef ZQXML_LIMITS_H
#define ZQXML_LIMITS_H

#include "zqxml/export.h"

ZQXML_BEGIN_DECLS

/** Handlers that can be at work inside one another; one more ends the parse with message 8944. */
#define ZQXML_MAX_HANDLERS 128

/** Elements that can be open inside one another in any document; one more ends the parse with message 8944. */
#define ZQXML_MAX_ELEMENT_DEPTH 1000

/** References to internal entities that a document may use, unless the host sets another limit. */
#define ZQXML_DEFAULT_ENTITY_EXPANSION_LIMIT 64

/**
 * Sets how many references to internal entities a document may use before the parse ends with message 8940. It holds
 * for all documents that are parsed afterwards, by any handle; call it before threads use the library.
 *
 * @param limit number of references; 0 allows none
 */
ZQXML_API void SetXMLEntityExpansionLimit(unsigned limit);

/** Returns how many references to internal entities a document may use. */
ZQXML_API unsigned GetXMLEntityExpansionLimit(void);

ZQXML_END_DECLS

#endif
