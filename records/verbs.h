// The verbs that the Free and Copy functions are written with.
//
// A function that follows the pattern of its family is one line of verbs; one that deviates is
// written out.
//
// Copying has one law: a copy that fails leaves its destination without a pointer that is not a
// finished copy of its own, so that whoever unwinds may free the destination like any other record.
#ifndef ZQXML_RECORDS_VERBS_H
#define ZQXML_RECORDS_VERBS_H

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <type_traits>

#include "zqxml/messages.h"
#include "zqxml/records.h"

namespace records {

// While an object of this class lives, the Free functions of its thread also give back what they
// leave allocated by contract. A failed copy gives back all that it has allocated, and it frees
// with the public functions.
class Unwinding {
 public:
  Unwinding();
  ~Unwinding();
  Unwinding(const Unwinding&) = delete;
  Unwinding& operator=(const Unwinding&) = delete;

  static bool active();
};

// Gives one block back that owns nothing.
template <typename Block>
void release(Block*& block) {
  free(block);
  block = nullptr;
}

// Ends a Free function: the record itself is given back if it is a block of its own.
template <typename Record>
void finishFree(Record* record, ZQBoolean freeStruct) {
  if (freeStruct != 0) {
    free(record);
  }
}

// Whether a tag is one of a few, by one test.
template <unsigned... kTags>
constexpr bool isAnyOf(uint32_t tag) {
  constexpr uint64_t kSet = (uint64_t{0} | ... | (uint64_t{1} << kTags));
  return tag < 64 && (kSet >> tag & 1) != 0;
}

constexpr bool operandOwnsMemory(uint32_t tag) {
  return isAnyOf<2, 3, 5, 6, 53, 54, 55, 56>(tag);
}

// The value types whose member is a text: character, diary, decimal, view and display.
constexpr bool isTextType(uint32_t dataType) {
  return isAnyOf<4, 5, 10, 42, 43>(dataType);
}

template <typename List>
void setEmpty(List& list) {
  list.numItems = 0;
  list.items = nullptr;
}

template <typename List>
bool hasItems(const List& list) {
  return list.numItems != 0 && list.items != nullptr;
}

// A list whose elements own nothing. Deliberate: an array with a count of 0 is not given back.
template <typename List>
void freePlainList(List* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  if (hasItems(*list)) {
    free(list->items);
  }
  setEmpty(*list);
  finishFree(list, freeStruct);
}

// A list whose elements own memory, which `freeElement(element, 0)` gives back.
template <typename List, typename FreeElement>
void freeList(List* list, ZQBoolean freeStruct, FreeElement freeElement) {
  if (list == nullptr) {
    return;
  }
  if (hasItems(*list)) {
    for (uint32_t i = 0; i < list->numItems; ++i) {
      freeElement(&list->items[i], ZQBoolean{0});
    }
    free(list->items);
  }
  setEmpty(*list);
  finishFree(list, freeStruct);
}

constexpr unsigned kDone = 0;
constexpr unsigned kOutOfMemory = ZQ_MESSAGE_OUT_OF_MEMORY;

template <typename Element>
Element* allocate(size_t count = 1) {
  return static_cast<Element*>(malloc(count * sizeof(Element)));
}

template <typename Element>
Element* allocateCleared(size_t count = 1) {
  return static_cast<Element*>(calloc(count, sizeof(Element)));
}

template <typename Record>
void clear(Record& record) {
  static_assert(std::is_trivially_copyable_v<Record>);
  memset(&record, 0, sizeof record);
}

// Null copies as null.
inline unsigned copyText(char*& dest, const char* source) {
  dest = nullptr;
  if (source == nullptr) {
    return kDone;
  }
  dest = strdup(source);
  return dest == nullptr ? kOutOfMemory : kDone;
}

// An array that owns nothing, and its count. A count without an array, or the reverse, copies as
// empty.
template <typename Element, typename Count>
unsigned copyArray(Element*& dest, Count& destCount, const Element* source, Count sourceCount) {
  dest = nullptr;
  destCount = 0;
  if (sourceCount == 0 || source == nullptr) {
    return kDone;
  }
  dest = allocate<Element>(sourceCount);
  if (dest == nullptr) {
    return kOutOfMemory;
  }
  memcpy(dest, source, sourceCount * sizeof(Element));
  destCount = sourceCount;
  return kDone;
}

// One owned record. Null copies as null; a failed copy of the record gives its block back.
template <typename Record, typename CopyRecord>
unsigned copyBlock(Record*& dest, const Record* source, CopyRecord copyRecord) {
  dest = nullptr;
  if (source == nullptr) {
    return kDone;
  }
  Record* block = allocate<Record>();
  if (block == nullptr) {
    return kOutOfMemory;
  }
  const unsigned status = copyRecord(block, source);
  if (status != kDone) {
    free(block);
    return status;
  }
  dest = block;
  return kDone;
}

// A record that owns nothing.
template <typename Record>
unsigned copyWhole(Record* dest, const Record* source) {
  *dest = *source;
  return kDone;
}

// A list whose elements own nothing; an absent source is an empty one.
template <typename List>
unsigned copyPlainList(List* dest, const List* source) {
  if (dest == nullptr) {
    return kDone;
  }
  setEmpty(*dest);
  return source == nullptr
             ? kDone
             : copyArray(dest->items, dest->numItems, source->items, source->numItems);
}

// Allocates the array of an empty list.
template <typename List>
unsigned allocateItems(List* list, uint32_t count) {
  list->items = allocate<std::remove_pointer_t<decltype(list->items)>>(count);
  return list->items == nullptr ? kOutOfMemory : kDone;
}

// Fills an allocated array. An element whose copy fails is freed with those before it.
template <typename List, typename CopyElement, typename FreeElements>
unsigned copyElements(List* dest, const List* source, CopyElement copyElement,
                      FreeElements freeElements) {
  for (uint32_t i = 0; i < source->numItems; ++i) {
    const unsigned status = copyElement(&dest->items[i], &source->items[i]);
    if (status != kDone) {
      const Unwinding unwinding;
      dest->numItems = i + 1;
      freeElements(dest, ZQBoolean{0});
      return status;
    }
  }
  dest->numItems = source->numItems;
  return kDone;
}

// A list whose elements own memory; an absent source is an empty one.
template <typename List, typename CopyElement, typename FreeElements>
unsigned copyList(List* dest, const List* source, CopyElement copyElement,
                  FreeElements freeElements) {
  if (dest == nullptr) {
    return kDone;
  }
  setEmpty(*dest);
  if (source == nullptr || !hasItems(*source)) {
    return kDone;
  }
  const unsigned status = allocateItems(dest, source->numItems);
  return status == kDone ? copyElements(dest, source, copyElement, freeElements) : status;
}

// Copies the owned members of a record, one after the other, into a destination that is a whole
// copy of the source. Behind a failed member the others are emptied, so that `elseFree` finds no
// pointer of the source.
//
//   *dest = *source;
//   return CopyMembers()
//       .text(dest->label, source->label)
//       .record(CopyZQPropList, dest->props, source->props)
//       .elseFree(dest, FreeZQSomething);
class CopyMembers {
 public:
  CopyMembers& text(char*& dest, const char* source) {
    if (status_ == kDone) {
      status_ = copyText(dest, source);
    } else {
      dest = nullptr;
    }
    return *this;
  }

  // A member that is held by value.
  template <typename Record, typename CopyRecord>
  CopyMembers& record(CopyRecord copyRecord, Record& dest, const Record& source) {
    if (status_ == kDone) {
      status_ = copyRecord(&dest, &source);
    } else {
      clear(dest);
    }
    return *this;
  }

  // A member that is a block of its own.
  template <typename Record, typename CopyRecord>
  CopyMembers& block(CopyRecord copyRecord, Record*& dest, const Record* source) {
    if (status_ == kDone) {
      status_ = copyBlock(dest, source, copyRecord);
    } else {
      dest = nullptr;
    }
    return *this;
  }

  // The status; after a failure `freeRecord` has given back what was copied.
  template <typename Record, typename FreeRecord>
  unsigned elseFree(Record* dest, FreeRecord freeRecord) {
    if (status_ != kDone) {
      const Unwinding unwinding;
      freeRecord(dest, ZQBoolean{0});
    }
    return status_;
  }

 private:
  unsigned status_ = kDone;
};

}  // namespace records

#endif
