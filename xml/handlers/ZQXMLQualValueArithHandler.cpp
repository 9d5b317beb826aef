#include "xml/handlers/ZQXMLQualValueArithHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLQualArithHandler.h"
#include "xml/handlers/ZQXMLQualQueryValueHandler.h"
#include "zqxml/free.h"

namespace {

enum OperandTag : uint32_t {
  kField = 1,
  kValue = 2,
  kArithmetic = 3,
  kStatusHistory = 4,
  kValueList = 5,
  kTransactionField = 50,
  kDatabaseField = 51,
  kVariable = 52,
  kQueryValue = 53,
  kCurrentField = 99,
};

bool isField(uint32_t tag) {
  return tag == kField || tag == kTransactionField || tag == kDatabaseField || tag == kCurrentField;
}

// Texts are stored only as long as the operand is of their kind.

void loadFieldId(ZQFieldValueOrArithStruct& operand, const LeafText& leaf) {
  if (isField(operand.tag)) {
    operand.u.fieldId = unsignedNumber(leaf.text);
  }
}

void loadVariable(ZQFieldValueOrArithStruct& operand, const LeafText& leaf) {
  if (operand.tag == kVariable) {
    operand.u.variable = static_cast<uint32_t>(signedNumber(leaf.text));
  }
}

void loadStatusState(ZQFieldValueOrArithStruct& operand, const LeafText& leaf) {
  if (operand.tag == kStatusHistory) {
    operand.u.statHistory.statusState = unsignedNumber(leaf.text);
  }
}

void loadStatusInfo(ZQFieldValueOrArithStruct& operand, const LeafText& leaf) {
  const unsigned info = ZQXMLHandlerUtils::GetEnumValue(ENUM_STATUS_TAG, leaf.text, leaf.locator);
  if (operand.tag == kStatusHistory) {
    operand.u.statHistory.statusInfo = info;
  }
}

constexpr Leaf<ZQFieldValueOrArithStruct> kLeaves[] = {
    {tag_fieldID, loadFieldId},
    {tag_variable, loadVariable},
    {tag_statusState, loadStatusState},
    {tag_statusInfo, loadStatusInfo},
};

struct FieldElement {
  int tag;
  uint32_t operandTag;
};

constexpr FieldElement kFieldElements[] = {
    {tag_fieldID, kField},
    {tag_transactionValueFieldID, kTransactionField},
    {tag_databaseValueFieldID, kDatabaseField},
    {tag_currentValueFieldID, kCurrentField},
};

const FieldElement* fieldElement(int tag) {
  for (const FieldElement& element : kFieldElements) {
    if (element.tag == tag) {
      return &element;
    }
  }
  return nullptr;
}

// All kinds of fields have one text.
int textTag(int tag) {
  return fieldElement(tag) != nullptr ? tag_fieldID : tag;
}

}  // namespace

ZQXMLQualValueArithHandler::ZQXMLQualValueArithHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), value(info), valueList(info) {}

ZQXMLQualValueArithHandler::~ZQXMLQualValueArithHandler() = default;

void ZQXMLQualValueArithHandler::Init(ZQFieldValueOrArithStruct* operand) {
  currentTag = 0;
  CleanReferences();
  target = operand;
  *target = {};
}

void ZQXMLQualValueArithHandler::PreProcess(int tag) {
  switch (tag) {
    case tag_value:
      SetTag(kValue);
      giveTo(value, target->u.value, FreeZQValueStruct);
      break;
    case tag_valueList:
      SetTag(kValueList);
      giveTo(valueList, target->u.valueSet, FreeZQValueList);
      break;
    case tag_arithmeticOperation:
      SetTag(kArithmetic);
      target->u.arithOp = newRecord<ZQArithOpStruct>();
      giveTo(lazily(arithmetic), *target->u.arithOp, FreeZQArithOpStruct);
      break;
    case tag_queryValue:
      SetTag(kQueryValue);
      target->u.queryValue = newRecord<ZQQueryValueStruct>();
      giveTo(lazily(queryValue), *target->u.queryValue, freeNothing<ZQQueryValueStruct>);
      break;
    default:
      break;
  }
}

void ZQXMLQualValueArithHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (const FieldElement* field = fieldElement(tag); field != nullptr) {
    SetTag(field->operandTag);
    leaves[tag_fieldID].Empty();
  } else if (tag == tag_variable) {
    SetTag(kVariable);
    leaves[tag_variable].Empty();
  } else if (tag == tag_statusHistoryValue) {
    if (target->tag != kStatusHistory) {
      SetTag(kStatusHistory);
    }
    leaves[tag_statusState].Empty();
    leaves[tag_statusInfo].Empty();
    return;
  } else if (tag == tag_left || tag == tag_right) {
    leaves.empty();
    return;
  }
  if (!leaves.open(textTag(tag))) {
    refuseElement();
  }
  currentTag = tag;
}

void ZQXMLQualValueArithHandler::Characters(const char* text, unsigned) {
  if (currentTag != 0) {
    leaves.append(text);
  }
}

// Deliberate: at the end of an element that has no place here the message is 8944, not 8941.
void ZQXMLQualValueArithHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(textTag(tag), *target, locator) && tag != tag_statusHistoryValue &&
      tag != tag_left && tag != tag_right) {
    throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME, locator);
  }
}

void ZQXMLQualValueArithHandler::PostProcess(int tag) {
  if (tag == tag_left || tag == tag_right) {
    handlerStack->Pop();
  }
}

void ZQXMLQualValueArithHandler::CleanReferences() {}

void ZQXMLQualValueArithHandler::SetTag(uint32_t tag) {
  releaseRecord(*target, FreeZQFieldValueOrArithStruct);
  target->tag = tag;
}
