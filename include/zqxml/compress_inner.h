/**
 * @file
 * What the calls of zqxml/compress.h are made of: the control block, its constants, and the operations on it. Programs
 * need zqxml/compress.h alone; zqxml/zqxml.h leaves this header out, because many of its names are common words.
 *
 * All operations work on a ZipControlBlock and are re-entrant. Unless told otherwise a null block or buffer is not
 * allowed, and nothing is tested that ZQProcessInput sees to.
 */
#ifndef ZQXML_COMPRESS_INNER_H
#define ZQXML_COMPRESS_INNER_H

#include <stdint.h>

#include "zqxml/export.h"

ZQXML_BEGIN_DECLS

/** Sizes and limits. */
enum {
  WSIZE = 32768,                               /**< half the window, and the largest distance of the format */
  ZIP_WINDOW_SIZE = 2 * WSIZE,                 /**< the window of compression */
  MIN_MATCH = 3,                               /**< shortest match */
  MAX_MATCH = 258,                             /**< longest match */
  MIN_LOOKAHEAD = MAX_MATCH + MIN_MATCH + 1,   /**< lookahead that is kept while input remains */
  MAX_DIST = WSIZE - MIN_LOOKAHEAD,            /**< greatest distance searched */
  HASH_BITS = 15,                              /**< width of the hash of three bytes */
  H_SHIFT = 5,                                 /**< h = ((h << H_SHIFT) ^ byte) cut to HASH_BITS */
  HASH_SIZE = 1 << HASH_BITS,                  /**< number of hash heads */
  TOO_FAR = 4096,                              /**< lazy matching drops a match of 3 beyond this distance */
  LIT_BUFSIZE = 32768,                         /**< items of a block */
  DIST_BUFSIZE = 32768,                        /**< matches of a block */
  L_CODES = 286,                               /**< literal and length symbols */
  D_CODES = 30,                                /**< distance symbols */
  BL_CODES = 19,                               /**< symbols for code lengths */
  HEAP_SIZE = 2 * L_CODES + 1,                 /**< nodes of the largest tree */
  MAX_BITS = 15,                               /**< longest code of literals and distances */
  MAX_BL_BITS = 7,                             /**< longest code of code lengths */
  END_BLOCK = 256,                             /**< symbol that ends a block */
  LENGTH_CODES = 29,                           /**< symbols behind END_BLOCK */
  STATIC_L_CODES = L_CODES + 2,                /**< literal and length symbols of the fixed code */
  ZIP_INPUT_UNIT = 32768,                      /**< bytes asked of a source at a time */
  ZIP_OUTPUT_UNIT = 16384,                     /**< bytes of compressed output in one write */
  ZIP_LONG_HASH_BITS = 16,                     /**< width of the hash of four bytes */
  ZIP_FAST_LITERAL_BITS = 12,                  /**< most index bits of inflate's fast loop for literals and lengths */
  ZIP_FAST_DISTANCE_BITS = 8                   /**< and its index bits for distances */
};

/** What a control block is doing. */
enum { ZIP_COMPRESS = 1, ZIP_DECOMPRESS = 2, ZIP_COPY = 3 };

/** A symbol of a Huffman tree, or an inner node of it while the tree is being built. */
typedef struct ZipCode {
  union {
    uint16_t frequency; /**< how often it occurs */
    uint16_t code;      /**< later its bits, in the order in which they are sent */
  };
  union {
    uint16_t parent; /**< the node above */
    uint16_t length; /**< later the number of bits, 0 for a symbol that doesn't occur */
  };
} ZipCode;

/** What tells the three trees apart. */
typedef struct ZipTreeDescriptor {
  ZipCode *dynamicTree; /**< the tree of the block in hand */
  const ZipCode *staticTree; /**< null if there is none */
  const int *extraBits;      /**< number of extra bits, from symbol `extraBase` on */
  int extraBase;             /**< first symbol with extra bits */
  int elements;              /**< number of symbols */
  int maxLength;             /**< longest code allowed */
  int maxCode;               /**< greatest symbol in use */
} ZipTreeDescriptor;

