// The description of values, conditions and the other records that all stand on; see
// records/describe.h.
#ifndef ZQXML_RECORDS_DESCRIBE_CORE_H
#define ZQXML_RECORDS_DESCRIBE_CORE_H

#include "records/description.h"

namespace records {

template <>
struct Description<ZQStatusStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("messageType", r.messageType);
    v.scalar("messageNum", r.messageNum);
    v.text("messageText", r.messageText);
    v.text("appendedText", r.appendedText);
  }
};

template <>
struct Description<ZQByteList> {
  static void visit(auto& v, auto& r) {
    v.scalar("byteType", r.byteType);
    v.bytes("numItems", r.numItems, "bytes", r.bytes);
  }
};

template <>
struct Description<ZQCoordStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("x", r.x);
    v.scalar("y", r.y);
  }
};

template <>
struct Description<ZQBufStruct> {
  static void visit(auto& v, auto& r) {
    v.bytes("bufferSize", r.bufferSize, "bufferData", r.bufferData);
  }
};

template <>
struct Description<ZQLocStruct> {
  static constexpr uint32_t kTags[] = {0, 1, 2};
  static void visit(auto& v, auto& r) {
    v.tag("locationType", r.locationType, kTags);
    switch (r.locationType) {
      case 1:
        v.text("fileName", r.u.fileName);
        break;
      case 2:
        v.record("buffer", r.u.buffer);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQAttachStruct> {
  static void visit(auto& v, auto& r) {
    v.text("attachmentName", r.attachmentName);
    v.scalar("originalSize", r.originalSize);
    v.scalar("compressedSize", r.compressedSize);
    v.record("location", r.location);
  }
};

template <>
struct Description<ZQFuncCurrencyStruct> {
  static void visit(auto& v, auto& r) {
    v.text("value", r.value);
    v.chars("currencyCode", r.currencyCode);
  }
};

template <>
struct Description<ZQCurrencyStruct> {
  static void visit(auto& v, auto& r) {
    v.text("value", r.value);
    v.chars("currencyCode", r.currencyCode);
    v.scalar("conversionDate", r.conversionDate);
    v.record("functionalCurrencies", r.functionalCurrencies);
  }
};

template <>
struct Description<ZQValueStruct> {
  static constexpr uint32_t kTags[] = {0,  1,  2,  3,  4,  5,  6,  7,  8, 9,
                                       10, 11, 12, 13, 14, 40, 41, 42, 43};
  static void visit(auto& v, auto& r) {
    v.tag("dataType", r.dataType, kTags);
    switch (r.dataType) {
      case 1:
        v.scalar("keywordValue", r.u.keywordValue);
        break;
      case 2:
        v.scalar("integerValue", r.u.integerValue);
        break;
      case 3:
        v.scalar("realValue", r.u.realValue);
        break;
      case 4:
        v.text("characterValue", r.u.characterValue);
        break;
      case 5:
        v.text("diaryValue", r.u.diaryValue);
        break;
      case 6:
        v.scalar("enumValue", r.u.enumValue);
        break;
      case 7:
        v.scalar("timeValue", r.u.timeValue);
        break;
      case 8:
        v.scalar("maskValue", r.u.maskValue);
        break;
      case 9:
        v.block("byteList", r.u.byteList);
        break;
      case 10:
        v.text("decimalValue", r.u.decimalValue);
        break;
      case 11:
        v.block("attachmentValue", r.u.attachmentValue);
        break;
      case 12:
        v.block("currencyValue", r.u.currencyValue);
        break;
      case 13:
        v.scalar("dateValue", r.u.dateValue);
        break;
      case 14:
        v.scalar("timeOfDayValue", r.u.timeOfDayValue);
        break;
      case 40:
        v.scalar("unsignedLongValue", r.u.unsignedLongValue);
        break;
      case 41:
        v.block("coordinateList", r.u.coordinateList);
        break;
      case 42:
        v.text("viewValue", r.u.viewValue);
        break;
      case 43:
        v.text("displayValue", r.u.displayValue);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQFieldValueStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("fieldId", r.fieldId);
    v.record("value", r.value);
  }
};

template <>
struct Description<ZQPropStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("property", r.property);
    v.record("value", r.value);
  }
};

template <>
struct Description<ZQPermissionStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("groupId", r.groupId);
    v.scalar("permissions", r.permissions);
  }
};

template <>
struct Description<ZQSortStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("fieldId", r.fieldId);
    v.scalar("sortOrder", r.sortOrder);
  }
};

