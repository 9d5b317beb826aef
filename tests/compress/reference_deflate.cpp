#include "reference_deflate.h"

#include <algorithm>
#include <array>
#include <utility>

namespace reference {

namespace {

class BitString {
 public:
  explicit BitString(Bytes& target) : bytes(target) {}

  void lowBitFirst(unsigned value, int count) {
    for (int i = 0; i < count; ++i) {
      bit((value >> i) & 1);
    }
  }

  void highBitFirst(unsigned value, int count) {
    for (int i = count - 1; i >= 0; --i) {
      bit((value >> i) & 1);
    }
  }

 private:
  void bit(unsigned value) {
    if (used == 0) {
      bytes.push_back(0);
    }
    bytes.back() = static_cast<unsigned char>(bytes.back() | (value << used));
    used = (used + 1) % 8;
  }

  Bytes& bytes;
  unsigned used = 0;
};

struct Range {
  int first;
  int extraBits;
};

// Lengths from 3 on, and distances from 1 on.
constexpr Range kLengths[] = {
    {3, 0},  {4, 0},  {5, 0},  {6, 0},   {7, 0},   {8, 0},   {9, 0},   {10, 0},  {11, 1}, {13, 1},
    {15, 1}, {17, 1}, {19, 2}, {23, 2},  {27, 2},  {31, 2},  {35, 3},  {43, 3},  {51, 3}, {59, 3},
    {67, 4}, {83, 4}, {99, 4}, {115, 4}, {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}};
constexpr Range kDistances[] = {{1, 0},     {2, 0},     {3, 0},      {4, 0},      {5, 1},
                                {7, 1},     {9, 2},     {13, 2},     {17, 3},     {25, 3},
                                {33, 4},    {49, 4},    {65, 5},     {97, 5},     {129, 6},
                                {193, 6},   {257, 7},   {385, 7},    {513, 8},    {769, 8},
                                {1025, 9},  {1537, 9},  {2049, 10},  {3073, 10},  {4097, 11},
                                {6145, 11}, {8193, 12}, {12289, 12}, {16385, 13}, {24577, 13}};

template <size_t Count>
int rangeOf(const Range (&ranges)[Count], int value) {
  int found = 0;
  for (int i = 0; i < static_cast<int>(Count); ++i) {
    if (ranges[i].first <= value) {
      found = i;
    }
  }
  return found;
}

constexpr int kLiterals = 286;
constexpr int kDistanceCount = 30;
constexpr int kBitLengths = 19;
constexpr int kEnd = 256;

int fixedLength(int symbol) {
  return symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
}

struct Code {
  std::vector<int> lengths;  // for each symbol
  int maxCode = -1;
  long bits = 0;        // of all symbols with their extra bits
  long staticBits = 0;  // the same with the fixed code
};

// The code of a set of frequencies. `extraBits` and `fixedBits` give a symbol's number of bits.
template <typename ExtraBits, typename FixedBits>
Code huffman(std::vector<long> frequency, int limit, ExtraBits extraBits, FixedBits fixedBits) {
  const int symbols = static_cast<int>(frequency.size());
  Code code;
  code.lengths.assign(static_cast<size_t>(symbols), 0);
  std::vector<long> weight(frequency);
  std::vector<int> height(frequency.size(), 0);
  std::vector<int> parent(2 * frequency.size() + 2, -1);

  std::vector<int> heap = {-1};  // from index 1 on
  for (int i = 0; i < symbols; ++i) {
    if (frequency[static_cast<size_t>(i)] > 0) {
      heap.push_back(i);
      code.maxCode = i;
    }
  }
  while (heap.size() < 3) {
    const int forced = code.maxCode < 2 ? code.maxCode + 1 : 0;
    code.maxCode = std::max(code.maxCode, forced);
    weight[static_cast<size_t>(forced)] = 1;
    frequency[static_cast<size_t>(forced)] = 1;
    heap.push_back(forced);
    code.bits -= 1;
    code.staticBits -= fixedBits(forced);
  }

  const auto before = [&](int a, int b) {
    const auto x = static_cast<size_t>(a);
    const auto y = static_cast<size_t>(b);
    return weight[x] < weight[y] || (weight[x] == weight[y] && height[x] <= height[y]);
  };
  const auto siftDown = [&](size_t hole) {
    const int node = heap[hole];
    for (;;) {
      size_t child = 2 * hole;
      if (child >= heap.size()) {
        break;
      }
      if (child + 1 < heap.size() && before(heap[child + 1], heap[child])) {
        ++child;
      }
      if (before(node, heap[child])) {
        break;
      }
      heap[hole] = heap[child];
      hole = child;
    }
    heap[hole] = node;
  };
  for (size_t i = (heap.size() - 1) / 2; i >= 1; --i) {
    siftDown(i);
  }
  std::vector<int> taken;  // smallest first
  int nextNode = symbols;
  while (heap.size() > 2) {
    const int n = heap[1];
    heap[1] = heap.back();
    heap.pop_back();
    siftDown(1);
    const int m = heap[1];
    taken.push_back(n);
    taken.push_back(m);
    weight.push_back(weight[static_cast<size_t>(n)] + weight[static_cast<size_t>(m)]);
    height.push_back(std::max(height[static_cast<size_t>(n)], height[static_cast<size_t>(m)]) + 1);
    parent[static_cast<size_t>(n)] = nextNode;
    parent[static_cast<size_t>(m)] = nextNode;
    heap[1] = nextNode++;
    siftDown(1);
  }
  taken.push_back(heap[1]);

  std::vector<int> depth(parent.size(), 0);
  std::vector<int> count(static_cast<size_t>(limit) + 1, 0);
  std::vector<int> leaves;  // most frequent first
  int overflow = 0;
  for (size_t i = taken.size() - 1; i-- > 0;) {
    const auto node = static_cast<size_t>(taken[i]);
    depth[node] = depth[static_cast<size_t>(parent[node])] + 1;
    if (depth[node] > limit) {
      depth[node] = limit;
      ++overflow;
    }
    if (taken[i] < symbols) {
      ++count[static_cast<size_t>(depth[node])];
      leaves.push_back(taken[i]);
    }
  }
  if (overflow > 0) {
    const auto deepest = static_cast<size_t>(limit);
    for (; overflow > 0; overflow -= 2) {
      size_t length = deepest - 1;
      while (count[length] == 0) {
        --length;
      }
      count[length] -= 1;
      count[length + 1] += 2;
      count[deepest] -= 1;
    }
    size_t leaf = 0;
    for (size_t length = 1; length <= deepest; ++length) {
      for (int i = 0; i < count[length]; ++i) {
        depth[static_cast<size_t>(leaves[leaf++])] = static_cast<int>(length);
      }
    }
  }
  for (const int leaf : leaves) {
    const auto symbol = static_cast<size_t>(leaf);
    code.lengths[symbol] = depth[symbol];
    code.bits += frequency[symbol] * (depth[symbol] + extraBits(leaf));
    code.staticBits += frequency[symbol] * (fixedBits(leaf) + extraBits(leaf));
  }
  return code;
}

// Codes in order of length, then of symbol.
std::vector<unsigned> codesFor(const std::vector<int>& lengths) {
  std::vector<unsigned> codes(lengths.size(), 0);
  unsigned code = 0;
  for (int length = 1; length <= 15; ++length) {
    code <<= 1;
    for (size_t symbol = 0; symbol < lengths.size(); ++symbol) {
      if (lengths[symbol] == length) {
        codes[symbol] = code++;
      }
    }
  }
  return codes;
}

struct LengthSymbol {
  int symbol;
  int extra;
  int extraBits;
};

// The lengths up to `maxCode` in run-length form.
void appendRuns(std::vector<LengthSymbol>& out, const std::vector<int>& lengths, int maxCode) {
  int previous = -1;
  const auto at = [&](int symbol) {
    return symbol > maxCode ? 65535 : lengths[static_cast<size_t>(symbol)];
  };
  int most = at(0) == 0 ? 138 : 7;
  int least = at(0) == 0 ? 3 : 4;
  int run = 0;
  for (int symbol = 0; symbol <= maxCode; ++symbol) {
    const int length = at(symbol);
    const int next = at(symbol + 1);
    ++run;
    if (run < most && next == length) {
      continue;
    }
    if (run < least) {
      for (int i = 0; i < run; ++i) {
        out.push_back({length, 0, 0});
      }
    } else if (length != 0) {
      if (length != previous) {
        out.push_back({length, 0, 0});
        --run;
      }
      out.push_back({16, run - 3, 2});
    } else if (run <= 10) {
      out.push_back({17, run - 3, 3});
    } else {
      out.push_back({18, run - 11, 7});
    }
    run = 0;
    previous = length;
    if (next == 0) {
      most = 138;
      least = 3;
    } else if (next == length) {
      most = 6;
      least = 3;
    } else {
      most = 7;
      least = 4;
    }
  }
}

struct Item {
  int distance;  // 0 for a literal
  int value;     // literal, or length of the match
};

class Compressor {
 public:
  Compressor(const Bytes& input, int compressionLevel)
      : data(input), level(compressionLevel), bits(stream) {}

