// Real locales, which the build makes for these tests in a folder of its own.

#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <cstdlib>
#include <memory>
#include <string>

#include "text/mbutil_codeset.h"
#include "text/mbutil_state.h"
#include "zqxml/zqxml.h"

namespace {

// Set here and not for the whole program, since a library of the system leaks at its start if the
// variable is set.
class LocaleFolder : public testing::Environment {
 public:
  void SetUp() override { setenv("LOCPATH", ZQXML_LOCALE_DIR, 1); }
};

const auto* const localeFolder = testing::AddGlobalTestEnvironment(new LocaleFolder);

struct Locale {
  const char* name;
  int native;          // InitMbutil
  int codeSet;         // mbGetLocaleCodeSet
  const char* page;    // SetCodePage
  const char* header;  // charset of a document
  // mbGetCorrectedLocaleForUnix: of the locale's own name, and of one without a code part.
  const char* corrected;
  const char* completed;
};

constexpr Locale kLocales[] = {
    {"ja_JP.EUC-JP", 4, 4, "EUC", "euc-jp", "ja_JP.EUC-JP", "xx"},
    {"ja_JP.SHIFT_JIS", 4, 4, "EUC", "euc-jp", "ja_JP.SHIFT_JIS", "xx"},
    {"zh_TW.BIG5", 10, 9, "BIG5", "big5", "zh_TW.BIG5", "xx"},
    {"zh_TW.EUC-TW", 10, 10, "EUC_H", "euc-tw", "zh_TW.EUC-TW", "xx"},
    {"zh_CN.GB2312", 8, 7, "GB2312", "gb2312", "zh_CN.GB2312", "xx"},
    {"ko_KR.EUC-KR", 13, 13, "EUC_K", "euc-kr", "ko_KR.EUC-KR", "xx"},
    {"de_DE.ISO-8859-1", 0, 0, "WESTERN", "windows-1252", "de_DE.cp1252", "xx.cp1252"},
    {"pl_PL.ISO-8859-2", 0, 14, "8859_2", "windows-1250", "pl_PL.cp1250", "xx.cp1250"},
    {"ru_RU.ISO-8859-5", 0, 17, "8859_5", "windows-1251", "ru_RU.cp1251", "xx.cp1251"},
    {"el_GR.ISO-8859-7", 0, 19, "8859_7", "windows-1253", "el_GR.cp1253", "xx.cp1253"},
    {"tr_TR.ISO-8859-9", 0, 21, "8859_9", "iso-8859-9", "tr_TR.cp1254", "xx.cp1254"},
    {"et_EE.ISO-8859-15", 0, 16, "8859_4", "windows-1257", "et_EE.cp1252", "xx.cp1257"},
    {"ja_JP.UTF-8", 4, 4, "EUC", "euc-jp", "ja_JP.UTF-8", "xx"},
    {"C", 0, 0, "WESTERN", "windows-1252", "C.cp1252", "xx.cp1252"},
    {"C.UTF-8", 0, 0, "WESTERN", "windows-1252", "C.UTF-8", "xx.cp1252"},
};

class Locales : public testing::TestWithParam<Locale> {
 protected:
  void SetUp() override { setenv("LC_ALL", GetParam().name, 1); }
  void TearDown() override {
    setenv("LC_ALL", "C", 1);
    InitMbutil();
  }
};

TEST_P(Locales, ChooseTheCodeSets) {
  const Locale& locale = GetParam();
  InitMbutilExt(65);
  EXPECT_EQ(InitMbutil(), 65);
  ASSERT_STREQ(setlocale(LC_ALL, nullptr), locale.name);
  EXPECT_EQ(nativeCodeSet, locale.native);
  EXPECT_EQ(mbIsMultiByte(), locale.native != 0 ? 1 : 0);
  EXPECT_EQ(mbIsJapanese(), locale.native == 4 ? 1 : 0);
  EXPECT_FALSE(codeSetChosenByHost);
  EXPECT_EQ(mbGetLocaleCodeSet(), locale.codeSet);
  char text[64];
  EXPECT_STREQ(SetCodePage(locale.name, text), locale.page);
  setDocumentCharset(text, mbGetLocaleCodeSet());
  EXPECT_STREQ(text, locale.header);
  mbGetCorrectedLocaleForUnix(locale.name, text);
  EXPECT_STREQ(text, locale.corrected);
  mbGetCorrectedLocaleForUnix("xx", text);
  EXPECT_STREQ(text, locale.completed);
}

INSTANTIATE_TEST_SUITE_P(All, Locales, testing::ValuesIn(kLocales));

TEST(LocaleNames, WithoutACodePartPointToTheTerminatorIfKept) {
  setenv("LC_ALL", "ja_JP.EUC-JP", 1);
  InitMbutil();
  char target[16];
  EXPECT_EQ(mbGetCorrectedLocaleForUnix("ab@c", target), target + 4);
  EXPECT_STREQ(target, "ab@c");
  setenv("LC_ALL", "C", 1);
  InitMbutil();
}

TEST(LocaleNames, OfCategoriesThatDifferAreUnknown) {
  unsetenv("LC_ALL");
  setenv("LC_CTYPE", "ja_JP.EUC-JP", 1);
  InitMbutil();
  EXPECT_STREQ(setlocale(LC_CTYPE, nullptr), "ja_JP.EUC-JP");
  EXPECT_EQ(nativeCodeSet, 0);
  EXPECT_EQ(mbGetLocaleCodeSet(), 0);
  unsetenv("LC_CTYPE");
  setenv("LC_ALL", "C", 1);
  InitMbutil();
}

TEST(LocaleNames, ThatDoNotExistLeaveTheLocale) {
  setenv("LC_ALL", "ja_XX.nothing", 1);
  InitMbutil();
  EXPECT_STREQ(setlocale(LC_ALL, nullptr), "C");
  EXPECT_EQ(nativeCodeSet, 0);
  EXPECT_EQ(mbGetLocaleCodeSet(), 0);
  setenv("LC_ALL", "C", 1);
  InitMbutil();
}

// In Turkish "I" and "i" are two letters.
TEST(LocaleNames, AreThoseOfAsciiInEveryLocale) {
  setenv("LC_ALL", "tr_TR.ISO-8859-9", 1);
  InitMbutil();
  ASSERT_NE(tolower('I'), 'i');
  char page[ZQ_CODE_PAGE_SIZE];
  EXPECT_STREQ(SetCodePage("ZH_TW.BIG5", page), "BIG5");
  setenv("LC_ALL", "C", 1);
  InitMbutil();
}

// The patterns go by 7-bit ASCII, also where the C library knows more letters.
TEST(LocaleClasses, DoNotMatterToPatterns) {
  setenv("LC_ALL", "de_DE.ISO-8859-1", 1);
  InitMbutil();
  ASSERT_NE(islower(0xE4), 0);
  int index = -1;
  EXPECT_EQ(mbvalidatestringtype("\xE4", &index, 105), 1);
  EXPECT_EQ(mbvalidatestringtype("\xC4", &index, 106), 1);
  EXPECT_EQ(mbvalidatestringtype("\xE4", &index, 104), 0);
  EXPECT_EQ(ismbcprint(0xE4), 1);
  char text[] = "\xE4";
  EXPECT_EQ(mbstrtoupper(text), 1);
  EXPECT_STREQ(text, "\xC4");
  setenv("LC_ALL", "C", 1);
  InitMbutil();
}

TEST(LocaleSums, AreOfTheLocalesCodeSet) {
  // Shift-JIS in the process, EUC in the locale: B1 becomes 8E B1.
  setenv("LC_ALL", "ja_JP.EUC-JP", 1);
  InitMbutil();
  InitMbutilExt(5);
  EXPECT_EQ(AccumulateAsciiForStr("\xB1"), (0x8E - 256) + (0xB1 - 256));
  InitMbutilExt(4);
  EXPECT_EQ(AccumulateAsciiForStr("\xB1\xA1"), (0xB1 - 256) + (0xA1 - 256));
  setenv("LC_ALL", "C", 1);
  InitMbutil();
}

}  // namespace