/** The state of one call. */
typedef struct ZipControlBlock {
  unsigned char inputBuffer[ZIP_INPUT_UNIT + 64];      /**< input; while compressing the block's literals and lengths */
  unsigned char outputBuffer[ZIP_OUTPUT_UNIT + 2048];  /**< compressed output that waits */
  uint16_t distanceBuffer[DIST_BUFSIZE];               /**< distances of the block in hand, less 1 */
  unsigned char window[ZIP_WINDOW_SIZE + MIN_LOOKAHEAD]; /**< sliding window, and bytes that a search may look at */
  uint16_t prev[WSIZE];                                /**< for a position the one before it with the same hash */
  uint16_t head[HASH_SIZE];                            /**< for a hash its latest position, 0 for none */
  unsigned status;                                     /**< the latest failure number */
  unsigned level;                                      /**< 1 to 9 */
  unsigned bytesIn;                                    /**< bytes taken from the source, modulo 2^32 */
  unsigned bytesOut;                                   /**< bytes given to the destination, modulo 2^32 */
  int inputFd;                                         /**< source; 0 for memory */
  int outputFd;                                        /**< destination; 0 for memory */
  const unsigned char *inputMemory;                    /**< source bytes, not owned */
  unsigned inputLength;                                /**< their number */
  unsigned originalLength;                             /**< length told by the header */
  unsigned char *outputMemory;                         /**< result */
  unsigned outputCapacity;                             /**< its size, without room for a NUL */
  unsigned inputFill;                                  /**< valid bytes of `inputBuffer` */
  unsigned inputPosition;                              /**< next byte to take from there */
  unsigned outputCount;                                /**< bytes that wait in `outputBuffer`, or in `window` */
  unsigned crc;                                        /**< CRC-32 of the data so far */
  unsigned crcRegister;                                /**< its register, not inverted */

  uint32_t bitBuffer;         /**< up to 16 bits that wait for output */
  int bitValid;               /**< their number */
  unsigned stringStart;       /**< position in `window` of the string in hand */
  int64_t blockStart;         /**< position at which the block began; negative once it has slid out */
  unsigned lookahead;         /**< valid bytes from `stringStart` on */
  int endOfInput;             /**< whether the source is exhausted */
  unsigned insertHash;        /**< running hash */
  unsigned bitCount;          /**< inflate: number of bits in `bitAccumulator` */
  unsigned bitAccumulator;    /**< inflate: bits read and not used, low bit first */
  unsigned huftCount;         /**< inflate: table entries allocated for the block in hand */
  unsigned previousLength;    /**< best match of the step before, and the length to beat */
  unsigned matchStart;        /**< start of the best match found */
  ZipCode dynamicLiteralTree[HEAP_SIZE]; /**< literals and lengths of the block in hand */
  ZipCode dynamicDistanceTree[2 * D_CODES + 1]; /**< distances of the block in hand */
  ZipCode staticLiteralTree[STATIC_L_CODES]; /**< the fixed codes of literals and lengths */
  ZipCode staticDistanceTree[D_CODES]; /**< the fixed codes of distances */
  ZipCode bitLengthTree[2 * BL_CODES + 1]; /**< the lengths of the codes of the block in hand */
  uint16_t bitLengthCount[MAX_BITS + 1]; /**< codes of each length */
  ZipTreeDescriptor literalDescriptor; /**< of the literals and lengths */
  ZipTreeDescriptor distanceDescriptor; /**< of the distances */
  ZipTreeDescriptor bitLengthDescriptor; /**< of the lengths of codes */
  int heap[HEAP_SIZE]; /**< tree nodes; the smallest is heap[1] */
  int heapLength; /**< nodes in `heap` */
  int heapMax;                         /**< from here on `heap` holds the nodes taken off, largest first */
  unsigned char depth[HEAP_SIZE];      /**< height of each node, which settles ties */
  unsigned char lengthCode[256];       /**< match length less 3 to length symbol less 257 */
  unsigned char distanceCode[512];     /**< distance less 1 to symbol: below 256, and in units of 128 */
  int baseLength[LENGTH_CODES];        /**< least length, less 3, of each length symbol */
  int baseDistance[D_CODES];           /**< least distance, less 1, of each distance symbol */
  unsigned char flagBuffer[LIT_BUFSIZE / 8]; /**< a bit per item: 1 a match, 0 a literal */
  unsigned lastLiteral;                /**< items of the block so far */
  unsigned lastDistance;               /**< matches among them */
  unsigned lastFlags;                  /**< whole bytes of `flagBuffer` */
  unsigned char flags;                 /**< the flag byte in hand */
  unsigned char flagBit;               /**< its next bit */
  unsigned optimalLength;              /**< bits of the block with dynamic trees */
  unsigned staticLength;               /**< bits of the block with static trees */
  unsigned compressedLength;           /**< bits written so far, modulo 2^32 */

  unsigned mode; /**< ZIP_COMPRESS, ZIP_DECOMPRESS or ZIP_COPY */

  uint64_t sourceLength; /**< length of the compressed data, which limits what is allocated ahead */
  uint64_t outputHeld;   /**< bytes that the result in memory really holds */
  int outputLost;        /**< whether it could not be grown: then nothing more is copied to it */
  uint16_t longHead[1 << ZIP_LONG_HASH_BITS]; /**< as `head`, for the hash of four bytes */
  uint16_t longPrev[WSIZE];                   /**< as `prev`, for the hash of four bytes */
  uint16_t chainCount[HASH_SIZE]; /**< for a hash of three bytes how many strings had it, modulo 2^16 */
  uint16_t chainPlace[WSIZE];     /**< for a position that number before it was entered */
  unsigned windowStart;  /**< inflate: the half of `window` that is being filled, 0 or WSIZE */
  unsigned madeUpBytes;  /**< inflate: bytes read behind the end of the input */
  unsigned fastLiteralBits; /**< inflate: index bits of `fastLiterals` */
  uint32_t fastLiterals[1 << ZIP_FAST_LITERAL_BITS];   /**< inflate: literals and lengths of the fast loop */
  uint32_t fastDistances[1 << ZIP_FAST_DISTANCE_BITS]; /**< inflate: distances of the fast loop */
  unsigned outputRoom; /**< what the result in memory can grow to without a new block; 0 until it has grown */
} ZipControlBlock;

