// Deep free of values and of the records that are made of them.

#include "records/verbs.h"
#include "zqxml/free.h"

using records::clear;
using records::finishFree;
using records::freeList;
using records::release;

namespace {

// What a value owns beside texts.
void freeOwnedRecord(ZQValueStruct& value) {
  switch (value.dataType) {
    case 9:
      FreeZQByteList(value.u.byteList, 1);
      break;
    case 11:
      FreeZQAttachStruct(value.u.attachmentValue, 1);
      break;
    case 12:
      FreeZQCurrencyStruct(value.u.currencyValue, 1);
      break;
    case 41:
      FreeZQCoordList(value.u.coordinateList, 1);
      break;
    default:
      break;
  }
}

void freeValueOfField(ZQFieldValueStruct* field, ZQBoolean) {
  FreeZQValueStruct(&field->value, 0);
}

}  // namespace

void FreeZQValueStruct(ZQValueStruct* value, ZQBoolean freeStruct) {
  if (value == nullptr) {
    return;
  }
  if (records::isTextType(value->dataType)) {
    free(value->u.characterValue);
  } else {
    freeOwnedRecord(*value);
  }
  clear(*value);
  finishFree(value, freeStruct);
}

void FreeZQValueList(ZQValueList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQValueStruct);
}

void FreeZQFieldValueStruct(ZQFieldValueStruct* field, ZQBoolean freeStruct) {
  if (field == nullptr) {
    return;
  }
  FreeZQValueStruct(&field->value, 0);
  finishFree(field, freeStruct);
}

void FreeZQFieldValueList(ZQFieldValueList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, freeValueOfField);
}

void FreeZQBufStruct(ZQBufStruct* buffer, ZQBoolean freeStruct) {
  if (buffer == nullptr) {
    return;
  }
  release(buffer->bufferData);
  buffer->bufferSize = 0;
  finishFree(buffer, freeStruct);
}

void FreeZQLocStruct(ZQLocStruct* location, ZQBoolean freeStruct) {
  if (location == nullptr) {
    return;
  }
  if (location->locationType == 1) {
    free(location->u.fileName);
  } else if (location->locationType == 2) {
    FreeZQBufStruct(&location->u.buffer, 0);
  }
  clear(*location);
  finishFree(location, freeStruct);
}

void FreeZQAttachStruct(ZQAttachStruct* attachment, ZQBoolean freeStruct) {
  if (attachment == nullptr) {
    return;
  }
  release(attachment->attachmentName);
  attachment->originalSize = 0;
  attachment->compressedSize = 0;
  FreeZQLocStruct(&attachment->location, 0);
  finishFree(attachment, freeStruct);
}

void FreeZQFuncCurrencyStruct(ZQFuncCurrencyStruct* amount, ZQBoolean freeStruct) {
  if (amount == nullptr) {
    return;
  }
  release(amount->value);
  finishFree(amount, freeStruct);
}

void FreeZQFuncCurrencyList(ZQFuncCurrencyList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQFuncCurrencyStruct);
}

void FreeZQCurrencyStruct(ZQCurrencyStruct* amount, ZQBoolean freeStruct) {
  if (amount == nullptr) {
    return;
  }
  release(amount->value);
  FreeZQFuncCurrencyList(&amount->functionalCurrencies, 0);
  finishFree(amount, freeStruct);
}

void FreeZQCurrencyList(ZQCurrencyList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQCurrencyStruct);
}

void FreeZQPropStruct(ZQPropStruct* property, ZQBoolean freeStruct) {
  if (property == nullptr) {
    return;
  }
  FreeZQValueStruct(&property->value, 0);
  property->property = 0;
  finishFree(property, freeStruct);
}

void FreeZQPropList(ZQPropList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQPropStruct);
}

void FreeZQDisplayInstanceStruct(ZQDisplayInstanceStruct* instance, ZQBoolean freeStruct) {
  if (instance == nullptr) {
    return;
  }
  FreeZQPropList(&instance->displayProperties, 0);
  finishFree(instance, freeStruct);
}

// Not of the list shape: the count and the array stand behind the common properties.
void FreeZQDisplayInstanceList(ZQDisplayInstanceList* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  FreeZQPropList(&list->commonProperties, 0);
  if (list->numInstances != 0 && list->instances != nullptr) {
    for (uint32_t i = 0; i < list->numInstances; ++i) {
      FreeZQDisplayInstanceStruct(&list->instances[i], 0);
    }
    free(list->instances);
  }
  list->numInstances = 0;
  list->instances = nullptr;
  finishFree(list, freeStruct);
}
