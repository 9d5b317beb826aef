// The objects of a chain: looking them up, fetching, freeing.

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "fault/Scenario.h"
#include "records/StatusLists.h"
#include "records/Trees.h"
#include "xml/handlers/ObjectKinds.h"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

const ObjectKind& kindOf(uint32_t number) {
  for (const ObjectKind& kind : objectKinds()) {
    if (kind.number == number) {
      return kind;
    }
  }
  abort();
}

// A node on the heap with a full object.
ZQXMLObjectList* newNode(const ObjectKind& kind, const char* name,
                         ZQXMLObjectList* next = nullptr) {
  auto* node = static_cast<ZQXMLObjectList*>(calloc(1, sizeof(ZQXMLObjectList)));
  node->objectType = kind.number;
  node->next = next;
  kind.build(node->object, 1);
  memset(kind.nameOf(node->object), 0, sizeof(ZQNameType));
  strcpy(kind.nameOf(node->object), name);
  return node;
}

void freeNode(const ObjectKind& kind, ZQXMLObjectList* node) {
  kind.freeBlocks(node->object);
  free(node);
}

AnyObject emptyObject(const ObjectKind& kind, const char* name) {
  AnyObject object;
  memset(static_cast<void*>(&object), 0, sizeof object);
  strcpy(kind.nameOf(object), name);
  return object;
}

// Deliberate: the lists of sort entries, indexes and result list fields of a form don't tell a
// failure.
bool mayNotTell(const ObjectKind& kind) {
  return kind.number == ZQXML_FORM;
}

// What was filled before a failure stays with the caller; the object itself stays whole, and can be
// fetched again but for the buffers of attachments, which have moved out.
void get(Attempt& attempt, const ObjectKind& kind) {
  const std::vector<bool> whole(kind.outputs, true);
  ZQXMLObjectList* node = newNode(kind, "N");
  ZQXMLParsedStream stream = {node};
  const std::string wanted = kind.dump(node->object);
  OwnedStatusList status;
  AnyObject out = emptyObject(kind, "N");
  const int result = attempt.call([&] { return kind.get(&stream, "N", out, whole, &status); });
  if (!attempt.failed()) {
    EXPECT_EQ(result, 0);
    EXPECT_EQ(kind.dump(out), wanted);
  } else {
    EXPECT_TRUE(result == 2 || result == 3 || (result == 0 && mayNotTell(kind))) << result;
  }
  EXPECT_EQ(describe(status), result == 2 ? "2/300 " : "");
  kind.freeBlocks(out);

  const std::string rest = kind.dump(node->object);
  AnyObject again = emptyObject(kind, "N");
  EXPECT_EQ(kind.get(&stream, "N", again, whole, nullptr), 0);
  EXPECT_EQ(kind.dump(again), rest);
  kind.freeBlocks(again);
  freeNode(kind, node);
}

void getMissing(Attempt& attempt, const ObjectKind& kind) {
  ZQXMLObjectList* node = newNode(kind, "N");
  ZQXMLParsedStream stream = {node};
  OwnedStatusList status;
  AnyObject out = emptyObject(kind, "untouched");
  const std::vector<bool> whole(kind.outputs, true);
  const int result = attempt.call([&] { return kind.get(&stream, "M", out, whole, &status); });
  EXPECT_EQ(result, attempt.failed() ? 3 : 2);
  EXPECT_EQ(describe(status), attempt.failed() ? "" : "2/8945 M");
  EXPECT_EQ(kind.dump(out), kind.dump(emptyObject(kind, "untouched")));
  freeNode(kind, node);
}

void listNames(Attempt& attempt) {
  // The names of views are the only ones that have blocks of their own.
  const ObjectKind& filter = kindOf(ZQXML_FILTER);
  const ObjectKind& views = kindOf(ZQXML_VUI);
  ZQXMLObjectList* second = newNode(views, "V");
  ZQXMLObjectList* first = newNode(views, "U", second);
  ZQXMLObjectList* list = newNode(filter, "F", first);
  ZQStructItemList names = {};
  OwnedStatusList status;
  const auto call = [&](ZQStatusList* records) {
    return GetNamesFromObjectList(list, &names, records);
  };
  const int result = attempt.call([&] { return call(&status); });
  if (attempt.failed()) {
    EXPECT_TRUE(result == 2 || result == 3) << result;
    EXPECT_EQ(describe(status), result == 2 ? "2/300 " : "");
    EXPECT_EQ(names.numItems, 0U);
    EXPECT_EQ(names.items, nullptr);
    EXPECT_EQ(call(nullptr), 0);
  } else {
    EXPECT_EQ(result, 0);
  }
  EXPECT_EQ(names.numItems, 3U);
  for (uint32_t i = 0; i < names.numItems; ++i) {
    EXPECT_STREQ(names.items[i].name, i == 0 ? "F" : i == 1 ? "U" : "V");
    const ZQNameList& selected = names.items[i].selectedElements;
    EXPECT_EQ(selected.numItems, i == 0 ? 0U : first->object.vui.vuiList.numItems);
    free(selected.items);
  }
  FreeZQStructItemList(&names, 0);
  freeNode(views, second);
  freeNode(views, first);
  freeNode(filter, list);
}

void find(Attempt& attempt) {
  for (const ObjectKind& kind : objectKinds()) {
    ZQXMLObjectList* node = newNode(kind, "N");
    EXPECT_EQ(attempt.call([&] { return GetXMLObject(node, "N", kind.number); }), node);
    EXPECT_EQ(attempt.call([&] { return GetXMLObject(node, "n", kind.number); }), nullptr);
    freeNode(kind, node);
  }
}

