// The tags of a document with their places, for taking a faulty part out of it.
#ifndef ZQXML_TOOLS_MARKUP_H
#define ZQXML_TOOLS_MARKUP_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class Markup {
 public:
  // The text is UTF-8 or has a byte per character, as its declaration says.
  explicit Markup(std::string document);

  const std::string& text() const { return document; }

  // Blanks out the element whose start or end tag ends at a place, as a message tells it; for a
  // start tag that has the attribute only that. Line ends stay, so that all other places do too.
  // Returns whether there was such an element below the outermost one.
  bool takeOut(uint64_t line, uint64_t column, const std::string& attribute);

 private:
  enum class Kind { Start, End, Empty };

  struct Tag {
    Kind kind;
    size_t begin;
    size_t end;
    uint64_t line;
    uint64_t column;
    size_t partner;  // the tag at the other end of the element
  };

  void findTags();
  bool isUtf8() const;
  void blank(size_t begin, size_t end);
  bool blankAttribute(const Tag& tag, const std::string& name);

  std::string document;
  std::vector<Tag> tags;
};

#endif
