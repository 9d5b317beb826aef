// The string functions of the C library by character of the native code set, so that nothing is
// found or cut inside a character. In a single-byte process they are those of the C library.

#include <strings.h>

#include <cctype>
#include <cstdint>
#include <cstring>

#include "text/mbutil_state.h"
#include "zqxml/multibyte.h"

namespace {

int sign(int value) {
  return (value > 0) - (value < 0);
}

unsigned char byteAt(const char* text) {
  return static_cast<unsigned char>(*text);
}

char* writable(const char* text) {
  return const_cast<char*>(text);
}

int lower(const char* text) {
  return tolower(byteAt(text));
}

int same(const char* text) {
  return byteAt(text);
}

// The order of two characters: the longer one is the greater, whatever its bytes. `fold` is
// applied to characters of one byte.
int compareCharacters(const char* left, int leftLength, const char* right, int rightLength,
                      int (*fold)(const char*)) {
  if (leftLength != rightLength) {
    return sign(leftLength - rightLength);
  }
  if (leftLength == 1) {
    return sign(fold(left) - fold(right));
  }
  return sign(memcmp(left, right, static_cast<size_t>(leftLength)));
}

// Compares whole characters until the bytes passed reach the count.
int compareStrings(const char* left, const char* right, size_t count, int (*fold)(const char*)) {
  for (size_t passed = 0; passed < count;) {
    if (*left == '\0' || *right == '\0') {
      return (*left != '\0') - (*right != '\0');
    }
    const int length = mbbytesinchar(left);
    const int order = compareCharacters(left, length, right, mbbytesinchar(right), fold);
    if (order != 0) {
      return order;
    }
    left += length;
    right += length;
    passed += static_cast<size_t>(length);
  }
  return 0;
}

int changeCase(char* text, int (*change)(int)) {
  if (text == nullptr) {
    return 0;
  }
  const int length = isMultiByteProcess() ? mbbytesinchar(text) : 1;
  if (length == 1) {
    *text = static_cast<char>(change(byteAt(text)));
  }
  return length;
}

int changeStringCase(char* text, int (*change)(int)) {
  if (text == nullptr) {
    return 0;
  }
  char* end = text;
  while (*end != '\0') {
    end += changeCase(end, change);
  }
  return static_cast<int>(end - text);
}

// Whether the text goes on with the needle, and the needle ends at the end of a character.
bool continuesWith(const char* text, const char* needle, size_t needleLength) {
  if (strncmp(text, needle, needleLength) != 0) {
    return false;
  }
  size_t end = 0;
  while (end < needleLength) {
    end += static_cast<size_t>(mbbytesinchar(text + end));
  }
  return end == needleLength;
}

char* findString(const char* haystack, const char* needle) {
  const size_t needleLength = strlen(needle);
  const char* found = mbstrchr(haystack, *needle);
  while (found != nullptr && !continuesWith(found, needle, needleLength)) {
    found = mbstrchr(found + mbbytesinchar(found), *needle);
  }
  return writable(found);
}

// The end of the token that starts at `text` is made the position of the next call.
char* takeToken(char* text, const char* delimiters, char** position) {
  char* token = text == nullptr ? *position : text;
  *position = nullptr;
  if (token == nullptr || *token == '\0') {
    return nullptr;
  }
  // Deliberate: only one delimiter is skipped, so that a second one makes an empty token.
  if (mbstrpbrk(token, delimiters) == token) {
    token += mbbytesinchar(token);
  }
  char* end = mbstrpbrk(token, delimiters);
  if (end != nullptr) {
    *position = end + mbbytesinchar(end);
    *end = '\0';
  }
  return token;
}

// The C library reads through a null pointer if no text was given before.
char* takeTokenOfBytes(char* text, const char* delimiters) {
  static bool hasText = false;
  hasText = hasText || text != nullptr;
  return hasText && delimiters != nullptr ? strtok(text, delimiters) : nullptr;
}

}  // namespace

char* mbstrncpy(char* target, const char* source, int count) {
  mbstrncpyi(target, source, count);
  return target;
}

int mbstrncpyi(char* target, const char* source, int count) {
  const bool multiByte = isMultiByteProcess();
  if (target == nullptr || source == nullptr || count <= 0) {
    return 0;
  }
  const auto room = static_cast<size_t>(count);
  size_t length = strnlen(source, room);
  if (multiByte && length == room && source[room] != '\0') {
    length = static_cast<size_t>(mbidx(source, count));
  }
  memcpy(target, source, length);
  memset(target + length, 0, room - length);
  return static_cast<int>(length);
}

int mbstricmp(const char* left, const char* right) {
  const bool multiByte = isMultiByteProcess();
  if (left == nullptr || right == nullptr) {
    return 0;
  }
  return multiByte ? compareStrings(left, right, SIZE_MAX, lower) : sign(strcasecmp(left, right));
}

