// What a parser handle points to.
#ifndef ZQXML_XML_XMLPARSERPAIR_H
#define ZQXML_XML_XMLPARSERPAIR_H

#include <memory>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "xml/DocumentLimits.h"
#include "xml/XMLReader.h"
#include "xml/ZQXMLDocumentParser.h"
#include "zqxml/limits.h"
#include "zqxml/records.h"

struct XMLParserPair {
  xercesc::SecurityManager security;
  DocumentLimits limits;
  ReaderMemory memory{&limits};
  ZQXMLDocumentParser documentParser{&limits};
  // Null behind a parse that an exception has ended.
  std::unique_ptr<xercesc::SAX2XMLReader> reader;

  void makeReader() {
    memory.releaseAll();
    auto made = makeSAX2Reader(security, memory);
    made->setContentHandler(&documentParser);
    made->setErrorHandler(&documentParser);
    reader = std::move(made);
  }

  // A reader that an exception has left behind is not used again: when memory has run out it takes
  // itself to be still at work.
  void parse(const ZQXMLInputDoc& document) {
    const unsigned entityExpansions = GetXMLEntityExpansionLimit();
    security.setEntityExpansionLimit(entityExpansions);
    limits.begin(entityExpansions);
    if (reader == nullptr) {
      makeReader();
    }
    const auto source = openDocument(document, memory, limits);
    auto used = std::move(reader);
    used->parse(*source);
    reader = std::move(used);
  }
};

inline XMLParserPair* parserPairOf(const ZQXMLParserHandle* handle) {
  return handle != nullptr ? static_cast<XMLParserPair*>(handle->handle) : nullptr;
}

#endif
