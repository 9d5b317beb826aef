// Walks over list records.
#ifndef ZQXML_XML_WRITERS_LISTS_H
#define ZQXML_XML_WRITERS_LISTS_H

#include <cstdint>
#include <span>

// The elements of an array that may be null, and then has none.
template <typename Item>
std::span<const Item> itemsOf(const Item* items, uint32_t count) {
  return items != nullptr ? std::span<const Item>(items, count) : std::span<const Item>();
}

// The elements of a list record that may be null.
template <typename List>
auto itemsOf(const List* list) {
  return list != nullptr ? itemsOf(list->items, list->numItems)
                         : decltype(itemsOf(list->items, 0))();
}

// Writes one after the other and ends at the first failure, which is the result.
template <typename Items, typename Write>
int writeEach(const Items& items, Write write) {
  for (const auto& item : items) {
    const int status = write(item);
    if (status != 0) {
      return status;
    }
  }
  return 0;
}

#endif
