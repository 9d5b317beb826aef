// What several tables of scenarios use.
#ifndef ZQXML_TESTS_FAULT_SUPPORT_H
#define ZQXML_TESTS_FAULT_SUPPORT_H

#include <fstream>
#include <sstream>
#include <string>

#include "xml/Listing.h"
#include "zqxml/multibyte.h"

namespace fault {

// A folder for the files of all scenarios.
inline const TestFolder& folder() {
  static const TestFolder made;
  return made;
}

inline std::string contentOf(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// The native code set while it lives.
class NativeCodeSet {
 public:
  explicit NativeCodeSet(int codeSet) : old(InitMbutilExt(codeSet)) {}
  NativeCodeSet(const NativeCodeSet&) = delete;
  NativeCodeSet& operator=(const NativeCodeSet&) = delete;
  ~NativeCodeSet() { InitMbutilExt(old); }

 private:
  int old;
};

}  // namespace fault

#endif
