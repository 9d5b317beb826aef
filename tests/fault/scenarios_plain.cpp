// Functions that never allocate, so that nothing can run out for them: each is called while all
// memory is refused.

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "compress/inputs.h"
#include "fault/Scenario.h"
#include "fault/Support.h"
#include "zqxml/compress_inner.h"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

constexpr int kEuc = 4;
constexpr int kShiftJis = 5;

// Notes where the first thing went wrong, without memory.
class Calls {
 public:
  void expect(bool holds, int line = __builtin_LINE()) {
    if (!holds && firstWrong == 0) {
      firstWrong = line;
    }
  }
  int wrongLine() const { return firstWrong; }

 private:
  int firstWrong = 0;
};

bool same(const char* text, const char* wanted) {
  return text != nullptr && strcmp(text, wanted) == 0;
}

void mail(Calls& calls) {
  char line[100];
  char target[400];
  calls.expect(EncodeBase64Line("foo", 3, "\n", line) == 0);
  calls.expect(same(line, "Zm9v\n"));
  calls.expect(same(convertToQuotedPrintable(target, "a=b"), "a=3Db"));
  calls.expect(same(convertFromQuotedPrintable(target, "a=3Db"), "a=b"));
  calls.expect(same(convertSubjectToBase64(target, "ab", "iso-2022-jp"), "ab"));
  calls.expect(same(getTransferEncodingFromCodeSet(3), "7bit"));
}

void calendar(Calls& calls) {
  const int date[3] = {2000, 1, 1};
  int back[3];
  int day = 0;
  int number = 0;
  char text[ZQ_ISO_DATE_SIZE];
  DateToJulianDate(date, &day);
  JulianDateToDate(day, back);
  int clamped = -5;
  TruncateDate(&clamped);
  calls.expect(day == 2451545);
  calls.expect(back[0] == 2000);
  calls.expect(clamped == 0);
  calls.expect(ValidateDate(date) == 1);
  calls.expect(IsLeapYear(date) == 0);
  calls.expect(GetWeekNumber(day) == 52);
  calls.expect(GetWeekday(day) == 7);
  calls.expect(DateAdd(ZQ_DATE_PART_MONTH, 1, day, &number) == 0);
  calls.expect(number == day + 31);
  calls.expect(DateDiff(ZQ_DATE_PART_DAY, day, day + 3, &number) == 0);
  calls.expect(number == 3);
  calls.expect(GetNumericDateParts("yy", &number) == 0);
  calls.expect(number == ZQ_DATE_PART_YEAR);
  calls.expect(GetDatePartNum(ZQ_DATE_PART_YEAR, day, &number) == 0);
  calls.expect(number == 2000);
  calls.expect(GetDatePartName(ZQ_DATE_PART_WEEKDAY, day, text) == 0);
  calls.expect(same(text, "Saturday"));
  calls.expect(ConvertISODateStringToJD("2000-01-01", &number) == 0);
  calls.expect(number == day);
  calls.expect(ConvertJDToISODateString(day, text) == 0);
  calls.expect(same(text, "2000-01-01"));
  calls.expect(ConvertJDToDateString(day, text) == 0);
  calls.expect(same(text, "1/01/00"));
  calls.expect(ConvertToFourDigitYear(2033, 34) == 1934);
  calls.expect(ZqDayInMonth(2004, 1) == 29);
}

void codeSets(Calls& calls) {
  char target[64];
  SetCharset(target, 65);
  calls.expect(same(target, "utf-8"));
  calls.expect(same(SetCodePage("ja_JP.SJIS", target), target));
  calls.expect(mbGetCodeSet("SJIS") == kShiftJis);
  calls.expect(mbGetCodeSetForData(4, 5) == 5);
  calls.expect(mbGetCodeSetForMail(kEuc) == 3);
  calls.expect(mbGetLocaleCodeSet() == 0);
  calls.expect(mbGetMIMECodeSet("iso-2022-jp") == 3);
  calls.expect(same(mbGetMIMECharset(3), "iso-2022-jp"));
  calls.expect(mbGetCorrectedLocaleForUnix("de_DE.iso88591", target) != nullptr);
}

