// What writing and reading back changes in a record, all of it in one place.
//
// prepare() makes a record of any content one that can be written and read: numbers that stand for
// words get such a word, texts become characters that XML carries. lose() then does to it what the
// way through a document does.
#ifndef ZQXML_TESTS_XML_HANDLERS_LOSSES_H
#define ZQXML_TESTS_XML_HANDLERS_LOSSES_H

#include <cstdint>
#include <random>
#include <string>

#include "records/describe.h"
#include "xml/heap.h"
#include "zqxml/free.h"
#include "zqxml/records.h"

namespace losses {

// Gives each text of a record other characters: markup, white space, control characters, letters
// of two bytes.
class TextMaker {
 public:
  explicit TextMaker(uint32_t seed) : random(seed) {}

  void scalar(const char*, auto&) {}
  void tag(const char*, auto&, const auto&) {}
  void numbers(const char*, auto&) {}
  void bytes(const char*, auto&, const char*, auto&) {}

  template <size_t kSize>
  void chars(const char*, char (&array)[kSize]) {
    const std::string content = make(random() % kSize);
    memset(array, 0, kSize);
    memcpy(array, content.data(), content.size());
  }

  void text(const char*, char*& member) {
    if (member != nullptr) {
      replaceText(member, make(random() % 24).c_str());
    }
  }

  void array(const char*, const uint32_t& count, const char* name, auto*& items) {
    for (uint32_t i = 0; items != nullptr && i < count; ++i) {
      records::visitElement(*this, name, items[i]);
    }
  }

  void block(const char*, auto*& member) {
    if (member != nullptr) {
      records::visit(*this, *member);
    }
  }

  void record(const char*, auto& member) { records::visit(*this, member); }

 private:
  std::string make(size_t limit) {
    static const std::string kUnits[] = {"a", "Z",  "7",  " ",   "<",    ">",    "&",   "\"",
                                         "'", "\t", "\n", "\r",  "\r\n", "\x01", "\b",  "\x1F",
                                         "é", "Ω",  "$",  "]]>", "&lt;", "-->",  "\x7F"};
    std::string content;
    for (;;) {
      const std::string& unit = kUnits[random() % std::size(kUnits)];
      if (content.size() + unit.size() > limit) {
        return content;
      }
      content += unit;
    }
  }

  std::mt19937 random;
};

// A line break of any kind is a line feed for XML.
class LineBreaks {
 public:
  void scalar(const char*, auto&) {}
  void tag(const char*, auto&, const auto&) {}
  void numbers(const char*, auto&) {}
  void bytes(const char*, auto&, const char*, auto&) {}

  template <size_t kSize>
  void chars(const char*, char (&array)[kSize]) {
    const std::string content = normalised(array);
    memset(array, 0, kSize);
    memcpy(array, content.data(), content.size());
  }

  void text(const char*, char*& member) {
    if (member != nullptr) {
      replaceText(member, normalised(member).c_str());
    }
  }

  void array(const char*, const uint32_t& count, const char* name, auto*& items) {
    for (uint32_t i = 0; items != nullptr && i < count; ++i) {
      records::visitElement(*this, name, items[i]);
    }
  }

  void block(const char*, auto*& member) {
    if (member != nullptr) {
      records::visit(*this, *member);
    }
  }

  void record(const char*, auto& member) { records::visit(*this, member); }

 private:
  static std::string normalised(const char* text) {
    std::string out;
    for (; *text != '\0'; ++text) {
      if (*text == '\r') {
        out += '\n';
        text += text[1] == '\n' ? 1 : 0;
      } else {
        out += *text;
      }
    }
    return out;
  }
};

// The steps, in one class so that each finds all others.
struct Steps {
  // A number that has a word, from any number.
  static void toWord(uint32_t& number, uint32_t words) { number = 1 + number % words; }

  // An element that always stands gives a text, if an empty one.
  static void nullIsEmpty(char*& text) {
    if (text == nullptr) {
      replaceText(text, "");
    }
  }

  // An empty element gives a record without anything.
  template <typename Record>
  static void nullIsZero(Record*& record) {
    if (record == nullptr) {
      record = newRecord<Record>();
    }
  }

