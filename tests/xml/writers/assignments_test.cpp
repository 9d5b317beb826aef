#include "xml/writers/assignments.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "xml/DOMTree.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/Written.h"

namespace {

ZQAssignStruct constant(int32_t number) {
  ZQAssignStruct assignment = {};
  assignment.assignType = 1;
  assignment.u.value.dataType = 2;
  assignment.u.value.u.integerValue = number;
  return assignment;
}

std::string inside(const std::string& name, const std::string& content) {
  return content.empty() ? "<" + name + "/>" : "<" + name + ">" + content + "</" + name + ">";
}

std::string constantIn(const std::string& host, int32_t number) {
  return inside(host, inside("value", inside("integerValue", std::to_string(number))));
}

void expectAssignment(const ZQAssignStruct& assignment, const std::string& content) {
  SCOPED_TRACE(content);
  expectRecord(writeAssignment, CreateAssignmentNode, &assignment, content);
}

// The same source by its own writer and inside an assignment of the type.
template <typename Record>
void expectSource(uint32_t type, const char* host, Record* record,
                  int (*write)(ElementSink&, const Record*),
                  int (*build)(xercesc::DOMDocument*, xercesc::DOMElement*, const Record*),
                  const std::string& content) {
  SCOPED_TRACE(content);
  expectRecord<Record>(write, build, record, content);
  ZQAssignStruct assignment = {};
  assignment.assignType = type;
  memcpy(&assignment.u, &record, sizeof record);
  expectAssignment(assignment, inside(host, content));
}

TEST(AssignmentWriter, TypesWithoutAnElementWriteNothing) {
  for (const uint32_t type : {0U, 9U, 0xFFFFFFFFU}) {
    ZQAssignStruct assignment = constant(1);
    assignment.assignType = type;
    expectAssignment(assignment, "");
  }
}

TEST(AssignmentWriter, Constants) {
  expectAssignment(constant(-5), inside("value", inside("integerValue", "-5")));
  ZQAssignStruct assignment = constant(0);
  assignment.u.value.dataType = 0;
  expectAssignment(assignment, "<value><nullValue/></value>");
  assignment.u.value.dataType = 99;
  expectAssignment(assignment, "<value/>");
}

TEST(AssignmentWriter, Processes) {
  ZQAssignStruct assignment = {};
  assignment.assignType = 3;
  assignment.u.process = mutableText("ls > x");
  expectAssignment(assignment, "<process><command>ls &gt; x</command></process>");
  assignment.u.process = mutableText("");
  expectAssignment(assignment, "<process><command/></process>");
  assignment.u.process = nullptr;
  expectAssignment(assignment, "<process><command/></process>");
}

TEST(AssignmentWriter, NullSourcesLeaveTheirElementEmpty) {
  const char* const kHosts[] = {"field", nullptr, "arithmetic", "function",
                                "dde",   "sql",   "filterAPI"};
  for (uint32_t type = 2; type <= 8; ++type) {
    if (type != 3) {
      ZQAssignStruct assignment = {};
      assignment.assignType = type;
      expectAssignment(assignment, inside(kHosts[type - 2], ""));
    }
  }
}

const std::string kOptions =
    "<noMatchOption>error</noMatchOption><multipleMatchOption>setNull</multipleMatchOption>";

ZQAssignFieldStruct fieldOfForm() {
  ZQAssignFieldStruct field = {};
  memcpy(field.serverName, "srv", 4);
  memcpy(field.formName, "Form", 5);
  field.tag = 1;
  field.u.fieldId = 7;
  field.noMatchOption = 1;
  field.multipleMatchOption = 2;
  return field;
}

void expectField(ZQAssignFieldStruct& field, const std::string& content) {
  expectSource(2, "field", &field, writeAssignField, CreateAssignFieldNode, content);
}

TEST(AssignmentWriter, Fields) {
  const std::string head = "<serverName>srv</serverName><formName>Form</formName>";
  ZQAssignFieldStruct field = fieldOfForm();
  expectField(field, head + "<fieldID>7</fieldID>" + kOptions);
  field.u.fieldId = 4294967295U;
  expectField(field, head + "<fieldID>-1</fieldID>" + kOptions);
  field.tag = 4;
  field.u.statHistory = {3, 1};
  expectField(field, head +
                         "<statusHistoryValue><statusState>3</statusState>"
                         "<statusInfo>user</statusInfo></statusHistoryValue>" +
                         kOptions);
  for (const uint32_t tag : {0U, 2U, 6U, 99U}) {
    field.tag = tag;
    expectField(field, head + kOptions);
  }
}

TEST(AssignmentWriter, TheConditionOfAField) {
  ZQAssignFieldStruct field = fieldOfForm();
  field.serverName[0] = '\0';
  field.formName[0] = '\0';
  field.qualifier.operation = 5;
  field.qualifier.u.fieldId = 8;
  const std::string end = "<fieldID>7</fieldID>" + kOptions;
  expectField(field,
              "<serverName/><formName/><qualification><fieldID>8</fieldID></qualification>" + end);
  field.qualifier.operation = 77;
  expectField(field, "<serverName/><formName/><qualification/>" + end);
  field.qualifier.operation = 0;
  expectField(field, "<serverName/><formName/>" + end);
}

TEST(AssignmentWriter, NamesOfAFieldWithoutTheirZeroAreCut) {
  ZQAssignFieldStruct field = fieldOfForm();
  memset(field.serverName, 's', sizeof field.serverName);
  memset(field.formName, 'f', sizeof field.formName);
  expectField(field, inside("serverName", std::string(64, 's')) +
                         inside("formName", std::string(254, 'f')) + "<fieldID>7</fieldID>" +
                         kOptions);
}

void expectOptionText(int (*build)(xercesc::DOMDocument*, xercesc::DOMElement*, uint32_t),
                      uint32_t option, const std::string& word) {
  EXPECT_EQ(builtText([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
              return build(document, parent, option);
            }),
            inside("root", word) + "\n");
}

TEST(AssignmentWriter, MatchOptions) {
  const char* const kNoMatch[] = {"", "error", "setNull", "noAction", "submit", ""};
  const char* const kMultiple[] = {
      "", "error", "setNull", "useFirstMatch", "displayPickList", "modifyAll", "noAction", ""};
  ZQAssignFieldStruct field = fieldOfForm();
  field.multipleMatchOption = 0;
  const std::string head =
      "<serverName>srv</serverName><formName>Form</formName><fieldID>7</fieldID>";
  for (uint32_t option = 0; option < 6; ++option) {
    field.noMatchOption = option;
    expectField(field, head + inside("noMatchOption", kNoMatch[option]) + "<multipleMatchOption/>");
    expectOptionText(CreateNoMatchOptionTextNode, option, kNoMatch[option]);
  }
  for (uint32_t option = 0; option < 8; ++option) {
    field.noMatchOption = 0xFFFFFFFF;
    field.multipleMatchOption = option;
    expectField(field,
                head + "<noMatchOption/>" + inside("multipleMatchOption", kMultiple[option]));
    expectOptionText(CreateMultipleMatchOptionTextNode, option, kMultiple[option]);
  }
}

TEST(AssignmentWriter, Arithmetic) {
  const char* const kWords[] = {"",       "add",    "subtract", "multiply",
                                "divide", "modulo", "negate",   ""};
  for (uint32_t number = 0; number < 8; ++number) {
    ZQArithOpAssignStruct arithmetic = {number, constant(1), constant(2)};
    expectSource(4, "arithmetic", &arithmetic, writeArithOpAssign, CreateArithOpAssignNode,
                 inside("operation", kWords[number]) + (number == 6 ? "" : constantIn("left", 1)) +
                     constantIn("right", 2));
  }
}

TEST(AssignmentWriter, Functions) {
  const char* const kWords[] = {"",
                                "date",
                                "time",
                                "month",
                                "day",
                                "year",
                                "workday",
                                "hour",
                                "minute",
                                "second",
                                "truncate",
                                "round",
                                "convert",
                                "length",
                                "upper",
                                "lower",
                                "substring",
                                "left",
                                "right",
                                "leftTrim",
                                "rightTrim",
                                "leftPad",
                                "rightPad",
                                "replace",
                                "strstr",
                                "min",
                                "max",
                                "columnSum",
                                "columnCount",
                                "columnAvg",
                                "columnMin",
                                "columnMax",
                                "dateAdd",
                                "dateDiff",
                                "dateName",
                                "dateNum",
                                "currencyConvert",
                                "currencySetDate",
                                "currencySetType",
                                "currencySetValue",
                                ""};
  for (uint32_t code = 0; code < 41; ++code) {
    ZQFunctionAssignStruct function = {code, 0, nullptr};
    expectSource(5, "function", &function, writeFunctionAssign, CreateFunctionAssignNode,
                 inside("functionType", kWords[code]));
  }
}

TEST(AssignmentWriter, ParametersOfAFunction) {
  ZQAssignStruct parameters[] = {constant(1), {}, constant(2)};
  ZQFunctionAssignStruct function = {1, 3, parameters};
  const std::string head = "<functionType>date</functionType>";
  const auto expectContent = [&](const std::string& content) {
    expectSource(5, "function", &function, writeFunctionAssign, CreateFunctionAssignNode,
                 head + content);
  };
  expectContent(inside("functionParameterList", constantIn("functionParameter", 1) +
                                                    "<functionParameter/>" +
                                                    constantIn("functionParameter", 2)));
  function.numItems = 0;
  expectContent("");
  function = {1, 3, nullptr};
  expectContent("<functionParameterList/>");
}

TEST(AssignmentWriter, DDE) {
  const char* const kActions[] = {"", "execute", "poke", "request", ""};
  for (uint32_t action = 0; action < 5; ++action) {
    ZQDDEStruct dde = {};
    dde.action = action;
    expectSource(6, "dde", &dde, writeDDE, CreateDDENode, inside("action", kActions[action]));
  }
  ZQDDEStruct dde = {mutableText("s"), mutableText("t"), mutableText("i"), 2,
                     mutableText("p"), mutableText("c")};
  expectSource(6, "dde", &dde, writeDDE, CreateDDENode,
               "<serviceName>s</serviceName><topic>t</topic><item>i</item><action>poke</action>"
               "<pathToProgram>p</pathToProgram><command>c</command>");
  char* empty = mutableText("");
  dde = {empty, empty, empty, 1, empty, empty};
  expectSource(6, "dde", &dde, writeDDE, CreateDDENode,
               "<serviceName/><topic/><item/><action>execute</action><pathToProgram/><command/>");
}

TEST(AssignmentWriter, SQL) {
  ZQAssignSQLStruct sql = {"srv", mutableText("select 1 < 2"), 4294967295U, 4, 6};
  expectSource(7, "sql", &sql, writeAssignSQL, CreateAssignSQLNode,
               "<serverName>srv</serverName><sqlCommand>select 1 &lt; 2</sqlCommand>"
               "<valueIndex>-1</valueIndex><noMatchOption>submit</noMatchOption>"
               "<multipleMatchOption>noAction</multipleMatchOption>");
  sql = {};
  expectSource(7, "sql", &sql, writeAssignSQL, CreateAssignSQLNode,
               "<serverName/><sqlCommand/><valueIndex>0</valueIndex><noMatchOption/>"
               "<multipleMatchOption/>");
  memset(sql.serverName, 's', sizeof sql.serverName);
  expectSource(7, "sql", &sql, writeAssignSQL, CreateAssignSQLNode,
               inside("serverName", std::string(64, 's')) +
                   "<sqlCommand/><valueIndex>0</valueIndex><noMatchOption/>"
                   "<multipleMatchOption/>");
}

TEST(AssignmentWriter, FilterAPIs) {
  ZQAssignStruct inputs[] = {constant(1), constant(2)};
  ZQAssignFilterApiStruct api = {"plugin", 2, inputs, 3};
  const auto expectContent = [&](const std::string& content) {
    expectSource(8, "filterAPI", &api, writeFilterApi, CreateFilterApiNode, content);
  };
  expectContent(
      "<serviceName>plugin</serviceName>" +
      inside("inputValueList", constantIn("inputValue", 1) + constantIn("inputValue", 2)) +
      "<valueIndex>3</valueIndex>");
  api.numItems = 0;
  api.valueIndex = 0x80000000;
  expectContent("<serviceName>plugin</serviceName><valueIndex>-2147483648</valueIndex>");
  api.numItems = 2;
  api.inputValues = nullptr;
  api.serviceName[0] = '\0';
  api.valueIndex = 0;
  expectContent("<serviceName/><valueIndex>0</valueIndex>");
  memset(api.serviceName, 's', sizeof api.serviceName);
  expectContent(inside("serviceName", std::string(254, 's')) + "<valueIndex>0</valueIndex>");
}

TEST(AssignmentWriter, FieldsWithTheirValues) {
  ZQFieldAssignStruct assigns[] = {{7, constant(1)}, {4294967295U, {}}};
  expectRecord(writeFieldAssign, CreateFieldAssignNode, &assigns[0],
               "<fieldID>7</fieldID>" + constantIn("fieldValue", 1));
  expectRecord(writeFieldAssign, CreateFieldAssignNode, &assigns[1],
               "<fieldID>-1</fieldID><fieldValue/>");
  ZQFieldAssignList list = {2, assigns};
  const auto writeList = [&](ElementSink& sink) {
    return writeFieldAssignList(sink, tag_inputField, &list);
  };
  expectWritten(writeList, nullptr,
                inside("inputField", "<fieldID>7</fieldID>" + constantIn("fieldValue", 1)) +
                    "<inputField><fieldID>-1</fieldID><fieldValue/></inputField>");
  list.items = nullptr;
  expectWritten(writeList, nullptr, "");
}

TEST(AssignmentWriter, PushedFields) {
  ZQPushFieldsStruct push = {fieldOfForm(), constant(1)};
  expectRecord(writePushField, CreatePushFieldNode, &push,
               inside("targetField",
                      "<serverName>srv</serverName><formName>Form</formName>"
                      "<fieldID>7</fieldID>" +
                          kOptions) +
                   constantIn("targetFieldValue", 1));
}

TEST(AssignmentWriter, NullRecordsWriteNothing) {
  expectRecord<ZQAssignStruct>(writeAssignment, CreateAssignmentNode, nullptr, "");
  expectRecord<ZQAssignFieldStruct>(writeAssignField, CreateAssignFieldNode, nullptr, "");
  expectRecord<ZQArithOpAssignStruct>(writeArithOpAssign, CreateArithOpAssignNode, nullptr, "");
  expectRecord<ZQFunctionAssignStruct>(writeFunctionAssign, CreateFunctionAssignNode, nullptr, "");
  expectRecord<ZQDDEStruct>(writeDDE, CreateDDENode, nullptr, "");
  expectRecord<ZQAssignSQLStruct>(writeAssignSQL, CreateAssignSQLNode, nullptr, "");
  expectRecord<ZQAssignFilterApiStruct>(writeFilterApi, CreateFilterApiNode, nullptr, "");
  expectRecord<ZQFieldAssignStruct>(writeFieldAssign, CreateFieldAssignNode, nullptr, "");
  expectRecord<ZQPushFieldsStruct>(writePushField, CreatePushFieldNode, nullptr, "");
}

TEST(AssignmentWriter, SourcesNest) {
  constexpr size_t kDepth = 1000;
  std::vector<ZQArithOpAssignStruct> levels(kDepth);
  std::string expected = constantIn("right", 1);
  for (size_t i = 0; i < kDepth; ++i) {
    levels[i].operation = 6;
    levels[i].operandRight = constant(1);
    if (i + 1 < kDepth) {
      levels[i].operandRight.assignType = 4;
      levels[i].operandRight.u.arithOp = &levels[i + 1];
    }
  }
  for (size_t i = 1; i < kDepth; ++i) {
    expected = inside("right", inside("arithmetic", "<operation>negate</operation>" + expected));
  }
  expectRecord(writeArithOpAssign, CreateArithOpAssignNode, levels.data(),
               "<operation>negate</operation>" + expected);
}

// Failures of the encoding of bytes, which is what a result other than 0 can come from.
class FailedEncoding : public testing::Test {
 protected:
  FailedEncoding() {
    bytes.assignType = 1;
    bytes.u.value.dataType = 9;
    bytes.u.value.u.byteList = &list;
  }

