// ISO times as documents have them, and the selection of objects.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "xml/ZQXMLException.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/zqxml.h"

namespace {

using Utils = ZQXMLHandlerUtils;

class Zone {
 public:
  explicit Zone(const std::string& zone) {
    setenv("TZ", zone.c_str(), 1);
    tzset();
  }
  ~Zone() {
    setenv("TZ", "UTC", 1);
    tzset();
  }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;
};

// The result of a conversion, or "8957 text".
std::string convert(const char* text) {
  ZQTimestamp result = 77;
  try {
    Utils::ConvertISOTimeToUnixTime(text, &result);
    return std::to_string(result);
  } catch (const ZQXMLException& exception) {
    EXPECT_EQ(result, 0);
    return std::to_string(exception.GetErrorNumber()) + " " + exception.GetErrorMsg();
  }
}

int32_t timeOfDay(const char* text) {
  int32_t result = 77;
  Utils::ConvertISOTimeToUnixTimeOfDay(text, &result);
  return result;
}

TEST(ISOTimes, Valid) {
  for (const char* text : {
           "2001-02-03T04:05:06",          "-2001-02-03T04:05:06",
           "0000-01-01T00:00:00",          "9999-12-31T23:59:60",
           "2001-02-30T00:00:00",          "2001-02-31T00:00:00",
           "2001-02-03T04:05:60Z",         "2001-02-03T04:05:06Z",
           "2001-02-03T04:05:06.",         "2001-02-03T04:05:06.Z",
           "2001-02-03T04:05:06.25",       "2001-02-03T04:05:06.12345678901234567890Z",
           "2001-02-03T04:05:06.+01:00",   "2001-02-03T04:05:06+01:00",
           "2001-02-03T04:05:06+13:00",    "2001-02-03T04:05:06+13:59",
           "2001-02-03T04:05:06-01:00",    "2001-02-03T04:05:06-12:59",
           "-2001-02-03T04:05:06.5-12:59",
       }) {
    EXPECT_TRUE(Utils::ValidateISOTimeString(text)) << text;
  }
}

TEST(ISOTimes, NotValid) {
  for (const char* text : {
           "",
           "-",
           "+2001-02-03T04:05:06",
           "--2001-02-03T04:05:06",
           " 2001-02-03T04:05:06",
           "201-02-03T04:05:06",
           "20011-02-03T04:05:06",
           "200x-02-03T04:05:06",
           "2001/02-03T04:05:06",
           "2001-00-03T04:05:06",
           "2001-13-03T04:05:06",
           "2001-2-03T04:05:06",
           "2001-002-03T04:05:06",
           "2001- 2-03T04:05:06",
           "2001-+2-03T04:05:06",
           "2001-02/03T04:05:06",
           "2001-02-00T04:05:06",
           "2001-02-32T04:05:06",
           "2001-02-3T04:05:06",
           "2001-02-003T04:05:06",
           "2001-02-03t04:05:06",
           "2001-02-03 04:05:06",
           "2001-02-03",
           "2001-02-03T",
           "2001-02-03T24:05:06",
           "2001-02-03T4:05:06",
           "2001-02-03T-4:05:06",
           "2001-02-03T04.05:06",
           "2001-02-03T04:60:06",
           "2001-02-03T04:5:06",
           "2001-02-03T04:05",
           "2001-02-03T04:05.06",
           "2001-02-03T04:05:61",
           "2001-02-03T04:05:61Z",
           "2001-02-03T04:05:6",
           "2001-02-03T04:05:066",
           "2001-02-03T04:05:06,5",
           "2001-02-03T04:05:06 ",
           "2001-02-03T04:05:06z",
           "2001-02-03T04:05:06ZZ",
           "2001-02-03T04:05:06Z ",
           "2001-02-03T04:05:06Z+01:00",
           "2001-02-03T04:05:06.5.5",
           "2001-02-03T04:05:06.-5",
           "2001-02-03T04:05:06+",
           "2001-02-03T04:05:06+00:00",
           "2001-02-03T04:05:06-00:00",
           "2001-02-03T04:05:06+00:30",
           "2001-02-03T04:05:06-00:30",
           "2001-02-03T04:05:06-13:00",
           "2001-02-03T04:05:06+14:00",
           "2001-02-03T04:05:06+1:00",
           "2001-02-03T04:05:06+001:00",
           "2001-02-03T04:05:06+01",
           "2001-02-03T04:05:06+01:",
           "2001-02-03T04:05:06+0100",
           "2001-02-03T04:05:06+01:0",
           "2001-02-03T04:05:06+01:60",
           "2001-02-03T04:05:06+01:000",
           "2001-02-03T04:05:06+01:00Z",
           "2001-02-03T04:05:06-+1:00",
           "2001-02-03T04:05:06+-1:00",
       }) {
    EXPECT_FALSE(Utils::ValidateISOTimeString(text)) << text;
    ZQTimestamp result = 77;
    EXPECT_THROW(Utils::ConvertISOTimeToUnixTime(text, &result), ZQXMLException);
    EXPECT_EQ(convert(text), "8957 " + std::string(text));
  }
  EXPECT_FALSE(Utils::ValidateISOTimeString(nullptr));
}

// Every other byte at every place, and every beginning, from a block that ends where the text does.
TEST(ISOTimes, EveryByteCounts) {
  const std::string whole = "2001-02-03T04:05:06.7+01:20";
  int valid = 0;
  for (size_t place = 0; place < whole.size(); ++place) {
    for (int byte = 1; byte < 256; ++byte) {
      std::string text = whole;
      text[place] = static_cast<char>(byte);
      valid += Utils::ValidateISOTimeString(text.c_str()) ? 1 : 0;
    }
    const std::vector<char> beginning = [&] {
      std::vector<char> bytes(whole.begin(), whole.begin() + static_cast<long>(place));
      bytes.push_back('\0');
      return bytes;
    }();
    const bool complete = place >= 19 && place <= 21;
    EXPECT_EQ(Utils::ValidateISOTimeString(beginning.data()), complete) << place;
  }
  // Year, separators, month, day, hour, minute and second, point, fraction, sign, zone: the bytes
  // that each digit may be.
  EXPECT_EQ(valid,
            40 + 6 + (2 + 9) + (3 + 9) + (2 + 10) + 2 * (6 + 10) + 1 + 10 + 2 + (2 + 9) + (6 + 10));
}

TEST(ISOTimes, ConvertsInUTC) {
  struct Case {
    const char* text;
    const char* result;
  };
  for (const Case& each : {
           Case{"1970-01-01T00:00:00", "0"},
           {"1970-01-01T00:00:00Z", "0"},
           {"2001-02-03T04:05:06", "981173106"},
           {"2001-02-03T04:05:06Z", "981173106"},
           {"2001-02-03T04:05:06.", "981173106"},
           {"2001-02-03T04:05:06.25", "981173106"},
           {"2001-02-03T04:05:06.999Z", "981173106"},
           {"2001-02-03T04:05:06.5+01:00", "981169506"},
           {"2001-02-03T04:05:06+01:00", "981169506"},
           {"2001-02-03T04:05:06-01:00", "981176706"},
           {"2001-02-03T04:05:06+13:59", "981122766"},
           {"2001-02-03T04:05:06-12:59", "981219846"},
           {"2001-02-03T04:05:60Z", "981173160"},
           {"2001-02-30T00:00:00", "983491200"},
           {"2001-02-31T00:00:00", "983577600"},
           {"1969-12-31T23:59:58Z", "-2"},
           {"1969-12-31T23:59:59", "0"},
           {"1969-12-31T23:59:59Z", "0"},
           {"1970-01-01T00:59:59+01:00", "0"},
           {"1970-01-01T00:59:58+01:00", "-2"},
           {"1969-12-31T22:59:59-01:00", "0"},
           {"2038-01-19T03:14:07Z", "2147483647"},
           {"2038-01-19T03:14:08Z", "0"},
           {"2038-01-19T04:14:07+01:00", "2147483647"},
           {"2038-01-19T02:14:08-01:00", "0"},
           {"1901-12-13T20:45:52Z", "-2147483648"},
           {"1901-12-13T20:45:51Z", "0"},
           {"1901-12-13T19:45:52-01:00", "-2147483648"},
           {"1901-12-13T20:45:52+01:00", "0"},
           {"9999-12-31T23:59:59Z", "0"},
           {"0000-01-01T00:00:00Z", "0"},
       }) {
    EXPECT_EQ(convert(each.text), each.result) << each.text;
  }
  EXPECT_EQ(convert(nullptr), "8957 ");
  const std::string tooLong(300, 'x');
  EXPECT_EQ(convert(tooLong.c_str()), "8957 " + tooLong.substr(0, 254));
  Utils::ConvertISOTimeToUnixTime("2001-02-03T04:05:06", nullptr);
  EXPECT_THROW(Utils::ConvertISOTimeToUnixTime("", nullptr), ZQXMLException);
}

TEST(ISOTimes, ASignedYearIsReadWithoutHarm) {
  for (const char* text : {"-2001-02-03T04:05:06", "-2001-02-03T04:05:06.5",
                           "-0000-01-01T00:00:00Z", "-9999-12-31T23:59:60-12:59"}) {
    EXPECT_EQ(convert(text).find("8957"), std::string::npos);
  }
}

TEST(ISOTimes, TheMachinesZone) {
  struct Case {
    const char* zone;
    const char* text;
    const char* result;
  };
  for (const Case& each : {
           Case{"Europe/Berlin", "2024-01-15T11:00:00", "1705312800"},
           {"Europe/Berlin", "2024-01-15T10:00:00Z", "1705312800"},
           {"Europe/Berlin", "2024-01-15T11:00:00+01:00", "1705312800"},
           {"Europe/Berlin", "2024-07-15T12:00:00", "1721037600"},
           // In summer a text with a zone is an hour off.
           {"Europe/Berlin", "2024-07-15T10:00:00Z", "1721034000"},
           {"Europe/Berlin", "2024-07-15T12:00:00+02:00", "1721034000"},
           {"Europe/Berlin", "2024-07-15T12:00:00+01:00", "1721037600"},
           {"America/New_York", "2024-07-15T06:00:00", "1721037600"},
           {"America/New_York", "2024-07-15T06:00:00-05:00", "1721037600"},
           {"America/New_York", "2024-07-15T10:00:00Z", "1721034000"},
           {"Asia/Kolkata", "2024-07-15T15:30:00", "1721037600"},
           {"Asia/Kolkata", "2024-07-15T10:00:00Z", "1721037600"},
           {"Asia/Kolkata", "2024-07-15T12:00:00+02:00", "1721037600"},
           {"America/St_Johns", "2024-01-15T06:30:00-03:30", "1705312800"},
           {"Australia/Sydney", "2024-01-15T21:00:00", "1705312800"},
           {"Australia/Sydney", "2024-01-15T21:00:00+10:00", "1705312800"},
           {"Australia/Sydney", "2024-01-15T10:00:00Z", "1705309200"},
           // The year's clock did not go back in 2016.
           {"Europe/Istanbul", "2017-01-15T13:00:00", "1484474400"},
           {"Europe/Istanbul", "2015-01-15T12:00:00", "1421316000"},
           {"Europe/Istanbul", "2015-01-15T10:00:00Z", "1421319600"},
       }) {
    const Zone zone(each.zone);
    EXPECT_EQ(convert(each.text), each.result) << each.zone << " " << each.text;
  }
}

// The steps of the conversion with the C library's own functions.
std::string reference(const std::string& text) {
  int field[6];
  int length = 0;
  EXPECT_EQ(sscanf(text.c_str(), "%d-%d-%dT%d:%d:%d%n", &field[0], &field[1], &field[2], &field[3],
                   &field[4], &field[5], &length),
            6);
  tm local = {};
  local.tm_year = field[0] - 1900;
  local.tm_mon = field[1] - 1;
  local.tm_mday = field[2];
  local.tm_hour = field[3];
  local.tm_min = field[4];
  local.tm_sec = field[5];
  local.tm_isdst = -1;
  long sum = mktime(&local);
  const std::string zone = text.substr(static_cast<size_t>(length));
  if (!zone.empty()) {
    tzset();
    sum -= timezone / 60 * 60;
    int hours = 0;
    int minutes = 0;
    if (sscanf(zone.c_str() + 1, "%d:%d", &hours, &minutes) == 2) {
      sum += (zone[0] == '-' ? 1 : -1) * (hours * 3600L + minutes * 60L);
    }
  }
  return std::to_string(sum == -1 || sum != static_cast<int32_t>(sum) ? 0 : sum);
}

// Half hours, southern summer time, a summer time of half an hour, rules that changed.
constexpr std::array kZones = {"Europe/Berlin",    "America/New_York",    "Asia/Kolkata",
                               "America/St_Johns", "Australia/Lord_Howe", "Europe/Istanbul",
                               "Pacific/Apia",     "America/Sao_Paulo"};

std::string isoText(time_t greenwich, const char* zone) {
  tm fields = {};
  gmtime_r(&greenwich, &fields);
  char text[64];
  EXPECT_NE(strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &fields), 0U);
  return std::string(text) + zone;
}

