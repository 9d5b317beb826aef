// Any text as a definition document: listing and parsing it, writing what was parsed, and parsing
// that again. Where the last byte is odd an allocation of the first parse fails, whose number the
// two bytes before it tell.

#include <zqxml/zqxml.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "fault/FailingAllocations.h"
#include "records/verbs.h"

namespace {

ZQXMLParserHandle* parser() {
  static ZQXMLParserHandle* handle = [] {
    auto* made = new ZQXMLParserHandle;
    if (CreateXMLParserHandle(made, nullptr) != 0) {
      abort();
    }
    return made;
  }();
  return handle;
}

void require(bool holds, const char* what) {
  if (!holds) {
    fprintf(stderr, "%s\n", what);
    abort();
  }
}

struct Parsed {
  // The contract leaves some blocks to the process; here they'd hide what is really lost.
  ~Parsed() {
    const records::Unwinding unwinding;
    FreeZQXMLParsedStreamInternal(&stream, 0);
    FreeZQStructItemList(&objects, 0);
    FreeZQStatusList(&status, 0);
  }

  void parse(std::string& text, long failing = -1) {
    const ZQXMLInputDoc document = {ZQXML_INPUT_MEMORY, text.data()};
    const fault::FailingAllocations arm(failing);
    result = ParseXMLDocument(parser(), &document, nullptr, &stream, &objects, &status);
  }

  ZQXMLParsedStream stream = {};
  ZQStructItemList objects = {};
  ZQStatusList status = {};
  int result = 0;
};

void list(std::string& text) {
  const ZQXMLInputDoc document = {ZQXML_INPUT_MEMORY, text.data()};
  ZQUnsignedIntList types;
  ZQNameList names;
  ZQUnsignedIntList subTypes;
  GetListXMLObjects(parser(), &document, &types, &names, &subTypes, nullptr);
  FreeZQUnsignedIntList(&types, 0);
  FreeZQNameList(&names, 0);
  FreeZQUnsignedIntList(&subTypes, 0);
}

std::string written(const ZQXMLObjectList& node) {
  ZQXMLOutputDoc document = {1, {}};
  int result = 2;
  if (node.objectType == ZQXML_FILTER) {
    const ZQXMLFilter& filter = node.object.filter;
    result = SetFilterToXML(&document, 1, filter.name, &filter.executionOrder,
                            &filter.workflowConnect, &filter.executeOn, &filter.enabled,
                            &filter.query, &filter.actionList, &filter.elseList, filter.owner,
                            filter.lastChanged, &filter.modifiedDate, filter.helpText, nullptr,
                            &filter.objPropList, &filter.xmlDocVersion, nullptr);
  } else if (node.objectType == ZQXML_ESCALATION) {
    const ZQXMLEscalation& escalation = node.object.escalation;
    result = SetEscalationToXML(
        &document, 1, escalation.name, &escalation.escalationTime, &escalation.workflowConnect,
        &escalation.enabled, &escalation.query, &escalation.actionList, &escalation.elseList,
        escalation.owner, escalation.lastChanged, &escalation.modifiedDate, escalation.helpText,
        nullptr, &escalation.objPropList, &escalation.xmlDocVersion, nullptr);
  }
  require(result == 0, "an object that was read can't be written");
  char* text = nullptr;
  SetEncodingForXMLDoc(document.u.doc, 65, &text);
  require(text != nullptr, "a document without a declaration");
  const std::string copy = text;
  free(text);
  FreeZQXMLOutputDocInternal(&document, 0);
  return copy;
}

// What was written once is written the same again, unless an option that the document left out
// keeps it from being read.
void checkWriting(const ZQXMLObjectList& node) {
  std::string once = written(node);
  Parsed again;
  again.parse(once);
  if (again.result != 0) {
    return;
  }
  require(again.stream.objectList != nullptr, "an object is lost in writing");
  std::string twice = written(*again.stream.objectList);
  Parsed third;
  third.parse(twice);
  require(third.result == 0 && twice == written(*third.stream.objectList),
          "writing doesn't come to rest");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  setenv("TZ", "UTC", 1);
  std::string text(reinterpret_cast<const char*>(data), size);
  long failing = -1;
  if (size > 3 && (data[size - 1] & 1) != 0) {
    failing = data[size - 2] << 8 | data[size - 3];
    text.resize(size - 3);
  }
  text.resize(strlen(text.c_str()));
  if (failing < 0) {
    list(text);
  }
  Parsed first;
  first.parse(text, failing);
  if (first.result != 0) {
    require(first.stream.objectList == nullptr || failing >= 0, "objects beside a failure");
    return 0;
  }
  for (const ZQXMLObjectList* node = first.stream.objectList; node != nullptr; node = node->next) {
    checkWriting(*node);
  }
  return 0;
}