  // What has no element reads as nothing.
  template <typename Record>
  static void drop(Record& record, void (*freeRecord)(Record*, ZQBoolean)) {
    releaseRecord(record, freeRecord);
  }

  // The same step on a record behind a pointer, and on each of an array.
  template <typename Record, typename Step>
  static void below(Record* record, Step step) {
    if (record != nullptr) {
      step(*record);
    }
  }

  template <typename Record, typename Step>
  static void each(Record* items, uint32_t count, Step step) {
    for (uint32_t i = 0; items != nullptr && i < count; ++i) {
      step(items[i]);
    }
  }

  // prepare: the numbers, and what can't be read back at all.

  static void prepare(ZQValueStruct& value) {
    if (value.dataType == 9) {
      // A list of bytes without a type is refused.
      if (value.u.byteList == nullptr) {
        value = {};
        return;
      }
      value.u.byteList->byteType %= 8;
    } else if (value.dataType == 11) {
      // Without a file name or data the kind of the attachment before carries over.
      nullIsZero(value.u.attachmentValue);
      ZQAttachStruct& attachment = *value.u.attachmentValue;
      ZQLocStruct& location = attachment.location;
      if (location.locationType != 2) {
        location.locationType = 1;
        nullIsEmpty(location.u.fileName);
      } else {
        // So many bytes are encoded.
        attachment.compressedSize = static_cast<int32_t>(attachment.compressedSize % 2 == 0
                                                             ? location.u.buffer.bufferSize
                                                             : location.u.buffer.bufferSize / 2);
      }
    }
  }

  static void prepare(ZQValueList& list) {
    each(list.items, list.numItems, [](ZQValueStruct& value) { prepare(value); });
  }

  static void prepare(ZQCOMValueStruct& value) {
    if (value.valueType == 2) {
      prepare(value.u.value);
    }
  }

  static void prepare(ZQRelOpStruct& relation) {
    toWord(relation.operation, 8);
    prepare(relation.operandLeft);
    prepare(relation.operandRight);
  }

  static void prepare(ZQArithOpStruct& arithmetic) {
    toWord(arithmetic.operation, 6);
    prepare(arithmetic.operandLeft);
    prepare(arithmetic.operandRight);
  }

  static void prepare(ZQQueryValueStruct& query) {
    toWord(query.multipleMatchOption, 3);
    below(query.queryQualification, [](ZQQualifierStruct& node) { prepare(node); });
  }

  static void prepare(ZQQualifierStruct& node) {
    const auto step = [](auto& record) { prepare(record); };
    switch (node.operation) {
      case 1:
      case 2:
        below(node.u.branches.left, step);
        below(node.u.branches.right, step);
        break;
      case 3:
        below(node.u.notQualifier, step);
        break;
      case 4:
        below(node.u.relationalOperation, step);
        break;
      default:
        break;
    }
  }

  static void prepare(ZQFieldValueOrArithStruct& operand) {
    const auto step = [](auto& record) { prepare(record); };
    switch (operand.tag) {
      case 2:
        prepare(operand.u.value);
        break;
      case 3:
        below(operand.u.arithOp, step);
        break;
      case 5:
        prepare(operand.u.valueSet);
        break;
      case 53:
        below(operand.u.queryValue, step);
        break;
      default:
        break;
    }
  }

  static void prepare(ZQAssignFieldStruct& field) {
    toWord(field.noMatchOption, 4);
    toWord(field.multipleMatchOption, 6);
    prepare(field.qualifier);
  }

  static void prepare(ZQArithOpAssignStruct& arithmetic) {
    toWord(arithmetic.operation, 6);
    prepare(arithmetic.operandLeft);
    prepare(arithmetic.operandRight);
  }

  static void prepare(ZQFunctionAssignStruct& function) {
    toWord(function.functionCode, 39);
    each(function.parameterList, function.numItems, [](ZQAssignStruct& a) { prepare(a); });
  }

  static void prepare(ZQDDEStruct& dde) { toWord(dde.action, 3); }

