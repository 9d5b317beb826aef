// Japanese: between Shift-JIS, EUC and JIS (ISO-2022-JP). All three number the characters of JIS X
// 0208 by row and cell; the arithmetic between them is in sjis2jis and jis2sjis, modulo 256 where
// bytes are out of range.
//
// A lead byte takes the byte behind it even if that one is no trail: both go out unchanged.

#include <cstddef>

#include "text/jaconv_tables.h"
#include "text/jaconv_walk.h"
#include "zqxml/convert.h"

namespace {

constexpr int kShiftJis = 5;
constexpr int kEuc = 4;
constexpr int kNoLookAhead = 1;
constexpr unsigned char kEscape = 0x1B;
constexpr unsigned char kSingleShift2 = 0x8E;  // leads half-width katakana in EUC
constexpr unsigned char kSingleShift3 = 0x8F;  // leads a character of three bytes in EUC
constexpr unsigned char kVoiced = 0xDE;
constexpr unsigned char kSemiVoiced = 0xDF;

bool between(int byte, int first, int last) {
  return byte >= first && byte <= last;
}
bool isShiftLead(int byte) {
  return between(byte, 0x81, 0x9F) || between(byte, 0xE0, 0xEF);
}
bool isShiftTrail(int byte) {
  return between(byte, 0x40, 0xFC);
}
bool isHigh(int byte) {
  return between(byte, 0xA1, 0xFE);
}
bool isKatakana(int byte) {
  return between(byte, 0xA1, 0xDF);
}
bool endsLine(int byte) {
  return byte == '\n' || byte == '\r';
}

unsigned char asByte(int value) {
  return static_cast<unsigned char>(value);
}

// Whether one of the marks makes a form of its own with this half-width byte.
bool takesMark(int katakana, int mark) {
  const bool hasSemiVoiced = between(katakana, 0xCA, 0xCE);
  if (mark == kSemiVoiced) {
    return hasSemiVoiced;
  }
  return mark == kVoiced && (hasSemiVoiced || between(katakana, 0xB6, 0xC4) || katakana == 0xB3);
}

// The trail byte of a full-width katakana with the mark.
int withMark(int first, int second, int mark) {
  if (mark == kSemiVoiced) {
    return between(second, 0x6E, 0x7A) ? second + 2 : second;
  }
  if (first == 0x83 && second == 0x45) {
    return 0x94;
  }
  return between(second, 0x4A, 0x67) || between(second, 0x6E, 0x7A) ? second + 1 : second;
}

// Whether 0x8F and what is ahead are a character of three bytes, which no other code set has.
bool isLongCharacter(int byte, const unsigned char* ahead) {
  return byte == kSingleShift3 && isHigh(ahead[0]) && isHigh(ahead[1]);
}

// Writes JIS, which is in a mode of one byte or of two.
class JisWriter {
 public:
  explicit JisWriter(Conversion& conversion) : target(conversion) {}

  void putSingle(int byte) {
    leave();
    target.put(byte);
  }

  void putDouble(int first, int second) {
    if (!twoByteMode) {
      target.put(kEscape, '$');
      target.put('B');
      twoByteMode = true;
    }
    target.put(first, second);
  }

  // Half-width katakana have no place in the modes that are written here, and become full-width.
  // Deliberate: a mark behind one stays a character of its own.
  void putKatakana(int byte) {
    unsigned char first = asByte(byte);
    unsigned char second = 0;
    han2zen(nullptr, &first, &second, kNoLookAhead);
    sjis2jis(&first, &second);
    putDouble(first, second);
  }

  void leave() {
    if (twoByteMode) {
      target.put(kEscape, '(');
      target.put('J');
      twoByteMode = false;
    }
  }

