// What the action lists of filters and escalations read as.

#include <gtest/gtest.h>

#include <string>

#include "records/Members.h"
#include "xml/handlers/Parsed.h"

namespace {

// In "ifActions" of a filter; members without the list around them. Faults are on a line of their
// own.
std::string membersOfActions(const std::string& content) {
  const Parsed parsed(sharedHandle(),
                      "<root><filter><ifActions>\n" + content + "</ifActions></filter></root>");
  if (parsed.result != 0) {
    // The same handle goes on.
    EXPECT_EQ(outcomeOf("<root/>"), "0 |  | ");
    return parsed.status;
  }
  const ZQFilterActionList& list = parsed.stream.objectList->object.filter.actionList;
  std::string members;
  for (uint32_t i = 0; i < list.numItems; ++i) {
    members += (i > 0 ? ", " : "") + Members::of(list.items[i]);
  }
  EXPECT_EQ(list.items == nullptr, list.numItems == 0);
  return members;
}

struct Row {
  std::string content, members;
};

TEST(FilterActionReader, KindsOfActions) {
  const Row kRows[] = {
      {"", ""},
      {"<notify/>", "action=1"},
      {"<message/>", "action=2"},
      {"<setFieldList/>", "action=4"},
      {"<pushFieldList/>", "action=6"},
      {"<sql/>", "action=7"},
      {"<goto/>", "action=8"},
      {"<callGuide/>", "action=9"},
      {"<exitGuide/>", "action=10"},
      {"<gotoGuide/>", "action=11"},
      // In place: without their child they make no action.
      {"<logToFile/>", ""},
      {"<runProcess/>", ""},
      {"<logToFile><fileName>F</fileName></logToFile>", "action=3 logFile=\"F\""},
      {"<logToFile><fileName/></logToFile>", "action=3 logFile=\"\""},
      {"<runProcess><command>C</command></runProcess>", "action=5 process=\"C\""},
      {"<fileName>F</fileName>", "action=3 logFile=\"F\""},
      {"<command>C</command>", "action=5 process=\"C\""},
      {"text<logToFile>text<fileName>F</fileName>text</logToFile>text", "action=3 logFile=\"F\""},
      {"<openWindow/>", "2/8941 openWindow, line: 2, column 22"},
      {"<bogus/>", "2/8941 bogus, line: 2, column 17"},
      {"<label/>", "2/8941 label, line: 2, column 17"},
      {"<logToFile><bogus/></logToFile>", "2/8941 bogus, line: 2, column 28"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfActions("<action>" + row.content + "</action>"), row.members) << row.content;
  }
}

TEST(FilterActionReader, ListsOfActions) {
  const Row kRows[] = {
      {"", ""},
      {"text", ""},
      {"<action/>", ""},
      {"<action><sql/></action>text<action/><action><goto/></action>", "action=7, , action=8"},
      // An action in another is the next one of the list, and the outer one is over.
      {"<action><sql/><action><goto/></action></action>", "action=7, action=8"},
      {"<action><action/><goto/></action>", "2/8941 goto, line: 2, column 25"},
      // Nothing stands outside of an action.
      {"<notify/>", "2/8941 notify, line: 2, column 10"},
      {"<message/>", "2/8941 message, line: 2, column 11"},
      {"<setFieldList/>", "2/8941 setFieldList, line: 2, column 16"},
      {"<pushFieldList/>", "2/8941 pushFieldList, line: 2, column 17"},
      {"<sql/>", "2/8941 sql, line: 2, column 7"},
      {"<goto/>", "2/8941 goto, line: 2, column 8"},
      {"<callGuide/>", "2/8941 callGuide, line: 2, column 13"},
      {"<exitGuide/>", "2/8941 exitGuide, line: 2, column 13"},
      {"<gotoGuide/>", "2/8941 gotoGuide, line: 2, column 13"},
      {"<logToFile/>", "2/8941 logToFile, line: 2, column 13"},
      {"<runProcess/>", "2/8941 runProcess, line: 2, column 14"},
      {"<fileName/>", "2/8941 fileName, line: 2, column 12"},
      {"<command/>", "2/8941 command, line: 2, column 11"},
      {"<action/><sql/>", "2/8941 sql, line: 2, column 16"},
      {"<action><sql/></action><command/>", "2/8941 command, line: 2, column 34"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(membersOfActions(row.content), row.members) << row.content;
  }
}

// Of several kinds in one action the last one counts, whatever the others held.
TEST(FilterActionReader, SeveralKindsInOneAction) {
  const struct {
    std::string content, members;
  } kParts[] = {
      {"<notify><user>U</user><cc>C</cc><fieldIDList><fieldID>1</fieldID></fieldIDList></notify>",
       "action=1 notify{user=\"U\" fieldIdList[1] advanced{cc=\"C\"}}"},
      {"<message><messageText>T</messageText></message>", "action=2 message{messageText=\"T\"}"},
      {"<logToFile><fileName>F</fileName></logToFile>", "action=3 logFile=\"F\""},
      {"<setFieldList><setField><fieldID>1</fieldID><fieldValue><process><command>P</command></"
       "process></fieldValue>"
       "</setField></setFieldList>",
       "action=4 setFields[{fieldId=1 assignment{assignType=3 process=\"P\"}}]"},
      {"<runProcess><command>C</command></runProcess>", "action=5 process=\"C\""},
      {"<pushFieldList><pushField><targetFieldValue><process><command>P</command></process></"
       "targetFieldValue>"
       "</pushField></pushFieldList>",
       "action=6 pushFields[{assignment{assignType=3 process=\"P\"}}]"},
      {"<sql><sqlCommand>S</sqlCommand></sql>", "action=7 sql{sqlCommand=\"S\"}"},
      {"<goto><absoluteOrder>5</absoluteOrder></goto>", "action=8 gotoAction{tag=2 value=5}"},
      {"<callGuide><guideName>G</guideName></callGuide>", "action=9 callGuide{guideName=\"G\"}"},
      {"<exitGuide><closeAll>true</closeAll></exitGuide>", "action=10 exitGuide{closeAll=1}"},
      {"<gotoGuide><label>L</label></gotoGuide>", "action=11 gotoGuide{label=\"L\"}"},
  };
  for (const auto& first : kParts) {
    EXPECT_EQ(membersOfActions("<action>" + first.content + "</action>"), first.members);
    for (const auto& second : kParts) {
      EXPECT_EQ(membersOfActions("<action>" + first.content + second.content + "</action>"),
                second.members)
          << first.content;
    }
  }
  // Without their child they change nothing.
  EXPECT_EQ(membersOfActions("<action><command>C</command><logToFile/><runProcess/></action>"),
            "action=5 process=\"C\"");
  // A text that comes twice is joined, until its host begins again.
  EXPECT_EQ(membersOfActions("<action><command>C</command><command>D</command></action>"),
            "action=5 process=\"CD\"");
  EXPECT_EQ(membersOfActions("<action><runProcess><command>C</command></runProcess><runProcess>"
                             "<command>D</command></runProcess></action>"),
            "action=5 process=\"D\"");
  EXPECT_EQ(membersOfActions("<action><command>C</command></action><action><command>D</command>"
                             "</action>"),
            "action=5 process=\"C\", action=5 process=\"D\"");
}

void expectChild(const std::string& host, const std::string& before,
                 std::initializer_list<Row> rows) {
  for (const Row& row : rows) {
    const std::string content =
        "<action>\n<" + host + ">" + row.content + "</" + host + "></action>";
    std::string expected = row.members;
    if (expected.substr(0, 2) != "2/") {
      expected = before + (expected.empty() ? "" : " " + expected);
    }
    EXPECT_EQ(membersOfActions(content), expected) << row.content;
  }
}

TEST(FilterActionReader, Notifications) {
  expectChild(
      "notify", "action=1",
      {
          {"<user>U</user>", "notify{user=\"U\"}"},
          {"<user/>", "notify{user=\"\"}"},
          {"<notifyText>a\nb</notifyText>", "notify{notifyText=\"a<10>b\"}"},
          {"<priority>-5</priority>", "notify{priority=-5}"},
          {"<mechanism>1</mechanism>", "notify{mechanism=1}"},
          {"<mechanismXRef>4294967295</mechanismXRef>", "notify{mechanismXRef=-1}"},
          {"<subject>S</subject>", "notify{subject=\"S\"}"},
          {"<behavior>2</behavior>", "notify{behavior=2}"},
          {"<permission>3</permission>", "notify{permission=3}"},
          {"<fieldIncludeType>none</fieldIncludeType>", ""},
          {"<fieldIncludeType>all</fieldIncludeType>", "notify{fieldIncludeType=1}"},
          {"<fieldIncludeType>selected</fieldIncludeType>", "notify{fieldIncludeType=2}"},
          {"<fieldIncludeType>changed</fieldIncludeType>", "notify{fieldIncludeType=3}"},
          {"<fieldIncludeType/>", "2/8943 line: 3, column 28"},
          {"<fieldIncludeType>All</fieldIncludeType>", "2/8943 line: 3, column 49"},
          {"<fieldIDList><fieldID>1 </fieldID><fieldID>4294967295 </fieldID></fieldIDList>",
           "notify{fieldIdList[1 4294967295]}"},
          {"<fieldIDList/>", ""},
          {"<fieldIDList><fieldID>1</fieldID></fieldIDList><fieldIDList><groupID>2</groupID>"
           "</fieldIDList>",
           "notify{fieldIdList[2]}"},
          // The settings of mail are there from the first of their elements on.
          {"<replyTo>R</replyTo>", "notify{advanced{replyTo=\"R\"}}"},
          {"<cc>C</cc>", "notify{advanced{cc=\"C\"}}"},
          {"<bcc>B</bcc>", "notify{advanced{bcc=\"B\"}}"},
          {"<organization>O</organization>", "notify{advanced{organization=\"O\"}}"},
          {"<organization/>", "notify{advanced{organization=\"\"}}"},
          {"<mailboxName>M</mailboxName>", "notify{advanced{mailboxName=\"M\"}}"},
          {"<headerTemplate>H</headerTemplate>", "notify{advanced{headerTemplate=\"H\"}}"},
          {"<footerTemplate>F</footerTemplate>", "notify{advanced{footerTemplate=\"F\"}}"},
          {"<contentTemplate>C</contentTemplate>", "notify{advanced{contentTemplate=\"C\"}}"},
          {"<contentTemplate>C</contentTemplate><footerTemplate>F</footerTemplate><cc>c</cc>"
           "<cc>d</cc>",
           "notify{advanced{cc=\"cd\" footerTemplate=\"F\" contentTemplate=\"C\"}}"},
          // Deliberate: a sender is refused as if memory had run out.
          {"<from>F</from>", "2/300 "},
          {"<from/>", "2/300 "},
          {"<cc>C</cc><from>F</from>", "2/300 "},
          // Any order.
          {"<fieldIncludeType>all</fieldIncludeType>text<subject>S</subject>text<priority>1"
           "</priority><user>U</user>",
           "notify{user=\"U\" priority=1 subject=\"S\" fieldIncludeType=1}"},
          {"<user>a</user><user>b</user>", "notify{user=\"ab\"}"},
          {"<user>a<subject>S</subject>b</user>", "notify{user=\"a\" subject=\"S\"}"},
          {"<bogus/>", "2/8941 bogus, line: 3, column 17"},
          {"<fieldID/>", "2/8941 fieldID, line: 3, column 19"},
          {"<action/>", "2/8941 action, line: 3, column 18"},
          {"<fieldIDList><bogus/></fieldIDList>", "2/8941 bogus, line: 3, column 30"},
          {"<fieldIDList><accessList/></fieldIDList>", "2/8941 fieldIDList, line: 3, column 49"},
          {"<notify/>", "2/8941 notify, line: 3, column 27"},
      });
}

// A settings block without the sender's neighbours is null.
TEST(FilterActionReader, ANotificationWithoutMailHasNone) {
  const Parsed parsed(sharedHandle(),
                      inRoot("<filter><ifActions><action><notify><user/></notify></action>"
                             "</ifActions></filter>"));
  ASSERT_EQ(parsed.result, 0);
  EXPECT_EQ(parsed.stream.objectList->object.filter.actionList.items[0].u.notify.advanced, nullptr);
}

TEST(FilterActionReader, Messages) {
  expectChild("message", "action=2",
              {
                  {"<messageType>note</messageType>", ""},
                  {"<messageType>warning</messageType>", "message{messageType=1}"},
                  {"<messageType>error</messageType>", "message{messageType=2}"},
                  {"<messageType/>", "2/8943 line: 3, column 24"},
                  {"<messageType>fatal</messageType>", "2/8943 line: 3, column 42"},
                  {"<messageText>T</messageText>", "message{messageText=\"T\"}"},
                  {"<messageText/>", "message{messageText=\"\"}"},
                  {"<messageNumber>10001</messageNumber>", "message{messageNumber=10001}"},
                  {"<messageNumber>-1</messageNumber>", "message{messageNumber=-1}"},
                  {"<messageNumber>4294967296</messageNumber>", ""},
                  {"<messageNumber>1</messageNumber>text<messageText>T</messageText>"
                   "<messageType>error</messageType>",
                   "message{messageType=2 messageNumber=1 messageText=\"T\"}"},
                  {"<messageText>a</messageText><messageText>b</messageText>",
                   "message{messageText=\"ab\"}"},
                  {"<bogus/>", "2/8941 bogus, line: 3, column 18"},
                  {"<message/>", "2/8941 message, line: 3, column 30"},
              });
}

TEST(FilterActionReader, SQL) {
  const std::string name64(64, 's');
  expectChild(
      "sql", "action=7",
      {
          {"<serverName>S</serverName>", "sql{serverName=\"S\"}"},
          {"<serverName>" + name64 + "x</serverName>", "sql{serverName=\"" + name64 + "\"}"},
          {"<sqlCommand>C</sqlCommand>", "sql{sqlCommand=\"C\"}"},
          {"<sqlCommand/>", "sql{sqlCommand=\"\"}"},
          {"<sqlCommand>a</sqlCommand>text<serverName>S</serverName><sqlCommand>b"
           "</sqlCommand>",
           "sql{serverName=\"S\" sqlCommand=\"ab\"}"},
          {"<bogus/>", "2/8941 bogus, line: 3, column 14"},
          {"<sql/>", "2/8941 sql, line: 3, column 18"},
      });
}

TEST(FilterActionReader, Gotos) {
  const auto to = [](const char* tag, const char* value) {
    return std::string("gotoAction{tag=") + tag + " value=" + value + "}";
  };
  expectChild(
      "goto", "action=8",
      {
          {"<executionOrder/>", ""},
          {"<executionOrder><fieldIDReference>7</fieldIDReference></executionOrder>", to("1", "7")},
          {"<executionOrder><fieldIDReference>4294967295</fieldIDReference></executionOrder>",
           to("1", "-1")},
          {"<executionOrder><absoluteOrder>500</absoluteOrder></executionOrder>", to("2", "500")},
          {"<executionOrder><offsetForward>2</offsetForward></executionOrder>", to("3", "2")},
          {"<executionOrder><offsetBackward>3</offsetBackward></executionOrder>", to("4", "3")},
          {"<absoluteOrder>-5</absoluteOrder>", to("2", "-5")},
          {"<absoluteOrder/>", "gotoAction{tag=2}"},
          // Only a field is read as an unsigned number, which ends later.
          {"<fieldIDReference>9223372036854775813</fieldIDReference>", to("1", "5")},
          {"<absoluteOrder>9223372036854775813</absoluteOrder>", to("2", "-1")},
          // The last one counts.
          {"<offsetForward>1</offsetForward>text<absoluteOrder>2</absoluteOrder>", to("2", "2")},
          {"<absoluteOrder>2</absoluteOrder><fieldIDReference>1</fieldIDReference>", to("1", "1")},
          {"<absoluteOrder>2</absoluteOrder><absoluteOrder>3</absoluteOrder>", to("2", "23")},
          {"<executionOrder>500</executionOrder>", ""},
          {"<bogus/>", "2/8941 bogus, line: 3, column 15"},
          {"<goto/>", "2/8941 goto, line: 3, column 21"},
      });
}

TEST(FilterActionReader, CallsOfGuides) {
  const std::string name64(64, 's');
  const std::string name254(254, 'g');
  expectChild(
      "callGuide", "action=9",
      {
          {"<serverName>S</serverName>", "callGuide{serverName=\"S\"}"},
          {"<serverName>" + name64 + "x</serverName>", "callGuide{serverName=\"" + name64 + "\"}"},
          {"<guideName>G</guideName>", "callGuide{guideName=\"G\"}"},
          {"<guideName>" + name254 + "x</guideName>", "callGuide{guideName=\"" + name254 + "\"}"},
          {"<guideMode>-2</guideMode>", "callGuide{guideMode=-2}"},
          {"<loopTableFieldID>4294967295</loopTableFieldID>",
           "callGuide{loopTableFieldId=4294967295}"},
          {"<loopTableFieldID>-1</loopTableFieldID>", "callGuide{loopTableFieldId=4294967295}"},
          {"<guideMode>1</guideMode>text<guideName>G</guideName><serverName>S</serverName>",
           "callGuide{serverName=\"S\" guideName=\"G\" guideMode=1}"},
          {"<bogus/>", "2/8941 bogus, line: 3, column 20"},
          {"<callGuide/>", "2/8941 callGuide, line: 3, column 36"},
      });
}

TEST(FilterActionReader, GuidesLeftAndLabels) {
  expectChild("exitGuide", "action=10",
              {
                  {"<closeAll>true</closeAll>", "exitGuide{closeAll=1}"},
                  {"<closeAll>false</closeAll>", ""},
                  {"<closeAll/>", "2/8943 line: 3, column 23"},
                  {"<closeAll>1</closeAll>", "2/8943 line: 3, column 34"},
                  {"<bogus/>", "2/8941 bogus, line: 3, column 20"},
                  {"<exitGuide/>", "2/8941 exitGuide, line: 3, column 36"},
              });
  expectChild("gotoGuide", "action=11",
              {
                  {"<label>L</label>", "gotoGuide{label=\"L\"}"},
                  {"<label/>", "gotoGuide{label=\"\"}"},
                  {"<label>a</label><label>b</label>", "gotoGuide{label=\"ab\"}"},
                  {"<bogus/>", "2/8941 bogus, line: 3, column 20"},
                  {"<gotoGuide/>", "2/8941 gotoGuide, line: 3, column 36"},
              });
}

TEST(FilterActionReader, SetFields) {
  expectChild(
      "setFieldList", "action=4",
      {
          {"<setField/>", "setFields[{}]"},
          {"<setField><fieldID>7</fieldID><fieldValue><value><integerValue>5</integerValue></value>"
           "</fieldValue></setField>text<setField><fieldID>8</fieldID></setField>",
           "setFields[{fieldId=7 assignment{assignType=1 value{dataType=2 integerValue=5}}} "
           "{fieldId=8}]"},
          {"<bogus/>", "2/8941 bogus, line: 3, column 23"},
          {"<fieldID/>", "2/8941 fieldID, line: 3, column 25"},
      });
}

TEST(FilterActionReader, PushFields) {
  expectChild(
      "pushFieldList", "action=6",
      {
          {"<pushField/>", "pushFields[{}]"},
          {"<pushField/>text<pushField/>", "pushFields[{} {}]"},
          {"<pushField><targetField><fieldID>7</fieldID></targetField><targetFieldValue>"
           "<process><command>P</command></process></targetFieldValue></pushField>",
           "pushFields[{field{tag=1 fieldId=7} assignment{assignType=3 process=\"P\"}}]"},
          // The later of two counts.
          {"<pushField><targetFieldValue><process><command>P</command></process></"
           "targetFieldValue><targetFieldValue>"
           "<process><command>Q</command></process></targetFieldValue></pushField>",
           "pushFields[{assignment{assignType=3 process=\"Q\"}}]"},
          {"<pushField><targetField><fieldID>7</fieldID></targetField><targetField/></pushField>",
           "pushFields[{}]"},
          // Nothing stands outside of an entry.
          {"<targetField/>", "2/8941 targetField, line: 3, column 30"},
          {"<targetFieldValue/>", "2/8941 targetFieldValue, line: 3, column 35"},
          {"<pushField/><targetField/>", "2/8941 targetField, line: 3, column 42"},
          {"<pushField><bogus/></pushField>", "2/8941 bogus, line: 3, column 35"},
          {"<bogus/>", "2/8941 bogus, line: 3, column 24"},
          {"<pushFieldList/>", "2/8941 pushFieldList, line: 3, column 48"},
      });
}

}  // namespace
