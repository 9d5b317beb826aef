// Deep copy of conditions: qualifiers, relations, operands, arithmetic and queries, which nest in
// one another without a bound.
//
// The depth of a caller's tree must not decide over the stack, so there is no recursion. A record
// of the copy that is allocated but not yet filled is free memory: it waits its turn in a chain
// that runs through such records. The last one is filled first, and the left side is put in last,
// so blocks are allocated in the order of a recursive copy.

#include <new>

#include "records/parts.h"
#include "records/verbs.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"

using records::allocate;
using records::copyBlock;
using records::kDone;
using records::kOutOfMemory;
using records::Unwinding;

namespace {

// Empties what an operand that is a whole copy of another one shares with it. The tag stays.
void disown(ZQFieldValueOrArithStruct& operand) {
  if (records::operandOwnsMemory(operand.tag)) {
    records::clear(operand.u);
  }
}

class ConditionCopy {
 public:
  // Copies a whole tree. On failure the copy is as far as it came, and all its pointers are its own
  // or null.
  unsigned qualifier(ZQQualifierStruct* dest, const ZQQualifierStruct* source) {
    return finish(fillQualifier(dest, source));
  }
  unsigned operand(ZQFieldValueOrArithStruct* dest, const ZQFieldValueOrArithStruct* source) {
    return finish(fillOperand(dest, source));
  }

 private:
  enum class Kind { Qualifier, Operand };

  // What stands in a record that is not filled yet.
  struct Waiting {
    Waiting* next;
    const void* source;
    Kind kind;
  };
  static_assert(sizeof(Waiting) <= sizeof(ZQQualifierStruct));
  static_assert(sizeof(Waiting) <= sizeof(ZQFieldValueOrArithStruct));

  void later(ZQQualifierStruct* dest, const ZQQualifierStruct* source) {
    waiting_ = new (dest) Waiting{waiting_, source, Kind::Qualifier};
  }
  void later(ZQFieldValueOrArithStruct* dest, const ZQFieldValueOrArithStruct* source) {
    waiting_ = new (dest) Waiting{waiting_, source, Kind::Operand};
  }

  unsigned finish(unsigned status) {
    while (status == kDone && waiting_ != nullptr) {
      const Waiting next = *waiting_;
      void* dest = waiting_;
      waiting_ = next.next;
      status = next.kind == Kind::Qualifier
                   ? fillQualifier(static_cast<ZQQualifierStruct*>(dest),
                                   static_cast<const ZQQualifierStruct*>(next.source))
                   : fillOperand(static_cast<ZQFieldValueOrArithStruct*>(dest),
                                 static_cast<const ZQFieldValueOrArithStruct*>(next.source));
    }
    while (waiting_ != nullptr) {
      const Waiting next = *waiting_;
      // A qualifier and an operand that are all zero own nothing.
      memset(static_cast<void*>(waiting_), 0, sizeof(Waiting));
      waiting_ = next.next;
    }
    return status;
  }

  // Both nodes are allocated before either is copied.
  static unsigned allocateBranches(ZQQualifierBranches& dest, const ZQQualifierBranches& source) {
    dest = {nullptr, nullptr};
    if (source.left != nullptr) {
      dest.left = allocate<ZQQualifierStruct>();
      if (dest.left == nullptr) {
        return kOutOfMemory;
      }
    }
    if (source.right != nullptr) {
      dest.right = allocate<ZQQualifierStruct>();
      if (dest.right == nullptr) {
        records::release(dest.left);
        return kOutOfMemory;
      }
    }
    return kDone;
  }

  static unsigned allocateNode(ZQQualifierStruct*& dest, const ZQQualifierStruct* source) {
    dest = nullptr;
    if (source == nullptr) {
      return kDone;
    }
    dest = allocate<ZQQualifierStruct>();
    return dest == nullptr ? kOutOfMemory : kDone;
  }

  // A relation, or arithmetic: both are an operation and two operands. The left operand is copied
  // whatever the operation, though Free leaves that of a negation alone.
  template <typename Operation>
  unsigned fillOperation(Operation*& dest, const Operation* source) {
    dest = nullptr;
    if (source == nullptr) {
      return kDone;
    }
    dest = allocate<Operation>();
    if (dest == nullptr) {
      return kOutOfMemory;
    }
    dest->operation = source->operation;
    // Most operands are leaves, and need not wait.
    if (!isLeaf(source->operandLeft)) {
      later(&dest->operandRight, &source->operandRight);
      later(&dest->operandLeft, &source->operandLeft);
      return kDone;
    }
    const unsigned status = fillOperand(&dest->operandLeft, &source->operandLeft);
    if (status != kDone) {
      records::clear(dest->operandRight);
      return status;
    }
    if (!isLeaf(source->operandRight)) {
      later(&dest->operandRight, &source->operandRight);
      return kDone;
    }
    return fillOperand(&dest->operandRight, &source->operandRight);
  }