  static void prepare(ZQAssignSQLStruct& sql) {
    toWord(sql.noMatchOption, 4);
    toWord(sql.multipleMatchOption, 6);
  }

  static void prepare(ZQAssignFilterApiStruct& call) {
    each(call.inputValues, call.numItems, [](ZQAssignStruct& a) { prepare(a); });
  }

  static void prepare(ZQAssignStruct& assignment) {
    const auto step = [](auto& record) { prepare(record); };
    switch (assignment.assignType) {
      case 1:
        prepare(assignment.u.value);
        break;
      case 2:
        below(assignment.u.field, step);
        break;
      case 4:
        // Arithmetic without its operation is refused.
        if (assignment.u.arithOp == nullptr) {
          assignment = {};
        } else {
          prepare(*assignment.u.arithOp);
        }
        break;
      case 5:
        below(assignment.u.function, step);
        break;
      case 6:
        below(assignment.u.dde, step);
        break;
      case 7:
        below(assignment.u.sql, step);
        break;
      case 8:
        below(assignment.u.filterApi, step);
        break;
      default:
        break;
    }
  }

  static void prepare(ZQFieldAssignStruct& assign) { prepare(assign.assignment); }

  static void prepare(ZQFieldAssignList& list) {
    each(list.items, list.numItems, [](ZQFieldAssignStruct& assign) { prepare(assign); });
  }

  static void prepare(ZQAutomationStruct& automation) {
    each(automation.methods.items, automation.methods.numItems, [](ZQCOMMethodStruct& method) {
      prepare(method.returnValue);
      each(method.parameters.items, method.parameters.numItems,
           [](ZQCOMMethodParmStruct& parameter) { prepare(parameter.parameterValue); });
    });
  }

  // lose: the losses.

  static void lose(ZQValueStruct& value) {
    switch (value.dataType) {
      case 4:
      case 5:
      case 10:
      case 42:
      case 43:
        nullIsEmpty(value.u.characterValue);
        break;
      case 11: {
        ZQAttachStruct& attachment = *value.u.attachmentValue;
        nullIsEmpty(attachment.attachmentName);
        ZQLocStruct& location = attachment.location;
        if (location.locationType == 2) {
          // The buffer is as long as the compressed size.
          location.u.buffer.bufferSize = static_cast<uint32_t>(attachment.compressedSize);
          if (location.u.buffer.bufferSize == 0) {
            records::release(location.u.buffer.bufferData);
          }
        }
        break;
      }
      case 12:
        // Functional currencies are neither written nor read.
        nullIsZero(value.u.currencyValue);
        nullIsEmpty(value.u.currencyValue->value);
        FreeZQFuncCurrencyList(&value.u.currencyValue->functionalCurrencies, 0);
        break;
      case 41:
        nullIsZero(value.u.coordinateList);
        break;
      default:
        // An unlisted type has no element.
        if (value.dataType > 43 || (value.dataType > 14 && value.dataType < 40)) {
          value = {};
        }
        break;
    }
  }

  static void lose(ZQValueList& list) {
    each(list.items, list.numItems, [](ZQValueStruct& value) { lose(value); });
  }

  static void lose(ZQCOMValueStruct& value) {
    nullIsEmpty(value.valueIdentifier);
    if (value.valueType == 2) {
      lose(value.u.value);
    } else if (value.valueType != 1) {
      value.valueType = 0;
      value.u = {};
    }
  }

  static void lose(ZQStatHistoryValue& history) {
    // All but the user is the time.
    history.statusInfo = history.statusInfo == 1 ? 1 : 2;
  }

  static void lose(ZQRelOpStruct& relation) {
    lose(relation.operandLeft);
    lose(relation.operandRight);
  }

  static void lose(ZQArithOpStruct& arithmetic) {
    // A negation has no left operand.
    if (arithmetic.operation == 6) {
      drop(arithmetic.operandLeft, FreeZQFieldValueOrArithStruct);
    }
    lose(arithmetic.operandLeft);
    lose(arithmetic.operandRight);
  }

  static void lose(ZQQueryValueStruct& query) {
    below(query.queryQualification, [](ZQQualifierStruct& node) { lose(node); });
  }

