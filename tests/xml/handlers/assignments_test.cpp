// Assignments: where the new value of a field comes from.

#include <gtest/gtest.h>

#include "xml/handlers/Arena.h"
#include "xml/handlers/ElementReaders.h"
#include "xml/handlers/ElementTable.h"

namespace {

constexpr const char* kAssignmentHosts[] = {"fieldValue", "functionParameter", "inputValue", "left",
                                            "right",      "targetFieldValue"};

struct Word {
  const char* text;
  uint32_t number;
};

constexpr Word kNoMatch[] = {{"error", 1}, {"setNull", 2}, {"noAction", 3}, {"submit", 4}};
constexpr Word kMultiMatch[] = {{"error", 1},           {"setNull", 2},   {"useFirstMatch", 3},
                                {"displayPickList", 4}, {"modifyAll", 5}, {"noAction", 6}};
constexpr Word kArithmetic[] = {{"add", 1},    {"subtract", 2}, {"multiply", 3},
                                {"divide", 4}, {"modulo", 5},   {"negate", 6}};
constexpr Word kDDE[] = {{"execute", 1}, {"poke", 2}, {"request", 3}};
constexpr Word kFunctions[] = {{"date", 1},
                               {"time", 2},
                               {"month", 3},
                               {"day", 4},
                               {"year", 5},
                               {"workday", 6},
                               {"hour", 7},
                               {"minute", 8},
                               {"second", 9},
                               {"truncate", 10},
                               {"round", 11},
                               {"convert", 12},
                               {"length", 13},
                               {"upper", 14},
                               {"lower", 15},
                               {"substring", 16},
                               {"left", 17},
                               {"right", 18},
                               {"leftTrim", 19},
                               {"rightTrim", 20},
                               {"leftPad", 21},
                               {"rightPad", 22},
                               {"replace", 23},
                               {"strstr", 24},
                               {"min", 25},
                               {"max", 26},
                               {"columnSum", 27},
                               {"columnCount", 28},
                               {"columnAvg", 29},
                               {"columnMin", 30},
                               {"columnMax", 31},
                               {"dateAdd", 32},
                               {"dateDiff", 33},
                               {"dateName", 34},
                               {"dateNum", 35},
                               {"currencyConvert", 36},
                               {"currencySetDate", 37},
                               {"currencySetType", 38},
                               {"currencySetValue", 39}};

// An element within a host takes each word of a table and no other.
template <typename Reader, typename Words>
void expectWords(Reader& reader, const std::string& host, const std::string& element,
                 const Words& words, uint32_t Reader::Record::*member,
                 std::initializer_list<const char*> others) {
  const std::string start = "<" + host + "><" + element + ">";
  const std::string end = "</" + element + ">";
  for (const Word& word : words) {
    typename Reader::Record expected = {};
    expected.*member = word.number;
    expectRead(reader, start + word.text + end + "</" + host + ">", expected);
  }
  for (const std::string other : others) {
    expectRefused(reader, start + other + end + "@</" + host + ">", 8943);
  }
  expectRefused(reader, start + end + "@</" + host + ">", 8943);
}

class Assignments : public testing::Test {
 protected:
  ZQAssignStruct constant(const std::string& text) {
    ZQAssignStruct assignment = {};
    assignment.assignType = 1;
    assignment.u.value.dataType = 4;
    assignment.u.value.u.characterValue = arena.text(text);
    return assignment;
  }

  ZQAssignStruct process(const std::string& text) {
    ZQAssignStruct assignment = {};
    assignment.assignType = 3;
    assignment.u.process = arena.text(text);
    return assignment;
  }

  template <typename Source>
  ZQAssignStruct source(uint32_t type, const Source& record) {
    ZQAssignStruct assignment = {};
    assignment.assignType = type;
    assignment.u.field = reinterpret_cast<ZQAssignFieldStruct*>(arena.make(record));
    return assignment;
  }

  static std::string constantElement(const std::string& text) {
    return "<value><characterValue>" + text + "</characterValue></value>";
  }

  void expectAssignment(const std::string& content, const ZQAssignStruct& expected,
                        const std::string& host = "fieldValue") {
    const std::string document = "<" + host + ">" + content + "</" + host + ">";
    expectRead(reader, document, expected);
    expectRead(reader, spacedOut(document), expected);
    expectRead(reader, inPieces(document), expected);
  }

