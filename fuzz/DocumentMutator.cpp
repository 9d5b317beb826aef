// Mutations of documents by their elements, beside those of libFuzzer by bytes: most of the latter
// leave a document that isn't well-formed, and what lies behind the first fault of a document is
// never read.

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "xml/ZQXMLTagHash.h"

extern "C" {
size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);
size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed);
size_t LLVMFuzzerCustomCrossOver(const uint8_t* first, size_t firstSize, const uint8_t* second,
                                 size_t secondSize, uint8_t* out, size_t maxSize, unsigned seed);
}

namespace {

using Random = std::minstd_rand;

// Where an element and what is in it begin and end; an empty-element tag has nothing in it.
struct Element {
  size_t begin;
  size_t contentBegin;
  size_t contentEnd;
  size_t end;
};

size_t nameEnd(const std::string& text, size_t begin) {
  const size_t end = text.find_first_of(" \t\r\n/>", begin);
  return end == std::string::npos ? text.size() : end;
}

// The elements of a text, as far as its tags fit one another.
std::vector<Element> elementsOf(const std::string& text) {
  std::vector<Element> elements;
  std::vector<size_t> open;
  for (size_t begin = text.find('<'); begin != std::string::npos;
       begin = text.find('<', begin + 1)) {
    const size_t close = text.find('>', begin);
    if (close == std::string::npos) {
      break;
    }
    if (text[begin + 1] == '/') {
      if (!open.empty()) {
        elements[open.back()].contentEnd = begin;
        elements[open.back()].end = close + 1;
        open.pop_back();
      }
    } else if (text[begin + 1] != '?' && text[begin + 1] != '!') {
      elements.push_back({begin, close + 1, close + 1, close + 1});
      if (text[close - 1] != '/') {
        open.push_back(elements.size() - 1);
      }
    }
  }
  return elements;
}

template <typename List>
auto& anyOf(List& list, Random& random) {
  return list[random() % std::size(list)];
}

std::string anyWord(Random& random) {
  return std::string(tagText(1 + static_cast<int>(random() % tag_year)));
}

std::string anyText(Random& random) {
  static const std::string kTexts[] = {"",  "0",  "-1",   "4294967295", "2024-03-01T09:15:00Z",
                                       "1", "12", "true", "none",       "&#xE9;&lt;"};
  return random() % 2 == 0 ? anyWord(random) : anyOf(kTexts, random);
}

void rename(std::string& text, const Element& element, const std::string& name) {
  if (element.contentEnd < element.end) {
    const size_t begin = element.contentEnd + 2;
    text.replace(begin, nameEnd(text, begin) - begin, name);
  }
  const size_t begin = element.begin + 1;
  text.replace(begin, nameEnd(text, begin) - begin, name);
}

// Puts an element before, behind or into another.
void insert(std::string& text, const Element& place, const std::string& element, Random& random) {
  const size_t places[] = {place.begin, place.contentBegin, place.contentEnd, place.end};
  text.insert(anyOf(places, random), element);
}

std::string textOf(const std::string& text, const Element& element) {
  return text.substr(element.begin, element.end - element.begin);
}

void change(std::string& text, const std::vector<Element>& elements, Random& random) {
  const Element& element = anyOf(elements, random);
  switch (random() % 7) {
    case 0:
      rename(text, element, anyWord(random));
      break;
    case 1:
      text.erase(element.begin, element.end - element.begin);
      break;
    case 2:
      insert(text, element, textOf(text, anyOf(elements, random)), random);
      break;
    case 3: {
      const std::string name = anyWord(random);
      insert(text, element, "<" + name + ">" + anyText(random) + "</" + name + ">", random);
      break;
    }
    case 4: {
      const std::string name = anyWord(random);
      text.insert(element.end, "</" + name + ">");
      text.insert(element.begin, "<" + name + ">");
      break;
    }
    case 5:
      text.replace(element.contentBegin, element.contentEnd - element.contentBegin,
                   anyText(random));
      break;
    default:
      text.insert(nameEnd(text, element.begin + 1),
                  " " + anyWord(random) + "=\"" + anyText(random) + "\"");
  }
}

size_t stored(const std::string& text, uint8_t* out) {
  memcpy(out, text.data(), text.size());
  return text.size();
}

}  // namespace

size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed) {
  Random random(seed);
  std::string text(reinterpret_cast<const char*>(data), size);
  const std::vector<Element> elements = elementsOf(text);
  if (!elements.empty() && random() % 4 != 0) {
    change(text, elements, random);
    if (text.size() <= maxSize) {
      return stored(text, data);
    }
  }
  return LLVMFuzzerMutate(data, size, maxSize);
}

// An element of the one document is put into the other.
size_t LLVMFuzzerCustomCrossOver(const uint8_t* first, size_t firstSize, const uint8_t* second,
                                 size_t secondSize, uint8_t* out, size_t maxSize, unsigned seed) {
  Random random(seed);
  std::string text(reinterpret_cast<const char*>(first), firstSize);
  const std::string other(reinterpret_cast<const char*>(second), secondSize);
  const std::vector<Element> places = elementsOf(text);
  const std::vector<Element> elements = elementsOf(other);
  if (places.empty() || elements.empty()) {
    return 0;
  }
  insert(text, anyOf(places, random), textOf(other, anyOf(elements, random)), random);
  return text.size() <= maxSize ? stored(text, out) : 0;
}