  // An empty element reads as a record without anything, and not as one that was written.
  template <typename Record>
  static void loseBlock(Record*& block) {
    if (block == nullptr) {
      nullIsZero(block);
    } else {
      lose(*block);
    }
  }

  static void lose(ZQQualifierStruct& node) {
    switch (node.operation) {
      case 1:
      case 2:
        loseBlock(node.u.branches.left);
        loseBlock(node.u.branches.right);
        break;
      case 3:
        loseBlock(node.u.notQualifier);
        break;
      case 4:
        loseBlock(node.u.relationalOperation);
        break;
      case 5:
        break;
      default:
        node = {};
        break;
    }
  }

  static void lose(ZQFieldValueOrArithStruct& operand) {
    switch (operand.tag) {
      case 1:
      case 50:
      case 51:
      case 52:
      case 99:
        break;
      case 2:
        lose(operand.u.value);
        break;
      case 3:
        loseBlock(operand.u.arithOp);
        break;
      case 4:
        lose(operand.u.statHistory);
        break;
      case 5:
        lose(operand.u.valueSet);
        break;
      case 53:
        loseBlock(operand.u.queryValue);
        break;
      default:
        // Parts of currency fields and unlisted kinds have no element.
        drop(operand, FreeZQFieldValueOrArithStruct);
        break;
    }
  }

  static void lose(ZQAssignFieldStruct& field) {
    lose(field.qualifier);
    if (field.tag == 4) {
      lose(field.u.statHistory);
    } else if (field.tag != 1) {
      // Neither has a part of a currency field.
      if (field.tag == 6) {
        records::release(field.u.currencyField);
      }
      field.tag = 0;
      field.u = {};
    }
  }

  static void lose(ZQArithOpAssignStruct& arithmetic) {
    if (arithmetic.operation == 6) {
      drop(arithmetic.operandLeft, FreeZQAssignStruct);
    }
    lose(arithmetic.operandLeft);
    lose(arithmetic.operandRight);
  }

  static void lose(ZQFunctionAssignStruct& function) {
    each(function.parameterList, function.numItems, [](ZQAssignStruct& a) { lose(a); });
  }

  static void lose(ZQDDEStruct&) {}

  static void lose(ZQAssignSQLStruct& sql) { nullIsEmpty(sql.sqlCommand); }

  static void lose(ZQAssignFilterApiStruct& call) {
    each(call.inputValues, call.numItems, [](ZQAssignStruct& a) { lose(a); });
  }

  static void lose(ZQAssignStruct& assignment) {
    switch (assignment.assignType) {
      case 1:
        lose(assignment.u.value);
        break;
      case 2:
        loseBlock(assignment.u.field);
        break;
      case 3:
        nullIsEmpty(assignment.u.process);
        break;
      case 4:
        lose(*assignment.u.arithOp);
        break;
      case 5:
        loseBlock(assignment.u.function);
        break;
      case 6:
        loseBlock(assignment.u.dde);
        break;
      case 7:
        loseBlock(assignment.u.sql);
        break;
      case 8:
        loseBlock(assignment.u.filterApi);
        break;
      default:
        assignment = {};
        break;
    }
  }

  static void lose(ZQFieldAssignStruct& assign) { lose(assign.assignment); }

  static void lose(ZQFieldAssignList& list) {
    each(list.items, list.numItems, [](ZQFieldAssignStruct& assign) { lose(assign); });
  }

  static void lose(ZQAutomationStruct& automation) {
    nullIsEmpty(automation.automationServerName);
    nullIsEmpty(automation.classID);
    nullIsEmpty(automation.action);
    automation.visible = automation.visible != 0 ? 1 : 0;
    each(automation.methods.items, automation.methods.numItems, [](ZQCOMMethodStruct& method) {
      nullIsEmpty(method.methodName);
      nullIsEmpty(method.methodIdentifier);
      lose(method.returnValue);
      each(method.parameters.items, method.parameters.numItems,
           [](ZQCOMMethodParmStruct& parameter) {
             nullIsEmpty(parameter.parameterName);
             lose(parameter.parameterValue);
           });
    });
  }
};

}  // namespace losses

#endif
