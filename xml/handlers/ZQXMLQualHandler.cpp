#include "xml/handlers/ZQXMLQualHandler.h"

#include <utility>

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLQualRelOpHandler.h"
#include "zqxml/free.h"

namespace {

enum Operation : uint32_t { kNone = 0, kAnd = 1, kOr = 2, kNot = 3, kRelation = 4, kField = 5 };

constexpr Leaf<ZQQualifierStruct> kLeaves[] = {
    {tag_fieldID, nullptr},
};

bool isHost(int tag) {
  switch (tag) {
    case tag_qualification:
    case tag_qualifier:
    case tag_queryQualification:
    case tag_dataQualification:
    case tag_joinQualifier:
    case tag_runIfQualification:
    case tag_left:
    case tag_right:
    case tag_not:
      return true;
    default:
      return false;
  }
}

// Elements that a child reads.
bool isChild(int tag) {
  return tag == tag_left || tag == tag_right || tag == tag_not || tag == tag_relationalOperation;
}

}  // namespace

ZQXMLQualHandler::ZQXMLQualHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

ZQXMLQualHandler::~ZQXMLQualHandler() {
  ZQXMLQualHandler::CleanReferences();
}

void ZQXMLQualHandler::Init(ZQQualifierStruct* qualifier) {
  currentTag = 0;
  CleanReferences();
  hostTag = 0;
  target = qualifier;
  *target = {};
}

void ZQXMLQualHandler::PreProcess(int tag) {
  switch (tag) {
    case tag_not:
      SetOperation(kNot);
      GiveBranchTo(target->u.notQualifier);
      break;
    case tag_relationalOperation:
      SetOperation(kRelation);
      target->u.relationalOperation = newRecord<ZQRelOpStruct>();
      giveTo(lazily(relation), *target->u.relationalOperation, FreeZQRelOpStruct);
      break;
    case tag_left:
      GiveBranchTo(Branches().left);
      break;
    case tag_right:
      GiveBranchTo(Branches().right);
      break;
    default:
      break;
  }
}

void ZQXMLQualHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (hostTag == 0) {
    hostTag = tag;
  }
  switch (tag) {
    case tag_and:
      SetOperation(kAnd);
      break;
    case tag_or:
      SetOperation(kOr);
      break;
    case tag_fieldID:
      SetOperation(kField);
      leaves.empty();
      leaves.open(tag);
      currentTag = tag;
      break;
    default:
      if (!isHost(tag)) {
        refuseElement();
      }
      break;
  }
}

void ZQXMLQualHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLQualHandler::EndElement(int tag) {
  currentTag = 0;
  switch (tag) {
    case tag_fieldID:
      if (target->operation == kField) {
        target->u.fieldId = unsignedNumber(leaves[tag_fieldID]);
      }
      break;
    case tag_and:
    case tag_or:
      break;
    default:
      if (tag != hostTag && (isChild(tag) || !isHost(tag))) {
        refuseElement();
      }
      break;
  }
}

void ZQXMLQualHandler::PostProcess(int tag) {
  if (isHost(tag)) {
    handlerStack->Pop();
    CleanReferences();
  }
}

void ZQXMLQualHandler::CleanReferences() {
  releaseBlock(stray.left, FreeZQQualifierStruct);
  releaseBlock(stray.right, FreeZQQualifierStruct);
}

// Branches stay from "and" to "or"; any other change frees what the node has.
void ZQXMLQualHandler::SetOperation(uint32_t operation) {
  const bool isFork = operation == kAnd || operation == kOr;
  if (!isFork || !HasBranches()) {
    releaseRecord(*target, FreeZQQualifierStruct);
    if (isFork) {
      target->u.branches = std::exchange(stray, {});
    }
    CleanReferences();
  }
  target->operation = operation;
}

bool ZQXMLQualHandler::HasBranches() const {
  return target->operation == kAnd || target->operation == kOr;
}

// Where "left" and "right" go: while it isn't known that the node has branches, aside.
ZQQualifierBranches& ZQXMLQualHandler::Branches() {
  if (HasBranches()) {
    return target->u.branches;
  }
  if (target->operation != kNone) {
    refuseElement();
  }
  return stray;
}

void ZQXMLQualHandler::GiveBranchTo(ZQQualifierStruct*& branch) {
  releaseBlock(branch, FreeZQQualifierStruct);
  branch = newRecord<ZQQualifierStruct>();
  giveTo(lazily(child), *branch, FreeZQQualifierStruct);
}
