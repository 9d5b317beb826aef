// Deep free of records, written with a few verbs; each function stands under its whole name.

#include <cstdlib>

#include "zqxml/free.h"

namespace {

// A list whose elements own nothing.
template <typename List>
void freePlainList(List* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  if (list->numItems > 0) {
    free(list->items);
  }
  if (freeStruct != 0) {
    free(list);
    return;
  }
  list->numItems = 0;
  list->items = nullptr;
}

}  // namespace

void FreeZQUnsignedIntList(ZQUnsignedIntList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void FreeZQNameList(ZQNameList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}
