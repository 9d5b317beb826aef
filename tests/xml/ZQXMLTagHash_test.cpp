#include "xml/ZQXMLTagHash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "xml/Vocabulary.h"
#include "xml/ZQXMLException.h"

namespace {

using Entry = ZQXMLTagHash::Entry;

std::u16string widened(const std::string& text) {
  return std::u16string(text.begin(), text.end());
}

TEST(TagHash, EachTextHasItsId) {
  ASSERT_EQ(vocabulary().size(), 656U);
  for (const auto& [text, id] : vocabulary()) {
    EXPECT_EQ(gTagHash.Get(text.c_str()), id) << text;
    EXPECT_EQ(gTagHash.Get(widened(text).c_str()), id) << text;
  }
}

TEST(TagHash, EachIdHasItsText) {
  for (const auto& [text, id] : vocabulary()) {
    EXPECT_EQ(tagText(id), text);
    EXPECT_EQ(std::u16string(tagXMLText(id)), widened(text));
  }
  for (const int id : {0, -1, 657, 1000000, -2147483647 - 1, 2147483647}) {
    EXPECT_EQ(tagText(id), "");
    EXPECT_EQ(std::u16string(tagXMLText(id)), u"");
  }
}

TEST(TagHash, TheRunOutOfOrderHasItsIds) {
  const std::map<std::string, int> run = {
      {"unique", -1},         {"unchanged", 589},         {"undisplay", 590},
      {"uniqueIndex", 591},   {"updateCode", 597},        {"upgradeVersion", 598},
      {"upper", 599},         {"useFirstMatch", 601},     {"use", 600},
      {"user", 603},          {"unsignedByte", 592},      {"unsignedInt", 593},
      {"unsignedLong", 594},  {"unsignedLongValue", 595}, {"unsignedShort", 596},
      {"usePromptPane", 602}, {"userDefined", 604},       {"userName", 605},
      {"username", 606},      {"absoluteOrder", 1},       {"year", 656},
  };
  for (const auto& [text, id] : run) {
    EXPECT_EQ(gTagHash.Get(text.c_str()), id) << text;
  }
}

TEST(TagHash, SymbolsCarryTheIds) {
  EXPECT_EQ(tag_absoluteOrder, 1);
  EXPECT_EQ(tag_root, gTagHash.Get("root"));
  EXPECT_EQ(tag_userName, 605);
  EXPECT_EQ(tag_username, 606);
  EXPECT_EQ(tag_year, 656);
}

TEST(TagHash, OtherTextsAreUnknown) {
  for (const char* text :
       {"", "bogus", "Form", "FORM", "form ", " form", "forms", "for", "xmlns:", ":form", "mrof",
        "\xC3\xA9", "\xFF", "\x80\x81\xFE\xFF", "form\xC3\xA9"}) {
    EXPECT_EQ(gTagHash.Get(text), -1) << text;
  }
  EXPECT_EQ(gTagHash.Get(static_cast<const char*>(nullptr)), -1);
  for (const char16_t* text :
       {u"", u"bogus", u"Form", u"form ", u"forms", u"for", u"mrof", u"\u00e9", u"\xFFFF\xFFFF"}) {
    EXPECT_EQ(gTagHash.Get(text), -1);
  }
  EXPECT_EQ(gTagHash.Get(static_cast<const char16_t*>(nullptr)), -1);
}

TEST(TagHash, AUnitIsNotTakenForItsLowByte) {
  for (const auto& [text, id] : vocabulary()) {
    for (size_t i = 0; i < text.size(); ++i) {
      std::u16string wide = widened(text);
      wide[i] = static_cast<char16_t>(wide[i] + 0x100);
      EXPECT_EQ(gTagHash.Get(wide.c_str()), -1) << text;
      // The same sum of bytes modulo the number of buckets.
      wide[i] = static_cast<char16_t>(text[i] + 719);
      EXPECT_EQ(gTagHash.Get(wide.c_str()), -1) << text;
    }
  }
}

TEST(TagHash, NoPrefixOrExtensionOfATagIsFoundUnlessItIsOne) {
  const auto expected = [](const std::string& text) {
    const auto found = vocabulary().find(text);
    return found != vocabulary().end() ? found->second : -1;
  };
  for (const auto& [text, id] : vocabulary()) {
    for (size_t length = 0; length < text.size(); ++length) {
      const std::string prefix = text.substr(0, length);
      EXPECT_EQ(gTagHash.Get(prefix.c_str()), expected(prefix));
      EXPECT_EQ(gTagHash.Get(widened(prefix).c_str()), expected(prefix));
    }
    for (const char* more : {"s", "Name", "List", "Value", "Type"}) {
      EXPECT_EQ(gTagHash.Get((text + more).c_str()), expected(text + more));
      EXPECT_EQ(gTagHash.Get(widened(text + more).c_str()), expected(text + more));
    }
  }
}

TEST(TagHash, TheKeyIsTheSumOfTheBytesModulo719) {
  const struct {
    std::string text;
    int key;
  } cases[] = {
      {"", 0},
      {"a", 97},
      {"X", 88},
      {"form", 102 + 111 + 114 + 109},
      {"root", 114 + 111 + 111 + 116},
      {"server", (115 + 101 + 114 + 118 + 101 + 114)},
      {"\xFF", 255},
      {"\xFF\xFF\xFF", 765 - 719},
      {"\xC3\xA9", 0xC3 + 0xA9},
      {std::string(1000, '\xFE'), 254000 % 719},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(ZQXMLTagHash::GetHashKey(row.text.c_str()), row.key) << row.text;
  }
}

TEST(TagHash, TheTextsOccupy401BucketsOf719WithChainsOfAtMost6) {
  EXPECT_EQ(ZQXMLTagHash::kBuckets, 719U);
  std::map<int, int> chains;
  for (const auto& [text, id] : vocabulary()) {
    ++chains[ZQXMLTagHash::GetHashKey(text.c_str())];
  }
  EXPECT_EQ(chains.size(), 401U);
  const auto longest = std::max_element(chains.begin(), chains.end(),
                                        [](auto& a, auto& b) { return a.second < b.second; });
  EXPECT_EQ(longest->second, 6);
}

TEST(TagHash, EachTableIsFilledWhenItIsMade) {
  const ZQXMLTagHash table;
  for (const auto& [text, id] : vocabulary()) {
    EXPECT_EQ(table.Get(text.c_str()), id);
  }
}

TEST(TagHash, ALaterEntryOfABucketIsFoundFirst) {
  ZQXMLTagHash table;
  table.Insert("form", 9001);
  table.Insert("mrof", 9002);  // the same bucket
  EXPECT_EQ(table.Get("form"), 9001);
  EXPECT_EQ(table.Get(u"form"), 9001);
  EXPECT_EQ(table.Get("mrof"), 9002);
}

TEST(TagHash, AListEndsWithExactlyTheEndMarker) {
  const struct {
    std::vector<Entry> entries;
    bool good;
  } cases[] = {
      {{{nullptr, 0xFFFFFFFF}}, true},
      {{{"new1", 700}, {"new2", 701}, {nullptr, 0xFFFFFFFF}}, true},
      {{{"new1", 700}, {nullptr, 0xFFFFFFFE}}, false},
      {{{"new1", 700}, {nullptr, 0}}, false},
      {{{"new1", 700}, {nullptr, 5}}, false},
      {{{"new1", 700}, {"new2", 0xFFFFFFFF}}, false},
      {{{"new1", 700}, {"new2", 0xFFFFFFFE}}, false},
      {{{nullptr, 0xFFFFFFFE}}, false},
  };
  for (const auto& row : cases) {
    ZQXMLTagHash table;
    int number = 0;
    try {
      table.Initialize(row.entries.data());
    } catch (const ZQXMLException& exception) {
      number = exception.GetErrorNumber();
      EXPECT_STREQ(exception.GetErrorMsg(), "");
    }
    EXPECT_EQ(number, row.good ? 0 : 8938);
    // What stood ahead of the end is in the table.
    for (size_t i = 0; i + 1 < row.entries.size(); ++i) {
      EXPECT_EQ(table.Get(row.entries[i].tag), static_cast<int>(row.entries[i].id));
    }
  }
}

TEST(TagHash, AFailedInsertGives300AndLeavesTheTableAlone) {
  ZQXMLTagHash table;
  int number = 0;
  {
    const fault::FailingAllocations failing(0);
    try {
      table.Insert("newTag", 700);
    } catch (const ZQXMLException& exception) {
      number = exception.GetErrorNumber();
    }
  }
  EXPECT_EQ(number, 300);
  EXPECT_EQ(table.Get("newTag"), -1);
  EXPECT_EQ(table.Get("form"), gTagHash.Get("form"));
}

TEST(TagHash, AFailedAllocationWhileATableIsMadeGives300AndLeaksNothing) {
  const long injected = fault::forEachFailure([](auto arm) {
    const long before = fault::liveBlocks();
    int number = 0;
    bool failed = false;
    {
      const auto failing = arm();
      try {
        const ZQXMLTagHash table;
      } catch (const ZQXMLException& exception) {
        number = exception.GetErrorNumber();
      }
      failed = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(number, failed ? 300 : 0);
    EXPECT_EQ(fault::liveBlocks(), before);
    return failed;
  });
  EXPECT_GE(injected, 2 * 656);
}

}  // namespace
