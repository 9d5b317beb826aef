// Multi-byte strings: the state of the process, and how long characters are.
//
// A code set is a row of kCodeSets: which bytes lead a character, the length of the longest one,
// and the function that measures and checks a character. To add one, write these two functions,
// add the row at the code set's number, and add it to the reference walk and the generator of
// tests/text. Code sets without a row are single-byte: each byte is a character.
//
// Bytes are looked at from left to right up to the first unfit one. NUL is fit nowhere, so nothing
// here reads past the end of a string, and a character that the end cuts off counts as single
// bytes.

#include <cctype>
#include <clocale>
#include <cstring>
#include <iterator>

#include "text/asciicase.h"
#include "text/mbutil_state.h"
#include "zqxml/multibyte.h"

unsigned char MBUTIL_Initialized = 0;
unsigned char MBUTIL_I_Am_MultiByte = 1;
unsigned char MBUTIL_I_Am_Japanese = 0;
int nativeCodeSet = 0;
bool codeSetChosenByHost = false;

namespace {

template <int First, int Last>
constexpr bool in(int byte) {
  return byte >= First && byte <= Last;
}

constexpr bool isHigh(int byte) {
  return in<0xA1, 0xFE>(byte);
}
constexpr bool isKatakana(int byte) {
  return in<0xA1, 0xDF>(byte);
}

constexpr bool leadsInEUC(int byte) {
  return isHigh(byte) || byte == 0x8E || byte == 0x8F;
}
constexpr bool leadsInSJIS(int byte) {
  return in<0x81, 0x9F>(byte) || in<0xE0, 0xEF>(byte);
}
constexpr bool leadsInEUC_H(int byte) {
  return isHigh(byte) || byte == 0x8E;
}
constexpr bool leadsInKSC87(int byte) {
  return in<0x81, 0xFE>(byte);
}
constexpr bool leadsInKSC92(int byte) {
  return in<0x84, 0xD3>(byte) || in<0xD8, 0xDE>(byte) || in<0xE0, 0xF9>(byte);
}

constexpr bool isSJISTrail(int byte) {
  return in<0x40, 0xFC>(byte);
}
constexpr bool isBIG5Trail(int byte) {
  return isHigh(byte) || in<0x40, 0x7E>(byte);
}
constexpr bool isPlaneInEUC_H(int byte) {
  return in<0xA2, 0xB0>(byte);
}
constexpr bool isKSC87Trail(int byte) {
  return in<0x41, 0x5A>(byte) || in<0x61, 0x7A>(byte) || in<0x81, 0xFE>(byte);
}
constexpr bool isKSC92Trail(int byte) {
  return in<0x41, 0x7E>(byte) || in<0x81, 0xFE>(byte);
}

// The length of a character with these trails, if they are fit as far as the count reaches,
// otherwise -1.
template <bool (*... IsTrail)(int)>
int lengthWithTrails(const unsigned char* text, int count) {
  int i = 0;
  const bool fit = ((++i >= count || IsTrail(text[i])) && ...);
  return fit ? 1 + static_cast<int>(sizeof...(IsTrail)) : -1;
}

// The functions of the table get a byte of 0x80 or above and a count of 1 or more.

int mblenInEUC(const unsigned char* text, int count) {
  if (*text == 0x8E) {
    return lengthWithTrails<isKatakana>(text, count);
  }
  if (*text == 0x8F) {
    return lengthWithTrails<isHigh, isHigh>(text, count);
  }
  return isHigh(*text) ? lengthWithTrails<isHigh>(text, count) : -1;
}

int mblenInSJIS(const unsigned char* text, int count) {
  if (isKatakana(*text)) {
    return 1;
  }
  return leadsInSJIS(*text) ? lengthWithTrails<isSJISTrail>(text, count) : -1;
}

int mblenInGB(const unsigned char* text, int count) {
  return isHigh(*text) ? lengthWithTrails<isHigh>(text, count) : -1;
}

int mblenInEUC_C(const unsigned char* text, int count) {
  return mblenInGB(text, count);
}

int mblenInBIG5(const unsigned char* text, int count) {
  return isHigh(*text) ? lengthWithTrails<isBIG5Trail>(text, count) : -1;
}

// Deliberate: the two-byte form takes the trails of Big5 too.
int mblenInEUC_H(const unsigned char* text, int count) {
  if (*text == 0x8E) {
    return lengthWithTrails<isPlaneInEUC_H, isHigh, isHigh>(text, count);
  }
  return mblenInBIG5(text, count);
}

int mblenInKSC87(const unsigned char* text, int count) {
  return leadsInKSC87(*text) ? lengthWithTrails<isKSC87Trail>(text, count) : -1;
}

int mblenInKSC92(const unsigned char* text, int count) {
  return leadsInKSC92(*text) ? lengthWithTrails<isKSC92Trail>(text, count) : -1;
}

int mblenInEUC_K(const unsigned char* text, int count) {
  return mblenInGB(text, count);
}

struct CodeSet {
  bool isMultiByte;
  bool isJapanese;
  int longest;
  bool (*leads)(int byte);
  int (*mblen)(const unsigned char* text, int count);
};

// JIS is multi-byte and Japanese, but it switches its mode by escape sequences, so that no byte
// leads a character: it is never walked.
constexpr CodeSet kSingleByte = {false, false, 1, nullptr, nullptr};
constexpr CodeSet kCodeSets[] = {
    kSingleByte,                                   // 0 Western
    kSingleByte,                                   // 1 iso-8859-1
    kSingleByte,                                   // 2 iso-8859-15
    {true, true, 1, nullptr, nullptr},             // 3 JIS
    {true, true, 3, leadsInEUC, mblenInEUC},       // 4 EUC
    {true, true, 2, leadsInSJIS, mblenInSJIS},     // 5 Shift-JIS
    kSingleByte,                                   // 6
    {true, false, 2, isHigh, mblenInGB},           // 7 GB2312
    {true, false, 2, isHigh, mblenInEUC_C},        // 8 EUC_C
    {true, false, 2, isHigh, mblenInBIG5},         // 9 Big5
    {true, false, 4, leadsInEUC_H, mblenInEUC_H},  // 10 EUC_H
    {true, false, 2, leadsInKSC87, mblenInKSC87},  // 11 KSC 5601 of 1987
    {true, false, 2, leadsInKSC92, mblenInKSC92},  // 12 KSC 5601 of 1992
    {true, false, 2, isHigh, mblenInEUC_K},        // 13 EUC_K
};
constexpr int kCodeSetCount = static_cast<int>(std::size(kCodeSets));
static_assert(kCodeSetCount == 14 && kCodeSets[13].mblen == mblenInEUC_K);

const CodeSet& codeSetOf(int number) {
  return number >= 0 && number < kCodeSetCount ? kCodeSets[number] : kSingleByte;
}

int setCodeSet(int codeSet) {
  const int previous = nativeCodeSet;
  nativeCodeSet = codeSet;
  MBUTIL_I_Am_MultiByte = codeSetOf(codeSet).isMultiByte ? 1 : 0;
  MBUTIL_I_Am_Japanese = codeSetOf(codeSet).isJapanese ? 1 : 0;
  MBUTIL_Initialized = 1;
  return previous;
}

struct Language {
  const char* prefix;
  int codeSet;
};

constexpr Language kLanguages[] = {
    {"ja", 4}, {"jpn", 4}, {"ko", 13}, {"zh_tw", 10}, {"zh", 8},
};

}  // namespace

