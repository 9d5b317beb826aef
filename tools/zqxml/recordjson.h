// Records of any kind as JSON: an object per record, an array per list, the member of a union that
// its tag names beside the tag.
#ifndef ZQXML_TOOLS_RECORDJSON_H
#define ZQXML_TOOLS_RECORDJSON_H

#include <zqxml/zqxml.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <nlohmann/json.hpp>
#include <string>
#include <type_traits>

#include "records/describe.h"

template <typename Record>
nlohmann::ordered_json recordJson(const Record& record);

// Visits the members of one record.
class RecordJson {
 public:
  template <typename Number>
  void scalar(const char* name, const Number& number) {
    json[name] = number;
  }
  template <typename Number, typename Known>
  void tag(const char* name, const Number& number, const Known&) {
    json[name] = number;
  }
  template <size_t kSize>
  void chars(const char* name, const char (&array)[kSize]) {
    json[name] = std::string(array, strnlen(array, kSize));
  }
  template <typename Number, size_t kSize>
  void numbers(const char* name, const Number (&array)[kSize]) {
    for (const Number& number : array) {
      json[name].push_back(number);
    }
  }
  void text(const char* name, const char* const& pointer) {
    json[name] = pointer != nullptr ? nlohmann::ordered_json(pointer) : nlohmann::ordered_json();
  }
  template <typename Count>
  void bytes(const char*, const Count& count, const char* name, const unsigned char* const& bytes) {
    char* encoded = nullptr;
    if (EncodeBase64(bytes, static_cast<unsigned>(count), &encoded) != 0) {
      throw std::bad_alloc();
    }
    const std::unique_ptr<char, decltype(&free)> owner(encoded, free);
    std::string text = encoded;
    std::erase(text, '\n');
    json[name] = text;
  }
  template <typename Count, typename Element>
  void array(const char*, const Count& count, const char* name, Element* const& items) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (Count i = 0; items != nullptr && i < count; ++i) {
      RecordJson element;
      records::visitElement<const Element>(element, "", items[i]);
      list.push_back(element.json[""]);
    }
    json[name] = list;
  }
  template <typename Record>
  void block(const char* name, Record* const& pointer) {
    json[name] = pointer != nullptr ? recordJson(*pointer) : nlohmann::ordered_json();
  }
  template <typename Record>
  void record(const char* name, const Record& inner) {
    json[name] = recordJson(inner);
  }

  nlohmann::ordered_json json = nlohmann::ordered_json::object();
};

template <typename Record>
nlohmann::ordered_json recordJson(const Record& record) {
  RecordJson visitor;
  records::visit(visitor, record);
  if constexpr (records::List<Record>) {
    return visitor.json["items"];
  } else {
    return visitor.json;
  }
}

#endif
