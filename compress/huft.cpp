// Lookup tables for Huffman codes.
//
// A code is looked up by the next bits of the input, low bit first, in a table with an entry for
// each value of them; an entry with fewer bits is repeated. Codes with more bits than the table's
// index link to a table for the rest, which may link on. All tables of a code form a chain through
// an entry that stands ahead of each table.

#include <algorithm>
#include <array>
#include <cstdlib>

#include "compress/inflate.h"
#include "zqxml/compress_inner.h"

namespace {

constexpr unsigned kMaxLength = 16;
constexpr unsigned kMaxCodes = 288;

using Counts = std::array<unsigned, kMaxLength + 1>;

// Index bits of a table for codes of which `consumed` bits are already used: as few as hold the
// rest of this length's codes and the longer ones behind them, but `limit` at most.
unsigned tableBits(const Counts& counts, unsigned length, unsigned codesLeft, unsigned consumed,
                   unsigned limit) {
  unsigned bits = length - consumed;
  if (bits >= limit) {
    return limit;
  }
  unsigned space = 1u << bits;
  if (codesLeft >= space) {
    return bits;
  }
  space -= codesLeft;
  while (++bits < limit) {
    space <<= 1;
    const unsigned codes = counts[++length];
    if (codes >= space) {
      break;
    }
    space -= codes;
  }
  return bits;
}

// One table and its place in the code.
struct Level {
  huft* table = nullptr;
  unsigned bits = 0;      // index bits
  unsigned consumed = 0;  // bits of a code that the tables above have used
  unsigned path = 0;      // their value, low bit first
};

// All tables of a code while they are being made.
class Builder {
 public:
  Builder(ZipControlBlock* controlBlock, unsigned bits) : block(controlBlock), indexBits(bits) {}
  Builder(const Builder&) = delete;
  Builder& operator=(const Builder&) = delete;
  ~Builder() { HuftFree(first); }

  // Opens a table below the present one for codes that begin with the low bits of `code`.
  bool open(const Counts& counts, unsigned length, unsigned codesLeft, unsigned longest,
            unsigned code) {
    Level level;
    if (depth > 0) {
      const Level& above = levels[depth - 1];
      level.consumed = above.consumed + above.bits;
      level.path = code & ((1u << level.consumed) - 1);
      level.bits = tableBits(counts, length, codesLeft, level.consumed,
                             std::min(longest - level.consumed, indexBits));
    } else {
      level.bits = indexBits;
    }
    const size_t entries = (size_t{1} << level.bits) + 1;
    huft* header = static_cast<huft*>(malloc(entries * sizeof(huft)));
    if (header == nullptr) {
      return false;
    }
    block->huftCount += static_cast<unsigned>(entries);
    header->extra = 0;
    header->bits = 0;
    header->v.next = nullptr;
    level.table = header + 1;
    if (last == nullptr) {
      first = level.table;
    } else {
      (last - 1)->v.next = level.table;
    }
    last = level.table;
    if (depth > 0) {
      const Level& above = levels[depth - 1];
      huft& link = above.table[level.path >> above.consumed];
      link.extra = static_cast<unsigned char>(kHuftLiteral + level.bits);
      link.bits = static_cast<unsigned char>(above.bits);
      link.v.next = level.table;
    }
    levels[depth++] = level;
    return true;
  }

  bool reaches(unsigned length) const {
    return depth > 0 && length <= levels[depth - 1].consumed + levels[depth - 1].bits;
  }

  void enter(huft entry, unsigned length, unsigned code) {
    const Level& level = levels[depth - 1];
    entry.bits = static_cast<unsigned char>(length - level.consumed);
    const unsigned size = 1u << level.bits;
    for (unsigned i = code >> level.consumed; i < size; i += 1u << entry.bits) {
      level.table[i] = entry;
    }
  }

  // Goes back to the table that holds the next code.
  void backUp(unsigned code) {
    while (depth > 0 &&
           (code & ((1u << levels[depth - 1].consumed) - 1)) != levels[depth - 1].path) {
      --depth;
    }
  }

