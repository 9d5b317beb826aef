// The two bytes that compressed data begin with.
#ifndef ZQXML_COMPRESS_CONTAINER_H
#define ZQXML_COMPRESS_CONTAINER_H

constexpr unsigned kMagic0 = 0x1F;
constexpr unsigned kMagic1 = 0x8C;

// Length of magic, version and data length.
constexpr unsigned kHeaderLength = 8;

#endif
