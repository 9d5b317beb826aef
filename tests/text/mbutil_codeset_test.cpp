#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <map>
#include <string>

#include "text/mbutil_codeset.h"
#include "zqxml/zqxml.h"

namespace {

std::string charsetOf(int codeSet) {
  char charset[ZQ_CHARSET_SIZE];
  memset(charset, '#', sizeof charset);
  SetCharset(charset, codeSet);
  return charset;
}

std::string documentCharsetOf(int codeSet) {
  char charset[ZQ_CHARSET_SIZE];
  memset(charset, '#', sizeof charset);
  setDocumentCharset(charset, codeSet);
  return charset;
}

std::string codePageOf(const char* locale) {
  char page[ZQ_CODE_PAGE_SIZE];
  memset(page, '#', sizeof page);
  EXPECT_EQ(SetCodePage(locale, page), page);
  return page;
}

struct ConverterRow {
  const char* converter;
  const char* charset;
  int codeSet;
};

constexpr ConverterRow kConverterRows[] = {
    {"LATIN-1", "iso-8859-1", 1},     {"ibm-819", "iso-8859-1", 1},
    {"ibm-912", "iso-8859-2", 14},    {"ibm-913", "iso-8859-3", 15},
    {"ibm-914", "iso-8859-4", 16},    {"ibm-915", "iso-8859-5", 17},
    {"ibm-916", "iso-8859-8", 20},    {"ibm-920", "iso-8859-9", 21},
    {"ibm-923", "iso-8859-15", 2},    {"ibm-943", "shift_jis", 5},
    {"ibm-949", "euc-kr", 11},        {"ibm-964", "euc-tw", 10},
    {"ibm-970", "euc-kr", 13},        {"ibm-1089", "iso-8859-6", 18},
    {"ibm-1162", "windows-874", 40},  {"ibm-1363", "cp949", 12},
    {"ibm-1370", "big5", 9},          {"ibm-1383", "euc-cn", 8},
    {"ibm-1386", "gb2312", 7},        {"ibm-4909", "iso-8859-7", 19},
    {"ibm-5346", "windows-1250", 23}, {"ibm-5347", "windows-1251", 24},
    {"ibm-5348", "windows-1252", 0},  {"ibm-5349", "windows-1253", 25},
    {"ibm-5350", "windows-1254", 26}, {"ibm-5351", "windows-1255", 27},
    {"ibm-5352", "windows-1256", 28}, {"ibm-5353", "windows-1257", 29},
    {"ibm-5354", "windows-1258", 30}, {"ibm-33722", "euc-jp", 4},
    {"ISO-2022", "iso-2022-jp", 3},   {"ISO-2022", "iso-2022-cn", 41},
    {"ISO-2022", "iso-2022-kr", 42},  {"UTF8", "utf-8", 65},
    {"UTF16", "utf-16", 64},
};

TEST(Charsets, TheTable) {
  static_assert(std::size(kConverterRows) == 35);
  static_assert(sizeof(ZQConvToCharset) == 36);
  int place = 0;
  for (const ConverterRow& row : kConverterRows) {
    EXPECT_STREQ(_ConvToCharsetTable[place].converter, row.converter);
    EXPECT_STREQ(_ConvToCharsetTable[place].charset, row.charset);
    EXPECT_EQ(_ConvToCharsetTable[place].codeSet, row.codeSet);
    ++place;
  }
  EXPECT_STREQ(_ConvToCharsetTable[place].converter, "");
  EXPECT_STREQ(_ConvToCharsetTable[place].charset, "");
}

TEST(Charsets, TheFirstRowOfACodeSetCounts) {
  std::map<int, std::string> expected;
  for (const ConverterRow& row : kConverterRows) {
    expected.emplace(row.codeSet, row.charset);
  }
  EXPECT_EQ(expected[1], "iso-8859-1");
  for (int codeSet = -1; codeSet <= 100; ++codeSet) {
    EXPECT_EQ(charsetOf(codeSet), expected[codeSet]) << codeSet;
  }
  EXPECT_EQ(charsetOf(6), "");
  EXPECT_EQ(charsetOf(22), "");
  SetCharset(nullptr, 1);
}

TEST(Charsets, DocumentsDeclareTheCodePageOfWindows) {
  const std::map<int, std::string> replaced = {
      {1, "windows-1252"},  {14, "windows-1250"}, {16, "windows-1257"},
      {17, "windows-1251"}, {19, "windows-1253"},
  };
  for (int codeSet = -1; codeSet <= 100; ++codeSet) {
    const auto row = replaced.find(codeSet);
    EXPECT_EQ(documentCharsetOf(codeSet), row == replaced.end() ? charsetOf(codeSet) : row->second);
  }
  EXPECT_EQ(documentCharsetOf(2), "iso-8859-15");
  EXPECT_EQ(documentCharsetOf(21), "iso-8859-9");
}

TEST(CodeSets, OfCodePageNames) {
  const std::pair<const char*, int> kRows[] = {
      {nullptr, 0},
      {"", 0},
      {"WESTERN", 0},
      {"EUC_WESTERN", 0},
      {"EUC_H", 10},
      {"EUC_TW", 10},
      {"EUC_C", 8},
      {"EUC_ZH", 8},
      {"EUC_K", 13},
      {"EUC_J", 4},
      {"EUC", 4},
      {"EUC_X", 4},
      {"SJIS", 5},
      {"JIS", 3},
      {"GB", 7},
      {"GB2312", 7},
      {"GB_BIG5", 7},
      {"BIG5", 9},
      {"KSC_5601_87", 11},
      {"KSC_5601_92", 12},
      {"1250", 23},
      {"1251", 24},
      {"1252", 0},
      {"1253", 25},
      {"1254", 26},
      {"1255", 27},
      {"1256", 28},
      {"1257", 29},
      {"1258", 30},
      {"8859_1", 0},
      {"8859_2", 14},
      {"8859_3", 15},
      {"8859_4", 16},
      {"8859_5", 17},
      {"8859_6", 18},
      {"8859_7", 19},
      {"8859_8", 20},
      {"8859_9", 21},
      {"8859_10", 22},
      {"8859_15", 0},
      {"UTF8", 0},
      {"sjis", 0},
      {"x 1251 8859_2", 24},
      {"SJIS_EUC", 4},
      {"iso-8859-2", 0},
      {"EUC_K_EUC_H", 10},
  };
  for (const auto& [name, codeSet] : kRows) {
    EXPECT_EQ(mbGetCodeSet(name), codeSet) << name;
  }
}

TEST(CodeSets, OfMimeCharsets) {
  const std::pair<const char*, int> kRows[] = {
      {nullptr, 0},           {"", 0},
      {"us-ascii", 0},        {"iso-2022-jp", 3},
      {"ISO-2022-JP", 3},     {"iso-2022-cn", 7},
      {"iso-2022-cn-gb", 7},  {"iso-2022-cn-ext", 7},
      {"iso-2022-cn-bg5", 9}, {"iso-2022-kr", 12},
      {"cp-1250", 23},        {"cp-1251", 24},
      {"cp-1252", 0},         {"cp-1253", 25},
      {"cp-1254", 26},        {"cp-1255", 27},
      {"cp-1256", 28},        {"cp-1257", 29},
      {"cp-1258", 30},        {"iso-8859-1", 0},
      {"iso-8859-2", 14},     {"iso-8859-3", 15},
      {"iso-8859-4", 16},     {"iso-8859-5", 17},
      {"iso-8859-6", 18},     {"iso-8859-7", 19},
      {"iso-8859-8", 20},     {"Iso-8859-9", 21},
      {"iso-8859-10", 22},    {"iso-8859-15", 0},
      {"windows-1250", 0},    {"iso-2022-jp-2", 0},
      {"utf-8", 0},           {"euc-jp", 0},
  };
  for (const int native : {0, 4}) {
    InitMbutilExt(native);
    for (const auto& [charset, codeSet] : kRows) {
      EXPECT_EQ(mbGetMIMECodeSet(charset), codeSet) << charset;
    }
  }
  InitMbutilExt(0);
}

TEST(CodeSets, ToMimeCharsets) {
  const std::map<int, std::string> expected = {
      {3, "iso-2022-jp"},  {7, "iso-2022-cn"},  {9, "iso-2022-cn"}, {11, "iso-2022-kr"},
      {12, "iso-2022-kr"}, {23, "cp-1250"},     {24, "cp-1251"},    {25, "cp-1253"},
      {26, "cp-1254"},     {27, "cp-1255"},     {28, "cp-1256"},    {29, "cp-1257"},
      {30, "cp-1258"},     {14, "iso-8859-2"},  {15, "iso-8859-3"}, {16, "iso-8859-4"},
      {17, "iso-8859-5"},  {18, "iso-8859-6"},  {19, "iso-8859-7"}, {20, "iso-8859-8"},
      {21, "iso-8859-9"},  {22, "iso-8859-10"},
  };
  for (int codeSet = -1; codeSet <= 100; ++codeSet) {
    const auto row = expected.find(codeSet);
    EXPECT_EQ(mbGetMIMECharset(codeSet), row == expected.end() ? "iso-8859-1" : row->second)
        << codeSet;
  }
}

TEST(CodeSets, ForMail) {
  for (int codeSet = -1; codeSet <= 100; ++codeSet) {
    int expected = codeSet >= 7 && codeSet <= 30 ? codeSet : 0;
    switch (codeSet) {
      case 3:
      case 4:
      case 5:
      case 6:
        expected = 3;
        break;
      case 23:
        expected = 14;
        break;
      case 24:
        expected = 17;
        break;
    }
    EXPECT_EQ(mbGetCodeSetForMail(codeSet), expected) << codeSet;
  }
}

TEST(CodeSets, ForData) {
  // The other one of each that has one.
  const std::map<int, int> related = {{4, 5}, {5, 4},   {10, 7},  {7, 10},  {8, 9},
                                      {9, 8}, {13, 12}, {12, 13}, {24, 17}, {17, 24}};
  for (int first = 0; first <= 70; ++first) {
    for (int second = 0; second <= 70; ++second) {
      const auto row = related.find(first);
      const bool isRelated = row != related.end() && row->second == second;
      EXPECT_EQ(mbGetCodeSetForData(first, second), isRelated ? second : first)
          << first << " " << second;
    }
  }
}

TEST(CodePages, OfLocales) {
  const std::pair<const char*, const char*> kRows[] = {
      {nullptr, "WESTERN"},      {"", "WESTERN"},
      {"C", "WESTERN"},          {"de_DE.ISO-8859-1", "WESTERN"},
      {"cz", "8859_2"},          {"cs_CZ", "8859_2"},
      {"hu_HU", "8859_2"},       {"pl_PL", "8859_2"},
      {"hr_HR", "8859_2"},       {"ro_RO", "8859_2"},
      {"sh_YU", "8859_2"},       {"sl_SI", "8859_2"},
      {"sq_AL", "8859_2"},       {"sk_SK", "8859_2"},
      {"el_GR", "8859_7"},       {"UTF-8", "UTF8"},
      {"utf-8", "UTF8"},         {"ja_JP.SHIFT_JIS", "EUC"},
      {"ko_KR", "EUC_K"},        {"lt_LT", "8859_4"},
      {"lv_LV", "8859_4"},       {"et_EE", "8859_4"},
      {"ru_RU.UTF-8", "8859_5"}, {"bg_BG", "8859_5"},
      {"mk_MK", "8859_5"},       {"sr_RS", "8859_5"},
      {"tr_TR", "8859_9"},       {"zh_CH.big5", "BIG5"},
      {"zh_CN.big5", "GB2312"},  {"zh_TW.Big5", "BIG5"},
      {"ZH_tw.BIG5", "BIG5"},    {"zh_CN.GB2312", "GB2312"},
      {"zh_TW", "EUC_H"},        {"zh_TW.EUC-TW", "EUC_H"},
      {"zh.GBK", "EUC_C"},       {"zh", "GB2312"},
      {"zh_HK", "GB2312"},       {"/ja", "EUC"},
      {"//ja", "WESTERN"},       {"JA", "EUC"},
  };
  for (const auto& [locale, page] : kRows) {
    EXPECT_EQ(codePageOf(locale), page) << locale;
  }
  EXPECT_EQ(SetCodePage("ja", nullptr), nullptr);
}

struct Corrected {
  const char* name;
  const char* target;
  int place;  // of the result
};

// In the C locale, whose code set is 0.
constexpr Corrected kCorrected[] = {
    {"de_DE", "de_DE.cp1252", 6},
    {"ru_RU", "ru_RU.cp1252", 6},
    {"de_DE@euro", "de_DE.cp1252@euro", 6},
    {"", ".cp1252", 1},
    {"pl_PL.ISO8859-2", "pl_PL.cp1250", 6},
    {"pl_PL.8859_2", "pl_PL.cp1250", 6},
    {"pl_PL.ISO8859-2@x", "pl_PL.cp1250@x", 6},
    {"et.ISO8859-13", "et.cp1257", 3},
    {"et.8859_13", "et.cp1257", 3},
    {"et.8859-4", "et.cp1257", 3},
    {"et.8859_4", "et.cp1257", 3},
    {"ru.8859-5", "ru.cp1251", 3},
    {"ru.8859_5", "ru.cp1251", 3},
    {"el.8859-7", "el.cp1253", 3},
    {"el.8859_7", "el.cp1253", 3},
    {"tr.8859-9", "tr.cp1254", 3},
    {"tr.8859_9", "tr.cp1254", 3},
    {"de.8859-15@euro", "de.cp1252@euro", 3},
    {"de.8859_15", "de.cp1252", 3},
    {"de.ISO8859-1", "de.cp1252", 3},
    {"de.8859_1", "de.cp1252", 3},
    {"de.8859-10", "de.cp1252", 3},
    {"ar.8859-6", "ar.8859-6", 3},
    {"ja_JP.EUC-JP@x", "ja_JP.EUC-JP@x", 6},
    {"a.", "a.", 2},
    {"a.b.8859-2", "a.cp1250", 2},
    {"a@b.8859-2", "a.cp1252@b.8859-2", 2},
};

TEST(CorrectedLocales, ByTheNameInTheCLocale) {
  ASSERT_EQ(mbGetLocaleCodeSet(), 0);
  for (const Corrected& row : kCorrected) {
    std::string target(strlen(row.name) + 8, '#');
    EXPECT_EQ(mbGetCorrectedLocaleForUnix(row.name, target.data()) - target.data(), row.place)
        << row.name;
    EXPECT_STREQ(target.c_str(), row.target);
  }
  char target[] = "abc";
  EXPECT_EQ(mbGetCorrectedLocaleForUnix(nullptr, target), target);
  EXPECT_STREQ(target, "abc");
  EXPECT_EQ(mbGetCorrectedLocaleForUnix("a", nullptr), nullptr);
}

TEST(AccumulatedBytes, AreSignedNumbers) {
  InitMbutilExt(0);
  EXPECT_EQ(AccumulateAsciiForStr(nullptr), 0);
  EXPECT_EQ(AccumulateAsciiForStr(""), 0);
  EXPECT_EQ(AccumulateAsciiForStr("az"), 97 + 122);
  EXPECT_EQ(AccumulateAsciiForStr("\xFF"), -1);
  EXPECT_EQ(AccumulateAsciiForStr("a\x80"), 97 - 128);
  // Code set 5 has no converter to 0, the code set of the C locale.
  InitMbutilExt(5);
  EXPECT_EQ(AccumulateAsciiForStr("\x83\x5C"), 0x83 - 256 + 0x5C);
  InitMbutilExt(0);
}

}  // namespace
