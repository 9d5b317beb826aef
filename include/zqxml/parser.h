/**
 * @file
 * The reader's front door: start-up, parser handles, and the list of the objects in a definition document.
 *
 * Call InitXMLParser once per process, CreateXMLParserHandle per thread or per use, then parse any number of documents
 * with the handle, and free it with FreeZQXMLParserHandleInternal. A handle is used by one thread at a time. A document
 * that fails leaves the handle as good as new. The native code set (zqxml/multibyte.h), which texts depend on, is settled
 * at the first use unless the program has done so before; let that be ahead of its threads.
 *
 * All functions return 0 or the severity of the failure, and add a record to `status`:
 *
 * | Message | Meaning |
 * |---|---|
 * | 300 | out of memory; the appended text is empty |
 * | 8938 | the XML platform or the parser can't be set up, or the handle is null or was freed |
 * | 8940 | the XML parser's own message for an error (severity 2) or a warning (severity 1), at most 1,000 of each; without its place, which GetXMLParserPosition gives |
 * | 8941, 8942 | element or attribute that isn't allowed: "name, line: 2, column 9" |
 * | 8943 | not one of the allowed words: "line: 2, column 9" |
 * | 8944 | nested too deeply, a limit is met, or the handlers don't fit the document: "line: 2, column 9" |
 * | 8952 | unknown `docType`; the number is the appended text |
 *
 * A place in a message is the one just behind the tag at which the fault was seen. Should memory run out even for the
 * record, the result is 3.
 *
 * External entities and DTDs are never read, and nothing is fetched from a network. The limits are told in
 * zqxml/limits.h.
 */
#ifndef ZQXML_PARSER_H
#define ZQXML_PARSER_H

#include "zqxml/export.h"
#include "zqxml/records.h"

ZQXML_BEGIN_DECLS

/** Kinds of input document, for ZQXMLInputDoc::docType. */
enum ZQXMLInputKind {
    ZQXML_INPUT_MEMORY = 1,  /**< `doc` is the zero-terminated text */
    ZQXML_INPUT_FILE = 2,    /**< `doc` is a local path or a "file:" address (RFC 8089) */
    ZQXML_INPUT_LOCATION = 3 /**< the same as ZQXML_INPUT_FILE */
};

/** Kinds of objects, as lists and selections name them. */
enum ZQXMLObjectKind {
    ZQXML_FORM = 0x40000001,        /**< form */
    ZQXML_FILTER = 0x40000005,      /**< filter */
    ZQXML_ACTIVE_LINK = 0x40000006, /**< active link */
    ZQXML_MENU = 0x40000008,        /**< menu */
    ZQXML_ESCALATION = 0x40000009,  /**< escalation */
    ZQXML_DSO_MAPPING = 0x4000000A, /**< DSO mapping */
    ZQXML_CONTAINER = 0x4000000C,   /**< container */
    ZQXML_DSO_POOL = 0x4000000D,    /**< DSO pool */
    ZQXML_VUI = 0x4000000E,         /**< standalone set of views; its name is the form's */
    ZQXML_FIELD = 0x4000000F        /**< standalone field */
};

/**
 * Sets up the XML platform for the process. Only the first call does anything; several threads may make it at once.
 * The other functions here make it by themselves when it was left out.
 *
 * Should memory run out in the middle of it, the platform can't be used in this process any more: all further calls give
 * 8938. Where it is short from the start on, the call fails with 300 and can be made again. Where the XML parser would
 * end the process because it sees no way on (its panic handler), the call fails with 8938 instead, unless the program has
 * started the platform before.
 *
 * The platform stays up to the end of the process; leak checkers may call blocks of it possibly lost.
 *
 * @param status receives a record on failure; may be null
 * @return 0, or 2 with message 8938 and the platform's own text, or 300
 */
ZQXML_API int InitXMLParser(ZQStatusList *status);

/**
 * Makes a parser.
 *
 * @param handle receives the parser, or null on failure; free it with FreeZQXMLParserHandleInternal. What it held
 *               before is overwritten
 * @param status receives a record on failure; may be null
 * @return 0, or 2 with message 8938 (a null `handle` too) or 300
 */
ZQXML_API int CreateXMLParserHandle(ZQXMLParserHandle *handle, ZQStatusList *status);

