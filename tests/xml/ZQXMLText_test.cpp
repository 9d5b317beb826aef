#include "xml/ZQXMLText.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <memory>
#include <new>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"

namespace {

std::string toLocal(const std::u16string& text) {
  // Exactly as long as the text, so that a read beyond it is seen.
  const std::unique_ptr<char16_t[]> exact(new char16_t[text.size()]);
  text.copy(exact.get(), text.size());
  std::string result = "old";
  ZQXMLToLocal(exact.get(), text.size(), result);
  return result;
}

std::u16string unitsOf(uint32_t code) {
  if (code < 0x10000) {
    return {static_cast<char16_t>(code)};
  }
  return {static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)),
          static_cast<char16_t>(0xDC00 + (code & 0x3FF))};
}

bool isSurrogate(uint32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}

// The C library's conversion, as a second opinion.
std::string convertedByIconv(const std::u16string& text) {
  const iconv_t converter = iconv_open("UTF-8", "UTF-16LE");
  std::string result(text.size() * 4, '\0');
  char* in = const_cast<char*>(reinterpret_cast<const char*>(text.data()));
  size_t inLeft = text.size() * 2;
  char* out = result.data();
  size_t outLeft = result.size();
  EXPECT_NE(iconv(converter, &in, &inLeft, &out, &outLeft), static_cast<size_t>(-1));
  iconv_close(converter);
  result.resize(result.size() - outLeft);
  return result;
}

TEST(XMLText, EveryCharacterGoesToUtf8AndBack) {
  std::u16string all;
  for (uint32_t code = 1; code <= 0x10FFFF; ++code) {
    if (!isSurrogate(code)) {
      all += unitsOf(code);
    }
  }
  const std::string encoded = toLocal(all);
  EXPECT_TRUE(encoded == convertedByIconv(all));
  EXPECT_TRUE(ZQXMLFromLocal(encoded.c_str()) == all);
}

