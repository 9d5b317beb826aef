// The calls on chains of objects: looking up, listing, fetching, freeing. The chains are made by
// hand, so that all kinds of objects stand in them.

#include "zqxml/objects.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "records/RecordTools.h"
#include "records/StatusLists.h"
#include "records/Trees.h"
#include "records/verbs.h"
#include "xml/handlers/ObjectKinds.h"
#include "xml/objectchain.h"
#include "zqxml/zqxml.h"

namespace {

using Object = AnyObject;
using Kind = ObjectKind;

const std::vector<Kind>& kinds() {
  return objectKinds();
}

// A node on the heap with an object of a kind, which has a name and else is empty or full.
ZQXMLObjectList* newNode(const Kind& kind, const char* name, bool full = false, uint32_t seed = 1) {
  auto* node = newRecord(ZQXMLObjectList{});
  memset(static_cast<void*>(node), 0, sizeof *node);
  node->objectType = kind.number;
  if (full) {
    kind.build(node->object, seed);
  }
  memset(kind.nameOf(node->object), 0, sizeof(ZQNameType));
  strcpy(kind.nameOf(node->object), name);
  return node;
}

ZQXMLObjectList* chain(std::initializer_list<ZQXMLObjectList*> nodes) {
  ZQXMLObjectList* head = nullptr;
  ZQXMLObjectList** link = &head;
  for (ZQXMLObjectList* node : nodes) {
    *link = node;
    link = &node->next;
  }
  return head;
}

std::vector<bool> all(const Kind& kind) {
  return std::vector<bool>(kind.outputs, true);
}

TEST(GetXMLObject, ByKindAndName) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    const Kind& other = kinds()[kind.number == ZQXML_FORM ? 1 : 0];
    ZQXMLObjectList* otherA = newNode(other, "A");
    ZQXMLObjectList* a = newNode(kind, "A");
    ZQXMLObjectList* b = newNode(kind, "B");
    ZQXMLObjectList* again = newNode(kind, "A");
    ZQXMLObjectList* list = chain({otherA, a, b, again});
    EXPECT_EQ(GetXMLObject(list, "A", kind.number), a);
    EXPECT_EQ(GetXMLObject(list, "B", kind.number), b);
    EXPECT_EQ(GetXMLObject(list, "A", other.number), otherA);
    EXPECT_EQ(GetXMLObject(list, "B", other.number), nullptr);
    EXPECT_EQ(GetXMLObject(b, "A", kind.number), again);
    for (const char* name : {"a", "", "AB", "A "}) {
      EXPECT_EQ(GetXMLObject(list, name, kind.number), nullptr) << name;
    }
    EXPECT_EQ(GetXMLObject(list, nullptr, kind.number), nullptr);
    EXPECT_EQ(GetXMLObject(nullptr, "A", kind.number), nullptr);
    EXPECT_EQ(GetXMLObject(list, "A", 0), nullptr);
    FreeZQXMLObjectList(list, 1);
  }
}

TEST(GetXMLObject, NodesOfOtherKindsAreSkipped) {
  const Kind& filter = kinds()[1];
  ZQXMLObjectList* unknown = newNode(filter, "A");
  for (const uint32_t number : {0U, 0x40000002U, 0x40000003U, 0x40000010U}) {
    unknown->objectType = number;
    unknown->next = nullptr;
    EXPECT_EQ(GetXMLObject(unknown, "A", number), nullptr);
    ZQXMLObjectList* a = newNode(filter, "A");
    unknown->next = a;
    EXPECT_EQ(GetXMLObject(unknown, "A", ZQXML_FILTER), a);
    free(a);
  }
  free(unknown);
}

TEST(GetNamesFromObjectList, KindsAndNames) {
  ZQXMLObjectList* list = nullptr;
  ZQXMLObjectList** link = &list;
  for (const Kind& kind : kinds()) {
    *link = newNode(kind, kind.name);
    link = &(*link)->next;
  }
  ZQStructItemList names = {};
  EXPECT_EQ(GetNamesFromObjectList(list, &names, nullptr), 0);
  ASSERT_EQ(names.numItems, kinds().size());
  for (size_t i = 0; i < kinds().size(); ++i) {
    EXPECT_EQ(names.items[i].itemType, kinds()[i].number);
    EXPECT_STREQ(names.items[i].name, kinds()[i].name);
    // A set of views without views too.
    EXPECT_EQ(names.items[i].selectedElements.numItems, 0U);
    EXPECT_EQ(names.items[i].selectedElements.items, nullptr);
  }
  FreeZQStructItemList(&names, 0);
  EXPECT_EQ(GetNamesFromObjectList(list, nullptr, nullptr), 0);
  FreeZQXMLObjectList(list, 1);
}

