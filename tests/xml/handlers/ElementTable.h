// The children of an element, each with what it does to the record, and every document that can be
// made of them: in any order, left out, repeated, with their texts in pieces.
#ifndef ZQXML_TESTS_XML_HANDLERS_ELEMENTTABLE_H
#define ZQXML_TESTS_XML_HANDLERS_ELEMENTTABLE_H

#include <algorithm>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "xml/handlers/HandlerReader.h"

template <typename Record>
struct Child {
  using Effect = std::function<void(Record&)>;

  Child(std::string element, Effect once) : xml(std::move(element)), effect(std::move(once)) {}
  Child(std::string element, Effect once, Effect secondTime)
      : xml(std::move(element)), effect(std::move(once)), twice(std::move(secondTime)) {}

  std::string xml;
  Effect effect;
  // What it does when it comes twice, if that is something else: texts that join.
  Effect twice;
};

// Each text of a document in pieces: plain, in a CDATA section, as a reference, and with comments
// between them. References of the document stay whole.
std::string inPieces(const std::string& document);

// Line breaks and tabs between elements, but not within one that is empty.
std::string spacedOut(const std::string& document);

template <typename Reader>
class ElementTable {
 public:
  using Record = typename Reader::Record;

  // The host's tags, the children in the writer's order, and the record without any of them.
  ElementTable(Reader& handlerReader, std::string startTag, std::string endTag,
               std::vector<Child<Record>> rows, Record none = {})
      : reader(handlerReader),
        start(std::move(startTag)),
        end(std::move(endTag)),
        children(std::move(rows)),
        empty(none) {}

  // Runs them all.
  void expectAll() {
    expectEverySelection();
    expectEveryOrder();
    expectRepeated();
    expectPieces();
  }

  void expectEverySelection() {
    for (size_t selection = 0; selection < size_t{1} << children.size(); ++selection) {
      std::string document = start;
      Record expected = empty;
      for (size_t i = 0; i < children.size(); ++i) {
        if ((selection >> i & 1) != 0) {
          document += children[i].xml;
          children[i].effect(expected);
        }
      }
      expectRead(reader, document + end, expected);
    }
  }

  void expectEveryOrder() {
    std::vector<size_t> order(children.size());
    std::iota(order.begin(), order.end(), 0);
    const Record expected = withAll();
    do {
      std::string document = start;
      for (const size_t i : order) {
        document += children[i].xml;
      }
      expectRead(reader, document + end, expected);
    } while (std::next_permutation(order.begin(), order.end()));
  }

  // Each child twice, one behind the other and with all others between.
  void expectRepeated() {
    for (size_t i = 0; i < children.size(); ++i) {
      const Child<Record>& child = children[i];
      Record expected = withAll();
      if (child.twice != nullptr) {
        child.twice(expected);
      }
      std::string together = start;
      for (size_t j = 0; j < children.size(); ++j) {
        together += children[j].xml + (j == i ? child.xml : "");
      }
      expectRead(reader, together + end, expected);
      expectRead(reader, start + child.xml + all() + end, expected);
      expectRead(reader, start + all() + child.xml + end, expected);
    }
  }

  void expectPieces() {
    const std::string document = start + all() + end;
    expectRead(reader, inPieces(document), withAll());
    expectRead(reader, spacedOut(document), withAll());
    expectRead(reader, spacedOut(inPieces(document)), withAll());
  }

 private:
  std::string all() const {
    std::string content;
    for (const Child<Record>& child : children) {
      content += child.xml;
    }
    return content;
  }

  Record withAll() const {
    Record record = empty;
    for (const Child<Record>& child : children) {
      child.effect(record);
    }
    return record;
  }

  Reader& reader;
  std::string start;
  std::string end;
  std::vector<Child<Record>> children;
  Record empty;
};

#endif
