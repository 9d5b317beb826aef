// Reads one element by its own handler, whatever holds it in whole documents.
#ifndef ZQXML_TESTS_XML_HANDLERS_LISTREADER_H
#define ZQXML_TESTS_XML_HANDLERS_LISTREADER_H

#include <memory>
#include <string>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "records/StatusLists.h"
#include "xml/ApiFrame.h"
#include "xml/XMLReader.h"
#include "xml/ZQXMLDocumentParser.h"
#include "xml/ZQXMLException.h"
#include "zqxml/zqxml.h"

// Gives the outermost element to the handler, and refuses all else.
template <typename Handler, typename Record>
class HostHandler : public ZQXMLBaseHandler {
 public:
  explicit HostHandler(const ZQXMLHandlerInfo* info) : ZQXMLBaseHandler(info), child(info) {}

  void CleanReferences() override { child.CleanReferences(); }
  void PreProcess(int) override {
    child.Init(&record);
    handlerStack->Push(&child, locator);
  }
  void PostProcess(int) override {}
  void StartElement(int, const xercesc::Attributes&) override { refuseElement(); }
  void EndElement(int) override { refuseElement(); }
  void Characters(const char*, unsigned) override {}

  Handler child;
  Record record = {};
};

template <typename Handler, typename Record>
class ListParser : public ZQXMLDocumentParser {
 public:
  ListParser() : host(&handlerInfo) {}

  void startDocument() override {
    ZQXMLDocumentParser::startDocument();
    handlerStack.Push(&host, nullptr);
  }

  HostHandler<Handler, Record> host;
};

// Reads documents whose outermost element is the handler's, one after the other.
template <typename Handler, typename Record>
class ListReader {
 public:
  ListReader() { InitXMLParser(nullptr); }
  ListReader(const ListReader&) = delete;
  ListReader& operator=(const ListReader&) = delete;

  // What a parse needs, so that nothing else is allocated by it.
  void prepare() {
    if (reader == nullptr) {
      memory.releaseAll();
      reader = makeSAX2Reader(security, memory);
      reader->setContentHandler(&parser);
      reader->setErrorHandler(&parser);
    }
  }

  // The record belongs to the caller, whatever the result is.
  int parse(const std::string& document, Record& record, ZQStatusList* status) {
    ZQUnsignedIntList types = {};
    ZQNameList names = {};
    ZQUnsignedIntList subTypes = {};
    parser.InitObjectNameParsing(&types, &names, &subTypes, status);
    parser.host.record = {};
    const int result = guardedEntry(status, ZQ_MESSAGE_XML_PARSER, [&] {
      const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(document.data()),
                                              document.size(), "", false, &memory);
      reader->parse(source);
      return 0;
    });
    parser.endParsing();
    record = parser.host.record;
    if (result != 0) {
      reader.reset();
    }
    return result;
  }

  // The record, and what was told.
  Record read(const std::string& document, std::string& fault) {
    prepare();
    Record record = {};
    OwnedStatusList status;
    parse(document, record, &status);
    fault = describe(status);
    return record;
  }

 private:
  xercesc::SecurityManager security;
  ReaderMemory memory;
  ListParser<Handler, Record> parser;
  std::unique_ptr<xercesc::SAX2XMLReader> reader;
};

#endif
