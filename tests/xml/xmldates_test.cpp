// Dates in the forms of XML Schema, both ways.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ostream>
#include <string>

#include "xml/ZQXMLHandlerUtils.h"
#include "xml/ZQXMLTagHash.h"
#include "zqxml/builders.hpp"
#include "zqxml/calendar.h"

namespace {

constexpr int kUntouched = -77;

struct Date {
  int result;
  int32_t day;
  bool operator==(const Date&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Date& date) {
  return stream << date.result << " " << date.day;
}

Date read(int tag, const char* text) {
  Date date = {0, kUntouched};
  date.result = ZQXMLHandlerUtils::ConvertXMLDateToJDDate(tag, text, &date.day);
  return date;
}

Date valid(int year, int month, int day) {
  const int date[] = {year, month, day};
  Date expected = {0, 0};
  DateToJulianDate(date, &expected.day);
  return expected;
}

constexpr Date kBadForm = {8957, kUntouched};
constexpr Date kBadDate = {8958, kUntouched};
constexpr Date kBadType = {8959, kUntouched};

TEST(XMLDates, EachTypeIsRead) {
  struct Case {
    int tag;
    const char* text;
    Date expected;
  };
  for (const Case& each : {
           Case{tag_date, "2001-02-03", valid(2001, 2, 3)},
           {tag_date, "-0044-03-15", valid(-44, 3, 15)},
           {tag_date, "2001-02-03Z", valid(2001, 2, 3)},
           {tag_date, "2001-02-03 and whatever follows in this long text", valid(2001, 2, 3)},
           {tag_date, "9999-12-31", {0, 5373484}},
           {tag_date, "-4712-01-01", {0, 0}},
           {tag_date, "2004-02-29", valid(2004, 2, 29)},
           {tag_date, "2000-02-29", kBadDate},
           {tag_date, "2001-02-30", kBadDate},
           {tag_date, "1582-08-10", kBadDate},
           {tag_date, "1582-10-10", valid(1582, 10, 10)},
           {tag_date, "2001-2-03", kBadForm},
           {tag_date, "20010203", kBadForm},
           {tag_date, "+2001-02-03", kBadForm},
           {tag_date, " 2001-02-03", kBadForm},
           {tag_date, "2001-02-3", kBadForm},
           {tag_date, "2001-02-", kBadForm},
           {tag_date, "", kBadForm},
           {tag_date, nullptr, kBadForm},
           {tag_gDay, "---03", valid(1000, 1, 3)},
           {tag_gDay, "---31", valid(1000, 1, 31)},
           {tag_gDay, "abc31", valid(1000, 1, 31)},
           {tag_gDay, "---31+01:00", valid(1000, 1, 31)},
           {tag_gDay, "---32", kBadDate},
           {tag_gDay, "---00", kBadDate},
           {tag_gDay, "---3", kBadForm},
           {tag_gDay, "---", kBadForm},
           {tag_gDay, "--", kBadForm},
           {tag_gDay, "-", kBadForm},
           {tag_gDay, "03", kBadForm},
           {tag_gDay, "", kBadForm},
           {tag_gDay, nullptr, kBadForm},
           {tag_gMonth, "--07--", valid(1000, 7, 1)},
           {tag_gMonth, "--12--", valid(1000, 12, 1)},
           // The last byte alone gives way to the day.
           {tag_gMonth, "--07-x", valid(1000, 7, 1)},
           {tag_gMonth, "--07-15 and more", valid(1000, 7, 15)},
           {tag_gMonth, "--13--", kBadDate},
           {tag_gMonth, "--00--", kBadDate},
           {tag_gMonth, "--07", kBadForm},
           {tag_gMonth, "--07-", kBadForm},
           {tag_gMonth, "--07--Z", kBadForm},
           {tag_gMonth, "--", kBadForm},
           {tag_gMonth, "-", kBadForm},
           {tag_gMonth, "", kBadForm},
           {tag_gMonth, nullptr, kBadForm},
           {tag_gMonthDay, "--02-03", valid(1000, 2, 3)},
           {tag_gMonthDay, "--12-31", valid(1000, 12, 31)},
           {tag_gMonthDay, "--02-28", valid(1000, 2, 28)},
           {tag_gMonthDay, "--02-29", kBadDate},
           {tag_gMonthDay, "--04-31", kBadDate},
           {tag_gMonthDay, "--2-3", kBadForm},
           {tag_gMonthDay, "--", kBadForm},
           {tag_gMonthDay, "-", kBadForm},
           {tag_gMonthDay, "", kBadForm},
           {tag_gMonthDay, nullptr, kBadForm},
           {tag_gYear, "2001", valid(2001, 1, 1)},
           {tag_gYear, "-0001", valid(-1, 1, 1)},
           {tag_gYear, "0000", valid(0, 1, 1)},
           // What follows a date isn't looked at, so that "-01-01" may do so.
           {tag_gYear, "2001-05-06", valid(2001, 5, 6)},
           {tag_gYear, "-4713", kBadDate},
           {tag_gYear, "201", kBadForm},
           {tag_gYear, "20011", kBadForm},
           {tag_gYear, "2001Z", kBadForm},
           {tag_gYear, "", kBadForm},
           {tag_gYear, nullptr, kBadForm},
           {tag_gYearMonth, "2001-02", valid(2001, 2, 1)},
           {tag_gYearMonth, "-0044-03", valid(-44, 3, 1)},
           {tag_gYearMonth, "2001-02-06", valid(2001, 2, 6)},
           {tag_gYearMonth, "2001-13", kBadDate},
           {tag_gYearMonth, "2001-2", kBadForm},
           {tag_gYearMonth, "2001", kBadForm},
           {tag_gYearMonth, "", kBadForm},
           {tag_gYearMonth, nullptr, kBadForm},
       }) {
    EXPECT_EQ(read(each.tag, each.text), each.expected)
        << tagText(each.tag) << " " << (each.text != nullptr ? each.text : "null");
  }
  EXPECT_EQ(valid(1000, 7, 1).day, 2086490);
}

TEST(XMLDates, NoOtherTagIsAType) {
  for (int tag = -2; tag <= kTagCount + 1; ++tag) {
    const bool type = tag == tag_date || (tag >= tag_gDay && tag <= tag_gYearMonth);
    EXPECT_EQ(read(tag, "2001-02-03"), type ? read(tag, "2001-02-03") : kBadType) << tag;
    EXPECT_EQ(read(tag, "2001-02-03").result == 8959, !type) << tag;
    EXPECT_EQ(read(tag, nullptr), type ? kBadForm : kBadType) << tag;
  }
}

TEST(XMLDates, LongTextsAndNoResult) {
  const std::string text(1000000, 'x');
  for (const int tag : {tag_date, tag_gDay, tag_gMonth, tag_gMonthDay, tag_gYear, tag_gYearMonth}) {
    EXPECT_EQ(read(tag, text.c_str()), kBadForm);
  }
  EXPECT_EQ(ZQXMLHandlerUtils::ConvertXMLDateToJDDate(tag_gDay, "---03", nullptr), 0);
}

std::string write(const XMLCh* type, int32_t day, int size = 64, int result = 0) {
  char text[64];
  std::fill(std::begin(text), std::end(text), '#');
  EXPECT_EQ(FormatZQDateToISODate(type, day, size, text), result);
  // Nothing behind the size is touched.
  for (size_t i = size > 0 ? static_cast<size_t>(size) : 0; i < sizeof text; ++i) {
    EXPECT_EQ(text[i], '#');
  }
  return text[0] == '#' ? "untouched" : text;
}

TEST(XMLDates, EachTypeIsWritten) {
  struct Case {
    Date date;
    const char* day;
    const char* month;
    const char* monthDay;
    const char* year;
    const char* yearMonth;
    const char* whole;
  };
  for (const Case& each : {
           // Deliberate: three digits of the year, and half the month.
           Case{valid(2001, 2, 3), "---03", "--02--", "--02-03", "200", "2001-0", "2001-02-03"},
           {valid(1999, 12, 31), "---31", "--12--", "--12-31", "199", "1999-1", "1999-12-31"},
           {valid(44, 10, 9), "---09", "--10--", "--10-09", "004", "0044-1", "0044-10-09"},
           {valid(0, 1, 1), "---01", "--01--", "--01-01", "000", "0000-0", "0000-01-01"},
           {valid(-1, 3, 4), "---04", "--03--", "--03-04", "-000", "-0001-0", "-0001-03-04"},
           {valid(-44, 3, 15), "---15", "--03--", "--03-15", "-004", "-0044-0", "-0044-03-15"},
           {{0, 0}, "---01", "--01--", "--01-01", "-471", "-4712-0", "-4712-01-01"},
           {{0, 5373484}, "---31", "--12--", "--12-31", "999", "9999-1", "9999-12-31"},
           {{0, 5373485}, "---01", "--01--", "--01-01", "100", "10000-", "10000-01-01"},
       }) {
    EXPECT_EQ(write(u"gDay", each.date.day), each.day);
    EXPECT_EQ(write(u"gMonth", each.date.day), each.month);
    EXPECT_EQ(write(u"gMonthDay", each.date.day), each.monthDay);
    EXPECT_EQ(write(u"gYear", each.date.day), each.year);
    EXPECT_EQ(write(u"gYearMonth", each.date.day), each.yearMonth);
    EXPECT_EQ(write(u"date", each.date.day), each.whole);
  }
}

TEST(XMLDates, NeverMoreThanTheSize) {
  const int32_t day = valid(2001, 2, 3).day;
  for (const char* type : {"date", "gDay", "gMonth", "gMonthDay", "gYear", "gYearMonth"}) {
    const std::u16string name(type, type + strlen(type));
    const std::string whole = write(name.c_str(), day);
    for (int size = 1; size <= 16; ++size) {
      EXPECT_EQ(write(name.c_str(), day, size), whole.substr(0, static_cast<size_t>(size) - 1));
    }
    EXPECT_EQ(write(name.c_str(), day, 0), "untouched");
    EXPECT_EQ(write(name.c_str(), day, -1), "untouched");
    EXPECT_EQ(FormatZQDateToISODate(name.c_str(), day, 64, nullptr), 0);
  }
}

TEST(XMLDates, OtherTypesAreRefused) {
  for (const XMLCh* type : {u"", u"gday", u"Date", u"dateTime", u"time", u"no tag", u"date "}) {
    EXPECT_EQ(write(type, 2451545, 64, 8959), "untouched");
  }
  EXPECT_EQ(write(nullptr, 2451545, 64, 8959), "untouched");
}

// Below day 0 months and days need not be positive.
TEST(XMLDates, AnyDayNumberIsWritten) {
  for (const int32_t day : {-1, -10, -1000, -32082, -32083, -40000, -1000000, INT32_MIN, INT32_MAX,
                            INT32_MAX - 40000}) {
    char whole[ZQ_ISO_DATE_SIZE];
    ConvertJDToISODateString(day, whole);
    int date[3];
    JulianDateToDate(day, date);
    char expected[64];
    EXPECT_EQ(write(u"date", day), whole);
    snprintf(expected, sizeof expected, "---%.2d", date[2]);
    EXPECT_EQ(write(u"gDay", day), expected);
    snprintf(expected, sizeof expected, "--%.2d-%.2d", date[1], date[2]);
    EXPECT_EQ(write(u"gMonthDay", day), expected);
    EXPECT_EQ(write(u"gMonth", day), std::string(expected, 4) + "--");
    EXPECT_EQ(write(u"gYear", day), std::string(whole, date[0] < 0 ? 4 : 3));
    EXPECT_EQ(write(u"gYearMonth", day), std::string(whole, date[0] < 0 ? 7 : 6));
  }
}

TEST(XMLDates, WhatIsWrittenReadsBack) {
  for (int32_t day = 0; day <= 5373484; day += 97) {
    int date[3];
    JulianDateToDate(day, date);
    if (ValidateDate(date) == 0) {
      continue;
    }
    ASSERT_EQ(read(tag_date, write(u"date", day).c_str()), (Date{0, day}));
    ASSERT_EQ(read(tag_gDay, write(u"gDay", day).c_str()), valid(1000, 1, date[2]));
    ASSERT_EQ(read(tag_gMonth, write(u"gMonth", day).c_str()), valid(1000, date[1], 1));
  }
}

}  // namespace
