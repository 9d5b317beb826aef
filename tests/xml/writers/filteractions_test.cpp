#include "xml/writers/filteractions.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "xml/writers/Written.h"

namespace {

std::string inside(const std::string& name, const std::string& content) {
  return content.empty() ? "<" + name + "/>" : "<" + name + ">" + content + "</" + name + ">";
}

void expectAction(ZQFilterActionStruct action, const std::string& content) {
  SCOPED_TRACE(content);
  const ZQFilterActionList list = {1, &action};
  expectRecord(writeFilterActions, CreateFilterActionListNode, &list, inside("action", content));
}

ZQFilterActionStruct actionOf(uint32_t kind) {
  ZQFilterActionStruct action = {};
  action.action = kind;
  return action;
}

TEST(FilterActionWriter, UnknownKindsLeaveTheActionEmpty) {
  for (const uint32_t kind : {0U, 12U, 17U, 4294967295U}) {
    ZQFilterActionStruct action = actionOf(kind);
    action.u.logFile = mutableText("a");
    expectAction(action, "");
  }
}

TEST(FilterActionWriter, ActionsInOrder) {
  ZQFilterActionStruct actions[] = {actionOf(10), actionOf(0), actionOf(3)};
  ZQFilterActionList list = {3, actions};
  expectRecord(writeFilterActions, CreateFilterActionListNode, &list,
               "<action><exitGuide><closeAll>false</closeAll></exitGuide></action><action/>"
               "<action><logToFile><fileName/></logToFile></action>");
  list.numItems = 0;
  expectRecord(writeFilterActions, CreateFilterActionListNode, &list, "");
  list = {3, nullptr};
  expectRecord(writeFilterActions, CreateFilterActionListNode, &list, "");
  expectRecord<ZQFilterActionList>(writeFilterActions, CreateFilterActionListNode, nullptr, "");
}

// A notification that has nothing but what always stands.
struct PlainNotify {
  std::string text;
  std::string advanced;
  std::string includeType = "<fieldIncludeType>none</fieldIncludeType>";
  std::string ids;
  std::string head = "<user/>";
  std::string numbers =
      "<priority>0</priority><mechanism>0</mechanism><mechanismXRef>0</mechanismXRef><subject/>"
      "<behavior>0</behavior><permission>0</permission>";

