// Day numbers from and to text: ISO dates, and dates in the order of the locale's date format.

#include <langinfo.h>
#include <strings.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "text/datetime_date.h"
#include "text/datetime_state.h"
#include "text/mbutil_state.h"
#include "zqxml/calendar.h"
#include "zqxml/datetime.h"
#include "zqxml/messages.h"

namespace {

using datetime::Date;
using datetime::isDigit;
using datetime::state;

constexpr int kDefaultCutoff = -1;
constexpr char kBlanks[] = " \t\n\v\f\r";

// A number as atoi reads it, within the limits of an int. `end` receives where it ends.
int64_t readInt(const char* text, const char** end) {
  char* behind;
  const long number = strtol(text, &behind, 10);
  *end = behind;
  return number > INT_MAX ? INT_MAX : number < INT_MIN ? INT_MIN : number;
}

bool hasTwoDigits(const char* text) {
  text += strspn(text, kBlanks);
  return isDigit(text[0]) && isDigit(text[1]) && !isDigit(text[2]);
}

// Reads exactly this many digits and moves behind them.
bool readDigitsOf(const char*& text, int count, int64_t& number) {
  number = 0;
  for (int i = 0; i < count; ++i, ++text) {
    if (!isDigit(*text)) {
      return false;
    }
    number = number * 10 + (*text - '0');
  }
  return true;
}

bool readCharacter(const char*& text, char c) {
  if (*text != c) {
    return false;
  }
  ++text;
  return true;
}

bool readISOForm(const char* text, Date& date) {
  const bool isNegative = readCharacter(text, '-');
  if (!readDigitsOf(text, 4, date.year) || !readCharacter(text, '-') ||
      !readDigitsOf(text, 2, date.month) || !readCharacter(text, '-') ||
      !readDigitsOf(text, 2, date.day)) {
    return false;
  }
  date.year = isNegative ? -date.year : date.year;
  return true;
}

// To the next number behind the one that stands here. Without a further one to what follows the
// digits and blanks, so that a "BC" behind the last number is found.
const char* skipToNextNumber(const char* text) {
  while (isDigit(*text)) {
    ++text;
  }
  const char* next = strpbrk(text, "0123456789");
  return next != nullptr ? next : text + strspn(text, kBlanks);
}

bool isBeforeChrist(const char* text) {
  return strncasecmp(text, "BC", 2) == 0 || strncasecmp(text, "B.C.", 4) == 0;
}

}  // namespace

int ConvertISODateStringToJD(const char* text, int* dayNumber) {
  Date date;
  if (text == nullptr || !readISOForm(text, date)) {
    return ZQ_MESSAGE_ISO_TIME;
  }
  if (!datetime::isValid(date)) {
    return ZQ_MESSAGE_DATE_INVALID;
  }
  if (dayNumber != nullptr) {
    *dayNumber = static_cast<int>(datetime::toDayNumber(date));
  }
  return 0;
}

int ConvertJDToISODateString(int dayNumber, char* target) {
  if (target != nullptr) {
    int date[3];
    JulianDateToDate(dayNumber, date);
    snprintf(target, ZQ_ISO_DATE_SIZE, "%.4d-%.2d-%.2d", date[0], date[1], date[2]);
  }
  return 0;
}

int ConvertToFourDigitYear(int cutoff, int twoDigitYear) {
  const int64_t last = cutoff;
  const int64_t century = twoDigitYear > last % 100 ? (last - 99) / 100 : last / 100;
  return static_cast<int>(century * 100 + twoDigitYear);
}

namespace datetime {

bool readDateBy(const char* format, int cutoff, const char* text, int& dayNumber) {
  Date date = {};
  const char* next = text;
  bool isTwoDigits;
  for (format = strchr(format, '%'); format != nullptr; format = strchr(format, '%')) {
    ++format;
    switch (*format) {
      case 'Y':
      case 'y':
        isTwoDigits = hasTwoDigits(next);
        date.year = readInt(next, &next);
        if (isTwoDigits) {
          date.year = ConvertToFourDigitYear(cutoff, static_cast<int>(date.year));
        }
        break;
      case 'd':
      case 'e':
        date.day = readInt(next, &next);
        break;
      case 'm':
        date.month = readInt(next, &next);
        break;
      default:
        break;
    }
    next = skipToNextNumber(next);
    if (*format != '\0') {
      ++format;
    }
  }
  if (isBeforeChrist(next)) {
    date.year = 1 - date.year;
  }
  if (isValid(date)) {
    dayNumber = static_cast<int>(toDayNumber(date));
    return true;
  }
  if (isAllDigits(text)) {
    dayNumber = static_cast<int>(readInt(text, &next));
    return true;
  }
  return false;
}

void writeDateBy(const char* format, int dayNumber, char* target) {
  int date[3];
  JulianDateToDate(dayNumber, date);
  const bool isBC = date[0] <= 0;
  const int64_t year = isBC ? 1 - int64_t{date[0]} : date[0];
  *target = '\0';
  const auto write = [&target, &format](const char* pattern, int number) {
    target += sprintf(target, pattern, number);
    const int length = format[1] != '\0' ? mbbytesinchar(format + 1) : 0;
    memcpy(target, format + 1, static_cast<size_t>(length));
    target += length;
    *target = '\0';
  };
  for (format = strchr(format, '%'); format != nullptr; format = strchr(format, '%')) {
    ++format;
    switch (*format) {
      case 'Y':
        write("%04d", static_cast<int>(year));
        break;
      case 'y':
        write("%02d", static_cast<int>(year % 100));
        break;
      case 'd':
        write("%02d", date[2]);
        break;
      case 'e':
        write("%d", date[2]);
        break;
      case 'm':
        write("%d", date[1]);
        break;
      default:
        break;
    }
    if (*format != '\0') {
      ++format;
    }
  }
  if (isBC) {
    strcpy(target, " BC");
  }
}

}  // namespace datetime

// The multi-byte functions come first: they set the locale, and that changes its formats.

int ConvertDateStringToJD(int cutoff, const char* text, int* dayNumber) {
  initialiseMbutil();
  const int failure = InitDateTimeInfo();
  if (failure != 0) {
    return failure;
  }
  if (cutoff == kDefaultCutoff) {
    cutoff = state.defaultTwoDigitYearCutoff;
  }
  int result;
  if (text == nullptr || !datetime::readDateBy(nl_langinfo(D_FMT), cutoff, text, result)) {
    return ZQ_MESSAGE_DATE_INVALID;
  }
  if (dayNumber != nullptr) {
    *dayNumber = result;
  }
  return 0;
}

int ConvertJDToDateString(int dayNumber, char* target) {
  initialiseMbutil();
  if (target != nullptr) {
    datetime::writeDateBy(nl_langinfo(D_FMT), dayNumber, target);
  }
  return 0;
}
