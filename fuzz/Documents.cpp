#include "fuzz/Documents.h"

namespace fuzz {

namespace {

ZQXMLParserHandle gParser = {};

}  // namespace

void beginRun() {
  constexpr int kRunsOfAParser = 20000;
  static int runs = 0;
  if (runs == 0) {
    ZQOpenSharedCatalog();
  }
  if (runs++ % kRunsOfAParser == 0) {
    FreeZQXMLParserHandleInternal(&gParser, 0);
    require(CreateXMLParserHandle(&gParser, nullptr) == 0, "a parser can be made");
  }
}

ZQXMLParserHandle* parser() {
  return &gParser;
}

Parsed::~Parsed() {
  // The contract leaves some blocks to the process; here they'd hide what is really lost.
  const records::Unwinding unwinding;
  FreeZQXMLParsedStreamInternal(&stream, 0);
  FreeZQStructItemList(&objects, 0);
  FreeZQStatusList(&status, 0);
}

void Parsed::parse(const Text& text, ZQStructItemList* selection) {
  const ZQXMLInputDoc document = {ZQXML_INPUT_MEMORY, text};
  result = ParseXMLDocument(parser(), &document, selection, &stream, &objects, &status);
}

bool isSame(const ZQStructItemList& one, const ZQStructItemList& other) {
  if (one.numItems != other.numItems) {
    return false;
  }
  for (uint32_t i = 0; i < one.numItems; ++i) {
    if (one.items[i].itemType != other.items[i].itemType ||
        strcmp(one.items[i].name, other.items[i].name) != 0) {
      return false;
    }
  }
  return true;
}

}  // namespace fuzz
