// Deep copy of values and of the records that are made of them.

#include "records/parts.h"
#include "records/verbs.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"

using records::allocate;
using records::allocateCleared;
using records::clear;
using records::copyArray;
using records::copyBlock;
using records::copyList;
using records::copyText;
using records::kDone;
using records::kOutOfMemory;

namespace {

unsigned copyByteList(ZQByteList* dest, const ZQByteList* source) {
  *dest = *source;
  return copyArray(dest->bytes, dest->numItems, source->bytes, source->numItems);
}

unsigned copyCoordList(ZQCoordList* dest, const ZQCoordList* source) {
  return records::copyPlainList(dest, source);
}

// Deliberate: content that is no buffer with bytes in it, so above all a file name, moves from the
// source to the copy, and the source loses its location.
unsigned copyAttachment(ZQAttachStruct* dest, ZQAttachStruct* source) {
  constexpr uint32_t kNowhere = 0;
  constexpr uint32_t kFile = 1;
  *dest = *source;
  if (copyText(dest->attachmentName, source->attachmentName) != kDone) {
    return kOutOfMemory;
  }
  ZQLocStruct& location = source->location;
  if (location.locationType != kNowhere && location.locationType != kFile &&
      location.u.buffer.bufferData != nullptr && location.u.buffer.bufferSize != 0) {
    ZQBufStruct& copy = dest->location.u.buffer;
    if (copyArray(copy.bufferData, copy.bufferSize, location.u.buffer.bufferData,
                  location.u.buffer.bufferSize) != kDone) {
      records::release(dest->attachmentName);
      return kOutOfMemory;
    }
    return kDone;
  }
  clear(location);
  return kDone;
}

// What a value owns beside texts.
unsigned copyOwnedRecord(ZQValueStruct& dest, const ZQValueStruct& source) {
  switch (source.dataType) {
    case 9:
      return copyBlock(dest.u.byteList, source.u.byteList, copyByteList);
    case 11: {
      ZQAttachStruct* attachment = source.u.attachmentValue;
      return copyBlock(dest.u.attachmentValue, attachment,
                       [attachment](ZQAttachStruct* copy, const ZQAttachStruct*) {
                         return copyAttachment(copy, attachment);
                       });
    }
    case 12:
      if (source.u.currencyValue == nullptr) {
        return kDone;
      }
      dest.u.currencyValue = allocateCleared<ZQCurrencyStruct>();
      // Deliberate: if the copy fails the zeroed block stays in place.
      return dest.u.currencyValue == nullptr
                 ? kOutOfMemory
                 : CopyZQCurrencyStruct(dest.u.currencyValue, source.u.currencyValue);
    case 41:
      return copyBlock(dest.u.coordinateList, source.u.coordinateList, copyCoordList);
    default:
      return kDone;
  }
}

unsigned copyProperty(ZQPropStruct* dest, const ZQPropStruct* source) {
  *dest = *source;
  return CopyZQValueStruct(&dest->value, &source->value);
}

}  // namespace

unsigned CopyZQFuncCurrencyStruct(ZQFuncCurrencyStruct* dest, const ZQFuncCurrencyStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  // Deliberate: an exhausted heap leaves a null text and is no failure.
  copyText(dest->value, source->value);
  return kDone;
}

// Deliberate: an empty source leaves the destination untouched.
unsigned CopyZQFuncCurrencyList(ZQFuncCurrencyList* dest, const ZQFuncCurrencyList* source) {
  if (dest == nullptr || source == nullptr || source->numItems == 0) {
    return kDone;
  }
  return copyList(dest, source, CopyZQFuncCurrencyStruct, FreeZQFuncCurrencyList);
}

unsigned CopyZQCurrencyStruct(ZQCurrencyStruct* dest, const ZQCurrencyStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  records::setEmpty(dest->functionalCurrencies);
  unsigned status = copyText(dest->value, source->value);
  if (status == kDone) {
    status = CopyZQFuncCurrencyList(&dest->functionalCurrencies, &source->functionalCurrencies);
  }
  if (status != kDone) {
    free(dest->value);
    clear(*dest);
  }
  return status;
}

unsigned CopyZQValueStruct(ZQValueStruct* dest, const ZQValueStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  if (records::isTextType(source->dataType)) {
    return copyText(dest->u.characterValue, source->u.characterValue);
  }
  return copyOwnedRecord(*dest, *source);
}

namespace records {

unsigned copyValue(ZQValueStruct* dest, const ZQValueStruct* source) {
  const unsigned status = CopyZQValueStruct(dest, source);
  if (status != kDone) {
    FreeZQValueStruct(dest, 0);
    dest->dataType = source->dataType;
  }
  return status;
}

}  // namespace records

unsigned CopyZQValueList(ZQValueList* dest, const ZQValueList* source) {
  return copyList(dest, source, CopyZQValueStruct, FreeZQValueList);
}

unsigned CopyZQFieldValueStruct(ZQFieldValueStruct* dest, const ZQFieldValueStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  const unsigned status = CopyZQValueStruct(&dest->value, &source->value);
  if (status != kDone) {
    FreeZQValueStruct(&dest->value, 0);
    clear(*dest);
  }
  return status;
}

unsigned CopyZQFieldValueList(ZQFieldValueList* dest, const ZQFieldValueList* source) {
  return copyList(dest, source, CopyZQFieldValueStruct, FreeZQFieldValueList);
}

unsigned CopyZQPropList(ZQPropList* dest, const ZQPropList* source) {
  return copyList(dest, source, copyProperty, FreeZQPropList);
}

unsigned CopyZQDisplayInstanceStruct(ZQDisplayInstanceStruct* dest,
                                     const ZQDisplayInstanceStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyZQPropList(&dest->displayProperties, &source->displayProperties);
}

// Not of the list shape: the count and the array stand behind the common properties.
unsigned CopyZQDisplayInstanceList(ZQDisplayInstanceList* dest,
                                   const ZQDisplayInstanceList* source) {
  if (dest == nullptr) {
    return kDone;
  }
  clear(*dest);
  if (source == nullptr) {
    return kDone;
  }
  unsigned status = CopyZQPropList(&dest->commonProperties, &source->commonProperties);
  if (status != kDone || source->numInstances == 0 || source->instances == nullptr) {
    return status;
  }
  dest->instances = allocate<ZQDisplayInstanceStruct>(source->numInstances);
  status = dest->instances == nullptr ? kOutOfMemory : kDone;
  while (status == kDone && dest->numInstances < source->numInstances) {
    const uint32_t i = dest->numInstances++;
    status = CopyZQDisplayInstanceStruct(&dest->instances[i], &source->instances[i]);
  }
  if (status != kDone) {
    FreeZQDisplayInstanceList(dest, 0);
  }
  return status;
}
