// Every Copy function with its n-th allocation failing, n = 0, 1, ... until it succeeds.

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "AllRecords.h"
#include "fault/FailingAllocations.h"

using tools::Fill;

namespace {

class CopyFailure : public testing::TestWithParam<RecordKind> {
 protected:
  static void TearDownTestSuite() { RecordProperty("injected", std::to_string(injected)); }

  static long injected;
};

long CopyFailure::injected = 0;

TEST_P(CopyFailure, GivesBackWhatItHasAllocated) {
  const RecordKind& kind = GetParam();
  const long injectedBefore = injected;
  for (uint32_t seed = 0; seed < 24; ++seed) {
    const int depth = seed < 12 ? 3 : 5;
    const Fill fill = seed % 2 == 0 ? Fill::Full : Fill::Random;
    AnyRecord model(kind);
    model.build(seed, fill, depth);
    model.takeOutUntoldParts();
    const std::string expected = model.dump();
    model.freeBlocks();
    injected += fault::forEachFailure([&](auto arm) {
      // A copy may move an attachment's file out of its source, so each attempt has a source of its
      // own.
      AnyRecord source(kind);
      source.build(seed, fill, depth);
      const auto sourceBlocks = static_cast<long>(source.blocks().size());
      AnyRecord copy(kind);
      copy.makeStale();
      const long before = fault::liveBlocks();
      unsigned status;
      bool happened;
      {
        auto armed = arm();
        status = kind.copy(copy.get(), source.get());
        happened = fault::FailingAllocations::happened();
      }
      const long after = fault::liveBlocks();
      const long moved = sourceBlocks - static_cast<long>(source.blocks().size());
      const std::set<const void*> ofSource = source.blocks();
      // The list of active link actions may have a count without an array.
      const std::set<const void*> ofCopy = copy.blocks();
      EXPECT_TRUE(std::ranges::none_of(
          ofCopy, [&ofSource](const void* block) { return ofSource.contains(block); }));
      EXPECT_EQ(after - before, static_cast<long>(ofCopy.size()) - moved) << "seed " << seed;
      if (status == 0) {
        copy.takeOutUntoldParts();
        EXPECT_EQ(copy.dump(), expected) << "seed " << seed;
      } else {
        EXPECT_TRUE(status == 300 || status == 131 || status == 206) << status;
        const bool mayKeepAnEmptyCurrency = std::string_view(kind.name) == "ZQValueStruct";
        EXPECT_LE(ofCopy.size(), mayKeepAnEmptyCurrency ? 1U : 0U) << "seed " << seed;
      }
      if (kind.hasFree()) {
        copy.free();
      } else {
        copy.freeBlocks();
      }
      source.freeBlocks();
      return happened;
    });
  }
  EXPECT_GT(injected, injectedBefore);
}

std::vector<RecordKind> copiedKinds() {
  std::vector<RecordKind> kinds;
  for (const RecordKind& kind : allRecords()) {
    if (kind.hasCopy()) {
      kinds.push_back(kind);
    }
  }
  return kinds;
}

std::string nameOf(const testing::TestParamInfo<RecordKind>& kind) {
  return kind.param.name;
}

INSTANTIATE_TEST_SUITE_P(All, CopyFailure, testing::ValuesIn(copiedKinds()), nameOf);

}  // namespace
