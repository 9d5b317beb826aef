// Deep free of assignments. Arithmetic, functions and filter API calls hold arrays of assignments
// in their turn, to any depth.

#include <cstddef>
#include <utility>

#include "records/forest.h"
#include "records/parts.h"
#include "records/verbs.h"
#include "zqxml/free.h"

using records::finishFree;
using records::freeForest;
using records::freeList;
using records::release;

namespace {

using Grove = records::Grove<ZQAssignStruct>;

// The two operands lie side by side, as an array does.
static_assert(offsetof(ZQArithOpAssignStruct, operandRight) ==
              offsetof(ZQArithOpAssignStruct, operandLeft) + sizeof(ZQAssignStruct));

Grove operandsOf(ZQArithOpAssignStruct* arithmetic) {
  char* operands =
      reinterpret_cast<char*>(arithmetic) + offsetof(ZQArithOpAssignStruct, operandLeft);
  return {arithmetic, reinterpret_cast<ZQAssignStruct*>(operands), 2};
}

Grove takeArray(ZQAssignStruct*& items, uint32_t& numItems) {
  Grove grove;
  if (numItems != 0 && items != nullptr) {
    grove = {items, items, numItems};
  }
  items = nullptr;
  numItems = 0;
  return grove;
}

// Gives back what the assignment owns, but for the assignments below it, which are returned.
Grove takeGrove(ZQAssignStruct& assignment) {
  switch (std::exchange(assignment.assignType, 0)) {
    case 1:
      FreeZQValueStruct(&assignment.u.value, 0);
      return {};
    case 2:
      FreeZQAssignFieldStruct(std::exchange(assignment.u.field, nullptr), 1);
      return {};
    case 3:
      release(assignment.u.process);
      return {};
    case 4: {
      ZQArithOpAssignStruct* arithmetic = std::exchange(assignment.u.arithOp, nullptr);
      return arithmetic == nullptr ? Grove{} : operandsOf(arithmetic);
    }
    case 5: {
      ZQFunctionAssignStruct* function = std::exchange(assignment.u.function, nullptr);
      if (function == nullptr) {
        return {};
      }
      const Grove parameters = takeArray(function->parameterList, function->numItems);
      free(function);
      return parameters;
    }
    case 6:
      FreeZQDDEStruct(std::exchange(assignment.u.dde, nullptr), 1);
      return {};
    case 7:
      FreeZQAssignSQLStruct(std::exchange(assignment.u.sql, nullptr), 1);
      return {};
    case 8: {
      ZQAssignFilterApiStruct* call = std::exchange(assignment.u.filterApi, nullptr);
      if (call == nullptr) {
        return {};
      }
      const Grove inputs = takeArray(call->inputValues, call->numItems);
      free(call);
      return inputs;
    }
    default:
      return {};
  }
}

void freeAssignments(const Grove& grove) {
  freeForest(grove, takeGrove);
}

}  // namespace

namespace records {

void freePushFields(ZQPushFieldsStruct* field, ZQBoolean) {
  FreeZQAssignFieldStruct(&field->field, 0);
  FreeZQAssignStruct(&field->assignment, 0);
}

}  // namespace records

void FreeZQAssignStruct(ZQAssignStruct* assignment, ZQBoolean freeStruct) {
  if (assignment == nullptr) {
    return;
  }
  freeAssignments(takeGrove(*assignment));
  finishFree(assignment, freeStruct);
}

void FreeZQArithOpAssignStruct(ZQArithOpAssignStruct* arithmetic, ZQBoolean freeStruct) {
  if (arithmetic == nullptr) {
    return;
  }
  FreeZQAssignStruct(&arithmetic->operandLeft, 0);
  FreeZQAssignStruct(&arithmetic->operandRight, 0);
  finishFree(arithmetic, freeStruct);
}

void FreeZQFunctionAssignStruct(ZQFunctionAssignStruct* function, ZQBoolean freeStruct) {
  if (function == nullptr) {
    return;
  }
  freeAssignments(takeArray(function->parameterList, function->numItems));
  finishFree(function, freeStruct);
}

void FreeZQAssignFilterApiStruct(ZQAssignFilterApiStruct* call, ZQBoolean freeStruct) {
  if (call == nullptr) {
    return;
  }
  freeAssignments(takeArray(call->inputValues, call->numItems));
  finishFree(call, freeStruct);
}

void FreeZQAssignFieldStruct(ZQAssignFieldStruct* field, ZQBoolean freeStruct) {
  if (field == nullptr) {
    return;
  }
  FreeZQQualifierStruct(&field->qualifier, 0);
  if (field->tag == 6) {
    release(field->u.currencyField);
  }
  finishFree(field, freeStruct);
}

void FreeZQDDEStruct(ZQDDEStruct* dde, ZQBoolean freeStruct) {
  if (dde == nullptr) {
    return;
  }
  release(dde->serviceName);
  release(dde->topic);
  release(dde->item);
  release(dde->pathToProgram);
  release(dde->command);
  finishFree(dde, freeStruct);
}

void FreeZQAssignSQLStruct(ZQAssignSQLStruct* sql, ZQBoolean freeStruct) {
  if (sql == nullptr) {
    return;
  }
  release(sql->sqlCommand);
  finishFree(sql, freeStruct);
}

void FreeZQFieldAssignStruct(ZQFieldAssignStruct* field, ZQBoolean freeStruct) {
  if (field == nullptr) {
    return;
  }
  FreeZQAssignStruct(&field->assignment, 0);
  finishFree(field, freeStruct);
}

void FreeZQFieldAssignList(ZQFieldAssignList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, FreeZQFieldAssignStruct);
}

void FreeZQPushFieldsList(ZQPushFieldsList* list, ZQBoolean freeStruct) {
  freeList(list, freeStruct, records::freePushFields);
}
