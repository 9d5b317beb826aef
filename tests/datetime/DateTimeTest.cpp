#include "datetime/DateTimeTest.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "text/datetime_state.h"
#include "zqxml/datetime.h"
#include "zqxml/multibyte.h"

void DateTimeTest::SetUp() {
  for (const char* variable : {"ZQDATE", "ZQDATEONLY", "ZQTIMEONLY"}) {
    unsetenv(variable);
  }
  useZone("UTC");
  useLocale("C");
}

void DateTimeTest::TearDown() {
  SetUp();
  CleanupDateTimeInfo();
  datetime::state = datetime::State();
}

void DateTimeTest::useLocale(const char* name) {
  // Not in the environment of the whole program: start-up code of the C library leaks it.
  setenv("LOCPATH", ZQXML_LOCALES, 1);
  setenv("LC_ALL", name, 1);
  ASSERT_NE(setlocale(LC_ALL, ""), nullptr) << name;
  InitMbutil();
  forget();
}

void DateTimeTest::useZone(const char* zone) {
  setenv("TZ", zone, 1);
  tzset();
}

void DateTimeTest::useVariable(const char* name, const char* value) {
  if (value != nullptr) {
    setenv(name, value, 1);
  } else {
    unsetenv(name);
  }
  forget();
}

void DateTimeTest::forget() {
  CleanupDateTimeInfo();
  datetime::state = datetime::State();
}

std::string dump(const struct tm& fields) {
  char text[128];
  snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", fields.tm_year + 1900,
           fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec);
  return text;
}

struct tm makeTime(int year, int month, int day, int hour, int minute, int second) {
  struct tm fields = {};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = day;
  fields.tm_hour = hour;
  fields.tm_min = minute;
  fields.tm_sec = second;
  return fields;
}
