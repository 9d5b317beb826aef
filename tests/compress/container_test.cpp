// The eight calls: exact bytes, statuses, memory and descriptors.

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <cstring>

#include "calls.h"
#include "inputs.h"
#include "reference_deflate.h"
#include "stream_builder.h"
#include "temporary_file.h"
#include "zqxml/compress_inner.h"

using calls::Bytes;
using inputs::Kind;

namespace {

Bytes bytesOf(const std::string& text) {
  return Bytes(text.begin(), text.end());
}

Bytes fromHex(const std::string& hex) {
  Bytes bytes;
  for (size_t i = 0; i < hex.size(); i += 2) {
    bytes.push_back(static_cast<unsigned char>(std::stoul(hex.substr(i, 2), nullptr, 16)));
  }
  return bytes;
}

struct Fixed {
  std::string data;
  const char* container;  // hexadecimal
};

// The streams are of fixed codes, so all levels give the same.
const Fixed kFixed[] = {
    {"",
     "1f8c010000000000"
     "0300"
     "00000000"},
    {"a",
     "1f8c010001000000"
     "4b0400"
     "43beb7e8"},
    {"aaaa",
     "1f8c010004000000"
     "4b4c4c4c0400"
     "45e598ad"},
    {"aaaaaaaa",
     "1f8c010008000000"
     "4b4c840000"
     "468084bf"},
    {"abcabcabc",
     "1f8c010009000000"
     "4b4c4a4e042300"
     "18482d46"},
    {"\xff\xff",
     "1f8c010002000000"
     "fbff1f00"
     "0000ffff"},
};

}  // namespace

TEST(Container, ExactBytes) {
  for (const Fixed& fixed : kFixed) {
    const Bytes data = bytesOf(fixed.data);
    const Bytes container = fromHex(fixed.container);
    for (unsigned level = 1; level <= 9; ++level) {
      const calls::Result compressed = calls::compress(level, data);
      EXPECT_EQ(compressed.status, 0);
      EXPECT_EQ(compressed.data, container) << fixed.data << ", level " << level;
    }
    const calls::Result back = calls::decompress(container);
    EXPECT_EQ(back.status, 0);
    EXPECT_EQ(back.data, data);
    EXPECT_FALSE(back.isNull);
  }
}

TEST(Container, HeaderAndTrailerAreLittleEndian) {
  const Bytes data = inputs::make(Kind::Text, 0x10203);
  const Bytes container = calls::compress(6, data).data;
  EXPECT_EQ(Bytes(container.begin(), container.begin() + 8),
            (Bytes{0x1F, 0x8C, 1, 0, 0x03, 0x02, 0x01, 0x00}));
  Bytes crc;
  calls::append32(crc, reference::crc32(data));
  EXPECT_EQ(Bytes(container.end() - 4, container.end()), crc);
}

TEST(Container, OtherLevelsMeanSix) {
  const Bytes data = inputs::make(Kind::Text, 30000);
  const Bytes six = calls::compress(6, data).data;
  EXPECT_NE(calls::compress(5, data).data, six);
  EXPECT_NE(calls::compress(7, data).data, six);
  for (const unsigned level : {0u, 10u, 11u, 100u, UINT_MAX}) {
    EXPECT_EQ(calls::compress(level, data).data, six) << level;
  }
}

TEST(Container, PlainDataArePassedThrough) {
  for (const std::string& text :
       {std::string("a"), std::string("1234567"), std::string("12345678"),
        std::string("\x1f\x8b\x08\x00\x00\x00\x00\x00", 8),
        std::string("\x1f\x8c\x01\x00\x00\x00\x00", 7),
        std::string("\x8c\x1f\x01\x00\x00\x00\x00\x00\x00", 9), std::string(100000, 'x')}) {
    const Bytes data = bytesOf(text);
    const calls::Result result = calls::decompress(data);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.data, data);
  }
}

TEST(Container, EmptyMemoryInputGivesNull) {
  int unused = 0;
  void* block = &unused;
  unsigned length = 77;
  EXPECT_EQ(ZQDecompressMemToMem("", 0, &block, &length), 0);
  EXPECT_EQ(block, nullptr);
  EXPECT_EQ(length, 0u);
}

TEST(Container, EmptyDataGiveABlock) {
  const calls::Result result = calls::decompress(fromHex(kFixed[0].container));
  EXPECT_EQ(result.status, 0);
  EXPECT_FALSE(result.isNull);
  EXPECT_TRUE(result.data.empty());
}

