// What the targets over definition documents share: the parser, and what a parse gives out.
#ifndef ZQXML_FUZZ_DOCUMENTS_H
#define ZQXML_FUZZ_DOCUMENTS_H

#include <zqxml/zqxml.h>

#include "fuzz/Failure.h"
#include "fuzz/Input.h"
#include "records/verbs.h"

namespace fuzz {

// To be called first in each run: makes the parser anew from time to time.
void beginRun();

// The parser of all runs.
ZQXMLParserHandle* parser();

// What ParseXMLDocument gives out.
class Parsed {
 public:
  Parsed() = default;
  Parsed(const Parsed&) = delete;
  Parsed& operator=(const Parsed&) = delete;
  ~Parsed();

  void parse(const Text& text, ZQStructItemList* selection = nullptr);

  ZQXMLParsedStream stream = {};
  ZQStructItemList objects = {};
  ZQStatusList status = {};
  int result = 0;
};

// Whether two lists of objects are the same.
bool isSame(const ZQStructItemList& one, const ZQStructItemList& other);

}  // namespace fuzz

#endif
