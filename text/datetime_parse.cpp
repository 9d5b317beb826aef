// Dates and times as people type them: the formats that are tried, one after the other, until one
// matches.
//
// The order decides what an ambiguous text means, and so does what may follow a match. To add a
// format, add a row, and to tests/datetime a text that only this row takes. A `tm` goes from
// attempt to attempt: a format that matched has written it, even if the text behind the match then
// made the parser go on.

#include <langinfo.h>

#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "text/datetime_state.h"
#include "text/datetime_strptime.h"
#include "zqxml/datetime.h"
#include "zqxml/os.h"

namespace {

using datetime::skipBlanksAndTabs;
using datetime::state;

constexpr int kSecondsPerHour = 3600;

// A format, or where to find it at the time of the call.
class FormatSource {
 public:
  constexpr FormatSource() = default;
  constexpr FormatSource(const char* text) : format(text) {}
  constexpr explicit FormatSource(nl_item where) : item(where) {}

  // Returns null for no format.
  const char* get() const {
    if (item == kProgram) {
      return getenv(state.dateEnvVar);
    }
    return item != kNone ? nl_langinfo(item) : format;
  }

  static constexpr nl_item kProgram = -2;

 private:
  static constexpr nl_item kNone = -1;

  const char* format = nullptr;
  nl_item item = kNone;
};

constexpr FormatSource kProgramDateTime{FormatSource::kProgram};  // ZQDATE
constexpr FormatSource kLocaleDateTime{D_T_FMT};
constexpr FormatSource kLocaleDate{D_FMT};
constexpr FormatSource kLocaleTime{T_FMT};

// What may follow a match; otherwise the match is dropped.
enum class Rest {
  kAny,
  kBlank,  // blanks and tabs
  kTime,   // nothing, or a time by ParseTimeOnly
};

struct DateFormat {
  FormatSource format;
  FormatSource behind = {};  // joined to it by a blank
  Rest rest = Rest::kAny;
  bool startsAtMidnight = false;  // the attempt clears the time of day
};

// "%Y" and "%y" read the same, and so do formats that differ in blanks, so that some rows only
// repeat an earlier one, and an hour of "%I" is one of "%H" too. Deliberate: the list stands as
// programs know it.
constexpr DateFormat kDateFormats[] = {
    {kProgramDateTime, {}, Rest::kBlank},
    {kLocaleDateTime, {}, Rest::kBlank},
    {kLocaleDate, {}, Rest::kTime},
    {kLocaleDate, "%I:%M:%S %p"},
    {kLocaleDate, kLocaleTime},
    {"%y/%m/%d %H:%M:%S"},
    {"%y %m %d %H:%M:%S"},
    {"%h %d %Y %H:%M:%S", {}, Rest::kBlank},
    // Deliberate: the next row stands here twice.
    {"%h %d %y %H:%M", {}, Rest::kBlank},
    {"%h %d %y %H:%M:%S", {}, Rest::kBlank},
    {"%h %d %y %H:%M", {}, Rest::kBlank},
    {"%h %d , %Y %H:%M:%S", {}, Rest::kBlank},
    {"%h %d , %Y %H:%M", {}, Rest::kBlank},
    {"%h %d , %y %H:%M:%S", {}, Rest::kBlank},
    {"%h %d , %y %H:%M", {}, Rest::kBlank},
    {"%h %d %Y %I:%M:%S %p"},
    {"%h %d %Y %I:%M %p"},
    {"%h %d %y %I:%M:%S %p"},
    {"%h %d %y %I:%M %p"},
    {"%h %d , %Y %I:%M:%S %p"},
    {"%h %d , %Y %I:%M %p"},
    {"%h %d , %y %I:%M:%S %p"},
    {"%h %d , %y %I:%M %p"},
    {"%h %d %Y", kLocaleTime},
    {"%h %d %y", kLocaleTime},
    {"%h %d , %Y", kLocaleTime},
    {"%h %d , %y", kLocaleTime},
    {kLocaleDate, {}, Rest::kAny, true},
    {"%h %d %Y", {}, Rest::kAny, true},
    {"%h %d %y", {}, Rest::kAny, true},
    {"%h %d , %Y", {}, Rest::kAny, true},
    {"%h %d , %y", {}, Rest::kAny, true},
    {"%A , %B %d , %Y %I:%M:%S %p"},
    {"%d %b %Y %H:%M:%S%p"},
    {"%d %b %Y %H:%M:%S %p"},
    {"%d %b %Y %H:%M:%S"},
    {"%d %b %Y %H:%M%p"},
    {"%d %b %Y %H:%M %p"},
    {"%d %b %Y %H:%M"},
    {"%d %b %Y %H%p"},
    {"%d %b %y%p"},
    {"%d %b %Y%p"},
    {"%D %H:%M:%S %p"},
    {"%D %H:%M:%S%p"},
    {"%D %H:%M:%S"},
    {"%D %H:%M %p"},
    {"%D %H:%M%p"},
    {"%D %H:%M"},
    {"%D %H%p"},
    {"%D %I:%M:%S %p"},
    {"%D %I:%M:%S%p"},
    {"%D %I:%M:%S"},
    {"%D %I:%M %p"},
    {"%D %I:%M%p"},
    {"%D %I:%M"},
    {"%D %I%p"},
    {"%D%p"},
};

struct TimeFormat {
  FormatSource format;
  Rest rest;
};

constexpr TimeFormat kTimeFormats[] = {
    {kLocaleTime, Rest::kBlank},
    {"%H:%M:%S", Rest::kBlank},
    {"%I:%M:%S %p", Rest::kBlank},
    {"%H:%M", Rest::kBlank},
    {"%I:%M %p", Rest::kAny},
    // Deliberate: once more, and now whatever follows.
    {kLocaleTime, Rest::kAny},
};

using Match = const char*(const char*, const char*, const char*, struct tm&);

// Returns the end of the match, or of the text where only blanks may follow; null for no match.
const char* tryTimeFormats(Match* match, const char* text, struct tm& fields) {
  for (const TimeFormat& row : kTimeFormats) {
    const char* end = match(text, row.format.get(), nullptr, fields);
    if (end != nullptr && row.rest == Rest::kBlank) {
      end = skipBlanksAndTabs(end);
      end = *end == '\0' ? end : nullptr;
    }
    if (end != nullptr) {
      return end;
    }
  }
  return nullptr;
}

const char* acceptRest(Rest rest, const char* text, const char* end, struct tm& fields) {
  switch (rest) {
    case Rest::kBlank:
      return *skipBlanksAndTabs(end) == '\0' ? end : nullptr;
    case Rest::kTime:
      return end == text || *end == '\0' ? end
                                         : tryTimeFormats(datetime::matchDateTime, end, fields);
    default:
      return end;
  }
}

const char* tryDateFormats(const char* text, struct tm& fields) {
  for (const DateFormat& row : kDateFormats) {
    const char* format = row.format.get();
    if (format == nullptr) {
      continue;
    }
    if (row.startsAtMidnight) {
      fields.tm_hour = fields.tm_min = fields.tm_sec = 0;
    }
    const char* end = datetime::matchDateTime(text, format, row.behind.get(), fields);
    if (end != nullptr) {
      end = acceptRest(row.rest, text, end, fields);
    }
    if (end != nullptr) {
      return end;
    }
  }
  return nullptr;
}

// Digits as a time, as far as it goes.
time_t readTime(const char* digits) {
  return static_cast<time_t>(strtoll(digits, nullptr, 10));
}

// False only if the C library has no local time for it.
bool takeAsStandardTime(struct tm& fields) {
  fields.tm_isdst = 0;
  const time_t value = mktime(&fields);
  if (fields.tm_isdst <= 0) {
    return true;
  }
  const time_t hourBefore = value - kSecondsPerHour;
  return OSLocalTime(&hourBefore, &fields) != nullptr;
}

bool stripLeadWeekday(const char* text, const char*& rest) {
  text = skipBlanksAndTabs(text);
  for (const auto& names : {state.week, state.weekAbrv}) {
    for (int i = 0; i < 7; ++i) {
      const size_t length = datetime::lengthOfName(text, names[i]);
      if (length > 0) {
        text += length;
        rest = text + strspn(text, " \t,");
        return true;
      }
    }
  }
  return false;
}

bool parseDateTime(const char* text, struct tm& fields) {
  const char* end = tryDateFormats(text, fields);
  // Any number of weekdays: a loop, so that a long row of them takes no stack.
  while (end == nullptr && stripLeadWeekday(text, text)) {
    end = tryDateFormats(text, fields);
  }
  if (datetime::isAllDigits(text)) {
    const time_t value = readTime(text);
    if (OSLocalTime(&value, &fields) == nullptr) {
      return false;
    }
    end = text + strlen(text);
  }
  if (end == nullptr || *skipBlanksAndTabs(end) != '\0') {
    return false;
  }
  return takeAsStandardTime(fields);
}

}  // namespace

