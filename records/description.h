// What the description of a record is; records/describe.h holds those of all records.
#ifndef ZQXML_RECORDS_DESCRIPTION_H
#define ZQXML_RECORDS_DESCRIPTION_H

#include <cstdint>
#include <type_traits>

#include "zqxml/records.h"

namespace records {

// Description<Record>::visit(v, record) calls the visitor `v` for each member of the record, in the
// record's order, and for that member of a union which the tag names. The visitor has:
//
//   scalar(name, number)                      a number or a flag
//   tag(name, number, known)                  the tag of the union behind it, and the numbers it
//   may have chars(name, array)                        a fixed array of characters, zero-terminated
//   numbers(name, array)                      a fixed array of numbers
//   text(name, pointer)                       an owned text, or null
//   bytes(countName, count, name, pointer)    owned bytes, and their number
//   array(countName, count, name, pointer)    an owned array, and its length; see visitElement
//   block(name, pointer)                      an owned record, or null
//   record(name, record)                      a record held by value
//
// The visitor sees the members of a const record as const. Pointers that are not owned (the parent
// of a complex entry, the next node of an object chain) are left out.
template <typename Record>
struct Description;

template <typename Record>
void visit(auto& visitor, Record& record) {
  Description<std::remove_const_t<Record>>::visit(visitor, record);
}

// A list record: nothing but a count and an array.
template <typename Record>
concept List = requires(Record record) {
  record.numItems;
  record.items;
}
&&sizeof(Record) == 16;

template <List Record>
struct Description<Record> {
  static void visit(auto& v, auto& r) { v.array("numItems", r.numItems, "items", r.items); }
};

// Visits an element of an array, be it a number, a name, a text or a record.
template <typename Element>
void visitElement(auto& v, const char* name, Element& element) {
  using Plain = std::remove_const_t<Element>;
  if constexpr (std::is_arithmetic_v<Plain>) {
    v.scalar(name, element);
  } else if constexpr (std::is_array_v<Plain>) {
    v.chars(name, element);
  } else if constexpr (std::is_same_v<Plain, char*>) {
    v.text(name, element);
  } else {
    v.record(name, element);
  }
}

}  // namespace records

#endif
