// Deep copy of assignments. Arithmetic, functions and filter API calls hold arrays of assignments
// in their turn, to any depth; as with conditions, what is allocated and not yet filled waits in a
// chain of its own instead of on the stack.

#include <new>

#include "records/parts.h"
#include "records/verbs.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"

using records::allocate;
using records::copyBlock;
using records::copyList;
using records::CopyMembers;
using records::copyText;
using records::kDone;
using records::kOutOfMemory;
using records::Unwinding;

namespace {

class AssignmentCopy {
 public:
  // Copies an assignment with all below it. On failure the copy is as far as it came, and all its
  // pointers are its own or null.
  unsigned assignment(ZQAssignStruct* dest, const ZQAssignStruct* source) {
    return finish(fillAssignment(dest, source));
  }

  // Copies an array of assignments likewise, and its count.
  unsigned array(ZQAssignStruct*& dest, uint32_t& destCount, const ZQAssignStruct* source,
                 uint32_t sourceCount) {
    return finish(fillArray(dest, destCount, source, sourceCount));
  }

 private:
  // What stands in an assignment that is not filled yet.
  struct Waiting {
    Waiting* next;
    const ZQAssignStruct* source;
  };
  static_assert(sizeof(Waiting) <= sizeof(ZQAssignStruct));

  void later(ZQAssignStruct* dest, const ZQAssignStruct* source) {
    waiting_ = new (dest) Waiting{waiting_, source};
  }

  unsigned finish(unsigned status) {
    while (status == kDone && waiting_ != nullptr) {
      const Waiting next = *waiting_;
      auto* dest = reinterpret_cast<ZQAssignStruct*>(waiting_);
      waiting_ = next.next;
      status = fillAssignment(dest, next.source);
    }
    while (waiting_ != nullptr) {
      const Waiting next = *waiting_;
      // An assignment that is all zero owns nothing.
      memset(static_cast<void*>(waiting_), 0, sizeof(ZQAssignStruct));
      waiting_ = next.next;
    }
    return status;
  }

  unsigned fillArray(ZQAssignStruct*& dest, uint32_t& destCount, const ZQAssignStruct* source,
                     uint32_t sourceCount) {
    dest = nullptr;
    destCount = 0;
    if (sourceCount == 0 || source == nullptr) {
      return kDone;
    }
    dest = allocate<ZQAssignStruct>(sourceCount);
    if (dest == nullptr) {
      return kOutOfMemory;
    }
    destCount = sourceCount;
    for (uint32_t i = sourceCount; i-- > 0;) {
      later(&dest[i], &source[i]);
    }
    return kDone;
  }

  unsigned fillArithmetic(ZQArithOpAssignStruct*& dest, const ZQArithOpAssignStruct* source) {
    dest = nullptr;
    if (source == nullptr) {
      return kDone;
    }
    dest = allocate<ZQArithOpAssignStruct>();
    if (dest == nullptr) {
      return kOutOfMemory;
    }
    dest->operation = source->operation;
    later(&dest->operandRight, &source->operandRight);
    later(&dest->operandLeft, &source->operandLeft);
    return kDone;
  }

  unsigned fillFunction(ZQFunctionAssignStruct*& dest, const ZQFunctionAssignStruct* source) {
    dest = nullptr;
    if (source == nullptr) {
      return kDone;
    }
    dest = allocate<ZQFunctionAssignStruct>();
    if (dest == nullptr) {
      return kOutOfMemory;
    }
    *dest = *source;
    return fillArray(dest->parameterList, dest->numItems, source->parameterList, source->numItems);
  }

  unsigned fillFilterApi(ZQAssignFilterApiStruct*& dest, const ZQAssignFilterApiStruct* source) {
    dest = nullptr;
    if (source == nullptr) {
      return kDone;
    }
    dest = allocate<ZQAssignFilterApiStruct>();
    if (dest == nullptr) {
      return kOutOfMemory;
    }
    *dest = *source;
    return fillArray(dest->inputValues, dest->numItems, source->inputValues, source->numItems);
  }

