// The words for kinds of objects and containers.
#ifndef ZQXML_TOOLS_KINDS_H
#define ZQXML_TOOLS_KINDS_H

#include <cstdint>
#include <string>
#include <vector>

// The word for a kind of object, which is the name of its element; empty for an unknown one.
std::string kindWord(uint32_t kind);

// The words for all kinds that a list can hold, and their numbers.
struct Kind {
  const char* word;
  uint32_t number;
};
const std::vector<Kind>& listedKinds();

// The word for the type of a container; empty if there is none.
std::string containerTypeWord(uint32_t subType);

#endif
