#include "xml/ZQGNString.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "fault/FailingAllocations.h"
#include "xml/ZQXMLException.h"

namespace {

static_assert(std::has_virtual_destructor_v<ZQGNString>);

std::string text(size_t length, char letter = 'a') {
  return std::string(length, letter);
}

// How many allocations an operation makes.
template <typename Operation>
long allocations(Operation operation) {
  const long before = fault::allocationCount();
  operation();
  return fault::allocationCount() - before;
}

long allocationsOfAppend(ZQGNString& string, size_t length) {
  const std::string appended = text(length);
  return allocations([&] { string += appended.c_str(); });
}

std::string contents(ZQGNString& string) {
  return static_cast<char*>(string);
}

TEST(GNString, ANewObjectIsEmptyAndHasNoMemory) {
  EXPECT_EQ(allocations([] {
              ZQGNString string;
              EXPECT_TRUE(string.IsEmpty());
              EXPECT_EQ(string.GetLength(), 0);
              EXPECT_STREQ(string, "");
              string.Empty();
              EXPECT_STREQ(string, "");
            }),
            0);
}

TEST(GNString, TheBlockSizesAre80And8192) {
  EXPECT_EQ(ZQGNString::BLOCKSIZE_ACCUMULATOR, 80);
  EXPECT_EQ(ZQGNString::BLOCKSIZE_DOCUMENT, 8192);
  ZQGNString small;
  EXPECT_EQ(allocationsOfAppend(small, 79), 2);
  EXPECT_EQ(allocationsOfAppend(small, 1), 1);
  ZQGNString big(ZQGNString::BLOCKSIZE_DOCUMENT);
  EXPECT_EQ(allocationsOfAppend(big, 8000), 2);
  EXPECT_EQ(allocationsOfAppend(big, 191), 0);
  EXPECT_EQ(allocationsOfAppend(big, 1), 1);
}

TEST(GNString, AnEmptyAppendMakesTheFirstBlockButNoText) {
  ZQGNString string;
  EXPECT_EQ(allocations([&] { string += ""; }), 2);
  EXPECT_TRUE(string.IsEmpty());
  EXPECT_EQ(string.GetLength(), 0);
  EXPECT_STREQ(string, "");
  EXPECT_EQ(allocationsOfAppend(string, 79), 0);
}

TEST(GNString, ANullTextIsAnEmptyOne) {
  ZQGNString string;
  string += nullptr;
  EXPECT_TRUE(string.IsEmpty());
  string += "abc";
  string += nullptr;
  EXPECT_EQ(contents(string), "abc");
  string = nullptr;
  EXPECT_EQ(contents(string), "");
}

TEST(GNString, AssignmentReplacesAndAppendAppends) {
  ZQGNString string;
  EXPECT_EQ(&(string = "one"), &string);
  EXPECT_EQ(&(string += " two"), &string);
  EXPECT_EQ(contents(string), "one two");
  EXPECT_EQ(string.GetLength(), 7);
  EXPECT_FALSE(string.IsEmpty());
  string = "three";
  EXPECT_EQ(contents(string), "three");
  string = "";
  EXPECT_TRUE(string.IsEmpty());
}

TEST(GNString, ATextFitsABlockWithItsTerminator) {
  ZQGNString string;
  string += text(70).c_str();
  EXPECT_EQ(allocationsOfAppend(string, 9), 0);  // 79 and the terminator
  EXPECT_EQ(allocationsOfAppend(string, 1), 1);
  EXPECT_EQ(string.GetLength(), 80);
}

TEST(GNString, AnOversizedBlockHasABlockOfSlack) {
  // 79 bytes and the terminator are just a block; one more gives 80 + 81 bytes.
  for (const size_t length : {size_t{80}, size_t{81}, size_t{100}, size_t{1000}, size_t{100000}}) {
    ZQGNString string;
    EXPECT_EQ(allocationsOfAppend(string, length), 2);
    EXPECT_EQ(allocationsOfAppend(string, 80), 0);
    EXPECT_EQ(allocationsOfAppend(string, 1), 1);
    EXPECT_EQ(contents(string), text(length + 81));
  }
  ZQGNString exact;
  EXPECT_EQ(allocationsOfAppend(exact, 79), 2);
  EXPECT_EQ(allocationsOfAppend(exact, 1), 1);
}

TEST(GNString, TheBlockArrayGrowsBy20WithOneSpareRecord) {
  ZQGNString string;
  for (int block = 1; block <= 100; ++block) {
    // Blocks 1, 20, 40, ... need a longer array as well.
    const long expected = block == 1 || block % 20 == 0 ? 2 : 1;
    EXPECT_EQ(allocationsOfAppend(string, 79), expected) << block;
  }
  EXPECT_EQ(contents(string), text(7900));
}

TEST(GNString, EmptyKeepsTheBlocksForTheSameTextsAgain) {
  ZQGNString string;
  const auto fill = [&string] {
    for (int i = 0; i < 50; ++i) {
      string += text(static_cast<size_t>(30 + i), static_cast<char>('a' + i % 26)).c_str();
    }
  };
  fill();
  const int length = string.GetLength();
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(allocations([&] { string.Empty(); }), 0);
    EXPECT_TRUE(string.IsEmpty());
    EXPECT_EQ(string.GetLength(), 0);
    const long before = fault::allocationCount();
    std::string appended = text(30);
    const long ofTheTest = fault::allocationCount() - before;
    EXPECT_EQ(ofTheTest, 1);
    fill();
    EXPECT_EQ(string.GetLength(), length);
  }
}

