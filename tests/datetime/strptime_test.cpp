// zqstrptime, zqstrptimeofday, ZqDayInMonth, and the state behind them.

#include <climits>
#include <cstring>

#include "datetime/DateTimeTest.h"
#include "fault/FailingAllocations.h"
#include "text/datetime_state.h"
#include "zqxml/datetime.h"

namespace {

constexpr char kNoMatch[] = "no match";

class Strptime : public DateTimeTest {
 protected:
  using Function = char*(const char*, const char*, struct tm*);

  // The time that a text gives on top of 1 March 2001, 06:07:08, with what is left of the text
  // behind a "|"; the same for a null `tm` is checked on the way.
  static std::string read(Function* function, const char* format, const char* text) {
    struct tm fields = makeTime(2001, 3, 1, 6, 7, 8);
    const char* end = function(text, format, &fields);
    if (end == nullptr) {
      EXPECT_EQ(dump(fields), "2001-03-01 06:07:08") << "a failure leaves the fields alone";
      return kNoMatch;
    }
    return dump(fields) + (*end != '\0' ? "|" + std::string(end) : "");
  }

  static std::string read(const char* format, const char* text) {
    return read(zqstrptime, format, text);
  }
  static std::string readTimeOfDay(const char* format, const char* text) {
    return read(zqstrptimeofday, format, text);
  }

