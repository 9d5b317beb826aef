#include "xml/XMLReader.h"

#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/BinFileInputStream.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "text/asciicase.h"
#include "xml/ZQXMLException.h"
#include "xml/ZQXMLText.h"
#include "zqxml/limits.h"
#include "zqxml/messages.h"
#include "zqxml/parser.h"

namespace {

std::atomic<unsigned> entityExpansionLimit{ZQXML_DEFAULT_ENTITY_EXPANSION_LIMIT};

// A file by its path as the file system knows it; the parser's own source would take the path for
// UTF-8.
class FileSource : public xercesc::InputSource {
 public:
  FileSource(std::string name, ReaderMemory& memory, DocumentLimits& documentLimits)
      : InputSource(&memory), path(std::move(name)), limits(documentLimits) {
    const std::u16string systemId = ZQXMLFromLocal(path.c_str());
    setSystemId(systemId.c_str());
  }

  xercesc::BinInputStream* makeStream() const override {
    auto stream = std::unique_ptr<xercesc::BinFileInputStream>(
        new (getMemoryManager()) Stream(path.c_str(), getMemoryManager(), limits));
    return stream->getIsOpen() ? stream.release() : nullptr;
  }

 private:
  // The size of what is no file of the disk shows while it is read.
  class Stream : public xercesc::BinFileInputStream {
   public:
    Stream(const char* name, xercesc::MemoryManager* memory, DocumentLimits& documentLimits)
        : BinFileInputStream(name, memory), limits(documentLimits) {
      struct stat file;
      if (stat(name, &file) == 0 && S_ISREG(file.st_mode)) {
        known = static_cast<uint64_t>(file.st_size);
        limits.addSize(known);
      }
    }

    XMLSize_t readBytes(XMLByte* buffer, XMLSize_t most) override {
      const XMLSize_t count = BinFileInputStream::readBytes(buffer, most);
      offset += count;
      if (offset > known) {
        limits.addSize(offset - known);
        known = offset;
      }
      return count;
    }

   private:
    DocumentLimits& limits;
    uint64_t known = 0;
    uint64_t offset = 0;
  };

  std::string path;
  DocumentLimits& limits;
};

bool isAlpha(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// The scheme of an address (RFC 3986, 3.1), or nothing if the name has none.
std::string_view schemeOf(std::string_view name) {
  const size_t colon = name.find(':');
  if (colon == std::string_view::npos || colon == 0 || !isAlpha(name[0])) {
    return {};
  }
  const std::string_view scheme = name.substr(0, colon);
  const bool valid = std::all_of(scheme.begin(), scheme.end(), [](char c) {
    return isAlpha(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
  });
  return valid ? scheme : std::string_view();
}

int hexDigit(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Undoes percent-encoding (RFC 3986, 2.1); what is none stays as it is. A path holds no NUL, so %00
// stays too.
std::string percentDecoded(std::string_view text) {
  std::string result;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size()) {
      const int high = hexDigit(text[i + 1]);
      const int low = hexDigit(text[i + 2]);
      if (high >= 0 && low >= 0 && (high | low) != 0) {
        result += static_cast<char>(high << 4 | low);
        i += 2;
        continue;
      }
    }
    result += text[i];
  }
  return result;
}

[[noreturn]] void refuseAddress(const char* name) {
  const std::string text =
      std::string("Only local paths and \"file:\" addresses of this host are opened: ") + name;
  throw ZQXMLException(ZQ_MESSAGE_XML_PARSER, text.c_str());
}

// The path that a document's name stands for.
std::string pathOf(const char* name) {
  const std::string_view whole = name;
  const std::string_view scheme = schemeOf(whole);
  if (scheme.empty()) {
    return name;
  }
  if (!equalsIgnoringAsciiCase(scheme, "file")) {
    refuseAddress(name);
  }
  std::string_view rest = whole.substr(scheme.size() + 1);
  if (rest.starts_with("//")) {
    rest.remove_prefix(2);
    const std::string_view host = rest.substr(0, rest.find('/'));
    if (!host.empty() && !equalsIgnoringAsciiCase(host, "localhost")) {
      refuseAddress(name);
    }
    rest.remove_prefix(host.size());
  }
  return percentDecoded(rest);
}

}  // namespace

void* ReaderMemory::allocate(XMLSize_t size) {
  if (size > SIZE_MAX - sizeof(Link)) {
    throw std::bad_alloc();
  }
  if (limits != nullptr) {
    limits->addParserBlock(size);
  }
  auto* link = new (operator new(sizeof(Link) + size)) Link;
  link->previous = &blocks;
  link->next = blocks.next;
  link->next->previous = link;
  blocks.next = link;
  return link + 1;
}

void ReaderMemory::deallocate(void* block) {
  if (block == nullptr) {
    return;
  }
  Link* link = static_cast<Link*>(block) - 1;
  link->previous->next = link->next;
  link->next->previous = link->previous;
  operator delete(link);
}

xercesc::MemoryManager* ReaderMemory::getExceptionMemoryManager() {
  return this;
}

void ReaderMemory::releaseAll() {
  while (blocks.next != &blocks) {
    ReaderMemory::deallocate(blocks.next + 1);
  }
}

void SetXMLEntityExpansionLimit(unsigned limit) {
  entityExpansionLimit = limit;
}

unsigned GetXMLEntityExpansionLimit(void) {
  return entityExpansionLimit;
}

// The default scanner stays: the faster one for texts without a document type looks for a repeated
// attribute by comparing all with all, and a start tag with very many of them would keep it busy
// for hours.
std::unique_ptr<xercesc::SAX2XMLReader> makeSAX2Reader(xercesc::SecurityManager& security,
                                                       ReaderMemory& memory) {
  using xercesc::XMLUni;
  std::unique_ptr<xercesc::SAX2XMLReader> reader(
      xercesc::XMLReaderFactory::createXMLReader(&memory));
  for (const XMLCh* feature :
       {XMLUni::fgSAX2CoreNameSpaces, XMLUni::fgSAX2CoreValidation, XMLUni::fgXercesSchema,
        XMLUni::fgXercesLoadSchema, XMLUni::fgXercesLoadExternalDTD}) {
    reader->setFeature(feature, false);
  }
  reader->setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
  reader->setProperty(XMLUni::fgXercesSecurityManager, &security);
  return reader;
}

std::unique_ptr<xercesc::InputSource> openDocument(const ZQXMLInputDoc& document,
                                                   ReaderMemory& memory, DocumentLimits& limits) {
  const char* text = document.doc != nullptr ? document.doc : "";
  if (document.docType != ZQXML_INPUT_MEMORY) {
    return std::make_unique<FileSource>(pathOf(text), memory, limits);
  }
  const size_t size = strlen(text);
  limits.addSize(size);
  auto source = std::make_unique<xercesc::MemBufInputSource>(reinterpret_cast<const XMLByte*>(text),
                                                             size, "", false, &memory);
  source->setCopyBufToStream(false);
  return source;
}
