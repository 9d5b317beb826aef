// Events that no document gives a handler: the end of an element that it never let begin, and text
// outside of any element. The handlers are called by hand.

#include <gtest/gtest.h>

#include <string>
#include <xercesc/internal/VecAttributesImpl.hpp>

#include "xml/FixedLocator.h"
#include "xml/Vocabulary.h"
#include "xml/handlers/ElementReaders.h"
#include "xml/handlers/ZQXMLActionCallGuideHandler.h"
#include "xml/handlers/ZQXMLActionExitGuideHandler.h"
#include "xml/handlers/ZQXMLActionFilterMsgHandler.h"
#include "xml/handlers/ZQXMLActionGotoGuideHandler.h"
#include "xml/handlers/ZQXMLActionGotoHandler.h"
#include "xml/handlers/ZQXMLActionNotifyHandler.h"
#include "xml/handlers/ZQXMLActionPushFieldListHandler.h"
#include "xml/handlers/ZQXMLActionSQLHandler.h"
#include "xml/handlers/ZQXMLChangeHistHandler.h"
#include "xml/handlers/ZQXMLEscalationHandler.h"
#include "xml/handlers/ZQXMLEscalationTimeHandler.h"
#include "xml/handlers/ZQXMLFilterActionListHandler.h"
#include "xml/handlers/ZQXMLFilterHandler.h"
#include "xml/handlers/ZQXMLGetNamesHandler.h"
#include "xml/handlers/ZQXMLIndexListHandler.h"
#include "xml/handlers/ZQXMLInternalIDListHandler.h"
#include "xml/handlers/ZQXMLPermListHandler.h"
#include "xml/handlers/ZQXMLPropListHandler.h"
#include "xml/handlers/ZQXMLResultListFieldsHandler.h"
#include "xml/handlers/ZQXMLRootHandler.h"
#include "xml/handlers/ZQXMLSortListHandler.h"
#include "xml/handlers/ZQXMLSupportFileHandler.h"
#include "xml/handlers/ZQXMLSupportFileListHandler.h"
#include "xml/handlers/ZQXMLWorkflowConnectHandler.h"

namespace {

// What handlers share, with the element "here" at a place of its own.
struct Surroundings {
  ZQXMLHandlerStack stack;
  ZQStructItemList* selection = nullptr;
  const FixedLocator place{3, 7};
  const xercesc::Locator* locator = &place;
  const XMLCh* name = u"here";
  const ZQXMLHandlerInfo info = {&stack, &selection, &locator, &name};
};

constexpr char kHere[] = "here, line: 3, column 7";

// A handler's Init with one target, or with the object's kind too.
template <typename Handler, typename Record>
void init(Handler& handler, Record& record) {
  static uint32_t kind;
  if constexpr (requires { handler.Init(&record, &kind); }) {
    handler.Init(&record, &kind);
  } else {
    handler.Init(&record);
  }
}

struct Outcome {
  int number = 0;
  std::string text;
};

template <typename Call>
Outcome outcomeOf(Call call) {
  try {
    call();
  } catch (const ZQXMLException& exception) {
    return {exception.GetErrorNumber(), exception.GetErrorMsg()};
  }
  return {};
}

// Every word of the vocabulary and one that is none: what may not begin may not end.
template <typename Handler, typename Record>
void expectEndings(void (*freeRecord)(Record*, ZQBoolean),
                   int number = ZQ_MESSAGE_ELEMENT_NOT_ALLOWED) {
  Surroundings surroundings;
  Handler handler(&surroundings.info);
  Record record = {};
  const xercesc::VecAttributesImpl attributes;
  int accepted = 0;
  const auto expectWord = [&](const std::string& word, int tag) {
    SCOPED_TRACE(word);
    const auto afresh = [&] {
      handler.CleanReferences();
      releaseRecord(record, freeRecord);
      init(handler, record);
    };
    afresh();
    const Outcome start = outcomeOf([&] { handler.StartElement(tag, attributes); });
    if (start.number != ZQ_MESSAGE_ELEMENT_NOT_ALLOWED) {
      ++accepted;
      return;
    }
    EXPECT_EQ(start.text, kHere);
    afresh();
    const Outcome end = outcomeOf([&] { handler.EndElement(tag); });
    EXPECT_EQ(end.number, number);
    EXPECT_EQ(end.text, number == ZQ_MESSAGE_ELEMENT_NOT_ALLOWED ? kHere : kHere + 6);
  };
  for (const auto& [word, tag] : vocabulary()) {
    expectWord(word, tag);
  }
  expectWord("bogus", -1);
  EXPECT_GT(accepted, 0);
  EXPECT_LT(accepted, 60);
  handler.CleanReferences();
  releaseRecord(record, freeRecord);
}

// Text while no element is open leaves the record as it is.
template <typename Handler, typename Record>
void expectNoText(void (*freeRecord)(Record*, ZQBoolean)) {
  Surroundings surroundings;
  Handler handler(&surroundings.info);
  Record record = {};
  init(handler, record);
  const std::string before(reinterpret_cast<const char*>(&record), sizeof record);
  EXPECT_TRUE(handler.ignoresText());
  EXPECT_EQ(outcomeOf([&] { handler.Characters("7", 1); }).number, 0);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(&record), sizeof record), before);
  handler.CleanReferences();
  releaseRecord(record, freeRecord);
}

