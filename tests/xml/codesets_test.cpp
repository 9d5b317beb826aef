// Texts of a process whose code set is not UTF-8: one that the host has chosen, or that of a
// locale.

#include <gtest/gtest.h>
#include <stdlib.h>

#include <clocale>
#include <cstdio>
#include <string>

#include "fault/FailingAllocations.h"
#include "xml/DOMTree.h"
#include "xml/ElementSink.h"
#include "xml/Listing.h"
#include "xml/ZQGNString.h"
#include "xml/ZQXMLException.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/ZQXMLText.h"
#include "xml/handlers/ElementReaders.h"
#include "zqxml/builders.hpp"

namespace {

std::string toLocal(const std::u16string& text) {
  std::string result;
  ZQXMLToLocal(text.data(), text.size(), result);
  return result;
}

// A test of this program changes the state of the process and takes it back.
class CodeSets : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(InitXMLParser(nullptr), 0); }

  void TearDown() override {
    setenv("LC_ALL", "C", 1);
    unsetenv("LOCPATH");
    InitMbutil();
    ASSERT_EQ(toLocal(u"\u00e9"), "\xC3\xA9");
  }

  // Makes a locale and lets the process have it.
  static void useLocale(const std::string& language, const std::string& charset) {
    static const TestFolder folder;
    const std::string name = language + "." + charset;
    const std::string command = "localedef --no-archive -c -i " + language + " -f " + charset +
                                " " + folder.path() + "/" + name + " >/dev/null 2>&1";
    ASSERT_EQ(system(command.c_str()) & ~0x100, 0);
    setenv("LOCPATH", folder.path().c_str(), 1);
    setenv("LC_ALL", name.c_str(), 1);
    InitMbutil();
    ASSERT_EQ(setlocale(LC_ALL, nullptr), name);
  }
};

const struct {
  int codeSet;
  std::u16string units;
  std::string bytes;
} kTexts[] = {
    {1, u"caf\u00e9", "caf\xE9"},
    {2, u"\u20ac\u00e9", "\xA4\xE9"},
    {4, u"A\u65e5\u672cz", "A\xC6\xFC\xCB\xDCz"},
    {5, u"A\u65e5\u672cz", "A\x93\xFA\x96{z"},
    {7, u"\u4e2d\u6587", "\xD6\xD0\xCE\xC4"},
    {8, u"\u4e2d\u6587", "\xD6\xD0\xCE\xC4"},
    {9, u"\u4e2d\u6587", "\xA4\xA4\xA4\xE5"},
    {10, u"\u4e2d", "\xC4\xE3"},
    {12, u"\ud55c\uae00", "\xC7\xD1\xB1\xDB"},
    {13, u"\ud55c\uae00", "\xC7\xD1\xB1\xDB"},
    {14, u"\u010d", "\xE8"},
    {17, u"\u0436", "\xD6"},
    {18, u"\u0628", "\xC8"},
    {19, u"\u03b1", "\xE1"},
    {20, u"\u05d0", "\xE0"},
    {21, u"\u0131", "\xFD"},
    {23, u"\u010d", "\xE8"},
    {24, u"\u0436", "\xE6"},
    {25, u"\u03b1", "\xE1"},
    {65, u"\u00e9\u20ac", "\xC3\xA9\xE2\x82\xAC"},
    // Code set 0 is no choice: the locale's own stands.
    {0, u"\u00e9\u20ac", "\xC3\xA9\xE2\x82\xAC"},
    // A code set without a charset, and one whose texts have zeros, leave it as well.
    {22, u"\u00e9", "\xC3\xA9"},
    {64, u"\u00e9", "\xC3\xA9"},
    {1000, u"\u00e9", "\xC3\xA9"},
    {-1, u"\u00e9", "\xC3\xA9"},
};

TEST_F(CodeSets, TheHostsChoiceIsTheLocalCodePage) {
  for (const auto& row : kTexts) {
    InitMbutilExt(row.codeSet);
    EXPECT_EQ(toLocal(row.units), row.bytes) << row.codeSet;
    EXPECT_EQ(ZQXMLToLocal(row.units.c_str()), row.bytes) << row.codeSet;
    EXPECT_EQ(ZQXMLFromLocal(row.bytes.c_str()), row.units) << row.codeSet;
    EXPECT_EQ(ZQXMLShortText(row.units.c_str()).get(), row.bytes) << row.codeSet;
    EXPECT_EQ(toLocal(u"plain"), "plain");
    EXPECT_EQ(ZQXMLFromLocal("plain"), u"plain");
  }
}

