// What a document may cost: the counters themselves, and documents that are small and would cost
// much.

#include "xml/DocumentLimits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "xml/DocumentText.h"
#include "xml/Listing.h"
#include "xml/ZQXMLException.h"
#include "xml/handlers/Parsed.h"
#include "zqxml/limits.h"

namespace {

constexpr double kSeconds = 20;

std::string numbered(const std::string& before, const std::string& after, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) {
    result += before + std::to_string(i) + after;
  }
  return result;
}

std::string filter(const std::string& contents) {
  return "<filter><filterName>F</filterName>" + contents + "</filter>";
}

// "number text", or "" where nothing is thrown.
template <typename Call>
std::string failureOf(Call call) {
  try {
    call();
    return "";
  } catch (const ZQXMLException& exception) {
    return std::to_string(exception.GetErrorNumber()) + " " + exception.GetErrorMsg();
  }
}

TEST(DocumentLimits, BlocksOfTheParser) {
  for (const unsigned expansions : {0U, 1U, 64U, 100000U}) {
    constexpr uint64_t kDocumentSize = 1000;
    const uint64_t most = 100000 + kDocumentSize + 16ULL * expansions;
    DocumentLimits limits;
    for (int document = 0; document < 2; ++document) {
      limits.begin(expansions);
      limits.addSize(kDocumentSize);
      for (uint64_t i = 0; i < most; ++i) {
        limits.addParserBlock(1);
      }
      EXPECT_EQ(
          failureOf([&] { limits.addParserBlock(1); }),
          "8944 The XML parser needs more than " + std::to_string(most) + " blocks of memory");
    }
  }
}

