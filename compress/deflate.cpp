// String matching over a hash-chained window of two halves.
//
// What is searched, in which order, and which match is taken settles every byte of the output, so
// none of it may change. Window position 0 marks an empty entry of the hash, which is why the
// string that begins there is never matched.
//
// The search of lazy matching finds sooner what the plain one, LongestMatch, would find. Whatever
// beats a match of three bytes has four in common with the string, so it stands in the chain of
// strings with the same four bytes, which is much shorter. How far the plain search would have come
// is told by the places of both strings in the chain of three bytes, which are counted when a
// string is entered.

#include <algorithm>
#include <bit>
#include <cstring>

#include "compress/trees.h"
#include "compress/zutil.h"

namespace {

constexpr unsigned kWindowMask = WSIZE - 1;
constexpr unsigned kHashMask = HASH_SIZE - 1;
constexpr unsigned kLastFastLevel = 3;
// Below it a search is too short for the second hash to pay.
constexpr unsigned kFirstLevelWithLongHash = 5;

struct Configuration {
  uint16_t goodLength;  // from this length on the next search is a quarter as long
  uint16_t
      maxLazy;  // from this length on no better match is sought; fast: longest match that is hashed
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

bool hasLongHash(const ZipControlBlock* block) {
  return block->level >= kFirstLevelWithLongHash;
}

uint32_t load32(const unsigned char* bytes) {
  uint32_t word;
  memcpy(&word, bytes, sizeof word);
  return word;
}

uint16_t load16(const unsigned char* bytes) {
  uint16_t word;
  memcpy(&word, bytes, sizeof word);
  return word;
}

// Of four bytes that were loaded, the first three.
constexpr uint32_t kThreeBytes =
    std::endian::native == std::endian::little ? 0x00FFFFFF : 0xFFFFFF00;

// Number of equal bytes from the first one on, at most MAX_MATCH; the first two are known to be
// equal.
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

// What a chain leads to must lie above this.
unsigned searchLimit(unsigned stringStart) {
  return stringStart > MAX_DIST ? stringStart - MAX_DIST : 0;
}

unsigned chainLength(const ZipControlBlock* block) {
  const Configuration& configuration = configuration_table[block->level];
  const bool isGood = block->previousLength >= configuration.goodLength;
  return configuration.maxChain / (isGood ? 4 : 1);
}

// The plain search.
unsigned searchChain(ZipControlBlock* block, unsigned stringStart, unsigned candidate) {
  const unsigned niceLength = configuration_table[block->level].niceLength;
  const unsigned char* const window = block->window;
  const uint16_t* const prev = block->prev;
  const unsigned char* const string = window + stringStart;
  const unsigned limit = searchLimit(stringStart);
  const uint32_t firstBytes = load32(string);
  unsigned chain = chainLength(block);
  unsigned best = block->previousLength;
  uint32_t lastBytes = load16(string + best - 1);
  unsigned match = 0;
  do {
    // What is longer than the best so far has its last two bytes in common with the string, too.
    const unsigned char* other = window + candidate;
    if (load16(other + best - 1) == lastBytes &&
        ((load32(other) ^ firstBytes) & kThreeBytes) == 0) {
      const unsigned length = matchLength(string, other);
      if (length > best) {
        match = candidate;
        best = length;
        if (length >= niceLength) {
          break;
        }
        lastBytes = load16(string + best - 1);
      }
    }
    candidate = prev[candidate & kWindowMask];
  } while (candidate > limit && --chain != 0);
  if (best > block->previousLength) {
    block->matchStart = match;
  }
  return best;
}

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

uint32_t longHashOf(const unsigned char* bytes) {
  constexpr uint32_t kFactor = 0x9E3779B1;  // 2^32 divided by the golden ratio
  return (load32(bytes) * kFactor) >> (32 - ZIP_LONG_HASH_BITS);
}

// Heads of the chains of three and of four bytes.
struct Heads {
  unsigned head;
  unsigned longHead;
};

// The part of the state that each step of the matching changes. The block has it back for whatever
// else is called.
class Matching {
 public:
  explicit Matching(ZipControlBlock* controlBlock)
      : block(controlBlock), configuration(configuration_table[controlBlock->level]) {
    takeOver();
  }