  // Whether no further operand or qualifier stands below the operand.
  static bool isLeaf(const ZQFieldValueOrArithStruct& operand) {
    return operand.tag != 3 && operand.tag != 53;
  }

  unsigned fillQuery(ZQQueryValueStruct*& dest, const ZQQueryValueStruct* source) {
    dest = nullptr;
    if (source == nullptr) {
      return kDone;
    }
    dest = allocate<ZQQueryValueStruct>();
    if (dest == nullptr) {
      return kOutOfMemory;
    }
    *dest = *source;
    const unsigned status = allocateNode(dest->queryQualification, source->queryQualification);
    if (dest->queryQualification != nullptr) {
      later(dest->queryQualification, source->queryQualification);
    }
    return status;
  }

  // Goes down the left side, while the right one waits.
  unsigned fillQualifier(ZQQualifierStruct* dest, const ZQQualifierStruct* source) {
    unsigned status = kDone;
    while (status == kDone && dest != nullptr) {
      *dest = *source;
      switch (source->operation) {
        case 1:
        case 2: {
          const ZQQualifierBranches& from = source->u.branches;
          // While memory is found for the nodes, theirs comes into the cache.
          __builtin_prefetch(from.left);
          __builtin_prefetch(from.right);
          status = allocateBranches(dest->u.branches, from);
          if (dest->u.branches.right != nullptr) {
            later(dest->u.branches.right, from.right);
          }
          dest = dest->u.branches.left;
          source = from.left;
          break;
        }
        case 3:
          status = allocateNode(dest->u.notQualifier, source->u.notQualifier);
          dest = dest->u.notQualifier;
          source = source->u.notQualifier;
          break;
        case 4:
          return fillOperation(dest->u.relationalOperation, source->u.relationalOperation);
        default:
          return kDone;
      }
    }
    return status;
  }

  unsigned fillOperand(ZQFieldValueOrArithStruct* dest, const ZQFieldValueOrArithStruct* source) {
    *dest = *source;
    return records::operandOwnsMemory(source->tag) ? fillOwner(dest, source) : kDone;
  }

  unsigned fillOwner(ZQFieldValueOrArithStruct* dest, const ZQFieldValueOrArithStruct* source) {
    switch (source->tag) {
      case 2:
        // Most values are texts: they are copied without a detour.
        if (records::isTextType(source->u.value.dataType)) {
          return records::copyText(dest->u.value.u.characterValue,
                                   source->u.value.u.characterValue);
        }
        return records::copyValue(&dest->u.value, &source->u.value);
      case 3:
        return fillOperation(dest->u.arithOp, source->u.arithOp);
      case 5:
        return CopyZQValueList(&dest->u.valueSet, &source->u.valueSet);
      case 6:
      case 54:
      case 55:
      case 56:
        return copyBlock(dest->u.currencyField, source->u.currencyField,
                         records::copyWhole<ZQCurrencyPartStruct>);
      case 53:
        return fillQuery(dest->u.queryValue, source->u.queryValue);
      default:
        return kDone;
    }
  }

  Waiting* waiting_ = nullptr;
};

template <typename Operation>
unsigned copyOperation(Operation* dest, const Operation* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  disown(dest->operandRight);
  unsigned status = CopyZQFieldValueOrArithStruct(&dest->operandLeft, &source->operandLeft);
  if (status == kDone) {
    status = CopyZQFieldValueOrArithStruct(&dest->operandRight, &source->operandRight);
    if (status != kDone) {
      const Unwinding unwinding;
      FreeZQFieldValueOrArithStruct(&dest->operandLeft, 0);
    }
  }
  return status;
}

}  // namespace

unsigned CopyZQFieldValueOrArithStruct(ZQFieldValueOrArithStruct* dest,
                                       const ZQFieldValueOrArithStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  const unsigned status = ConditionCopy().operand(dest, source);
  if (status != kDone) {
    const Unwinding unwinding;
    FreeZQFieldValueOrArithStruct(dest, 0);
  }
  return status;
}

unsigned CopyZQArithOpStruct(ZQArithOpStruct* dest, const ZQArithOpStruct* source) {
  return copyOperation(dest, source);
}

unsigned CopyZQRelOpStruct(ZQRelOpStruct* dest, const ZQRelOpStruct* source) {
  return copyOperation(dest, source);
}

unsigned CopyZQQueryValueStruct(ZQQueryValueStruct* dest, const ZQQueryValueStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return copyBlock(dest->queryQualification, source->queryQualification, CopyZQQualifierStruct);
}

unsigned CopyZQQualifierStruct(ZQQualifierStruct* dest, const ZQQualifierStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  const unsigned status = ConditionCopy().qualifier(dest, source);
  if (status != kDone) {
    const Unwinding unwinding;
    FreeZQQualifierStruct(dest, 0);
    dest->operation = source->operation;
  }
  return status;
}

namespace records {

unsigned copyQualifierList(ZQQualifierList* dest, const ZQQualifierList* source) {
  return copyList(dest, source, CopyZQQualifierStruct, freeQualifierList);
}

}  // namespace records
