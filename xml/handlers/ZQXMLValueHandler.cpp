#include "xml/handlers/ZQXMLValueHandler.h"

#include <cstdlib>

#include "xml/ZQXMLTagHash.h"
#include "xml/ZQXMLText.h"
#include "xml/decodeBytes.h"
#include "zqxml/free.h"

namespace {

constexpr uint32_t kFileName = 1;
constexpr uint32_t kBuffer = 2;

// The texts of all types. Those of simple types go into the value by themselves, once the type is
// decided.
constexpr Leaf<ZQValueStruct> kLeaves[] = {
    {tag_characterValue,
     [](ZQValueStruct& v, const LeafText& leaf) { replaceText(v.u.characterValue, leaf.text); }},
    {tag_integerValue,
     [](ZQValueStruct& v, const LeafText& leaf) { v.u.integerValue = signedNumber(leaf.text); }},
    {tag_enumValue,
     [](ZQValueStruct& v, const LeafText& leaf) { v.u.enumValue = unsignedNumber(leaf.text); }},
    {tag_keywordValue,
     [](ZQValueStruct& v, const LeafText& leaf) { v.u.keywordValue = unsignedNumber(leaf.text); }},
    {tag_timeValue,
     [](ZQValueStruct& v, const LeafText& leaf) { v.u.timeValue = signedNumber(leaf.text); }},
    {tag_unsignedLongValue,
     [](ZQValueStruct& v, const LeafText& leaf) {
       v.u.unsignedLongValue = unsignedNumber(leaf.text);
     }},
    {tag_maskValue,
     [](ZQValueStruct& v, const LeafText& leaf) { v.u.maskValue = unsignedNumber(leaf.text); }},
    {tag_realValue,
     [](ZQValueStruct& v, const LeafText& leaf) { v.u.realValue = realNumber(leaf.text); }},
    {tag_decimalValue,
     [](ZQValueStruct& v, const LeafText& leaf) { replaceText(v.u.decimalValue, leaf.text); }},
    {tag_diaryValue,
     [](ZQValueStruct& v, const LeafText& leaf) { replaceText(v.u.diaryValue, leaf.text); }},
    {tag_dateValue,
     [](ZQValueStruct& v, const LeafText& leaf) { v.u.dateValue = signedNumber(leaf.text); }},
    {tag_timeOfDayValue,
     [](ZQValueStruct& v, const LeafText& leaf) { v.u.timeOfDayValue = signedNumber(leaf.text); }},
    {tag_viewValue,
     [](ZQValueStruct& v, const LeafText& leaf) { replaceText(v.u.viewValue, leaf.text); }},
    {tag_displayValue,
     [](ZQValueStruct& v, const LeafText& leaf) { replaceText(v.u.displayValue, leaf.text); }},
    {tag_X, nullptr},
    {tag_Y, nullptr},
    {tag_bytes, nullptr},
    {tag_attachmentName, nullptr},
    {tag_fileName, nullptr},
    {tag_attachmentData, nullptr},
    {tag_currencyValue, nullptr},
    {tag_code, nullptr},
    {tag_conversionDate, nullptr},
};

struct TypeElement {
  int tag;
  uint32_t dataType;
};

constexpr TypeElement kTypes[] = {
    {tag_nullValue, 0},       {tag_keywordValue, 1},       {tag_integerValue, 2},
    {tag_realValue, 3},       {tag_characterValue, 4},     {tag_diaryValue, 5},
    {tag_enumValue, 6},       {tag_timeValue, 7},          {tag_maskValue, 8},
    {tag_byteList, 9},        {tag_decimalValue, 10},      {tag_attachmentValue, 11},
    {tag_currency, 12},       {tag_dateValue, 13},         {tag_timeOfDayValue, 14},
    {tag_coordinateList, 41}, {tag_unsignedLongValue, 40}, {tag_viewValue, 42},
    {tag_displayValue, 43},
};

const TypeElement* typeOf(int tag) {
  for (const TypeElement& type : kTypes) {
    if (type.tag == tag) {
      return &type;
    }
  }
  return nullptr;
}

int tagOf(uint32_t dataType) {
  for (const TypeElement& type : kTypes) {
    if (type.dataType == dataType) {
      return type.tag;
    }
  }
  return 0;
}

bool isHost(int tag) {
  return tag == tag_value || tag == tag_referenceValue || tag == tag_defaultValue;
}

// Both names of a text are one type.
int plainTag(int tag) {
  return tag == tag_l10nCharacterValue ? tag_characterValue : tag;
}

}  // namespace

ZQXMLValueHandler::ZQXMLValueHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLValueHandler::Init(ZQValueStruct* value) {
  currentTag = 0;
  CleanReferences();
  target = value;
  *target = {};
}

void ZQXMLValueHandler::PreProcess(int) {}