TEST(XMLText, ACharacterOfEachLength) {
  const struct {
    std::u16string units;
    std::string bytes;
  } cases[] = {
      {u"", ""},
      {u"A", "A"},
      {u"\u007f", "\x7F"},
      {u"\u0080", "\xC2\x80"},
      {u"\u00e9", "\xC3\xA9"},
      {u"\u07ff", "\xDF\xBF"},
      {u"\u0800", "\xE0\xA0\x80"},
      {u"\u20ac", "\xE2\x82\xAC"},
      {u"\uf8e1", "\xEF\xA3\xA1"},
      {u"\uffff", "\xEF\xBF\xBF"},
      {u"\U00010000", "\xF0\x90\x80\x80"},
      {u"\U0001F600", "\xF0\x9F\x98\x80"},
      {u"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
      {u"a\u00e9\u20ac\U0001F600z", "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(toLocal(row.units), row.bytes);
    EXPECT_EQ(ZQXMLToLocal(row.units.c_str()), row.bytes);
    EXPECT_EQ(ZQXMLFromLocal(row.bytes.c_str()), row.units);
    EXPECT_EQ(ZQXMLShortText(row.units.c_str()).get(), row.bytes);
  }
}

TEST(XMLText, HalfASurrogatePairBecomesTheReplacementCharacter) {
  const std::string replacement = "\xEF\xBF\xBD";
  const struct {
    std::u16string units;
    std::string bytes;
  } cases[] = {
      {{0xD83D}, replacement},
      {{0xDE00}, replacement},
      {{0xD83D, u'a'}, replacement + "a"},
      {{0xDE00, 0xD83D}, replacement + replacement},
      {{0xD83D, 0xD83D, 0xDE00}, replacement + "\xF0\x9F\x98\x80"},
      {{0xD83D, 0xDE00, 0xDE00}, "\xF0\x9F\x98\x80" + replacement},
      {{u'x', 0xDBFF}, "x" + replacement},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(toLocal(row.units), row.bytes);
  }
}

TEST(XMLText, NullIsTheEmptyText) {
  EXPECT_EQ(ZQXMLToLocal(static_cast<const XMLCh*>(nullptr)), "");
  EXPECT_EQ(ZQXMLFromLocal(nullptr), u"");
  EXPECT_STREQ(ZQXMLShortText(nullptr).get(), "");
}

TEST(XMLText, AZeroUnitIsAUnitLikeOthers) {
  EXPECT_EQ(toLocal(std::u16string(u"a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(toLocal(std::u16string(u"\u00e9\0b", 3)), std::string("\xC3\xA9\0b", 4));
}

TEST(XMLText, EveryLengthAtEveryOffset) {
  for (size_t length = 0; length <= 300; ++length) {
    for (size_t offset = 0; offset < 8; ++offset) {
      std::u16string units(offset, u'\u00e9');
      std::string bytes;
      for (size_t i = 0; i < length; ++i) {
        units += static_cast<char16_t>(u' ' + (i + offset) % 95);
        bytes += static_cast<char>(' ' + (i + offset) % 95);
      }
      std::string result;
      ZQXMLToLocal(units.data() + offset, length, result);
      ASSERT_EQ(result, bytes) << length << " " << offset;
      const std::string shifted = std::string(offset, '\x80') + bytes;
      ASSERT_EQ(ZQXMLFromLocal(shifted.c_str() + offset), units.substr(offset)) << length;
    }
  }
}

TEST(XMLText, OneOtherCharacterAtEveryPlaceOfEveryLength) {
  for (size_t length = 1; length <= 80; ++length) {
    for (size_t place = 0; place < length; ++place) {
      std::u16string units(length, u'x');
      units[place] = u'\u20ac';
      const std::string bytes =
          std::string(place, 'x') + "\xE2\x82\xAC" + std::string(length - place - 1, 'x');
      ASSERT_EQ(toLocal(units), bytes) << length << " " << place;
      ASSERT_EQ(ZQXMLFromLocal(bytes.c_str()), units) << length << " " << place;
    }
  }
}

TEST(XMLText, BytesThatAreNoCharacterBecomeTheReplacementCharacterEach) {
  const std::u16string bad = u"\ufffd";
  const struct {
    std::string bytes;
    std::u16string units;
  } cases[] = {
      {"\x80", bad},
      {"a\xFF"
       "b",
       u"a" + bad + u"b"},
      {"\xC3", bad},
      {"\xC3(", bad + u"("},
      {"\xC0\x80", bad + bad},
      {"\xC1\xBF", bad + bad},
      {"\xE2\x82", bad + bad},
      {"\xE0\x80\x80", bad + bad + bad},
      {"\xE0\x9F\xBF", bad + bad + bad},
      {"\xED\xA0\x80", bad + bad + bad},
      {"\xED\xBF\xBF", bad + bad + bad},
      {"\xF0\x9F\x98", bad + bad + bad},
      {"\xF0\x8F\xBF\xBF", bad + bad + bad + bad},
      {"\xF4\x90\x80\x80", bad + bad + bad + bad},
      {"\xF5\x80\x80\x80", bad + bad + bad + bad},
      {"\xC3\xC3\xA9", bad + u"\u00e9"},
      {"\xE2\x82\xE2\x82\xAC", bad + bad + u"\u20ac"},
  };
  for (const auto& row : cases) {
    // In a block of just this size.
    const std::unique_ptr<char[]> exact(new char[row.bytes.size() + 1]);
    row.bytes.copy(exact.get(), row.bytes.size());
    exact[row.bytes.size()] = '\0';
    EXPECT_EQ(ZQXMLFromLocal(exact.get()), row.units);
  }
}

TEST(XMLText, AShortTextHoldsWhatAMessageCanShow) {
  for (const size_t length : {size_t{0}, size_t{254}, size_t{255}, size_t{256}, size_t{100000}}) {
    const std::string shown = ZQXMLShortText(std::u16string(length, u'x').c_str()).get();
    EXPECT_EQ(shown.substr(0, 255), std::string(std::min(length, size_t{255}), 'x'));
  }
  const std::string wide = ZQXMLShortText(std::u16string(1000, u'\u20ac').c_str()).get();
  EXPECT_GE(wide.size(), 255U);
}

TEST(XMLText, WithoutMemoryTheConversionThrowsAndAShortTextDoesNot) {
  const std::u16string units(1000, u'\u00e9');
  const std::string bytes(1000, '\xE9');
  fault::forEachFailure([&](auto arm) {
    bool thrown = false;
    bool failed = false;
    {
      const auto failing = arm();
      try {
        std::string result;
        ZQXMLToLocal(units.data(), units.size(), result);
        ZQXMLFromLocal(bytes.c_str());
      } catch (const std::bad_alloc&) {
        thrown = true;
      }
      failed = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(thrown, failed);
    return failed;
  });
  const fault::FailingAllocations failing(0, fault::Mode::FromThere);
  const ZQXMLShortText shown(u"caf\u00e9");
  EXPECT_STREQ(shown.get(), "caf\xC3\xA9");
}

TEST(XMLText, ASteadyConversionOfAsciiAllocatesNothing) {
  const std::u16string units(500, u'x');
  std::string target;
  ZQXMLToLocal(units.data(), units.size(), target);
  const long before = fault::allocationCount();
  for (size_t length = 0; length <= 500; ++length) {
    ZQXMLToLocal(units.data(), length, target);
  }
  EXPECT_EQ(fault::allocationCount(), before);
}

}  // namespace
