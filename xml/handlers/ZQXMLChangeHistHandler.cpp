#include "xml/handlers/ZQXMLChangeHistHandler.h"

#include <string>

#include "xml/LeafTable.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/ZQXMLText.h"

namespace {

constexpr char kFieldEnd = '\4';
constexpr char kEntryEnd = '\3';

}  // namespace

void ZQXMLChangeHistHandler::Init(char** diary) {
  currentTag = 0;
  CleanReferences();
  entryText.Empty();
  target = diary;
  *target = nullptr;
}

void ZQXMLChangeHistHandler::PreProcess(int) {}

void ZQXMLChangeHistHandler::StartElement(int tag, const xercesc::Attributes& attributes) {
  currentTag = 0;
  switch (tag) {
    case tag_changeHistory:
      break;
    case tag_changeEntry:
      head = {};
      entryText.Empty();
      ReadAttributes(attributes);
      break;
    case tag_entry:
      currentTag = tag;
      break;
    default:
      refuseElement();
  }
}

void ZQXMLChangeHistHandler::Characters(const char* text, unsigned) {
  if (currentTag != 0) {
    entryText += text;
  }
}

void ZQXMLChangeHistHandler::EndElement(int tag) {
  currentTag = 0;
  switch (tag) {
    case tag_changeHistory:
      GenChangeHistString();
      CleanReferences();
      break;
    case tag_changeEntry:
      AddChangeEntry();
      break;
    case tag_entry:
      break;
    default:
      refuseElement();
  }
}

void ZQXMLChangeHistHandler::PostProcess(int tag) {
  if (tag == tag_changeHistory) {
    handlerStack->Pop();
  }
}

void ZQXMLChangeHistHandler::CleanReferences() {
  entries.clean();
}

void ZQXMLChangeHistHandler::ReadAttributes(const xercesc::Attributes& attributes) {
  std::string value;
  for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
    value = ZQXMLToLocal(attributes.getValue(i));
    switch (gTagHash.Get(attributes.getQName(i))) {
      case tag_modifiedDate:
        ConvertISOTimeToUnixTime(value.c_str(), &head.modifiedDate);
        break;
      case tag_userName:
        fillArray(head.userName, value.c_str());
        break;
      default:
        refuseAttribute(attributes.getQName(i));
    }
  }
}

void ZQXMLChangeHistHandler::AddChangeEntry() {
  ZQXMLChangeEntry& entry = entries.add();
  entry = head;
  replaceText(entry.text, entryText);
}

void ZQXMLChangeHistHandler::GenChangeHistString() {
  std::string diary;
  entries.forEach([&diary](const ZQXMLChangeEntry& entry) {
    diary += std::to_string(entry.modifiedDate);
    diary += kFieldEnd;
    diary += entry.userName;
    diary += kFieldEnd;
    diary += entry.text;
    diary += kEntryEnd;
  });
  replaceText(*target, diary.c_str());
}
