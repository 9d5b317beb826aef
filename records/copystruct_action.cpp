// Deep copy of workflow: the actions of filters and active links, and what they are made of.

#include "records/parts.h"
#include "records/verbs.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"

using records::copyBlock;
using records::copyList;
using records::CopyMembers;
using records::copyText;
using records::kDone;

namespace {

unsigned copyAdvanced(ZQFilterActionNotifyAdvanced* dest,
                      const ZQFilterActionNotifyAdvanced* source) {
  return CopyMembers()
      .text(dest->from, source->from)
      .text(dest->replyTo, source->replyTo)
      .text(dest->cc, source->cc)
      .text(dest->bcc, source->bcc)
      .text(dest->organization, source->organization)
      .text(dest->mailboxName, source->mailboxName)
      .text(dest->headerTemplate, source->headerTemplate)
      .text(dest->footerTemplate, source->footerTemplate)
      .text(dest->contentTemplate, source->contentTemplate)
      .elseFree(dest, FreeZQFilterActionNotifyAdvanced);
}

unsigned copyMacroParameter(ZQMacroParmStruct* dest, const ZQMacroParmStruct* source) {
  *dest = *source;
  return copyText(dest->value, source->value);
}

unsigned copyMacroParameters(ZQMacroParmList* dest, const ZQMacroParmList* source) {
  return copyList(dest, source, copyMacroParameter, FreeZQMacroParmList);
}

unsigned copyMessage(ZQMessageStruct* dest, const ZQMessageStruct* source) {
  *dest = *source;
  return copyText(dest->messageText, source->messageText);
}

unsigned copyCharacteristics(ZQFieldCharacteristics* dest, const ZQFieldCharacteristics* source) {
  *dest = *source;
  return CopyMembers()
      .text(dest->charMenu, source->charMenu)
      .record(CopyZQPropList, dest->props, source->props)
      .elseFree(dest, records::freeCharacteristics);
}

unsigned copyMethodParameter(ZQCOMMethodParmStruct* dest, const ZQCOMMethodParmStruct* source) {
  *dest = *source;
  return CopyMembers()
      .text(dest->parameterName, source->parameterName)
      .record(CopyZQCOMValueStruct, dest->parameterValue, source->parameterValue)
      .elseFree(dest, FreeZQCOMMethodParmStruct);
}

unsigned copyMethod(ZQCOMMethodStruct* dest, const ZQCOMMethodStruct* source) {
  *dest = *source;
  return CopyMembers()
      .text(dest->methodName, source->methodName)
      .text(dest->methodIdentifier, source->methodIdentifier)
      .record(CopyZQCOMValueStruct, dest->returnValue, source->returnValue)
      .record(CopyZQCOMMethodParmList, dest->parameters, source->parameters)
      .elseFree(dest, FreeZQCOMMethodStruct);
}

unsigned copyMethods(ZQCOMMethodList* dest, const ZQCOMMethodList* source) {
  return copyList(dest, source, copyMethod, FreeZQCOMMethodList);
}

}  // namespace

unsigned CopyZQWorkflowConnectStruct(ZQWorkflowConnectStruct* dest,
                                     const ZQWorkflowConnectStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return source->type == 1 ? copyBlock(dest->formList, source->formList, CopyZQNameList) : kDone;
}

unsigned CopyZQFilterActionNotify(ZQFilterActionNotify* dest, const ZQFilterActionNotify* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .text(dest->user, source->user)
      .text(dest->notifyText, source->notifyText)
      .text(dest->subject, source->subject)
      .record(CopyZQInternalIdList, dest->fieldIdList, source->fieldIdList)
      .block(copyAdvanced, dest->advanced, source->advanced)
      .elseFree(dest, records::freeNotify);
}

unsigned CopyZQFilterStatusStruct(ZQFilterStatusStruct* dest, const ZQFilterStatusStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return copyText(dest->messageText, source->messageText);
}

unsigned CopyZQSQLStruct(ZQSQLStruct* dest, const ZQSQLStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return copyText(dest->sqlCommand, source->sqlCommand);
}

unsigned CopyZQFilterActionStruct(ZQFilterActionStruct* dest, const ZQFilterActionStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  switch (source->action) {
    case 1:
      return CopyZQFilterActionNotify(&dest->u.notify, &source->u.notify);
    case 2:
      return CopyZQFilterStatusStruct(&dest->u.message, &source->u.message);
    case 3:
      return copyText(dest->u.logFile, source->u.logFile);
    case 4:
      return CopyZQFieldAssignList(&dest->u.setFields, &source->u.setFields);
    case 5:
      return copyText(dest->u.process, source->u.process);
    case 6:
      return CopyZQPushFieldsList(&dest->u.pushFields, &source->u.pushFields);
    case 7:
      return CopyZQSQLStruct(&dest->u.sql, &source->u.sql);
    case 11:
      return copyText(dest->u.gotoGuide.label, source->u.gotoGuide.label);
    default:
      return kDone;
  }
}

