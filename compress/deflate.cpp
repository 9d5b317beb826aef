// String matching over a hash-chained window of two halves.
//
// What is searched, in which order, and which match is taken settles every byte of the output, so none of it may change.
// Window position 0 marks an empty entry of the hash, which is why the string that begins there is never matched.

#include <algorithm>
#include <bit>
#include <cstring>

#include "compress/trees.h"
#include "compress/zutil.h"

namespace {

constexpr unsigned kWindowMask = WSIZE - 1;
constexpr unsigned kHashMask = HASH_SIZE - 1;
constexpr unsigned kLastFastLevel = 3;

struct Configuration {
  uint16_t goodLength;  // from this length on the next search is a quarter as long
  uint16_t maxLazy;     // from this length on no better match is sought; fast: longest match whose positions are hashed
  uint16_t niceLength;  // a match of this length ends a search
  uint16_t maxChain;    // strings that a search looks at
};

constexpr Configuration configuration_table[] = {
    {0, 0, 0, 0},          // no such level
    {4, 4, 8, 4},          // fast matching up to here:
    {4, 5, 16, 8},         //
    {4, 6, 32, 32},        // 3
    {4, 4, 16, 16},        // lazy matching from here on
    {8, 16, 32, 32},       //
    {8, 16, 128, 128},     // 6
    {8, 32, 128, 256},     //
    {32, 128, 258, 1024},  //
    {32, 258, 258, 4096},  // 9
};

void updateHash(ZipControlBlock* block, unsigned byte) {
  block->insertHash = ((block->insertHash << H_SHIFT) ^ byte) & kHashMask;
}

void restartHash(ZipControlBlock* block) {
  block->insertHash = 0;
  updateHash(block, block->window[block->stringStart]);
  updateHash(block, block->window[block->stringStart + 1]);
}

// Enters the string at `stringStart` and returns the latest one with the same hash.
unsigned insertString(ZipControlBlock* block) {
  updateHash(block, block->window[block->stringStart + MIN_MATCH - 1]);
  const uint16_t before = block->head[block->insertHash];
  block->prev[block->stringStart & kWindowMask] = before;
  block->head[block->insertHash] = static_cast<uint16_t>(block->stringStart);
  return before;
}

bool isWithinReach(const ZipControlBlock* block, unsigned position) {
  return position != 0 && block->stringStart - position <= MAX_DIST;
}

// Number of equal bytes, at most MAX_MATCH; the first two are known to be equal, and the hash vouches for the third.
unsigned matchLength(const unsigned char* a, const unsigned char* b) {
  for (unsigned length = 2; length < MAX_MATCH; length += sizeof(uint64_t)) {
    uint64_t wordA;
    uint64_t wordB;
    memcpy(&wordA, a + length, sizeof wordA);
    memcpy(&wordB, b + length, sizeof wordB);
    if (const uint64_t difference = wordA ^ wordB; difference != 0) {
      const int zeros = std::endian::native == std::endian::little ? std::countr_zero(difference)
                                                                   : std::countl_zero(difference);
      return length + static_cast<unsigned>(zeros) / 8;
    }
  }
  return MAX_MATCH;
}
static_assert((MAX_MATCH - 2) % sizeof(uint64_t) == 0);

int readSource(ZipControlBlock* block, unsigned char* buffer, unsigned length) {
  return block->inputFd != 0 ? FileRead(block, buffer, length) : MemRead(block, buffer, length);
}

void fillLookahead(ZipControlBlock* block) {
  while (block->lookahead < MIN_LOOKAHEAD && !block->endOfInput) {
    FillWindow(block);
  }
}

void slide(uint16_t* entries, size_t count) {
  std::for_each(entries, entries + count, [](uint16_t& entry) {
    entry = static_cast<uint16_t>(entry >= WSIZE ? entry - WSIZE : 0);
  });
}

unsigned flush(ZipControlBlock* block, bool isLast) {
  const unsigned bytes = FlushBlock(block, nullptr, 0, isLast ? 1 : 0);
  block->blockStart = block->stringStart;
  return bytes;
}

}  // namespace

int LongestMatchInit(ZipControlBlock* block) {
  // What lies behind the data is hashed and compared before a match is cut to the data, so it must not be left to
  // chance.
  memset(block->window, 0, sizeof block->window);
  memset(block->prev, 0, sizeof block->prev);
  memset(block->head, 0, sizeof block->head);
  block->stringStart = 0;
  block->blockStart = 0;
  block->insertHash = 0;
  const int count = readSource(block, block->window, ZIP_WINDOW_SIZE);
  block->endOfInput = count <= 0 ? 1 : 0;
  block->lookahead = count <= 0 ? 0 : static_cast<unsigned>(count);
  fillLookahead(block);
  restartHash(block);
  return 0;
}