  Bytes run() {
    readMore(kWindow);
    ended = lookahead == 0;
    while (lookahead < kMinLookahead && !ended) {
      fillWindow();
    }
    if (level <= 3) {
      fast();
    } else {
      lazy();
    }
    return stream;
  }

 private:
  static constexpr int kHalf = 32768;
  static constexpr int kWindow = 65536;
  static constexpr int kMinLookahead = 262;
  static constexpr int kMaxDistance = 32506;

  static constexpr int kGood[] = {0, 4, 4, 4, 4, 8, 8, 8, 32, 32};
  static constexpr int kLazy[] = {0, 4, 5, 6, 4, 16, 16, 32, 128, 258};
  static constexpr int kNice[] = {0, 8, 16, 32, 16, 32, 128, 128, 258, 258};
  static constexpr int kChain[] = {0, 4, 8, 32, 16, 32, 128, 256, 1024, 4096};

  int readMore(int space) {
    const size_t count = std::min(static_cast<size_t>(space), data.size() - consumed);
    std::copy_n(data.begin() + static_cast<std::ptrdiff_t>(consumed), count,
                window.begin() + position + lookahead);
    consumed += count;
    lookahead += static_cast<int>(count);
    return static_cast<int>(count);
  }

  void fillWindow() {
    int space = kWindow - lookahead - position;
    if (position >= kHalf + kMaxDistance) {
      std::copy_n(window.begin() + kHalf, kHalf, window.begin());
      matchStart -= kHalf;
      position -= kHalf;
      blockStart -= kHalf;
      for (int& entry : head) {
        entry = std::max(entry - kHalf, 0);
      }
      for (int& entry : chain) {
        entry = std::max(entry - kHalf, 0);
      }
      space += kHalf;
    }
    if (!ended && readMore(space) == 0) {
      ended = true;
    }
  }

