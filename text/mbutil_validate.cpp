// Whether strings are well-formed in a code set. These are the only multi-byte functions that
// refuse invalid bytes; all others count them as characters of one byte.

#include "text/mbutil_state.h"
#include "zqxml/multibyte.h"

namespace {

// Of 7-bit ASCII, whatever the locale: bytes above 127 are not printable and have no case.
bool isPrintable(unsigned char byte) {
  return byte >= 0x20 && byte <= 0x7E;
}
bool isSpace(unsigned char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}
bool isLower(unsigned char byte) {
  return byte >= 'a' && byte <= 'z';
}
bool isUpper(unsigned char byte) {
  return byte >= 'A' && byte <= 'Z';
}

bool fitsPattern(char c, int type) {
  const auto byte = static_cast<unsigned char>(c);
  switch (type) {
    case MBUTIL_PATTERN_PRINTABLE:
      return isPrintable(byte) || isSpace(byte);
    case MBUTIL_PATTERN_NO_LOWER:
      return !isLower(byte);
    case MBUTIL_PATTERN_NO_UPPER:
      return !isUpper(byte);
    default:
      return true;
  }
}

// Walks to the first byte whose character `isValid` refuses.
template <typename IsValid>
int validate(const char* text, int* index, IsValid isValid) {
  if (text == nullptr || index == nullptr) {
    return 0;
  }
  for (int i = 0; text[i] != '\0';) {
    int length = 1;
    if (!isValid(text + i, &length)) {
      *index = i;
      return 0;
    }
    i += length;
  }
  return 1;
}

}  // namespace

int mbvalidchar(const char* text, int* length, int codeSet) {
  const int promised = mblenExt(text, 1, codeSet);
  if (length != nullptr) {
    *length = promised;
  }
  if (promised < 2) {
    return promised >= 0 ? 1 : 0;
  }
  return mblenExt(text, mbmaxcharlenExt(codeSet), codeSet) > 1 ? 1 : 0;
}

int mbvalidchartype(const char* text, int* length, int codeSet, int type) {
  int promised = 0;
  const int valid = mbvalidchar(text, &promised, codeSet);
  if (length != nullptr) {
    *length = promised;
  }
  if (valid == 0 || promised > 1) {
    return valid;
  }
  return fitsPattern(text == nullptr ? '\0' : *text, type) ? 1 : 0;
}

int mbvalidatestring(const char* text, int* index, int codeSet) {
  if (!isMultiByteProcess()) {
    return 1;
  }
  return validate(text, index, [codeSet](const char* at, int* length) {
    return mbvalidchar(at, length, codeSet) != 0;
  });
}

int mbvalidatestringtype(const char* text, int* index, int type) {
  if (!isMultiByteProcess()) {
    return validate(text, index, [type](const char* at, int*) { return fitsPattern(*at, type); });
  }
  return validate(text, index, [type](const char* at, int* length) {
    return mbvalidchartype(at, length, nativeCodeSet, type) != 0;
  });
}
