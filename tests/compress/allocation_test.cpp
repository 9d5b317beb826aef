// Failing allocations: each call returns 3007, or what it would return, and keeps nothing.

#include <gtest/gtest.h>

#include <cstring>

#include "calls.h"
#include "fault/FailingAllocations.h"
#include "inputs.h"
#include "reference_deflate.h"
#include "stream_builder.h"
#include "temporary_file.h"
#include "zqxml/compress_inner.h"

using calls::Bytes;
using inputs::Kind;

namespace {

struct Outcome {
  int status = -1;
  void* block = nullptr;
  unsigned length = 0;
};

// Runs a call with failing allocations at every number; `check` sees the outcomes.
template <typename Call, typename Check>
long failEverywhere(Call call, Check check) {
  return fault::forEachFailure([&](auto arm) {
    const long before = fault::liveBlocks();
    Outcome outcome;
    bool failed;
    {
      const auto armed = arm();
      outcome.status = call(&outcome.block, &outcome.length);
      failed = fault::FailingAllocations::happened();
    }
    if (failed) {
      check(outcome);
    } else {
      EXPECT_EQ(outcome.status, 0);
    }
    free(outcome.block);
    EXPECT_EQ(fault::liveBlocks(), before);
    return failed;
  });
}

void expectNoMemory(const Outcome& outcome) {
  EXPECT_EQ(outcome.status, ZQ_MESSAGE_COMPRESS_MEMORY);
}

}  // namespace

TEST(Allocations, Compression) {
  for (const Kind kind : {Kind::Text, Kind::Random}) {
    const Bytes data = inputs::make(kind, 200000);
    const Bytes container = calls::compress(6, data).data;
    const long failures = failEverywhere(
        [&](void** block, unsigned* length) {
          return ZQCompressMemToMem(6, data.data(), 200000, block, length);
        },
        [&](const Outcome& outcome) {
          expectNoMemory(outcome);
          // What is handed out is a piece of the container without gaps.
          EXPECT_LE(outcome.length, container.size());
          EXPECT_TRUE(outcome.length == 0 ||
                      memcmp(outcome.block, container.data(), outcome.length) == 0);
        });
    // Control block, result, and the growth or the shrinking of the result.
    EXPECT_GE(failures, 2 * 3);
  }
}

TEST(Allocations, FailedShrinkingLeavesAWholeResult) {
  const Bytes data = inputs::make(Kind::Text, 1000);
  const Bytes container = calls::compress(6, data).data;
  Outcome outcome;
  {
    const fault::FailingAllocations armed(2);
    outcome.status = ZQCompressMemToMem(6, data.data(), 1000, &outcome.block, &outcome.length);
  }
  EXPECT_EQ(outcome.status, ZQ_MESSAGE_COMPRESS_MEMORY);
  ASSERT_EQ(outcome.length, container.size());
  EXPECT_EQ(memcmp(outcome.block, container.data(), container.size()), 0);
  free(outcome.block);
}

TEST(Allocations, ResultIsUntouchedWithoutAControlBlock) {
  int unused = 0;
  void* block = &unused;
  unsigned length = 77;
  int compressed;
  int decompressed;
  {
    const fault::FailingAllocations armed(0, fault::Mode::FromThere);
    compressed = ZQCompressMemToMem(6, "a", 1, &block, &length);
    decompressed = ZQDecompressMemToMem("a", 1, &block, &length);
  }
  EXPECT_EQ(compressed, ZQ_MESSAGE_COMPRESS_MEMORY);
  EXPECT_EQ(decompressed, ZQ_MESSAGE_COMPRESS_MEMORY);
  EXPECT_EQ(block, &unused);
  EXPECT_EQ(length, 77u);
}

