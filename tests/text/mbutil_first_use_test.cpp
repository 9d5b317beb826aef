// What the functions do before the native code set is chosen. Each test is a process of its own.

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "text/mbutil_state.h"
#include "zqxml/zqxml.h"

namespace {

TEST(MultiByteFirstUseDeathTest, TheFlagStartsAsOne) {
  EXPECT_EXIT(exit(MBUTIL_I_Am_MultiByte == 1 && MBUTIL_I_Am_Japanese == 0 &&
                           MBUTIL_Initialized == 0 && nativeCodeSet == 0
                       ? 0
                       : 1),
              testing::ExitedWithCode(0), "");
}

TEST(MultiByteFirstUseDeathTest, TwoFunctionsDoNotInitialise) {
  EXPECT_EXIT(
      {
        const int walked = mbidxtype("\xB1\xA1", 1, 4);
        const int length = MaxStringLengthOnWinAndUnix("\xB1\xA1");
        exit(walked == 0 && length == 2 && MBUTIL_Initialized == 0 ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(MultiByteFirstUseDeathTest, TheOthersDo) {
  char text[] = "a";
  char target[16];
  int number = 0;
  char* position = nullptr;
  const std::function<void()> calls[] = {
      [] { mbIsMultiByte(); },
      [] { mbIsJapanese(); },
      [] { mb_isleadbyte('a'); },
      [] { mbmaxcharlen(); },
      [&] { mb_mblen(text, 1); },
      [&] { mbbytesinchar(text); },
      [&] { mbidx(text, 0); },
      [&] { mbnextidx(text, 0); },
      [&] { mbnextchar(text, 0); },
      [] { ismbcprint('a'); },
      [&] { mbstrncpy(target, text, 2); },
      [&] { mbstrncpyi(target, text, 2); },
      [&] { mbstricmp(text, text); },
      [&] { mbstrnicmp(text, text, 1); },
      [&] { mbcharcmp(text, text, 1); },
      [&] { mbtoupper(text); },
      [&] { mbtolower(text); },
      [&] { mbstrtoupper(text); },
      [&] { mbstrtolower(text); },
      [&] { mbstrchr(text, 'a'); },
      [&] { mbstrchrEncr(text, 'a'); },
      [&] { mbstrrchr(text, 'a'); },
      [&] { mbstrstr(text, text); },
      [&] { mbstrrstr(text, text); },
      [&] { mbstrpbrk(text, text); },
      [&] { mbstrcspn(text, text); },
      [&] { mbstrtok(text, ","); },
      [&] { mbstrtok_r(text, ",", &position); },
      [&] { mbvalidatestring(text, &number, 4); },
      [&] { mbvalidatestringtype(text, &number, 104); },
      [&] { mbfgets(target, 2, nullptr, 4); },
      [] { mbfputs("", nullptr, 4); },
      [&] { mbfreadstring(target, 1, nullptr); },
      [&] { mbfreadstringtype(target, 1, nullptr, 4); },
      [] { mbconvertfile2native_ex("/nowhere/a", "/nowhere/b", 0, 4); },
      [&] { mbconvertnativestring(target, text, 4); },
      [&] { UnixCodingToWindowsCodingExt(text, target); },
      [&] { WindowsCodingToUnixCodingExt(text, target); },
      [&] { ConvertMBNumberToSBNumber(text, target); },
      [&] { AccumulateAsciiForStr(text); },
      [&] { mbGetMIMECodeSet(text); },
  };
  int place = 0;
  for (const auto& call : calls) {
    EXPECT_EXIT(
        {
          call();
          exit(MBUTIL_Initialized == 1 && !codeSetChosenByHost ? 0 : 1);
        },
        testing::ExitedWithCode(0), "")
        << place;
    ++place;
  }
}

}  // namespace