  struct Kind {
    std::string xml;
    ZQAssignStruct alone;
  };

  std::vector<Kind> kinds() {
    ZQAssignFieldStruct field = {};
    field.tag = 1;
    field.u.fieldId = 8;
    field.qualifier.operation = 5;
    field.qualifier.u.fieldId = 3;
    const ZQDDEStruct dde = {arena.text("s"), nullptr, nullptr, 0, nullptr, nullptr};
    ZQAssignSQLStruct sql = {};
    sql.sqlCommand = arena.text("q");
    ZQAssignFilterApiStruct call = {};
    call.numItems = 1;
    call.inputValues = arena.array({constant("i")});
    return {
        {constantElement("a"), constant("a")},
        {"<field><fieldID>8</fieldID><qualification><fieldID>3</fieldID></qualification></field>",
         source(2, field)},
        {"<process><command>c</command></process>", process("c")},
        {"<arithmetic><operation>add</operation><left>" + constantElement("l") +
             "</left></arithmetic>",
         source(4, ZQArithOpAssignStruct{1, constant("l"), {}})},
        {"<function><functionParameterList><functionParameter>" + constantElement("p") +
             "</functionParameter></functionParameterList></function>",
         source(5, ZQFunctionAssignStruct{0, 1, arena.array({constant("p")})})},
        {"<dde><serviceName>s</serviceName></dde>", source(6, dde)},
        {"<sql><sqlCommand>q</sqlCommand></sql>", source(7, sql)},
        {"<filterAPI><inputValueList><inputValue>" + constantElement("i") +
             "</inputValue></inputValueList></filterAPI>",
         source(8, call)},
    };
  }

