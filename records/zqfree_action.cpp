// Deep free of workflow: the actions of filters and active links, and what they are made of.

#include "records/parts.h"
#include "records/verbs.h"
#include "zqxml/free.h"

using records::finishFree;
using records::freeList;
using records::release;

namespace records {

void freeNotify(ZQFilterActionNotify* notify, ZQBoolean) {
  release(notify->user);
  release(notify->notifyText);
  release(notify->subject);
  FreeZQInternalIdList(&notify->fieldIdList, 0);
  FreeZQFilterActionNotifyAdvanced(notify->advanced, 1);
  notify->advanced = nullptr;
}

void freeMacro(ZQActiveLinkMacroStruct* macro, ZQBoolean) {
  release(macro->macroText);
  FreeZQMacroParmList(&macro->macroParms, 0);
}

void freeMessage(ZQMessageStruct* message, ZQBoolean) {
  release(message->messageText);
}

void freeCharacteristics(ZQFieldCharacteristics* characteristics, ZQBoolean) {
  release(characteristics->charMenu);
  FreeZQPropList(&characteristics->props, 0);
}

}  // namespace records

void FreeZQWorkflowConnectStruct(ZQWorkflowConnectStruct* connect, ZQBoolean freeStruct) {
  if (connect == nullptr) {
    return;
  }
  if (connect->type == 1) {
    FreeZQNameList(connect->formList, 1);
    connect->formList = nullptr;
  }
  connect->type = 0;
  finishFree(connect, freeStruct);
}

void FreeZQWorkflowConnectList(ZQWorkflowConnectList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQWorkflowConnectStruct);
}

void FreeZQFilterActionNotifyAdvanced(ZQFilterActionNotifyAdvanced* advanced,
                                      ZQBoolean freeStruct) {
  if (advanced == nullptr) {
    return;
  }
  release(advanced->from);
  release(advanced->replyTo);
  release(advanced->cc);
  release(advanced->bcc);
  release(advanced->organization);
  release(advanced->mailboxName);
  release(advanced->headerTemplate);
  release(advanced->footerTemplate);
  release(advanced->contentTemplate);
  finishFree(advanced, freeStruct);
}

void FreeZQSQLStruct(ZQSQLStruct* sql, ZQBoolean freeStruct) {
  if (sql == nullptr) {
    return;
  }
  release(sql->sqlCommand);
  finishFree(sql, freeStruct);
}

void FreeZQGotoGuideLabelStruct(ZQGotoGuideLabelStruct* gotoGuide, ZQBoolean freeStruct) {
  if (gotoGuide == nullptr) {
    return;
  }
  release(gotoGuide->label);
  finishFree(gotoGuide, freeStruct);
}

void FreeZQFilterActionStruct(ZQFilterActionStruct* action, ZQBoolean freeStruct) {
  if (action == nullptr) {
    return;
  }
  switch (action->action) {
    case 1:
      records::freeNotify(&action->u.notify, 0);
      break;
    case 2:
      release(action->u.message.messageText);
      break;
    case 3:
      release(action->u.logFile);
      break;
    case 4:
      FreeZQFieldAssignList(&action->u.setFields, 0);
      break;
    case 5:
      release(action->u.process);
      break;
    case 6:
      FreeZQPushFieldsList(&action->u.pushFields, 0);
      break;
    case 7:
      FreeZQSQLStruct(&action->u.sql, 0);
      break;
    case 11:
      FreeZQGotoGuideLabelStruct(&action->u.gotoGuide, 0);
      break;
    default:
      break;
  }
  action->action = 0;
  finishFree(action, freeStruct);
}

void FreeZQFilterActionList(ZQFilterActionList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQFilterActionStruct);
}

void FreeZQMacroParmStruct(ZQMacroParmStruct* parameter, ZQBoolean freeStruct) {
  if (parameter == nullptr) {
    return;
  }
  release(parameter->value);
  finishFree(parameter, freeStruct);
}

