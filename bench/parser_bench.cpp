// The listing of objects beside the XML parser alone: the same documents, an empty handler.

#include <benchmark/benchmark.h>

#include <map>
#include <stdexcept>
#include <string>

#include "BareSax2.h"
#include "DocumentGenerator.h"
#include "zqxml/zqxml.h"

namespace {

std::string& documentOf(size_t megabytes) {
  static std::map<size_t, std::string> documents;
  std::string& document = documents[megabytes];
  if (document.empty()) {
    document = generateDocument(megabytes << 20);
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

  void list(std::string& document) {
    ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
    ZQUnsignedIntList types;
    ZQNameList names;
    ZQUnsignedIntList subTypes;
    ZQStatusList status;
    if (GetListXMLObjects(&handle, &input, &types, &names, &subTypes, &status) != 0 ||
        types.numItems == 0) {
      throw std::runtime_error("the listing failed");
    }
    FreeZQUnsignedIntList(&types, 0);
    FreeZQNameList(&names, 0);
    FreeZQUnsignedIntList(&subTypes, 0);
    FreeZQStatusList(&status, 0);
  }

 private:
  ZQXMLParserHandle handle;
};

void BM_ListObjects(benchmark::State& state) {
  std::string& document = documentOf(static_cast<size_t>(state.range(0)));
  Handle handle;
  for (auto _ : state) {
    handle.list(document);
  }
  setBytes(state, document);
}
BENCHMARK(BM_ListObjects)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);

void BM_BareSax2(benchmark::State& state) {
  parseByBareSax2(state, documentOf(static_cast<size_t>(state.range(0))));
}
BENCHMARK(BM_BareSax2)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);

void BM_ListObjectsThreads(benchmark::State& state) {
  std::string document = documentOf(1);
  Handle handle;
  for (auto _ : state) {
    handle.list(document);
  }
  setBytes(state, document);
}
BENCHMARK(BM_ListObjectsThreads)->ThreadRange(1, 2)->UseRealTime()->Unit(benchmark::kMillisecond);

// The documents are made before threads ask for them.
const bool kPrepared = (documentOf(1), InitXMLParser(nullptr), true);

}  // namespace