void converters(Calls& calls) {
  char a[64];
  char b[64];
  const char euc[] = "\xA5\xBD";
  const char shift[] = "\x83\x5C";
  calls.expect(same(euc2shiftx(euc, a), shift));
  calls.expect(same(shift2eucx(shift, a), euc));
  calls.expect(same(jis2eucx(euc2jisx(euc, a), b), euc));
  calls.expect(same(jis2shiftx(shift2jisx(shift, a), b), shift));
  calls.expect(eucLength(shift) == 2);
  calls.expect(shiftLength(euc) == 2);
  calls.expect(bytesInEucChar(euc) == 2);
  calls.expect(bytesInShiftChar(shift) == 2);
  unsigned char first = 0x83;
  unsigned char second = 0x5C;
  sjis2jis(&first, &second);
  calls.expect(first == 0x25);
  calls.expect(second == 0x3D);
  jis2sjis(&first, &second);
  calls.expect(first == 0x83);
  calls.expect(second == 0x5C);
  unsigned char source[] = {0xDE, 0};
  unsigned char* next = source;
  first = 0xB6;
  han2zen(&next, &first, &second, kShiftJis);
  calls.expect(first == 0x83);
  calls.expect(second == 0x4B);
  calls.expect(next == source + 1);
  unsigned char escape[] = {'B', 0};
  next = escape;
  int twoByteMode = 0;
  calls.expect(SkipESCSeq(&next, '$', &twoByteMode) == 1);
  calls.expect(twoByteMode == 1);

  const unsigned char big5[] = {0xA4, 0x40, 0};
  unsigned char cns[3] = {};
  calls.expect(Big5ToCnsCodeConvert(big5, cns) == 0);
  calls.expect(CnsOrder(cns) >= 0);
  unsigned char code[3] = {};
  Big5Code(Big5Order(big5), code);
  calls.expect(memcmp(code, big5, 2) == 0);
  CnsCode(CnsOrder(cns), code);
  calls.expect(memcmp(code, cns, 2) == 0);
  const auto* bigText = reinterpret_cast<const char*>(big5);
  big2euchx(bigText, a);
  calls.expect(euchLength(bigText) == 2);
  calls.expect(big5Length(a) == 2);
  calls.expect(same(euch2bigx(a, b), bigText));
  calls.expect(same(c1251To8859_5x(c8859_5To1251x("\xD0", a), b), "\xD0"));
  calls.expect(same(c1250To8859_2x(c8859_2To1250x("\xB1", a), b), "\xB1"));
  calls.expect(ConvertMBNumberToSBNumber("12", a) == 0);
  calls.expect(same(a, "12"));
}

void multiByteText(Calls& calls) {
  char text[] =
      "a\x83\x5C"
      "b";
  const char* soGiven = text;
  char target[32];
  int length = 0;
  int index = 0;
  calls.expect(mbIsMultiByte() == 1);
  calls.expect(mbIsJapanese() == 1);
  calls.expect(mb_isleadbyte(0x83) == 1);
  calls.expect(isleadbyteExt(0x83, kShiftJis) == 1);
  calls.expect(mbmaxcharlen() == 2);
  calls.expect(mbmaxcharlenExt(kShiftJis) == 2);
  calls.expect(mb_mblen(text + 1, 3) == 2);
  calls.expect(mblenExt(text + 1, 3, kShiftJis) == 2);
  calls.expect(mbbytesinchar(text + 1) == 2);
  calls.expect(mbbytesinchartype(text + 1, kShiftJis) == 2);
  calls.expect(mbidx(text, 2) == 1);
  calls.expect(mbidxtype(text, 2, kShiftJis) == 1);
  calls.expect(mbnextidx(text, 1) == 3);
  calls.expect(mbnextchar(text, 1) == text + 3);
  calls.expect(ismbcprint('a') == 1);
  calls.expect(same(mbstrncpy(target, text, 10), text));
  calls.expect(mbstrncpyi(target, text, 2) == 1);
  calls.expect(mbstricmp("A", "a") == 0);
  calls.expect(mbstrnicmp("AB", "aC", 1) == 0);
  calls.expect(mbcharcmp("a", "a", 1) == 0);
  calls.expect(mbstrchr(soGiven, 'b') == text + 3);
  calls.expect(mbstrchrEncr(soGiven, 'b') == text + 3);
  calls.expect(mbstrrchr(soGiven, 'b') == text + 3);
  calls.expect(mbstrstr(soGiven, "b") == text + 3);
  calls.expect(mbstrrstr(soGiven, "b") == text + 3);
  calls.expect(mbstrpbrk(soGiven, "b") == text + 3);
  calls.expect(mbstrcspn(soGiven, "b") == 3);
  calls.expect(mbvalidchar(text + 1, &length, kShiftJis) == 1);
  calls.expect(length == 2);
  calls.expect(mbvalidchartype(text, &length, kShiftJis, MBUTIL_PATTERN_NO_UPPER) == 1);
  calls.expect(mbvalidatestring(text, &index, kShiftJis) == 1);
  calls.expect(mbvalidatestringtype(text, &index, MBUTIL_PATTERN_NO_UPPER) == 1);
  calls.expect(mbtoupper(text) == 1);
  calls.expect(mbtolower(text) == 1);
  calls.expect(mbstrtoupper(text) == 4);
  calls.expect(same(text,
                    "A\x83\x5C"
                    "B"));
  calls.expect(mbstrtolower(text) == 4);
  char list[] = "a,b";
  char* position = nullptr;
  calls.expect(same(mbstrtok_r(list, ",", &position), "a"));
  calls.expect(same(mbstrtok(list, ","), "a"));
  calls.expect(mbconvertnativestring(target, text, kEuc) == 1);
  calls.expect(same(target,
                    "a\xA5\xBD"
                    "b"));
  calls.expect(same(convertStrExt(text, 5, target, 5), text));
  calls.expect(same(WindowsCodingToUnixCodingExt(text, target),
                    "a\xA5\xBD"
                    "b"));
  calls.expect(UnixCodingToWindowsCodingExt("a", target) == target);
  calls.expect(MaxStringLengthOnWinAndUnix(text) == 4);
  calls.expect(IsConversionSupport(5, 4) == 1);
  calls.expect(sameLanguage(4, 5) == 1);
}