template <typename Handler, typename Record>
void expectRules(void (*freeRecord)(Record*, ZQBoolean),
                 int number = ZQ_MESSAGE_ELEMENT_NOT_ALLOWED) {
  SCOPED_TRACE(typeid(Handler).name());
  expectEndings<Handler>(freeRecord, number);
  expectNoText<Handler>(freeRecord);
}

// With an action open: outside of one none of its elements begins.
class OpenActionHandler : public ZQXMLFilterActionListHandler {
 public:
  using ZQXMLFilterActionListHandler::ZQXMLFilterActionListHandler;
  void Init(ZQFilterActionList* list) {
    ZQXMLFilterActionListHandler::Init(list);
    StartElement(tag_action, xercesc::VecAttributesImpl());
  }
};

template <typename Record>
void ownsNothing(Record*, ZQBoolean) {}

void freeText(char** text, ZQBoolean) {
  free(*text);
}

void freeChain(ZQXMLObjectList** list, ZQBoolean) {
  FreeZQXMLObjectList(*list, 1);
}

void freeGoto(ZQGotoGuideLabelStruct* action, ZQBoolean) {
  free(action->label);
}

void freeMessage(ZQFilterStatusStruct* message, ZQBoolean) {
  free(message->messageText);
}

void freeSQL(ZQSQLStruct* sql, ZQBoolean) {
  free(sql->sqlCommand);
}

void freeNotify(ZQFilterActionNotify* notify, ZQBoolean) {
  ZQFilterActionStruct action = {};
  action.action = 1;
  action.u.notify = *notify;
  FreeZQFilterActionStruct(&action, 0);
}

TEST(Endings, Elements) {
  expectRules<ZQXMLValueHandler>(FreeZQValueStruct);
  expectRules<ZQXMLValueListHandler>(FreeZQValueList);
  expectRules<ZQXMLQualHandler>(FreeZQQualifierStruct);
  expectRules<ZQXMLQualRelOpHandler>(FreeZQRelOpStruct);
  expectRules<ZQXMLQualArithHandler>(FreeZQArithOpStruct);
  expectRules<ZQXMLQualQueryValueHandler>(freeQueryValue);
  expectRules<ZQXMLFieldAssignListHandler>(FreeZQFieldAssignList);
  expectRules<ZQXMLFieldAssignHandler>(FreeZQFieldAssignStruct);
  expectRules<ZQXMLFieldAssignValueHandler>(FreeZQAssignStruct);
  expectRules<ZQXMLAssignFieldHandler>(FreeZQAssignFieldStruct);
  expectRules<ZQXMLAssignArithHandler>(FreeZQArithOpAssignStruct);
  expectRules<ZQXMLAssignFunctionHandler>(FreeZQFunctionAssignStruct);
  expectRules<ZQXMLAssignSQLHandler>(FreeZQAssignSQLStruct);
  expectRules<ZQXMLAssignFilterAPIHandler>(FreeZQAssignFilterApiStruct);
  expectRules<ZQXMLActionOLEHandler>(FreeZQAutomationStruct);
  expectRules<ZQXMLActionOLEMethodListHandler>(FreeZQCOMMethodList);
  expectRules<ZQXMLActionOLEMethodPListHandler>(FreeZQCOMMethodParmList);
  expectRules<ZQXMLActionOLEValueHandler>(FreeZQCOMValueStruct);
}