  std::string content() const {
    return "<notify>" + head + text + numbers + advanced + includeType + ids + "</notify>";
  }
};

TEST(FilterActionWriter, ANotificationWithNothing) {
  expectAction(actionOf(1), PlainNotify().content());
}

TEST(FilterActionWriter, ANotificationWithItsNumbers) {
  ZQFilterActionStruct action = actionOf(1);
  ZQFilterActionNotify& notify = action.u.notify;
  notify.user = mutableText("u & v");
  notify.subject = mutableText("s");
  notify.priority = -1;
  notify.mechanism = INT32_MIN;
  notify.mechanismXRef = INT32_MAX;
  notify.behavior = -2;
  notify.permission = 3;
  PlainNotify expected;
  expected.head = "<user>u &amp; v</user>";
  expected.numbers =
      "<priority>-1</priority><mechanism>-2147483648</mechanism>"
      "<mechanismXRef>2147483647</mechanismXRef><subject>s</subject><behavior>-2</behavior>"
      "<permission>3</permission>";
  expectAction(action, expected.content());
}

TEST(FilterActionWriter, AnEmptyNotifyTextIsLeftOut) {
  ZQFilterActionStruct action = actionOf(1);
  PlainNotify expected;
  action.u.notify.notifyText = mutableText("");
  expectAction(action, expected.content());
  action.u.notify.notifyText = mutableText("t");
  expected.text = "<notifyText>t</notifyText>";
  expectAction(action, expected.content());
}

TEST(FilterActionWriter, FieldsOfANotification) {
  const char* const kWords[] = {"none", "all", "selected", "changed", "", ""};
  ZQFilterActionStruct action = actionOf(1);
  PlainNotify expected;
  for (const uint32_t type : {0U, 1U, 2U, 3U, 4U}) {
    action.u.notify.fieldIncludeType = type;
    expected.includeType = inside("fieldIncludeType", kWords[type]);
    expectAction(action, expected.content());
  }
  action.u.notify.fieldIncludeType = 4294967295U;
  expectAction(action, expected.content());
  ZQInternalId ids[] = {1, 4294967295U};
  action.u.notify.fieldIdList = {2, ids};
  expected.ids = "<fieldIDList><fieldID>1 </fieldID><fieldID>4294967295 </fieldID></fieldIDList>";
  expectAction(action, expected.content());
  expected.ids.clear();
  action.u.notify.fieldIdList = {0, ids};
  expectAction(action, expected.content());
  action.u.notify.fieldIdList = {2, nullptr};
  expectAction(action, expected.content());
}

TEST(FilterActionWriter, AdvancedTextsButTheCopies) {
  ZQFilterActionNotifyAdvanced advanced = {
      mutableText("f"),  mutableText("r"),  mutableText("cc"), mutableText("bcc"), mutableText("o"),
      mutableText("mb"), mutableText("ht"), mutableText("ft"), mutableText("ct")};
  ZQFilterActionStruct action = actionOf(1);
  action.u.notify.advanced = &advanced;
  PlainNotify expected;
  expected.advanced =
      "<from>f</from><replyTo>r</replyTo><organization>o</organization>"
      "<mailboxName>mb</mailboxName><headerTemplate>ht</headerTemplate>"
      "<contentTemplate>ct</contentTemplate><footerTemplate>ft</footerTemplate>";
  expectAction(action, expected.content());
  char* empty = mutableText("");
  advanced = {empty, empty, empty, empty, empty, empty, empty, empty, empty};
  expected.advanced =
      "<from/><replyTo/><organization/><mailboxName/><headerTemplate/><contentTemplate/>"
      "<footerTemplate/>";
  expectAction(action, expected.content());
  advanced = {};
  expected.advanced.clear();
  expectAction(action, expected.content());
  advanced.organization = empty;
  expected.advanced = "<organization/>";
  expectAction(action, expected.content());
}

TEST(FilterActionWriter, Messages) {
  const char* const kTypes[] = {"note", "warning", "error", "", ""};
  ZQFilterActionStruct action = actionOf(2);
  for (uint32_t type = 0; type < 5; ++type) {
    action.u.message = {type, -7, nullptr};
    expectAction(action, inside("message", inside("messageType", kTypes[type]) +
                                               "<messageNumber>-7</messageNumber>"));
  }
  action.u.message = {5, 45000, mutableText("")};
  expectAction(action, "<message><messageType/><messageNumber>45000</messageNumber></message>");
  action.u.message.messageText = mutableText("t");
  expectAction(action,
               "<message><messageType/><messageText>t</messageText>"
               "<messageNumber>45000</messageNumber></message>");
}

TEST(FilterActionWriter, ActionsOfOneText) {
  struct Case {
    uint32_t kind;
    const char* host;
    const char* element;
  };
  for (const Case& each : {Case{3, "logToFile", "fileName"}, Case{5, "runProcess", "command"},
                           Case{11, "gotoGuide", "label"}}) {
    ZQFilterActionStruct action = actionOf(each.kind);
    for (const char* text : {static_cast<const char*>(nullptr), "", "a < b"}) {
      action.u.logFile = mutableText(text);
      const bool isEmpty = text == nullptr || *text == '\0';
      expectAction(action, inside(each.host, inside(each.element, isEmpty ? "" : "a &lt; b")));
    }
  }
}

ZQAssignStruct constant(int32_t number) {
  ZQAssignStruct assignment = {};
  assignment.assignType = 1;
  assignment.u.value.dataType = 2;
  assignment.u.value.u.integerValue = number;
  return assignment;
}

TEST(FilterActionWriter, SetFields) {
  ZQFieldAssignStruct assigns[] = {{1, constant(5)}, {2, {}}};
  ZQFilterActionStruct action = actionOf(4);
  action.u.setFields = {2, assigns};
  expectAction(action,
               "<setFieldList><setField><fieldID>1</fieldID><fieldValue><value>"
               "<integerValue>5</integerValue></value></fieldValue></setField>"
               "<setField><fieldID>2</fieldID><fieldValue/></setField></setFieldList>");
  action.u.setFields = {0, nullptr};
  expectAction(action, "<setFieldList/>");
  action.u.setFields = {2, nullptr};
  expectAction(action, "<setFieldList/>");
}

TEST(FilterActionWriter, PushFields) {
  ZQPushFieldsStruct push = {};
  push.field.tag = 1;
  push.field.u.fieldId = 7;
  push.assignment = constant(5);
  ZQFilterActionStruct action = actionOf(6);
  action.u.pushFields = {1, &push};
  expectAction(action,
               "<pushFieldList><pushField><targetField><serverName/><formName/>"
               "<fieldID>7</fieldID><noMatchOption/><multipleMatchOption/></targetField>"
               "<targetFieldValue><value><integerValue>5</integerValue></value></targetFieldValue>"
               "</pushField></pushFieldList>");
  action.u.pushFields = {0, nullptr};
  expectAction(action, "<pushFieldList/>");
}

TEST(FilterActionWriter, SQL) {
  ZQFilterActionStruct action = actionOf(7);
  expectAction(action, "<sql><serverName/><sqlCommand/></sql>");
  memset(action.u.sql.serverName, 's', sizeof action.u.sql.serverName);
  action.u.sql.sqlCommand = mutableText("delete");
  expectAction(action, inside("sql", inside("serverName", std::string(64, 's')) +
                                         "<sqlCommand>delete</sqlCommand>"));
}

TEST(FilterActionWriter, Gotos) {
  const char* const kElements[] = {"",
                                   "<fieldIDReference>-5</fieldIDReference>",
                                   "<absoluteOrder>-5</absoluteOrder>",
                                   "<offsetForward>-5</offsetForward>",
                                   "<offsetBackward>-5</offsetBackward>",
                                   ""};
  for (uint32_t tag = 0; tag < 6; ++tag) {
    ZQFilterActionStruct action = actionOf(8);
    action.u.gotoAction = {tag, -5};
    const std::string content = inside("executionOrder", kElements[tag]);
    expectAction(action, inside("goto", content));
    expectRecord(writeGoto, CreateGotoActionNode, &action.u.gotoAction, content);
  }
  expectRecord<ZQGotoActionStruct>(writeGoto, CreateGotoActionNode, nullptr, "");
}

TEST(FilterActionWriter, CallsOfGuides) {
  ZQFilterActionStruct action = actionOf(9);
  action.u.callGuide = {"srv", "Guide", -1, 4294967295U};
  std::string content =
      "<serverName>srv</serverName><guideName>Guide</guideName><guideMode>-1</guideMode>"
      "<loopTableFieldID>-1</loopTableFieldID>";
  expectAction(action, inside("callGuide", content));
  expectRecord(writeCallGuide, CreateCallGuideNode, &action.u.callGuide, content);
  ZQCallGuideStruct& guide = action.u.callGuide;
  guide = {};
  expectAction(action,
               "<callGuide><serverName/><guideName/><guideMode>0</guideMode>"
               "<loopTableFieldID>0</loopTableFieldID></callGuide>");
  memset(guide.serverName, 's', sizeof guide.serverName);
  memset(guide.guideName, 'g', sizeof guide.guideName);
  expectAction(action, inside("callGuide", inside("serverName", std::string(64, 's')) +
                                               inside("guideName", std::string(254, 'g')) +
                                               "<guideMode>0</guideMode>"
                                               "<loopTableFieldID>0</loopTableFieldID>"));
  expectRecord<ZQCallGuideStruct>(writeCallGuide, CreateCallGuideNode, nullptr, "");
}

TEST(FilterActionWriter, ExitsOfGuides) {
  for (const int closeAll : {0, 1, 255}) {
    ZQFilterActionStruct action = actionOf(10);
    action.u.exitGuide.closeAll = static_cast<ZQBoolean>(closeAll);
    expectAction(action, inside("exitGuide", inside("closeAll", closeAll != 0 ? "true" : "false")));
  }
}

TEST(FilterActionWriter, NullRecordsWriteNothing) {
  const auto expectNothing = [](const Write& write) { expectWritten(write, nullptr, ""); };
  expectNothing([](ElementSink& sink) { return writeExitGuide(sink, nullptr); });
  expectNothing([](ElementSink& sink) { return writeGotoGuide(sink, nullptr); });
  expectNothing([](ElementSink& sink) { return writeSQLAction(sink, nullptr); });
}

TEST(FilterActionWriter, FailuresOfAnAssignmentAreHandedOn) {
  unsigned char bytes[] = {'M', 'a', 'n'};
  ZQByteList list = {0, 3, bytes};
  ZQAssignStruct value = constant(0);
  value.u.value.dataType = 9;
  value.u.value.u.byteList = &list;
  ZQFieldAssignStruct assigns[] = {{1, value}, {2, value}};
  ZQPushFieldsStruct push = {};
  push.assignment = value;
  ZQFilterActionStruct actions[] = {actionOf(4), actionOf(6)};
  actions[0].u.setFields = {2, assigns};
  actions[1].u.pushFields = {1, &push};
  const ZQFilterActionList actionList = {2, actions};
  EXPECT_GE(expectFailuresGive300([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
              return CreateFilterActionListNode(document, parent, &actionList);
            }),
            2 * 3);
}

}  // namespace
