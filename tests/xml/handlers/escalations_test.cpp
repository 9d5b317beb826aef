// What documents of escalations read as.

#include <gtest/gtest.h>

#include <string>

#include "records/Members.h"
#include "records/StatusLists.h"
#include "xml/handlers/Parsed.h"

namespace {

std::string membersOfEscalation(const std::string& content) {
  return membersOf("<root>\n<escalation>" + content + "</escalation></root>");
}

struct Row {
  std::string content, members;
};

TEST(EscalationReader, ElementsOfTheObject) {
  const std::string name254(254, 'n');
  const Row kRows[] = {
      {"", ""},
      {"<escalationName>A</escalationName>", "name=\"A\""},
      {"<escalationName>" + name254 + "x</escalationName>", "name=\"" + name254 + "\""},
      {"<owner>maren</owner><lastModifiedBy>tomasz</lastModifiedBy>",
       "owner=\"maren\" lastChanged=\"tomasz\""},
      {"<modifiedDate>2024-03-01T09:15:00Z</modifiedDate>", "modifiedDate=1709284500"},
      {"<helpText/>", "helpText=\"\""},
      {"<changeHistory><changeEntry><entry>E</entry></changeEntry></changeHistory>",
       "changeDiary=\"0<4><4>E<3>\""},
      {"<objectProperties><property><tag>7</tag></property></objectProperties>",
       "objPropList[{property=7}]"},
      {"<workflowConnect><formName>F</formName></workflowConnect>",
       "workflowConnect{type=1 formList[\"F\"]}"},
      {"<enabled>true</enabled>", "enabled=1"},
      {"<runIfQualification><fieldID>7</fieldID></runIfQualification>",
       "query{operation=5 fieldId=7}"},
      {"<ifActions><action/></ifActions>", "actionList[{}]"},
      {"<elseActions><action/></elseActions>", "elseList[{}]"},
      {"<enabled>x</enabled>", "2/8943 line: 2, column 33"},
      {"<filterName/>", "2/8941 filterName, line: 2, column 26"},
      {"<executionOrder/>", "2/8941 executionOrder, line: 2, column 30"},
      {"<executeOn/>", "2/8941 executeOn, line: 2, column 25"},
      {"<interval/>", "2/8941 interval, line: 2, column 24"},
      {"<owner>a<enabled>true</enabled>b</owner>", "owner=\"a\" enabled=1"},
      {"<enabled>true<owner>a</owner>b</enabled>", "owner=\"a\" enabled=1"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfEscalation(row.content), row.members) << row.content;
  }
}

TEST(EscalationReader, Attributes) {
  const Row kRows[] = {
      {"zqDocVersion='3'", "xmlDocVersion=3"},
      {"version='1' xmlns='a' xmlns:xsi='b' xsi:schemaLocation='c' xsi:type='d'", ""},
      {"xmlns:xsd='a'", "2/8942 xmlns:xsd, line: 2, column 27"},
      {"xsi:nil='a'", "2/8942 xsi:nil, line: 2, column 25"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOf("<root>\n<escalation " + row.content + "></escalation></root>"),
              row.members)
        << row.content;
  }
}

TEST(EscalationReader, Times) {
  const auto date = [](const std::string& members) {
    return "escalationTime{escalationTmType=2" + (members.empty() ? "" : " date{" + members + "}") +
           "}";
  };
  const Row kRows[] = {
      {"", ""},
      {"<time/>", ""},
      {"<interval>3600</interval>", "escalationTime{escalationTmType=1 interval=3600}"},
      {"<interval>-5</interval>", "escalationTime{escalationTmType=1 interval=-5}"},
      {"<interval>4294967295</interval>", "escalationTime{escalationTmType=1 interval=-1}"},
      {"<interval/>", "escalationTime{escalationTmType=1}"},
      {"<interval>1</interval><interval>2</interval>",
       "escalationTime{escalationTmType=1 interval=12}"},
      // Days count from 1 and come round after 32.
      {"<daysOfMonth>1</daysOfMonth>", date("monthday=1")},
      {"<daysOfMonth>31</daysOfMonth>", date("monthday=1073741824")},
      {"<daysOfMonth>32</daysOfMonth>", date("monthday=2147483648")},
      {"<daysOfMonth>33</daysOfMonth>", date("monthday=1")},
      {"<daysOfMonth>0</daysOfMonth>", date("monthday=2147483648")},
      {"<daysOfMonth>-1</daysOfMonth>", date("monthday=1073741824")},
      {"<daysOfMonth>x</daysOfMonth>", date("monthday=2147483648")},
      {"<daysOfMonth>3 1 2 2</daysOfMonth>", date("monthday=7")},
      {"<daysOfMonth>1 </daysOfMonth>", date("monthday=2147483649")},
      {"<daysOfMonth> 1</daysOfMonth>", date("monthday=2147483649")},
      {"<daysOfMonth>1  2</daysOfMonth>", date("monthday=2147483651")},
      {"<daysOfMonth>1\t2</daysOfMonth>", date("monthday=1")},
      {"<daysOfMonth/>", date("")},
      // So do the hours, from 0.
      {"<hoursOfDay>0</hoursOfDay>", date("hourmask=1")},
      {"<hoursOfDay>23</hoursOfDay>", date("hourmask=8388608")},
      {"<hoursOfDay>24</hoursOfDay>", date("hourmask=16777216")},
      {"<hoursOfDay>31</hoursOfDay>", date("hourmask=2147483648")},
      {"<hoursOfDay>32</hoursOfDay>", date("hourmask=1")},
      {"<hoursOfDay>-1</hoursOfDay>", date("hourmask=2147483648")},
      {"<hoursOfDay>2 1</hoursOfDay>", date("hourmask=6")},
      {"<hoursOfDay>1 </hoursOfDay>", date("hourmask=3")},
      {"<hoursOfDay/>", date("")},
      {"<daysOfWeek>sunday</daysOfWeek>", date("weekday=1")},
      {"<daysOfWeek>saturday monday</daysOfWeek>", date("weekday=66")},
      {"<daysOfWeek>monday tuesday wednesday thursday friday saturday sunday</daysOfWeek>",
       date("weekday=127")},
      {"<daysOfWeek/>", date("")},
      {"<daysOfWeek>monday  tuesday</daysOfWeek>", "2/8943 line: 2, column 69"},
      {"<daysOfWeek>Monday</daysOfWeek>", "2/8943 line: 2, column 60"},
      {"<daysOfWeek>modify</daysOfWeek>", "2/8943 line: 2, column 60"},
      {"<minute>15</minute>", date("minute=15")},
      {"<minute>-15</minute>", date("minute=-15")},
      {"<minute>0</minute>", date("")},
      {"<minute/>", date("")},
      {"<time>text<daysOfMonth>1</daysOfMonth>text<daysOfWeek>sunday</daysOfWeek><hoursOfDay>2"
       "</hoursOfDay><minute>3</minute></time>text",
       date("monthday=1 weekday=1 hourmask=4 minute=3")},
      {"<minute>3</minute><hoursOfDay>2</hoursOfDay><time/><daysOfWeek>sunday</daysOfWeek>"
       "<daysOfMonth>1</daysOfMonth>",
       date("monthday=1 weekday=1 hourmask=4 minute=3")},
      {"<time><interval>60</interval></time>", "escalationTime{escalationTmType=1 interval=60}"},
      {"<bogus/>", "2/8941 bogus, line: 2, column 37"},
      {"<time><day/></time>", "2/8941 day, line: 2, column 41"},
      {"<enabled/>", "2/8941 enabled, line: 2, column 39"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfEscalation("<escalationTime>" + row.content + "</escalationTime>"),
              row.members)
        << row.content;
  }
}

// The child that ends last gives the type; an interval and the days share a word.
TEST(EscalationReader, IntervalsAndDaysShareTheirPlace) {
  const struct {
    const char* content;
    uint32_t type;
    uint32_t words[4];
  } kRows[] = {
      {"<daysOfWeek>monday</daysOfWeek><interval>60</interval>", 1, {60, 2, 0, 0}},
      {"<interval>60</interval><daysOfWeek>monday</daysOfWeek>", 2, {60, 2, 0, 0}},
      {"<interval>60</interval><daysOfMonth>1</daysOfMonth>", 2, {1, 0, 0, 0}},
      {"<daysOfMonth>1</daysOfMonth><interval>60</interval>", 1, {60, 0, 0, 0}},
      {"<interval>60</interval><daysOfMonth/>", 2, {0, 0, 0, 0}},
      {"<interval>60</interval><minute>5</minute><hoursOfDay>1</hoursOfDay>", 2, {60, 0, 2, 5}},
      {"<hoursOfDay>1</hoursOfDay><hoursOfDay>2</hoursOfDay>", 2, {0, 0, 1U << 12, 0}},
      {"<minute>5</minute><hoursOfDay>1</hoursOfDay><interval>60</interval>", 1, {60, 0, 2, 5}},
      // A second element begins afresh.
      {"<interval>60</interval></escalationTime><escalationTime><minute>5</minute>",
       2,
       {0, 0, 0, 5}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.content);
    const Parsed parsed(sharedHandle(), "<root><escalation><escalationTime>" +
                                            std::string(row.content) +
                                            "</escalationTime></escalation></root>");
    ASSERT_EQ(parsed.result, 0);
    const ZQEscalationTmStruct& time = parsed.stream.objectList->object.escalation.escalationTime;
    EXPECT_EQ(time.escalationTmType, row.type);
    EXPECT_EQ(time.u.date.monthday, row.words[0]);
    EXPECT_EQ(static_cast<uint32_t>(time.u.interval), row.words[0]);
    EXPECT_EQ(time.u.date.weekday, row.words[1]);
    EXPECT_EQ(time.u.date.hourmask, row.words[2]);
    EXPECT_EQ(static_cast<uint32_t>(time.u.date.minute), row.words[3]);
  }
}

TEST(EscalationReader, TheEndOfATimeIsItsOwn) {
  EXPECT_EQ(membersOfEscalation("<escalationTime><escalationTime/></escalationTime>"),
            "2/8941 escalationTime, line: 2, column 63");
}

TEST(EscalationReader, RepeatedElements) {
  EXPECT_EQ(membersOfEscalation("<escalationTime><interval>1</interval></escalationTime>"
                                "<escalationTime/>"),
            "");
  EXPECT_EQ(membersOfEscalation("<helpText>a</helpText><helpText>b</helpText>"), "helpText=\"ab\"");
}

TEST(EscalationReader, Fetched) {
  const Parsed parsed(
      sharedHandle(),
      inRoot("<escalation zqDocVersion='3'><escalationName>E</escalationName><owner>o</owner>"
             "<lastModifiedBy>l</lastModifiedBy><modifiedDate>1970-01-01T00:00:09Z</modifiedDate>"
             "<helpText>h</helpText><escalationTime><minute>5</minute></escalationTime>"
             "<workflowConnect><formName>F</formName></workflowConnect><enabled>true</enabled>"
             "<ifActions><action/></ifActions></escalation>"));
  ZQXMLParsedStream stream = parsed.stream;
  for (int i = 0; i < 2; ++i) {
    ZQXMLEscalation out = {};
    EXPECT_EQ(GetEscalationFromXML(&stream, "E", &out.escalationTime, &out.workflowConnect,
                                   &out.enabled, &out.query, &out.actionList, &out.elseList,
                                   out.owner, out.lastChanged, &out.modifiedDate, &out.helpText,
                                   &out.changeDiary, &out.objPropList, &out.xmlDocVersion, nullptr),
              0);
    EXPECT_EQ(Members::of(out),
              "xmlDocVersion=3 owner=\"o\" lastChanged=\"l\" modifiedDate=9 helpText=\"h\" "
              "escalationTime{escalationTmType=2 date{minute=5}} workflowConnect{type=1 "
              "formList[\"F\"]} enabled=1 actionList[{}]");
    FreeZQXMLEscalation(&out, 0);
  }
  OwnedStatusList status;
  EXPECT_EQ(
      GetEscalationFromXML(&stream, "Z", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &status),
      2);
  EXPECT_EQ(describe(status), "2/8945 Z");
}

}  // namespace
