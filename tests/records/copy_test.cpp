// What single Copy functions do beyond the pattern, and what they leave behind when memory runs
// out.

#include "zqxml/copy.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "RecordTools.h"
#include "Trees.h"
#include "fault/FailingAllocations.h"
#include "zqxml/free.h"

using fault::FailingAllocations;
using fault::Mode;
using tools::Blocks;
using tools::Dumper;

namespace {

constexpr unsigned kOutOfMemory = 300;

// A destination as a caller has it: full of old bytes.
template <typename Record>
struct Stale {
  Record record;
  Stale() { memset(static_cast<void*>(&record), 0xA5, sizeof record); }
};

// The status of a copy whose n-th allocation fails.
template <typename Copy>
unsigned failingAt(long index, Copy copy, Mode mode = Mode::Once) {
  const FailingAllocations armed(index, mode);
  return copy();
}

ZQValueStruct attachmentAt(uint32_t locationType) {
  ZQValueStruct value = {};
  value.dataType = 11;
  ZQAttachStruct attachment = {};
  attachment.attachmentName = newText("name");
  attachment.originalSize = 9;
  attachment.location.locationType = locationType;
  value.u.attachmentValue = newRecord(attachment);
  return value;
}

bool isNowhere(const ZQLocStruct& location) {
  const decltype(location.u) zero = {};
  return location.locationType == 0 && memcmp(&location.u, &zero, sizeof zero) == 0;
}

TEST(CopyValue, ScalarsAndUnknownTypesCarryTheirBits) {
  for (const uint32_t type :
       {0U, 1U, 2U, 3U, 6U, 7U, 8U, 13U, 14U, 40U, 15U, 39U, 44U, 0xFFFFFFFFU}) {
    ZQValueStruct source = {};
    memset(&source.u, 0x5A, sizeof source.u);
    source.dataType = type;
    Stale<ZQValueStruct> copy;
    EXPECT_EQ(CopyZQValueStruct(&copy.record, &source), 0U);
    EXPECT_EQ(copy.record.dataType, type);
    EXPECT_EQ(memcmp(&copy.record.u, &source.u, sizeof source.u), 0) << type;
  }
}

TEST(CopyValue, NullPointersCopyAsNull) {
  for (const uint32_t type : {4U, 5U, 9U, 10U, 11U, 12U, 41U, 42U, 43U}) {
    ZQValueStruct source = {};
    source.dataType = type;
    Stale<ZQValueStruct> copy;
    EXPECT_EQ(CopyZQValueStruct(&copy.record, &source), 0U);
    EXPECT_EQ(copy.record.dataType, type);
    EXPECT_EQ(copy.record.u.characterValue, nullptr) << type;
  }
}

TEST(CopyValue, TextsOfEveryType) {
  for (const uint32_t type : {4U, 5U, 10U, 42U, 43U}) {
    for (const char* text : {"", "some text"}) {
      ZQValueStruct source = textValue(type, text);
      Stale<ZQValueStruct> copy;
      EXPECT_EQ(CopyZQValueStruct(&copy.record, &source), 0U);
      EXPECT_NE(copy.record.u.characterValue, source.u.characterValue);
      EXPECT_STREQ(copy.record.u.characterValue, text);
      FreeZQValueStruct(&copy.record, 0);

      EXPECT_EQ(failingAt(0, [&] { return CopyZQValueStruct(&copy.record, &source); }),
                kOutOfMemory);
      EXPECT_EQ(copy.record.dataType, type);
      EXPECT_EQ(copy.record.u.characterValue, nullptr);
      FreeZQValueStruct(&source, 0);
    }
  }
}

TEST(CopyValue, BytesWithoutACountOrWithoutAnArrayAreEmpty) {
  unsigned char bytes[] = {1, 2, 3};
  for (const ZQByteList& list : {ZQByteList{6, 0, bytes}, ZQByteList{6, 3, nullptr}}) {
    ZQByteList sourceList = list;
    ZQValueStruct source = {};
    source.dataType = 9;
    source.u.byteList = &sourceList;
    Stale<ZQValueStruct> copy;
    EXPECT_EQ(CopyZQValueStruct(&copy.record, &source), 0U);
    EXPECT_EQ(copy.record.u.byteList->byteType, 6U);
    EXPECT_EQ(copy.record.u.byteList->numItems, 0U);
    EXPECT_EQ(copy.record.u.byteList->bytes, nullptr);
    FreeZQValueStruct(&copy.record, 0);
  }
}

TEST(CopyValue, BytesThatFindNoMemoryLeaveNothing) {
  unsigned char bytes[] = {1, 2, 3};
  ZQByteList list = {6, 3, bytes};
  ZQValueStruct source = {};
  source.dataType = 9;
  source.u.byteList = &list;
  for (const long index : {0L, 1L}) {
    Stale<ZQValueStruct> copy;
    const long before = fault::liveBlocks();
    EXPECT_EQ(failingAt(index, [&] { return CopyZQValueStruct(&copy.record, &source); }),
              kOutOfMemory);
    EXPECT_EQ(copy.record.u.byteList, nullptr);
    EXPECT_EQ(fault::liveBlocks(), before);
  }
}

TEST(CopyValue, CoordinatesWithoutACountOrWithoutAnArrayAreEmpty) {
  ZQCoordStruct point = {1, 2};
  for (const ZQCoordList& list : {ZQCoordList{0, &point}, ZQCoordList{3, nullptr}}) {
    ZQCoordList sourceList = list;
    ZQValueStruct source = {};
    source.dataType = 41;
    source.u.coordinateList = &sourceList;
    Stale<ZQValueStruct> copy;
    EXPECT_EQ(CopyZQValueStruct(&copy.record, &source), 0U);
    EXPECT_EQ(copy.record.u.coordinateList->numItems, 0U);
    EXPECT_EQ(copy.record.u.coordinateList->items, nullptr);
    FreeZQValueStruct(&copy.record, 0);
  }
}

TEST(CopyAttachment, AFileNameMovesToTheCopy) {
  ZQValueStruct source = attachmentAt(1);
  char* path = newText("/path");
  source.u.attachmentValue->location.u.fileName = path;
  Stale<ZQValueStruct> copy;
  EXPECT_EQ(CopyZQValueStruct(&copy.record, &source), 0U);
  EXPECT_EQ(copy.record.u.attachmentValue->location.locationType, 1U);
  EXPECT_EQ(copy.record.u.attachmentValue->location.u.fileName, path) << "not duplicated";
  EXPECT_NE(copy.record.u.attachmentValue->attachmentName,
            source.u.attachmentValue->attachmentName);
  EXPECT_STREQ(copy.record.u.attachmentValue->attachmentName, "name");
  EXPECT_TRUE(isNowhere(source.u.attachmentValue->location));
  EXPECT_STREQ(source.u.attachmentValue->attachmentName, "name");

  Stale<ZQValueStruct> second;
  EXPECT_EQ(CopyZQValueStruct(&second.record, &source), 0U);
  EXPECT_TRUE(isNowhere(second.record.u.attachmentValue->location));
  FreeZQValueStruct(&source, 0);
  FreeZQValueStruct(&copy.record, 0);
  FreeZQValueStruct(&second.record, 0);
}

// The words of a buffer are not looked at: they may be anything behind a file name.
TEST(CopyAttachment, AFileNameMovesWhateverStandsBehindIt) {
  ZQValueStruct source = attachmentAt(1);
  memset(&source.u.attachmentValue->location.u, 0x5A, sizeof(ZQBufStruct));
  char* path = newText("/path");
  source.u.attachmentValue->location.u.fileName = path;
  Stale<ZQValueStruct> copy;
  EXPECT_EQ(CopyZQValueStruct(&copy.record, &source), 0U);
  EXPECT_EQ(copy.record.u.attachmentValue->location.u.fileName, path);
  EXPECT_TRUE(isNowhere(source.u.attachmentValue->location));
  FreeZQValueStruct(&source, 0);
  FreeZQValueStruct(&copy.record, 0);
}

TEST(CopyAttachment, ABufferIsDuplicated) {
  for (const uint32_t type : {2U, 3U}) {
    ZQValueStruct source = attachmentAt(type);
    unsigned char* bytes = newBytes(5);
    source.u.attachmentValue->location.u.buffer = {5, bytes};
    Stale<ZQValueStruct> copy;
    EXPECT_EQ(CopyZQValueStruct(&copy.record, &source), 0U);
    const ZQLocStruct& location = copy.record.u.attachmentValue->location;
    EXPECT_EQ(location.locationType, type);
    EXPECT_NE(location.u.buffer.bufferData, bytes);
    EXPECT_EQ(location.u.buffer.bufferSize, 5U);
    EXPECT_EQ(memcmp(location.u.buffer.bufferData, bytes, 5), 0);
    EXPECT_EQ(source.u.attachmentValue->location.locationType, type);
    EXPECT_EQ(source.u.attachmentValue->location.u.buffer.bufferData, bytes);
    if (type != 2) {
      // A location of a type that nobody knows owns nothing.
      free(location.u.buffer.bufferData);
      free(bytes);
    }
    FreeZQValueStruct(&source, 0);
    FreeZQValueStruct(&copy.record, 0);
  }
}

TEST(CopyAttachment, ABufferWithoutBytesMoves) {
  for (const uint32_t type : {0U, 2U}) {
    ZQValueStruct source = attachmentAt(type);
    unsigned char* bytes = newBytes(5);
    source.u.attachmentValue->location.u.buffer = {type == 0 ? 5U : 0U, bytes};
    Stale<ZQValueStruct> copy;
    EXPECT_EQ(CopyZQValueStruct(&copy.record, &source), 0U);
    EXPECT_EQ(copy.record.u.attachmentValue->location.locationType, type);
    EXPECT_EQ(copy.record.u.attachmentValue->location.u.buffer.bufferData, bytes);
    EXPECT_TRUE(isNowhere(source.u.attachmentValue->location));
    if (type == 0) {
      free(bytes);
    }
    FreeZQValueStruct(&source, 0);
    FreeZQValueStruct(&copy.record, 0);
  }
}

TEST(CopyAttachment, AFailureLeavesTheSourceWhole) {
  ZQValueStruct file = attachmentAt(1);
  char* path = newText("/path");
  file.u.attachmentValue->location.u.fileName = path;
  ZQValueStruct buffer = attachmentAt(2);
  buffer.u.attachmentValue->location.u.buffer = {5, newBytes(5)};
  const std::string wantedFile = Dumper::dump(file);
  const std::string wantedBuffer = Dumper::dump(buffer);
  for (const long index : {0L, 1L, 2L}) {
    Stale<ZQValueStruct> copy;
    const long before = fault::liveBlocks();
    const unsigned status =
        failingAt(index, [&] { return CopyZQValueStruct(&copy.record, &buffer); });
    EXPECT_EQ(fault::liveBlocks(), before);
    EXPECT_EQ(status, kOutOfMemory);
    EXPECT_EQ(copy.record.u.attachmentValue, nullptr);
    EXPECT_EQ(Dumper::dump(buffer), wantedBuffer);
  }
  for (const long index : {0L, 1L}) {
    Stale<ZQValueStruct> copy;
    EXPECT_EQ(failingAt(index, [&] { return CopyZQValueStruct(&copy.record, &file); }),
              kOutOfMemory);
    EXPECT_EQ(copy.record.u.attachmentValue, nullptr);
    EXPECT_EQ(Dumper::dump(file), wantedFile);
  }
  FreeZQValueStruct(&file, 0);
  FreeZQValueStruct(&buffer, 0);
}

ZQCurrencyStruct currency() {
  ZQCurrencyStruct record = {newText("10.50"), "USD", 77, {}};
  record.functionalCurrencies = newList<ZQFuncCurrencyList>(
      {ZQFuncCurrencyStruct{newText("9.1"), "EUR"}, ZQFuncCurrencyStruct{newText("8"), "GBP"}});
  return record;
}

template <typename Record>
void expectZeroCurrency(const Record& record) {
  EXPECT_EQ(record.value, nullptr);
  EXPECT_STREQ(record.currencyCode, "");
  EXPECT_EQ(record.conversionDate, 0);
  EXPECT_EQ(record.functionalCurrencies.numItems, 0U);
  EXPECT_EQ(record.functionalCurrencies.items, nullptr);
}

TEST(CopyCurrency, AFailureClearsTheWholeRecord) {
  ZQCurrencyStruct source = currency();
  for (const long index : {0L, 1L}) {
    Stale<ZQCurrencyStruct> copy;
    const long before = fault::liveBlocks();
    EXPECT_EQ(failingAt(index, [&] { return CopyZQCurrencyStruct(&copy.record, &source); }),
              kOutOfMemory);
    EXPECT_EQ(fault::liveBlocks(), before);
    expectZeroCurrency(copy.record);
  }
  FreeZQCurrencyStruct(&source, 0);
}

TEST(CopyCurrency, ATextOfTheListThatFindsNoMemoryIsNullWithoutAFailure) {
  ZQCurrencyStruct source = currency();
  Stale<ZQCurrencyStruct> copy;
  EXPECT_EQ(failingAt(2, [&] { return CopyZQCurrencyStruct(&copy.record, &source); }), 0U);
  EXPECT_EQ(copy.record.functionalCurrencies.numItems, 2U);
  EXPECT_EQ(copy.record.functionalCurrencies.items[0].value, nullptr);
  EXPECT_STREQ(copy.record.functionalCurrencies.items[0].currencyCode, "EUR");
  EXPECT_STREQ(copy.record.functionalCurrencies.items[1].value, "8");
  FreeZQCurrencyStruct(&copy.record, 0);

  Stale<ZQFuncCurrencyStruct> single;
  EXPECT_EQ(failingAt(0,
                      [&] {
                        return CopyZQFuncCurrencyStruct(&single.record,
                                                        &source.functionalCurrencies.items[0]);
                      }),
            0U);
  EXPECT_EQ(single.record.value, nullptr);
  EXPECT_STREQ(single.record.currencyCode, "EUR");

  Stale<ZQFuncCurrencyList> list;
  EXPECT_EQ(
      failingAt(0,
                [&] { return CopyZQFuncCurrencyList(&list.record, &source.functionalCurrencies); }),
      kOutOfMemory);
  EXPECT_EQ(list.record.numItems, 0U);
  EXPECT_EQ(list.record.items, nullptr);
  FreeZQCurrencyStruct(&source, 0);
}

TEST(CopyCurrency, WithoutFunctionalCurrenciesTheListIsEmpty) {
  ZQCurrencyStruct source = {nullptr, "USD", 77, {}};
  Stale<ZQCurrencyStruct> copy;
  EXPECT_EQ(CopyZQCurrencyStruct(&copy.record, &source), 0U);
  EXPECT_EQ(copy.record.value, nullptr);
  EXPECT_EQ(copy.record.functionalCurrencies.numItems, 0U);
  EXPECT_EQ(copy.record.functionalCurrencies.items, nullptr);
}

TEST(CopyCurrency, AFailedValueKeepsAnEmptyCurrency) {
  ZQValueStruct source = {};
  source.dataType = 12;
  source.u.currencyValue = newRecord(currency());
  Stale<ZQValueStruct> copy;
  EXPECT_EQ(failingAt(0, [&] { return CopyZQValueStruct(&copy.record, &source); }), kOutOfMemory);
  EXPECT_EQ(copy.record.u.currencyValue, nullptr);
  for (const long index : {1L, 2L}) {
    EXPECT_EQ(failingAt(index, [&] { return CopyZQValueStruct(&copy.record, &source); }),
              kOutOfMemory);
    ASSERT_NE(copy.record.u.currencyValue, nullptr);
    expectZeroCurrency(*copy.record.u.currencyValue);
    FreeZQValueStruct(&copy.record, 0);
  }

  ZQFieldValueStruct field = {8, source};
  Stale<ZQFieldValueStruct> fieldCopy;
  const long before = fault::liveBlocks();
  EXPECT_EQ(failingAt(1, [&] { return CopyZQFieldValueStruct(&fieldCopy.record, &field); }),
            kOutOfMemory);
  EXPECT_EQ(fault::liveBlocks(), before) << "here it is given back";
  EXPECT_EQ(fieldCopy.record.fieldId, 0U);
  EXPECT_EQ(fieldCopy.record.value.dataType, 0U);
  EXPECT_EQ(fieldCopy.record.value.u.currencyValue, nullptr);
  FreeZQValueStruct(&source, 0);
}

TEST(CopyFieldValue, AFailureClearsTheFieldToo) {
  ZQFieldValueStruct source = {8, textValue(4, "x")};
  Stale<ZQFieldValueStruct> copy;
  EXPECT_EQ(failingAt(0, [&] { return CopyZQFieldValueStruct(&copy.record, &source); }),
            kOutOfMemory);
  EXPECT_EQ(copy.record.fieldId, 0U);
  EXPECT_EQ(copy.record.value.dataType, 0U);
  EXPECT_EQ(copy.record.value.u.characterValue, nullptr);
  FreeZQFieldValueStruct(&source, 0);
}

template <typename List, typename Copy>
void expectFailedArray(const List& source, Copy copy, unsigned wantedStatus) {
  Stale<List> dest;
  const long before = fault::liveBlocks();
  EXPECT_EQ(failingAt(0, [&] { return copy(&dest.record, &source); }), wantedStatus);
  EXPECT_EQ(fault::liveBlocks(), before);
  EXPECT_EQ(dest.record.numItems, 0U);
  EXPECT_EQ(dest.record.items, nullptr);
}

TEST(CopyLists, AFailedArrayLeavesAnEmptyList) {
  ZQPermissionStruct permission = {1, 2};
  expectFailedArray(ZQPermissionList{1, &permission}, CopyZQPermissionList, kOutOfMemory);
  ZQContainerOwnerObjIdStruct ownerId = {1, 2};
  expectFailedArray(ZQContainerOwnerObjIdList{1, &ownerId}, CopyZQContainerOwnerObjIdList,
                    kOutOfMemory);
  ZQNameType name = "name";
  expectFailedArray(ZQNameList{1, &name}, CopyZQNameList, kOutOfMemory);
  ZQAccessNameType accessName = "name";
  expectFailedArray(ZQAccessNameList{1, &accessName}, CopyZQAccessNameList, kOutOfMemory);
  ZQEnumItemStruct enumItem = {1, "name"};
  expectFailedArray(ZQEnumItemList{1, &enumItem}, CopyZQEnumItemList, kOutOfMemory);
  uint32_t number = 4;
  expectFailedArray(ZQUnsignedIntList{1, &number}, CopyZQUnsignedIntList, kOutOfMemory);
  expectFailedArray(ZQInternalIdList{1, &number}, CopyZQInternalIdList, kOutOfMemory);
  ZQContainerOwnerObjStruct owner = {2, "form"};
  expectFailedArray(ZQContainerOwnerObjList{1, &owner}, CopyZQContainerOwnerObjList, kOutOfMemory);
  ZQCurrencyDetailStruct detail = {"USD", 2};
  expectFailedArray(ZQCurrencyDetailList{1, &detail}, CopyZQCurrencyDetailList, kOutOfMemory);
  ZQSupportFileInfoStruct file = {};
  expectFailedArray(ZQSupportFileInfoList{1, &file}, CopyZQSupportFileInfoList, kOutOfMemory);
  char* text = nullptr;
  expectFailedArray(ZQTextStringList{1, &text}, CopyZQTextStringList, kOutOfMemory);
}

TEST(CopyLists, ThreeOfThemNeverFail) {
  ZQSortStruct sort = {1, 2};
  expectFailedArray(ZQSortList{1, &sort}, CopyZQSortList, 0);
  ZQIndexStruct index = {};
  expectFailedArray(ZQIndexList{1, &index}, CopyZQIndexList, 0);
  ZQEntryListFieldStruct column = {1, 10, " "};
  expectFailedArray(ZQEntryListFieldList{1, &column}, CopyZQEntryListFieldList, 0);
}

TEST(CopyLists, ActiveLinkActionsKeepTheirCountWithoutAnArray) {
  ZQActiveLinkActionStruct actions[3] = {};
  actions[1].action = 3;
  actions[1].u.process = newText("run");
  const ZQActiveLinkActionList source = {3, actions};
  Stale<ZQActiveLinkActionList> copy;
  EXPECT_EQ(failingAt(0, [&] { return CopyZQActiveLinkActionList(&copy.record, &source); }),
            kOutOfMemory);
  EXPECT_EQ(copy.record.numItems, 3U);
  EXPECT_EQ(copy.record.items, nullptr);
  FreeZQActiveLinkActionList(&copy.record, 0);
  EXPECT_EQ(copy.record.numItems, 0U);

  EXPECT_EQ(failingAt(1, [&] { return CopyZQActiveLinkActionList(&copy.record, &source); }),
            kOutOfMemory);
  EXPECT_EQ(copy.record.numItems, 0U) << "a failed element frees the list";
  EXPECT_EQ(copy.record.items, nullptr);
  free(actions[1].u.process);
}

TEST(CopyLists, NullTextsStayNull) {
  char* const absent = nullptr;
  ZQTextStringList source = newList<ZQTextStringList>({newText("a"), absent, newText("")});
  Stale<ZQTextStringList> copy;
  EXPECT_EQ(CopyZQTextStringList(&copy.record, &source), 0U);
  ASSERT_EQ(copy.record.numItems, 3U);
  EXPECT_STREQ(copy.record.items[0], "a");
  EXPECT_EQ(copy.record.items[1], nullptr);
  EXPECT_STREQ(copy.record.items[2], "");
  FreeZQTextStringList(&source, 0);
  FreeZQTextStringList(&copy.record, 0);
}

TEST(CopyLists, SelectedElementsAreCopiedAndGivenBackOnFailure) {
  ZQStructItemStruct items[2] = {};
  items[0].itemType = 0x4000000E;
  strcpy(items[0].name, "form");
  items[0].selectedElements = newList<ZQNameList>({NameCell{"view"}});
  items[1] = items[0];
  items[1].selectedElements = newList<ZQNameList>({NameCell{"other"}});
  const ZQStructItemList source = {2, items};
  Stale<ZQStructItemList> copy;
  EXPECT_EQ(CopyZQStructItemList(&copy.record, &source), 0U);
  EXPECT_EQ(copy.record.items[0].itemType, 0x4000000EU);
  EXPECT_STREQ(copy.record.items[0].name, "form");
  EXPECT_STREQ(copy.record.items[1].selectedElements.items[0], "other");
  EXPECT_NE(copy.record.items[1].selectedElements.items, items[1].selectedElements.items);
  FreeZQNameList(&copy.record.items[0].selectedElements, 0);
  FreeZQNameList(&copy.record.items[1].selectedElements, 0);
  FreeZQStructItemList(&copy.record, 0);

  const long before = fault::liveBlocks();
  EXPECT_EQ(failingAt(2, [&] { return CopyZQStructItemList(&copy.record, &source); }),
            kOutOfMemory);
  EXPECT_EQ(fault::liveBlocks(), before);
  EXPECT_EQ(copy.record.numItems, 0U);
  EXPECT_EQ(copy.record.items, nullptr);
  FreeZQNameList(&items[0].selectedElements, 0);
  FreeZQNameList(&items[1].selectedElements, 0);
}

TEST(CopyLimits, FunctionalCurrenciesMayBeLeftOut) {
  ZQCurrencyDetailStruct detail = {"USD", 2};
  char low[] = "1";
  char high[] = "9";
  const ZQCurrencyLimitsStruct source = {low, high, 2, {1, &detail}, {1, &detail}};
  Stale<ZQCurrencyLimitsStruct> copy;
  EXPECT_EQ(failingAt(2, [&] { return CopyZQCurrencyLimitsStruct(&copy.record, &source); }), 0U);
  EXPECT_EQ(copy.record.functionalCurrencies.numItems, 0U);
  EXPECT_EQ(copy.record.functionalCurrencies.items, nullptr);
  ASSERT_EQ(copy.record.allowableCurrencies.numItems, 1U);
  EXPECT_STREQ(copy.record.allowableCurrencies.items[0].currencyCode, "USD");
  FreeZQCurrencyLimitsStruct(&copy.record, 0);

  for (const long index : {0L, 1L, 3L}) {
    const long before = fault::liveBlocks();
    EXPECT_EQ(failingAt(index, [&] { return CopyZQCurrencyLimitsStruct(&copy.record, &source); }),
              kOutOfMemory);
    EXPECT_EQ(fault::liveBlocks(), before);
    EXPECT_TRUE(Blocks::of(copy.record).empty());
    EXPECT_EQ(copy.record.precision, 2);
  }
}

TEST(CopyOpenWindow, AnExhaustedHeapLosesTheSortListInSilence) {
  ZQSortStruct sort = {1, 2};
  ZQOpenDlgStruct source = {};
  strcpy(source.formName, "form");
  source.sortList = {1, &sort};
  Stale<ZQOpenDlgStruct> copy;
  EXPECT_EQ(failingAt(0, [&] { return CopyZQOpenDlgStruct(&copy.record, &source); }), 0U);
  EXPECT_EQ(copy.record.sortList.numItems, 0U);
  EXPECT_EQ(copy.record.sortList.items, nullptr);
  EXPECT_STREQ(copy.record.formName, "form");
}

TEST(CopyConditions, BothNodesAreAllocatedBeforeEitherIsCopied) {
  ZQQualifierStruct source = branches(1, notQualifier(bareField(1)), bareField(2));
  Stale<ZQQualifierStruct> copy;
  const long blocks = fault::liveBlocks();
  const long before = fault::allocationCount();
  const unsigned status =
      failingAt(1, [&] { return CopyZQQualifierStruct(&copy.record, &source); });
  EXPECT_EQ(fault::allocationCount() - before, 2);
  EXPECT_EQ(fault::liveBlocks(), blocks);
  EXPECT_EQ(status, kOutOfMemory);
  EXPECT_EQ(copy.record.operation, 1U);
  EXPECT_EQ(copy.record.u.branches.left, nullptr);
  EXPECT_EQ(copy.record.u.branches.right, nullptr);
  FreeZQQualifierStruct(&source, 0);
}

TEST(CopyConditions, LeftIsCopiedBeforeRight) {
  ZQQualifierStruct source = branches(2, relation(valueOperand(textValue(4, "left")), {}),
                                      relation(valueOperand(textValue(4, "right")), {}));
  // Two nodes, then the relation and the text of each side. With the last allocation failing all of
  // the left side has been copied and must be given back.
  Stale<ZQQualifierStruct> copy;
  const long blocks = fault::liveBlocks();
  const long before = fault::allocationCount();
  EXPECT_EQ(CopyZQQualifierStruct(&copy.record, &source), 0U);
  EXPECT_EQ(fault::allocationCount() - before, 6);
  FreeZQQualifierStruct(&copy.record, 0);
  for (long index = 0; index < 6; ++index) {
    EXPECT_EQ(failingAt(index, [&] { return CopyZQQualifierStruct(&copy.record, &source); }),
              kOutOfMemory);
    EXPECT_EQ(fault::liveBlocks(), blocks) << index;
    EXPECT_EQ(copy.record.operation, 2U);
    EXPECT_EQ(copy.record.u.branches.left, nullptr);
    EXPECT_EQ(copy.record.u.branches.right, nullptr);
  }
  FreeZQQualifierStruct(&source, 0);
}

TEST(CopyConditions, OtherOperationsOwnNothing) {
  for (const uint32_t operation : {0U, 5U, 6U, 0xFFFFFFFFU}) {
    ZQQualifierStruct source = {};
    memset(&source.u, 0x5A, sizeof source.u);
    source.operation = operation;
    Stale<ZQQualifierStruct> copy;
    EXPECT_EQ(failingAt(0, [&] { return CopyZQQualifierStruct(&copy.record, &source); }), 0U);
    EXPECT_EQ(copy.record.operation, operation);
    EXPECT_EQ(memcmp(&copy.record.u, &source.u, sizeof source.u), 0);
  }
}

TEST(CopyConditions, OperandsWithoutMemoryOfTheirOwn) {
  for (const uint32_t tag : {0U, 1U, 4U, 7U, 50U, 51U, 52U, 57U, 99U, 100U}) {
    ZQFieldValueOrArithStruct source = {};
    memset(&source.u, 0x5A, sizeof source.u);
    source.tag = tag;
    Stale<ZQFieldValueOrArithStruct> copy;
    EXPECT_EQ(failingAt(0, [&] { return CopyZQFieldValueOrArithStruct(&copy.record, &source); }),
              0U);
    EXPECT_EQ(copy.record.tag, tag);
    EXPECT_EQ(memcmp(&copy.record.u, &source.u, sizeof source.u), 0) << tag;
  }
}

TEST(CopyConditions, PartsOfACurrencyField) {
  for (const uint32_t tag : {6U, 54U, 55U, 56U}) {
    ZQCurrencyPartStruct part = {{1, 2, 0xFFFFFFFF}};
    ZQFieldValueOrArithStruct source = {};
    source.tag = tag;
    source.u.currencyField = &part;
    Stale<ZQFieldValueOrArithStruct> copy;
    EXPECT_EQ(CopyZQFieldValueOrArithStruct(&copy.record, &source), 0U);
    EXPECT_NE(copy.record.u.currencyField, &part);
    EXPECT_EQ(copy.record.u.currencyField->words[2], 0xFFFFFFFFU);
    FreeZQFieldValueOrArithStruct(&copy.record, 0);
    EXPECT_EQ(failingAt(0, [&] { return CopyZQFieldValueOrArithStruct(&copy.record, &source); }),
              kOutOfMemory);
    EXPECT_EQ(copy.record.tag, tag);
    EXPECT_EQ(copy.record.u.currencyField, nullptr);
  }
}

TEST(CopyConditions, TheLeftOperandOfANegationIsCopied) {
  ZQArithOpStruct source = {6, valueOperand(textValue(4, "left")),
                            valueOperand(textValue(4, "right"))};
  Stale<ZQArithOpStruct> copy;
  EXPECT_EQ(CopyZQArithOpStruct(&copy.record, &source), 0U);
  EXPECT_STREQ(copy.record.operandLeft.u.value.u.characterValue, "left");
  EXPECT_NE(copy.record.operandLeft.u.value.u.characterValue,
            source.operandLeft.u.value.u.characterValue);
  // The free leaves them alone.
  FreeZQValueStruct(&copy.record.operandLeft.u.value, 0);
  FreeZQArithOpStruct(&copy.record, 0);

  const long before = fault::liveBlocks();
  EXPECT_EQ(failingAt(1, [&] { return CopyZQArithOpStruct(&copy.record, &source); }), kOutOfMemory);
  EXPECT_EQ(fault::liveBlocks(), before) << "but a failed copy gives them back";
  EXPECT_EQ(copy.record.operandLeft.tag, 2U);
  EXPECT_EQ(copy.record.operandLeft.u.value.u.characterValue, nullptr);
  EXPECT_EQ(copy.record.operandRight.tag, 2U);
  EXPECT_EQ(copy.record.operandRight.u.value.u.characterValue, nullptr);
  FreeZQValueStruct(&source.operandLeft.u.value, 0);
  FreeZQArithOpStruct(&source, 0);
}

TEST(CopyConditions, AFailedLeftOperandLeavesNoPointerOfTheSourceOnTheRight) {
  ZQRelOpStruct source = {1, valueOperand(textValue(4, "left")),
                          valueOperand(textValue(4, "right"))};
  Stale<ZQRelOpStruct> copy;
  EXPECT_EQ(failingAt(0, [&] { return CopyZQRelOpStruct(&copy.record, &source); }), kOutOfMemory);
  EXPECT_EQ(copy.record.operation, 1U);
  EXPECT_EQ(copy.record.operandLeft.u.value.u.characterValue, nullptr);
  EXPECT_EQ(copy.record.operandRight.tag, 2U);
  EXPECT_EQ(copy.record.operandRight.u.value.u.characterValue, nullptr);
  FreeZQRelOpStruct(&source, 0);
}

TEST(CopyConditions, AQueryAndItsNode) {
  ZQQueryValueStruct source = {};
  strcpy(source.formName, "form");
  source.valueFieldId = 4;
  source.multipleMatchOption = 3;
  source.queryQualification = newRecord(notQualifier(bareField(1)));
  Stale<ZQQueryValueStruct> copy;
  EXPECT_EQ(CopyZQQueryValueStruct(&copy.record, &source), 0U);
  EXPECT_EQ(Dumper::dump(copy.record), Dumper::dump(source));
  FreeZQQualifierStruct(copy.record.queryQualification, 1);

  for (const long index : {0L, 1L}) {
    const long before = fault::liveBlocks();
    EXPECT_EQ(failingAt(index, [&] { return CopyZQQueryValueStruct(&copy.record, &source); }),
              kOutOfMemory);
    EXPECT_EQ(fault::liveBlocks(), before);
    EXPECT_EQ(copy.record.queryQualification, nullptr);
    EXPECT_STREQ(copy.record.formName, "form");
  }

  ZQFieldValueOrArithStruct operand = {};
  operand.tag = 53;
  operand.u.queryValue = &source;
  Stale<ZQFieldValueOrArithStruct> operandCopy;
  for (const long index : {0L, 1L, 2L}) {
    const long before = fault::liveBlocks();
    EXPECT_EQ(
        failingAt(index,
                  [&] { return CopyZQFieldValueOrArithStruct(&operandCopy.record, &operand); }),
        kOutOfMemory);
    EXPECT_EQ(fault::liveBlocks(), before) << "the top node is given back too";
    EXPECT_EQ(operandCopy.record.tag, 53U);
    EXPECT_EQ(operandCopy.record.u.queryValue, nullptr);
  }
  FreeZQQualifierStruct(source.queryQualification, 1);
}

TEST(CopyMenus, AMenuAboveSixIsRefused) {
  for (const uint32_t type : {7U, 0xFFFFFFFFU}) {
    ZQCharMenuStruct source = {};
    memset(&source.u, 0x5A, sizeof source.u);
    source.menuType = type;
    Stale<ZQCharMenuStruct> copy;
    EXPECT_EQ(CopyZQCharMenuStruct(&copy.record, &source), 206U);
    EXPECT_EQ(copy.record.menuType, 0U);
    EXPECT_EQ(copy.record.u.menuList.items, nullptr);
  }
}

TEST(CopyMenus, KindsThatOwnNothingAreCopiedWhole) {
  for (const uint32_t type : {0U, 6U}) {
    ZQCharMenuStruct source = {};
    memset(&source.u, 0x5A, sizeof source.u);
    source.menuType = type;
    Stale<ZQCharMenuStruct> copy;
    EXPECT_EQ(failingAt(0, [&] { return CopyZQCharMenuStruct(&copy.record, &source); }), 0U);
    EXPECT_EQ(copy.record.menuType, type);
    EXPECT_EQ(memcmp(&copy.record.u, &source.u, sizeof source.u), 0);
  }
}

ZQCharMenuItemStruct item(uint32_t type) {
  ZQCharMenuItemStruct record = {};
  strcpy(record.itemLabel, "label");
  record.itemType = type;
  return record;
}

TEST(CopyMenus, ItemsOfEachType) {
  ZQCharMenuItemStruct empty = item(0);
  Stale<ZQCharMenuItemStruct> copy;
  EXPECT_EQ(CopyZQCharMenuItemStruct(&copy.record, &empty), 0U);
  EXPECT_EQ(copy.record.itemType, 0U);
  EXPECT_STREQ(copy.record.itemLabel, "label");

  ZQCharMenuItemStruct value = item(1);
  char text[] = "value";
  value.u.itemValue = text;
  EXPECT_EQ(CopyZQCharMenuItemStruct(&copy.record, &value), 0U);
  EXPECT_STREQ(copy.record.u.itemValue, "value");
  EXPECT_NE(copy.record.u.itemValue, text);
  FreeZQCharMenuItemStruct(&copy.record, 0);

  ZQCharMenuStruct menu = {};
  menu.menuType = 3;
  menu.u.menuFile = {2, text};
  ZQCharMenuItemStruct child = item(2);
  child.u.childMenu = &menu;
  EXPECT_EQ(CopyZQCharMenuItemStruct(&copy.record, &child), 0U);
  EXPECT_NE(copy.record.u.childMenu, &menu);
  EXPECT_EQ(copy.record.u.childMenu->u.menuFile.fileLocation, 2U);
  EXPECT_STREQ(copy.record.u.childMenu->u.menuFile.fileName, "value");
  FreeZQCharMenuItemStruct(&copy.record, 0);

  for (const uint32_t type : {3U, 0xFFFFFFFFU}) {
    ZQCharMenuItemStruct unknown = item(type);
    unknown.u.itemValue = text;
    EXPECT_EQ(CopyZQCharMenuItemStruct(&copy.record, &unknown), 131U);
    EXPECT_EQ(copy.record.u.itemValue, nullptr);
  }
}

TEST(CopyMenus, AFaultBelowIsPassedUpAndAllIsGivenBack) {
  struct Case {
    uint32_t itemType;
    uint32_t menuType;
    unsigned status;
  };
  for (const Case& each : {Case{3, 0, 131}, Case{2, 7, 206}}) {
    ZQCharMenuStruct deepest = {};
    deepest.menuType = each.menuType;
    ZQCharMenuItemStruct bad = item(each.itemType);
    bad.u.childMenu = &deepest;
    char text[] = "value";
    ZQCharMenuItemStruct good = item(1);
    good.u.itemValue = text;
    ZQCharMenuItemStruct inner[] = {good, bad, good};
    ZQCharMenuStruct below = {};
    below.menuType = 1;
    below.u.menuList = {3, inner};
    ZQCharMenuItemStruct child = item(2);
    child.u.childMenu = &below;
    ZQCharMenuItemStruct outer[] = {good, child, good};
    ZQCharMenuStruct source = {};
    source.menuType = 1;
    source.u.menuList = {3, outer};

    Stale<ZQCharMenuStruct> copy;
    const long before = fault::liveBlocks();
    EXPECT_EQ(CopyZQCharMenuStruct(&copy.record, &source), each.status);
    EXPECT_EQ(fault::liveBlocks(), before);
    EXPECT_EQ(copy.record.menuType, 1U);
    EXPECT_EQ(copy.record.u.menuList.numItems, 0U);
    EXPECT_EQ(copy.record.u.menuList.items, nullptr);

    Stale<ZQCharMenuItemStruct> itemCopy;
    EXPECT_EQ(CopyZQCharMenuItemStruct(&itemCopy.record, &child), each.status);
    EXPECT_EQ(fault::liveBlocks(), before);
    EXPECT_EQ(itemCopy.record.itemType, 2U);
    EXPECT_EQ(itemCopy.record.u.childMenu, nullptr);
  }
}

// The first fault in document order is the one that is told.
TEST(CopyMenus, TheFirstOfTwoFaultsCounts) {
  ZQCharMenuStruct bad = {};
  bad.menuType = 7;
  ZQCharMenuItemStruct badMenu = item(2);
  badMenu.u.childMenu = &bad;
  ZQCharMenuStruct below = {};
  below.menuType = 1;
  below.u.menuList = {1, &badMenu};
  ZQCharMenuItemStruct child = item(2);
  child.u.childMenu = &below;
  ZQCharMenuItemStruct items[] = {child, item(9)};
  ZQCharMenuStruct source = {};
  source.menuType = 1;
  source.u.menuList = {2, items};
  Stale<ZQCharMenuStruct> copy;
  EXPECT_EQ(CopyZQCharMenuStruct(&copy.record, &source), 206U);
  std::swap(items[0], items[1]);
  EXPECT_EQ(CopyZQCharMenuStruct(&copy.record, &source), 131U);
}

TEST(CopyRecords, NamesAreCopiedWithAllTheirBytes) {
  ZQActiveLinkMacroStruct source = {};
  memset(source.macroName, 'm', sizeof source.macroName);
  Stale<ZQActiveLinkMacroStruct> copy;
  EXPECT_EQ(CopyZQActiveLinkMacroStruct(&copy.record, &source), 0U);
  EXPECT_EQ(memcmp(copy.record.macroName, source.macroName, sizeof source.macroName), 0);
}

TEST(CopyRecords, ASupportFileWithoutASizeHasNoContent) {
  unsigned char bytes[] = {1, 2, 3};
  for (const ZQSupportFileInfoStruct& file :
       {ZQSupportFileInfoStruct{1, 2, 3, 0, bytes}, ZQSupportFileInfoStruct{1, 2, 3, 3, nullptr}}) {
    Stale<ZQSupportFileInfoStruct> copy;
    EXPECT_EQ(CopyZQSupportFileInfoStruct(&copy.record, &file), 0U);
    EXPECT_EQ(copy.record.timestamp, 3);
    EXPECT_EQ(copy.record.fileSize, 0U);
    EXPECT_EQ(copy.record.fileContent, nullptr);
  }
}

TEST(CopyRecords, OnlyAJoinOwnsMemory) {
  for (const uint32_t type : {0U, 1U, 3U, 4U, 5U, 6U}) {
    ZQCompoundSchema source = {};
    memset(&source.u, 0x5A, sizeof source.u);
    source.schemaType = type;
    Stale<ZQCompoundSchema> copy;
    EXPECT_EQ(failingAt(0, [&] { return CopyZQCompoundSchema(&copy.record, &source); }), 0U);
    EXPECT_EQ(memcmp(&copy.record.u, &source.u, sizeof source.u), 0) << type;
  }
}

TEST(CopyRecords, ABindingMayHaveNoForms) {
  ZQWorkflowConnectStruct source = {1, nullptr};
  Stale<ZQWorkflowConnectStruct> copy;
  EXPECT_EQ(CopyZQWorkflowConnectStruct(&copy.record, &source), 0U);
  EXPECT_EQ(copy.record.type, 1U);
  EXPECT_EQ(copy.record.formList, nullptr);

  ZQNameType name = "form";
  ZQNameList forms = {1, &name};
  source.formList = &forms;
  for (const long index : {0L, 1L}) {
    const long before = fault::liveBlocks();
    EXPECT_EQ(failingAt(index, [&] { return CopyZQWorkflowConnectStruct(&copy.record, &source); }),
              kOutOfMemory);
    EXPECT_EQ(fault::liveBlocks(), before);
    EXPECT_EQ(copy.record.type, 1U);
    EXPECT_EQ(copy.record.formList, nullptr);
  }
}

// Arrays whose count and pointer don't belong together.
TEST(CopyRecords, FunctionsAndFilterApiCallsWithoutArguments) {
  ZQAssignStruct argument = {};
  for (const ZQFunctionAssignStruct& function :
       {ZQFunctionAssignStruct{4, 0, &argument}, ZQFunctionAssignStruct{4, 2, nullptr}}) {
    Stale<ZQFunctionAssignStruct> copy;
    EXPECT_EQ(CopyZQFunctionAssignStruct(&copy.record, &function), 0U);
    EXPECT_EQ(copy.record.functionCode, 4U);
    EXPECT_EQ(copy.record.numItems, 0U);
    EXPECT_EQ(copy.record.parameterList, nullptr);
  }
  ZQAssignFilterApiStruct call = {"plug-in", 2, nullptr, 7};
  Stale<ZQAssignFilterApiStruct> copy;
  EXPECT_EQ(CopyZQAssignFilterApiStruct(&copy.record, &call), 0U);
  EXPECT_STREQ(copy.record.serviceName, "plug-in");
  EXPECT_EQ(copy.record.valueIndex, 7U);
  EXPECT_EQ(copy.record.numItems, 0U);
}

TEST(CopyRecords, AFailureKeepsTheTag) {
  char text[] = "text";
  ZQFilterActionStruct filterAction = {};
  filterAction.action = 5;
  filterAction.u.process = text;
  Stale<ZQFilterActionStruct> filterCopy;
  EXPECT_EQ(
      failingAt(0, [&] { return CopyZQFilterActionStruct(&filterCopy.record, &filterAction); }),
      kOutOfMemory);
  EXPECT_EQ(filterCopy.record.action, 5U);
  EXPECT_EQ(filterCopy.record.u.process, nullptr);

  ZQActiveLinkActionStruct linkAction = {};
  linkAction.action = 15;
  linkAction.u.gotoGuide.label = text;
  Stale<ZQActiveLinkActionStruct> linkCopy;
  EXPECT_EQ(
      failingAt(0, [&] { return CopyZQActiveLinkActionStruct(&linkCopy.record, &linkAction); }),
      kOutOfMemory);
  EXPECT_EQ(linkCopy.record.action, 15U);
  EXPECT_EQ(linkCopy.record.u.gotoGuide.label, nullptr);

  ZQAssignStruct assignment = {};
  assignment.assignType = 3;
  assignment.u.process = text;
  Stale<ZQAssignStruct> assignmentCopy;
  EXPECT_EQ(failingAt(0, [&] { return CopyZQAssignStruct(&assignmentCopy.record, &assignment); }),
            kOutOfMemory);
  EXPECT_EQ(assignmentCopy.record.assignType, 3U);
  EXPECT_EQ(assignmentCopy.record.u.process, nullptr);

  ZQFieldLimitStruct limit = {};
  limit.dataType = 10;
  limit.u.decimalLimits = {text, text, 2};
  for (const long index : {0L, 1L}) {
    Stale<ZQFieldLimitStruct> limitCopy;
    EXPECT_EQ(failingAt(index, [&] { return CopyZQFieldLimitStruct(&limitCopy.record, &limit); }),
              kOutOfMemory);
    EXPECT_EQ(limitCopy.record.dataType, 10U);
    EXPECT_EQ(limitCopy.record.u.decimalLimits.rangeLow, nullptr);
    EXPECT_EQ(limitCopy.record.u.decimalLimits.rangeHigh, nullptr);
    EXPECT_EQ(limitCopy.record.u.decimalLimits.precision, 2);
  }

  ZQCOMValueStruct value = {text, 3, 2, {}};
  value.u.value.dataType = 4;
  value.u.value.u.characterValue = text;
  for (const long index : {0L, 1L}) {
    Stale<ZQCOMValueStruct> valueCopy;
    EXPECT_EQ(failingAt(index, [&] { return CopyZQCOMValueStruct(&valueCopy.record, &value); }),
              kOutOfMemory);
    EXPECT_EQ(valueCopy.record.valueIdentifier, nullptr);
    EXPECT_EQ(valueCopy.record.transId, 3U);
    EXPECT_EQ(valueCopy.record.valueType, 2U);
    EXPECT_EQ(valueCopy.record.u.value.u.characterValue, nullptr);
  }
}

}  // namespace