// The record of a kind is freed, and what it leaves by contract afterwards.
template <auto kMember, auto kFree>
void freeObject(Attempt& attempt, const ObjectKind& kind) {
  ZQXMLObjectList* node = newNode(kind, "N");
  const std::vector<void*> kept = kind.keptBlocks(node->object);
  attempt.call([&] { kFree(&(node->object.*kMember), 0); });
  for (void* block : kept) {
    free(block);
  }
  attempt.call([&] { kFree(&(node->object.*kMember), 0); });
  free(node);
}

// All kinds in a chain; the contents of a container and of a field are left by contract.
void freeChain(Attempt& attempt, bool asStream) {
  ZQXMLObjectList* list = nullptr;
  std::vector<void*> kept;
  std::vector<std::pair<const ObjectKind*, AnyObject>> left;
  for (const ObjectKind& kind : objectKinds()) {
    list = newNode(kind, "N", list);
    if (kind.number == ZQXML_CONTAINER || kind.number == ZQXML_FIELD) {
      left.emplace_back(&kind, list->object);
    } else {
      const std::vector<void*> blocks = kind.keptBlocks(list->object);
      kept.insert(kept.end(), blocks.begin(), blocks.end());
    }
  }
  if (asStream) {
    ZQXMLParsedStream stream = {list};
    attempt.call([&] { FreeZQXMLParsedStreamInternal(&stream, 0); });
    EXPECT_EQ(stream.objectList, nullptr);
  } else {
    attempt.call([&] { FreeZQXMLObjectList(list, 1); });
  }
  for (void* block : kept) {
    free(block);
  }
  for (const auto& [kind, object] : left) {
    kind->freeBlocks(object);
  }
}

template <auto kMember, auto kFree>
void addFree(Scenarios& table, uint32_t number, const char* function) {
  const ObjectKind& kind = kindOf(number);
  table.push_back({function,
                   {function},
                   [&kind](Attempt& attempt) { freeObject<kMember, kFree>(attempt, kind); },
                   Memory::NotNeeded});
}

}  // namespace

void addObjectScenarios(Scenarios& table) {
  const std::map<uint32_t, const char*> kGetFunctions = {
      {ZQXML_FORM, "GetSchemaFromXML"},      {ZQXML_FILTER, "GetFilterFromXML"},
      {ZQXML_MENU, "GetMenuFromXML"},        {ZQXML_ACTIVE_LINK, "GetActiveLinkFromXML"},
      {ZQXML_VUI, "GetVUIFromXML"},          {ZQXML_ESCALATION, "GetEscalationFromXML"},
      {ZQXML_FIELD, "GetFieldFromXML"},      {ZQXML_DSO_MAPPING, "GetDSOMappingFromXML"},
      {ZQXML_DSO_POOL, "GetDSOPoolFromXML"}, {ZQXML_CONTAINER, "GetContainerFromXML"},
  };
  for (const auto& [number, function] : kGetFunctions) {
    const ObjectKind& kind = kindOf(number);
    table.push_back({function, {function}, [&kind](Attempt& attempt) { get(attempt, kind); }});
    table.push_back({std::string(function) + " of one that is not there",
                     {function},
                     [&kind](Attempt& attempt) { getMissing(attempt, kind); }});
  }
  table.push_back({"GetNamesFromObjectList", {"GetNamesFromObjectList"}, listNames});
  table.push_back({"GetXMLObject", {"GetXMLObject"}, find, Memory::NotNeeded});

  using Object = AnyObject;
  addFree<&Object::schema, FreeZQXMLSchema>(table, ZQXML_FORM, "FreeZQXMLSchema");
  addFree<&Object::filter, FreeZQXMLFilter>(table, ZQXML_FILTER, "FreeZQXMLFilter");
  addFree<&Object::activeLink, FreeZQXMLActiveLink>(table, ZQXML_ACTIVE_LINK,
                                                    "FreeZQXMLActiveLink");
  addFree<&Object::escalation, FreeZQXMLEscalation>(table, ZQXML_ESCALATION, "FreeZQXMLEscalation");
  addFree<&Object::container, FreeZQXMLContainer>(table, ZQXML_CONTAINER, "FreeZQXMLContainer");
  addFree<&Object::menu, FreeZQXMLMenu>(table, ZQXML_MENU, "FreeZQXMLMenu");
  addFree<&Object::vui, FreeZQXMLVUI>(table, ZQXML_VUI, "FreeZQXMLVUI");
  addFree<&Object::dsoMapping, FreeZQXMLDSOMapping>(table, ZQXML_DSO_MAPPING,
                                                    "FreeZQXMLDSOMapping");
  addFree<&Object::dsoPool, FreeZQXMLDSOPool>(table, ZQXML_DSO_POOL, "FreeZQXMLDSOPool");
  table.push_back({"FreeZQXMLObjectList",
                   {"FreeZQXMLObjectList"},
                   [](Attempt& attempt) { freeChain(attempt, false); },
                   Memory::NotNeeded});
  table.push_back({"FreeZQXMLParsedStreamInternal",
                   {"FreeZQXMLParsedStreamInternal"},
                   [](Attempt& attempt) { freeChain(attempt, true); },
                   Memory::NotNeeded});
}

}  // namespace fault
