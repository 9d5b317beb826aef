// Day numbers from and to text.

#include <climits>
#include <cstring>

#include "datetime/DateTimeTest.h"
#include "fault/FailingAllocations.h"
#include "text/datetime_date.h"
#include "text/datetime_state.h"
#include "zqxml/calendar.h"

namespace {

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

// The date, or the message number.
std::string readISO(const char* text) {
  int dayNumber = 77;
  const int failure = ConvertISODateStringToJD(text, &dayNumber);
  if (failure != 0) {
    EXPECT_EQ(dayNumber, 77) << "a failure leaves the output alone";
    return std::to_string(failure);
  }
  return dateOf(dayNumber);
}

class CalendarText : public DateTimeTest {
 protected:
  static std::string read(const char* text, int cutoff = 2055) {
    int dayNumber = 77;
    const int failure = ConvertDateStringToJD(cutoff, text, &dayNumber);
    if (failure != 0) {
      EXPECT_EQ(dayNumber, 77) << "a failure leaves the output alone";
      return std::to_string(failure);
    }
    return dateOf(dayNumber);
  }

  static std::string readBy(const char* format, const char* text) {
    int dayNumber;
    return datetime::readDateBy(format, 2055, text, dayNumber) ? dateOf(dayNumber) : "no date";
  }

  static std::string write(int year, int month, int day) {
    char text[64];
    EXPECT_EQ(ConvertJDToDateString(dayNumberOf(year, month, day), text), 0);
    return text;
  }

