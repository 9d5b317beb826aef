// Deep copy and deep free, for every record.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "fault/FailingAllocations.h"
#include "fault/Scenario.h"
#include "records/AllRecords.h"

namespace fault {

namespace {

using tools::Fill;

size_t blocksAfterFailure(const RecordKind& kind) {
  return std::string_view(kind.name) == "ZQValueStruct" ? 1 : 0;
}

void give(const RecordKind& kind, AnyRecord& record) {
  if (kind.hasFree()) {
    record.free();
  } else {
    record.freeBlocks();
  }
}

// The copy of a record, and then the copy of the same source once more.
void copyRecord(Attempt& attempt, const RecordKind& kind, Fill fill, uint32_t seed) {
  AnyRecord source(kind);
  source.build(seed, fill, 4);
  const std::string whole = source.dump();
  AnyRecord copy(kind);
  copy.makeStale();
  const unsigned status = attempt.call([&] { return kind.copy(copy.get(), source.get()); });
  if (!attempt.failed()) {
    EXPECT_EQ(status, 0U);
    EXPECT_EQ(copy.dump(), whole);
  } else if (status != 0) {
    EXPECT_EQ(status, 300U);
    EXPECT_LE(copy.blocks().size(), blocksAfterFailure(kind));
  } else {
    AnyRecord twin(kind);
    twin.build(seed, fill, 4);
    twin.takeOutUntoldParts();
    copy.takeOutUntoldParts();
    EXPECT_EQ(copy.dump(), twin.dump());
    give(kind, twin);
  }
  give(kind, copy);

  const std::string rest = source.dump();
  AnyRecord again(kind);
  again.makeStale();
  EXPECT_EQ(kind.copy(again.get(), source.get()), 0U);
  EXPECT_EQ(again.dump(), rest);
  give(kind, again);
  give(kind, source);
}

// A record is freed, be there memory or not, and a second time.
void freeRecord(Attempt& attempt, const RecordKind& kind, Fill fill, uint32_t seed) {
  AnyRecord record(kind);
  record.build(seed, fill, 4);
  const std::vector<void*> kept = record.keptBlocks();
  attempt.call([&] { kind.free(record.get(), 0); });
  for (void* block : kept) {
    free(block);
  }
  const bool mayBeFreedAgain = std::string_view(kind.name) != "ZQQualifierList";
  if (mayBeFreedAgain) {
    EXPECT_TRUE(record.blocks().empty());
    kind.free(record.get(), 0);
  }
}

// The first seed of a record whose copy allocates and succeeds: random ones may have unknown tags.
uint32_t seedThatAllocates(const RecordKind& kind, Fill fill) {
  for (uint32_t seed = 1; seed < 100; ++seed) {
    AnyRecord source(kind);
    source.build(seed, fill, 4);
    AnyRecord copy(kind);
    copy.makeStale();
    const long before = allocationCount();
    const unsigned status = kind.copy(copy.get(), source.get());
    const long made = allocationCount() - before;
    give(kind, copy);
    give(kind, source);
    if (made > 0 && status == 0) {
      return seed;
    }
  }
  return 0;
}

}  // namespace

void addRecordScenarios(Scenarios& table) {
  for (const RecordKind& kind : allRecords()) {
    for (const Fill fill : {Fill::Full, Fill::Random}) {
      const std::string shape = fill == Fill::Full ? " full" : " random";
      if (kind.hasCopy()) {
        const uint32_t seed = seedThatAllocates(kind, fill);
        table.push_back(
            {kind.copyName + shape, {kind.copyName}, [&kind, fill, seed](Attempt& attempt) {
               copyRecord(attempt, kind, fill, seed);
             }});
      }
      if (kind.hasFree()) {
        table.push_back({kind.freeName + shape,
                         {kind.freeName},
                         [&kind, fill](Attempt& attempt) { freeRecord(attempt, kind, fill, 1); },
                         Memory::NotNeeded});
      }
    }
  }
}

}  // namespace fault
