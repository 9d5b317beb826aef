// Trees of a depth that recursion would not survive, on either side, copied and freed on a small
// stack.

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstdlib>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "Trees.h"
#include "fault/FailingAllocations.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"

namespace {

constexpr int kDepth = 100000;
constexpr size_t kStackSize = size_t{256} * 1024;

// Runs a test's body on a stack of kStackSize bytes.
void onSmallStack(std::function<void()> body) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStackSize), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(
                &thread, &attributes,
                [](void* argument) -> void* {
                  (*static_cast<std::function<void()>*>(argument))();
                  return nullptr;
                },
                &body),
            0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

struct Shape {
  const char* name;
  // Whether the tree goes on at the left side below the given depth.
  bool (*goesLeft)(int depth);
};

void PrintTo(const Shape& shape, std::ostream* out) {
  *out << shape.name;
}

std::string nameOf(const testing::TestParamInfo<Shape>& shape) {
  return shape.param.name;
}

const Shape kShapes[] = {
    {"Left", [](int) { return true; }},
    {"Right", [](int) { return false; }},
    {"ZigZag", [](int depth) { return depth % 2 == 0; }},
};

// Copies, makes a copy fail at its last block, and frees both.
template <typename Record, typename Copy, typename Free>
void copyAndFree(Record& source, Copy copy, Free freeRecord, long blocks) {
  onSmallStack([&] {
    const long before = fault::liveBlocks();
    Record made;
    const unsigned status = copy(&made, &source);
    const long ofCopy = fault::liveBlocks() - before;
    freeRecord(&made, 0);
    const long afterFree = fault::liveBlocks();
    unsigned failed;
    {
      const fault::FailingAllocations armed(blocks - 1);
      failed = copy(&made, &source);
    }
    const long afterFailure = fault::liveBlocks();
    freeRecord(&source, 0);
    const long ofSource = before - fault::liveBlocks();

    EXPECT_EQ(status, 0U);
    EXPECT_EQ(ofCopy, blocks);
    EXPECT_EQ(afterFree, before);
    EXPECT_EQ(failed, 300U);
    EXPECT_EQ(afterFailure, before);
    EXPECT_EQ(ofSource, blocks);
  });
}

class DeepTree : public testing::TestWithParam<Shape> {};

TEST_P(DeepTree, OfConditions) {
  const long start = fault::liveBlocks();
  ZQQualifierStruct tree = bareField(1);
  for (int i = 0; i < kDepth; ++i) {
    tree =
        GetParam().goesLeft(i) ? branches(1, tree, bareField(2)) : branches(2, bareField(2), tree);
  }
  copyAndFree(tree, CopyZQQualifierStruct, FreeZQQualifierStruct, fault::liveBlocks() - start);
}

TEST_P(DeepTree, OfArithmetic) {
  const long start = fault::liveBlocks();
  ZQFieldValueOrArithStruct tree = fieldOperand(1, 1);
  for (int i = 0; i < kDepth; ++i) {
    ZQArithOpStruct arithmetic = {1, fieldOperand(1, 2), valueOperand(textValue(4, "x"))};
    if (GetParam().goesLeft(i)) {
      arithmetic.operandLeft = tree;
    } else {
      std::swap(arithmetic.operandLeft, arithmetic.operandRight);
      arithmetic.operandRight = tree;
    }
    tree = {};
    tree.tag = 3;
    tree.u.arithOp = newRecord(arithmetic);
  }
  copyAndFree(tree, CopyZQFieldValueOrArithStruct, FreeZQFieldValueOrArithStruct,
              fault::liveBlocks() - start);
}

TEST_P(DeepTree, OfAssignedArithmetic) {
  const long start = fault::liveBlocks();
  ZQAssignStruct tree = {};
  for (int i = 0; i < kDepth; ++i) {
    ZQArithOpAssignStruct arithmetic = {};
    arithmetic.operation = 1;
    (GetParam().goesLeft(i) ? arithmetic.operandLeft : arithmetic.operandRight) = tree;
    tree = {};
    tree.assignType = 4;
    tree.u.arithOp = newRecord(arithmetic);
  }
  copyAndFree(tree, CopyZQAssignStruct, FreeZQAssignStruct, fault::liveBlocks() - start);
}