  Arena arena;
  AssignReader reader;
};

TEST_F(Assignments, EachSourceInEachHost) {
  for (const std::string host : kAssignmentHosts) {
    expectAssignment("", {}, host);
    expectAssignment("text", {}, host);
    for (const Kind& kind : kinds()) {
      expectAssignment(kind.xml, kind.alone, host);
    }
  }
}

TEST_F(Assignments, EmptySources) {
  expectAssignment("<field/>", source(2, ZQAssignFieldStruct{}));
  expectAssignment("<function/>", source(5, ZQFunctionAssignStruct{}));
  expectAssignment("<dde/>", source(6, ZQDDEStruct{}));
  expectAssignment("<sql/>", source(7, ZQAssignSQLStruct{}));
  expectAssignment("<filterAPI/>", source(8, ZQAssignFilterApiStruct{}));
  ZQAssignStruct null = {};
  null.assignType = 1;
  expectAssignment("<value/>", null);
  // The word of an operation has to be there, at the end of the host.
  expectRefused(reader, "<fieldValue><arithmetic></arithmetic>@</fieldValue>", 8943);
  expectRefused(reader, "<fieldValue><arithmetic><operation/></arithmetic>@</fieldValue>", 8943);
}

TEST_F(Assignments, Processes) {
  expectAssignment("<process><command/></process>", process(""));
  expectAssignment("<process/>", {});
  expectAssignment("<process>text</process>", {});
  expectAssignment("<process>x<command>a</command>y<command>b</command>z</process>", process("ab"));
  expectAssignment("<command>a</command>", process("a"));
  expectAssignment(constantElement("a") + "<process/>", constant("a"));
  // Nothing is left for the next assignment.
  expectAssignment("<process><command>c</command></process>", process("c"));
}

// The pointer of one source is never taken for that of another.
TEST_F(Assignments, TheLaterSourceCounts) {
  for (const Kind& first : kinds()) {
    for (const Kind& second : kinds()) {
      if (first.alone.assignType == 3 && second.alone.assignType == 3) {
        continue;
      }
      expectAssignment(first.xml + second.xml, second.alone);
      expectAssignment(first.xml + second.xml + first.xml,
                       first.alone.assignType == 3 ? process("cc") : first.alone);
    }
  }
  expectAssignment("<process><command>a" + constantElement("b") + "c</command></process>",
                   process("ac"));
}

TEST_F(Assignments, AHostWithinAHostEndsTheHandler) {
  for (const std::string host : kAssignmentHosts) {
    for (const std::string inner : kAssignmentHosts) {
      expectRefused(reader, "<" + host + "><" + inner + "></" + inner + "></" + host + ">@", 8941,
                    host);
    }
  }
  for (const std::string source : {"field", "arithmetic", "function", "dde", "sql", "filterAPI"}) {
    const std::string content = source == "arithmetic" ? "<operation>add</operation>" : "";
    expectRefused(reader,
                  "<fieldValue><" + source + "><" + source + ">" + content + "</" + source + "></" +
                      source + ">@</fieldValue>",
                  8941, source);
  }
}

TEST_F(Assignments, ChildrenOfAFieldInAnyOrder) {
  AssignFieldReader fields;
  using Effect = Child<ZQAssignFieldStruct>::Effect;
  const auto server = [](const char* text) -> Effect {
    return [text](ZQAssignFieldStruct& f) { setArray(f.serverName, text); };
  };
  const auto form = [](const char* text) -> Effect {
    return [text](ZQAssignFieldStruct& f) { setArray(f.formName, text); };
  };
  const auto id = [](uint32_t number) -> Effect {
    return [number](ZQAssignFieldStruct& f) {
      f.tag = 1;
      f.u.fieldId = number;
    };
  };
  for (const std::string host : {"field", "targetField"}) {
    const std::string start = "<" + host + ">";
    const std::string end = "</" + host + ">";
    ElementTable<AssignFieldReader>(
        fields, start, end,
        {{"<serverName>s</serverName>", server("s"), server("ss")},
         {"<formName>F</formName>", form("F"), form("FF")},
         {"<qualification><not><fieldID>3</fieldID></not></qualification>",
          [&](ZQAssignFieldStruct& f) {
            f.qualifier.operation = 3;
            ZQQualifierStruct below = {};
            below.operation = 5;
            below.u.fieldId = 3;
            f.qualifier.u.notQualifier = arena.make(below);
          }},
         {"<fieldID>8</fieldID>", id(8), id(88)}})
        .expectAll();
    const auto history = [](uint32_t state, uint32_t info) {
      ZQAssignFieldStruct f = {};
      f.tag = 4;
      f.u.statHistory = {state, info};
      return f;
    };
    const auto status = [&](const std::string& content) {
      return start + "<statusHistoryValue>" + content + "</statusHistoryValue>" + end;
    };
    expectRead(fields, status(""), history(0, 0));
    expectRead(fields, status("x<statusState>3</statusState>x<statusInfo>user</statusInfo>x"),
               history(3, 1));
    expectRead(fields, status("<statusInfo>time</statusInfo><statusState>-1</statusState>"),
               history(4294967295, 2));
    expectRefused(
        fields,
        start + "<statusHistoryValue><statusInfo>x</statusInfo>@</statusHistoryValue>" + end, 8943);
    // Of the two kinds the later one counts, with nothing of the other.
    expectRead(fields,
               start +
                   "<fieldID>8</fieldID><statusHistoryValue><statusInfo>time</statusInfo>"
                   "</statusHistoryValue>" +
                   end,
               history(0, 2));
    ZQAssignFieldStruct expected = {};
    id(8)(expected);
    expectRead(fields,
               start +
                   "<statusHistoryValue><statusState>9</statusState><statusInfo>time"
                   "</statusInfo></statusHistoryValue><fieldID>8</fieldID>" +
                   end,
               expected);
    // Texts join over two, which no word stands.
    expectRead(fields,
               start +
                   "<statusHistoryValue><statusState>1</statusState></statusHistoryValue>"
                   "<statusHistoryValue><statusState>2</statusState></statusHistoryValue>" +
                   end,
               history(12, 0));
    // What has been stored stays.
    expectRead(fields,
               start +
                   "<statusHistoryValue><statusState>3</statusState></statusHistoryValue>"
                   "<statusHistoryValue><statusInfo>user</statusInfo></statusHistoryValue>" +
                   end,
               history(3, 1));
    expectRefused(fields,
                  start +
                      "<statusHistoryValue><statusInfo>user</statusInfo><statusInfo>user"
                      "</statusInfo>@</statusHistoryValue>" +
                      end,
                  8943);
    expectWords(fields, host, "noMatchOption", kNoMatch, &ZQAssignFieldStruct::noMatchOption,
                {"useFirstMatch", "modifyAll", "first", "Error", "1"});
    expectWords(fields, host, "multipleMatchOption", kMultiMatch,
                &ZQAssignFieldStruct::multipleMatchOption,
                {"submit", "first", "set", "Error", "1"});
  }
}

TEST_F(Assignments, LongNamesAreCut) {
  AssignFieldReader fields;
  ZQAssignFieldStruct field = {};
  setArray(field.serverName, std::string(64, 's'));
  setArray(field.formName, std::string(254, 'f'));
  expectRead(fields,
             "<field><serverName>" + std::string(100, 's') + "</serverName><formName>" +
                 std::string(300, 'f') + "</formName></field>",
             field);
  AssignSQLReader statements;
  ZQAssignSQLStruct sql = {};
  setArray(sql.serverName, std::string(64, 's'));
  expectRead(statements, "<sql><serverName>" + std::string(65, 's') + "</serverName></sql>", sql);
  FilterApiReader calls;
  ZQAssignFilterApiStruct call = {};
  setArray(call.serviceName, std::string(254, 's'));
  expectRead(calls,
             "<filterAPI><serviceName>" + std::string(255, 's') + "</serviceName></filterAPI>",
             call);
}

TEST_F(Assignments, Arithmetic) {
  AssignArithReader sums;
  ElementTable<AssignArithReader>(
      sums, "<arithmetic><operation>divide</operation>", "</arithmetic>",
      {{"<left>" + constantElement("l") + "</left>",
        [&](ZQArithOpAssignStruct& a) { a.operandLeft = constant("l"); }},
       {"<right>" + constantElement("r") + "</right>",
        [&](ZQArithOpAssignStruct& a) { a.operandRight = constant("r"); }}},
      {4, {}, {}})
      .expectAll();
  expectRead(sums,
             "<arithmetic>x<right>" + constantElement("r") +
                 "</right>x<operation>negate</operation>x</arithmetic>",
             {6, {}, constant("r")});
  // The later operand counts.
  expectRead(sums,
             "<arithmetic><left><process><command>a</command></process></left><left>" +
                 constantElement("l") + "</left><operation>add</operation></arithmetic>",
             {1, constant("l"), {}});
  for (const Word& word : kArithmetic) {
    expectRead(sums,
               std::string("<arithmetic><operation>") + word.text + "</operation></arithmetic>",
               {word.number, {}, {}});
  }
  // The words of relations are in the same table.
  expectRead(sums, "<arithmetic><operation>in</operation></arithmetic>", {8, {}, {}});
  for (const std::string text : {"", "plus", "Add", "1"}) {
    expectRefused(sums, "<arithmetic><operation>" + text + "</operation></arithmetic>@", 8943);
  }
  expectRefused(sums, "<arithmetic></arithmetic>@", 8943);
  expectRefused(sums, "<arithmetic><left><right/></left>@</arithmetic>", 8941, "left");
}

TEST_F(Assignments, Functions) {
  FunctionReader functions;
  expectWords(functions, "function", "functionType", kFunctions,
              &ZQFunctionAssignStruct::functionCode, {"Date", "none", "40", "submit"});
  const auto parameter = [&](const std::string& text) {
    return "<functionParameter>" + constantElement(text) + "</functionParameter>";
  };
  const auto list = [](const std::string& content) {
    return "<functionParameterList>" + content + "</functionParameterList>";
  };
  const auto expected = [&](uint32_t code, std::initializer_list<ZQAssignStruct> parameters) {
    ZQFunctionAssignStruct function = {code, static_cast<uint32_t>(parameters.size()), nullptr};
    if (parameters.size() > 0) {
      function.parameterList = arena.array(parameters);
    }
    return function;
  };
  ElementTable<FunctionReader>(
      functions, "<function>", "</function>",
      {{"<functionType>min</functionType>", [](ZQFunctionAssignStruct& f) { f.functionCode = 25; }},
       {list(parameter("a") + parameter("b")),
        [&](ZQFunctionAssignStruct& f) {
          f.numItems = 2;
          f.parameterList = arena.array({constant("a"), constant("b")});
        }}})
      .expectEverySelection();
  expectRead(functions,
             "<function>x" + list("x" + parameter("a") + "x") +
                 "<functionType>max</functionType>x</function>",
             expected(26, {constant("a")}));
  expectRead(functions, "<function>" + list("") + "</function>", {});
  // The later list counts, also an empty one.
  expectRead(functions, "<function>" + list(parameter("a")) + list(parameter("b")) + "</function>",
             expected(0, {constant("b")}));
  expectRead(functions, "<function>" + list(parameter("a")) + list("") + "</function>", {});
  // Parameters outside a list wait for one.
  expectRead(functions, "<function>" + parameter("a") + list(parameter("b")) + "</function>",
             expected(0, {constant("a"), constant("b")}));
  expectRead(functions, "<function>" + list(parameter("a")) + parameter("b") + "</function>",
             expected(0, {constant("a")}));
  expectRead(functions, "<function>" + list("") + "</function>", {});
  // Functions of functions.
  expectRead(functions,
             "<function>" +
                 list("<functionParameter><function><functionType>upper</functionType>" +
                      list(parameter("a")) + "</function></functionParameter>" + parameter("b")) +
                 "</function>",
             expected(0, {source(5, expected(14, {constant("a")})), constant("b")}));
  expectRefused(functions,
                "<function><functionParameterList><functionParameter><left/></functionParameter>@"
                "</functionParameterList></function>",
                8941, "functionParameter");
}

TEST_F(Assignments, FilterApiCalls) {
  FilterApiReader calls;
  using Effect = Child<ZQAssignFilterApiStruct>::Effect;
  const auto service = [](const char* text) -> Effect {
    return [text](ZQAssignFilterApiStruct& c) { setArray(c.serviceName, text); };
  };
  const auto index = [](uint32_t number) -> Effect {
    return [number](ZQAssignFilterApiStruct& c) { c.valueIndex = number; };
  };
  const auto inputs = [&](const std::string& text) {
    return "<inputValueList><inputValue>" + constantElement(text) +
           "</inputValue></inputValueList>";
  };
  ElementTable<FilterApiReader>(calls, "<filterAPI>", "</filterAPI>",
                                {{"<serviceName>s</serviceName>", service("s"), service("ss")},
                                 {inputs("i"),
                                  [&](ZQAssignFilterApiStruct& c) {
                                    c.numItems = 1;
                                    c.inputValues = arena.array({constant("i")});
                                  }},
                                 {"<valueIndex>2</valueIndex>", index(2), index(22)}})
      .expectAll();
  ZQAssignFilterApiStruct expected = {};
  expected.valueIndex = 4294967295;
  expectRead(calls,
             "<filterAPI>x<valueIndex>-1</valueIndex><inputValueList>x</inputValueList>x"
             "</filterAPI>",
             expected);
  expected = {};
  expected.numItems = 1;
  expected.inputValues = arena.array({constant("b")});
  expectRead(calls, "<filterAPI>" + inputs("a") + inputs("b") + "</filterAPI>", expected);
  expectRead(calls, "<filterAPI>" + inputs("a") + "<inputValueList/></filterAPI>", {});
  expectRead(calls, "<filterAPI><inputValue>" + constantElement("a") + "</inputValue></filterAPI>",
             {});
  expectRead(calls, "<filterAPI/>", {});
}

TEST_F(Assignments, SQLStatements) {
  AssignSQLReader statements;
  using Effect = Child<ZQAssignSQLStruct>::Effect;
  const auto server = [](const char* text) -> Effect {
    return [text](ZQAssignSQLStruct& s) { setArray(s.serverName, text); };
  };
  const auto command = [&](const char* text) -> Effect {
    return [this, text](ZQAssignSQLStruct& s) { s.sqlCommand = arena.text(text); };
  };
  const auto index = [](uint32_t number) -> Effect {
    return [number](ZQAssignSQLStruct& s) { s.valueIndex = number; };
  };
  ElementTable<AssignSQLReader>(statements, "<sql>", "</sql>",
                                {{"<serverName>s</serverName>", server("s"), server("ss")},
                                 {"<sqlCommand>c</sqlCommand>", command("c"), command("cc")},
                                 {"<valueIndex>3</valueIndex>", index(3), index(33)}})
      .expectAll();
  ZQAssignSQLStruct expected = {};
  expected.valueIndex = 4294967294;
  expected.sqlCommand = arena.text("");
  expectRead(statements, "<sql>x<sqlCommand/><valueIndex>-2</valueIndex>x</sql>", expected);
  expectWords(statements, "sql", "noMatchOption", kNoMatch, &ZQAssignSQLStruct::noMatchOption,
              {"useFirstMatch", "first"});
  expectWords(statements, "sql", "multipleMatchOption", kMultiMatch,
              &ZQAssignSQLStruct::multipleMatchOption, {"submit", "set"});
}

TEST_F(Assignments, DDEConversations) {
  DDEReader conversations;
  std::vector<Child<ZQDDEStruct>> children;
  const std::pair<const char*, char * ZQDDEStruct::*> texts[] = {
      {"serviceName", &ZQDDEStruct::serviceName},
      {"topic", &ZQDDEStruct::topic},
      {"item", &ZQDDEStruct::item},
      {"pathToProgram", &ZQDDEStruct::pathToProgram},
      {"command", &ZQDDEStruct::command}};
  for (const auto& row : texts) {
    const std::string name = row.first;
    const auto member = row.second;
    children.push_back(
        {"<" + name + ">" + name + "</" + name + ">",
         [this, name, member](ZQDDEStruct& d) { d.*member = arena.text(name); },
         [this, name, member](ZQDDEStruct& d) { d.*member = arena.text(name + name); }});
    ZQDDEStruct expected = {};
    expected.*member = arena.text("");
    expectRead(conversations, "<dde>x<" + name + "/>x</dde>", expected);
  }
  ElementTable<DDEReader>(conversations, "<dde>", "</dde>", children).expectAll();
  expectWords(conversations, "dde", "action", kDDE, &ZQDDEStruct::action, {"Execute", "open", "1"});
}

TEST_F(Assignments, FieldsWithTheirValues) {
  FieldAssignReader fieldAssigns;
  FieldAssignListReader lists;
  constexpr const char* kItems[] = {"inputField", "outputField", "setField"};
  constexpr const char* kLists[] = {"inputFieldList", "outputFieldList", "setFieldList"};
  for (const std::string item : kItems) {
    ElementTable<FieldAssignReader>(
        fieldAssigns, "<" + item + ">x", "</" + item + ">",
        {{"<fieldID>7</fieldID>", [](ZQFieldAssignStruct& f) { f.fieldId = 7; },
          [](ZQFieldAssignStruct& f) { f.fieldId = 77; }},
         {"<fieldValue>" + constantElement("a") + "</fieldValue>",
          [&](ZQFieldAssignStruct& f) { f.assignment = constant("a"); }}})
        .expectAll();
    expectRead(fieldAssigns, "<" + item + "><fieldID>-1</fieldID></" + item + ">",
               {4294967295, {}});
    expectRefused(fieldAssigns, "<" + item + "><fieldValue><left/></fieldValue>@</" + item + ">",
                  8941, "fieldValue");
    for (const std::string list : kLists) {
      const auto entry = [&](const std::string& content) {
        return "<" + item + ">" + content + "</" + item + ">";
      };
      const std::string start = "<" + list + ">";
      const std::string end = "</" + list + ">";
      expectRead(lists, start + end, {});
      expectRead(lists, start + "text" + end, {});
      const std::string document = start + entry("<fieldID>1</fieldID>") + entry("") +
                                   "<setField><fieldID>2</fieldID><fieldValue>" +
                                   constantElement("b") + "</fieldValue></setField>" + end;
      const auto expected =
          arena.list<ZQFieldAssignList>({ZQFieldAssignStruct{1, {}}, {}, {2, constant("b")}});
      expectRead(lists, document, expected);
      expectRead(lists, spacedOut(document), expected);
      expectRead(lists, inPieces(document), expected);
      expectRefused(lists, start + "<" + list + "></" + list + ">" + end + "@", 8941, list);
      expectRefused(lists,
                    start + "<" + item + "><" + item + "></" + item + "></" + item + ">@" + end,
                    8941, item);
    }
  }
}

}  // namespace
