// Code pages of one byte, Cyrillic and Latin-2, between ISO and Windows.
//
// A Windows byte that the ISO code set lacks travels as a control code, from 1. Deliberate: so the
// control codes of a text, tab and line ends too, come out as such bytes.

#include <iterator>

#include "text/jaconv_tables.h"
#include "text/jaconv_walk.h"
#include "zqxml/convert.h"

namespace {

// Bytes from `first` on go by the table, as far as it reaches.
template <size_t Size>
int lookUp(const int (&table)[Size], int first, int byte) {
  const int place = byte - first;
  return place >= 0 && place < static_cast<int>(Size) ? table[place] : byte;
}

template <size_t Size, size_t CarriedSize>
char* isoToWindows(const char* source, char* target, const int (&table)[Size],
                   const int (&carried)[CarriedSize]) {
  return convert(source, target, [&](Conversion& text) {
    const int byte = text.take();
    text.put(byte <= static_cast<int>(CarriedSize) ? carried[byte - 1] : lookUp(table, 160, byte));
  });
}

template <size_t Size>
char* windowsToIso(const char* source, char* target, const int (&table)[Size]) {
  return convert(source, target,
                 [&](Conversion& text) { text.put(lookUp(table, 128, text.take())); });
}

}  // namespace

char* c8859_5To1251x(const char* source, char* target) {
  return isoToWindows(source, target, t8859_5To1251, carriedIn1251);
}

char* c1251To8859_5x(const char* source, char* target) {
  return windowsToIso(source, target, t1251To8859_5);
}

char* c8859_2To1250x(const char* source, char* target) {
  return isoToWindows(source, target, t8859_2To1250, carriedIn1250);
}

char* c1250To8859_2x(const char* source, char* target) {
  return windowsToIso(source, target, t1250To8859_2);
}
