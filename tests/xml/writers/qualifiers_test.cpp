#include "xml/writers/qualifiers.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "xml/writers/Written.h"

namespace {

ZQQualifierStruct bareField(uint32_t id) {
  ZQQualifierStruct node = {};
  node.operation = 5;
  node.u.fieldId = id;
  return node;
}

ZQFieldValueOrArithStruct operand(uint32_t tag, uint32_t word) {
  ZQFieldValueOrArithStruct result = {};
  result.tag = tag;
  result.u.fieldId = word;
  return result;
}

ZQValueStruct integer(int32_t number) {
  ZQValueStruct value = {};
  value.dataType = 2;
  value.u.integerValue = number;
  return value;
}

// Two operands with their elements.
const std::string kLeft = "<left><fieldID>7</fieldID></left>";
const std::string kRight = "<right><fieldID>8</fieldID></right>";

void expectQualifier(const ZQQualifierStruct& qualifier, const std::string& content) {
  SCOPED_TRACE(content);
  expectRecord(writeQualifier, CreateQualifierNode, &qualifier, content);
}

void expectOperand(const ZQFieldValueOrArithStruct& record, const std::string& content) {
  SCOPED_TRACE(content);
  expectRecord(writeOperand, CreateFieldValueOrArithNode, &record, content);
}

TEST(QualifierWriter, OperationsWithoutAnElementWriteNothing) {
  for (const uint32_t operation : {0U, 6U, 7U, 0xFFFFFFFFU}) {
    ZQQualifierStruct node = bareField(7);
    node.operation = operation;
    expectQualifier(node, "");
  }
}

TEST(QualifierWriter, AndAndOr) {
  ZQQualifierStruct left = bareField(7);
  ZQQualifierStruct right = bareField(8);
  ZQQualifierStruct node = {};
  node.u.branches = {&left, &right};
  node.operation = 1;
  expectQualifier(node, "<and>" + kLeft + kRight + "</and>");
  node.operation = 2;
  expectQualifier(node, "<or>" + kLeft + kRight + "</or>");
  right.operation = 0;
  expectQualifier(node, "<or>" + kLeft + "<right/></or>");
  node.u.branches = {nullptr, nullptr};
  expectQualifier(node, "<or><left/><right/></or>");
}

TEST(QualifierWriter, Not) {
  ZQQualifierStruct below = bareField(7);
  ZQQualifierStruct node = {};
  node.operation = 3;
  node.u.notQualifier = &below;
  expectQualifier(node, "<not><fieldID>7</fieldID></not>");
  node.u.notQualifier = nullptr;
  expectQualifier(node, "<not/>");
}

TEST(QualifierWriter, AFieldIsSigned) {
  expectQualifier(bareField(536870913), "<fieldID>536870913</fieldID>");
  expectQualifier(bareField(4294967295U), "<fieldID>-1</fieldID>");
}

TEST(QualifierWriter, RelationsByNumber) {
  const char* const kWords[] = {"equal",     "greater",  "greaterEqual", "less",
                                "lessEqual", "notEqual", "like",         "in"};
  ZQRelOpStruct relation = {0, operand(1, 7), operand(1, 8)};
  ZQQualifierStruct node = {};
  node.operation = 4;
  node.u.relationalOperation = &relation;
  for (uint32_t number = 1; number <= 8; ++number) {
    relation.operation = number;
    expectQualifier(node, std::string("<relationalOperation><operation>") + kWords[number - 1] +
                              "</operation>" + kLeft + kRight + "</relationalOperation>");
  }
  for (const uint32_t number : {0U, 9U, 0xFFFFFFFFU}) {
    relation.operation = number;
    expectQualifier(
        node, "<relationalOperation><operation/>" + kLeft + kRight + "</relationalOperation>");
  }
  node.u.relationalOperation = nullptr;
  expectQualifier(node, "<relationalOperation/>");
}

TEST(QualifierWriter, OperandsOfOneNumber) {
  struct Case {
    uint32_t tag;
    const char* name;
  };
  for (const Case& each :
       {Case{1, "fieldID"}, Case{50, "transactionValueFieldID"}, Case{51, "databaseValueFieldID"},
        Case{52, "variable"}, Case{99, "currentValueFieldID"}}) {
    const std::string open = std::string("<") + each.name + ">";
    const std::string close = std::string("</") + each.name + ">";
    expectOperand(operand(each.tag, 0), open + "0" + close);
    expectOperand(operand(each.tag, 4711), open + "4711" + close);
    expectOperand(operand(each.tag, 0x80000000), open + "-2147483648" + close);
  }
}

TEST(QualifierWriter, OperandsWithoutAnElementWriteNothing) {
  ZQCurrencyPartStruct part = {};
  for (const uint32_t tag : {0U, 6U, 7U, 49U, 54U, 55U, 56U, 98U, 100U, 0xFFFFFFFFU}) {
    ZQFieldValueOrArithStruct record = operand(tag, 0);
    record.u.currencyField = &part;
    expectOperand(record, "");
  }
}

TEST(QualifierWriter, AnOperandWithoutAnElementLeavesItsHostEmpty) {
  ZQRelOpStruct relation = {1, operand(54, 7), operand(6, 8)};
  ZQQualifierStruct node = {};
  node.operation = 4;
  node.u.relationalOperation = &relation;
  expectQualifier(node,
                  "<relationalOperation><operation>equal</operation><left/><right/>"
                  "</relationalOperation>");
}

TEST(QualifierWriter, ValueOperands) {
  ZQFieldValueOrArithStruct record = operand(2, 0);
  record.u.value = integer(-3);
  expectOperand(record, "<value><integerValue>-3</integerValue></value>");
  record.u.value.dataType = 4;
  record.u.value.u.characterValue = mutableText("");
  expectOperand(record, "<value><characterValue/></value>");
  record.u.value.dataType = 0;
  expectOperand(record, "<value><nullValue/></value>");
}

TEST(QualifierWriter, ArithmeticByNumber) {
  const char* const kWords[] = {"add", "subtract", "multiply", "divide", "modulo"};
  ZQArithOpStruct arithmetic = {0, operand(1, 7), operand(1, 8)};
  ZQFieldValueOrArithStruct record = operand(3, 0);
  record.u.arithOp = &arithmetic;
  const auto expectContent = [&](const std::string& content) {
    expectOperand(record, "<arithmeticOperation>" + content + "</arithmeticOperation>");
    expectRecord(writeArithmetic, CreateArithOpNode, &arithmetic, content);
  };
  for (uint32_t number = 1; number <= 5; ++number) {
    arithmetic.operation = number;
    expectContent(std::string("<operation>") + kWords[number - 1] + "</operation>" + kLeft +
                  kRight);
  }
  arithmetic.operation = 6;
  expectContent("<operation>negate</operation>" + kRight);
  for (const uint32_t number : {0U, 7U, 8U, 0xFFFFFFFFU}) {
    arithmetic.operation = number;
    expectContent("<operation/>" + kLeft + kRight);
  }
  record.u.arithOp = nullptr;
  expectOperand(record, "<arithmeticOperation/>");
}

TEST(QualifierWriter, StatusHistoryIsUserOrTime) {
  ZQFieldValueOrArithStruct record = operand(4, 0);
  for (const uint32_t info : {0U, 1U, 2U, 3U, 0xFFFFFFFFU}) {
    record.u.statHistory = {4294967294U, info};
    const std::string content = std::string("<statusState>-2</statusState><statusInfo>") +
                                (info == 1 ? "user" : "time") + "</statusInfo>";
    expectOperand(record, "<statusHistoryValue>" + content + "</statusHistoryValue>");
    expectRecord(writeStatusHistory, CreateStatHistoryNode, &record.u.statHistory, content);
  }
}

TEST(QualifierWriter, SetsOfValues) {
  ZQValueStruct values[] = {integer(1), {}, integer(-2)};
  ZQFieldValueOrArithStruct record = operand(5, 0);
  record.u.valueSet = {3, values};
  expectOperand(record,
                "<valueList><value><integerValue>1</integerValue></value>"
                "<value><nullValue/></value><value><integerValue>-2</integerValue></value>"
                "</valueList>");
  record.u.valueSet = {0, values};
  expectOperand(record, "<valueList/>");
  record.u.valueSet = {3, nullptr};
  expectOperand(record, "<valueList/>");
}

TEST(QualifierWriter, QueryValuesByOption) {
  ZQQualifierStruct condition = bareField(7);
  ZQQueryValueStruct query = {"Form", "server", &condition, 4294967295U, 0};
  ZQFieldValueOrArithStruct record = operand(53, 0);
  record.u.queryValue = &query;
  const std::string head = "<formName>Form</formName><serverName>server</serverName>";
  const std::string qualification = "<queryQualification><fieldID>7</fieldID></queryQualification>";
  const auto expectContent = [&](const std::string& content) {
    expectOperand(record, "<queryValue>" + content + "</queryValue>");
    expectRecord(writeQueryValue, CreateQueryValueNode, &query, content);
  };
  const char* const kOptions[] = {
      "<multipleMatchOption/>", "<multipleMatchOption>error</multipleMatchOption>",
      "<multipleMatchOption>first</multipleMatchOption>",
      "<multipleMatchOption>set</multipleMatchOption>", "<multipleMatchOption/>"};
  for (uint32_t option = 0; option < 5; ++option) {
    query.multipleMatchOption = option;
    expectContent(head + qualification + "<valueFieldID>-1</valueFieldID>" + kOptions[option]);
  }
  query.multipleMatchOption = 1;
  condition.operation = 0;
  expectContent(head + "<queryQualification/><valueFieldID>-1</valueFieldID>" + kOptions[1]);
  query.queryQualification = nullptr;
  expectContent(head + "<valueFieldID>-1</valueFieldID>" + kOptions[1]);
  query.formName[0] = '\0';
  query.serverName[0] = '\0';
  query.valueFieldId = 0;
  expectContent("<formName/><serverName/><valueFieldID>0</valueFieldID>" +
                std::string(kOptions[1]));
  record.u.queryValue = nullptr;
  expectOperand(record, "<queryValue/>");
}

TEST(QualifierWriter, NamesWithoutTheirZeroAreCut) {
  ZQQueryValueStruct query = {};
  memset(query.formName, 'f', sizeof query.formName);
  memset(query.serverName, 's', sizeof query.serverName);
  query.multipleMatchOption = 2;
  expectRecord(writeQueryValue, CreateQueryValueNode, &query,
               "<formName>" + std::string(254, 'f') + "</formName><serverName>" +
                   std::string(64, 's') +
                   "</serverName><valueFieldID>0</valueFieldID>"
                   "<multipleMatchOption>first</multipleMatchOption>");
}

TEST(QualifierWriter, NullRecordsWriteNothing) {
  expectRecord<ZQQualifierStruct>(writeQualifier, CreateQualifierNode, nullptr, "");
  expectRecord<ZQFieldValueOrArithStruct>(writeOperand, CreateFieldValueOrArithNode, nullptr, "");
  expectRecord<ZQArithOpStruct>(writeArithmetic, CreateArithOpNode, nullptr, "");
  expectRecord<ZQQueryValueStruct>(writeQueryValue, CreateQueryValueNode, nullptr, "");
  expectRecord<ZQStatHistoryValue>(writeStatusHistory, CreateStatHistoryNode, nullptr, "");
}

TEST(QualifierWriter, DeepTrees) {
  constexpr size_t kDepth = 3000;
  std::vector<ZQQualifierStruct> nodes(kDepth);
  std::string expected = "<fieldID>7</fieldID>";
  for (size_t i = 0; i + 1 < kDepth; ++i) {
    nodes[i].operation = 3;
    nodes[i].u.notQualifier = &nodes[i + 1];
    expected = "<not>" + expected + "</not>";
  }
  nodes.back() = bareField(7);
  expectRecord(writeQualifier, CreateQualifierNode, nodes.data(), expected);
}

TEST(QualifierWriter, AFailedEncodingEndsTheWalkFromAnyDepth) {
  unsigned char bytes[] = {'M', 'a', 'n'};
  ZQByteList list = {0, 3, bytes};
  ZQValueStruct values[2] = {};
  for (ZQValueStruct& value : values) {
    value.dataType = 9;
    value.u.byteList = &list;
  }
  ZQFieldValueOrArithStruct set = operand(5, 0);
  set.u.valueSet = {2, values};
  ZQFieldValueOrArithStruct literal = operand(2, 0);
  literal.u.value = values[0];
  ZQArithOpStruct arithmetic = {1, literal, set};
  ZQFieldValueOrArithStruct sum = operand(3, 0);
  sum.u.arithOp = &arithmetic;
  ZQRelOpStruct relation = {1, sum, literal};
  ZQQualifierStruct inner = {};
  inner.operation = 4;
  inner.u.relationalOperation = &relation;
  ZQQueryValueStruct query = {"", "", &inner, 1, 1};
  ZQFieldValueOrArithStruct queried = operand(53, 0);
  queried.u.queryValue = &query;
  ZQRelOpStruct outerRelation = {1, queried, queried};
  ZQQualifierStruct leaf = {};
  leaf.operation = 4;
  leaf.u.relationalOperation = &outerRelation;
  ZQQualifierStruct negated = {};
  negated.operation = 3;
  negated.u.notQualifier = &leaf;
  ZQQualifierStruct root = {};
  root.operation = 1;
  root.u.branches = {&negated, &negated};
  const long encodings = 4 * 4;
  EXPECT_GE(expectFailuresGive300([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
              return CreateQualifierNode(document, parent, &root);
            }),
            2 * encodings);
}

}  // namespace
