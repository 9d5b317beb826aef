// The printing of a DOM tree beside the XML parser's own serializer, and the text builder beside
// std::string.

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include "DocumentGenerator.h"
#include "zqxml/builders.hpp"
#include "zqxml/zqxml.h"

namespace {

// A tree of one megabyte of definitions; it lives as long as the program.
const xercesc::DOMDocument* tree() {
  static const xercesc::DOMDocument* document = [] {
    InitXMLParser(nullptr);
    const std::string text = generateDocument(1 << 20);
    xercesc::XercesDOMParser parser;
    xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()), text.size(),
                                      "", false);
    parser.parse(source);
    return parser.adoptDocument();
  }();
  return document;
}

void BM_PrintDOMNode(benchmark::State& state) {
  const xercesc::DOMNode* root = tree()->getDocumentElement();
  for (auto _ : state) {
    ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
    if (PrintDOMNode(0, root, text) != 0) {
      throw std::runtime_error("the print failed");
    }
    benchmark::DoNotOptimize(text.GetLength());
  }
}
BENCHMARK(BM_PrintDOMNode)->Unit(benchmark::kMillisecond);

void BM_DOMLSSerializer(benchmark::State& state) {
  const xercesc::DOMNode* root = tree()->getDocumentElement();
  auto* implementation = static_cast<xercesc::DOMImplementationLS*>(
      xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS"));
  for (auto _ : state) {
    xercesc::DOMLSSerializer* serializer = implementation->createLSSerializer();
    xercesc::DOMLSOutput* output = implementation->createLSOutput();
    xercesc::MemBufFormatTarget target;
    output->setByteStream(&target);
    output->setEncoding(u"UTF-8");
    if (!serializer->write(root, output)) {
      throw std::runtime_error("the serializer failed");
    }
    benchmark::DoNotOptimize(target.getLen());
    output->release();
    serializer->release();
  }
}
BENCHMARK(BM_DOMLSSerializer)->Unit(benchmark::kMillisecond);

constexpr int kAppends = 100000;
constexpr char kPiece[] = "ten bytes.";

void BM_AppendToText(benchmark::State& state) {
  for (auto _ : state) {
    ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
    for (int i = 0; i < kAppends; ++i) {
      text += kPiece;
    }
    benchmark::DoNotOptimize(text.GetLength());
  }
}
BENCHMARK(BM_AppendToText)->Unit(benchmark::kMicrosecond);

void BM_AppendToString(benchmark::State& state) {
  for (auto _ : state) {
    std::string text;
    for (int i = 0; i < kAppends; ++i) {
      const char* piece = kPiece;
      benchmark::DoNotOptimize(piece);
      text += piece;
    }
    benchmark::DoNotOptimize(text.data());
  }
}
BENCHMARK(BM_AppendToString)->Unit(benchmark::kMicrosecond);

}  // namespace
