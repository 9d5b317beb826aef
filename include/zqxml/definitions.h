/**
 * @file
 * Writing definition documents: the frame around the objects, and the forms of times in them.
 *
 * A document is a header, the objects, and a footer. Where it goes is told by a ZQXMLOutputDoc:
 *
 * | `docType` | What a call does |
 * |---|---|
 * | 1 | stores a heap text in `u.doc`; free it with FreeZQXMLOutputDocInternal() |
 * | 2 | appends to the file that `u.doc` names. Deliberate: the results of the writes aren't looked at |
 * | 4 | writes to the descriptor `u.fileHandle` |
 *
 * The calls return 0 or the severity of the failure, and add a record to `status`, which may be null: 8952 for another
 * kind or a null document, 8954 for a file that can't be opened, 301 for a failed write to a descriptor, 300 if memory
 * ran out; all with an empty appended text.
 */
#ifndef ZQXML_DEFINITIONS_H
#define ZQXML_DEFINITIONS_H

#include "zqxml/export.h"
#include "zqxml/records.h"

ZQXML_BEGIN_DECLS

/**
 * Writes the header: the XML declaration, 29 blanks that leave room for a longer encoding, and the start of "root". The
 * encoding is that of the locale's code set, where a part of iso-8859 is declared as the Windows code page:
 * 1 windows-1252, 2 windows-1250, 4 windows-1257, 5 windows-1251, 7 windows-1253. It is taken from the name of the
 * locale, not from the bytes: in a UTF-8 locale use SetEncodingForXMLDoc() with code set 65.
 */
ZQXML_API int SetDocHeaderToXML(ZQXMLOutputDoc *outputDoc, ZQStatusList *status);

/** Writes the footer: the end of "root". */
ZQXML_API int SetDocFooterToXML(ZQXMLOutputDoc *outputDoc, ZQStatusList *status);

/**
 * Writes a time as ISO 8601 date and time of the local time, such as "2024-03-01T10:15:00+01:00"; "Z" stands for a zone
 * of 0. Deliberate: the zone is the standard one also while daylight saving time shifts the local time, and a zone west
 * of Greenwich by less than an hour loses its sign.
 *
 * @param stamp seconds since the epoch; -1 counts as 0
 * @param size  size of `text` in bytes; more is cut. 0 writes nothing
 * @param text  receives the zero-terminated text
 * @return 0
 */
ZQXML_API int FormatZQTimestampToISODateTime(ZQTimestamp stamp, int size, char *text);

/**
 * Writes a time of day as ISO 8601 time, such as "10:15:00+01:00", with the zone of FormatZQTimestampToISODateTime().
 * Deliberate: the value itself isn't shifted to that zone.
 *
 * @param timeOfDay seconds since midnight; whole days are left out
 * @param size      size of `text` in bytes; more is cut. 0 writes nothing
 * @param text      receives the zero-terminated text
 * @return 0
 */
ZQXML_API int FormatZQTimeOfDayToISOTime(int32_t timeOfDay, int size, char *text);

/**
 * Writes bytes as a text: 0 is "!", 255 is "~", the bytes 37 to 47, 58 to 96 and 103 to 125 stand for themselves, and
 * every other one is two lower-case hexadecimal digits.
 *
 * @param bytes  the bytes
 * @param length number of bytes
 * @param text   receives a heap text to free, or null for no bytes
 * @return 0, or 300 if memory runs out: then the text is null
 */
ZQXML_API int ConvertToHexFormat(const unsigned char *bytes, unsigned length, char **text);

/** Switches the localised tags of views on. Deliberate: nothing looks at the switch in this version. */
ZQXML_API void EnableL10nVUITagPrinting(void);

/** Returns 0 whatever the id of a view's property: localised tags are never written in this version. */
ZQXML_API ZQBoolean IsL10nVUITagPrintingEnabled(int32_t propertyId);

ZQXML_END_DECLS

#endif
