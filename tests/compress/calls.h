// The calls between memory and memory, with containers of the standard library.
#ifndef ZQXML_TESTS_COMPRESS_CALLS_H
#define ZQXML_TESTS_COMPRESS_CALLS_H

#include <cstdlib>
#include <vector>

#include "zqxml/compress.h"

namespace calls {

using Bytes = std::vector<unsigned char>;

struct Result {
  int status;
  Bytes data;
  bool isNull;  // whether there is no block, not even an empty one
};

template <typename Call>
Result take(Call call) {
  void* block = nullptr;
  unsigned length = 0;
  const int status = call(&block, &length);
  Result result = {status, {}, block == nullptr};
  if (block != nullptr) {
    const auto* bytes = static_cast<const unsigned char*>(block);
    result.data.assign(bytes, bytes + length);
  }
  free(block);
  return result;
}

inline Result compress(unsigned level, const Bytes& data) {
  return take([&](void** block, unsigned* length) {
    const unsigned char none = 0;
    return ZQCompressMemToMem(level, data.empty() ? &none : data.data(),
                              static_cast<unsigned>(data.size()), block, length);
  });
}

inline Result decompress(const Bytes& data) {
  return take([&](void** block, unsigned* length) {
    const unsigned char none = 0;
    return ZQDecompressMemToMem(data.empty() ? &none : data.data(),
                                static_cast<unsigned>(data.size()), block, length);
  });
}

// The deflate stream of a container.
inline Bytes streamOf(const Bytes& container) {
  return Bytes(container.begin() + 8, container.end() - 4);
}

inline void append32(Bytes& bytes, unsigned value) {
  for (int i = 0; i < 4; ++i) {
    bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
  }
}

// A container around a deflate stream.
inline Bytes wrap(const Bytes& stream, unsigned length, unsigned crc) {
  Bytes out = {0x1F, 0x8C, 1, 0};
  append32(out, length);
  out.insert(out.end(), stream.begin(), stream.end());
  append32(out, crc);
  return out;
}

}  // namespace calls

#endif
