// Deep free of complex entries: trees of entries, each of which holds the entries of the forms
// below it.

#include <new>
#include <utility>

#include "records/forest.h"
#include "records/verbs.h"
#include "zqxml/free.h"

using records::finishFree;
using records::freeForest;
using records::takeGrove;

namespace {

// Gives back what an entry to create or to set owns, but for its children, which are returned. The
// parent is a back pointer, not owned.
template <typename Entry>
records::Grove<Entry> takeChildren(Entry& entry) {
  FreeZQFieldValueList(&entry.fieldValues, 0);
  FreeZQValueStruct(&entry.primaryKeyValue, 0);
  FreeZQValueStruct(&entry.distinguishingKeyValue, 0);
  return takeGrove(entry.children);
}

records::Grove<ZQComplexEntryGetIn> takeChildForms(ZQComplexEntryGetIn& form) {
  FreeZQQualifierStruct(&form.qualifier, 0);
  FreeZQInternalIdList(&form.fieldIdList, 0);
  return takeGrove(form.children);
}

// The lists below a retrieved entry that are not given back yet.
struct ChildLists {
  ZQComplexEntryGetOutList* lists = nullptr;
  uint32_t count = 0;
};

// Gives back what a retrieved entry owns, but for its child lists, which are returned.
ChildLists takeChildLists(ZQComplexEntryGetOut& entry) {
  FreeZQEntryIdList(&entry.entryId, 0);
  FreeZQFieldValueList(&entry.fieldValues, 0);
  const uint32_t count = std::exchange(entry.numChildLists, 0);
  ZQComplexEntryGetOutList* lists = std::exchange(entry.childLists, nullptr);
  return count == 0 || lists == nullptr ? ChildLists{} : ChildLists{lists, count};
}

// Gives back lists of retrieved entries with all that is below them. As the children of an entry
// come as an array of lists, a spent entry keeps both the place in its own array and the place
// among its child lists.
void freeChildLists(ChildLists open) {
  using Entry = ZQComplexEntryGetOut;
  struct Waiting {
    Waiting* next;
    Entry* entries;
    ChildLists outer;
  };
  static_assert(sizeof(Waiting) <= sizeof(Entry));
  Waiting* waiting = nullptr;
  Entry* entries = nullptr;
  uint32_t numEntries = 0;
  for (;;) {
    if (numEntries > 0) {
      --numEntries;
      const ChildLists below = takeChildLists(entries[numEntries]);
      if (below.lists != nullptr) {
        waiting = new (&entries[numEntries]) Waiting{waiting, entries, open};
        open = below;
        entries = nullptr;
        numEntries = 0;
      }
      continue;
    }
    free(entries);
    entries = nullptr;
    if (open.count > 0) {
      --open.count;
      const records::Grove<Entry> grove = takeGrove(open.lists[open.count]);
      entries = grove.items;
      numEntries = grove.count;
      continue;
    }
    free(open.lists);
    if (waiting == nullptr) {
      return;
    }
    entries = waiting->entries;
    numEntries = static_cast<uint32_t>(reinterpret_cast<Entry*>(waiting) - entries);
    open = waiting->outer;
    waiting = waiting->next;
  }
}

}  // namespace

void FreeZQComplexEntryCreate(ZQComplexEntryCreate* entry, ZQBoolean freeStruct) {
  if (entry == nullptr) {
    return;
  }
  freeForest(takeChildren(*entry), takeChildren<ZQComplexEntryCreate>);
  finishFree(entry, freeStruct);
}

void FreeZQComplexEntryCreateList(ZQComplexEntryCreateList* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  freeForest(takeGrove(*list), takeChildren<ZQComplexEntryCreate>);
  finishFree(list, freeStruct);
}

void FreeZQComplexEntrySet(ZQComplexEntrySet* entry, ZQBoolean freeStruct) {
  if (entry == nullptr) {
    return;
  }
  freeForest(takeChildren(*entry), takeChildren<ZQComplexEntrySet>);
  finishFree(entry, freeStruct);
}

void FreeZQComplexEntrySetList(ZQComplexEntrySetList* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  freeForest(takeGrove(*list), takeChildren<ZQComplexEntrySet>);
  finishFree(list, freeStruct);
}

void FreeZQComplexEntryGetIn(ZQComplexEntryGetIn* form, ZQBoolean freeStruct) {
  if (form == nullptr) {
    return;
  }
  freeForest(takeChildForms(*form), takeChildForms);
  finishFree(form, freeStruct);
}

void FreeZQComplexEntryGetInList(ZQComplexEntryGetInList* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  freeForest(takeGrove(*list), takeChildForms);
  finishFree(list, freeStruct);
}

void FreeZQComplexEntryGetOut(ZQComplexEntryGetOut* entry, ZQBoolean freeStruct) {
  if (entry == nullptr) {
    return;
  }
  freeChildLists(takeChildLists(*entry));
  finishFree(entry, freeStruct);
}

void FreeZQComplexEntryGetOutList(ZQComplexEntryGetOutList* list, ZQBoolean freeStruct) {
  records::freeList(list, freeStruct, FreeZQComplexEntryGetOut);
}