template <>
struct Description<ZQIndexStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("numFields", r.numFields);
    v.numbers("fieldIds", r.fieldIds);
    v.scalar("uniqueIndex", r.uniqueIndex);
    v.chars("indexName", r.indexName);
  }
};

template <>
struct Description<ZQStructItemStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("itemType", r.itemType);
    v.chars("name", r.name);
    v.record("selectedElements", r.selectedElements);
  }
};

template <>
struct Description<ZQEntryListFieldStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("fieldId", r.fieldId);
    v.scalar("fieldWidth", r.fieldWidth);
    v.chars("fieldSeparator", r.fieldSeparator);
  }
};

template <>
struct Description<ZQEntryListStruct> {
  static void visit(auto& v, auto& r) {
    v.record("entryId", r.entryId);
    v.text("shortDescription", r.shortDescription);
  }
};

template <>
struct Description<ZQEntryListFieldValueStruct> {
  static void visit(auto& v, auto& r) {
    v.record("entryId", r.entryId);
    v.block("entryValues", r.entryValues);
  }
};

template <>
struct Description<ZQDiaryStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("user", r.user);
    v.scalar("timestamp", r.timestamp);
    v.text("value", r.value);
  }
};

template <>
struct Description<ZQStatusHistoryStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("user", r.user);
    v.scalar("timestamp", r.timestamp);
  }
};

template <>
struct Description<ZQDisplayInstanceStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("vuiId", r.vuiId);
    v.record("displayProperties", r.displayProperties);
  }
};

template <>
struct Description<ZQDisplayInstanceList> {
  static void visit(auto& v, auto& r) {
    v.record("commonProperties", r.commonProperties);
    v.array("numInstances", r.numInstances, "instances", r.instances);
  }
};

template <>
struct Description<ZQQualifierBranches> {
  static void visit(auto& v, auto& r) {
    v.block("left", r.left);
    v.block("right", r.right);
  }
};

template <>
struct Description<ZQQualifierStruct> {
  static constexpr uint32_t kTags[] = {0, 1, 2, 3, 4, 5};
  static void visit(auto& v, auto& r) {
    v.tag("operation", r.operation, kTags);
    switch (r.operation) {
      case 1:
      case 2:
        v.record("branches", r.u.branches);
        break;
      case 3:
        v.block("notQualifier", r.u.notQualifier);
        break;
      case 4:
        v.block("relationalOperation", r.u.relationalOperation);
        break;
      case 5:
        v.scalar("fieldId", r.u.fieldId);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQStatHistoryValue> {
  static void visit(auto& v, auto& r) {
    v.scalar("statusState", r.statusState);
    v.scalar("statusInfo", r.statusInfo);
  }
};

template <>
struct Description<ZQCurrencyPartStruct> {
  static void visit(auto& v, auto& r) { v.numbers("words", r.words); }
};

template <>
struct Description<ZQFieldValueOrArithStruct> {
  static constexpr uint32_t kTags[] = {1, 2, 3, 4, 5, 6, 50, 51, 52, 53, 54, 55, 56, 99};
  static void visit(auto& v, auto& r) {
    v.tag("tag", r.tag, kTags);
    switch (r.tag) {
      case 1:
      case 50:
      case 51:
      case 99:
        v.scalar("fieldId", r.u.fieldId);
        break;
      case 2:
        v.record("value", r.u.value);
        break;
      case 3:
        v.block("arithOp", r.u.arithOp);
        break;
      case 4:
        v.record("statHistory", r.u.statHistory);
        break;
      case 5:
        v.record("valueSet", r.u.valueSet);
        break;
      case 6:
      case 54:
      case 55:
      case 56:
        v.block("currencyField", r.u.currencyField);
        break;
      case 52:
        v.scalar("variable", r.u.variable);
        break;
      case 53:
        v.block("queryValue", r.u.queryValue);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQRelOpStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("operation", r.operation);
    v.record("operandLeft", r.operandLeft);
    v.record("operandRight", r.operandRight);
  }
};

template <>
struct Description<ZQArithOpStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("operation", r.operation);
    v.record("operandLeft", r.operandLeft);
    v.record("operandRight", r.operandRight);
  }
};

template <>
struct Description<ZQQueryValueStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("formName", r.formName);
    v.chars("serverName", r.serverName);
    v.block("queryQualification", r.queryQualification);
    v.scalar("valueFieldId", r.valueFieldId);
    v.scalar("multipleMatchOption", r.multipleMatchOption);
  }
};

template <>
struct Description<ZQEnumItemStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("itemNumber", r.itemNumber);
    v.chars("itemName", r.itemName);
  }
};

}  // namespace records

#endif
