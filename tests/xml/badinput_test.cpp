// Documents that are no good: each gives its record and leaves the handle as it was.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "xml/DocumentText.h"
#include "xml/Listing.h"

namespace {

// Generous, for builds with sanitizers on busy machines; a plain build takes some milliseconds.
constexpr double kSeconds = 20;

void expectParserError(const std::string& document) {
  const Listing listing = list(document);
  EXPECT_EQ(listing.text(), "2 |  | 2/8940 *") << document.substr(0, 200);
  EXPECT_LT(listing.seconds, kSeconds);
}

TEST(BadInput, MalformedDocumentsAre8940) {
  const char* documents[] = {
      "",
      " ",
      "\n\n",
      "text",
      "<",
      "<>",
      "< root/>",
      "<root",
      "<root>",
      "<root/",
      "</root>",
      "<root></Root>",
      "<root></root",
      "<root><a></root></a>",
      "<root><form></root>",
      "<root>&bogus;</root>",
      "<root>&amp</root>",
      "<root>&;</root>",
      "<root>& </root>",
      "<root>&#0;</root>",
      "<root>&#xFFFF;</root>",
      "<root>&#xD800;</root>",
      "<root>&#x110000;</root>",
      "<root>&#;</root>",
      "<root>&#x;</root>",
      "<root>]]></root>",
      "<root><![CDATA[</root>",
      "<root><![CDATA[x]]</root>",
      "<root><![cdata[x]]></root>",
      "<root><!-- -- --></root>",
      "<root><!-- </root>",
      "<root><!-></root>",
      "<root><?></root>",
      "<root><?x </root>",
      "<root><?xml version='1.0'?></root>",
      " <?xml version='1.0'?><root/>",
      "<?xml?><root/>",
      "<?xml version='2.0'?><root/>",
      "<?xml version='1.0' encoding='UTF-8' bogus='1'?><root/>",
      "<?xml version='1.0' standalone='maybe'?><root/>",
      "<?xml version='1.0'><root/>",
      "<root a/>",
      "<root a=/>",
      "<root a=1/>",
      "<root a='1/>",
      "<root a='1' a='2'/>",
      "<root a='1'b='2'/>",
      "<root a='<'/>",
      "<root a='&bogus;'/>",
      "<1root/>",
      "<-root/>",
      "<ro ot/>",
      "<root>\x01</root>",
      "<root>\x1F</root>",
      "<root>\xFF</root>",
      "<root>\xC3</root>",
      "<root>\xC0\x80</root>",
      "<root>\xED\xA0\x80</root>",
      "<root>\xF4\x90\x80\x80</root>",
      "<ro\x80t/>",
      "<!DOCTYPE><root/>",
      "<!DOCTYPE root",
      "<!DOCTYPE root [",
      "<!DOCTYPE root [<!ENTITY e>]><root/>",
      "<!DOCTYPE root [<!ENTITY e 'x]><root/>",
      "<!DOCTYPE root [<!BOGUS>]><root/>",
      "<!DOCTYPE root []><root>&e;</root>",
      "<!DOCTYPE root><!DOCTYPE root><root/>",
      "<!DOCTYPE root [<!ENTITY e '&e;'>]><root>&e;</root>",
      "<!DOCTYPE root [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><root>&a;</root>",
      "<!DOCTYPE root [<!ENTITY e '<a>'>]><root>&e;</root>",
  };
  for (const char* document : documents) {
    expectParserError(document);
  }
}

TEST(BadInput, UnknownAndEmptyEncodingsAre8940) {
  for (const char* encoding : {"bogus", "", " ", "UTF-99", "x-none", "8bit"}) {
    expectParserError("<?xml version=\"1.0\" encoding=\"" + std::string(encoding) + "\"?><root/>");
  }
}

TEST(BadInput, EveryBeginningOfADocumentIsAnErrorUntilItIsWhole) {
  const std::string documents[] = {
      kGoodDocument,
      "<!-- \xE2\x82\xAC --><root a='1' b=\"&lt;\"><form><formName>A&amp;B<![CDATA[x]]>&#233;"
      "<?pi data?></formName></form></root>",
      "<!DOCTYPE root [<!ENTITY e \"<form><formName>x</formName></form>\"><!ELEMENT root ANY>"
      "<!ATTLIST root a CDATA 'x'>]><root>&e;&e;</root>",
  };
  for (std::string document : documents) {
    document.erase(document.find_last_not_of('\n') + 1);
    EXPECT_EQ(list(document).result, 0);
    for (size_t length = 0; length < document.size(); ++length) {
      expectParserError(document.substr(0, length));
    }
  }
}

TEST(BadInput, AnExampleCutAnywhereIsAnError) {
  std::ifstream file(ZQXML_EXAMPLES_DIR "/containers.xml", std::ios::binary);
  std::ostringstream contents;
  contents << file.rdbuf();
  std::string document = contents.str();
  document.erase(document.find_last_not_of('\n') + 1);
  EXPECT_EQ(list(document).result, 0);
  ParserHandle handle;
  for (size_t length = 0; length < document.size(); ++length) {
    ASSERT_EQ(listWith(&handle, ZQXML_INPUT_MEMORY, document.substr(0, length)).text(),
              "2 |  | 2/8940 *")
        << length;
  }
  expectListsGoodDocument(&handle);
}

TEST(BadInput, EveryByteOfADocumentReplacedGivesAResultAndLeavesTheHandleGood) {
  ParserHandle handle;
  const std::string good = kGoodDocument;
  for (size_t place = 0; place < good.size(); ++place) {
    for (const char byte : {'<', '>', '&', '"', '\x01', '\x80', '\xFF', ' ', '/', 'x', ']'}) {
      std::string document = good;
      document[place] = byte;
      const Listing listing = listWith(&handle, ZQXML_INPUT_MEMORY, document);
      ASSERT_TRUE(listing.result == 0 || listing.result == 2) << document;
      ASSERT_EQ(listing.result == 2, listing.status.substr(0, 2) == "2/") << document;
    }
    expectListsGoodDocument(&handle);
  }
}

TEST(BadInput, UndeclaredPrefixesPass) {
  EXPECT_EQ(list("<root xsi:type='x' bogus:a='1'><bogus:thing/><form><odd:formName>X"
                 "</odd:formName><formName>A</formName></form></root>")
                .text(),
            "0 | form A | ");
  EXPECT_EQ(list("<x:root><form/></x:root>").text(), "0 |  | ");
  EXPECT_EQ(
      list("<root xmlns=''><form xmlns='urn:other'><formName>A</formName></form></root>").text(),
      "0 | form A | ");
}

TEST(BadInput, AMillionNestedElementsEndAtTheDepthLimit) {
  const std::string open = repeated("<a>", 1000000);
  for (const std::string& document :
       {"<root>" + open, "<root>" + open + repeated("</a>", 1000000) + "</root>"}) {
    const Listing listing = list(document);
    // The root and 999 elements fit; the place is just behind the next.
    EXPECT_EQ(listing.text(), "2 |  | 2/8944 line: 1, column " + std::to_string(7 + 3 * 1000));
    EXPECT_EQ(listing.place(), "1:3007");
    EXPECT_LT(listing.seconds, kSeconds);
  }
}

TEST(BadInput, AThousandNestedElementsPassAndOneMoreIs8944) {
  const auto nested = [](size_t inner) {
    return "<root>\n" + repeated("<a>", inner) + "<form><formName>A</formName></form>" +
           repeated("</a>", inner) + "</root>";
  };
  EXPECT_EQ(list(nested(997)).text(), "0 | form A | ");
  // The 1001st is the name of the form.
  const Listing listing = list(nested(998));
  const size_t column = 1 + 3 * 998 + 6 + 10;
  EXPECT_EQ(listing.text(), "2 |  | 2/8944 line: 2, column " + std::to_string(column));
  EXPECT_EQ(listing.place(), "2:" + std::to_string(column));
  // Elements without contents count too.
  EXPECT_EQ(
      list("<root>" + repeated("<a>", 998) + "<b/>" + repeated("</a>", 998) + "</root>").text(),
      "0 |  | ");
  EXPECT_EQ(
      list("<root>" + repeated("<a>", 999) + "<b/>" + repeated("</a>", 999) + "</root>").text(),
      "2 |  | 2/8944 line: 1, column " + std::to_string(7 + 3 * 999 + 4));
}

TEST(BadInput, TheDepthOfOneDocumentDoesNotCountInTheNext) {
  ParserHandle handle;
  const std::string deep = "<root>" + repeated("<a>", 900);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(listWith(&handle, 1, deep).text(), "2 |  | 2/8940 *");
  }
  expectListsGoodDocument(&handle);
}

