/**
 * @file
 * The one C++ header of the library: what takes DOM nodes of Xerces-C, or a growable text.
 *
 * The builders, `Create...Node`, append the elements of a record beneath an element that the caller has made:
 *
 * - `document` is the document of `parent`; if either is null nothing is done, and the result is 0.
 * - A null record writes nothing and gives 0. Null and empty texts are the same unless told otherwise: an element that
 *   always stands then has no text.
 * - Arrays of a record are read at most up to their size less one, should they lack their zero.
 * - A number that has no word leaves the element without text; such a document can't be read back.
 * - The result is 0 or a message number: 300 if memory ran out, and what has been appended by then stays.
 * - Exceptions of the DOM (`xercesc::DOMException`) pass through to the caller, such as that for a document which is
 *   not that of the parent. The XML platform has been started, by InitXMLParser() for example.
 *
 * A program that uses these calls builds and links against Xerces-C itself.
 */
#ifndef ZQXML_BUILDERS_HPP
#define ZQXML_BUILDERS_HPP

#include <xercesc/util/XercesDefs.hpp>

#include "zqxml/export.h"
#include "zqxml/records.h"

XERCES_CPP_NAMESPACE_BEGIN
class DOMDocument;
class DOMElement;
class DOMNode;
XERCES_CPP_NAMESPACE_END

/**
 * Growable text, kept as a list of blocks so that an append never moves what is there. It serves documents of many
 * megabytes as well as small texts that are emptied and filled again all the time and reach a state in which neither
 * allocates.
 *
 * The text is the concatenation of the blocks up to the first empty one; each block's text is zero-terminated. If memory
 * runs out an operation throws an exception of the library, which is of no public class, and the text stays as it was.
 */
class ZQXML_API ZQGNString {
 public:
  /** Bytes of a block, unless more are needed at once. */
  enum BLOCKSIZE : int {
    BLOCKSIZE_ACCUMULATOR = 80, /**< small texts */
    BLOCKSIZE_DOCUMENT = 8192   /**< documents */
  };

  /** An empty text without memory. */
  explicit ZQGNString(BLOCKSIZE size = BLOCKSIZE_ACCUMULATOR) : blockSize(size) {}
  /** A copy with blocks of its own. */
  ZQGNString(const ZQGNString& other);
  /** Makes this a copy with blocks of its own. */
  ZQGNString& operator=(const ZQGNString& other);
  virtual ~ZQGNString();

  /** Replaces the text. A null text is an empty one. The text may be this object's own. */
  ZQGNString& operator=(const char* text);
  /** Appends a text. A null text is an empty one. The text may be this object's own. */
  ZQGNString& operator+=(const char* text);

  /** Empties the text and keeps all memory, zeroed. */
  void Empty();

  /** Whether there is no text. */
  bool IsEmpty() const;

  /** Length in bytes. A text that would exceed 1 GiB is out of memory. */
  int GetLength() const { return textLength; }

  /** The whole text in one piece, owned by this object and good until its next change. */
  operator char*();

  /**
   * Hands the whole text to the caller, who frees it, and leaves this object empty. It is never null. With a null pointer
   * nothing is done. Returns 0.
   */
  int DetachStrReference(char** text);

  /**
   * Appends the text to a file. Deliberate: the results of the writes aren't looked at.
   *
   * @return 0, or message 8954 if the file can't be opened, or has no name
   */
  int AppendToFile(const char* fileName) const;

  /**
   * Writes the text to a descriptor.
   *
   * @return 0, or message 301 if a write fails; a short write is no failure and isn't gone on with
   */
  int WriteToFileHandle(int fileHandle) const;

 private:
  struct DataBuffer {
    int capacity;  // 0 for a block without memory
    int length;    // without the terminator
    char* data;
  };

  static constexpr int DATA_BUFFERS_BLKS_INCREMENT = 20;

