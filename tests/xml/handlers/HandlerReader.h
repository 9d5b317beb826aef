// Reads documents with one handler, whose element is the outermost one or stands below "root".
#ifndef ZQXML_TESTS_XML_HANDLERS_HANDLERREADER_H
#define ZQXML_TESTS_XML_HANDLERS_HANDLERREADER_H

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "records/RecordTools.h"
#include "records/StatusLists.h"
#include "xml/XMLReader.h"
#include "xml/ZQXMLDocumentParser.h"
#include "xml/ZQXMLException.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/heap.h"
#include "zqxml/zqxml.h"

// What came of a document: a message with its text, or none, and all that the record holds.
struct Reading {
  int number = 0;
  std::string text;
  std::string record;

  bool operator==(const Reading&) const = default;
};

inline void PrintTo(const Reading& reading, std::ostream* out) {
  *out << reading.number << " \"" << reading.text << "\"\n" << reading.record;
}

// `kFree` frees what a record owns. The documents of one reader go through the same handler, as
// those of a parser handle do.
template <typename HandlerType, typename RecordType, void (*kFree)(RecordType*, ZQBoolean)>
class HandlerReader {
 public:
  using Handler = HandlerType;
  using Record = RecordType;

  HandlerReader() { EXPECT_EQ(InitXMLParser(nullptr), 0); }
  HandlerReader(const HandlerReader&) = delete;
  HandlerReader& operator=(const HandlerReader&) = delete;
  ~HandlerReader() { releaseRecord(record_, kFree); }

  // Reads a document. The message is that of an exception or the first of the status list; the dump
  // of the record is left out with `dumped` false.
  Reading read(const std::string& document, bool dumped = true,
               ZQStructItemList* selection = nullptr) {
    releaseRecord(record_, kFree);
    Reading reading;
    OwnedStatusList status;
    parser.InitObjectDefnParsing(selection, &status);
    try {
      parse(document);
    } catch (const ZQXMLException& exception) {
      reading.number = exception.GetErrorNumber();
      reading.text = exception.GetErrorMsg();
    } catch (const std::bad_alloc&) {
      reading.number = ZQ_MESSAGE_OUT_OF_MEMORY;
    }
    // Without memory it may take itself to be still at work.
    if (reading.number == ZQ_MESSAGE_OUT_OF_MEMORY) {
      reader.reset();
    }
    parser.endParsing();
    if (reading.number == 0 && status.numItems > 0) {
      reading.number = status.items[0].messageNum;
      reading.text = status.items[0].appendedText;
    }
    if (dumped) {
      reading.record = tools::Dumper::dump(record_);
    }
    return reading;
  }

  // What the last document left.
  const Record& record() const { return record_; }

 private:
  // In the place of the handler's parent.
  class Host : public ZQXMLBaseHandler {
   public:
    Host(const ZQXMLHandlerInfo* info, Record& record)
        : ZQXMLBaseHandler(info), target(record), child(info) {}

    void CleanReferences() override {}
    void PreProcess(int tag) override {
      if (tag != tag_root) {
        giveTo(child, target, kFree);
      }
    }
    void PostProcess(int) override {}
    void StartElement(int, const xercesc::Attributes&) override { currentTag = 0; }
    // The end of an element that the child should have seen.
    void EndElement(int tag) override {
      if (tag != tag_root) {
        refuseElement();
      }
    }
    void Characters(const char*, unsigned) override {}

   private:
    Record& target;
    Handler child;
  };

  class Parser : public ZQXMLDocumentParser {
   public:
    explicit Parser(Record& record) : host(&handlerInfo, record) {}

    void startDocument() override {
      ZQXMLDocumentParser::startDocument();
      handlerStack.Push(&host, nullptr);
    }

   private:
    Host host;
  };

  void parse(const std::string& document) {
    if (reader == nullptr) {
      memory.releaseAll();
      auto made = makeSAX2Reader(security, memory);
      made->setContentHandler(&parser);
      made->setErrorHandler(&parser);
      reader = std::move(made);
    }
    const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(document.data()),
                                            document.size(), "", false, &memory);
    reader->parse(source);
  }

  Record record_ = {};
  xercesc::SecurityManager security;
  ReaderMemory memory;
  Parser parser{record_};
  std::unique_ptr<xercesc::SAX2XMLReader> reader;
};

// A document of one line with "@" at a place, and that place as messages tell it.
struct Marked {
  explicit Marked(std::string text) : document(std::move(text)) {
    const size_t at = document.find('@');
    EXPECT_NE(at, std::string::npos);
    document.erase(at, 1);
    place = placeAt(at);
  }

  // The place behind so many characters of one line.
  static std::string placeAt(size_t characters) {
    return "line: 1, column " + std::to_string(characters + 1);
  }

  std::string document;
  std::string place;
};

template <typename Reader>
void expectRead(Reader& reader, const std::string& document,
                const typename Reader::Record& expected) {
  EXPECT_EQ(reader.read(document), (Reading{0, "", tools::Dumper::dump(expected)})) << document;
}

// The message tells the place of the "@", and `name` ahead of it unless that is empty.
template <typename Reader>
void expectRefused(Reader& reader, const std::string& marked, int number,
                   const std::string& name = "") {
  const Marked where(marked);
  const Reading reading = reader.read(where.document, false);
  EXPECT_EQ(reading.number, number) << marked;
  EXPECT_EQ(reading.text, name.empty() ? where.place : name + ", " + where.place) << marked;
}

#endif
