#include "xml/handlers/ZQXMLGetNamesHandler.h"

#include <cstdlib>

#include "xml/ZQXMLException.h"
#include "xml/ZQXMLTagHash.h"
#include "zqxml/free.h"
#include "zqxml/messages.h"
#include "zqxml/multibyte.h"
#include "zqxml/parser.h"

namespace {

constexpr int kNameLimit = sizeof(ZQNameType) - 1;
constexpr int32_t kNoSubType = -1;

// The kind of the object that an element holds, or 0. A "field" is none: standalone fields aren't
// listed.
uint32_t objectKindOf(int tag) {
  switch (tag) {
    case tag_activeLink:
      return ZQXML_ACTIVE_LINK;
    case tag_container:
      return ZQXML_CONTAINER;
    case tag_distributedMapping:
      return ZQXML_DSO_MAPPING;
    case tag_distributedPool:
      return ZQXML_DSO_POOL;
    case tag_escalation:
      return ZQXML_ESCALATION;
    case tag_filter:
      return ZQXML_FILTER;
    case tag_form:
      return ZQXML_FORM;
    case tag_menu:
      return ZQXML_MENU;
    case tag_vui:
      return ZQXML_VUI;
    default:
      return 0;
  }
}

bool isNameElement(int tag) {
  switch (tag) {
    case tag_activeLinkName:
    case tag_containerName:
    case tag_distributedMappingName:
    case tag_distributedPoolName:
    case tag_escalationName:
    case tag_filterName:
    case tag_formName:
    case tag_menuName:
      return true;
    default:
      return false;
  }
}

template <typename List>
void allocateItems(List* list, uint32_t count) {
  list->items = static_cast<decltype(list->items)>(calloc(count, sizeof *list->items));
  if (list->items == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  list->numItems = count;
}

}  // namespace

void ZQXMLGetNamesHandler::Init(ZQUnsignedIntList* types, ZQNameList* names,
                                ZQUnsignedIntList* containerTypes) {
  currentTag = 0;
  CleanReferences();
  objectName.Empty();
  objectKind = 0;
  subTypeText.Empty();
  nameOpen = false;
  subTypeOpen = false;
  objectTypes = types;
  objectNames = names;
  subTypes = containerTypes;
  *objectTypes = {};
  *objectNames = {};
  *subTypes = {};
}

void ZQXMLGetNamesHandler::PreProcess(int) {}

// Only the text of an open name or type is of interest: for all other elements `currentTag` is 0, so that their text,
// nearly all of a document, is dropped before it is converted.
void ZQXMLGetNamesHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (const uint32_t kind = objectKindOf(tag); kind != 0) {
    objectKind = kind;
    objectName.Empty();
    nameOpen = true;
  } else if (tag == tag_containerType) {
    subTypeText.Empty();
    subTypeOpen = true;
    currentTag = tag;
  } else if (nameOpen && isNameElement(tag)) {
    currentTag = tag;
  }
}

void ZQXMLGetNamesHandler::Characters(const char* text, unsigned) {
  if (currentTag == 0) {
    return;
  }
  (currentTag == tag_containerType ? subTypeText : objectName) += text;
}

void ZQXMLGetNamesHandler::EndElement(int tag) {
  if (isNameElement(tag)) {
    nameOpen = false;
  } else if (tag == tag_containerType) {
    subTypeOpen = false;
  } else if (objectKindOf(tag) != 0) {
    AddNode();
  } else if (tag == tag_root) {
    GenStructList();
    CleanReferences();
  }
  currentTag = 0;
}

void ZQXMLGetNamesHandler::PostProcess(int tag) {
  if (tag == tag_root) {
    handlerStack->Pop();
  }
}

void ZQXMLGetNamesHandler::CleanReferences() {
  while (firstNode != nullptr) {
    Node* node = firstNode;
    firstNode = node->next;
    free(node);
  }
  lastNode = nullptr;
}

// The kind is the one of the object element that began last, which for an object inside another one
// is the inner.
void ZQXMLGetNamesHandler::AddNode() {
  const int32_t subType =
      objectKind == ZQXML_CONTAINER
          ? static_cast<int32_t>(GetEnumValue(ENUM_CONTAINER_TYPE, subTypeText, locator))
          : kNoSubType;
  auto* node = static_cast<Node*>(calloc(1, sizeof(Node)));
  if (node == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  node->type = objectKind;
  mbstrncpy(node->name, objectName, kNameLimit);
  node->subType = subType;
  (lastNode != nullptr ? lastNode->next : firstNode) = node;
  lastNode = node;
}

void ZQXMLGetNamesHandler::GenStructList() {
  uint32_t count = 0;
  for (const Node* node = firstNode; node != nullptr; node = node->next) {
    ++count;
  }
  if (count == 0) {
    return;
  }
  try {
    allocateItems(objectTypes, count);
    allocateItems(objectNames, count);
    allocateItems(subTypes, count);
  } catch (const ZQXMLException&) {
    FreeZQUnsignedIntList(objectTypes, 0);
    FreeZQNameList(objectNames, 0);
    FreeZQUnsignedIntList(subTypes, 0);
    throw;
  }
  uint32_t i = 0;
  for (const Node* node = firstNode; node != nullptr; node = node->next, ++i) {
    objectTypes->items[i] = node->type;
    mbstrncpy(objectNames->items[i], node->name, kNameLimit);
    subTypes->items[i] = static_cast<uint32_t>(node->subType);
  }
}