unsigned LongestMatch(ZipControlBlock* block, unsigned currentMatch) {
  const Configuration& configuration = configuration_table[block->level];
  const unsigned char* string = block->window + block->stringStart;
  const unsigned limit = block->stringStart > MAX_DIST ? block->stringStart - MAX_DIST : 0;
  unsigned chain = configuration.maxChain;
  if (block->previousLength >= configuration.goodLength) {
    chain /= 4;
  }
  unsigned best = block->previousLength;
  do {
    const unsigned char* candidate = block->window + currentMatch;
    if (candidate[best] == string[best] && candidate[best - 1] == string[best - 1] &&
        candidate[0] == string[0] && candidate[1] == string[1]) {
      const unsigned length = matchLength(string, candidate);
      if (length > best) {
        block->matchStart = currentMatch;
        best = length;
        if (length >= configuration.niceLength) {
          break;
        }
      }
    }
    currentMatch = block->prev[currentMatch & kWindowMask];
  } while (currentMatch > limit && --chain != 0);
  return best;
}

void FillWindow(ZipControlBlock* block) {
  unsigned space = ZIP_WINDOW_SIZE - block->lookahead - block->stringStart;
  if (block->stringStart >= WSIZE + MAX_DIST) {
    memcpy(block->window, block->window + WSIZE, WSIZE);
    // A start in the half that goes wraps around, and so does the distance that is counted from it.
    block->matchStart -= WSIZE;
    block->stringStart -= WSIZE;
    block->blockStart -= WSIZE;
    slide(block->head, HASH_SIZE);
    slide(block->prev, WSIZE);
    space += WSIZE;
  }
  if (block->endOfInput) {
    return;
  }
  const int count =
      readSource(block, block->window + block->stringStart + block->lookahead, space);
  if (count <= 0) {
    block->endOfInput = 1;
  } else {
    block->lookahead += static_cast<unsigned>(count);
  }
}

unsigned DeflateFast(ZipControlBlock* block) {
  const Configuration& configuration = configuration_table[block->level];
  block->previousLength = MIN_MATCH - 1;
  while (block->lookahead != 0) {
    unsigned length = 0;
    if (const unsigned head = insertString(block); isWithinReach(block, head)) {
      length = std::min(LongestMatch(block, head), block->lookahead);
    }
    bool mustFlush;
    if (length >= MIN_MATCH) {
      mustFlush = tallyItem(block, block->stringStart - block->matchStart, length - MIN_MATCH);
      block->lookahead -= length;
      if (length <= configuration.maxLazy) {
        for (unsigned i = 1; i < length; ++i) {
          ++block->stringStart;
          insertString(block);
        }
        ++block->stringStart;
      } else {
        block->stringStart += length;
        restartHash(block);
      }
    } else {
      mustFlush = tallyItem(block, 0, block->window[block->stringStart]);
      --block->lookahead;
      ++block->stringStart;
    }
    if (mustFlush) {
      flush(block, false);
    }
    fillLookahead(block);
  }
  return flush(block, true);
}

unsigned Deflate(ZipControlBlock* block) {
  if (block->level <= kLastFastLevel) {
    return DeflateFast(block);
  }
  const Configuration& configuration = configuration_table[block->level];
  unsigned length = MIN_MATCH - 1;
  bool literalIsPending = false;
  while (block->lookahead != 0) {
    const unsigned head = insertString(block);
    block->previousLength = length;
    const unsigned previousMatch = block->matchStart;
    length = MIN_MATCH - 1;
    if (block->previousLength < configuration.maxLazy && isWithinReach(block, head)) {
      length = std::min(LongestMatch(block, head), block->lookahead);
      if (length == MIN_MATCH && block->stringStart - block->matchStart > TOO_FAR) {
        length = MIN_MATCH - 1;
      }
    }
    if (block->previousLength >= MIN_MATCH && length <= block->previousLength) {
      // The match of the step before begins one byte back.
      const bool mustFlush = tallyItem(block, block->stringStart - 1 - previousMatch,
                                       block->previousLength - MIN_MATCH);
      block->lookahead -= block->previousLength - 1;
      for (unsigned i = 2; i < block->previousLength; ++i) {
        ++block->stringStart;
        insertString(block);
      }
      literalIsPending = false;
      length = MIN_MATCH - 1;
      ++block->stringStart;
      if (mustFlush) {
        flush(block, false);
      }
    } else {
      if (literalIsPending && tallyItem(block, 0, block->window[block->stringStart - 1])) {
        flush(block, false);
      }
      literalIsPending = true;
      ++block->stringStart;
      --block->lookahead;
    }
    fillLookahead(block);
  }
  if (literalIsPending) {
    tallyItem(block, 0, block->window[block->stringStart - 1]);
  }
  return flush(block, true);
}
