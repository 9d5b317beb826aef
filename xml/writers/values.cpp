#include "xml/writers/values.h"

#include "xml/ElementSink.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/Base64Text.h"
#include "xml/writers/lists.h"
#include "xml/writers/words.h"

namespace {

constexpr int kByteTypes[] = {
    tag_userDefined, tag_windowsBitmap, tag_JPEG,          tag_TIFF,
    tag_TARGA,       tag_PCX,           tag_localizedFile, tag_authenticationString};

int writeBytes(ElementSink& sink, const ZQByteList* list) {
  return sink.within(tag_byteList, [&] {
    if (list == nullptr) {
      return 0;
    }
    const int type = wordOf(kByteTypes, list->byteType, 0);
    if (type != 0) {
      sink.attribute(tag_type, tagText(type).data());
    }
    const Base64Text text(list->bytes, list->numItems);
    if (!text.isEmpty()) {
      sink.element(tag_bytes, text.get());
    }
    return text.status();
  });
}

int writeAttachment(ElementSink& sink, const ZQAttachStruct* attachment) {
  enum Location : uint32_t { kFile = 1, kBuffer = 2 };
  return sink.within(tag_attachmentValue, [&] {
    if (attachment == nullptr) {
      return 0;
    }
    sink.signedAttribute(tag_originalSize, attachment->originalSize);
    sink.signedAttribute(tag_compressedSize, attachment->compressedSize);
    sink.element(tag_attachmentName, attachment->attachmentName);
    const ZQLocStruct& location = attachment->location;
    if (location.locationType == kFile) {
      sink.element(tag_fileName, location.u.fileName);
    } else if (location.locationType == kBuffer) {
      // Deliberate: it is the compressed size that counts, not that of the buffer.
      const Base64Text text(location.u.buffer.bufferData, attachment->compressedSize);
      if (text.status() != 0) {
        return text.status();
      }
      sink.element(tag_attachmentData, text.get());
    }
    return 0;
  });
}

// All three have a text, also an empty one.
void writeCurrency(ElementSink& sink, const ZQCurrencyStruct* currency) {
  sink.within(tag_currency, [&] {
    if (currency == nullptr) {
      return;
    }
    sink.within(tag_currencyValue, [&] { sink.text(currency->value); });
    sink.within(tag_code, [&] { sink.arrayText(currency->currencyCode); });
    sink.signedElement(tag_conversionDate, currency->conversionDate);
  });
}

}  // namespace

int writeValue(ElementSink& sink, const ZQValueStruct* value, bool localized) {
  if (value == nullptr) {
    return 0;
  }
  switch (value->dataType) {
    case 0:
      sink.emptyElement(tag_nullValue);
      break;
    case 1:
      sink.unsignedElement(tag_keywordValue, value->u.keywordValue);
      break;
    case 2:
      sink.signedElement(tag_integerValue, value->u.integerValue);
      break;
    case 3:
      sink.realElement(tag_realValue, value->u.realValue);
      break;
    case 4:
      sink.element(localized ? tag_l10nCharacterValue : tag_characterValue,
                   value->u.characterValue);
      break;
    case 5:
      sink.element(tag_diaryValue, value->u.diaryValue);
      break;
    case 6:
      sink.unsignedElement(tag_enumValue, value->u.enumValue);
      break;
    case 7:
      sink.signedElement(tag_timeValue, value->u.timeValue);
      break;
    case 8:
      sink.unsignedElement(tag_maskValue, value->u.maskValue);
      break;
    case 9:
      return writeBytes(sink, value->u.byteList);
    case 10:
      sink.element(tag_decimalValue, value->u.decimalValue);
      break;
    case 11:
      return writeAttachment(sink, value->u.attachmentValue);
    case 12:
      writeCurrency(sink, value->u.currencyValue);
      break;
    case 13:
      sink.signedElement(tag_dateValue, value->u.dateValue);
      break;
    case 14:
      sink.signedElement(tag_timeOfDayValue, value->u.timeOfDayValue);
      break;
    case 40:
      sink.unsignedElement(tag_unsignedLongValue, value->u.unsignedLongValue);
      break;
    case 41:
      return sink.within(tag_coordinateList,
                         [&] { return writeCoordinates(sink, value->u.coordinateList); });
    case 42:
      sink.element(tag_viewValue, value->u.viewValue);
      break;
    case 43:
      sink.element(tag_displayValue, value->u.displayValue);
      break;
    default:
      break;
  }
  return 0;
}

int writeValueElement(ElementSink& sink, int tag, const ZQValueStruct* value) {
  return sink.within(tag, [&] { return writeValue(sink, value, false); });
}

// Deliberate: the signed numbers are printed as unsigned ones, and come back by wrap-around.
int writeCoordinates(ElementSink& sink, const ZQCoordList* list) {
  for (const ZQCoordStruct& point : itemsOf(list)) {
    sink.within(tag_coordinate, [&] {
      sink.unsignedElement(tag_X, static_cast<uint32_t>(point.x));
      sink.unsignedElement(tag_Y, static_cast<uint32_t>(point.y));
    });
  }
  return 0;
}

int writeCOMValue(ElementSink& sink, const ZQCOMValueStruct* value) {
  enum Type : uint32_t { kField = 1, kValue = 2 };
  if (value == nullptr) {
    return 0;
  }
  sink.element(tag_valueIdentifier, value->valueIdentifier);
  sink.signedElement(tag_transID, value->transId);
  if (value->valueType == kField) {
    sink.signedElement(tag_fieldID, value->u.fieldId);
  } else if (value->valueType == kValue) {
    // Deliberate: a failed encoding of bytes doesn't count here.
    writeValueElement(sink, tag_value, &value->u.value);
  }
  return 0;
}
