#include "fault/FailingAllocations.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace {

// Keeps the compiler from leaving out blocks that nobody reads.
void* used(void* block) {
  asm volatile("" : : "g"(block) : "memory");
  return block;
}

TEST(FailingAllocations, FailsTheChosenOneOnly) {
  void* blocks[3];
  {
    const fault::FailingAllocations armed(1);
    for (void*& block : blocks) {
      block = malloc(8);
    }
  }
  EXPECT_NE(blocks[0], nullptr);
  EXPECT_EQ(blocks[1], nullptr);
  EXPECT_NE(blocks[2], nullptr);
  EXPECT_TRUE(fault::FailingAllocations::happened());
  free(blocks[0]);
  free(blocks[2]);
}

TEST(FailingAllocations, FailsAllFromThere) {
  void* blocks[3];
  {
    const fault::FailingAllocations armed(1, fault::Mode::FromThere);
    for (void*& block : blocks) {
      block = calloc(1, 8);
    }
  }
  EXPECT_NE(blocks[0], nullptr);
  EXPECT_EQ(blocks[1], nullptr);
  EXPECT_EQ(blocks[2], nullptr);
  free(blocks[0]);
}

TEST(FailingAllocations, CoversTextsAndNew) {
  char* text;
  bool thrown = false;
  {
    const fault::FailingAllocations armed(0, fault::Mode::FromThere);
    text = strdup("text");
    try {
      const std::unique_ptr<int> number(new int(1));
      used(number.get());
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
  }
  EXPECT_EQ(text, nullptr);
  EXPECT_TRUE(thrown);
}

TEST(FailingAllocations, CountsLiveBlocks) {
  const long before = fault::liveBlocks();
  void* block = used(malloc(1));
  block = used(realloc(block, 100));
  void* text = used(strndup("abc", 2));
  const long during = fault::liveBlocks();
  free(block);
  free(text);
  EXPECT_EQ(during, before + 2);
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(FailingAllocations, TheLoopEndsWhenNothingFails) {
  const long injected = fault::forEachFailure([](auto arm) {
    void* first;
    void* second;
    {
      auto armed = arm();
      first = used(malloc(1));
      second = used(malloc(1));
    }
    free(first);
    free(second);
    return fault::FailingAllocations::happened();
  });
  EXPECT_EQ(injected, 4);
}

}  // namespace
