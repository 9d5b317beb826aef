#include "inputs.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace inputs {

namespace {

void append(Bytes& bytes, const std::string& text) {
  bytes.insert(bytes.end(), text.begin(), text.end());
}

constexpr const char* kSyllables[] = {"con",  "de", "re",  "ti",   "on",  "er",  "an", "in",
                                      "form", "al", "ing", "ment", "pro", "ver", "st", "le",
                                      "to",   "ma", "ne",  "th",   "ou",  "ly",  "qu", "est"};

// Words whose frequency falls with their rank, as in a language.
class Words {
 public:
  explicit Words(uint64_t seed) : random(seed) {
    Random speller(7);
    for (int i = 0; i < 4000; ++i) {
      std::string word;
      const uint32_t syllables = 1 + speller.below(3);
      for (uint32_t k = 0; k < syllables; ++k) {
        word += kSyllables[speller.below(std::size(kSyllables))];
      }
      words.push_back(word);
    }
  }

  const std::string& next() {
    uint32_t bound = static_cast<uint32_t>(words.size());
    bound = 1 + random.below(bound);
    return words[random.below(1 + random.below(bound))];
  }

  Random random;

 private:
  std::vector<std::string> words;
};

Bytes makeText(size_t length, uint64_t seed) {
  Words words(seed);
  Bytes bytes;
  size_t column = 0;
  while (bytes.size() < length) {
    std::string word = words.next();
    if (words.random.below(12) == 0) {
      word[0] = static_cast<char>(word[0] - 'a' + 'A');
    }
    constexpr const char* kEnds[] = {" ", " ", " ", " ", " ", " ", " ", ", ", ". ", "; "};
    word += kEnds[words.random.below(std::size(kEnds))];
    column += word.size();
    if (column > 76) {
      word += "\n";
      column = 0;
    }
    append(bytes, word);
  }
  return bytes;
}

Bytes makeSource(size_t length, uint64_t seed) {
  Words words(seed);
  Bytes bytes;
  while (bytes.size() < length) {
    const std::string name = words.next();
    append(bytes, "static int " + name + "(struct " + words.next() + " *self, unsigned count) {\n");
    for (uint32_t line = 2 + words.random.below(6); line > 0; --line) {
      append(bytes, "  if (self->" + words.next() + " > " +
                        std::to_string(words.random.below(1000)) + ") {\n    return " +
                        words.next() + "(self, count);\n  }\n");
    }
    append(bytes, "  return 0;\n}\n\n");
  }
  return bytes;
}

Bytes makeXml(size_t length, uint64_t seed) {
  Words words(seed);
  Bytes bytes;
  append(bytes, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root>\n");
  while (bytes.size() < length) {
    append(bytes, "\t<field name=\"" + words.next() + "\" id=\"" +
                      std::to_string(536870913 + words.random.below(5000)) + "\">\n");
    for (uint32_t row = words.random.below(5); row > 0; --row) {
      append(bytes, "\t\t<property>\n\t\t\t<tag>" + std::to_string(words.random.below(200)) +
                        "</tag>\n\t\t\t<char>" + words.next() + " " + words.next() +
                        "</char>\n\t\t</property>\n");
    }
    append(bytes, "\t</field>\n");
  }
  return bytes;
}

// Records, as programs keep them: small numbers, counters, flags, addresses, zeros.
Bytes makeBinary(size_t length, uint64_t seed) {
  Random random(seed);
  Bytes bytes;
  uint32_t counter = 0x400000;
  const auto put32 = [&bytes](uint32_t value) {
    for (int i = 0; i < 4; ++i) {
      bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
    }
  };
  while (bytes.size() < length) {
    switch (random.below(6)) {
      case 0:
        put32(counter += 8 * random.below(64));
        put32(0);
        break;
      case 1:
        put32(random.below(100));
        break;
      case 2:
        bytes.insert(bytes.end(), random.below(24), 0);
        break;
      case 3: {
        constexpr unsigned char kCode[] = {0x48, 0x8B, 0x45, 0xF8, 0x48, 0x89, 0xC7, 0xE8};
        bytes.insert(bytes.end(), std::begin(kCode), std::end(kCode));
        put32(0xFFFF0000 | random.below(0xFFFF));
        break;
      }
      case 4:
        put32(random.next());
        break;
      default:
        bytes.push_back(static_cast<unsigned char>(0x40 + random.below(64)));
        bytes.push_back(static_cast<unsigned char>(random.below(4)));
    }
  }
  return bytes;
}

Bytes makeRandom(size_t length, uint64_t seed) {
  Random random(seed);
  Bytes bytes(length);
  std::generate(bytes.begin(), bytes.end(),
                [&random] { return static_cast<unsigned char>(random.next()); });
  return bytes;
}

Bytes makeBase64(size_t length, uint64_t seed) {
  constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  Random random(seed);
  Bytes bytes;
  while (bytes.size() < length) {
    bytes.push_back(
        bytes.size() % 77 == 76 ? '\n' : static_cast<unsigned char>(kAlphabet[random.below(64)]));
  }
  return bytes;
}

std::vector<Input> makeAll() {
  std::vector<Input> list;
  const auto add = [&list](const std::string& name, Bytes data) {
    list.push_back({name + " " + std::to_string(data.size()), std::move(data)});
  };
  for (const size_t length :
       {0u, 1u, 2u, 3u, 4u, 5u, 8u, 12u, 100u, 261u, 262u, 263u, 3000u, 16000u}) {
    for (const Kind kind : kAllKinds) {
      add(nameOf(kind), make(kind, length, 3 + length));
    }
  }
  for (const size_t length : {32506u, 32768u, 65274u, 65536u, 98304u, 131072u}) {
    for (const Kind kind : {Kind::Text, Kind::Xml, Kind::Binary, Kind::Random}) {
      for (const size_t near : {length - 1, length, length + 1}) {
        add(nameOf(kind), make(kind, near, 5 + near));
      }
    }
  }
  for (const size_t period :
       {1u,    2u,    3u,    4u,     5u,     7u,     8u,     9u,     15u,    16u,
        17u,   31u,   64u,   127u,   257u,   258u,   259u,   300u,   1000u,  4093u,
        4095u, 4096u, 4097u, 32505u, 32506u, 32507u, 32767u, 32768u, 32769u, 40000u}) {
    add("period of " + std::to_string(period), periodic(period < 32000 ? 9000 : 100000, period));
  }
  for (const unsigned values : {1u, 2u, 3u, 4u, 16u, 256u}) {
    for (const double ratio : {1.0, 1.3, 2.0, 4.0}) {
      add("skewed", skewed(6000, ratio, values));
    }
  }
  for (const unsigned values : {2u, 3u, 8u}) {
    add("skewed", skewed(50000, 1.5, values));
  }
  for (const unsigned longest : {5u, 40u, 600u}) {
    add("runs", runs(80000, longest));
  }
  add("collisions", collisions(100000));
  for (const unsigned values : {10u, 16u, 18u, 20u, 22u}) {
    add("fibonacci", fibonacci(values));
  }
  for (unsigned length = 3; length < 30; ++length) {
    add("zeros", Bytes(length * length * length, 0));
  }
  return list;
}

}  // namespace

std::string nameOf(Kind kind) {
  constexpr const char* kNames[] = {"text", "source", "xml", "binary", "random", "base64"};
  return kNames[static_cast<size_t>(kind)];
}

Bytes make(Kind kind, size_t length, uint64_t seed) {
  constexpr Bytes (*kMakers[])(size_t, uint64_t) = {makeText,   makeSource, makeXml,
                                                    makeBinary, makeRandom, makeBase64};
  Bytes bytes = kMakers[static_cast<size_t>(kind)](length, seed);
  bytes.resize(length);
  return bytes;
}

Bytes periodic(size_t length, size_t period) {
  Bytes bytes = makeRandom(std::min(length, period), period);
  for (size_t i = bytes.size(); i < length; ++i) {
    bytes.push_back(bytes[i - period]);
  }
  return bytes;
}

Bytes skewed(size_t length, double ratio, unsigned values) {
  Random random(values);
  std::vector<double> limits;
  double sum = 0;
  for (unsigned i = 0; i < values; ++i) {
    sum += std::pow(ratio, -static_cast<double>(i));
    limits.push_back(sum);
  }
  Bytes bytes(length);
  for (unsigned char& byte : bytes) {
    const double point = sum * random.next() / 4294967296.0;
    byte = static_cast<unsigned char>(std::upper_bound(limits.begin(), limits.end() - 1, point) -
                                      limits.begin());
  }
  return bytes;
}

Bytes fibonacci(unsigned values) {
  Bytes bytes;
  unsigned one = 1;
  unsigned two = 1;
  for (unsigned i = 0; i < values; ++i) {
    bytes.insert(bytes.end(), one, static_cast<unsigned char>('A' + i));
    const unsigned sum = one + two;
    one = two;
    two = sum;
  }
  Random random(values);
  for (size_t i = bytes.size(); i > 1; --i) {
    std::swap(bytes[i - 1], bytes[random.below(static_cast<uint32_t>(i))]);
  }
  return bytes;
}

Bytes runs(size_t length, unsigned longest) {
  Random random(longest);
  Bytes bytes;
  while (bytes.size() < length) {
    bytes.insert(bytes.end(), random.below(longest), 0);
    bytes.push_back(static_cast<unsigned char>(random.below(8)));
  }
  bytes.resize(length);
  return bytes;
}

Bytes collisions(size_t length) {
  // The hash of the library: the upper half of a product.
  std::vector<Bytes> words;
  for (uint32_t upper = 0; words.size() < 400; ++upper) {
    for (uint32_t lower = 0; lower < 0x10000; ++lower) {
      const uint32_t word = upper << 16 | lower;
      if ((word * 0x9E3779B1) >> 16 == 0x1234) {
        words.push_back({static_cast<unsigned char>(word), static_cast<unsigned char>(word >> 8),
                         static_cast<unsigned char>(word >> 16),
                         static_cast<unsigned char>(word >> 24)});
      }
    }
  }
  Random random(1);
  Bytes bytes;
  while (bytes.size() < length) {
    const Bytes& word = words[random.below(static_cast<uint32_t>(words.size()))];
    bytes.insert(bytes.end(), word.begin(), word.end());
  }
  bytes.resize(length);
  return bytes;
}

const std::vector<Input>& all() {
  static const std::vector<Input> list = makeAll();
  return list;
}

std::vector<Input> some(size_t count, size_t limit) {
  std::vector<Input> shorter;
  std::copy_if(all().begin(), all().end(), std::back_inserter(shorter),
               [limit](const Input& input) { return input.data.size() < limit; });
  std::vector<Input> list;
  for (size_t i = 0; i < count && i < shorter.size(); ++i) {
    list.push_back(shorter[i * shorter.size() / std::min(count, shorter.size())]);
  }
  return list;
}

}  // namespace inputs
