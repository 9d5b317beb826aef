// What a parser handle points to.
#ifndef ZQXML_XML_XMLPARSERPAIR_H
#define ZQXML_XML_XMLPARSERPAIR_H

#include <memory>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "xml/XMLReader.h"
#include "xml/ZQXMLDocumentParser.h"
#include "zqxml/records.h"

struct XMLParserPair {
  xercesc::SecurityManager security;
  ZQXMLDocumentParser documentParser;
  // One for each kind of scanner; the full one is made when a document first needs it.
  std::unique_ptr<xercesc::SAX2XMLReader> plainReader;
  std::unique_ptr<xercesc::SAX2XMLReader> fullReader;

  xercesc::SAX2XMLReader& readerOf(XMLScannerKind kind) {
    auto& reader = kind == XMLScannerKind::Plain ? plainReader : fullReader;
    if (reader == nullptr) {
      auto made = makeSAX2Reader(kind, security);
      made->setContentHandler(&documentParser);
      made->setErrorHandler(&documentParser);
      reader = std::move(made);
    }
    return *reader;
  }
};

inline XMLParserPair* parserPairOf(const ZQXMLParserHandle* handle) {
  return handle != nullptr ? static_cast<XMLParserPair*>(handle->handle) : nullptr;
}

#endif
