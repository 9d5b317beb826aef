// The set-up that all readers of the XML parser share, and the opening of documents.
#ifndef ZQXML_XML_XMLREADER_H
#define ZQXML_XML_XMLREADER_H

#include <memory>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "zqxml/records.h"

// A SAX2 reader that reads the document and nothing else: no validation, no schema, no DTD or
// entity from elsewhere, no namespace processing. `security` limits the entities and has to outlive
// the reader.
std::unique_ptr<xercesc::SAX2XMLReader> makeSAX2Reader(xercesc::SecurityManager& security);

// The source of a document in memory or in a file; `kind` is ZQXML_INPUT_MEMORY or another. A name
// is a local path or a "file:" address. Throws ZQXMLException 8940 for an address of any other
// scheme or of another host.
std::unique_ptr<xercesc::InputSource> openDocument(const ZQXMLInputDoc& document);

#endif
