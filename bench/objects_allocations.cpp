// Counts the allocations of a parse, the XML parser's own included, beside the blocks of its
// result.

#include <cstdio>
#include <string>

#include "DocumentGenerator.h"
#include "fault/FailingAllocations.h"
#include "zqxml/zqxml.h"

int main() {
  constexpr double kMust = 2.2;
  std::string document = generateDocument(1 << 20, {"filter"});
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
  ZQXMLParserHandle handle;
  if (CreateXMLParserHandle(&handle, nullptr) != 0) {
    return 1;
  }
  bool missed = false;
  for (const char* which : {"first", "second"}) {
    ZQXMLParsedStream stream;
    ZQStructItemList parsed;
    const long before = fault::allocationCount();
    if (ParseXMLDocument(&handle, &input, nullptr, &stream, &parsed, nullptr) != 0) {
      return 1;
    }
    const long allocations = fault::allocationCount() - before;
    const long live = fault::liveBlocks();
    FreeZQStructItemList(&parsed, 0);
    FreeZQXMLParsedStreamInternal(&stream, 0);
    const long blocks = live - fault::liveBlocks();
    const double ratio = static_cast<double>(allocations) / static_cast<double>(blocks);
    missed = missed || ratio > kMust;
    std::printf("%s parse of filters: %ld allocations for %ld blocks, %.3f (must %.2f)\n", which,
                allocations, blocks, ratio, kMust);
  }
  FreeZQXMLParserHandleInternal(&handle, 0);
  return missed ? 1 : 0;
}