TEST(BadInput, ManySiblingsAreFine) {
  EXPECT_EQ(list("<root>" + repeated("<a></a>", 100000) + "</root>").text(), "0 |  | ");
}

TEST(BadInput, HugePiecesAreFine) {
  const size_t million = 1000000;
  const std::string tail = "<form><formName>A</formName></form></root>";
  std::string attributes;
  for (int i = 0; i < 100000; ++i) {
    attributes += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
  }
  const std::string documents[] = {
      "<root" + attributes + ">" + tail,
      "<root a='" + std::string(million, 'x') + "'>" + tail,
      "<root><" + std::string(million, 'n') + "/>" + tail,
      "<root><a " + std::string(million, 'n') + "='1'/>" + tail,
      "<root><!--" + std::string(million, 'c') + "-->" + tail,
      "<!--" + std::string(million, 'c') + "--><root>" + tail,
      "<root><?p " + std::string(million, 'p') + "?>" + tail,
      "<root>" + std::string(million, 't') + tail,
      "<root><![CDATA[" + std::string(million, 't') + "]]>" + tail,
      "<root>" + repeated("&amp;", 200000) + tail,
      "<root>" + repeated("&#65;", 200000) + tail,
      "<root>" + repeated("<!-- x -->", 100000) + tail,
  };
  for (const std::string& document : documents) {
    const Listing listing = list(document);
    EXPECT_EQ(listing.text(), "0 | form A | ") << document.substr(0, 60);
    EXPECT_LT(listing.seconds, kSeconds) << document.substr(0, 60);
  }
}

