// Counts the allocations of a listing and of a reading, the XML parser's own included, beside what
// they give out.

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "DocumentGenerator.h"
#include "fault/FailingAllocations.h"
#include "zqxml/zqxml.h"

namespace {

bool countReading(ZQXMLParserHandle* handle) {
  std::ifstream file(ZQXML_EXAMPLES_DIR "/filters.xml");
  std::string document{std::istreambuf_iterator<char>(file), {}};
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
  for (const char* which : {"first", "second"}) {
    ZQXMLParsedStream stream = {};
    const long allocations = fault::allocationCount();
    const long blocks = fault::liveBlocks();
    if (ParseXMLDocument(handle, &input, nullptr, &stream, nullptr, nullptr) != 0) {
      return false;
    }
    std::printf("%s reading of the filters: %ld allocations, %ld blocks more than before\n", which,
                fault::allocationCount() - allocations, fault::liveBlocks() - blocks);
    FreeZQXMLParsedStreamInternal(&stream, 0);
  }
  return true;
}

}  // namespace

int main() {
  std::string document = generateDocument(1 << 20);
  ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
  ZQXMLParserHandle handle;
  if (CreateXMLParserHandle(&handle, nullptr) != 0) {
    return 1;
  }
  for (const char* which : {"first", "second"}) {
    ZQUnsignedIntList types;
    ZQNameList names;
    ZQUnsignedIntList subTypes;
    const long before = fault::allocationCount();
    if (GetListXMLObjects(&handle, &input, &types, &names, &subTypes, nullptr) != 0) {
      return 1;
    }
    std::printf("%s parse of a handle: %ld allocations for %u objects\n", which,
                fault::allocationCount() - before, types.numItems);
    FreeZQUnsignedIntList(&types, 0);
    FreeZQNameList(&names, 0);
    FreeZQUnsignedIntList(&subTypes, 0);
  }
  const bool read = countReading(&handle);
  FreeZQXMLParserHandleInternal(&handle, 0);
  return read ? 0 : 1;
}
