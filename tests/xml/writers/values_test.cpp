#include "xml/writers/values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "fault/FailingAllocations.h"
#include "xml/DOMTree.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/Written.h"

namespace {

void expectValue(const ZQValueStruct& value, const std::string& content, bool localized = false) {
  SCOPED_TRACE(content);
  expectWritten([&](ElementSink& sink) { return writeValue(sink, &value, localized); },
                [&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
                  return CreateValueNode(document, parent, &value, localized ? 1 : 0);
                },
                content);
}

ZQValueStruct typed(uint32_t dataType) {
  ZQValueStruct value = {};
  value.dataType = dataType;
  return value;
}

ZQValueStruct number(uint32_t dataType, uint32_t word) {
  ZQValueStruct value = typed(dataType);
  value.u.unsignedLongValue = word;
  return value;
}

ZQValueStruct real(double number) {
  ZQValueStruct value = typed(3);
  value.u.realValue = number;
  return value;
}

ZQValueStruct text(uint32_t dataType, const char* content) {
  ZQValueStruct value = typed(dataType);
  value.u.characterValue = mutableText(content);
  return value;
}

TEST(ValueWriter, ANullValueHasNoText) {
  expectValue(typed(0), "<nullValue/>");
}

TEST(ValueWriter, NumbersByType) {
  struct Case {
    uint32_t dataType;
    const char* name;
    bool isSigned;
  };
  for (const Case& each :
       {Case{1, "keywordValue", false}, Case{2, "integerValue", true}, Case{6, "enumValue", false},
        Case{7, "timeValue", true}, Case{8, "maskValue", false}, Case{13, "dateValue", true},
        Case{14, "timeOfDayValue", true}, Case{40, "unsignedLongValue", false}}) {
    const std::string open = std::string("<") + each.name + ">";
    const std::string close = std::string("</") + each.name + ">";
    for (const uint32_t word : {0U, 1U, 4711U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
      const std::string digits =
          each.isSigned ? std::to_string(static_cast<int32_t>(word)) : std::to_string(word);
      expectValue(number(each.dataType, word), open + digits + close);
    }
  }
}

TEST(ValueWriter, RealsHaveSixDecimals) {
  expectValue(real(1.5), "<realValue>1.500000</realValue>");
  expectValue(real(0), "<realValue>0.000000</realValue>");
  expectValue(real(-0.0), "<realValue>-0.000000</realValue>");
  expectValue(real(-2.00000049), "<realValue>-2.000000</realValue>");
  expectValue(real(-2.0000006), "<realValue>-2.000001</realValue>");
}

TEST(ValueWriter, RealsPrintAsTheCLibraryDoes) {
  std::vector<double> numbers = {std::numeric_limits<double>::max(),
                                 -std::numeric_limits<double>::max(),
                                 std::numeric_limits<double>::min(),
                                 std::numeric_limits<double>::denorm_min(),
                                 std::numeric_limits<double>::infinity(),
                                 -std::numeric_limits<double>::infinity(),
                                 std::nan(""),
                                 0.5,
                                 0.0000005,
                                 0.0000015,
                                 2.5e-7,
                                 1e15,
                                 1e22,
                                 1e23,
                                 123456789.9999995};
  std::mt19937_64 random(20);
  for (int i = 0; i < 20000; ++i) {
    const uint64_t bits = random();
    double number = 0;
    memcpy(&number, &bits, sizeof number);
    numbers.push_back(number);
    numbers.push_back(
        std::ldexp(static_cast<double>(random() >> 11), -static_cast<int>(random() % 80)));
  }
  for (const double number : numbers) {
    char digits[400];
    snprintf(digits, sizeof digits, "%lf", number);
    const ZQValueStruct value = real(number);
    ASSERT_EQ(writtenText([&](ElementSink& sink) { return writeValue(sink, &value, false); }),
              laidOut("<root><realValue>" + std::string(digits) + "</realValue></root>"));
  }
}

TEST(ValueWriter, TextsStandAsTheyAre) {
  struct Case {
    uint32_t dataType;
    std::string name;
  };
  for (const Case& each :
       {Case{4, "characterValue"}, Case{5, "diaryValue"}, Case{10, "decimalValue"},
        Case{42, "viewValue"}, Case{43, "displayValue"}}) {
    const auto element = [&](const std::string& content) {
      return "<" + each.name + ">" + content + "</" + each.name + ">";
    };
    expectValue(text(each.dataType, "a"), element("a"));
    expectValue(text(each.dataType, " \t\n\r'"), element(" \t\n\r'"));
    expectValue(text(each.dataType, "<&>\"\x04\x1F"),
                element("&lt;&amp;&gt;&quot;&#xF8E3;&#xF8FE;"));
    expectValue(text(each.dataType,
                     "Gr\xC3\xBC\xC3\x9F"
                     "e"),
                element("Gr\xC3\xBC\xC3\x9F"
                        "e"));
    expectValue(text(each.dataType, ""), "<" + each.name + "/>");
    expectValue(text(each.dataType, nullptr), "<" + each.name + "/>");
  }
}

TEST(ValueWriter, OnlyTheNameOfACharacterValueIsLocalised) {
  expectValue(text(4, "a"), "<l10nCharacterValue>a</l10nCharacterValue>", true);
  expectValue(text(5, "a"), "<diaryValue>a</diaryValue>", true);
  expectValue(typed(0), "<nullValue/>", true);
}

ZQValueStruct bytesValue(ZQByteList* list) {
  ZQValueStruct value = typed(9);
  value.u.byteList = list;
  return value;
}

TEST(ValueWriter, ByteListsByType) {
  const char* const kTypes[] = {
      "userDefined", "windowsBitmap", "JPEG",          "TIFF",
      "TARGA",       "PCX",           "localizedFile", "authenticationString"};
  unsigned char bytes[] = {'M', 'a', 'n', 0xFF};
  for (uint32_t type = 0; type < 8; ++type) {
    ZQByteList list = {type, 3, bytes};
    expectValue(bytesValue(&list), std::string("<byteList type=\"") + kTypes[type] +
                                       "\"><bytes>TWFu\n</bytes></byteList>");
  }
  for (const uint32_t type : {8U, 0xFFFFFFFFU}) {
    ZQByteList list = {type, 4, bytes};
    expectValue(bytesValue(&list), "<byteList><bytes>TWFu/w==\n</bytes></byteList>");
  }
}

TEST(ValueWriter, BytesHaveLinesOf57) {
  unsigned char bytes[58] = {};
  ZQByteList list = {0, 58, bytes};
  expectValue(bytesValue(&list), "<byteList type=\"userDefined\"><bytes>" + std::string(76, 'A') +
                                     "\nAA==\n</bytes></byteList>");
}

TEST(ValueWriter, EmptyBytesHaveNoElement) {
  unsigned char byte = 1;
  ZQByteList none = {2, 0, &byte};
  expectValue(bytesValue(&none), "<byteList type=\"JPEG\"/>");
  ZQByteList null = {2, 5, nullptr};
  expectValue(bytesValue(&null), "<byteList type=\"JPEG\"/>");
  expectValue(bytesValue(nullptr), "<byteList/>");
}

ZQValueStruct attachmentValue(ZQAttachStruct* attachment) {
  ZQValueStruct value = typed(11);
  value.u.attachmentValue = attachment;
  return value;
}

TEST(ValueWriter, Attachments) {
  unsigned char bytes[] = {'M', 'a', 'n', 'y'};
  ZQAttachStruct attachment = {mutableText("a.txt"), 100, 3, {}};
  const std::string head =
      "<attachmentValue compressedSize=\"3\" "
      "originalSize=\"100\"><attachmentName>a.txt</attachmentName>";
  expectValue(attachmentValue(&attachment), head + "</attachmentValue>");
  attachment.location.locationType = 3;
  attachment.location.u.fileName = mutableText("/tmp/a");
  expectValue(attachmentValue(&attachment), head + "</attachmentValue>");
  attachment.location.locationType = 1;
  expectValue(attachmentValue(&attachment), head + "<fileName>/tmp/a</fileName></attachmentValue>");
  attachment.location.u.fileName = nullptr;
  expectValue(attachmentValue(&attachment), head + "<fileName/></attachmentValue>");
  attachment.location.locationType = 2;
  // The compressed size decides.
  for (const uint32_t bufferSize : {0U, 3U, 4U}) {
    attachment.location.u.buffer = {bufferSize, bytes};
    expectValue(attachmentValue(&attachment),
                head + "<attachmentData>TWFu\n</attachmentData></attachmentValue>");
  }
  attachment.location.u.buffer = {3, nullptr};
  expectValue(attachmentValue(&attachment), head + "<attachmentData/></attachmentValue>");
  expectValue(attachmentValue(nullptr), "<attachmentValue/>");
}

TEST(ValueWriter, AnAttachmentWithoutSizeHasNoText) {
  unsigned char bytes[] = {'M', 'a', 'n'};
  for (const int32_t size : {0, -1, INT32_MIN}) {
    ZQAttachStruct attachment = {nullptr, -1, size, {}};
    attachment.location.locationType = 2;
    attachment.location.u.buffer = {3, bytes};
    expectValue(attachmentValue(&attachment),
                "<attachmentValue compressedSize=\"" + std::to_string(size) +
                    "\" originalSize=\"-1\"><attachmentName/><attachmentData/></attachmentValue>");
  }
}

ZQValueStruct currencyValue(ZQCurrencyStruct* currency) {
  ZQValueStruct value = typed(12);
  value.u.currencyValue = currency;
  return value;
}

TEST(ValueWriter, CurrenciesAlwaysHaveThreeTexts) {
  ZQFuncCurrencyStruct functional = {mutableText("9"), "USD"};
  ZQCurrencyStruct currency = {mutableText("1.50"), "EUR", 1700000000, {1, &functional}};
  expectValue(currencyValue(&currency),
              "<currency><currencyValue>1.50</currencyValue><code>EUR</code>"
              "<conversionDate>1700000000</conversionDate></currency>");
  currency = {mutableText(""), "", -5, {}};
  expectValue(currencyValue(&currency),
              "<currency><currencyValue></currencyValue><code></code>"
              "<conversionDate>-5</conversionDate></currency>");
  currency.value = nullptr;
  memcpy(currency.currencyCode, "ABCD", 4);
  expectValue(currencyValue(&currency),
              "<currency><currencyValue></currencyValue><code>ABC</code>"
              "<conversionDate>-5</conversionDate></currency>");
  expectValue(currencyValue(nullptr), "<currency/>");
}

TEST(ValueWriter, PointsAreUnsigned) {
  ZQCoordStruct points[] = {{1, -1}, {INT32_MIN, INT32_MAX}, {0, 0}};
  ZQCoordList list = {3, points};
  ZQValueStruct value = typed(41);
  value.u.coordinateList = &list;
  const std::string content =
      "<coordinate><X>1</X><Y>4294967295</Y></coordinate>"
      "<coordinate><X>2147483648</X><Y>2147483647</Y></coordinate>"
      "<coordinate><X>0</X><Y>0</Y></coordinate>";
  expectValue(value, "<coordinateList>" + content + "</coordinateList>");
  expectRecord(writeCoordinates, CreateCoordListNode, &list, content);
  list.numItems = 0;
  expectValue(value, "<coordinateList/>");
  list = {3, nullptr};
  expectValue(value, "<coordinateList/>");
  value.u.coordinateList = nullptr;
  expectValue(value, "<coordinateList/>");
  expectRecord<ZQCoordList>(writeCoordinates, CreateCoordListNode, nullptr, "");
}

TEST(ValueWriter, UnknownTypesWriteNothing) {
  for (const uint32_t dataType : {15U, 31U, 33U, 37U, 39U, 44U, 0xFFFFFFFFU}) {
    expectValue(number(dataType, 1), "");
  }
}

TEST(ValueWriter, NullRecordsWriteNothing) {
  expectWritten([](ElementSink& sink) { return writeValue(sink, nullptr, false); },
                [](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
                  return CreateValueNode(document, parent, nullptr, 0);
                },
                "");
  expectRecord<ZQCOMValueStruct>(writeCOMValue, CreateCOMValueNode, nullptr, "");
}

TEST(ValueWriter, WithoutADocumentNothingIsBuilt) {
  const DOMTree tree("root");
  const ZQValueStruct value = typed(0);
  EXPECT_EQ(CreateValueNode(nullptr, tree.root(), &value, 0), 0);
  EXPECT_EQ(CreateValueNode(tree.get(), nullptr, &value, 0), 0);
  EXPECT_EQ(tree.root()->getFirstChild(), nullptr);
}

TEST(ValueWriter, ExceptionsOfTheTreePass) {
  const DOMTree tree("root");
  const DOMTree other("root");
  const ZQValueStruct value = typed(0);
  EXPECT_THROW(CreateValueNode(other.get(), tree.root(), &value, 0), xercesc::DOMException);
}

TEST(ValueWriter, AutomationValues) {
  ZQCOMValueStruct value = {};
  value.valueIdentifier = mutableText("id & co");
  value.transId = 0xFFFFFFFF;
  const std::string head = "<valueIdentifier>id &amp; co</valueIdentifier><transID>-1</transID>";
  expectRecord(writeCOMValue, CreateCOMValueNode, &value, head);
  value.valueType = 3;
  expectRecord(writeCOMValue, CreateCOMValueNode, &value, head);
  value.valueType = 1;
  value.u.fieldId = 536870912;
  expectRecord(writeCOMValue, CreateCOMValueNode, &value, head + "<fieldID>536870912</fieldID>");
  value.u.fieldId = 0x80000000;
  expectRecord(writeCOMValue, CreateCOMValueNode, &value, head + "<fieldID>-2147483648</fieldID>");
  value.valueType = 2;
  value.u.value = text(4, "a");
  expectRecord(writeCOMValue, CreateCOMValueNode, &value,
               head + "<value><characterValue>a</characterValue></value>");
  value.u.value = typed(99);
  value.valueIdentifier = nullptr;
  value.transId = 0;
  expectRecord(writeCOMValue, CreateCOMValueNode, &value,
               "<valueIdentifier/><transID>0</transID><value/>");
}

TEST(ValueWriter, FailingAllocations) {
  unsigned char bytes[] = {'M', 'a', 'n'};
  ZQByteList list = {0, 3, bytes};
  ZQAttachStruct attachment = {mutableText("a.txt"), 100, 3, {}};
  attachment.location.locationType = 2;
  attachment.location.u.buffer = {3, bytes};
  const std::string longText(100000, 'a');
  for (const ZQValueStruct& value :
       {bytesValue(&list), attachmentValue(&attachment), text(4, longText.c_str())}) {
    EXPECT_GT(
        expectFailuresGive300([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
          return CreateValueNode(document, parent, &value, 0);
        }),
        0);
  }
}

// Runs a writer of text with each allocation failing in turn, and returns the texts of the runs
// that gave 0 all the same.
std::vector<std::string> textsDespiteFailure(const Write& write) {
  std::vector<std::string> texts;
  fault::forEachFailure([&](auto arm) {
    bool failed = false;
    int result = 300;
    ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
    {
      TextSink sink(text, 0);
      const auto failing = arm();
      try {
        sink.open(tag_root);
        result = write(sink);
        sink.close();
      } catch (...) {
        result = 300;
      }
      failed = fault::FailingAllocations::happened();
    }
    if (failed && result == 0) {
      texts.emplace_back(static_cast<char*>(text));
    }
    return failed;
  });
  return texts;
}

TEST(ValueWriter, AFailedEncodingLeavesTheByteListWithoutBytesAndIsTheResult) {
  unsigned char bytes[] = {'M', 'a', 'n'};
  ZQByteList list = {0, 3, bytes};
  const ZQValueStruct value = bytesValue(&list);
  EXPECT_TRUE(textsDespiteFailure([&](ElementSink& sink) {
                return writeValue(sink, &value, false);
              }).empty());
}

TEST(ValueWriter, AFailedEncodingIsNoFailureOfAnAutomationValue) {
  unsigned char bytes[] = {'M', 'a', 'n'};
  ZQByteList list = {0, 3, bytes};
  ZQCOMValueStruct value = {};
  value.valueType = 2;
  value.u.value = bytesValue(&list);
  const std::vector<std::string> texts =
      textsDespiteFailure([&](ElementSink& sink) { return writeCOMValue(sink, &value); });
  ASSERT_FALSE(texts.empty());
  EXPECT_EQ(texts.front(), laidOut("<root><valueIdentifier/><transID>0</transID>"
                                   "<value><byteList type=\"userDefined\"/></value></root>"));
}

}  // namespace
