/**
 * @file
 * Compressed data, as attachments travel: a deflate stream (RFC 1951) in a container of the library's own.
 *
 * Offset  Size  Content; numbers are little-endian
 *      0     2  0x1F 0x8C: a cousin of gzip (RFC 1952), but not gzip, whose second byte is 0x8B
 *      2     2  1 and 0; written, not tested
 *      4     4  length of the data, modulo 2^32
 *      8     n  the deflate stream
 *    8+n     4  CRC-32 of the data, the one of gzip
 *
 * Bytes behind the trailer are ignored. Data that don't begin with the two magic bytes, or have less than 8 bytes,
 * are plain: decompression delivers them as they stand, with result 0.
 *
 * There is a call for each way between descriptors and memory. All of them
 *  - return 0 or a failure number: 3001 to 3009, the ZQ_MESSAGE_COMPRESS_... constants of zqxml/messages.h. If several
 *    things go wrong the last one counts;
 *  - take descriptors of regular files, which stay open. Descriptor 0 can't be used: it means memory, so that as an
 *    input it is an empty one. No file is ever truncated. A short write is a failure and isn't tried again;
 *  - hand a memory result out as a heap block that the caller gives back with `free`, with its length in bytes. Both are
 *    stored as soon as the work has begun, so also with most failures: give the block back then, too. Failures 3008 and
 *    3009, and 3007 for want of the control block, come before that and leave both untouched. A result of more than
 *    4 GiB less 1 byte gives 3007;
 *  - are re-entrant: a call's whole state is in one heap block of its own, about half a megabyte.
 *
 * Compression levels are 1 (fast) to 9 (small); any other value, 0 included, means 6. Stored blocks are never written, so
 * data that can't be compressed grow. The result of the same data at the same level is always the same.
 *
 * Compression starts at the input descriptor's current offset and rewinds the output descriptor. Decompression starts
 * at offset 0 of its input and writes where the output descriptor stands. That asymmetry is deliberate.
 *
 * Failures of decompression: 3004 wrong checksum, 3005 wrong length (more data than promised are delivered
 * nevertheless), 3006 invalid stream, 3007 out of memory, 3003 short write. A read failure counts as the end of the
 * input, and a stream that ends early is noticed by what is missing: 3004, 3005 or 3006.
 */
#ifndef ZQXML_COMPRESS_H
#define ZQXML_COMPRESS_H

#include "zqxml/export.h"
#include "zqxml/messages.h"

ZQXML_BEGIN_DECLS

/**
 * Compresses what stands from the current offset of a file to its end. The header tells the length that the file had
 * at the start; if reading fails earlier the call succeeds and decompression will give 3005.
 *
 * @param level    1 to 9, others mean 6
 * @param inputFd  descriptor to read from; 0 compresses nothing
 * @param outputFd descriptor to write to, which is rewound; 0 gives 3008
 */
ZQXML_API int ZQCompressFileToFile(unsigned level, int inputFd, int outputFd);

/**
 * Decompresses a file from its start on.
 *
 * @param inputFd  descriptor to read from; 0 gives 3008
 * @param outputFd descriptor to write to, from where it stands on; 0 gives 3008
 */
ZQXML_API int ZQDecompressFileToFile(int inputFd, int outputFd);

/**
 * Compresses bytes into a heap block. No NUL stands behind it.
 *
 * @param level        1 to 9, others mean 6
 * @param input        the bytes; null gives 3008 unless `inputLength` is 0
 * @param inputLength  their number
 * @param result       receives the block, which the caller frees; null gives 3008
 * @param resultLength receives its length; null gives 3008
 */
ZQXML_API int ZQCompressMemToMem(unsigned level, const void *input, unsigned inputLength, void **result,
                                 unsigned *resultLength);

/**
 * Decompresses bytes into a heap block. A NUL, which the length doesn't count, stands behind the data. Data of length 0
 * in a container give a block with length 0; an empty input gives a null pointer and 0.
 *
 * @param input        the bytes; null gives 3008
 * @param inputLength  their number
 * @param result       receives the block, which the caller frees; null gives 3008
 * @param resultLength receives its length; null gives 3008
 */
ZQXML_API int ZQDecompressMemToMem(const void *input, unsigned inputLength, void **result, unsigned *resultLength);

/** As ZQCompressFileToFile, into a heap block as ZQCompressMemToMem gives it. */
ZQXML_API int ZQCompressFileToMem(unsigned level, int inputFd, void **result, unsigned *resultLength);

/** As ZQDecompressFileToFile, into a heap block as ZQDecompressMemToMem gives it. */
ZQXML_API int ZQDecompressFileToMem(int inputFd, void **result, unsigned *resultLength);

/** As ZQCompressMemToMem, to a descriptor, which is rewound; 0 gives 3008. */
ZQXML_API int ZQCompressMemToFile(unsigned level, const void *input, unsigned inputLength, int outputFd);

/** As ZQDecompressMemToMem, to a descriptor, from where it stands on; 0 gives 3008. */
ZQXML_API int ZQDecompressMemToFile(const void *input, unsigned inputLength, int outputFd);

ZQXML_END_DECLS

#endif