  bool hasInput() const { return lookahead != 0; }
  unsigned stringStart() const { return start; }
  unsigned char byteBefore() const { return block->window[start - 1]; }
  unsigned char byte() const { return block->window[start]; }

  // Enters the string into the chain of three bytes, and returns the one before it.
  unsigned insert() {
    hash = ((hash << H_SHIFT) ^ block->window[start + MIN_MATCH - 1]) & kHashMask;
    const uint16_t before = block->head[hash];
    block->prev[start & kWindowMask] = before;
    block->head[hash] = static_cast<uint16_t>(start);
    return before;
  }

  // Enters the string into both chains; without the longer hash into the first one alone.
  template <bool HasLongHash>
  Heads insertLazy() {
    if constexpr (!HasLongHash) {
      return {insert(), 0};
    }
    const unsigned place = start & kWindowMask;
    const uint32_t longHash = longHashOf(block->window + start);
    const unsigned before = insert();
    const uint16_t longBefore = block->longHead[longHash];
    block->longPrev[place] = longBefore;
    block->longHead[longHash] = static_cast<uint16_t>(start);
    block->chainPlace[place] = block->chainCount[hash]++;
    return {before, longBefore};
  }

  bool isWithinReach(unsigned position) const {
    return position != 0 && start - position <= MAX_DIST;
  }

  void advance() {
    ++start;
    --lookahead;
  }

  // Goes over bytes without entering their strings.
  void jump(unsigned length) {
    start += length;
    lookahead -= length;
    hash = 0;
    updateHash(block->window[start]);
    updateHash(block->window[start + 1]);
  }

  unsigned search(unsigned head) { return std::min(searchChain(block, start, head), lookahead); }

  template <bool HasLongHash>
  unsigned lazySearch(Heads heads) {
    unsigned length = MIN_MATCH - 1;
    if constexpr (HasLongHash) {
      length = std::min(longestLazyMatch(heads), lookahead);
    } else if (isWithinReach(heads.head)) {
      length = search(heads.head);
    }
    // Three literals are cheaper than a match of three bytes that is far away.
    const bool isTooFar = length == MIN_MATCH && start - block->matchStart > TOO_FAR;
    return isTooFar ? MIN_MATCH - 1 : length;
  }

  // Ends a step: records an item, which may end the block. `begun` is where the step's string
  // began.
  bool tally(unsigned distance, unsigned literalOrLength) {
    return tallyItem(block, start, distance, literalOrLength);
  }

  void flush() {
    giveBack();
    FlushBlock(block, nullptr, 0, 0);
    block->blockStart = start;
  }

  unsigned finish() {
    giveBack();
    return FlushBlock(block, nullptr, 0, 1);
  }

  void refill() {
    if (lookahead < MIN_LOOKAHEAD && !block->endOfInput) {
      giveBack();
      fillLookahead(block);
      takeOver();
    }
  }

 private:
  void takeOver() {
    start = block->stringStart;
    lookahead = block->lookahead;
    hash = block->insertHash;
  }

  void giveBack() const {
    block->stringStart = start;
    block->lookahead = lookahead;
    block->insertHash = hash;
  }

  void updateHash(unsigned byteIn) { hash = ((hash << H_SHIFT) ^ byteIn) & kHashMask; }

  unsigned longestLazyMatch(Heads heads);
  unsigned searchLongChains(unsigned head, unsigned next, unsigned limit);
  unsigned sparserChain(unsigned next, unsigned shift) const;
  unsigned nearMatchOfThree(unsigned head, unsigned limit);

  // What a search may return lies above this: the head of the chain may be MAX_DIST away, all
  // others less.
  unsigned lowestMatch(unsigned head) const {
    const unsigned limit = searchLimit(start);
    return limit != 0 && head == limit ? limit - 1 : limit;
  }