TEST(BadInput, AHugeNameIsCut) {
  const std::string name(3000000, 'n');
  EXPECT_EQ(list("<root><form><formName>" + name + "</formName></form></root>").text(),
            "0 | form " + name.substr(0, 254) + " | ");
}

TEST(BadInput, RawControlCharactersPassInXml11Only) {
  EXPECT_EQ(
      list("<?xml version='1.1'?><root><form><formName>a&#1;b</formName></form></root>").text(),
      "0 | form a\x01"
      "b | ");
  expectParserError("<?xml version='1.0'?><root><form><formName>a&#1;b</formName></form></root>");
}

TEST(BadInput, DeclaredCharsetsAreRead) {
  const struct {
    const char* charset;
    std::string bytes;
    std::string name;  // in UTF-8
  } cases[] = {
      {"windows-1250", "\xE8", "\xC4\x8D"},
      {"windows-1251", "\xE6", "\xD0\xB6"},
      {"windows-1252", "\xE9", "\xC3\xA9"},
      {"windows-1253", "\xE1", "\xCE\xB1"},
      {"windows-1257", "\xE0", "\xC4\x85"},
      {"iso-8859-1", "\xE9", "\xC3\xA9"},
      {"iso-8859-9", "\xFD", "\xC4\xB1"},
      {"utf-8", "\xC3\xA9", "\xC3\xA9"},
      // Three bytes in UTF-8, of which the other one of the piece gives its own room.
      {"shift_jis",
       "\x93\xFA"
       "ab",
       "\xE6\x97\xA5"
       "ab"},
      {"euc-jp",
       "\xC6\xFC"
       "ab",
       "\xE6\x97\xA5"
       "ab"},
      {"euc-kr",
       "\xC7\xD1"
       "ab",
       "\xED\x95\x9C"
       "ab"},
      {"euc-tw",
       "\xC4\xE3"
       "ab",
       "\xE4\xB8\xAD"
       "ab"},
      {"euc-cn",
       "\xD6\xD0"
       "ab",
       "\xE4\xB8\xAD"
       "ab"},
      {"gb2312",
       "\xD6\xD0"
       "ab",
       "\xE4\xB8\xAD"
       "ab"},
      {"big5",
       "\xA4\xA4"
       "ab",
       "\xE4\xB8\xAD"
       "ab"},
      {"cp949",
       "\xC7\xD1"
       "ab",
       "\xED\x95\x9C"
       "ab"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(list("<?xml version=\"1.0\" encoding=\"" + std::string(row.charset) +
                   "\"?><root><form><formName>" + row.bytes + "</formName></form></root>")
                  .text(),
              "0 | form " + row.name + " | ")
        << row.charset;
  }
}

TEST(BadInput, Utf16FilesAreRead) {
  const std::u16string units =
      u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><root><form><formName>\u00e9A</formName></form>"
      u"</root>";
  TestFolder folder;
  for (const bool bigEndian : {false, true}) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char16_t unit : units) {
      const char low = static_cast<char>(unit & 0xFF);
      const char high = static_cast<char>(unit >> 8);
      bytes += bigEndian ? high : low;
      bytes += bigEndian ? low : high;
    }
    EXPECT_EQ(listFile(folder.write("utf16.xml", bytes)).text(),
              "0 | form \xC3\xA9"
              "A | ");
  }
}

}  // namespace
