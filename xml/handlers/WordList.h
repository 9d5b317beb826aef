// Texts that are lists of words, separated by single blanks.
#ifndef ZQXML_XML_HANDLERS_WORDLIST_H
#define ZQXML_XML_HANDLERS_WORDLIST_H

#include <string>

// Calls `visit` with each word. A blank at an end and a second one in a row make an empty word; an
// empty text has no words.
template <typename Visit>
void forEachWord(const std::string& text, Visit visit) {
  if (text.empty()) {
    return;
  }
  size_t begin = 0;
  for (;;) {
    const size_t end = text.find(' ', begin);
    visit(text.substr(begin, end - begin).c_str());
    if (end == std::string::npos) {
      return;
    }
    begin = end + 1;
  }
}

#endif