TEST(GetNamesFromObjectList, NodesOfOtherKindsLeaveTheirItemEmpty) {
  ZQXMLObjectList* unknown = newNode(kinds()[1], "U");
  unknown->objectType = 0x40000010U;
  ZQXMLObjectList* list = chain({newNode(kinds()[1], "A"), unknown, newNode(kinds()[0], "B")});
  ZQStructItemList names = {};
  EXPECT_EQ(GetNamesFromObjectList(list, &names, nullptr), 0);
  ASSERT_EQ(names.numItems, 3U);
  EXPECT_STREQ(names.items[0].name, "A");
  EXPECT_EQ(names.items[1].itemType, 0U);
  EXPECT_STREQ(names.items[1].name, "");
  EXPECT_EQ(names.items[2].itemType, static_cast<uint32_t>(ZQXML_FORM));
  EXPECT_STREQ(names.items[2].name, "B");
  FreeZQStructItemList(&names, 0);
  FreeZQXMLObjectList(list, 1);
}

TEST(GetNamesFromObjectList, AnEmptyChainLeavesTheListAlone) {
  ZQStructItemStruct item = {};
  ZQStructItemList names = {1, &item};
  EXPECT_EQ(GetNamesFromObjectList(nullptr, &names, nullptr), 0);
  EXPECT_EQ(names.numItems, 1U);
  EXPECT_EQ(names.items, &item);
}

ZQXMLObjectList* newViews() {
  const Kind& vui = kinds()[8];
  ZQXMLObjectList* node = newNode(vui, "F");
  ZQVuiInfoStruct views[2] = {};
  strcpy(views[0].vuiName, "Default");
  strcpy(views[1].vuiName, "Web");
  node->object.vui.vuiList = newList<ZQVuiInfoList>({views[0], views[1]});
  return node;
}

TEST(GetNamesFromObjectList, ViewsHaveTheirNames) {
  ZQXMLObjectList* list = chain({newViews(), newNode(kinds()[0], "F"), newViews()});
  ZQStructItemList names = {};
  EXPECT_EQ(GetNamesFromObjectList(list, &names, nullptr), 0);
  ASSERT_EQ(names.numItems, 3U);
  for (const size_t i : {size_t{0}, size_t{2}}) {
    const ZQNameList& views = names.items[i].selectedElements;
    ASSERT_EQ(views.numItems, 2U);
    EXPECT_STREQ(views.items[0], "Default");
    EXPECT_STREQ(views.items[1], "Web");
    // The selected elements of a list of objects stay with the caller.
    free(views.items);
  }
  EXPECT_EQ(names.items[1].selectedElements.items, nullptr);
  FreeZQStructItemList(&names, 0);
  FreeZQXMLObjectList(list, 1);
}

TEST(GetNamesFromObjectList, FailingAllocationsGive300AndNoList) {
  ZQXMLObjectList* list = chain({newViews(), newViews()});
  const long injected = fault::forEachFailure([&](auto arm) {
    const long before = fault::liveBlocks();
    OwnedStatusList status;
    ZQStructItemList names = {};
    int result = 0;
    bool failed = false;
    {
      const auto failing = arm();
      result = GetNamesFromObjectList(list, &names, &status);
      failed = fault::FailingAllocations::happened();
    }
    if (failed) {
      EXPECT_TRUE(result == 3 || describe(status) == "2/300 ") << result << describe(status);
      EXPECT_GE(result, 2);
      EXPECT_EQ(names.numItems, 0U);
      EXPECT_EQ(names.items, nullptr);
    } else {
      EXPECT_EQ(result, 0);
      for (uint32_t i = 0; i < names.numItems; ++i) {
        free(names.items[i].selectedElements.items);
      }
      FreeZQStructItemList(&names, 0);
    }
    FreeZQStatusList(&status, 0);
    EXPECT_EQ(fault::liveBlocks(), before);
    return failed;
  });
  EXPECT_GE(injected, 6);
  FreeZQXMLObjectList(list, 1);
}

