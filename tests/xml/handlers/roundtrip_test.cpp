// Random records through a document and back.

#include <gtest/gtest.h>

#include "fault/FailingAllocations.h"
#include "xml/ElementSink.h"
#include "xml/ZQGNString.h"
#include "xml/handlers/ElementReaders.h"
#include "xml/handlers/Losses.h"
#include "xml/writers/assignments.h"
#include "xml/writers/automation.h"
#include "xml/writers/qualifiers.h"
#include "xml/writers/values.h"

namespace {

constexpr uint32_t kTrees = 2000;
constexpr int kDepth = 5;

template <typename Record, typename Write>
std::string written(int host, const Record& record, Write write) {
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  TextSink sink(text, 0);
  sink.open(host);
  EXPECT_EQ(write(sink, &record), 0);
  sink.close();
  return static_cast<char*>(text);
}

template <typename Reader, typename Write>
void expectRoundTrips(int host, void (*freeRecord)(typename Reader::Record*, ZQBoolean),
                      Write write) {
  const long before = fault::liveBlocks();
  {
    Reader reader;
    for (uint32_t seed = 0; seed < kTrees && !testing::Test::HasFailure(); ++seed) {
      typename Reader::Record record = {};
      tools::Builder(seed, seed % 4 == 0 ? tools::Fill::Full : tools::Fill::Random, kDepth)
          .record("", record);
      losses::TextMaker(seed).record("", record);
      losses::Steps::prepare(record);
      const std::string document = written(host, record, write);
      losses::Steps::lose(record);
      losses::LineBreaks().record("", record);
      const Reading reading = reader.read(document);
      EXPECT_EQ(reading, (Reading{0, "", tools::Dumper::dump(record)})) << "seed " << seed << "\n"
                                                                        << document;
      releaseRecord(record, freeRecord);
    }
  }
  EXPECT_EQ(fault::liveBlocks(), before);
}

// What the XML parser keeps for the whole process is there before blocks are counted.
class RoundTrip : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    ValueReader reader;
    EXPECT_EQ(reader.read("<value/>").number, 0);
  }
};

TEST_F(RoundTrip, Values) {
  expectRoundTrips<ValueReader>(
      tag_value, FreeZQValueStruct,
      [](ElementSink& sink, const ZQValueStruct* value) { return writeValue(sink, value, false); });
  expectRoundTrips<ValueReader>(
      tag_defaultValue, FreeZQValueStruct,
      [](ElementSink& sink, const ZQValueStruct* value) { return writeValue(sink, value, true); });
  expectRoundTrips<COMValueReader>(tag_methodReturnValue, FreeZQCOMValueStruct, writeCOMValue);
}

TEST_F(RoundTrip, Conditions) {
  expectRoundTrips<QualReader>(tag_qualification, FreeZQQualifierStruct, writeQualifier);
}

TEST_F(RoundTrip, Operands) {
  expectRoundTrips<OperandReader>(tag_left, FreeZQFieldValueOrArithStruct, writeOperand);
  expectRoundTrips<ArithReader>(tag_arithmeticOperation, FreeZQArithOpStruct, writeArithmetic);
  expectRoundTrips<QueryReader>(tag_queryValue, freeQueryValue, writeQueryValue);
}

TEST_F(RoundTrip, Assignments) {
  expectRoundTrips<AssignReader>(tag_fieldValue, FreeZQAssignStruct, writeAssignment);
}

TEST_F(RoundTrip, Sources) {
  expectRoundTrips<AssignFieldReader>(tag_targetField, FreeZQAssignFieldStruct, writeAssignField);
  expectRoundTrips<AssignArithReader>(tag_arithmetic, FreeZQArithOpAssignStruct,
                                      writeArithOpAssign);
  expectRoundTrips<FunctionReader>(tag_function, FreeZQFunctionAssignStruct, writeFunctionAssign);
  expectRoundTrips<DDEReader>(tag_dde, FreeZQDDEStruct, writeDDE);
  expectRoundTrips<AssignSQLReader>(tag_sql, FreeZQAssignSQLStruct, writeAssignSQL);
  expectRoundTrips<FilterApiReader>(tag_filterAPI, FreeZQAssignFilterApiStruct, writeFilterApi);
}

TEST_F(RoundTrip, FieldsWithTheirValues) {
  expectRoundTrips<FieldAssignReader>(tag_setField, FreeZQFieldAssignStruct, writeFieldAssign);
  expectRoundTrips<FieldAssignListReader>(tag_inputFieldList, FreeZQFieldAssignList,
                                          [](ElementSink& sink, const ZQFieldAssignList* list) {
                                            return writeFieldAssignList(sink, tag_inputField, list);
                                          });
}

TEST_F(RoundTrip, Automation) {
  expectRoundTrips<AutomationReader>(tag_oleAutomation, FreeZQAutomationStruct, writeAutomation);
}

}  // namespace
