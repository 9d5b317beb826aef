// The description of assignments and actions; see records/describe.h.
#ifndef ZQXML_RECORDS_DESCRIBE_ACTIONS_H
#define ZQXML_RECORDS_DESCRIBE_ACTIONS_H

#include "records/description.h"

namespace records {

template <>
struct Description<ZQCOMValueStruct> {
  static constexpr uint32_t kTags[] = {0, 1, 2};
  static void visit(auto& v, auto& r) {
    v.text("valueIdentifier", r.valueIdentifier);
    v.scalar("transId", r.transId);
    v.tag("valueType", r.valueType, kTags);
    switch (r.valueType) {
      case 1:
        v.scalar("fieldId", r.u.fieldId);
        break;
      case 2:
        v.record("value", r.u.value);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQAssignFieldStruct> {
  static constexpr uint32_t kTags[] = {1, 4, 6};
  static void visit(auto& v, auto& r) {
    v.chars("serverName", r.serverName);
    v.chars("formName", r.formName);
    v.record("qualifier", r.qualifier);
    v.tag("tag", r.tag, kTags);
    switch (r.tag) {
      case 1:
        v.scalar("fieldId", r.u.fieldId);
        break;
      case 4:
        v.record("statHistory", r.u.statHistory);
        break;
      case 6:
        v.block("currencyField", r.u.currencyField);
        break;
      default:
        break;
    }
    v.scalar("noMatchOption", r.noMatchOption);
    v.scalar("multipleMatchOption", r.multipleMatchOption);
  }
};

template <>
struct Description<ZQAssignSQLStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("serverName", r.serverName);
    v.text("sqlCommand", r.sqlCommand);
    v.scalar("valueIndex", r.valueIndex);
    v.scalar("noMatchOption", r.noMatchOption);
    v.scalar("multipleMatchOption", r.multipleMatchOption);
  }
};

template <>
struct Description<ZQDDEStruct> {
  static void visit(auto& v, auto& r) {
    v.text("serviceName", r.serviceName);
    v.text("topic", r.topic);
    v.text("item", r.item);
    v.scalar("action", r.action);
    v.text("pathToProgram", r.pathToProgram);
    v.text("command", r.command);
  }
};

template <>
struct Description<ZQAssignStruct> {
  static constexpr uint32_t kTags[] = {0, 1, 2, 3, 4, 5, 6, 7, 8};
  static void visit(auto& v, auto& r) {
    v.tag("assignType", r.assignType, kTags);
    switch (r.assignType) {
      case 1:
        v.record("value", r.u.value);
        break;
      case 2:
        v.block("field", r.u.field);
        break;
      case 3:
        v.text("process", r.u.process);
        break;
      case 4:
        v.block("arithOp", r.u.arithOp);
        break;
      case 5:
        v.block("function", r.u.function);
        break;
      case 6:
        v.block("dde", r.u.dde);
        break;
      case 7:
        v.block("sql", r.u.sql);
        break;
      case 8:
        v.block("filterApi", r.u.filterApi);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQArithOpAssignStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("operation", r.operation);
    v.record("operandLeft", r.operandLeft);
    v.record("operandRight", r.operandRight);
  }
};

template <>
struct Description<ZQFunctionAssignStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("functionCode", r.functionCode);
    v.array("numItems", r.numItems, "parameterList", r.parameterList);
  }
};

template <>
struct Description<ZQAssignFilterApiStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("serviceName", r.serviceName);
    v.array("numItems", r.numItems, "inputValues", r.inputValues);
    v.scalar("valueIndex", r.valueIndex);
  }
};

template <>
struct Description<ZQFieldAssignStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("fieldId", r.fieldId);
    v.record("assignment", r.assignment);
  }
};

template <>
struct Description<ZQPushFieldsStruct> {
  static void visit(auto& v, auto& r) {
    v.record("field", r.field);
    v.record("assignment", r.assignment);
  }
};

template <>
struct Description<ZQWorkflowConnectStruct> {
  static constexpr uint32_t kTags[] = {0, 1};
  static void visit(auto& v, auto& r) {
    v.tag("type", r.type, kTags);
    if (r.type == 1) {
      v.block("formList", r.formList);
    }
  }
};