int InitMbutil(void) {
  setlocale(LC_ALL, "");
  const char* name = setlocale(LC_ALL, nullptr);
  if (*name == '/') {
    ++name;
  }
  codeSetChosenByHost = false;
  for (const Language& language : kLanguages) {
    if (startsWithIgnoringAsciiCase(name, language.prefix)) {
      return setCodeSet(language.codeSet);
    }
  }
  return setCodeSet(0);
}

int InitMbutilExt(int codeSet) {
  codeSetChosenByHost = true;
  return setCodeSet(codeSet);
}

int mbIsMultiByte(void) {
  initialiseMbutil();
  return MBUTIL_I_Am_MultiByte;
}

int mbIsJapanese(void) {
  initialiseMbutil();
  return MBUTIL_I_Am_Japanese;
}

int mb_isleadbyte(int byte) {
  initialiseMbutil();
  return isleadbyteExt(byte, nativeCodeSet);
}

int isleadbyteExt(int byte, int codeSet) {
  const CodeSet& set = codeSetOf(codeSet);
  return set.leads != nullptr && set.leads(static_cast<unsigned char>(byte)) ? 1 : 0;
}

int mbmaxcharlen(void) {
  initialiseMbutil();
  return mbmaxcharlenExt(nativeCodeSet);
}

int mbmaxcharlenExt(int codeSet) {
  return codeSetOf(codeSet).longest;
}

int mb_mblen(const char* text, int count) {
  initialiseMbutil();
  return mblenExt(text, count, nativeCodeSet);
}

int mblenExt(const char* text, int count, int codeSet) {
  const CodeSet& set = codeSetOf(codeSet);
  if (set.mblen == nullptr) {
    return 1;
  }
  if (text == nullptr || count <= 0 || *text == '\0') {
    return 0;
  }
  const auto* bytes = reinterpret_cast<const unsigned char*>(text);
  return *bytes < 0x80 ? 1 : set.mblen(bytes, count);
}

int mbbytesinchar(const char* text) {
  initialiseMbutil();
  return mbbytesinchartype(text, nativeCodeSet);
}

int mbbytesinchartype(const char* text, int codeSet) {
  const int length = mblenExt(text, mbmaxcharlenExt(codeSet), codeSet);
  return length > 0 ? length : 1;
}

int mbidx(const char* text, int index) {
  initialiseMbutil();
  return mbidxtype(text, index, nativeCodeSet);
}

int mbidxtype(const char* text, int index, int codeSet) {
  if (MBUTIL_I_Am_MultiByte == 0) {
    return index;
  }
  int start = 0;
  while (text != nullptr && start < index && text[start] != '\0') {
    const int length = mbbytesinchartype(text + start, codeSet);
    if (length > index - start) {
      break;
    }
    start += length;
  }
  return start;
}

int mbnextidx(const char* text, int index) {
  initialiseMbutil();
  if (text == nullptr || index < 0 || text[index] == '\0') {
    return 0;
  }
  return index + mbbytesinchar(text + index);
}

char* mbnextchar(const char* text, int index) {
  const int next = mbnextidx(text, index);
  return next == 0 ? nullptr : const_cast<char*>(text) + next;
}

int ismbcprint(int byte) {
  const auto value = static_cast<unsigned char>(byte);
  if (value >= 0x80 && isMultiByteProcess()) {
    const char text = static_cast<char>(value);
    return mb_mblen(&text, 1) > 0 ? 1 : 0;
  }
  initialiseMbutil();
  return isprint(value) != 0 ? 1 : 0;
}