  int byteAt(int place) const { return window[static_cast<size_t>(place)]; }

  int insert() {
    const int hash =
        ((byteAt(position) << 10) ^ (byteAt(position + 1) << 5) ^ byteAt(position + 2)) & 0x7FFF;
    const int before = head[static_cast<size_t>(hash)];
    chain[static_cast<size_t>(position & 0x7FFF)] = before;
    head[static_cast<size_t>(hash)] = position;
    return before;
  }

  int search(int candidate, int toBeat) {
    int steps = kChain[level];
    if (toBeat >= kGood[level]) {
      steps /= 4;
    }
    const int limit = std::max(position - kMaxDistance, 0);
    int best = toBeat;
    do {
      int length = 0;
      while (length < 258 && byteAt(candidate + length) == byteAt(position + length)) {
        ++length;
      }
      if (length > best) {
        matchStart = candidate;
        best = length;
        if (best >= kNice[level]) {
          break;
        }
      }
      candidate = chain[static_cast<size_t>(candidate & 0x7FFF)];
      --steps;
    } while (candidate > limit && steps > 0);
    return best;
  }

  bool reachable(int candidate) const {
    return candidate != 0 && position - candidate <= kMaxDistance;
  }

  bool tally(int distance, int value) {
    items.push_back({distance, value});
    if (distance == 0) {
      ++literalFrequency[static_cast<size_t>(value)];
    } else {
      ++literalFrequency[static_cast<size_t>(257 + rangeOf(kLengths, value))];
      ++distanceFrequency[static_cast<size_t>(rangeOf(kDistances, distance))];
      ++matches;
    }
    if (level > 2 && items.size() % 4096 == 0) {
      long estimate = static_cast<long>(items.size()) * 8;
      for (size_t symbol = 0; symbol < kDistanceCount; ++symbol) {
        estimate += distanceFrequency[symbol] * (5 + kDistances[symbol].extraBits);
      }
      estimate /= 8;
      if (matches < items.size() / 2 && estimate < (position - blockStart) / 2) {
        return true;
      }
    }
    return items.size() == 32767 || matches == 32768;
  }

