// Any text as a definition document that is parsed, written, parsed again and written again: the
// two written texts have to be the same. With half of the inputs an allocation of the writing
// fails, or one of the parsing of what was written.

#include <string>

#include "fuzz/Documents.h"

namespace {

using fuzz::Parsed;
using fuzz::require;
using fuzz::Text;

template <typename Arm>
int write(const ZQXMLObjectList& node, ZQXMLOutputDoc& document, Arm arm) {
  [[maybe_unused]] const auto armed = arm();
  if (node.objectType == ZQXML_FILTER) {
    const ZQXMLFilter& filter = node.object.filter;
    return SetFilterToXML(&document, 1, filter.name, &filter.executionOrder,
                          &filter.workflowConnect, &filter.executeOn, &filter.enabled,
                          &filter.query, &filter.actionList, &filter.elseList, filter.owner,
                          filter.lastChanged, &filter.modifiedDate, filter.helpText,
                          filter.changeDiary, &filter.objPropList, &filter.xmlDocVersion, nullptr);
  }
  require(node.objectType == ZQXML_ESCALATION, "a node holds an object that can be parsed");
  const ZQXMLEscalation& escalation = node.object.escalation;
  return SetEscalationToXML(
      &document, 1, escalation.name, &escalation.escalationTime, &escalation.workflowConnect,
      &escalation.enabled, &escalation.query, &escalation.actionList, &escalation.elseList,
      escalation.owner, escalation.lastChanged, &escalation.modifiedDate, escalation.helpText,
      escalation.changeDiary, &escalation.objPropList, &escalation.xmlDocVersion, nullptr);
}

// Writing consumes the change history: its separators become zeros. This keeps it whole.
class KeptDiary {
 public:
  explicit KeptDiary(const ZQXMLObjectList& node)
      : diary(node.objectType == ZQXML_FILTER ? node.object.filter.changeDiary
                                              : node.object.escalation.changeDiary),
        copy(diary == nullptr ? "" : diary) {}
  KeptDiary(const KeptDiary&) = delete;
  KeptDiary& operator=(const KeptDiary&) = delete;
  ~KeptDiary() {
    if (diary != nullptr) {
      memcpy(diary, copy.c_str(), copy.size() + 1);
    }
  }

 private:
  char* diary;
  std::string copy;
};

// The document with an object, declared as what it is in.
std::string written(const ZQXMLObjectList& node) {
  const KeptDiary keptDiary(node);
  ZQXMLOutputDoc document = {1, {}};
  require(write(node, document, fuzz::unarmed) == 0, "an object that was read can be written");
  char* text = nullptr;
  SetEncodingForXMLDoc(document.u.doc, 65, &text);
  require(text != nullptr, "a document has a declaration");
  const std::string copy = text;
  free(text);
  FreeZQXMLOutputDocInternal(&document, 0);
  return copy;
}

void checkFailingWrite(const ZQXMLObjectList& node, uint32_t digest) {
  long count = 0;
  {
    const KeptDiary keptDiary(node);
    const long before = fault::allocationCount();
    ZQXMLOutputDoc document = {1, {}};
    write(node, document, fuzz::unarmed);
    count = fault::allocationCount() - before;
    FreeZQXMLOutputDocInternal(&document, 0);
  }
  fuzz::withFailure(digest, count, [&](auto arm) {
    const KeptDiary keptDiary(node);
    ZQXMLOutputDoc document = {1, {}};
    require(write(node, document, arm) != 0, "writing fails if memory runs out");
    require(document.u.doc == nullptr, "nothing is written by a failure");
  });
}

// An option that the document left out is written without text, and such a document can't be read.
void checkWriting(const ZQXMLObjectList& node, uint32_t digest) {
  const std::string once = written(node);
  if (fuzz::isFailing(digest)) {
    checkFailingWrite(node, digest);
  }
  const Text text(once);
  Parsed again;
  const long before = fault::allocationCount();
  again.parse(text);
  const long count = fault::allocationCount() - before;
  if (again.result != 0) {
    return;
  }
  require(again.stream.objectList != nullptr && again.stream.objectList->next == nullptr,
          "one object was written");
  const std::string twice = written(*again.stream.objectList);
  if (fuzz::isFailing(digest)) {
    fuzz::withFailure(digest >> 1, count, [&](auto arm) {
      Parsed failed;
      {
        const auto armed = arm();
        failed.parse(text);
      }
      require(failed.result != 0 || written(*failed.stream.objectList) == twice,
              "what is parsed though memory ran out is all there");
    });
  }
  Parsed third;
  third.parse(Text(twice));
  require(third.result == 0 && twice == written(*third.stream.objectList),
          "what was written twice is written the same again");
}

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  fuzz::beginRun();
  Parsed parsed;
  parsed.parse(Text(reinterpret_cast<const char*>(data), size));
  const uint32_t digest = fuzz::digestOf(data, size);
  for (const ZQXMLObjectList* node = parsed.stream.objectList; node != nullptr; node = node->next) {
    checkWriting(*node, digest);
  }
}
