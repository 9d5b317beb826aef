#include "xml/writers/filteractions.h"

#include <charconv>

#include "xml/ElementSink.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/assignments.h"
#include "xml/writers/lists.h"
#include "xml/writers/words.h"

namespace {

constexpr int kNotifyFields[] = {tag_none, tag_all, tag_selected, tag_changed};
constexpr int kMessageTypes[] = {tag_note, tag_warning, tag_error};
constexpr int kGotoTags[] = {tag_fieldIDReference, tag_absoluteOrder, tag_offsetForward,
                             tag_offsetBackward};

struct AdvancedText {
  int tag;
  char* ZQFilterActionNotifyAdvanced::*member;
};

// Deliberate: the copies, cc and bcc, are not written.
constexpr AdvancedText kAdvancedTexts[] = {
    {tag_from, &ZQFilterActionNotifyAdvanced::from},
    {tag_replyTo, &ZQFilterActionNotifyAdvanced::replyTo},
    {tag_organization, &ZQFilterActionNotifyAdvanced::organization},
    {tag_mailboxName, &ZQFilterActionNotifyAdvanced::mailboxName},
    {tag_headerTemplate, &ZQFilterActionNotifyAdvanced::headerTemplate},
    {tag_contentTemplate, &ZQFilterActionNotifyAdvanced::contentTemplate},
    {tag_footerTemplate, &ZQFilterActionNotifyAdvanced::footerTemplate},
};

// Deliberate: a blank stands behind each number.
void writeNotifyFields(ElementSink& sink, const ZQInternalIdList& list) {
  if (list.numItems == 0 || list.items == nullptr) {
    return;
  }
  sink.within(tag_fieldIDList, [&] {
    for (const ZQInternalId id : itemsOf(&list)) {
      char text[16];
      char* end = std::to_chars(text, text + sizeof text, id).ptr;
      *end++ = ' ';
      *end = '\0';
      sink.element(tag_fieldID, text);
    }
  });
}

void writeNotify(ElementSink& sink, const ZQFilterActionNotify& notify) {
  sink.element(tag_user, notify.user);
  sink.elementUnlessEmpty(tag_notifyText, notify.notifyText);
  sink.signedElement(tag_priority, notify.priority);
  sink.signedElement(tag_mechanism, notify.mechanism);
  sink.signedElement(tag_mechanismXRef, notify.mechanismXRef);
  sink.element(tag_subject, notify.subject);
  sink.signedElement(tag_behavior, notify.behavior);
  sink.signedElement(tag_permission, notify.permission);
  if (notify.advanced != nullptr) {
    for (const AdvancedText& each : kAdvancedTexts) {
      sink.elementUnlessNull(each.tag, notify.advanced->*each.member);
    }
  }
  sink.wordElement(tag_fieldIncludeType, wordOf(kNotifyFields, notify.fieldIncludeType, 0));
  writeNotifyFields(sink, notify.fieldIdList);
}

void writeMessage(ElementSink& sink, const ZQFilterStatusStruct& message) {
  sink.wordElement(tag_messageType, wordOf(kMessageTypes, message.messageType, 0));
  sink.elementUnlessEmpty(tag_messageText, message.messageText);
  sink.signedElement(tag_messageNumber, message.messageNumber);
}

int writeFilterAction(ElementSink& sink, const ZQFilterActionStruct& action) {
  const auto& content = action.u;
  switch (action.action) {
    case 1:
      sink.within(tag_notify, [&] { writeNotify(sink, content.notify); });
      return 0;
    case 2:
      sink.within(tag_message, [&] { writeMessage(sink, content.message); });
      return 0;
    case 3:
      sink.within(tag_logToFile, [&] { sink.element(tag_fileName, content.logFile); });
      return 0;
    case 4:
      return sink.within(tag_setFieldList, [&] {
        return writeFieldAssignList(sink, tag_setField, &content.setFields);
      });
    case 5:
      sink.within(tag_runProcess, [&] { sink.element(tag_command, content.process); });
      return 0;
    case 6:
      return sink.within(tag_pushFieldList,
                         [&] { return writePushFieldList(sink, &content.pushFields); });
    case 7:
      return sink.within(tag_sql, [&] { return writeSQLAction(sink, &content.sql); });
    case 8:
      return sink.within(tag_goto, [&] { return writeGoto(sink, &content.gotoAction); });
    case 9:
      return sink.within(tag_callGuide, [&] { return writeCallGuide(sink, &content.callGuide); });
    case 10:
      return sink.within(tag_exitGuide, [&] { return writeExitGuide(sink, &content.exitGuide); });
    case 11:
      return sink.within(tag_gotoGuide, [&] { return writeGotoGuide(sink, &content.gotoGuide); });
    default:
      return 0;
  }
}

}  // namespace

int writeFilterActions(ElementSink& sink, const ZQFilterActionList* list) {
  return writeEach(itemsOf(list), [&](const ZQFilterActionStruct& action) {
    return sink.within(tag_action, [&] { return writeFilterAction(sink, action); });
  });
}

int writeGoto(ElementSink& sink, const ZQGotoActionStruct* action) {
  if (action == nullptr) {
    return 0;
  }
  sink.within(tag_executionOrder, [&] {
    if (const int tag = wordOf(kGotoTags, action->tag); tag != 0) {
      sink.signedElement(tag, action->value);
    }
  });
  return 0;
}

int writeCallGuide(ElementSink& sink, const ZQCallGuideStruct* guide) {
  if (guide == nullptr) {
    return 0;
  }
  sink.arrayElement(tag_serverName, guide->serverName);
  sink.arrayElement(tag_guideName, guide->guideName);
  sink.signedElement(tag_guideMode, guide->guideMode);
  sink.signedElement(tag_loopTableFieldID, guide->loopTableFieldId);
  return 0;
}

int writeExitGuide(ElementSink& sink, const ZQExitGuideStruct* guide) {
  if (guide != nullptr) {
    sink.booleanElement(tag_closeAll, guide->closeAll != 0);
  }
  return 0;
}

int writeGotoGuide(ElementSink& sink, const ZQGotoGuideLabelStruct* label) {
  if (label != nullptr) {
    sink.element(tag_label, label->label);
  }
  return 0;
}

int writeSQLAction(ElementSink& sink, const ZQSQLStruct* sql) {
  if (sql != nullptr) {
    sink.arrayElement(tag_serverName, sql->serverName);
    sink.element(tag_sqlCommand, sql->sqlCommand);
  }
  return 0;
}
