/**
 * @file
 * The plain records of the interface. Member order, widths and array sizes are a contract with the server's client
 * interface: nothing is packed, everything has its natural alignment.
 *
 * A list record holds `numItems` and `items`, a heap array of that many elements; an empty list has 0 and null.
 * Every pointer in a record is an owned heap block unless its comment says otherwise.
 */
#ifndef ZQXML_RECORDS_H
#define ZQXML_RECORDS_H

#include <stdint.h>

/** A truth value: 0 is false, everything else true. */
typedef unsigned char ZQBoolean;

/** The name of an object: at most 254 bytes and a zero. */
typedef char ZQNameType[255];

/** A list of unsigned numbers. */
typedef struct ZQUnsignedIntList {
    uint32_t numItems; /**< number of elements */
    uint32_t *items;   /**< the elements */
} ZQUnsignedIntList;

/** A list of names; its stride is 255 bytes. */
typedef struct ZQNameList {
    uint32_t numItems; /**< number of elements */
    ZQNameType *items; /**< the elements */
} ZQNameList;

/** One status record. */
typedef struct ZQStatusStruct {
    uint32_t messageType; /**< 0 note, 1 warning, 2 error; 3, fatal, is only ever a result */
    int32_t messageNum;   /**< catalog message number, see zqxml/messages.h */
    char *messageText;    /**< catalog text of the number, at most 255 bytes, or null */
    char *appendedText;   /**< detail that the reporter added, at most 255 bytes, or null */
} ZQStatusStruct;

/** How a call went: the most severe record first, and of equal ones the newest first. */
typedef struct ZQStatusList {
    uint32_t numItems;     /**< number of elements */
    ZQStatusStruct *items; /**< the elements */
} ZQStatusList;

/** Where a document comes from. */
typedef struct ZQXMLInputDoc {
    uint32_t docType; /**< 1 text in memory, 2 file name, 3 as 2 */
    char *doc;        /**< the zero-terminated text, or the name */
} ZQXMLInputDoc;

/** Where a document goes. */
typedef struct ZQXMLOutputDoc {
    uint32_t docType; /**< 1 text in memory, 2 file name to append to, 4 open descriptor */
    /** What `docType` tells of. */
    union {
        char *doc;          /**< kind 1: the heap text that a writer stores here; kind 2: the file name */
        int32_t fileHandle; /**< kind 4: the descriptor */
    } u;                    /**< what `docType` tells of */
} ZQXMLOutputDoc;

/** A parser: made by CreateXMLParserHandle, used by one thread at a time, for any number of documents in turn. */
typedef struct ZQXMLParserHandle {
    void *handle; /**< the parser behind the handle, null before it is made and after it is freed */
} ZQXMLParserHandle;

#endif
