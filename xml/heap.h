// Blocks of the C heap, where all memory behind a record lies. Want of memory is ZQXMLException
// 300.
#ifndef ZQXML_XML_HEAP_H
#define ZQXML_XML_HEAP_H

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "records/verbs.h"
#include "xml/ZQXMLException.h"
#include "zqxml/messages.h"
#include "zqxml/records.h"

// `count` zeroed records, which the caller frees.
template <typename Record>
Record* newRecords(size_t count) {
  auto* records = static_cast<Record*>(calloc(count, sizeof(Record)));
  if (records == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  return records;
}

template <typename Record>
Record* newRecord() {
  return newRecords<Record>(1);
}

// A copy of a text in place of the one that `target` holds, which is freed.
inline void replaceText(char*& target, const char* text) {
  free(target);
  target = strdup(text);
  if (target == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
}

// Frees what a record owns, all of it, and clears it.
template <typename Record>
void releaseRecord(Record& record, void (*freeRecord)(Record*, ZQBoolean)) {
  static constexpr char kEmpty[sizeof(Record)] = {};
  // The question isn't whether two records are equal, but whether any byte was ever written.
  // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison,cert-exp42-c,cert-flp37-c)
  if (memcmp(&record, kEmpty, sizeof(Record)) == 0) {
    return;
  }
  const records::Unwinding unwinding;
  freeRecord(&record, 0);
  record = {};
}

// Frees a block with all that its record owns.
template <typename Record>
void releaseBlock(Record*& block, void (*freeRecord)(Record*, ZQBoolean)) {
  if (block != nullptr) {
    const records::Unwinding unwinding;
    freeRecord(std::exchange(block, nullptr), 1);
  }
}

// Frees an array with what its records own.
template <typename Record>
void releaseArray(uint32_t& count, Record*& records, void (*freeRecord)(Record*, ZQBoolean)) {
  for (uint32_t i = 0; i < count; ++i) {
    releaseRecord(records[i], freeRecord);
  }
  free(records);
  records = nullptr;
  count = 0;
}

#endif
