// Which Japanese code a stream is in. Bytes that only one of them has decide.

#include <cstdio>

#include "zqxml/convert.h"

namespace {

constexpr int kUnknown = 0;
constexpr int kJis = 3;
constexpr int kEuc = 4;
constexpr int kShiftJis = 5;
constexpr int kEucOrShiftJis = 6;

bool between(int byte, int first, int last) {
  return byte >= first && byte <= last;
}

// No lead or single shift of EUC.
bool isOfShiftJisAlone(int byte) {
  return between(byte, 0x81, 0x8D) || between(byte, 0x8F, 0x9F);
}
bool isOfEucAlone(int byte) {
  return byte == 0xFD || byte == 0xFE;
}

int afterEscape(FILE* stream) {
  const int kind = fgetc(stream);
  if (kind == 'K') {
    return kJis;
  }
  if (kind != '$') {
    return kUnknown;
  }
  const int set = fgetc(stream);
  return set == 'B' || set == '@' ? kJis : kUnknown;
}

int afterSingleShift2(FILE* stream) {
  const int byte = fgetc(stream);
  if (between(byte, 0x40, 0x7E) || between(byte, 0x80, 0xA0) || between(byte, 0xE0, 0xFC)) {
    return kShiftJis;
  }
  return between(byte, 0xA1, 0xDF) ? kEucOrShiftJis : kUnknown;
}

// Behind 0xA1 to 0xDF: a lead of EUC or half-width katakana of Shift-JIS.
int afterKatakana(FILE* stream) {
  int byte = fgetc(stream);
  if (between(byte, 0, 0x9F)) {
    return kShiftJis;
  }
  if (between(byte, 0xF0, 0xFE)) {
    return kEuc;
  }
  if (between(byte, 0xA1, 0xDF)) {
    return kEucOrShiftJis;
  }
  if (!between(byte, 0xE0, 0xEF)) {
    return kUnknown;
  }
  do {
    byte = fgetc(stream);
    if (isOfShiftJisAlone(byte)) {
      return kShiftJis;
    }
    if (isOfEucAlone(byte)) {
      return kEuc;
    }
  } while (byte >= 0x40);
  return kEucOrShiftJis;
}

int afterLeadOfBoth(FILE* stream) {
  const int byte = fgetc(stream);
  if (between(byte, 0x40, 0x7E) || between(byte, 0x80, 0xA0)) {
    return kShiftJis;
  }
  if (isOfEucAlone(byte)) {
    return kEuc;
  }
  return between(byte, 0xA1, 0xFC) ? kEucOrShiftJis : kUnknown;
}

int codeAfter(int byte, FILE* stream) {
  if (byte == 0x1B) {
    return afterEscape(stream);
  }
  if (isOfShiftJisAlone(byte)) {
    return kShiftJis;
  }
  if (byte == 0x8E) {
    return afterSingleShift2(stream);
  }
  if (between(byte, 0xA1, 0xDF)) {
    return afterKatakana(stream);
  }
  if (between(byte, 0xF0, 0xFE)) {
    return kEuc;
  }
  return between(byte, 0xE0, 0xEF) ? afterLeadOfBoth(stream) : kUnknown;
}

}  // namespace

int DetectJPCodeType(FILE* stream) {
  int code = kUnknown;
  while (stream != nullptr && !between(code, kJis, kShiftJis)) {
    const int byte = fgetc(stream);
    if (byte == EOF) {
      break;
    }
    const int found = codeAfter(byte, stream);
    code = found == kUnknown ? code : found;
  }
  return code;
}
