// The reading of objects beside the XML parser alone: the same documents, an empty handler.

#include <benchmark/benchmark.h>

#include <map>
#include <stdexcept>
#include <string>

#include "BareSax2.h"
#include "DocumentGenerator.h"
#include "zqxml/zqxml.h"

namespace {

std::string& filtersOf(size_t megabytes) {
  static std::map<size_t, std::string> documents;
  std::string& document = documents[megabytes];
  if (document.empty()) {
    document = generateDocument(megabytes << 20, {"filter"});
  }
  return document;
}

class Handle {
 public:
  Handle() {
    if (CreateXMLParserHandle(&handle, nullptr) != 0) {
      throw std::runtime_error("no parser handle");
    }
  }
  ~Handle() { FreeZQXMLParserHandleInternal(&handle, 0); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  // The time of giving the objects back isn't that of the parse.
  void parse(std::string& document, benchmark::State& state) {
    const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
    ZQXMLParsedStream stream;
    ZQStructItemList parsed;
    ZQStatusList status;
    if (ParseXMLDocument(&handle, &input, nullptr, &stream, &parsed, &status) != 0 ||
        parsed.numItems == 0) {
      throw std::runtime_error("the parse failed");
    }
    state.PauseTiming();
    FreeZQStructItemList(&parsed, 0);
    FreeZQXMLParsedStreamInternal(&stream, 0);
    FreeZQStatusList(&status, 0);
    state.ResumeTiming();
  }

 private:
  ZQXMLParserHandle handle;
};

void BM_ParseFilters(benchmark::State& state) {
  std::string& document = filtersOf(static_cast<size_t>(state.range(0)));
  Handle handle;
  for (auto _ : state) {
    handle.parse(document, state);
  }
  setBytes(state, document);
}
BENCHMARK(BM_ParseFilters)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);

void BM_BareSax2Filters(benchmark::State& state) {
  parseByBareSax2(state, filtersOf(static_cast<size_t>(state.range(0))));
}
BENCHMARK(BM_BareSax2Filters)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);

void BM_ParseFiltersThreads(benchmark::State& state) {
  std::string document = filtersOf(1);
  Handle handle;
  for (auto _ : state) {
    handle.parse(document, state);
  }
  setBytes(state, document);
}
BENCHMARK(BM_ParseFiltersThreads)->ThreadRange(1, 2)->UseRealTime()->Unit(benchmark::kMillisecond);

// The documents are made before threads ask for them.
const bool kPrepared = (filtersOf(1), InitXMLParser(nullptr), true);

}  // namespace