/**
 * Lists the objects of a definition document in the order of the document, without building them: three lists of one
 * length.
 *
 * Elements that aren't known pass without a word, standalone fields aren't listed, and a document whose outermost
 * element isn't "root" lists nothing. An error behind the end of "root" gives the result 2 beside full lists. All lists
 * and `status` are emptied first, without freeing what they held.
 *
 * @param handle      the parser
 * @param inputDoc    the document. A null text is an empty one; a null `inputDoc` has kind 0, which is unknown
 * @param objectTypes receives the kinds, see ZQXMLObjectKind; free with FreeZQUnsignedIntList. May be null
 * @param objectNames receives the names, cut at 254 bytes between characters; free with FreeZQNameList. May be null
 * @param subTypes    receives for containers 1 active link guide, 2 application, 3 packing list, 4 filter guide, 5 web
 *                    service, and for all other kinds 0xFFFFFFFF; free with FreeZQUnsignedIntList. May be null.
 *                    A container without a type element has that of the container before it
 * @param status      receives the records; may be null
 * @return 0, also when there are only warnings, or 2 (see the head of the file)
 */
ZQXML_API int GetListXMLObjects(ZQXMLParserHandle *handle, const ZQXMLInputDoc *inputDoc, ZQUnsignedIntList *objectTypes,
                                ZQNameList *objectNames, ZQUnsignedIntList *subTypes, ZQStatusList *status);

/**
 * Reads the objects of a definition document, all or those of a selection.
 *
 * The document is a "root" element with filters and escalations in any order; any other element in their place is
 * refused with 8941. In this version so are all other kinds of objects, which GetListXMLObjects lists.
 * An object that isn't asked for is dropped when its name is seen, an object without a name never. That a selected
 * object isn't in the document is no error here: GetFilterFromXML and its like (zqxml/objects.h) will say so. A document
 * that fails gives out no object. `parsedStream`, `parsedObjects` and `status` are emptied first, without freeing what
 * they held.
 *
 * @param handle         the parser
 * @param inputDoc       the document, as for GetListXMLObjects
 * @param objectsToParse kinds and names of the objects to keep, compared exactly; null or empty keeps all. Its
 *                       `selectedElements` play no part
 * @param parsedStream   receives the objects; free with FreeZQXMLParsedStreamInternal. May be null: then they are freed
 * @param parsedObjects  receives the kinds and names of the objects kept, in the order of the document; free as the list
 *                       of GetNamesFromObjectList. May be null
 * @param status         receives the records; may be null
 * @return 0, also when there are only warnings, or 2 (see the head of the file; 8957 with the text for a time that isn't
 *         of the ISO form). When memory runs out for `parsedObjects` alone, the stream holds the objects beside the
 *         result 2
 */
ZQXML_API int ParseXMLDocument(ZQXMLParserHandle *handle, const ZQXMLInputDoc *inputDoc,
                               ZQStructItemList *objectsToParse, ZQXMLParsedStream *parsedStream,
                               ZQStructItemList *parsedObjects, ZQStatusList *status);

/**
 * Tells where the last message of the last parse arose, be it an error or a warning.
 *
 * @param handle the parser
 * @param line   receives the line, counted from 1, or 0 if no message had a place; may be null
 * @param column receives the column in characters, counted from 1, or 0; may be null
 * @return 0, or 2 if the handle is null or was freed: then both are 0
 */
ZQXML_API int GetXMLParserPosition(const ZQXMLParserHandle *handle, uint64_t *line, uint64_t *column);

/**
 * Frees a parser.
 *
 * @param handle     the handle, which is cleared; null is ignored
 * @param freeStruct 0: the handle record stays; otherwise it is a heap block and freed too
 */
ZQXML_API void FreeZQXMLParserHandleInternal(ZQXMLParserHandle *handle, ZQBoolean freeStruct);

/** Frees the text of a document of kind 1; `freeStruct` as in FreeZQXMLParserHandleInternal. */
ZQXML_API void FreeZQXMLInputDocInternal(ZQXMLInputDoc *doc, ZQBoolean freeStruct);

/** Frees the text of a document of kind 1; `freeStruct` as in FreeZQXMLParserHandleInternal. */
ZQXML_API void FreeZQXMLOutputDocInternal(ZQXMLOutputDoc *doc, ZQBoolean freeStruct);

/** Returns the version of this library, a constant text such as "1.0.0". */
ZQXML_API const char *GetZQXMLVersion(void);

/** Returns the version of the XML parser under this library, a constant text such as "3.2.4". */
ZQXML_API const char *GetXMLParserVersion(void);

ZQXML_END_DECLS

#endif