TEST(GetFromXML, AllOutputsAreDeepCopies) {
  for (const Kind& kind : kinds()) {
    for (uint32_t seed = 0; seed < 50; ++seed) {
      SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(seed));
      const long before = fault::liveBlocks();
      {
        ZQXMLObjectList* node = newNode(kind, "N", true, seed);
        const std::string source = kind.dump(node->object);
        ZQXMLParsedStream stream = {node};
        OwnedStatusList status;
        Object out = {};
        memset(static_cast<void*>(&out), 0, sizeof out);
        strcpy(kind.nameOf(out), "N");
        EXPECT_EQ(kind.get(&stream, "N", out, all(kind), &status), 0);
        EXPECT_EQ(describe(status), "");
        EXPECT_EQ(kind.dump(out), source);
        // Independent of the stream, which goes first.
        kind.freeBlocks(node->object);
        free(node);
        EXPECT_EQ(kind.dump(out), source);
        kind.freeBlocks(out);
      }
      EXPECT_EQ(fault::liveBlocks(), before);
    }
  }
}

// Each output alone: it is the only one that changes.
TEST(GetFromXML, NullOutputsAreSkipped) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    ZQXMLObjectList* node = newNode(kind, "N", true);
    const std::string source = kind.dump(node->object);
    ZQXMLParsedStream stream = {node};
    Object out = {};
    memset(static_cast<void*>(&out), 0, sizeof out);
    strcpy(kind.nameOf(out), "N");
    std::vector<bool> which(kind.outputs, false);
    EXPECT_EQ(kind.get(&stream, "N", out, which, nullptr), 0);
    for (size_t i = 0; i < kind.outputs; ++i) {
      const std::string before = kind.dump(out);
      EXPECT_NE(before, source) << i;
      which[i] = true;
      EXPECT_EQ(kind.get(&stream, "N", out, which, nullptr), 0);
      which[i] = false;
      EXPECT_NE(kind.dump(out), before) << i;
    }
    EXPECT_EQ(kind.dump(out), source);
    kind.freeBlocks(out);
    kind.freeBlocks(node->object);
    free(node);
  }
}

TEST(GetFromXML, AnObjectThatIsNotThereGives8945) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    const Kind& other = kinds()[kind.number == ZQXML_FORM ? 1 : 0];
    ZQXMLObjectList* node = newNode(other, "N");
    ZQXMLParsedStream stream = {node};
    ZQXMLParsedStream empty = {};
    Object out;
    memset(static_cast<void*>(&out), 0xA5, sizeof out);
    const Object untouched = out;
    OwnedStatusList status;
    // The status list is added to, the newest of one severity first.
    EXPECT_EQ(kind.get(&stream, "N", out, all(kind), &status), 2);
    EXPECT_EQ(kind.get(&empty, "M", out, all(kind), &status), 2);
    EXPECT_EQ(describe(status), "2/8945 M; 2/8945 N");
    EXPECT_EQ(kind.get(nullptr, "M", out, all(kind), nullptr), 2);
    FreeZQStatusList(&status, 0);
    EXPECT_EQ(kind.get(&stream, nullptr, out, all(kind), &status), 2);
    EXPECT_EQ(describe(status), "2/8945 <null>");
    EXPECT_EQ(memcmp(&out, &untouched, sizeof out), 0);
    FreeZQXMLObjectList(node, 1);
  }
}

TEST(GetFromXML, TheFirstOfANameCounts) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    ZQXMLObjectList* first = newNode(kind, "N", true, 1);
    ZQXMLObjectList* second = newNode(kind, "N", true, 2);
    const std::string source = kind.dump(first->object);
    ZQXMLParsedStream stream = {chain({first, second})};
    Object out = {};
    memset(static_cast<void*>(&out), 0, sizeof out);
    strcpy(kind.nameOf(out), "N");
    EXPECT_EQ(kind.get(&stream, "N", out, all(kind), nullptr), 0);
    EXPECT_EQ(kind.dump(out), source);
    kind.freeBlocks(out);
    for (ZQXMLObjectList* node : {first, second}) {
      kind.freeBlocks(node->object);
      free(node);
    }
  }
}

TEST(GetFromXML, AnEmptyObjectGivesEmptyOutputs) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    ZQXMLObjectList* node = newNode(kind, "N");
    ZQXMLParsedStream stream = {node};
    Object out = {};
    memset(static_cast<void*>(&out), 0, sizeof out);
    strcpy(kind.nameOf(out), "N");
    EXPECT_EQ(kind.get(&stream, "N", out, all(kind), nullptr), 0);
    EXPECT_EQ(kind.dump(out), kind.dump(node->object));
    FreeZQXMLObjectList(node, 1);
  }
}