TEST(Container, VersionBytesAreNotTested) {
  Bytes container = fromHex(kFixed[1].container);
  container[2] = 0xEE;
  container[3] = 0xFF;
  const calls::Result result = calls::decompress(container);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.data, bytesOf("a"));
}

TEST(Container, BytesBehindTheTrailerAreIgnored) {
  Bytes container = fromHex(kFixed[4].container);
  container.insert(container.end(), 50000, 0xAA);
  const calls::Result result = calls::decompress(container);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.data, bytesOf("abcabcabc"));
}

TEST(Container, ANulStandsBehindDecompressedData) {
  for (const size_t size : {size_t{0}, size_t{1}, size_t{5000}, size_t{32768}, size_t{100000}}) {
    const Bytes data = inputs::make(Kind::Text, size);
    const Bytes container = calls::compress(6, data).data;
    void* block = nullptr;
    unsigned length = 0;
    ASSERT_EQ(ZQDecompressMemToMem(container.data(), static_cast<unsigned>(container.size()),
                                   &block, &length),
              0);
    ASSERT_EQ(length, size);
    EXPECT_EQ(static_cast<char*>(block)[length], '\0');
    free(block);
    // Plain data get one, too.
    ASSERT_EQ(ZQDecompressMemToMem("plain", 5, &block, &length), 0);
    EXPECT_STREQ(static_cast<char*>(block), "plain");
    free(block);
  }
}

struct WrongHeader {
  unsigned lengthOffset;
  unsigned crcOffset;
  int status;
};

TEST(Container, WrongLengthAndChecksum) {
  const Bytes data = inputs::make(Kind::Text, 70000);
  const Bytes stream = calls::streamOf(calls::compress(6, data).data);
  const WrongHeader cases[] = {
      {0, 0, 0},
      {0, 1, ZQ_MESSAGE_COMPRESS_CHECKSUM},
      {1, 0, ZQ_MESSAGE_COMPRESS_LENGTH},
      {static_cast<unsigned>(-1), 0, ZQ_MESSAGE_COMPRESS_LENGTH},
      {static_cast<unsigned>(-60000), 0, ZQ_MESSAGE_COMPRESS_LENGTH},
      {static_cast<unsigned>(-70000), 0, ZQ_MESSAGE_COMPRESS_LENGTH},
      {1u << 31, 0, ZQ_MESSAGE_COMPRESS_LENGTH},
      // Both tests run, and the last failure counts.
      {1, 1, ZQ_MESSAGE_COMPRESS_LENGTH},
  };
  for (const WrongHeader& wrong : cases) {
    const calls::Result result = calls::decompress(
        calls::wrap(stream, 70000 + wrong.lengthOffset, reference::crc32(data) + wrong.crcOffset));
    EXPECT_EQ(result.status, wrong.status);
    // The caller gets all that came out, whatever the header promised.
    EXPECT_TRUE(result.data == data);
  }
}

TEST(Container, InvalidStreamGives3006WhateverTheTrailer) {
  StreamBuilder stream;
  stream.stored(false, inputs::make(Kind::Text, 40000)).block(true, 3);
  const calls::Result result = calls::decompress(calls::wrap(stream.data(), 1, 1));
  EXPECT_EQ(result.status, ZQ_MESSAGE_COMPRESS_STREAM);
  // What had filled the window before the fault.
  EXPECT_EQ(result.data.size(), 32768u);
  EXPECT_FALSE(result.isNull);
}

