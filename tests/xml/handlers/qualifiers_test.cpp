// Conditions: trees, relations, arithmetic, operands and queries.

#include <gtest/gtest.h>

#include "xml/handlers/Arena.h"
#include "xml/handlers/ElementReaders.h"
#include "xml/handlers/ElementTable.h"

namespace {

constexpr const char* kTreeHosts[] = {"qualification",
                                      "qualifier",
                                      "queryQualification",
                                      "dataQualification",
                                      "joinQualifier",
                                      "runIfQualification",
                                      "left",
                                      "right",
                                      "not"};

struct Word {
  const char* text;
  uint32_t number;
};

// Both words of a number are taken in either place.
constexpr Word kOperations[] = {
    {"equal", 1},    {"greater", 2}, {"greaterEqual", 3}, {"less", 4},  {"lessEqual", 5},
    {"notEqual", 6}, {"like", 7},    {"in", 8},           {"add", 1},   {"subtract", 2},
    {"multiply", 3}, {"divide", 4},  {"modulo", 5},       {"negate", 6}};

class Qualifiers : public testing::Test {
 protected:
  static ZQQualifierStruct bare(uint32_t id) {
    ZQQualifierStruct node = {};
    node.operation = 5;
    node.u.fieldId = id;
    return node;
  }

  ZQQualifierStruct negated(const ZQQualifierStruct& below) {
    ZQQualifierStruct node = {};
    node.operation = 3;
    node.u.notQualifier = arena.make(below);
    return node;
  }

  static ZQQualifierStruct fork(uint32_t operation, ZQQualifierStruct* left,
                                ZQQualifierStruct* right) {
    ZQQualifierStruct node = {};
    node.operation = operation;
    node.u.branches = {left, right};
    return node;
  }

  ZQQualifierStruct relation(const ZQRelOpStruct& operation = {}) {
    ZQQualifierStruct node = {};
    node.operation = 4;
    node.u.relationalOperation = arena.make(operation);
    return node;
  }

  static ZQFieldValueOrArithStruct field(uint32_t id, uint32_t tag = 1) {
    ZQFieldValueOrArithStruct operand = {};
    operand.tag = tag;
    operand.u.fieldId = id;
    return operand;
  }

  static ZQFieldValueOrArithStruct number(int32_t value) {
    ZQFieldValueOrArithStruct operand = {};
    operand.tag = 2;
    operand.u.value.dataType = 2;
    operand.u.value.u.integerValue = value;
    return operand;
  }

  static ZQFieldValueOrArithStruct history(uint32_t state, uint32_t info) {
    ZQFieldValueOrArithStruct operand = {};
    operand.tag = 4;
    operand.u.statHistory = {state, info};
    return operand;
  }

  ZQFieldValueOrArithStruct arithmetic(const ZQArithOpStruct& operation = {}) {
    ZQFieldValueOrArithStruct operand = {};
    operand.tag = 3;
    operand.u.arithOp = arena.make(operation);
    return operand;
  }

  ZQFieldValueOrArithStruct query(const ZQQueryValueStruct& value = {}) {
    ZQFieldValueOrArithStruct operand = {};
    operand.tag = 53;
    operand.u.queryValue = arena.make(value);
    return operand;
  }

  ZQFieldValueOrArithStruct listOf(std::initializer_list<int32_t> numbers) {
    ZQFieldValueOrArithStruct operand = {};
    operand.tag = 5;
    auto* items = arena.make<std::vector<ZQValueStruct>>();
    for (const int32_t each : numbers) {
      items->push_back(number(each).u.value);
    }
    operand.u.valueSet = {static_cast<uint32_t>(items->size()),
                          items->empty() ? nullptr : items->data()};
    return operand;
  }

  // Reads the condition whole, spread out and in pieces.
  void expectTree(const std::string& content, const ZQQualifierStruct& expected,
                  const std::string& host = "qualification") {
    const std::string document = "<" + host + ">" + content + "</" + host + ">";
    expectRead(reader, document, expected);
    expectRead(reader, spacedOut(document), expected);
    expectRead(reader, inPieces(document), expected);
  }

