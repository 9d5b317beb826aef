// What documents of filters read as.

#include <gtest/gtest.h>

#include <string>

#include "fault/FailingAllocations.h"
#include "xml/handlers/Parsed.h"

namespace {

std::string membersOfFilter(const std::string& content) {
  return membersOf("<root>\n<filter>" + content + "</filter></root>");
}

struct Row {
  std::string content, members;
};

TEST(FilterReader, ElementsOfTheObject) {
  const std::string name254(254, 'n');
  const std::string name30(30, 'n');
  const Row kRows[] = {
      {"", ""},
      {"<filterName>A</filterName>", "name=\"A\""},
      {"<filterName/>", ""},
      {"<filterName>" + name254 + "x</filterName>", "name=\"" + name254 + "\""},
      {"<filterName>a&lt;<![CDATA[b]]>&#x63;</filterName>", "name=\"a<bc\""},
      {"<owner>maren</owner>", "owner=\"maren\""},
      {"<owner>" + name30 + "x</owner>", "owner=\"" + name30 + "\""},
      {"<lastModifiedBy>maren</lastModifiedBy>", "lastChanged=\"maren\""},
      {"<lastModifiedBy>" + name30 + "x</lastModifiedBy>", "lastChanged=\"" + name30 + "\""},
      {"<modifiedDate>2024-03-01T09:15:00Z</modifiedDate>", "modifiedDate=1709284500"},
      {"<modifiedDate>1969-12-31T23:59:59Z</modifiedDate>", ""},
      {"<modifiedDate>1969-12-31T23:59:58Z</modifiedDate>", "modifiedDate=-2"},
      {"<helpText>two\nlines</helpText>", "helpText=\"two<10>lines\""},
      {"<helpText/>", "helpText=\"\""},
      {"<changeHistory/>", "changeDiary=\"\""},
      {"<changeHistory><changeEntry modifiedDate='1970-01-01T00:00:09Z' userName='u'><entry>E"
       "</entry></changeEntry></changeHistory>",
       "changeDiary=\"9<4>u<4>E<3>\""},
      {"<objectProperties/>", ""},
      {"<objectProperties><property><value><integerValue>5</integerValue></value><tag>7</tag>"
       "</property></objectProperties>",
       "objPropList[{property=7 value{dataType=2 integerValue=5}}]"},
      {"<executionOrder>500</executionOrder>", "executionOrder=500"},
      {"<executionOrder>-1</executionOrder>", "executionOrder=4294967295"},
      {"<executionOrder>4294967295</executionOrder>", "executionOrder=4294967295"},
      {"<executionOrder>4294967297</executionOrder>", "executionOrder=1"},
      {"<executionOrder> 12x</executionOrder>", "executionOrder=12"},
      {"<executionOrder>x</executionOrder>", ""},
      {"<executionOrder/>", ""},
      {"<workflowConnect/>", ""},
      {"<enabled>true</enabled>", "enabled=1"},
      {"<enabled>false</enabled>", ""},
      {"<runIfQualification/>", ""},
      {"<runIfQualification><fieldID>7</fieldID></runIfQualification>",
       "query{operation=5 fieldId=7}"},
      {"<ifActions/><elseActions/>", ""},
      {"<ifActions><action/><action/></ifActions>", "actionList[{} {}]"},
      {"<elseActions><action/></elseActions>", "elseList[{}]"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfFilter(row.content), row.members) << row.content;
  }
}

TEST(FilterReader, Operations) {
  const Row kRows[] = {
      {"", ""},
      {"none", ""},
      {"getEntry", "executeOn=1"},
      {"modify", "executeOn=2"},
      {"submit", "executeOn=4"},
      {"delete", "executeOn=8"},
      {"merge", "executeOn=16"},
      {"guide", "executeOn=32"},
      {"submit modify", "executeOn=6"},
      {"modify submit", "executeOn=6"},
      {"modify modify", "executeOn=2"},
      {"none guide none", "executeOn=32"},
      {"guide merge delete submit modify getEntry", "executeOn=63"},
      // A blank too many makes an empty word, and nothing else separates.
      {"submit  modify", "2/8943 line: 2, column 46"},
      {" submit", "2/8943 line: 2, column 39"},
      {"submit ", "2/8943 line: 2, column 39"},
      {" ", "2/8943 line: 2, column 33"},
      {"submit\tmodify", "2/8943 line: 2, column 45"},
      {"Submit", "2/8943 line: 2, column 38"},
      {"sunday", "2/8943 line: 2, column 38"},
      {"bogus", "2/8943 line: 2, column 37"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfFilter("<executeOn>" + row.content + "</executeOn>"), row.members)
        << row.content;
  }
  EXPECT_EQ(membersOfFilter("<executeOn/>"), "");
  EXPECT_EQ(membersOfFilter("<executeOn>submit</executeOn><executeOn> modify</executeOn>"),
            "executeOn=6");
}

TEST(FilterReader, WordsAndDatesThatAreNone) {
  const Row kRows[] = {
      {"<enabled/>", "2/8943 line: 2, column 19"},
      {"<enabled>5</enabled>", "2/8943 line: 2, column 29"},
      {"<enabled>True</enabled>", "2/8943 line: 2, column 32"},
      {"<enabled> true</enabled>", "2/8943 line: 2, column 33"},
      {"<modifiedDate>yesterday</modifiedDate>", "2/8957 yesterday"},
      {"<modifiedDate/>", "2/8957 "},
      {"<changeHistory><changeEntry modifiedDate='x'/></changeHistory>", "2/8957 x"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfFilter(row.content), row.members) << row.content;
  }
}

TEST(FilterReader, Attributes) {
  const Row kRows[] = {
      {"zqDocVersion='3'", "xmlDocVersion=3"},
      {"zqDocVersion='-3x'", "xmlDocVersion=-3"},
      {"zqDocVersion=''", ""},
      {"version='1' xmlns='a' xmlns:xsi='b' xsi:schemaLocation='c' xsi:type='d'", ""},
      {"zqDocVersion='2' version='1'", "xmlDocVersion=2"},
      {"xmlns:xsd='a'", "2/8942 xmlns:xsd, line: 2, column 23"},
      {"xsi:nil='a'", "2/8942 xsi:nil, line: 2, column 21"},
      {"filterName='a'", "2/8942 filterName, line: 2, column 24"},
      {"version='1' bogus='a'", "2/8942 bogus, line: 2, column 31"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOf("<root>\n<filter " + row.content + "></filter></root>"), row.members)
        << row.content;
  }
  // Those of the elements below aren't looked at.
  EXPECT_EQ(membersOfFilter("<enabled bogus='1'>true</enabled>"), "enabled=1");
}

TEST(FilterReader, Forms) {
  const std::string name254(254, 'n');
  const Row kRows[] = {
      {"<formNameList/>", ""},
      {"<formNameList><formName>F</formName></formNameList>",
       "workflowConnect{type=1 formList[\"F\"]}"},
      {"<formNameList><formName>F</formName><formName>G</formName><formName/></formNameList>",
       "workflowConnect{type=1 formList[\"F\" \"G\" \"\"]}"},
      {"<formNameList><formName>" + name254 + "x</formName></formNameList>",
       "workflowConnect{type=1 formList[\"" + name254 + "\"]}"},
      // The list around the names makes no difference.
      {"<formName>F</formName>", "workflowConnect{type=1 formList[\"F\"]}"},
      {"<formNameList><formName>F</formName></formNameList><formNameList><formName>G</formName>"
       "</formNameList>",
       "workflowConnect{type=1 formList[\"F\" \"G\"]}"},
      {"text<formNameList>text<formName>F</formName>text</formNameList>text",
       "workflowConnect{type=1 formList[\"F\"]}"},
      {"<bogus/>", "2/8941 bogus, line: 2, column 34"},
      {"<filterName/>", "2/8941 filterName, line: 2, column 39"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfFilter("<workflowConnect>" + row.content + "</workflowConnect>"),
              row.members)
        << row.content;
  }
}

// Of two elements for one record the later one counts; two texts join.
TEST(FilterReader, RepeatedElements) {
  const Row kRows[] = {
      {"<owner>a</owner><owner>b</owner>", "owner=\"ab\""},
      {"<helpText>a</helpText><helpText>b</helpText>", "helpText=\"ab\""},
      {"<executionOrder>1</executionOrder><executionOrder>2</executionOrder>", "executionOrder=12"},
      {"<enabled>tr</enabled><enabled>ue</enabled>", "2/8943 line: 2, column 30"},
      {"<enabled>false</enabled><enabled/>", ""},
      {"<changeHistory><changeEntry><entry>E</entry></changeEntry></changeHistory>"
       "<changeHistory/>",
       "changeDiary=\"\""},
      {"<objectProperties><property><tag>1</tag></property></objectProperties>"
       "<objectProperties><property><tag>2</tag></property></objectProperties>",
       "objPropList[{property=2}]"},
      {"<workflowConnect><formName>F</formName></workflowConnect><workflowConnect><formName>G"
       "</formName></workflowConnect>",
       "workflowConnect{type=1 formList[\"G\"]}"},
      {"<workflowConnect><formName>F</formName></workflowConnect><workflowConnect/>", ""},
      {"<runIfQualification><not><fieldID>7</fieldID></not></runIfQualification>"
       "<runIfQualification><fieldID>8</fieldID></runIfQualification>",
       "query{operation=5 fieldId=8}"},
      {"<ifActions><action><gotoGuide><label>L</label></gotoGuide></action></ifActions><ifActions>"
       "<action/></ifActions>",
       "actionList[{}]"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfFilter(row.content), row.members) << row.content;
  }
}

// Text belongs to the element that began last.
TEST(FilterReader, TextsInOneAnother) {
  const Row kRows[] = {
      {"<owner>a<enabled>true</enabled>b</owner>", "owner=\"a\" enabled=1"},
      {"<enabled>true<owner>a</owner>b</enabled>", "owner=\"a\" enabled=1"},
      {"<executionOrder>1<helpText>2</helpText>3</executionOrder>",
       "helpText=\"2\" executionOrder=1"},
      {"text<owner>a</owner>text<!-- comment -->text", "owner=\"a\""},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfFilter(row.content), row.members) << row.content;
  }
}