void streams(Attempt& attempt) {
  const NativeCodeSet native(kShiftJis);
  char content[] =
      "a\x83\x5C"
      "b\x1B$B0!";
  FILE* stream = fmemopen(content, sizeof content - 1, "r");
  char buffer[8];
  const bool good = attempt.call([&] {
    return mbfreadstring(buffer, 2, stream) == 1 &&
           mbfreadstringtype(buffer, 2, stream, kShiftJis) == 2 && DetectJPCodeType(stream) == 3;
  });
  EXPECT_TRUE(good);
  fclose(stream);
}

// The C library's own memory, such as that of locales and of names of hosts, isn't refused.
void system(Calls& calls) {
  OSCriticalSection section;
  OSTLSKey key;
  int value = 0;
  calls.expect(OSInitializeCriticalSection(&section) == 0);
  calls.expect(OSEnterCriticalSection(&section) == 0);
  calls.expect(OSLeaveCriticalSection(&section) == 0);
  calls.expect(OSDeleteCriticalSection(&section) == 0);
  calls.expect(OSTLSAlloc(&key) == 0);
  calls.expect(OSTLSSetValue(key, &value) == 0);
  calls.expect(OSTLSGetValue(key) == &value);
  calls.expect(OSTLSFree(key) == 0);
  const time_t now = 86400;
  struct tm fields;
  OSStatsTime time;
  calls.expect(OSLocalTime(&now, &fields) == &fields);
  calls.expect(fields.tm_mday == 2);
  calls.expect(OSGetStatsTime(&time) == 0);
  struct hostent host;
  char buffer[2048];
  int error = 0;
  const in_addr address = {htonl(INADDR_LOOPBACK)};
  calls.expect(OSGetHostByName("127.0.0.1", &host, buffer, sizeof buffer, &error) == &host);
  calls.expect((OSGetHostByAddr(&address, sizeof address, AF_INET, &host, buffer, sizeof buffer,
                                &error) == &host ||
                error != 0));
}

void locale(Attempt& attempt) {
  const NativeCodeSet native(0);
  EXPECT_EQ(attempt.call([] { return InitMbutil() + InitMbutilExt(0); }), 0);
}

// The search for matches one by one: "abcdef" stands at 1 and again at 7.
void longestMatch(Attempt& attempt) {
  const std::string data = "xabcdefabcdefy" + std::string(600, 'z');
  const std::unique_ptr<ZipControlBlock> block(new ZipControlBlock);
  memset(static_cast<void*>(block.get()), 0, sizeof *block);
  InitZipControlBlock(block.get());
  block->inputMemory = reinterpret_cast<const unsigned char*>(data.data());
  block->inputLength = static_cast<unsigned>(data.size());
  const unsigned length = attempt.call([&] {
    TreeInit(block.get());
    LongestMatchInit(block.get());
    block->stringStart = 7;
    block->lookahead -= 7;
    block->previousLength = MIN_MATCH - 1;
    EXPECT_EQ(TreeTally(block.get(), 0, 'a'), 0);
    return LongestMatch(block.get(), 1);
  });
  EXPECT_EQ(length, 6U);
  EXPECT_EQ(block->matchStart, 1U);
}

