// What the date functions know of locale and environment. The state is written at the first use,
// without a lock, and the names are copies: pointers into the locale's own data end with the next
// change of locale.
#ifndef ZQXML_TEXT_DATETIME_STATE_H
#define ZQXML_TEXT_DATETIME_STATE_H

#include <cstddef>

namespace datetime {

struct State {
  int initialized = 0;
  char* combinedBuf = nullptr;  // the one block behind all texts below
  const char* months[12] = {};
  const char* monthsAbrev[12] = {};
  const char* week[7] = {};
  const char* weekAbrv[7] = {};
  const char* morningTime = "";
  const char* afternoonTime = "";
  const char* dateOnlyEnv = "";  // the names of the environment variables
  const char* timeOnlyEnv = "";
  const char* dateEnvVar = "";
  int defaultTwoDigitYearCutoff = 0;
  int monthbday = -1;  // a numeric date has its month before its day: 1 or 0
};

// Filled by InitDateTimeInfo.
extern State state;

inline constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// One or more digits and nothing else.
bool isAllDigits(const char* text);

// The digits at the start of a text as a number, at most INT_MAX; -1 if there are none. `end`
// receives where they end.
int readDigits(const char* text, const char** end);

// The length of a name if a text begins with it, without regard to case in the sense of the locale;
// otherwise 0. So an empty name, which many locales have for the halves of the day, never matches.
size_t lengthOfName(const char* text, const char* name);

inline const char* skipBlanksAndTabs(const char* text) {
  while (*text == ' ' || *text == '\t') {
    ++text;
  }
  return text;
}

}  // namespace datetime

#endif
