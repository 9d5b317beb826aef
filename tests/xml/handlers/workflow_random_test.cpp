// Random filters and escalations, written, read and compared.

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "records/RecordTools.h"
#include "records/Trees.h"
#include "xml/handlers/Parsed.h"
#include "xml/handlers/WorkflowDocument.h"

namespace {

// Makes objects as an application might, and some that it wouldn't: numbers out of their tables,
// bits without a meaning, texts that are null.
class Maker {
 public:
  explicit Maker(uint32_t seed) : random(seed) {}

  ZQXMLFilter filter() {
    ZQXMLFilter made = {};
    common(made);
    made.executionOrder = number();
    made.executeOn = oneIn(3) ? number() : below(64);
    return made;
  }

  ZQXMLEscalation escalation() {
    ZQXMLEscalation made = {};
    common(made);
    made.escalationTime.escalationTmType = below(4);
    if (made.escalationTime.escalationTmType == 1) {
      made.escalationTime.u.interval = static_cast<int32_t>(number());
    } else if (made.escalationTime.escalationTmType == 2) {
      made.escalationTime.u.date = {mask(), mask(), mask(), static_cast<int32_t>(number())};
    }
    return made;
  }

 private:
  uint32_t below(uint32_t limit) { return static_cast<uint32_t>(random() % limit); }
  bool oneIn(uint32_t chance) { return below(chance) == 0; }
  uint32_t number() { return oneIn(3) ? static_cast<uint32_t>(random()) : below(1000); }
  uint32_t mask() { return oneIn(4) ? 0 : static_cast<uint32_t>(random()); }

  std::string string(size_t most) {
    static const std::vector<std::string> kPieces = {
        "a", "Z", "0", " ", "<", ">", "&", "\"", "'", "\n", "\t", "\x01", "\x1F", "]]>",
        // Not three bytes: a piece of a text has two for each character.
        "\xC3\xA9", "&amp;", "</x>"};
    std::string text;
    for (uint32_t i = below(12); i > 0; --i) {
      const std::string& piece = kPieces[below(static_cast<uint32_t>(kPieces.size()))];
      if (text.size() + piece.size() <= most) {
        text += piece;
      }
    }
    return text;
  }

  char* text() { return oneIn(5) ? nullptr : newText(string(100).c_str()); }

  template <size_t kSize>
  void name(char (&array)[kSize]) {
    const std::string value = oneIn(10) ? std::string(kSize - 1, 'n') : string(kSize - 1);
    memcpy(array, value.c_str(), value.size());
  }

  template <typename List>
  void list(List& target, auto make) {
    target.numItems = below(4);
    if (target.numItems > 0) {
      using Item = std::remove_reference_t<decltype(*target.items)>;
      target.items = static_cast<Item*>(calloc(target.numItems, sizeof(Item)));
      for (uint32_t i = 0; i < target.numItems; ++i) {
        make(target.items[i]);
      }
    }
  }

  // Of the kinds of values that come back as they are.
  ZQValueStruct value() {
    ZQValueStruct made = {};
    const uint32_t kTypes[] = {0, 1, 2, 4, 5, 6, 8, 10, 40};
    made.dataType = kTypes[below(std::size(kTypes))];
    if (made.dataType == 4 || made.dataType == 5 || made.dataType == 10) {
      made.u.characterValue = newText(string(100).c_str());
    } else if (made.dataType != 0) {
      made.u.unsignedLongValue = number();
    }
    return made;
  }

  ZQQualifierStruct condition(int depth) {
    switch (depth == 0 ? 2 : below(5)) {
      case 0:
        return branches(1, condition(depth - 1), condition(depth - 1));
      case 1:
        return branches(2, condition(depth - 1), condition(depth - 1));
      case 2:
        return bareField(number());
      case 3:
        return notQualifier(condition(depth - 1));
      default:
        return relation(fieldOperand(1, number()), valueOperand(value()));
    }
  }

  ZQAssignStruct assignment() {
    ZQAssignStruct made = {};
    switch (below(4)) {
      case 0:
        made.assignType = 1;
        made.u.value = value();
        break;
      case 1:
        made.assignType = 3;
        made.u.process = newText(string(100).c_str());
        break;
      case 2:
        made.assignType = 2;
        made.u.field = newRecord(assignedField());
        break;
      default:
        break;
    }
    return made;
  }

  ZQAssignFieldStruct assignedField() {
    ZQAssignFieldStruct made = {};
    name(made.serverName);
    name(made.formName);
    made.qualifier = oneIn(2) ? condition(2) : ZQQualifierStruct{};
    made.tag = 1;
    made.u.fieldId = number();
    made.noMatchOption = 1 + below(4);
    made.multipleMatchOption = 1 + below(5);
    return made;
  }

