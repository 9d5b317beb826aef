#include "xml/writers/qualifiers.h"

#include "xml/ElementSink.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/lists.h"
#include "xml/writers/values.h"
#include "xml/writers/words.h"

namespace {

constexpr int kRelations[] = {tag_equal,     tag_greater,  tag_greaterEqual, tag_less,
                              tag_lessEqual, tag_notEqual, tag_like,         tag_in};
constexpr int kArithmetic[] = {tag_add,    tag_subtract, tag_multiply,
                               tag_divide, tag_modulo,   tag_negate};
constexpr int kQueryMatches[] = {tag_error, tag_first, tag_set};

int writeOperandElement(ElementSink& sink, int tag, const ZQFieldValueOrArithStruct& operand) {
  return sink.within(tag, [&] { return writeOperand(sink, &operand); });
}

int writeRelation(ElementSink& sink, const ZQRelOpStruct* relation) {
  if (relation == nullptr) {
    return 0;
  }
  sink.wordElement(tag_operation, wordOf(kRelations, relation->operation));
  const int status = writeOperandElement(sink, tag_left, relation->operandLeft);
  return status != 0 ? status : writeOperandElement(sink, tag_right, relation->operandRight);
}

int writeBranches(ElementSink& sink, const ZQQualifierBranches& branches) {
  const int status = writeQualifierElement(sink, tag_left, branches.left);
  return status != 0 ? status : writeQualifierElement(sink, tag_right, branches.right);
}

}  // namespace

int writeQualifier(ElementSink& sink, const ZQQualifierStruct* qualifier) {
  if (qualifier == nullptr) {
    return 0;
  }
  switch (qualifier->operation) {
    case 1:
    case 2:
      return sink.within(qualifier->operation == 1 ? tag_and : tag_or,
                         [&] { return writeBranches(sink, qualifier->u.branches); });
    case 3:
      return writeQualifierElement(sink, tag_not, qualifier->u.notQualifier);
    case 4:
      return sink.within(tag_relationalOperation,
                         [&] { return writeRelation(sink, qualifier->u.relationalOperation); });
    case 5:
      sink.signedElement(tag_fieldID, qualifier->u.fieldId);
      return 0;
    default:
      return 0;
  }
}

int writeQualifierElement(ElementSink& sink, int tag, const ZQQualifierStruct* qualifier) {
  return sink.within(tag, [&] { return writeQualifier(sink, qualifier); });
}

int writeOperand(ElementSink& sink, const ZQFieldValueOrArithStruct* operand) {
  if (operand == nullptr) {
    return 0;
  }
  switch (operand->tag) {
    case 1:
      sink.signedElement(tag_fieldID, operand->u.fieldId);
      return 0;
    case 2:
      return writeValueElement(sink, tag_value, &operand->u.value);
    case 3:
      return sink.within(tag_arithmeticOperation,
                         [&] { return writeArithmetic(sink, operand->u.arithOp); });
    case 4:
      return sink.within(tag_statusHistoryValue,
                         [&] { return writeStatusHistory(sink, &operand->u.statHistory); });
    case 5:
      return sink.within(tag_valueList, [&] {
        return writeEach(itemsOf(&operand->u.valueSet), [&](const ZQValueStruct& value) {
          return writeValueElement(sink, tag_value, &value);
        });
      });
    case 50:
      sink.signedElement(tag_transactionValueFieldID, operand->u.fieldId);
      return 0;
    case 51:
      sink.signedElement(tag_databaseValueFieldID, operand->u.fieldId);
      return 0;
    case 52:
      sink.signedElement(tag_variable, operand->u.variable);
      return 0;
    case 53:
      return sink.within(tag_queryValue,
                         [&] { return writeQueryValue(sink, operand->u.queryValue); });
    case 99:
      sink.signedElement(tag_currentValueFieldID, operand->u.fieldId);
      return 0;
    default:
      return 0;
  }
}

int writeArithmetic(ElementSink& sink, const ZQArithOpStruct* arithmetic) {
  if (arithmetic == nullptr) {
    return 0;
  }
  writeArithmeticOperation(sink, arithmetic->operation);
  if (arithmetic->operation != kNegate) {
    const int status = writeOperandElement(sink, tag_left, arithmetic->operandLeft);
    if (status != 0) {
      return status;
    }
  }
  return writeOperandElement(sink, tag_right, arithmetic->operandRight);
}

int writeQueryValue(ElementSink& sink, const ZQQueryValueStruct* query) {
  if (query == nullptr) {
    return 0;
  }
  sink.arrayElement(tag_formName, query->formName);
  sink.arrayElement(tag_serverName, query->serverName);
  if (query->queryQualification != nullptr) {
    const int status =
        writeQualifierElement(sink, tag_queryQualification, query->queryQualification);
    if (status != 0) {
      return status;
    }
  }
  sink.signedElement(tag_valueFieldID, query->valueFieldId);
  sink.wordElement(tag_multipleMatchOption, wordOf(kQueryMatches, query->multipleMatchOption));
  return 0;
}

int writeStatusHistory(ElementSink& sink, const ZQStatHistoryValue* history) {
  constexpr uint32_t kUser = 1;
  if (history == nullptr) {
    return 0;
  }
  sink.signedElement(tag_statusState, history->statusState);
  sink.wordElement(tag_statusInfo, history->statusInfo == kUser ? tag_user : tag_time);
  return 0;
}

void writeArithmeticOperation(ElementSink& sink, uint32_t operation) {
  sink.wordElement(tag_operation, wordOf(kArithmetic, operation));
}
