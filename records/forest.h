// Freeing arrays of records that own further arrays of the same kind, to any depth and without
// recursion.
#ifndef ZQXML_RECORDS_FOREST_H
#define ZQXML_RECORDS_FOREST_H

#include <cstdint>
#include <cstdlib>
#include <new>
#include <type_traits>

namespace records {

// `count` records from `items` on, which lie in the heap block `block`.
template <typename Item>
struct Grove {
  void* block = nullptr;
  Item* items = nullptr;
  uint32_t count = 0;
};

// The grove of a list record, which is empty afterwards.
template <typename List>
auto takeGrove(List& list) {
  Grove<std::remove_pointer_t<decltype(list.items)>> grove;
  if (list.numItems != 0 && list.items != nullptr) {
    grove = {list.items, list.items, list.numItems};
  }
  list.numItems = 0;
  list.items = nullptr;
  return grove;
}

// Gives back a grove and all groves below it. `takeGrove(item)` gives back whatever else the item
// owns and returns the grove below it. The item is spent then, and holds the place in its array
// while that grove is given back.
template <typename Item, typename TakeGrove>
void freeForest(Grove<Item> grove, TakeGrove takeGrove) {
  struct Waiting {
    Waiting* next;
    void* block;
    Item* items;
  };
  static_assert(sizeof(Waiting) <= sizeof(Item) && alignof(Waiting) <= alignof(Item));
  Waiting* waiting = nullptr;
  for (;;) {
    while (grove.count > 0) {
      --grove.count;
      Item* item = grove.items + grove.count;
      const Grove<Item> below = takeGrove(*item);
      if (below.block != nullptr) {
        waiting = new (item) Waiting{waiting, grove.block, grove.items};
        grove = below;
      }
    }
    free(grove.block);
    if (waiting == nullptr) {
      return;
    }
    const auto place = reinterpret_cast<Item*>(waiting) - waiting->items;
    grove = {waiting->block, waiting->items, static_cast<uint32_t>(place)};
    waiting = waiting->next;
  }
}

}  // namespace records

#endif
