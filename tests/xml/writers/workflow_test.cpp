#include "xml/writers/workflow.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "fault/FailingAllocations.h"
#include "records/StatusLists.h"
#include "xml/DOMTree.h"
#include "xml/writers/WorkflowCalls.h"
#include "xml/writers/Written.h"
#include "zqxml/zqxml.h"

namespace {

const std::string kNamespaces =
    " xmlns=\"urn:quorin:schemas:zqs\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
    " xsi:schemaLocation=\"urn:quorin:schemas:zqs zqs.xsd\"";
const std::string kHeader =
    "<?xml version=\"1.0\" encoding=\"windows-1252\"?>" + std::string(29, ' ') + "\n<root>\n";

template <typename Call>
std::string setText(const Call& call, unsigned frame) {
  ZQXMLOutputDoc doc = {1, {}};
  OwnedStatusList status;
  EXPECT_EQ(call.set(&doc, frame, &status), 0);
  EXPECT_EQ(describe(status), "");
  std::string text = doc.u.doc;
  FreeZQXMLOutputDocInternal(&doc, 0);
  return text;
}

template <typename Call>
std::string treeText(const Call& call) {
  const DOMTree tree("scratch");
  xercesc::DOMElement* element = tree->createElement(wide(Call::kElement).c_str());
  tree.root()->appendChild(element);
  EXPECT_EQ(call.build(tree.get(), element), 0);
  ZQGNString text;
  EXPECT_EQ(PrintDOMNode(1, element, text), 0);
  return static_cast<char*>(text);
}

// Expects the content of the object's element of both roads.
template <typename Call>
void expectObject(const Call& call, const std::string& content, const std::string& version = "") {
  SCOPED_TRACE(content);
  const std::string element = Call::kElement;
  const auto object = [&](const std::string& attributes) {
    return laidOut("<" + element + attributes +
                       (content.empty() ? "/>" : ">" + content + "</" + element + ">"),
                   1);
  };
  EXPECT_EQ(setText(call, 0), object(kNamespaces + version));
  EXPECT_EQ(setText(call, 1), kHeader + object(kNamespaces + version) + "</root>\n");
  EXPECT_EQ(treeText(call), object(version));
}

template <typename Call>
class Workflow : public testing::Test {
 protected:
  Call call;
};
using Calls = testing::Types<FilterCall, EscalationCall>;
TYPED_TEST_SUITE(Workflow, Calls);

TYPED_TEST(Workflow, NullPartsAreLeftOut) {
  expectObject(this->call, "");
}

TYPED_TEST(Workflow, TheVersionIsAnAttribute) {
  for (const int32_t version : {0, 7, INT32_MIN}) {
    this->call.xmlDocVersion = &version;
    expectObject(this->call, "", " zqDocVersion=\"" + std::to_string(version) + "\"");
  }
}

TYPED_TEST(Workflow, EmptyNamesAreLeftOut) {
  const std::string element = TypeParam::kNameElement;
  this->call.name = "";
  this->call.owner = "";
  this->call.lastChanged = "";
  expectObject(this->call, "");
  const std::string name(300, 'n');
  this->call.name = name.c_str();
  this->call.owner = "o & p";
  this->call.lastChanged = "a user whose name is longer than thirty bytes";
  expectObject(this->call, "<" + element + ">" + name + "</" + element +
                               "><owner>o &amp; p</owner>"
                               "<lastModifiedBy>a user whose name is longer than thirty bytes"
                               "</lastModifiedBy>");
}

TYPED_TEST(Workflow, TheDateIsInISOForm) {
  const ZQTimestamp winter = 1705312800;
  this->call.modifiedDate = &winter;
  expectObject(this->call, "<modifiedDate>2024-01-15T10:00:00Z</modifiedDate>");
  const ZQTimestamp none = -1;
  this->call.modifiedDate = &none;
  expectObject(this->call, "<modifiedDate>1970-01-01T00:00:00Z</modifiedDate>");
}

TYPED_TEST(Workflow, AnEmptyHelpTextStands) {
  this->call.helpText = "";
  expectObject(this->call, "<helpText/>");
  this->call.helpText = "help\n\tme";
  expectObject(this->call, "<helpText>help\n\tme</helpText>");
}

TYPED_TEST(Workflow, AnEmptyHistoryStands) {
  char empty[] = "";
  this->call.changeDiary = empty;
  expectObject(this->call, "<changeHistory/>");
}

TYPED_TEST(Workflow, TheHistoryIsConsumed) {
  char diary[] = "0\4u\4t\3";
  this->call.changeDiary = diary;
  EXPECT_NE(setText(this->call, 0).find("<entry>t</entry>"), std::string::npos);
  expectObject(this->call, "<changeHistory/>");
}

TYPED_TEST(Workflow, PropertiesNeedArrayAndCount) {
  ZQPropStruct property = {};
  property.property = 9;
  ZQPropList list = {1, &property};
  this->call.objPropList = &list;
  expectObject(this->call,
               "<objectProperties><property><value><nullValue/></value><tag>9</tag></property>"
               "</objectProperties>");
  list = {0, &property};
  expectObject(this->call, "");
  list = {1, nullptr};
  expectObject(this->call, "");
}

TYPED_TEST(Workflow, TheFormsDecideOnTheConnection) {
  ZQNameType names[3] = {"Form A", "", {}};
  memset(names[2], 'f', sizeof names[2]);
  ZQNameList list = {3, names};
  for (const uint32_t type : {0U, 1U, 2U}) {
    const ZQWorkflowConnectStruct connect = {type, &list};
    this->call.workflowConnect = &connect;
    list = {3, names};
    expectObject(this->call,
                 "<workflowConnect><formNameList><formName>Form A</formName><formName/><formName>" +
                     std::string(254, 'f') + "</formName></formNameList></workflowConnect>");
    list = {0, names};
    expectObject(this->call, "");
    list = {3, nullptr};
    expectObject(this->call, "");
  }
  const ZQWorkflowConnectStruct connect = {1, nullptr};
  this->call.workflowConnect = &connect;
  expectObject(this->call, "");
}

TYPED_TEST(Workflow, EnabledIsEverythingButZero) {
  for (const uint32_t enabled : {0U, 1U, 5U, 4294967295U}) {
    this->call.enabled = &enabled;
    expectObject(this->call,
                 std::string("<enabled>") + (enabled != 0 ? "true" : "false") + "</enabled>");
  }
}

TYPED_TEST(Workflow, NoConditionIsLeftOut) {
  ZQQualifierStruct query = {};
  query.operation = 5;
  query.u.fieldId = 7;
  this->call.query = &query;
  expectObject(this->call, "<runIfQualification><fieldID>7</fieldID></runIfQualification>");
  query.operation = 8;
  expectObject(this->call, "<runIfQualification/>");
  query.operation = 0;
  expectObject(this->call, "");
}

TYPED_TEST(Workflow, ActionsNeedArrayAndCount) {
  ZQFilterActionStruct actions[2] = {};
  ZQFilterActionList list = {2, actions};
  this->call.actionList = &list;
  expectObject(this->call, "<ifActions><action/><action/></ifActions>");
  this->call.actionList = nullptr;
  this->call.elseList = &list;
  expectObject(this->call, "<elseActions><action/><action/></elseActions>");
  this->call.actionList = &list;
  list = {0, actions};
  expectObject(this->call, "");
  list = {2, nullptr};
  expectObject(this->call, "");
}

// All parts, each as small as it can be.
class AllParts {
 public:
  template <typename Call>
  void fill(Call& call) {
    memcpy(diary, "0\4u\4t\3", sizeof "0\4u\4t\3");
    call.name = "N";
    call.workflowConnect = &connect;
    call.enabled = &one;
    call.query = &query;
    call.actionList = &actions;
    call.elseList = &actions;
    call.owner = "O";
    call.lastChanged = "L";
    call.modifiedDate = &date;
    call.helpText = "H";
    call.changeDiary = diary;
    call.objPropList = &properties;
    call.xmlDocVersion = &version;
  }