TEST(DocumentLimits, BytesOfTheParser) {
  for (const uint64_t size : {0ULL, 1ULL, 1000ULL, 10'000'000'000ULL}) {
    const uint64_t most = 67108864 + 32 * size + 2 * 262144;
    DocumentLimits limits;
    limits.begin(2);
    limits.addSize(size);
    limits.addParserBlock(most - 1);
    limits.addParserBlock(1);
    EXPECT_EQ(failureOf([&] { limits.addParserBlock(1); }),
              "8944 The XML parser needs more than " + std::to_string(most) + " bytes of memory");
    // What is read later counts too.
    limits.addSize(1);
    EXPECT_EQ(failureOf([&] { limits.addParserBlock(30); }), "");
  }
}

TEST(DocumentLimits, TextObjectsAndReading) {
  const struct {
    bool (DocumentLimits::*add)(uint64_t);
    uint64_t most;
  } rows[] = {
      {&DocumentLimits::addText, 8388608 + 40},
      {&DocumentLimits::addObject, 16777216 + 500},
      {&DocumentLimits::addReading, 33554432 + 160},
  };
  for (const auto& [add, most] : rows) {
    DocumentLimits limits;
    limits.begin(64);
    limits.addSize(10);
    EXPECT_TRUE((limits.*add)(most));
    EXPECT_FALSE((limits.*add)(1));
    limits.begin(64);
    EXPECT_TRUE((limits.*add)(1));
  }
}

// A document that would cost much, what a listing and a parse of it give, and where.
struct Costly {
  const char* name;
  std::string document;
  std::string listing;
  std::string parse;
};

void PrintTo(const Costly& costly, std::ostream* out) {
  *out << costly.name;
}

class CostlyDocuments : public testing::TestWithParam<Costly> {};

TEST_P(CostlyDocuments, EndTheParse) {
  const Listing listing = list(GetParam().document);
  EXPECT_EQ(listing.text(), GetParam().listing);
  EXPECT_LT(listing.seconds, kSeconds);
  EXPECT_EQ(outcomeOf(GetParam().document), GetParam().parse);
}

// Each parameter entity is two of the one before.
std::string parameterBomb() {
  std::string declarations = "<!ENTITY % p0 '<!-- -->'>";
  for (int i = 1; i <= 30; ++i) {
    const std::string inner = "&#37;p" + std::to_string(i - 1) + ";";
    declarations += "<!ENTITY % p" + std::to_string(i) + " '" + inner + inner + "'>";
  }
  return withType(declarations + "%p30;", "");
}

// The same with entities, in a value that the document type provides.
std::string defaultBomb() {
  std::string declarations = "<!ENTITY e0 '" + std::string(1000, 'x') + "'>";
  for (int i = 1; i <= 30; ++i) {
    const std::string inner = "&e" + std::to_string(i - 1) + ";";
    declarations += "<!ENTITY e" + std::to_string(i) + " '" + inner + inner + "'>";
  }
  return withType(declarations + "<!ATTLIST helpText a CDATA '&e30;'>", filter("<helpText/>"));
}

std::vector<Costly> costlyDocuments() {
  const std::string large = "<!ENTITY e '" + std::string(1'000'000, 'x') + "'>";
  const std::string bytes = "2 |  | 2/8944 The XML parser needs more than ";
  const auto bytesFor = [&](const std::string& document) {
    return bytes + std::to_string(67108864 + 32 * document.size() + 64 * 262144) +
           " bytes of memory";
  };
  const std::string inAttribute =
      withType(large, filter("<helpText a='" + repeated("&e;", 64) + "'/>"));
  const std::string inText =
      withType(large, filter("<helpText>" + repeated("&e;", 64) + "</helpText>"));
  // Its own million bytes let in four million units beside the eight; the reference that ends with
  // the thirteenth is refused.
  const auto place = [](uint64_t line, uint64_t column) {
    return "2 |  | 2/8944 line: " + std::to_string(line) + ", column " + std::to_string(column);
  };
  const std::string textPlace =
      place(2, 1 + std::string("<root>").size() + filter("<helpText>").find("</filter>") + 3 * 13);
  // Each element has the 2,000 attributes, 8 units each.
  const std::string provided =
      withType("<!ATTLIST helpText" + numbered(" a", " CDATA ''", 2000) + ">",
               filter(repeated("<helpText/>", 2000)));
  const uint64_t providedElements = (8388608 + 4 * provided.size()) / (8 * 2000) + 1;
  const std::string providedPlace =
      place(2, 1 + std::string("<root>").size() + filter("").find("</filter>") +
                   providedElements * std::string("<helpText/>").size());
  return {
      {"parameter entities", parameterBomb(), bytesFor(parameterBomb()), bytesFor(parameterBomb())},
      {"entities in a provided value", defaultBomb(), bytesFor(defaultBomb()),
       bytesFor(defaultBomb())},
      {"entities in an attribute", inAttribute, bytesFor(inAttribute), bytesFor(inAttribute)},
      {"entities in text", inText, textPlace, textPlace},
      {"provided attributes", provided, providedPlace, providedPlace},
  };
}

INSTANTIATE_TEST_SUITE_P(All, CostlyDocuments, testing::ValuesIn(costlyDocuments()),
                         [](const auto& tested) {
                           std::string name = tested.param.name;
                           std::replace(name.begin(), name.end(), ' ', '_');
                           return name;
                         });

// An attribute that is declared again gives a warning.
TEST(LargeDocuments, AThousandWarningsAreRecorded) {
  for (const size_t warnings : {0UL, 1UL, 999UL, 1000UL, 1001UL, 100000UL}) {
    const std::string document =
        withType("<!ATTLIST other" + repeated(" a CDATA ''", warnings + 1) + ">", filter(""));
    for (const char* end : {"", "<bogus>"}) {
      const bool bad = *end != '\0';
      Parsed parsed(sharedHandle(), document + end);
      EXPECT_EQ(parsed.result, bad ? 2 : 0);
      const auto records = std::count(parsed.status.begin(), parsed.status.end(), '/');
      EXPECT_EQ(records, std::min<long>(static_cast<long>(warnings), 1000) + (bad ? 1 : 0));
      EXPECT_EQ(parsed.status.starts_with("2/8940 "), bad);
    }
    const Listing listing = listWith(sharedHandle(), ZQXML_INPUT_MEMORY, document);
    EXPECT_EQ(listing.objects, "filter F");
    EXPECT_EQ(listing.line, warnings == 0 ? 0U : 1U);
    EXPECT_LT(listing.seconds, kSeconds);
  }
}

// What is read again each time: a text that grows, and one that stays. Small numbers of them pass.
TEST(LargeDocuments, RepeatedElementsAreRefusedBeforeTheyCostMuch) {
  const auto growing = [](const std::string& name, size_t count) {
    return repeated("<" + name + ">" + std::string(20, 'x') + "</" + name + ">", count);
  };
  const auto staying = [](const std::string& name, size_t count) {
    return "<" + name + ">" + std::string(500'000, 'x') + "</" + name + ">" +
           repeated("<" + name + "/>", count);
  };
  for (const char* name : {"helpText", "owner", "filterName"}) {
    EXPECT_EQ(outcomeOf(inRoot(filter(growing(name, 1000)))).substr(0, 11), "0 | filter ") << name;
    EXPECT_EQ(outcomeOf(inRoot(filter(staying(name, 50)))).substr(0, 11), "0 | filter ") << name;
    for (const std::string& contents : {growing(name, 100'000), staying(name, 100'000)}) {
      const std::string document = inRoot(filter(contents));
      Parsed parsed(sharedHandle(), document);
      EXPECT_EQ(parsed.result, 2) << name;
      EXPECT_EQ(parsed.status, "2/8944 line: 1, column " + std::to_string(parsed.column));
      EXPECT_LT(parsed.column, document.size() * 3 / 4);
    }
  }
  const auto command = [](const std::string& contents) {
    return filter("<ifActions><action><runProcess>" + contents +
                  "</runProcess></action></ifActions>");
  };
  EXPECT_EQ(Parsed(sharedHandle(), inRoot(command(staying("command", 50)))).result, 0);
  EXPECT_EQ(Parsed(sharedHandle(), inRoot(command(growing("command", 100'000)))).result, 2);
}

TEST(LargeDocuments, LongTextsAndManyOfThemPass) {
  const std::string help = "<helpText>" + std::string(1'000'000, 'x') + "</helpText>";
  EXPECT_EQ(Parsed(sharedHandle(), inRoot(repeated(filter(help), 30))).result, 0);
  EXPECT_EQ(
      Parsed(sharedHandle(), inRoot(repeated(filter("<helpText>x</helpText>"), 30000))).result, 0);
}

TEST(LargeDocuments, ManyNamesPass) {
  constexpr int kMany = 150000;
  EXPECT_EQ(outcomeOf(inRoot(filter("<helpText" + numbered(" a", "=''", kMany) + "/>"))),
            "0 | filter F | ");
  EXPECT_EQ(outcomeOf(withType(numbered("<!ENTITY e", " ''>", kMany), filter(""))),
            "0 | filter F | ");
  EXPECT_EQ(list(inRoot(filter(numbered("<n", "/>", kMany)))).text(), "0 | filter F | ");
}

TEST(DocumentLimitsOfObjects, ObjectsWithoutANameAreRefusedBeyondSixteenMegabytes) {
  // 12,787 records fit into 16 MiB; each element lets in 50 bytes for each of its 9.
  EXPECT_EQ(sizeof(ZQXMLObjectList), 1312U);
  const auto result = [](size_t count) {
    Parsed parsed(sharedHandle(), inRoot(repeated("<filter/>", count)));
    return parsed.result;
  };
  EXPECT_EQ(result(19000), 0);
  EXPECT_EQ(result(20000), 2);
  const std::string document = inRoot(repeated("<filter/>", 20000));
  const uint64_t refused = (16777216 + 50 * document.size()) / sizeof(ZQXMLObjectList) + 1;
  EXPECT_EQ(outcomeOf(document),
            "2 |  | 2/8944 line: 1, column " +
                std::to_string(1 + std::string("<root>").size() + 9 * refused));
}

TEST(DocumentLimitsOfObjects, ObjectsWithANameAreNot) {
  Parsed parsed(sharedHandle(), inRoot(repeated("<filter><filterName/></filter>", 30000)));
  EXPECT_EQ(parsed.result, 0);
}

TEST(DocumentLimitsOfFiles, WhatIsReadOfAFileIsItsSize) {
  TestFolder folder;
  // Sixteen million characters need their size to be allowed.
  const std::string text = repeated("0123456789abcdef", 1 << 20);
  const std::string path = folder.write(
      "large.xml", inRoot("<form><formName>A</formName><helpText>" + text + "</helpText></form>"));
  EXPECT_EQ(listFile(path).text(), "0 | form A | ");
  EXPECT_EQ(list(withType("<!ENTITY e '" + std::string(140000, 'x') + "'>",
                          "<form><formName>A</formName><helpText>" + repeated("&e;", 64) +
                              "</helpText></form>"))
                .text()
                .substr(0, 14),
            "2 |  | 2/8944 ");
}

TEST(DocumentLimitsOfFiles, EachDocumentCountsAnew) {
  const std::string document = inRoot(filter("<helpText" + numbered(" a", "=''", 10000) + "/>"));
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(outcomeOf(document), "0 | filter F | ");
  }
}

}  // namespace