unsigned CopyZQFilterActionList(ZQFilterActionList* dest, const ZQFilterActionList* source) {
  return copyList(dest, source, CopyZQFilterActionStruct, FreeZQFilterActionList);
}

unsigned CopyZQActiveLinkMacroStruct(ZQActiveLinkMacroStruct* dest,
                                     const ZQActiveLinkMacroStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .text(dest->macroText, source->macroText)
      .record(copyMacroParameters, dest->macroParms, source->macroParms)
      .elseFree(dest, records::freeMacro);
}

unsigned CopyZQCOMValueStruct(ZQCOMValueStruct* dest, const ZQCOMValueStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  CopyMembers members;
  members.text(dest->valueIdentifier, source->valueIdentifier);
  if (source->valueType == 2) {
    members.record(CopyZQValueStruct, dest->u.value, source->u.value);
  }
  const unsigned status = members.elseFree(dest, FreeZQCOMValueStruct);
  dest->valueType = source->valueType;
  return status;
}

unsigned CopyZQCOMMethodParmList(ZQCOMMethodParmList* dest, const ZQCOMMethodParmList* source) {
  return copyList(dest, source, copyMethodParameter, FreeZQCOMMethodParmList);
}

unsigned CopyZQAutomationStruct(ZQAutomationStruct* dest, const ZQAutomationStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .text(dest->automationServerName, source->automationServerName)
      .text(dest->classID, source->classID)
      .text(dest->action, source->action)
      .record(copyMethods, dest->methods, source->methods)
      .elseFree(dest, FreeZQAutomationStruct);
}

// The sort list never fails, so that an exhausted heap may leave it empty without a failure.
unsigned CopyZQOpenDlgStruct(ZQOpenDlgStruct* dest, const ZQOpenDlgStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .record(CopyZQFieldAssignList, dest->inputFields, source->inputFields)
      .record(CopyZQFieldAssignList, dest->outputFields, source->outputFields)
      .text(dest->targetLocation, source->targetLocation)
      .record(CopyZQQualifierStruct, dest->query, source->query)
      .record(copyMessage, dest->message, source->message)
      .text(dest->reportString, source->reportString)
      .record(CopyZQSortList, dest->sortList, source->sortList)
      .elseFree(dest, FreeZQOpenDlgStruct);
}

unsigned CopyZQActiveLinkActionStruct(ZQActiveLinkActionStruct* dest,
                                      const ZQActiveLinkActionStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  switch (source->action) {
    case 1:
      return CopyZQActiveLinkMacroStruct(&dest->u.macro, &source->u.macro);
    case 2:
      return CopyZQFieldAssignList(&dest->u.setFields, &source->u.setFields);
    case 3:
      return copyText(dest->u.process, source->u.process);
    case 4:
      return copyMessage(&dest->u.message, &source->u.message);
    case 5:
      return copyCharacteristics(&dest->u.characteristics, &source->u.characteristics);
    case 6:
      return CopyZQDDEStruct(&dest->u.dde, &source->u.dde);
    case 7:
      return CopyZQPushFieldsList(&dest->u.pushFields, &source->u.pushFields);
    case 8:
      return CopyZQSQLStruct(&dest->u.sql, &source->u.sql);
    case 9:
      return CopyZQAutomationStruct(&dest->u.automation, &source->u.automation);
    case 10:
      return CopyZQOpenDlgStruct(&dest->u.openDialog, &source->u.openDialog);
    case 15:
      return copyText(dest->u.gotoGuide.label, source->u.gotoGuide.label);
    case 16:
      return copyText(dest->u.wait.continueButtonLabel, source->u.wait.continueButtonLabel);
    default:
      return kDone;
  }
}

// Deliberate: if there is no memory for the array the source's count stands beside a null pointer.
unsigned CopyZQActiveLinkActionList(ZQActiveLinkActionList* dest,
                                    const ZQActiveLinkActionList* source) {
  if (dest == nullptr) {
    return kDone;
  }
  records::setEmpty(*dest);
  if (source == nullptr || !records::hasItems(*source)) {
    return kDone;
  }
  const unsigned status = records::allocateItems(dest, source->numItems);
  if (status != kDone) {
    dest->numItems = source->numItems;
    return status;
  }
  return records::copyElements(dest, source, CopyZQActiveLinkActionStruct,
                               FreeZQActiveLinkActionList);
}