/** A table entry of inflate. */
typedef struct huft {
  unsigned char extra; /**< 0 to 14 extra bits; 15 end of block; 16 literal; 16 + n link to n bits; 99 invalid */
  unsigned char bits;  /**< bits of this code, or of this level of it */
  union {
    uint16_t base;     /**< literal, or base of length or distance */
    struct huft *next; /**< table that is linked to */
  } v; /**< what the code means */
} huft;

/* The container. */

/**
 * Does a whole call of zqxml/compress.h.
 *
 * @param mode         ZIP_COMPRESS, ZIP_DECOMPRESS; anything else copies
 * @param level        1 to 9, others mean 6
 * @param inputFd      descriptor, or 0 for memory
 * @param outputFd     descriptor, or 0 for memory
 * @param input        source bytes
 * @param inputLength  their number
 * @param result       receives the heap block for a destination in memory
 * @param resultLength receives its length
 * @return 0 or the failure number
 */
ZQXML_API int ZQProcessInput(int mode, unsigned level, int inputFd, int outputFd, const void *input,
                             unsigned inputLength, void **result, unsigned *resultLength);

/** Gives the members their start values; the large buffers are left alone. @return 0 */
ZQXML_API int InitZipControlBlock(ZipControlBlock *block);

/** Writes header, stream and trailer. @param block the control block @param inputLength goes into the header, modulo 2^32. @return the status */
ZQXML_API int ZQZip(ZipControlBlock *block, uint64_t inputLength);

/** Decompresses what stands behind the header, and tests the trailer. @return the status */
ZQXML_API int ZQUnzip(ZipControlBlock *block);

/**
 * Copies the source as it stands.
 *
 * @return 0, 3001 for a read failure, or the failure of WriteBuf. Deliberate: 3001 is the result alone and not the status
 *         of the block, so callers of the eight calls never see it.
 */
ZQXML_API int ZQCopy(ZipControlBlock *block);