TEST(Container, BadArguments) {
  void* block = nullptr;
  unsigned length = 0;
  const TemporaryFile file(bytesOf("data"));
  const int fd = file.descriptor();
  const int bad = ZQ_MESSAGE_COMPRESS_ARGUMENT;
  EXPECT_EQ(ZQCompressMemToMem(6, "a", 1, nullptr, &length), bad);
  EXPECT_EQ(ZQCompressMemToMem(6, "a", 1, &block, nullptr), bad);
  EXPECT_EQ(ZQDecompressMemToMem("a", 1, nullptr, &length), bad);
  EXPECT_EQ(ZQDecompressMemToMem("a", 1, &block, nullptr), bad);
  EXPECT_EQ(ZQCompressFileToMem(6, fd, nullptr, &length), bad);
  EXPECT_EQ(ZQCompressFileToMem(6, fd, &block, nullptr), bad);
  EXPECT_EQ(ZQDecompressFileToMem(fd, nullptr, &length), bad);
  EXPECT_EQ(ZQDecompressFileToMem(fd, &block, nullptr), bad);
  EXPECT_EQ(ZQDecompressMemToMem(nullptr, 0, &block, &length), bad);
  EXPECT_EQ(ZQDecompressMemToMem(nullptr, 5, &block, &length), bad);
  EXPECT_EQ(ZQDecompressFileToMem(0, &block, &length), bad);
  EXPECT_EQ(ZQDecompressFileToFile(0, fd), bad);
  EXPECT_EQ(ZQDecompressFileToFile(fd, 0), bad);
  EXPECT_EQ(ZQDecompressMemToFile(nullptr, 5, fd), bad);
  EXPECT_EQ(ZQDecompressMemToFile("a", 1, 0), bad);
  EXPECT_EQ(ZQCompressFileToFile(6, fd, 0), bad);
  EXPECT_EQ(ZQCompressMemToFile(6, "a", 1, 0), bad);
  EXPECT_EQ(ZQCompressMemToMem(6, nullptr, 1, &block, &length), bad);
  EXPECT_EQ(ZQCompressMemToFile(6, nullptr, 1, fd), bad);
  EXPECT_EQ(block, nullptr);
  EXPECT_EQ(length, 0u);
  EXPECT_EQ(file.content(), bytesOf("data"));
}

TEST(Container, NothingIsCompressedFromNullAndFromDescriptor0) {
  const Bytes empty = fromHex(kFixed[0].container);
  const calls::Result fromNull = calls::take([](void** block, unsigned* length) {
    return ZQCompressMemToMem(6, nullptr, 0, block, length);
  });
  EXPECT_EQ(fromNull.status, 0);
  EXPECT_EQ(fromNull.data, empty);
  const calls::Result fromZero = calls::take(
      [](void** block, unsigned* length) { return ZQCompressFileToMem(6, 0, block, length); });
  EXPECT_EQ(fromZero.status, 0);
  EXPECT_EQ(fromZero.data, empty);
  const TemporaryFile out;
  EXPECT_EQ(ZQCompressFileToFile(6, 0, out.descriptor()), 0);
  EXPECT_EQ(out.content(), empty);
}

TEST(Container, FailuresBeforeTheWorkLeaveTheResultAlone) {
  int unused = 0;
  void* block = &unused;
  unsigned length = 77;
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  EXPECT_EQ(ZQCompressFileToMem(6, ends[0], &block, &length), ZQ_MESSAGE_COMPRESS_SEEK);
  EXPECT_EQ(ZQDecompressFileToMem(ends[0], &block, &length), ZQ_MESSAGE_COMPRESS_SEEK);
  EXPECT_EQ(ZQCompressFileToMem(6, -1, &block, &length), ZQ_MESSAGE_COMPRESS_SEEK);
  EXPECT_EQ(ZQDecompressFileToMem(-1, &block, &length), ZQ_MESSAGE_COMPRESS_SEEK);
  EXPECT_EQ(ZQCompressMemToMem(6, nullptr, 1, &block, &length), ZQ_MESSAGE_COMPRESS_ARGUMENT);
  EXPECT_EQ(block, &unused);
  EXPECT_EQ(length, 77u);
  // A destination must be positioned for compression alone.
  EXPECT_EQ(ZQCompressMemToFile(6, "a", 1, ends[1]), ZQ_MESSAGE_COMPRESS_SEEK);
  const Bytes container = fromHex(kFixed[1].container);
  EXPECT_EQ(
      ZQDecompressMemToFile(container.data(), static_cast<unsigned>(container.size()), ends[1]), 0);
  char byte = 0;
  EXPECT_EQ(read(ends[0], &byte, 1), 1);
  EXPECT_EQ(byte, 'a');
  close(ends[0]);
  close(ends[1]);
}