  ZipControlBlock* const block;
  const Configuration& configuration;
  unsigned start;
  unsigned lookahead;
  unsigned hash;
};

// What searchChain would find, but for a match of three bytes that is too far away to be taken.
inline unsigned Matching::longestLazyMatch(Heads heads) {
  const unsigned previousLength = block->previousLength;
  const unsigned limit = lowestMatch(heads.head);
  unsigned candidate = heads.longHead;
  if (previousLength < MIN_MATCH) {
    // Most strings end here: there is nothing with the same four bytes.
    const uint32_t firstBytes = load32(block->window + start);
    for (unsigned left = configuration.maxChain;
         left > 0 && candidate > limit && load32(block->window + candidate) != firstBytes; --left) {
      candidate = block->longPrev[candidate & kWindowMask];
    }
    if (candidate <= limit) {
      return nearMatchOfThree(heads.head, limit);
    }
  }
  return searchLongChains(heads.head, candidate, limit);
}

// Looks for what beats the match of the step before and three bytes.
unsigned Matching::searchLongChains(unsigned head, unsigned next, unsigned limit) {
  const unsigned previousLength = block->previousLength;
  const unsigned chain = chainLength(block);
  const unsigned char* const window = block->window;
  const uint16_t* const longPrev = block->longPrev;
  const uint16_t* const chainPlace = block->chainPlace;
  const unsigned char* const string = window + start;
  const uint16_t place = chainPlace[start & kWindowMask];
  const uint32_t firstBytes = load32(string);
  unsigned stepsLeft = chain;
  unsigned best = std::max<unsigned>(previousLength, MIN_MATCH);
  bool goesOn = true;
  while (goesOn && next > limit && best < configuration.niceLength) {
    goesOn = false;
    // The last four of the bytes that a better match has.
    const unsigned shift = best - MIN_MATCH;
    const uint32_t lastBytes = load32(string + shift);
    unsigned position = next;
    unsigned positionShift = 0;
    if (const unsigned behind = sparserChain(next, shift); behind != 0) {
      position = behind;
      positionShift = shift;
    }
    for (; position > limit + positionShift; position = longPrev[position & kWindowMask]) {
      const unsigned candidate = position - positionShift;
      const unsigned char* const other = window + candidate;
      if (load32(other + shift) == lastBytes && load32(other) == firstBytes) {
        if (static_cast<uint16_t>(place - chainPlace[candidate & kWindowMask]) > chain) {
          break;
        }
        if (const unsigned found = matchLength(string, other); found > best) {
          block->matchStart = candidate;
          best = found;
          next = longPrev[candidate & kWindowMask];
          goesOn = true;
          break;
        }
      }
      if (--stepsLeft == 0) {
        // The chains may be full of strings that have nothing but the hash in common with this one.
        return isWithinReach(head) ? searchChain(block, start, head) : previousLength;
      }
    }
  }
  if (best > MIN_MATCH || previousLength == MIN_MATCH) {
    return best;
  }
  return nearMatchOfThree(head, limit);
}

// Candidates can also be found by the strings that begin `shift` bytes behind them, as long as
// those have been entered. Returns the first such string if that chain leads further away than the
// candidate `next` of the string's own chain, so that it is probably the shorter one; otherwise 0.
unsigned Matching::sparserChain(unsigned next, unsigned shift) const {
  constexpr int kMaxSkipped = 16;
  if (shift == 0 || next + shift > start) {
    return 0;
  }
  unsigned position = block->longHead[longHashOf(block->window + start + shift)];
  for (int skipped = 0; position > next + shift && skipped < kMaxSkipped; ++skipped) {
    position = block->longPrev[position & kWindowMask];
  }
  return position < next + shift ? std::max(position, 1u) : 0;
}

// Looks for the nearest match of three bytes, as far as it would be taken.
inline unsigned Matching::nearMatchOfThree(unsigned head, unsigned limit) {
  const unsigned nearLimit = std::max(limit, start > TOO_FAR ? start - TOO_FAR - 1 : 0);
  const uint32_t firstBytes = load32(block->window + start);
  unsigned left = configuration.maxChain;
  for (unsigned candidate = head; candidate > nearLimit && left > 0; --left) {
    if (((load32(block->window + candidate) ^ firstBytes) & kThreeBytes) == 0) {
      block->matchStart = candidate;
      return MIN_MATCH;
    }
    candidate = block->prev[candidate & kWindowMask];
  }
  return MIN_MATCH - 1;
}

}  // namespace

int LongestMatchInit(ZipControlBlock* block) {
  // What lies behind the data is hashed and compared before a match is cut to the data, so it must
  // not be left to chance.
  memset(block->window, 0, sizeof block->window);
  memset(block->prev, 0, sizeof block->prev);
  memset(block->head, 0, sizeof block->head);
  if (hasLongHash(block)) {
    memset(block->longHead, 0, sizeof block->longHead);
    memset(block->chainCount, 0, sizeof block->chainCount);
  }
  block->stringStart = 0;
  block->blockStart = 0;
  const int count = readSource(block, block->window, ZIP_WINDOW_SIZE);
  block->endOfInput = count <= 0 ? 1 : 0;
  block->lookahead = count <= 0 ? 0 : static_cast<unsigned>(count);
  fillLookahead(block);
  block->insertHash = ((unsigned{block->window[0]} << H_SHIFT) ^ block->window[1]) & kHashMask;
  return 0;
}

unsigned LongestMatch(ZipControlBlock* block, unsigned currentMatch) {
  return searchChain(block, block->stringStart, currentMatch);
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
    if (hasLongHash(block)) {
      slide(block->longHead, size_t{1} << ZIP_LONG_HASH_BITS);
      slide(block->longPrev, WSIZE);
    }
    space += WSIZE;
  }
  if (block->endOfInput) {
    return;
  }
  const int count = readSource(block, block->window + block->stringStart + block->lookahead, space);
  if (count <= 0) {
    block->endOfInput = 1;
  } else {
    block->lookahead += static_cast<unsigned>(count);
  }
}