TEST_P(DeepTree, OfFunctionsAndFilterApiCalls) {
  const long start = fault::liveBlocks();
  ZQAssignStruct tree = {};
  for (int i = 0; i < kDepth; ++i) {
    ZQAssignStruct text = {};
    text.assignType = 3;
    text.u.process = newText("p");
    const ZQAssignStruct none = {};
    auto* arguments = static_cast<ZQAssignStruct*>(malloc(3 * sizeof(ZQAssignStruct)));
    arguments[0] = GetParam().goesLeft(i) ? tree : text;
    arguments[1] = none;
    arguments[2] = GetParam().goesLeft(i) ? text : tree;
    tree = {};
    if (i % 3 == 0) {
      tree.assignType = 8;
      tree.u.filterApi = newRecord(ZQAssignFilterApiStruct{"plug-in", 3, arguments, 1});
    } else {
      tree.assignType = 5;
      tree.u.function = newRecord(ZQFunctionAssignStruct{1, 3, arguments});
    }
  }
  copyAndFree(tree, CopyZQAssignStruct, FreeZQAssignStruct, fault::liveBlocks() - start);
}

TEST_P(DeepTree, OfMenus) {
  // A menu record is large, so this tree is less deep.
  constexpr int kMenuDepth = kDepth / 2;
  const long start = fault::liveBlocks();
  ZQCharMenuStruct tree = {};
  for (int i = 0; i < kMenuDepth; ++i) {
    ZQCharMenuItemStruct value = {"value", 1, {newText("v")}};
    ZQCharMenuItemStruct child = {"child", 2, {nullptr}};
    child.u.childMenu = newRecord(tree);
    tree = {};
    tree.menuType = 1;
    tree.u.menuList = GetParam().goesLeft(i) ? newList<ZQCharMenuList>({child, value})
                                             : newList<ZQCharMenuList>({value, child});
  }
  copyAndFree(tree, CopyZQCharMenuStruct, FreeZQCharMenuStruct, fault::liveBlocks() - start);
}

template <typename Entry, typename Entries, typename Free>
void freeDeepEntries(const Shape& shape, Free freeEntry) {
  constexpr int kEntryDepth = kDepth / 2;
  const long start = fault::liveBlocks();
  Entry tree = {};
  for (int i = 0; i < kEntryDepth; ++i) {
    const Entry leaf = {};
    Entry above = {};
    above.children =
        shape.goesLeft(i) ? newList<Entries>({tree, leaf}) : newList<Entries>({leaf, tree});
    tree = above;
  }
  onSmallStack([&] { freeEntry(&tree, 0); });
  EXPECT_EQ(fault::liveBlocks(), start);
}

TEST_P(DeepTree, OfComplexEntries) {
  freeDeepEntries<ZQComplexEntryCreate, ZQComplexEntryCreateList>(GetParam(),
                                                                  FreeZQComplexEntryCreate);
  freeDeepEntries<ZQComplexEntrySet, ZQComplexEntrySetList>(GetParam(), FreeZQComplexEntrySet);
  freeDeepEntries<ZQComplexEntryGetIn, ZQComplexEntryGetInList>(GetParam(),
                                                                FreeZQComplexEntryGetIn);
}

