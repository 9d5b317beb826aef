// Times and dates of documents, in the forms of ISO 8601 and XML Schema.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "xml/LocalTime.h"
#include "xml/ZQXMLException.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/ZQXMLTagHash.h"
#include "zqxml/calendar.h"
#include "zqxml/messages.h"

namespace {

constexpr int kMinute = 60;
constexpr int kHour = 60 * kMinute;

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

// Reads a text from left to right; what doesn't fit isn't passed.
class Scanner {
 public:
  explicit Scanner(const char* text) : rest(text) {}

  bool character(char wanted) {
    if (*rest != wanted) {
      return false;
    }
    ++rest;
    return true;
  }

  bool digits(int count) {
    for (; count > 0 && isDigit(*rest); --count) {
      ++rest;
    }
    return count == 0;
  }

  // Two digits of a number in a range.
  bool number(int least, int greatest) {
    if (!isDigit(rest[0]) || !isDigit(rest[1])) {
      return false;
    }
    const int value = 10 * (rest[0] - '0') + rest[1] - '0';
    rest += 2;
    return least <= value && value <= greatest;
  }

  void fraction() {
    if (character('.')) {
      while (isDigit(*rest)) {
        ++rest;
      }
    }
  }

  bool atEnd() const { return *rest == '\0'; }

 private:
  const char* rest;
};

// The number at a fixed place of a text, 0 behind its end.
int numberAt(std::string_view text, size_t position) {
  return position < text.size() ? atoi(text.data() + position) : 0;
}

// The seconds to add to a local time whose text goes on with a zone behind this place, where a
// fraction may stand: they lead from the machine's standard zone to that of the text.
int64_t zoneOffset(std::string_view text, size_t position) {
  if (position >= text.size()) {
    return 0;
  }
  if (text[position] == '.') {
    position = text.find_first_not_of("0123456789", position + 1);
    if (position == std::string_view::npos) {
      return 0;
    }
  }
  const char sign = text[position];
  if (sign != '-' && sign != '+' && sign != 'Z') {
    return 0;
  }
  const int64_t machine = -int64_t{kMinute} * zoneMinutesWest();
  if (sign == 'Z') {
    return machine;
  }
  const int64_t zone = int64_t{kHour} * numberAt(text, position + 1) +
                       int64_t{kMinute} * numberAt(text, position + 4);
  return sign == '-' ? machine + zone : machine - zone;
}

std::string_view behind(std::string_view text, size_t prefix) {
  return text.substr(prefix < text.size() ? prefix : text.size());
}

}  // namespace

bool ZQXMLHandlerUtils::ValidateISOTimeString(const char* text) {
  if (text == nullptr) {
    return false;
  }
  Scanner scanner(text);
  scanner.character('-');
  if (!scanner.digits(4) || !scanner.character('-') ||      // year
      !scanner.number(1, 12) || !scanner.character('-') ||  // month
      !scanner.number(1, 31) || !scanner.character('T') ||  // day
      !scanner.number(0, 23) || !scanner.character(':') ||  // hour
      !scanner.number(0, 59) || !scanner.character(':') || !scanner.number(0, 60)) {
    return false;
  }
  scanner.fraction();
  const bool west = scanner.character('-');
  if (!west && !scanner.character('+')) {
    scanner.character('Z');
    return scanner.atEnd();
  }
  // Deliberate: a zone of no hours is refused.
  return scanner.number(1, west ? 12 : 13) && scanner.character(':') && scanner.number(0, 59) &&
         scanner.atEnd();
}

void ZQXMLHandlerUtils::ConvertISOTimeToUnixTime(const char* text, ZQTimestamp* result) {
  ZQTimestamp unused;
  ZQTimestamp& target = result != nullptr ? *result : unused;
  target = 0;
  if (!ValidateISOTimeString(text)) {
    throw ZQXMLException(ZQ_MESSAGE_ISO_TIME, text);
  }
  tm local = {};
  local.tm_year = atoi(text) - 1900;
  // Deliberate: a sign ahead of the year is valid, and isn't skipped here.
  local.tm_mon = atoi(text + 5) - 1;
  local.tm_mday = atoi(text + 8);
  local.tm_hour = atoi(text + 11);
  local.tm_min = atoi(text + 14);
  local.tm_sec = atoi(text + 17);
  local.tm_isdst = -1;
  const int64_t sum = zoneOffset(text, 19) + localToUnixTime(local);
  target = sum < INT32_MIN || sum > INT32_MAX || sum == -1 ? 0 : static_cast<ZQTimestamp>(sum);
}

void ZQXMLHandlerUtils::ConvertISOTimeToUnixTimeOfDay(const char* text, int32_t* result) {
  if (result == nullptr) {
    return;
  }
  const std::string_view time = text != nullptr ? text : "";
  const int64_t seconds =
      int64_t{kHour} * numberAt(time, 0) + int64_t{kMinute} * numberAt(time, 3) + numberAt(time, 6);
  *result = static_cast<int32_t>(seconds + zoneOffset(time, 8));
}

int ZQXMLHandlerUtils::ConvertXMLDateToJDDate(int tag, const char* text, int32_t* result) {
  const std::string_view given = text != nullptr ? text : "";
  // Stands in for the year that the text doesn't have.
  std::string date = "1000-";
  switch (tag) {
    case tag_date:
      date = given;
      break;
    case tag_gDay:
      date.append("01-").append(behind(given, 3));
      break;
    case tag_gMonth:
      date.append(behind(given, 2));
      date.back() = '0';
      date += '1';
      break;
    case tag_gMonthDay:
      date.append(behind(given, 2));
      break;
    case tag_gYear:
      date.assign(given).append("-01-01");
      break;
    case tag_gYearMonth:
      date.assign(given).append("-01");
      break;
    default:
      return ZQ_MESSAGE_VALUE_CONVERSION;
  }
  return ConvertISODateStringToJD(date.c_str(), result);
}
