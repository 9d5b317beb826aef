// Times without a date, weekdays ahead of a text, and how ParseDateTime treats summer time.

#include <climits>
#include <cstdlib>
#include <cstring>

#include "datetime/DateTimeTest.h"
#include "zqxml/datetime.h"

namespace {

class Parse : public DateTimeTest {
 protected:
  using Function = char*(const char*, struct tm*);

  // The time of day on top of 06:07:08 of 1 March 2001, with what is left of the text behind a "|".
  static std::string read(Function* function, const char* text) {
    struct tm fields = makeTime(2001, 3, 1, 6, 7, 8);
    const char* end = function(text, &fields);
    return end == nullptr ? "no match"
                          : dump(fields).substr(11) + (*end != '\0' ? "|" + std::string(end) : "");
  }

  // The local time and the seconds since the epoch that ParseDateTime gives.
  static std::string local(const char* text) {
    struct tm fields = makeTime(2001, 3, 1);
    if (ParseDateTime(text, &fields) == 0) {
      return "0";
    }
    struct tm copy = fields;
    return dump(fields) + " = " + std::to_string(mktime(&copy));
  }
};

TEST_F(Parse, TimeOnly) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"10:15:16", "10:15:16"},
      {"10:15", "10:15:08"},
      {"10", "10:07:08"},
      {" 10 : 15 ", "10:15:08"},
      {"10:15:16 \t \t", "10:15:16"},
      {"10:15:16 PM", "22:15:16"},
      {"10:15:16pm", "22:15:16"},
      {"12:15 AM", "00:15:16"},
      {"10:15 PM", "22:15:08"},
      {"13:15 PM", "no match"},
      {"13:15:16 PM", "13:15:16|PM"},
      {"10:15:16 x", "10:15:16|x"},
      {"10:15:16 PM x", "10:15:16|PM x"},
      {"10:15 PM x", "22:15:08|x"},
      {"10:15 x", "no match"},
      {"10x", "no match"},
      {"24:00", "no match"},
      {"", "no match"},
      {"PM", "no match"},
  };
  for (const auto& row : cases) {
    std::string expected = row.expected;
    if (strcmp(row.text, "12:15 AM") == 0) {
      expected = "00:15:08";
    }
    EXPECT_EQ(read(ParseTimeOnly, row.text), expected) << row.text;
  }
}

TEST_F(Parse, TimeOnlyNeedsADate) {
  struct tm none = {};
  EXPECT_EQ(ParseTimeOnly("10:15", &none), nullptr);
  EXPECT_EQ(ParseTimeOnly(nullptr, &none), nullptr);
  EXPECT_NE(ParseTimeOnly("10:15", nullptr), nullptr);
}

TEST_F(Parse, TimeOnlyInTheLocale) {
  useLocale("ja_JP.EUC-JP");
  EXPECT_EQ(read(ParseTimeOnly,
                 "10\xBB\xFE"
                 "15\xCA\xAC"
                 "16\xC9\xC3"),
            "10:15:16");
  EXPECT_EQ(read(ParseTimeOnly, "10\xBB\xFE"), "10:07:08");
  EXPECT_EQ(read(ParseTimeOnly,
                 "10\xBB\xFE"
                 "15\xCA\xAC"
                 "16\xC9\xC3 x"),
            "10:15:16|x");
  EXPECT_EQ(read(ParseTimeOnly, "10:15 \xB8\xE1\xB8\xE5"), "22:15:08");
  EXPECT_EQ(read(ParseTimeOnly, "10:15 PM"), "no match");
  useLocale("de_DE.ISO-8859-1");
  EXPECT_EQ(read(ParseTimeOnly, "10:15:16"), "10:15:16");
  EXPECT_EQ(read(ParseTimeOnly, "10:15 PM"), "no match") << "an empty name matches nothing";
}

