#include "xml/LocalTime.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>

namespace {

constexpr int64_t kHour = 3600;
constexpr int64_t kDay = 24 * kHour;

// No zone of the database returns to an offset that it has left within three days (Freetown did
// after four in 1939), so an offset that is the same at both ends of such a span holds inside it.
constexpr int64_t kSpan = 3 * kDay;

// No zone is further than this from Greenwich.
constexpr int64_t kGreatestOffset = 26 * kHour;

constexpr const char* kDefaultZone = "/etc/localtime";

int64_t floorDivide(int64_t value, int64_t divisor) {
  return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// The seconds of a local time, as if it were that of Greenwich. The year is counted from March.
int64_t linearSeconds(const tm& time) {
  const int64_t months = int64_t{time.tm_mon} - 2;
  const int64_t year = int64_t{time.tm_year} + 1900 + floorDivide(months, 12);
  const int64_t month = months - floorDivide(months, 12) * 12;
  const int64_t days = 365 * year + floorDivide(year, 4) - floorDivide(year, 100) +
                       floorDivide(year, 400) + (153 * month + 2) / 5 + time.tm_mday - 719469;
  return days * kDay + time.tm_hour * kHour + int64_t{time.tm_min} * 60 + time.tm_sec;
}

// Whether a value of TZ surely names a zone of the database: "EST5EDT" can be a rule too, whose
// changes the C library makes up.
bool isOfDatabase(std::string_view zone) {
  constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_-/";
  constexpr std::string_view kDigits = "0123456789+";
  if (getenv("TZDIR") != nullptr) {
    return false;
  }
  if (zone == kDefaultZone) {
    return true;
  }
  const bool digits = zone.find_first_of(kDigits) != std::string_view::npos;
  zone = zone.substr(0, zone.find_last_not_of(kDigits) + 1);
  return !zone.starts_with('/') && zone.find_first_not_of(kLetters) == std::string_view::npos &&
         (!digits || zone.find('/') != std::string_view::npos);
}

// What a thread knows about the zone that it used last. It has no constructor, so that a thread
// that never asks pays nothing.
class ZoneMemory {
 public:
  // Starts anew if TZ is not what it was.
  void follow() {
    const char* zone = getenv("TZ");
    if (zone == nullptr) {
      zone = kDefaultZone;
    }
    if (!filled || strcmp(zone, name.data()) != 0) {
      start(zone);
    }
  }

  long minutesWest() const { return west; }

  // The only offset that can be in effect at a local time, if that is certain.
  std::optional<int64_t> offsetAt(int64_t local) {
    if (!remembers || local < INT32_MIN || local > INT32_MAX) {
      return std::nullopt;
    }
    int64_t number = floorDivide(local - kGreatestOffset, kSpan);
    const int64_t offset = offsetAtPoint(number);
    while (number * kSpan < local + kGreatestOffset) {
      if (offsetAtPoint(++number) != offset) {
        return std::nullopt;
      }
    }
    return offset;
  }

 private:
  // A moment whose number is a multiple of kSpan, and the offset of the zone in it.
  struct Point {
    int32_t number;
    int32_t offset;
  };
  static constexpr size_t kPoints = 2048;  // sixteen years
  static constexpr int32_t kNoPoint = INT32_MIN;

  void start(std::string_view zone) {
    tzset();
    west = timezone / 60;
    filled = zone.size() < name.size();
    remembers = isOfDatabase(zone);
    if (filled) {
      name[zone.copy(name.data(), zone.size())] = '\0';
    }
    points.fill({kNoPoint, 0});
  }

  int64_t offsetAtPoint(int64_t number) {
    Point& point = points[static_cast<size_t>(number) % kPoints];
    if (point.number != number) {
      const time_t time = number * kSpan;
      tm local = {};
      tzset();  // localtime_r need not look at TZ
      localtime_r(&time, &local);
      point = {static_cast<int32_t>(number), static_cast<int32_t>(linearSeconds(local) - time)};
    }
    return point.offset;
  }

  bool filled;
  bool remembers;
  long west;
  std::array<char, 64> name;
  std::array<Point, kPoints> points;
};

ZoneMemory& zoneMemory() {
  static thread_local ZoneMemory memory;
  memory.follow();
  return memory;
}

}  // namespace

long zoneMinutesWest() {
  return zoneMemory().minutesWest();
}

time_t localToUnixTime(tm local) {
  const int64_t seconds = linearSeconds(local);
  if (const auto offset = zoneMemory().offsetAt(seconds)) {
    return seconds - *offset;
  }
  return mktime(&local);
}
