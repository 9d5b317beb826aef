// Compressed data: the eight calls, and the operations that they are made of.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "compress/calls.h"
#include "compress/inputs.h"
#include "compress/reference_deflate.h"
#include "compress/stream_builder.h"
#include "compress/temporary_file.h"
#include "fault/Scenario.h"
#include "fault/Transfer.h"
#include "zqxml/compress.h"
#include "zqxml/compress_inner.h"

namespace fault {

namespace {

using calls::Bytes;
using inputs::Kind;

using transfers::kWays;
using transfers::Transfer;
using transfers::Way;

constexpr int kOutOfMemory = ZQ_MESSAGE_COMPRESS_MEMORY;

void transfer(Attempt& attempt, const Way& way, const Bytes& source, const Bytes& whole) {
  {
    Transfer tried(way, source);
    const int status = attempt.call([&] { return tried.run(); });
    EXPECT_EQ(status, attempt.failed() ? kOutOfMemory : 0);
    const Bytes result = tried.result();
    if (attempt.failed()) {
      // What is handed out is a piece of the whole, without gaps.
      EXPECT_TRUE(result.size() <= whole.size() &&
                  std::equal(result.begin(), result.end(), whole.begin()));
    } else {
      EXPECT_TRUE(result == whole);
    }
    EXPECT_TRUE(tried.descriptorsAreOpen());
  }
  Transfer again(way, source);
  EXPECT_EQ(again.run(), 0);
  EXPECT_TRUE(again.result() == whole);
}

using Block = std::unique_ptr<ZipControlBlock>;

// A control block with a source in memory.
Block blockFor(const Bytes& source, unsigned mode) {
  Block block(new ZipControlBlock);
  memset(static_cast<void*>(block.get()), 0x5A, sizeof *block);
  InitZipControlBlock(block.get());
  block->inputFd = 0;
  block->outputFd = 0;
  block->inputMemory = source.data();
  block->inputLength = static_cast<unsigned>(source.size());
  block->sourceLength = source.size();
  block->mode = mode;
  return block;
}

void freeResult(const Block& block) {
  free(block->outputMemory);
}

// One operation, whose result for want of memory is told.
template <typename Operation>
void operate(Attempt& attempt, const Bytes& source, unsigned mode, Operation operation,
             int outOfMemory, const Bytes& whole) {
  const Block block = blockFor(source, mode);
  const int result = attempt.call([&] { return operation(block.get()); });
  EXPECT_EQ(result, attempt.failed() ? outOfMemory : 0);
  if (!attempt.failed()) {
    const auto* bytes = block->outputMemory;
    EXPECT_TRUE(Bytes(bytes, bytes + block->outputHeld) == whole);
  }
  freeResult(block);
}

Bytes text(size_t length) {
  return inputs::make(Kind::Text, length);
}

// What an inflated block leaves in the window.
template <typename InflateKind>
void inflate(Attempt& attempt, const Bytes& stream, InflateKind inflateKind, const Bytes& data) {
  const Block block = blockFor(stream, ZIP_DECOMPRESS);
  block->bitCount = 0;
  block->bitAccumulator = 0;
  block->outputCount = 0;
  const int result = attempt.call([&] { return inflateKind(block.get()); });
  EXPECT_EQ(result, attempt.failed() ? 3 : 0);
  if (!attempt.failed()) {
    EXPECT_EQ(block->outputCount, data.size());
    EXPECT_EQ(memcmp(block->window, data.data(), data.size()), 0);
  }
  freeResult(block);
}

int inflateOne(ZipControlBlock* block) {
  int isLast = 0;
  return InflateBlock(block, &isLast);
}

// Skips the three bits ahead of the body of a block.
template <int (*kInflate)(ZipControlBlock*)>
int inflateBody(ZipControlBlock* block) {
  block->bitAccumulator = static_cast<unsigned>(FillInbuf(block, 0)) >> 3;
  block->bitCount = 5;
  return kInflate(block);
}

void buildTables(Attempt& attempt) {
  // Lengths up to 15, so that some codes need tables behind the first one.
  std::array<unsigned, 16> lengths;
  for (unsigned i = 0; i < lengths.size(); ++i) {
    lengths[i] = std::min(i + 1, 15U);
  }
  const std::array<uint16_t, 16> bases = {};
  const Block block = blockFor({}, ZIP_DECOMPRESS);
  block->huftCount = 0;
  huft other = {};
  huft* table = &other;
  unsigned bits = 4;
  const int result = attempt.call([&] {
    return HuftBuild(block.get(), lengths.data(), lengths.size(), 0, bases.data(), bases.data(),
                     &table, &bits);
  });
  EXPECT_EQ(result, attempt.failed() ? 3 : 0);
  EXPECT_EQ(table == nullptr, attempt.failed());
  EXPECT_EQ(HuftFree(table), 0);
}

// Compression in a block that is there, to a file, needs no memory at any level.
void deflate(Attempt& attempt) {
  const Bytes data = text(70000);
  for (const unsigned level : {1U, 3U, 6U, 9U}) {
    const TemporaryFile out;
    const Block block = blockFor(data, ZIP_COMPRESS);
    const unsigned crc = attempt.call([&] {
      block->level = level;
      block->outputFd = out.descriptor();
      const unsigned result = UpdateCRC(block.get(), nullptr, 0);
      TreeInit(block.get());
      LongestMatchInit(block.get());
      level == 1 ? DeflateFast(block.get()) : Deflate(block.get());
      FlushOutbuf(block.get());
      return result + BitStringReverse(1, 3);
    });
    EXPECT_EQ(crc, 4U);
    EXPECT_TRUE(out.content() == calls::streamOf(calls::compress(level, data).data)) << level;
  }
}

// So do data without codes of their own.
void passThrough(Attempt& attempt) {
  const Bytes data = text(1000);
  const Bytes stored = StreamBuilder().stored(true, data).data();
  inflate(attempt, stored, inflateBody<InflateStored>, data);

  const TemporaryFile in(data);
  const TemporaryFile out;
  const Block block = blockFor({}, ZIP_DECOMPRESS);
  block->inputFd = in.descriptor();
  block->outputFd = out.descriptor();
  unsigned char buffer[100];
  const int result = attempt.call([&] {
    VerifyCompressedDataHeader(block.get(), data.size());
    const int copied = ZQCopy(block.get());
    block->outputCount = 10;
    memcpy(block->window, data.data(), 10);
    FlushWindow(block.get());
    in.seek(900);
    return copied + FileRead(block.get(), buffer, sizeof buffer);
  });
  EXPECT_EQ(result, 100);
  EXPECT_EQ(block->mode, unsigned{ZIP_COPY});
  EXPECT_EQ(out.content().size(), 1010U);
}

// A code of two: the literal "a", and the end of the block.
void items(Attempt& attempt) {
  huft table[2] = {};
  table[0] = {16, 1, {'a'}};
  table[1] = {15, 1, {0}};
  const Bytes stream = {0x0C, 0, 0, 0, 0, 0, 0, 0};
  inflate(attempt, stream,
          [&](ZipControlBlock* block) {
            FillInbuf(block, 0);
            block->inputPosition = 0;
            block->fastLiteralBits = 0;
            return InflateCodes(block, table, nullptr, 1, 0);
          },
          {'a', 'a'});
}

}  // namespace

void addCompressScenarios(Scenarios& table) {
  struct Input {
    const char* name;
    Bytes data;
  };
  const Input kInputs[] = {{"text", text(40000)},
                           {"random bytes", inputs::make(Kind::Random, 60000)},
                           {"a byte", {'x'}}};
  for (const Way& way : kWays) {
    for (const Input& input : kInputs) {
      const Bytes packed = calls::compress(6, input.data).data;
      const Bytes source = way.compresses ? input.data : packed;
      const Bytes whole = way.compresses ? packed : input.data;
      table.push_back(
          {std::string(way.function) + " of " + input.name,
           {way.function, "ZQProcessInput"},
           [&way, source, whole](Attempt& attempt) { transfer(attempt, way, source, whole); }});
      if (!way.compresses) {
        table.push_back(
            {std::string(way.function) + " of plain " + input.name,
             {way.function, "ZQProcessInput"},
             [&way, data = input.data](Attempt& attempt) { transfer(attempt, way, data, data); }});
      }
    }
  }
  const Bytes data = text(30000);
  const Bytes packed = calls::compress(6, data).data;
  const Bytes stream = calls::streamOf(packed);
  const auto add = [&table](const char* function, std::function<void(Attempt&)> run) {
    table.push_back({function, {function}, std::move(run)});
  };
  add("ZQZip", [data, packed](Attempt& attempt) {
    operate(
        attempt, data, ZIP_COMPRESS,
        [&](ZipControlBlock* block) { return ZQZip(block, data.size()); }, kOutOfMemory, packed);
  });
  add("ZQUnzip", [data, packed](Attempt& attempt) {
    operate(
        attempt, packed, ZIP_DECOMPRESS,
        [&](ZipControlBlock* block) {
          VerifyCompressedDataHeader(block, packed.size());
          return ZQUnzip(block);
        },
        kOutOfMemory, data);
  });
  add("ZQCopy",
      [data](Attempt& attempt) { operate(attempt, data, ZIP_COPY, ZQCopy, kOutOfMemory, data); });
  add("WriteBuf", [data](Attempt& attempt) {
    operate(
        attempt, {}, ZIP_COPY,
        [&](ZipControlBlock* block) {
          return WriteBuf(block, data.data(), static_cast<unsigned>(data.size()));
        },
        kOutOfMemory, data);
  });
  const Bytes little = text(2000);
  const Bytes dynamic = calls::streamOf(calls::compress(6, little).data);
  StreamBuilder fixed;
  fixed.block(true, 1).fixedSymbol('a').fixedEnd();
  const Bytes fixedStream = fixed.data();
  add("Inflate", [stream](Attempt& attempt) {
    const TemporaryFile out;
    const Block block = blockFor(stream, ZIP_DECOMPRESS);
    block->outputFd = out.descriptor();
    const int result = attempt.call([&] { return Inflate(block.get()); });
    EXPECT_EQ(result, attempt.failed() ? 3 : 0);
  });
  add("InflateBlock",
      [dynamic, little](Attempt& attempt) { inflate(attempt, dynamic, inflateOne, little); });
  add("InflateDynamic", [dynamic, little](Attempt& attempt) {
    inflate(attempt, dynamic, inflateBody<InflateDynamic>, little);
  });
  add("InflateFixed", [fixedStream](Attempt& attempt) {
    inflate(attempt, fixedStream, inflateBody<InflateFixed>, {'a'});
  });
  add("HuftBuild", buildTables);
  table.push_back({"Deflate in a block that is there",
                   {"BitStringReverse",   "BitStringWindup", "BuildBitLengthTree", "BuildTree",
                    "CompressBlock",      "Deflate",         "DeflateFast",        "FillWindow",
                    "FlushBlock",         "FlushOutbuf",     "GenBitLengths",      "GenCodes",
                    "InitBlock",          "LongestMatch",    "LongestMatchInit",   "MemRead",
                    "PQDownHeap",         "ScanTree",        "SendAllTrees",       "SendBits",
                    "SendTree",           "TreeInit",        "TreeTally",          "UpdateCRC",
                    "InitZipControlBlock"},
                   deflate,
                   Memory::NotNeeded});
  table.push_back({"Stored blocks and plain data",
                   {"InflateStored", "VerifyCompressedDataHeader", "ZQCopy", "FlushWindow",
                    "FileRead", "FillInbuf"},
                   passThrough,
                   Memory::NotNeeded});
  table.push_back({"InflateCodes", {"InflateCodes", "HuftFree"}, items, Memory::NotNeeded});
}

}  // namespace fault