  void AddString(const char* text, bool replace);
  void AppendBlocks(const ZQGNString& other);
  bool OwnsText(const char* text) const;
  void ReserveFirstBlock(int needed);
  void GenNewDataBuffer(int needed);
  DataBuffer NewBlock(int needed) const;
  void GenNewDataBufferBlocks();
  void CompactBuffers();

  BLOCKSIZE blockSize;
  DataBuffer* dataBuffers = nullptr;
  int numDataBuffers = 0;
  int currentBuffer = 0;
  int textLength = 0;
};

/**
 * Appends a node with its subtree, of any depth, to a text. An element's attributes come in the order of the DOM's map,
 * unescaped; an element that begins with a text stands on one line with its text, and one without children ends in "/>".
 *
 * @param level number of tabs ahead of an element
 * @param node  the node; null prints nothing
 * @param text  what is appended to
 * @return 0, or message 300
 */
ZQXML_API int PrintDOMNode(int level, const xercesc::DOMNode* node, ZQGNString& text);

/**
 * Appends a text with its markup characters escaped. A control character but tab, line feed and carriage return, which
 * XML 1.0 can't hold, becomes a reference into the private use area, U+F8E0 to U+F8FE, that the reader undoes. The
 * apostrophe isn't escaped.
 *
 * @param content the text; null is the empty text
 * @param text    what is appended to
 * @return 0, or message 300
 */
ZQXML_API int OutputContent(const char* content, ZQGNString& text);

/**
 * Hands a text over to where a document goes; see zqxml/definitions.h.
 *
 * @param text      the text; empty afterwards if it went to memory
 * @param outputDoc where it goes
 * @return 0, or message 8952 for another kind of output or null, 8954 for a file that can't be opened, 301 for a failed
 *         write to a descriptor, 300
 */
ZQXML_API int WriteToXMLDoc(ZQGNString& text, ZQXMLOutputDoc* outputDoc);

/**
 * Writes a date in the form of an XML Schema type: "date" 2001-02-03, "gDay" ---03, "gMonth" --02--, "gMonthDay" --02-03,
 * "gYear" and "gYearMonth". Deliberate: gYear has only the first three digits of the year, and gYearMonth the first six
 * characters of the date; a sign ahead of them doesn't count.
 *
 * @param typeName  the type
 * @param julianDay the day number
 * @param size      size of `text` in bytes; more is cut, and 0 writes nothing
 * @param text      receives the zero-terminated text; null skips it
 * @return 0, or 8959 for another type or null: then the text is left alone
 */
ZQXML_API int FormatZQDateToISODate(const XMLCh* typeName, int32_t julianDay, int size, char* text);

/** @name Values */
/** @{ */

/**
 * Appends the child that tells the type of a value and holds it, such as "integerValue". Times, dates and times of day
 * are plain numbers. A type that is none writes nothing. An attachment in memory is encoded over its compressed size,
 * which the buffer has to have; a null byte list, attachment, currency or list of points leaves its element empty.
 *
 * @param document  the document
 * @param parent    the host, for example "value"
 * @param value     the value
 * @param localized whether a character value is a "l10nCharacterValue" instead of a "characterValue"
 * @return 0, or 300
 */
ZQXML_API int CreateValueNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                              const ZQValueStruct* value, ZQBoolean localized);

/**
 * Appends the content of an automation value: "valueIdentifier", "transID", and "fieldID" or "value" by its type.
 * Deliberate: bytes of the value that could not be encoded are no failure.
 */
ZQXML_API int CreateCOMValueNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                 const ZQCOMValueStruct* value);

/** Appends a "coordinate" for each point. Deliberate: the signed numbers are printed as unsigned ones. */
ZQXML_API int CreateCoordListNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                  const ZQCoordList* list);

/** @} */

/** @name Conditions */
/** @{ */

/**
 * Appends a condition: "and", "or", "not", "relationalOperation" or "fieldID". No condition, operation 0, and an unknown
 * operation write nothing; a null branch or relation leaves its element empty. The call recurses with the tree, without
 * a limit.
 */
