// Compressed data with failing system calls.

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <string>

#include "compress/calls.h"
#include "compress/inputs.h"
#include "compress/temporary_file.h"
#include "fault/SystemScenario.h"
#include "fault/Transfer.h"
#include "zqxml/compress.h"
#include "zqxml/compress_inner.h"

namespace fault {

namespace {

using calls::Bytes;
using faulty::Call;
using inputs::Kind;

using transfers::kWays;
using transfers::Transfer;
using transfers::Way;

bool isPrefix(const Bytes& part, const Bytes& whole) {
  return part.size() <= whole.size() && std::equal(part.begin(), part.end(), whole.begin());
}

// Seeking and measuring come first, and a failure leaves the destination untouched. A short or
// failed write is told.
void expectTold(const SystemAttempt& attempt, const Way& way, int status, const Transfer& tried,
                const Bytes& whole) {
  if (attempt.failedTo(Call::Seek) || attempt.failedTo(Call::Stat)) {
    EXPECT_EQ(status, ZQ_MESSAGE_COMPRESS_SEEK);
    EXPECT_TRUE(tried.isUntouched());
  } else if (attempt.failedTo(Call::Write)) {
    EXPECT_EQ(status, ZQ_MESSAGE_COMPRESS_WRITE);
  } else if (attempt.isShort() && way.toFile) {
    EXPECT_TRUE(status == ZQ_MESSAGE_COMPRESS_WRITE || tried.result() == whole);
  } else if (!attempt.failed()) {
    EXPECT_EQ(status, 0);
    const Bytes result = tried.result();
    if (attempt.isShort() && way.compresses) {
      // Other blocks of input may give other matches.
      EXPECT_EQ(calls::decompress(result).status, 0);
    } else {
      EXPECT_TRUE(result == whole);
    }
  }
}

// A failed read ends the input: the call succeeds, and decompression tells of the length.
void compress(SystemAttempt& attempt, const Way& way, const Bytes& data, const Bytes& packed) {
  Transfer tried(way, data);
  const int status = attempt.call([&] { return tried.run(); });
  expectTold(attempt, way, status, tried, packed);
  if (attempt.failedTo(Call::Read)) {
    EXPECT_EQ(status, 0);
    const calls::Result back = calls::decompress(tried.result());
    EXPECT_EQ(back.status, back.data == data ? 0 : ZQ_MESSAGE_COMPRESS_LENGTH);
    EXPECT_TRUE(isPrefix(back.data, data));
  }
  Transfer again(way, data);
  EXPECT_EQ(again.run(), 0);
  EXPECT_TRUE(again.result() == packed);
}

// A failed read ends the input here too; what is missing is noticed, but not if there is nothing at
// all, which looks like plain data.
void decompress(SystemAttempt& attempt, const Way& way, const Bytes& data, const Bytes& packed) {
  Transfer tried(way, packed);
  const int status = attempt.call([&] { return tried.run(); });
  expectTold(attempt, way, status, tried, data);
  if (attempt.failedTo(Call::Read)) {
    const Bytes result = tried.result();
    if (status == 0) {
      EXPECT_TRUE(result == data || result.empty() || attempt.index() == 0);
    } else {
      EXPECT_TRUE(status >= ZQ_MESSAGE_COMPRESS_CHECKSUM && status <= ZQ_MESSAGE_COMPRESS_STREAM)
          << status;
    }
  }
  Transfer again(way, packed);
  EXPECT_EQ(again.run(), 0);
  EXPECT_TRUE(again.result() == data);
}

// Plain data are delivered as far as they can be read, without a word.
void copy(SystemAttempt& attempt, const Way& way, const Bytes& data) {
  Transfer tried(way, data);
  const int status = attempt.call([&] { return tried.run(); });
  expectTold(attempt, way, status, tried, data);
  if (attempt.failedTo(Call::Read)) {
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(isPrefix(tried.result(), data) || attempt.index() == 0);
  }
  Transfer again(way, data);
  EXPECT_EQ(again.run(), 0);
  EXPECT_TRUE(again.result() == data);
}

using Block = std::unique_ptr<ZipControlBlock>;

Block blockBetween(const TemporaryFile& in, const TemporaryFile& out) {
  Block block(new ZipControlBlock);
  memset(static_cast<void*>(block.get()), 0, sizeof *block);
  InitZipControlBlock(block.get());
  block->inputFd = in.descriptor();
  block->outputFd = out.descriptor();
  return block;
}

const Bytes& someBytes() {
  static const Bytes made = inputs::make(Kind::Text, 50000);
  return made;
}

// The result tells, and the status of the block doesn't.
void copyOperation(SystemAttempt& attempt) {
  const TemporaryFile in(someBytes());
  const TemporaryFile out;
  const Block block = blockBetween(in, out);
  const int result = attempt.call([&] { return ZQCopy(block.get()); });
  if (attempt.failedTo(Call::Read)) {
    EXPECT_EQ(result, ZQ_MESSAGE_COMPRESS_READ);
  } else if (out.content() != someBytes()) {
    EXPECT_TRUE(attempt.failedTo(Call::Write) || attempt.isShort());
    EXPECT_EQ(result, ZQ_MESSAGE_COMPRESS_WRITE);
  } else {
    EXPECT_EQ(result, 0);
  }
  EXPECT_TRUE(isPrefix(out.content(), someBytes()));
}

void readOperations(SystemAttempt& attempt) {
  const TemporaryFile in(someBytes());
  const TemporaryFile out;
  const Block block = blockBetween(in, out);
  unsigned char buffer[100];
  int first = 0;
  const int got = attempt.call([&] {
    errno = 0;
    first = FillInbuf(block.get(), 0);
    in.seek(0);
    return FileRead(block.get(), buffer, sizeof buffer);
  });
  if (attempt.failedTo(Call::Read)) {
    EXPECT_EQ(first, attempt.index() == 0 ? int{ZQ_MESSAGE_COMPRESS_READ} : someBytes()[0]);
    EXPECT_EQ(got, attempt.index() == 1 || attempt.isLasting() ? -1 : 100);
  } else {
    EXPECT_EQ(first, someBytes()[0]);
    EXPECT_TRUE(got == 100 || (attempt.isShort() && got > 0));
  }
  in.seek(0);
  EXPECT_EQ(FileRead(block.get(), buffer, sizeof buffer), 100);
}

// A failure is the block's status, and the work goes on.
void writeOperations(SystemAttempt& attempt, int which) {
  const TemporaryFile in;
  const TemporaryFile out;
  const Block block = blockBetween(in, out);
  memcpy(block->outputBuffer, someBytes().data(), 10000);
  memcpy(block->window, someBytes().data(), 10000);
  block->outputCount = 10000;
  attempt.call([&] {
    if (which == 0) {
      WriteBuf(block.get(), someBytes().data(), 10000);
    } else if (which == 1) {
      FlushOutbuf(block.get());
    } else {
      FlushWindow(block.get());
    }
  });
  const bool isWhole = out.content().size() == 10000;
  EXPECT_EQ(isWhole, !attempt.failed() && !attempt.isShort());
  EXPECT_EQ(block->status, isWhole ? 0U : unsigned{ZQ_MESSAGE_COMPRESS_WRITE});
  EXPECT_EQ(block->outputCount, which == 0 ? 10000U : 0U);
}

}  // namespace

void addSystemDataScenarios(SystemScenarios& table) {
  const Bytes text = inputs::make(Kind::Text, 70000);
  const Bytes random = inputs::make(Kind::Random, 50000);
  for (const Way& way : kWays) {
    if (!way.fromFile && !way.toFile) {
      continue;
    }
    for (const Bytes& data : {text, random}) {
      const std::string name =
          std::string(way.function) + (data.size() == text.size() ? " of text" : " of bytes");
      const Bytes packed = calls::compress(6, data).data;
      table.push_back(
          {name, {way.function, "ZQProcessInput"}, [&way, data, packed](SystemAttempt& attempt) {
             way.compresses ? compress(attempt, way, data, packed)
                            : decompress(attempt, way, data, packed);
           }});
    }
    if (!way.compresses) {
      table.push_back({std::string(way.function) + " of plain text",
                       {way.function},
                       [&way, text](SystemAttempt& attempt) { copy(attempt, way, text); }});
    }
  }
  table.push_back({"ZQCopy", {"ZQCopy"}, copyOperation});
  table.push_back({"Reads of a control block", {"FillInbuf", "FileRead"}, readOperations});
  int which = 0;
  for (const char* function : {"WriteBuf", "FlushOutbuf", "FlushWindow"}) {
    table.push_back({function, {function}, [which](SystemAttempt& attempt) {
                       writeOperations(attempt, which);
                     }});
    ++which;
  }
}

}  // namespace fault
