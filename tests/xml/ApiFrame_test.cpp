#include "xml/ApiFrame.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/RuntimeException.hpp>
#include <xercesc/util/XMLException.hpp>

#include "fault/FailingAllocations.h"
#include "records/StatusLists.h"
#include "xml/ZQXMLException.h"
#include "zqxml/parser.h"

namespace {

class FrameTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(InitXMLParser(nullptr), 0); }
};

// The parser's exception with a text of its own, in which one of ours stands.
void throwXMLException() {
  throw xercesc::RuntimeException(__FILE__, __LINE__, xercesc::XMLExcepts::File_CouldNotOpenFile,
                                  u"caf\u00e9");
}

class DOMFailure : public xercesc::DOMException {
 public:
  DOMFailure(short number, const std::u16string& text) : message(text) {
    code = number;
    msg = message.c_str();
  }

 private:
  std::u16string message;
};

const struct {
  const char* name;
  std::function<void()> fail;
  const char* record;  // %N is the number of the entry
} kExceptions[] = {
    {"our own", [] { throw ZQXMLException(8943, "where"); }, "2/8943 where"},
    {"our own without text", [] { throw ZQXMLException(8944); }, "2/8944 "},
    {"XMLException", throwXMLException, "2/%N unable to open file 'caf\xC3\xA9'"},
    {"bad_alloc", [] { throw std::bad_alloc(); }, "2/300 "},
    {"OutOfMemoryException", [] { throw xercesc::OutOfMemoryException(); }, "2/300 "},
    {"SAXException", [] { throw xercesc::SAXException(u"text"); }, "2/%N "},
    {"DOMException", [] { throw xercesc::DOMException(8, 0); }, "2/%N "},
    {"std::exception", [] { throw std::runtime_error("text"); }, "2/%N "},
    {"a number", [] { throw 5; }, "2/%N "},
};

std::string withNumber(std::string record, int number) {
  const size_t place = record.find("%N");
  return place == std::string::npos ? record : record.replace(place, 2, std::to_string(number));
}

TEST_F(FrameTest, EveryExceptionBecomesItsRecord) {
  for (const int number : {8938, 8940}) {
    for (const auto& row : kExceptions) {
      OwnedStatusList status;
      const int result = guardedEntry(&status, number, [&] {
        row.fail();
        return 0;
      });
      EXPECT_EQ(result, 2) << row.name;
      EXPECT_EQ(describe(status), withNumber(row.record, number)) << row.name;
    }
  }
}

TEST_F(FrameTest, WithoutAnExceptionTheResultIsTheBodys) {
  OwnedStatusList status;
  for (const int expected : {0, 1, 2, 3}) {
    EXPECT_EQ(guardedEntry(&status, 8940, [expected] { return expected; }), expected);
  }
  EXPECT_EQ(status.numItems, 0U);
}

TEST_F(FrameTest, ARecordIsAddedAheadOfWhatIsThere) {
  OwnedStatusList status;
  ZQAddErrorMessage(&status, 2, 300, "old");
  guardedEntry(&status, 8940, []() -> int { throw ZQXMLException(8943, "new"); });
  EXPECT_EQ(describe(status), "2/8943 new; 2/300 old");
}

TEST_F(FrameTest, ANullListGivesTheSameResult) {
  for (const auto& row : kExceptions) {
    const int result = guardedEntry(nullptr, 8940, [&] {
      row.fail();
      return 0;
    });
    EXPECT_EQ(result, 2) << row.name;
  }
}

TEST_F(FrameTest, WithoutMemoryForTheRecordTheResultIs3) {
  for (const auto& row : kExceptions) {
    for (const long index : {0L, 1L, 2L}) {
      OwnedStatusList status;
      int result = 0;
      try {
        row.fail();
      } catch (...) {
        const fault::FailingAllocations failing(index);
        result = reportCurrentException(&status, 8940);
      }
      EXPECT_EQ(result, 3) << row.name;
      EXPECT_EQ(status.numItems, 0U) << row.name;
    }
  }
}

TEST_F(FrameTest, ADOMExceptionIsTheTextOfItsCodeAndItsMessage) {
  const struct {
    short code;
    std::u16string message;
    std::string record;
  } cases[] = {
      {8, u"no such node", "2/8940 DOMCode: Not found error; no such node"},
      {1, u"", "2/8940 DOMCode: Index size error; "},
      {15, u"caf\u00e9", "2/8940 DOMCode: Invalid access error; caf\xC3\xA9"},
      {16, u"text", "2/8940 DOMCode: ; text"},
      {0, u"text", "2/8940 DOMCode: ; text"},
      {5, std::u16string(1000, u'x'),
       "2/8940 " + ("DOMCode: Invalid character error; " + std::string(1000, 'x')).substr(0, 255)},
  };
  for (const auto& row : cases) {
    OwnedStatusList status;
    EXPECT_EQ(reportDOMException(&status, DOMFailure(row.code, row.message)), 2);
    EXPECT_EQ(describe(status), row.record);
  }
}

TEST_F(FrameTest, ADOMExceptionWithoutAListOrMemoryGivesItsResult) {
  const DOMFailure failure(8, u"text");
  EXPECT_EQ(reportDOMException(nullptr, failure), 2);
  fault::forEachFailure([&](auto arm) {
    OwnedStatusList status;
    int result = 0;
    bool failed = false;
    {
      const auto failing = arm();
      result = reportDOMException(&status, failure);
      failed = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(result, failed ? 3 : 2);
    return failed;
  });
}

}  // namespace
