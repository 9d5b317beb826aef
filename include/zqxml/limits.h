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

/**
 * Blocks of memory that the XML parser may take for one document, be they given back or not: so many, and so many for each
 * byte of the document, and 16 for each reference that the limit of entities allows. More end the parse with message 8944.
 */
#define ZQXML_PARSER_BLOCKS 100000
#define ZQXML_PARSER_BLOCKS_PER_BYTE 1 /**< for each byte of the document */

/**
 * Bytes of memory that the XML parser may take for one document: so many, and so many for each byte of the document, and
 * 256 KiB for each reference that the limit of entities allows. More end the parse with message 8944.
 */
#define ZQXML_PARSER_BYTES 67108864
#define ZQXML_PARSER_BYTES_PER_BYTE 32 /**< for each byte of the document */

/**
 * 16-bit units of text that a document may amount to when its entities and the attributes that its document type provides
 * stand in their places: so many, and so many for each byte of the document. An attribute counts as its value and 8. More
 * end the parse with message 8944.
 */
#define ZQXML_CONTENT_UNITS 8388608
#define ZQXML_CONTENT_UNITS_PER_BYTE 4 /**< for each byte of the document */

/**
 * Bytes of the records that stand for the objects of a document, sizeof(ZQXMLObjectList) each, without what they point to:
 * so many, and so many for each byte of the document, which only objects without a name can exceed. More end the parse
 * with message 8944.
 */
#define ZQXML_OBJECT_BYTES 16777216
#define ZQXML_OBJECT_BYTES_PER_BYTE 50 /**< for each byte of the document */

/**
 * Bytes of text that are read for the records of a document: so many, and so many for each byte of the document. An
 * element that comes twice where one is expected has both texts joined, and what is joined is read again each time, so
 * only very many of them exceed this. More end the parse with message 8944.
 */
#define ZQXML_READING_BYTES 33554432
#define ZQXML_READING_BYTES_PER_BYTE 16 /**< for each byte of the document */

/**
 * Records of the XML parser's own messages (8940) about one document: so many warnings, and so many errors. Further ones
 * aren't recorded; a document type can bring about one for each few bytes.
 */
#define ZQXML_MAX_REPORTS 1000

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