void ZQXMLValueHandler::StartElement(int tag, const xercesc::Attributes& attributes) {
  currentTag = 0;
  switch (tag) {
    case tag_value:
    case tag_referenceValue:
    case tag_defaultValue:
      dataType = 0;
      leaves.empty();
      originalSize.Empty();
      compressedSize.Empty();
      break;
    case tag_byteList:
      leaves[tag_bytes].Empty();
      byteListType.Empty();
      ReadByteListAttributes(attributes);
      break;
    case tag_attachmentValue:
      ReadAttachmentAttributes(attributes);
      break;
    case tag_coordinate:
      leaves[tag_X].Empty();
      leaves[tag_Y].Empty();
      break;
    case tag_location:
    case tag_coordinateList:
    case tag_currency:
    case tag_nullValue:
      break;
    default:
      if (!leaves.open(plainTag(tag))) {
        refuseElement();
      }
      currentTag = tag;
      break;
  }
}

void ZQXMLValueHandler::Characters(const char* text, unsigned) {
  if (currentTag != 0) {
    leaves.append(text);
  }
}

void ZQXMLValueHandler::EndElement(int tag) {
  currentTag = 0;
  const int plain = plainTag(tag);
  if (isHost(tag)) {
    GenZQValueStruct();
    CleanReferences();
  } else if (const TypeElement* type = typeOf(plain); type != nullptr) {
    dataType = type->dataType;
  } else if (tag == tag_coordinate) {
    AddCoordNode();
  } else if (tag == tag_fileName) {
    locationKind = kFileName;
  } else if (tag == tag_attachmentData) {
    locationKind = kBuffer;
  } else if (tag != tag_location && !leaves.has(plain)) {
    refuseElement();
  }
}

void ZQXMLValueHandler::PostProcess(int tag) {
  if (isHost(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLValueHandler::CleanReferences() {
  coordinates.clean();
}

void ZQXMLValueHandler::ReadByteListAttributes(const xercesc::Attributes& attributes) {
  for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
    if (gTagHash.Get(attributes.getQName(i)) != tag_type) {
      refuseAttribute(attributes.getQName(i));
    }
    byteListType = ZQXMLToLocal(attributes.getValue(i)).c_str();
  }
}

void ZQXMLValueHandler::ReadAttachmentAttributes(const xercesc::Attributes& attributes) {
  for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
    switch (gTagHash.Get(attributes.getQName(i))) {
      case tag_originalSize:
        originalSize = ZQXMLToLocal(attributes.getValue(i)).c_str();
        break;
      case tag_compressedSize:
        compressedSize = ZQXMLToLocal(attributes.getValue(i)).c_str();
        break;
      default:
        refuseAttribute(attributes.getQName(i));
    }
  }
}

void ZQXMLValueHandler::AddCoordNode() {
  coordinates.add() = {signedNumber(leaves[tag_X]), signedNumber(leaves[tag_Y])};
}

void ZQXMLValueHandler::GenZQValueStruct() {
  releaseRecord(*target, FreeZQValueStruct);
  target->dataType = dataType;
  switch (dataType) {
    case 0:
      break;
    case 9:
      GenByteList();
      break;
    case 11:
      GenAttachment();
      break;
    case 12:
      GenCurrency();
      break;
    case 41:
      GenCoordList();
      break;
    default:
      leaves.load(tagOf(dataType), *target, locator);
      break;
  }
}

void ZQXMLValueHandler::GenByteList() {
  auto* list = target->u.byteList = newRecord<ZQByteList>();
  list->byteType = GetEnumValue(ENUM_BYTE_LIST_TYPE, byteListType, locator);
  decodeBytes(leaves[tag_bytes], list->bytes, list->numItems);
}

void ZQXMLValueHandler::GenAttachment() {
  auto* attachment = target->u.attachmentValue = newRecord<ZQAttachStruct>();
  replaceText(attachment->attachmentName, leaves[tag_attachmentName]);
  attachment->originalSize = signedNumber(originalSize);
  attachment->compressedSize = signedNumber(compressedSize);
  ZQLocStruct& location = attachment->location;
  location.locationType = locationKind;
  if (locationKind == kFileName) {
    replaceText(location.u.fileName, leaves[tag_fileName]);
  } else {
    ZQBufStruct& buffer = location.u.buffer;
    decodeBytes(leaves[tag_attachmentData], buffer.bufferData, buffer.bufferSize);
  }
}

void ZQXMLValueHandler::GenCurrency() {
  auto* currency = target->u.currencyValue = newRecord<ZQCurrencyStruct>();
  leaves[tag_currencyValue].DetachStrReference(&currency->value);
  fillArray(currency->currencyCode, leaves[tag_code]);
  currency->conversionDate = static_cast<ZQTimestamp>(unsignedNumber(leaves[tag_conversionDate]));
}

void ZQXMLValueHandler::GenCoordList() {
  auto* list = target->u.coordinateList = newRecord<ZQCoordList>();
  coordinates.moveTo(list->numItems, list->items);
}
