// Typed values, lists of them, and values of automation calls.

#include <gtest/gtest.h>

#include <limits>

#include "xml/handlers/Arena.h"
#include "xml/handlers/ElementReaders.h"
#include "xml/handlers/ElementTable.h"

namespace {

class Values : public testing::Test {
 protected:
  ZQValueStruct textOf(uint32_t dataType, const std::string& text) {
    ZQValueStruct value = {};
    value.dataType = dataType;
    value.u.characterValue = arena.text(text);
    return value;
  }

  static ZQValueStruct signedOf(uint32_t dataType, int32_t number) {
    ZQValueStruct value = {};
    value.dataType = dataType;
    value.u.integerValue = number;
    return value;
  }

  static ZQValueStruct unsignedOf(uint32_t dataType, uint32_t number) {
    ZQValueStruct value = {};
    value.dataType = dataType;
    value.u.keywordValue = number;
    return value;
  }

  static ZQValueStruct realOf(double number) {
    ZQValueStruct value = {};
    value.dataType = 3;
    value.u.realValue = number;
    return value;
  }

  ZQValueStruct bytesOf(uint32_t byteType, const std::string& bytes) {
    ZQValueStruct value = {};
    value.dataType = 9;
    value.u.byteList = arena.make(ZQByteList{byteType, static_cast<uint32_t>(bytes.size()),
                                             bytes.empty() ? nullptr : arena.bytes(bytes)});
    return value;
  }

  ZQValueStruct pointsOf(std::initializer_list<ZQCoordStruct> points) {
    ZQValueStruct value = {};
    value.dataType = 41;
    value.u.coordinateList = arena.make<ZQCoordList>();
    if (points.size() > 0) {
      *value.u.coordinateList = arena.list<ZQCoordList>(points);
    }
    return value;
  }

  ZQValueStruct attachmentOf(const ZQAttachStruct& attachment) {
    ZQValueStruct value = {};
    value.dataType = 11;
    value.u.attachmentValue = arena.make(attachment);
    return value;
  }

  ZQValueStruct fileOf(const char* name, int32_t original, int32_t compressed, const char* file) {
    ZQAttachStruct attachment = {};
    attachment.attachmentName = arena.text(name);
    attachment.originalSize = original;
    attachment.compressedSize = compressed;
    attachment.location.locationType = 1;
    attachment.location.u.fileName = arena.text(file);
    return attachmentOf(attachment);
  }

  ZQValueStruct bufferOf(const char* name, int32_t original, int32_t compressed,
                         const std::string& data) {
    ZQAttachStruct attachment = {};
    attachment.attachmentName = arena.text(name);
    attachment.originalSize = original;
    attachment.compressedSize = compressed;
    attachment.location.locationType = 2;
    attachment.location.u.buffer = {static_cast<uint32_t>(data.size()),
                                    data.empty() ? nullptr : arena.bytes(data)};
    return attachmentOf(attachment);
  }

  ZQValueStruct currencyOf(const char* value, const char* code, int32_t date) {
    ZQValueStruct result = {};
    result.dataType = 12;
    auto* currency = arena.make<ZQCurrencyStruct>();
    currency->value = arena.text(value);
    setArray(currency->currencyCode, code);
    currency->conversionDate = date;
    result.u.currencyValue = currency;
    return result;
  }

  struct Case {
    std::string content;
    ZQValueStruct expected;
  };

