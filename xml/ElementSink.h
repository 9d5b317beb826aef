// Where a writer's elements go. Each element of the format is written by one function against this
// interface, and goes either into a DOM tree or straight into text.
#ifndef ZQXML_XML_ELEMENTSINK_H
#define ZQXML_XML_ELEMENTSINK_H

#include <cstdint>
#include <string>
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
  void signedElement(int tag, int32_t value);
  void unsignedElement(int tag, uint32_t value);
  void booleanElement(int tag, bool value);
  // The text is the word of a tag.
  void wordElement(int tag, int word);
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

// Appends elements to a text in the layout of PrintDOMNode. The text is complete once the outermost
// element is closed. Throws ZQXMLException 300 or std::bad_alloc.
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