char* ParseTimeOnly(const char* text, struct tm* fields) {
  if (text == nullptr) {
    return nullptr;
  }
  struct tm ignored = datetime::firstOfJanuary1900();
  return const_cast<char*>(
      tryTimeFormats(datetime::matchDateTime, text, fields != nullptr ? *fields : ignored));
}

char* ParseTimeOfDayOnly(const char* text, struct tm* fields) {
  if (text == nullptr) {
    return nullptr;
  }
  struct tm ignored = datetime::firstOfJanuary1900();
  struct tm& result = fields != nullptr ? *fields : ignored;
  const char* end = tryTimeFormats(datetime::matchTimeOfDay, text, result);
  struct tm inUTC;
  const auto takeTimeOfDay = [&result, &inUTC](time_t value) {
    if (gmtime_r(&value, &inUTC) == nullptr) {
      return false;
    }
    result.tm_hour = inUTC.tm_hour;
    result.tm_min = inUTC.tm_min;
    result.tm_sec = inUTC.tm_sec;
    return true;
  };
  if (datetime::isAllDigits(text)) {
    if (!takeTimeOfDay(readTime(text))) {
      return nullptr;
    }
    end = text + strlen(text);
  }
  if (end == nullptr) {
    return nullptr;
  }
  end = skipBlanksAndTabs(end);
  if (*end != '\0') {
    return nullptr;
  }
  result.tm_isdst = 0;
  const time_t value = mktime(&result);
  if (result.tm_isdst > 0 && !takeTimeOfDay(value - kSecondsPerHour)) {
    return nullptr;
  }
  return const_cast<char*>(end);
}

int StripLeadWeekday(const char* text, char** rest) {
  const char* behind = nullptr;
  if (text == nullptr || InitDateTimeInfo() != 0 || !stripLeadWeekday(text, behind)) {
    return 0;
  }
  if (rest != nullptr) {
    *rest = const_cast<char*>(behind);
  }
  return 1;
}

int ParseDateTime(const char* text, struct tm* fields) {
  if (text == nullptr || InitDateTimeInfo() != 0) {
    return 0;
  }
  struct tm ignored = datetime::firstOfJanuary1900();
  return parseDateTime(text, fields != nullptr ? *fields : ignored) ? 1 : 0;
}