template <int kCodeSet, void (*kCalls)(Calls&)>
void expectGood(Attempt& attempt) {
  const NativeCodeSet native(kCodeSet);
  Calls calls;
  attempt.call([&] { kCalls(calls); });
  EXPECT_EQ(calls.wrongLine(), 0);
}

}  // namespace

void addPlainScenarios(Scenarios& table) {
  const auto add = [&table](const char* name, std::vector<std::string> functions,
                            void (*run)(Attempt&)) {
    table.push_back({name, std::move(functions), run, Memory::NotNeeded});
  };
  add("Lines of mails",
      {"EncodeBase64Line", "convertFromQuotedPrintable", "convertSubjectToBase64",
       "convertToQuotedPrintable", "getTransferEncodingFromCodeSet"},
      expectGood<0, mail>);
  add("Calendar",
      {"ConvertISODateStringToJD", "ConvertJDToDateString", "ConvertJDToISODateString",
       "ConvertToFourDigitYear", "DateAdd", "DateDiff", "DateToJulianDate", "GetDatePartName",
       "GetDatePartNum", "GetNumericDateParts", "GetWeekNumber", "GetWeekday", "IsLeapYear",
       "JulianDateToDate", "TruncateDate", "ValidateDate", "ZqDayInMonth"},
      expectGood<0, calendar>);
  add("Code sets",
      {"SetCharset", "SetCodePage", "mbGetCodeSet", "mbGetCodeSetForData", "mbGetCodeSetForMail",
       "mbGetCorrectedLocaleForUnix", "mbGetLocaleCodeSet", "mbGetMIMECharset", "mbGetMIMECodeSet"},
      expectGood<0, codeSets>);
  add("Converters", {"Big5Code",       "Big5Order",        "Big5ToCnsCodeConvert",
                     "CnsCode",        "CnsOrder",         "ConvertMBNumberToSBNumber",
                     "SkipESCSeq",     "big2euchx",        "big5Length",
                     "bytesInEucChar", "bytesInShiftChar", "c1250To8859_2x",
                     "c1251To8859_5x", "c8859_2To1250x",   "c8859_5To1251x",
                     "euc2jisx",       "euc2shiftx",       "eucLength",
                     "euch2bigx",      "euchLength",       "han2zen",
                     "jis2eucx",       "jis2shiftx",       "jis2sjis",
                     "shift2eucx",     "shift2jisx",       "shiftLength",
                     "sjis2jis"},
      expectGood<kEuc, converters>);
  add("Multi-byte texts",
      {"IsConversionSupport",
       "MaxStringLengthOnWinAndUnix",
       "UnixCodingToWindowsCodingExt",
       "WindowsCodingToUnixCodingExt",
       "convertStrExt",
       "isleadbyteExt",
       "ismbcprint",
       "mbIsJapanese",
       "mbIsMultiByte",
       "mb_isleadbyte",
       "mb_mblen",
       "mbbytesinchar",
       "mbbytesinchartype",
       "mbcharcmp",
       "mbconvertnativestring",
       "mbidx",
       "mbidxtype",
       "mblenExt",
       "mbmaxcharlen",
       "mbmaxcharlenExt",
       "mbnextchar",
       "mbnextidx",
       "mbstrchr",
       "mbstrchrEncr",
       "mbstrcspn",
       "mbstricmp",
       "mbstrncpy",
       "mbstrncpyi",
       "mbstrnicmp",
       "mbstrpbrk",
       "mbstrrchr",
       "mbstrrstr",
       "mbstrstr",
       "mbstrtok",
       "mbstrtok_r",
       "mbstrtolower",
       "mbstrtoupper",
       "mbtolower",
       "mbtoupper",
       "mbvalidatestring",
       "mbvalidatestringtype",
       "mbvalidchar",
       "mbvalidchartype",
       "sameLanguage"},
      expectGood<kShiftJis, multiByteText>);
  add("Streams of multi-byte texts", {"mbfreadstring", "mbfreadstringtype", "DetectJPCodeType"},
      streams);
  add("The native code set", {"InitMbutil", "InitMbutilExt"}, locale);
  add("Operating system",
      {"OSDeleteCriticalSection", "OSEnterCriticalSection", "OSGetHostByAddr", "OSGetHostByName",
       "OSGetStatsTime", "OSInitializeCriticalSection", "OSLeaveCriticalSection", "OSLocalTime",
       "OSTLSAlloc", "OSTLSFree", "OSTLSGetValue", "OSTLSSetValue"},
      expectGood<0, system>);
  add("LongestMatch", {"LongestMatch", "TreeTally"}, longestMatch);
}

}  // namespace fault
