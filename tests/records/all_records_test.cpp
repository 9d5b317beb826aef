// What holds for all Free and Copy functions alike, each of them tried on built trees.

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "AllRecords.h"
#include "fault/FailingAllocations.h"

using tools::Fill;

namespace {

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool hasListShape(const RecordKind& kind) {
  return std::string_view(kind.name).ends_with("List") &&
         !isOneOf(kind.name, {"ZQByteList", "ZQDisplayInstanceList"});
}

// The head of every list record.
struct ListHead {
  uint32_t numItems;
  void* items;
};
static_assert(sizeof(ListHead) == 16);

ListHead& headOf(AnyRecord& record) {
  return *static_cast<ListHead*>(record.get());
}

class EveryRecord : public testing::TestWithParam<RecordKind> {
 protected:
  const RecordKind& kind() const { return GetParam(); }
};

using EveryFree = EveryRecord;
using EveryCopy = EveryRecord;

template <typename Wanted>
std::vector<RecordKind> kindsWith(Wanted wanted) {
  std::vector<RecordKind> kinds;
  for (const RecordKind& kind : allRecords()) {
    if (wanted(kind)) {
      kinds.push_back(kind);
    }
  }
  return kinds;
}

std::string nameOf(const testing::TestParamInfo<RecordKind>& info) {
  return info.param.name;
}

constexpr uint32_t kSeeds = 40;

TEST(AllRecords, CountsOfTheFunctions) {
  EXPECT_EQ(std::ranges::count_if(allRecords(), &RecordKind::hasFree), 124);
  EXPECT_EQ(std::ranges::count_if(allRecords(), &RecordKind::hasCopy), 68);
}

TEST_P(EveryFree, GivesAFullTreeBackAndASecondCallDoesNothing) {
  for (uint32_t seed = 0; seed < kSeeds; ++seed) {
    const long before = fault::liveBlocks();
    AnyRecord record(kind());
    const long storage = fault::liveBlocks() - before;
    record.build(seed, Fill::Full, 4);
    record.free();
    const long after = fault::liveBlocks();
    const bool mayBeFreedAgain = !isOneOf(kind().name, {"ZQQualifierList"});
    if (mayBeFreedAgain) {
      kind().free(record.get(), 0);
    }
    const long afterSecond = fault::liveBlocks();
    ASSERT_EQ(after, before + storage) << "seed " << seed;
    ASSERT_EQ(afterSecond, after) << "seed " << seed;
    if (mayBeFreedAgain) {
      ASSERT_TRUE(record.blocks().empty()) << "seed " << seed;
    }
  }
}

TEST_P(EveryFree, GivesTheRecordItselfBackWhenAsked) {
  const long before = fault::liveBlocks();
  void* block = calloc(1, kind().size);
  kind().build(block, 5, Fill::Full, 4);
  const std::vector<void*> kept = kind().keptBlocks(block);
  kind().free(block, 255);
  for (void* each : kept) {
    free(each);
  }
  const long after = fault::liveBlocks();
  const long keptCapacity = kept.capacity() > 0 ? 1 : 0;
  EXPECT_EQ(after, before + keptCapacity);
}

TEST_P(EveryFree, IgnoresANullRecord) {
  kind().free(nullptr, 0);
  kind().free(nullptr, 1);
}

TEST_P(EveryFree, LeavesAnEmptyRecordEmpty) {
  AnyRecord record(kind());
  kind().free(record.get(), 0);
  EXPECT_TRUE(record.isFilledWith(0));
}

TEST_P(EveryFree, KeepsTheArrayOfAListWithoutACount) {
  if (!hasListShape(kind())) {
    return;
  }
  void* array = calloc(1, 2048);
  AnyRecord record(kind());
  headOf(record) = {0, array};
  const long before = fault::liveBlocks();
  kind().free(record.get(), 0);
  const long after = fault::liveBlocks();
  if (isOneOf(kind().name, {"ZQQualifierList"})) {
    EXPECT_EQ(after, before - 1) << "here the pointer alone decides";
    return;
  }
  EXPECT_EQ(after, before);
  EXPECT_EQ(headOf(record).items, nullptr);
  free(array);
}

TEST_P(EveryFree, WalksNothingOfAListWithoutAnArray) {
  if (!hasListShape(kind())) {
    return;
  }
  AnyRecord record(kind());
  headOf(record) = {3, nullptr};
  kind().free(record.get(), 0);
  const bool keepsItsCount = isOneOf(kind().name, {"ZQQualifierList"});
  EXPECT_EQ(headOf(record).numItems, keepsItsCount ? 3U : 0U);
}

TEST_P(EveryCopy, IsEqualAndSharesNoBlock) {
  for (uint32_t seed = 0; seed < kSeeds; ++seed) {
    AnyRecord source(kind());
    source.build(seed, Fill::Full, 4);
    const std::string wanted = source.dump();
    AnyRecord copy(kind());
    copy.fillWith(0xA5);
    const long before = fault::liveBlocks();
    const unsigned status = kind().copy(copy.get(), source.get());
    const long made = fault::liveBlocks() - before;
    ASSERT_EQ(status, 0U) << "seed " << seed;
    ASSERT_EQ(copy.dump(), wanted) << "seed " << seed;

    // What has moved hangs from the copy only.
    const std::set<const void*> ofSource = source.blocks();
    const std::set<const void*> ofCopy = copy.blocks();
    ASSERT_TRUE(std::ranges::none_of(
        ofCopy, [&ofSource](const void* block) { return ofSource.contains(block); }))
        << "seed " << seed;
    ASSERT_LE(made, static_cast<long>(ofCopy.size()));
    source.freeBlocks();
    copy.freeBlocks();
  }
}

TEST_P(EveryCopy, IgnoresANullDestination) {
  AnyRecord source(kind());
  source.build(3, Fill::Full, 4);
  EXPECT_EQ(kind().copy(nullptr, source.get()), 0U);
  EXPECT_EQ(kind().copy(nullptr, nullptr), 0U);
  source.freeBlocks();
}

TEST_P(EveryCopy, OfANullSourceIsAnEmptyListOrAnUntouchedRecord) {
  AnyRecord copy(kind());
  copy.fillWith(0xA5);
  EXPECT_EQ(kind().copy(copy.get(), nullptr), 0U);
  const bool isUntouchedList =
      isOneOf(kind().name, {"ZQPermissionList", "ZQContainerOwnerObjIdList", "ZQNameList",
                            "ZQAccessNameList", "ZQEnumItemList", "ZQUnsignedIntList", "ZQSortList",
                            "ZQIndexList", "ZQEntryListFieldList", "ZQFuncCurrencyList"});
  if (hasListShape(kind()) && !isUntouchedList) {
    EXPECT_EQ(headOf(copy).numItems, 0U);
    EXPECT_EQ(headOf(copy).items, nullptr);
  } else if (isOneOf(kind().name, {"ZQDisplayInstanceList"})) {
    EXPECT_TRUE(copy.isFilledWith(0));
  } else {
    EXPECT_TRUE(copy.isFilledWith(0xA5));
  }
}

TEST_P(EveryCopy, OfAnEmptyListIsEmpty) {
  if (!hasListShape(kind())) {
    return;
  }
  uint64_t array[256] = {};
  const ListHead emptyLists[] = {{0, nullptr}, {0, array}, {4, nullptr}};
  for (const ListHead& empty : emptyLists) {
    AnyRecord source(kind());
    headOf(source) = empty;
    AnyRecord copy(kind());
    copy.fillWith(0xA5);
    EXPECT_EQ(kind().copy(copy.get(), source.get()), 0U);
    if (isOneOf(kind().name, {"ZQFuncCurrencyList"}) && empty.numItems == 0) {
      EXPECT_TRUE(copy.isFilledWith(0xA5)) << "left as it was";
    } else {
      EXPECT_EQ(headOf(copy).numItems, 0U);
      EXPECT_EQ(headOf(copy).items, nullptr);
    }
  }
}

TEST_P(EveryCopy, OfAZeroedRecordIsZero) {
  AnyRecord source(kind());
  AnyRecord copy(kind());
  EXPECT_EQ(kind().copy(copy.get(), source.get()), 0U);
  EXPECT_TRUE(copy.isFilledWith(0));
}

INSTANTIATE_TEST_SUITE_P(All, EveryFree, testing::ValuesIn(kindsWith([](const RecordKind& kind) {
                           return kind.hasFree();
                         })),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(All, EveryCopy, testing::ValuesIn(kindsWith([](const RecordKind& kind) {
                           return kind.hasCopy();
                         })),
                         nameOf);

}  // namespace