template <>
struct Description<ZQDayStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("monthday", r.monthday);
    v.scalar("weekday", r.weekday);
    v.scalar("hourmask", r.hourmask);
    v.scalar("minute", r.minute);
  }
};

template <>
struct Description<ZQEscalationTmStruct> {
  static constexpr uint32_t kTags[] = {1, 2};
  static void visit(auto& v, auto& r) {
    v.tag("escalationTmType", r.escalationTmType, kTags);
    switch (r.escalationTmType) {
      case 1:
        v.scalar("interval", r.u.interval);
        break;
      case 2:
        v.record("date", r.u.date);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQFilterActionNotifyAdvanced> {
  static void visit(auto& v, auto& r) {
    v.text("from", r.from);
    v.text("replyTo", r.replyTo);
    v.text("cc", r.cc);
    v.text("bcc", r.bcc);
    v.text("organization", r.organization);
    v.text("mailboxName", r.mailboxName);
    v.text("headerTemplate", r.headerTemplate);
    v.text("footerTemplate", r.footerTemplate);
    v.text("contentTemplate", r.contentTemplate);
  }
};

template <>
struct Description<ZQFilterActionNotify> {
  static void visit(auto& v, auto& r) {
    v.text("user", r.user);
    v.text("notifyText", r.notifyText);
    v.scalar("priority", r.priority);
    v.scalar("mechanism", r.mechanism);
    v.scalar("mechanismXRef", r.mechanismXRef);
    v.text("subject", r.subject);
    v.scalar("fieldIncludeType", r.fieldIncludeType);
    v.record("fieldIdList", r.fieldIdList);
    v.scalar("behavior", r.behavior);
    v.scalar("permission", r.permission);
    v.block("advanced", r.advanced);
  }
};

template <>
struct Description<ZQFilterStatusStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("messageType", r.messageType);
    v.scalar("messageNumber", r.messageNumber);
    v.text("messageText", r.messageText);
  }
};

template <>
struct Description<ZQSQLStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("serverName", r.serverName);
    v.text("sqlCommand", r.sqlCommand);
  }
};

template <>
struct Description<ZQGotoActionStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("tag", r.tag);
    v.scalar("value", r.value);
  }
};

template <>
struct Description<ZQCallGuideStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("serverName", r.serverName);
    v.chars("guideName", r.guideName);
    v.scalar("guideMode", r.guideMode);
    v.scalar("loopTableFieldId", r.loopTableFieldId);
  }
};

template <>
struct Description<ZQExitGuideStruct> {
  static void visit(auto& v, auto& r) { v.scalar("closeAll", r.closeAll); }
};

template <>
struct Description<ZQGotoGuideLabelStruct> {
  static void visit(auto& v, auto& r) { v.text("label", r.label); }
};

template <>
struct Description<ZQFilterActionStruct> {
  static constexpr uint32_t kTags[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
  static void visit(auto& v, auto& r) {
    v.tag("action", r.action, kTags);
    switch (r.action) {
      case 1:
        v.record("notify", r.u.notify);
        break;
      case 2:
        v.record("message", r.u.message);
        break;
      case 3:
        v.text("logFile", r.u.logFile);
        break;
      case 4:
        v.record("setFields", r.u.setFields);
        break;
      case 5:
        v.text("process", r.u.process);
        break;
      case 6:
        v.record("pushFields", r.u.pushFields);
        break;
      case 7:
        v.record("sql", r.u.sql);
        break;
      case 8:
        v.record("gotoAction", r.u.gotoAction);
        break;
      case 9:
        v.record("callGuide", r.u.callGuide);
        break;
      case 10:
        v.record("exitGuide", r.u.exitGuide);
        break;
      case 11:
        v.record("gotoGuide", r.u.gotoGuide);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQMacroParmStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("name", r.name);
    v.text("value", r.value);
  }
};

template <>
struct Description<ZQActiveLinkMacroStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("macroName", r.macroName);
    v.text("macroText", r.macroText);
    v.record("macroParms", r.macroParms);
  }
};

