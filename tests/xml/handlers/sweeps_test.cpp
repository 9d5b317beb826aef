// The whole vocabulary at each handler of values, conditions, assignments and automation.

#include <gtest/gtest.h>

#include "records/StatusLists.h"
#include "xml/Listing.h"
#include "xml/handlers/ElementReaders.h"
#include "xml/handlers/TagSweep.h"

namespace {

using enum Accepts;

template <typename Reader>
void sweep(const SweepPlace& place, const std::string& goodDocument) {
  Reader reader;
  TagSweep<Reader>(reader, place, goodDocument).expectAll();
}

constexpr const char* kTreeHosts =
    "qualification qualifier queryQualification dataQualification joinQualifier runIfQualification";

TEST(TagSweep, Value) {
  for (const std::string host : {"value", "referenceValue", "defaultValue"}) {
    sweep<ValueReader>(
        {"<" + host + ">",
         "</" + host + ">",
         {{Text,
           "keywordValue integerValue realValue characterValue l10nCharacterValue diaryValue "
           "enumValue timeValue maskValue decimalValue dateValue timeOfDayValue unsignedLongValue "
           "viewValue displayValue"},
          {Nothing, "nullValue attachmentValue currency coordinateList coordinate location"},
          {UnseenText,
           "attachmentData attachmentName bytes code conversionDate currencyValue fileName X Y"},
          {HostWord, "byteList"},
          {EndsHost, "value referenceValue defaultValue"}},
         {{"byteList", {"type"}}, {"attachmentValue", {"originalSize", "compressedSize"}}}},
        "<value><coordinateList><coordinate><X>1</X></coordinate></coordinateList></value>");
  }
}

TEST(TagSweep, ValueList) {
  sweep<ValueListReader>(
      {"<valueList>", "</valueList>", {{Nothing, "value"}, {EndsHost, "valueList"}}},
      "<valueList><value><integerValue>1</integerValue></value></valueList>");
}

TEST(TagSweep, AutomationValue) {
  sweep<COMValueReader>({"<parameterValue>",
                         "</parameterValue>",
                         {{Text, "valueIdentifier transID fieldID"},
                          {Nothing, "value"},
                          {EndsHost, "parameterValue methodReturnValue"}}},
                        "<methodReturnValue><transID>1</transID></methodReturnValue>");
}

TEST(TagSweep, Condition) {
  const std::string good = "<qualifier><not><fieldID>1</fieldID></not></qualifier>";
  sweep<QualReader>({"<qualification>",
                     "</qualification>",
                     {{Text, "fieldID"},
                      {Nothing, "and or not relationalOperation left right"},
                      {EndsHost, kTreeHosts}}},
                    good);
  sweep<QualReader>({"<joinQualifier><and>",
                     "</and></joinQualifier>",
                     {{Text, "fieldID"},
                      {Nothing, "and or not relationalOperation left right"},
                      {EndsHost, kTreeHosts}}},
                    good);
  // Branches have no place over another member.
  for (const std::string other : {"<not/>", "<relationalOperation/>", "<fieldID>1</fieldID>"}) {
    sweep<QualReader>(
        {"<dataQualification>" + other,
         "</dataQualification>",
         {{Text, "fieldID"}, {Nothing, "and or not relationalOperation"}, {EndsHost, kTreeHosts}}},
        good);
  }
}

TEST(TagSweep, RelationAndArithmetic) {
  sweep<RelOpReader>(
      {"<relationalOperation>",
       "</relationalOperation>",
       {{Word, "operation"}, {Nothing, "left right"}, {EndsHost, "relationalOperation"}}},
      "<relationalOperation><operation>in</operation></relationalOperation>");
  sweep<ArithReader>(
      {"<arithmeticOperation>",
       "</arithmeticOperation>",
       {{Word, "operation"}, {Nothing, "left right"}, {EndsHost, "arithmeticOperation"}}},
      "<arithmeticOperation><operation>add</operation></arithmeticOperation>");
}

TEST(TagSweep, Operand) {
  const std::string good = "<right><fieldID>1</fieldID></right>";
  sweep<OperandReader>(
      {"<left>",
       "</left>",
       {{Text, "fieldID transactionValueFieldID databaseValueFieldID currentValueFieldID variable"},
        {Nothing, "value valueList arithmeticOperation queryValue statusHistoryValue"},
        {UnseenText, "statusState"},
        {Word, "statusInfo"},
        {EndsHost, "left right"}}},
      good);
  sweep<OperandReader>(
      {"<right><statusHistoryValue>",
       "</statusHistoryValue></right>",
       {{Text,
         "fieldID transactionValueFieldID databaseValueFieldID currentValueFieldID variable "
         "statusState"},
        {Nothing, "value valueList arithmeticOperation queryValue statusHistoryValue"},
        {Word, "statusInfo"},
        {EndsHost, "left right"}}},
      good);
}

TEST(TagSweep, Query) {
  sweep<QueryReader>({"<queryValue>",
                      "</queryValue>",
                      {{Text, "formName serverName valueFieldID"},
                       {Nothing, "queryQualification"},
                       {Word, "multipleMatchOption"},
                       {EndsHost, "queryValue"}}},
                     "<queryValue><formName>F</formName></queryValue>");
}

TEST(TagSweep, FieldsWithTheirValues) {
  sweep<FieldAssignListReader>({"<setFieldList>",
                                "</setFieldList>",
                                {{Nothing, "inputField outputField setField"},
                                 {EndsHost, "inputFieldList outputFieldList setFieldList"}}},
                               "<setFieldList><setField><fieldID>1</fieldID></setField>"
                               "</setFieldList>");
  sweep<FieldAssignReader>(
      {"<setField>",
       "</setField>",
       {{Text, "fieldID"}, {Nothing, "fieldValue"}, {EndsHost, "inputField outputField setField"}}},
      "<inputField><fieldID>1</fieldID></inputField>");
}

TEST(TagSweep, Assignment) {
  sweep<AssignReader>(
      {"<fieldValue>",
       "</fieldValue>",
       {{Text, "command"},
        {Nothing, "process value field function dde sql filterAPI"},
        {Word, "arithmetic"},
        {EndsHost, "fieldValue functionParameter inputValue left right targetFieldValue"}}},
      "<inputValue><process><command>c</command></process></inputValue>");
}

TEST(TagSweep, AssignedField) {
  sweep<AssignFieldReader>({"<field>",
                            "</field>",
                            {{Text, "serverName formName fieldID"},
                             {UnseenText, "statusState"},
                             {Nothing, "qualification statusHistoryValue"},
                             {Word, "statusInfo noMatchOption multipleMatchOption"},
                             {EndsHost, "field targetField"}}},
                           "<targetField><fieldID>1</fieldID></targetField>");
}

TEST(TagSweep, AssignedArithmetic) {
  const std::string good = "<arithmetic><operation>modulo</operation></arithmetic>";
  sweep<AssignArithReader>(
      {"<arithmetic><operation>add</operation>",
       "</arithmetic>",
       {{Nothing, "left right"}, {EmptyOnly, "operation"}, {Word, "arithmetic"}}},
      good);
  sweep<AssignArithReader>(
      {"<arithmetic>", "</arithmetic>", {{HostWord, "left right operation"}, {Word, "arithmetic"}}},
      good);
}

TEST(TagSweep, AssignedFunction) {
  sweep<FunctionReader>({"<function>",
                         "</function>",
                         {{Word, "functionType"},
                          {Nothing, "functionParameterList functionParameter"},
                          {EndsHost, "function"}}},
                        "<function><functionType>round</functionType></function>");
}

TEST(TagSweep, FilterApiCall) {
  sweep<FilterApiReader>({"<filterAPI>",
                          "</filterAPI>",
                          {{Text, "serviceName valueIndex"},
                           {Nothing, "inputValueList inputValue"},
                           {EndsHost, "filterAPI"}}},
                         "<filterAPI><valueIndex>1</valueIndex></filterAPI>");
}

TEST(TagSweep, SQLAndDDE) {
  sweep<AssignSQLReader>({"<sql>",
                          "</sql>",
                          {{Text, "serverName sqlCommand valueIndex"},
                           {Word, "noMatchOption multipleMatchOption"},
                           {EndsHost, "sql"}}},
                         "<sql><sqlCommand>c</sqlCommand></sql>");
  sweep<DDEReader>({"<dde>",
                    "</dde>",
                    {{Text, "serviceName topic item pathToProgram command"},
                     {Word, "action"},
                     {EndsHost, "dde"}}},
                   "<dde><action>poke</action></dde>");
}

TEST(TagSweep, Automation) {
  sweep<AutomationReader>({"<oleAutomation>",
                           "</oleAutomation>",
                           {{Text, "automationServerName classID action"},
                            {Word, "visible"},
                            {Nothing, "comMethodList"},
                            {EndsHost, "oleAutomation"}}},
                          "<oleAutomation><visible>true</visible></oleAutomation>");
}

TEST(TagSweep, AutomationMethods) {
  const std::string good =
      "<comMethodList><comMethod><methodType>1</methodType></comMethod></comMethodList>";
  sweep<MethodListReader>({"<comMethodList>",
                           "</comMethodList>",
                           {{Nothing, "comMethod"}, {EndsHost, "comMethodList"}}},
                          good);
  sweep<MethodListReader>({"<comMethodList><comMethod>",
                           "</comMethod></comMethodList>",
                           {{Text, "methodName methodIdentifier methodType"},
                            {Nothing, "comMethod methodReturnValue methodParameterList"},
                            {EndsHost, "comMethodList"}}},
                          good);
}

TEST(TagSweep, AutomationParameters) {
  const std::string good =
      "<methodParameterList><methodParameter><parameterType>1</parameterType></methodParameter>"
      "</methodParameterList>";
  sweep<ParameterListReader>({"<methodParameterList>",
                              "</methodParameterList>",
                              {{Nothing, "methodParameter"}, {EndsHost, "methodParameterList"}}},
                             good);
  sweep<ParameterListReader>({"<methodParameterList><methodParameter>",
                              "</methodParameter></methodParameterList>",
                              {{Text, "parameterName parameterType"},
                               {Nothing, "methodParameter parameterValue"},
                               {EndsHost, "methodParameterList"}}},
                             good);
}

// The same words through one parser handle, which reads a good filter behind each.
TEST(TagSweep, PlacesOfAFilter) {
  struct FilterPlace {
    const char* before;
    const char* after;
    std::set<std::string> accepted;
    // Accepted at their start, and the end of a host then has no place.
    std::set<std::string> hosts;
  };
  const std::string start = "<root><filter><filterName>F</filterName>";
  const std::string end = "</filter></root>";
  const FilterPlace filterPlaces[] = {
      {"<runIfQualification><not>",
       "</not></runIfQualification>",
       {"and", "or", "not", "relationalOperation", "left", "right", "fieldID"},
       {"qualification", "qualifier", "queryQualification", "dataQualification", "joinQualifier",
        "runIfQualification"}},
      {"<runIfQualification><relationalOperation><left><valueList>",
       "</valueList></left></relationalOperation></runIfQualification>",
       {"value"},
       {"valueList"}},
      {"<elseActions><action><setFieldList><setField><fieldValue>",
       "</fieldValue></setField></setFieldList></action></elseActions>",
       {"process", "command", "value", "field", "function", "dde", "sql", "filterAPI"},
       {"arithmetic", "fieldValue", "functionParameter", "inputValue", "left", "right",
        "targetFieldValue"}},
  };
  ParserHandle handle;
  for (const FilterPlace& place : filterPlaces) {
    const std::string good = start + place.before + place.after + end;
    const auto parse = [&](std::string document, bool isGood, const std::string& expected) {
      const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
      ZQXMLParsedStream stream = {};
      OwnedStatusList status;
      EXPECT_EQ(ParseXMLDocument(&handle, &input, nullptr, &stream, nullptr, &status),
                isGood ? 0 : 2)
          << document;
      EXPECT_EQ(stream.objectList != nullptr, isGood) << document;
      EXPECT_EQ(describe(status).substr(0, expected.size()), expected) << document;
      FreeZQXMLParsedStreamInternal(&stream, 0);
    };
    parse(good, true, "");
    for (const auto& [name, id] : vocabulary()) {
      const std::string before = start + place.before + "<" + name + ">";
      const bool isGood = place.accepted.contains(name);
      std::string expected = isGood ? "" : "2/8941 " + name + ", " + Marked::placeAt(before.size());
      if (place.hosts.contains(name)) {
        expected = "2/89";
      }
      parse(before + "</" + name + ">" + place.after + end, isGood, expected);
      parse(good, true, "");
    }
  }
}

}  // namespace
