// A walk over all that a record holds, by its description; a derived class says what is done where.
#ifndef ZQXML_TESTS_RECORDS_RECORDWALK_H
#define ZQXML_TESTS_RECORDS_RECORDWALK_H

#include <cstdint>

#include "records/describe.h"

// `Walk` derives from it, has a `record` that comes by each record, and hides what else it needs.
template <typename Walk>
class RecordWalk {
 public:
  void scalar(const char*, const auto&) {}
  void tag(const char*, const uint32_t&, const auto&) {}
  void chars(const char*, const auto&) {}
  void numbers(const char*, const auto&) {}
  void text(const char*, char*) {}
  void bytes(const char*, const uint32_t&, const char*, unsigned char*) {}

  template <typename Element>
  void array(const char*, const uint32_t& count, const char* name, Element* items) {
    for (uint32_t i = 0; items != nullptr && i < count; ++i) {
      records::visitElement(walk(), name, items[i]);
    }
  }

  template <typename Record>
  void block(const char* name, Record* member) {
    if (member != nullptr) {
      walk().record(name, *member);
    }
  }

 private:
  Walk& walk() { return static_cast<Walk&>(*this); }
};

#endif
