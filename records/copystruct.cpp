// Deep copy of records: lists whose elements own nothing, and lists of texts and names. The other
// records stand in copystruct_*.cpp by family.
//
// Several lists leave an element whose copy failed out of the count when they unwind, and others
// count it. As a failed copy owns nothing, both are the one verb `copyList`.

#include "records/verbs.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"

using records::copyList;
using records::copyPlainList;
using records::kDone;

namespace {

// Deliberate: a null source leaves the destination untouched.
template <typename List>
unsigned copyPresentList(List* dest, const List* source) {
  return source == nullptr ? kDone : copyPlainList(dest, source);
}

unsigned copyElementText(char** dest, char* const* source) {
  return records::copyText(*dest, *source);
}

}  // namespace

unsigned CopyZQPermissionList(ZQPermissionList* dest, const ZQPermissionList* source) {
  return copyPresentList(dest, source);
}

unsigned CopyZQContainerOwnerObjIdList(ZQContainerOwnerObjIdList* dest,
                                       const ZQContainerOwnerObjIdList* source) {
  return copyPresentList(dest, source);
}

unsigned CopyZQNameList(ZQNameList* dest, const ZQNameList* source) {
  return copyPresentList(dest, source);
}

unsigned CopyZQAccessNameList(ZQAccessNameList* dest, const ZQAccessNameList* source) {
  return copyPresentList(dest, source);
}

unsigned CopyZQEnumItemList(ZQEnumItemList* dest, const ZQEnumItemList* source) {
  return copyPresentList(dest, source);
}

unsigned CopyZQUnsignedIntList(ZQUnsignedIntList* dest, const ZQUnsignedIntList* source) {
  return copyPresentList(dest, source);
}

// Deliberate: an exhausted heap gives an empty list and 0.
unsigned CopyZQSortList(ZQSortList* dest, const ZQSortList* source) {
  copyPresentList(dest, source);
  return kDone;
}

// Deliberate: an exhausted heap gives an empty list and 0.
unsigned CopyZQIndexList(ZQIndexList* dest, const ZQIndexList* source) {
  copyPresentList(dest, source);
  return kDone;
}

// Deliberate: an exhausted heap gives an empty list and 0.
unsigned CopyZQEntryListFieldList(ZQEntryListFieldList* dest, const ZQEntryListFieldList* source) {
  copyPresentList(dest, source);
  return kDone;
}

unsigned CopyZQInternalIdList(ZQInternalIdList* dest, const ZQInternalIdList* source) {
  return copyPlainList(dest, source);
}

unsigned CopyZQContainerOwnerObjList(ZQContainerOwnerObjList* dest,
                                     const ZQContainerOwnerObjList* source) {
  return copyPlainList(dest, source);
}

unsigned CopyZQCurrencyDetailList(ZQCurrencyDetailList* dest, const ZQCurrencyDetailList* source) {
  return copyPlainList(dest, source);
}

unsigned CopyZQTextStringList(ZQTextStringList* dest, const ZQTextStringList* source) {
  return copyList(dest, source, copyElementText, FreeZQTextStringList);
}

unsigned CopyZQStructItemStruct(ZQStructItemStruct* dest, const ZQStructItemStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyZQNameList(&dest->selectedElements, &source->selectedElements);
}

unsigned CopyZQStructItemList(ZQStructItemList* dest, const ZQStructItemList* source) {
  return copyList(dest, source, CopyZQStructItemStruct, FreeZQStructItemList);
}
