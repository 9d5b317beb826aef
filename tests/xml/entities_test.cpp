// Document types and entities: internal ones work up to a limit, external ones never.

#include <gtest/gtest.h>

#include <string>

#include "xml/DocumentText.h"
#include "xml/Listing.h"

namespace {

constexpr double kSeconds = 20;

std::string form(const std::string& name) {
  return "<form><formName>" + name + "</formName></form>";
}

// Sets the limit for a test and takes it back.
class ExpansionLimit {
 public:
  explicit ExpansionLimit(unsigned limit) { SetXMLEntityExpansionLimit(limit); }
  ExpansionLimit(const ExpansionLimit&) = delete;
  ExpansionLimit& operator=(const ExpansionLimit&) = delete;
  ~ExpansionLimit() { SetXMLEntityExpansionLimit(ZQXML_DEFAULT_ENTITY_EXPANSION_LIMIT); }
};

TEST(Entities, InternalOnesWork) {
  EXPECT_EQ(list(withType("<!ENTITY e 'x'>", form("a&e;b"))).text(), "0 | form axb | ");
  EXPECT_EQ(list(withType("<!ENTITY e '<formName>N</formName>'>", "<form>&e;</form>")).text(),
            "0 | form N | ");
  EXPECT_EQ(list(withType("<!ENTITY a 'x&b;y'><!ENTITY b 'z'>", form("&a;"))).text(),
            "0 | form xzy | ");
  EXPECT_EQ(list(withType("<!ENTITY e '&#60;'>", form("a&lt;b"))).text(), "0 | form a<b | ");
  EXPECT_EQ(list(withType("<!ENTITY e 'x'>", "<a b='&e;'/>" + form("A"))).text(), "0 | form A | ");
}

TEST(Entities, TheLimitIs64) {
  EXPECT_EQ(ZQXML_DEFAULT_ENTITY_EXPANSION_LIMIT, 64);
  EXPECT_EQ(GetXMLEntityExpansionLimit(), 64U);
}

TEST(Entities, JustAsManyReferencesAsTheLimitPass) {
  EXPECT_EQ(list(withType("<!ENTITY e 'x'>", form(repeated("&e;", 64)))).text(),
            "0 | form " + std::string(64, 'x') + " | ");
  EXPECT_EQ(list(withType("<!ENTITY e 'x'>", form(repeated("&e;", 65)))).text(), "2 |  | 2/8940 *");
  EXPECT_EQ(list(withType("<!ENTITY e 'x'>", form(repeated("&e;", 1000)))).text(),
            "2 |  | 2/8940 *");
}

TEST(Entities, ReferencesInAttributesAndInOtherEntitiesCount) {
  EXPECT_EQ(list(withType("<!ENTITY e 'x'>", repeated("<a b='&e;&e;'/>", 32) + form("A"))).text(),
            "0 | form A | ");
  EXPECT_EQ(list(withType("<!ENTITY e 'x'>", repeated("<a b='&e;&e;'/>", 33) + form("A"))).result,
            2);
  // Each of the eight brings seven more.
  const std::string nested = "<!ENTITY b 'x'><!ENTITY a '" + repeated("&b;", 7) + "'>";
  EXPECT_EQ(list(withType(nested, form(repeated("&a;", 8)))).text(),
            "0 | form " + std::string(56, 'x') + " | ");
  EXPECT_EQ(list(withType(nested, form(repeated("&a;", 8) + "&b;"))).text(), "2 |  | 2/8940 *");
}

TEST(Entities, CharactersAndTheFiveOfXmlDoNotCount) {
  const std::string many = repeated("&lt;", 100) + repeated("&#65;", 100);
  const std::string name = std::string(100, '<') + std::string(100, 'A');
  for (const std::string& type : {std::string(), std::string("<!DOCTYPE root>"),
                                  std::string("<!DOCTYPE root [<!ENTITY e 'x'>]>")}) {
    EXPECT_EQ(list(type + "<root>" + form(many) + "</root>").text(), "0 | form " + name + " | ")
        << type;
  }
}

TEST(Entities, EachDocumentCountsAnew) {
  ParserHandle handle;
  const std::string document = withType("<!ENTITY e 'x'>", form(repeated("&e;", 60)));
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(listWith(&handle, 1, document).text(), "0 | form " + std::string(60, 'x') + " | ");
  }
  const std::string bad = withType("<!ENTITY e 'x'>", form(repeated("&e;", 65)));
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(listWith(&handle, 1, bad).text(), "2 |  | 2/8940 *");
    EXPECT_EQ(listWith(&handle, 1, document).result, 0);
  }
}

