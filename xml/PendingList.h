// The entries of a list whose element hasn't ended. A handler appends an entry at each start of
// one, children write into it, and at the end of the list all move into the array of the record.
//
// Entries stay where they are until then. Their blocks are kept for the next list, so that steady
// reading allocates nothing but what it hands out.
#ifndef ZQXML_XML_PENDINGLIST_H
#define ZQXML_XML_PENDINGLIST_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "xml/heap.h"
#include "zqxml/records.h"

// The entry type owns nothing.
template <typename Record>
void freeNothing(Record*, ZQBoolean) {}

// `kFree` frees what an entry owns.
template <typename Record, void (*kFree)(Record*, ZQBoolean) = freeNothing<Record>>
class PendingList {
 public:
  PendingList() = default;
  PendingList(const PendingList&) = delete;
  PendingList& operator=(const PendingList&) = delete;
  ~PendingList() { clean(); }

  // Appends a zeroed entry, which is the open one. Throws ZQXMLException 300 or std::bad_alloc.
  Record& add() {
    if (count == entries.size()) {
      std::unique_ptr<Record, FreeBlock> entry(newRecord<Record>());
      entries.push_back(std::move(entry));
    } else {
      memset(static_cast<void*>(entries[count].get()), 0, sizeof(Record));
    }
    openEntry = entries[count++].get();
    return *openEntry;
  }

  // The entry that is being read, or null outside entries.
  Record* open() const { return openEntry; }

  void close() { openEntry = nullptr; }

  bool isEmpty() const { return count == 0; }

  template <typename Visit>
  void forEach(Visit visit) const {
    for (size_t i = 0; i < count; ++i) {
      visit(*entries[i]);
    }
  }

  // Moves all entries into an array of their own, which is null if there is none. What the list
  // held before has been freed. Throws ZQXMLException 300.
  void moveTo(uint32_t& numItems, Record*& items) {
    numItems = 0;
    items = nullptr;
    openEntry = nullptr;
    if (count == 0) {
      return;
    }
    items = newRecords<Record>(count);
    numItems = static_cast<uint32_t>(count);
    for (size_t i = 0; i < count; ++i) {
      memcpy(static_cast<void*>(&items[i]), entries[i].get(), sizeof(Record));
    }
    count = 0;
    trim();
  }

  // Frees what the entries own, and forgets them.
  void clean() {
    openEntry = nullptr;
    for (; count > 0; --count) {
      releaseRecord(*entries[count - 1], kFree);
    }
    trim();
  }

 private:
  static_assert(std::is_trivially_copyable_v<Record>);

  struct FreeBlock {
    void operator()(Record* record) const { free(record); }
  };

  // One long list doesn't hold its memory for the life of the parser.
  void trim() {
    constexpr size_t kKept = 64;
    if (entries.size() > kKept) {
      entries.resize(kKept);
      entries.shrink_to_fit();
    }
  }

  std::vector<std::unique_ptr<Record, FreeBlock>> entries;
  size_t count = 0;
  Record* openEntry = nullptr;
};

#endif
