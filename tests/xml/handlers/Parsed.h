// Reads definition documents for tests and tells what came of it.
#ifndef ZQXML_TESTS_XML_HANDLERS_PARSED_H
#define ZQXML_TESTS_XML_HANDLERS_PARSED_H

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "xml/Listing.h"
#include "zqxml/zqxml.h"

// The objects to ask for.
class Selection : public ZQStructItemList {
 public:
  Selection(std::initializer_list<std::pair<uint32_t, const char*>> wanted);
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

 private:
  std::vector<ZQStructItemStruct> kept;
};

// One call of ParseXMLDocument, from memory that ends with the document.
class Parsed {
 public:
  Parsed(ZQXMLParserHandle* handle, const std::string& document,
         ZQStructItemList* selection = nullptr);
  Parsed(const Parsed&) = delete;
  Parsed& operator=(const Parsed&) = delete;
  ~Parsed();

  // "result | kind name, kind name | status", where the XML parser's own text reads "*".
  std::string outcome() const;
  // The same with the set members in place of the names (see Members).
  std::string records() const;

  int result = 0;
  std::string objects;
  std::string status;
  uint64_t line = 0;
  uint64_t column = 0;
  ZQXMLParsedStream stream = {};
};

// Frees a stream of filters and escalations with the blocks that are left allocated by contract.
void freeWhole(ZQXMLParsedStream& stream);

// A handle that serves all tests of a program, so that each document is read behind all the others,
// failed ones too.
ZQXMLParserHandle* sharedHandle();

// Reads by the shared handle, and checks that it reads a good document right after that.
std::string outcomeOf(const std::string& document, ZQStructItemList* selection = nullptr);
std::string recordsOf(const std::string& document, ZQStructItemList* selection = nullptr);

// "<root>" around a content.
std::string inRoot(const std::string& content);

// What the first object is made of, if the document reads; else what was told.
std::string membersOf(const std::string& document);

#endif