  huft* release() {
    huft* tables = first;
    first = nullptr;
    return tables;
  }

 private:
  ZipControlBlock* block;
  unsigned indexBits;
  huft* first = nullptr;
  huft* last = nullptr;
  std::array<Level, kMaxLength> levels;
  unsigned depth = 0;
};

// Counts up a code of `length` bits whose bits are in reverse order.
unsigned nextReversedCode(unsigned code, unsigned length) {
  unsigned bit = 1u << (length - 1);
  for (; (code & bit) != 0; bit >>= 1) {
    code ^= bit;
  }
  return code ^ bit;
}

}  // namespace

int HuftBuild(ZipControlBlock* block, const unsigned* lengths, unsigned count, unsigned simpleCount,
              const uint16_t* bases, const uint16_t* extras, huft** table, unsigned* indexBits) {
  constexpr int kIncomplete = 1;
  constexpr int kBadLengths = 2;
  constexpr int kNoMemory = 3;
  *table = nullptr;
  if (count > kMaxCodes) {
    return kBadLengths;
  }
  Counts counts = {};
  for (unsigned symbol = 0; symbol < count; ++symbol) {
    if (lengths[symbol] > kMaxLength) {
      return kBadLengths;
    }
    ++counts[lengths[symbol]];
  }
  if (counts[0] == count) {
    *indexBits = 0;
    return 0;
  }
  unsigned shortest = 1;
  while (counts[shortest] == 0) {
    ++shortest;
  }
  unsigned longest = kMaxLength;
  while (counts[longest] == 0) {
    --longest;
  }
  *indexBits = std::clamp(*indexBits, shortest, longest);

  int unused = 1 << shortest;
  for (unsigned length = shortest; length <= longest; ++length, unused <<= 1) {
    unused -= static_cast<int>(counts[length]);
    if (unused < 0) {
      return kBadLengths;
    }
    if (length == longest) {
      break;
    }
  }
  counts[longest] += static_cast<unsigned>(unused);

  std::array<unsigned, kMaxLength + 2> offsets = {};
  for (size_t length = 1; length <= kMaxLength; ++length) {
    offsets[length + 1] = offsets[length] + counts[length];
  }
  std::array<uint16_t, kMaxCodes> values;
  unsigned valueCount = 0;
  for (unsigned symbol = 0; symbol < count; ++symbol) {
    if (lengths[symbol] != 0) {
      values[offsets[lengths[symbol]]++] = static_cast<uint16_t>(symbol);
      ++valueCount;
    }
  }

  Builder builder(block, *indexBits);
  unsigned code = 0;
  unsigned next = 0;
  for (unsigned length = shortest; length <= longest; ++length) {
    for (unsigned codesLeft = counts[length]; codesLeft > 0; --codesLeft) {
      while (!builder.reaches(length)) {
        if (!builder.open(counts, length, codesLeft, longest, code)) {
          return kNoMemory;
        }
      }
      huft entry = {};
      if (next >= valueCount) {
        entry.extra = kHuftInvalid;
        entry.v.next = nullptr;
      } else {
        const unsigned value = values[next++];
        if (value < simpleCount) {
          entry.extra = value < END_BLOCK ? kHuftLiteral : kHuftEndOfBlock;
          entry.v.base = static_cast<uint16_t>(value);
        } else {
          entry.extra = static_cast<unsigned char>(extras[value - simpleCount]);
          entry.v.base = bases[value - simpleCount];
        }
      }
      builder.enter(entry, length, code);
      code = nextReversedCode(code, length);
      builder.backUp(code);
    }
  }
  *table = builder.release();
  return unused != 0 && longest != 1 ? kIncomplete : 0;
}

int HuftFree(huft* table) {
  while (table != nullptr) {
    huft* header = table - 1;
    table = header->v.next;
    free(header);
  }
  return 0;
}
