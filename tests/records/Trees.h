// Small records on the C heap, to build trees by hand.
#ifndef ZQXML_TESTS_RECORDS_TREES_H
#define ZQXML_TESTS_RECORDS_TREES_H

#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <new>

#include "zqxml/records.h"

// Names that can stand in an initializer list.
struct NameCell {
  ZQNameType name;
};
struct EntryIdCell {
  ZQEntryIdType part;
};

template <typename Record>
Record* newRecord(const Record& record) {
  auto* block = static_cast<Record*>(malloc(sizeof(Record)));
  memcpy(static_cast<void*>(block), &record, sizeof record);
  return block;
}

inline char* newText(const char* text) {
  return strdup(text);
}

inline unsigned char* newBytes(size_t count) {
  auto* bytes = static_cast<unsigned char*>(malloc(count));
  for (size_t i = 0; i < count; ++i) {
    bytes[i] = static_cast<unsigned char>(i * 37);
  }
  return bytes;
}

template <typename List, typename Element>
List newList(std::initializer_list<Element> elements) {
  static_assert(sizeof(Element) == sizeof(*List{}.items));
  List list = {};
  list.numItems = static_cast<uint32_t>(elements.size());
  void* items = malloc(elements.size() * sizeof(Element));
  memcpy(items, elements.begin(), elements.size() * sizeof(Element));
  list.items = static_cast<decltype(list.items)>(items);
  return list;
}

inline ZQValueStruct textValue(uint32_t dataType, const char* text) {
  ZQValueStruct value = {};
  value.dataType = dataType;
  value.u.characterValue = newText(text);
  return value;
}

inline ZQFieldValueOrArithStruct fieldOperand(uint32_t tag, uint32_t fieldId) {
  ZQFieldValueOrArithStruct operand = {};
  operand.tag = tag;
  operand.u.fieldId = fieldId;
  return operand;
}

inline ZQFieldValueOrArithStruct valueOperand(const ZQValueStruct& value) {
  ZQFieldValueOrArithStruct operand = {};
  operand.tag = 2;
  operand.u.value = value;
  return operand;
}

inline ZQQualifierStruct bareField(uint32_t fieldId) {
  ZQQualifierStruct node = {};
  node.operation = 5;
  node.u.fieldId = fieldId;
  return node;
}

inline ZQQualifierStruct notQualifier(const ZQQualifierStruct& below) {
  ZQQualifierStruct node = {};
  node.operation = 3;
  node.u.notQualifier = newRecord(below);
  return node;
}

inline ZQQualifierStruct branches(uint32_t operation, const ZQQualifierStruct& left,
                                  const ZQQualifierStruct& right) {
  ZQQualifierStruct node = {};
  node.operation = operation;
  node.u.branches = {newRecord(left), newRecord(right)};
  return node;
}

inline ZQQualifierStruct relation(const ZQFieldValueOrArithStruct& left,
                                  const ZQFieldValueOrArithStruct& right) {
  ZQQualifierStruct node = {};
  node.operation = 4;
  node.u.relationalOperation = newRecord(ZQRelOpStruct{1, left, right});
  return node;
}

#endif
