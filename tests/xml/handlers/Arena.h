// Blocks of expected records, which live as long as the arena.
#ifndef ZQXML_TESTS_XML_HANDLERS_ARENA_H
#define ZQXML_TESTS_XML_HANDLERS_ARENA_H

#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

class Arena {
 public:
  template <typename Record>
  Record* make(const Record& record = {}) {
    auto block = std::make_shared<Record>(record);
    blocks.push_back(block);
    return block.get();
  }

  // A record behind a pointer to change: a copy of its own, since expected records share blocks.
  template <typename Record>
  Record& edit(Record*& pointer) {
    pointer = make(pointer != nullptr ? *pointer : Record{});
    return *pointer;
  }

  char* text(const std::string& content) {
    auto block = std::make_shared<std::string>(content);
    blocks.push_back(block);
    return block->data();
  }

  unsigned char* bytes(const std::string& content) {
    return reinterpret_cast<unsigned char*>(text(content));
  }

  template <typename Item>
  Item* array(std::initializer_list<Item> items) {
    auto block = std::make_shared<std::vector<Item>>(items);
    blocks.push_back(block);
    return block->data();
  }

  template <typename List, typename Item>
  List list(std::initializer_list<Item> items) {
    List result = {};
    result.numItems = static_cast<uint32_t>(items.size());
    result.items = array(items);
    return result;
  }

 private:
  std::vector<std::shared_ptr<void>> blocks;
};

// A fixed array from a text.
template <size_t kSize>
void setArray(char (&array)[kSize], const std::string& text) {
  memset(array, 0, kSize);
  memcpy(array, text.data(), text.size());
}

#endif
