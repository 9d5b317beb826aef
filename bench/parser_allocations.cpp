// Counts the allocations of a listing, the XML parser's own included, beside the blocks of its
// result.

#include <cstdio>
#include <string>

#include "DocumentGenerator.h"
#include "fault/FailingAllocations.h"
#include "zqxml/zqxml.h"

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
  FreeZQXMLParserHandleInternal(&handle, 0);
  return 0;
}