TEST_F(CodeSets, LongTextsAreWhole) {
  for (const auto& row : kTexts) {
    InitMbutilExt(row.codeSet);
    for (const int count : {100, 1000, 5000, 20000}) {
      std::u16string units;
      std::string bytes;
      for (int i = 0; i < count; ++i) {
        units += row.units + u"-";
        bytes += row.bytes + "-";
      }
      EXPECT_TRUE(toLocal(units) == bytes) << row.codeSet << " " << count;
      EXPECT_TRUE(ZQXMLFromLocal(bytes.c_str()) == units) << row.codeSet << " " << count;
    }
  }
}

TEST_F(CodeSets, EscapeSequencesAreReadAndEndWithTheText) {
  InitMbutilExt(3);
  const std::string bytes = "A\x1B$BF|K\\\x1B(BZ";
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(toLocal(u"A\u65e5\u672cZ"), bytes);
    EXPECT_EQ(ZQXMLFromLocal(bytes.c_str()), u"A\u65e5\u672cZ");
    EXPECT_EQ(toLocal(u"\u65e5"), "\x1B$BF|\x1B(B");
    EXPECT_EQ(ZQXMLFromLocal("\x1B$BF|\x1B(B"), u"\u65e5");
  }
}

TEST_F(CodeSets, WhatTheCodeSetLacksHasASubstitute) {
  InitMbutilExt(1);
  const std::string bytes = toLocal(u"a\u65e5b");
  EXPECT_EQ(bytes.front(), 'a');
  EXPECT_EQ(bytes.back(), 'b');
  EXPECT_GE(bytes.size(), 3U);
}

TEST_F(CodeSets, ACutCharacterLeavesNothingBehindForTheNextText) {
  InitMbutilExt(4);
  const std::u16string first = ZQXMLFromLocal("abc\xC6");
  EXPECT_EQ(first.substr(0, 3), u"abc");
  EXPECT_EQ(ZQXMLFromLocal("\xC6\xFC"), u"\u65e5");
  EXPECT_EQ(ZQXMLFromLocal("abc\xC6"), first);
  EXPECT_EQ(ZQXMLFromLocal("\xCB\xDC"), u"\u672c");
  const std::string lone = toLocal({u'a', u'\u65e5', 0xD83D});
  EXPECT_EQ(lone.substr(0, 3), "a\xC6\xFC");
  EXPECT_EQ(toLocal(u"\u65e5"), "\xC6\xFC");
  EXPECT_EQ(toLocal({0xDE00, u'b'}).back(), 'b');
  EXPECT_EQ(toLocal({u'a', u'\u65e5', 0xD83D}), lone);
}

TEST_F(CodeSets, NamesAreListedInTheLocalCodePage) {
  const std::string document =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><root><form><formName>caf\xC3\xA9</formName>"
      "</form></root>";
  InitMbutilExt(1);
  EXPECT_EQ(list(document).text(), "0 | form caf\xE9 | ");
  InitMbutilExt(65);
  EXPECT_EQ(list(document).text(), "0 | form caf\xC3\xA9 | ");
}

TEST_F(CodeSets, NamesAreCutBetweenCharacters) {
  std::string contents;
  std::string name;
  for (int i = 0; i < 200; ++i) {
    contents += "\xE6\x97\xA5";
    name += "\xC6\xFC";
  }
  const std::string document = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><root><form><formName>";
  const std::string end = "</formName></form></root>";
  InitMbutilExt(4);
  EXPECT_EQ(list(document + contents + end).text(), "0 | form " + name.substr(0, 254) + " | ");
  // An odd number of bytes ahead: the 254th would be half a character.
  EXPECT_EQ(list(document + "a" + contents + end).text(),
            "0 | form a" + name.substr(0, 252) + " | ");
  InitMbutilExt(5);
  std::string shifted;
  for (int i = 0; i < 126; ++i) {
    shifted += "\x93\xFA";
  }
  EXPECT_EQ(list(document + "a" + contents + end).text(), "0 | form a" + shifted + " | ");
}

