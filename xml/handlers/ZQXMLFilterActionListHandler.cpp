#include "xml/handlers/ZQXMLFilterActionListHandler.h"

#include <type_traits>

#include "xml/ZQXMLTagHash.h"

namespace {

enum Action : uint32_t {
  kNotify = 1,
  kMessage = 2,
  kLogToFile = 3,
  kSetFields = 4,
  kRunProcess = 5,
  kPushFields = 6,
  kSQL = 7,
  kGoto = 8,
  kCallGuide = 9,
  kExitGuide = 10,
  kGotoGuide = 11,
};

constexpr Leaf<ZQFilterActionStruct> kLeaves[] = {
    {tag_fileName, nullptr},
    {tag_command, nullptr},
};

bool isList(int tag) {
  return tag == tag_ifActions || tag == tag_elseActions;
}

}  // namespace

ZQXMLFilterActionListHandler::ZQXMLFilterActionListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info),
      leaves(kLeaves),
      notify(info),
      message(info),
      setFields(info),
      pushFields(info),
      sql(info),
      gotoAction(info),
      callGuide(info),
      exitGuide(info),
      gotoGuide(info) {}

void ZQXMLFilterActionListHandler::Init(ZQFilterActionList* list) {
  currentTag = 0;
  CleanReferences();
  target = list;
  *target = {};
}

void ZQXMLFilterActionListHandler::PreProcess(int tag) {
  using Union = decltype(ZQFilterActionStruct::u);
  const auto give = [this](Action action, auto& handler, auto member) {
    auto& record = SetAction(action).u.*member;
    giveTo(handler, record, freeNothing<std::remove_reference_t<decltype(record)>>);
  };
  switch (tag) {
    case tag_notify:
      give(kNotify, notify, &Union::notify);
      break;
    case tag_message:
      give(kMessage, message, &Union::message);
      break;
    case tag_setFieldList:
      give(kSetFields, setFields, &Union::setFields);
      break;
    case tag_pushFieldList:
      give(kPushFields, pushFields, &Union::pushFields);
      break;
    case tag_sql:
      give(kSQL, sql, &Union::sql);
      break;
    case tag_goto:
      give(kGoto, gotoAction, &Union::gotoAction);
      break;
    case tag_callGuide:
      give(kCallGuide, callGuide, &Union::callGuide);
      break;
    case tag_exitGuide:
      give(kExitGuide, exitGuide, &Union::exitGuide);
      break;
    case tag_gotoGuide:
      give(kGotoGuide, gotoGuide, &Union::gotoGuide);
      break;
    default:
      break;
  }
}

void ZQXMLFilterActionListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  switch (tag) {
    case tag_action:
      actions.add();
      leaves.empty();
      break;
    case tag_logToFile:
      OpenAction();
      leaves[tag_fileName].Empty();
      break;
    case tag_runProcess:
      OpenAction();
      leaves[tag_command].Empty();
      break;
    default:
      if (leaves.open(tag)) {
        OpenAction();
        currentTag = tag;
      } else if (!isList(tag)) {
        refuseElement();
      }
      break;
  }
}

void ZQXMLFilterActionListHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLFilterActionListHandler::EndElement(int tag) {
  currentTag = 0;
  switch (tag) {
    case tag_action:
      actions.close();
      break;
    case tag_fileName:
      replaceText(SetAction(kLogToFile).u.logFile, leaves[tag_fileName]);
      break;
    case tag_command:
      replaceText(SetAction(kRunProcess).u.process, leaves[tag_command]);
      break;
    case tag_logToFile:
    case tag_runProcess:
      break;
    default:
      if (!isList(tag)) {
        refuseElement();
      }
      actions.moveTo(target->numItems, target->items);
      break;
  }
}

void ZQXMLFilterActionListHandler::PostProcess(int tag) {
  if (isList(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLFilterActionListHandler::CleanReferences() {
  actions.clean();
}

// The action that is being read. Throws ZQXMLException 8941 with the element's name if there is
// none.
ZQFilterActionStruct& ZQXMLFilterActionListHandler::OpenAction() const {
  if (actions.open() == nullptr) {
    refuseElement();
  }
  return *actions.open();
}

// Of several kinds in one action the last one counts.
ZQFilterActionStruct& ZQXMLFilterActionListHandler::SetAction(uint32_t action) {
  ZQFilterActionStruct& open = OpenAction();
  if (open.action != 0) {
    releaseRecord(open, FreeZQFilterActionStruct);
  }
  open.action = action;
  return open;
}
