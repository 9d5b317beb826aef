// The multi-byte functions once more, slow and plain: a text is split into a list of characters,
// and each function works on the list.
#ifndef ZQXML_TESTS_TEXT_REFERENCE_H
#define ZQXML_TESTS_TEXT_REFERENCE_H

#include <random>
#include <string>
#include <vector>

// The code sets whose processes are multi-byte.
inline constexpr int kMultiByteCodeSets[] = {3, 4, 5, 7, 8, 9, 10, 11, 12, 13};

using Characters = std::vector<std::string>;

class Reference {
 public:
  explicit Reference(int codeSet);

  int longest() const;
  bool leads(int byte) const;
  int length(const std::string& text, size_t start, int count) const;
  Characters split(const std::string& text) const;

  int index(const std::string& text, int index) const;
  std::string copied(const std::string& text, int count, int* length) const;
  int compared(const std::string& left, const std::string& right) const;
  int comparedUpTo(const std::string& left, const std::string& right, int count) const;
  int comparedExactly(const std::string& left, const std::string& right, int count) const;
  std::string upper(const std::string& text) const;
  std::string lower(const std::string& text) const;

  // Positions in the text; -1 for none.
  int firstThatBeginsWith(const std::string& text, char byte) const;
  int lastThatBeginsWith(const std::string& text, char byte) const;
  int firstOf(const std::string& text, const std::string& set) const;
  int find(const std::string& haystack, const std::string& needle) const;
  int findLast(const std::string& haystack, const std::string& needle) const;
  int firstInvalid(const std::string& text) const;
  int firstInvalid(const std::string& text, int type) const;

  // Tokens as a program gets them that calls until there is none.
  std::vector<std::string> tokens(const std::string& text, const std::string& delimiters) const;

  // How much of a block read from `text` is delivered, for a block of `count` bytes.
  int delivered(const std::string& text, int count) const;

  // A character of the code set, or something that looks like one.
  std::string randomCharacter(std::mt19937& random) const;

 private:
  struct Range {
    int first;
    int last;
  };
  using Place = std::vector<Range>;  // what one byte may be
  using Form = std::vector<Place>;   // the bytes of a character

  static bool fits(const Place& place, int byte);
  const Form* formOf(int firstByte) const;
  bool isFound(const Characters& characters, size_t start, const std::string& needle) const;

  std::vector<Form> forms;
};

#endif
