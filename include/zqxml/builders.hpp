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

  /** Hands the whole text to the caller, who frees it, and leaves this object empty. It is never null. Returns 0. */
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

#endif