// Outputs need not be initialised.
TEST(GetFromXML, WhatTheOutputsHeldIsOverwritten) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    ZQXMLObjectList* node = newNode(kind, "N");
    ZQXMLParsedStream stream = {node};
    Object out;
    memset(static_cast<void*>(&out), 0xA5, sizeof out);
    strcpy(kind.nameOf(out), "N");
    EXPECT_EQ(kind.get(&stream, "N", out, all(kind), nullptr), 0);
    // Bytes of an array behind its text are left alone.
    std::string shown = kind.dump(out);
    std::erase(shown, '\0');
    std::erase(shown, '\xA5');
    EXPECT_EQ(shown, kind.dump(node->object));
    FreeZQXMLObjectList(node, 1);
  }
}

// An array that lacks its zero is never read beyond its end.
TEST(GetFromXML, ArraysWithoutTheirZeroAreCut) {
  ZQXMLObjectList* filter = newNode(kinds()[1], "F");
  ZQXMLObjectList* views = newViews();
  const auto fill = [](auto& array) { memset(array, 'x', sizeof array); };
  fill(filter->object.filter.name);
  filter->object.filter.xmlDocVersion = -1;
  fill(filter->object.filter.owner);
  fill(filter->object.filter.lastChanged);
  fill(views->object.vui.name);
  fill(views->object.vui.vuiList.items[0].vuiName);
  filter->next = views;
  const std::string cut(sizeof(ZQNameType) - 1, 'x');
  ZQStructItemList names = {};
  EXPECT_EQ(GetNamesFromObjectList(filter, &names, nullptr), 0);
  ASSERT_EQ(names.numItems, 2U);
  EXPECT_EQ(names.items[0].name, cut);
  EXPECT_EQ(names.items[1].name, cut);
  ASSERT_EQ(names.items[1].selectedElements.numItems, 2U);
  EXPECT_EQ(names.items[1].selectedElements.items[0], cut);
  EXPECT_STREQ(names.items[1].selectedElements.items[1], "Web");
  free(names.items[1].selectedElements.items);
  FreeZQStructItemList(&names, 0);
  EXPECT_EQ(GetXMLObject(filter, (cut + "x").c_str(), ZQXML_FILTER), filter);
  EXPECT_EQ(GetXMLObject(filter, cut.c_str(), ZQXML_FILTER), nullptr);
  ZQXMLParsedStream stream = {filter};
  ZQAccessNameType owner;
  ZQAccessNameType lastChanged;
  EXPECT_EQ(GetFilterFromXML(&stream, (cut + "x").c_str(), nullptr, nullptr, nullptr, nullptr,
                             nullptr, nullptr, nullptr, owner, lastChanged, nullptr, nullptr,
                             nullptr, nullptr, nullptr, nullptr),
            0);
  EXPECT_EQ(owner, std::string(sizeof owner - 1, 'x'));
  EXPECT_EQ(lastChanged, std::string(sizeof owner - 1, 'x'));
  FreeZQXMLObjectList(filter, 1);
}

// What was filled before a failure stays with the caller, the rest is left alone.
TEST(GetFromXML, FailingAllocationsGive300) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    const std::vector<bool> which = all(kind);
    long untold = 0;
    const long injected = fault::forEachFailure([&](auto arm) {
      const long before = fault::liveBlocks();
      ZQXMLObjectList* node = newNode(kind, "N", true);
      ZQXMLParsedStream stream = {node};
      OwnedStatusList status;
      Object out = {};
      memset(static_cast<void*>(&out), 0, sizeof out);
      int result = 0;
      bool failed = false;
      {
        const auto failing = arm();
        result = kind.get(&stream, "N", out, which, &status);
        failed = fault::FailingAllocations::happened();
      }
      if (result == 2) {
        EXPECT_EQ(describe(status), "2/300 ");
      } else {
        EXPECT_TRUE(result == 0 || result == 3) << result;
        EXPECT_EQ(describe(status), "");
      }
      EXPECT_TRUE(failed || result == 0) << result;
      untold += failed && result == 0;
      FreeZQStatusList(&status, 0);
      kind.freeBlocks(out);
      kind.freeBlocks(node->object);
      free(node);
      EXPECT_EQ(fault::liveBlocks(), before);
      return failed;
    });
    EXPECT_GT(injected, 8);
    // Deliberate: the lists of sort entries, indexes and result list fields don't tell a failure.
    EXPECT_EQ(untold, kind.number == ZQXML_FORM ? 3 : 0);
  }
}

