#include "xml/ElementSink.h"

#include <algorithm>
#include <charconv>
#include <xercesc/dom/DOMText.hpp>

#include "xml/OutputContent.h"
#include "xml/ZQGNString.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/ZQXMLText.h"

namespace {

const char* orEmpty(const char* text) {
  return text != nullptr ? text : "";
}

// Decimal digits, whatever the locale.
class Digits {
 public:
  template <typename Number>
  explicit Digits(Number value) {
    *std::to_chars(text, text + sizeof text, value).ptr = '\0';
  }
  const char* get() const { return text; }

 private:
  char text[16];
};

}  // namespace

void ElementSink::element(int tag, const char* value) {
  open(tag);
  if (*orEmpty(value) != '\0') {
    text(value);
  }
  close();
}

void ElementSink::elementUnlessNull(int tag, const char* value) {
  if (value != nullptr) {
    element(tag, value);
  }
}

void ElementSink::elementUnlessEmpty(int tag, const char* value) {
  if (*orEmpty(value) != '\0') {
    element(tag, value);
  }
}

void ElementSink::signedElement(int tag, int32_t value) {
  element(tag, Digits(value).get());
}

void ElementSink::unsignedElement(int tag, uint32_t value) {
  element(tag, Digits(value).get());
}

void ElementSink::realElement(int tag, double value, int precision) {
  // The largest number has 309 digits ahead of the point.
  constexpr int kMaxPrecision = 64;
  char digits[400];
  *std::to_chars(digits, digits + sizeof digits - 1, value, std::chars_format::fixed,
                 std::clamp(precision, 0, kMaxPrecision))
       .ptr = '\0';
  element(tag, digits);
}

void ElementSink::signedAttribute(int tag, int32_t value) {
  attribute(tag, Digits(value).get());
}

void ElementSink::booleanElement(int tag, bool value) {
  wordElement(tag, value ? tag_true : tag_false);
}

void ElementSink::wordElement(int tag, int word) {
  element(tag, tagText(word).data());
}

void DOMSink::open(int tag) {
  current = current->appendChild(document->createElement(tagXMLText(tag)));
}

void DOMSink::attribute(int tag, const char* value) {
  static_cast<xercesc::DOMElement*>(current)->setAttribute(tagXMLText(tag),
                                                           ZQXMLFromLocal(orEmpty(value)).c_str());
}

void DOMSink::text(const char* value) {
  current->appendChild(document->createTextNode(ZQXMLFromLocal(orEmpty(value)).c_str()));
}

void DOMSink::close() {
  current = current->getParentNode();
}

void TextSink::open(int tag) {
  if (!openElements.empty()) {
    beginContent(Content::ElementFirst);
  }
  indent();
  line += '<';
  line += tagText(tag);
  openElements.push_back({tag, Content::None});
  ++level;
}

void TextSink::attribute(int tag, const char* value) {
  std::string room;
  attributes.push_back({tag, ZQXMLThroughUnits(orEmpty(value), room)});
}

void TextSink::text(const char* value) {
  beginContent(Content::TextFirst);
  std::string room;
  appendEscaped(ZQXMLThroughUnits(orEmpty(value), room), line);
}

void TextSink::close() {
  --level;
  const OpenElement element = openElements.back();
  if (element.content == Content::None) {
    appendAttributes();
    line += "/>\n";
  } else {
    if (element.content == Content::ElementFirst) {
      indent();
    }
    line += "</";
    line += tagText(element.tag);
    line += ">\n";
  }
  openElements.pop_back();
  constexpr size_t kFlushSize = 8000;
  if (openElements.empty() || line.size() > kFlushSize) {
    flush();
  }
}

// Ends the start tag ahead of the first content.
void TextSink::beginContent(Content first) {
  Content& content = openElements.back().content;
  if (content != Content::None) {
    return;
  }
  content = first;
  appendAttributes();
  line += first == Content::TextFirst ? ">" : ">\n";
}

// The DOM keeps attributes in the order of their names, and so does the text.
void TextSink::appendAttributes() {
  std::sort(attributes.begin(), attributes.end(),
            [](const Attribute& a, const Attribute& b) { return tagText(a.tag) < tagText(b.tag); });
  for (const Attribute& attribute : attributes) {
    line += ' ';
    line += tagText(attribute.tag);
    line += "=\"";
    line += attribute.value;
    line += '"';
  }
  attributes.clear();
}

void TextSink::indent() {
  line.append(static_cast<size_t>(std::max(level, 0)), '\t');
}

void TextSink::flush() {
  target += line.c_str();
  line.clear();
}
