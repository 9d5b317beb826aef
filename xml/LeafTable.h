// The text elements of a handler: which they are, where their texts gather, and what becomes of
// them.
//
// A handler gives its rows, one for each text element, and asks the table at every event. A row
// names the function that puts the text into the record; without one the text waits for the handler
// itself. Texts gather until they are emptied, which the start of the enclosing element does: an
// element that comes twice has both texts joined.
#ifndef ZQXML_XML_LEAFTABLE_H
#define ZQXML_XML_LEAFTABLE_H

#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <type_traits>
#include <xercesc/sax/Locator.hpp>

#include "xml/ZQGNString.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/heap.h"
#include "zqxml/multibyte.h"
#include "zqxml/records.h"

// A text that is loaded, and the place for messages.
struct LeafText {
  const char* text;
  const xercesc::Locator* const* locator;
};

template <typename Record>
struct Leaf {
  int tag;
  void (*load)(Record& record, const LeafText& text);
};

template <typename Record>
class LeafTable {
 public:
  // The rows outlive the table; there are at most 64.
  explicit LeafTable(std::span<const Leaf<Record>> leaves)
      : rows(leaves), texts(new ZQGNString[leaves.size()]) {
    assert(leaves.size() <= 64);
  }

  // An element begins. Returns whether it is one of the rows.
  bool open(int tag) {
    openRow = indexOf(tag);
    if (openRow == rows.size()) {
      return false;
    }
    used |= uint64_t{1} << openRow;
    return true;
  }

  // Text of the element that began last; without one it is dropped.
  void append(const char* text) {
    if (openRow < rows.size()) {
      texts[openRow] += text;
    }
  }

  // An element ends: its text goes into the record. Returns whether it is one of the rows.
  bool close(int tag, Record& record, const xercesc::Locator* const* locator) {
    const size_t row = openRow < rows.size() && rows[openRow].tag == tag ? openRow : indexOf(tag);
    openRow = rows.size();
    if (row == rows.size()) {
      return false;
    }
    loadRow(row, record, locator);
    return true;
  }

  bool has(int tag) const { return indexOf(tag) < rows.size(); }

  // Puts the text of a row into a record, for a handler that waits with it.
  void load(int tag, Record& record, const xercesc::Locator* const* locator) {
    loadRow(indexOf(tag), record, locator);
  }

  // Puts all texts into a record, the empty ones too.
  void loadAll(Record& record, const xercesc::Locator* const* locator) {
    for (size_t row = 0; row < rows.size(); ++row) {
      loadRow(row, record, locator);
    }
  }

  // The text of a row.
  ZQGNString& operator[](int tag) {
    const size_t row = indexOf(tag);
    used |= uint64_t{1} << row;
    return texts[row];
  }

  // Empties all texts. Most are, which is why those that aren't are kept in mind.
  void empty() {
    for (; used != 0; used &= used - 1) {
      texts[static_cast<size_t>(std::countr_zero(used))].Empty();
    }
    openRow = rows.size();
  }

 private:
  size_t indexOf(int tag) const {
    size_t row = 0;
    while (row < rows.size() && rows[row].tag != tag) {
      ++row;
    }
    return row;
  }

  void loadRow(size_t row, Record& record, const xercesc::Locator* const* locator) {
    if (rows[row].load != nullptr) {
      rows[row].load(record, {texts[row], locator});
    }
  }

  std::span<const Leaf<Record>> rows;
  std::unique_ptr<ZQGNString[]> texts;
  size_t openRow = SIZE_MAX;
  // A bit for each row whose text may not be empty.
  uint64_t used = 0;
};

// Decimal numbers of the C library; a text that is none gives 0. A member takes the low 32 bits.
inline int32_t signedNumber(const char* text) {
  return static_cast<int32_t>(strtol(text, nullptr, 10));
}

inline uint32_t unsignedNumber(const char* text) {
  return static_cast<uint32_t>(strtoul(text, nullptr, 10));
}

// A decimal number with a point, whatever the locale; a text that is none gives 0.
double realNumber(const char* text);

// Fills a fixed array with as many whole characters as it has room for.
template <size_t kSize>
void fillArray(char (&array)[kSize], const char* text, int limit = kSize - 1) {
  mbstrncpy(array, text, limit);
  array[limit] = '\0';
}

// What a row does with its text, by the kind of the member that it loads.

template <auto kMember, typename Record>
void loadName(Record& record, const LeafText& leaf) {
  fillArray(record.*kMember, leaf.text);
}

template <auto kMember, typename Record>
void loadText(Record& record, const LeafText& leaf) {
  replaceText(record.*kMember, leaf.text);
}

template <auto kMember, typename Record>
void loadSigned(Record& record, const LeafText& leaf) {
  using Number = std::remove_reference_t<decltype(record.*kMember)>;
  record.*kMember = static_cast<Number>(signedNumber(leaf.text));
}

template <auto kMember, typename Record>
void loadUnsigned(Record& record, const LeafText& leaf) {
  using Number = std::remove_reference_t<decltype(record.*kMember)>;
  record.*kMember = static_cast<Number>(unsignedNumber(leaf.text));
}

template <auto kMember, ENUM_VALUE_TYPE kWords, typename Record>
void loadWord(Record& record, const LeafText& leaf) {
  using Number = std::remove_reference_t<decltype(record.*kMember)>;
  record.*kMember =
      static_cast<Number>(ZQXMLHandlerUtils::GetEnumValue(kWords, leaf.text, leaf.locator));
}

#endif