  Arena arena;
  ValueReader reader;
};

TEST_F(Values, EachTypeInEachHost) {
  const Case cases[] = {
      {"", {}},
      {"<nullValue/>", {}},
      {"<keywordValue>3</keywordValue>", unsignedOf(1, 3)},
      {"<keywordValue>4294967295</keywordValue>", unsignedOf(1, 4294967295)},
      {"<keywordValue/>", unsignedOf(1, 0)},
      {"<integerValue>-7</integerValue>", signedOf(2, -7)},
      {"<integerValue>4294967295</integerValue>", signedOf(2, -1)},
      {"<integerValue>2147483648</integerValue>", signedOf(2, std::numeric_limits<int32_t>::min())},
      {"<integerValue> \t+12x</integerValue>", signedOf(2, 12)},
      {"<integerValue>none</integerValue>", signedOf(2, 0)},
      {"<integerValue>0x10</integerValue>", signedOf(2, 0)},
      {"<integerValue/>", signedOf(2, 0)},
      {"<realValue>1.500000</realValue>", realOf(1.5)},
      {"<realValue>-2.5e3x</realValue>", realOf(-2500)},
      {"<realValue>1,5</realValue>", realOf(1)},
      {"<realValue>none</realValue>", realOf(0)},
      {"<realValue/>", realOf(0)},
      {"<characterValue> a &lt;b&gt; </characterValue>", textOf(4, " a <b> ")},
      {"<characterValue/>", textOf(4, "")},
      {"<l10nCharacterValue>a</l10nCharacterValue>", textOf(4, "a")},
      {"<l10nCharacterValue/>", textOf(4, "")},
      {"<diaryValue>d</diaryValue>", textOf(5, "d")},
      {"<diaryValue/>", textOf(5, "")},
      {"<enumValue>-1</enumValue>", unsignedOf(6, 4294967295)},
      {"<enumValue>2</enumValue>", unsignedOf(6, 2)},
      {"<timeValue>-86400</timeValue>", signedOf(7, -86400)},
      {"<timeValue>2001-02-03T04:05:06</timeValue>", signedOf(7, 2001)},
      {"<maskValue>4294967294</maskValue>", unsignedOf(8, 4294967294)},
      {"<byteList type=\"JPEG\"><bytes>QUI=\n</bytes></byteList>", bytesOf(2, "AB")},
      {"<byteList type=\"userDefined\"/>", bytesOf(0, "")},
      {"<byteList type=\"windowsBitmap\"><bytes/></byteList>", bytesOf(1, "")},
      {"<byteList type=\"TIFF\"/>", bytesOf(3, "")},
      {"<byteList type=\"TARGA\"/>", bytesOf(4, "")},
      {"<byteList type=\"PCX\"/>", bytesOf(5, "")},
      {"<byteList type=\"localizedFile\"/>", bytesOf(6, "")},
      {"<byteList type=\"authenticationString\"/>", bytesOf(7, "")},
      {"<decimalValue>1.50</decimalValue>", textOf(10, "1.50")},
      {"<decimalValue/>", textOf(10, "")},
      {"<dateValue>2451911</dateValue>", signedOf(13, 2451911)},
      {"<dateValue>-1</dateValue>", signedOf(13, -1)},
      {"<timeOfDayValue>3600</timeOfDayValue>", signedOf(14, 3600)},
      {"<unsignedLongValue>4294967295</unsignedLongValue>", unsignedOf(40, 4294967295)},
      {"<coordinateList/>", pointsOf({})},
      {"<coordinateList><coordinate><X>1</X><Y>4294967295</Y></coordinate>"
       "<coordinate><Y>-3</Y></coordinate><coordinate/></coordinateList>",
       pointsOf({{1, -1}, {0, -3}, {0, 0}})},
      {"<viewValue>v</viewValue>", textOf(42, "v")},
      {"<viewValue/>", textOf(42, "")},
      {"<displayValue>v</displayValue>", textOf(43, "v")},
      {"<displayValue/>", textOf(43, "")},
      {"<attachmentValue compressedSize=\"3\" originalSize=\"9\"><attachmentName>a.txt"
       "</attachmentName><fileName>/tmp/a</fileName></attachmentValue>",
       fileOf("a.txt", 9, 3, "/tmp/a")},
      {"<attachmentValue compressedSize=\"3\" originalSize=\"9\"><attachmentName>a.txt"
       "</attachmentName><attachmentData>QUI=\n</attachmentData></attachmentValue>",
       bufferOf("a.txt", 9, 3, "AB")},
      {"<attachmentValue><fileName/></attachmentValue>", fileOf("", 0, 0, "")},
      {"<attachmentValue><attachmentData/></attachmentValue>", bufferOf("", 0, 0, "")},
      {"<attachmentValue originalSize=\"4294967295\" compressedSize=\"x\"><location><fileName>f"
       "</fileName></location></attachmentValue>",
       fileOf("", -1, 0, "f")},
      {"<currency><currencyValue>1.50</currencyValue><code>EUR</code><conversionDate>-5"
       "</conversionDate></currency>",
       currencyOf("1.50", "EUR", -5)},
      {"<currency><currencyValue></currencyValue><code></code><conversionDate></conversionDate>"
       "</currency>",
       currencyOf("", "", 0)},
      {"<currency/>", currencyOf("", "", 0)},
      {"<currency><code>EURO</code><conversionDate>4294967295</conversionDate></currency>",
       currencyOf("", "EUR", -1)},
  };
  for (const Case& each : cases) {
    for (const std::string host : {"value", "referenceValue", "defaultValue"}) {
      const std::string document = "<" + host + ">" + each.content + "</" + host + ">";
      expectRead(reader, document, each.expected);
      expectRead(reader, spacedOut(document), each.expected);
      expectRead(reader, inPieces(document), each.expected);
    }
  }
}

TEST_F(Values, ChildrenOfAnAttachmentInAnyOrder) {
  ElementTable<ValueReader> table(
      reader, "<value><attachmentValue compressedSize=\"3\" originalSize=\"9\">",
      "</attachmentValue></value>",
      {{"<attachmentName>a.txt</attachmentName>",
        [&](ZQValueStruct& v) {
          arena.edit(v.u.attachmentValue).attachmentName = arena.text("a.txt");
        },
        [&](ZQValueStruct& v) {
          arena.edit(v.u.attachmentValue).attachmentName = arena.text("a.txta.txt");
        }},
       {"<fileName>f</fileName>",
        [&](ZQValueStruct& v) {
          arena.edit(v.u.attachmentValue).location.u.fileName = arena.text("f");
        },
        [&](ZQValueStruct& v) {
          arena.edit(v.u.attachmentValue).location.u.fileName = arena.text("ff");
        }}},
      fileOf("", 9, 3, ""));
  table.expectEveryOrder();
  table.expectRepeated();
  table.expectPieces();
}

TEST_F(Values, ChildrenOfACurrencyInAnyOrder) {
  const auto code = [&](const char* text) {
    return [this, text](ZQValueStruct& v) {
      setArray(arena.edit(v.u.currencyValue).currencyCode, text);
    };
  };
  const auto value = [&](const char* text) {
    return
        [this, text](ZQValueStruct& v) { arena.edit(v.u.currencyValue).value = arena.text(text); };
  };
  const auto date = [&](int32_t number) {
    return
        [this, number](ZQValueStruct& v) { arena.edit(v.u.currencyValue).conversionDate = number; };
  };
  ElementTable<ValueReader>(reader, "<value><currency>", "</currency></value>",
                            {{"<currencyValue>1.5</currencyValue>", value("1.5"), value("1.51.5")},
                             {"<code>EU</code>", code("EU"), code("EUE")},
                             {"<conversionDate>12</conversionDate>", date(12), date(1212)}},
                            currencyOf("", "", 0))
      .expectAll();
}

TEST_F(Values, ThePointOfACoordinateEmptiesItsTexts) {
  const auto coordinate = [](const std::string& content) {
    return "<coordinate>" + content + "</coordinate>";
  };
  expectRead(reader,
             "<value><coordinateList>" + coordinate("<Y>2</Y><X>1</X>") + coordinate("<X>3</X>") +
                 coordinate("<X>4</X><Y>5</Y><X>6</X>") + "</coordinateList></value>",
             pointsOf({{1, 2}, {3, 0}, {46, 5}}));
  // Lists of one host join.
  expectRead(reader,
             "<value><coordinateList>" + coordinate("<X>1</X>") +
                 "</coordinateList><coordinateList>" + coordinate("<X>2</X>") +
                 "</coordinateList></value>",
             pointsOf({{1, 0}, {2, 0}}));
  // Points that no value has taken are not those of the next.
  expectRead(reader, "<value>" + coordinate("<X>1</X>") + "<nullValue/></value>", {});
  expectRead(reader, "<value><coordinateList/></value>", pointsOf({}));
}

TEST_F(Values, TheLastChildDecidesAndTextsOfOneKindJoin) {
  const Case cases[] = {
      {"<integerValue>1</integerValue><integerValue>2</integerValue>", signedOf(2, 12)},
      {"<integerValue>1</integerValue><characterValue>a</characterValue>", textOf(4, "a")},
      {"<characterValue>a</characterValue><integerValue>1</integerValue>", signedOf(2, 1)},
      {"<characterValue>a</characterValue><l10nCharacterValue>b</l10nCharacterValue>",
       textOf(4, "ab")},
      {"<characterValue>a</characterValue><diaryValue>b</diaryValue>", textOf(5, "b")},
      {"<integerValue>5</integerValue><nullValue/>", {}},
      {"<nullValue/><integerValue>5</integerValue>", signedOf(2, 5)},
      {"<enumValue>1</enumValue><maskValue>2</maskValue><timeValue>3</timeValue>", signedOf(7, 3)},
      {"<byteList type=\"JPEG\"><bytes>QQ==</bytes></byteList><byteList type=\"TIFF\"/>",
       bytesOf(3, "")},
      {"<byteList type=\"JPEG\"><bytes>QQ==</bytes></byteList><viewValue>v</viewValue>",
       textOf(42, "v")},
      {"<attachmentValue originalSize=\"1\" compressedSize=\"2\"><fileName>f</fileName>"
       "</attachmentValue><attachmentValue originalSize=\"3\"><fileName>g</fileName>"
       "</attachmentValue>",
       fileOf("", 3, 2, "fg")},
      {"<attachmentValue><fileName>f</fileName><attachmentData>QUI=</attachmentData>"
       "</attachmentValue>",
       bufferOf("", 0, 0, "AB")},
      {"<attachmentValue><attachmentData>QUI=</attachmentData><fileName>f</fileName>"
       "</attachmentValue>",
       fileOf("", 0, 0, "f")},
      {"<currency><code>EUR</code></currency><coordinateList/>", pointsOf({})},
  };
  for (const Case& each : cases) {
    const std::string document = "<value>" + each.content + "</value>";
    expectRead(reader, document, each.expected);
    expectRead(reader, spacedOut(document), each.expected);
    expectRead(reader, inPieces(document), each.expected);
  }
}

TEST_F(Values, NothingIsLeftOfTheValueBefore) {
  expectRead(reader, "<value><characterValue>a</characterValue></value>", textOf(4, "a"));
  expectRead(reader, "<value><characterValue>b</characterValue></value>", textOf(4, "b"));
  expectRead(reader,
             "<value><attachmentValue originalSize=\"1\" compressedSize=\"2\"><attachmentName>n"
             "</attachmentName><fileName>f</fileName></attachmentValue></value>",
             fileOf("n", 1, 2, "f"));
  expectRead(reader, "<value><attachmentValue><fileName>g</fileName></attachmentValue></value>",
             fileOf("", 0, 0, "g"));
}

TEST_F(Values, TheKindOfLocationCarriesOverWithinADocument) {
  ValueListReader listReader;
  const auto attachment = [](const std::string& content) {
    return "<value><attachmentValue>" + content + "</attachmentValue></value>";
  };
  // An attachment without either is of kind 0 and has an empty buffer, until there was a kind.
  EXPECT_EQ(listReader.read("<valueList>" + attachment("") + "</valueList>").number, 0);
  const ZQLocStruct& none = listReader.record().items[0].u.attachmentValue->location;
  EXPECT_EQ(none.locationType, 0U);
  EXPECT_EQ(none.u.buffer.bufferSize, 0U);
  EXPECT_EQ(none.u.buffer.bufferData, nullptr);
  expectRead(listReader,
             "<valueList>" + attachment("<fileName>f</fileName>") + attachment("") +
                 attachment("<attachmentData>QQ==</attachmentData>") + attachment("") +
                 "</valueList>",
             arena.list<ZQValueList>({fileOf("", 0, 0, "f"), fileOf("", 0, 0, ""),
                                      bufferOf("", 0, 0, "A"), bufferOf("", 0, 0, "")}));
}

TEST_F(Values, TextOutsideTheElementsOfTextsIsDropped) {
  expectRead(reader,
             "<value>1<attachmentValue>2<location>3<fileName>f</fileName>4</location>5"
             "<attachmentName>n</attachmentName>6</attachmentValue>7</value>",
             fileOf("n", 0, 0, "f"));
  expectRead(reader, "<value>1<byteList type=\"PCX\">2<bytes>QQ==</bytes>3</byteList>4</value>",
             bytesOf(5, "A"));
  expectRead(reader,
             "<value><coordinateList>1<coordinate>2<X>3</X>4<Y>5</Y>6</coordinate>7"
             "</coordinateList></value>",
             pointsOf({{3, 5}}));
  expectRead(reader, "<value><currency>1<code>EUR</code>2</currency>3</value>",
             currencyOf("", "EUR", 0));
  expectRead(reader, "<value><nullValue>1</nullValue></value>", {});
  // Text behind an element within a text belongs to none.
  expectRead(reader, "<value><integerValue>1<nullValue/>2</integerValue></value>", signedOf(2, 1));
}

TEST_F(Values, RefusedAttributesAndWords) {
  expectRefused(reader, "<value><byteList><bytes>QQ==</bytes></byteList></value>@", 8943);
  expectRefused(reader, "<value><byteList type=\"jpeg\"/></value>@", 8943);
  expectRefused(reader, "<value><byteList type=\"\"/></value>@", 8943);
  expectRefused(reader, "<value><byteList type=\"JPEG\" bytes=\"\">@</byteList></value>", 8942,
                "bytes");
  expectRefused(reader, "<value><byteList Type=\"JPEG\">@</byteList></value>", 8942, "Type");
  expectRefused(reader, "<value><attachmentValue size=\"1\">@</attachmentValue></value>", 8942,
                "size");
  expectRefused(reader,
                "<value><attachmentValue originalSize=\"1\" type=\"1\">@</attachmentValue></value>",
                8942, "type");
  // The type of the list before doesn't serve.
  expectRefused(reader, "<value><byteList type=\"JPEG\"/><byteList/></value>@", 8943);
  // One that another child has replaced isn't looked at.
  expectRead(reader, "<value><byteList/><nullValue/></value>", {});
}

TEST_F(Values, AHostWithinAHostEndsTheHandler) {
  for (const std::string inner : {"value", "referenceValue", "defaultValue"}) {
    expectRefused(
        reader, "<value><characterValue>a</characterValue><" + inner + "></" + inner + "></value>@",
        8941, "value");
  }
}

TEST_F(Values, ARefusedListOfBytesLeavesARecordThatCanBeFreed) {
  const Reading reading = reader.read("<value><byteList/></value>");
  EXPECT_EQ(reading.number, 8943);
  EXPECT_EQ(reader.record().dataType, 9U);
  ASSERT_NE(reader.record().u.byteList, nullptr);
  EXPECT_EQ(reader.record().u.byteList->bytes, nullptr);
}

TEST_F(Values, ListsKeepTheirOrder) {
  ValueListReader listReader;
  expectRead(listReader, "<valueList/>", {});
  expectRead(listReader, "<valueList>text</valueList>", {});
  const std::string document =
      "<valueList><value><integerValue>1</integerValue></value><value/>"
      "<value><characterValue>a</characterValue></value></valueList>";
  const ZQValueList expected = arena.list<ZQValueList>({signedOf(2, 1), {}, textOf(4, "a")});
  expectRead(listReader, document, expected);
  expectRead(listReader, spacedOut(document), expected);
  expectRead(listReader, inPieces(document), expected);
  expectRead(listReader, "<valueList/>", {});
  expectRefused(listReader, "<valueList><referenceValue>@</referenceValue></valueList>", 8941,
                "referenceValue");
  expectRefused(listReader, "<valueList><value><value/></value>@</valueList>", 8941, "value");
  expectRefused(listReader, "<valueList><valueList/></valueList>@", 8941, "valueList");
  std::string many = "<valueList>";
  for (int i = 0; i < 200; ++i) {
    many += "<value><characterValue>" + std::to_string(i) + "</characterValue></value>";
  }
  EXPECT_EQ(listReader.read(many + "</valueList>").number, 0);
  ASSERT_EQ(listReader.record().numItems, 200U);
  for (uint32_t i = 0; i < 200; ++i) {
    EXPECT_EQ(listReader.record().items[i].u.characterValue, std::to_string(i));
  }
}

class COMValues : public Values {
 protected:
  COMValueReader comReader;
};

TEST_F(COMValues, ChildrenInAnyOrder) {
  using Effect = Child<ZQCOMValueStruct>::Effect;
  const auto identifier = [&](const char* text) -> Effect {
    return [this, text](ZQCOMValueStruct& v) { v.valueIdentifier = arena.text(text); };
  };
  const auto transaction = [](uint32_t id) -> Effect {
    return [id](ZQCOMValueStruct& v) { v.transId = id; };
  };
  const auto field = [](uint32_t id) -> Effect {
    return [id](ZQCOMValueStruct& v) {
      v.valueType = 1;
      v.u.fieldId = id;
    };
  };
  const auto value = [&](const ZQValueStruct& held) -> Effect {
    return [held](ZQCOMValueStruct& v) {
      v.valueType = 2;
      v.u.value = held;
    };
  };
  for (const std::string host : {"parameterValue", "methodReturnValue"}) {
    const std::string start = "<" + host + ">";
    const std::string end = "</" + host + ">";
    ElementTable<COMValueReader>(
        comReader, start, end,
        {{"<valueIdentifier>a</valueIdentifier>", identifier("a"), identifier("aa")},
         {"<transID>7</transID>", transaction(7), transaction(77)},
         {"<fieldID>-1</fieldID>", field(4294967295), field(4294967295)}})
        .expectAll();
    ElementTable<COMValueReader>(
        comReader, start, end,
        {{"<transID>4294967295</transID>", transaction(4294967295)},
         {"<value><characterValue>x</characterValue></value>", value(textOf(4, "x"))}})
        .expectEveryOrder();
    expectRead(comReader, start + end, {});
    // Of the two the one that begins last counts.
    ZQCOMValueStruct expected = {};
    value(signedOf(2, 5))(expected);
    const std::string valueElement = "<value><integerValue>5</integerValue></value>";
    expectRead(comReader, start + "<fieldID>1</fieldID>" + valueElement + end, expected);
    expectRead(comReader, start + "<fieldID>1" + valueElement + "2</fieldID>" + end, expected);
    value(textOf(4, "x"))(expected);
    expectRead(comReader,
               start + valueElement + "<value><characterValue>x</characterValue></value>" + end,
               expected);
    expected = {};
    field(1)(expected);
    expectRead(
        comReader,
        start + "<value><characterValue>x</characterValue></value><fieldID>1</fieldID>" + end,
        expected);
    field(0)(expected);
    expectRead(comReader,
               start + "<value><characterValue>x</characterValue></value><fieldID/>" + end,
               expected);
  }
}

}  // namespace
