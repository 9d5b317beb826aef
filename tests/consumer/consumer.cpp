// A program outside the tree: lists the objects of the document that it is given.
#include <zqxml/zqxml.h>

#include <cstdio>

int main(int argc, char** argv) {
  ZQXMLInputDoc doc = {ZQXML_INPUT_FILE, argc > 1 ? argv[1] : nullptr};
  ZQXMLParserHandle parser = {nullptr};
  ZQUnsignedIntList kinds, types;
  ZQNameList names;
  int result = CreateXMLParserHandle(&parser, nullptr);
  result |= GetListXMLObjects(&parser, &doc, &kinds, &names, &types, nullptr);
  for (uint32_t i = 0; i < names.numItems; i++)
    std::printf("%#x %s\n", static_cast<unsigned>(kinds.items[i]), names.items[i]);
  FreeZQUnsignedIntList(&kinds, 0);
  FreeZQUnsignedIntList(&types, 0);
  FreeZQNameList(&names, 0);
  FreeZQXMLParserHandleInternal(&parser, 0);
  return result;
}
