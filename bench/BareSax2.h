// The peer of all reading: the XML parser alone, with an empty handler.
#ifndef ZQXML_BENCH_BARESAX2_H
#define ZQXML_BENCH_BARESAX2_H

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <string>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "zqxml/parser.h"

inline void setBytes(benchmark::State& state, const std::string& document) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(document.size()));
}

inline void parseByBareSax2(benchmark::State& state, const std::string& document) {
  using xercesc::XMLUni;
  InitXMLParser(nullptr);
  const std::unique_ptr<xercesc::SAX2XMLReader> reader(
      xercesc::XMLReaderFactory::createXMLReader());
  reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, false);
  reader->setFeature(XMLUni::fgSAX2CoreValidation, false);
  reader->setFeature(XMLUni::fgXercesSchema, false);
  xercesc::DefaultHandler handler;
  reader->setContentHandler(&handler);
  reader->setErrorHandler(&handler);
  for (auto _ : state) {
    xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(document.data()),
                                      document.size(), "", false);
    source.setCopyBufToStream(false);
    reader->parse(source);
  }
  setBytes(state, document);
}

#endif
