// Growable text, kept as a list of blocks so that an append never moves what is there. It serves
// documents of many megabytes as well as the small accumulators of the handlers, which are emptied
// and filled again all the time and reach a state in which neither allocates.
//
// The text is the concatenation of the blocks up to the first empty one; each block's text is
// zero-terminated. Out of memory is ZQXMLException 300.
#ifndef ZQXML_XML_ZQGNSTRING_H
#define ZQXML_XML_ZQGNSTRING_H

class ZQGNString {
 public:
  // Bytes of a block, unless more are needed at once.
  enum BLOCKSIZE : int { BLOCKSIZE_ACCUMULATOR = 80, BLOCKSIZE_DOCUMENT = 8192 };

  explicit ZQGNString(BLOCKSIZE size = BLOCKSIZE_ACCUMULATOR) : blockSize(size) {}
  ZQGNString(const ZQGNString& other);
  ZQGNString& operator=(const ZQGNString& other);
  virtual ~ZQGNString();

  // A null text is an empty one. The text may be this object's own.
  ZQGNString& operator=(const char* text);
  ZQGNString& operator+=(const char* text);

  // Empties the text and keeps all memory, zeroed.
  void Empty();

  bool IsEmpty() const;

  // Length in bytes. A text that would exceed 1 GiB is out of memory.
  int GetLength() const { return textLength; }

  // The whole text in one piece, owned by this object and good until its next change.
  operator char*();

  // Hands the whole text to the caller, who frees it, and leaves this object empty. It is never
  // null. The result is always 0.
  int DetachStrReference(char** text);

  // Appends the text to a file. Returns 0, or message 8954 if the file can't be opened, or has no
  // name. Deliberate: the results of the writes aren't looked at.
  int AppendToFile(const char* fileName) const;

  // Writes the text to a descriptor. Returns 0, or message 301 if a write fails; a short write is
  // no failure and isn't gone on with.
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

#endif
