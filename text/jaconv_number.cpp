// Full-width digits and the signs of numbers, dates and times to ASCII.

#include <cstring>

#include "text/jaconv_walk.h"
#include "text/mbutil_state.h"
#include "zqxml/convert.h"
#include "zqxml/multibyte.h"

namespace {

struct WideSign {
  const char* wide;  // two bytes; null ends a table
  char ascii;
};

constexpr WideSign Mb2SbNumberTableInSJIS[] = {
    {"\x82\x4F", '0'}, {"\x82\x50", '1'}, {"\x82\x51", '2'}, {"\x82\x52", '3'},
    {"\x82\x53", '4'}, {"\x82\x54", '5'}, {"\x82\x55", '6'}, {"\x82\x56", '7'},
    {"\x82\x57", '8'}, {"\x82\x58", '9'}, {"\x81\x44", '.'}, {"\x81\x42", '.'},
    {"\x81\x5E", '/'}, {"\x81\x45", '/'}, {"\x81\x46", ':'}, {nullptr, '\0'},
};

constexpr WideSign Mb2SbNumberTableInEUC[] = {
    {"\xA3\xB0", '0'}, {"\xA3\xB1", '1'}, {"\xA3\xB2", '2'}, {"\xA3\xB3", '3'}, {"\xA3\xB4", '4'},
    {"\xA3\xB5", '5'}, {"\xA3\xB6", '6'}, {"\xA3\xB7", '7'}, {"\xA3\xB8", '8'}, {"\xA3\xB9", '9'},
    {"\xA1\xA5", '.'}, {"\x8E\xA1", '.'}, {"\xA1\xA3", '.'}, {"\xA1\xBF", '/'}, {"\xA1\xA7", ':'},
    {"\xA1\xA1", ' '}, {"\xA1\xCA", '('}, {"\xA1\xCB", ')'}, {nullptr, '\0'},
};

constexpr WideSign Mb2SbNumberTableInGB[] = {
    {"\xA3\xB0", '0'}, {"\xA3\xB1", '1'}, {"\xA3\xB2", '2'}, {"\xA3\xB3", '3'},
    {"\xA3\xB4", '4'}, {"\xA3\xB5", '5'}, {"\xA3\xB6", '6'}, {"\xA3\xB7", '7'},
    {"\xA3\xB8", '8'}, {"\xA3\xB9", '9'}, {"\xA3\xBA", ':'}, {"\xA3\xAF", '/'},
    {"\xA3\xA8", '('}, {"\xA3\xA9", ')'}, {"\xA3\xAE", '.'}, {nullptr, '\0'},
};

constexpr const WideSign* Mb2SbNumberTableInKSC92 = Mb2SbNumberTableInGB;

constexpr WideSign Mb2SbNumberTableInBIG5[] = {
    {"\xA2\xAF", '0'}, {"\xA2\xB0", '1'}, {"\xA2\xB1", '2'}, {"\xA2\xB2", '3'},
    {"\xA2\xB3", '4'}, {"\xA2\xB4", '5'}, {"\xA2\xB5", '6'}, {"\xA2\xB6", '7'},
    {"\xA2\xB7", '8'}, {"\xA2\xB8", '9'}, {"\xA1\x52", ':'}, {"\xA2\x41", '/'},
    {"\xA1\x5D", '('}, {"\xA1\x5E", ')'}, {"\xA1\x4F", '.'}, {nullptr, '\0'},
};

// Deliberate: the digits are where Big5 has them.
constexpr WideSign Mb2SbNumberTableInEUC_H[] = {
    {"\xA2\xAF", '0'}, {"\xA2\xB0", '1'}, {"\xA2\xB1", '2'}, {"\xA2\xB2", '3'}, {"\xA2\xB3", '4'},
    {"\xA2\xB4", '5'}, {"\xA2\xB5", '6'}, {"\xA2\xB6", '7'}, {"\xA2\xB7", '8'}, {"\xA2\xB8", '9'},
    {"\xA1\x52", ':'}, {"\xA2\x41", '/'}, {"\xA1\x5D", '('}, {"\xA1\x5E", ')'}, {"\xA1\xA5", '.'},
    {"\xA1\xA8", ':'}, {nullptr, '\0'},
};

constexpr int kEuc = 4;

const WideSign* tableFor(int codeSet) {
  switch (codeSet) {
    case kEuc:
      return Mb2SbNumberTableInEUC;
    case 5:
      return Mb2SbNumberTableInSJIS;
    case 7:
      return Mb2SbNumberTableInGB;
    case 9:
      return Mb2SbNumberTableInBIG5;
    case 10:
      return Mb2SbNumberTableInEUC_H;
    case 12:
      return Mb2SbNumberTableInKSC92;
    default:
      return nullptr;
  }
}

// The ASCII sign for the two bytes ahead, or 0.
char findSign(const WideSign* table, const unsigned char* ahead) {
  for (; table->wide != nullptr; ++table) {
    if (memcmp(table->wide, ahead, 2) == 0) {
      return table->ascii;
    }
  }
  return '\0';
}

}  // namespace

int ConvertMBNumberToSBNumber(const char* source, char* target) {
  initialiseMbutil();
  const WideSign* table = tableFor(nativeCodeSet);
  convert(source, target, [table](Conversion& text) {
    const int length = table == nullptr ? 1 : mbbytesinchar(reinterpret_cast<const char*>(text.in));
    if (length == 1) {
      text.put(text.take());
      return;
    }
    if (const char sign = findSign(table, text.in); sign != '\0') {
      text.put(sign);
    } else {
      text.put(text.in[0], text.in[1]);
    }
    text.in += 2;
    // Deliberate: what follows the second byte of a character of four is looked at afresh.
    if (nativeCodeSet == kEuc && length == 3) {
      text.put(text.take());
    }
  });
  return 0;
}
