#include "xml/handlers/ZQXMLFieldAssignValueHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLAssignArithHandler.h"
#include "xml/handlers/ZQXMLAssignFilterAPIHandler.h"
#include "xml/handlers/ZQXMLAssignFunctionHandler.h"
#include "zqxml/free.h"

namespace {

enum AssignType : uint32_t {
  kValue = 1,
  kField = 2,
  kProcess = 3,
  kArithmetic = 4,
  kFunction = 5,
  kDDE = 6,
  kSQL = 7,
  kFilterApi = 8,
};

constexpr Leaf<ZQAssignStruct> kLeaves[] = {
    {tag_command, nullptr},
};

bool isHost(int tag) {
  switch (tag) {
    case tag_fieldValue:
    case tag_functionParameter:
    case tag_inputValue:
    case tag_left:
    case tag_right:
    case tag_targetFieldValue:
      return true;
    default:
      return false;
  }
}

}  // namespace

ZQXMLFieldAssignValueHandler::ZQXMLFieldAssignValueHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), value(info), field(info), dde(info), sql(info) {}

ZQXMLFieldAssignValueHandler::~ZQXMLFieldAssignValueHandler() = default;

void ZQXMLFieldAssignValueHandler::Init(ZQAssignStruct* assignment) {
  currentTag = 0;
  CleanReferences();
  target = assignment;
  *target = {};
}

void ZQXMLFieldAssignValueHandler::PreProcess(int tag) {
  const auto give = [this](uint32_t type, auto& handler, auto*& record) {
    using Record = std::remove_reference_t<decltype(*record)>;
    SetType(type);
    record = newRecord<Record>();
    giveTo(handler, *record, freeNothing<Record>);
  };
  switch (tag) {
    case tag_value:
      SetType(kValue);
      giveTo(value, target->u.value, FreeZQValueStruct);
      break;
    case tag_field:
      give(kField, field, target->u.field);
      break;
    case tag_arithmetic:
      give(kArithmetic, lazily(arithmetic), target->u.arithOp);
      break;
    case tag_function:
      give(kFunction, lazily(function), target->u.function);
      break;
    case tag_dde:
      give(kDDE, dde, target->u.dde);
      break;
    case tag_sql:
      give(kSQL, sql, target->u.sql);
      break;
    case tag_filterAPI:
      give(kFilterApi, lazily(filterApi), target->u.filterApi);
      break;
    default:
      break;
  }
}

void ZQXMLFieldAssignValueHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (isHost(tag)) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else if (tag != tag_process) {
    refuseElement();
  }
}

void ZQXMLFieldAssignValueHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

// A "process" without "command" sets nothing.
void ZQXMLFieldAssignValueHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag == tag_command) {
    SetType(kProcess);
    replaceText(target->u.process, leaves[tag_command]);
  } else if (!isHost(tag) && tag != tag_process) {
    refuseElement();
  }
}

void ZQXMLFieldAssignValueHandler::PostProcess(int tag) {
  if (isHost(tag)) {
    handlerStack->Pop();
  }
}

void ZQXMLFieldAssignValueHandler::CleanReferences() {}

void ZQXMLFieldAssignValueHandler::SetType(uint32_t type) {
  releaseRecord(*target, FreeZQAssignStruct);
  target->assignType = type;
}
