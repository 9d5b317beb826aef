// What single Free functions reset, keep and leave allocated.

#include "zqxml/free.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <ostream>
#include <string>

#include "Trees.h"
#include "fault/FailingAllocations.h"
#include "records/description.h"

namespace {

// Runs a free and tells how many blocks it gave back.
template <typename Free>
long givenBack(Free free) {
  const long before = fault::liveBlocks();
  free();
  return before - fault::liveBlocks();
}

// A list has padding behind its count, which may be anything.
template <records::List Record>
bool isZero(const Record& list) {
  return list.numItems == 0 && list.items == nullptr;
}

template <typename Record>
bool isZero(const Record& record) {
  const Record zero = {};
  return memcmp(&record, &zero, sizeof record) == 0;
}

struct ValueCase {
  const char* what;
  ZQValueStruct (*make)();
  long blocks;
};

void PrintTo(const ValueCase& each, std::ostream* out) {
  *out << each.what;
}

class FreeValue : public testing::TestWithParam<ValueCase> {};

TEST_P(FreeValue, GivesItsBlocksBackAndZeroesTheRecord) {
  ZQValueStruct value = GetParam().make();
  EXPECT_EQ(givenBack([&] { FreeZQValueStruct(&value, 0); }), GetParam().blocks);
  EXPECT_TRUE(isZero(value));
  EXPECT_EQ(givenBack([&] { FreeZQValueStruct(&value, 0); }), 0);
}

TEST_P(FreeValue, GivesTheRecordBackToo) {
  auto* value = newRecord(GetParam().make());
  EXPECT_EQ(givenBack([&] { FreeZQValueStruct(value, 1); }), GetParam().blocks + 1);
}

ZQValueStruct withBits(uint32_t dataType) {
  ZQValueStruct value = {};
  value.dataType = dataType;
  memset(&value.u, 0x5A, sizeof value.u);
  return value;
}

ZQValueStruct withType(uint32_t dataType) {
  ZQValueStruct value = {};
  value.dataType = dataType;
  return value;
}

ZQValueStruct bytesValue() {
  ZQValueStruct value = withType(9);
  value.u.byteList = newRecord(ZQByteList{3, 4, newBytes(4)});
  return value;
}

ZQValueStruct attachmentValue(uint32_t locationType) {
  ZQValueStruct value = withType(11);
  ZQAttachStruct attachment = {};
  attachment.attachmentName = newText("name");
  attachment.location.locationType = locationType;
  if (locationType == 1) {
    attachment.location.u.fileName = newText("/path");
  } else if (locationType == 2) {
    attachment.location.u.buffer = {4, newBytes(4)};
  }
  value.u.attachmentValue = newRecord(attachment);
  return value;
}

ZQValueStruct currencyValue() {
  ZQValueStruct value = withType(12);
  ZQCurrencyStruct currency = {newText("1.5"), "USD", 7, {}};
  currency.functionalCurrencies = newList<ZQFuncCurrencyList>(
      {ZQFuncCurrencyStruct{newText("1"), "EUR"}, ZQFuncCurrencyStruct{nullptr, "YEN"}});
  value.u.currencyValue = newRecord(currency);
  return value;
}

ZQValueStruct coordinates() {
  ZQValueStruct value = withType(41);
  value.u.coordinateList = newRecord(newList<ZQCoordList>({ZQCoordStruct{1, 2}}));
  return value;
}

template <uint32_t dataType>
ZQValueStruct textOfType() {
  return textValue(dataType, "text");
}

INSTANTIATE_TEST_SUITE_P(
    Types, FreeValue,
    testing::Values(ValueCase{"null", [] { return withBits(0); }, 0},
                    ValueCase{"keyword", [] { return withBits(1); }, 0},
                    ValueCase{"integer", [] { return withBits(2); }, 0},
                    ValueCase{"real", [] { return withBits(3); }, 0},
                    ValueCase{"character", textOfType<4>, 1},
                    ValueCase{"characterNull", [] { return withType(4); }, 0},
                    ValueCase{"diary", textOfType<5>, 1},
                    ValueCase{"enumeration", [] { return withBits(6); }, 0},
                    ValueCase{"time", [] { return withBits(7); }, 0},
                    ValueCase{"bitMask", [] { return withBits(8); }, 0},
                    ValueCase{"bytes", bytesValue, 2},
                    ValueCase{"bytesNull", [] { return withType(9); }, 0},
                    ValueCase{"decimal", textOfType<10>, 1},
                    ValueCase{"attachmentFile", [] { return attachmentValue(1); }, 3},
                    ValueCase{"attachmentBuffer", [] { return attachmentValue(2); }, 3},
                    ValueCase{"attachmentNowhere", [] { return attachmentValue(0); }, 2},
                    ValueCase{"attachmentNull", [] { return withType(11); }, 0},
                    ValueCase{"currency", currencyValue, 4},
                    ValueCase{"currencyNull", [] { return withType(12); }, 0},
                    ValueCase{"date", [] { return withBits(13); }, 0},
                    ValueCase{"timeOfDay", [] { return withBits(14); }, 0},
                    ValueCase{"unsignedLong", [] { return withBits(40); }, 0},
                    ValueCase{"coordinates", coordinates, 2},
                    ValueCase{"coordinatesNull", [] { return withType(41); }, 0},
                    ValueCase{"view", textOfType<42>, 1}, ValueCase{"display", textOfType<43>, 1},
                    ValueCase{"unknown15", [] { return withBits(15); }, 0},
                    ValueCase{"unknown39", [] { return withBits(39); }, 0},
                    ValueCase{"unknown44", [] { return withBits(44); }, 0},
                    ValueCase{"unknownHighest", [] { return withBits(0xFFFFFFFF); }, 0}),
    [](const testing::TestParamInfo<ValueCase>& each) { return std::string(each.param.what); });

TEST(FreeRecords, AFieldValueKeepsItsField) {
  ZQFieldValueStruct field = {8, textValue(4, "x")};
  FreeZQFieldValueStruct(&field, 0);
  EXPECT_EQ(field.fieldId, 8U);
  EXPECT_TRUE(isZero(field.value));
}

TEST(FreeRecords, APropertyLosesItsTag) {
  ZQPropStruct property = {20, textValue(4, "x")};
  FreeZQPropStruct(&property, 0);
  EXPECT_EQ(property.property, 0U);
  EXPECT_TRUE(isZero(property.value));
}

TEST(FreeRecords, ADisplayInstanceKeepsItsView) {
  ZQDisplayInstanceStruct instance = {9, newList<ZQPropList>({ZQPropStruct{1, textValue(4, "x")}})};
  EXPECT_EQ(givenBack([&] { FreeZQDisplayInstanceStruct(&instance, 0); }), 2);
  EXPECT_EQ(instance.vuiId, 9U);
  EXPECT_TRUE(isZero(instance.displayProperties));
}

TEST(FreeRecords, DisplayInstancesAreEmptyAfterwards) {
  ZQDisplayInstanceList list = {};
  list.commonProperties = newList<ZQPropList>({ZQPropStruct{1, textValue(4, "x")}});
  list.numInstances = 1;
  list.instances = newRecord(
      ZQDisplayInstanceStruct{9, newList<ZQPropList>({ZQPropStruct{1, textValue(4, "x")}})});
  EXPECT_EQ(givenBack([&] { FreeZQDisplayInstanceList(&list, 0); }), 5);
  EXPECT_TRUE(isZero(list.commonProperties));
  EXPECT_EQ(list.numInstances, 0U);
  EXPECT_EQ(list.instances, nullptr);
}

TEST(FreeRecords, DisplayInstancesWithoutAnArrayAreNotWalked) {
  ZQDisplayInstanceList list = {{}, 4, nullptr};
  FreeZQDisplayInstanceList(&list, 0);
  EXPECT_TRUE(isZero(list));
}

TEST(FreeRecords, BytesKeepTheirType) {
  ZQByteList list = {2, 3, newBytes(3)};
  EXPECT_EQ(givenBack([&] { FreeZQByteList(&list, 0); }), 1);
  EXPECT_EQ(list.byteType, 2U);
  EXPECT_EQ(list.numItems, 0U);
  EXPECT_EQ(list.bytes, nullptr);
}

TEST(FreeRecords, BytesWithoutACountAreKept) {
  unsigned char* bytes = newBytes(3);
  ZQByteList list = {2, 0, bytes};
  EXPECT_EQ(givenBack([&] { FreeZQByteList(&list, 0); }), 0);
  EXPECT_EQ(list.bytes, nullptr);
  free(bytes);
}

TEST(FreeRecords, ABufferIsGivenBackWhateverItsSize) {
  ZQBufStruct buffer = {0, newBytes(3)};
  EXPECT_EQ(givenBack([&] { FreeZQBufStruct(&buffer, 0); }), 1);
  EXPECT_TRUE(isZero(buffer));
}

TEST(FreeRecords, ALocationOfAnotherTypeOwnsNothing) {
  unsigned char* bytes = newBytes(3);
  for (const uint32_t type : {0U, 3U}) {
    ZQLocStruct location = {};
    location.locationType = type;
    location.u.buffer = {3, bytes};
    EXPECT_EQ(givenBack([&] { FreeZQLocStruct(&location, 0); }), 0);
    EXPECT_TRUE(isZero(location));
  }
  free(bytes);
}

TEST(FreeRecords, AnAttachmentIsEmptyAfterwards) {
  ZQAttachStruct attachment = {newText("name"), 10, 5, {}};
  attachment.location.locationType = 1;
  attachment.location.u.fileName = newText("/path");
  EXPECT_EQ(givenBack([&] { FreeZQAttachStruct(&attachment, 0); }), 2);
  EXPECT_TRUE(isZero(attachment));
}

TEST(FreeRecords, AmountsKeepTheirCurrency) {
  ZQFuncCurrencyStruct functional = {newText("1"), "EUR"};
  FreeZQFuncCurrencyStruct(&functional, 0);
  EXPECT_EQ(functional.value, nullptr);
  EXPECT_STREQ(functional.currencyCode, "EUR");

  ZQCurrencyStruct currency = {newText("1"), "USD", 77, {}};
  FreeZQCurrencyStruct(&currency, 0);
  EXPECT_EQ(currency.value, nullptr);
  EXPECT_STREQ(currency.currencyCode, "USD");
  EXPECT_EQ(currency.conversionDate, 77);
}

TEST(FreeRecords, AListOfTextsMayHoldNulls) {
  char* const absent = nullptr;
  ZQTextStringList list = newList<ZQTextStringList>({newText("a"), absent, newText("b")});
  EXPECT_EQ(givenBack([&] { FreeZQTextStringList(&list, 0); }), 3);
  EXPECT_TRUE(isZero(list));
}

TEST(FreeRecords, ALineOfAnEntryListIsEmptyAfterwards) {
  ZQEntryListFieldValueStruct line = {};
  line.entryId = newList<ZQEntryIdList>({EntryIdCell{"1"}});
  line.entryValues =
      newRecord(newList<ZQFieldValueList>({ZQFieldValueStruct{1, textValue(4, "x")}}));
  EXPECT_EQ(givenBack([&] { FreeZQEntryListFieldValueStruct(&line, 0); }), 4);
  EXPECT_TRUE(isZero(line.entryId));
  EXPECT_EQ(line.entryValues, nullptr);
}

TEST(FreeRecords, SelectedElementsStayWithTheCaller) {
  ZQNameList selected = newList<ZQNameList>({NameCell{"view"}});
  void* kept = selected.items;
  ZQStructItemStruct item = {0x4000000E, "form", selected};
  ZQStructItemList list = newList<ZQStructItemList>({item});
  EXPECT_EQ(givenBack([&] { FreeZQStructItemList(&list, 0); }), 1);
  EXPECT_TRUE(isZero(list));
  free(kept);
}

TEST(FreeRecords, AListOfConditionsIsLeftAsItWas) {
  ZQQualifierList list = newList<ZQQualifierList>({notQualifier(bareField(7)), bareField(8)});
  ZQQualifierStruct* items = list.items;
  EXPECT_EQ(givenBack([&] { FreeZQQualifierList(&list, 0); }), 2);
  EXPECT_EQ(list.numItems, 2U);
  EXPECT_EQ(list.items, items);
}

TEST(FreeRecords, AListOfConditionsTestsItsPointerOnly) {
  ZQQualifierList list = {0, static_cast<ZQQualifierStruct*>(calloc(1, sizeof(ZQQualifierStruct)))};
  EXPECT_EQ(givenBack([&] { FreeZQQualifierList(&list, 0); }), 1);
  ZQQualifierList counted = {5, nullptr};
  EXPECT_EQ(givenBack([&] { FreeZQQualifierList(&counted, 0); }), 0);
  EXPECT_EQ(counted.numItems, 5U);
}

TEST(FreeRecords, AServerSideMenuClearsItsConditionsItself) {
  ZQCharMenuStruct menu = {};
  menu.menuType = 5;
  menu.u.menuSS.qualifiers = newList<ZQQualifierList>({notQualifier(bareField(7))});
  EXPECT_EQ(givenBack([&] { FreeZQCharMenuStruct(&menu, 0); }), 2);
  EXPECT_EQ(menu.u.menuSS.qualifiers.items, nullptr);
  EXPECT_EQ(menu.u.menuSS.qualifiers.numItems, 0U);
}

TEST(FreeConditions, EveryOperation) {
  for (const uint32_t operation : {1U, 2U}) {
    ZQQualifierStruct node = branches(operation, bareField(1), notQualifier(bareField(2)));
    EXPECT_EQ(givenBack([&] { FreeZQQualifierStruct(&node, 0); }), 3);
    EXPECT_EQ(node.operation, 0U);
    EXPECT_TRUE(isZero(node.u));
  }
  ZQQualifierStruct node = relation(valueOperand(textValue(4, "x")), fieldOperand(1, 3));
  EXPECT_EQ(givenBack([&] { FreeZQQualifierStruct(&node, 0); }), 2);
  EXPECT_EQ(node.operation, 0U);
  EXPECT_EQ(node.u.relationalOperation, nullptr);
}

TEST(FreeConditions, NodesWithOneBranchOrNone) {
  ZQQualifierStruct node = branches(1, bareField(1), bareField(2));
  free(node.u.branches.left);
  node.u.branches.left = nullptr;
  EXPECT_EQ(givenBack([&] { FreeZQQualifierStruct(&node, 0); }), 1);
  for (const uint32_t operation : {1U, 2U, 3U, 4U}) {
    ZQQualifierStruct empty = {};
    empty.operation = operation;
    FreeZQQualifierStruct(&empty, 0);
    EXPECT_TRUE(isZero(empty));
  }
}

TEST(FreeConditions, OtherOperationsOwnNothing) {
  for (const uint32_t operation : {0U, 5U, 6U, 0xFFFFFFFFU}) {
    ZQQualifierStruct node = {};
    memset(&node.u, 0x5A, sizeof node.u);
    node.operation = operation;
    EXPECT_EQ(givenBack([&] { FreeZQQualifierStruct(&node, 0); }), 0);
    EXPECT_EQ(node.operation, 0U);
  }
}

struct OperandCase {
  uint32_t tag;
  long blocks;
};

void PrintTo(const OperandCase& each, std::ostream* out) {
  *out << "tag " << each.tag;
}

class FreeOperand : public testing::TestWithParam<OperandCase> {};

TEST_P(FreeOperand, KeepsItsTag) {
  ZQFieldValueOrArithStruct operand = {};
  operand.tag = GetParam().tag;
  ZQQualifierStruct* kept = nullptr;
  switch (GetParam().tag) {
    case 2:
      operand.u.value = textValue(4, "x");
      break;
    case 3:
      operand.u.arithOp = newRecord(
          ZQArithOpStruct{1, valueOperand(textValue(4, "x")), valueOperand(textValue(4, "y"))});
      break;
    case 5:
      operand.u.valueSet = newList<ZQValueList>({textValue(4, "x"), textValue(4, "y")});
      break;
    case 6:
    case 54:
    case 55:
    case 56:
      operand.u.currencyField = newRecord(ZQCurrencyPartStruct{{1, 2, 3}});
      break;
    case 53: {
      ZQQueryValueStruct query = {};
      kept = newRecord(notQualifier(bareField(1)));
      query.queryQualification = kept;
      operand.u.queryValue = newRecord(query);
      break;
    }
    default:
      memset(&operand.u, 0x5A, sizeof operand.u);
      break;
  }
  EXPECT_EQ(givenBack([&] { FreeZQFieldValueOrArithStruct(&operand, 0); }), GetParam().blocks);
  EXPECT_EQ(operand.tag, GetParam().tag);
  EXPECT_EQ(givenBack([&] { FreeZQFieldValueOrArithStruct(&operand, 0); }), 0);
  if (kept != nullptr) {
    EXPECT_EQ(kept->operation, 0U) << "the top node stays, empty";
    free(kept);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Tags, FreeOperand,
    testing::Values(OperandCase{0, 0}, OperandCase{1, 0}, OperandCase{2, 1}, OperandCase{3, 3},
                    OperandCase{4, 0}, OperandCase{5, 3}, OperandCase{6, 1}, OperandCase{7, 0},
                    OperandCase{49, 0}, OperandCase{50, 0}, OperandCase{51, 0}, OperandCase{52, 0},
                    // The record and the node below the top one; the top one stays.
                    OperandCase{53, 2}, OperandCase{54, 1}, OperandCase{55, 1}, OperandCase{56, 1},
                    OperandCase{57, 0}, OperandCase{98, 0}, OperandCase{99, 0}, OperandCase{100, 0},
                    OperandCase{0xFFFFFFFF, 0}),
    [](const testing::TestParamInfo<OperandCase>& each) {
      return "Tag" + std::to_string(each.param.tag);
    });

TEST(FreeConditions, ANegationLeavesItsLeftOperandAlone) {
  ZQArithOpStruct negation = {6, valueOperand(textValue(4, "left")),
                              valueOperand(textValue(4, "right"))};
  char* left = negation.operandLeft.u.value.u.characterValue;
  EXPECT_EQ(givenBack([&] { FreeZQArithOpStruct(&negation, 0); }), 1);
  EXPECT_EQ(negation.operandLeft.u.value.u.characterValue, left);
  EXPECT_EQ(negation.operation, 6U);
  free(left);

  // However it is filled: nobody looks at it.
  memset(&negation.operandLeft, 0x5A, sizeof negation.operandLeft);
  negation.operandLeft.tag = 3;
  EXPECT_EQ(givenBack([&] { FreeZQArithOpStruct(&negation, 0); }), 0);
}

TEST(FreeConditions, ANegationInsideATreeLeavesItsLeftOperandAlone) {
  ZQArithOpStruct negation = {6, valueOperand(textValue(4, "left")),
                              valueOperand(textValue(4, "right"))};
  char* left = negation.operandLeft.u.value.u.characterValue;
  ZQFieldValueOrArithStruct operand = {};
  operand.tag = 3;
  operand.u.arithOp = newRecord(negation);
  ZQQualifierStruct node = relation(operand, fieldOperand(1, 3));
  EXPECT_EQ(givenBack([&] { FreeZQQualifierStruct(&node, 0); }), 3);
  free(left);
}

TEST(FreeConditions, AnAssignmentsNegationIsFreedOnBothSides) {
  ZQAssignStruct left = {};
  left.assignType = 3;
  left.u.process = newText("left");
  ZQAssignStruct right = {};
  right.assignType = 3;
  right.u.process = newText("right");
  ZQArithOpAssignStruct negation = {6, left, right};
  EXPECT_EQ(givenBack([&] { FreeZQArithOpAssignStruct(&negation, 0); }), 2);
}

TEST(FreeConditions, AQueryMayHaveNoCondition) {
  ZQFieldValueOrArithStruct operand = {};
  operand.tag = 53;
  operand.u.queryValue = newRecord(ZQQueryValueStruct{});
  EXPECT_EQ(givenBack([&] { FreeZQFieldValueOrArithStruct(&operand, 0); }), 1);
  EXPECT_EQ(operand.u.queryValue, nullptr);
}

// The tag of each union becomes 0 and its pointers null.
TEST(FreeTags, BecomeZero) {
  ZQAssignStruct assignment = {};
  assignment.assignType = 3;
  assignment.u.process = newText("p");
  FreeZQAssignStruct(&assignment, 0);
  EXPECT_TRUE(isZero(assignment));

  ZQFilterActionStruct filterAction = {};
  filterAction.action = 3;
  filterAction.u.logFile = newText("p");
  FreeZQFilterActionStruct(&filterAction, 0);
  EXPECT_TRUE(isZero(filterAction));

  ZQActiveLinkActionStruct linkAction = {};
  linkAction.action = 16;
  linkAction.u.wait.continueButtonLabel = newText("p");
  FreeZQActiveLinkActionStruct(&linkAction, 0);
  EXPECT_TRUE(isZero(linkAction));

  ZQCharMenuStruct menu = {};
  menu.menuType = 3;
  menu.u.menuFile.fileName = newText("p");
  FreeZQCharMenuStruct(&menu, 0);
  EXPECT_TRUE(isZero(menu));

  ZQCharMenuItemStruct item = {"label", 1, {newText("p")}};
  FreeZQCharMenuItemStruct(&item, 0);
  EXPECT_STREQ(item.itemLabel, "label");
  EXPECT_EQ(item.itemType, 0U);
  EXPECT_EQ(item.u.itemValue, nullptr);

  ZQCompoundSchema schema = {};
  schema.schemaType = 2;
  schema.u.joinSchema.joinQualifier = notQualifier(bareField(1));
  FreeZQCompoundSchema(&schema, 0);
  EXPECT_TRUE(isZero(schema));

  ZQFieldLimitStruct limit = {};
  limit.dataType = 4;
  limit.u.characterLimits.pattern = newText("p");
  FreeZQFieldLimitStruct(&limit, 0);
  EXPECT_TRUE(isZero(limit));

  ZQWorkflowConnectStruct connect = {1, newRecord(newList<ZQNameList>({NameCell{"form"}}))};
  FreeZQWorkflowConnectStruct(&connect, 0);
  EXPECT_EQ(connect.type, 0U);
  EXPECT_EQ(connect.formList, nullptr);

  ZQCOMValueStruct value = {newText("id"), 4, 2, {}};
  value.u.value = textValue(4, "x");
  FreeZQCOMValueStruct(&value, 0);
  EXPECT_EQ(value.transId, 4U);
  EXPECT_EQ(value.valueType, 0U);
  EXPECT_EQ(value.valueIdentifier, nullptr);
  EXPECT_TRUE(isZero(value.u));
}

TEST(FreeTags, OfAFieldOfAnotherFormAndOfAReferenceStay) {
  ZQAssignFieldStruct field = {};
  field.tag = 6;
  field.u.currencyField = newRecord(ZQCurrencyPartStruct{{1, 2, 3}});
  field.multipleMatchOption = 5;
  EXPECT_EQ(givenBack([&] { FreeZQAssignFieldStruct(&field, 0); }), 1);
  EXPECT_EQ(field.tag, 6U);
  EXPECT_EQ(field.u.currencyField, nullptr);
  EXPECT_EQ(field.multipleMatchOption, 5U);

  ZQReferenceStruct reference = {};
  reference.dataSource = 1;
  reference.u.external.referenceValue = textValue(4, "x");
  reference.u.external.accessList = newList<ZQInternalIdList>({4U});
  EXPECT_EQ(givenBack([&] { FreeZQReferenceStruct(&reference, 0); }), 2);
  EXPECT_EQ(reference.dataSource, 1U);
}

// A name that looks like a pointer and a list must not be taken for them.
TEST(FreeTags, DecideOverTheUnion) {
  ZQReferenceStruct reference = {};
  memset(&reference.u, 0x5A, sizeof reference.u);
  EXPECT_EQ(givenBack([&] { FreeZQReferenceStruct(&reference, 0); }), 0);

  for (const uint32_t type : {0U, 1U, 3U, 4U, 5U, 6U}) {
    ZQCompoundSchema schema = {};
    memset(&schema.u, 0x5A, sizeof schema.u);
    schema.schemaType = type;
    EXPECT_EQ(givenBack([&] { FreeZQCompoundSchema(&schema, 0); }), 0) << type;
  }
  for (const uint32_t type : {0U, 1U, 2U, 3U, 5U, 7U, 9U, 11U, 13U, 34U, 37U, 42U, 43U, 99U}) {
    ZQFieldLimitStruct limit = {};
    memset(&limit.u, 0x5A, sizeof limit.u);
    limit.dataType = type;
    EXPECT_EQ(givenBack([&] { FreeZQFieldLimitStruct(&limit, 0); }), 0) << type;
  }
  for (const uint32_t action : {0U, 8U, 9U, 10U, 12U}) {
    ZQFilterActionStruct record = {};
    memset(&record.u, 0x5A, sizeof record.u);
    record.action = action;
    EXPECT_EQ(givenBack([&] { FreeZQFilterActionStruct(&record, 0); }), 0) << action;
  }
  for (const uint32_t action : {0U, 11U, 12U, 13U, 14U, 17U, 18U}) {
    ZQActiveLinkActionStruct record = {};
    memset(&record.u, 0x5A, sizeof record.u);
    record.action = action;
    EXPECT_EQ(givenBack([&] { FreeZQActiveLinkActionStruct(&record, 0); }), 0) << action;
  }
  for (const uint32_t type : {0U, 6U, 7U}) {
    ZQCharMenuStruct menu = {};
    memset(&menu.u, 0x5A, sizeof menu.u);
    menu.menuType = type;
    EXPECT_EQ(givenBack([&] { FreeZQCharMenuStruct(&menu, 0); }), 0) << type;
  }
  for (const uint32_t type : {0U, 3U}) {
    ZQCharMenuItemStruct item = {};
    memset(&item.u, 0x5A, sizeof item.u);
    item.itemType = type;
    EXPECT_EQ(givenBack([&] { FreeZQCharMenuItemStruct(&item, 0); }), 0) << type;
  }
  for (const uint32_t type : {0U, 9U}) {
    ZQAssignStruct assignment = {};
    memset(&assignment.u, 0x5A, sizeof assignment.u);
    assignment.assignType = type;
    EXPECT_EQ(givenBack([&] { FreeZQAssignStruct(&assignment, 0); }), 0) << type;
  }
  for (const uint32_t type : {0U, 1U, 3U}) {
    ZQCOMValueStruct value = {};
    memset(&value.u, 0x5A, sizeof value.u);
    value.valueType = type;
    EXPECT_EQ(givenBack([&] { FreeZQCOMValueStruct(&value, 0); }), 0) << type;
  }
  ZQWorkflowConnectStruct connect = {2, reinterpret_cast<ZQNameList*>(uintptr_t{0x5A5A})};
  EXPECT_EQ(givenBack([&] { FreeZQWorkflowConnectStruct(&connect, 0); }), 0);
}

TEST(FreeTags, OfFullTextSettings) {
  struct Case {
    uint32_t tag;
    long blocks;
  };
  for (const Case& each : {Case{0, 0}, Case{1, 1}, Case{2, 2}, Case{3, 1}, Case{4, 1}, Case{5, 1},
                           Case{6, 1}, Case{7, 0}}) {
    ZQFullTextInfoStruct info = {};
    info.tag = each.tag;
    if (each.tag == 2) {
      info.u.valueList = newList<ZQValueList>({textValue(4, "x")});
    } else if (each.tag >= 1 && each.tag <= 6) {
      info.u.value = textValue(4, "x");
    } else {
      memset(&info.u, 0x5A, sizeof info.u);
    }
    ZQFullTextInfoList list = newList<ZQFullTextInfoList>({info});
    EXPECT_EQ(givenBack([&] { FreeZQFullTextInfoList(&list, 0); }), each.blocks + 1) << each.tag;
  }
}

TEST(FreeRecords, ASupportFileHasNoSizeAfterwards) {
  ZQSupportFileInfoStruct file = {1, 2, 3, 4, newBytes(4)};
  FreeZQSupportFileInfoStruct(&file, 0);
  EXPECT_EQ(file.fileType, 1U);
  EXPECT_EQ(file.fileId, 2U);
  EXPECT_EQ(file.timestamp, 3);
  EXPECT_EQ(file.fileSize, 0U);
  EXPECT_EQ(file.fileContent, nullptr);
}

TEST(FreeRecords, TheParentOfAComplexEntryIsNotOwned) {
  ZQComplexEntryCreate parent = {};
  ZQComplexEntryCreate child = {};
  child.parent = &parent;
  child.primaryKeyValue = textValue(4, "key");
  parent.children = newList<ZQComplexEntryCreateList>({child});
  EXPECT_EQ(givenBack([&] { FreeZQComplexEntryCreate(&parent, 0); }), 2);
  EXPECT_TRUE(isZero(parent.children));

  ZQComplexEntrySet setParent = {};
  ZQComplexEntrySet setChild = {};
  setChild.parent = &setParent;
  setParent.children = newList<ZQComplexEntrySetList>({setChild, setChild});
  EXPECT_EQ(givenBack([&] { FreeZQComplexEntrySet(&setParent, 0); }), 1);
}

TEST(FreeRecords, ChildListsOfARetrievedEntryThatAreEmptyOrAbsent) {
  ZQComplexEntryGetOut leaf = {};
  leaf.entryId = newList<ZQEntryIdList>({EntryIdCell{"1"}});
  ZQComplexEntryGetOut entry = {};
  entry.numChildLists = 3;
  entry.childLists =
      static_cast<ZQComplexEntryGetOutList*>(calloc(3, sizeof(ZQComplexEntryGetOutList)));
  entry.childLists[1] = newList<ZQComplexEntryGetOutList>({leaf});
  EXPECT_EQ(givenBack([&] { FreeZQComplexEntryGetOut(&entry, 0); }), 3);
  EXPECT_TRUE(isZero(entry));

  entry.numChildLists = 2;
  FreeZQComplexEntryGetOut(&entry, 0);
  EXPECT_TRUE(isZero(entry));
}

TEST(FreeRecords, AListOfMenus) {
  ZQCharMenuStruct menu = {};
  menu.menuType = 4;
  menu.u.menuSQL.sqlCommand = newText("select");
  ZQCharMenuStructList list = newList<ZQCharMenuStructList>({menu});
  EXPECT_EQ(givenBack([&] { FreeListZQCharMenuStruct(&list, 0); }), 2);
  EXPECT_TRUE(isZero(list));
}

}  // namespace
