// Reading a text by a format, letter by letter.
//
// Blanks are skipped in the text and in the format behind every step, and the match ends with the
// text or the format, whichever is shorter. A letter acts with or without a "%", which is a step
// that does nothing.

#include "text/datetime_strptime.h"

#include <cstring>
#include <iterator>

#include "text/datetime_state.h"
#include "zqxml/datetime.h"

namespace datetime {

namespace {

const char* skipBlanks(const char* text) {
  while (*text == ' ') {
    ++text;
  }
  return text;
}

bool isPunctuation(char c) {
  return strchr("!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~", c) != nullptr;
}

// A format of up to two pieces, in which a letter can be replaced by a format of its own.
class FormatReader {
 public:
  FormatReader(const char* format, const char* behind) {
    if (behind != nullptr) {
      pieces[count++] = behind;
    }
    pieces[count++] = format;
    skipBlanksOfFormat();
  }

  bool atEnd() const { return *top() == '\0'; }
  char letter() const { return *top(); }

  // Over one character and the blanks behind it.
  void step() {
    ++top();
    skipBlanksOfFormat();
  }

  bool digitFollows() const { return isDigit(top()[1]); }

  // To the last digit of those that follow.
  void skipDigits() {
    while (digitFollows()) {
      ++top();
    }
  }

  // Replaces the current letter and what is ahead of it: the next step goes to the second character
  // of the replacement, whose first is a "%". Replacements have no letters that are replaced.
  void replace(const char* replacement) {
    ++top();
    pieces[count++] = replacement;
  }

 private:
  const char*& top() { return pieces[count - 1]; }
  const char* const& top() const { return pieces[count - 1]; }

  void skipBlanksOfFormat() {
    top() = skipBlanks(top());
    while (atEnd() && count > 1) {
      --count;
      top() = skipBlanks(top());
    }
  }

  const char* pieces[3] = {};  // the last one is read first
  int count = 0;
};

class Matcher {
 public:
  enum class Letters { kAll, kTimeOfDay };

  Matcher(const char* start, FormatReader pieces, Letters known, struct tm& target)
      : text(skipBlanks(start)), format(pieces), letters(known), fields(target) {}

  // Returns where the match ends, or null.
  const char* match() {
    if (*text == '\0') {
      return nullptr;
    }
    for (; !format.atEnd() && *text != '\0'; format.step()) {
      if (!readLetter(format.letter())) {
        return nullptr;
      }
      text = skipBlanks(text);
    }
    return text;
  }

 private:
  bool readLetter(char letter) {
    switch (letter) {
      case '%':
        return true;
      case '.':
        return readPoint();
      case 'H':
      case 'k':
        return readNumber(0, 23, fields.tm_hour);
      case 'I':
      case 'l':
        return readNumber(0, 12, fields.tm_hour);
      case 'M':
        return readNumber(0, 59, fields.tm_min);
      case 'S':
        return readNumber(0, 59, fields.tm_sec);
      case 'T':
      case 'X':
        format.replace("%H:%M:%S");
        return true;
      case 'p':
        return readHalfOfDay();
      default:
        if (letters == Letters::kAll) {
          return readDateLetter(letter);
        }
        return isPunctuation(letter) && readLiteral(letter);
    }
  }

  bool readDateLetter(char letter) {
    switch (letter) {
      case 'A':
        readName(state.week, fields.tm_wday);
        return true;
      case 'a':
        readName(state.weekAbrv, fields.tm_wday);
        return true;
      case 'B':
      case 'b':
      case 'h':
        return readName(state.months, fields.tm_mon) || readName(state.monthsAbrev, fields.tm_mon);
      case 'D':
        format.replace(state.monthbday != 0 ? "%m/%d/%y" : "%d/%m/%y");
        return true;
      case 'Y':
      case 'y':
        return readYear();
      case 'd':
      case 'e':
        // Without a digit the day becomes -1, which is no day of any month.
        fields.tm_mday = readDigits(text, &text);
        return true;
      case 'j':
        return readNumber(0, 365, fields.tm_yday);
      case 'm':
        return readNumberFromOne(12, fields.tm_mon);
      case 'w':
        return readNumberFromOne(7, fields.tm_wday);
      default:
        return readLiteral(letter);
    }
  }

