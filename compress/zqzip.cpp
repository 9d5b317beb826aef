// The calls of zqxml/compress.h and the one function behind them, which settles source and
// destination and hands the work to ZQZip, ZQUnzip or ZQCopy.

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "compress/container.h"
#include "compress/zutil.h"
#include "zqxml/compress.h"

namespace {

struct FreeBlock {
  void operator()(ZipControlBlock* block) const { free(block); }
};

// The bytes of a file from `offset` on; false if the file can't be measured.
bool measureFile(int descriptor, off_t offset, uint64_t* length) {
  struct stat file;
  if (offset < 0 || fstat(descriptor, &file) != 0) {
    return false;
  }
  *length = file.st_size > offset ? static_cast<uint64_t>(file.st_size - offset) : 0;
  return true;
}

// Failures that come before the work begins; 0 if all is ready.
int prepareDecompression(ZipControlBlock* block) {
  if (block->inputFd != 0) {
    if (lseek(block->inputFd, 0, SEEK_SET) < 0 ||
        !measureFile(block->inputFd, 0, &block->sourceLength)) {
      return ZQ_MESSAGE_COMPRESS_SEEK;
    }
  } else if (block->inputMemory == nullptr) {
    return ZQ_MESSAGE_COMPRESS_ARGUMENT;
  } else {
    block->sourceLength = block->inputLength;
  }
  VerifyCompressedDataHeader(block, block->sourceLength);
  return 0;
}

// Without a source in memory nothing but an empty one can be meant.
bool hasSource(const ZipControlBlock* block) {
  return block->inputFd != 0 || block->inputMemory != nullptr || block->inputLength == 0;
}

int prepareCompression(ZipControlBlock* block, unsigned level) {
  constexpr unsigned kMaxLevel = 9;
  if (level >= 1 && level <= kMaxLevel) {
    block->level = level;
  }
  if (!hasSource(block)) {
    return ZQ_MESSAGE_COMPRESS_ARGUMENT;
  }
  if (block->outputFd != 0 && lseek(block->outputFd, 0, SEEK_SET) < 0) {
    return ZQ_MESSAGE_COMPRESS_SEEK;
  }
  block->sourceLength = block->inputLength;
  if (block->inputFd != 0 &&
      !measureFile(block->inputFd, lseek(block->inputFd, 0, SEEK_CUR), &block->sourceLength)) {
    return ZQ_MESSAGE_COMPRESS_SEEK;
  }
  return 0;
}

// The buffer may hold what the test for a header has read.
int copyFile(ZipControlBlock* block) {
  ssize_t count = block->inputFill;
  do {
    const unsigned length = static_cast<unsigned>(count);
    if (const int failure = length > 0 ? WriteBuf(block, block->inputBuffer, length) : 0;
        failure != 0) {
      return failure;
    }
    block->bytesOut += length;
    count = read(block->inputFd, block->inputBuffer, ZIP_INPUT_UNIT);
  } while (count > 0);
  return count < 0 && errno != 0 ? ZQ_MESSAGE_COMPRESS_READ : 0;
}

int copyMemory(ZipControlBlock* block) {
  if (const int failure = WriteBuf(block, block->inputMemory, block->inputLength); failure != 0) {
    return failure;
  }
  block->bytesOut = block->inputLength;
  return 0;
}

}  // namespace

int InitZipControlBlock(ZipControlBlock* block) {
  constexpr unsigned kDefaultLevel = 6;
  block->status = 0;
  block->level = kDefaultLevel;
  block->bytesIn = 0;
  block->bytesOut = 0;
  block->originalLength = 0;
  block->outputMemory = nullptr;
  block->outputCapacity = 0;
  block->inputFill = 0;
  block->inputPosition = 0;
  block->outputCount = 0;
  block->crc = 0;
  block->crcRegister = 0xFFFFFFFF;
  block->bitBuffer = 0;
  block->bitValid = 0;
  block->matchStart = 0;
  block->sourceLength = 0;
  block->outputHeld = 0;
  block->outputLost = 0;
  block->outputRoom = 0;
  block->windowStart = 0;
  block->madeUpBytes = 0;
  return 0;
}

