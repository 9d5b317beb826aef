#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "records/StatusLists.h"
#include "zqxml/status.h"

namespace {

enum class Into { Third, First, Second };

// Records in a short form: a digit, the severity, and a letter, the appended text.
using Shorthand = std::string;

void fill(ZQStatusList* list, const Shorthand& records) {
  for (size_t i = records.size(); i > 0; i -= 2) {
    ZQAddErrorMessage(list, static_cast<unsigned>(records[i - 2] - '0'), 300,
                      records.substr(i - 1, 1).c_str());
  }
}

Shorthand shorthandOf(const ZQStatusList& list) {
  Shorthand text;
  for (uint32_t i = 0; i < list.numItems; ++i) {
    text += static_cast<char>('0' + list.items[i].messageType);
    text += list.items[i].appendedText;
  }
  return text;
}

// Merges two lists and checks what has to hold for each way of passing the result. Returns the
// merged records.
Shorthand merge(const Shorthand& firstRecords, const Shorthand& secondRecords, Into into) {
  const long before = fault::liveBlocks();
  Shorthand merged;
  {
    ZQStatusList first = {};
    ZQStatusList second = {};
    ZQStatusList third = {};
    fill(&first, firstRecords);
    fill(&second, secondRecords);
    const ZQStatusList oldFirst = first;
    const ZQStatusList oldSecond = second;
    ZQStatusList& result = into == Into::First ? first : into == Into::Second ? second : third;
    MergeZQStatusLists(&first, &second, &result);
    merged = shorthandOf(result);
    if (oldFirst.numItems > 0 && oldSecond.numItems > 0) {
      // Both were filled, so both are cleared.
      for (const ZQStatusList* input : {&first, &second}) {
        if (input != &result) {
          EXPECT_EQ(input->numItems, 0U);
          EXPECT_EQ(input->items, nullptr);
        }
      }
    } else {
      // Nothing is copied: the result takes the array, and the input keeps it as well.
      const ZQStatusList& filled = oldFirst.numItems > 0 ? oldFirst : oldSecond;
      EXPECT_EQ(result.items, filled.items);
      EXPECT_EQ(result.numItems, filled.numItems);
      const ZQStatusList& input = oldFirst.numItems > 0 ? first : second;
      EXPECT_EQ(input.items, filled.items);
      EXPECT_EQ(input.numItems, filled.numItems);
    }
    FreeZQStatusList(&result, 0);
  }
  EXPECT_EQ(fault::liveBlocks(), before);
  return merged;
}

// What the three bands give: in each the second list stands ahead of the first.
Shorthand expectedMerge(const Shorthand& first, const Shorthand& second) {
  if (first.empty() || second.empty()) {
    return first + second;
  }
  Shorthand errors[2];
  Shorthand warnings[2];
  Shorthand notes[2];
  for (const int which : {0, 1}) {
    const Shorthand& records = which == 0 ? second : first;
    for (size_t i = 0; i < records.size(); i += 2) {
      Shorthand* band = records[i] >= '2' ? errors : records[i] == '1' ? warnings : notes;
      band[which] += records.substr(i, 2);
    }
  }
  return errors[0] + errors[1] + warnings[0] + warnings[1] + notes[0] + notes[1];
}

// All lists of at most `length` records of the severities 0 to 3, in order, named from `letter` on.
std::vector<Shorthand> allLists(size_t length, char letter) {
  std::vector<Shorthand> lists = {""};
  for (size_t begin = 0, end = 1, i = 0; i < length; ++i, begin = end, end = lists.size()) {
    for (size_t k = begin; k < end; ++k) {
      const char highest = lists[k].empty() ? '3' : lists[k][lists[k].size() - 2];
      for (char severity = '0'; severity <= highest; ++severity) {
        lists.push_back(lists[k] + severity + static_cast<char>(letter + static_cast<char>(i)));
      }
    }
  }
  return lists;
}

TEST(MergeStatusLists, TheBandsOfTheSecondListStandAhead) {
  const struct {
    Shorthand first;
    Shorthand second;
    Shorthand merged;
  } cases[] = {
      {"2A0B", "1C0D", "2A1C0D0B"},
      {"2A", "2B", "2B2A"},
      {"1A", "1B", "1B1A"},
      {"0A", "0B", "0B0A"},
      {"0A", "2B", "2B0A"},
      {"2A", "0B", "2A0B"},
      {"2A1B0C", "2D1E0F", "2D2A1E1B0F0C"},
      {"2A2B", "1C1D0E", "2A2B1C1D0E"},
      // One band holds all severities from 2 up, and they are not ordered anew in it.
      {"3A2B", "2C", "2C3A2B"},
      {"2A", "3B", "3B2A"},
  };
  for (const auto& row : cases) {
    for (const Into into : {Into::Third, Into::First, Into::Second}) {
      EXPECT_EQ(merge(row.first, row.second, into), row.merged) << row.first << " " << row.second;
    }
  }
}

TEST(MergeStatusLists, AllPairsOfShortListsIntoEachResult) {
  for (const Shorthand& first : allLists(3, 'a')) {
    for (const Shorthand& second : allLists(3, 'x')) {
      for (const Into into : {Into::Third, Into::First, Into::Second}) {
        EXPECT_EQ(merge(first, second, into), expectedMerge(first, second))
            << first << " " << second;
      }
    }
  }
}

TEST(MergeStatusLists, TwoEmptyListsClearTheResult) {
  ZQStatusStruct other = {};
  ZQStatusList first = {};
  ZQStatusList second = {};
  ZQStatusList result = {3, &other};
  MergeZQStatusLists(&first, &second, &result);
  EXPECT_EQ(result.numItems, 0U);
  EXPECT_EQ(result.items, nullptr);
  result = {3, &other};
  MergeZQStatusLists(nullptr, nullptr, &result);
  EXPECT_EQ(result.numItems, 0U);
  EXPECT_EQ(result.items, nullptr);
}

TEST(MergeStatusLists, WhatAThirdResultHeldIsOverwrittenAndNotFreed) {
  for (const Shorthand& second : {Shorthand(""), Shorthand("1B")}) {
    for (const Shorthand& first : {Shorthand(""), Shorthand("2A")}) {
      ZQStatusList one = {};
      ZQStatusList two = {};
      OwnedStatusList old;
      fill(&one, first);
      fill(&two, second);
      fill(&old, "2O");
      ZQStatusList result = old;
      MergeZQStatusLists(&one, &two, &result);
      EXPECT_EQ(shorthandOf(result), first + second);
      EXPECT_EQ(shorthandOf(old), "2O");
      FreeZQStatusList(&result, 0);
    }
  }
}

TEST(MergeStatusLists, NullInputsCountAsEmpty) {
  ZQStatusList list = {};
  fill(&list, "2A1B");
  const ZQStatusList old = list;
  ZQStatusList result = {};
  MergeZQStatusLists(nullptr, &list, &result);
  EXPECT_EQ(result.items, old.items);
  result = {};
  MergeZQStatusLists(&list, nullptr, &result);
  EXPECT_EQ(result.items, old.items);
  MergeZQStatusLists(&list, nullptr, &list);
  MergeZQStatusLists(nullptr, &list, &list);
  EXPECT_EQ(shorthandOf(list), "2A1B");
  FreeZQStatusList(&list, 0);
}

TEST(MergeStatusLists, ANullResultDoesNothing) {
  OwnedStatusList first;
  OwnedStatusList second;
  fill(&first, "2A");
  fill(&second, "1B");
  MergeZQStatusLists(&first, &second, nullptr);
  MergeZQStatusLists(nullptr, nullptr, nullptr);
  EXPECT_EQ(shorthandOf(first), "2A");
  EXPECT_EQ(shorthandOf(second), "1B");
}

TEST(MergeStatusLists, TheSameListTwiceCountsOnce) {
  ZQStatusList list = {};
  fill(&list, "2A1B");
  const ZQStatusList old = list;
  ZQStatusList result = {};
  MergeZQStatusLists(&list, &list, &result);
  EXPECT_EQ(result.items, old.items);
  EXPECT_EQ(result.numItems, 2U);
  EXPECT_EQ(list.items, old.items);
  MergeZQStatusLists(&list, &list, &list);
  EXPECT_EQ(shorthandOf(list), "2A1B");
  FreeZQStatusList(&list, 0);
  MergeZQStatusLists(&list, &list, &list);
  EXPECT_EQ(list.items, nullptr);
}

TEST(MergeStatusLists, WithoutMemoryTheMoreSevereListStaysAndMessage154IsAdded) {
  const struct {
    Shorthand first;
    Shorthand second;
    const char* kept;
  } cases[] = {
      {"2A0C", "1B", "2/154 ; 2/300 A; 0/300 C"},  // the first is strictly more severe
      {"1A", "2B0C", "2/154 ; 2/300 B; 0/300 C"},
      {"1A", "1B", "2/154 ; 1/300 B"},  // equal: the second
      {"3A", "2B", "3/300 A; 2/154 "},
  };
  for (const auto& row : cases) {
    for (const Into into : {Into::Third, Into::First, Into::Second}) {
      const long before = fault::liveBlocks();
      ZQStatusList first = {};
      ZQStatusList second = {};
      ZQStatusList third = {};
      fill(&first, row.first);
      fill(&second, row.second);
      ZQStatusList& result = into == Into::First ? first : into == Into::Second ? second : third;
      {
        const fault::FailingAllocations failing(0);
        MergeZQStatusLists(&first, &second, &result);
      }
      EXPECT_EQ(describe(result), row.kept);
      FreeZQStatusList(&result, 0);
      // The other list was freed, and no input points to freed memory.
      EXPECT_EQ(fault::liveBlocks(), before);
      EXPECT_EQ(first.items, nullptr);
      EXPECT_EQ(second.items, nullptr);
    }
  }
}

TEST(MergeStatusLists, NoFailedAllocationLeaksOrLosesTheKeptList) {
  const long injected = fault::forEachFailure([](auto arm) {
    const long before = fault::liveBlocks();
    ZQStatusList first = {};
    ZQStatusList second = {};
    ZQStatusList result = {};
    fill(&first, "2A");
    fill(&second, "2B1C");
    bool failed = false;
    {
      const auto failing = arm();
      MergeZQStatusLists(&first, &second, &result);
      failed = fault::FailingAllocations::happened();
    }
    {
      const std::string records = describe(result);
      if (failed) {
        EXPECT_TRUE(records == "2/154 ; 2/300 B; 1/300 C" || records == "2/300 B; 1/300 C")
            << records;
      } else {
        EXPECT_EQ(records, "2/300 B; 2/300 A; 1/300 C");
      }
    }
    FreeZQStatusList(&result, 0);
    EXPECT_EQ(fault::liveBlocks(), before);
    return failed;
  });
  EXPECT_EQ(injected, 2);
}

}  // namespace