// Deliberate: an operand tells 8944 at this one place.
TEST(Endings, OfAnOperandAreAFaultOfTheFrame) {
  expectRules<ZQXMLQualValueArithHandler>(FreeZQFieldValueOrArithStruct, ZQ_MESSAGE_PARSING_FRAME);
}

TEST(Endings, Actions) {
  expectRules<ZQXMLActionCallGuideHandler>(ownsNothing<ZQCallGuideStruct>);
  expectRules<ZQXMLActionDDEHandler>(FreeZQDDEStruct);
  expectRules<ZQXMLActionExitGuideHandler>(ownsNothing<ZQExitGuideStruct>);
  expectRules<ZQXMLActionFilterMsgHandler>(freeMessage);
  expectRules<ZQXMLActionGotoGuideHandler>(freeGoto);
  expectRules<ZQXMLActionGotoHandler>(ownsNothing<ZQGotoActionStruct>);
  expectRules<ZQXMLActionNotifyHandler>(freeNotify);
  expectRules<ZQXMLActionPushFieldListHandler>(FreeZQPushFieldsList);
  expectRules<ZQXMLActionSQLHandler>(freeSQL);
  expectRules<OpenActionHandler>(FreeZQFilterActionList);
}

TEST(Endings, Lists) {
  expectRules<ZQXMLChangeHistHandler>(freeText);
  expectRules<ZQXMLIndexListHandler>(FreeZQIndexList);
  expectRules<ZQXMLInternalIDListHandler>(FreeZQInternalIdList);
  expectRules<ZQXMLPermListHandler>(FreeZQPermissionList);
  expectRules<ZQXMLPropListHandler>(FreeZQPropList);
  expectRules<ZQXMLResultListFieldsHandler>(FreeZQEntryListFieldList);
  expectRules<ZQXMLSortListHandler>(FreeZQSortList);
  expectRules<ZQXMLSupportFileHandler>(FreeZQSupportFileInfoStruct);
  expectRules<ZQXMLSupportFileListHandler>(FreeZQSupportFileInfoList);
  expectRules<ZQXMLWorkflowConnectHandler>(FreeZQWorkflowConnectStruct);
}

TEST(Endings, Objects) {
  expectRules<ZQXMLEscalationTimeHandler>(ownsNothing<ZQEscalationTmStruct>);
  expectRules<ZQXMLEscalationHandler>(FreeZQXMLEscalation);
  expectRules<ZQXMLFilterHandler>(FreeZQXMLFilter);
  expectRules<ZQXMLRootHandler>(freeChain);
}

TEST(Endings, TextBetweenElementsIsNoPartOfAName) {
  Surroundings surroundings;
  ZQXMLGetNamesHandler handler(&surroundings.info);
  const xercesc::VecAttributesImpl attributes;
  ZQUnsignedIntList kinds;
  ZQNameList names;
  ZQUnsignedIntList types;
  handler.Init(&kinds, &names, &types);
  handler.Characters("a", 1);
  handler.StartElement(tag_form, attributes);
  handler.Characters("b", 1);
  handler.StartElement(tag_formName, attributes);
  handler.Characters("F", 1);
  handler.EndElement(tag_formName);
  handler.Characters("c", 1);
  handler.EndElement(tag_form);
  handler.EndElement(tag_root);
  ASSERT_EQ(names.numItems, 1U);
  EXPECT_STREQ(names.items[0], "F");
  EXPECT_EQ(kinds.items[0], static_cast<uint32_t>(ZQXML_FORM));
  FreeZQUnsignedIntList(&kinds, 0);
  FreeZQNameList(&names, 0);
  FreeZQUnsignedIntList(&types, 0);
}

}  // namespace