constexpr std::array kSuffixes = {"", "Z", "+01:00", "-03:30", "+13:59", "-12:59"};

TEST(ISOTimes, EveryHourAroundTheChangesOfTheClock) {
  std::mt19937 random(1);
  for (const char* name : kZones) {
    const Zone zone(name);
    std::vector<time_t> moments;
    long offset = 0;
    for (time_t time = 0; time < INT32_MAX - 86400; time += 3600) {
      tm local = {};
      localtime_r(&time, &local);
      if (local.tm_gmtoff != offset) {
        offset = local.tm_gmtoff;
        for (time_t near = -8 * 3600; near <= 8 * 3600; near += 1799) {
          moments.push_back(time + offset + near);
        }
      }
    }
    std::shuffle(moments.begin(), moments.end(), random);
    for (size_t i = 0; i < moments.size(); ++i) {
      const std::string text = isoText(moments[i], kSuffixes[i % kSuffixes.size()]);
      ASSERT_EQ(convert(text.c_str()), reference(text)) << name << " " << text;
    }
  }
}

TEST(ISOTimes, RandomTimesInAlternatingZones) {
  std::mt19937 random(2);
  std::uniform_int_distribution<time_t> any(INT32_MIN - 1000000L, INT32_MAX + 1000000L);
  std::uniform_int_distribution<size_t> pick(0, 1000);
  for (int i = 0; i < 20000; ++i) {
    if (i % 5 != 4) {
      setenv("TZ", kZones[pick(random) % kZones.size()], 1);
    }
    const std::string text = isoText(any(random), kSuffixes[pick(random) % kSuffixes.size()]);
    // Either may be first to meet the zone.
    const std::string result = convert(text.c_str());
    ASSERT_EQ(result, reference(text)) << getenv("TZ") << " " << text;
    const std::string expected = reference(text);
    ASSERT_EQ(convert(text.c_str()), expected) << getenv("TZ") << " " << text;
  }
  const Zone back("UTC");
}