template <>
struct Description<ZQMessageStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("messageType", r.messageType);
    v.scalar("messageNumber", r.messageNumber);
    v.text("messageText", r.messageText);
    v.scalar("usePromptPane", r.usePromptPane);
  }
};

template <>
struct Description<ZQFieldCharacteristics> {
  static void visit(auto& v, auto& r) {
    v.scalar("fieldId", r.fieldId);
    v.text("charMenu", r.charMenu);
    v.record("props", r.props);
    v.scalar("focus", r.focus);
    v.scalar("accessOption", r.accessOption);
  }
};

template <>
struct Description<ZQOpenDlgStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("serverName", r.serverName);
    v.chars("formName", r.formName);
    v.chars("viewLabel", r.viewLabel);
    v.scalar("showCloseButton", r.showCloseButton);
    v.record("inputFields", r.inputFields);
    v.record("outputFields", r.outputFields);
    v.scalar("windowMode", r.windowMode);
    v.text("targetLocation", r.targetLocation);
    v.record("query", r.query);
    v.scalar("noMatchContinue", r.noMatchContinue);
    v.scalar("suppressEmptyList", r.suppressEmptyList);
    v.record("message", r.message);
    v.scalar("pollingInterval", r.pollingInterval);
    v.text("reportString", r.reportString);
    v.record("sortList", r.sortList);
  }
};

template <>
struct Description<ZQCommitChangesStruct> {
  static void visit(auto& v, auto& r) { v.chars("formName", r.formName); }
};

template <>
struct Description<ZQCloseWndStruct> {
  static void visit(auto& v, auto& r) { v.scalar("closeAll", r.closeAll); }
};

template <>
struct Description<ZQWaitStruct> {
  static void visit(auto& v, auto& r) { v.text("continueButtonLabel", r.continueButtonLabel); }
};

template <>
struct Description<ZQCOMMethodParmStruct> {
  static void visit(auto& v, auto& r) {
    v.text("parameterName", r.parameterName);
    v.scalar("parameterType", r.parameterType);
    v.record("parameterValue", r.parameterValue);
  }
};

template <>
struct Description<ZQCOMMethodStruct> {
  static void visit(auto& v, auto& r) {
    v.text("methodName", r.methodName);
    v.text("methodIdentifier", r.methodIdentifier);
    v.scalar("methodType", r.methodType);
    v.record("returnValue", r.returnValue);
    v.record("parameters", r.parameters);
  }
};

template <>
struct Description<ZQAutomationStruct> {
  static void visit(auto& v, auto& r) {
    v.text("automationServerName", r.automationServerName);
    v.text("classID", r.classID);
    v.text("action", r.action);
    v.scalar("visible", r.visible);
    v.record("methods", r.methods);
  }
};

template <>
struct Description<ZQActiveLinkActionStruct> {
  static constexpr uint32_t kTags[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
  static void visit(auto& v, auto& r) {
    v.tag("action", r.action, kTags);
    switch (r.action) {
      case 1:
        v.record("macro", r.u.macro);
        break;
      case 2:
        v.record("setFields", r.u.setFields);
        break;
      case 3:
        v.text("process", r.u.process);
        break;
      case 4:
        v.record("message", r.u.message);
        break;
      case 5:
        v.record("characteristics", r.u.characteristics);
        break;
      case 6:
        v.record("dde", r.u.dde);
        break;
      case 7:
        v.record("pushFields", r.u.pushFields);
        break;
      case 8:
        v.record("sql", r.u.sql);
        break;
      case 9:
        v.record("automation", r.u.automation);
        break;
      case 10:
        v.record("openDialog", r.u.openDialog);
        break;
      case 11:
        v.record("commitChanges", r.u.commitChanges);
        break;
      case 12:
        v.record("closeWindow", r.u.closeWindow);
        break;
      case 13:
        v.record("callGuide", r.u.callGuide);
        break;
      case 14:
        v.record("exitGuide", r.u.exitGuide);
        break;
      case 15:
        v.record("gotoGuide", r.u.gotoGuide);
        break;
      case 16:
        v.record("wait", r.u.wait);
        break;
      case 17:
        v.record("gotoAction", r.u.gotoAction);
        break;
      default:
        break;
    }
  }
};

}  // namespace records

#endif