TEST(Entities, TheHostSetsTheLimit) {
  const std::string two = withType("<!ENTITY e 'x'>", form("&e;&e;"));
  for (const unsigned limit : {0U, 1U, 2U, 3U}) {
    const ExpansionLimit changed(limit);
    EXPECT_EQ(GetXMLEntityExpansionLimit(), limit);
    EXPECT_EQ(list(two).text(), limit >= 2 ? "0 | form xx | " : "2 |  | 2/8940 *") << limit;
    EXPECT_EQ(list(withType("<!ENTITY e 'x'>", form("A"))).text(), "0 | form A | ");
    EXPECT_EQ(list(withType("<!ENTITY e 'x'>", form("&amp;&#65;"))).text(), "0 | form &A | ");
  }
  const ExpansionLimit changed(100000);
  EXPECT_EQ(list(withType("<!ENTITY e 'x'>", form(repeated("&e;", 200)))).text(),
            "0 | form " + std::string(200, 'x') + " | ");
}

TEST(Entities, TheLimitHoldsForHandlesThatAreThereAlready) {
  ParserHandle handle;
  const std::string two = withType("<!ENTITY e 'x'>", form("&e;&e;"));
  EXPECT_EQ(listWith(&handle, 1, two).result, 0);
  {
    const ExpansionLimit changed(1);
    EXPECT_EQ(listWith(&handle, 1, two).result, 2);
  }
  EXPECT_EQ(listWith(&handle, 1, two).result, 0);
}

TEST(Entities, BombsEndAtTheLimit) {
  // Each entity is ten of the one before.
  std::string declarations = "<!ENTITY e0 'lol'>";
  for (int i = 1; i <= 9; ++i) {
    const std::string inner = "&e" + std::to_string(i - 1) + ";";
    declarations += "<!ENTITY e" + std::to_string(i) + " '" + repeated(inner, 10) + "'>";
  }
  // One big text many times, and a chain of many entities.
  const std::string big = "<!ENTITY e '" + std::string(100000, 'x') + "'>";
  std::string chain = "<!ENTITY e0 'x'>";
  for (int i = 1; i <= 5000; ++i) {
    chain += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
  }
  const std::string documents[] = {
      withType(declarations, form("&e9;")),
      withType(declarations, "<a b='&e9;'/>"),
      withType(big, form(repeated("&e;", 10000))),
      withType(big, "<a b='" + repeated("&e;", 10000) + "'/>"),
      withType(chain, form("&e5000;")),
  };
  for (const std::string& document : documents) {
    const Listing listing = list(document);
    EXPECT_EQ(listing.text(), "2 |  | 2/8940 *") << document.substr(0, 100);
    EXPECT_LT(listing.seconds, kSeconds);
  }
}

TEST(Entities, ParameterEntityBombsEnd) {
  std::string declarations = "<!ENTITY % p0 'lol'>";
  for (int i = 1; i <= 30; ++i) {
    const std::string inner = "&#37;p" + std::to_string(i - 1) + ";";
    declarations += "<!ENTITY % p" + std::to_string(i) + " '" + inner + inner + "'>%p" +
                    std::to_string(i) + ";";
  }
  const Listing listing = list(withType(declarations, form("A")));
  EXPECT_EQ(listing.result, 2);
  EXPECT_LT(listing.seconds, kSeconds);
}

TEST(Entities, ElementsFromEntitiesCountForTheDepth) {
  const std::string open = "<!ENTITY e '<a/>'>";
  EXPECT_EQ(list(withType(open, repeated("<a>", 998) + "&e;" + repeated("</a>", 998))).result, 0);
  const Listing listing =
      list(withType(open, repeated("<a>", 999) + "&e;" + repeated("</a>", 999)));
  EXPECT_EQ(listing.status.substr(0, 7), "2/8944 ");
}

TEST(Entities, ExternalOnesAreAnErrorWhereTheyAreUsed) {
  TestFolder folder;
  const std::string there = folder.write("entity.txt", "<form><formName>Stolen</formName></form>");
  for (const std::string& address :
       {there, "file://" + there, std::string("entity.txt"), std::string("http://127.0.0.1:9/x"),
        std::string("ftp://127.0.0.1/x"), std::string("/nowhere")}) {
    for (const std::string& id : {"SYSTEM '" + address + "'", "PUBLIC 'p' '" + address + "'"}) {
      EXPECT_EQ(list(withType("<!ENTITY e " + id + ">", "&e;")).text(), "2 |  | 2/8940 *") << id;
      EXPECT_EQ(list(withType("<!ENTITY e " + id + ">", form("&e;"))).text(), "2 |  | 2/8940 *");
      EXPECT_EQ(list(withType("<!ENTITY e " + id + ">", form("A"))).text(), "0 | form A | ");
    }
  }
}

