// Every word of the vocabulary at one place of a handler: as a child element, as the host of a text
// and as an attribute. What the place accepts is told; all else has to be refused with the exact
// message, and the next document on the same handler has to be read as ever.
#ifndef ZQXML_TESTS_XML_HANDLERS_TAGSWEEP_H
#define ZQXML_TESTS_XML_HANDLERS_TAGSWEEP_H

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "xml/Vocabulary.h"
#include "xml/handlers/HandlerReader.h"

enum class Accepts {
  Text,        // an element with a text, which shows in the record
  UnseenText,  // one whose text doesn't show in the record alone
  Nothing,     // one whose text is dropped
  Word,        // neither no text nor the text "7" is one of its words: 8943 at its end
  HostWord,    // the same at the end of the host
  EmptyOnly,   // no text is fine, and "7" is refused at the end of the host
  EndsHost,    // another name of the host: the handler's end. That of the host itself is refused
};

// Names, separated by blanks, and how they are accepted.
struct AcceptRow {
  Accepts how;
  const char* names;
};

struct SweepPlace {
  // What stands ahead of the element and behind it: the tags of the host, which may have content.
  std::string before;
  std::string after;
  std::vector<AcceptRow> accepted;
  // The names of attributes by the element that has a list of them; others ignore attributes.
  std::map<std::string, std::set<std::string>> attributes = {};
};

template <typename Reader>
class TagSweep {
 public:
  TagSweep(Reader& handlerReader, SweepPlace sweepPlace, const std::string& goodDocument)
      : reader(handlerReader), place(std::move(sweepPlace)), good(goodDocument) {
    goodReading = reader.read(good);
    EXPECT_EQ(goodReading.number, 0) << goodReading.text;
    plainReading = reader.read(place.before + place.after);
    for (const AcceptRow& row : place.accepted) {
      std::istringstream names(row.names);
      for (std::string name; names >> name;) {
        EXPECT_TRUE(vocabulary().contains(name)) << name;
        EXPECT_TRUE(accepted.emplace(name, row.how).second) << name;
      }
    }
    for (const auto& [name, id] : vocabulary()) {
      names_.push_back(name);
    }
    names_.push_back("bogus");
    EXPECT_EQ(names_.size(), 657U);
  }

  void expectAll() {
    expectChildren();
    expectTextInHost();
    expectAttributes();
  }

  void expectChildren() {
    for (const std::string& name : names_) {
      const Expectation empty = expectationOf(name, "");
      expect(empty);
      const Expectation full = expectationOf(name, "7");
      const Reading reading = expect(full);
      if (!accepted.contains(name) || reading.number != 0) {
        continue;
      }
      const std::string withoutText = reader.read(empty.document).record;
      switch (accepted.at(name)) {
        case Accepts::Text:
          EXPECT_NE(reading.record, withoutText) << full.document;
          break;
        case Accepts::Nothing:
          EXPECT_EQ(reading.record, withoutText) << full.document;
          break;
        default:
          break;
      }
    }
  }

  void expectTextInHost() {
    const Reading reading = reader.read(place.before + "7<!-- -->8" + place.after);
    EXPECT_EQ(reading.number, plainReading.number);
    EXPECT_EQ(reading.record, plainReading.record);
  }

  // Attributes of each accepted child, and of the outermost element.
  void expectAttributes() {
    for (const auto& [element, how] : accepted) {
      const std::string start = place.before + "<" + element;
      expectAttributesOf(element, start, "></" + element + ">" + place.after,
                         expectationOf(element, ""));
    }
    const size_t nameEnd = place.before.find_first_of(" >");
    const std::string outermost = place.before.substr(1, nameEnd - 1);
    expectAttributesOf(outermost, place.before.substr(0, nameEnd),
                       place.before.substr(nameEnd) + place.after,
                       {place.before + place.after, plainReading.number, "", false});
  }

 private:
  struct Expectation {
    std::string document;
    int number;
    std::string text;
    bool withText = true;  // whether the text counts
  };

  Expectation expectationOf(const std::string& name, const std::string& text) const {
    const std::string start = place.before + "<" + name + ">";
    const std::string whole = start + text + "</" + name + ">";
    Expectation expected = {whole + place.after, 0, ""};
    const auto row = accepted.find(name);
    if (row == accepted.end()) {
      expected.number = ZQ_MESSAGE_ELEMENT_NOT_ALLOWED;
      expected.text = name + ", " + Marked::placeAt(start.size());
      return expected;
    }
    const size_t hostEnd = whole.size() + place.after.find('>') + 1;
    switch (row->second) {
      case Accepts::Word:
        expected.number = ZQ_MESSAGE_WORD_NOT_ALLOWED;
        expected.text = Marked::placeAt(whole.size());
        break;
      case Accepts::EmptyOnly:
        if (text.empty()) {
          break;
        }
        [[fallthrough]];
      case Accepts::HostWord:
        expected.number = ZQ_MESSAGE_WORD_NOT_ALLOWED;
        expected.text = Marked::placeAt(hostEnd);
        break;
      case Accepts::EndsHost:
        expected.number = ZQ_MESSAGE_ELEMENT_NOT_ALLOWED;
        expected.text =
            place.after.substr(2, place.after.find('>') - 2) + ", " + Marked::placeAt(hostEnd);
        break;
      default:
        break;
    }
    return expected;
  }

  Reading expect(const Expectation& expected) {
    Reading reading = reader.read(expected.document);
    EXPECT_EQ(reading.number, expected.number) << expected.document;
    if (expected.withText) {
      EXPECT_EQ(reading.text, expected.text) << expected.document;
    }
    if (reading.number != 0) {
      EXPECT_EQ(reader.read(good), goodReading) << "behind " << expected.document;
    }
    return reading;
  }

  // `without` is what is expected without an attribute; its text tells another column.
  void expectAttributesOf(const std::string& element, const std::string& start,
                          const std::string& rest, const Expectation& without) {
    const auto list = place.attributes.find(element);
    for (const std::string& name : names_) {
      const std::string attribute = " " + name + "=\"v\"";
      Expectation expected = without;
      expected.document = start + attribute + rest;
      expected.withText = false;
      if (list != place.attributes.end() && !list->second.contains(name)) {
        expected.number = ZQ_MESSAGE_ATTRIBUTE_NOT_ALLOWED;
        expected.text = name + ", " + Marked::placeAt(start.size() + attribute.size() + 1);
        expected.withText = true;
      }
      expect(expected);
    }
  }

  Reader& reader;
  SweepPlace place;
  std::string good;
  Reading goodReading;
  Reading plainReading;
  std::map<std::string, Accepts> accepted;
  std::vector<std::string> names_;
};

#endif