TEST(GNString, AccumulatorsReachAStateWithoutAllocations) {
  ZQGNString string;
  const std::string texts[] = {text(10), text(200), text(40), text(75)};
  const auto round = [&] {
    string.Empty();
    for (const std::string& one : texts) {
      string += one.c_str();
    }
    string = texts[0].c_str();
  };
  round();
  round();
  EXPECT_EQ(allocations(round), 0);
  EXPECT_EQ(allocations(round), 0);
}

TEST(GNString, KeptBlocksServeFromTheFirstOn) {
  ZQGNString string;
  string += text(60, 'a').c_str();
  string += text(60, 'b').c_str();
  string.Empty();
  EXPECT_EQ(allocationsOfAppend(string, 60), 0);
  EXPECT_EQ(allocationsOfAppend(string, 60), 0);
  EXPECT_EQ(allocationsOfAppend(string, 60), 1);
  EXPECT_EQ(contents(string), text(180));
}

TEST(GNString, AKeptBlockThatIsTooSmallIsReplaced) {
  ZQGNString string;
  string = "short";
  EXPECT_EQ(allocations([&] { string = text(100).c_str(); }) - 1, 1);  // one is the test's own
  EXPECT_EQ(contents(string), text(100));
}

TEST(GNString, AKeptBlockOfJustTheNeededSizeIsReplacedToo) {
  ZQGNString string;
  string += text(60).c_str();
  string += text(60).c_str();
  string.Empty();
  string += text(60).c_str();
  // The second block has 80 bytes and 80 are needed: "at most" gives it new memory.
  EXPECT_EQ(allocationsOfAppend(string, 79), 1);
  EXPECT_EQ(contents(string), text(139));
}

TEST(GNString, OneBlockIsReadInPlace) {
  ZQGNString string;
  string += "abc";
  char* first = string;
  EXPECT_EQ(allocations([&] { EXPECT_EQ(static_cast<char*>(string), first); }), 0);
  string += "def";
  EXPECT_EQ(static_cast<char*>(string), first);
  EXPECT_STREQ(first, "abcdef");
}

TEST(GNString, ReadingJoinsTheBlocksAndAnAppendGoesOnInANewOne) {
  ZQGNString string;
  string += text(60, 'a').c_str();
  string += text(60, 'b').c_str();
  string += text(60, 'c').c_str();
  const std::string expected = text(60, 'a') + text(60, 'b') + text(60, 'c');
  char* joined = nullptr;
  EXPECT_EQ(allocations([&] { joined = string; }), 1);
  EXPECT_EQ(joined, expected);
  EXPECT_EQ(allocations([&] { EXPECT_EQ(static_cast<char*>(string), joined); }), 0);
  EXPECT_EQ(string.GetLength(), 180);
  EXPECT_EQ(allocations([&] { string += ""; }), 0);
  EXPECT_EQ(allocationsOfAppend(string, 1), 1);
  EXPECT_EQ(contents(string), expected + "a");
  for (int i = 0; i < 100; ++i) {
    string += "x";
    EXPECT_EQ(contents(string), expected + "a" + text(static_cast<size_t>(i + 1), 'x'));
  }
}

