// Deep copy and deep free, for every record.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "fault/FailingAllocations.h"
#include "fault/Scenario.h"
#include "records/AllRecords.h"
#include "records/RecordWalk.h"

namespace fault {

namespace {

using tools::Fill;

// Takes those parts out of a record that are deliberately left out, without a failure, when memory
// runs out for them: texts of functional currencies, lists of currencies, and the lists of sort
// entries, indexes and result list fields.
class UntoldParts : public RecordWalk<UntoldParts> {
 public:
  template <typename Record>
  static void takeOut(void* record) {
    UntoldParts().record("", *static_cast<Record*>(record));
  }

  template <typename Record>
  void record(const char*, Record& member) {
    if constexpr (std::is_same_v<Record, ZQFuncCurrencyStruct>) {
      free(member.value);
      member.value = nullptr;
    } else if constexpr (std::is_same_v<Record, ZQCurrencyDetailList> ||
                         std::is_same_v<Record, ZQSortList> ||
                         std::is_same_v<Record, ZQIndexList> ||
                         std::is_same_v<Record, ZQEntryListFieldList>) {
      free(member.items);
      member = {};
    } else {
      records::visit(*this, member);
    }
  }
};

struct TakeOut {
  std::string_view name;
  void (*apply)(void* record);
};

constexpr TakeOut kTakeOuts[] = {
#define RECORD(name, freeFunction, copyFunction) {#name, UntoldParts::takeOut<name>},
#include "records/all_records.def"
#undef RECORD
};

void takeOutUntoldParts(const RecordKind& kind, AnyRecord& record) {
  for (const TakeOut& takeOut : kTakeOuts) {
    if (takeOut.name == kind.name) {
      takeOut.apply(record.get());
    }
  }
}

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
    takeOutUntoldParts(kind, twin);
    takeOutUntoldParts(kind, copy);
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
