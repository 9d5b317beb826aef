// The records of examples/escalations.xml, made by hand, give that file.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <deque>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "xml/writers/WorkflowCalls.h"
#include "xml/writers/Written.h"
#include "zqxml/zqxml.h"

namespace {

constexpr ZQTimestamp kModified = 1709284500;  // 2024-03-01T09:15:00Z
constexpr uint32_t kYes = 1;
constexpr uint32_t kNo = 0;
constexpr int32_t kVersions[] = {1, 2};

// Keeps what records point to.
class Records {
 public:
  template <typename Record>
  Record* keep(const Record& record) {
    static std::deque<Record> kept;
    return &kept.emplace_back(record);
  }
};

Records gRecords;

template <typename List, typename Item>
List list(std::initializer_list<Item> items) {
  auto* kept = gRecords.keep(std::vector<Item>(items));
  List result = {};
  result.numItems = static_cast<uint32_t>(kept->size());
  result.items = kept->data();
  return result;
}

template <size_t Size>
void name(char (&target)[Size], const char* text) {
  memset(target, 0, Size);
  strncpy(target, text, Size - 1);
}

ZQValueStruct number(uint32_t dataType, uint32_t word) {
  ZQValueStruct value = {};
  value.dataType = dataType;
  value.u.unsignedLongValue = word;
  return value;
}

ZQValueStruct text(const char* content) {
  ZQValueStruct value = {};
  value.dataType = 4;
  value.u.characterValue = mutableText(content);
  return value;
}

ZQFieldValueOrArithStruct field(uint32_t id, uint32_t tag = 1) {
  ZQFieldValueOrArithStruct operand = {};
  operand.tag = tag;
  operand.u.fieldId = id;
  return operand;
}

ZQFieldValueOrArithStruct literal(const ZQValueStruct& value) {
  ZQFieldValueOrArithStruct operand = {};
  operand.tag = 2;
  operand.u.value = value;
  return operand;
}

ZQQualifierStruct relation(uint32_t operation, const ZQFieldValueOrArithStruct& left,
                           const ZQFieldValueOrArithStruct& right) {
  ZQQualifierStruct node = {};
  node.operation = 4;
  node.u.relationalOperation = gRecords.keep(ZQRelOpStruct{operation, left, right});
  return node;
}

ZQFilterActionStruct action(uint32_t kind) {
  ZQFilterActionStruct result = {};
  result.action = kind;
  return result;
}

ZQAssignStruct constant(const ZQValueStruct& value) {
  ZQAssignStruct assignment = {};
  assignment.assignType = 1;
  assignment.u.value = value;
  return assignment;
}

ZQFilterActionStruct setField(uint32_t id, const ZQAssignStruct& assignment) {
  ZQFilterActionStruct result = action(4);
  result.u.setFields = list<ZQFieldAssignList>({ZQFieldAssignStruct{id, assignment}});
  return result;
}

ZQFilterActionStruct message(uint32_t type, int32_t messageNumber, const char* content) {
  ZQFilterActionStruct result = action(2);
  result.u.message = {type, messageNumber, mutableText(content)};
  return result;
}

struct Form {
  ZQNameType name;
};

const ZQWorkflowConnectStruct* forms(std::initializer_list<const char*> names) {
  auto* kept = gRecords.keep(std::vector<Form>(names.size()));
  for (size_t i = 0; i < names.size(); ++i) {
    name((*kept)[i].name, names.begin()[i]);
  }
  ZQNameList* formList =
      gRecords.keep(ZQNameList{static_cast<uint32_t>(names.size()), &kept->data()->name});
  return gRecords.keep(ZQWorkflowConnectStruct{1, formList});
}

EscalationCall escalation(const char* objectName) {
  EscalationCall call;
  call.name = objectName;
  call.owner = "maren";
  call.lastChanged = "tomasz";
  call.modifiedDate = &kModified;
  call.enabled = &kYes;
  call.xmlDocVersion = &kVersions[0];
  return call;
}

const ZQEscalationTmStruct* interval(int32_t seconds) {
  ZQEscalationTmStruct time = {};
  time.escalationTmType = 1;
  time.u.interval = seconds;
  return gRecords.keep(time);
}

const ZQEscalationTmStruct* calendar(const ZQDayStruct& date) {
  ZQEscalationTmStruct time = {};
  time.escalationTmType = 2;
  time.u.date = date;
  return gRecords.keep(time);
}

EscalationCall reminder(char* diary) {
  EscalationCall call = escalation("HD:Ticket-Reminder");
  call.helpText =
      "Every hour, for tickets that are neither solved nor closed & late.\n"
      "\tFirst reminder after one hour\n\tthen again every hour";
  call.changeDiary = diary;
  call.objPropList = gRecords.keep(list<ZQPropList>({ZQPropStruct{60001, text("help-desk")}}));
  call.escalationTime = interval(3600);
  call.workflowConnect = forms({"HD:Ticket"});
  ZQQualifierStruct query = {};
  query.operation = 1;
  query.u.branches = {gRecords.keep(relation(4, field(1005), literal(number(6, 3)))),
                      gRecords.keep(relation(4, field(1013), literal(number(1, 5))))};
  call.query = gRecords.keep(query);

  ZQFilterActionStruct notify = action(1);
  notify.u.notify.user = mutableText("1030");
  notify.u.notify.notifyText = mutableText("Ticket 1001 is overdue.");
  notify.u.notify.priority = 1;
  notify.u.notify.mechanism = 2;
  notify.u.notify.subject = mutableText("Overdue: \"1002\"");
  notify.u.notify.fieldIncludeType = 2;
  notify.u.notify.fieldIdList = list<ZQInternalIdList>({1001U, 1002U, 1013U});

  ZQAssignFieldStruct counter = {};
  counter.tag = 1;
  counter.u.fieldId = 1006;
  counter.noMatchOption = 1;
  counter.multipleMatchOption = 1;
  ZQArithOpAssignStruct difference = {2, {}, constant(number(2, 1))};
  difference.operandLeft.assignType = 2;
  difference.operandLeft.u.field = gRecords.keep(counter);
  ZQAssignStruct lessOne = {};
  lessOne.assignType = 4;
  lessOne.u.arithOp = gRecords.keep(difference);
  call.actionList = gRecords.keep(list<ZQFilterActionList>({notify, setField(1006, lessOne)}));

  ZQFilterActionStruct log = action(3);
  log.u.logFile = mutableText("/var/log/helpdesk/reminder.log");
  call.elseList = gRecords.keep(list<ZQFilterActionList>({log}));
  return call;
}

EscalationCall nightlyClose(char* diary) {
  EscalationCall call = escalation("HD:Ticket-NightlyClose");
  call.helpText = "";
  call.changeDiary = diary;
  call.escalationTime = calendar({0, 0x7F, 0x800001, 30});
  call.workflowConnect = forms({"HD:Ticket"});
  ZQFieldValueOrArithStruct history = {};
  history.tag = 4;
  history.u.statHistory = {3, 1};
  call.query = gRecords.keep(relation(1, history, literal(text("maren"))));

  ZQPushFieldsStruct push = {};
  name(push.field.formName, "HD:Ticket");
  push.field.qualifier = relation(1, field(1001), field(1001, 99));
  push.field.tag = 1;
  push.field.u.fieldId = 1005;
  push.field.noMatchOption = 4;
  push.field.multipleMatchOption = 5;
  push.assignment = constant(number(6, 4));
  ZQFilterActionStruct pushed = action(6);
  pushed.u.pushFields = list<ZQPushFieldsList>({push});
  ZQFilterActionStruct process = action(5);
  process.u.process = mutableText("/opt/helpdesk/bin/sweep \"closed\"");
  call.actionList = gRecords.keep(list<ZQFilterActionList>({pushed, process}));
  return call;
}

EscalationCall monthEnd() {
  EscalationCall call = escalation("HD:Ticket-MonthEnd");
  call.escalationTime = calendar({1U | 1U << 14 | 1U << 29 | 1U << 30, 0, 1U << 6, 0});
  call.workflowConnect = forms({"HD:Ticket", "HD:TicketWithCustomer"});
  ZQFilterActionStruct sql = action(7);
  name(sql.u.sql.serverName, "helpdesk-a");
  sql.u.sql.sqlCommand =
      mutableText("insert into hd_month select unit, count(*) from hd_ticket group by unit");
  call.actionList = gRecords.keep(list<ZQFilterActionList>({sql}));
  return call;
}

EscalationCall workingHours() {
  EscalationCall call = escalation("HD:Ticket-WorkingHours");
  call.escalationTime = calendar({0, 2 | 32, 0x3FF00, 5});
  call.workflowConnect = forms({"HD:Ticket"});
  ZQFieldValueOrArithStruct set = {};
  set.tag = 5;
  set.u.valueSet = list<ZQValueList>({number(6, 0), number(6, 1), number(0, 0)});
  call.query = gRecords.keep(relation(8, field(1005), set));
  call.actionList =
      gRecords.keep(list<ZQFilterActionList>({message(0, 45020, "Queue looked at.")}));
  call.elseList = gRecords.keep(list<ZQFilterActionList>({message(1, 45021, nullptr)}));
  return call;
}

EscalationCall onTheMinute() {
  EscalationCall call = escalation("HD:Ticket-OnTheMinute");
  call.escalationTime = calendar({0, 0, 0, 45});
  call.workflowConnect = forms({"HD:Ticket"});
  ZQQualifierStruct query = {};
  query.operation = 5;
  query.u.fieldId = 1011;
  call.query = gRecords.keep(query);
  call.actionList =
      gRecords.keep(list<ZQFilterActionList>({setField(1012, constant(number(1, 5)))}));
  return call;
}

EscalationCall purge() {
  EscalationCall call;
  call.name = "HD:Customer-Purge";
  call.modifiedDate = &kModified;
  call.escalationTime = interval(604800);
  call.enabled = &kNo;
  call.xmlDocVersion = &kVersions[1];
  return call;
}

TEST(EscalationWriter, TheExampleByteForByte) {
  char reminderDiary[] =
      "1705046400\4maren\4Created.\3"
      "1707897600\4maren\4Was every 2 hours; < 1 hour is not wanted.\3";
  char closeDiary[] = "1705047000\4tomasz\4Created.\3";
  char path[] = "/tmp/escalationsXXXXXX";
  ZQXMLOutputDoc doc = {4, {}};
  doc.u.fileHandle = mkstemp(path);
  ASSERT_NE(doc.u.fileHandle, -1);
  EXPECT_EQ(SetDocHeaderToXML(&doc, nullptr), 0);
  for (const EscalationCall& call : {reminder(reminderDiary), nightlyClose(closeDiary), monthEnd(),
                                     workingHours(), onTheMinute(), purge()}) {
    EXPECT_EQ(call.set(&doc, 0, nullptr), 0);
  }
  EXPECT_EQ(SetDocFooterToXML(&doc, nullptr), 0);
  close(doc.u.fileHandle);
  const auto read = [](const std::string& file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
  };
  EXPECT_EQ(read(path), read(ZQXML_EXAMPLES_DIR "/escalations.xml"));
  unlink(path);
}

}  // namespace
