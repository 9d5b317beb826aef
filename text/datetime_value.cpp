// The values of time fields from text: times, durations and times of day.

#include <cstdlib>

#include "text/datetime_state.h"
#include "zqxml/datetime.h"
#include "zqxml/os.h"

namespace {

using datetime::skipBlanksAndTabs;

constexpr int kSecondsPerMinute = 60;
constexpr int kSecondsPerHour = 3600;
constexpr int kMostHoursOfDuration = INT32_MAX / kSecondsPerHour;

// The start of today.
struct tm today() {
  const time_t now = time(nullptr);
  struct tm fields = {};
  OSLocalTime(&now, &fields);
  fields.tm_hour = fields.tm_min = fields.tm_sec = 0;
  return fields;
}

// A number with a sign and white space ahead of it, as far as 64 bits go; false if there is none.
// Its bits are unsigned, so that sums may overflow.
bool readSigned(const char*& text, uint64_t& number) {
  char* end;
  const long long read = strtoll(text, &end, 10);
  if (end == text) {
    return false;
  }
  text = end;
  number = static_cast<uint64_t>(read);
  return true;
}

// Reads hours, minutes and seconds with colons between them. Returns where the last number ends, or
// null.
const char* readDuration(const char* text, int64_t& seconds) {
  uint64_t numbers[3] = {};
  const char* end = nullptr;
  for (uint64_t& number : numbers) {
    if (end != nullptr) {
      if (*end != ':') {
        break;
      }
      text = end + 1;
    }
    if (!readSigned(text, number)) {
      break;
    }
    end = text;
  }
  seconds = static_cast<int64_t>(numbers[0] * kSecondsPerHour + numbers[1] * kSecondsPerMinute +
                                 numbers[2]);
  return end;
}

bool readTimeValue(const char* text, bool timeOnly, ZQTimestamp& value, ZQBoolean& isDuration) {
  struct tm fields = today();
  const bool isDigits = datetime::isAllDigits(text);
  const char* end;
  const bool isHours = isDigits && datetime::readDigits(text, &end) <= kMostHoursOfDuration;
  int64_t seconds = 0;
  if ((isHours && !timeOnly) || ParseDateTime(text, &fields) == 0) {
    const char* rest;
    if (timeOnly) {
      fields = today();
      rest = ParseTimeOnly(text, &fields);
    } else if (isDigits && !isHours) {
      return false;
    } else {
      rest = readDuration(text, seconds);
      isDuration = rest != nullptr ? 1 : 0;
    }
    if (rest == nullptr || *skipBlanksAndTabs(rest) != '\0') {
      return false;
    }
  }
  if (isDuration == 0) {
    seconds = mktime(&fields);
    if (seconds < 0 || seconds > INT32_MAX) {
      return false;
    }
  }
  value = static_cast<ZQTimestamp>(seconds);
  return true;
}

}  // namespace

int ConvertTimeValue(const char* text, int timeOnly, ZQTimestamp* value, ZQBoolean* isDuration) {
  ZQTimestamp time = 0;
  ZQBoolean duration = 0;
  const bool isRead = text != nullptr && readTimeValue(text, timeOnly != 0, time, duration);
  if (value != nullptr) {
    *value = time;
  }
  if (isDuration != nullptr) {
    *isDuration = duration;
  }
  return isRead ? 1 : 0;
}

int ConvertTimeOfDayValue(const char* text, ZQTimestamp* seconds) {
  struct tm fields = today();
  if (ParseTimeOfDayOnly(text, &fields) == nullptr) {
    fields = today();
    if (ParseDateTime(text, &fields) == 0) {
      return 0;
    }
  }
  if (seconds != nullptr) {
    *seconds = fields.tm_hour * kSecondsPerHour + fields.tm_min * kSecondsPerMinute + fields.tm_sec;
  }
  return 1;
}
