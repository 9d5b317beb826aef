// Day numbers, dates and their parts.

#include <climits>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "zqxml/calendar.h"

namespace {

constexpr int kFirstDayOfYear1 = 1'721'426;
constexpr int kLastDay = 5'373'484;

int dayNumberOf(int year, int month, int day) {
  const int date[3] = {year, month, day};
  int dayNumber = -1;
  DateToJulianDate(date, &dayNumber);
  return dayNumber;
}

std::string dateOf(int dayNumber) {
  int date[3];
  JulianDateToDate(dayNumber, date);
  return std::to_string(date[0]) + "-" + std::to_string(date[1]) + "-" + std::to_string(date[2]);
}

bool isValid(int year, int month, int day) {
  const int date[3] = {year, month, day};
  return ValidateDate(date) == 1;
}

bool isLeap(int year, int month, int day) {
  const int date[3] = {year, month, day};
  return IsLeapYear(date) == 1;
}

std::string added(int part, int amount, int dayNumber) {
  int result = -1;
  EXPECT_EQ(DateAdd(part, amount, dayNumber, &result), 0);
  return dateOf(result);
}

// The calendar as a wall calendar has it: a day after the other.
struct Day {
  int year = -4712;
  int month = 1;
  int day = 1;

  bool isGregorian() const {
    return year > 1582 || (year == 1582 && (month > 10 || (month == 10 && day >= 15)));
  }
  int lengthOfMonth() const {
    static constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeapYear = year % 4 == 0 && (!isGregorian() || year % 100 != 0 || year % 400 == 0);
    return month == 2 && isLeapYear ? 29 : kLengths[month - 1];
  }
  void next() {
    if (year == 1582 && month == 10 && day == 4) {
      day = 15;
    } else if (++day > lengthOfMonth()) {
      day = 1;
      if (++month > 12) {
        month = 1;
        ++year;
      }
    }
  }
};

TEST(Calendar, EveryDayCountedOneByOne) {
  Day day;
  int weekday = 2;  // the first one is a Monday
  for (int n = 0; n <= kLastDay; ++n) {
    int date[3];
    JulianDateToDate(n, date);
    int year, month, dayOfMonth, weekdayPart;
    const int failed = GetDatePartNum(1, n, &year) | GetDatePartNum(2, n, &month) |
                       GetDatePartNum(3, n, &dayOfMonth) | GetDatePartNum(5, n, &weekdayPart);
    if (failed != 0 || date[0] != day.year || date[1] != day.month || date[2] != day.day ||
        year != day.year || month != day.month || dayOfMonth != day.day || weekdayPart != weekday ||
        GetWeekday(n) != weekday || dayNumberOf(day.year, day.month, day.day) != n) {
      FAIL() << "day " << n << " is " << dateOf(n);
    }
    day.next();
    weekday = weekday % 7 + 1;
  }
  EXPECT_EQ(day.year, 10000);
}

TEST(Calendar, WeeksAreThoseOfISO8601) {
  std::ifstream file(ZQXML_ISO_WEEKS, std::ios::binary);
  const std::vector<char> weeks{std::istreambuf_iterator<char>(file), {}};
  ASSERT_EQ(weeks.size(), static_cast<size_t>(kLastDay - kFirstDayOfYear1 + 1));
  for (int n = kFirstDayOfYear1; n <= kLastDay; ++n) {
    const int expected = weeks[static_cast<size_t>(n - kFirstDayOfYear1)];
    int week = 0;
    if (GetWeekNumber(n) != expected || GetDatePartNum(4, n, &week) != 0 || week != expected) {
      FAIL() << "day " << n << ": " << GetWeekNumber(n) << ", not " << expected;
    }
  }
}

TEST(Calendar, ChangeOfCalendar) {
  EXPECT_EQ(dayNumberOf(1582, 10, 4), 2'299'160);
  EXPECT_EQ(dayNumberOf(1582, 10, 15), 2'299'161);
  EXPECT_EQ(dateOf(2'299'160), "1582-10-4");
  EXPECT_EQ(dateOf(2'299'161), "1582-10-15");
}

TEST(Calendar, GregorianCalendarCountsFrom5October1582) {
  EXPECT_EQ(dayNumberOf(1582, 10, 5), 2'299'151);
  EXPECT_EQ(dayNumberOf(1582, 10, 14), 2'299'160);
  EXPECT_EQ(dayNumberOf(1582, 9, 30), 2'299'156);
}

TEST(Calendar, DatesAreNotCheckedButCounted) {
  EXPECT_EQ(dayNumberOf(2004, 13, 1), dayNumberOf(2005, 1, 1));
  EXPECT_EQ(dayNumberOf(2004, 0, 1), dayNumberOf(2003, 12, 1));
  EXPECT_EQ(dayNumberOf(2004, 1, 0), dayNumberOf(2003, 12, 31));
  EXPECT_EQ(dayNumberOf(2004, 2, 30), dayNumberOf(2004, 3, 1));
  EXPECT_EQ(dayNumberOf(10000, 1, 1), kLastDay + 1) << "nothing is clamped";
  EXPECT_EQ(dateOf(kLastDay + 1), "10000-1-1");
}

TEST(Calendar, Truncate) {
  const struct {
    int dayNumber;
    int expected;
  } cases[] = {{-1, 0},
               {0, 0},
               {INT_MIN, 0},
               {1, 1},
               {kLastDay, kLastDay},
               {kLastDay + 1, kLastDay},
               {INT_MAX, kLastDay}};
  for (const auto& row : cases) {
    int dayNumber = row.dayNumber;
    TruncateDate(&dayNumber);
    EXPECT_EQ(dayNumber, row.expected) << row.dayNumber;
  }
}

TEST(Calendar, LengthsOfMonths) {
  const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int month = 1; month <= 12; ++month) {
    EXPECT_TRUE(isValid(2003, month, 1));
    EXPECT_TRUE(isValid(2003, month, lengths[month - 1])) << month;
    EXPECT_FALSE(isValid(2003, month, lengths[month - 1] + 1)) << month;
    EXPECT_FALSE(isValid(2003, month, 0)) << month;
  }
  EXPECT_FALSE(isValid(2003, 0, 1));
  EXPECT_FALSE(isValid(2003, 13, 1));
  EXPECT_TRUE(isValid(-4712, 1, 1));
  EXPECT_FALSE(isValid(-4713, 12, 31));
  EXPECT_TRUE(isValid(9999, 12, 31));
  EXPECT_FALSE(isValid(10000, 1, 1));
  EXPECT_FALSE(isValid(2003, 1, -1));
  EXPECT_TRUE(isValid(0, 1, 1));
}

