#include "xml/handlers/ZQXMLRootHandler.h"

#include <cstdlib>

#include "xml/DocumentLimits.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/heap.h"

ZQXMLRootHandler::ZQXMLRootHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), filter(info), escalation(info) {}

void ZQXMLRootHandler::Init(ZQXMLObjectList** objectList) {
  currentTag = 0;
  objectListHead = objectList;
  *objectListHead = nullptr;
  lastNode = nullptr;
}

// Only below "root": an object element that stands outermost is refused like any other.
void ZQXMLRootHandler::PreProcess(int tag) {
  if (currentTag != tag_root) {
    return;
  }
  const auto give = [this](auto& handler, auto member) {
    ZQXMLObjectList& node = GenNewObjectNode();
    handler.Init(&(node.object.*member), &node.objectType);
    handlerStack->Push(&handler, locator);
  };
  using Object = decltype(ZQXMLObjectList::object);
  switch (tag) {
    case tag_filter:
      give(filter, &Object::filter);
      break;
    case tag_escalation:
      give(escalation, &Object::escalation);
      break;
    default:
      break;
  }
}

void ZQXMLRootHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = tag;
  if (tag != tag_root) {
    refuseElement();
  }
}

void ZQXMLRootHandler::Characters(const char*, unsigned) {}

void ZQXMLRootHandler::EndElement(int tag) {
  currentTag = 0;
  if (tag != tag_root) {
    refuseElement();
  }
  DestroyUnusedNodes();
}

void ZQXMLRootHandler::PostProcess(int) {
  handlerStack->Pop();
}

void ZQXMLRootHandler::CleanReferences() {}

// The node of an object that was dropped is used again.
ZQXMLObjectList& ZQXMLRootHandler::GenNewObjectNode() {
  if (lastNode == nullptr || lastNode->objectType != 0) {
    DocumentLimits* limits = handlerInfo->limits;
    if (limits != nullptr && !limits->addObject(sizeof(ZQXMLObjectList))) {
      throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME, locator);
    }
    auto* node = newRecord<ZQXMLObjectList>();
    (lastNode != nullptr ? lastNode->next : *objectListHead) = node;
    lastNode = node;
  }
  return *lastNode;
}

void ZQXMLRootHandler::DestroyUnusedNodes() {
  ZQXMLObjectList** link = objectListHead;
  while (*link != nullptr) {
    ZQXMLObjectList* node = *link;
    if (node->objectType == 0) {
      *link = node->next;
      free(node);
    } else {
      link = &node->next;
    }
  }
}