TEST(FilterReader, ElementsWithoutAPlace) {
  const Row kRows[] = {
      {"<bogus/>", "2/8941 bogus, line: 2, column 17"},
      {"<formName/>", "2/8941 formName, line: 2, column 20"},
      {"<escalationName/>", "2/8941 escalationName, line: 2, column 26"},
      {"<escalationTime/>", "2/8941 escalationTime, line: 2, column 26"},
      {"<action/>", "2/8941 action, line: 2, column 18"},
      {"<groupID/>", "2/8941 groupID, line: 2, column 19"},
      {"<root/>", "2/8941 root, line: 2, column 16"},
      {"<Enabled/>", "2/8941 Enabled, line: 2, column 19"},
      // Ends that a child should have had.
      {"<workflowConnect><workflowConnect/></workflowConnect>",
       "2/8941 workflowConnect, line: 2, column 62"},
      {"<ifActions><elseActions/></ifActions>", "2/8941 ifActions, line: 2, column 46"},
      {"<changeHistory><changeHistory/></changeHistory>",
       "2/8941 changeHistory, line: 2, column 56"},
      {"<objectProperties><properties/></objectProperties>",
       "2/8941 objectProperties, line: 2, column 59"},
      {"<runIfQualification><qualifier/></runIfQualification>",
       "2/8941 runIfQualification, line: 2, column 62"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfFilter(row.content), row.members) << row.content;
  }
}

