#include "xml/handlers/ZQXMLSupportFileListHandler.h"

#include "xml/ZQXMLTagHash.h"

ZQXMLSupportFileListHandler::ZQXMLSupportFileListHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), file(info) {}

void ZQXMLSupportFileListHandler::Init(ZQSupportFileInfoList* list) {
  currentTag = 0;
  CleanReferences();
  target = list;
  *target = {};
}

void ZQXMLSupportFileListHandler::PreProcess(int tag) {
  if (tag == tag_supportFile) {
    giveTo(file, files.add(), FreeZQSupportFileInfoStruct);
  }
}

void ZQXMLSupportFileListHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag != tag_supportFileList) {
    refuseElement();
  }
}

void ZQXMLSupportFileListHandler::Characters(const char*, unsigned) {}

void ZQXMLSupportFileListHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag != tag_supportFileList) {
    refuseElement();
  }
  files.moveTo(target->numItems, target->items);
}

void ZQXMLSupportFileListHandler::PostProcess(int tag) {
  if (tag == tag_supportFileList) {
    handlerStack->Pop();
  }
}

void ZQXMLSupportFileListHandler::CleanReferences() {
  files.clean();
}
