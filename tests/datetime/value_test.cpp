// ConvertTimeValue and ConvertTimeOfDayValue.

#include <climits>
#include <cstdlib>

#include "datetime/DateTimeTest.h"
#include "zqxml/datetime.h"

namespace {

class Value : public DateTimeTest {
 protected:
  // The value, with " duration" behind it for one; "fails" ahead of what a failure leaves.
  static std::string convert(const char* text, bool timeOnly = false) {
    ZQTimestamp value = 77;
    ZQBoolean isDuration = 77;
    const int result = ConvertTimeValue(text, timeOnly ? 1 : 0, &value, &isDuration);
    return (result == 1 ? "" : "fails ") + std::to_string(value) +
           (isDuration == 1 ? " duration" : "");
  }

  static ZQTimestamp timeOfDay(const char* text) {
    ZQTimestamp value = -1;
    const int result = ConvertTimeOfDayValue(text, &value);
    EXPECT_EQ(result, value == -1 ? 0 : 1);
    return value;
  }

  // Seconds since the epoch of a time of today.
  static std::string today(int hour, int minute) {
    const time_t now = time(nullptr);
    struct tm fields;
    localtime_r(&now, &fields);
    fields.tm_hour = hour;
    fields.tm_min = minute;
    fields.tm_sec = 0;
    return std::to_string(mktime(&fields));
  }
};

TEST_F(Value, TimesAndDurations) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"1/5/04", "1073260800"},
      {"1/5/04 10:15:16", "1073297716"},
      {"Jan 5, 2004 10:15 PM", "1073340900"},
      {"1:30", "5400 duration"},
      {"1:30:15", "5415 duration"},
      {"90", "324000 duration"},
      {"0", "0 duration"},
      {"007", "25200 duration"},
      {"596523", "2147482800 duration"},
      {"596524", "596524"},
      {"1000000000", "1000000000"},
      {"2147483647", "2147483647"},
      {"2147483648", "fails 0"},
      {"99999999999999999999", "fails 0"},
      {"1/5/99999999999", "fails 0"},
      {"99999999999999999999 ", "fails 0"},
      {"-1:30", "-1800 duration"},
      {"-1:-30", "-5400 duration"},
      {"+2", "7200 duration"},
      {"1: 30", "5400 duration"},
      {"1:99:1000", "10540 duration"},
      {"1:30:15 \t", "5415 duration"},
      {"1:30:15:20", "fails 0 duration"},
      {"1 :30", "fails 0 duration"},
      {"1:", "fails 0 duration"},
      {"1:x", "fails 0 duration"},
      {"1x", "fails 0 duration"},
      {"596524:00", "-2147480896 duration"},
      {"99999999999:0", "136212976 duration"},
      {"-99999999999:0", "-136212976 duration"},
      {"99999999999:99999999999:99999999999", "1282652595 duration"},
      {"99999999999999999999:0:1", "-3599 duration"},
      {"0:0:4294967297", "1 duration"},
      {"x", "fails 0"},
      {"", "fails 0"},
      {" ", "fails 0"},
      {":30", "fails 0"},
      {"12/31/1969 23:59:59", "fails 0"},
      {"1/1/1970", "0"},
      {"1/1/1960", "fails 0"},
      {"1/19/2038 03:14:07", "2147483647"},
      {"1/19/2038 03:14:08", "fails 0"},
      {"1/5/9999", "fails 0"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(convert(row.text), row.expected) << row.text;
  }
}

TEST_F(Value, TimesOfToday) {
  EXPECT_EQ(convert("10:15", true), today(10, 15));
  EXPECT_EQ(convert("10:15 PM", true), today(22, 15));
  EXPECT_EQ(convert("10:15:00 \t", true), today(10, 15));
  EXPECT_EQ(convert("10:15:00 x", true), "fails 0");
  EXPECT_EQ(convert("24:15", true), "fails 0");
  EXPECT_EQ(convert("x", true), "fails 0");
  EXPECT_EQ(convert("1/5/04", true), "1073260800") << "a date is one all the same";
  EXPECT_EQ(convert("90", true), "90") << "digits are seconds";
  for (const char* zone : {"AEST-10AEDT,M10.1.0,M4.1.0/3", "CET-1CEST,M3.5.0,M10.5.0/3"}) {
    useZone(zone);
    EXPECT_EQ(convert("12:00", true), today(12, 0)) << "with the summer time of today, " << zone;
  }
}

TEST_F(Value, MissingFieldsAreThoseOfToday) {
  EXPECT_EQ(convert("Jan 5 2004"), "1073260800");
  EXPECT_EQ(convert("5 Jan 2004 10 PM"), "1073340000");
}

TEST_F(Value, Zones) {
  useZone("CET-1CEST,M3.5.0,M10.5.0/3");
  EXPECT_EQ(convert("7/15/2004 12:00:00"), "1089885600");
  EXPECT_EQ(convert("3/28/2004 02:30:00"), "1080433800");
  EXPECT_EQ(convert("10/31/2004 02:30:00"), "1099186200");
  useZone("<+0530>-5:30");
  EXPECT_EQ(convert("1/1/1970 05:30:00"), "0");
  EXPECT_EQ(convert("1/1/1970 05:29:59"), "fails 0");
}

TEST_F(Value, NullArguments) {
  ZQTimestamp value = 77;
  ZQBoolean isDuration = 77;
  EXPECT_EQ(ConvertTimeValue(nullptr, 0, &value, &isDuration), 0);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(isDuration, 0);
  EXPECT_EQ(ConvertTimeValue("1:30", 0, nullptr, nullptr), 1);
  EXPECT_EQ(ConvertTimeOfDayValue(nullptr, &value), 0);
  EXPECT_EQ(ConvertTimeOfDayValue("1:30", nullptr), 1);
}

TEST_F(Value, TimesOfDay) {
  EXPECT_EQ(timeOfDay("10:15:16"), 36916);
  EXPECT_EQ(timeOfDay("10:15"), 36900) << "the seconds are 0";
  EXPECT_EQ(timeOfDay("12:00 AM"), 0);
  EXPECT_EQ(timeOfDay("12:00 PM"), 43200);
  EXPECT_EQ(timeOfDay("23:59:59"), 86399);
  EXPECT_EQ(timeOfDay("10"), 10);
  EXPECT_EQ(timeOfDay("10 "), 36000);
  EXPECT_EQ(timeOfDay("1/5/04 10:15:16"), 36916) << "of a date only the time counts";
  EXPECT_EQ(timeOfDay("5 Jan 2004 10 PM"), 79200);
  EXPECT_EQ(timeOfDay("5 Jan 2004"), 0);
  EXPECT_EQ(timeOfDay("24:00"), -1);
  EXPECT_EQ(timeOfDay("10:15 x"), -1);
  EXPECT_EQ(timeOfDay("x"), -1);
  EXPECT_EQ(timeOfDay(""), -1);
  useZone("AEST-10AEDT,M10.1.0,M4.1.0/3");
  EXPECT_EQ(timeOfDay("12:00"), 3600) << "31 December 1899 is summer there";
}

}  // namespace
