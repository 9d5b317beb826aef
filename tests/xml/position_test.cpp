// Where GetXMLParserPosition says a fault is.

#include <gtest/gtest.h>

#include <string>

#include "xml/Listing.h"

namespace {

TEST(Position, IsWhereTheLastMessageArose) {
  const struct {
    std::string document;
    std::string place;
    std::string status;
  } cases[] = {
      {"<root/>", "0:0", ""},
      {kGoodDocument, "0:0", ""},
      // Just behind the ">" of the tag at which a handler fails.
      {"<root>\n<container/>", "2:13", "2/8943 line: 2, column 13"},
      {"<root>\n<container\n  a='1'\n>\n</container\n >", "6:3", "2/8943 line: 6, column 3"},
      {"<root><root></root></root>", "1:27", "2/8944 line: 1, column 27"},
      {"<root><root></root>\n<a  ></a></root>", "2:1", "2/8944 line: 2, column 1"},
      {"<root><root></root><a\n  ></a></root>", "2:4", "2/8944 line: 2, column 4"},
      {"<root>\xC3\xA9\xE2\x82\xAC<container/></root>", "1:21", "2/8943 line: 1, column 21"},
      {"<root>\xF0\x9F\x98\x80<container/></root>", "1:21", "2/8943 line: 1, column 21"},
      {"<root>\r\n\r\n\r<container/></root>", "4:13", "2/8943 line: 4, column 13"},
      {"<root>\t<container/></root>", "1:20", "2/8943 line: 1, column 20"},
  };
  for (const auto& row : cases) {
    const Listing listing = list(row.document);
    EXPECT_EQ(listing.place(), row.place) << row.document;
    EXPECT_EQ(listing.status, row.status) << row.document;
  }
}

TEST(Position, OfTheParsersErrorsIsTheParsersOwn) {
  const struct {
    const char* document;
    uint64_t line;
  } cases[] = {
      {"<root>\n<a></b></root>", 2},
      {"<root>\n\n\n<a", 4},
      {"<root a='1'\n a='2'/>", 2},
      {"<root>\n\n&bogus;</root>", 3},
      {"<root/>\n\n<more/>", 3},
      {"\n\ntext", 3},
      {"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<root/>", 1},
  };
  for (const auto& row : cases) {
    const Listing listing = list(row.document);
    EXPECT_EQ(listing.line, row.line) << row.document;
    EXPECT_GE(listing.column, 1U) << row.document;
    EXPECT_EQ(listing.status.substr(1, 6), "/8940 ") << row.document;
  }
  EXPECT_EQ(list("<root>\n<a></b></root>").place(), "2:6");
}

TEST(Position, OfAnErrorBehindAWarningIsTheErrors) {
  EXPECT_EQ(
      list("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n\n<root>\n<container/></root>").place(),
      "4:13");
}

TEST(Position, IsThatOfTheLastDocument) {
  ParserHandle handle;
  EXPECT_EQ(listWith(&handle, 1, "<root>\n<container/></root>").place(), "2:13");
  EXPECT_EQ(listWith(&handle, 1, "<root/>").place(), "0:0");
  EXPECT_EQ(listWith(&handle, 1, "<root>\n<container/></root>").place(), "2:13");
  EXPECT_EQ(listWith(&handle, 2, "/nowhere").place(), "0:0");
  EXPECT_EQ(listWith(&handle, 1, "<root>\n<container/></root>").place(), "2:13");
  EXPECT_EQ(listWith(&handle, 9, "<root/>").place(), "0:0");
  EXPECT_EQ(listWith(&handle, 1, "<root>\n<container/></root>").place(), "2:13");
  EXPECT_EQ(listWith(&handle, 2, "http://localhost/").place(), "0:0");
}

TEST(Position, IsToldWithoutAStatusList) {
  ParserHandle handle;
  for (const auto& [text, expectedLine] :
       {std::pair<const char*, uint64_t>{"<root>\n\n<", 3}, {"<root>\n<container/>", 2}}) {
    std::string document = text;
    const ZQXMLInputDoc input = {1, document.data()};
    EXPECT_EQ(GetListXMLObjects(&handle, &input, nullptr, nullptr, nullptr, nullptr), 2);
    uint64_t line = 0;
    EXPECT_EQ(GetXMLParserPosition(&handle, &line, nullptr), 0);
    EXPECT_EQ(line, expectedLine);
  }
}

TEST(Position, OutputsMayBeNull) {
  ParserHandle handle;
  listWith(&handle, 1, "<root>\n<container/></root>");
  uint64_t line = 77;
  uint64_t column = 77;
  EXPECT_EQ(GetXMLParserPosition(&handle, &line, nullptr), 0);
  EXPECT_EQ(GetXMLParserPosition(&handle, nullptr, &column), 0);
  EXPECT_EQ(GetXMLParserPosition(&handle, nullptr, nullptr), 0);
  EXPECT_EQ(line, 2U);
  EXPECT_EQ(column, 13U);
}

TEST(Position, OfNoHandleIs2AndZero) {
  ZQXMLParserHandle freed = {};
  CreateXMLParserHandle(&freed, nullptr);
  FreeZQXMLParserHandleInternal(&freed, 0);
  for (const ZQXMLParserHandle* handle : {static_cast<const ZQXMLParserHandle*>(nullptr),
                                          static_cast<const ZQXMLParserHandle*>(&freed)}) {
    uint64_t line = 77;
    uint64_t column = 77;
    EXPECT_EQ(GetXMLParserPosition(handle, &line, &column), 2);
    EXPECT_EQ(line, 0U);
    EXPECT_EQ(column, 0U);
    EXPECT_EQ(GetXMLParserPosition(handle, nullptr, nullptr), 2);
  }
}

TEST(Position, OfANewHandleIsZero) {
  ParserHandle handle;
  uint64_t line = 77;
  uint64_t column = 77;
  EXPECT_EQ(GetXMLParserPosition(&handle, &line, &column), 0);
  EXPECT_EQ(line, 0U);
  EXPECT_EQ(column, 0U);
}

TEST(Versions, AreTexts) {
  EXPECT_STREQ(GetZQXMLVersion(), "1.0.0");
  EXPECT_EQ(std::string(GetXMLParserVersion()).substr(0, 4), "3.2.");
}

}  // namespace
