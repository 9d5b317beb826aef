#include "xml/handlers/ZQXMLSupportFileHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/decodeBytes.h"

namespace {

void loadContent(ZQSupportFileInfoStruct& file, const LeafText& leaf) {
  decodeBytes(leaf.text, file.fileContent, file.fileSize);
}

constexpr Leaf<ZQSupportFileInfoStruct> kLeaves[] = {
    {tag_fileType, loadWord<&ZQSupportFileInfoStruct::fileType, ENUM_SUPPORT_FILE>},
    {tag_fileID, loadUnsigned<&ZQSupportFileInfoStruct::fileId>},
    {tag_content, loadContent},
    {tag_modifiedDate,
     [](ZQSupportFileInfoStruct& file, const LeafText& leaf) {
       ZQXMLHandlerUtils::ConvertISOTimeToUnixTime(leaf.text, &file.timestamp);
     }},
};

}  // namespace

ZQXMLSupportFileHandler::ZQXMLSupportFileHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLSupportFileHandler::Init(ZQSupportFileInfoStruct* file) {
  currentTag = 0;
  CleanReferences();
  target = file;
  *target = {};
}

void ZQXMLSupportFileHandler::PreProcess(int) {}

void ZQXMLSupportFileHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_supportFile) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLSupportFileHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLSupportFileHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_supportFile) {
    refuseElement();
  }
}

void ZQXMLSupportFileHandler::PostProcess(int tag) {
  if (tag == tag_supportFile) {
    handlerStack->Pop();
  }
}

void ZQXMLSupportFileHandler::CleanReferences() {}