TEST_F(CodeSets, MessagesAreInTheLocalCodePage) {
  InitMbutilExt(17);
  EXPECT_STREQ(ZQXMLException(8941, u"\u0436").GetErrorMsg(), "<\xD6>");
}

TEST_F(CodeSets, PathsAreTakenAsTheyAre) {
  const TestFolder folder;
  const std::string path = folder.write("caf\xE9.xml", kGoodDocument);
  InitMbutilExt(1);
  EXPECT_EQ(listFile(path).text(), kGoodListing);
  EXPECT_EQ(listFile("file://" + folder.path() + "/caf%E9.xml").text(), kGoodListing);
}

// In Turkish locales a capital "I" isn't that of "i".
TEST_F(CodeSets, AddressesAreTheSameInEveryLocale) {
  const TestFolder folder;
  const std::string path = folder.write("document.xml", kGoodDocument);
  for (const char* charset : {"UTF-8", "ISO-8859-9"}) {
    useLocale("tr_TR", charset);
    for (const char* scheme : {"FILE:", "File://", "file://LOCALHOST"}) {
      EXPECT_EQ(listFile(scheme + path).text(), kGoodListing) << charset << " " << scheme;
    }
  }
}

// The transcoder of a code set is made when the first text needs it.
TEST_F(CodeSets, ATreeIsPrintedOrMemoryIsOut) {
  const DOMTree tree;
  tree.root()->appendChild(tree->createTextNode(u"\u65e5"));
  const long injected = fault::forEachFailure([&](auto arm) {
    InitMbutilExt(1);
    toLocal(u"\u00e9");
    InitMbutilExt(4);
    ZQGNString text;
    int result = 0;
    bool happened = false;
    {
      const auto failing = arm();
      result = PrintDOMNode(0, tree.root(), text);
      happened = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(result, happened ? 300 : 0);
    if (result == 0) {
      EXPECT_STREQ(text, "<root>\xC6\xFC</root>\n");
    }
    // The code set before it is still what it was.
    InitMbutilExt(1);
    EXPECT_EQ(toLocal(u"\u00e9"), "\xE9");
    return happened;
  });
  EXPECT_GT(injected, 2);
}

TEST_F(CodeSets, ALocalesOwnCodeSetIsTheLocalCodePage) {
  useLocale("en_US", "ISO-8859-1");
  EXPECT_EQ(toLocal(u"caf\u00e9"), "caf\xE9");
  EXPECT_EQ(ZQXMLFromLocal("caf\xE9"), u"caf\u00e9");
  useLocale("ru_RU", "ISO-8859-5");
  EXPECT_EQ(toLocal(u"\u0436"), "\xD6");
  EXPECT_EQ(ZQXMLFromLocal("\xD6"), u"\u0436");
  useLocale("ja_JP", "EUC-JP");
  EXPECT_EQ(toLocal(u"\u65e5"), "\xC6\xFC");
  EXPECT_EQ(ZQXMLFromLocal("\xC6\xFC"), u"\u65e5");
  useLocale("de_DE", "UTF-8");
  EXPECT_EQ(toLocal(u"\u65e5"), "\xE6\x97\xA5");
}

TEST_F(CodeSets, AHostsChoiceStandsOverTheLocale) {
  useLocale("ru_RU", "ISO-8859-5");
  InitMbutilExt(4);
  EXPECT_EQ(toLocal(u"\u65e5"), "\xC6\xFC");
  InitMbutilExt(0);
  EXPECT_EQ(toLocal(u"\u0436"), "\xD6");
}

// A document with one form, as the process writes it.
std::string documentWithForm(const std::string& name) {
  std::string document;
  ZQXMLOutputDoc part = {1, {}};
  const auto append = [&](int result) {
    EXPECT_EQ(result, 0);
    document += part.u.doc;
    FreeZQXMLOutputDocInternal(&part, 0);
  };
  append(SetDocHeaderToXML(&part, nullptr));
  ZQGNString form;
  TextSink sink(form, 1);
  sink.open(tag_form);
  sink.element(tag_formName, name.c_str());
  sink.close();
  document += form;
  append(SetDocFooterToXML(&part, nullptr));
  return document;
}

std::string declaredAsUtf8(const std::string& document) {
  char* result = nullptr;
  SetEncodingForXMLDoc(document.c_str(), 65, &result);
  EXPECT_NE(result, nullptr);
  const std::string text = result != nullptr ? result : "";
  free(result);
  return text;
}

TEST_F(CodeSets, WhatAProcessWritesReadsBack) {
  struct Case {
    const char* language;  // null for a locale without a code set of its own
    const char* charset;
    std::string name;
    const char* encoding;
    bool asUtf8;
  };
  const std::string utf8 = "caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC <\xF0\x9F\x98\x80> & \xE2\x82\xAC";
  for (const Case& each : {Case{nullptr, "C", utf8, "windows-1252", true},
                           Case{nullptr, "C.UTF-8", utf8, "windows-1252", true},
                           Case{"de_DE", "ISO-8859-1",
                                "stra\xDF"
                                "e <\xE4\xF6\xFC\xC4\xD6\xDC\xE9\xFF>",
                                "windows-1252", false},
                           Case{"ja_JP", "EUC-JP", "\xC6\xFC\xCB\xDC \xA5\xC6\xA5\xB9\xA5\xC8 <&>",
                                "euc-jp", false}}) {
    if (each.language != nullptr) {
      useLocale(each.language, each.charset);
    } else {
      setenv("LC_ALL", each.charset, 1);
      InitMbutil();
      ASSERT_STREQ(setlocale(LC_ALL, nullptr), each.charset);
    }
    const std::string written = documentWithForm(each.name);
    const std::string declaration =
        "<?xml version=\"1.0\" encoding=\"" + std::string(each.encoding) + "\"?>";
    EXPECT_EQ(written.substr(0, declaration.size() + 29), declaration + std::string(29, ' '));
    const std::string expected = "0 | form " + each.name + " | ";
    const std::string given = each.asUtf8 ? declaredAsUtf8(written) : written;
    EXPECT_EQ(list(given).text(), expected) << each.charset;
    if (each.asUtf8) {
      const std::string start = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<root>\n";
      EXPECT_EQ(given.substr(0, start.size()), start);
      // Deliberate: the header is that of the locale's name, not of the bytes.
      EXPECT_NE(list(written).text(), expected) << each.charset;
    }
  }
}

// Long names of a document are cut between characters.
TEST_F(CodeSets, NamesOfDefinitionsAreCutBetweenCharacters) {
  constexpr int kEucJp = 4;
  InitMbutilExt(kEucJp);
  const auto times = [](size_t count, const std::string& text) {
    std::string out;
    for (size_t i = 0; i < count; ++i) {
      out += text;
    }
    return out;
  };
  const std::string character = "\xE3\x81\x82";
  const std::string local = "\xA4\xA2";
  const auto document = [&](const std::string& form, const std::string& server) {
    return "<queryValue><formName>" + form + "</formName><serverName>" + server +
           "</serverName></queryValue>";
  };
  QueryReader queries;
  EXPECT_EQ(queries.read(document("a" + times(150, character), "a" + times(40, character))).number,
            0);
  EXPECT_EQ(queries.record().formName, "a" + times(126, local));
  EXPECT_EQ(queries.record().serverName, "a" + times(31, local));
  EXPECT_EQ(queries.read(document(times(150, character), times(40, character))).number, 0);
  EXPECT_EQ(queries.record().formName, times(127, local));
  EXPECT_EQ(queries.record().serverName, times(32, local));
  ValueReader values;
  EXPECT_EQ(
      values.read("<value><currency><code>" + times(2, character) + "</code></currency></value>")
          .number,
      0);
  EXPECT_EQ(values.record().u.currencyValue->currencyCode, local);
}

TEST_F(CodeSets, ARealHasAPointInEveryLocale) {
  useLocale("de_DE", "UTF-8");
  ZQGNString text;
  TextSink sink(text, 0);
  sink.realElement(tag_realValue, 0.5);
  EXPECT_STREQ(static_cast<char*>(text), "<realValue>0.500000</realValue>\n");
  ValueReader values;
  EXPECT_EQ(values.read("<value><realValue>0.5</realValue></value>").number, 0);
  EXPECT_EQ(values.record().u.realValue, 0.5);
}

}  // namespace
