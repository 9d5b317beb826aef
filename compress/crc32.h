// The CRC-32 of gzip (RFC 1952, 8): reflected polynomial 0xEDB88320.
#ifndef ZQXML_COMPRESS_CRC32_H
#define ZQXML_COMPRESS_CRC32_H

#include <cstddef>
#include <cstdint>

// Folds bytes into the register, by the fastest way that the processor knows. The caller starts the
// register with all ones and inverts it at the end.
uint32_t updateCrc32(uint32_t value, const unsigned char* bytes, size_t count);

// The ways: each gives the same on all processors that have it.
uint32_t updateCrc32Slicing(uint32_t value, const unsigned char* bytes, size_t count);
bool hasCarrylessMultiplication();
uint32_t updateCrc32Carryless(uint32_t value, const unsigned char* bytes, size_t count);

#endif