TEST_P(DeepTree, OfRetrievedEntries) {
  const long start = fault::liveBlocks();
  ZQComplexEntryGetOut tree = {};
  for (int i = 0; i < kDepth; ++i) {
    ZQComplexEntryGetOut leaf = {};
    leaf.entryId = newList<ZQEntryIdList>({EntryIdCell{"1"}});
    const auto below = GetParam().goesLeft(i) ? newList<ZQComplexEntryGetOutList>({tree, leaf})
                                              : newList<ZQComplexEntryGetOutList>({leaf, tree});
    const ZQComplexEntryGetOutList empty = {};
    auto* lists = static_cast<ZQComplexEntryGetOutList*>(malloc(2 * sizeof empty));
    lists[0] = i % 3 == 0 ? empty : below;
    lists[1] = i % 3 == 0 ? below : empty;
    tree = {};
    tree.numChildLists = 2;
    tree.childLists = lists;
  }
  onSmallStack([&] { FreeZQComplexEntryGetOut(&tree, 0); });
  EXPECT_EQ(fault::liveBlocks(), start);
}

INSTANTIATE_TEST_SUITE_P(Shapes, DeepTree, testing::ValuesIn(kShapes), nameOf);

TEST(DeepChain, OfNegatedConditions) {
  const long start = fault::liveBlocks();
  ZQQualifierStruct tree = bareField(1);
  for (int i = 0; i < kDepth; ++i) {
    tree = notQualifier(tree);
  }
  copyAndFree(tree, CopyZQQualifierStruct, FreeZQQualifierStruct, fault::liveBlocks() - start);
}

// A query holds a condition, that a relation, and that a query: four kinds of records in turn.
TEST(DeepChain, OfQueries) {
  constexpr int kQueries = kDepth / 4;
  const auto build = [](std::vector<ZQQualifierStruct*>& nodes) {
    ZQFieldValueOrArithStruct operand = fieldOperand(1, 1);
    for (int i = 0; i < kQueries; ++i) {
      ZQFieldValueOrArithStruct sum = {};
      sum.tag = 3;
      sum.u.arithOp = newRecord(ZQArithOpStruct{1, operand, fieldOperand(1, 1)});
      ZQQueryValueStruct query = {};
      query.queryQualification = newRecord(i % 2 == 0 ? relation(sum, fieldOperand(1, 2))
                                                      : relation(fieldOperand(1, 2), sum));
      nodes.push_back(query.queryQualification);
      operand = {};
      operand.tag = 53;
      operand.u.queryValue = newRecord(query);
    }
    return operand;
  };
  const auto freeNodes = [](std::vector<ZQQualifierStruct*>& nodes) {
    for (ZQQualifierStruct* node : nodes) {
      free(node);
    }
    nodes.clear();
  };
  std::vector<ZQQualifierStruct*> nodes;
  nodes.reserve(kQueries);
  ZQFieldValueOrArithStruct source = build(nodes);
  onSmallStack([&] {
    const long before = fault::liveBlocks();
    ZQFieldValueOrArithStruct made;
    EXPECT_EQ(CopyZQFieldValueOrArithStruct(&made, &source), 0U);
    EXPECT_EQ(fault::liveBlocks() - before, 4L * kQueries);

    // The top nodes of the copy, from the outermost query inwards.
    std::vector<ZQQualifierStruct*> copied;
    copied.reserve(kQueries);
    const ZQFieldValueOrArithStruct* operand = &made;
    while (operand->tag == 53) {
      ZQQualifierStruct* node = operand->u.queryValue->queryQualification;
      copied.push_back(node);
      const ZQRelOpStruct& relation = *node->u.relationalOperation;
      operand = relation.operandLeft.tag == 3 ? &relation.operandLeft : &relation.operandRight;
      operand = &operand->u.arithOp->operandLeft;
    }
    EXPECT_EQ(copied.size(), static_cast<size_t>(kQueries));
    FreeZQFieldValueOrArithStruct(&made, 0);
    freeNodes(copied);

    unsigned status;
    {
      const fault::FailingAllocations armed(4L * kQueries - 1);
      status = CopyZQFieldValueOrArithStruct(&made, &source);
    }
    EXPECT_EQ(status, 300U);
    FreeZQFieldValueOrArithStruct(&source, 0);
  });
  freeNodes(nodes);
}

}  // namespace
