// The members of a record that are set, as one line: what an expectation of a test shows.
//
//   executionOrder=6 workflowConnect{type=1 formList["A" "B"]} query{operation=5 fieldId=7}
//
// Zero, null, empty names and records without a set member are left out; an owned record that has
// none shows as "name{}", a list of records as "name[{...} {...}]". Control characters show as
// "<4>".
#ifndef ZQXML_TESTS_RECORDS_MEMBERS_H
#define ZQXML_TESTS_RECORDS_MEMBERS_H

#include <cstdint>
#include <string>
#include <type_traits>

#include "records/describe.h"

class Members {
 public:
  template <typename Record>
  static std::string of(const Record& record) {
    Members members;
    records::visit(members, record);
    return members.line_;
  }

  void scalar(const char* name, const auto& number) {
    if (number != 0) {
      add(name, "=" + shown(number));
    }
  }

  void tag(const char* name, const uint32_t& number, const auto&) { scalar(name, number); }

  template <size_t kSize>
  void chars(const char* name, const char (&array)[kSize]) {
    if (const std::string text = shown(array); text != "\"\"") {
      add(name, "=" + text);
    }
  }

  template <typename Number, size_t kSize>
  void numbers(const char* name, const Number (&array)[kSize]) {
    size_t used = kSize;
    while (used > 0 && array[used - 1] == 0) {
      --used;
    }
    if (used > 0) {
      add(name, list(array, used));
    }
  }

  void text(const char* name, const char* text) {
    if (text != nullptr) {
      add(name, "=" + shown(text));
    }
  }

  void bytes(const char* countName, const uint32_t& count, const char* name,
             const unsigned char* bytes) {
    scalar(countName, count);
    if (bytes != nullptr) {
      add(name, list(bytes, count));
    }
  }

  template <typename Element>
  void array(const char* countName, const uint32_t& count, const char* name, Element* items) {
    if (items == nullptr) {
      scalar(countName, count);
    } else {
      add(name, list(items, count));
    }
  }

  template <typename Record>
  void block(const char* name, Record* member) {
    if (member != nullptr) {
      add(name, shown(*member));
    }
  }

  template <typename Record>
  void record(const char* name, const Record& member) {
    const std::string text = shown(member);
    if (text != "{}") {
      add(name, text);
    }
  }

 private:
  void add(const std::string& name, const std::string& value) {
    line_ += (line_.empty() ? "" : " ") + name + value;
  }

  template <typename Element>
  static std::string list(const Element* items, size_t count) {
    std::string text = "[";
    for (size_t i = 0; i < count; ++i) {
      text += (i > 0 ? " " : "") + shown(items[i]);
    }
    return text + "]";
  }

  template <typename Value>
  static std::string shown(const Value& value) {
    if constexpr (std::is_floating_point_v<Value>) {
      char text[48];
      snprintf(text, sizeof text, "%g", value);
      return text;
    } else if constexpr (std::is_arithmetic_v<Value>) {
      return std::to_string(value);
    } else if constexpr (std::is_array_v<Value>) {
      // Bytes behind the terminator show too.
      size_t used = std::size(value);
      while (used > 0 && value[used - 1] == '\0') {
        --used;
      }
      return quoted(std::string(value, used));
    } else if constexpr (std::is_pointer_v<Value>) {
      return value == nullptr ? "null" : quoted(value);
    } else if constexpr (records::List<Value>) {
      return value.items == nullptr && value.numItems == 0 ? "{}"
             : value.items == nullptr                      ? std::to_string(value.numItems) + "[]"
                                                           : list(value.items, value.numItems);
    } else {
      return "{" + of(value) + "}";
    }
  }

  static std::string quoted(const std::string& text) {
    std::string shown = "\"";
    for (const char c : text) {
      if (static_cast<unsigned char>(c) < ' ') {
        shown += "<" + std::to_string(c) + ">";
      } else {
        shown += c;
      }
    }
    return shown + "\"";
  }

  std::string line_;
};

#endif