TEST_F(Parse, TimeOfDay) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"10:15:16", "10:15:16"},
      {"10:15", "10:15:08"},
      {"10:15:16 PM\t ", "22:15:16"},
      {"12:15:16 AM", "00:15:16"},
      {"10:15 PM", "22:15:08"},
      {"10:15:16 x", "no match"},
      {"13:15:16 PM", "no match"},
      {"10", "00:00:10"},
      {"0", "00:00:00"},
      {"90", "00:01:30"},
      {"1000000000", "01:46:40"},
      {"86399", "23:59:59"},
      {"99999999999999999999", "no match"},
      {"10 ", "10:07:08"},
      {"5 Jan", "no match"},
      {"", "no match"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(read(ParseTimeOfDayOnly, row.text), row.expected) << row.text;
  }
  struct tm fields = makeTime(2001, 3, 1);
  EXPECT_EQ(ParseTimeOfDayOnly(nullptr, &fields), nullptr);
  EXPECT_NE(ParseTimeOfDayOnly("10:15", nullptr), nullptr);
}

TEST_F(Parse, TimeOfDayInTheLocaleWantsPunctuation) {
  useLocale("ja_JP.EUC-JP");
  EXPECT_EQ(read(ParseTimeOfDayOnly,
                 "10\xBB\xFE"
                 "15\xCA\xAC"
                 "16\xC9\xC3"),
            "no match");
  EXPECT_EQ(read(ParseTimeOfDayOnly, "10:15:16"), "10:15:16");
  useLocale("en_US.ISO-8859-1");
  EXPECT_EQ(read(ParseTimeOfDayOnly, "10:15:16 PM"), "22:15:16");
}

TEST_F(Parse, TimeOfDayIsTakenOnTheLastDayOf1899) {
  useZone("AEST-10AEDT,M10.1.0,M4.1.0/3");
  EXPECT_EQ(read(ParseTimeOfDayOnly, "12:00"), "01:00:08") << "summer there: in UTC, an hour off";
  useZone("CET-1CEST,M3.5.0,M10.5.0/3");
  EXPECT_EQ(read(ParseTimeOfDayOnly, "12:00"), "12:00:08");
  // Digits leave the date as it is, here that of a summer.
  struct tm july = makeTime(2004, 7, 15);
  ASSERT_NE(ParseTimeOfDayOnly("43200", &july), nullptr);
  EXPECT_EQ(july.tm_hour, 10);
}

TEST_F(Parse, LeadingWeekday) {
  const struct {
    const char* text;
    const char* rest;  // null for none
  } cases[] = {
      {"Monday, Jan 5", "Jan 5"},
      {"mon,\t ,x", "x"},
      {" \t SUNDAY", ""},
      {"Tues 5", "s 5"},
      {"Month", "th"},
      {"Sat", ""},
      {"Mo", nullptr},
      {"", nullptr},
      {",Monday", nullptr},
      {"xMonday", nullptr},
      {"Wednesdayx", "x"},
      {"Thursday;1", ";1"},
  };
  for (const auto& row : cases) {
    char untouched[] = "untouched";
    char* rest = untouched;
    EXPECT_EQ(StripLeadWeekday(row.text, &rest), row.rest != nullptr ? 1 : 0) << row.text;
    EXPECT_STREQ(rest, row.rest != nullptr ? row.rest : "untouched") << row.text;
  }
  char* rest = nullptr;
  EXPECT_EQ(StripLeadWeekday(nullptr, &rest), 0);
  EXPECT_EQ(StripLeadWeekday("Monday", nullptr), 1);
}

TEST_F(Parse, NullArguments) {
  struct tm fields = makeTime(2001, 3, 1);
  EXPECT_EQ(ParseDateTime(nullptr, &fields), 0);
  EXPECT_EQ(ParseDateTime("1/5/04", nullptr), 1);
  EXPECT_EQ(ParseDateTime("10:15 x", nullptr), 0);
}

