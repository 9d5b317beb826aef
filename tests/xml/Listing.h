// Lists the objects of documents for tests, from memory and from a file, and tells all that came of
// it as texts.
#ifndef ZQXML_TESTS_XML_LISTING_H
#define ZQXML_TESTS_XML_LISTING_H

#include <cstdint>
#include <string>

#include "zqxml/zqxml.h"

// The result of a listing.
struct Listing {
  int result = 0;
  std::string objects;  // "form A, container B 3": kind, name, and the type of a container
  std::string status;   // "2/8943 line: 3, column 5; 1/8940 ...": severity, number, appended text
  uint64_t line = 0;    // of GetXMLParserPosition
  uint64_t column = 0;
  double seconds = 0;

  // "result | objects | status", where the XML parser's own text reads "*".
  std::string text() const;
  std::string place() const { return std::to_string(line) + ":" + std::to_string(column); }
};

class ParserHandle : public ZQXMLParserHandle {
 public:
  ParserHandle();
  ParserHandle(const ParserHandle&) = delete;
  ParserHandle& operator=(const ParserHandle&) = delete;
  ~ParserHandle();
};

// A folder for the files of a test.
class TestFolder {
 public:
  TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder();

  const std::string& path() const { return folder; }
  // Writes a file and returns its path.
  std::string write(const std::string& name, const std::string& contents) const;

 private:
  std::string folder;
};

// One call of GetListXMLObjects.
Listing listWith(ZQXMLParserHandle* handle, uint32_t docType, const std::string& doc);

// Lists a document from memory and by both kinds of name, and checks that all agree, that each
// message has its catalog text, that the lists have one length, and that the handle lists a good
// document correctly afterwards.
Listing list(const std::string& document);

// Lists by a name, and checks the same.
Listing listFile(const std::string& name);

// A document that lists as kGoodListing, and a check that a handle does so.
extern const char kGoodDocument[];
extern const char kGoodListing[];
void expectListsGoodDocument(ZQXMLParserHandle* handle);

#endif