  ZQFilterActionNotify notify() {
    ZQFilterActionNotify made = {};
    made.user = text();
    made.notifyText = text();
    made.priority = static_cast<int32_t>(number());
    made.mechanism = static_cast<int32_t>(number());
    made.mechanismXRef = static_cast<int32_t>(number());
    made.subject = text();
    made.fieldIncludeType = below(4);
    list(made.fieldIdList, [this](ZQInternalId& id) { id = number(); });
    made.behavior = static_cast<int32_t>(number());
    made.permission = static_cast<int32_t>(number());
    if (oneIn(2)) {
      // All but the sender, with which nothing can be read.
      made.advanced = newRecord(ZQFilterActionNotifyAdvanced{
          nullptr, text(), text(), text(), text(), text(), text(), text(), text()});
    }
    return made;
  }

  ZQFilterActionStruct action() {
    ZQFilterActionStruct made = {};
    made.action = below(13);
    auto& content = made.u;
    switch (made.action) {
      case 1:
        content.notify = notify();
        break;
      case 2:
        content.message = {below(3), static_cast<int32_t>(number()), text()};
        break;
      case 3:
        content.logFile = text();
        break;
      case 4:
        list(content.setFields, [this](ZQFieldAssignStruct& item) {
          item = {number(), assignment()};
        });
        break;
      case 5:
        content.process = text();
        break;
      case 6:
        list(content.pushFields, [this](ZQPushFieldsStruct& item) {
          item = {assignedField(), assignment()};
        });
        break;
      case 7:
        name(content.sql.serverName);
        content.sql.sqlCommand = text();
        break;
      case 8:
        content.gotoAction = {below(6), static_cast<int32_t>(number())};
        break;
      case 9:
        name(content.callGuide.serverName);
        name(content.callGuide.guideName);
        content.callGuide.guideMode = static_cast<int32_t>(number());
        content.callGuide.loopTableFieldId = number();
        break;
      case 10:
        content.exitGuide.closeAll = static_cast<ZQBoolean>(below(3));
        break;
      case 11:
        content.gotoGuide.label = text();
        break;
      default:
        break;
    }
    return made;
  }

  char* diary() {
    if (oneIn(3)) {
      return nullptr;
    }
    std::string made;
    for (uint32_t i = below(3); i > 0; --i) {
      // Attributes aren't escaped, so the users are plain.
      made += std::to_string(static_cast<int32_t>(random() >> 1)) + "\4user" +
              std::to_string(below(100)) + "\4" + plain(string(100)) + "\3";
    }
    return newText((made + (oneIn(3) ? "1\4unfinished" : "")).c_str());
  }

  // Without the separators of a diary.
  static std::string plain(std::string text) {
    std::erase_if(text, [](char c) { return c == '\3' || c == '\4'; });
    return text;
  }

  template <typename Object>
  void common(Object& made) {
    name(made.name);
    made.xmlDocVersion = static_cast<int32_t>(number());
    name(made.owner);
    name(made.lastChanged);
    made.modifiedDate = static_cast<int32_t>(number());
    made.helpText = text();
    made.changeDiary = diary();
    list(made.objPropList, [this](ZQPropStruct& item) { item = {number(), value()}; });
    made.workflowConnect.type = below(3);
    if (oneIn(2)) {
      made.workflowConnect.type = 1;
      made.workflowConnect.formList = newRecord(ZQNameList{});
      list(*made.workflowConnect.formList, [this](ZQNameType& item) { name(item); });
    }
    made.enabled = below(3);
    made.query = oneIn(3) ? ZQQualifierStruct{} : condition(4);
    list(made.actionList, [this](ZQFilterActionStruct& item) { item = action(); });
    list(made.elseList, [this](ZQFilterActionStruct& item) { item = action(); });
  }

