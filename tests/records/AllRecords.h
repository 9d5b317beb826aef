// Each record of the interface with its functions, behind one type, so that a test can run over all
// of them.
#ifndef ZQXML_TESTS_RECORDS_ALLRECORDS_H
#define ZQXML_TESTS_RECORDS_ALLRECORDS_H

#include <cstdint>
#include <ostream>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "RecordTools.h"

struct RecordKind {
  const char* name;
  const char* freeName;  // empty without a function
  const char* copyName;  // empty without a function
  size_t size;
  void (*build)(void* record, uint32_t seed, tools::Fill fill, int depth);
  void (*free)(void* record, unsigned char freeStruct);
  unsigned (*copy)(void* dest, const void* source);
  std::string (*dump)(const void* record);
  void (*takeOutUntoldParts)(void* record);
  std::set<const void*> (*blocks)(const void* record);
  std::vector<void*> (*keptBlocks)(const void* record);

  bool hasFree() const { return *freeName != '\0'; }
  bool hasCopy() const { return *copyName != '\0'; }
};

std::span<const RecordKind> allRecords();

// How the test framework names a kind.
inline void PrintTo(const RecordKind& kind, std::ostream* out) {
  *out << kind.name;
}

// One record of a kind, in zeroed storage of its own; what hangs from it belongs to the test.
class AnyRecord {
 public:
  explicit AnyRecord(const RecordKind& kind) : kind_(kind), storage_(kind.size / 8 + 1, 0) {}

  void* get() { return storage_.data(); }
  const void* get() const { return storage_.data(); }
  void fillWith(unsigned char byte) { memset(storage_.data(), byte, kind_.size); }
  // What a destination holds before a copy. An empty list of functional currencies is not copied
  // over it.
  void makeStale() { fillWith(strcmp(kind_.name, "ZQFuncCurrencyList") == 0 ? 0 : 0xA5); }
  bool isFilledWith(unsigned char byte) const {
    const auto* bytes = reinterpret_cast<const unsigned char*>(storage_.data());
    for (size_t i = 0; i < kind_.size; ++i) {
      if (bytes[i] != byte) {
        return false;
      }
    }
    return true;
  }

  void build(uint32_t seed, tools::Fill fill, int depth = 7) {
    kind_.build(get(), seed, fill, depth);
  }
  std::string dump() const { return kind_.dump(get()); }
  // Frees what a copy may lack although it succeeds, where there was no memory for it.
  void takeOutUntoldParts() { kind_.takeOutUntoldParts(get()); }
  std::set<const void*> blocks() const { return kind_.blocks(get()); }
  std::vector<void*> keptBlocks() const { return kind_.keptBlocks(get()); }
  void freeBlocks() {
    for (const void* block : blocks()) {
      ::free(const_cast<void*>(block));
    }
  }

  // Frees by the function under test, then what that leaves allocated by contract; returns how many
  // blocks it left.
  size_t free() {
    const std::vector<void*> kept = keptBlocks();
    kind_.free(get(), 0);
    for (void* block : kept) {
      ::free(block);
    }
    return kept.size();
  }

 private:
  const RecordKind& kind_;
  std::vector<uint64_t> storage_;
};

#endif
