/**
 * @file
 * Status lists and the message catalog.
 *
 * Every call that can fail takes a ZQStatusList that the caller owns, adds records to it and returns 0 or the
 * severity of the worst record. A null list is allowed everywhere: nothing is recorded, and the result is what it
 * would have been. A list belongs to one thread at a time; free it with FreeZQStatusList(list, 0).
 *
 * The texts of the messages come from the catalog "zqsystem.cat", set 1, which is found by the rules of `catopen`
 * (POSIX): NLSPATH, then the system's folders.
 */
#ifndef ZQXML_STATUS_H
#define ZQXML_STATUS_H

#include <nl_types.h>

#include "zqxml/export.h"
#include "zqxml/messages.h"
#include "zqxml/records.h"

ZQXML_BEGIN_DECLS

/** Size in bytes of the buffer that ZQGetTextForMessage fills. */
#define ZQ_MESSAGE_TEXT_SIZE 256

/**
 * Opens the message catalog "zqsystem.cat" for the whole process, after closing the one that was open. A process
 * that never calls this opens the catalog anew for each text. Call it before threads use the library.
 *
 * @return the handle, which is kept also when the opening failed: then all its bits are set, and each text looks for
 *         the catalog again
 */
ZQXML_API nl_catd ZQOpenSharedCatalog(void);

/**
 * Looks up the text of a message, whatever the number.
 *
 * @param messageNum the message number
 * @param text       a buffer of at least ZQ_MESSAGE_TEXT_SIZE bytes, which is zeroed first. It receives at most 255
 *                   bytes: the catalog's text; or "Cannot open catalog; Message number = " and the number; or, for a
 *                   number that the catalog lacks, its message 1 (default "Message not in catalog; Message number = ")
 *                   and, if that has at most 242 bytes, the number. A null buffer is left alone.
 */
ZQXML_API void ZQGetTextForMessage(int messageNum, char *text);

/**
 * Adds a record ahead of all records of its severity. The catalog is asked for numbers from 1 to 9999 but 8914; all
 * others get the empty text. Both texts are cut at 255 bytes, be it through a character.
 *
 * @param list         the list; null records nothing
 * @param messageType  severity: 0 note, 1 warning, 2 error
 * @param messageNum   message number
 * @param appendedText detail, copied; null stays null, empty stays empty
 * @return the severity of the list's first record, `messageType` for a null list, or 3 if memory ran out: then the
 *         list is as it was
 */
ZQXML_API int ZQAddErrorMessage(ZQStatusList *list, unsigned messageType, int messageNum, const char *appendedText);

/** As ZQAddErrorMessage, with the decimal text of `id` as the detail. */
ZQXML_API int ZQAddErrorMessageId(ZQStatusList *list, unsigned messageType, int messageNum, unsigned long id);

/**
 * Joins two lists into a third, in three bands (errors and above, warnings, the rest), and in each band `second` ahead
 * of `first`.
 *
 * If one of the inputs is empty, `result` takes the array of the other, which keeps pointing to it as well: pass one
 * of the inputs as `result`, or treat the input as moved. If both hold records both are emptied. If memory runs out
 * the list with the more severe first record is kept (`second` if they are equal), the other is freed, and message 154
 * of type 2 is added. What `result` held before is overwritten and not freed.
 *
 * @param first  a list; null counts as empty
 * @param second a list; null, or the same as `first`, counts as empty
 * @param result receives the joined list, and may be one of the inputs; null does nothing
 */
ZQXML_API void MergeZQStatusLists(ZQStatusList *first, ZQStatusList *second, ZQStatusList *result);

/** Returns a null pointer, always: there are no message texts beside the catalog's. */
ZQXML_API char *ZQGetMessage(void);

/**
 * Copies a status record with its texts.
 *
 * @param dest   taken as uninitialised storage; null does nothing
 * @param source the record; null leaves `dest` alone
 * @return 0, or 300 if memory ran out: then both texts of `dest` are null
 */
ZQXML_API unsigned CopyZQStatusStruct(ZQStatusStruct *dest, const ZQStatusStruct *source);

/**
 * Copies a status list with its records.
 *
 * @param dest   taken as uninitialised storage; free it with FreeZQStatusList(dest, 0). Null does nothing
 * @param source the list; null or empty gives an empty list
 * @return 0, or 300 if memory ran out: then `dest` is empty
 */
ZQXML_API unsigned CopyZQStatusList(ZQStatusList *dest, const ZQStatusList *source);

/**
 * Frees the records of a list with their texts.
 *
 * @param list       the list; null is ignored
 * @param freeStruct 0: the list itself stays, and is empty afterwards; otherwise it is a heap block and freed too
 */
ZQXML_API void FreeZQStatusList(ZQStatusList *list, ZQBoolean freeStruct);

/**
 * Names a DOM exception by its code (W3C DOM Level 3 Core, ExceptionCode).
 *
 * @return a constant text such as "Not found error" for codes 1 to 15, the empty text for all others
 */
ZQXML_API const char *GetDOMExceptionErrorText(int code);

ZQXML_END_DECLS

#endif
