#include "xml/handlers/ZQXMLWorkflowConnectHandler.h"

#include "xml/LeafTable.h"
#include "xml/ZQXMLTagHash.h"

void ZQXMLWorkflowConnectHandler::Init(ZQWorkflowConnectStruct* connect) {
  currentTag = 0;
  CleanReferences();
  target = connect;
  *target = {};
}

void ZQXMLWorkflowConnectHandler::PreProcess(int) {}

void ZQXMLWorkflowConnectHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  switch (tag) {
    case tag_formName:
      formName.Empty();
      currentTag = tag;
      break;
    case tag_workflowConnect:
    case tag_formNameList:
      break;
    default:
      refuseElement();
  }
}

void ZQXMLWorkflowConnectHandler::Characters(const char* text, unsigned) {
  if (currentTag != 0) {
    formName += text;
  }
}

void ZQXMLWorkflowConnectHandler::EndElement(int tag) {
  currentTag = 0;
  switch (tag) {
    case tag_formName:
      AddFormNameEntry();
      break;
    case tag_workflowConnect:
      GenFormNameList();
      break;
    case tag_formNameList:
      break;
    default:
      refuseElement();
  }
}

void ZQXMLWorkflowConnectHandler::PostProcess(int tag) {
  if (tag == tag_workflowConnect) {
    handlerStack->Pop();
  }
}

void ZQXMLWorkflowConnectHandler::CleanReferences() {
  formNames.clean();
}

void ZQXMLWorkflowConnectHandler::AddFormNameEntry() {
  fillArray(formNames.add().name, formName);
}

void ZQXMLWorkflowConnectHandler::GenFormNameList() {
  if (formNames.isEmpty()) {
    return;
  }
  static_assert(sizeof(FormName) == sizeof(ZQNameType));
  constexpr uint32_t kFormList = 1;
  target->formList = newRecord<ZQNameList>();
  target->type = kFormList;
  FormName* names = nullptr;
  formNames.moveTo(target->formList->numItems, names);
  target->formList->items = reinterpret_cast<ZQNameType*>(names);
}