  void flush(bool last) {
    const auto lengthExtra = [](int symbol) {
      return symbol > kEnd ? kLengths[symbol - 257].extraBits : 0;
    };
    const auto distanceExtra = [](int symbol) { return kDistances[symbol].extraBits; };
    ++literalFrequency[kEnd];
    Code literals = huffman(literalFrequency, 15, lengthExtra, fixedLength);
    Code distances = huffman(distanceFrequency, 15, distanceExtra, [](int) { return 5; });
    std::vector<LengthSymbol> runs;
    appendRuns(runs, literals.lengths, literals.maxCode);
    appendRuns(runs, distances.lengths, distances.maxCode);
    std::vector<long> runFrequency(kBitLengths, 0);
    for (const LengthSymbol& run : runs) {
      ++runFrequency[static_cast<size_t>(run.symbol)];
    }
    const Code bitLengths = huffman(
        runFrequency, 7,
        [](int symbol) {
          return symbol == 16 ? 2 : symbol == 17 ? 3 : symbol == 18 ? 7 : 0;
        },
        [](int) { return 0; });
    constexpr int kOrder[] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    int index = kBitLengths - 1;
    while (index > 3 && bitLengths.lengths[static_cast<size_t>(kOrder[index])] == 0) {
      --index;
    }
    const long dynamicBits =
        literals.bits + distances.bits + bitLengths.bits + 3 * (index + 1) + 14;
    const long staticBits = literals.staticBits + distances.staticBits;
    if ((staticBits + 3 + 7) / 8 <= (dynamicBits + 3 + 7) / 8) {
      bits.lowBitFirst(2 + (last ? 1 : 0), 3);
      literals.lengths.resize(288);
      for (int symbol = 0; symbol < 288; ++symbol) {
        literals.lengths[static_cast<size_t>(symbol)] = fixedLength(symbol);
      }
      distances.lengths.assign(kDistanceCount, 5);
    } else {
      bits.lowBitFirst(4 + (last ? 1 : 0), 3);
      bits.lowBitFirst(static_cast<unsigned>(literals.maxCode + 1 - 257), 5);
      bits.lowBitFirst(static_cast<unsigned>(distances.maxCode + 1 - 1), 5);
      bits.lowBitFirst(static_cast<unsigned>(index + 1 - 4), 4);
      for (int i = 0; i <= index; ++i) {
        bits.lowBitFirst(static_cast<unsigned>(bitLengths.lengths[static_cast<size_t>(kOrder[i])]),
                         3);
      }
      const std::vector<unsigned> codes = codesFor(bitLengths.lengths);
      for (const LengthSymbol& run : runs) {
        const auto symbol = static_cast<size_t>(run.symbol);
        bits.highBitFirst(codes[symbol], bitLengths.lengths[symbol]);
        bits.lowBitFirst(static_cast<unsigned>(run.extra), run.extraBits);
      }
    }
    const std::vector<unsigned> literalCodes = codesFor(literals.lengths);
    const std::vector<unsigned> distanceCodes = codesFor(distances.lengths);
    const auto sendLiteral = [&](int symbol) {
      bits.highBitFirst(literalCodes[static_cast<size_t>(symbol)],
                        literals.lengths[static_cast<size_t>(symbol)]);
    };
    for (const Item& item : items) {
      if (item.distance == 0) {
        sendLiteral(item.value);
        continue;
      }
      const int length = rangeOf(kLengths, item.value);
      sendLiteral(257 + length);
      bits.lowBitFirst(static_cast<unsigned>(item.value - kLengths[length].first),
                       kLengths[length].extraBits);
      const int distance = rangeOf(kDistances, item.distance);
      bits.highBitFirst(distanceCodes[static_cast<size_t>(distance)],
                        distances.lengths[static_cast<size_t>(distance)]);
      bits.lowBitFirst(static_cast<unsigned>(item.distance - kDistances[distance].first),
                       kDistances[distance].extraBits);
    }
    sendLiteral(kEnd);
    items.clear();
    matches = 0;
    std::fill(literalFrequency.begin(), literalFrequency.end(), 0);
    std::fill(distanceFrequency.begin(), distanceFrequency.end(), 0);
    blockStart = position;
  }