TEST(ISOTimes, WhatIsWrittenReadsBack) {
  std::mt19937 random(3);
  std::uniform_int_distribution<ZQTimestamp> any(-1500000000, INT32_MAX - 86400);
  for (const char* name : kZones) {
    const Zone zone(name);
    int same = 0;
    for (int i = 0; i < 5000; ++i) {
      const ZQTimestamp stamp = any(random);
      char text[64];
      FormatZQTimestampToISODateTime(stamp, sizeof text, text);
      const std::string expected = reference(text);
      ASSERT_EQ(convert(text), expected) << name << " " << text;
      // In an hour that comes twice either pass may be meant.
      const long off = std::abs(std::stol(expected) - stamp);
      ASSERT_LE(off, 86400) << name << " " << text;
      same += off == 0 ? 1 : 0;
    }
    EXPECT_GE(same, 4980) << name;
  }
}

// A zone without hours, or one beyond +13:59, is written and then refused.
TEST(ISOTimes, NotEverythingWrittenReadsBack) {
  struct Case {
    const char* zone;
    const char* text;
  };
  for (const Case& each : {Case{"XXX0:30", "8957 1969-12-31T23:30:00+00:30"},
                           {"XXX-0:30", "8957 1970-01-01T00:30:00+00:30"},
                           {"XXX-14", "8957 1970-01-01T14:00:00+14:00"},
                           {"XXX13", "8957 1969-12-31T11:00:00-13:00"},
                           {"XXX-13:59", "0"},
                           {"XXX12:59", "0"}}) {
    const Zone zone(each.zone);
    char text[64];
    FormatZQTimestampToISODateTime(0, sizeof text, text);
    EXPECT_EQ(convert(text), each.text);
  }
}

