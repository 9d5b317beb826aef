// Traditional Chinese: between Big5 and EUC_H, by tables of CNS 11643 planes 1 and 2. Characters
// are numbered by their order: in Big5 157 to a lead byte, in a plane of CNS 94 to a row.

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "text/jaconv_tables.h"
#include "text/jaconv_walk.h"
#include "zqxml/convert.h"

namespace {

constexpr int kBig5Row = 157;
constexpr int kCnsRow = 94;
constexpr int kPlaneSize = kCnsRow * kCnsRow;
constexpr int kFirstByte = 0xA1;
// Of a lead byte in Big5: where the first trails end, and the gap behind them.
constexpr int kBig5FirstTrail = 0x40;
constexpr int kBig5GapStart = 0x7F;
constexpr int kBig5Gap = 34;
// Leads a character of four bytes in EUC_H; the byte behind it is 0xA0 and the plane.
constexpr unsigned char kSingleShift2 = 0x8E;
constexpr int kPlaneOffset = 0xA0;

bool isHigh(int byte) {
  return byte >= 0xA1 && byte <= 0xFE;
}

void putCode(unsigned char* target, int lead, int trail) {
  target[0] = static_cast<unsigned char>(lead);
  target[1] = static_cast<unsigned char>(trail);
}

// The row for an order, or null.
const Big5CnsTable* findRow(const Big5CnsTable (&table)[Big5CnsTableSize], int order) {
  const Big5CnsTable* row =
      std::upper_bound(std::begin(table), std::end(table), order,
                       [](int value, const Big5CnsTable& entry) { return value < entry.last; });
  return row == std::end(table) || order < row->first ? nullptr : row;
}

void putUnknown(Conversion& text) {
  text.put('?', '?');
}

void big5ToEuch(Conversion& text) {
  if (text.next() < 0x80) {
    text.copyAscii();
    return;
  }
  const int order = Big5Order(text.in);
  text.in += text.in[1] == '\0' ? 1 : 2;
  const Big5CnsTable* row = order < 0 ? nullptr : findRow(Big5ToCnsTable, order);
  if (row == nullptr) {
    putUnknown(text);
    return;
  }
  unsigned char code[2];
  CnsCode(row->otherFirst + order - row->first, code);
  if (row->plane > 1) {
    text.put(kSingleShift2, kPlaneOffset + row->plane);
  }
  text.put(code[0], code[1]);
}

// Takes the character ahead and gives its order over all planes, or -1.
int takeCnsOrder(Conversion& text) {
  const bool isLong = text.next() == kSingleShift2;
  const ptrdiff_t length = isLong ? 4 : 2;
  if (text.end - text.in < length) {
    text.in = text.end;
    return -1;
  }
  const int order = CnsOrder(text.in + length - 2);
  const int plane = isLong ? text.in[1] - kPlaneOffset : 1;
  text.in += length;
  return order < 0 || plane < 1 ? -1 : order + (plane - 1) * kPlaneSize;
}

void euchToBig5(Conversion& text) {
  if (text.next() < 0x80) {
    text.copyAscii();
    return;
  }
  if (!isHigh(text.next()) && text.next() != kSingleShift2) {
    text.put(text.take());
    return;
  }
  const int order = takeCnsOrder(text);
  const Big5CnsTable* row = order < 0 ? nullptr : findRow(CnsToBig5Table, order);
  if (row == nullptr) {
    putUnknown(text);
    return;
  }
  unsigned char code[2];
  Big5Code(row->otherFirst + order - row->first, code);
  text.put(code[0], code[1]);
}

}  // namespace

int Big5Order(const unsigned char* character) {
  if (character == nullptr || !isHigh(character[0])) {
    return -1;
  }
  const int trail = character[1];
  const int row = (character[0] - kFirstByte) * kBig5Row;
  if (isHigh(trail)) {
    return row + trail - kBig5FirstTrail - kBig5Gap;
  }
  return trail >= kBig5FirstTrail && trail < kBig5GapStart ? row + trail - kBig5FirstTrail : -1;
}

int CnsOrder(const unsigned char* character) {
  if (character == nullptr || !isHigh(character[0]) || !isHigh(character[1])) {
    return -1;
  }
  return (character[0] - kFirstByte) * kCnsRow + character[1] - kFirstByte;
}

void Big5Code(int order, unsigned char* target) {
  const int trail = order % kBig5Row + kBig5FirstTrail;
  putCode(target, order / kBig5Row + kFirstByte, trail < kBig5GapStart ? trail : trail + kBig5Gap);
}

void CnsCode(int order, unsigned char* target) {
  putCode(target, order / kCnsRow + kFirstByte, order % kCnsRow + kFirstByte);
}

// Deliberate: the plane is not told.
int Big5ToCnsCodeConvert(const unsigned char* big5, unsigned char* target) {
  const int order = Big5Order(big5);
  const Big5CnsTable* row = order < 0 ? nullptr : findRow(Big5ToCnsTable, order);
  if (row == nullptr || target == nullptr) {
    return -1;
  }
  CnsCode(row->otherFirst + order - row->first, target);
  return 0;
}

char* big2euchx(const char* source, char* target) {
  return convert(source, target, big5ToEuch);
}

char* euch2bigx(const char* source, char* target) {
  return convert(source, target, euchToBig5);
}

int big5Length(const char* text) {
  if (text == nullptr) {
    return 0;
  }
  int length = 0;
  const auto* byte = reinterpret_cast<const unsigned char*>(text);
  while (*byte != '\0') {
    const bool isWide = isHigh(*byte) || *byte == kSingleShift2;
    length += isWide ? 2 : 1;
    const size_t taken = *byte == kSingleShift2 ? 4 : isWide ? 2 : 1;
    byte += strnlen(reinterpret_cast<const char*>(byte), taken);
  }
  return length;
}

// A character of Big5 gives at most four bytes; they are written over one another and counted.
int euchLength(const char* text) {
  if (text == nullptr) {
    return 0;
  }
  int length = 0;
  char character[4];
  Conversion conversion(text, character);
  while (!conversion.atEnd()) {
    if (conversion.next() < 0x80) {
      ++conversion.in;
      ++length;
    } else {
      conversion.out = character;
      big5ToEuch(conversion);
      length += static_cast<int>(conversion.out - character);
    }
  }
  return length;
}
