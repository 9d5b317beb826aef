// Each kind of object that a chain holds, so that a test can run over all of them.
#ifndef ZQXML_TESTS_XML_HANDLERS_OBJECTKINDS_H
#define ZQXML_TESTS_XML_HANDLERS_OBJECTKINDS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "zqxml/records.h"

using AnyObject = decltype(ZQXMLObjectList::object);

// One kind of object: its member of the union, the place of its name, its Free function, and a call
// of its Get function that fills the members of a record for which `pick(index)` says yes.
struct ObjectKind {
  uint32_t number;
  const char* name;
  void (*build)(AnyObject&, uint32_t seed);
  char* (*nameOf)(AnyObject&);
  std::string (*dump)(const AnyObject&);
  void (*freeBlocks)(const AnyObject&);
  // What its Free function leaves allocated by contract.
  std::vector<void*> (*keptBlocks)(const AnyObject&);
  int (*get)(ZQXMLParsedStream*, const char*, AnyObject&, const std::vector<bool>&, ZQStatusList*);
  size_t outputs;
};

// In the order of the numbers.
const std::vector<ObjectKind>& objectKinds();

#endif
