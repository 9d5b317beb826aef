// Base64 in bulk: the ways that it can be done, and the tables of it.
#ifndef ZQXML_TEXT_BASE64_WAYS_H
#define ZQXML_TEXT_BASE64_WAYS_H

#include <cstddef>

extern const char EncodeBase64Table[64];
// The value of each character, 255 if it has none.
extern const unsigned char DecodeBase64Table[128];

// All ways write the same, to targets that are just as long as told.
struct Base64Way {
  // Writes lines of 57 bytes, each with a new line behind it. The target holds 77 bytes for each
  // line, of the last one those that it needs, and one byte more. Returns the end of what is
  // written.
  char* (*encode)(const unsigned char* bytes, size_t length, char* target);

  // The target holds three quarters of the length, and one byte more. Returns the end of what is
  // written.
  unsigned char* (*decode)(const char* text, size_t length, unsigned char* target);
};

extern const Base64Way portableBase64;

// Null where the processor lacks AVX2.
const Base64Way* avx2Base64();

// The fastest one that this processor has.
const Base64Way& base64Way();

#endif