int mbstrnicmp(const char* left, const char* right, int count) {
  const bool multiByte = isMultiByteProcess();
  if (left == nullptr || right == nullptr || count <= 0) {
    return 0;
  }
  if (!multiByte) {
    return strncasecmp(left, right, static_cast<size_t>(count));
  }
  int i = 0;
  while (i < count && left[i] != '\0') {
    const int promised = mb_mblen(left + i, 1);
    const int length = promised > 1 ? promised : 1;
    const int order = length > 1 ? strncmp(left + i, right + i, static_cast<size_t>(length))
                                 : lower(left + i) - lower(right + i);
    if (order != 0) {
      return order;
    }
    // A character that the end cuts off is shorter than its first byte promises.
    i += static_cast<int>(strnlen(left + i, static_cast<size_t>(length)));
  }
  return i < count && right[i] != '\0' ? -1 : 0;
}

int mbcharcmp(const char* left, const char* right, int count) {
  const bool multiByte = isMultiByteProcess();
  if (left == nullptr || right == nullptr) {
    return 0;
  }
  if (!multiByte) {
    return sign(same(left) - same(right));
  }
  return compareStrings(left, right, count > 0 ? static_cast<size_t>(count) : 0, same);
}

int mbtoupper(char* text) {
  return changeCase(text, toupper);
}

int mbtolower(char* text) {
  return changeCase(text, tolower);
}

int mbstrtoupper(char* text) {
  return changeStringCase(text, toupper);
}

int mbstrtolower(char* text) {
  return changeStringCase(text, tolower);
}

char* mbstrchr(const char* text, int c) {
  const bool multiByte = isMultiByteProcess();
  if (text == nullptr) {
    return nullptr;
  }
  if (!multiByte) {
    return writable(strchr(text, c));
  }
  for (; *text != '\0'; text += mbbytesinchar(text)) {
    if (byteAt(text) == static_cast<unsigned char>(c)) {
      return writable(text);
    }
  }
  return nullptr;
}

char* mbstrchrEncr(const char* text, int c) {
  return mbstrchr(text, c);
}

char* mbstrrchr(const char* text, int c) {
  const bool multiByte = isMultiByteProcess();
  if (text == nullptr) {
    return nullptr;
  }
  if (!multiByte) {
    return writable(strrchr(text, c));
  }
  const char* found = nullptr;
  for (; *text != '\0'; text += mbbytesinchar(text)) {
    if (byteAt(text) == static_cast<unsigned char>(c)) {
      found = text;
    }
  }
  return writable(found);
}

char* mbstrstr(const char* haystack, const char* needle) {
  const bool multiByte = isMultiByteProcess();
  if (haystack == nullptr || needle == nullptr) {
    return writable(haystack);
  }
  // A new line is no part of any character.
  if (!multiByte || strcmp(needle, "\n") == 0) {
    return writable(strstr(haystack, needle));
  }
  return findString(haystack, needle);
}

char* mbstrrstr(const char* haystack, const char* needle) {
  if (haystack == nullptr || needle == nullptr) {
    return writable(haystack);
  }
  if (*needle == '\0') {
    return nullptr;
  }
  char* last = nullptr;
  for (char* found = mbstrstr(haystack, needle); found != nullptr;
       found = mbstrstr(found + mbbytesinchar(found), needle)) {
    last = found;
  }
  return last;
}

char* mbstrpbrk(const char* text, const char* set) {
  const bool multiByte = isMultiByteProcess();
  if (text == nullptr || set == nullptr) {
    return nullptr;
  }
  if (!multiByte) {
    return writable(strpbrk(text, set));
  }
  for (; *text != '\0'; text += mbbytesinchar(text)) {
    const int length = mbbytesinchar(text);
    for (const char* member = set; *member != '\0'; member += mbbytesinchar(member)) {
      if (compareCharacters(text, length, member, mbbytesinchar(member), same) == 0) {
        return writable(text);
      }
    }
  }
  return nullptr;
}

int mbstrcspn(const char* text, const char* set) {
  if (text == nullptr) {
    return 0;
  }
  const char* found = mbstrpbrk(text, set);
  return static_cast<int>(found == nullptr ? strlen(text) : static_cast<size_t>(found - text));
}

char* mbstrtok(char* text, const char* delimiters) {
  static char* position = nullptr;
  return isMultiByteProcess() ? takeToken(text, delimiters, &position)
                              : takeTokenOfBytes(text, delimiters);
}

char* mbstrtok_r(char* text, const char* delimiters, char** position) {
  if (!isMultiByteProcess()) {
    return takeTokenOfBytes(text, delimiters);
  }
  return position == nullptr ? nullptr : takeToken(text, delimiters, position);
}
