// The remembered time zone beside mktime, which is asked next to it each time: in an hour that
// comes twice mktime goes on as it went last.

#include "xml/LocalTime.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "xml/Listing.h"

namespace {

constexpr const char* kDatabase = "/usr/share/zoneinfo";
constexpr time_t kHour = 3600;
constexpr time_t kDay = 24 * kHour;
constexpr time_t kFirst = INT32_MIN;
constexpr time_t kLast = INT32_MAX;

void setZone(const std::string& zone) {
  setenv("TZ", zone.c_str(), 1);
}

class LocalTime : public testing::Test {
 protected:
  ~LocalTime() override {
    unsetenv("TZDIR");
    setZone("UTC");
    tzset();
  }

  // Compares for the local time that a moment of Greenwich reads as there.
  bool equals(time_t greenwich, int second = -1) {
    tm local = {};
    gmtime_r(&greenwich, &local);
    local.tm_isdst = -1;
    if (second >= 0) {
      local.tm_sec = second;
    }
    tm given = local;
    const time_t before = mktime(&given);
    const time_t result = localToUnixTime(local);
    ++compared;
    if (result != before) {
      ADD_FAILURE() << getenv("TZ") << " at " << greenwich << ": " << result << ", mktime "
                    << before;
      return false;
    }
    return true;
  }

  // The moments at which the zone of TZ changes its offset, as far as they are a day apart.
  static std::vector<time_t> changes() {
    std::vector<time_t> result;
    for (time_t time = kFirst; time + kDay <= kLast; time += kDay) {
      time_t low = time;
      time_t high = time + kDay;
      if (offset(low) == offset(high)) {
        continue;
      }
      while (high - low > 1) {
        const time_t middle = low + (high - low) / 2;
        (offset(middle) == offset(time) ? low : high) = middle;
      }
      result.push_back(high);
    }
    return result;
  }

  static long offset(time_t time) {
    tm local = {};
    localtime_r(&time, &local);
    return local.tm_gmtoff;
  }

