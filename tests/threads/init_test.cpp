// The start-up of the platform, by many threads at once. It has a program of its own, since it
// works once per process.

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "zqxml/zqxml.h"

namespace {

TEST(Threads, SixtyFourStartThePlatformAtOnce) {
  InitMbutil();
  std::atomic<bool> go{false};
  std::atomic<int> failures{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < 64; ++i) {
    threads.emplace_back([&] {
      while (!go) {
      }
      if (InitXMLParser(nullptr) != 0) {
        ++failures;
      }
      // The platform is up for whoever came back.
      ZQXMLParserHandle handle;
      if (CreateXMLParserHandle(&handle, nullptr) != 0) {
        ++failures;
      }
      FreeZQXMLParserHandleInternal(&handle, 0);
    });
  }
  go = true;
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(failures, 0);
}

}  // namespace