TEST(Container, AllEightCallsAgree) {
  for (const size_t size : {0u, 1u, 7u, 8u, 5000u, 40000u, 200000u}) {
    for (const Kind kind : {Kind::Text, Kind::Random}) {
      const Bytes data = inputs::make(kind, size);
      const Bytes container = calls::compress(7, data).data;
      const TemporaryFile plain(data);
      const TemporaryFile packed(container);
      const auto dataSize = static_cast<unsigned>(size);
      const auto containerSize = static_cast<unsigned>(container.size());

      plain.seek(0);
      const calls::Result fileToMem = calls::take([&](void** block, unsigned* length) {
        return ZQCompressFileToMem(7, plain.descriptor(), block, length);
      });
      EXPECT_EQ(fileToMem.status, 0);
      EXPECT_EQ(fileToMem.data, container);
      const TemporaryFile out1;
      plain.seek(0);
      EXPECT_EQ(ZQCompressFileToFile(7, plain.descriptor(), out1.descriptor()), 0);
      EXPECT_EQ(out1.content(), container);
      const TemporaryFile out2;
      EXPECT_EQ(ZQCompressMemToFile(7, data.data(), dataSize, out2.descriptor()),
                data.data() == nullptr && dataSize > 0 ? ZQ_MESSAGE_COMPRESS_ARGUMENT : 0);
      EXPECT_EQ(out2.content(), container);

      const calls::Result back = calls::take([&](void** block, unsigned* length) {
        return ZQDecompressFileToMem(packed.descriptor(), block, length);
      });
      EXPECT_EQ(back.status, 0);
      EXPECT_EQ(back.data, data);
      const TemporaryFile out3;
      EXPECT_EQ(ZQDecompressFileToFile(packed.descriptor(), out3.descriptor()), 0);
      EXPECT_EQ(out3.content(), data);
      const TemporaryFile out4;
      EXPECT_EQ(ZQDecompressMemToFile(container.data(), containerSize, out4.descriptor()), 0);
      EXPECT_EQ(out4.content(), data);
    }
  }
}

TEST(Container, PlainFilesArePassedThrough) {
  for (const size_t size : {0u, 1u, 7u, 8u, 32768u, 32769u, 100000u}) {
    const Bytes data = inputs::make(Kind::Text, size);
    const TemporaryFile plain(data);
    const calls::Result toMemory = calls::take([&](void** block, unsigned* length) {
      return ZQDecompressFileToMem(plain.descriptor(), block, length);
    });
    EXPECT_EQ(toMemory.status, 0);
    EXPECT_EQ(toMemory.data, data);
    EXPECT_EQ(toMemory.isNull, size == 0);
    const TemporaryFile out;
    EXPECT_EQ(ZQDecompressFileToFile(plain.descriptor(), out.descriptor()), 0);
    EXPECT_EQ(out.content(), data);
    const TemporaryFile out2;
    if (size > 0) {
      EXPECT_EQ(ZQDecompressMemToFile(data.data(), static_cast<unsigned>(size), out2.descriptor()),
                0);
      EXPECT_EQ(out2.content(), data);
    }
  }
}

TEST(Container, CompressionStartsAtTheOffset) {
  const Bytes data = inputs::make(Kind::Text, 50000);
  const TemporaryFile file(data);
  for (const long offset : {0L, 1L, 20000L, 49999L, 50000L, 60000L}) {
    file.seek(offset);
    const calls::Result result = calls::take([&](void** block, unsigned* length) {
      return ZQCompressFileToMem(3, file.descriptor(), block, length);
    });
    const Bytes rest(data.begin() + std::min(offset, 50000L), data.end());
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.data, reference::compress(rest, 3)) << offset;
    EXPECT_EQ(file.offset(), std::max(offset, 50000L));
  }
}

TEST(Container, CompressionRewindsItsOutputAndDoesNotTruncateIt) {
  const Bytes data = bytesOf("abcabcabc");
  const Bytes container = fromHex(kFixed[4].container);
  const TemporaryFile out(Bytes(100, 'x'));
  out.seek(50);
  EXPECT_EQ(ZQCompressMemToFile(6, data.data(), 9, out.descriptor()), 0);
  Bytes expected = container;
  expected.resize(100, 'x');
  EXPECT_EQ(out.content(), expected);
  EXPECT_EQ(out.offset(), static_cast<off_t>(container.size()));
}

TEST(Container, DecompressionStartsAt0AndLeavesItsOutputWhereItIs) {
  const Bytes container = fromHex(kFixed[4].container);
  const TemporaryFile in(container);
  const TemporaryFile out(Bytes(20, 'x'));
  in.seek(5);
  out.seek(3);
  EXPECT_EQ(ZQDecompressFileToFile(in.descriptor(), out.descriptor()), 0);
  EXPECT_EQ(out.content(), bytesOf("xxxabcabcabcxxxxxxxx"));
  EXPECT_EQ(out.offset(), 12);
}