ZQXML_API int CreateQualifierNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                  const ZQQualifierStruct* qualifier);

/**
 * Appends the child of an operand, by its tag. Parts of currency fields (tags 6 and 54 to 56) have no element and write
 * nothing.
 */
ZQXML_API int CreateFieldValueOrArithNode(xercesc::DOMDocument* document,
                                          xercesc::DOMElement* parent,
                                          const ZQFieldValueOrArithStruct* operand);

/** Appends the content of "arithmeticOperation"; a negation has no "left". */
ZQXML_API int CreateArithOpNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                const ZQArithOpStruct* arithmetic);

/** Appends the content of "queryValue"; a null condition leaves "queryQualification" out. */
ZQXML_API int CreateQueryValueNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                   const ZQQueryValueStruct* query);

/** Appends the content of "statusHistoryValue". Every number but 1 is the time. */
ZQXML_API int CreateStatHistoryNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                    const ZQStatHistoryValue* history);

/** @} */

/** @name Assignments */
/** @{ */

/**
 * Appends the child of an assignment, by its type; none for a type without one. A null source leaves its element empty,
 * and a null command line an empty "command". Deliberate: only failures of a constant and of a field are the result;
 * those deeper in the other sources are dropped, and the bytes that could not be encoded are missing.
 */
ZQXML_API int CreateAssignmentNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                   const ZQAssignStruct* assignment);

/**
 * Appends the content of "field" or "targetField". A condition that is none leaves "qualification" out, and a part of a
 * currency field (tag 6) has no reference.
 */
ZQXML_API int CreateAssignFieldNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                    const ZQAssignFieldStruct* field);

/** Appends the content of "arithmetic"; a negation has no "left". */
ZQXML_API int CreateArithOpAssignNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                      const ZQArithOpAssignStruct* arithmetic);

/** Appends the content of "function"; without parameters there is no "functionParameterList". */
ZQXML_API int CreateFunctionAssignNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                       const ZQFunctionAssignStruct* function);

/** Appends the content of "dde". Null texts are left out, empty ones are not. */
ZQXML_API int CreateDDENode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                            const ZQDDEStruct* dde);

/** Appends the content of "sql" in an assignment. */
ZQXML_API int CreateAssignSQLNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                  const ZQAssignSQLStruct* sql);

/** Appends the content of "filterAPI"; without inputs there is no "inputValueList". */
ZQXML_API int CreateFilterApiNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                  const ZQAssignFilterApiStruct* api);

/** Appends "fieldID" and "fieldValue". */
ZQXML_API int CreateFieldAssignNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                    const ZQFieldAssignStruct* assign);

/** Appends "targetField" and "targetFieldValue". */
ZQXML_API int CreatePushFieldNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                  const ZQPushFieldsStruct* push);

/** Appends the word of a no-match option as the text of an element; nothing for a number outside 1 to 4. */
ZQXML_API int CreateNoMatchOptionTextNode(xercesc::DOMDocument* document,
                                          xercesc::DOMElement* element, uint32_t option);

/** Appends the word of a multiple-match option as the text of an element; nothing for a number outside 1 to 6. */
ZQXML_API int CreateMultipleMatchOptionTextNode(xercesc::DOMDocument* document,
                                                xercesc::DOMElement* element, uint32_t option);

/** @} */

/** @name Lists of definitions: each appends an element per entry beneath that of the list */
/** @{ */

/** Appends "modifyPermission" elements. A number without a word is "none". */
ZQXML_API int CreateModifyPermissionListNode(xercesc::DOMDocument* document,
                                             xercesc::DOMElement* parent,
                                             const ZQPermissionList* list);

/** Appends "viewPermission" elements. A number without a word is "none". */
ZQXML_API int CreateViewPermissionNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                       const ZQPermissionList* list);

/** Appends "property" elements, the value ahead of the tag. */
ZQXML_API int CreatePropertyListNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                     const ZQPropList* list);