TEST(TimesOfDay, AreReadWithoutACheck) {
  struct Case {
    const char* text;
    int32_t result;
  };
  for (const Case& each : {
           Case{"10:15:30", 36930},
           {"10:15:30Z", 36930},
           {"10:15:30.", 36930},
           {"10:15:30.25", 36930},
           {"10:15:30.25Z", 36930},
           {"10:15:30+01:00", 33330},
           {"10:15:30-01:00", 40530},
           {"10:15:30.5-01:30", 42330},
           {"10:15:30+00:30", 35130},
           {"10:15:30+14:00", -13470},
           {"00:00:00+01:00", -3600},
           {"23:59:59-12:00", 129599},
           {"00:00:00", 0},
           {"24:00:00", 86400},
           {"99:99:99", 362439},
           {"5", 18000},
           {"10", 36000},
           {"10:", 36000},
           {"10:1", 36060},
           {"10:15", 36900},
           {"10:15:", 36900},
           {"10:15:3", 36903},
           {"10:15:30+", 36930},
           {"10:15:30+5", 18930},
           {"10:15:30+05", 18930},
           {"10:15:30+05:", 18930},
           {"10:15:30+05:3", 18750},
           {"10:15:30 +01:00", 36930},
           {"10:15:30z", 36930},
           {"-1:00:00", -3600},
           {"10:-5:00", 35700},
           {"text", 0},
           {"", 0},
           {nullptr, 0},
           // The low 32 bits of each number (1, 4967297, 7297; 2147483647, 7483647, 3647) and of
           // the sum.
           {"4294967297", 298048717},
           {"2147483647", 449018867},
       }) {
    EXPECT_EQ(timeOfDay(each.text), each.result) << (each.text != nullptr ? each.text : "null");
  }
  Utils::ConvertISOTimeToUnixTimeOfDay("10:15:30", nullptr);
}