  void expectOperand(const std::string& content, const ZQFieldValueOrArithStruct& expected) {
    for (const std::string host : {"left", "right"}) {
      const std::string document = "<" + host + ">" + content + "</" + host + ">";
      expectRead(operands, document, expected);
      expectRead(operands, spacedOut(document), expected);
      expectRead(operands, inPieces(document), expected);
    }
  }

  Arena arena;
  QualReader reader;
  OperandReader operands;
};

TEST_F(Qualifiers, EachFormInEachHost) {
  auto* one = arena.make(bare(1));
  auto* two = arena.make(bare(2));
  const std::string left = "<left><fieldID>1</fieldID></left>";
  const std::string right = "<right><fieldID>2</fieldID></right>";
  for (const std::string host : kTreeHosts) {
    expectTree("", {}, host);
    expectTree("text", {}, host);
    expectTree("<and>" + left + right + "</and>", fork(1, one, two), host);
    expectTree("<and>" + right + left + "</and>", fork(1, one, two), host);
    expectTree("<or>" + left + right + "</or>", fork(2, one, two), host);
    expectTree("<or>" + right + left + "</or>", fork(2, one, two), host);
    expectTree("<not><fieldID>2</fieldID></not>", negated(bare(2)), host);
    expectTree("<relationalOperation/>", relation(), host);
    expectTree("<fieldID>536870913</fieldID>", bare(536870913), host);
    expectTree("<fieldID>-1</fieldID>", bare(4294967295), host);
    expectTree("<fieldID/>", bare(0), host);
  }
}

TEST_F(Qualifiers, MissingAndEmptyBranches) {
  auto* none = arena.make(ZQQualifierStruct{});
  auto* one = arena.make(bare(1));
  expectTree("<and/>", fork(1, nullptr, nullptr));
  expectTree("<or>text</or>", fork(2, nullptr, nullptr));
  expectTree("<and><left/></and>", fork(1, none, nullptr));
  expectTree("<and><right><fieldID>1</fieldID></right></and>", fork(1, nullptr, one));
  expectTree("<not/>", negated({}));
  expectTree("<not>text<not/></not>", negated(negated({})));
}

TEST_F(Qualifiers, TheLaterOfTwoCounts) {
  auto* one = arena.make(bare(1));
  auto* two = arena.make(bare(2));
  const std::string left1 = "<left><fieldID>1</fieldID></left>";
  const std::string left2 = "<left><fieldID>2</fieldID></left>";
  const std::string deep =
      "<relationalOperation><left><queryValue><queryQualification><fieldID>9"
      "</fieldID></queryQualification></queryValue></left>"
      "</relationalOperation>";
  expectTree("<and><left>" + deep + "</left>" + left2 + "</and>", fork(1, two, nullptr));
  expectTree("<and>" + left1 + "</and><and>" + left2 + "</and>", fork(1, two, nullptr));
  expectTree("<and>" + left1 + "</and><or/>", fork(2, one, nullptr));
  expectTree("<or>" + left1 + "</or><and><right><fieldID>2</fieldID></right></and>",
             fork(1, one, two));
  expectTree("<not>" + deep + "</not><not><fieldID>1</fieldID></not>", negated(bare(1)));
  expectTree(deep + "<relationalOperation/>", relation());
  expectTree("<fieldID>1</fieldID><fieldID>2</fieldID>", bare(2));
}

// A node's pointer is never taken for one of another kind.
TEST_F(Qualifiers, AnotherKindReleasesTheOneBefore) {
  struct Kind {
    std::string xml;
    ZQQualifierStruct alone;
  };
  auto* one = arena.make(bare(1));
  const Kind kinds[] = {
      {"<and><left><fieldID>1</fieldID></left></and>", fork(1, one, nullptr)},
      {"<or><left><fieldID>1</fieldID></left></or>", fork(2, one, nullptr)},
      {"<not><fieldID>1</fieldID></not>", negated(bare(1))},
      {"<relationalOperation><left><fieldID>1</fieldID></left></relationalOperation>",
       relation({0, field(1), {}})},
      {"<fieldID>1</fieldID>", bare(1)},
      {"<and/>", fork(1, nullptr, nullptr)},
  };
  for (const Kind& first : kinds) {
    for (const Kind& second : kinds) {
      const bool fork1 = first.alone.operation <= 2;
      const bool fork2 = second.alone.operation <= 2;
      ZQQualifierStruct expected = second.alone;
      if (fork1 && fork2 && expected.u.branches.left == nullptr) {
        expected.u.branches = first.alone.u.branches;
      }
      expectTree(first.xml + second.xml, expected);
    }
  }
  // Within the open element of a field.
  expectTree("<fieldID>1<not/>2</fieldID>", negated({}));
  expectTree("<fieldID>1<and/>2</fieldID>", fork(1, nullptr, nullptr));
}

// Stored as soon as it is known that the node has branches, and never over another member.
TEST_F(Qualifiers, BranchesOutsideAndOr) {
  auto* one = arena.make(bare(1));
  auto* two = arena.make(bare(2));
  const std::string left = "<left><fieldID>1</fieldID></left>";
  const std::string right = "<right><fieldID>2</fieldID></right>";
  expectTree(left + "<and/>", fork(1, one, nullptr));
  expectTree(left + right + "<or/>", fork(2, one, two));
  expectTree(left + "<left><fieldID>2</fieldID></left><and/>", fork(1, two, nullptr));
  expectTree(left + "<and>" + right + "</and>", fork(1, one, two));
  expectTree("<and/>" + left + right, fork(1, one, two));
  expectTree("<and>" + left + "</and><left><fieldID>2</fieldID></left>", fork(1, two, nullptr));
  expectTree(left + right, {});
  expectTree(left + "<not/>", negated({}));
  expectTree(left + "<fieldID>3</fieldID>", bare(3));
  expectTree(left + "<relationalOperation/>", relation());
  for (const std::string child : {"left", "right"}) {
    for (const std::string other :
         {"<not/>", "<relationalOperation/>", "<fieldID>1</fieldID>", "<and/><not/>"}) {
      expectRefused(reader,
                    "<qualification>" + other + "<" + child + ">@</" + child + "></qualification>",
                    8941, child);
    }
  }
  expectRead(reader, "<qualification/>", {});
}

// The name of any host ends the handler that reads it; the end of its own host is then not
// expected.
TEST_F(Qualifiers, AHostWithinAHostEndsTheHandler) {
  for (const std::string host : kTreeHosts) {
    for (const std::string inner : {"qualification", "qualifier", "queryQualification",
                                    "dataQualification", "joinQualifier", "runIfQualification"}) {
      expectRefused(reader, "<" + host + "><" + inner + "></" + inner + "></" + host + ">@", 8941,
                    host);
    }
  }
  expectRefused(reader, "<qualification><not><qualifier/></not>@</qualification>", 8941, "not");
  expectRefused(reader, "<qualification><and><left><qualifier/></left>@</and></qualification>",
                8941, "left");
  expectRefused(reader,
                "<qualification><relationalOperation><relationalOperation/>"
                "</relationalOperation>@</qualification>",
                8941, "relationalOperation");
}

TEST_F(Qualifiers, RelationsAndArithmetic) {
  RelOpReader relations;
  ArithReader sums;
  const auto check = [&](auto& operationReader, const std::string& host) {
    using Record = typename std::remove_reference_t<decltype(operationReader)>::Record;
    const std::string start = "<" + host + ">";
    const std::string end = "</" + host + ">";
    ElementTable<std::remove_reference_t<decltype(operationReader)>>(
        operationReader, start, end,
        {{"<operation>less</operation>", [](Record& r) { r.operation = 4; }},
         {"<left><fieldID>1</fieldID></left>", [](Record& r) { r.operandLeft = field(1); }},
         {"<right><value><integerValue>2</integerValue></value></right>",
          [](Record& r) { r.operandRight = number(2); }}})
        .expectAll();
    for (const Word& word : kOperations) {
      Record expected = {};
      expected.operation = word.number;
      expectRead(operationReader, start + "<operation>" + word.text + "</operation>" + end,
                 expected);
    }
    // The later word counts, as does the later operand.
    Record expected = {};
    expected.operation = 2;
    expected.operandLeft = field(2);
    expectRead(operationReader,
               start +
                   "<left><value><characterValue>a</characterValue></value></left>"
                   "<operation>add</operation><operation>greater</operation>"
                   "<left><fieldID>2</fieldID></left>text" +
                   end,
               expected);
    for (const std::string text : {"", "Equal", "equal ", "plus", "form", "1", "first"}) {
      expectRefused(operationReader, start + "<operation>" + text + "</operation>@" + end, 8943);
    }
    for (const std::string inner : {"left", "right"}) {
      const std::string other = inner == "left" ? "right" : "left";
      expectRefused(operationReader,
                    start + "<" + inner + "><" + other + "></" + other + "></" + inner + ">@" + end,
                    8941, inner);
    }
    expectRefused(operationReader, start + start + end + end + "@", 8941, host);
  };
  check(relations, "relationalOperation");
  check(sums, "arithmeticOperation");
}

TEST_F(Qualifiers, EachOperand) {
  expectOperand("", {});
  expectOperand("text", {});
  expectOperand("<fieldID>1</fieldID>", field(1));
  expectOperand("<fieldID>-2</fieldID>", field(4294967294));
  expectOperand("<fieldID/>", field(0));
  expectOperand("<transactionValueFieldID>2</transactionValueFieldID>", field(2, 50));
  expectOperand("<databaseValueFieldID>3</databaseValueFieldID>", field(3, 51));
  expectOperand("<currentValueFieldID>4</currentValueFieldID>", field(4, 99));
  expectOperand("<variable>5</variable>", field(5, 52));
  expectOperand("<variable>-1</variable>", field(4294967295, 52));
  expectOperand("<variable/>", field(0, 52));
  expectOperand("<value><integerValue>6</integerValue></value>", number(6));
  expectOperand("<arithmeticOperation/>", arithmetic());
  expectOperand(
      "<arithmeticOperation><operation>negate</operation><right><fieldID>1</fieldID>"
      "</right></arithmeticOperation>",
      arithmetic({6, {}, field(1)}));
  expectOperand("<statusHistoryValue/>", history(0, 0));
  expectOperand(
      "<statusHistoryValue>a<statusState>3</statusState>b<statusInfo>user</statusInfo>"
      "c</statusHistoryValue>",
      history(3, 1));
  expectOperand(
      "<statusHistoryValue><statusInfo>time</statusInfo><statusState>4</statusState>"
      "</statusHistoryValue>",
      history(4, 2));
  expectOperand("<valueList/>", listOf({}));
  expectOperand(
      "<valueList><value><integerValue>1</integerValue></value><value><integerValue>2"
      "</integerValue></value></valueList>",
      listOf({1, 2}));
  expectOperand("<queryValue/>", query());
}

TEST_F(Qualifiers, TheLaterOperandCounts) {
  struct Kind {
    std::string xml;
    ZQFieldValueOrArithStruct alone;
  };
  ZQQueryValueStruct condition = {};
  condition.queryQualification = arena.make(bare(7));
  const Kind kinds[] = {
      {"<fieldID>1</fieldID>", field(1)},
      {"<transactionValueFieldID>2</transactionValueFieldID>", field(2, 50)},
      {"<databaseValueFieldID>3</databaseValueFieldID>", field(3, 51)},
      {"<currentValueFieldID>4</currentValueFieldID>", field(4, 99)},
      {"<variable>5</variable>", field(5, 52)},
      {"<value><integerValue>6</integerValue></value>", number(6)},
      {"<arithmeticOperation><left><fieldID>1</fieldID></left></arithmeticOperation>",
       arithmetic({0, field(1), {}})},
      {"<statusHistoryValue><statusState>3</statusState></statusHistoryValue>", history(3, 0)},
      {"<valueList><value><integerValue>1</integerValue></value></valueList>", listOf({1})},
      {"<queryValue><queryQualification><fieldID>7</fieldID></queryQualification></queryValue>",
       query(condition)},
  };
  for (const Kind& first : kinds) {
    for (const Kind& second : kinds) {
      expectOperand(first.xml + second.xml, second.alone);
    }
  }
}

TEST_F(Qualifiers, TextsOfAnOperandWhoseKindHasChanged) {
  expectOperand("<fieldID>1<value><integerValue>6</integerValue></value>2</fieldID>", number(6));
  expectOperand("<variable>1<valueList/>2</variable>", listOf({}));
  expectOperand(
      "<statusHistoryValue><statusState>1<arithmeticOperation/>2</statusState>"
      "<statusInfo>user</statusInfo></statusHistoryValue>",
      arithmetic());
  expectOperand("<fieldID>1<variable>5</variable></fieldID>", field(5, 52));
  expectOperand("<transactionValueFieldID>1<fieldID>5</fieldID>2</transactionValueFieldID>",
                field(5));
}

TEST_F(Qualifiers, StatusTextsOutsideAStatusAreNotStored) {
  expectOperand("<statusState>1</statusState>", {});
  expectOperand("<statusInfo>user</statusInfo>", {});
  expectOperand("<fieldID>7</fieldID><statusState>1</statusState><statusInfo>time</statusInfo>",
                field(7));
  expectOperand(
      "<value><integerValue>6</integerValue></value><statusState>1</statusState>"
      "<statusInfo>time</statusInfo>",
      number(6));
  expectOperand("<statusHistoryValue/><statusState>1</statusState><statusInfo>time</statusInfo>",
                history(1, 2));
  // The word is looked at all the same.
  expectRefused(operands, "<left><fieldID>7</fieldID><statusInfo>x</statusInfo>@</left>", 8943);
  expectRefused(operands, "<left><statusHistoryValue><statusInfo/>@</statusHistoryValue></left>",
                8943);
  expectRefused(operands,
                "<left><statusHistoryValue><statusInfo>User</statusInfo>@</statusHistoryValue>"
                "</left>",
                8943);
}

TEST_F(Qualifiers, StatusHistoryTwice) {
  // Each start empties the texts; what has been stored stays.
  expectOperand(
      "<statusHistoryValue><statusState>1</statusState><statusState>2</statusState>"
      "<statusInfo>user</statusInfo></statusHistoryValue>",
      history(12, 1));
  expectOperand(
      "<statusHistoryValue><statusState>1</statusState></statusHistoryValue>"
      "<statusHistoryValue><statusInfo>time</statusInfo></statusHistoryValue>",
      history(1, 2));
  expectOperand(
      "<statusHistoryValue><statusState>1</statusState></statusHistoryValue>"
      "<statusHistoryValue><statusState>2</statusState></statusHistoryValue>",
      history(2, 0));
  expectOperand(
      "<statusHistoryValue><statusInfo>user</statusInfo></statusHistoryValue>"
      "<statusHistoryValue><statusInfo>time</statusInfo></statusHistoryValue>",
      history(0, 2));
}

TEST_F(Qualifiers, TheEndOfAnUnexpectedElementInAnOperand) {
  // Deliberate: here it is 8944, not 8941.
  expectRefused(operands, "<left><valueList><valueList/></valueList>@</left>", 8944);
  expectRefused(operands, "<left><value><value/></value>@</left>", 8944);
  expectRefused(operands, "<left><queryValue><queryValue/></queryValue>@</left>", 8944);
  expectRefused(operands,
                "<left><arithmeticOperation><arithmeticOperation/></arithmeticOperation>@</left>",
                8944);
  expectRefused(operands, "<left><right/></left>@", 8941, "left");
}

TEST_F(Qualifiers, ChildrenOfAQueryInAnyOrder) {
  QueryReader queries;
  using Effect = Child<ZQQueryValueStruct>::Effect;
  const auto form = [](const char* text) -> Effect {
    return [text](ZQQueryValueStruct& q) { setArray(q.formName, text); };
  };
  const auto server = [](const char* text) -> Effect {
    return [text](ZQQueryValueStruct& q) { setArray(q.serverName, text); };
  };
  const auto id = [](uint32_t number) -> Effect {
    return [number](ZQQueryValueStruct& q) { q.valueFieldId = number; };
  };
  ElementTable<QueryReader>(
      queries, "<queryValue>", "</queryValue>",
      {{"<formName>F</formName>", form("F"), form("FF")},
       {"<serverName>s</serverName>", server("s"), server("ss")},
       {"<queryQualification><and><left><fieldID>1</fieldID></left></and></queryQualification>",
        [&](ZQQueryValueStruct& q) {
          q.queryQualification = arena.make(fork(1, arena.make(bare(1)), nullptr));
        }},
       {"<valueFieldID>-7</valueFieldID>", id(4294967289), id(4294967289)}})
      .expectAll();
  constexpr Word kWords[] = {{"error", 1}, {"first", 2}, {"set", 3}};
  for (const Word& word : kWords) {
    ZQQueryValueStruct expected = {};
    expected.multipleMatchOption = word.number;
    expectRead(queries,
               std::string("<queryValue>x<multipleMatchOption>") + word.text +
                   "</multipleMatchOption>x</queryValue>",
               expected);
  }
  for (const std::string text : {"", "Error", "useFirstMatch", "setNull", "1"}) {
    expectRefused(
        queries,
        "<queryValue><multipleMatchOption>" + text + "</multipleMatchOption>@</queryValue>", 8943);
  }
  // Texts join until the next query, words too.
  expectRefused(queries,
                "<queryValue><multipleMatchOption>set</multipleMatchOption><multipleMatchOption>"
                "set</multipleMatchOption>@</queryValue>",
                8943);
  expectRead(queries, "<queryValue/>", {});
}

TEST_F(Qualifiers, AConditionOfAQueryTwice) {
  QueryReader queries;
  const std::string inner =
      "<relationalOperation><left><queryValue><queryQualification><fieldID>1</fieldID>"
      "</queryQualification></queryValue></left></relationalOperation>";
  ZQQueryValueStruct expected = {};
  expected.queryQualification = arena.make(bare(2));
  expectRead(queries,
             "<queryValue><queryQualification>" + inner +
                 "</queryQualification><queryQualification><fieldID>2</fieldID>"
                 "</queryQualification></queryValue>",
             expected);
}

TEST_F(Qualifiers, LongNamesAreCut) {
  QueryReader queries;
  ZQQueryValueStruct expected = {};
  setArray(expected.formName, std::string(254, 'f'));
  setArray(expected.serverName, std::string(64, 's'));
  for (const size_t more : {size_t{0}, size_t{1}, size_t{46}}) {
    expectRead(queries,
               "<queryValue><formName>" + std::string(254 + more, 'f') + "</formName><serverName>" +
                   std::string(64 + more, 's') + "</serverName></queryValue>",
               expected);
  }
}

TEST_F(Qualifiers, RealTreesNest) {
  const std::string document =
      "<runIfQualification><or><left><and><left><relationalOperation><operation>equal</operation>"
      "<left><fieldID>7</fieldID></left><right><value><enumValue>1</enumValue></value></right>"
      "</relationalOperation></left><right><not><fieldID>8</fieldID></not></right></and></left>"
      "<right><relationalOperation><operation>in</operation><left><queryValue><formName>F"
      "</formName><queryQualification><relationalOperation><operation>like</operation><left>"
      "<variable>1</variable></left><right><arithmeticOperation><operation>add</operation><left>"
      "<fieldID>2</fieldID></left><right><arithmeticOperation><operation>negate</operation><right>"
      "<fieldID>3</fieldID></right></arithmeticOperation></right></arithmeticOperation></right>"
      "</relationalOperation></queryQualification><multipleMatchOption>set</multipleMatchOption>"
      "</queryValue></left><right><valueList><value><integerValue>1</integerValue></value>"
      "</valueList></right></relationalOperation></right></or></runIfQualification>";
  ZQFieldValueOrArithStruct one = {};
  one.tag = 2;
  one.u.value.dataType = 6;
  one.u.value.u.enumValue = 1;
  ZQQueryValueStruct inner = {};
  setArray(inner.formName, "F");
  inner.multipleMatchOption = 3;
  inner.queryQualification = arena.make(
      relation({7, field(1, 52), arithmetic({1, field(2), arithmetic({6, {}, field(3)})})}));
  const ZQQualifierStruct expected = fork(
      2,
      arena.make(fork(1, arena.make(relation({1, field(7), one})), arena.make(negated(bare(8))))),
      arena.make(relation({8, query(inner), listOf({1})})));
  expectRead(reader, document, expected);
  expectRead(reader, spacedOut(document), expected);
  expectRead(reader, inPieces(document), expected);
}

}  // namespace