  unsigned fillAssignment(ZQAssignStruct* dest, const ZQAssignStruct* source) {
    *dest = *source;
    switch (source->assignType) {
      case 1:
        return records::copyValue(&dest->u.value, &source->u.value);
      case 2:
        return copyBlock(dest->u.field, source->u.field, CopyZQAssignFieldStruct);
      case 3:
        return copyText(dest->u.process, source->u.process);
      case 4:
        return fillArithmetic(dest->u.arithOp, source->u.arithOp);
      case 5:
        return fillFunction(dest->u.function, source->u.function);
      case 6:
        return copyBlock(dest->u.dde, source->u.dde, CopyZQDDEStruct);
      case 7:
        return copyBlock(dest->u.sql, source->u.sql, CopyZQAssignSQLStruct);
      case 8:
        return fillFilterApi(dest->u.filterApi, source->u.filterApi);
      default:
        return kDone;
    }
  }

  Waiting* waiting_ = nullptr;
};

}  // namespace

unsigned CopyZQAssignStruct(ZQAssignStruct* dest, const ZQAssignStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  const unsigned status = AssignmentCopy().assignment(dest, source);
  if (status != kDone) {
    const Unwinding unwinding;
    FreeZQAssignStruct(dest, 0);
    dest->assignType = source->assignType;
  }
  return status;
}

unsigned CopyZQArithOpAssignStruct(ZQArithOpAssignStruct* dest,
                                   const ZQArithOpAssignStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .record(CopyZQAssignStruct, dest->operandLeft, source->operandLeft)
      .record(CopyZQAssignStruct, dest->operandRight, source->operandRight)
      .elseFree(dest, FreeZQArithOpAssignStruct);
}

unsigned CopyZQFunctionAssignStruct(ZQFunctionAssignStruct* dest,
                                    const ZQFunctionAssignStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  const unsigned status = AssignmentCopy().array(dest->parameterList, dest->numItems,
                                                 source->parameterList, source->numItems);
  if (status != kDone) {
    const Unwinding unwinding;
    FreeZQFunctionAssignStruct(dest, 0);
  }
  return status;
}

unsigned CopyZQAssignFilterApiStruct(ZQAssignFilterApiStruct* dest,
                                     const ZQAssignFilterApiStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  const unsigned status = AssignmentCopy().array(dest->inputValues, dest->numItems,
                                                 source->inputValues, source->numItems);
  if (status != kDone) {
    const Unwinding unwinding;
    FreeZQAssignFilterApiStruct(dest, 0);
  }
  return status;
}

unsigned CopyZQAssignFieldStruct(ZQAssignFieldStruct* dest, const ZQAssignFieldStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  CopyMembers members;
  members.record(CopyZQQualifierStruct, dest->qualifier, source->qualifier);
  if (source->tag == 6) {
    members.block(records::copyWhole<ZQCurrencyPartStruct>, dest->u.currencyField,
                  source->u.currencyField);
  }
  return members.elseFree(dest, FreeZQAssignFieldStruct);
}

unsigned CopyZQDDEStruct(ZQDDEStruct* dest, const ZQDDEStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .text(dest->serviceName, source->serviceName)
      .text(dest->topic, source->topic)
      .text(dest->item, source->item)
      .text(dest->pathToProgram, source->pathToProgram)
      .text(dest->command, source->command)
      .elseFree(dest, FreeZQDDEStruct);
}

unsigned CopyZQAssignSQLStruct(ZQAssignSQLStruct* dest, const ZQAssignSQLStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return copyText(dest->sqlCommand, source->sqlCommand);
}

unsigned CopyZQFieldAssignStruct(ZQFieldAssignStruct* dest, const ZQFieldAssignStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyZQAssignStruct(&dest->assignment, &source->assignment);
}

unsigned CopyZQFieldAssignList(ZQFieldAssignList* dest, const ZQFieldAssignList* source) {
  return copyList(dest, source, CopyZQFieldAssignStruct, FreeZQFieldAssignList);
}

unsigned CopyZQPushFieldsStruct(ZQPushFieldsStruct* dest, const ZQPushFieldsStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return kDone;
  }
  *dest = *source;
  return CopyMembers()
      .record(CopyZQAssignFieldStruct, dest->field, source->field)
      .record(CopyZQAssignStruct, dest->assignment, source->assignment)
      .elseFree(dest, records::freePushFields);
}

unsigned CopyZQPushFieldsList(ZQPushFieldsList* dest, const ZQPushFieldsList* source) {
  return copyList(dest, source, CopyZQPushFieldsStruct, FreeZQPushFieldsList);
}
