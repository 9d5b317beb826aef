// Deep copy of what definition objects are made of: forms, fields, views, support files,
// containers. Menus stand in copystruct_menu.cpp.

#include "records/parts.h"
#include "records/verbs.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"

using records::copyList;
using records::CopyMembers;
using records::copyText;
using records::kDone;

namespace {

// Deliberate: functional currencies that can't be copied are left out, and that is no failure.
unsigned copyFunctionalCurrencies(ZQCurrencyDetailList* dest, const ZQCurrencyDetailList* source) {
  CopyZQCurrencyDetailList(dest, source);
  return kDone;
}

void freeDecimalLimits(ZQDecimalLimitsStruct* limits, ZQBoolean) {
  records::release(limits->rangeLow);
  records::release(limits->rangeHigh);
}

unsigned copyReference(ZQReferenceStruct* dest, const ZQReferenceStruct* source) {
  *dest = *source;
  CopyMembers members;
  members.text(dest->label, source->label).text(dest->description, source->description);
  if (source->dataSource == 1) {
    ZQReferenceExternal& external = dest->u.external;
    members.record(CopyZQInternalIdList, external.accessList, source->u.external.accessList)
        .record(CopyZQValueStruct, external.referenceValue, source->u.external.referenceValue);
  }
  return members.elseFree(dest, FreeZQReferenceStruct);
}

}  // namespace

unsigned CopyZQCompoundSchema(ZQCompoundSchema* dest, const ZQCompoundSchema* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return source->schemaType == 2 ? CopyZQQualifierStruct(&dest->u.joinSchema.joinQualifier,
                                                         &source->u.joinSchema.joinQualifier)
                                 : kDone;
}

unsigned CopyZQCurrencyLimitsStruct(ZQCurrencyLimitsStruct* dest,
                                    const ZQCurrencyLimitsStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .text(dest->rangeLow, source->rangeLow)
      .text(dest->rangeHigh, source->rangeHigh)
      .record(copyFunctionalCurrencies, dest->functionalCurrencies, source->functionalCurrencies)
      .record(CopyZQCurrencyDetailList, dest->allowableCurrencies, source->allowableCurrencies)
      .elseFree(dest, FreeZQCurrencyLimitsStruct);
}

unsigned CopyZQFieldLimitStruct(ZQFieldLimitStruct* dest, const ZQFieldLimitStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  switch (source->dataType) {
    case 4:
      return copyText(dest->u.characterLimits.pattern, source->u.characterLimits.pattern);
    case 6:
    case 8:
      return CopyZQNameList(&dest->u.enumLimits.valueList, &source->u.enumLimits.valueList);
    case 10:
      return CopyMembers()
          .text(dest->u.decimalLimits.rangeLow, source->u.decimalLimits.rangeLow)
          .text(dest->u.decimalLimits.rangeHigh, source->u.decimalLimits.rangeHigh)
          .elseFree(&dest->u.decimalLimits, freeDecimalLimits);
    case 12:
      return CopyZQCurrencyLimitsStruct(&dest->u.currencyLimits, &source->u.currencyLimits);
    case 33:
      return CopyZQQualifierStruct(&dest->u.tableLimits.qualifier,
                                   &source->u.tableLimits.qualifier);
    default:
      return kDone;
  }
}

unsigned CopyZQFieldInfoStruct(ZQFieldInfoStruct* dest, const ZQFieldInfoStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .record(CopyZQValueStruct, dest->defaultValue, source->defaultValue)
      .record(CopyZQPermissionList, dest->permissions, source->permissions)
      .record(CopyZQFieldLimitStruct, dest->limit, source->limit)
      .record(CopyZQDisplayInstanceList, dest->dInstanceList, source->dInstanceList)
      .text(dest->helpText, source->helpText)
      .text(dest->changeDiary, source->changeDiary)
      .elseFree(dest, FreeZQFieldInfoStruct);
}

unsigned CopyZQFieldInfoList(ZQFieldInfoList* dest, const ZQFieldInfoList* source) {
  return copyList(dest, source, CopyZQFieldInfoStruct, FreeZQFieldInfoList);
}

unsigned CopyZQVuiInfoStruct(ZQVuiInfoStruct* dest, const ZQVuiInfoStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .record(CopyZQPropList, dest->objPropList, source->objPropList)
      .text(dest->helpText, source->helpText)
      .text(dest->changeDiary, source->changeDiary)
      .elseFree(dest, FreeZQVuiInfoStruct);
}

unsigned CopyZQVuiInfoList(ZQVuiInfoList* dest, const ZQVuiInfoList* source) {
  return copyList(dest, source, CopyZQVuiInfoStruct, FreeZQVuiInfoList);
}

unsigned CopyZQSupportFileInfoStruct(ZQSupportFileInfoStruct* dest,
                                     const ZQSupportFileInfoStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return records::copyArray(dest->fileContent, dest->fileSize, source->fileContent,
                            source->fileSize);
}

unsigned CopyZQSupportFileInfoList(ZQSupportFileInfoList* dest,
                                   const ZQSupportFileInfoList* source) {
  return copyList(dest, source, CopyZQSupportFileInfoStruct, FreeZQSupportFileInfoList);
}

unsigned CopyZQReferenceList(ZQReferenceList* dest, const ZQReferenceList* source) {
  return copyList(dest, source, copyReference, FreeZQReferenceList);
}