TEST(Allocations, ResultIsNullWithoutABuffer) {
  for (const bool compresses : {true, false}) {
    const Bytes container = calls::compress(6, Bytes(100, 'x')).data;
    int unused = 0;
    void* block = &unused;
    unsigned length = 77;
    int status;
    {
      const fault::FailingAllocations armed(1);
      status = compresses
                   ? ZQCompressMemToMem(6, "a", 1, &block, &length)
                   : ZQDecompressMemToMem(container.data(), static_cast<unsigned>(container.size()),
                                          &block, &length);
    }
    EXPECT_EQ(status, ZQ_MESSAGE_COMPRESS_MEMORY);
    EXPECT_EQ(block, nullptr);
    EXPECT_EQ(length, 0u);
  }
}

TEST(Allocations, Decompression) {
  const Bytes data = inputs::make(Kind::Text, 150000);
  const Bytes container = calls::compress(9, data).data;
  const long failures = failEverywhere(
      [&](void** block, unsigned* length) {
        return ZQDecompressMemToMem(container.data(), static_cast<unsigned>(container.size()),
                                    block, length);
      },
      [&](const Outcome& outcome) {
        expectNoMemory(outcome);
        EXPECT_TRUE(outcome.length == 0 || memcmp(outcome.block, data.data(), outcome.length) == 0);
      });
  // Control block and result, and in both modes a table for each of the three codes at least.
  EXPECT_GE(failures, 2 * 2 + 2 * 3);
}

TEST(Allocations, DecompressionToAFile) {
  const Bytes data = inputs::make(Kind::Text, 20000);
  const TemporaryFile in(calls::compress(9, data).data);
  failEverywhere(
      [&](void**, unsigned*) {
        const TemporaryFile out;
        return ZQDecompressFileToFile(in.descriptor(), out.descriptor());
      },
      expectNoMemory);
}

TEST(Allocations, FixedBlocks) {
  StreamBuilder stream;
  stream.block(true, 1).fixedSymbol('a').fixedEnd();
  const Bytes container = calls::wrap(stream.data(), 1, reference::crc32({'a'}));
  failEverywhere(
      [&](void** block, unsigned* length) {
        return ZQDecompressMemToMem(container.data(), static_cast<unsigned>(container.size()),
                                    block, length);
      },
      expectNoMemory);
}

// More data than promised, so that the result has to grow; the wrong length is the last failure.
TEST(Allocations, GrowthWhileDecompressing) {
  const Bytes data = inputs::make(Kind::Text, 200000);
  const Bytes stream = calls::streamOf(calls::compress(6, data).data);
  const Bytes container = calls::wrap(stream, 10, reference::crc32(data));
  for (long index = 1; index < 400; ++index) {
    const long before = fault::liveBlocks();
    Outcome outcome;
    bool failed;
    {
      const fault::FailingAllocations armed(index);
      outcome.status =
          ZQDecompressMemToMem(container.data(), static_cast<unsigned>(container.size()),
                               &outcome.block, &outcome.length);
      failed = fault::FailingAllocations::happened();
    }
    EXPECT_TRUE(outcome.status == ZQ_MESSAGE_COMPRESS_LENGTH ||
                outcome.status == ZQ_MESSAGE_COMPRESS_MEMORY);
    ASSERT_LE(outcome.length, data.size());
    EXPECT_TRUE(outcome.length == 0 || memcmp(outcome.block, data.data(), outcome.length) == 0);
    free(outcome.block);
    EXPECT_EQ(fault::liveBlocks(), before);
    if (!failed) {
      EXPECT_EQ(outcome.length, data.size());
      return;
    }
  }
  FAIL() << "allocations without end";
}

TEST(Allocations, CopyOfPlainData) {
  const Bytes data = inputs::make(Kind::Text, 100000);
  const TemporaryFile plain(data);
  failEverywhere(
      [&](void** block, unsigned* length) {
        return ZQDecompressFileToMem(plain.descriptor(), block, length);
      },
      [&](const Outcome& outcome) {
        expectNoMemory(outcome);
        EXPECT_EQ(outcome.length % 32768, 0u);
      });
}