 private:
  Conversion& target;
  bool twoByteMode = false;
};

template <typename Step>
char* convertToJis(const char* source, char* target, Step step) {
  if (source == nullptr || target == nullptr) {
    return target;
  }
  Conversion conversion(source, target);
  JisWriter writer(conversion);
  while (!conversion.atEnd()) {
    step(conversion, writer);
  }
  writer.leave();
  conversion.put('\0');
  return target;
}

// `putDouble` writes a pair of the two-byte mode.
template <typename PutDouble>
char* convertFromJis(const char* source, char* target, PutDouble putDouble) {
  int twoByteMode = 0;
  return convert(source, target, [&](Conversion& text) {
    const unsigned char byte = text.take();
    if (byte == kEscape) {
      if (!text.atEnd()) {
        const unsigned char kind = text.take();
        auto* ahead = const_cast<unsigned char*>(text.in);
        SkipESCSeq(&ahead, kind, &twoByteMode);
        text.in = ahead;
      }
    } else if (endsLine(byte) || twoByteMode == 0 || text.atEnd()) {
      twoByteMode = endsLine(byte) ? 0 : twoByteMode;
      text.put(byte);
    } else {
      putDouble(text, byte, text.take());
    }
  });
}

}  // namespace

void sjis2jis(unsigned char* first, unsigned char* second) {
  const int lead = *first;
  const int trail = *second;
  *first = asByte((lead - (lead < 0xA0 ? 0x70 : 0xB0)) * 2 - (trail < 0x9F ? 1 : 0));
  *second = asByte(trail - (trail >= 0x9F ? 0x7E : trail >= 0x80 ? 0x20 : 0x1F));
}

void jis2sjis(unsigned char* first, unsigned char* second) {
  const int row = *first;
  const int cell = *second;
  *first = asByte((row + 1) / 2 + (row < 0x5F ? 0x70 : 0xB0));
  *second = asByte(cell + (row % 2 == 0 ? 0x7E : cell < 0x60 ? 0x1F : 0x20));
}

void han2zen(unsigned char** source, unsigned char* first, unsigned char* second, int kind) {
  const int katakana = *first;
  if (!isKatakana(katakana)) {
    return;
  }
  const unsigned char* wide = fullWidthKatakana + ptrdiff_t{2} * (katakana - 0xA1);
  *first = wide[0];
  *second = wide[1];
  const int markLength = kind == kShiftJis ? 1 : kind == kEuc && **source == kSingleShift2 ? 2 : 0;
  if (markLength > 0) {
    const int mark = (*source)[markLength - 1];
    if (takesMark(katakana, mark)) {
      *second = asByte(withMark(*first, *second, mark));
      *source += markLength;
    }
  }
}

int SkipESCSeq(unsigned char** source, int byte, int* twoByteMode) {
  if ((byte == '$' || byte == '(') && **source != '\0') {
    ++*source;
  }
  const int before = *twoByteMode != 0 ? 1 : 0;
  *twoByteMode = byte == 'K' || byte == '$' ? 1 : 0;
  return before != *twoByteMode ? 1 : 0;
}

int eucLength(const char* text) {
  int length = 0;
  for (; text != nullptr && *text != '\0'; ++text) {
    const auto byte = asByte(*text);
    const bool takesTwo = isShiftLead(byte) && text[1] != '\0';
    length += takesTwo || isKatakana(byte) ? 2 : 1;
    text += takesTwo ? 1 : 0;
  }
  return length;
}

int shiftLength(const char* text) {
  int length = 0;
  for (; text != nullptr && *text != '\0'; ++text) {
    const auto byte = asByte(*text);
    const auto trail = asByte(text[1]);
    const bool takesTwo = (isHigh(byte) || byte == kSingleShift2) && trail != 0;
    length += takesTwo && !(byte == kSingleShift2 && isKatakana(trail)) ? 2 : 1;
    text += takesTwo ? 1 : 0;
  }
  return length;
}

