// Deep free of conditions: qualifiers, relations, operands, arithmetic and queries, which nest in
// one another without a bound.
//
// A free can't fail and may be asked for a tree of any shape and depth, so there is neither
// recursion nor a stack on the heap. A block whose members have been taken is spent: while one of
// its two subtrees is given back, the other one is kept in the spent block itself.

#include <cstdint>
#include <new>
#include <utility>

#include "records/verbs.h"
#include "zqxml/free.h"

using records::finishFree;
using records::freeList;
using records::Unwinding;

namespace {

enum class Kind { Qualifier, Relation, Arithmetic, Query };

// A block that was taken out of its owner, and all that hangs from it. Heap blocks are aligned, so
// the kind finds room in the address, and a tree is passed around in one register.
class Tree {
 public:
  Tree() = default;
  Tree(Kind kind, void* block)
      : word_(block == nullptr ? 0
                               : reinterpret_cast<uintptr_t>(block) | static_cast<unsigned>(kind)) {
  }

  bool isEmpty() const { return word_ == 0; }
  Kind kind() const { return static_cast<Kind>(word_ & kKindBits); }
  void* block() const { return reinterpret_cast<void*>(word_ & ~kKindBits); }

 private:
  static constexpr uintptr_t kKindBits = 3;

  uintptr_t word_ = 0;
};

struct Children {
  Tree first;
  Tree second;
};

// The spent block that keeps a tree.
struct Waiting {
  Waiting* next;
  Tree tree;
};
static_assert(sizeof(Waiting) <= sizeof(ZQQualifierStruct));
static_assert(sizeof(Waiting) <= sizeof(ZQRelOpStruct));
static_assert(sizeof(Waiting) <= sizeof(ZQArithOpStruct));
static_assert(sizeof(Waiting) <= sizeof(ZQQueryValueStruct));

template <typename Block>
Tree take(Kind kind, Block*& member) {
  return {kind, std::exchange(member, nullptr)};
}

// Not inlined, so that a field costs no more than the test in takeFromOperand.
[[gnu::noinline]] Tree takeFromOwner(ZQFieldValueOrArithStruct& operand) {
  switch (operand.tag) {
    case 2:
      FreeZQValueStruct(&operand.u.value, 0);
      return {};
    case 3:
      return take(Kind::Arithmetic, operand.u.arithOp);
    case 5:
      FreeZQValueList(&operand.u.valueSet, 0);
      return {};
    case 6:
    case 54:
    case 55:
    case 56:
      records::release(operand.u.currencyField);
      return {};
    case 53:
      return take(Kind::Query, operand.u.queryValue);
    default:
      return {};
  }
}

// Gives back what the operand owns, but for a tree, which is returned. The tag stays.
Tree takeFromOperand(ZQFieldValueOrArithStruct& operand) {
  return records::operandOwnsMemory(operand.tag) ? takeFromOwner(operand) : Tree();
}

Children takeFromQualifier(ZQQualifierStruct& node) {
  switch (std::exchange(node.operation, 0)) {
    case 1:
    case 2: {
      const Tree left = take(Kind::Qualifier, node.u.branches.left);
      return {left, take(Kind::Qualifier, node.u.branches.right)};
    }
    case 3:
      return {take(Kind::Qualifier, node.u.notQualifier), {}};
    case 4:
      return {take(Kind::Relation, node.u.relationalOperation), {}};
    default:
      return {};
  }
}

Children takeFromRelation(ZQRelOpStruct& relation) {
  const Tree left = takeFromOperand(relation.operandLeft);
  return {left, takeFromOperand(relation.operandRight)};
}

// Deliberate: a negation's left operand carries no meaning and is left alone, however it is filled.
Children takeFromArithmetic(ZQArithOpStruct& arithmetic) {
  constexpr uint32_t kNegate = 6;
  Tree left;
  if (arithmetic.operation != kNegate || Unwinding::active()) {
    left = takeFromOperand(arithmetic.operandLeft);
  }
  return {left, takeFromOperand(arithmetic.operandRight)};
}

// Deliberate: the top node of the condition stays allocated, and what hangs from it goes.
Children takeFromQuery(ZQQueryValueStruct& query) {
  ZQQualifierStruct* node = std::exchange(query.queryQualification, nullptr);
  if (node == nullptr) {
    return {};
  }
  const Children children = takeFromQualifier(*node);
  if (Unwinding::active()) {
    free(node);
  }
  return children;
}

Children takeChildren(const Tree& tree) {
  switch (tree.kind()) {
    case Kind::Qualifier:
      return takeFromQualifier(*static_cast<ZQQualifierStruct*>(tree.block()));
    case Kind::Relation:
      return takeFromRelation(*static_cast<ZQRelOpStruct*>(tree.block()));
    case Kind::Arithmetic:
      return takeFromArithmetic(*static_cast<ZQArithOpStruct*>(tree.block()));
    case Kind::Query:
      return takeFromQuery(*static_cast<ZQQueryValueStruct*>(tree.block()));
  }
  return {};
}

void freeTree(Tree tree) {
  Waiting* waiting = nullptr;
  for (;;) {
    while (!tree.isEmpty()) {
      void* spent = tree.block();
      const Children children = takeChildren(tree);
      // The right side goes first: chains of conditions hang on the left, and while a leaf on the
      // right is given back the next link comes into the cache.
      const bool isFork = !children.first.isEmpty() && !children.second.isEmpty();
      tree = children.second.isEmpty() ? children.first : children.second;
      if (isFork) {
        __builtin_prefetch(children.first.block());
        waiting = new (spent) Waiting{waiting, children.first};
      } else {
        free(spent);
      }
    }
    if (waiting == nullptr) {
      return;
    }
    Waiting* spent = waiting;
    tree = spent->tree;
    waiting = spent->next;
    free(spent);
  }
}

void freeTrees(const Children& children) {
  freeTree(children.first);
  freeTree(children.second);
}

}  // namespace

void FreeZQQualifierStruct(ZQQualifierStruct* node, ZQBoolean freeStruct) {
  if (node == nullptr) {
    return;
  }
  freeTrees(takeFromQualifier(*node));
  finishFree(node, freeStruct);
}

void FreeZQRelOpStruct(ZQRelOpStruct* relation, ZQBoolean freeStruct) {
  if (relation == nullptr) {
    return;
  }
  freeTrees(takeFromRelation(*relation));
  finishFree(relation, freeStruct);
}

void FreeZQArithOpStruct(ZQArithOpStruct* arithmetic, ZQBoolean freeStruct) {
  if (arithmetic == nullptr) {
    return;
  }
  freeTrees(takeFromArithmetic(*arithmetic));
  finishFree(arithmetic, freeStruct);
}

void FreeZQFieldValueOrArithStruct(ZQFieldValueOrArithStruct* operand, ZQBoolean freeStruct) {
  if (operand == nullptr) {
    return;
  }
  freeTree(takeFromOperand(*operand));
  finishFree(operand, freeStruct);
}

// Deliberate: the pointer alone decides, and the count and the pointer of a list that is not itself
// given back stay as they were. Such a list must not be freed again.
void FreeZQQualifierList(ZQQualifierList* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  if (list->items != nullptr) {
    for (uint32_t i = 0; i < list->numItems; ++i) {
      FreeZQQualifierStruct(&list->items[i], 0);
    }
    free(list->items);
  }
  finishFree(list, freeStruct);
}
