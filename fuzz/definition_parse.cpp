// Any text as a definition document that is parsed, all of it or a selection, and whose objects are
// looked up and copied. With half of the inputs an allocation of the parse or of the copy fails.

#include "fuzz/Documents.h"

namespace {

using fuzz::Parsed;
using fuzz::require;
using fuzz::Text;

// Copies the object of a node, and gives the copy back.
template <typename Arm>
int fetch(ZQXMLObjectList& node, Arm arm) {
  ZQXMLParsedStream stream = {&node};
  int result = 0;
  if (node.objectType == ZQXML_FILTER) {
    ZQXMLFilter filter = {};
    {
      [[maybe_unused]] const auto armed = arm();
      result = GetFilterFromXML(
          &stream, node.object.filter.name, &filter.executionOrder, &filter.workflowConnect,
          &filter.executeOn, &filter.enabled, &filter.query, &filter.actionList, &filter.elseList,
          filter.owner, filter.lastChanged, &filter.modifiedDate, &filter.helpText,
          &filter.changeDiary, &filter.objPropList, &filter.xmlDocVersion, nullptr);
    }
    const records::Unwinding unwinding;
    FreeZQXMLFilter(&filter, 0);
  } else if (node.objectType == ZQXML_ESCALATION) {
    ZQXMLEscalation escalation = {};
    {
      [[maybe_unused]] const auto armed = arm();
      result = GetEscalationFromXML(
          &stream, node.object.escalation.name, &escalation.escalationTime,
          &escalation.workflowConnect, &escalation.enabled, &escalation.query,
          &escalation.actionList, &escalation.elseList, escalation.owner, escalation.lastChanged,
          &escalation.modifiedDate, &escalation.helpText, &escalation.changeDiary,
          &escalation.objPropList, &escalation.xmlDocVersion, nullptr);
    }
    const records::Unwinding unwinding;
    FreeZQXMLEscalation(&escalation, 0);
  }
  return result;
}

void checkObjects(const Parsed& parsed) {
  uint32_t count = 0;
  for (const ZQXMLObjectList* node = parsed.stream.objectList; node != nullptr; node = node->next) {
    require(count < parsed.objects.numItems, "each object is listed");
    const ZQStructItemStruct& item = parsed.objects.items[count++];
    require(item.itemType == node->objectType, "an object is listed as what it is");
    require(GetXMLObject(parsed.stream.objectList, item.name, item.itemType) != nullptr,
            "a listed object is found");
  }
  require(count == parsed.objects.numItems, "only objects are listed");
}

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  fuzz::beginRun();
  const uint32_t digest = fuzz::digestOf(data, size);
  const Text text(reinterpret_cast<const char*>(data), size);
  ZQStructItemStruct items[] = {{ZQXML_FILTER, "F", {}}, {ZQXML_ESCALATION, "E", {}}};
  ZQStructItemList selection = {std::size(items), items};
  ZQStructItemList* selected = (digest >> 28) % 8 == 0 ? &selection : nullptr;

  Parsed parsed;
  const long before = fault::allocationCount();
  parsed.parse(text, selected);
  const long count = fault::allocationCount() - before;
  require(parsed.result == 0 || parsed.stream.objectList == nullptr,
          "a document that fails gives out no object");
  checkObjects(parsed);
  const bool isFailing = fuzz::isFailing(digest);
  if (isFailing) {
    fuzz::withFailure(digest, count, [&](auto arm) {
      Parsed failed;
      {
        const auto armed = arm();
        failed.parse(text, selected);
      }
      require(failed.result != 0 ||
                  (parsed.result == 0 && fuzz::isSame(failed.objects, parsed.objects)),
              "what is parsed though memory ran out is all there");
    });
  }
  for (ZQXMLObjectList* node = parsed.stream.objectList; node != nullptr; node = node->next) {
    const long beforeFetch = fault::allocationCount();
    require(fetch(*node, fuzz::unarmed) == 0, "an object can be fetched");
    if (isFailing) {
      fuzz::withFailure(digest, fault::allocationCount() - beforeFetch, [&](auto arm) {
        require(fetch(*node, arm) != 0, "a copy fails if memory runs out");
      });
    }
  }
}
