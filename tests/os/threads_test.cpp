// Keys, critical sections and streams of several threads. Run under ThreadSanitizer too.

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "zqxml/zqxml.h"

namespace {

constexpr int kThreads = 16;
constexpr int kRounds = 2000;

template <typename Work>
void inThreads(Work work) {
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back(work, i);
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

TEST(Threads, ASectionLetsOneInAtATime) {
  OSCriticalSection section;
  ASSERT_EQ(OSInitializeCriticalSection(&section), 0);
  long plain = 0;
  std::atomic<int> failures{0};
  inThreads([&](int) {
    for (int round = 0; round < kRounds; ++round) {
      failures += OSEnterCriticalSection(&section);
      ++plain;
      failures += OSLeaveCriticalSection(&section);
    }
  });
  EXPECT_EQ(plain, kThreads * kRounds);
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(OSDeleteCriticalSection(&section), 0);
}

TEST(Threads, HaveTheirOwnValuesOfAKey) {
  OSTLSKey key;
  ASSERT_EQ(OSTLSAlloc(&key), 0);
  std::atomic<int> wrong{0};
  inThreads([&](int) {
    int values[2] = {};
    wrong += OSTLSGetValue(key) != nullptr;
    for (int round = 0; round < kRounds; ++round) {
      int* value = &values[round % 2];
      wrong += OSTLSSetValue(key, value) != 0;
      ++*static_cast<int*>(OSTLSGetValue(key));
      wrong += OSTLSGetValue(key) != value;
    }
    wrong += values[0] + values[1] != kRounds;
  });
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(OSTLSGetValue(key), nullptr);
  EXPECT_EQ(OSTLSFree(key), 0);
}

TEST(Threads, OpenAndCloseStreamsAtOnce) {
  std::atomic<int> wrong{0};
  inThreads([&](int number) {
    const std::string path =
        "/tmp/zqxml_threads_" + std::to_string(getpid()) + "_" + std::to_string(number);
    for (int round = 0; round < 100; ++round) {
      ZQFILE* stream = ZQfopen(path.c_str(), "w+");
      if (stream == nullptr || ZQfprintf(stream, "%d %d", number, round) <= 0) {
        ++wrong;
        continue;
      }
      ZQrewind(stream);
      char text[32];
      int gotNumber = -1;
      int gotRound = -1;
      wrong += ZQfgets(text, sizeof text, stream) == nullptr;
      wrong += sscanf(text, "%d %d", &gotNumber, &gotRound) != 2;
      wrong += gotNumber != number || gotRound != round;
      wrong += ZQfclose(stream) != 0;
    }
    unlink(path.c_str());
  });
  EXPECT_EQ(wrong, 0);
}

TEST(Threads, ConvertAtOnce) {
  InitMbutilExt(4);
  std::atomic<int> wrong{0};
  inThreads([&](int) {
    for (int round = 0; round < kRounds; ++round) {
      char target[32];
      convertStrExt("a\xA5\xBD", 4, target, 5);
      wrong += std::string(target) != "a\x83\x5C";
      mbstrncpy(target, "a\xA5\xBD", 2);
      wrong += std::string(target) != "a";
    }
  });
  EXPECT_EQ(wrong, 0);
  InitMbutilExt(0);
}

}  // namespace
