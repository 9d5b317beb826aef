// What the date tests share: a fixture that chooses locale, time zone and environment, and times as
// text.
#ifndef ZQXML_TESTS_DATETIME_DATETIMETEST_H
#define ZQXML_TESTS_DATETIME_DATETIMETEST_H

#include <gtest/gtest.h>

#include <ctime>
#include <string>

// Each test begins in the C locale and UTC, without the environment variables and with the state of
// a new process.
class DateTimeTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Sets the process locale, in the environment too, and forgets what the library knows of the one
  // before.
  static void useLocale(const char* name);
  static void useZone(const char* zone);
  // Sets a variable, or removes it for null, and forgets the order of month and day.
  static void useVariable(const char* name, const char* value);
  static void forget();
};

// "2004-01-05 10:15:00".
std::string dump(const struct tm& fields);

struct tm makeTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

#endif