TEST_F(Parse, WildFieldsOfTheCaller) {
  for (const int wild : {INT_MIN, -1, INT_MAX}) {
    struct tm fields = {};
    fields.tm_sec = fields.tm_min = fields.tm_hour = fields.tm_mday = wild;
    fields.tm_mon = fields.tm_year = fields.tm_wday = fields.tm_yday = fields.tm_isdst = wild;
    struct tm copy = fields;
    EXPECT_EQ(ParseDateTime("5 Jan 2004", &copy), 1);
    copy = fields;
    EXPECT_EQ(ParseTimeOnly("10:15", &copy), nullptr);
    copy = fields;
    EXPECT_NE(ParseTimeOfDayOnly("10:15:16", &copy), nullptr);
    EXPECT_EQ(dump(copy), "1899-12-31 10:15:16");
  }
}

TEST_F(Parse, ZonesAndTheirSummers) {
  useZone("CET-1CEST,M3.5.0,M10.5.0/3");
  EXPECT_EQ(local("1/15/2004 12:00:00"), "2004-01-15 12:00:00 = 1074164400");
  EXPECT_EQ(local("7/15/2004 12:00:00"), "2004-07-15 12:00:00 = 1089885600");
  useZone("EST5EDT,M4.1.0,M10.5.0");
  EXPECT_EQ(local("1/15/2004 12:00:00"), "2004-01-15 12:00:00 = 1074186000");
  EXPECT_EQ(local("7/15/2004 12:00:00"), "2004-07-15 12:00:00 = 1089907200");
  useZone("AEST-10AEDT,M10.1.0,M4.1.0/3");
  EXPECT_EQ(local("1/15/2004 12:00:00"), "2004-01-15 12:00:00 = 1074128400");
  EXPECT_EQ(local("7/15/2004 12:00:00"), "2004-07-15 12:00:00 = 1089856800");
  useZone("<+0530>-5:30");
  EXPECT_EQ(local("1/15/2004 12:00:00"), "2004-01-15 12:00:00 = 1074148200");
  EXPECT_EQ(local("1000000000"), "2001-09-09 07:16:40 = 1000000000");
  useZone("UTC");
  EXPECT_EQ(local("7/15/2004 12:00:00"), "2004-07-15 12:00:00 = 1089892800");
}

TEST_F(Parse, SkippedHourReadsAnHourEarlier) {
  useZone("CET-1CEST,M3.5.0,M10.5.0/3");
  EXPECT_EQ(local("3/28/2004 01:59:59"), "2004-03-28 01:59:59 = 1080435599");
  EXPECT_EQ(local("3/28/2004 02:30:00"), "2004-03-28 01:30:00 = 1080433800");
  EXPECT_EQ(local("3/28/2004 03:00:00"), "2004-03-28 03:00:00 = 1080435600");
  EXPECT_EQ(local("3/28/2004 04:00:00"), "2004-03-28 04:00:00 = 1080439200");
}

TEST_F(Parse, DoubleHourIsTheSecondPass) {
  useZone("CET-1CEST,M3.5.0,M10.5.0/3");
  EXPECT_EQ(local("10/31/2004 01:59:59"), "2004-10-31 01:59:59 = 1099180799");
  EXPECT_EQ(local("10/31/2004 02:30:00"), "2004-10-31 02:30:00 = 1099186200");
  EXPECT_EQ(local("10/31/2004 03:00:00"), "2004-10-31 03:00:00 = 1099188000");
}

TEST_F(Parse, YearsBefore1970AndAfter2038) {
  EXPECT_EQ(local("1/5/1939"), "1939-01-05 00:00:00 = -977961600");
  EXPECT_EQ(local("1/5/101"), "0101-01-05 00:00:00 = -58979577600");
  EXPECT_EQ(local("1/5/9999 10:15"), "9999-01-05 10:15:00 = 253371147300");
}

}  // namespace
