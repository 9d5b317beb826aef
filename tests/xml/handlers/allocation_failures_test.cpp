// Failing allocations while documents are read and records are written.

#include <gtest/gtest.h>

#include "fault/FailingAllocations.h"
#include "records/StatusLists.h"
#include "xml/ElementSink.h"
#include "xml/Listing.h"
#include "xml/ZQGNString.h"
#include "xml/handlers/ElementReaders.h"
#include "xml/objectchain.h"
#include "xml/writers/assignments.h"
#include "xml/writers/automation.h"
#include "xml/writers/qualifiers.h"
#include "xml/writers/values.h"

namespace {

std::string valueOf(const std::string& content) {
  return "<value>" + content + "</value>";
}

const std::string kText = valueOf("<characterValue>text</characterValue>");

// Every kind of value that owns memory, an operand of every kind, and an assignment of each.
const std::string kValues =
    "<valueList>" + kText + valueOf("<byteList type=\"JPEG\"><bytes>QUI=</bytes></byteList>") +
    valueOf(
        "<attachmentValue originalSize=\"2\" compressedSize=\"2\"><attachmentName>n"
        "</attachmentName><attachmentData>QUI=</attachmentData></attachmentValue>") +
    valueOf(
        "<attachmentValue originalSize=\"2\" compressedSize=\"2\"><fileName>f</fileName>"
        "</attachmentValue>") +
    valueOf("<currency><currencyValue>1</currencyValue><code>EUR</code></currency>") +
    valueOf("<coordinateList><coordinate><X>1</X></coordinate></coordinateList>") + "</valueList>";

const std::string kRelation =
    "<relationalOperation><operation>in</operation><left><queryValue><formName>F</formName>"
    "<queryQualification><and><left><fieldID>1</fieldID></left><right><not><fieldID>2</fieldID>"
    "</not></right></and></queryQualification></queryValue></left><right>" +
    kValues + "</right></relationalOperation>";

const std::string kTree =
    "<left><not/></left><or><left>" + kRelation +
    "</left><right><relationalOperation><operation>add</operation><left><arithmeticOperation>"
    "<operation>add</operation><left>" +
    kText +
    "</left><right><statusHistoryValue><statusInfo>user</statusInfo></statusHistoryValue>"
    "</right></arithmeticOperation></left></relationalOperation></right></or>";

const std::string kCondition = "<qualification>" + kTree + "</qualification>";

std::string item(const std::string& source) {
  return "<setField><fieldID>8</fieldID><fieldValue>" + source + "</fieldValue></setField>";
}

const std::string kAssignments =
    "<setFieldList>" + item(kText) +
    item("<field><serverName>s</serverName>" + kCondition + "<fieldID>1</fieldID></field>") +
    item("<process><command>c</command></process>") +
    item("<arithmetic><left>" + kText + "</left><operation>add</operation><right>" + kText +
         "</right></arithmetic>") +
    item("<function><functionType>min</functionType><functionParameterList><functionParameter>" +
         kText + "</functionParameter><functionParameter/></functionParameterList></function>") +
    item(
        "<dde><serviceName>s</serviceName><topic>t</topic><item>i</item><pathToProgram>p"
        "</pathToProgram><command>c</command></dde>") +
    item("<sql><sqlCommand>q</sqlCommand></sql>") +
    item("<filterAPI><inputValueList><inputValue>" + kText +
         "</inputValue></inputValueList></filterAPI>") +
    "</setFieldList>";

const std::string kAutomation =
    "<oleAutomation><automationServerName>a</automationServerName><classID>c</classID><action>x"
    "</action><comMethodList><comMethod><methodName>m</methodName><methodReturnValue>"
    "<valueIdentifier>v</valueIdentifier>" +
    kText +
    "</methodReturnValue><methodParameterList><methodParameter><parameterName>p</parameterName>"
    "<parameterValue>" +
    kText +
    "</parameterValue></methodParameter></methodParameterList></comMethod></comMethodList>"
    "</oleAutomation>";

// Each allocation of a reading fails in turn, with handlers that have read nothing yet or with
// those that have read the document before.
template <typename Reader>
void expectReadingFailuresGive300(const std::string& document, bool fresh) {
  Reading good;
  {
    Reader reader;
    good = reader.read(document);
    ASSERT_EQ(good.number, 0) << good.text;
  }
  const long injected = fault::forEachFailure([&](auto arm) {
    const long before = fault::liveBlocks();
    bool failed = false;
    {
      Reader reader;
      if (!fresh) {
        EXPECT_EQ(reader.read(document), good);
      }
      Reading reading;
      {
        const auto failing = arm();
        reading = reader.read(document, false);
        failed = fault::FailingAllocations::happened();
      }
      EXPECT_EQ(reading.number, failed ? 300 : 0) << reading.text;
      EXPECT_EQ(reading.text, "");
      EXPECT_EQ(reader.read(document), good);
    }
    EXPECT_EQ(fault::liveBlocks(), before);
    return failed;
  });
  EXPECT_GT(injected, 20);
}

// Each allocation of a writing fails in turn.
template <typename Reader, typename Write>
void expectWritingFailuresGive300(const std::string& document, Write write) {
  Reader reader;
  ASSERT_EQ(reader.read(document).number, 0);
  const long injected = fault::forEachFailure([&](auto arm) {
    const long before = fault::liveBlocks();
    bool failed = false;
    {
      ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
      int result = 0;
      {
        const auto failing = arm();
        try {
          TextSink sink(text, 0);
          result = write(sink, &reader.record());
        } catch (const ZQXMLException& exception) {
          result = exception.GetErrorNumber();
        } catch (const std::bad_alloc&) {
          result = ZQ_MESSAGE_OUT_OF_MEMORY;
        }
        failed = fault::FailingAllocations::happened();
      }
      EXPECT_EQ(result, failed ? 300 : 0);
    }
    EXPECT_EQ(fault::liveBlocks(), before);
    return failed;
  });
  EXPECT_GT(injected, 2);
}

class AllocationFailures : public testing::TestWithParam<bool> {};

// The same through a parser handle. A query keeps a node when the stream is freed by the public
// function, hence the other one.
TEST(AllocationFailures, WhileAFilterIsParsed) {
  std::string document = "<root><filter><filterName>F</filterName><runIfQualification>" + kTree +
                         "</runIfQualification><ifActions><action>" + kAssignments +
                         "</action></ifActions></filter></root>";
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
  {
    // What is kept for the whole process is made once.
    ASSERT_EQ(InitXMLParser(nullptr), 0);
    const ParserHandle first;
  }
  for (const bool fresh : {true, false}) {
    const long injected = fault::forEachFailure([&](auto arm) {
      const long before = fault::liveBlocks();
      bool failed = false;
      {
        ParserHandle handle;
        ZQXMLParsedStream stream = {};
        if (!fresh) {
          EXPECT_EQ(ParseXMLDocument(&handle, &input, nullptr, &stream, nullptr, nullptr), 0);
          releaseChain(stream.objectList);
        }
        {
          OwnedStatusList status;
          int result = 0;
          {
            const auto failing = arm();
            result = ParseXMLDocument(&handle, &input, nullptr, &stream, nullptr, &status);
            failed = fault::FailingAllocations::happened();
          }
          // Where the record finds no memory either the result is worse.
          EXPECT_TRUE(result == (failed ? 2 : 0) || (failed && result == 3)) << result;
          EXPECT_EQ(describe(status), result == 2 ? "2/300 " : "");
          EXPECT_EQ(stream.objectList == nullptr, failed);
          releaseChain(stream.objectList);
        }
        EXPECT_EQ(ParseXMLDocument(&handle, &input, nullptr, &stream, nullptr, nullptr), 0);
        EXPECT_NE(stream.objectList, nullptr);
        releaseChain(stream.objectList);
      }
      EXPECT_EQ(fault::liveBlocks(), before);
      return failed;
    });
    EXPECT_GT(injected, 100);
  }
}

TEST_P(AllocationFailures, WhileAConditionIsRead) {
  expectReadingFailuresGive300<QualReader>(kCondition, GetParam());
}

TEST_P(AllocationFailures, WhileAssignmentsAreRead) {
  expectReadingFailuresGive300<FieldAssignListReader>(kAssignments, GetParam());
}

TEST_P(AllocationFailures, WhileAutomationIsRead) {
  expectReadingFailuresGive300<AutomationReader>(kAutomation, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Handlers, AllocationFailures, testing::Values(true, false),
                         [](const auto& tested) { return tested.param ? "Fresh" : "Used"; });

TEST(AllocationFailures, WhileRecordsAreWritten) {
  expectWritingFailuresGive300<QualReader>(kCondition, writeQualifier);
  expectWritingFailuresGive300<AutomationReader>(kAutomation, writeAutomation);
  expectWritingFailuresGive300<ValueListReader>(
      kValues, [](ElementSink& sink, const ZQValueList* list) {
        for (uint32_t i = 0; i < list->numItems; ++i) {
          if (const int status = writeValue(sink, &list->items[i], false); status != 0) {
            return status;
          }
        }
        return 0;
      });
}

}  // namespace
