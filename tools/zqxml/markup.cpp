#include "markup.h"

#include <strings.h>

#include <algorithm>

namespace {

// The columns that a byte takes: each unit of UTF-16 is one.
unsigned widthOf(unsigned char byte, bool isUtf8) {
  if (!isUtf8 || byte < 0x80) {
    return 1;
  }
  return byte >= 0xF0 ? 2 : byte >= 0xC0 ? 1 : 0;
}

// Follows the lines and columns of a text, as the XML parser counts them.
class Place {
 public:
  Place(const std::string& document, bool utf8) : text(document), isUtf8(utf8) {
    constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
    if (text.compare(0, 3, kByteOrderMark) == 0) {
      position = 3;
    }
  }

  void advanceTo(size_t end) {
    for (; position < end; ++position) {
      const auto byte = static_cast<unsigned char>(text[position]);
      if (byte == '\n' ? position == 0 || text[position - 1] != '\r' : byte == '\r') {
        ++line;
        column = 1;
      } else if (byte != '\n') {
        column += widthOf(byte, isUtf8);
      }
    }
  }

  uint64_t line = 1;
  uint64_t column = 1;

 private:
  const std::string& text;
  const bool isUtf8;
  size_t position = 0;
};

// Behind the tag that begins at `begin`: a ">" in an attribute's value doesn't end it.
size_t endOfTag(const std::string& text, size_t begin) {
  char quote = 0;
  for (size_t i = begin; i < text.size(); ++i) {
    if (quote != 0) {
      quote = text[i] == quote ? '\0' : quote;
    } else if (text[i] == '"' || text[i] == '\'') {
      quote = text[i];
    } else if (text[i] == '>') {
      return i + 1;
    }
  }
  return text.size();
}

size_t behind(const std::string& text, const char* mark, size_t from) {
  const size_t found = text.find(mark, from);
  return found == std::string::npos ? text.size() : found + std::string(mark).size();
}

bool startsWith(const std::string& text, size_t position, const char* mark) {
  return text.compare(position, std::string(mark).size(), mark) == 0;
}

// Behind a document type declaration with its internal subset.
size_t endOfDoctype(const std::string& text, size_t begin) {
  const size_t bracket = text.find_first_of("[>", begin);
  if (bracket == std::string::npos || text[bracket] == '>') {
    return behind(text, ">", begin);
  }
  return behind(text, ">", behind(text, "]", bracket));
}

}  // namespace

Markup::Markup(std::string given) : document(std::move(given)) {
  findTags();
}

void Markup::findTags() {
  tags.clear();
  Place place(document, isUtf8());
  std::vector<size_t> open;
  size_t begin = document.find('<');
  while (begin != std::string::npos) {
    size_t end;
    if (startsWith(document, begin, "<!--")) {
      end = behind(document, "-->", begin + 4);
    } else if (startsWith(document, begin, "<![CDATA[")) {
      end = behind(document, "]]>", begin);
    } else if (startsWith(document, begin, "<?")) {
      end = behind(document, "?>", begin);
    } else if (startsWith(document, begin, "<!")) {
      end = endOfDoctype(document, begin);
    } else {
      end = endOfTag(document, begin);
      place.advanceTo(end);
      const size_t self = tags.size();
      Tag tag = {Kind::Start, begin, end, place.line, place.column, self};
      if (startsWith(document, begin, "</")) {
        tag.kind = Kind::End;
        if (!open.empty()) {
          tag.partner = open.back();
          tags[tag.partner].partner = self;
          open.pop_back();
        }
      } else if (end >= 2 && document[end - 2] == '/') {
        tag.kind = Kind::Empty;
      } else {
        open.push_back(self);
      }
      tags.push_back(tag);
    }
    begin = document.find('<', end);
  }
}

bool Markup::isUtf8() const {
  const std::string declaration = document.substr(0, document.find("?>"));
  const size_t encoding = declaration.find("encoding=");
  return encoding == std::string::npos ||
         strncasecmp(declaration.c_str() + encoding + 10, "utf-8", 5) == 0;
}

bool Markup::takeOut(uint64_t line, uint64_t column, const std::string& attribute) {
  const auto at = std::find_if(tags.begin(), tags.end(), [&](const Tag& tag) {
    return tag.line == line && tag.column == column;
  });
  if (at == tags.end()) {
    return false;
  }
  if (!attribute.empty() && at->kind != Kind::End && blankAttribute(*at, attribute)) {
    return true;
  }
  const Tag& first = std::min(*at, tags[at->partner],
                              [](const Tag& a, const Tag& b) { return a.begin < b.begin; });
  const Tag& last = tags[first.partner];
  if (first.begin == tags.front().begin || (first.kind == Kind::Start && &last == &first)) {
    return false;
  }
  blank(first.begin, last.end);
  findTags();
  return true;
}

// Blanks take as many columns as what they replace.
void Markup::blank(size_t begin, size_t end) {
  const bool utf8 = isUtf8();
  std::string blanks;
  for (size_t i = begin; i < end; ++i) {
    const auto byte = static_cast<unsigned char>(document[i]);
    if (byte == '\n' || byte == '\r') {
      blanks += document[i];
    } else {
      blanks.append(widthOf(byte, utf8), ' ');
    }
  }
  document.replace(begin, end - begin, blanks);
}

// Walks the attributes, so that a value that looks like one doesn't count.
bool Markup::blankAttribute(const Tag& tag, const std::string& name) {
  constexpr char kSpace[] = " \t\r\n";
  size_t position = document.find_first_of(kSpace, tag.begin);
  while (position < tag.end) {
    const size_t begin = document.find_first_not_of(kSpace, position);
    const size_t open = document.find_first_of("\"'", begin);
    if (open >= tag.end) {
      return false;
    }
    const size_t close = document.find(document[open], open + 1);
    if (close >= tag.end) {
      return false;
    }
    const size_t nameEnd = document.find_first_of(" \t\r\n=", begin);
    if (document.compare(begin, nameEnd - begin, name) == 0) {
      blank(begin, close + 1);
      findTags();
      return true;
    }
    position = close + 1;
  }
  return false;
}