/** Reads the header of a source of `inputLength` bytes into the block, or sets the mode to ZIP_COPY if there is none. */
ZQXML_API void VerifyCompressedDataHeader(ZipControlBlock *block, uint64_t inputLength);

/** Reads up to `length` bytes of the source descriptor, counts them and adds them to the CRC. @return their number, -1 for
 *  a failure */
ZQXML_API int FileRead(ZipControlBlock *block, unsigned char *buffer, unsigned length);

/** As FileRead, from memory. */
ZQXML_API int MemRead(ZipControlBlock *block, unsigned char *buffer, unsigned length);

/**
 * Refills `inputBuffer` from the source.
 *
 * @param block             the control block
 * @param endOfInputAllowed whether the end of the input is told
 * @return the first byte; at the end of the input -1, or if that isn't allowed 3001 if `errno` is set and 3002 if not.
 *         Callers take the low eight bits of these numbers as if they were data.
 */
ZQXML_API int FillInbuf(ZipControlBlock *block, int endOfInputAllowed);

/** Writes out what waits in `outputBuffer`, and goes on after a failure. */
ZQXML_API void FlushOutbuf(ZipControlBlock *block);

/** Adds what waits in `window` to the CRC and writes it out, and goes on after a failure. */
ZQXML_API void FlushWindow(ZipControlBlock *block);

/**
 * Writes to the destination, in memory behind the first `bytesOut` bytes; the caller counts `bytesOut`. A result in memory
 * that is too small grows to what is needed, and gets a NUL behind that.
 *
 * @return 0; 3003 for a short write; 3007 if the result in memory can't grow. The failure is the block's status, too.
 */
ZQXML_API int WriteBuf(ZipControlBlock *block, const void *buffer, unsigned length);

/** Adds bytes to the CRC-32 of the block; a null buffer starts it anew. @return the CRC so far */
ZQXML_API unsigned UpdateCRC(ZipControlBlock *block, const unsigned char *buffer, unsigned length);

/* Deflate. */

/** Clears the window and the hash and reads the first input. @return 0 */
ZQXML_API int LongestMatchInit(ZipControlBlock *block);

/** Searches the chain that begins at `currentMatch`. @return the best length; `matchStart` tells where if it beats
 *  `previousLength` */
ZQXML_API unsigned LongestMatch(ZipControlBlock *block, unsigned currentMatch);

/** Slides the window when its upper half is used up, and reads more. */
ZQXML_API void FillWindow(ZipControlBlock *block);

/** Compresses the source by lazy matching, by DeflateFast at levels up to 3. @return length of the stream in bytes */
ZQXML_API unsigned Deflate(ZipControlBlock *block);

/** Compresses the source and takes each match as it comes. @return length of the stream in bytes */
ZQXML_API unsigned DeflateFast(ZipControlBlock *block);

/**
 * Records an item of the block.
 *
 * @param block           the control block
 * @param distance        distance of a match, 0 for a literal
 * @param literalOrLength the literal, or the length of the match less 3
 * @return whether the block must end
 */
ZQXML_API int TreeTally(ZipControlBlock *block, unsigned distance, unsigned literalOrLength);

/**
 * Writes the block in hand.
 *
 * @param block        the control block
 * @param buffer       not used: a stored block is never written
 * @param storedLength not used
 * @param isLast       whether it is the last one
 * @return length of the stream so far in bytes
 */
ZQXML_API unsigned FlushBlock(ZipControlBlock *block, const unsigned char *buffer, unsigned storedLength, int isLast);

/** Makes the code tables and starts the first block. */
ZQXML_API void TreeInit(ZipControlBlock *block);

/** Starts a block. */
ZQXML_API void InitBlock(ZipControlBlock *block);

/** Sifts node number `node` of the heap down; of equal frequencies the lower node is the smaller. */
ZQXML_API void PQDownHeap(ZipControlBlock *block, const ZipCode *tree, int node);

/** Gives the leaves of a tree lengths within the limit, and adds up the bits of the block. */
ZQXML_API void GenBitLengths(ZipControlBlock *block, const ZipTreeDescriptor *descriptor);

