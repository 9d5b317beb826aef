// Deep copy of menus. Sub-menus nest to any depth; as with conditions, items that are allocated and
// not yet filled wait in a chain of their own instead of on the stack.

#include <new>

#include "records/parts.h"
#include "records/verbs.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"

using records::CopyMembers;
using records::copyText;
using records::kDone;
using records::kOutOfMemory;
using records::Unwinding;

namespace {

unsigned copyServerSideMenu(ZQCharMenuSSStruct* dest, const ZQCharMenuSSStruct* source) {
  *dest = *source;
  return CopyMembers()
      .record(CopyZQFieldValueList, dest->fieldValues1, source->fieldValues1)
      .record(CopyZQFieldValueList, dest->fieldValues2, source->fieldValues2)
      .record(records::copyQualifierList, dest->qualifiers, source->qualifiers)
      .text(dest->text1, source->text1)
      .text(dest->text2, source->text2)
      .elseFree(dest, FreeZQCharMenuSSStruct);
}

class MenuCopy {
 public:
  // Copies a menu or an item with all below it. On failure the copy is as far as it came, and all
  // its pointers are its own or null.
  unsigned menu(ZQCharMenuStruct* dest, const ZQCharMenuStruct* source) {
    return finish(fillMenu(dest, source));
  }
  unsigned item(ZQCharMenuItemStruct* dest, const ZQCharMenuItemStruct* source) {
    return finish(fillItem(dest, source));
  }

 private:
  // What stands in an item that is not filled yet.
  struct Waiting {
    Waiting* next;
    const ZQCharMenuItemStruct* source;
  };
  static_assert(sizeof(Waiting) <= sizeof(ZQCharMenuItemStruct));

  unsigned finish(unsigned status) {
    while (status == kDone && waiting_ != nullptr) {
      const Waiting next = *waiting_;
      auto* dest = reinterpret_cast<ZQCharMenuItemStruct*>(waiting_);
      waiting_ = next.next;
      status = fillItem(dest, next.source);
    }
    while (waiting_ != nullptr) {
      const Waiting next = *waiting_;
      // An item that is all zero owns nothing.
      memset(static_cast<void*>(waiting_), 0, sizeof(ZQCharMenuItemStruct));
      waiting_ = next.next;
    }
    return status;
  }

  unsigned fillItems(ZQCharMenuList& dest, const ZQCharMenuList& source) {
    records::setEmpty(dest);
    if (!records::hasItems(source)) {
      return kDone;
    }
    const unsigned status = records::allocateItems(&dest, source.numItems);
    if (status != kDone) {
      return status;
    }
    dest.numItems = source.numItems;
    for (uint32_t i = source.numItems; i-- > 0;) {
      waiting_ = new (&dest.items[i]) Waiting{waiting_, &source.items[i]};
    }
    return kDone;
  }

  unsigned fillMenu(ZQCharMenuStruct* dest, const ZQCharMenuStruct* source) {
    *dest = *source;
    switch (source->menuType) {
      case 0:
      case 6:
        return kDone;
      case 1:
        return fillItems(dest->u.menuList, source->u.menuList);
      case 2:
        return CopyZQQualifierStruct(&dest->u.menuQuery.qualifier, &source->u.menuQuery.qualifier);
      case 3:
        return copyText(dest->u.menuFile.fileName, source->u.menuFile.fileName);
      case 4:
        return copyText(dest->u.menuSQL.sqlCommand, source->u.menuSQL.sqlCommand);
      case 5:
        return copyServerSideMenu(&dest->u.menuSS, &source->u.menuSS);
      default:
        records::clear(*dest);
        return ZQ_MESSAGE_MENU_TYPE;
    }
  }

  unsigned fillItem(ZQCharMenuItemStruct* dest, const ZQCharMenuItemStruct* source) {
    *dest = *source;
    switch (source->itemType) {
      case 0:
        return kDone;
      case 1:
        return copyText(dest->u.itemValue, source->u.itemValue);
      case 2:
        dest->u.childMenu = nullptr;
        if (source->u.childMenu == nullptr) {
          return kDone;
        }
        dest->u.childMenu = records::allocate<ZQCharMenuStruct>();
        return dest->u.childMenu == nullptr ? kOutOfMemory
                                            : fillMenu(dest->u.childMenu, source->u.childMenu);
      default:
        records::clear(dest->u);
        return ZQ_MESSAGE_MENU_ITEM_TYPE;
    }
  }

  Waiting* waiting_ = nullptr;
};

}  // namespace

unsigned CopyZQCharMenuStruct(ZQCharMenuStruct* dest, const ZQCharMenuStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  const unsigned status = MenuCopy().menu(dest, source);
  if (status != kDone) {
    const Unwinding unwinding;
    const uint32_t type = dest->menuType;
    FreeZQCharMenuStruct(dest, 0);
    dest->menuType = type;
  }
  return status;
}

unsigned CopyZQCharMenuItemStruct(ZQCharMenuItemStruct* dest, const ZQCharMenuItemStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  const unsigned status = MenuCopy().item(dest, source);
  if (status != kDone) {
    const Unwinding unwinding;
    FreeZQCharMenuItemStruct(dest, 0);
    dest->itemType = source->itemType;
  }
  return status;
}