  bool readLiteral(char c) {
    if (*text != c) {
      return false;
    }
    ++text;
    return true;
  }

  // A point with a width behind it, as in "%.3d", has no effect.
  bool readPoint() {
    if (format.digitFollows()) {
      format.skipDigits();
      return true;
    }
    return readLiteral('.');
  }

  bool readNumber(int least, int greatest, int& field) {
    field = readDigits(text, &text);
    return field >= least && field <= greatest;
  }

  bool readNumberFromOne(int greatest, int& field) {
    const bool fits = readNumber(1, greatest, field);
    --field;
    return fits;
  }

  bool readYear() {
    constexpr int kFirstOfLastCentury = 39;
    constexpr int kLastOfLastCentury = 100;
    int year = readDigits(text, &text);
    if (year < 0) {
      return false;
    }
    if (year < kFirstOfLastCentury) {
      year += 100;
    } else if (year > kLastOfLastCentury) {
      year -= 1900;
    }
    fields.tm_year = year;
    return true;
  }

  bool readName(const char* name) {
    const size_t length = lengthOfName(text, name);
    text += length;
    return length > 0;
  }

  template <int N>
  bool readName(const char* const (&names)[N], int& field) {
    for (int i = 0; i < N; ++i) {
      if (readName(names[i])) {
        field = i;
        return true;
      }
    }
    return false;
  }

  bool readHalfOfDay() {
    if (readName(state.morningTime)) {
      if (fields.tm_hour > 12) {
        return false;
      }
      fields.tm_hour = fields.tm_hour == 12 ? 0 : fields.tm_hour;
      return true;
    }
    if (readName(state.afternoonTime)) {
      fields.tm_hour += fields.tm_hour < 12 ? 12 : 0;
      return true;
    }
    return false;
  }

  const char* text;
  FormatReader format;
  Letters letters;
  struct tm& fields;
};

bool isDate(const struct tm& fields) {
  return fields.tm_mon >= 0 && fields.tm_mon <= 11 && fields.tm_mday >= 1 &&
         fields.tm_mday <= ZqDayInMonth(fields.tm_year, fields.tm_mon);
}

}  // namespace

const char* matchDateTime(const char* text, const char* format, const char* behind,
                          struct tm& fields) {
  if (InitDateTimeInfo() != 0) {
    return nullptr;
  }
  struct tm read = fields;
  const char* end = Matcher(text, {format, behind}, Matcher::Letters::kAll, read).match();
  if (end == nullptr || !isDate(read)) {
    return nullptr;
  }
  fields = read;
  return end;
}

const char* matchTimeOfDay(const char* text, const char* format, const char* behind,
                           struct tm& fields) {
  if (InitDateTimeInfo() != 0) {
    return nullptr;
  }
  struct tm read = fields;
  const char* end = Matcher(text, {format, behind}, Matcher::Letters::kTimeOfDay, read).match();
  if (end == nullptr) {
    return nullptr;
  }
  read.tm_mday = read.tm_mon = read.tm_year = read.tm_wday = read.tm_yday = read.tm_isdst = 0;
  fields = read;
  return end;
}

struct tm firstOfJanuary1900() {
  struct tm fields = {};
  fields.tm_mday = 1;
  return fields;
}

}  // namespace datetime

namespace {

using Match = const char*(const char*, const char*, const char*, struct tm&);

char* checkAndMatch(Match* match, const char* text, const char* format, struct tm* fields) {
  if (text == nullptr || format == nullptr) {
    return nullptr;
  }
  struct tm ignored = datetime::firstOfJanuary1900();
  return const_cast<char*>(match(text, format, nullptr, fields != nullptr ? *fields : ignored));
}

}  // namespace

char* zqstrptime(const char* text, const char* format, struct tm* fields) {
  return checkAndMatch(datetime::matchDateTime, text, format, fields);
}

char* zqstrptimeofday(const char* text, const char* format, struct tm* fields) {
  return checkAndMatch(datetime::matchTimeOfDay, text, format, fields);
}

int ZqDayInMonth(int year, int month) {
  constexpr int kFebruary = 1;
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 0 || month >= static_cast<int>(std::size(kDays))) {
    return 0;
  }
  if (year < 1000) {
    year += 1900;
  }
  const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return kDays[month] + (month == kFebruary && isLeap ? 1 : 0);
}