  // Builds with each allocation failing in turn: whether there was a run that gave 0 all the same,
  // and so wrote less.
  static bool isDropped(const ZQAssignStruct& assignment) {
    bool dropped = false;
    fault::forEachFailure([&](auto arm) {
      const DOMTree tree("root");
      int result = 0;
      bool failed = false;
      {
        const auto failing = arm();
        result = CreateAssignmentNode(tree.get(), tree.root(), &assignment);
        failed = fault::FailingAllocations::happened();
      }
      EXPECT_TRUE(result == 0 || (failed && result == 300)) << result;
      dropped = dropped || (failed && result == 0);
      return failed;
    });
    return dropped;
  }

  unsigned char data[3] = {'M', 'a', 'n'};
  ZQByteList list = {0, 3, data};
  ZQAssignStruct bytes = {};
};

TEST_F(FailedEncoding, OfAConstantIsTheResult) {
  EXPECT_FALSE(isDropped(bytes));
}

TEST_F(FailedEncoding, InTheConditionOfAFieldIsTheResult) {
  ZQRelOpStruct relation = {};
  relation.operandLeft.tag = 2;
  relation.operandLeft.u.value = bytes.u.value;
  ZQAssignFieldStruct field = fieldOfForm();
  field.qualifier.operation = 4;
  field.qualifier.u.relationalOperation = &relation;
  ZQAssignStruct assignment = {};
  assignment.assignType = 2;
  assignment.u.field = &field;
  EXPECT_FALSE(isDropped(assignment));
}

TEST_F(FailedEncoding, BelowTheOtherSourcesIsDropped) {
  ZQAssignStruct assignment = {};
  ZQArithOpAssignStruct arithmetic = {6, {}, bytes};
  assignment.assignType = 4;
  assignment.u.arithOp = &arithmetic;
  EXPECT_TRUE(isDropped(assignment));
  ZQFunctionAssignStruct function = {1, 1, &bytes};
  assignment.assignType = 5;
  assignment.u.function = &function;
  EXPECT_TRUE(isDropped(assignment));
  ZQAssignFilterApiStruct api = {"", 1, &bytes, 0};
  assignment.assignType = 8;
  assignment.u.filterApi = &api;
  EXPECT_TRUE(isDropped(assignment));
}

TEST_F(FailedEncoding, IsTheResultOfTheWritersThemselves) {
  ZQArithOpAssignStruct arithmetic = {1, bytes, bytes};
  EXPECT_GT(expectFailuresGive300([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
              return CreateArithOpAssignNode(document, parent, &arithmetic);
            }),
            0);
  ZQFunctionAssignStruct function = {1, 1, &bytes};
  EXPECT_GT(expectFailuresGive300([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
              return CreateFunctionAssignNode(document, parent, &function);
            }),
            0);
  ZQPushFieldsStruct push = {fieldOfForm(), bytes};
  EXPECT_GT(expectFailuresGive300([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
              return CreatePushFieldNode(document, parent, &push);
            }),
            0);
}

}  // namespace
