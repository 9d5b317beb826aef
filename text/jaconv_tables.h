// The tables of the converters.
#ifndef ZQXML_TEXT_JACONV_TABLES_H
#define ZQXML_TEXT_JACONV_TABLES_H

// A run of characters that are consecutive on both sides. A lookup takes the first row whose `last`
// exceeds the order. Deliberate: that makes `last` an exclusive bound, so the last character of a
// run, and every run of one character, has no counterpart.
struct Big5CnsTable {
  int first;
  int last;
  int otherFirst;
  int otherLast;
  int plane;  // of CNS 11643; 0 in the direction to Big5
};

constexpr int Big5CnsTableSize = 106;

// From the order in Big5 to the order within the plane.
extern const Big5CnsTable Big5ToCnsTable[Big5CnsTableSize];
// From the order in CNS 11643, 8,836 for each plane below, to the order in Big5.
extern const Big5CnsTable CnsToBig5Table[Big5CnsTableSize];

// Code pages of one byte, by the byte less the first one: 160, 128, 160, 128. A value below 15 is
// the control code that carries a byte without counterpart, and carriedIn...[code - 1] is the byte.
extern const int t8859_5To1251[96];
extern const int t1251To8859_5[128];
extern const int t8859_2To1250[32];
extern const int t1250To8859_2[64];
extern const int carriedIn1251[14];
extern const int carriedIn1250[10];

// The full-width character in Shift-JIS, two bytes for each half-width byte from 0xA1 to 0xDF.
extern const unsigned char fullWidthKatakana[126];

#endif
