// Texts of documents that tests put together.
#ifndef ZQXML_TESTS_XML_DOCUMENTTEXT_H
#define ZQXML_TESTS_XML_DOCUMENTTEXT_H

#include <cstddef>
#include <string>

inline std::string repeated(const std::string& text, size_t count) {
  std::string result;
  for (size_t i = 0; i < count; ++i) {
    result += text;
  }
  return result;
}

// A document with declarations of its own and "<root>" around contents.
inline std::string withType(const std::string& declarations, const std::string& contents) {
  return "<!DOCTYPE root [" + declarations + "]>\n<root>" + contents + "</root>";
}

#endif