TEST(GNString, DetachHandsTheTextOver) {
  const long before = fault::liveBlocks();
  for (const size_t pieces : {size_t{1}, size_t{2}, size_t{50}}) {
    ZQGNString string;
    for (size_t i = 0; i < pieces; ++i) {
      string += text(70).c_str();
    }
    char* detached = nullptr;
    EXPECT_EQ(string.DetachStrReference(&detached), 0);
    EXPECT_EQ(detached, text(70 * pieces));
    EXPECT_EQ(string.GetLength(), 0);
    EXPECT_TRUE(string.IsEmpty());
    EXPECT_STREQ(string, "");
    string += "again";
    EXPECT_EQ(contents(string), "again");
    EXPECT_EQ(detached, text(70 * pieces));
    free(detached);
  }
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(GNString, DetachOfATextThatWasNeverWrittenIsTheEmptyText) {
  ZQGNString string;
  char* detached = nullptr;
  EXPECT_EQ(string.DetachStrReference(&detached), 0);
  EXPECT_STREQ(detached, "");
  free(detached);
  string += "abc";
  EXPECT_EQ(contents(string), "abc");
}

TEST(GNString, DetachToNowhereLeavesTheText) {
  ZQGNString text;
  EXPECT_EQ(text.DetachStrReference(nullptr), 0);
  text += "abc";
  EXPECT_EQ(text.DetachStrReference(nullptr), 0);
  EXPECT_STREQ(text, "abc");
}

TEST(GNString, DetachTwiceGivesTheEmptyTextTheSecondTime) {
  ZQGNString string;
  string += "abc";
  char* first = nullptr;
  char* second = nullptr;
  string.DetachStrReference(&first);
  string.DetachStrReference(&second);
  EXPECT_STREQ(first, "abc");
  EXPECT_STREQ(second, "");
  free(first);
  free(second);
}

TEST(GNString, TakesItsOwnText) {
  for (const size_t length : {3U, 79U, 80U, 500U}) {
    const std::string once = text(length);
    ZQGNString string;
    string += once.c_str();
    string += static_cast<char*>(string);
    EXPECT_EQ(contents(string), once + once);
    string = static_cast<char*>(string) + length;
    EXPECT_EQ(contents(string), once);
    string = static_cast<char*>(string);
    EXPECT_EQ(contents(string), once);
  }
}

TEST(GNString, CopiesAreDeep) {
  for (const size_t pieces : {0U, 1U, 30U}) {
    const long before = fault::liveBlocks();
    {
      ZQGNString source;
      for (size_t i = 0; i < pieces; ++i) {
        source += text(70).c_str();
      }
      ZQGNString copy(source);
      ZQGNString assigned;
      assigned = "old";
      assigned = source;
      assigned = *&assigned;
      source = "changed";
      EXPECT_EQ(contents(copy), text(70 * pieces));
      EXPECT_EQ(contents(assigned), text(70 * pieces));
    }
    EXPECT_EQ(fault::liveBlocks(), before);
  }
}

TEST(GNString, AFailedAssignmentLeavesTheText) {
  const std::string longer = text(500);
  const long injected = fault::forEachFailure([&longer](auto arm) {
    ZQGNString source;
    source += longer.c_str();
    ZQGNString byText;
    byText = "old";
    ZQGNString byCopy;
    byCopy = "old";
    bool failed = false;
    {
      const auto failing = arm();
      try {
        byText = longer.c_str();
        byCopy = source;
      } catch (const ZQXMLException& exception) {
        failed = exception.GetErrorNumber() == 300;
      }
    }
    const std::string first = contents(byText);
    EXPECT_TRUE(first == "old" || first == longer);
    EXPECT_EQ(contents(byCopy), failed ? "old" : longer);
    return failed;
  });
  EXPECT_GE(injected, 6);
}

TEST(GNString, EmptiedMemoryIsZeroed) {
  ZQGNString string;
  string += "secret";
  char* block = string;
  string.Empty();
  for (int i = 0; i < 80; ++i) {
    EXPECT_EQ(block[i], '\0');
  }
}

TEST(GNString, RandomOperationsAgreeWithAModel) {
  std::mt19937 random(1);
  for (const ZQGNString::BLOCKSIZE size :
       {ZQGNString::BLOCKSIZE_ACCUMULATOR, ZQGNString::BLOCKSIZE_DOCUMENT}) {
    for (int sequence = 0; sequence < 300; ++sequence) {
      const long before = fault::liveBlocks();
      {
        ZQGNString string(size);
        std::string model;
        for (int step = 0; step < 200; ++step) {
          const size_t length = random() % 8 == 0 ? random() % 20000 : random() % 100;
          const std::string operand = text(length, static_cast<char>('a' + random() % 26));
          switch (random() % 16) {
            case 0:
              string.Empty();
              model.clear();
              break;
            case 1:
              string = operand.c_str();
              model = operand;
              break;
            case 2: {
              char* detached = nullptr;
              ASSERT_EQ(string.DetachStrReference(&detached), 0);
              ASSERT_EQ(detached != nullptr ? detached : "", model);
              free(detached);
              model.clear();
              break;
            }
            case 3:
              ASSERT_EQ(contents(string), model);
              break;
            default:
              string += operand.c_str();
              model += operand;
              break;
          }
          ASSERT_EQ(string.GetLength(), static_cast<int>(model.size()));
          ASSERT_EQ(string.IsEmpty(), model.empty());
        }
        ASSERT_EQ(contents(string), model);
      }
      ASSERT_EQ(fault::liveBlocks(), before);
    }
  }
}

TEST(GNString, AFailedAllocationGives300AndLosesNoText) {
  const std::string piece = text(70);
  const std::string big = text(500, 'b');
  // Appends over the first growth of the array, with a reading and a replacement in between.
  const auto step = [&](ZQGNString& string, std::string* model, int i) {
    if (i == 30) {
      string = piece.c_str();
      *model = piece;
    } else if (i % 10 == 9) {
      static_cast<void>(static_cast<char*>(string));
    } else {
      const std::string& operand = i % 7 == 3 ? big : piece;
      string += operand.c_str();
      model->append(operand);
    }
  };
  const long injected = fault::forEachFailure([&](auto arm) {
    const long before = fault::liveBlocks();
    bool failed = false;
    {
      ZQGNString string;
      std::string model;
      model.reserve(20000);
      int number = 0;
      int i = 0;
      {
        const auto failing = arm();
        try {
          for (; i < 60; ++i) {
            step(string, &model, i);
          }
        } catch (const ZQXMLException& exception) {
          number = exception.GetErrorNumber();
        }
        failed = fault::FailingAllocations::happened();
      }
      EXPECT_EQ(number, failed ? 300 : 0);
      // What was there stays; a replacement has emptied the text before it needs memory.
      EXPECT_EQ(string.GetLength(), static_cast<int>(i == 30 ? 0 : model.size())) << i;
      EXPECT_EQ(contents(string), i == 30 ? "" : model) << i;
      // The text goes on from there.
      for (; i < 60; ++i) {
        step(string, &model, i);
        EXPECT_EQ(string.GetLength(), static_cast<int>(model.size()));
      }
      EXPECT_EQ(contents(string), model);
    }
    EXPECT_EQ(fault::liveBlocks(), before);
    return failed;
  });
  EXPECT_GT(injected, 40);
}

TEST(GNString, AnAppendGoesOnBehindAFailedOne) {
  // The append that needs the second block fails for want of memory for its block.
  ZQGNString string;
  string += text(70, 'a').c_str();
  const std::string more = text(70, 'b');
  EXPECT_THROW(
      {
        const fault::FailingAllocations failing(0);
        string += more.c_str();
      },
      ZQXMLException);
  string += more.c_str();
  EXPECT_EQ(string.GetLength(), 140);
  EXPECT_EQ(contents(string), text(70, 'a') + more);
}

TEST(GNString, AFailedJoinForDetachGives300AndKeepsTheText) {
  ZQGNString string;
  string += text(70).c_str();
  string += text(70).c_str();
  char* detached = nullptr;
  int number = 0;
  {
    const fault::FailingAllocations failing(0);
    try {
      string.DetachStrReference(&detached);
    } catch (const ZQXMLException& exception) {
      number = exception.GetErrorNumber();
    }
  }
  EXPECT_EQ(number, 300);
  EXPECT_EQ(detached, nullptr);
  EXPECT_EQ(contents(string), text(140));
}

}  // namespace
