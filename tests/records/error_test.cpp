#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "fault/FailingAllocations.h"
#include "records/StatusLists.h"
#include "zqxml/status.h"

namespace {

TEST(StatusList, GetMessageIsNull) {
  EXPECT_EQ(ZQGetMessage(), nullptr);
}

TEST(StatusList, RecordsStandByDescendingSeverity) {
  OwnedStatusList list;
  EXPECT_EQ(ZQAddErrorMessage(&list, 0, 300, "note"), 0);
  EXPECT_EQ(ZQAddErrorMessage(&list, 2, 300, "error"), 2);
  EXPECT_EQ(ZQAddErrorMessage(&list, 1, 300, "warning"), 2);
  EXPECT_EQ(describe(list), "2/300 error; 1/300 warning; 0/300 note");
}

TEST(StatusList, ANewRecordStandsAheadOfOlderOnesOfItsSeverity) {
  OwnedStatusList list;
  for (const unsigned severity : {0U, 1U, 2U}) {
    ZQAddErrorMessage(&list, severity, 300, "old");
  }
  EXPECT_EQ(ZQAddErrorMessage(&list, 2, 8940, "new"), 2);
  EXPECT_EQ(ZQAddErrorMessage(&list, 1, 8940, "new"), 2);
  EXPECT_EQ(ZQAddErrorMessage(&list, 0, 8940, "new"), 2);
  EXPECT_EQ(describe(list), "2/8940 new; 2/300 old; 1/8940 new; 1/300 old; 0/8940 new; 0/300 old");
}

TEST(StatusList, TheResultIsTheSeverityOfTheFirstRecord) {
  OwnedStatusList list;
  EXPECT_EQ(ZQAddErrorMessage(&list, 1, 300, nullptr), 1);
  EXPECT_EQ(ZQAddErrorMessage(&list, 0, 300, nullptr), 1);
  EXPECT_EQ(ZQAddErrorMessage(&list, 7, 300, nullptr), 7);
  EXPECT_EQ(ZQAddErrorMessage(&list, 2, 300, nullptr), 7);
}

TEST(StatusList, OldTextsMoveIntoTheNewArray) {
  OwnedStatusList list;
  ZQAddErrorMessage(&list, 1, 300, "kept");
  const char* const messageText = list.items[0].messageText;
  const char* const appendedText = list.items[0].appendedText;
  ZQAddErrorMessage(&list, 2, 300, "first");
  ZQAddErrorMessage(&list, 0, 300, "last");
  EXPECT_EQ(list.items[1].messageText, messageText);
  EXPECT_EQ(list.items[1].appendedText, appendedText);
}

TEST(StatusList, ANullAppendedTextStaysNullAndAnEmptyOneStaysEmpty) {
  OwnedStatusList list;
  ZQAddErrorMessage(&list, 2, 300, nullptr);
  EXPECT_EQ(list.items[0].appendedText, nullptr);
  ZQAddErrorMessage(&list, 2, 300, "");
  ASSERT_NE(list.items[0].appendedText, nullptr);
  EXPECT_STREQ(list.items[0].appendedText, "");
}

TEST(StatusList, TheAppendedTextIsACopy) {
  OwnedStatusList list;
  char text[] = "detail";
  ZQAddErrorMessage(&list, 2, 300, text);
  text[0] = 'X';
  EXPECT_STREQ(list.items[0].appendedText, "detail");
}

TEST(StatusList, TheAppendedTextIsCutAt255Bytes) {
  for (size_t length = 0; length <= 600; ++length) {
    OwnedStatusList list;
    std::string text;
    for (size_t i = 0; i < length; ++i) {
      text += static_cast<char>('a' + i % 26);
    }
    ZQAddErrorMessage(&list, 2, 300, text.c_str());
    EXPECT_EQ(list.items[0].appendedText, text.substr(0, 255)) << length;
  }
}

TEST(StatusList, TheCutMaySplitACharacter) {
  OwnedStatusList list;
  const std::string text = std::string(254, 'a') + "\xC3\xA9";
  ZQAddErrorMessage(&list, 2, 300, text.c_str());
  EXPECT_EQ(list.items[0].appendedText, std::string(254, 'a') + "\xC3");
}

TEST(StatusList, AnIdBecomesItsDecimalText) {
  const struct {
    unsigned long id;
    const char* text;
  } cases[] = {{0, "0"},
               {4, "4"},
               {4294967295UL, "4294967295"},
               {4294967296UL, "4294967296"},
               {ULONG_MAX, "18446744073709551615"}};
  for (const auto& row : cases) {
    OwnedStatusList list;
    EXPECT_EQ(ZQAddErrorMessageId(&list, 2, 8952, row.id), 2);
    EXPECT_EQ(describe(list), std::string("2/8952 ") + row.text);
  }
  OwnedStatusList list;
  ZQAddErrorMessage(&list, 2, 300, "");
  EXPECT_EQ(ZQAddErrorMessageId(&list, 1, 8952, 12), 2);
  EXPECT_EQ(describe(list), "2/300 ; 1/8952 12");
}

TEST(StatusList, ANullListRecordsNothingAndTheResultIsTheSeverity) {
  for (const unsigned severity : {0U, 1U, 2U}) {
    EXPECT_EQ(ZQAddErrorMessage(nullptr, severity, 300, "text"), static_cast<int>(severity));
    EXPECT_EQ(ZQAddErrorMessageId(nullptr, severity, 300, 5), static_cast<int>(severity));
  }
}

TEST(StatusList, AFailedAllocationGives3AndLeavesTheListAlone) {
  for (const char* appended : {static_cast<const char*>(nullptr), "", "detail"}) {
    const long injected = fault::forEachFailure([&](auto arm) {
      const long before = fault::liveBlocks();
      bool failed = false;
      {
        OwnedStatusList list;
        ZQAddErrorMessage(&list, 1, 300, "old");
        const ZQStatusStruct* const items = list.items;
        const long filled = fault::liveBlocks();
        int result = 0;
        {
          const auto failing = arm();
          result = ZQAddErrorMessage(&list, 2, 8940, appended);
          failed = fault::FailingAllocations::happened();
        }
        EXPECT_EQ(result, failed ? 3 : 2);
        EXPECT_EQ(list.numItems, failed ? 1U : 2U);
        if (failed) {
          EXPECT_EQ(list.items, items);
          EXPECT_EQ(describe(list), "1/300 old");
          EXPECT_EQ(fault::liveBlocks(), filled);
        }
      }
      EXPECT_EQ(fault::liveBlocks(), before);
      return failed;
    });
    // The array, the message's text and the appended text, once and from there on.
    EXPECT_EQ(injected, appended == nullptr ? 4 : 6);
  }
}

TEST(StatusList, AFailedAllocationOfAnIdRecordGives3) {
  fault::forEachFailure([](auto arm) {
    OwnedStatusList list;
    int result = 0;
    bool failed = false;
    {
      const auto failing = arm();
      result = ZQAddErrorMessageId(&list, 2, 8952, 4);
      failed = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(result, failed ? 3 : 2);
    EXPECT_EQ(describe(list), failed ? "" : "2/8952 4");
    return failed;
  });
}

TEST(CopyStatus, ARecordIsCopiedWithItsTexts) {
  char message[] = "message";
  char detail[] = "detail";
  for (char* messageText : {static_cast<char*>(nullptr), message}) {
    for (char* appendedText : {static_cast<char*>(nullptr), detail}) {
      const ZQStatusStruct source = {1, -7, messageText, appendedText};
      ZQStatusStruct copy;
      memset(&copy, 0xA5, sizeof copy);
      EXPECT_EQ(CopyZQStatusStruct(&copy, &source), 0U);
      EXPECT_EQ(copy.messageType, 1U);
      EXPECT_EQ(copy.messageNum, -7);
      EXPECT_STREQ(copy.messageText, messageText);
      EXPECT_STREQ(copy.appendedText, appendedText);
      EXPECT_TRUE(messageText == nullptr || copy.messageText != messageText);
      EXPECT_TRUE(appendedText == nullptr || copy.appendedText != appendedText);
      free(copy.messageText);
      free(copy.appendedText);
    }
  }
}

TEST(CopyStatus, AFailedCopyOfARecordGives300AndOwnsNothing) {
  char message[] = "message";
  char detail[] = "detail";
  const ZQStatusStruct source = {1, 300, message, detail};
  const long injected = fault::forEachFailure([&](auto arm) {
    const long before = fault::liveBlocks();
    ZQStatusStruct copy = {};
    unsigned result = 0;
    bool failed = false;
    {
      const auto failing = arm();
      result = CopyZQStatusStruct(&copy, &source);
      failed = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(result, failed ? 300U : 0U);
    if (failed) {
      EXPECT_EQ(copy.messageText, nullptr);
      EXPECT_EQ(copy.appendedText, nullptr);
      EXPECT_EQ(fault::liveBlocks(), before);
    }
    free(copy.messageText);
    free(copy.appendedText);
    return failed;
  });
  EXPECT_EQ(injected, 4);
}

TEST(CopyStatus, AListIsCopiedInItsOrder) {
  OwnedStatusList source;
  ZQAddErrorMessage(&source, 0, 300, nullptr);
  ZQAddErrorMessage(&source, 2, 8940, "");
  ZQAddErrorMessage(&source, 1, 8914, "text");
  OwnedStatusList copy;
  copy.numItems = 77;
  copy.items = source.items;
  EXPECT_EQ(CopyZQStatusList(&copy, &source), 0U);
  EXPECT_EQ(describe(copy), "2/8940 ; 1/8914 text; 0/300 <null>");
  EXPECT_EQ(describe(source), describe(copy));
  for (uint32_t i = 0; i < copy.numItems; ++i) {
    EXPECT_STREQ(copy.items[i].messageText, source.items[i].messageText);
    EXPECT_NE(copy.items[i].messageText, source.items[i].messageText);
  }
}

TEST(CopyStatus, AnEmptyOrNullSourceGivesAnEmptyList) {
  const ZQStatusList empty = {};
  for (const ZQStatusList* source : {static_cast<const ZQStatusList*>(nullptr), &empty}) {
    ZQStatusStruct other = {};
    ZQStatusList copy = {5, &other};
    EXPECT_EQ(CopyZQStatusList(&copy, source), 0U);
    EXPECT_EQ(copy.numItems, 0U);
    EXPECT_EQ(copy.items, nullptr);
  }
}

TEST(CopyStatus, NullDestinationsAreIgnored) {
  const ZQStatusStruct record = {};
  const ZQStatusList list = {};
  EXPECT_EQ(CopyZQStatusList(nullptr, &list), 0U);
  EXPECT_EQ(CopyZQStatusStruct(nullptr, &record), 0U);
  ZQStatusStruct untouched = {2, 5, nullptr, nullptr};
  EXPECT_EQ(CopyZQStatusStruct(&untouched, nullptr), 0U);
  EXPECT_EQ(untouched.messageNum, 5);
}

TEST(CopyStatus, AFailedCopyOfAListGives300AndAnEmptyList) {
  OwnedStatusList source;
  ZQAddErrorMessage(&source, 0, 300, "a");
  ZQAddErrorMessage(&source, 1, 300, nullptr);
  ZQAddErrorMessage(&source, 2, 300, "b");
  const long injected = fault::forEachFailure([&](auto arm) {
    const long before = fault::liveBlocks();
    bool failed = false;
    {
      OwnedStatusList copy;
      unsigned result = 0;
      {
        const auto failing = arm();
        result = CopyZQStatusList(&copy, &source);
        failed = fault::FailingAllocations::happened();
      }
      EXPECT_EQ(result, failed ? 300U : 0U);
      EXPECT_EQ(copy.numItems, failed ? 0U : 3U);
      EXPECT_EQ(copy.items == nullptr, failed);
    }
    EXPECT_EQ(fault::liveBlocks(), before);
    return failed;
  });
  EXPECT_EQ(injected, 2 * 6);
}

TEST(FreeStatusList, EverythingIsGivenBackAndTheListIsReset) {
  const long before = fault::liveBlocks();
  ZQStatusList list = {};
  ZQAddErrorMessage(&list, 0, 300, nullptr);
  ZQAddErrorMessage(&list, 2, 300, "text");
  FreeZQStatusList(&list, 0);
  EXPECT_EQ(list.numItems, 0U);
  EXPECT_EQ(list.items, nullptr);
  FreeZQStatusList(&list, 0);
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(FreeStatusList, FreeStructFreesTheRecordToo) {
  const long before = fault::liveBlocks();
  for (const ZQBoolean freeStruct : {ZQBoolean{1}, ZQBoolean{255}}) {
    auto* list = static_cast<ZQStatusList*>(calloc(1, sizeof(ZQStatusList)));
    ZQAddErrorMessage(list, 2, 300, "text");
    FreeZQStatusList(list, freeStruct);
    FreeZQStatusList(static_cast<ZQStatusList*>(calloc(1, sizeof(ZQStatusList))), freeStruct);
  }
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(FreeStatusList, RecordsWithoutTextsAndANullListAreFine) {
  ZQStatusList list = {1, static_cast<ZQStatusStruct*>(calloc(1, sizeof(ZQStatusStruct)))};
  FreeZQStatusList(&list, 0);
  EXPECT_EQ(list.items, nullptr);
  FreeZQStatusList(nullptr, 0);
  FreeZQStatusList(nullptr, 1);
}

TEST(DOMExceptionText, EveryCodeHasItsText) {
  const struct {
    int code;
    const char* text;
  } cases[] = {
      {1, "Index size error"},
      {2, "DOMString size error"},
      {3, "Hierarchy request error"},
      {4, "Wrong document error"},
      {5, "Invalid character error"},
      {6, "No data allowed error"},
      {7, "No modification allowed error"},
      {8, "Not found error"},
      {9, "Not supported error"},
      {10, "Inuse attribute error"},
      {11, "Invalid state error"},
      {12, "Syntax error"},
      {13, "Invalid modification error"},
      {14, "Namespace error"},
      {15, "Invalid access error"},
  };
  for (const auto& row : cases) {
    EXPECT_STREQ(GetDOMExceptionErrorText(row.code), row.text) << row.code;
  }
}

TEST(DOMExceptionText, OtherCodesHaveTheEmptyText) {
  for (const int code : {0, -1, 16, 17, 51, 52, 81, 82, 111, INT_MAX, INT_MIN}) {
    EXPECT_STREQ(GetDOMExceptionErrorText(code), "") << code;
  }
}

}  // namespace
