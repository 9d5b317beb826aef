#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "fault/FailingAllocations.h"
#include "zqxml/zqxml.h"

namespace {

ZQCurrencyDetailStruct currency(const char* code, int32_t decimalPlaces) {
  ZQCurrencyDetailStruct item = {};
  memcpy(item.currencyCode, code, std::min(strlen(code), sizeof item.currencyCode));
  item.decimalPlaces = decimalPlaces;
  return item;
}

TEST(CurrencyLists, AreWritten) {
  ZQCurrencyDetailStruct items[] = {currency("USD", 2), currency("", -3), currency("JPY", 0)};
  const ZQCurrencyDetailList list = {3, items};
  char text[64] = "ab####";
  unsigned position = 2;
  EXPECT_EQ(ZQCurrencyDetailListToText(&list, &position, sizeof text, text), 0);
  EXPECT_STREQ(text, "ab3\\USD\\2\\\\-3\\JPY\\0\\");
  EXPECT_EQ(position, strlen(text));
  const ZQCurrencyDetailList none = {0, nullptr};
  EXPECT_EQ(ZQCurrencyDetailListToText(&none, &position, sizeof text, text), 0);
  EXPECT_STREQ(text, "ab3\\USD\\2\\\\-3\\JPY\\0\\0\\");
}

TEST(CurrencyLists, OfNothing) {
  char text[16] = "abcdef";
  unsigned position = 2;
  EXPECT_EQ(ZQCurrencyDetailListToText(nullptr, &position, sizeof text, text), 0);
  EXPECT_STREQ(text, "ab");
  EXPECT_EQ(position, 2U);
  const ZQCurrencyDetailList none = {0, nullptr};
  EXPECT_EQ(ZQCurrencyDetailListToText(&none, nullptr, sizeof text, text), -3);
  EXPECT_EQ(ZQCurrencyDetailListToText(&none, &position, sizeof text, nullptr), -3);
  position = 16;
  EXPECT_EQ(ZQCurrencyDetailListToText(nullptr, &position, sizeof text, text), 0);
  EXPECT_EQ(ZQCurrencyDetailListToText(&none, &position, sizeof text, text), -3);
}

TEST(CurrencyLists, ACodeWithoutAZeroIsReadToItsEnd) {
  ZQCurrencyDetailStruct item = currency("ABCD", 1);
  const ZQCurrencyDetailList list = {1, &item};
  char text[16];
  unsigned position = 0;
  EXPECT_EQ(ZQCurrencyDetailListToText(&list, &position, sizeof text, text), 0);
  EXPECT_STREQ(text, "1\\ABC\\1\\");
}

// In every size of target: pieces are written whole or not at all, and never beyond the end.
TEST(CurrencyLists, WithoutRoom) {
  ZQCurrencyDetailStruct items[] = {currency("USD", 2), currency("EUR", -2147483647 - 1),
                                    currency("", 0)};
  const ZQCurrencyDetailList list = {3, items};
  const std::string pieces[] = {"3\\", "USD\\2\\", "EUR\\-2147483648\\", "\\0\\"};
  for (unsigned start = 0; start < 3; ++start) {
    for (unsigned size = 0; size <= 48; ++size) {
      std::string expected(start, '+');
      int result = 0;
      for (const std::string& piece : pieces) {
        if (expected.size() + 5 >= size || expected.size() + piece.size() >= size) {
          result = -3;
          break;
        }
        expected += piece;
      }
      const std::unique_ptr<char[]> target(new char[size]);
      memset(target.get(), '+', size);
      unsigned position = start;
      EXPECT_EQ(ZQCurrencyDetailListToText(&list, &position, size, target.get()), result) << size;
      EXPECT_EQ(position, expected.size()) << size;
      if (size > expected.size()) {
        EXPECT_STREQ(target.get(), expected.c_str()) << size;
      }
    }
  }
}

class LoadedList {
 public:
  explicit LoadedList(const char* text) {
    memset(&list, 0xAA, sizeof list);
    result = LoadCurrencyDetailList(text, &list);
  }
  ~LoadedList() { free(list.items); }
  LoadedList(const LoadedList&) = delete;
  LoadedList& operator=(const LoadedList&) = delete;