unsigned DeflateFast(ZipControlBlock* block) {
  const unsigned maxHashed = configuration_table[block->level].maxLazy;
  block->previousLength = MIN_MATCH - 1;
  Matching matching(block);
  while (matching.hasInput()) {
    unsigned length = 0;
    if (const unsigned head = matching.insert(); matching.isWithinReach(head)) {
      length = matching.search(head);
    }
    bool mustFlush;
    if (length >= MIN_MATCH) {
      mustFlush = matching.tally(matching.stringStart() - block->matchStart, length - MIN_MATCH);
      if (length > maxHashed) {
        matching.jump(length);
      } else {
        matching.advance();
        for (unsigned i = 1; i < length; ++i) {
          matching.insert();
          matching.advance();
        }
      }
    } else {
      mustFlush = matching.tally(0, matching.byte());
      matching.advance();
    }
    if (mustFlush) {
      matching.flush();
    }
    matching.refill();
  }
  return matching.finish();
}

template <bool HasLongHash>
unsigned deflateLazy(ZipControlBlock* block) {
  const unsigned maxLazy = configuration_table[block->level].maxLazy;
  Matching matching(block);
  unsigned length = MIN_MATCH - 1;
  bool literalIsPending = false;
  while (matching.hasInput()) {
    const Heads heads = matching.insertLazy<HasLongHash>();
    const unsigned previousLength = length;
    const unsigned previousMatch = block->matchStart;
    block->previousLength = previousLength;
    length = MIN_MATCH - 1;
    if (previousLength < maxLazy) {
      length = matching.lazySearch<HasLongHash>(heads);
    }
    bool mustFlush = false;
    if (previousLength >= MIN_MATCH && length <= previousLength) {
      // The match of the step before begins one byte back.
      mustFlush =
          matching.tally(matching.stringStart() - 1 - previousMatch, previousLength - MIN_MATCH);
      matching.advance();
      for (unsigned i = 2; i < previousLength; ++i) {
        matching.insertLazy<HasLongHash>();
        matching.advance();
      }
      literalIsPending = false;
      length = MIN_MATCH - 1;
      if (mustFlush) {
        matching.flush();
      }
    } else {
      if (literalIsPending && matching.tally(0, matching.byteBefore())) {
        matching.flush();
      }
      literalIsPending = true;
      matching.advance();
    }
    matching.refill();
  }
  if (literalIsPending) {
    matching.tally(0, matching.byteBefore());
  }
  return matching.finish();
}

unsigned Deflate(ZipControlBlock* block) {
  if (block->level <= kLastFastLevel) {
    return DeflateFast(block);
  }
  return hasLongHash(block) ? deflateLazy<true>(block) : deflateLazy<false>(block);
}