TEST(Container, UnwritableOutputGives3003) {
  const Bytes data = inputs::make(Kind::Random, 100000);
  const Bytes container = calls::compress(1, data).data;
  const int readOnly = open("/dev/null", O_RDONLY);
  ASSERT_GT(readOnly, 0);
  EXPECT_EQ(ZQCompressMemToFile(1, data.data(), 100000, readOnly), ZQ_MESSAGE_COMPRESS_WRITE);
  EXPECT_EQ(
      ZQDecompressMemToFile(container.data(), static_cast<unsigned>(container.size()), readOnly),
      ZQ_MESSAGE_COMPRESS_WRITE);
  EXPECT_EQ(ZQDecompressMemToFile("plain", 5, readOnly), ZQ_MESSAGE_COMPRESS_WRITE);
  close(readOnly);
}

// A header that promises gigabytes doesn't get them before the data come.
TEST(Container, LyingHeadersDontAskForMemory) {
  const Bytes data = bytesOf("abcabcabc");
  const Bytes stream = calls::streamOf(fromHex(kFixed[4].container));
  for (const unsigned promised : {10u, 200000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    const Bytes container = calls::wrap(stream, promised, reference::crc32(data));
    void* block = nullptr;
    unsigned length = 0;
    EXPECT_EQ(ZQDecompressMemToMem(container.data(), static_cast<unsigned>(container.size()),
                                   &block, &length),
              ZQ_MESSAGE_COMPRESS_LENGTH);
    EXPECT_EQ(length, 9u);
    EXPECT_STREQ(static_cast<char*>(block), "abcabcabc");
    free(block);
  }
}

TEST(Container, MoreDataThanPromisedAreDelivered) {
  StreamBuilder stream;
  constexpr unsigned kMatches = 10000;
  stream.block(true, 1).fixedSymbol(0);
  for (unsigned i = 0; i < kMatches; ++i) {
    stream.fixedSymbol(285).code(0, 5);
  }
  stream.fixedEnd();
  const unsigned size = 1 + 258 * kMatches;
  const Bytes data(size, 0);
  const unsigned crc = reference::crc32(data);
  for (const unsigned promised : {0u, 1u, 32768u, size - 1, size, size + 1}) {
    const calls::Result result = calls::decompress(calls::wrap(stream.data(), promised, crc));
    EXPECT_EQ(result.status, promised == size ? 0 : ZQ_MESSAGE_COMPRESS_LENGTH);
    EXPECT_TRUE(result.data == data);
  }
}

TEST(Container, OutputOfMemoryGrowsForDataThatDontShrink) {
  const Bytes data = inputs::make(Kind::Random, 300000);
  const calls::Result result = calls::compress(9, data);
  EXPECT_EQ(result.status, 0);
  EXPECT_GT(result.data.size(), data.size() + 8);
  EXPECT_EQ(calls::decompress(result.data).data, data);
}

TEST(Container, ProcessInputTakesOtherModesAsCopy) {
  const calls::Result result = calls::take([](void** block, unsigned* length) {
    return ZQProcessInput(ZIP_COPY, 0, 0, 0, "\x1f\x8c\x01\x00\x00\x00\x00\x00rest", 12, block,
                          length);
  });
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.data.size(), 12u);
}

TEST(Container, InitialisedBlock) {
  const auto block = std::make_unique<ZipControlBlock>();
  memset(static_cast<void*>(block.get()), 0xA5, sizeof *block);
  EXPECT_EQ(InitZipControlBlock(block.get()), 0);
  EXPECT_EQ(block->status, 0u);
  EXPECT_EQ(block->level, 6u);
  EXPECT_EQ(block->bytesIn, 0u);
  EXPECT_EQ(block->bytesOut, 0u);
  EXPECT_EQ(block->originalLength, 0u);
  EXPECT_EQ(block->outputMemory, nullptr);
  EXPECT_EQ(block->outputCapacity, 0u);
  EXPECT_EQ(block->inputFill, 0u);
  EXPECT_EQ(block->inputPosition, 0u);
  EXPECT_EQ(block->outputCount, 0u);
  EXPECT_EQ(block->crcRegister, 0xFFFFFFFFu);
  EXPECT_EQ(block->bitBuffer, 0u);
  EXPECT_EQ(block->bitValid, 0);
  EXPECT_EQ(block->matchStart, 0u);
  EXPECT_EQ(block->inputBuffer[0], 0xA5);
  EXPECT_EQ(block->window[0], 0xA5);
}