TEST(Calendar, InvalidDaysOf1582AreInAugust) {
  for (int day = 1; day <= 31; ++day) {
    EXPECT_EQ(isValid(1582, 8, day), day < 5 || day > 14) << day;
    EXPECT_TRUE(isValid(1582, 10, day)) << day;
    EXPECT_TRUE(isValid(1583, 8, day)) << day;
  }
}

TEST(Calendar, February29thOfYearsThat100DividesIsInvalid) {
  for (const int year : {0, 1000, 1500, 1600, 1700, 2000, 2400, -100}) {
    EXPECT_FALSE(isValid(year, 2, 29)) << year;
  }
  for (const int year : {4, 1004, 1496, 1584, 1996, 2004, -4, -4712}) {
    EXPECT_TRUE(isValid(year, 2, 29)) << year;
  }
  EXPECT_FALSE(isValid(2004, 2, 30));
  EXPECT_FALSE(isValid(2003, 2, 29));
}

TEST(Calendar, LeapYearDependsOnMonthAndDayOfTheDate) {
  EXPECT_TRUE(isLeap(2000, 10, 15));
  EXPECT_TRUE(isLeap(2000, 12, 31));
  EXPECT_FALSE(isLeap(2000, 10, 14));
  EXPECT_FALSE(isLeap(2000, 12, 14)) << "the day has to be above 14 in every month";
  EXPECT_FALSE(isLeap(2000, 9, 30));
  EXPECT_FALSE(isLeap(2000, 2, 29));
  EXPECT_TRUE(isLeap(1600, 11, 15));
  EXPECT_FALSE(isLeap(1500, 11, 15));
  EXPECT_FALSE(isLeap(1200, 11, 15)) << "there is no Julian rule";
  EXPECT_FALSE(isLeap(1900, 11, 15));
  for (const int month : {1, 12}) {
    EXPECT_TRUE(isLeap(2004, month, 20));
    EXPECT_FALSE(isLeap(2003, month, 20));
    EXPECT_TRUE(isLeap(1580, month, 20));
    EXPECT_TRUE(isLeap(-4, month, 20));
  }
}

