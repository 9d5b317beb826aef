// What a parser handle points to.
#ifndef ZQXML_XML_XMLPARSERPAIR_H
#define ZQXML_XML_XMLPARSERPAIR_H

#include <memory>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "xml/ZQXMLDocumentParser.h"
#include "zqxml/records.h"

struct XMLParserPair {
  xercesc::SecurityManager security;
  ZQXMLDocumentParser documentParser;
  std::unique_ptr<xercesc::SAX2XMLReader> reader;
};

inline XMLParserPair* parserPairOf(const ZQXMLParserHandle* handle) {
  return handle != nullptr ? static_cast<XMLParserPair*>(handle->handle) : nullptr;
}

#endif