  static std::string writeBy(const char* format, int year, int month, int day) {
    char text[64];
    datetime::writeDateBy(format, dayNumberOf(year, month, day), text);
    return text;
  }
};

struct Case {
  const char* text;
  const char* expected;
};

TEST(ISODate, Read) {
  const Case cases[] = {
      {"2004-01-05", "2004-1-5"},
      {"2004-01-05T10:15:16Z", "2004-1-5"},
      {"2004-01-057", "2004-1-5"},
      {"-4712-01-01", "-4712-1-1"},
      {"-0001-01-05", "-1-1-5"},
      {"0000-01-05", "0-1-5"},
      {"-0000-01-05", "0-1-5"},
      {"9999-12-31", "9999-12-31"},
      {"2004-02-29", "2004-2-29"},
      {"2000-02-29", "8958"},
      {"1000-02-29", "8958"},
      {"2003-02-29", "8958"},
      {"2004-13-01", "8958"},
      {"2004-00-01", "8958"},
      {"2004-01-00", "8958"},
      {"2004-04-31", "8958"},
      {"1582-08-10", "8958"},
      {"-4713-01-01", "8958"},
      {"", "8957"},
      {"-", "8957"},
      {"2004", "8957"},
      {"2004-01-0", "8957"},
      {"2004-1-05", "8957"},
      {"204-01-05", "8957"},
      {"12004-01-05", "8957"},
      {"2004/01/05", "8957"},
      {"2004-01/05", "8957"},
      {"+2004-01-05", "8957"},
      {"--2004-01-05", "8957"},
      {" 2004-01-05", "8957"},
      {"20x4-01-05", "8957"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(readISO(row.text), row.expected) << row.text;
  }
  EXPECT_EQ(readISO(nullptr), "8957");
  EXPECT_EQ(ConvertISODateStringToJD("2004-01-05", nullptr), 0);
}

TEST(ISODate, WriteAndReadAgain) {
  for (int n = 0; n <= 5'373'484; n += 13) {
    char text[12];
    ASSERT_EQ(ConvertJDToISODateString(n, text), 0);
    int again = -1;
    // Dates that are not valid: 29 February of years that 100 divides, and ten days of August 1582.
    const int failure = ConvertISODateStringToJD(text, &again);
    ASSERT_TRUE(failure == 0 ? again == n
                             : failure == 8958 && (strstr(text, "00-02-29") != nullptr ||
                                                   strncmp(text, "1582-08-", 8) == 0))
        << text;
  }
}

TEST(ISODate, Write) {
  const struct {
    int dayNumber;
    const char* text;
  } cases[] = {{0, "-4712-01-01"},
               {dayNumberOf(0, 1, 5), "0000-01-05"},
               {dayNumberOf(-1, 1, 5), "-0001-01-05"},
               {2'453'010, "2004-01-05"},
               {5'373'484, "9999-12-31"},
               {5'373'485, "10000-01-01"}};
  for (const auto& row : cases) {
    char text[12];
    EXPECT_EQ(ConvertJDToISODateString(row.dayNumber, text), 0);
    EXPECT_STREQ(text, row.text);
  }
  for (const int dayNumber : {INT_MIN, -1461, -367, -366, -1, INT_MAX}) {
    char text[ZQ_ISO_DATE_SIZE];
    EXPECT_EQ(ConvertJDToISODateString(dayNumber, text), 0);
    EXPECT_LT(strlen(text), sizeof text);
  }
  EXPECT_EQ(ConvertJDToISODateString(1, nullptr), 0);
}

TEST(FourDigitYear, Cutoffs) {
  const struct {
    int cutoff, year, expected;
  } cases[] = {{2055, 55, 2055}, {2055, 56, 1956},
               {2055, 0, 2000},  {2055, 99, 1999},
               {2000, 0, 2000},  {2000, 1, 1901},
               {2099, 99, 2099}, {2099, 0, 2000},
               {99, 99, 99},     {55, 56, 56},
               {0, 0, 0},        {2055, 155, 2055},
               {-1, 0, -100},    {INT_MAX, 48, 2147483548}};
  for (const auto& row : cases) {
    EXPECT_EQ(ConvertToFourDigitYear(row.cutoff, row.year), row.expected)
        << row.cutoff << ", " << row.year;
  }
  ConvertToFourDigitYear(INT_MIN, INT_MAX);
  ConvertToFourDigitYear(INT_MAX, INT_MIN);
}

TEST_F(CalendarText, ReadInTheCLocale) {
  const Case cases[] = {
      {"1/5/04", "2004-1-5"},
      {"01/05/2004", "2004-1-5"},
      {"1/5/55", "2055-1-5"},
      {"1/5/56", "1956-1-5"},
      {"1/5/4", "4-1-5"},
      {"1/5/004", "4-1-5"},
      {"1/5/104", "104-1-5"},
      {"  1 - 5 - 04", "2004-1-5"},
      {"1 5 04", "2004-1-5"},
      {"1/5/ 04", "2004-1-5"},
      {"1/5", "0-1-5"},
      {"1/5/04 BC", "-2003-1-5"},
      {"1/1/0001 BC", "0-1-1"},
      {"1/1/0001 b.c.", "0-1-1"},
      {"1/1/0001bC", "0-1-1"},
      {"1/1/0001 B.C", "1-1-1"},
      {"1/1/0002BC and more", "-1-1-1"},
      {"1/1/0001 AD", "1-1-1"},
      {"1/5/04 x BC", "2004-1-5"},
      {"1/5/04 BC 7", "2004-1-5"},  // the text goes on at the next number
      {"1/5/2004 and more", "2004-1-5"},
      {"1/1/4713 BC", "-4712-1-1"},
      {"1/1/4714 BC", "8958"},
      {"2451545", "2000-1-1"},
      {"12", "-4712-1-13"},
      {"0", "-4712-1-1"},
      {"2451545 ", "8958"},
      {"-1", "8958"},
      {"13/1/2004", "8958"},
      {"2/29/2000", "8958"},
      {"2/29/2004", "2004-2-29"},
      {"8/10/1582", "8958"},
      {"10/10/1582", "1582-9-30"},
      {"99999999999/1/2004", "8958"},
      {"1/1/-99999999999 BC", "8958"},
      {"x", "8958"},
      {"", "8958"},
      {"BC", "8958"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(read(row.text), row.expected) << row.text;
  }
}

TEST_F(CalendarText, DigitsAloneAreTheDayNumberUncut) {
  int dayNumber = 0;
  EXPECT_EQ(ConvertDateStringToJD(-1, "5373485", &dayNumber), 0);
  EXPECT_EQ(dayNumber, 5'373'485);
  EXPECT_EQ(ConvertDateStringToJD(-1, "99999999999", &dayNumber), 0);
  EXPECT_EQ(dayNumber, INT_MAX);
}

TEST_F(CalendarText, CutoffIsThisYearAnd29ByDefault) {
  const time_t now = time(nullptr);
  struct tm today;
  localtime_r(&now, &today);
  const int cutoff = today.tm_year + 1929;
  char text[16];
  snprintf(text, sizeof text, "1/5/%02d", cutoff % 100);
  EXPECT_EQ(read(text, -1), std::to_string(cutoff) + "-1-5");
  snprintf(text, sizeof text, "1/5/%02d", (cutoff + 1) % 100);
  EXPECT_EQ(read(text, -1), std::to_string(cutoff - 99) + "-1-5");
  EXPECT_EQ(read("1/5/04", 1999), "1904-1-5");
}

TEST_F(CalendarText, ReadInOtherLocales) {
  useLocale("de_DE.ISO-8859-1");
  EXPECT_EQ(read("5.1.2004"), "2004-1-5");
  EXPECT_EQ(read("05.01.04"), "2004-1-5");
  EXPECT_EQ(read("1.13.2004"), "8958");
  useLocale("fr_FR.ISO-8859-1");
  EXPECT_EQ(read("5/1/2004"), "2004-1-5");
  useLocale("ja_JP.EUC-JP");
  EXPECT_EQ(read("2004\xC7\xAF"
                 "1\xB7\xEE"
                 "5\xC6\xFC"),
            "2004-1-5");
  EXPECT_EQ(read("04/1/5"), "2004-1-5");
}

TEST_F(CalendarText, ReadByOddFormats) {
  EXPECT_EQ(readBy("%a %e %m %Y", "Mo 5 1 2004"), "2004-1-5") << "others take text up to a number";
  EXPECT_EQ(readBy("%Y%%%m%d", "2004 7 1 5"), "2004-1-5") << "a doubled sign is one of them";
  EXPECT_EQ(readBy("%Y-%m-%d%", "2004-1-5"), "2004-1-5");
  EXPECT_EQ(readBy("%", "5"), dateOf(5));
  EXPECT_EQ(readBy("", "5/1/4"), "no date");
  EXPECT_EQ(readBy("Ymd", "2004-1-5"), "no date") << "letters need their sign";
  EXPECT_EQ(readBy("%Y %m %d", "-5 1 5"), "-5-1-5") << "a sign counts at the start";
  EXPECT_EQ(readBy("%d/%m/%y", " 5/1/04"), "2004-1-5");
  EXPECT_EQ(readBy("%y/%m/%d", " 04/1/5"), "2004-1-5");
}

TEST_F(CalendarText, Write) {
  EXPECT_EQ(write(2004, 1, 5), "1/05/04");
  EXPECT_EQ(write(1999, 12, 31), "12/31/99");
  EXPECT_EQ(write(0, 1, 5), "1/05/01 BC");
  EXPECT_EQ(write(-4712, 1, 1), "1/01/13 BC");
  EXPECT_EQ(write(2000, 1, 5), "1/05/00");
  useLocale("de_DE.ISO-8859-1");
  EXPECT_EQ(write(2004, 1, 5), "05.1.2004");
  EXPECT_EQ(write(4, 1, 5), "05.1.0004");
  EXPECT_EQ(write(-1, 1, 5), "05.1.0002 BC");
  useLocale("fr_FR.ISO-8859-1");
  EXPECT_EQ(write(2004, 1, 5), "05/1/2004");
  useLocale("ja_JP.EUC-JP");
  EXPECT_EQ(write(2004, 1, 5),
            "2004\xC7\xAF"
            "1\xB7\xEE"
            "05\xC6\xFC");
  EXPECT_EQ(ConvertJDToDateString(1, nullptr), 0);
}

TEST_F(CalendarText, WriteInALocaleOfUTF8GoesByTheLengthsOfEUC) {
  useLocale("ja_JP.UTF-8");
  EXPECT_EQ(write(2004, 1, 5),
            "2004\xE5\xB9"
            "1\xE6"
            "05\xE6");
}

TEST_F(CalendarText, WriteByOddFormats) {
  EXPECT_EQ(writeBy("%Y", 2004, 1, 5), "2004") << "nothing follows at the end";
  EXPECT_EQ(writeBy("on %e.%m.%Y.", 2004, 1, 5), "5.1.2004.") << "what is ahead is left out";
  EXPECT_EQ(writeBy("%d--%m", 2004, 1, 5), "05-1") << "one character follows";
  EXPECT_EQ(writeBy("%a, %d", 2004, 1, 5), "05") << "others are left out with theirs";
  EXPECT_EQ(writeBy("%d%m", 2004, 1, 5), "05%1") << "also a sign is that character";
  EXPECT_EQ(writeBy("%d%", 2004, 1, 5), "05%");
  EXPECT_EQ(writeBy("%", 2004, 1, 5), "");
  EXPECT_EQ(writeBy("", 0, 1, 5), " BC");
}

TEST_F(CalendarText, Nulls) {
  int dayNumber = 77;
  EXPECT_EQ(ConvertDateStringToJD(-1, nullptr, &dayNumber), 8958);
  EXPECT_EQ(dayNumber, 77);
  EXPECT_EQ(ConvertDateStringToJD(-1, "1/5/04", nullptr), 0);
}

TEST_F(CalendarText, OutOfMemory) {
  forget();
  int result;
  int dayNumber = 77;
  {
    const fault::FailingAllocations failure(0);
    result = ConvertDateStringToJD(-1, "1/5/04", &dayNumber);
  }
  EXPECT_EQ(result, 300);
  EXPECT_EQ(dayNumber, 77);
}

}  // namespace