TEST(Calendar, AddYears) {
  const int leapDay = dayNumberOf(2004, 2, 29);
  EXPECT_EQ(added(1, 1, leapDay), "2005-3-1") << "the day is left alone";
  EXPECT_EQ(added(1, 4, leapDay), "2008-2-29");
  EXPECT_EQ(added(1, -1, leapDay), "2003-3-1");
  EXPECT_EQ(added(1, 0, leapDay), "2004-2-29");
  EXPECT_EQ(added(1, 100'000, leapDay), "9999-12-31");
  EXPECT_EQ(added(1, -100'000, leapDay), "-4712-1-1");
  EXPECT_EQ(added(1, INT_MAX, INT_MAX), "9999-12-31");
  EXPECT_EQ(added(1, INT_MIN, INT_MIN), "-4712-1-1");
}

TEST(Calendar, AddMonths) {
  const struct {
    int date[3];
    int amount;
    const char* expected;
  } cases[] = {
      {{2004, 1, 15}, 1, "2004-2-15"},
      {{2004, 1, 28}, 1, "2004-2-28"},
      {{2004, 1, 29}, 1, "2004-2-28"},  // not the 29th
      {{2004, 1, 30}, 1, "2004-2-29"},
      {{2004, 1, 31}, 1, "2004-2-29"},
      {{2003, 1, 31}, 1, "2003-2-28"},
      {{2000, 1, 31}, 1, "2000-2-28"},  // no leap year in February
      {{2004, 3, 31}, 1, "2004-4-30"},
      {{2004, 12, 31}, 1, "2005-1-31"},
      {{2004, 12, 31}, 2, "2005-2-28"},
      {{2004, 11, 30}, 12, "2005-11-30"},
      {{2004, 11, 30}, 15, "2006-2-28"},
      {{2004, 11, 30}, 25, "2006-12-30"},
      {{2004, 5, 31}, -1, "2004-4-30"},
      {{2004, 5, 31}, -12, "2003-5-31"},
      {{2004, 5, 31}, -15, "2003-2-28"},
      {{2004, 5, 31}, -13, "2003-4-30"},
      {{2005, 2, 28}, -1, "2005-1-28"},
      {{2004, 2, 29}, 12, "2005-2-28"},
      // A month below 1 is not moved, and its day not limited.
      {{2004, 1, 31}, -1, "2003-12-31"},
      {{2004, 1, 31}, -2, "2003-12-1"},
      {{2004, 1, 31}, -11, "2003-3-3"},
      {{2004, 3, 31}, -27, "2001-12-31"},
      {{2004, 1, 15}, -4, "2003-9-15"},
      {{9999, 12, 31}, 1, "9999-12-31"},
      {{-4712, 1, 1}, -1, "-4712-1-1"},
      {{2004, 1, 31}, INT_MAX, "9999-12-31"},
      {{2004, 1, 31}, INT_MIN, "-4712-1-1"},
  };
  for (const auto& row : cases) {
    const int dayNumber = dayNumberOf(row.date[0], row.date[1], row.date[2]);
    EXPECT_EQ(added(2, row.amount, dayNumber), row.expected)
        << dateOf(dayNumber) << " and " << row.amount;
  }
}

TEST(Calendar, AddDaysAndWeeks) {
  EXPECT_EQ(added(3, 1, 2'299'160), "1582-10-15");
  EXPECT_EQ(added(3, -1, 2'299'161), "1582-10-4");
  EXPECT_EQ(added(4, 1, 2'299'160), "1582-10-21");
  EXPECT_EQ(added(4, -2, dayNumberOf(2004, 1, 5)), "2003-12-22");
  EXPECT_EQ(added(3, 1, kLastDay), "9999-12-31");
  EXPECT_EQ(added(3, -1, 0), "-4712-1-1");
  EXPECT_EQ(added(3, INT_MAX, INT_MAX), "9999-12-31");
  EXPECT_EQ(added(4, INT_MAX, INT_MAX), "9999-12-31");
  EXPECT_EQ(added(4, INT_MIN, INT_MIN), "-4712-1-1");
}

TEST(Calendar, Differences) {
  const struct {
    int part, first, second, expected;
  } cases[] = {
      {3, 10, 15, 5},
      {3, 15, 10, -5},
      {4, 5, 6, 1},   // Saturday and Sunday
      {4, 6, 12, 0},  // Sunday and Saturday
      {4, 6, 13, 1},
      {4, 13, 6, -1},
      {4, 0, kLastDay, (kLastDay + 1) / 7},
      {4, -3, 3, 0},  // cut towards zero
      {3, INT_MIN, INT_MAX, -1},
      {4, INT_MAX, INT_MIN, (INT_MIN + 1) / 7 - 306783378},
  };
  for (const auto& row : cases) {
    int result = 77;
    EXPECT_EQ(DateDiff(row.part, row.first, row.second, &result), 0);
    EXPECT_EQ(result, row.expected) << row.first << " to " << row.second;
  }
}

TEST(Calendar, OtherPartsAreRefused) {
  int result = 77;
  char text[] = "untouched";
  for (const int part : {0, 6, -1, INT_MAX, INT_MIN}) {
    EXPECT_EQ(DateAdd(part, 1, 1, &result), 8956);
    EXPECT_EQ(GetDatePartNum(part, 1, &result), 8956);
  }
  EXPECT_EQ(DateAdd(5, 1, 1, &result), 8956);
  for (const int part : {0, 1, 2, 5, 6}) {
    EXPECT_EQ(DateDiff(part, 1, 2, &result), 8956);
  }
  for (const int part : {0, 1, 3, 4, 6}) {
    EXPECT_EQ(GetDatePartName(part, 1, text), 8956);
  }
  EXPECT_EQ(result, 77);
  EXPECT_STREQ(text, "untouched");
}

TEST(Calendar, NamesOfParts) {
  const struct {
    const char* name;
    int part;
  } cases[] = {{"year", 1},    {"yy", 1}, {"yyyy", 1}, {"month", 2}, {"mm", 2},     {"m", 2},
               {"day", 3},     {"dd", 3}, {"md", 3},   {"week", 4},  {"wk", 4},     {"ww", 4},
               {"weekday", 5}, {"wd", 5}, {"YEAR", 1}, {"Mm", 2},    {"WeekDay", 5}};
  for (const auto& row : cases) {
    int part = 0;
    EXPECT_EQ(GetNumericDateParts(row.name, &part), 0);
    EXPECT_EQ(part, row.part) << row.name;
  }
  int part = 77;
  for (const char* name : {"", "y", "d", "w", "years", " year", "yyy"}) {
    EXPECT_EQ(GetNumericDateParts(name, &part), 8956) << name;
  }
  EXPECT_EQ(GetNumericDateParts(nullptr, &part), 8956);
  EXPECT_EQ(part, 77);
}

std::string nameOf(int part, int dayNumber) {
  char text[10] = "?";
  EXPECT_EQ(GetDatePartName(part, dayNumber, text), 0);
  return text;
}

TEST(Calendar, MonthNamesAreOneOffAndDecemberIsSunday) {
  const char* const names[] = {"February", "March",    "April",     "May",
                               "June",     "July",     "August",    "September",
                               "October",  "November", "Decemeber", "Sunday"};
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(nameOf(2, dayNumberOf(2004, month, 10)), names[month - 1]);
  }
}

TEST(Calendar, NamesOfWeekdays) {
  const char* const names[] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                               "Friday", "Saturday", "Sunday"};
  for (int day = 0; day < 7; ++day) {
    EXPECT_EQ(nameOf(5, day), names[day]);
    EXPECT_EQ(nameOf(5, 2'453'010 + day), names[day]);
  }
}

TEST(Calendar, DayNumbersBelowZeroDoNoHarm) {
  for (int n = -3000; n < 0; ++n) {
    nameOf(2, n);
    nameOf(5, n);
  }
  EXPECT_EQ(nameOf(5, -3), "");
  for (const int n : {INT_MIN, INT_MIN + 1, -1, INT_MAX - 1, INT_MAX}) {
    int date[3];
    JulianDateToDate(n, date);
    nameOf(2, n);
    nameOf(5, n);
    GetWeekNumber(n);
    GetWeekday(n);
    for (const int m : {INT_MIN, INT_MAX}) {
      dayNumberOf(n, m, m);
      isValid(n, m, m);
      isLeap(n, m, m);
    }
  }
}

TEST(Calendar, NullArguments) {
  int value = 77;
  const int date[3] = {2004, 1, 5};
  DateToJulianDate(nullptr, &value);
  DateToJulianDate(date, nullptr);
  JulianDateToDate(1, nullptr);
  TruncateDate(nullptr);
  EXPECT_EQ(ValidateDate(nullptr), 0);
  EXPECT_EQ(IsLeapYear(nullptr), 0);
  EXPECT_EQ(DateAdd(1, 1, 1, nullptr), 0);
  EXPECT_EQ(DateDiff(3, 1, 1, nullptr), 0);
  EXPECT_EQ(GetNumericDateParts("day", nullptr), 0);
  EXPECT_EQ(GetDatePartNum(1, 1, nullptr), 0);
  EXPECT_EQ(GetDatePartName(2, 1, nullptr), 0);
  EXPECT_EQ(value, 77);
}

}  // namespace