void FreeZQMacroParmList(ZQMacroParmList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQMacroParmStruct);
}

void FreeZQCOMValueStruct(ZQCOMValueStruct* value, ZQBoolean freeStruct) {
  if (value == nullptr) {
    return;
  }
  release(value->valueIdentifier);
  if (value->valueType == 2) {
    FreeZQValueStruct(&value->u.value, 0);
  }
  value->valueType = 0;
  finishFree(value, freeStruct);
}

void FreeZQCOMMethodParmStruct(ZQCOMMethodParmStruct* parameter, ZQBoolean freeStruct) {
  if (parameter == nullptr) {
    return;
  }
  release(parameter->parameterName);
  FreeZQCOMValueStruct(&parameter->parameterValue, 0);
  finishFree(parameter, freeStruct);
}

void FreeZQCOMMethodParmList(ZQCOMMethodParmList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQCOMMethodParmStruct);
}

void FreeZQCOMMethodStruct(ZQCOMMethodStruct* method, ZQBoolean freeStruct) {
  if (method == nullptr) {
    return;
  }
  release(method->methodName);
  release(method->methodIdentifier);
  FreeZQCOMValueStruct(&method->returnValue, 0);
  FreeZQCOMMethodParmList(&method->parameters, 0);
  finishFree(method, freeStruct);
}

void FreeZQCOMMethodList(ZQCOMMethodList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQCOMMethodStruct);
}

void FreeZQAutomationStruct(ZQAutomationStruct* automation, ZQBoolean freeStruct) {
  if (automation == nullptr) {
    return;
  }
  release(automation->automationServerName);
  release(automation->classID);
  release(automation->action);
  FreeZQCOMMethodList(&automation->methods, 0);
  finishFree(automation, freeStruct);
}

void FreeZQOpenDlgStruct(ZQOpenDlgStruct* window, ZQBoolean freeStruct) {
  if (window == nullptr) {
    return;
  }
  FreeZQFieldAssignList(&window->inputFields, 0);
  FreeZQFieldAssignList(&window->outputFields, 0);
  release(window->targetLocation);
  FreeZQQualifierStruct(&window->query, 0);
  records::freeMessage(&window->message, 0);
  release(window->reportString);
  FreeZQSortList(&window->sortList, 0);
  finishFree(window, freeStruct);
}

void FreeZQWaitStruct(ZQWaitStruct* wait, ZQBoolean freeStruct) {
  if (wait == nullptr) {
    return;
  }
  release(wait->continueButtonLabel);
  finishFree(wait, freeStruct);
}

void FreeZQActiveLinkActionStruct(ZQActiveLinkActionStruct* action, ZQBoolean freeStruct) {
  if (action == nullptr) {
    return;
  }
  switch (action->action) {
    case 1:
      records::freeMacro(&action->u.macro, 0);
      break;
    case 2:
      FreeZQFieldAssignList(&action->u.setFields, 0);
      break;
    case 3:
      release(action->u.process);
      break;
    case 4:
      records::freeMessage(&action->u.message, 0);
      break;
    case 5:
      records::freeCharacteristics(&action->u.characteristics, 0);
      break;
    case 6:
      FreeZQDDEStruct(&action->u.dde, 0);
      break;
    case 7:
      FreeZQPushFieldsList(&action->u.pushFields, 0);
      break;
    case 8:
      FreeZQSQLStruct(&action->u.sql, 0);
      break;
    case 9:
      FreeZQAutomationStruct(&action->u.automation, 0);
      break;
    case 10:
      FreeZQOpenDlgStruct(&action->u.openDialog, 0);
      break;
    case 15:
      FreeZQGotoGuideLabelStruct(&action->u.gotoGuide, 0);
      break;
    case 16:
      FreeZQWaitStruct(&action->u.wait, 0);
      break;
    default:
      break;
  }
  action->action = 0;
  finishFree(action, freeStruct);
}

void FreeZQActiveLinkActionList(ZQActiveLinkActionList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQActiveLinkActionStruct);
}
