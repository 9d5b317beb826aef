// What GetListXMLObjects lists, element by element.

#include "xml/handlers/ZQXMLGetNamesHandler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "xml/Listing.h"
#include "xml/Vocabulary.h"

namespace {

const std::vector<std::string> kObjects = {"activeLink",
                                           "container",
                                           "distributedMapping",
                                           "distributedPool",
                                           "escalation",
                                           "filter",
                                           "form",
                                           "menu",
                                           "vui"};

const std::vector<std::string> kNameElements = {"activeLinkName",
                                                "containerName",
                                                "distributedMappingName",
                                                "distributedPoolName",
                                                "escalationName",
                                                "filterName",
                                                "formName",
                                                "menuName"};

bool contains(const std::vector<std::string>& list, const std::string& text) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

std::string element(const std::string& name, const std::string& contents) {
  return "<" + name + ">" + contents + "</" + name + ">";
}

std::string root(const std::string& contents) {
  return element("root", contents);
}

std::string form(const std::string& contents) {
  return root(element("form", contents));
}

constexpr char kApplication[] = "<containerType>application</containerType>";

// The name that a form gets by these contents; anything but one form is a failure.
std::string nameBy(const std::string& contents) {
  const Listing listing = list(form(contents));
  EXPECT_EQ(listing.result, 0) << contents;
  EXPECT_EQ(listing.objects.substr(0, 5), "form ") << contents;
  return listing.objects.substr(std::min(size_t{5}, listing.objects.size()));
}

TEST(NamesList, EachKindHasItsNumberAndElement) {
  const struct {
    uint32_t kind;
    const char* name;
  } cases[] = {
      {0x40000001, "form"},       {0x40000005, "filter"},
      {0x40000006, "activeLink"}, {0x40000008, "menu"},
      {0x40000009, "escalation"}, {0x4000000A, "distributedMapping"},
      {0x4000000C, "container"},  {0x4000000D, "distributedPool"},
      {0x4000000E, "vui"},
  };
  for (const auto& row : cases) {
    ParserHandle handle;
    std::string document =
        root(element(row.name, "<formName>N</formName>" + std::string(kApplication)));
    const ZQXMLInputDoc input = {1, document.data()};
    ZQUnsignedIntList types = {};
    ZQUnsignedIntList subTypes = {};
    EXPECT_EQ(GetListXMLObjects(&handle, &input, &types, nullptr, &subTypes, nullptr), 0);
    ASSERT_EQ(types.numItems, 1U) << row.name;
    EXPECT_EQ(types.items[0], row.kind) << row.name;
    EXPECT_EQ(subTypes.items[0], row.kind == 0x4000000C ? 2U : 0xFFFFFFFFU) << row.name;
    FreeZQUnsignedIntList(&types, 0);
    FreeZQUnsignedIntList(&subTypes, 0);
  }
}

TEST(NamesList, TheConstantsOfTheKindsHaveTheirNumbers) {
  EXPECT_EQ(ZQXML_FORM, 0x40000001);
  EXPECT_EQ(ZQXML_FILTER, 0x40000005);
  EXPECT_EQ(ZQXML_ACTIVE_LINK, 0x40000006);
  EXPECT_EQ(ZQXML_MENU, 0x40000008);
  EXPECT_EQ(ZQXML_ESCALATION, 0x40000009);
  EXPECT_EQ(ZQXML_DSO_MAPPING, 0x4000000A);
  EXPECT_EQ(ZQXML_CONTAINER, 0x4000000C);
  EXPECT_EQ(ZQXML_DSO_POOL, 0x4000000D);
  EXPECT_EQ(ZQXML_VUI, 0x4000000E);
  EXPECT_EQ(ZQXML_FIELD, 0x4000000F);
}

TEST(NamesList, AnyNameElementNamesAnyObject) {
  for (const std::string& object : kObjects) {
    for (const std::string& name : kNameElements) {
      const std::string document = root(element(object, element(name, "N") + kApplication));
      const std::string type = object == "container" ? " 2" : "";
      EXPECT_EQ(list(document).text(), "0 | " + object + " N" + type + " | ") << document;
    }
  }
}

TEST(NamesList, NoOtherElementOfTheVocabularyIsAnObject) {
  for (const auto& [tag, id] : vocabulary()) {
    if (!contains(kObjects, tag) && tag != "root") {
      EXPECT_EQ(list(root(element(tag, "<formName>N</formName>"))).text(), "0 |  | ") << tag;
    }
  }
}

TEST(NamesList, NoOtherElementOfTheVocabularyIsAName) {
  for (const auto& [tag, id] : vocabulary()) {
    if (!contains(kObjects, tag) && !contains(kNameElements, tag) && tag != "root") {
      EXPECT_EQ(nameBy(element(tag, "X") + "<formName>N</formName>"), "N") << tag;
    }
  }
}

TEST(NamesList, AnEmptyRootListsNothing) {
  for (const char* document :
       {"<root/>", "<root></root>", "<root>\n\t\n</root>", "<root><!-- none --></root>"}) {
    EXPECT_EQ(list(document).text(), "0 |  | ") << document;
  }
}

TEST(NamesList, ObjectsStandInTheOrderOfTheDocument) {
  EXPECT_EQ(list("<root><menu><menuName>M</menuName></menu><form><formName>A</formName></form>"
                 "<filter><filterName>F</filterName></filter><form><formName>A</formName></form>"
                 "</root>")
                .text(),
            "0 | menu M, form A, filter F, form A | ");
}

TEST(NamesList, UnknownElementsPassWithoutAMessage) {
  EXPECT_EQ(list("<root><bogus a='1'><formName>X</formName>text</bogus><form><odd/>"
                 "<formName>A</formName><more><deep/></more></form></root>")
                .text(),
            "0 | form A | ");
}

TEST(NamesList, AStandaloneFieldIsNotListed) {
  EXPECT_EQ(
      list("<root><field><fieldName>X</fieldName><formName>A</formName></field></root>").text(),
      "0 |  | ");
}

TEST(NamesList, AVuiIsNamedByItsForm) {
  EXPECT_EQ(list("<root><vui><viewName>V</viewName><formName>F</formName></vui></root>").text(),
            "0 | vui F | ");
}

TEST(NamesList, AnotherDocumentElementListsNothing) {
  for (const char* document :
       {"<form><formName>A</formName></form>", "<Root><form><formName>A</formName></form></Root>",
        "<bogus/>", "<roots><form><formName>A</formName></form></roots>", "<field/>"}) {
    EXPECT_EQ(list(document).text(), "0 |  | ") << document;
  }
}

TEST(NamesList, TheFirstNameElementIsTheName) {
  EXPECT_EQ(nameBy("<formName>A</formName><formName>B</formName>"), "A");
  EXPECT_EQ(nameBy("<formName>A</formName><filterName>B</filterName>"), "A");
  EXPECT_EQ(nameBy("<formName/><formName>B</formName>"), "");
  EXPECT_EQ(nameBy("<formName></formName><menuName>B</menuName>"), "");
  EXPECT_EQ(nameBy("<joinForm><formName>A</formName></joinForm><formName>B</formName>"), "A");
  EXPECT_EQ(list("<root><filter><workflowConnect><formNameList><formName>F</formName>"
                 "</formNameList></workflowConnect><filterName>X</filterName></filter></root>")
                .text(),
            "0 | filter F | ");
}

TEST(NamesList, AnObjectWithoutANameHasTheEmptyOne) {
  EXPECT_EQ(nameBy(""), "");
  EXPECT_EQ(nameBy("<objectProperties/>"), "");
  EXPECT_EQ(list("<root><form><formName>A</formName></form><form/></root>").text(),
            "0 | form A, form  | ");
}

TEST(NamesList, ANameOutsideOfAnObjectIsNone) {
  EXPECT_EQ(list("<root><formName>X</formName><form><formName>A</formName></form>"
                 "<formName>Y</formName></root>")
                .text(),
            "0 | form A | ");
}

TEST(NamesList, ATextThatComesInPiecesIsWhole) {
  const struct {
    const char* contents;
    const char* name;
  } cases[] = {
      {"Plain name", "Plain name"},
      {"a&lt;b&gt;&amp;&quot;&apos;c", "a<b>&\"'c"},
      {"&#65;&#x42;C&#x43;", "ABCC"},
      {"a<![CDATA[<b>]]>c", "a<b>c"},
      {"<![CDATA[]]>a<![CDATA[b]]><![CDATA[c]]>", "abc"},
      {"Foo<!-- no -->Bar", "FooBar"},
      {"Foo<?target no?>Bar", "FooBar"},
      {"<!---->A&amp;<![CDATA[&amp;]]><?x?>B&#233;", "A&&amp;B\xC3\xA9"},
      {" \n\tspaced ", " \n\tspaced "},
      {"a\r\nb\rc&#13;", "a\nb\nc\r"},
      {"caf\xC3\xA9", "caf\xC3\xA9"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(nameBy(element("formName", row.contents)), row.name) << row.contents;
  }
}

TEST(NamesList, ANameSplitAtEveryPlaceIsWhole) {
  const std::string name = "Ticket of \xC3\xA9t\xC3\xA9";
  for (const char* split : {"<![CDATA[]]>", "<!--x-->", "<?x y?>", "&#45;"}) {
    for (size_t place = 0; place <= name.size(); ++place) {
      if (place < name.size() && (name[place] & 0xC0) == 0x80) {
        continue;
      }
      const std::string between = split == std::string("&#45;") ? "-" : "";
      EXPECT_EQ(nameBy(element("formName", name.substr(0, place) + split + name.substr(place))),
                name.substr(0, place) + between + name.substr(place));
    }
  }
}

TEST(NamesList, ANameStopsAtAChildElement) {
  EXPECT_EQ(nameBy("<formName>Foo<x/>Bar</formName>"), "Foo");
  EXPECT_EQ(nameBy("<formName>Foo<x>in</x>Bar</formName>"), "Foo");
  EXPECT_EQ(nameBy("<formName><x/>Bar</formName>"), "");
  EXPECT_EQ(nameBy("<formName>Foo<label>in</label>Bar</formName>"), "Foo");
  // A name element within a name element goes on with it, and ends it.
  EXPECT_EQ(nameBy("<formName>Foo<filterName>in</filterName>Bar</formName>"), "Fooin");
  EXPECT_EQ(nameBy("<formName>Foo<filterName>in</filterName></formName><formName>x</formName>"),
            "Fooin");
}

TEST(NamesList, TextBesidesTheNameIsIgnored) {
  EXPECT_EQ(nameBy("text<formName>A</formName>more<label>x</label>text"), "A");
  EXPECT_EQ(list("<root>text<form><formName>A</formName></form>text</root>").text(),
            "0 | form A | ");
}

TEST(NamesList, AnInnerObjectGivesItsKindAndNameToTheOuterOne) {
  EXPECT_EQ(list(form("<formName>A</formName><filter><filterName>B</filterName></filter>")).text(),
            "0 | filter B, filter B | ");
  EXPECT_EQ(list(form("<filter><filterName>B</filterName></filter><formName>A</formName>")).text(),
            "0 | filter B, filter B | ");
  EXPECT_EQ(list(form("<filter/><formName>A</formName>")).text(), "0 | filter , filter A | ");
}

TEST(NamesList, EachContainerWordHasItsNumber) {
  const std::pair<const char*, const char*> words[] = {{"activeLinkGuide", "1"},
                                                       {"application", "2"},
                                                       {"packingList", "3"},
                                                       {"filterGuide", "4"},
                                                       {"webService", "5"}};
  for (const auto& [word, number] : words) {
    EXPECT_EQ(list(root(element("container",
                                element("containerName", "C") + element("containerType", word))))
                  .text(),
              std::string("0 | container C ") + number + " | ");
  }
}

TEST(NamesList, EveryOtherWordForAContainerIs8943) {
  std::vector<std::string> texts = {
      "",  " application", "application ",          "Application", "bogus",
      "2", "guide",        "applicationapplication"};
  for (const auto& [tag, id] : vocabulary()) {
    texts.push_back(tag);
  }
  const std::vector<std::string> good = {"activeLinkGuide", "application", "packingList",
                                         "filterGuide", "webService"};
  for (const std::string& text : texts) {
    if (contains(good, text)) {
      continue;
    }
    const Listing listing =
        list("<root>\n<container><containerType>" + text + "</containerType>\n</container></root>");
    EXPECT_EQ(listing.text(), "2 |  | 2/8943 line: 3, column 13") << text;
    EXPECT_EQ(listing.place(), "3:13");
  }
}

TEST(NamesList, AContainerWordThatComesInPiecesIsWhole) {
  for (const char* word : {"appli&#99;ation", "<![CDATA[app]]>lication", "app<!-- x -->lication",
                           "app<?x?>lication", "application<x/>", "application<x>y</x>more"}) {
    EXPECT_EQ(list(root(element("container", element("containerType", word)))).text(),
              "0 | container  2 | ")
        << word;
  }
}

TEST(NamesList, TheLastContainerTypeOfAContainerCounts) {
  EXPECT_EQ(list("<root><container><containerType>bogus</containerType>"
                 "<containerType>webService</containerType></container></root>")
                .text(),
            "0 | container  5 | ");
}

TEST(NamesList, AContainerWithoutTypeTakesTheOneBefore) {
  EXPECT_EQ(list("<root><container><containerName>A</containerName>"
                 "<containerType>filterGuide</containerType></container>"
                 "<form><formName>F</formName></form>"
                 "<container><containerName>B</containerName></container></root>")
                .text(),
            "0 | container A 4, form F, container B 4 | ");
  EXPECT_EQ(list("<root><containerType>filterGuide</containerType>"
                 "<container><containerName>B</containerName></container></root>")
                .text(),
            "0 | container B 4 | ");
}

TEST(NamesList, AFirstContainerWithoutTypeIs8943) {
  EXPECT_EQ(list("<root><container><containerName>A</containerName></container></root>").text(),
            "2 |  | 2/8943 line: 1, column 62");
}

TEST(NamesList, NothingIsCarriedOverToTheNextDocument) {
  ParserHandle handle;
  EXPECT_EQ(
      listWith(&handle, 1, root("<container>" + std::string(kApplication) + "</container>")).text(),
      "0 | container  2 | ");
  EXPECT_EQ(listWith(&handle, 1, root("<container></container>")).text(),
            "2 |  | 2/8943 line: 1, column 30");
  // Neither the name that was open nor what it held.
  EXPECT_EQ(listWith(&handle, 1, "<root><form><formName>Open").result, 2);
  EXPECT_EQ(listWith(&handle, 1, "<root><formName>X</formName><form></form></root>").text(),
            "0 | form  | ");
  EXPECT_EQ(listWith(&handle, 1, "<root><container><containerType>app").result, 2);
  EXPECT_EQ(
      listWith(&handle, 1, root("<container><containerName>lication</containerName></container>"))
          .result,
      2);
}

TEST(NamesList, NodesOfAFailedDocumentAreNotListedInTheNext) {
  ParserHandle handle;
  EXPECT_EQ(listWith(&handle, 1, "<root><form><formName>Lost</formName></form><").result, 2);
  expectListsGoodDocument(&handle);
}

TEST(NamesList, ANameIsCutAt254Bytes) {
  for (const size_t length : {size_t{253}, size_t{254}, size_t{255}, size_t{300}, size_t{5000}}) {
    const std::string name(length, 'n');
    EXPECT_EQ(nameBy(element("formName", name)), name.substr(0, 254)) << length;
    EXPECT_EQ(nameBy(element("formName", "a&amp;" + name)), ("a&" + name).substr(0, 254));
  }
  // Where the code set is a single-byte one or UTF-8 the cut is one between bytes.
  EXPECT_EQ(nameBy(element("formName", std::string(253, 'n') + "\xC3\xA9")),
            std::string(253, 'n') + "\xC3");
}

TEST(NamesList, TextGetsTwoBytesForEachUnitOfAPiece) {
  const struct {
    const char* contents;
    const char* name;
  } cases[] = {
      {"\xE2\x82\xAC", "\xE2\x82"},
      {"\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC", "\xE2\x82\xAC\xE2\x82\xAC"},
      {"ab\xE2\x82\xAC", "ab\xE2\x82\xAC"},                    // 5 bytes of 6
      {"a\xE2\x82\xAC\xE2\x82\xAC", "a\xE2\x82\xAC\xE2\x82"},  // 6 of 7 bytes
      {"\xC3\xA9\xC3\xA9\xC3\xA9", "\xC3\xA9\xC3\xA9\xC3\xA9"},
      {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},  // a pair has two units
      // Each piece has a limit of its own.
      {"abcdef<![CDATA[\xE2\x82\xAC]]>", "abcdef\xE2\x82"},
      {"\xE2\x82\xAC<![CDATA[x]]>", "\xE2\x82x"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(nameBy(element("formName", row.contents)), row.name);
  }
}

TEST(NamesList, EscapedControlCharactersAreTurnedBack) {
  for (int code = 1; code < 0x20; ++code) {
    char reference[64];
    snprintf(reference, sizeof reference, "ab&#x%X;cd", 0xF8DF + code);
    std::string expected = std::string("ab") + static_cast<char>(code) + "cd";
    if (code == 9 || code == 10 || code == 13) {
      // U+F8E8, U+F8E9 and U+F8EC stay, and of the three bytes a piece of one unit may have two.
      std::string unit = {'\xEF', '\xA3', static_cast<char>(0x80 | ((0xF8DF + code) & 0x3F))};
      expected = "ab" + unit + "cd";
    }
    const std::string name = nameBy(element("formName", reference));
    EXPECT_EQ(name, expected) << code;
  }
}

TEST(NamesList, ASecondRootInsideRootIs8944) {
  // The inner end fills the lists and leaves no handler for what follows, be it white space.
  EXPECT_EQ(list("<root>\n<form><formName>A</formName></form>\n<root/></root>").text(),
            "2 | form A | 2/8944 line: 3, column 15");
  EXPECT_EQ(list("<root>\n<form><formName>A</formName></form>\n<root/>\n</root>").text(),
            "2 | form A | 2/8944 line: 4, column 1");
  EXPECT_EQ(list("<root><root></root></root>").text(), "2 |  | 2/8944 line: 1, column 27");
  EXPECT_EQ(list("<root><root></root><form/></root>").text(), "2 |  | 2/8944 line: 1, column 27");
  EXPECT_EQ(list("<bogus><root/></bogus>").text(), "2 |  | 2/8944 line: 1, column 23");
}

TEST(NamesList, ErrorsBehindTheEndOfRootLeaveFullLists) {
  for (const char* rest : {"<more/>", "text", "<", "</root>", "<!DOCTYPE root>", "&amp;"}) {
    EXPECT_EQ(list(form("<formName>A</formName>") + rest).text(), "2 | form A | 2/8940 *") << rest;
  }
  for (const char* rest : {"\n", "<!-- end -->", "<?x y?>", " \t\r\n"}) {
    EXPECT_EQ(list(form("<formName>A</formName>") + rest).text(), "0 | form A | ") << rest;
  }
}

TEST(NamesList, ErrorsAheadOfTheEndOfRootLeaveEmptyLists) {
  for (const char* rest : {"", "<", "</form>", "</root", "&bogus;</root>", "<a b></a></root>"}) {
    EXPECT_EQ(list("<root><form><formName>A</formName></form>" + std::string(rest)).text(),
              "2 |  | 2/8940 *")
        << rest;
  }
}

}  // namespace