TEST(TimesOfDay, TheMachinesZone) {
  struct Case {
    const char* zone;
    const char* text;
    int32_t result;
  };
  for (const Case& each : {
           Case{"CET-1CEST,M3.5.0,M10.5.0/3", "10:00:00", 36000},
           {"CET-1CEST,M3.5.0,M10.5.0/3", "10:00:00Z", 39600},
           {"CET-1CEST,M3.5.0,M10.5.0/3", "10:00:00+01:00", 36000},
           {"CET-1CEST,M3.5.0,M10.5.0/3", "10:00:00-05:00", 57600},
           {"EST5EDT", "10:00:00", 36000},
           {"EST5EDT", "10:00:00Z", 18000},
           {"EST5EDT", "00:00:00Z", -18000},
           {"EST5EDT", "10:00:00-05:00", 36000},
           {"IST-5:30", "10:00:00.7Z", 55800},
           {"NST3:30", "10:00:00-03:30", 36000},
           // Whole minutes, cut towards zero.
           {"XXX0:00:59", "10:00:00Z", 36000},
           {"XXX-0:01:59", "10:00:00Z", 36060},
           {"XXX0:01:59", "10:00:00Z", 35940},
       }) {
    const Zone zone(each.zone);
    EXPECT_EQ(timeOfDay(each.text), each.result) << each.zone << " " << each.text;
  }
}