  std::string text() const {
    std::string shown = std::to_string(result) + ":";
    for (uint32_t i = 0; i < list.numItems; ++i) {
      shown += std::string(" ") + list.items[i].currencyCode + "=" +
               std::to_string(list.items[i].decimalPlaces);
    }
    return shown;
  }
  int result;
  ZQCurrencyDetailList list;
};

TEST(CurrencyLists, AreRead) {
  const std::pair<const char*, const char*> kTexts[] = {
      {"2\\USD\\2\\JPY\\0\\", "0: USD=2 JPY=0"},
      {"2\\USD\\2\\JPY\\0", "0: USD=2 JPY=0"},
      {"1\\USD\\2\\JPY\\0\\", "0: USD=2"},
      {"1\\DOLLAR\\-2\\", "0: DOL=-2"},
      {"1\\\\3\\", "0: =3"},
      {"1\\A\\3x\\", "0: A=3"},
      {"1\\A\\x\\", "0: A=0"},
      {"1\\A\\4294967295\\", "0: A=-1"},
      {" 1x\\A\\3\\", "0: A=3"},
      {"3\\USD\\2\\", "0: USD=2 =0 =0"},
      {"2\\USD", "0: =0 =0"},
      {"0\\", "0:"},
      {"x\\USD\\2\\", "0:"},
      {"\\", "0:"},
      {"-1\\USD\\2\\", "300:"},
      {"2", "402:"},
      {"", "402:"},
      {nullptr, "402:"},
  };
  for (const int native : {0, 5}) {
    InitMbutilExt(native);
    for (const auto& [text, expected] : kTexts) {
      const LoadedList loaded(text);
      EXPECT_EQ(loaded.text(), expected) << text;
      EXPECT_EQ(loaded.list.items == nullptr, loaded.list.numItems == 0);
    }
  }
  InitMbutilExt(0);
  EXPECT_EQ(LoadCurrencyDetailList("1\\A\\1\\", nullptr), 0);
}

TEST(CurrencyLists, ABackslashInACharacterIsNone) {
  InitMbutilExt(5);
  EXPECT_EQ(LoadedList("1\\\x83\x5Cz\\2\\").text(), "0: \x83\x5Cz=2");
  EXPECT_EQ(LoadedList("1\\ab\x83\x5C\\2\\").text(), "0: ab=2");
  EXPECT_EQ(LoadedList("1\x83\x5C").text(), "402:");
  InitMbutilExt(0);
}

TEST(CurrencyLists, ExhaustedMemory) {
  fault::FailingAllocations armed(0);
  ZQCurrencyDetailList list = {7, nullptr};
  EXPECT_EQ(LoadCurrencyDetailList("1\\A\\1\\", &list), 300);
  EXPECT_EQ(list.numItems, 0U);
  EXPECT_EQ(list.items, nullptr);
}

// The new text, or "null".
std::string encoded(const char* document, int codeSet) {
  char stale[] = "stale";
  char* result = stale;
  SetEncodingForXMLDoc(document, codeSet, &result);
  const std::string text = result == nullptr ? "null" : result;
  free(result);
  return text;
}

TEST(DeclaredEncoding, IsReplaced) {
  const char* document =
      "<?xml version=\"1.0\" encoding=\"windows-1252\"?>                             \n<root>\n"
      "</root>\n";
  EXPECT_EQ(encoded(document, 65), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<root>\n</root>\n");
  const std::pair<int, const char*> kCharsets[] = {
      {1, "windows-1252"},
      {14, "windows-1250"},
      {15, "iso-8859-3"},
      {16, "windows-1257"},
      {17, "windows-1251"},
      {18, "iso-8859-6"},
      {19, "windows-1253"},
      {20, "iso-8859-8"},
      {21, "iso-8859-9"},
      {2, "iso-8859-15"},
      {0, "windows-1252"},
      {4, "euc-jp"},
      {5, "shift_jis"},
      {6, ""},
      {99, ""},
  };
  for (const auto& [codeSet, charset] : kCharsets) {
    EXPECT_EQ(encoded(document, codeSet), std::string("<?xml version=\"1.0\" encoding=\"") +
                                              charset + "\"?>\n<root>\n</root>\n");
  }
}

TEST(DeclaredEncoding, Forms) {
  const std::string tail = "\" encoding=\"a\"?>";
  const std::pair<std::string, const char*> kDocuments[] = {
      {"x <?xml version='1' encoding=\"a\" standalone=\"no\" ?>  <r/> ",
       "x <?xml version='1' encoding=\"utf-8\" standalone=\"no\" ?><r/> "},
      {"<?xml version='1' encoding=\"a\"?>", "<?xml version='1' encoding=\"utf-8\"?>"},
      {"<?xml version='1' encoding=\"a\"?>   ", "<?xml version='1' encoding=\"utf-8\"?>"},
      // Only blanks are left out.
      {"<?xml version='1' encoding=\"a\"?> \t <r/>",
       "<?xml version='1' encoding=\"utf-8\"?>\t <r/>"},
      // The next two double quotes count, wherever they are.
      {"<?xml version='1' encoding='a' standalone=\"no\"?><r/>",
       "<?xml version='1' encoding=\"utf-8\"?><r/>"},
      {"", "null"},
      {"<root/>", "null"},
      {"<?xml version='1'?>", "null"},
      {"<?xml encoding=\"a\" version='1'?>", "null"},
      {"<?xml version='1' encoding='a'?>", "null"},
      {"<?xml version='1' encoding=\"a'?>", "null"},
      {"<?xml version='1' encoding=\"a\"", "null"},
      {"<?XML VERSION='1' ENCODING=\"a\"?>", "null"},
  };
  for (const auto& [document, expected] : kDocuments) {
    EXPECT_EQ(encoded(document.c_str(), 65), expected) << document;
  }
}

TEST(DeclaredEncoding, HasToEndInTheFirst80Bytes) {
  for (int blanks = 0; blanks < 60; ++blanks) {
    const std::string head =
        "<?xml version='1'" + std::string(static_cast<size_t>(blanks) + 1, ' ') + "encoding=\"";
    const std::string document = head + "a\"?><r/>";
    const bool fits = head.size() + 4 <= 80;
    EXPECT_EQ(encoded(document.c_str(), 65), fits ? head + "utf-8\"?><r/>" : "null") << blanks;
  }
}

TEST(DeclaredEncoding, OfNothing) {
  EXPECT_EQ(encoded(nullptr, 65), "null");
  SetEncodingForXMLDoc("<?xml version='1' encoding=\"a\"?>", 65, nullptr);
}

TEST(DeclaredEncoding, ExhaustedMemory) {
  const long blocks = fault::liveBlocks();
  char* result = nullptr;
  {
    fault::FailingAllocations armed(0);
    SetEncodingForXMLDoc("<?xml version='1' encoding=\"a\"?>", 65, &result);
  }
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(fault::liveBlocks(), blocks);
}

}  // namespace