  // The number that a format stores in a field, or -100 for no match.
  static int field(int(tm::*member), const char* format, const char* text) {
    struct tm fields = makeTime(2001, 3, 1);
    return zqstrptime(text, format, &fields) != nullptr ? fields.*member : -100;
  }
};

struct Case {
  const char* format;
  const char* text;
  const char* expected;
};

TEST_F(Strptime, EveryLetter) {
  const Case cases[] = {
      {"%H", "0", "2001-03-01 00:07:08"},
      {"%H", "23", "2001-03-01 23:07:08"},
      {"%H", "24", kNoMatch},
      {"%k", "23", "2001-03-01 23:07:08"},
      {"%k", "24", kNoMatch},
      {"%I", "0", "2001-03-01 00:07:08"},
      {"%I", "12", "2001-03-01 12:07:08"},
      {"%I", "13", kNoMatch},
      {"%l", "12", "2001-03-01 12:07:08"},
      {"%l", "13", kNoMatch},
      {"%M", "59", "2001-03-01 06:59:08"},
      {"%M", "60", kNoMatch},
      {"%S", "59", "2001-03-01 06:07:59"},
      {"%S", "60", kNoMatch},
      {"%d", "31", "2001-03-31 06:07:08"},
      {"%e", "31", "2001-03-31 06:07:08"},
      {"%d", "0", kNoMatch},
      {"%d", "32", kNoMatch},
      {"%m", "1", "2001-01-01 06:07:08"},
      {"%m", "12", "2001-12-01 06:07:08"},
      {"%m", "0", kNoMatch},
      {"%m", "13", kNoMatch},
      {"%T", "1:2:3", "2001-03-01 01:02:03"},
      {"%X", "1:2:3", "2001-03-01 01:02:03"},
      {"%T %d", "1:2:3 4", "2001-03-04 01:02:03"},
      {"%X%d", "1:2:3 4", "2001-03-04 01:02:03"},
      {"%D", "1/5/04", "2004-01-05 06:07:08"},
      {"%D %H", "1/5/04 9", "2004-01-05 09:07:08"},
      {"%D%T%%", "1/5/04 9:8:7", "2004-01-05 09:08:07"},
      {"%B", "january", "2001-01-01 06:07:08"},
      {"%B", "JAN", "2001-01-01 06:07:08"},
      {"%b", "December", "2001-12-01 06:07:08"},
      {"%h", "Maying", "2001-05-01 06:07:08|ing"},
      {"%b", "Foo", kNoMatch},
      {"%d", "x", kNoMatch},
      {"%H", "x", kNoMatch},
      {"%y", "x", kNoMatch},
      {"%j", "x", kNoMatch},
      {"%w", "x", kNoMatch},
      {"%p", "x", kNoMatch},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(read(row.format, row.text), row.expected) << row.format << " <- " << row.text;
  }
}

TEST_F(Strptime, FieldsBesideDateAndTime) {
  EXPECT_EQ(field(&tm::tm_yday, "%j", "0"), 0);
  EXPECT_EQ(field(&tm::tm_yday, "%j", "365"), 365);
  EXPECT_EQ(field(&tm::tm_yday, "%j", "366"), -100);
  EXPECT_EQ(field(&tm::tm_wday, "%w", "1"), 0);
  EXPECT_EQ(field(&tm::tm_wday, "%w", "7"), 6);
  EXPECT_EQ(field(&tm::tm_wday, "%w", "0"), -100);
  EXPECT_EQ(field(&tm::tm_wday, "%w", "8"), -100);
  EXPECT_EQ(field(&tm::tm_wday, "%A", "Saturday"), 6);
  EXPECT_EQ(field(&tm::tm_wday, "%a", "tue"), 2);
}

TEST_F(Strptime, Years) {
  const struct {
    const char* text;
    int year;
  } cases[] = {{"0", 2000},
               {"38", 2038},
               {"39", 1939},
               {"99", 1999},
               {"100", 2000},
               {"101", 101},
               {"999", 999},
               {"2005", 2005},
               {"0004", 2004},
               {"9999", 9999},
               {"99999999999", INT_MAX}};
  for (const auto& row : cases) {
    EXPECT_EQ(field(&tm::tm_year, "%Y", row.text), row.year - 1900) << row.text;
    EXPECT_EQ(field(&tm::tm_year, "%y", row.text), row.year - 1900) << row.text;
  }
  EXPECT_EQ(field(&tm::tm_year, "%Y", "-1"), -100);
}

TEST_F(Strptime, LettersActWithOrWithoutPercent) {
  EXPECT_EQ(read("H:M", "10:15"), "2001-03-01 10:15:08");
  EXPECT_EQ(read("%%H%:%M%", "10:15"), "2001-03-01 10:15:08");
  EXPECT_EQ(read("%", "10:15"), "2001-03-01 06:07:08|10:15");
}

TEST_F(Strptime, LettersThatOthersKnowAreLiterals) {
  for (const char* letter : {"R", "r", "c", "x", "Z", "n", "t", "C", "F", "E", "O", "U", "z"}) {
    const std::string format = std::string("%") + letter + "%H";
    EXPECT_EQ(read(format.c_str(), "10:15"), kNoMatch) << letter;
    EXPECT_EQ(read(format.c_str(), (std::string(letter) + "10").c_str()), "2001-03-01 10:07:08");
  }
}

TEST_F(Strptime, LiteralsMatchExactly) {
  EXPECT_EQ(read("%d-%m", "5-1"), "2001-01-05 06:07:08");
  EXPECT_EQ(read("%d-%m", "5 - 1"), "2001-01-05 06:07:08");
  EXPECT_EQ(read("%d-%m", "5/1"), kNoMatch);
  EXPECT_EQ(read("%dx%m", "5X1"), kNoMatch);
  EXPECT_EQ(read("%d\xE9%m",
                 "5\xE9"
                 "1"),
            "2001-01-05 06:07:08");
}

TEST_F(Strptime, PointsAndWidths) {
  EXPECT_EQ(read("%d.%m", "5.2"), "2001-02-05 06:07:08");
  EXPECT_EQ(read("%d . %m", "5 . 2"), "2001-02-05 06:07:08");
  EXPECT_EQ(read("%d.%m", "5/2"), kNoMatch);
  EXPECT_EQ(read("%.3d/%.12m", "5/2"), "2001-02-05 06:07:08") << "a width has no effect";
  EXPECT_EQ(read("%d.3", "5"), "2001-03-05 06:07:08");
  EXPECT_EQ(read("%d.3%m", "5.2"), kNoMatch) << "so the point isn't asked for";
}

TEST_F(Strptime, BlanksAreSpacesAlone) {
  EXPECT_EQ(read("   %H  :  %M", "  10 :15   |"), "2001-03-01 10:15:08||");
  EXPECT_EQ(read("%H%M", "10 15"), "2001-03-01 10:15:08");
  EXPECT_EQ(read("%H %M", "10\t15"), kNoMatch);
  EXPECT_EQ(read("%H", "\t10"), kNoMatch);
  EXPECT_EQ(read("%H\t%M", "10\t15"), "2001-03-01 10:15:08") << "a tab in the format is a literal";
}

TEST_F(Strptime, EmptyTextsAndFormats) {
  EXPECT_EQ(read("%H", ""), kNoMatch);
  EXPECT_EQ(read("%H", "   "), kNoMatch);
  EXPECT_EQ(read("", ""), kNoMatch);
  EXPECT_EQ(read("", " 10"), "2001-03-01 06:07:08|10");
  EXPECT_EQ(read("  ", "10"), "2001-03-01 06:07:08|10");
}

TEST_F(Strptime, TextThatEndsEarlyMatches) {
  EXPECT_EQ(read("%H:%M:%S", "10"), "2001-03-01 10:07:08");
  EXPECT_EQ(read("%H:%M:%S", "10:15:"), "2001-03-01 10:15:08");
  EXPECT_EQ(read("%b %e %H:%M:%S %Y", "Jan 5 04"), "2001-01-05 04:07:08");
}

TEST_F(Strptime, WeekdayIsNoConditionAndMonthIs) {
  EXPECT_EQ(read("%a", "xyz"), "2001-03-01 06:07:08|xyz");
  EXPECT_EQ(read("%A %H", "10"), "2001-03-01 10:07:08");
  EXPECT_EQ(read("%a", "Monday"), "2001-03-01 06:07:08|day") << "the short name is all it knows";
  EXPECT_EQ(read("%A", "Mon"), "2001-03-01 06:07:08|Mon") << "and the whole one";
  EXPECT_EQ(read("%a", "Month"), "2001-03-01 06:07:08|th") << "a name is a prefix";
  EXPECT_EQ(read("%B", "10"), kNoMatch);
}

TEST_F(Strptime, HalvesOfTheDay) {
  const Case cases[] = {
      {"%I:%M %p", "12:00 AM", "2001-03-01 00:00:08"},
      {"%I:%M %p", "12:00 PM", "2001-03-01 12:00:08"},
      {"%I:%M %p", "01:00 pm", "2001-03-01 13:00:08"},
      {"%I:%M %p", "0:30 PM", "2001-03-01 12:30:08"},
      {"%I:%M %p", "11:59 AM", "2001-03-01 11:59:08"},
      {"%I:%M %p", "13:00 AM", kNoMatch},
      {"%H:%M %p", "13:00 AM", kNoMatch},
      {"%H:%M %p", "13:00 PM", "2001-03-01 13:00:08"},
      {"%H:%M %p", "10:00 XM", kNoMatch},
      {"%p %I", "PM 3", "2001-03-01 03:07:08"},
      {"%p", "PM", "2001-03-01 18:07:08"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(read(row.format, row.text), row.expected) << row.format << " <- " << row.text;
  }
}

TEST_F(Strptime, TheDateHasToExist) {
  EXPECT_EQ(read("%d/%m/%Y", "30/2/2004"), kNoMatch);
  EXPECT_EQ(read("%d/%m/%Y", "29/2/2004"), "2004-02-29 06:07:08");
  EXPECT_EQ(read("%d/%m/%Y", "29/2/2003"), kNoMatch);
  EXPECT_EQ(read("%d/%m/%Y", "29/2/2000"), "2000-02-29 06:07:08");
  EXPECT_EQ(read("%d/%m/%Y", "29/2/1900"), kNoMatch);
  EXPECT_EQ(read("%d/%m/%Y", "31/4/2004"), kNoMatch);
  // The fields that the text doesn't give have to be a date, too.
  struct tm none = {};
  EXPECT_EQ(zqstrptime("10:15", "%H:%M", &none), nullptr);
  none.tm_mday = 1;
  none.tm_mon = 12;
  EXPECT_EQ(zqstrptime("10:15", "%H:%M", &none), nullptr);
}

TEST_F(Strptime, Years2900AndLaterAreNotRaised) {
  EXPECT_EQ(read("%d/%m/%Y", "29/2/3100"), "3100-02-29 06:07:08") << "1200 is a leap year";
  EXPECT_EQ(read("%d/%m/%Y", "29/2/2800"), "2800-02-29 06:07:08");
}

TEST_F(Strptime, NumbersSaturate) {
  EXPECT_EQ(read("%d", "99999999999999999999"), kNoMatch);
  EXPECT_EQ(read("%H", "4294967297"), kNoMatch);
  EXPECT_EQ(read("%H", "2147483648"), kNoMatch);
}

TEST_F(Strptime, NullArguments) {
  struct tm fields = makeTime(2001, 3, 1);
  for (const auto function : {zqstrptime, zqstrptimeofday}) {
    EXPECT_EQ(function(nullptr, "%H", &fields), nullptr);
    EXPECT_EQ(function("10", nullptr, &fields), nullptr);
    const char* text = "10:15";
    EXPECT_EQ(function(text, "%H", nullptr), text + 2);
  }
}

TEST_F(Strptime, TimeOfDay) {
  const Case cases[] = {
      {"%H:%M:%S", "10:15:16", "1900-01-00 10:15:16"},
      {"%k-%M/%S", "10-15/16", "1900-01-00 10:15:16"},
      {"%T", "1:2:3", "1900-01-00 01:02:03"},
      {"%X", "1:2", "1900-01-00 01:02:08"},
      {"%I:%M %p", "12:00 AM", "1900-01-00 00:00:08"},
      {"%l.%M%p", "12.01PM", "1900-01-00 12:01:08"},
      {"%.2H", "5", "1900-01-00 05:07:08"},
      {"%H:%M", "10", "1900-01-00 10:07:08"},
      {"%H:%M", "25:00", kNoMatch},
      {"%H:%M", "10;15", kNoMatch},
      {"%d", "5", kNoMatch},
      {"%H %d", "5 5", kNoMatch},
      {"%H %d", "5", "1900-01-00 05:07:08"},
      {"%H:%M %Y", "5:5 2004", kNoMatch},
      {"%r", "r", kNoMatch},
      {"%H5", "1 5", kNoMatch},
      {"%H\xE9", "1\xE9", kNoMatch},
      {"%H", "", kNoMatch},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(readTimeOfDay(row.format, row.text), row.expected)
        << row.format << " <- " << row.text;
  }
  for (const char letter : std::string("AaBbhDYydejmwRrcxZntCFgGuUVWz")) {
    EXPECT_EQ(readTimeOfDay(std::string(1, letter).c_str(), std::string(1, letter).c_str()),
              kNoMatch)
        << letter;
  }
}

TEST_F(Strptime, TimeOfDayClearsTheDate) {
  struct tm fields = makeTime(2001, 3, 1);
  fields.tm_wday = 4;
  fields.tm_yday = 60;
  fields.tm_isdst = 1;
  ASSERT_NE(zqstrptimeofday("10", "%H", &fields), nullptr);
  EXPECT_EQ(dump(fields), "1900-01-00 10:00:00");
  EXPECT_EQ(fields.tm_wday, 0);
  EXPECT_EQ(fields.tm_yday, 0);
  EXPECT_EQ(fields.tm_isdst, 0);
}

TEST_F(Strptime, DaysInMonth) {
  const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int month = 0; month < 12; ++month) {
    EXPECT_EQ(ZqDayInMonth(2003, month), days[month]) << month;
    EXPECT_EQ(ZqDayInMonth(2004, month), days[month] + (month == 1)) << month;
  }
  EXPECT_EQ(ZqDayInMonth(100, 1), 29) << "2000";
  EXPECT_EQ(ZqDayInMonth(0, 1), 28) << "1900";
  EXPECT_EQ(ZqDayInMonth(999, 1), 28) << "2899";
  EXPECT_EQ(ZqDayInMonth(996, 1), 29) << "2896";
  EXPECT_EQ(ZqDayInMonth(1000, 1), 28) << "1000 itself";
  EXPECT_EQ(ZqDayInMonth(1200, 1), 29);
  EXPECT_EQ(ZqDayInMonth(-1900, 1), 29) << "year 0";
  EXPECT_EQ(ZqDayInMonth(INT_MIN, 1), 29);
  EXPECT_EQ(ZqDayInMonth(INT_MAX, 1), 28);
  for (const int month : {-1, 12, INT_MIN, INT_MAX}) {
    EXPECT_EQ(ZqDayInMonth(2004, month), 0) << month;
  }
}

TEST_F(Strptime, OrderOfMonthAndDay) {
  const struct {
    const char* program;
    int monthFirst;
  } cases[] = {
      {nullptr, 1},    {"", 1},         {"%d/%m/%Y", 0},   {"%e.%m", 0},  {"%m-%d", 1},
      {"%Y %B %d", 1}, {"%Y %b %d", 1}, {"%Y %h %d", 1},   {"%H:%M", 1},  {"the day: %m", 1},
      {"day %m", 0},   {"%D", 1},       {"%H o'clock", 1}, {"made %m", 1}};
  for (const auto& row : cases) {
    useVariable("ZQDATE", row.program);
    ASSERT_EQ(InitDateTimeInfo(), 0);
    EXPECT_EQ(datetime::state.monthbday, row.monthFirst)
        << (row.program != nullptr ? row.program : "unset");
    EXPECT_EQ(read("%D", "1/5/04"), row.monthFirst ? "2004-01-05 06:07:08" : "2004-05-01 06:07:08");
  }
}

TEST_F(Strptime, OrderIsTakenOnce) {
  ASSERT_EQ(InitDateTimeInfo(), 0);
  setenv("ZQDATE", "%d/%m/%Y", 1);
  ASSERT_EQ(InitDateTimeInfo(), 0);
  EXPECT_EQ(read("%D", "1/5/04"), "2004-01-05 06:07:08");
}

TEST_F(Strptime, StateOfAProcess) {
  EXPECT_EQ(datetime::state.monthbday, -1);
  EXPECT_EQ(datetime::state.initialized, 0);
  ASSERT_EQ(InitDateTimeInfo(), 0);
  EXPECT_EQ(datetime::state.initialized, 1);
  const time_t now = time(nullptr);
  struct tm today;
  localtime_r(&now, &today);
  EXPECT_EQ(datetime::state.defaultTwoDigitYearCutoff, today.tm_year + 1929);
  // One block holds all texts, one behind the other.
  const char* next = datetime::state.combinedBuf;
  const auto expectNext = [&next](const char* text, const char* expected) {
    EXPECT_EQ(text, next);
    EXPECT_STREQ(text, expected);
    next += strlen(text) + 1;
  };
  const char* const months[] = {"January",   "February", "March",    "April",
                                "May",       "June",     "July",     "August",
                                "September", "October",  "November", "December"};
  const char* const week[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                              "Thursday", "Friday", "Saturday"};
  for (int i = 0; i < 12; ++i) expectNext(datetime::state.months[i], months[i]);
  for (int i = 0; i < 12; ++i) {
    expectNext(datetime::state.monthsAbrev[i], std::string(months[i], 3).c_str());
  }
  for (int i = 0; i < 7; ++i) expectNext(datetime::state.week[i], week[i]);
  for (int i = 0; i < 7; ++i) {
    expectNext(datetime::state.weekAbrv[i], std::string(week[i], 3).c_str());
  }
  expectNext(datetime::state.morningTime, "AM");
  expectNext(datetime::state.afternoonTime, "PM");
  expectNext(datetime::state.dateOnlyEnv, "ZQDATEONLY");
  expectNext(datetime::state.timeOnlyEnv, "ZQTIMEONLY");
  expectNext(datetime::state.dateEnvVar, "ZQDATE");
}

TEST_F(Strptime, CleanupIsHarmlessBeforeAndAfterUse) {
  CleanupDateTimeInfo();
  EXPECT_EQ(datetime::state.initialized, 0);
  ASSERT_EQ(InitDateTimeInfo(), 0);
  CleanupDateTimeInfo();
  CleanupDateTimeInfo();
  EXPECT_EQ(datetime::state.initialized, 1);
  EXPECT_EQ(datetime::state.combinedBuf, nullptr);
  EXPECT_EQ(read("%b", "Jan"), kNoMatch);
  EXPECT_EQ(read("%p", "AM"), kNoMatch);
  EXPECT_EQ(read("%D", "1/5/04"), "2004-01-05 06:07:08");
  char* rest = nullptr;
  EXPECT_EQ(StripLeadWeekday("Monday", &rest), 0);
  char text[32];
  const struct tm fields = makeTime(2004, 1, 5);
  setenv("ZQDATEONLY", "%Y", 1);
  EXPECT_EQ(FormatDate(text, sizeof text, &fields), 8u);
  EXPECT_STREQ(text, "01/05/04");
}

TEST_F(Strptime, OutOfMemory) {
  const auto failing = [](auto call) {
    forget();
    const fault::FailingAllocations failure(0);
    return call();
  };
  struct tm fields = makeTime(2004, 1, 5);
  char text[32];
  EXPECT_EQ(failing([] { return InitDateTimeInfo(); }), 300);
  EXPECT_EQ(datetime::state.initialized, 0);
  EXPECT_EQ(failing([&] { return zqstrptime("10", "%H", &fields); }), nullptr);
  EXPECT_EQ(failing([&] { return zqstrptimeofday("10", "%H", &fields); }), nullptr);
  EXPECT_EQ(failing([&] { return ParseDateTime("1000000000", &fields); }), 0);
  EXPECT_EQ(failing([&] { return StripLeadWeekday("Monday", nullptr); }), 0);
  EXPECT_EQ(failing([&] { return FormatDate(text, sizeof text, &fields); }), 300u);
  EXPECT_EQ(failing([&] { return FormatTime(text, sizeof text, &fields); }), 300u);
  EXPECT_EQ(failing([&] { return FormatDateTime(text, sizeof text, &fields); }), 300u);
  EXPECT_EQ(InitDateTimeInfo(), 0) << "the next call tries again";
  EXPECT_EQ(dump(fields), "2004-01-05 00:00:00");
}

}  // namespace
