// The code sets as the tool names them.
#ifndef ZQXML_TOOLS_CODESETS_H
#define ZQXML_TOOLS_CODESETS_H

#include <span>
#include <string>

struct CodeSet {
  int number;
  const char* name;
};

std::span<const CodeSet> allCodeSets();

// The MIME charset; empty if the library has none.
std::string charsetOf(int number);

// By number, name or charset; null if there is none.
const CodeSet* findCodeSet(const std::string& word);

// A check for an option: what is wrong with a word, or nothing.
std::string faultOfCodeSet(const std::string& word);

// Empty for a number without a name.
const char* nameOf(int number);

#endif