TEST(FilterReader, AnyOrder) {
  const std::string kParts[] = {
      "<filterName>A</filterName>",
      "<owner>o</owner>",
      "<helpText>h</helpText>",
      "<changeHistory/>",
      "<executionOrder>5</executionOrder>",
      "<workflowConnect><formNameList><formName>F</formName></formNameList></workflowConnect>",
      "<executeOn>modify</executeOn>",
      "<enabled>true</enabled>",
      "<runIfQualification><fieldID>7</fieldID></runIfQualification>",
      "<ifActions><action/></ifActions>",
      "<elseActions><action/></elseActions>"};
  const std::string members =
      "name=\"A\" owner=\"o\" helpText=\"h\" changeDiary=\"\" executionOrder=5 "
      "workflowConnect{type=1 formList[\"F\"]} executeOn=2 enabled=1 query{operation=5 fieldId=7} "
      "actionList[{}] elseList[{}]";
  const size_t count = std::size(kParts);
  for (size_t first = 0; first < count; ++first) {
    std::string forward;
    std::string backward;
    for (size_t i = 0; i < count; ++i) {
      forward += kParts[(first + i) % count];
      backward += kParts[(first + count - i) % count];
    }
    EXPECT_EQ(membersOfFilter(forward), members);
    EXPECT_EQ(membersOfFilter(backward), members);
  }
}

