// Random trees of every record through copy, comparison and free.

#include <gtest/gtest.h>

#include "AllRecords.h"
#include "fault/FailingAllocations.h"

namespace {

constexpr uint32_t kTreesPerRecord = 10000;

TEST(RandomTrees, AreCopiedComparedAndFreed) {
  long trees = 0;
  for (const RecordKind& kind : allRecords()) {
    for (uint32_t seed = 0; seed < kTreesPerRecord; ++seed) {
      const long before = fault::liveBlocks();
      {
        AnyRecord source(kind);
        source.build(seed, tools::Fill::Random, 5);
        ++trees;
        if (kind.hasCopy()) {
          const std::string wanted = source.dump();
          AnyRecord copy(kind);
          copy.makeStale();
          const unsigned status = kind.copy(copy.get(), source.get());
          if (status == 0) {
            ASSERT_EQ(copy.dump(), wanted) << kind.name << ", seed " << seed;
          } else {
            // A menu of an unknown kind, or an item of one, stands in the tree.
            ASSERT_TRUE(status == 131 || status == 206) << kind.name << ", seed " << seed;
            ASSERT_TRUE(copy.blocks().empty()) << kind.name << ", seed " << seed;
          }
          kind.hasFree() ? static_cast<void>(copy.free()) : copy.freeBlocks();
        }
        kind.hasFree() ? static_cast<void>(source.free()) : source.freeBlocks();
      }
      ASSERT_EQ(fault::liveBlocks(), before) << kind.name << ", seed " << seed;
    }
  }
  RecordProperty("trees", std::to_string(trees));
}

}  // namespace