  void fast() {
    while (lookahead > 0) {
      const int candidate = insert();
      int length = 0;
      if (reachable(candidate)) {
        length = std::min(search(candidate, 2), lookahead);
      }
      bool mustFlush;
      if (length < 3) {
        mustFlush = tally(0, byteAt(position));
        lookahead -= 1;
        position += 1;
      } else {
        mustFlush = tally(position - matchStart, length);
        lookahead -= length;
        for (int i = 1; i < length && length <= kLazy[level]; ++i) {
          position += 1;
          insert();
        }
        position += length <= kLazy[level] ? 1 : length;
      }
      if (mustFlush) {
        flush(false);
      }
      refill();
    }
    flush(true);
  }

  void lazy() {
    int length = 2;
    bool pending = false;
    while (lookahead > 0) {
      const int candidate = insert();
      const int previousLength = length;
      const int previousMatch = matchStart;
      length = 2;
      if (previousLength < kLazy[level] && reachable(candidate)) {
        length = std::min(search(candidate, previousLength), lookahead);
        if (length == 3 && position - matchStart > 4096) {
          length = 2;
        }
      }
      if (previousLength >= 3 && length <= previousLength) {
        const bool mustFlush = tally(position - 1 - previousMatch, previousLength);
        lookahead -= previousLength - 1;
        for (int i = 0; i < previousLength - 2; ++i) {
          position += 1;
          insert();
        }
        pending = false;
        length = 2;
        position += 1;
        if (mustFlush) {
          flush(false);
        }
      } else {
        if (pending && tally(0, byteAt(position - 1))) {
          flush(false);
        }
        pending = true;
        position += 1;
        lookahead -= 1;
      }
      refill();
    }
    if (pending) {
      tally(0, byteAt(position - 1));
    }
    flush(true);
  }

  void refill() {
    while (lookahead < kMinLookahead && !ended) {
      fillWindow();
    }
  }

  const Bytes& data;
  const int level;
  Bytes stream;
  BitString bits;
  size_t consumed = 0;
  bool ended = false;
  std::vector<unsigned char> window = std::vector<unsigned char>(kWindow + kMinLookahead, 0);
  std::vector<int> head = std::vector<int>(32768, 0);
  std::vector<int> chain = std::vector<int>(32768, 0);
  int position = 0;
  int lookahead = 0;
  int matchStart = 0;
  long blockStart = 0;
  std::vector<Item> items;
  size_t matches = 0;
  std::vector<long> literalFrequency = std::vector<long>(kLiterals, 0);
  std::vector<long> distanceFrequency = std::vector<long>(kDistanceCount, 0);
};

void append32(Bytes& bytes, uint32_t value) {
  for (int i = 0; i < 4; ++i) {
    bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
  }
}

}  // namespace

Bytes deflate(const Bytes& data, int level) {
  return Compressor(data, level).run();
}

uint32_t crc32(const Bytes& data) {
  uint32_t value = 0xFFFFFFFF;
  for (const unsigned char byte : data) {
    value ^= byte;
    for (int bit = 0; bit < 8; ++bit) {
      value = (value & 1) != 0 ? (value >> 1) ^ 0xEDB88320 : value >> 1;
    }
  }
  return ~value;
}

Bytes compress(const Bytes& data, int level) {
  Bytes out = {0x1F, 0x8C, 1, 0};
  append32(out, static_cast<uint32_t>(data.size()));
  const Bytes stream = deflate(data, level);
  out.insert(out.end(), stream.begin(), stream.end());
  append32(out, crc32(data));
  return out;
}

}  // namespace reference