// Of the 128 handlers that can be at work two are those of "root" and the object.
TEST(FilterReader, ConditionsNestAsDeepAsThereAreHandlers) {
  const auto nested = [](int depth) {
    std::string begin;
    std::string end;
    for (int i = 0; i < depth; ++i) {
      begin += "<not>";
      end += "</not>";
    }
    return "<runIfQualification>\n" + begin + "<fieldID>1</fieldID>" + end +
           "</runIfQualification>";
  };
  EXPECT_EQ(membersOfFilter(nested(125)).substr(0, 40), "query{operation=3 notQualifier{operation");
  EXPECT_EQ(membersOfFilter(nested(126)), "2/8944 line: 3, column 631");
  EXPECT_EQ(membersOfFilter(nested(900)), "2/8944 line: 3, column 631");
}

// Nothing of one object shows in the next.
TEST(FilterReader, ObjectsAreReadApart) {
  const std::string full =
      "<filter zqDocVersion='3'><filterName>A</filterName><owner>o</owner><helpText>h</helpText>"
      "<executionOrder>5</executionOrder><executeOn>modify</executeOn><enabled>true</enabled>"
      "<ifActions><action><runProcess><command>c</command></runProcess></action></ifActions>"
      "</filter>";
  EXPECT_EQ(recordsOf(inRoot(full + "<filter/>" + full)),
            "0 | filter{name=\"A\" xmlDocVersion=3 owner=\"o\" helpText=\"h\" executionOrder=5 "
            "executeOn=2 enabled=1 actionList[{action=5 process=\"c\"}]}, filter{}, "
            "filter{name=\"A\" xmlDocVersion=3 owner=\"o\" helpText=\"h\" executionOrder=5 "
            "executeOn=2 enabled=1 actionList[{action=5 process=\"c\"}]} | ");
}

// A handle that reads documents with text in front of the entries of a list keeps none of it.
TEST(FilterReader, TextOutsideAnEntryDoesNotPileUp) {
  const std::string text(200, 't');
  const std::string kContents[] = {
      "<objectProperties><tag>" + text + "</tag></objectProperties>",
      "<objectProperties><tag>" + text + "</tag>",
      "<changeHistory><entry>" + text + "</entry></changeHistory>",
      "<changeHistory><entry>" + text,
  };
  for (const std::string& content : kContents) {
    SCOPED_TRACE(content);
    constexpr int kDocuments = 20;
    ParserHandle handle;
    long blocks = 0;
    for (int i = 0; i < 2 * kDocuments; ++i) {
      Parsed(&handle, "<root><filter>" + content + "</filter></root>");
      blocks = i < kDocuments ? fault::liveBlocks() : blocks;
    }
    EXPECT_EQ(fault::liveBlocks(), blocks);
  }
}

}  // namespace
