// What the writers write, by all roads: text sink, DOM sink, exported builder.
#ifndef ZQXML_TESTS_XML_WRITERS_WRITTEN_H
#define ZQXML_TESTS_XML_WRITERS_WRITTEN_H

#include <functional>
#include <string>
#include <xercesc/dom/DOM.hpp>

#include "xml/ElementSink.h"
#include "zqxml/builders.hpp"

using Write = std::function<int(ElementSink&)>;
using Build = std::function<int(xercesc::DOMDocument*, xercesc::DOMElement*)>;

// Puts the line breaks and tabs of the layout into a text that has none: "<a><b>x</b></a>".
std::string laidOut(const std::string& compact, int level = 0);

// The content of a "root" element with its layout, by the text sink and by an exported builder; the
// result must be 0.
std::string writtenText(const Write& write);
std::string builtText(const Build& build);

// Expects that content, without its layout, of all roads. A null `build` leaves the builder out.
void expectWritten(const Write& write, const Build& build, const std::string& content);

// For a writer and a builder of one record.
template <typename Record>
void expectRecord(int (*write)(ElementSink&, const Record*),
                  int (*build)(xercesc::DOMDocument*, xercesc::DOMElement*, const Record*),
                  const Record* record, const std::string& content) {
  expectWritten([=](ElementSink& sink) { return write(sink, record); },
                [=](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
                  return build(document, parent, record);
                },
                content);
}

// Fails every allocation of a builder in turn: the result must be 300, and 0 once none fails.
// Returns how many failed.
long expectFailuresGive300(const Build& build);

// Texts of records, which are not const.
inline char* mutableText(const char* text) {
  return const_cast<char*>(text);
}

#endif
