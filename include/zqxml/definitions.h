/**
 * @file
 * Writing definition documents: the frame around the objects, and the forms of times in them.
 *
 * A document is a header, the objects, and a footer. Where it goes is told by a ZQXMLOutputDoc:
 *
 * | `docType` | What a call does |
 * |---|---|
 * | 1 | stores a heap text in `u.doc`, which is overwritten; free it with FreeZQXMLOutputDocInternal(). Set it to null first: a failure may leave it as it was |
 * | 2 | appends to the file that `u.doc` names; a new one has mode 0777 less the umask. Deliberate: the results of the writes aren't looked at |
 * | 4 | writes to the descriptor `u.fileHandle` |
 *
 * The calls return 0 or the severity of the failure, and add a record to `status`, which may be null: 8952 for another
 * kind or a null document, 8954 for a file that can't be opened, 301 for a failed write to a descriptor, 300 if memory
 * ran out; all with an empty appended text.
 *
 * `Set<Object>ToXML` writes one object, and has these arguments in common:
 *
 * - `includeDocFrame`: 1 writes header and footer around the object, so a whole document. Any other number writes the
 *   object alone, one tab deep: so several objects form one document between SetDocHeaderToXML() and
 *   SetDocFooterToXML(), for a file or a descriptor. The header declares an encoding by the name of the locale; texts
 *   in UTF-8 ask for SetEncodingForXMLDoc(), see SetDocHeaderToXML().
 * - The parts of the object, in the order in which `Get<Object>FromXML` gives them out. A part that is null is left out
 *   of the document; so are names and users that are empty, and lists without elements. The help text stands also when it
 *   is empty.
 * - `modifiedDate` is written as FormatZQTimestampToISODateTime() does, `xmlDocVersion` as the attribute "zqDocVersion".
 * - `changeDiary`: a coded change history: for each entry the time stamp in decimal, the byte 4, the user, the byte 4,
 *   the text, the byte 3. Deliberate: it is consumed, since each of these separators becomes a zero; a second call with
 *   it writes no entries.
 *
 * Texts are in the local code page; bytes that are no characters there become its substitute character. Arrays of
 * records are read at most up to their size less one. A number that has no word leaves its element without
 * text, and such a document can't be read back. After a failure nothing has been written.
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
 * locale, not from the bytes, and never is UTF-8: where texts are in UTF-8 and not plain ASCII, write the document to
 * memory, let SetEncodingForXMLDoc() (zqxml/stream.h) with code set 65 declare it, and store that.
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
 * @param size  size of `text` in bytes; a time that doesn't fit leaves it empty, and a zone that doesn't is cut. 0 writes
 *              nothing
 * @param text  receives the zero-terminated text; null skips it
 * @return 0
 */
ZQXML_API int FormatZQTimestampToISODateTime(ZQTimestamp stamp, int size, char *text);

/**
 * Writes a time of day as ISO 8601 time, such as "10:15:00+01:00", with the zone of FormatZQTimestampToISODateTime().
 * Deliberate: the value itself isn't shifted to that zone.
 *
 * @param timeOfDay seconds since midnight; whole days are left out
 * @param size      size of `text` in bytes, as for FormatZQTimestampToISODateTime()
 * @param text      receives the zero-terminated text; null skips it
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

/**
 * Writes a filter.
 *
 * @param outputDoc       where the document goes
 * @param includeDocFrame 1 for header and footer
 * @param name            name of the filter
 * @param executionOrder  order among the workflow of a form
 * @param workflowConnect forms that the filter is bound to; its list decides, not its type
 * @param executeOn       bit mask: 1 get, 2 modify, 4 submit, 8 delete, 16 merge, 32 guide; other bits are left out
 * @param enabled         0 switched off, otherwise switched on
 * @param query           run condition; none is left out
 * @param actionList      actions when the condition holds
 * @param elseList        actions when it does not
 * @param owner           user who owns the filter
 * @param lastChanged     user who changed it last
 * @param modifiedDate    time of the last change
 * @param helpText        help text
 * @param changeDiary     coded change history; consumed
 * @param objPropList     properties of the object
 * @param xmlDocVersion   version of the definition
 * @param status          receives the record of a failure
 * @return 0, or the severity of the failure
 */
ZQXML_API int SetFilterToXML(ZQXMLOutputDoc *outputDoc, unsigned includeDocFrame, const char *name,
                             const uint32_t *executionOrder, const ZQWorkflowConnectStruct *workflowConnect,
                             const uint32_t *executeOn, const uint32_t *enabled, const ZQQualifierStruct *query,
                             const ZQFilterActionList *actionList, const ZQFilterActionList *elseList,
                             const char *owner, const char *lastChanged, const ZQTimestamp *modifiedDate,
                             const char *helpText, char *changeDiary, const ZQPropList *objPropList,
                             const int32_t *xmlDocVersion, ZQStatusList *status);

/**
 * Writes an escalation.
 *
 * @param outputDoc       where the document goes
 * @param includeDocFrame 1 for header and footer
 * @param name            name of the escalation
 * @param escalationTime  when it fires; another type than interval and calendar leaves the element empty. Days of the
 *                        month, days of the week and hours are left out if no bit of their mask is set; bits beyond
 *                        them are not printed
 * @param workflowConnect forms that the escalation is bound to; its list decides, not its type
 * @param enabled         0 switched off, otherwise switched on
 * @param query           run condition; none is left out
 * @param actionList      actions when the condition holds
 * @param elseList        actions when it does not
 * @param owner           user who owns the escalation
 * @param lastChanged     user who changed it last
 * @param modifiedDate    time of the last change
 * @param helpText        help text
 * @param changeDiary     coded change history; consumed
 * @param objPropList     properties of the object
 * @param xmlDocVersion   version of the definition
 * @param status          receives the record of a failure
 * @return 0, or the severity of the failure
 */
ZQXML_API int SetEscalationToXML(ZQXMLOutputDoc *outputDoc, unsigned includeDocFrame, const char *name,
                                 const ZQEscalationTmStruct *escalationTime,
                                 const ZQWorkflowConnectStruct *workflowConnect, const uint32_t *enabled,
                                 const ZQQualifierStruct *query, const ZQFilterActionList *actionList,
                                 const ZQFilterActionList *elseList, const char *owner, const char *lastChanged,
                                 const ZQTimestamp *modifiedDate, const char *helpText, char *changeDiary,
                                 const ZQPropList *objPropList, const int32_t *xmlDocVersion,
                                 ZQStatusList *status);

ZQXML_END_DECLS

#endif
