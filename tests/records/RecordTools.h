// Building, comparing and taking apart records of any kind, by their description.
#ifndef ZQXML_TESTS_RECORDS_RECORDTOOLS_H
#define ZQXML_TESTS_RECORDS_RECORDTOOLS_H

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <set>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "records/describe.h"

namespace tools {

// How a record is filled. A full tree has no null pointer, no empty list and a known tag wherever
// the depth allows it; a random one has all of these, and unknown tags.
enum class Fill { Random, Full };

// Fills a zeroed record with blocks of the C heap.
class Builder {
 public:
  Builder(uint32_t seed, Fill fill, int depth = 7) : random_(seed), fill_(fill), depth_(depth) {}

  void scalar(const char*, auto& number) {
    using Number = std::remove_reference_t<decltype(number)>;
    if constexpr (std::is_floating_point_v<Number>) {
      number = static_cast<double>(static_cast<int32_t>(random_())) / 64;
    } else {
      number = static_cast<Number>(random_());
    }
  }

  template <size_t N>
  void tag(const char*, uint32_t& number, const uint32_t (&known)[N]) {
    constexpr uint32_t kUnknown[] = {7777, 0xFFFFFFFF};
    if (fill_ == Fill::Random && oneIn(12)) {
      number = kUnknown[below(2)];
    } else {
      number = known[below(N)];
    }
  }

  template <size_t N>
  void chars(const char*, char (&array)[N]) {
    const size_t length = below(N);
    for (size_t i = 0; i < length; ++i) {
      array[i] = static_cast<char>(1 + below(255));
    }
    array[length] = '\0';
  }

  template <typename Number, size_t N>
  void numbers(const char* name, Number (&array)[N]) {
    for (Number& number : array) {
      scalar(name, number);
    }
  }

  void text(const char*, char*& text) {
    if (absent()) {
      return;
    }
    const size_t length = below(20);
    text = static_cast<char*>(malloc(length + 1));
    for (size_t i = 0; i < length; ++i) {
      text[i] = static_cast<char>('a' + below(26));
    }
    text[length] = '\0';
  }

  void bytes(const char*, uint32_t& count, const char*, unsigned char*& bytes) {
    count = newCount();
    if (count > 0) {
      bytes = static_cast<unsigned char*>(malloc(count));
      for (uint32_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<unsigned char>(below(256));
      }
    }
  }

  template <typename Element>
  void array(const char*, uint32_t& count, const char* name, Element*& items) {
    count = depth_ > 0 ? newCount() : 0;
    if (count == 0) {
      return;
    }
    items = static_cast<Element*>(calloc(count, sizeof(Element)));
    --depth_;
    for (uint32_t i = 0; i < count; ++i) {
      records::visitElement(*this, name, items[i]);
    }
    ++depth_;
  }

  template <typename Record>
  void block(const char*, Record*& member) {
    if (depth_ == 0 || absent()) {
      return;
    }
    member = static_cast<Record*>(calloc(1, sizeof(Record)));
    --depth_;
    records::visit(*this, *member);
    ++depth_;
  }

  void record(const char*, auto& member) { records::visit(*this, member); }

 private:
  size_t below(size_t limit) { return random_() % limit; }
  bool oneIn(size_t chance) { return below(chance) == 0; }
  bool absent() { return fill_ == Fill::Random && oneIn(6); }
  uint32_t newCount() {
    return fill_ == Fill::Full ? 2 : static_cast<uint32_t>(oneIn(4) ? 0 : 1 + below(3));
  }

  std::mt19937 random_;
  Fill fill_;
  int depth_;
};

// Prints a record with all that hangs from it, so that two records are equal if their texts are.
class Dumper {
 public:
  template <typename Record>
  static std::string dump(const Record& record) {
    Dumper dumper;
    records::visit(dumper, record);
    return dumper.text_;
  }

  void scalar(const char* name, const auto& number) {
    char text[48];
    if constexpr (std::is_floating_point_v<std::remove_cvref_t<decltype(number)>>) {
      snprintf(text, sizeof text, "%a", number);
    } else {
      snprintf(text, sizeof text, "%lld", static_cast<long long>(number));
    }
    line(name, text);
  }

  void tag(const char* name, const uint32_t& number, const auto&) { scalar(name, number); }

  template <size_t N>
  void chars(const char* name, const char (&array)[N]) {
    // All bytes count, also those behind the terminator.
    size_t used = N;
    while (used > 0 && array[used - 1] == '\0') {
      --used;
    }
    line(name, std::string(array, used));
  }

  template <typename Number, size_t N>
  void numbers(const char* name, const Number (&array)[N]) {
    for (const Number& number : array) {
      scalar(name, number);
    }
  }

