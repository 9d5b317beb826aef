// The formats of ParseDateTime, transcribed a second time: which one takes a text, and what comes
// of it.
//
// The reference below is the plain ladder: format by format through zqstrptime. The cases say which
// format they mean, and random texts made of the pieces of dates have to give the same in both.

#include <langinfo.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "datetime/DateTimeTest.h"
#include "zqxml/datetime.h"

namespace {

enum class Behind { kAnything, kBlanks, kTime };

struct Row {
  const char* format;
  Behind behind = Behind::kAnything;
  bool clears = false;
};

// DT, D and T in braces are the locale's formats, E is that of the environment.
const Row kRows[] = {
    {"{E}", Behind::kBlanks},
    {"{DT}", Behind::kBlanks},
    {"{D}", Behind::kTime},
    {"{D} %I:%M:%S %p"},
    {"{D} {T}"},
    {"%y/%m/%d %H:%M:%S"},
    {"%y %m %d %H:%M:%S"},
    {"%h %d %Y %H:%M:%S", Behind::kBlanks},
    {"%h %d %y %H:%M", Behind::kBlanks},
    {"%h %d %y %H:%M:%S", Behind::kBlanks},
    {"%h %d %y %H:%M", Behind::kBlanks},
    {"%h %d , %Y %H:%M:%S", Behind::kBlanks},
    {"%h %d , %Y %H:%M", Behind::kBlanks},
    {"%h %d , %y %H:%M:%S", Behind::kBlanks},
    {"%h %d , %y %H:%M", Behind::kBlanks},
    {"%h %d %Y %I:%M:%S %p"},
    {"%h %d %Y %I:%M %p"},
    {"%h %d %y %I:%M:%S %p"},
    {"%h %d %y %I:%M %p"},
    {"%h %d , %Y %I:%M:%S %p"},
    {"%h %d , %Y %I:%M %p"},
    {"%h %d , %y %I:%M:%S %p"},
    {"%h %d , %y %I:%M %p"},
    {"%h %d %Y {T}"},
    {"%h %d %y {T}"},
    {"%h %d , %Y {T}"},
    {"%h %d , %y {T}"},
    {"{D}", Behind::kAnything, true},
    {"%h %d %Y", Behind::kAnything, true},
    {"%h %d %y", Behind::kAnything, true},
    {"%h %d , %Y", Behind::kAnything, true},
    {"%h %d , %y", Behind::kAnything, true},
    {"%A , %B %d , %Y %I:%M:%S %p"},
    {"%d %b %Y %H:%M:%S%p"},
    {"%d %b %Y %H:%M:%S %p"},
    {"%d %b %Y %H:%M:%S"},
    {"%d %b %Y %H:%M%p"},
    {"%d %b %Y %H:%M %p"},
    {"%d %b %Y %H:%M"},
    {"%d %b %Y %H%p"},
    {"%d %b %y%p"},
    {"%d %b %Y%p"},
    {"%D %H:%M:%S %p"},
    {"%D %H:%M:%S%p"},
    {"%D %H:%M:%S"},
    {"%D %H:%M %p"},
    {"%D %H:%M%p"},
    {"%D %H:%M"},
    {"%D %H%p"},
    {"%D %I:%M:%S %p"},
    {"%D %I:%M:%S%p"},
    {"%D %I:%M:%S"},
    {"%D %I:%M %p"},
    {"%D %I:%M%p"},
    {"%D %I:%M"},
    {"%D %I%p"},
    {"%D%p"},
};

std::string expand(std::string format) {
  const struct {
    const char* mark;
    const char* text;
  } marks[] = {{"{E}", getenv("ZQDATE")},
               {"{DT}", nl_langinfo(D_T_FMT)},
               {"{D}", nl_langinfo(D_FMT)},
               {"{T}", nl_langinfo(T_FMT)}};
  for (const auto& [mark, text] : marks) {
    const size_t position = format.find(mark);
    if (position != std::string::npos && text != nullptr) {
      format.replace(position, strlen(mark), text);
    }
  }
  return format;
}

const char* afterBlanks(const char* text) {
  return text + strspn(text, " \t");
}

struct Outcome {
  std::string format = "none";  // as in the table
  bool isParsed = false;
  struct tm fields = {};
};

Outcome parseByReference(const char* text, struct tm fields) {
  Outcome outcome;
  const char* end = nullptr;
  for (const Row& row : kRows) {
    if (strcmp(row.format, "{E}") == 0 && getenv("ZQDATE") == nullptr) {
      continue;
    }
    if (row.clears) {
      fields.tm_hour = fields.tm_min = fields.tm_sec = 0;
    }
    end = zqstrptime(text, expand(row.format).c_str(), &fields);
    if (end != nullptr && row.behind == Behind::kBlanks && *afterBlanks(end) != '\0') {
      end = nullptr;
    }
    if (end != nullptr && row.behind == Behind::kTime && end != text && *end != '\0') {
      end = ParseTimeOnly(end, &fields);
    }
    if (end != nullptr) {
      outcome.format = row.format;
      break;
    }
  }
  char* rest = nullptr;
  if (end == nullptr && StripLeadWeekday(text, &rest) == 1) {
    outcome = parseByReference(rest, fields);
    outcome.format = "weekday, " + outcome.format;
    return outcome;
  }
  if (*text != '\0' && text[strspn(text, "0123456789")] == '\0') {
    outcome.format = "digits";
    const time_t value = atol(text);
    if (localtime_r(&value, &fields) == nullptr) {
      outcome.fields = fields;
      return outcome;
    }
    end = text + strlen(text);
  }
  if (end == nullptr || *afterBlanks(end) != '\0') {
    outcome.fields = fields;
    return outcome;
  }
  fields.tm_isdst = 0;
  time_t value = mktime(&fields);
  if (fields.tm_isdst > 0) {
    value -= 3600;
    localtime_r(&value, &fields);
  }
  outcome.isParsed = true;
  outcome.fields = fields;
  return outcome;
}

struct tm base() {
  return makeTime(2001, 3, 1, 6, 7, 8);
}

std::string parse(const char* text) {
  struct tm fields = base();
  return ParseDateTime(text, &fields) == 1 ? dump(fields) : "0";
}

struct Case {
  const char* text;
  const char* format;  // which one takes it
  const char* expected;
};

class Formats : public DateTimeTest {
 protected:
  template <size_t N>
  static void check(const Case (&cases)[N]) {
    for (const Case& row : cases) {
      EXPECT_EQ(parseByReference(row.text, base()).format, row.format) << row.text;
      EXPECT_EQ(parse(row.text), row.expected) << row.text;
      struct tm fields = base();
      ParseDateTime(row.text, &fields);
      EXPECT_EQ(dump(fields), dump(parseByReference(row.text, base()).fields)) << row.text;
    }
  }
};

TEST_F(Formats, OfTheCLocale) {
  const Case cases[] = {
      // The locale's date and time, and texts that end early.
      {"Mon Jan  5 10:15:16 2004", "{DT}", "2004-01-05 10:15:16"},
      {"Jan 5 10:15:16 2004 \t ", "{DT}", "2004-01-05 10:15:16"},
      {"Jan 5", "{DT}", "2001-01-05 06:07:08"},
      {"Jan 5 04", "{DT}", "2001-01-05 04:07:08"},
      {"Jan 5 10:15", "{DT}", "2001-01-05 10:15:08"},
      {"Mon Jan  5 10:15:16 2004 x", "weekday, %h %d %Y", "0"},
      {"Mon Jan 5 24:15:16 2004", "weekday, %h %d %Y", "0"},
      // The locale's date, with a time behind it.
      {"1/5/04", "{D}", "2004-01-05 06:07:08"},
      {"1/5/04 10:15:16", "{D}", "2004-01-05 10:15:16"},
      {"1/5/04 10:15", "{D}", "2004-01-05 10:15:08"},
      {"1/5/04 10:15:16 PM", "{D}", "2004-01-05 22:15:16"},
      {"1/5/04 10:15 PM", "{D}", "2004-01-05 22:15:08"},
      {"1/5/04 10:15:16 x", "{D}", "0"},
      {"1/5/04 10", "{D}", "2004-01-05 10:07:08"},
      {"1/5", "{D}", "2001-01-05 06:07:08"},
      {"1/5/04\t", "{D}", "2004-01-05 00:00:00"},
      {"1/5/04 10PM", "{D}", "0"},
      {"2/30/04", "none", "0"},
      {"13/5/04", "%y/%m/%d %H:%M:%S", "2013-05-04 06:07:08"},
      // Years first.
      {"2004/1/5 10:15:16", "%y/%m/%d %H:%M:%S", "2004-01-05 10:15:16"},
      {"2004/1/5", "%y/%m/%d %H:%M:%S", "2004-01-05 06:07:08"},
      {"2004/1/5 10:15:16 x", "%y/%m/%d %H:%M:%S", "0"},
      {"04/1/5 10:15:16", "{D}", "2005-04-01 10:15:16"},
      {"2004 1 5 10:15:16", "%y %m %d %H:%M:%S", "2004-01-05 10:15:16"},
      {"2004 1 5 10:15:16 PM", "%y %m %d %H:%M:%S", "0"},
      {"2004 13 5", "none", "0"},
      // The name of the month, then day and year.
      {"Jan 5 2004 10:15:16", "%h %d %Y %H:%M:%S", "2004-01-05 10:15:16"},
      {"Jan 5 2004 10:15", "%h %d %Y %H:%M:%S", "2004-01-05 10:15:08"},
      {"January 5 45 10:15:16", "%h %d %Y %H:%M:%S", "1945-01-05 10:15:16"},
      {"Jan 5 2004", "%h %d %Y %H:%M:%S", "2004-01-05 06:07:08"},
      {"Jan 5 2004 \t", "%h %d %Y", "2004-01-05 00:00:00"},
      {"Jan 5, 2004 10:15:16", "%h %d , %Y %H:%M:%S", "2004-01-05 10:15:16"},
      {"Jan 5 , 2004", "%h %d , %Y %H:%M:%S", "2004-01-05 06:07:08"},
      {"Jan 5, 04 10", "%h %d , %Y %H:%M:%S", "2004-01-05 10:07:08"},
      {"Jan 5; 2004", "none", "0"},
      {"Jan 5 2004 10:15 x", "%h %d %Y", "0"},
      // With the half of the day.
      {"Jan 5 2004 10:15:16 PM", "%h %d %Y %I:%M:%S %p", "2004-01-05 22:15:16"},
      {"Jan 5 2004 10:15 PM", "%h %d %Y %I:%M %p", "2004-01-05 22:15:08"},
      {"Jan 5, 2004 10:15:16 PM", "%h %d , %Y %I:%M:%S %p", "2004-01-05 22:15:16"},
      {"Jan 5, 2004 10:15 PM", "%h %d , %Y %I:%M %p", "2004-01-05 22:15:08"},
      {"Jan 5 2004 12:00:00 AM", "%h %d %Y %I:%M:%S %p", "2004-01-05 00:00:00"},
      {"Jan 5 2004 13:15:16 PM", "%h %d %Y {T}", "0"},
      {"Jan 5 2004 10:15:16 PM x", "%h %d %Y %I:%M:%S %p", "0"},
      // With the locale's time.
      {"Jan 5 2004 10:15:16 x", "%h %d %Y {T}", "0"},
      {"Jan 5, 2004 10:15:16 x", "%h %d , %Y {T}", "0"},
      // The date alone: only here the time of day becomes midnight.
      {"Jan 5 2004 x", "%h %d %Y", "0"},
      {"Jan 5, 2004\t", "%h %d , %Y", "2004-01-05 00:00:00"},
      {"Jan 5, 2004 x", "%h %d , %Y", "0"},
      // The weekday written out.
      {"Monday, January 5, 2004 10:15:16 PM", "%A , %B %d , %Y %I:%M:%S %p", "2004-01-05 22:15:16"},
      {"monday,jan 5,2004", "%A , %B %d , %Y %I:%M:%S %p", "2004-01-05 00:00:00"},
      {"Mon, January 5, 2004 10:15", "weekday, %h %d , %Y %H:%M:%S", "2004-01-05 10:15:00"},
      {"Monday, January 5, 2004 13:15:16", "weekday, %h %d , %Y %H:%M:%S", "2004-01-05 13:15:16"},
      // The day ahead of the name of the month.
      {"5 Jan 2004 10:15:16 PM", "%d %b %Y %H:%M:%S%p", "2004-01-05 22:15:16"},
      {"5 Jan 2004 10:15:16PM", "%d %b %Y %H:%M:%S%p", "2004-01-05 22:15:16"},
      {"5 Jan 2004 10:15:16", "%d %b %Y %H:%M:%S%p", "2004-01-05 10:15:16"},
      {"5 Jan 2004", "%d %b %Y %H:%M:%S%p", "2004-01-05 00:00:00"},
      {"5jan45", "%d %b %Y %H:%M:%S%p", "1945-01-05 00:00:00"},
      {"5 Jan 2004 10:15:16 x", "%d %b %Y %H:%M:%S", "0"},
      {"5 Jan 2004 10:15 PM", "%d %b %Y %H:%M%p", "2004-01-05 22:15:00"},
      {"5 Jan 2004 10:15pm", "%d %b %Y %H:%M%p", "2004-01-05 22:15:00"},
      {"5 Jan 2004 10:15 x", "%d %b %Y %H:%M", "0"},
      {"5 Jan 2004 10 PM", "%d %b %Y %H%p", "2004-01-05 22:00:00"},
      {"5 Jan 2004 PM", "%d %b %y%p", "2004-01-05 12:00:00"},
      {"5 Jan 2004 AM", "%d %b %y%p", "2004-01-05 00:00:00"},
      {"5 Jan 2004 x", "none", "0"},
      {"31 Jun 2004", "none", "0"},
      {"5-Jan-2004", "none", "0"},
      // Weekdays ahead of anything.
      {"Monday, Jan 5 2004", "weekday, %h %d %Y %H:%M:%S", "2004-01-05 00:00:00"},
      {"Monday, 1/5/04", "weekday, {D}", "2004-01-05 00:00:00"},
      {"\t Mon,\t, 5 Jan 2004", "weekday, %d %b %Y %H:%M:%S%p", "2004-01-05 00:00:00"},
      {"Mon Tue 5 Jan 2004", "weekday, weekday, %d %b %Y %H:%M:%S%p", "2004-01-05 00:00:00"},
      {"Monday 1000000000", "weekday, digits", "2001-09-09 01:46:40"},
      {"Monday", "%A , %B %d , %Y %I:%M:%S %p", "2001-03-01 00:00:00"},
      {"Mon", "{DT}", "2001-03-01 06:07:08"},
      {"Monday x", "weekday, none", "0"},
      // Digits are a number of seconds, whatever else they might be.
      {"1000000000", "digits", "2001-09-09 01:46:40"},
      {"0", "digits", "1970-01-01 00:00:00"},
      {"90", "digits", "1970-01-01 00:01:30"},
      {"12", "digits", "1970-01-01 00:00:12"},
      {"4294967296", "digits", "2106-02-07 06:28:16"},
      {"99999999999999999999", "digits", "0"},
      {"12 ", "{D}", "2001-12-01 06:07:08"},
      {"45 ", "%y/%m/%d %H:%M:%S", "1945-03-01 06:07:08"},
      {"-5", "none", "0"},
      {"", "none", "0"},
      {"  ", "none", "0"},
  };
  check(cases);
}

TEST_F(Formats, NumericDatesOfALocaleWithoutSlashes) {
  useLocale("de_DE.ISO-8859-1");
  const Case cases[] = {
      {"5.1.2004", "{D}", "2004-01-05 06:07:08"},
      {"5.1.04 10:15", "{D}", "2004-01-05 10:15:08"},
      {"5.1.04 10:15:16 PM", "{D}", "0"},
      {"1/5/04 10:15", "%y/%m/%d %H:%M:%S", "2001-05-04 10:15:08"},
      {"5/1/2004 10:15:16", "%D %H:%M:%S %p", "2004-01-05 10:15:16"},
      {"5/1/2004 10:15:16 x", "%D %H:%M:%S", "0"},
      {"5/1/2004 10:15 x", "%D %H:%M", "0"},
      {"5/1/2004 10 x", "none", "0"},
      {"5/1/2004 24:15", "none", "0"},
      {"5/1/2004", "%D %H:%M:%S %p", "2004-01-05 00:00:00"},
      {"13/13/2004", "none", "0"},
      {"Mo 5 Jan 2004 10:15:16", "{DT}", "2004-01-05 10:15:16"},
      {"Montag, 5. Januar 2004", "weekday, none", "0"},
      {"5 M\xE4rz 2004 10:15:16", "{DT}", "2004-03-05 10:15:16"},
      {"5 m\xE4r 2004", "{DT}", "2004-03-05 06:07:08"},
      {"5 M\xC4RZ 2004", "{DT}", "2004-03-05 06:07:08"},
      {"Dez 5 2004", "%h %d %Y %H:%M:%S", "2004-12-05 06:07:08"},
      {"Dec 5 2004", "none", "0"},
      {"Dienstag, Dezember 5, 2004", "%A , %B %d , %Y %I:%M:%S %p", "2004-12-05 00:00:00"},
      {"Dienstag Dez 5 2004", "weekday, %h %d %Y %H:%M:%S", "2004-12-05 00:00:00"},
      {"5 Jan 2004 10 PM", "none", "0"},
  };
  check(cases);
}

TEST_F(Formats, OfFrance) {
  useLocale("fr_FR.ISO-8859-1");
  const Case cases[] = {
      {"05/01/2004", "{D}", "2004-01-05 06:07:08"},
      {"5/1/04 10:15", "{D}", "2004-01-05 10:15:08"},
      {"lun. 5 janv. 2004 10:15:16", "{DT}", "2004-01-05 10:15:16"},
      {"5 F\xC9VRIER 2004", "{DT}", "2004-02-05 06:07:08"},
      {"lundi 5 janvier 2004", "weekday, {DT}", "2004-01-05 00:00:00"},
      {"5 f\xE9vr. 2004", "{DT}", "2004-02-05 06:07:08"},
      {"5 Jan 2004", "none", "0"},
  };
  check(cases);
}

TEST_F(Formats, OfTheUnitedStatesHaveALiteralInTheirTime) {
  useLocale("en_US.ISO-8859-1");
  const Case cases[] = {
      {"01/05/2004 10:15:16 PM", "{D}", "2004-01-05 22:15:16"},
      {"1/5/2004 r", "{D}", "2004-01-05 06:07:08"},
      {"Mon 05 Jan 2004 r", "{DT}", "2004-01-05 06:07:08"},
      {"Jan 5 2004 r", "%h %d %Y {T}", "2004-01-05 06:07:08"},
      {"Jan 5, 2004 r", "%h %d , %Y {T}", "2004-01-05 06:07:08"},
  };
  check(cases);
}

TEST_F(Formats, OfJapan) {
  useLocale("ja_JP.EUC-JP");
#define NEN "\xC7\xAF"
#define GATSU "\xB7\xEE"
#define NICHI "\xC6\xFC"
#define JI "\xBB\xFE"
#define FUN "\xCA\xAC"
#define BYO "\xC9\xC3"
#define GOZEN "\xB8\xE1\xC1\xB0"
#define GOGO "\xB8\xE1\xB8\xE5"
#define YOUBI "\xCD\xCB\xC6\xFC"
  const Case cases[] = {
      {"2004" NEN "1" GATSU "5" NICHI " 10" JI "15" FUN "16" BYO, "{DT}", "2004-01-05 10:15:16"},
      {"2004" NEN "1" GATSU "5" NICHI, "{DT}", "2004-01-05 06:07:08"},
      {"2004" NEN "1" GATSU "5" NICHI " 10:15", "{D}", "2004-01-05 10:15:08"},
      {"2004" NEN "1" GATSU "5" NICHI " 10:15:16 " GOGO, "{D}", "2004-01-05 22:15:16"},
      {"2004" NEN "1" GATSU "5" NICHI " 10:15:16 " GOGO " x", "{D} %I:%M:%S %p", "0"},
      {"1" GATSU " 5 2004 10:15:16 x", "%h %d %Y", "0"},
      {"1" GATSU " 5, 2004 10:15:16 x", "%h %d , %Y", "0"},
      {"1" GATSU " 5 2004 10:15 x", "%h %d %Y", "0"},
      {"1" GATSU " 5 2004 10" JI "15" FUN "16" BYO, "%h %d %Y {T}", "2004-01-05 10:15:16"},
      {"1" GATSU " 5, 2004 10" JI "15" FUN "16" BYO, "%h %d , %Y {T}", "2004-01-05 10:15:16"},
      {"12" GATSU " 5 2004 10:15", "%h %d %Y %H:%M:%S", "2004-12-05 10:15:08"},
      {"5 12" GATSU " 2004 10 " GOGO, "%d %b %Y %H%p", "2004-12-05 22:00:00"},
      {"\xB7\xEE" YOUBI ", 1" GATSU " 5, 2004 10:15:16 " GOZEN, "%A , %B %d , %Y %I:%M:%S %p",
       "2004-01-05 10:15:16"},
      // Numeric dates with the half of the day, the month first.
      {"1/5/2004 10:15:16 " GOGO, "%D %H:%M:%S %p", "2004-01-05 22:15:16"},
      {"1/5/2004 10:15:16 x", "%D %H:%M:%S", "0"},
      {"1/5/2004 10:15 " GOGO, "%D %H:%M %p", "2004-01-05 22:15:00"},
      {"1/5/2004 10:15" GOZEN, "%D %H:%M %p", "2004-01-05 10:15:00"},
      {"1/5/2004 10:15 x", "%D %H:%M", "0"},
      {"1/5/2004 10 " GOGO, "%D %H%p", "2004-01-05 22:00:00"},
      {"1/5/2004 12" GOZEN, "%D %H%p", "2004-01-05 00:00:00"},
      {"1/5/2004 " GOGO, "%D%p", "2004-01-05 12:00:00"},
      {"1/5/2004 x", "none", "0"},
      {"1/5/2004 13:15:16 " GOZEN, "%D %H:%M:%S", "0"},
      {"1/5/2004 13:15 " GOZEN, "%D %H:%M", "0"},
      {"1/5/2004 13 " GOZEN, "none", "0"},
  };
  check(cases);
}

TEST_F(Formats, OfTheEnvironment) {
  useVariable("ZQDATE", "%Y-%m-%d %H.%M");
  const Case cases[] = {
      {"2004-1-5 10.15", "{E}", "2004-01-05 10:15:08"},
      {"2004-1-5 ", "{E}", "2004-01-05 06:07:08"},
      {"2004-1-5 10.15\t", "{E}", "2004-01-05 10:15:08"},
      {"2004-1-5\t", "none", "0"},
      {"2004-1-5 10.15 x", "none", "0"},
      {"1/5/04", "{D}", "2004-01-05 06:07:08"},
      {"1000000000", "digits", "2001-09-09 01:46:40"},
  };
  check(cases);
  // It is read at each call.
  setenv("ZQDATE", "%d|%m|%y", 1);
  EXPECT_EQ(parse("2004-1-5 10.15"), "0");
  EXPECT_EQ(parse("5|1|04"), "2004-01-05 06:07:08");
  unsetenv("ZQDATE");
  EXPECT_EQ(parse("5|1|04"), "0");
  // An empty one is there, and matches without taking anything: only blanks may follow, so it is
  // dropped.
  setenv("ZQDATE", "", 1);
  EXPECT_EQ(parse("1/5/04"), "2004-01-05 06:07:08");
}

TEST_F(Formats, DayFirstFormatOfTheEnvironmentReadsDayFirst) {
  useVariable("ZQDATE", "%d/%m/%Y");
  EXPECT_EQ(parse("5/1/04"), "2004-01-05 06:07:08");
  // The order stays when the variable becomes a "%D".
  setenv("ZQDATE", "%D", 1);
  EXPECT_EQ(parse("5/1/04"), "2004-01-05 06:07:08");
}

TEST_F(Formats, FailedMatchesStayInTheFields) {
  struct tm fields = base();
  EXPECT_EQ(ParseDateTime("Jan 5 2004 10:15:16 x", &fields), 0);
  EXPECT_EQ(dump(fields), "2004-01-05 10:15:16");
}

TEST_F(Formats, RandomTextsGiveWhatTheLadderGives) {
  const std::vector<std::string> pieces = {
      "1",        "5",      "04",       "10",         "15",    "16",  "45",
      "2004",     "31",     "13",       "Jan",        "May",   "Mon", "Tuesday",
      ",",        "/",      "/",        ":",          ":",     " ",   " ",
      "\t",       "AM",     "PM",       "pm",         ".",     "x",   "-",
      "December", "1/5/04", "10:15:16", "5 Jan 2004", "Jan 5", "Mar", "Samstag",
      "Dez",      GATSU,    NEN,        NICHI,        GOGO,    JI};
  for (const char* locale :
       {"C", "de_DE.ISO-8859-1", "fr_FR.ISO-8859-1", "en_US.ISO-8859-1", "ja_JP.EUC-JP"}) {
    useLocale(locale);
    std::mt19937 random(6);
    int parsed = 0;
    for (int i = 0; i < 3000; ++i) {
      std::string text;
      for (size_t count = 1 + random() % 9; count > 0; --count) {
        text += pieces[random() % pieces.size()];
        text += random() % 3 == 0 ? " " : "";
      }
      const Outcome expected = parseByReference(text.c_str(), base());
      parsed += expected.isParsed ? 1 : 0;
      // The fields count on a failure too: they tell which formats have written them.
      struct tm fields = base();
      ASSERT_EQ(ParseDateTime(text.c_str(), &fields), expected.isParsed ? 1 : 0) << text;
      ASSERT_EQ(dump(fields), dump(expected.fields))
          << locale << ": " << text << " by " << expected.format;
    }
    EXPECT_GT(parsed, 30) << locale;
  }
}

TEST_F(Formats, AnyNumberOfWeekdaysTakesNoStack) {
  std::string text;
  for (int i = 0; i < 50'000; ++i) {
    text += "Mon ";
  }
  EXPECT_EQ(parse((text + "5 Jan 2004").c_str()), "2004-01-05 00:00:00");
}

}  // namespace
