// Where a writer's elements go. Each element of the format is written by one function against this
// interface, and goes either into a DOM tree or straight into text.
#ifndef ZQXML_XML_ELEMENTSINK_H
#define ZQXML_XML_ELEMENTSINK_H

#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

class ZQGNString;

class ElementSink {
 public:
  ElementSink() = default;
  ElementSink(const ElementSink&) = delete;
  ElementSink& operator=(const ElementSink&) = delete;
  virtual ~ElementSink() = default;

  // Names of elements and attributes are tags. Texts are in the local code page; null is the empty
  // text.
  virtual void open(int tag) = 0;
  // Attributes come ahead of all content of their element, each once, in any order.
  virtual void attribute(int tag, const char* value) = 0;
  // An empty text counts: an element with one prints as "<x></x>", one without content as "<x/>".
  virtual void text(const char* value) = 0;
  virtual void close() = 0;

  // Simple elements: an empty text is left out.
  void element(int tag, const char* value);
  void emptyElement(int tag) { element(tag, nullptr); }
  // Left out altogether for null, or for an empty text too.
  void elementUnlessNull(int tag, const char* value);
  void elementUnlessEmpty(int tag, const char* value);
  void signedElement(int tag, int32_t value);
  // A word of a record that is printed as a signed number.
  void signedElement(int tag, uint32_t value) { signedElement(tag, static_cast<int32_t>(value)); }
  void unsignedElement(int tag, uint32_t value);
  // With so many digits behind the point, which is one in every locale.
  void realElement(int tag, double value, int precision = 6);
  void booleanElement(int tag, bool value);
  // The text is the word of a tag; none for a number that is no tag.
  void wordElement(int tag, int word);

  // A fixed array of a record: should it lack its zero, all but the last byte is its text.
  template <size_t Size>
  void arrayElement(int tag, const char (&array)[Size]) {
    element(tag, ArrayText(array).get());
  }
  template <size_t Size>
  void arrayText(const char (&array)[Size]) {
    text(ArrayText(array).get());
  }

  void signedAttribute(int tag, int32_t value);

  // An element with what `body` puts into it. The result is that of `body`.
  template <typename Body>
  auto within(int tag, Body body) {
    open(tag);
    if constexpr (std::is_void_v<decltype(body())>) {
      body();
      close();
    } else {
      const auto result = body();
      close();
      return result;
    }
  }

 private:
  template <size_t Size>
  class ArrayText {
   public:
    explicit ArrayText(const char (&array)[Size]) : whole(array) {
      if (memchr(array, '\0', Size) == nullptr) {
        memcpy(cut, array, Size - 1);
        cut[Size - 1] = '\0';
        whole = cut;
      }
    }
    const char* get() const { return whole; }

   private:
    const char* whole;
    char cut[Size];
  };
};

// Builds elements below `parent`. DOM exceptions pass through.
class DOMSink : public ElementSink {
 public:
  DOMSink(xercesc::DOMDocument* owner, xercesc::DOMNode* parent)
      : document(owner), current(parent) {}

  void open(int tag) override;
  void attribute(int tag, const char* value) override;
  void text(const char* value) override;
  void close() override;

 private:
  xercesc::DOMDocument* document;
  xercesc::DOMNode* current;
};

// Appends elements to a text in the layout of PrintDOMNode, with the same bytes as a tree would
// have: those that are no characters are replaced. The text is complete once the outermost element
// is closed. Throws ZQXMLException 300 or std::bad_alloc.
class TextSink : public ElementSink {
 public:
  TextSink(ZQGNString& text, int tabs) : target(text), level(tabs) {}

  void open(int tag) override;
  void attribute(int tag, const char* value) override;
  void text(const char* value) override;
  void close() override;

 private:
  enum class Content { None, TextFirst, ElementFirst };

  struct OpenElement {
    int tag;
    Content content;
  };

  struct Attribute {
    int tag;
    std::string value;
  };

  void beginContent(Content first);
  void appendAttributes();
  void indent();
  void flush();

  ZQGNString& target;
  int level;
  std::vector<OpenElement> openElements;
  std::vector<Attribute> attributes;
  std::string line;
};

#endif
