// The eight calls of the compressed data form, behind one.
#ifndef ZQXML_TESTS_FAULT_TRANSFER_H
#define ZQXML_TESTS_FAULT_TRANSFER_H

#include <fcntl.h>

#include <cstdlib>

#include "compress/calls.h"
#include "compress/temporary_file.h"
#include "zqxml/compress.h"

namespace transfers {

using calls::Bytes;

struct Way {
  const char* function;
  bool compresses;
  bool fromFile;
  bool toFile;
};

inline constexpr Way kWays[] = {
    {"ZQCompressMemToMem", true, false, false},    {"ZQCompressMemToFile", true, false, true},
    {"ZQCompressFileToMem", true, true, false},    {"ZQCompressFileToFile", true, true, true},
    {"ZQDecompressMemToMem", false, false, false}, {"ZQDecompressMemToFile", false, false, true},
    {"ZQDecompressFileToMem", false, true, false}, {"ZQDecompressFileToFile", false, true, true},
};

// Source and destination of a call.
class Transfer {
 public:
  Transfer(const Way& taken, const Bytes& source) : way(taken), input(source), in(source) {}
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;
  ~Transfer() { free(block); }

  int run() {
    const auto size = static_cast<unsigned>(input.size());
    const int from = in.descriptor();
    const int to = out.descriptor();
    if (way.fromFile) {
      return way.compresses ? (way.toFile ? ZQCompressFileToFile(6, from, to)
                                          : ZQCompressFileToMem(6, from, &block, &length))
                            : (way.toFile ? ZQDecompressFileToFile(from, to)
                                          : ZQDecompressFileToMem(from, &block, &length));
    }
    return way.compresses
               ? (way.toFile ? ZQCompressMemToFile(6, input.data(), size, to)
                             : ZQCompressMemToMem(6, input.data(), size, &block, &length))
               : (way.toFile ? ZQDecompressMemToFile(input.data(), size, to)
                             : ZQDecompressMemToMem(input.data(), size, &block, &length));
  }

  Bytes result() const {
    if (way.toFile) {
      return out.content();
    }
    const auto* bytes = static_cast<const unsigned char*>(block);
    return block != nullptr ? Bytes(bytes, bytes + length) : Bytes();
  }

  bool isUntouched() const { return way.toFile ? out.content().empty() : block == nullptr; }

  // The descriptors belong to the caller.
  bool descriptorsAreOpen() const {
    return fcntl(in.descriptor(), F_GETFD) == 0 && fcntl(out.descriptor(), F_GETFD) == 0;
  }

 private:
  const Way& way;
  const Bytes& input;
  TemporaryFile in;
  TemporaryFile out;
  void* block = nullptr;
  unsigned length = 0;
};

}  // namespace transfers

#endif
