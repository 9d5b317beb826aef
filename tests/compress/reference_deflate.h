// The compressor as it is described, step by step and without any thought of speed. What the
// library makes faster must give the same bytes.
#ifndef ZQXML_TESTS_COMPRESS_REFERENCE_DEFLATE_H
#define ZQXML_TESTS_COMPRESS_REFERENCE_DEFLATE_H

#include <cstdint>
#include <vector>

namespace reference {

using Bytes = std::vector<unsigned char>;

// The deflate stream of the data at a level from 1 to 9.
Bytes deflate(const Bytes& data, int level);

// The whole container.
Bytes compress(const Bytes& data, int level);

uint32_t crc32(const Bytes& data);

}  // namespace reference

#endif
