#include "xml/handlers/ZQXMLGetNamesHandler.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <type_traits>

#include "xml/ZQXMLException.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/heap.h"
#include "zqxml/free.h"
#include "zqxml/multibyte.h"
#include "zqxml/parser.h"

namespace {

constexpr int kNameLimit = sizeof(ZQNameType) - 1;
constexpr int32_t kNoSubType = -1;

// What an element means for the list.
enum class Role : unsigned char { None, Object, Name, ContainerType, Root };

struct ObjectElement {
  int tag;
  uint32_t kind;
};

// A "field" is none of them: standalone fields aren't listed.
constexpr ObjectElement kObjectElements[] = {
    {tag_activeLink, ZQXML_ACTIVE_LINK},
    {tag_container, ZQXML_CONTAINER},
    {tag_distributedMapping, ZQXML_DSO_MAPPING},
    {tag_distributedPool, ZQXML_DSO_POOL},
    {tag_escalation, ZQXML_ESCALATION},
    {tag_filter, ZQXML_FILTER},
    {tag_form, ZQXML_FORM},
    {tag_menu, ZQXML_MENU},
    {tag_vui, ZQXML_VUI},
};

constexpr int kNameElements[] = {
    tag_activeLinkName,
    tag_containerName,
    tag_distributedMappingName,
    tag_distributedPoolName,
    tag_escalationName,
    tag_filterName,
    tag_formName,
    tag_menuName,
};

// By tag: nearly every element of a document has no role, and one look says so.
constexpr auto kRoles = [] {
  std::array<Role, kTagCount + 1> roles{};
  for (const ObjectElement& element : kObjectElements) {
    roles[static_cast<size_t>(element.tag)] = Role::Object;
  }
  for (const int tag : kNameElements) {
    roles[static_cast<size_t>(tag)] = Role::Name;
  }
  roles[tag_containerType] = Role::ContainerType;
  roles[tag_root] = Role::Root;
  return roles;
}();

Role roleOf(int tag) {
  return tag > 0 ? kRoles[static_cast<size_t>(tag)] : Role::None;
}

uint32_t kindOf(int objectTag) {
  const auto* element =
      std::find_if(std::begin(kObjectElements), std::end(kObjectElements),
                   [objectTag](const ObjectElement& each) { return each.tag == objectTag; });
  return element->kind;
}

template <typename List>
void allocateItems(List* list, uint32_t count) {
  list->items = newRecords<std::remove_reference_t<decltype(*list->items)>>(count);
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

// Only the text of an open name or type is of interest: for all other elements `currentTag` is 0,
// so that their text, nearly all of a document, is dropped before it is converted.
void ZQXMLGetNamesHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  switch (roleOf(tag)) {
    case Role::Object:
      objectKind = kindOf(tag);
      objectName.Empty();
      nameOpen = true;
      break;
    case Role::Name:
      currentTag = nameOpen ? tag : 0;
      break;
    case Role::ContainerType:
      subTypeText.Empty();
      subTypeOpen = true;
      currentTag = tag;
      break;
    default:
      break;
  }
}

void ZQXMLGetNamesHandler::Characters(const char* text, unsigned) {
  if (currentTag == 0) {
    return;
  }
  (currentTag == tag_containerType ? subTypeText : objectName) += text;
}

void ZQXMLGetNamesHandler::EndElement(int tag) {
  switch (roleOf(tag)) {
    case Role::Name:
      nameOpen = false;
      break;
    case Role::ContainerType:
      subTypeOpen = false;
      break;
    case Role::Object:
      AddNode();
      break;
    case Role::Root:
      GenStructList();
      CleanReferences();
      break;
    default:
      break;
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
  auto* node = newRecord<Node>();
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
