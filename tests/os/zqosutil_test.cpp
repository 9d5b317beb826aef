#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "zqxml/zqxml.h"

namespace {

TEST(CriticalSections, AreThoseOfThePlatform) {
  OSCriticalSection section;
  EXPECT_EQ(OSInitializeCriticalSection(&section), 0);
  EXPECT_EQ(OSEnterCriticalSection(&section), 0);
  EXPECT_EQ(pthread_mutex_trylock(&section), EBUSY);
  EXPECT_EQ(OSLeaveCriticalSection(&section), 0);
  EXPECT_EQ(pthread_mutex_trylock(&section), 0);
  EXPECT_EQ(OSLeaveCriticalSection(&section), 0);
  EXPECT_EQ(OSDeleteCriticalSection(&section), 0);
}

TEST(ThreadKeys, HoldAValue) {
  OSTLSKey key;
  ASSERT_EQ(OSTLSAlloc(&key), 0);
  EXPECT_EQ(OSTLSGetValue(key), nullptr);
  int value = 1;
  EXPECT_EQ(OSTLSSetValue(key, &value), 0);
  EXPECT_EQ(OSTLSGetValue(key), &value);
  EXPECT_EQ(OSTLSFree(key), 0);
  EXPECT_EQ(OSTLSFree(key), EINVAL);
  EXPECT_EQ(OSTLSSetValue(key, &value), EINVAL);
}

TEST(Hosts, ByName) {
  struct hostent host;
  memset(&host, 0xAA, sizeof host);
  int error = -7;
  ASSERT_EQ(OSGetHostByName("localhost", &host, nullptr, 0, &error), &host);
  EXPECT_EQ(error, -7);
  EXPECT_EQ(host.h_addrtype, AF_INET);
  ASSERT_EQ(host.h_length, 4);
  EXPECT_EQ(memcmp(host.h_addr_list[0], "\x7F\0\0\x01", 4), 0);
  // The record points into static data of the C library.
  const struct hostent* again = gethostbyname("localhost");
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->h_name, host.h_name);
  EXPECT_EQ(again->h_aliases, host.h_aliases);
  EXPECT_EQ(again->h_addr_list, host.h_addr_list);
}

TEST(Hosts, ByNameWithoutAResult) {
  struct hostent host;
  EXPECT_EQ(OSGetHostByName("127.0.0.1", nullptr, nullptr, 0, nullptr), nullptr);
  int error = -7;
  EXPECT_EQ(OSGetHostByName("", &host, nullptr, 0, &error), nullptr);
  EXPECT_EQ(error, h_errno);
  EXPECT_EQ(OSGetHostByName("", &host, nullptr, 0, nullptr), nullptr);
  error = -7;
  EXPECT_EQ(OSGetHostByName(nullptr, &host, nullptr, 0, &error), nullptr);
  EXPECT_EQ(error, HOST_NOT_FOUND);
}

TEST(Hosts, ByAddress) {
  struct hostent host;
  char buffer[1024];
  int error = -7;
  in_addr address;
  address.s_addr = htonl(INADDR_LOOPBACK);
  ASSERT_EQ(OSGetHostByAddr(&address, 4, AF_INET, &host, buffer, sizeof buffer, &error), &host);
  EXPECT_EQ(host.h_addrtype, AF_INET);
  EXPECT_EQ(host.h_length, 4);
  EXPECT_GE(host.h_name, buffer);
  EXPECT_LT(host.h_name, buffer + sizeof buffer);
  EXPECT_EQ(memcmp(host.h_addr_list[0], &address, 4), 0);
  EXPECT_EQ(OSGetHostByAddr(&address, 4, AF_INET, &host, buffer, sizeof buffer, nullptr), &host);
}

TEST(Hosts, ByAddressWithoutAResult) {
  struct hostent host;
  char buffer[1024];
  int error = -7;
  in_addr address;
  address.s_addr = htonl(INADDR_LOOPBACK);
  // No room in the buffer, and no address of its family.
  EXPECT_EQ(OSGetHostByAddr(&address, 4, AF_INET, &host, buffer, 1, &error), nullptr);
  EXPECT_NE(error, -7);
  EXPECT_EQ(OSGetHostByAddr(&address, 3, AF_INET, &host, buffer, sizeof buffer, &error), nullptr);
  EXPECT_EQ(OSGetHostByAddr(nullptr, 4, AF_INET, &host, buffer, 1024, &error), nullptr);
  EXPECT_EQ(OSGetHostByAddr(&address, 4, AF_INET, nullptr, buffer, 1024, &error), nullptr);
  EXPECT_EQ(OSGetHostByAddr(&address, 4, AF_INET, &host, nullptr, 1024, &error), nullptr);
  EXPECT_EQ(OSGetHostByAddr(&address, -1, AF_INET, &host, buffer, 1024, &error), nullptr);
  EXPECT_EQ(OSGetHostByAddr(&address, 4, AF_INET, &host, buffer, -1, &error), nullptr);
}

TEST(Times, AreLocal) {
  setenv("TZ", "EST5EDT", 1);
  tzset();
  const time_t time = 1000000000;  // 2001-09-09 01:46:40 in UTC, daylight saving in New York
  struct tm local;
  ASSERT_EQ(OSLocalTime(&time, &local), &local);
  EXPECT_EQ(local.tm_year, 101);
  EXPECT_EQ(local.tm_mon, 8);
  EXPECT_EQ(local.tm_mday, 8);
  EXPECT_EQ(local.tm_hour, 21);
  EXPECT_EQ(local.tm_min, 46);
  EXPECT_EQ(local.tm_sec, 40);
  EXPECT_EQ(local.tm_isdst, 1);
  setenv("TZ", "UTC", 1);
  tzset();
}

TEST(Times, OfStatistics) {
  timespec before;
  timespec after;
  clock_gettime(CLOCK_REALTIME, &before);
  OSStatsTime time = {-1, -1};
  EXPECT_EQ(OSGetStatsTime(&time), 0);
  clock_gettime(CLOCK_REALTIME, &after);
  const auto micros = [](long seconds, long rest) { return seconds * 1000000 + rest; };
  EXPECT_GE(micros(time.seconds, time.microseconds), micros(before.tv_sec, before.tv_nsec / 1000));
  EXPECT_LE(micros(time.seconds, time.microseconds), micros(after.tv_sec, after.tv_nsec / 1000));
  EXPECT_LT(time.microseconds, 1000000);
  EXPECT_GE(time.microseconds, 0);
  EXPECT_EQ(OSGetStatsTime(nullptr), 0);
}

}  // namespace
