#include "xml/enumerations.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "xml/FixedLocator.h"
#include "xml/Vocabulary.h"
#include "xml/ZQXMLException.h"
#include "xml/ZQXMLHandlerUtils.h"

namespace {

constexpr int kTables = 42;

struct Table {
  std::string name;
  std::map<std::string, unsigned> words;
};

// The tables as they were written down a second time: "number name" or "number name word value" on
// each line.
std::map<int, Table> expectedTables() {
  std::map<int, Table> tables;
  std::ifstream file(ZQXML_TEST_DATA_DIR "/enumerations.txt");
  std::string line;
  while (std::getline(file, line)) {
    std::istringstream fields(line);
    int number = 0;
    std::string name;
    std::string word;
    unsigned value = 0;
    fields >> number >> name;
    tables[number].name = name;
    if (fields >> word >> value) {
      EXPECT_TRUE(tables[number].words.emplace(word, value).second) << line;
    }
  }
  return tables;
}

// What GetEnumValue makes of a text: its number, or -1 for 8943 without a place.
long verdict(int table, const char* text) {
  try {
    return ZQXMLHandlerUtils::GetEnumValue(static_cast<ENUM_VALUE_TYPE>(table), text, nullptr);
  } catch (const ZQXMLException& exception) {
    EXPECT_EQ(exception.GetErrorNumber(), 8943);
    EXPECT_STREQ(exception.GetErrorMsg(), "");
    return -1;
  }
}

TEST(Enumerations, EveryTagAndAForeignTextInEveryTable) {
  const auto tables = expectedTables();
  ASSERT_EQ(tables.size(), size_t{kTables});
  int verdicts = 0;
  for (const auto& [number, table] : tables) {
    for (const auto& [text, id] : vocabulary()) {
      const auto word = table.words.find(text);
      const long expected = word != table.words.end() ? static_cast<long>(word->second) : -1;
      EXPECT_EQ(verdict(number, text.c_str()), expected) << table.name << " " << text;
      ++verdicts;
    }
    EXPECT_EQ(verdict(number, "foreign"), -1);
    ++verdicts;
  }
  EXPECT_EQ(verdicts, 27594);
}

TEST(Enumerations, EachWordOfATableIsATagAndStandsThereOnce) {
  for (const auto& [number, table] : expectedTables()) {
    EXPECT_EQ(enumWords(static_cast<ENUM_VALUE_TYPE>(number)).size(), table.words.size())
        << table.name;
    for (const auto& [word, value] : table.words) {
      EXPECT_EQ(vocabulary().count(word), 1U) << word;
    }
  }
}

TEST(Enumerations, TheTablesHaveTheirNumbers) {
#define NUMBER(name) \
  { #name, name }
  const std::map<std::string, int> numbers = {
      NUMBER(ENUM_MENU),
      NUMBER(ENUM_BOOLEAN),
      NUMBER(ENUM_OPERATION),
      NUMBER(ENUM_STATUS_TAG),
      NUMBER(ENUM_QUERY_MULTI),
      NUMBER(ENUM_UNUSED_6),
      NUMBER(ENUM_UNUSED_7),
      NUMBER(ENUM_BYTE_LIST_TYPE),
      NUMBER(ENUM_PERMISSION),
      NUMBER(ENUM_UNIQUE_INDEX),
      NUMBER(ENUM_SORT_ORDER),
      NUMBER(ENUM_VUI_TYPE),
      NUMBER(ENUM_FIELD),
      NUMBER(ENUM_FIELD_LIMIT),
      NUMBER(ENUM_NO_MATCH),
      NUMBER(ENUM_MULTI_MATCH),
      NUMBER(ENUM_FUNCTION),
      NUMBER(ENUM_DDE),
      NUMBER(ENUM_UNUSED_19),
      NUMBER(ENUM_FILTER_EXECUTE),
      NUMBER(ENUM_ACTIVE_LINK_EXECUTE),
      NUMBER(ENUM_ACTIVE_LINK_MESSAGE),
      NUMBER(ENUM_FILTER_MESSAGE),
      NUMBER(ENUM_WINDOW_MODE),
      NUMBER(ENUM_NOTIFY_FIELDS),
      NUMBER(ENUM_FOCUS),
      NUMBER(ENUM_ACCESS_OPTION),
      NUMBER(ENUM_DAY_OF_WEEK),
      NUMBER(ENUM_CONTAINER_TYPE),
      NUMBER(ENUM_OWNER_TYPE),
      NUMBER(ENUM_REFERENCE_TYPE),
      NUMBER(ENUM_DSO_UPDATE),
      NUMBER(ENUM_DSO_TRANSFER),
      NUMBER(ENUM_DSO_DUPLICATE),
      NUMBER(ENUM_DSO_MAP_TYPE),
      NUMBER(ENUM_SUPPORT_FILE),
      NUMBER(ENUM_JOIN_OPTION),
      NUMBER(ENUM_FORM_TYPE),
      NUMBER(ENUM_DD_NAME),
      NUMBER(ENUM_DD_FIELD),
      NUMBER(ENUM_DD_FORM),
      NUMBER(ENUM_MAP_KIND),
  };
#undef NUMBER
  for (const auto& [number, table] : expectedTables()) {
    EXPECT_EQ(numbers.at(table.name), number);
  }
  EXPECT_EQ(numbers.size(), size_t{kTables});
}

TEST(Enumerations, WordsAreComparedExactly) {
  for (const char* text :
       {"True", "TRUE", "true ", " true", "tru", "truefalse", "", "1", "\xC3\xA9", "\xFF"}) {
    EXPECT_EQ(verdict(ENUM_BOOLEAN, text), -1) << text;
  }
  EXPECT_EQ(verdict(ENUM_BOOLEAN, nullptr), -1);
  EXPECT_EQ(verdict(ENUM_BYTE_LIST_TYPE, "jpeg"), -1);
  EXPECT_EQ(verdict(ENUM_BYTE_LIST_TYPE, "JPEG"), 2);
}

TEST(Enumerations, UnknownTablesAndTablesWithoutWordsRefuseEveryText) {
  for (const int number : {0, -1, 6, 7, 19, 43, 1000, 2147483647}) {
    for (const char* text : {"true", "none", "foreign", ""}) {
      EXPECT_EQ(verdict(number, text), -1) << number;
    }
  }
}

TEST(Enumerations, TheTextOfTheFailureIsThePlace) {
  const FixedLocator locator(7, 12);
  const xercesc::Locator* there = &locator;
  const xercesc::Locator* absent = nullptr;
  const struct {
    const xercesc::Locator* const* given;
    const char* text;
  } cases[] = {{&there, "line: 7, column 12"}, {&absent, ""}, {nullptr, ""}};
  for (const auto& row : cases) {
    try {
      ZQXMLHandlerUtils::GetEnumValue(ZQXMLHandlerUtils::ENUM_MENU, "foreign", row.given);
      ADD_FAILURE() << "accepted";
    } catch (const ZQXMLException& exception) {
      EXPECT_EQ(exception.GetErrorNumber(), 8943);
      EXPECT_STREQ(exception.GetErrorMsg(), row.text);
    }
  }
}

}  // namespace
