#include "xml/handlers/ElementTable.h"

namespace {

// The end of a tag, a reference or a single character of text.
size_t endOfUnit(const std::string& document, size_t at) {
  if (document[at] == '<') {
    return document.find('>', at) + 1;
  }
  if (document[at] == '&') {
    return document.find(';', at) + 1;
  }
  size_t end = at + 1;
  while (end < document.size() && (static_cast<unsigned char>(document[end]) & 0xC0) == 0x80) {
    ++end;
  }
  return end;
}

}  // namespace

std::string inPieces(const std::string& document) {
  std::string out;
  unsigned turn = 0;
  for (size_t at = 0; at < document.size();) {
    const size_t end = endOfUnit(document, at);
    const std::string unit = document.substr(at, end - at);
    at = end;
    const bool isText = unit[0] != '<' && unit[0] != '&';
    if (!isText) {
      out += unit;
    } else if (turn % 3 == 1 || unit.size() > 1) {
      out += "<![CDATA[" + unit + "]]>";
    } else if (turn % 3 == 2) {
      out += "&#" + std::to_string(static_cast<unsigned char>(unit[0])) + ";<!-- -->";
    } else {
      out += unit;
    }
    turn += isText ? 1 : 0;
  }
  return out;
}

std::string spacedOut(const std::string& document) {
  std::string out;
  bool afterStartTag = false;
  for (size_t at = 0; at < document.size(); ++at) {
    if (document[at] == '<') {
      const bool isEnd = document[at + 1] == '/';
      const bool isMarkup = document[at + 1] == '!';
      if (!out.empty() && out.back() == '>' && !isMarkup && !(afterStartTag && isEnd)) {
        out += "\n\t ";
      }
      const size_t close = document.find('>', at);
      afterStartTag = !isEnd && document[close - 1] != '/';
      out += document.substr(at, close - at + 1);
      at = close;
    } else {
      out += document[at];
      afterStartTag = false;
    }
  }
  return out;
}
