// The set-up that all readers of the XML parser share, and the opening of documents.
#ifndef ZQXML_XML_XMLREADER_H
#define ZQXML_XML_XMLREADER_H

#include <cstddef>
#include <memory>
#include <xercesc/framework/MemoryManager.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "xml/DocumentLimits.h"
#include "zqxml/records.h"

// The memory of one reader. The XML parser loses track of blocks when an allocation fails; they are
// given back here. There it is `std::bad_alloc` that is thrown: behind its own OutOfMemoryException
// the parser does not even clean up what it could. Its exceptions lie here too: they have to be
// handled while this object lives.
class ReaderMemory : public xercesc::MemoryManager {
 public:
  // `limits` may be null.
  explicit ReaderMemory(DocumentLimits* documentLimits = nullptr) : limits(documentLimits) {}
  ReaderMemory(const ReaderMemory&) = delete;
  ReaderMemory& operator=(const ReaderMemory&) = delete;
  ~ReaderMemory() override { releaseAll(); }

  void* allocate(XMLSize_t size) override;
  void deallocate(void* block) override;
  xercesc::MemoryManager* getExceptionMemoryManager() override;

  // Gives all blocks back; nothing that uses one may be left.
  void releaseAll();

 private:
  // Stands ahead of each block, in a ring.
  struct alignas(std::max_align_t) Link {
    Link* previous = this;
    Link* next = this;
  };

  DocumentLimits* limits;
  Link blocks;
};

// A SAX2 reader that reads the document and nothing else: no validation, no schema, no DTD or
// entity from elsewhere, no namespace processing. `security` limits the entities; it and
// `memory` have to outlive the reader.
std::unique_ptr<xercesc::SAX2XMLReader> makeSAX2Reader(xercesc::SecurityManager& security,
                                                       ReaderMemory& memory);

// The source of a document in memory or in a file; `kind` is ZQXML_INPUT_MEMORY or another. A name
// is a local path or a "file:" address. Throws ZQXMLException 8940 for an address of any other
// scheme or of another host. `limits` gets to know the size.
std::unique_ptr<xercesc::InputSource> openDocument(const ZQXMLInputDoc& document,
                                                   ReaderMemory& memory, DocumentLimits& limits);

#endif