int bytesInEucChar(const char* text) {
  const auto byte = asByte(text == nullptr ? 0 : *text);
  if (byte == 0) {
    return 0;
  }
  if (isHigh(byte) || byte == kSingleShift2) {
    return 2;
  }
  if (byte == kSingleShift3) {
    return 3;
  }
  return byte > 0x7F ? -1 : 1;
}

int bytesInShiftChar(const char* text) {
  const auto byte = asByte(text == nullptr ? 0 : *text);
  if (byte == 0) {
    return 0;
  }
  if (isShiftLead(byte)) {
    return 2;
  }
  return byte <= 0x7F || isKatakana(byte) ? 1 : -1;
}

char* shift2eucx(const char* source, char* target) {
  return convert(source, target, [](Conversion& text) {
    if (text.next() < 0x80) {
      text.copyAscii();
      return;
    }
    unsigned char first = text.take();
    if (isShiftLead(first) && !text.atEnd()) {
      unsigned char second = text.take();
      if (isShiftTrail(second)) {
        sjis2jis(&first, &second);
        first = asByte(first + 0x80);
        second = asByte(second + 0x80);
      }
      text.put(first, second);
    } else {
      if (isKatakana(first)) {
        text.put(kSingleShift2);
      }
      text.put(first);
    }
  });
}

char* euc2shiftx(const char* source, char* target) {
  return convert(source, target, [](Conversion& text) {
    if (text.next() < 0x80) {
      text.copyAscii();
      return;
    }
    unsigned char first = text.take();
    if (isLongCharacter(first, text.in)) {
      text.put(first);
      text.put(text.in[0], text.in[1]);
      text.in += 2;
    } else if (isHigh(first) && !text.atEnd()) {
      unsigned char second = text.take();
      if (isHigh(second)) {
        first = asByte(first - 0x80);
        second = asByte(second - 0x80);
        jis2sjis(&first, &second);
      }
      text.put(first, second);
    } else if (first == kSingleShift2 && !text.atEnd()) {
      if (!isKatakana(text.next())) {
        text.put(first);
      }
      text.put(text.take());
    } else {
      text.put(first);
    }
  });
}

char* shift2jisx(const char* source, char* target) {
  return convertToJis(source, target, [](Conversion& text, JisWriter& jis) {
    unsigned char first = text.take();
    if (isShiftLead(first) && text.atEnd()) {
      text.put(first);
    } else if (isShiftLead(first)) {
      unsigned char second = text.take();
      if (isShiftTrail(second)) {
        sjis2jis(&first, &second);
        jis.putDouble(first, second);
      } else {
        text.put(first, second);
      }
    } else if (isKatakana(first)) {
      jis.putKatakana(first);
    } else {
      jis.putSingle(first);
    }
  });
}

char* euc2jisx(const char* source, char* target) {
  return convertToJis(source, target, [](Conversion& text, JisWriter& jis) {
    const unsigned char first = text.take();
    if (isLongCharacter(first, text.in)) {
      jis.putSingle(first);
      jis.putSingle(text.take());
      jis.putSingle(text.take());
    } else if (!isHigh(first) && first != kSingleShift2) {
      jis.putSingle(first);
    } else if (text.atEnd()) {
      text.put(first);
    } else {
      const unsigned char second = text.take();
      if (first == kSingleShift2 && isKatakana(second)) {
        jis.putKatakana(second);
      } else if (isHigh(first) && isHigh(second)) {
        jis.putDouble(first - 0x80, second - 0x80);
      } else {
        text.put(first, second);
      }
    }
  });
}

char* jis2shiftx(const char* source, char* target) {
  return convertFromJis(source, target,
                        [](Conversion& text, unsigned char first, unsigned char second) {
                          jis2sjis(&first, &second);
                          text.put(first, second);
                        });
}

char* jis2eucx(const char* source, char* target) {
  return convertFromJis(source, target,
                        [](Conversion& text, unsigned char first, unsigned char second) {
                          text.put(first + 0x80, second + 0x80);
                        });
}
