// Dates and times: the state that all date functions share, and formatting.

#include "zqxml/datetime.h"

#include <langinfo.h>

#include <cctype>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "text/datetime_state.h"
#include "zqxml/messages.h"
#include "zqxml/os.h"
#include "zqxml/status.h"

namespace datetime {

State state;

bool isAllDigits(const char* text) {
  const char* end = text;
  while (isDigit(*end)) {
    ++end;
  }
  return end != text && *end == '\0';
}

int readDigits(const char* text, const char** end) {
  int number = isDigit(*text) ? 0 : -1;
  for (; isDigit(*text); ++text) {
    const int digit = *text - '0';
    number = number > (INT_MAX - digit) / 10 ? INT_MAX : number * 10 + digit;
  }
  *end = text;
  return number;
}

size_t lengthOfName(const char* text, const char* name) {
  const auto lower = [](char c) { return tolower(static_cast<unsigned char>(c)); };
  size_t length = 0;
  for (; name[length] != '\0'; ++length) {
    if (lower(text[length]) != lower(name[length])) {
      return 0;
    }
  }
  return length;
}

}  // namespace datetime

namespace {

using datetime::state;

constexpr int kTwoDigitYearsAhead = 29;

static_assert(MON_12 - MON_1 == 11 && ABMON_12 - ABMON_1 == 11, "the months are numbered in a row");
static_assert(DAY_7 - DAY_1 == 6 && ABDAY_7 - ABDAY_1 == 6, "the weekdays are numbered in a row");

// The message catalog may name an environment variable; this library's has no such message.
const char* variableName(const char* standardName) {
  const char* name = ZQGetMessage();
  return name != nullptr ? name : standardName;
}

// Calls `visit(text)` for every text of the state in the order of the block, to be set to what it
// should hold.
template <typename Visit>
void forEachText(Visit visit) {
  const struct {
    const char** texts;
    int count;
    nl_item first;
  } names[] = {{state.months, 12, MON_1},       {state.monthsAbrev, 12, ABMON_1},
               {state.week, 7, DAY_1},          {state.weekAbrv, 7, ABDAY_1},
               {&state.morningTime, 1, AM_STR}, {&state.afternoonTime, 1, PM_STR}};
  for (const auto& row : names) {
    for (int i = 0; i < row.count; ++i) {
      visit(row.texts[i], nl_langinfo(row.first + i));
    }
  }
  visit(state.dateOnlyEnv, variableName("ZQDATEONLY"));
  visit(state.timeOnlyEnv, variableName("ZQTIMEONLY"));
  visit(state.dateEnvVar, variableName("ZQDATE"));
}

// Deliberate: letters count without a "%" ahead of them.
int isMonthBeforeDay(const char* format) {
  const char* letter = strpbrk(format, "Bbhmde");
  return letter == nullptr || strchr("de", *letter) == nullptr ? 1 : 0;
}

int currentYear() {
  const time_t now = time(nullptr);
  struct tm fields = {};
  OSLocalTime(&now, &fields);
  return fields.tm_year + 1900;
}

const char* environmentOr(const char* variable, const char* format) {
  const char* value = getenv(variable);
  return value != nullptr ? value : format;
}

}  // namespace

int InitDateTimeInfo(void) {
  if (state.initialized != 0) {
    return 0;
  }
  size_t size = 0;
  forEachText([&size](const char*&, const char* text) { size += strlen(text) + 1; });
  char* next = static_cast<char*>(malloc(size));
  if (next == nullptr) {
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  }
  state.combinedBuf = next;
  forEachText([&next](const char*& target, const char* text) {
    const size_t length = strlen(text) + 1;
    target = static_cast<const char*>(memcpy(next, text, length));
    next += length;
  });
  state.monthbday = isMonthBeforeDay(environmentOr(state.dateEnvVar, nl_langinfo(D_T_FMT)));
  state.defaultTwoDigitYearCutoff = currentYear() + kTwoDigitYearsAhead;
  state.initialized = 1;
  return 0;
}

void CleanupDateTimeInfo(void) {
  if (state.initialized == 0 || state.combinedBuf == nullptr) {
    return;
  }
  free(state.combinedBuf);
  state.combinedBuf = nullptr;
  forEachText([](const char*& target, const char*) { target = ""; });
}

namespace {

size_t formatBy(const char* const& variable, const char* defaultFormat, char* target, size_t size,
                const struct tm* fields) {
  if (fields == nullptr || target == nullptr) {
    return 0;
  }
  const int failure = InitDateTimeInfo();
  if (failure != 0) {
    return static_cast<size_t>(failure);
  }
  return strftime(target, size, environmentOr(variable, defaultFormat), fields);
}

}  // namespace

size_t FormatDate(char* target, size_t size, const struct tm* fields) {
  return formatBy(state.dateOnlyEnv, "%x", target, size, fields);
}

size_t FormatTime(char* target, size_t size, const struct tm* fields) {
  return formatBy(state.timeOnlyEnv, "%X", target, size, fields);
}

size_t FormatDateTime(char* target, size_t size, const struct tm* fields) {
  return formatBy(state.dateEnvVar, "%x %X", target, size, fields);
}
