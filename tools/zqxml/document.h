// A document that the tool reads, and how its faults are told.
#ifndef ZQXML_TOOLS_DOCUMENT_H
#define ZQXML_TOOLS_DOCUMENT_H

#include <zqxml/zqxml.h>

#include <memory>
#include <string>
#include <vector>

// Frees a record that lies in its owner.
template <typename Record, void (*Free)(Record*, ZQBoolean)>
class Owned {
 public:
  Owned() = default;
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  ~Owned() { Free(&record, 0); }
  Record* operator&() { return &record; }
  Record* operator->() { return &record; }
  const Record* operator->() const { return &record; }

 private:
  Record record = {};
};

using StatusList = Owned<ZQStatusList, FreeZQStatusList>;

class Document {
 public:
  // "-" is standard input.
  explicit Document(const std::string& fileName);

  // One that messages call otherwise than its file.
  Document(std::string path, std::string shownName);

  // What messages call it.
  const std::string& name() const { return shownName; }

  // Whether it is told by a "file:" address or the like, which only the library opens.
  bool isAddress() const;

  // Whether it can be opened. If not, the reason is told on standard error.
  bool isReadable() const;

  ZQXMLInputDoc input();

 private:
  std::string path;
  std::string shownName;
};

class Parser {
 public:
  Parser() = default;
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  ~Parser() { FreeZQXMLParserHandleInternal(&parser, 0); }

  // Returns kDone, or tells why not and returns kDocumentFault.
  int create();

  ZQXMLParserHandle* handle() { return &parser; }

  // Tells each record of a parse on standard error: "file:line:column: error: text [number]".
  void reportFaults(const Document& document, const StatusList& status) const;

 private:
  ZQXMLParserHandle parser = {};
};

// Tells on a terminal how far a run over several documents has come, once it has taken two seconds.
class Progress {
 public:
  explicit Progress(size_t documentCount);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();
  void next();

 private:
  size_t count;
  size_t done = 0;
  double started;
  bool onTerminal;
  bool shown = false;
};

#endif
