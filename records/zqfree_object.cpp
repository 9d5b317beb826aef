// Deep free of what definition objects are made of: forms, fields, views, support files, menus,
// containers.

#include <utility>

#include "records/forest.h"
#include "records/parts.h"
#include "records/verbs.h"
#include "zqxml/free.h"

using records::finishFree;
using records::freeList;
using records::release;

namespace records {

void freeCurrencyDetailList(ZQCurrencyDetailList* list, ZQBoolean freeStruct) {
  freePlainList(list, freeStruct);
}

void freeQualifierList(ZQQualifierList* list, ZQBoolean) {
  FreeZQQualifierList(list, 0);
  setEmpty(*list);
}

}  // namespace records

namespace {

using MenuItems = records::Grove<ZQCharMenuItemStruct>;

// Gives back what the menu owns, but for its items, which are returned.
MenuItems takeItems(ZQCharMenuStruct& menu) {
  switch (std::exchange(menu.menuType, 0)) {
    case 1:
      return records::takeGrove(menu.u.menuList);
    case 2:
      FreeZQQualifierStruct(&menu.u.menuQuery.qualifier, 0);
      return {};
    case 3:
      release(menu.u.menuFile.fileName);
      return {};
    case 4:
      release(menu.u.menuSQL.sqlCommand);
      return {};
    case 5:
      FreeZQCharMenuSSStruct(&menu.u.menuSS, 0);
      return {};
    default:
      return {};
  }
}

// Gives back what the item owns, but for the items of its sub-menu, which are returned.
MenuItems takeSubItems(ZQCharMenuItemStruct& item) {
  switch (std::exchange(item.itemType, 0)) {
    case 1:
      release(item.u.itemValue);
      return {};
    case 2: {
      ZQCharMenuStruct* menu = std::exchange(item.u.childMenu, nullptr);
      if (menu == nullptr) {
        return {};
      }
      const MenuItems items = takeItems(*menu);
      free(menu);
      return items;
    }
    default:
      return {};
  }
}

void freeItems(const MenuItems& items) {
  records::freeForest(items, takeSubItems);
}

}  // namespace

void FreeZQCompoundSchema(ZQCompoundSchema* schema, ZQBoolean freeStruct) {
  if (schema == nullptr) {
    return;
  }
  if (schema->schemaType == 2) {
    FreeZQQualifierStruct(&schema->u.joinSchema.joinQualifier, 0);
  }
  schema->schemaType = 0;
  finishFree(schema, freeStruct);
}

void FreeZQCompoundSchemaList(ZQCompoundSchemaList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQCompoundSchema);
}

void FreeZQCurrencyLimitsStruct(ZQCurrencyLimitsStruct* limits, ZQBoolean freeStruct) {
  if (limits == nullptr) {
    return;
  }
  release(limits->rangeLow);
  release(limits->rangeHigh);
  records::freeCurrencyDetailList(&limits->functionalCurrencies, 0);
  records::freeCurrencyDetailList(&limits->allowableCurrencies, 0);
  finishFree(limits, freeStruct);
}

void FreeZQFieldLimitStruct(ZQFieldLimitStruct* limit, ZQBoolean freeStruct) {
  if (limit == nullptr) {
    return;
  }
  switch (limit->dataType) {
    case 4:
      release(limit->u.characterLimits.pattern);
      break;
    case 6:
    case 8:
      FreeZQNameList(&limit->u.enumLimits.valueList, 0);
      break;
    case 10:
      release(limit->u.decimalLimits.rangeLow);
      release(limit->u.decimalLimits.rangeHigh);
      break;
    case 12:
      FreeZQCurrencyLimitsStruct(&limit->u.currencyLimits, 0);
      break;
    case 33:
      FreeZQQualifierStruct(&limit->u.tableLimits.qualifier, 0);
      break;
    default:
      break;
  }
  limit->dataType = 0;
  finishFree(limit, freeStruct);
}

void FreeZQFieldLimitList(ZQFieldLimitList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQFieldLimitStruct);
}

void FreeZQFieldInfoStruct(ZQFieldInfoStruct* field, ZQBoolean freeStruct) {
  if (field == nullptr) {
    return;
  }
  FreeZQValueStruct(&field->defaultValue, 0);
  FreeZQPermissionList(&field->permissions, 0);
  FreeZQFieldLimitStruct(&field->limit, 0);
  FreeZQDisplayInstanceList(&field->dInstanceList, 0);
  release(field->helpText);
  release(field->changeDiary);
  finishFree(field, freeStruct);
}

void FreeZQFieldInfoList(ZQFieldInfoList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQFieldInfoStruct);
}

void FreeZQVuiInfoStruct(ZQVuiInfoStruct* view, ZQBoolean freeStruct) {
  if (view == nullptr) {
    return;
  }
  FreeZQPropList(&view->objPropList, 0);
  release(view->helpText);
  release(view->changeDiary);
  finishFree(view, freeStruct);
}

void FreeZQVuiInfoList(ZQVuiInfoList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQVuiInfoStruct);
}

void FreeZQSupportFileInfoStruct(ZQSupportFileInfoStruct* file, ZQBoolean freeStruct) {
  if (file == nullptr) {
    return;
  }
  release(file->fileContent);
  file->fileSize = 0;
  finishFree(file, freeStruct);
}

void FreeZQSupportFileInfoList(ZQSupportFileInfoList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQSupportFileInfoStruct);
}

void FreeZQCharMenuSSStruct(ZQCharMenuSSStruct* menu, ZQBoolean freeStruct) {
  if (menu == nullptr) {
    return;
  }
  FreeZQFieldValueList(&menu->fieldValues1, 0);
  FreeZQFieldValueList(&menu->fieldValues2, 0);
  records::freeQualifierList(&menu->qualifiers, 0);
  release(menu->text1);
  release(menu->text2);
  finishFree(menu, freeStruct);
}

void FreeZQCharMenuStruct(ZQCharMenuStruct* menu, ZQBoolean freeStruct) {
  if (menu == nullptr) {
    return;
  }
  freeItems(takeItems(*menu));
  finishFree(menu, freeStruct);
}

void FreeZQCharMenuItemStruct(ZQCharMenuItemStruct* item, ZQBoolean freeStruct) {
  if (item == nullptr) {
    return;
  }
  freeItems(takeSubItems(*item));
  finishFree(item, freeStruct);
}

void FreeZQCharMenuList(ZQCharMenuList* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  freeItems(records::takeGrove(*list));
  finishFree(list, freeStruct);
}

void FreeListZQCharMenuStruct(ZQCharMenuStructList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQCharMenuStruct);
}

void FreeZQReferenceStruct(ZQReferenceStruct* reference, ZQBoolean freeStruct) {
  if (reference == nullptr) {
    return;
  }
  release(reference->label);
  release(reference->description);
  if (reference->dataSource == 1) {
    FreeZQInternalIdList(&reference->u.external.accessList, 0);
    FreeZQValueStruct(&reference->u.external.referenceValue, 0);
  }
  finishFree(reference, freeStruct);
}

void FreeZQReferenceList(ZQReferenceList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQReferenceStruct);
}
