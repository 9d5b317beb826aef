// What one document may cost. A few bytes of a document type can stand for gigabytes of text, and
// the XML parser itself limits nothing but the references to entities in contents and attributes.
// So all that a document brings about is held in proportion to its size, and what exceeds that ends
// the parse.
#ifndef ZQXML_XML_DOCUMENTLIMITS_H
#define ZQXML_XML_DOCUMENTLIMITS_H

#include <cstdint>
#include <xercesc/sax2/Attributes.hpp>

#include "zqxml/limits.h"

class DocumentLimits {
 public:
  // The next document begins, with so many references to entities.
  void begin(unsigned entityExpansions);

  // So many bytes more of the document are known.
  void addSize(uint64_t bytes) { size += bytes; }

  // The XML parser takes a block of memory; blocks given back count too. Throws ZQXMLException
  // 8944 if there is no more for this document.
  void addParserBlock(uint64_t bytes);

  // Text and attributes are delivered, memory is taken for an object, and texts are read for the
  // records: whether the document may.
  bool addText(uint64_t units) {
    content += units;
    return content <= ZQXML_CONTENT_UNITS + ZQXML_CONTENT_UNITS_PER_BYTE * size;
  }
  bool addAttributes(const xercesc::Attributes& attributes);
  bool addObject(uint64_t bytes);
  bool addReading(uint64_t bytes);

 private:
  uint64_t size = 0;
  uint64_t expansions = 0;
  uint64_t parserBlocks = 0;
  uint64_t parserBytes = 0;
  uint64_t content = 0;
  uint64_t objectBytes = 0;
  uint64_t readBytes = 0;
};

#endif
