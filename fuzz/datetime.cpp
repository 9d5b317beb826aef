// Any text, format, `tm` and day number to the date functions. An input is a byte that chooses the
// function, the ints that it takes, and a format and a text with a zero byte between them.

#include <zqxml/calendar.h>
#include <zqxml/datetime.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "fuzz/Input.h"

namespace {

using fuzz::Input;
using fuzz::require;

bool isWithin(const char* position, const char* text) {
  return position == nullptr || (position >= text && position <= text + strlen(text));
}

struct tm readFields(Input& input, bool isWild) {
  struct tm fields = {};
  if (!isWild) {
    fields.tm_mday = 1 + input.byte() % 31;
    fields.tm_mon = input.byte() % 12;
    fields.tm_year = input.byte();
    return fields;
  }
  for (int* field :
       {&fields.tm_sec, &fields.tm_min, &fields.tm_hour, &fields.tm_mday, &fields.tm_mon,
        &fields.tm_year, &fields.tm_wday, &fields.tm_yday, &fields.tm_isdst}) {
    *field = input.number();
  }
  return fields;
}

void parse(int choice, Input& input) {
  struct tm fields = readFields(input, (choice & 0x80) != 0);
  const auto format = input.text();
  const auto text = input.text();
  char* rest = text.get();
  ZQTimestamp value = 0;
  ZQBoolean isDuration = 0;
  switch (choice & 7) {
    case 0:
      require(isWithin(zqstrptime(text.get(), format.get(), &fields), text.get()),
              "the rest lies in the text");
      break;
    case 1:
      require(isWithin(zqstrptimeofday(text.get(), format.get(), &fields), text.get()),
              "the rest lies in the text");
      break;
    case 2:
      require(isWithin(ParseTimeOnly(text.get(), &fields), text.get()),
              "the rest lies in the text");
      break;
    case 3:
      require(isWithin(ParseTimeOfDayOnly(text.get(), &fields), text.get()),
              "the rest lies in the text");
      break;
    case 4:
      StripLeadWeekday(text.get(), &rest);
      require(isWithin(rest, text.get()), "the rest lies in the text");
      break;
    case 5:
      ParseDateTime(text.get(), &fields);
      break;
    case 6:
      require(ConvertTimeValue(text.get(), choice & 0x40, &value, &isDuration) == 1 || value == 0,
              "a time that is none is 0");
      break;
    default:
      ConvertTimeOfDayValue(text.get(), &value);
  }
}

void format(Input& input) {
  const struct tm fields = readFields(input, true);
  char target[64];
  for (const auto function : {FormatDate, FormatTime, FormatDateTime}) {
    require(function(target, static_cast<size_t>(input.byte() % 64), &fields) < sizeof target,
            "a text fits");
  }
}

void calculate(int choice, Input& input) {
  int date[3] = {input.number(), input.number(), input.number()};
  const int first = input.number();
  const int second = input.number();
  int result = 0;
  DateToJulianDate(date, &result);
  require(ValidateDate(date) == 0 || IsLeapYear(date) <= 1, "a year is a leap year or not");
  DateAdd(choice & 7, first, second, &result);
  DateDiff(choice & 7, first, second, &result);
  TruncateDate(&result);
  JulianDateToDate(result, date);
  JulianDateToDate(first, date);
  char target[256];
  GetDatePartNum(choice & 7, first, &result);
  GetDatePartName(choice & 7, first, target);
  GetWeekNumber(first);
  GetWeekday(first);
  ConvertJDToISODateString(first, target);
  ConvertJDToDateString(first, target);
  ConvertToFourDigitYear(first, second);
}

void readDayNumbers(Input& input) {
  const int cutoff = input.number();
  const auto text = input.text();
  int dayNumber = -1;
  if (ConvertISODateStringToJD(text.get(), &dayNumber) == 0) {
    char iso[ZQ_ISO_DATE_SIZE];
    ConvertJDToISODateString(dayNumber, iso);
    int again = -1;
    require(ConvertISODateStringToJD(iso, &again) != 0 || again == dayNumber,
            "a day number comes back");
  }
  ConvertDateStringToJD(cutoff, text.get(), &dayNumber);
  GetNumericDateParts(text.get(), &dayNumber);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  setenv("TZ", "AEST-10AEDT,M10.1.0,M4.1.0/3", 1);
  tzset();
  return 0;
}

void fuzz::run(const uint8_t* bytes, size_t count) {
  Input input(bytes, count);
  const int choice = input.byte();
  switch (choice >> 3 & 7) {
    case 0:
      calculate(input.byte(), input);
      break;
    case 1:
      readDayNumbers(input);
      break;
    case 2:
      format(input);
      break;
    default:
      parse(choice, input);
  }
}