  std::mt19937 random;
};

void nullToEmpty(char*& text) {
  if (text == nullptr) {
    text = newText("");
  }
}

void emptyToNull(char*& text) {
  if (text != nullptr && *text == '\0') {
    free(text);
    text = nullptr;
  }
}

// All that doesn't survive writing and reading: what an object becomes by it.

void lose(ZQFilterActionStruct& action) {
  auto& content = action.u;
  switch (action.action) {
    case 1: {
      ZQFilterActionNotify& notify = content.notify;
      // These elements always stand: a text that is null comes back empty.
      nullToEmpty(notify.user);
      nullToEmpty(notify.subject);
      // This one doesn't, if it is empty.
      emptyToNull(notify.notifyText);
      if (notify.advanced != nullptr) {
        ZQFilterActionNotifyAdvanced& advanced = *notify.advanced;
        // The copies are not written.
        for (char** text : {&advanced.cc, &advanced.bcc}) {
          free(*text);
          *text = nullptr;
        }
        // Settings without any text are not there.
        if (advanced.replyTo == nullptr && advanced.organization == nullptr &&
            advanced.mailboxName == nullptr && advanced.headerTemplate == nullptr &&
            advanced.footerTemplate == nullptr && advanced.contentTemplate == nullptr) {
          free(notify.advanced);
          notify.advanced = nullptr;
        }
      }
      break;
    }
    case 2:
      emptyToNull(content.message.messageText);
      break;
    case 3:
      nullToEmpty(content.logFile);
      break;
    case 5:
      nullToEmpty(content.process);
      break;
    case 7:
      nullToEmpty(content.sql.sqlCommand);
      break;
    case 8:
      // A goto of another kind than the four is empty.
      if (content.gotoAction.tag < 1 || content.gotoAction.tag > 4) {
        content.gotoAction = {};
      }
      break;
    case 10:
      content.exitGuide.closeAll = content.exitGuide.closeAll != 0;
      break;
    case 11:
      nullToEmpty(content.gotoGuide.label);
      break;
    case 12:
      // An action of another kind than the eleven is empty.
      action.action = 0;
      break;
    default:
      break;
  }
}

template <typename Object>
void loseCommon(Object& object) {
  // The time stamp -1 stands for none.
  if (object.modifiedDate == -1) {
    object.modifiedDate = 0;
  }
  // An entry that isn't finished is dropped.
  if (object.changeDiary != nullptr) {
    char* end = strrchr(object.changeDiary, '\3');
    (end != nullptr ? end[1] : object.changeDiary[0]) = '\0';
  }
  // The forms decide, not the type.
  ZQWorkflowConnectStruct& connect = object.workflowConnect;
  if (connect.formList == nullptr || connect.formList->numItems == 0) {
    free(connect.formList);
    connect = {};
  }
  object.enabled = object.enabled != 0;
  for (ZQFilterActionList* list : {&object.actionList, &object.elseList}) {
    for (uint32_t i = 0; i < list->numItems; ++i) {
      lose(list->items[i]);
    }
  }
}

void lose(ZQXMLFilter& filter) {
  loseCommon(filter);
  // There are six operations.
  filter.executeOn &= 0x3F;
}

void lose(ZQXMLEscalation& escalation) {
  loseCommon(escalation);
  ZQEscalationTmStruct& time = escalation.escalationTime;
  if (time.escalationTmType == 2) {
    // 31 days, 7 days and 24 hours.
    time.u.date.monthday &= 0x7FFFFFFF;
    time.u.date.weekday &= 0x7F;
    time.u.date.hourmask &= 0xFFFFFF;
  } else if (time.escalationTmType != 1) {
    time = {};
  }
}

ZQXMLFilter& objectOf(const ZQXMLParsedStream& stream, const ZQXMLFilter&) {
  return stream.objectList->object.filter;
}

ZQXMLEscalation& objectOf(const ZQXMLParsedStream& stream, const ZQXMLEscalation&) {
  return stream.objectList->object.escalation;
}

template <typename Object>
void expectRoundTrip(Object object, void (*freeObject)(Object*, ZQBoolean), uint32_t seed) {
  // Writing consumes the diary.
  char* diary = object.changeDiary != nullptr ? newText(object.changeDiary) : nullptr;
  const std::string text = objectText(object);
  free(object.changeDiary);
  object.changeDiary = diary;
  {
    const Parsed parsed(sharedHandle(),
                        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><root>\n" + text + "</root>");
    ASSERT_EQ(parsed.status, "") << "seed " << seed << "\n" << text;
    Object& read = objectOf(parsed.stream, object);
    lose(object);
    ASSERT_EQ(tools::Dumper::dump(read), tools::Dumper::dump(object)) << "seed " << seed;
    // It is written as what it became; that is the same text again, but for bits without a
    // meaning, which make an empty element once.
    ASSERT_EQ(objectText(read), objectText(object)) << "seed " << seed;
  }
  freeObject(&object, 0);
}

constexpr uint32_t kObjects = 5000;

TEST(WorkflowRoundTrip, RandomFilters) {
  for (uint32_t seed = 0; seed < kObjects && !HasFailure(); ++seed) {
    expectRoundTrip(Maker(seed).filter(), FreeZQXMLFilter, seed);
  }
}

TEST(WorkflowRoundTrip, RandomEscalations) {
  for (uint32_t seed = 0; seed < kObjects && !HasFailure(); ++seed) {
    expectRoundTrip(Maker(seed).escalation(), FreeZQXMLEscalation, seed);
  }
}

TEST(WorkflowRoundTrip, LeavesNoBlocks) {
  expectRoundTrip(Maker(1).filter(), FreeZQXMLFilter, 1);
  const long before = fault::liveBlocks();
  for (uint32_t seed = 0; seed < 50 && !HasFailure(); ++seed) {
    expectRoundTrip(Maker(seed).filter(), FreeZQXMLFilter, seed);
    expectRoundTrip(Maker(seed).escalation(), FreeZQXMLEscalation, seed);
  }
  // But for the entries that the handlers keep for the next document.
  EXPECT_LE(fault::liveBlocks(), before + 400);
}

}  // namespace
