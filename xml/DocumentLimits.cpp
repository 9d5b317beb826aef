#include "xml/DocumentLimits.h"

#include <cstdio>
#include <xercesc/util/XMLString.hpp>

#include "xml/ZQXMLException.h"
#include "zqxml/messages.h"

namespace {

// What the expansion of an entity takes, generously.
constexpr uint64_t kBlocksOfExpansion = 16;
constexpr uint64_t kBytesOfExpansion = uint64_t{256} << 10;

// What an attribute costs beside its value, in units of text.
constexpr uint64_t kUnitsOfAttribute = 8;

// The parser is in the midst of something, and isn't asked for a place.
void expect(uint64_t used, uint64_t allowed, const char* what) {
  if (used > allowed) {
    char text[100];
    snprintf(text, sizeof text, "The XML parser needs more than %llu %s",
             static_cast<unsigned long long>(allowed), what);
    throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME, text);
  }
}

}  // namespace

void DocumentLimits::begin(unsigned entityExpansions) {
  *this = {};
  expansions = entityExpansions;
}

void DocumentLimits::addParserBlock(uint64_t bytes) {
  ++parserBlocks;
  parserBytes += bytes;
  expect(
      parserBlocks,
      ZQXML_PARSER_BLOCKS + ZQXML_PARSER_BLOCKS_PER_BYTE * size + kBlocksOfExpansion * expansions,
      "blocks of memory");
  expect(parserBytes,
         ZQXML_PARSER_BYTES + ZQXML_PARSER_BYTES_PER_BYTE * size + kBytesOfExpansion * expansions,
         "bytes of memory");
}

bool DocumentLimits::addAttributes(const xercesc::Attributes& attributes) {
  const XMLSize_t count = attributes.getLength();
  for (XMLSize_t i = 0; i < count; ++i) {
    if (!addText(kUnitsOfAttribute + xercesc::XMLString::stringLen(attributes.getValue(i)))) {
      return false;
    }
  }
  return true;
}

bool DocumentLimits::addObject(uint64_t bytes) {
  objectBytes += bytes;
  return objectBytes <= ZQXML_OBJECT_BYTES + ZQXML_OBJECT_BYTES_PER_BYTE * size;
}

bool DocumentLimits::addReading(uint64_t bytes) {
  readBytes += bytes;
  return readBytes <= ZQXML_READING_BYTES + ZQXML_READING_BYTES_PER_BYTE * size;
}
