#include "xml/ElementSink.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>
#include <string>

#include "xml/DOMTree.h"
#include "xml/ZQXMLTagHash.h"
#include "zqxml/builders.hpp"

namespace {

using Writer = std::function<void(ElementSink&)>;

std::string asText(int level, const Writer& write) {
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  TextSink sink(text, level);
  write(sink);
  return static_cast<char*>(text);
}

std::string asTree(int level, const Writer& write) {
  const DOMTree tree("scratch");
  DOMSink sink(tree.get(), tree.root());
  write(sink);
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  EXPECT_EQ(PrintDOMNode(level, tree.root()->getFirstChild(), text), 0);
  return static_cast<char*>(text);
}

void expectBoth(int level, const Writer& write, const std::string& expected) {
  EXPECT_EQ(asText(level, write), expected);
  EXPECT_EQ(asTree(level, write), expected);
}

TEST(ElementSink, Elements) {
  expectBoth(
      1, [](ElementSink& sink) { sink.element(tag_owner, "a & b"); },
      "\t<owner>a &amp; b</owner>\n");
  expectBoth(
      0, [](ElementSink& sink) { sink.element(tag_owner, ""); }, "<owner/>\n");
  expectBoth(
      0, [](ElementSink& sink) { sink.element(tag_owner, nullptr); }, "<owner/>\n");
}

TEST(ElementSink, AnEmptyTextIsContent) {
  expectBoth(
      0,
      [](ElementSink& sink) {
        sink.open(tag_code);
        sink.text("");
        sink.close();
      },
      "<code></code>\n");
}

TEST(ElementSink, WordsOfTheFormat) {
  expectBoth(
      0,
      [](ElementSink& sink) {
        sink.open(tag_filter);
        sink.signedElement(tag_tag, -1);
        sink.signedElement(tag_tag, INT32_MIN);
        sink.unsignedElement(tag_fieldID, 4294967295U);
        sink.unsignedElement(tag_fieldID, 0);
        sink.booleanElement(tag_enabled, true);
        sink.booleanElement(tag_enabled, false);
        sink.wordElement(tag_sortOrder, tag_ascending);
        sink.close();
      },
      "<filter>\n\t<tag>-1</tag>\n\t<tag>-2147483648</tag>\n\t<fieldID>4294967295</fieldID>\n"
      "\t<fieldID>0</fieldID>\n\t<enabled>true</enabled>\n\t<enabled>false</enabled>\n"
      "\t<sortOrder>ascending</sortOrder>\n</filter>\n");
}

TEST(ElementSink, OptionalElements) {
  expectBoth(
      0,
      [](ElementSink& sink) {
        sink.open(tag_filter);
        sink.emptyElement(tag_sort);
        sink.elementUnlessNull(tag_topic, nullptr);
        sink.elementUnlessNull(tag_topic, "");
        sink.elementUnlessNull(tag_topic, "t");
        sink.elementUnlessEmpty(tag_item, nullptr);
        sink.elementUnlessEmpty(tag_item, "");
        sink.elementUnlessEmpty(tag_item, "i");
        sink.wordElement(tag_focus, 0);
        sink.signedElement(tag_tag, 4294967295U);
        sink.close();
      },
      "<filter>\n\t<sort/>\n\t<topic/>\n\t<topic>t</topic>\n\t<item>i</item>\n\t<focus/>\n"
      "\t<tag>-1</tag>\n</filter>\n");
}

TEST(ElementSink, RealsWithTheirPrecision) {
  expectBoth(
      0,
      [](ElementSink& sink) {
        sink.open(tag_filter);
        sink.realElement(tag_min, 1.0 / 3);
        sink.realElement(tag_min, 1.0 / 3, 2);
        sink.realElement(tag_min, 2.5, 0);
        sink.realElement(tag_min, 2.5, -1);
        sink.close();
      },
      "<filter>\n\t<min>0.333333</min>\n\t<min>0.33</min>\n\t<min>2</min>\n\t<min>2</min>\n"
      "</filter>\n");
  for (const int precision : {16, 64, 1000}) {
    ZQGNString text;
    TextSink(text, 0).realElement(tag_min, -1.7976931348623157e308, precision);
    char digits[1400];
    snprintf(digits, sizeof digits, "<min>%.*f</min>\n", std::min(precision, 64),
             -1.7976931348623157e308);
    EXPECT_STREQ(static_cast<char*>(text), digits);
  }
}

TEST(ElementSink, ArraysWithoutTheirZeroAreCut) {
  const char whole[4] = "abc";
  const char open[4] = {'a', 'b', 'c', 'd'};
  const char early[4] = {'a', '\0', 'c', 'd'};
  expectBoth(
      0,
      [&](ElementSink& sink) {
        sink.open(tag_filter);
        sink.arrayElement(tag_code, whole);
        sink.arrayElement(tag_code, open);
        sink.arrayElement(tag_code, early);
        sink.arrayElement(tag_code, "");
        sink.within(tag_code, [&] { sink.arrayText(open); });
        sink.close();
      },
      "<filter>\n\t<code>abc</code>\n\t<code>abc</code>\n\t<code>a</code>\n\t<code/>\n"
      "\t<code>abc</code>\n</filter>\n");
}

TEST(ElementSink, AnElementWithABodyHandsItsResultOn) {
  expectBoth(
      0,
      [](ElementSink& sink) {
        EXPECT_EQ(sink.within(tag_and,
                              [&] {
                                sink.signedAttribute(tag_zqDocVersion, -7);
                                return sink.within(tag_left, [] { return 300; });
                              }),
                  300);
      },
      "<and zqDocVersion=\"-7\">\n\t<left/>\n</and>\n");
}

TEST(ElementSink, AttributesComeByName) {
  expectBoth(
      1,
      [](ElementSink& sink) {
        sink.open(tag_form);
        sink.attribute(tag_zqDocVersion, "1");
        sink.attribute(tag_xmlns_xsi, "i\"&");
        sink.attribute(tag_xmlns, "n");
        sink.attribute(tag_xsi_schemaLocation, nullptr);
        sink.element(tag_formName, "F");
        sink.close();
      },
      "\t<form xmlns=\"n\" xmlns:xsi=\"i\"&\" xsi:schemaLocation=\"\" zqDocVersion=\"1\">\n"
      "\t\t<formName>F</formName>\n\t</form>\n");
}

TEST(ElementSink, MixedContent) {
  expectBoth(
      0,
      [](ElementSink& sink) {
        sink.open(tag_value);
        sink.text("a");
        sink.element(tag_min, "b");
        sink.text("c");
        sink.close();
      },
      "<value>a\t<min>b</min>\nc</value>\n");
}

std::string randomBytes(std::mt19937& random) {
  std::string bytes;
  for (auto count = random() % 8; count > 0; --count) {
    bytes += static_cast<char>(random() % 255 + 1);
  }
  return bytes;
}

// The same element calls for both sinks, from a seed.
void writeRandomly(ElementSink& sink, std::mt19937& random, int depth) {
  static const char* const kTexts[] = {
      "", "text", "&<>\"'", "\x01\x1F\t\n", "\xC3\xA9\xE6\x97\xA5", nullptr};
  constexpr int kFirstPlainTag = 1;
  sink.open(kFirstPlainTag + static_cast<int>(random() % 600));
  for (const int attribute : {tag_xmlns, tag_zqDocVersion, tag_type, tag_xsi_type}) {
    if (random() % 4 == 0) {
      sink.attribute(attribute, randomBytes(random).c_str());
    }
  }
  for (auto count = random() % 4; count > 0; --count) {
    if (depth > 0 && random() % 2 == 0) {
      writeRandomly(sink, random, depth - 1);
    } else if (random() % 2 == 0) {
      sink.text(randomBytes(random).c_str());
    } else {
      sink.text(kTexts[random() % 6]);
    }
  }
  sink.close();
}

TEST(ElementSink, BothSinksGiveTheSameBytes) {
  for (unsigned seed = 0; seed < 5000; ++seed) {
    const Writer write = [seed](ElementSink& sink) {
      std::mt19937 random(seed);
      writeRandomly(sink, random, 6);
    };
    ASSERT_EQ(asText(static_cast<int>(seed % 3), write), asTree(static_cast<int>(seed % 3), write))
        << seed;
  }
}

// What is no UTF-8 would leave a document that can't be read.
TEST(ElementSink, BytesThatAreNoCharactersAreReplaced) {
  const struct {
    const char* text;
    const char* written;
  } rows[] = {
      {"caf\xE9", "caf\uFFFD"},
      {"\xFF<\xFE", "\uFFFD&lt;\uFFFD"},
      {"a\xE3\x81", "a\uFFFD\uFFFD"},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xC0\x80", "\uFFFD\uFFFD"},
      {"\u00E9\u3042\U0001F600\x1B", "\u00E9\u3042\U0001F600&#xF8FA;"},
  };
  for (const auto& row : rows) {
    expectBoth(
        0, [&](ElementSink& sink) { sink.element(tag_owner, row.text); },
        std::string("<owner>") + row.written + "</owner>\n");
  }
  expectBoth(
      0,
      [](ElementSink& sink) {
        sink.within(tag_changeEntry, [&] { sink.attribute(tag_userName, "caf\xE9"); });
      },
      "<changeEntry userName=\"caf\uFFFD\"/>\n");
}

TEST(ElementSink, LongTextsAreWhole) {
  const std::string content(100000, '<');
  const Writer write = [&content](ElementSink& sink) {
    sink.open(tag_form);
    for (int i = 0; i < 20; ++i) {
      sink.element(tag_helpText, content.c_str());
    }
    sink.close();
  };
  EXPECT_EQ(asText(0, write), asTree(0, write));
}

}  // namespace