  size_t compared = 0;
};

// All zones of the database under their names.
std::vector<std::string> zoneNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(kDatabase)) {
    std::string magic(4, '\0');
    if (entry.is_regular_file() &&
        std::ifstream(entry.path(), std::ios::binary).read(magic.data(), 4) && magic == "TZif") {
      names.push_back(std::filesystem::relative(entry.path(), kDatabase).string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

// Half hours, southern summer time, rules that changed, a skipped day, a clock that goes back in
// summer, a war-time zone, zones far from Greenwich.
const std::vector<std::string> kZones = {
    "Europe/Berlin",      "America/New_York", "Asia/Kolkata",      "Australia/Lord_Howe",
    "Australia/Adelaide", "Pacific/Apia",     "America/Sao_Paulo", "Europe/Dublin",
    "Africa/Freetown",    "Asia/Kathmandu",   "America/St_Johns",  "Pacific/Auckland",
    "Pacific/Kiritimati", "Asia/Kamchatka",   "America/Anchorage", "UTC"};

TEST_F(LocalTime, AroundEveryChangeOfManyZones) {
  std::mt19937 random(1);
  for (const std::string& zone : kZones) {
    setZone(zone);
    tzset();
    std::vector<time_t> moments;
    for (const time_t change : changes()) {
      for (const long shift : {offset(change - 1), offset(change)}) {
        for (time_t away = -5 * kDay; away <= 5 * kDay; away += 17 * kHour / 3) {
          moments.push_back(change + shift + away);
        }
        for (time_t away = -3 * kHour; away <= 3 * kHour; away += kHour / 2) {
          for (const time_t second : {-1, 0, 1}) {
            moments.push_back(change + shift + away + second);
          }
        }
      }
    }
    std::shuffle(moments.begin(), moments.end(), random);
    ASSERT_TRUE(std::ranges::all_of(moments, [this](time_t time) { return equals(time); }));
  }
  EXPECT_GE(compared, 150000U);
}

TEST_F(LocalTime, EveryZoneOfTheDatabase) {
  std::mt19937 random(2);
  std::uniform_int_distribution<time_t> any(kFirst - 10 * kDay, kLast + 10 * kDay);
  std::uniform_int_distribution<time_t> recent(0, kLast);
  const auto names = zoneNames();
  ASSERT_GE(names.size(), 300U);
  for (const std::string& name : names) {
    setZone(name);
    for (int i = 0; i < 300; ++i) {
      ASSERT_TRUE(equals(any(random)) && equals(recent(random)));
    }
  }
}

int64_t bigEndian(const std::string& data, size_t& position, int bytes) {
  int64_t value = static_cast<signed char>(data[position++]);
  while (--bytes > 0) {
    value = value * 256 + static_cast<unsigned char>(data[position++]);
  }
  return value;
}

struct ZoneFile {
  std::vector<int64_t> times;
  std::vector<int64_t> offsets;  // the one ahead of the first time, and that from each time on
};

// The second half of a zone file, which has times of 64 bits.
ZoneFile readZoneFile(const std::string& path) {
  std::ostringstream contents;
  contents << std::ifstream(path, std::ios::binary).rdbuf();
  const std::string data = contents.str();
  ZoneFile zone;
  size_t position = 0;
  int64_t counts[6];
  for (const int bytes : {4, 8}) {
    position += 20;
    for (int64_t& count : counts) {
      count = bigEndian(data, position, 4);
    }
    if (bytes == 4) {
      position += static_cast<size_t>(counts[3] * 5 + counts[4] * 6 + counts[5] + counts[2] * 8 +
                                      counts[1] + counts[0]);
    }
  }
  for (int64_t i = 0; i < counts[3]; ++i) {
    zone.times.push_back(bigEndian(data, position, 8));
  }
  const size_t types = position;
  position += static_cast<size_t>(counts[3]);
  const size_t kinds = position;
  for (int64_t i = -1; i < counts[3]; ++i) {
    const auto type = i < 0 ? 0 : static_cast<size_t>(data[types + static_cast<size_t>(i)]);
    position = kinds + type * 6;
    zone.offsets.push_back(bigEndian(data, position, 4));
  }
  return zone;
}

// What makes an offset that is the same three days apart hold in between.
TEST_F(LocalTime, NoZoneReturnsToAnOffsetWithinThreeDays) {
  size_t returns = 0;
  for (const std::string& name : zoneNames()) {
    const ZoneFile zone = readZoneFile(std::string(kDatabase) + "/" + name);
    for (size_t left = 0; left < zone.times.size(); ++left) {
      bool away = false;
      for (size_t back = left; back < zone.times.size(); ++back) {
        if (zone.offsets[back + 1] != zone.offsets[left]) {
          away = true;
        } else if (away) {
          ++returns;
          ASSERT_GT(zone.times[back] - zone.times[left], 3 * kDay) << name;
          break;
        }
      }
    }
    for (const int64_t offset : zone.offsets) {
      ASSERT_LT(std::abs(offset), 26 * kHour) << name;
    }
  }
  EXPECT_GE(returns, 10000U);
}

TEST_F(LocalTime, AlternatingZones) {
  std::vector<std::string> zones = kZones;
  for (const char* rule : {"CET-1CEST,M3.5.0,M10.5.0/3", "EST5EDT", "<+0330>-3:30",
                           "A0B,J100/2,J100/4", ":Europe/Berlin", "/usr/share/zoneinfo/Asia/Tokyo",
                           "", "no such zone", "posixrules", "right/Europe/Berlin"}) {
    zones.emplace_back(rule);
  }
  zones.emplace_back(200, 'x');
  std::mt19937 random(3);
  std::uniform_int_distribution<size_t> anyZone(0, zones.size());
  std::uniform_int_distribution<time_t> summer(1076000000, 1106000000);
  for (int i = 0; i < 40000; ++i) {
    const size_t zone = anyZone(random);
    if (zone < zones.size()) {
      setZone(zones[zone]);
    } else {
      setZone("an unset zone");
      unsetenv("TZ");
    }
    const time_t time = summer(random);
    const time_t stay = i % 3;
    for (time_t next = 0; next <= stay; ++next) {
      tm local = {};
      const time_t greenwich = time + next * kHour;
      gmtime_r(&greenwich, &local);
      local.tm_isdst = -1;
      tm given = local;
      const time_t expected = mktime(&given);
      ASSERT_EQ(localToUnixTime(local), expected) << zone << " " << greenwich;
      ASSERT_EQ(zoneMinutesWest(), timezone / 60);
    }
  }
}

TEST_F(LocalTime, AnotherCallMayHaveLeftTheZoneOfTheCLibrary) {
  setZone("Europe/Berlin");
  ASSERT_TRUE(equals(1000000000));
  for (const time_t time : {1000000000, 1100000000, 1200000000, 1300000000}) {
    setZone("Asia/Tokyo");
    tzset();
    setZone("Europe/Berlin");
    EXPECT_EQ(zoneMinutesWest(), -60);
    tm local = {};
    gmtime_r(&time, &local);
    local.tm_isdst = -1;
    const time_t result = localToUnixTime(local);
    EXPECT_EQ(result, mktime(&local));
  }
}

// A rule written out can have changes that lie close together.
TEST_F(LocalTime, ShortStaysOfRules) {
  std::mt19937 random(4);
  for (const char* rule : {"A0B,J100/2,J100/4", "A0B,J100/2,J100/3", "A5B3,100/12,101/1",
                           "A-12B12,J50/0,J52/0", "A0B-24,J60/1,J61/1"}) {
    setZone(rule);
    tzset();
    for (int year = 1999; year < 2003; ++year) {
      tm start = {};
      start.tm_year = year - 1900;
      start.tm_mday = 45;
      std::uniform_int_distribution<time_t> near(timegm(&start), timegm(&start) + 70 * kDay);
      for (int i = 0; i < 3000; ++i) {
        ASSERT_TRUE(equals(near(random))) << rule;
      }
    }
  }
}

// A zone file whose clock goes from 0 to an hour and back at each of these times.
std::string zoneFile(const std::vector<int64_t>& times) {
  std::string data("TZif\0", 5);
  data.append(15, '\0');
  const auto number = [&data](int64_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
      data += static_cast<char>(value >> shift);
    }
  };
  for (const size_t count : {size_t{0}, size_t{0}, size_t{0}, times.size(), size_t{2}, size_t{4}}) {
    number(static_cast<int64_t>(count));
  }
  for (const int64_t time : times) {
    number(time);
  }
  for (size_t i = 0; i < times.size(); ++i) {
    data += static_cast<char>(i % 2 == 0 ? 1 : 0);
  }
  number(0);
  data.append("\0\0", 2);
  number(kHour);
  data.append("\1\0", 2);
  return data.append("AAA\0", 4);
}

// A zone file of no database can have its changes as close together as it likes.
TEST_F(LocalTime, ADatabaseOfItsOwn) {
  std::vector<int64_t> times;
  for (int64_t time = 1000000000; time < 1010000000; time += 10 * kHour) {
    times.push_back(time);
    times.push_back(time + 2 * kHour);
  }
  const TestFolder folder;
  const std::string path = folder.write("One", zoneFile(times));
  folder.write("Two", zoneFile(times));
  std::mt19937 random(5);
  std::uniform_int_distribution<time_t> near(times.front(), times.back());
  for (const std::string& zone : {path, ":" + path, "../../.." + path, std::string("Two")}) {
    setZone(zone);
    if (zone == "Two") {
      setenv("TZDIR", folder.path().c_str(), 1);
    }
    tzset();
    ASSERT_EQ(offset(times[0]), kHour) << zone;
    ASSERT_EQ(offset(times[1]), 0) << zone;
    for (int i = 0; i < 10000; ++i) {
      ASSERT_TRUE(equals(near(random)));
    }
  }
}

TEST_F(LocalTime, TheEndsOfTheRange) {
  for (const std::string& zone : kZones) {
    setZone(zone);
    for (const time_t end : {kFirst, kLast}) {
      for (time_t away = -6 * kDay; away <= 6 * kDay; away += 5 * kHour + 1) {
        ASSERT_TRUE(equals(end + away));
      }
    }
    for (const time_t far : {-62167219200, -62135596800, 253402300799, 4102444800}) {
      ASSERT_TRUE(equals(far));
    }
  }
}

// With and without leap seconds.
TEST_F(LocalTime, SecondSixty) {
  std::mt19937 random(6);
  std::uniform_int_distribution<time_t> any(kFirst, kLast);
  for (const char* zone : {"UTC", "Europe/Berlin", "right/UTC", "right/Europe/Berlin"}) {
    setZone(zone);
    for (const time_t shift : {time_t{0}, kHour}) {
      for (time_t time = 915148800 - 130; time < 915148800 + 130; ++time) {
        ASSERT_TRUE(equals(time + shift, 60));
        ASSERT_TRUE(equals(time + shift));
      }
    }
    for (int i = 0; i < 5000; ++i) {
      ASSERT_TRUE(equals(any(random), 60));
    }
  }
}

// Days that their month doesn't have, and months beyond the year.
TEST_F(LocalTime, FieldsOutsideTheirRangeCountOn) {
  for (const char* zone : {"UTC", "Europe/Berlin"}) {
    setZone(zone);
    for (int month = -30; month <= 30; ++month) {
      for (const int day : {-40, 0, 1, 28, 29, 30, 31, 32, 400}) {
        tm local = {};
        local.tm_year = 100;
        local.tm_mon = month;
        local.tm_mday = day;
        local.tm_hour = 25;
        local.tm_min = -61;
        local.tm_isdst = -1;
        const time_t result = localToUnixTime(local);
        EXPECT_EQ(result, mktime(&local)) << month << " " << day;
      }
    }
  }
}

TEST_F(LocalTime, EachThreadRemembersForItself) {
  setZone("America/New_York");
  tzset();
  std::vector<std::thread> threads;
  std::vector<int> wrong(4);
  for (int& count : wrong) {
    threads.emplace_back([&count] {
      for (time_t time = 0; time < kLast; time += 5 * kDay + 7) {
        tm local = {};
        localtime_r(&time, &local);
        const bool summer = local.tm_isdst > 0;
        local.tm_isdst = -1;
        const time_t result = localToUnixTime(local);
        // The hour that comes twice may be either.
        count += result != time && result != time + (summer ? kHour : -kHour) ? 1 : 0;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(wrong, std::vector<int>(4));
}

}  // namespace