TEST(Entities, ExternalDocumentTypesAreSkipped) {
  TestFolder folder;
  const std::string there = folder.write("root.dtd", "<!ENTITY e 'Stolen'>");
  for (const std::string& address :
       {there, "file://" + there, std::string("root.dtd"), std::string("http://127.0.0.1:9/x"),
        std::string("/nowhere")}) {
    for (const std::string& id : {"SYSTEM '" + address + "'", "PUBLIC 'p' '" + address + "'"}) {
      EXPECT_EQ(list("<!DOCTYPE root " + id + "><root>" + form("A") + "</root>").text(),
                "0 | form A | ");
      const Listing listing = list("<!DOCTYPE root " + id + "><root>" + form("a&e;b") + "</root>");
      EXPECT_EQ(listing.objects.find("Stolen"), std::string::npos);
    }
  }
}

TEST(Entities, ExternalParameterEntitiesAreNotRead) {
  TestFolder folder;
  const std::string there = folder.write("declarations", "<!ENTITY e 'Stolen'>");
  const Listing listing = list(withType("<!ENTITY % p SYSTEM '" + there + "'>%p;", form("a&e;b")));
  EXPECT_EQ(listing.objects.find("Stolen"), std::string::npos);
}

TEST(Entities, DefaultAttributesAndDeclarationsPass) {
  EXPECT_EQ(list(withType("<!ELEMENT root (form)><!ATTLIST form a CDATA 'x' b CDATA #REQUIRED>"
                          "<!NOTATION n SYSTEM 'x'>",
                          form("A") + "<bogus/>"))
                .text(),
            "0 | form A | ");
}

// Both of the scanners that read documents stand behind the same results.
TEST(DocumentTypes, AreSeenBehindEverythingThatMayPrecedeThem) {
  const std::string rest =
      "<!DOCTYPE root [<!ENTITY e 'x'>]><root><form><formName>a&e;</formName></form></root>";
  const std::string long_ = std::string(5000, 'c');
  const std::string prologs[] = {
      "",
      "\xEF\xBB\xBF",
      "<?xml version='1.0'?>",
      "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?>\r\n",
      "\n\t ",
      "<!-- comment -->",
      "<!---->",
      "<!--><a/>-->",
      "<!--> <a -->",
      "<!-->-->",
      "<!--<a>-->",
      "<?pi <a> ?>",
      "<?pi?>",
      "<?pi ?><!-- ?> --><?pi --> ?>",
      "<!-- " + long_ + " -->",
      "<?pi " + long_ + " ?>",
      std::string(5000, ' '),
      "<!--<a>" + long_ + "-->",
      "<!-- " + std::string(4085, 'c') + "-->",
      "<!-- " + std::string(4086, 'c') + "-->",
      "<!-- " + std::string(4087, 'c') + "-->",
      "<!-- " + std::string(4088, 'c') + "-->",
      "<!-- " + std::string(4089, 'c') + "-->",
      "<!-- " + std::string(4090, 'c') + "-->",
  };
  for (const std::string& prolog : prologs) {
    EXPECT_EQ(list(prolog + rest).text(), "0 | form ax | ") << prolog.substr(0, 40);
  }
}

TEST(DocumentTypes, ADocumentWithOneIsReadAsOneWithout) {
  // Apart from what stands in the first line, which the second document has one line later.
  const char* documents[] = {
      "<root><form><formName>A&amp;B&#233;<![CDATA[<]]></formName></form></root>",
      "<root a='1' a='2'/>",
      "<root>\n<a></b></root>",
      "<root>&bogus;</root>",
      "<root>\n<form><formName>x</formName></form>\n<root/>\n</root>",
      "<root><container><containerType>bogus</containerType></container></root>",
      "<root>\x01</root>",
      "<root>]]></root>",
      "<root><!-- -- --></root>",
      "<root/><more/>",
      "<root xml:space='preserve'> <form/> </root>",
      "<root a='&lt;&#10;\n'/>",
      "<root a='<'/>",
      "<root",
      "<root><a",
      "<root><a b",
      "<root><a b='",
      "<root></root ><",
      "<1/>",
      "<root>\xE2\x82</root>",
      "<root a:b:c='1'><:x/><y:/></root>",
      "<root xmlns:x='' x:y='1' xmlns='&lt;'/>",
  };
  for (const std::string document : documents) {
    const Listing plain = list("<?pi?>\n" + document);
    const Listing full = list("<!DOCTYPE root>\n" + document);
    EXPECT_EQ(plain.result, full.result) << document;
    EXPECT_EQ(plain.objects, full.objects) << document;
    EXPECT_EQ(plain.status, full.status) << document;
    EXPECT_EQ(plain.place(), full.place()) << document;
  }
}

}  // namespace