  void text(const char* name, const char* text) {
    line(name, text == nullptr ? "null" : '"' + std::string(text) + '"');
  }

  void bytes(const char* countName, const uint32_t& count, const char* name,
             const unsigned char* bytes) {
    scalar(countName, count);
    line(name,
         bytes == nullptr ? "null" : std::string(reinterpret_cast<const char*>(bytes), count));
  }

  template <typename Element>
  void array(const char* countName, const uint32_t& count, const char* name, Element* items) {
    scalar(countName, count);
    if (items == nullptr) {
      line(name, "null");
      return;
    }
    ++depth_;
    for (uint32_t i = 0; i < count; ++i) {
      records::visitElement(*this, name, std::as_const(items[i]));
    }
    --depth_;
  }

  template <typename Record>
  void block(const char* name, Record* member) {
    if (member == nullptr) {
      line(name, "null");
    } else {
      record(name, std::as_const(*member));
    }
  }

  void record(const char* name, const auto& member) {
    line(name, "");
    ++depth_;
    records::visit(*this, member);
    --depth_;
  }

 private:
  void line(const char* name, const std::string& value) {
    text_.append(static_cast<size_t>(depth_) * 2, ' ');
    text_ += name;
    text_ += " = ";
    text_ += value;
    text_ += '\n';
  }

  std::string text_;
  int depth_ = 0;
};

// The blocks that hang from a record.
class Blocks {
 public:
  template <typename Record>
  static std::set<const void*> of(const Record& record) {
    Blocks blocks;
    records::visit(blocks, record);
    return blocks.blocks_;
  }

  void scalar(const char*, const auto&) {}
  void tag(const char*, const uint32_t&, const auto&) {}
  void chars(const char*, const auto&) {}
  void numbers(const char*, const auto&) {}
  void text(const char*, const char* text) { add(text); }
  void bytes(const char*, const uint32_t&, const char*, const unsigned char* bytes) { add(bytes); }

  template <typename Element>
  void array(const char*, const uint32_t& count, const char* name, Element* items) {
    if (items == nullptr) {
      return;
    }
    add(items);
    for (uint32_t i = 0; i < count; ++i) {
      records::visitElement(*this, name, std::as_const(items[i]));
    }
  }

  template <typename Record>
  void block(const char*, Record* member) {
    if (member != nullptr) {
      add(member);
      records::visit(*this, std::as_const(*member));
    }
  }

  void record(const char*, const auto& member) { records::visit(*this, member); }

 private:
  void add(const void* block) {
    if (block != nullptr) {
      blocks_.insert(block);
    }
  }

  std::set<const void*> blocks_;
};

// The blocks that the Free functions leave allocated by contract: the top node of a query's
// condition, the selected elements of a list of objects, and all below the left operand of a
// negation.
class KeptBlocks {
 public:
  template <typename Record>
  static std::vector<void*> of(const Record& record) {
    KeptBlocks kept;
    kept.record("", record);
    return kept.blocks_;
  }

  void scalar(const char*, const auto&) {}
  void tag(const char*, const uint32_t&, const auto&) {}
  void chars(const char*, const auto&) {}
  void numbers(const char*, const auto&) {}
  void text(const char*, const char*) {}
  void bytes(const char*, const uint32_t&, const char*, const unsigned char*) {}

  template <typename Element>
  void array(const char*, const uint32_t& count, const char* name, Element* items) {
    for (uint32_t i = 0; items != nullptr && i < count; ++i) {
      if constexpr (std::is_same_v<std::remove_const_t<Element>, ZQStructItemStruct>) {
        add(items[i].selectedElements.items);
      } else {
        records::visitElement(*this, name, std::as_const(items[i]));
      }
    }
  }

  template <typename Record>
  void block(const char* name, Record* member) {
    if (member != nullptr) {
      record(name, std::as_const(*member));
    }
  }

  template <typename Record>
  void record(const char* name, const Record& member) {
    if constexpr (std::is_same_v<Record, ZQQueryValueStruct>) {
      add(member.queryQualification);
    }
    if constexpr (std::is_same_v<Record, ZQArithOpStruct>) {
      if (member.operation == 6) {
        for (const void* block : Blocks::of(member.operandLeft)) {
          add(const_cast<void*>(block));
        }
        record(name, member.operandRight);
        return;
      }
    }
    records::visit(*this, member);
  }

 private:
  void add(void* block) {
    if (block != nullptr) {
      blocks_.push_back(block);
    }
  }

  std::vector<void*> blocks_;
};

// Frees all blocks of a record by its description, so without the functions under test.
template <typename Record>
void freeBlocks(const Record& record) {
  for (const void* block : Blocks::of(record)) {
    free(const_cast<void*>(block));
  }
}

}  // namespace tools

#endif