/** Gives the symbols up to `maxCode` the codes that follow from their lengths (RFC 1951, 3.2.2). */
ZQXML_API void GenCodes(ZipControlBlock *block, ZipCode *tree, int maxCode);

/** Makes a tree from its frequencies: `maxCode`, lengths, codes. */
ZQXML_API void BuildTree(ZipControlBlock *block, ZipTreeDescriptor *descriptor);

/** Counts the symbols that code the lengths of a tree. */
ZQXML_API void ScanTree(ZipControlBlock *block, ZipCode *tree, int maxCode);

/** Sends the lengths of a tree. */
ZQXML_API void SendTree(ZipControlBlock *block, const ZipCode *tree, int maxCode);

/** Makes the tree for the lengths of the other two. @return index of the last length sent, in the order of the format */
ZQXML_API int BuildBitLengthTree(ZipControlBlock *block);

/** Sends the head of a dynamic block: numbers of codes, then all lengths. */
ZQXML_API void SendAllTrees(ZipControlBlock *block, int literalCodes, int distanceCodes, int bitLengthCodes);

/** Sends the items of the block, and END_BLOCK. */
ZQXML_API void CompressBlock(ZipControlBlock *block, const ZipCode *literalTree, const ZipCode *distanceTree);

/** Sends the low `length` (0 to 16) bits of a value, low bit first. */
ZQXML_API void SendBits(ZipControlBlock *block, unsigned value, int length);

/** @return the low `length` bits of a code in reverse order */
ZQXML_API unsigned BitStringReverse(unsigned code, int length);

/** Fills the last byte with zeros and empties the bit buffer. */
ZQXML_API void BitStringWindup(ZipControlBlock *block);

/* Inflate. Results: 0 good, 1 bad stream, 2 unknown kind of block, 3 out of memory. */

/** Decompresses the stream that the source stands at into `window` and on, and leaves the source behind it. */
ZQXML_API int Inflate(ZipControlBlock *block);

/** Decompresses a block. @param block the control block @param isLast receives whether it is the last one */
ZQXML_API int InflateBlock(ZipControlBlock *block, int *isLast);

/** Copies a stored block. */
ZQXML_API int InflateStored(ZipControlBlock *block);

/** Decompresses a block with the fixed codes. */
ZQXML_API int InflateFixed(ZipControlBlock *block);

/** Decompresses a block with codes of its own. */
ZQXML_API int InflateDynamic(ZipControlBlock *block);

/**
 * Decompresses items up to the end of a block.
 *
 * @param block         the control block
 * @param literalTable  table of literals and lengths; null if no code is in use
 * @param distanceTable table of distances; null if no code is in use
 * @param literalBits   index bits of `literalTable`
 * @param distanceBits  index bits of `distanceTable`
 */
ZQXML_API int InflateCodes(ZipControlBlock *block, const huft *literalTable, const huft *distanceTable,
                           unsigned literalBits, unsigned distanceBits);

/**
 * Makes the lookup tables of a code.
 *
 * @param block       the control block
 * @param lengths     code length of each symbol, at most 16; 0 for one that isn't in use
 * @param count       number of symbols, at most 288
 * @param simpleCount symbols below this are literals or, from 256 on, the end of the block
 * @param bases       base of each symbol from `simpleCount` on
 * @param extras      its number of extra bits, or 99 if it is invalid
 * @param table       receives the table, for HuftFree; null if no symbol is in use, and with results 2 and 3
 * @param indexBits   in: wanted index bits, 1 to 16; out: those of the table
 * @return 0; 1 for an incomplete code that isn't a single one of one bit: the table is made, all the same; 2 if there are
 *         more codes than fit, more symbols than 288, or a length above 16; 3
 */
ZQXML_API int HuftBuild(ZipControlBlock *block, const unsigned *lengths, unsigned count, unsigned simpleCount,
                        const uint16_t *bases, const uint16_t *extras, huft **table, unsigned *indexBits);

/** Frees a table with all that it links to; null is ignored. @return 0 */
ZQXML_API int HuftFree(huft *table);

ZQXML_END_DECLS

#endif