/** Appends "sort" elements. Every number but 1 is "descending". */
ZQXML_API int CreateSortListNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                 const ZQSortList* list);

/** Appends "formIndex" elements, with at most 16 fields each. */
ZQXML_API int CreateIndexListNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                  const ZQIndexList* list);

/** Appends "resultListField" elements. An empty separator is left out. */
ZQXML_API int CreateEntryListFieldListNode(xercesc::DOMDocument* document,
                                           xercesc::DOMElement* parent,
                                           const ZQEntryListFieldList* list);

/**
 * Appends a "changeEntry" for each entry of a coded change history: a time stamp in decimal, the byte 4, the user, the
 * byte 4, a text, the byte 3. What follows the last whole entry is left out.
 *
 * @param document the document
 * @param parent   "changeHistory"
 * @param diary    the text. Deliberate: it is consumed, since each separator that was found becomes a zero; a second call
 *                 with it finds no entries
 * @return 0, or 300
 */
ZQXML_API int CreateChangeHistoryNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                      char* diary);

/**
 * Appends the content of one "supportFile".
 *
 * @param document    the document
 * @param parent      "supportFile"
 * @param fileType    0 none, 1 external report
 * @param fileId      id of the file
 * @param fileContent the bytes, or null for none
 * @param fileSize    number of bytes; 0 leaves "content" out
 * @param timestamp   deliberate: not written
 * @return 0, or 300
 */
ZQXML_API int CreateSupportFileNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                    uint32_t fileType, ZQInternalId fileId,
                                    const unsigned char* fileContent, uint32_t fileSize,
                                    ZQTimestamp timestamp);

/** @} */

/** @name Actions */
/** @{ */

/**
 * Appends an "action" for each action of a filter or an escalation; one of an unknown kind is empty. Deliberate: `cc` and
 * `bcc` of a notification are not written; `from` is, although a document with it can't be read.
 */
ZQXML_API int CreateFilterActionListNode(xercesc::DOMDocument* document,
                                         xercesc::DOMElement* parent,
                                         const ZQFilterActionList* list);

/** Appends "executionOrder" with the child of the tag; without one for an unknown tag. */
ZQXML_API int CreateGotoActionNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                   const ZQGotoActionStruct* action);

/** Appends the content of "callGuide". */
ZQXML_API int CreateCallGuideNode(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                                  const ZQCallGuideStruct* guide);

/** @} */

/** @name Objects: the attribute "zqDocVersion" and the content of an object's element; a null part is left out */
/** @{ */

/** Builds a filter; the parts are those of SetFilterToXML(). */
ZQXML_API int CreateFilterNode(
    xercesc::DOMDocument* document, xercesc::DOMElement* element, const char* name,
    const uint32_t* executionOrder, const ZQWorkflowConnectStruct* workflowConnect,
    const uint32_t* executeOn, const uint32_t* enabled, const ZQQualifierStruct* query,
    const ZQFilterActionList* actionList, const ZQFilterActionList* elseList, const char* owner,
    const char* lastChanged, const ZQTimestamp* modifiedDate, const char* helpText,
    char* changeDiary, const ZQPropList* objPropList, const int32_t* xmlDocVersion);

/** Builds an escalation; the parts are those of SetEscalationToXML(). */
ZQXML_API int CreateEscalationNode(
    xercesc::DOMDocument* document, xercesc::DOMElement* element, const char* name,
    const ZQEscalationTmStruct* escalationTime, const ZQWorkflowConnectStruct* workflowConnect,
    const uint32_t* enabled, const ZQQualifierStruct* query, const ZQFilterActionList* actionList,
    const ZQFilterActionList* elseList, const char* owner, const char* lastChanged,
    const ZQTimestamp* modifiedDate, const char* helpText, char* changeDiary,
    const ZQPropList* objPropList, const int32_t* xmlDocVersion);

/** @} */

#endif