void VerifyCompressedDataHeader(ZipControlBlock* block, uint64_t inputLength) {
  if (inputLength < kHeaderLength) {
    block->mode = ZIP_COPY;
    return;
  }
  const unsigned first = nextInputByte(block);
  if (first != kMagic0) {
    block->inputPosition = 0;
    block->mode = ZIP_COPY;
    return;
  }
  if (nextInputByte(block) != kMagic1) {
    if (block->inputPosition != 2) {
      // The first read gave a single byte, which the second one has overwritten.
      memmove(block->inputBuffer + 1, block->inputBuffer, block->inputFill);
      block->inputBuffer[0] = static_cast<unsigned char>(first);
      ++block->inputFill;
    }
    block->inputPosition = 0;
    block->mode = ZIP_COPY;
    return;
  }
  nextInputByte(block);
  nextInputByte(block);
  block->originalLength = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    block->originalLength |= nextInputByte(block) << shift;
  }
}

int ZQCopy(ZipControlBlock* block) {
  const int result = block->inputFd != 0 ? copyFile(block) : copyMemory(block);
  if (block->outputMemory != nullptr) {
    block->outputMemory[block->outputHeld] = '\0';
  }
  if (result == 0) {
    block->bytesIn = block->bytesOut;
  }
  return result;
}

int ZQProcessInput(int mode, unsigned level, int inputFd, int outputFd, const void* input,
                   unsigned inputLength, void** result, unsigned* resultLength) {
  if (outputFd == 0 && (result == nullptr || resultLength == nullptr)) {
    return ZQ_MESSAGE_COMPRESS_ARGUMENT;
  }
  const std::unique_ptr<ZipControlBlock, FreeBlock> owner(
      static_cast<ZipControlBlock*>(malloc(sizeof(ZipControlBlock))));
  ZipControlBlock* block = owner.get();
  if (block == nullptr) {
    return ZQ_MESSAGE_COMPRESS_MEMORY;
  }
  InitZipControlBlock(block);
  block->inputFd = inputFd;
  block->outputFd = outputFd;
  block->inputMemory = static_cast<const unsigned char*>(input);
  block->inputLength = inputLength;
  block->mode = static_cast<unsigned>(mode);

  int failure = 0;
  if (block->mode == ZIP_COMPRESS) {
    failure = prepareCompression(block, level);
  } else if (block->mode == ZIP_DECOMPRESS) {
    failure = prepareDecompression(block);
  } else if (!hasSource(block)) {
    failure = ZQ_MESSAGE_COMPRESS_ARGUMENT;
  }
  if (failure != 0) {
    return failure;
  }
  switch (block->mode) {
    case ZIP_COMPRESS:
      ZQZip(block, block->sourceLength);
      break;
    case ZIP_DECOMPRESS:
      ZQUnzip(block);
      break;
    default:
      ZQCopy(block);
  }
  if (outputFd == 0) {
    *result = block->outputMemory;
    *resultLength = static_cast<unsigned>(block->outputHeld);
  }
  return static_cast<int>(block->status);
}

int ZQCompressFileToFile(unsigned level, int inputFd, int outputFd) {
  return ZQProcessInput(ZIP_COMPRESS, level, inputFd, outputFd, nullptr, 0, nullptr, nullptr);
}

int ZQDecompressFileToFile(int inputFd, int outputFd) {
  return ZQProcessInput(ZIP_DECOMPRESS, 0, inputFd, outputFd, nullptr, 0, nullptr, nullptr);
}

int ZQCompressMemToMem(unsigned level, const void* input, unsigned inputLength, void** result,
                       unsigned* resultLength) {
  return ZQProcessInput(ZIP_COMPRESS, level, 0, 0, input, inputLength, result, resultLength);
}

int ZQDecompressMemToMem(const void* input, unsigned inputLength, void** result,
                         unsigned* resultLength) {
  return ZQProcessInput(ZIP_DECOMPRESS, 0, 0, 0, input, inputLength, result, resultLength);
}

int ZQCompressFileToMem(unsigned level, int inputFd, void** result, unsigned* resultLength) {
  return ZQProcessInput(ZIP_COMPRESS, level, inputFd, 0, nullptr, 0, result, resultLength);
}

int ZQDecompressFileToMem(int inputFd, void** result, unsigned* resultLength) {
  return ZQProcessInput(ZIP_DECOMPRESS, 0, inputFd, 0, nullptr, 0, result, resultLength);
}

int ZQCompressMemToFile(unsigned level, const void* input, unsigned inputLength, int outputFd) {
  return ZQProcessInput(ZIP_COMPRESS, level, 0, outputFd, input, inputLength, nullptr, nullptr);
}

int ZQDecompressMemToFile(const void* input, unsigned inputLength, int outputFd) {
  return ZQProcessInput(ZIP_DECOMPRESS, 0, 0, outputFd, input, inputLength, nullptr, nullptr);
}