TEST(TimesOfDay, WhatIsWrittenReadsBack) {
  for (const char* name : {"UTC", "Europe/Berlin", "America/St_Johns", "Asia/Kolkata", "XXX-14"}) {
    const Zone zone(name);
    for (int32_t seconds = 0; seconds < 86400; seconds += 61) {
      char text[64];
      FormatZQTimeOfDayToISOTime(seconds, sizeof text, text);
      ASSERT_EQ(timeOfDay(text), seconds) << text;
    }
  }
}

TEST(Selection, KindAndNameHaveToBeTheSame) {
  ZQStructItemStruct items[3] = {};
  items[0].itemType = 0x40000001;
  strcpy(items[0].name, "Tickets");
  items[1].itemType = 0x40000005;
  strcpy(items[1].name, "Check");
  items[2].itemType = 0x4000000E;
  strcpy(items[2].name, "Views");
  ZQNameType view = "Default";
  items[2].selectedElements = {1, &view};
  const ZQStructItemList selection = {3, items};
  EXPECT_TRUE(Utils::IsObjectRequested(0x40000001, "Tickets", &selection));
  EXPECT_TRUE(Utils::IsObjectRequested(0x40000005, "Check", &selection));
  EXPECT_TRUE(Utils::IsObjectRequested(0x4000000E, "Views", &selection));
  EXPECT_FALSE(Utils::IsObjectRequested(0x40000005, "Tickets", &selection));
  EXPECT_FALSE(Utils::IsObjectRequested(0x4000000E, "Default", &selection));
  EXPECT_FALSE(Utils::IsObjectRequested(0x4000000E, "Views ", &selection));
  for (const char* name : {"tickets", "TICKETS", "Ticket", "Tickets1", " Tickets", "*", "T%", ""}) {
    EXPECT_FALSE(Utils::IsObjectRequested(0x40000001, name, &selection)) << name;
  }
  EXPECT_FALSE(Utils::IsObjectRequested(0x40000001, nullptr, &selection));
}

TEST(Selection, WithoutOneAllAreRequested) {
  ZQStructItemStruct item = {};
  const ZQStructItemList empty = {0, nullptr};
  const ZQStructItemList emptied = {0, &item};
  const ZQStructItemList none = {3, nullptr};
  for (const ZQStructItemList* selection :
       {static_cast<const ZQStructItemList*>(nullptr), &empty, &emptied, &none}) {
    EXPECT_TRUE(Utils::IsObjectRequested(0x40000001, "Tickets", selection));
    EXPECT_TRUE(Utils::IsObjectRequested(0, "", selection));
    EXPECT_TRUE(Utils::IsObjectRequested(7, nullptr, selection));
  }
}

TEST(Selection, NamesOfFullLength) {
  ZQStructItemStruct item = {};
  item.itemType = 1;
  memset(item.name, 'n', sizeof item.name - 1);
  const ZQStructItemList selection = {1, &item};
  EXPECT_TRUE(Utils::IsObjectRequested(1, std::string(254, 'n').c_str(), &selection));
  EXPECT_FALSE(Utils::IsObjectRequested(1, std::string(255, 'n').c_str(), &selection));
  EXPECT_FALSE(Utils::IsObjectRequested(1, std::string(253, 'n').c_str(), &selection));
}

}  // namespace