  const uint32_t one = 1;
  const uint32_t order = 4294967295U;
  ZQEscalationTmStruct time = {1, {60}};
  // Bytes are what a failing allocation can hit in a value.
  void useBytes() {
    property.value.dataType = 9;
    property.value.u.byteList = &bytes;
  }

 private:
  const ZQTimestamp date = 0;
  const int32_t version = 3;
  char diary[16];
  unsigned char byte = 1;
  ZQByteList bytes = {0, 1, &byte};
  ZQPropStruct property = {};
  ZQPropList properties = {1, &property};
  ZQNameType form = "F";
  ZQNameList forms = {1, &form};
  ZQWorkflowConnectStruct connect = {1, &forms};
  ZQQualifierStruct query = {5, {}};
  ZQFilterActionStruct action = {};
  ZQFilterActionList actions = {1, &action};
};

std::string headWithName(const std::string& nameElement) {
  return "<" + nameElement + ">N</" + nameElement +
         "><owner>O</owner><lastModifiedBy>L</lastModifiedBy>"
         "<modifiedDate>1970-01-01T00:00:00Z</modifiedDate><helpText>H</helpText>"
         "<changeHistory><changeEntry modifiedDate=\"1970-01-01T00:00:00Z\" userName=\"u\">"
         "<entry>t</entry></changeEntry></changeHistory>"
         "<objectProperties><property><value><nullValue/></value><tag>0</tag></property>"
         "</objectProperties>";
}

const std::string kConnection =
    "<workflowConnect><formNameList><formName>F</formName></formNameList></workflowConnect>";
const std::string kActions =
    "<runIfQualification><fieldID>0</fieldID></runIfQualification><ifActions><action/></ifActions>"
    "<elseActions><action/></elseActions>";

TEST(FilterWriter, AllPartsInOrder) {
  AllParts parts;
  FilterCall call;
  call.executionOrder = &parts.order;
  call.executeOn = &parts.one;
  const std::string expected = headWithName("filterName") + "<executionOrder>-1</executionOrder>" +
                               kConnection +
                               "<executeOn>getEntry</executeOn><enabled>true</enabled>" + kActions;
  parts.fill(call);
  EXPECT_EQ(treeText(call), laidOut("<filter zqDocVersion=\"3\">" + expected + "</filter>", 1));
  parts.fill(call);
  EXPECT_EQ(setText(call, 0),
            laidOut("<filter" + kNamespaces + " zqDocVersion=\"3\">" + expected + "</filter>", 1));
}

TEST(EscalationWriter, AllPartsInOrder) {
  AllParts parts;
  EscalationCall call;
  call.escalationTime = &parts.time;
  const std::string expected = headWithName("escalationName") +
                               "<escalationTime><interval>60</interval></escalationTime>" +
                               kConnection + "<enabled>true</enabled>" + kActions;
  parts.fill(call);
  EXPECT_EQ(treeText(call),
            laidOut("<escalation zqDocVersion=\"3\">" + expected + "</escalation>", 1));
  parts.fill(call);
  EXPECT_EQ(setText(call, 0), laidOut("<escalation" + kNamespaces + " zqDocVersion=\"3\">" +
                                          expected + "</escalation>",
                                      1));
}

TEST(FilterWriter, TheOrderIsSigned) {
  FilterCall call;
  for (const uint32_t order : {0U, 500U, 0x80000000U}) {
    call.executionOrder = &order;
    expectObject(call, "<executionOrder>" + std::to_string(static_cast<int32_t>(order)) +
                           "</executionOrder>");
  }
}

TEST(FilterWriter, OperationsInTheOrderOfTheirBits) {
  const char* const kWords[] = {"getEntry", "modify", "submit", "delete", "merge", "guide"};
  FilterCall call;
  for (uint32_t mask = 0; mask < 128; ++mask) {
    std::string words;
    for (uint32_t bit = 0; bit < 6; ++bit) {
      if ((mask >> bit & 1) != 0) {
        words += (words.empty() ? "" : " ") + std::string(kWords[bit]);
      }
    }
    call.executeOn = &mask;
    expectObject(call, words.empty() ? "<executeOn/>" : "<executeOn>" + words + "</executeOn>");
  }
  const uint32_t high = 0xFFFFFFC0;
  call.executeOn = &high;
  expectObject(call, "<executeOn/>");
}

void expectTime(const ZQEscalationTmStruct& time, const std::string& content) {
  EscalationCall call;
  call.escalationTime = &time;
  expectObject(call, content.empty() ? "<escalationTime/>"
                                     : "<escalationTime>" + content + "</escalationTime>");
}

void expectCalendar(const ZQDayStruct& date, const std::string& content) {
  ZQEscalationTmStruct time = {};
  time.escalationTmType = 2;
  time.u.date = date;
  expectTime(time,
             "<time>" + content + "<minute>" + std::to_string(date.minute) + "</minute></time>");
}

TEST(EscalationWriter, Intervals) {
  for (const int32_t interval : {0, 3600, -1, INT32_MIN}) {
    expectTime({1, {interval}}, "<interval>" + std::to_string(interval) + "</interval>");
  }
}

TEST(EscalationWriter, OtherTypesOfTimeAreEmpty) {
  for (const uint32_t type : {0U, 3U, 4294967295U}) {
    expectTime({type, {60}}, "");
  }
}

TEST(EscalationWriter, TheMinuteAlwaysStands) {
  expectCalendar({0, 0, 0, 0}, "");
  expectCalendar({0, 0, 0, -7}, "");
}

TEST(EscalationWriter, DaysOfMonthCountFromOne) {
  for (uint32_t bit = 0; bit < 31; ++bit) {
    expectCalendar({1U << bit, 0, 0, 5},
                   "<daysOfMonth>" + std::to_string(bit + 1) + "</daysOfMonth>");
  }
  expectCalendar({0x80000000, 0, 0, 5}, "<daysOfMonth/>");
  expectCalendar({0xE0004001, 0, 0, 5}, "<daysOfMonth>1 15 30 31</daysOfMonth>");
}

TEST(EscalationWriter, DaysOfWeekFromSunday) {
  const char* const kDays[] = {"sunday",   "monday", "tuesday", "wednesday",
                               "thursday", "friday", "saturday"};
  for (uint32_t bit = 0; bit < 7; ++bit) {
    expectCalendar({0, 1U << bit, 0, 5},
                   std::string("<daysOfWeek>") + kDays[bit] + "</daysOfWeek>");
  }
  expectCalendar({0, 0x80, 0, 5}, "<daysOfWeek/>");
  expectCalendar(
      {0, 0xFFFFFFFF, 0, 5},
      "<daysOfWeek>sunday monday tuesday wednesday thursday friday saturday</daysOfWeek>");
}

TEST(EscalationWriter, HoursCountFromZero) {
  for (uint32_t bit = 0; bit < 24; ++bit) {
    expectCalendar({0, 0, 1U << bit, 5}, "<hoursOfDay>" + std::to_string(bit) + "</hoursOfDay>");
  }
  expectCalendar({0, 0, 0xFF000000, 5}, "<hoursOfDay/>");
  expectCalendar({0, 0, 0x81800003, 5}, "<hoursOfDay>0 1 23</hoursOfDay>");
}

TEST(EscalationWriter, PartsOfTheCalendarInOrder) {
  expectCalendar({1, 2, 4, 30},
                 "<daysOfMonth>1</daysOfMonth><daysOfWeek>monday</daysOfWeek>"
                 "<hoursOfDay>2</hoursOfDay>");
}

// Fails each allocation of a call in turn: 300, and nothing is written.
template <typename Call>
void expectFailuresOfSet(AllParts& parts, Call& call) {
  parts.useBytes();
  const std::string longText(30000, 'h');
  const long injected = fault::forEachFailure([&](auto arm) {
    ZQXMLOutputDoc doc = {1, {}};
    ZQStatusList list = {};
    int result = 0;
    bool failed = false;
    parts.fill(call);
    call.helpText = longText.c_str();
    {
      const auto failing = arm();
      result = call.set(&doc, 1, &list);
      failed = fault::FailingAllocations::happened();
    }
    if (!failed) {
      EXPECT_EQ(result, 0);
    } else if (result == 2) {
      EXPECT_EQ(describe(list), "2/300 ");
    } else {
      EXPECT_EQ(result, 3);
    }
    EXPECT_EQ(doc.u.doc != nullptr, !failed);
    FreeZQXMLOutputDocInternal(&doc, 0);
    FreeZQStatusList(&list, 0);
    return failed;
  });
  EXPECT_GE(injected, 16);
}

TEST(FilterWriter, FailingAllocations) {
  AllParts parts;
  FilterCall call;
  call.executionOrder = &parts.order;
  call.executeOn = &parts.one;
  expectFailuresOfSet(parts, call);
}

TEST(EscalationWriter, FailingAllocations) {
  AllParts parts;
  EscalationCall call;
  call.escalationTime = &parts.time;
  expectFailuresOfSet(parts, call);
}

TYPED_TEST(Workflow, FailingAllocationsOfTheBuilder) {
  AllParts parts;
  parts.useBytes();
  EXPECT_GT(expectFailuresGive300([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
              parts.fill(this->call);
              return this->call.build(document, parent);
            }),
            0);
}

TYPED_TEST(Workflow, FailuresOfTheWayOut) {
  ZQXMLOutputDoc doc = {3, {}};
  OwnedStatusList status;
  EXPECT_EQ(this->call.set(&doc, 1, &status), 2);
  EXPECT_EQ(this->call.set(nullptr, 0, &status), 2);
  char absent[] = "/absent/document.xml";
  doc = {2, {absent}};
  EXPECT_EQ(this->call.set(&doc, 0, &status), 2);
  EXPECT_EQ(describe(status), "2/8954 ; 2/8952 ; 2/8952 ");
}

}  // namespace