TEST(FreeZQXMLObjectList, AllButContainersAndFieldsWithTheirContents) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    const bool kept = kind.number == ZQXML_CONTAINER || kind.number == ZQXML_FIELD;
    const long before = fault::liveBlocks();
    ZQXMLObjectList* node = newNode(kind, "N", true);
    const Object contents = node->object;
    const long blocks = fault::liveBlocks() - before - 1;
    EXPECT_GT(blocks, 0);
    // By contract some blocks stay: those of a container and a field, and a few inside of records.
    Object shown = contents;
    std::vector<void*> left;
    const auto keep = [&left](const auto& record) { left = tools::KeptBlocks::of(record); };
    switch (kind.number) {
      case ZQXML_FORM:
        keep(shown.schema);
        break;
      case ZQXML_FILTER:
        keep(shown.filter);
        break;
      case ZQXML_ACTIVE_LINK:
        keep(shown.activeLink);
        break;
      case ZQXML_MENU:
        keep(shown.menu);
        break;
      case ZQXML_ESCALATION:
        keep(shown.escalation);
        break;
      case ZQXML_VUI:
        keep(shown.vui);
        break;
      default:
        break;
    }
    FreeZQXMLObjectList(node, 1);
    if (kept) {
      EXPECT_EQ(fault::liveBlocks() - before, blocks);
      kind.freeBlocks(contents);
    } else {
      EXPECT_EQ(fault::liveBlocks() - before, static_cast<long>(left.size()));
      for (void* block : left) {
        free(block);
      }
    }
    EXPECT_EQ(fault::liveBlocks(), before);
  }
  FreeZQXMLObjectList(nullptr, 1);
  FreeZQXMLObjectList(nullptr, 0);
}

// A chain that nobody will see leaves nothing behind.
TEST(ReleaseChain, EveryKindWithAllItsContents) {
  const long before = fault::liveBlocks();
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    ZQXMLObjectList* list = chain({newNode(kind, "A", true), newNode(kind, "B")});
    EXPECT_GT(fault::liveBlocks() - before, 2);
    releaseChain(list);
    EXPECT_EQ(list, nullptr);
    EXPECT_EQ(fault::liveBlocks(), before);
    releaseChain(list);
  }
}

template <typename Object>
void expectFrees(void (*freeObject)(Object*, ZQBoolean)) {
  freeObject(nullptr, 0);
  freeObject(nullptr, 1);
  const long before = fault::liveBlocks();
  auto* object = newRecord(Object{});
  tools::Builder builder(7, tools::Fill::Full, 3);
  records::visit(builder, *object);
  EXPECT_GT(fault::liveBlocks() - before, 1);
  const records::Unwinding unwinding;
  freeObject(object, 0);
  EXPECT_EQ(fault::liveBlocks() - before, 1);
  // What it owned is not freed a second time.
  freeObject(object, 1);
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(FreeZQXMLObjects, ARecordAloneAndWithItsBlock) {
  expectFrees(FreeZQXMLSchema);
  expectFrees(FreeZQXMLFilter);
  expectFrees(FreeZQXMLActiveLink);
  expectFrees(FreeZQXMLEscalation);
  expectFrees(FreeZQXMLContainer);
  expectFrees(FreeZQXMLMenu);
  expectFrees(FreeZQXMLVUI);
  expectFrees(FreeZQXMLDSOMapping);
  expectFrees(FreeZQXMLDSOPool);
}

// Without the nodes: they are the caller's, and empty, so that freeing again does no harm.
TEST(FreeZQXMLObjectList, TheNodesMayStay) {
  const Kind& filter = kinds()[1];
  const long before = fault::liveBlocks();
  ZQXMLObjectList* first = newNode(filter, "A");
  ZQXMLObjectList* second = newNode(filter, "B");
  first->object.filter.helpText = newText("H");
  second->object.filter.helpText = newText("H");
  ZQXMLObjectList* list = chain({first, second});
  for (int i = 0; i < 2; ++i) {
    FreeZQXMLObjectList(list, 0);
    EXPECT_EQ(fault::liveBlocks() - before, 2);
    EXPECT_EQ(list->next, second);
    EXPECT_EQ(first->object.filter.helpText, nullptr);
  }
  FreeZQXMLObjectList(list, 1);
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(FreeZQXMLParsedStream, WithAndWithoutItsBlock) {
  const long before = fault::liveBlocks();
  ZQXMLParsedStream stream = {newNode(kinds()[1], "A")};
  FreeZQXMLParsedStreamInternal(&stream, 0);
  EXPECT_EQ(stream.objectList, nullptr);
  FreeZQXMLParsedStreamInternal(&stream, 0);
  FreeZQXMLParsedStreamInternal(nullptr, 0);
  FreeZQXMLParsedStreamInternal(nullptr, 1);
  auto* block = newRecord(ZQXMLParsedStream{newNode(kinds()[1], "A")});
  FreeZQXMLParsedStreamInternal(block, 1);
  EXPECT_EQ(fault::liveBlocks(), before);
}

}  // namespace
