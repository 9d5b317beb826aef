// Conversion between code sets, and streams that are in another code set than the process.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "text/mbutil_state.h"
#include "zqxml/codeset.h"
#include "zqxml/convert.h"
#include "zqxml/multibyte.h"

namespace {

constexpr int kShiftJis = 5;
constexpr int kEuc = 4;
constexpr int kBig5 = 9;
constexpr int kEucH = 10;

struct Converter {
  int from;
  int to;
  char* (*convert)(const char* source, char* target);
};

constexpr Converter kConverters[] = {
    {3, 5, jis2shiftx},       {3, 4, jis2eucx},         {4, 5, euc2shiftx},
    {4, 3, euc2jisx},         {5, 4, shift2eucx},       {5, 3, shift2jisx},
    {9, 10, big2euchx},       {10, 9, euch2bigx},       {14, 23, c8859_2To1250x},
    {17, 24, c8859_5To1251x}, {23, 14, c1250To8859_2x}, {24, 17, c1251To8859_5x},
};

// Deliberate: files are converted between fewer code sets than strings.
constexpr int kFileConversions[][2] = {{5, 4}, {4, 5}, {9, 10}, {10, 9}, {3, 5}, {3, 4}};

// A file is converted in blocks of this many bytes, and no conversion of a file makes a text more
// than three times as long.
constexpr int kFileBlock = 21000;
constexpr size_t kConvertedBlock = size_t{3} * kFileBlock;

using HeapText = std::unique_ptr<char, decltype(&free)>;
using File = std::unique_ptr<FILE, decltype(&fclose)>;

// Null if memory runs out.
HeapText newText(size_t size) {
  return {static_cast<char*>(malloc(size)), free};
}

// JIS may need nine bytes for two, and three to leave its mode.
size_t convertedSize(size_t length) {
  return 5 * length + 9;
}

bool writesJapanese(int codeSet) {
  return codeSet >= 3 && codeSet <= 5;
}
bool writesKorean(int codeSet) {
  return codeSet >= 11 && codeSet <= 13;
}
bool writesChinese(int codeSet) {
  return codeSet >= 7 && codeSet <= 10;
}

char* copyOrConvert(const char* source, char* target, int from, int to) {
  initialiseMbutil();
  if (source == nullptr || target == nullptr) {
    return nullptr;
  }
  const bool isShared = nativeCodeSet == kEuc || nativeCodeSet == kShiftJis;
  return convertStrExt(source, from, target, isShared ? to : from);
}

// How much of a block holds whole characters. A first byte that nothing promises a length to is
// taken for half a character if it is the last one.
int wholeCharacters(const char* block, int size, int codeSet) {
  for (int start = 0; start < size;) {
    const int length = mblenExt(block + start, size - start, codeSet);
    const int step = length < 0 && start == size - 1 ? 2 : std::max(length, 1);
    if (step > size - start) {
      return start;
    }
    start += step;
  }
  return size;
}

bool convertFile(FILE* source, FILE* target, int codeSet) {
  const HeapText block = newText(kFileBlock + 1);
  const HeapText converted = newText(kConvertedBlock);
  if (block == nullptr || converted == nullptr) {
    return false;
  }
  for (int got; (got = mbfreadstringtype(block.get(), kFileBlock, source, codeSet)) > 0;) {
    // A source that can't take the half of a character back: both halves would be converted
    // wrongly.
    if (got == kFileBlock && wholeCharacters(block.get(), got, codeSet) < got) {
      return false;
    }
    convertStrExt(block.get(), codeSet, converted.get(), nativeCodeSet);
    const size_t length = strlen(converted.get());
    if (fwrite(converted.get(), 1, length, target) != length) {
      return false;
    }
  }
  return ferror(source) == 0;
}

}  // namespace

char* convertStrExt(const char* source, int fromCodeSet, char* target, int toCodeSet) {
  for (const Converter& converter : kConverters) {
    if (converter.from == fromCodeSet && converter.to == toCodeSet) {
      return converter.convert(source, target);
    }
  }
  return source == nullptr || target == nullptr ? target : strcpy(target, source);
}

int mbconvertnativestring(char* target, const char* source, int codeSet) {
  initialiseMbutil();
  if (target == nullptr || source == nullptr) {
    return 0;
  }
  convertStrExt(source, nativeCodeSet, target, codeSet);
  return 1;
}

char* UnixCodingToWindowsCodingExt(const char* source, char* target) {
  return copyOrConvert(source, target, kEuc, kShiftJis);
}

char* WindowsCodingToUnixCodingExt(const char* source, char* target) {
  return copyOrConvert(source, target, kShiftJis, kEuc);
}

int MaxStringLengthOnWinAndUnix(const char* text) {
  if (text == nullptr) {
    return 0;
  }
  const int length = static_cast<int>(strlen(text));
  switch (nativeCodeSet) {
    case kShiftJis:
      return std::max(length, eucLength(text));
    case kBig5:
      return std::max(length, euchLength(text));
    case kEucH:
      return std::max(length, big5Length(text));
    default:
      return length;
  }
}

int IsConversionSupport(int fromCodeSet, int toCodeSet) {
  for (const auto& [from, to] : kFileConversions) {
    if (from == fromCodeSet && to == toCodeSet) {
      return 1;
    }
  }
  return 0;
}

int sameLanguage(int first, int second) {
  const auto both = [first, second](bool (*writes)(int)) {
    return writes(first) && writes(second);
  };
  return both(writesJapanese) || both(writesKorean) || both(writesChinese) ? 1 : 0;
}

char* mbfgets(char* buffer, int size, FILE* stream, int codeSet) {
  const bool multiByte = isMultiByteProcess();
  if (buffer == nullptr || size < 1 || stream == nullptr) {
    return nullptr;
  }
  if (!multiByte || codeSet == 0) {
    return fgets(buffer, size, stream);
  }
  const HeapText line = newText(static_cast<size_t>(size));
  if (line == nullptr || fgets(line.get(), size, stream) == nullptr) {
    return nullptr;
  }
  const HeapText converted = newText(convertedSize(strlen(line.get())));
  if (converted == nullptr) {
    return nullptr;
  }
  convertStrExt(line.get(), codeSet, converted.get(), nativeCodeSet);
  if (mbstrncpyi(buffer, converted.get(), size - 1) == size - 1) {
    buffer[size - 1] = '\0';
  }
  return buffer;
}

int mbfputs(const char* text, FILE* stream, int codeSet) {
  const bool multiByte = isMultiByteProcess();
  if (text == nullptr) {
    return 0;
  }
  if (stream == nullptr) {
    return EOF;
  }
  if (!multiByte) {
    return fputs(text, stream);
  }
  const HeapText converted = newText(convertedSize(strlen(text)));
  if (converted == nullptr) {
    return EOF;
  }
  convertStrExt(text, nativeCodeSet, converted.get(), codeSet == 0 ? nativeCodeSet : codeSet);
  return fputs(converted.get(), stream);
}

int mbfreadstring(char* buffer, int count, FILE* stream) {
  initialiseMbutil();
  return mbfreadstringtype(buffer, count, stream, nativeCodeSet);
}

int mbfreadstringtype(char* buffer, int count, FILE* stream, int codeSet) {
  const bool multiByte = isMultiByteProcess();
  if (buffer == nullptr || count < 1 || stream == nullptr) {
    return 0;
  }
  const int got = static_cast<int>(fread(buffer, 1, static_cast<size_t>(count), stream));
  if (!multiByte) {
    return got;
  }
  int length = got;
  if (got == count) {
    length = wholeCharacters(buffer, got, codeSet);
    // What a stream without seeking can't give back is delivered, be it half a character.
    if (length < got && fseek(stream, length - got, SEEK_CUR) != 0) {
      length = got;
    }
  }
  buffer[length] = '\0';
  return length;
}

int mbconvertfile2native_ex(const char* source, const char* target, int append, int codeSet) {
  initialiseMbutil();
  if (source == nullptr || target == nullptr || IsConversionSupport(codeSet, nativeCodeSet) == 0) {
    return 0;
  }
  const File in(fopen(source, "rb"), fclose);
  if (in == nullptr) {
    return 0;
  }
  File out(fopen(target, append != 0 ? "ab" : "wb"), fclose);
  if (out == nullptr) {
    return 0;
  }
  const bool done = convertFile(in.get(), out.get(), codeSet);
  return fclose(out.release()) == 0 && done ? 1 : 0;
}

int AccumulateAsciiForStr(const char* text) {
  const bool multiByte = isMultiByteProcess();
  if (text == nullptr || *text == '\0') {
    return 0;
  }
  const HeapText converted = newText(convertedSize(strlen(text)));
  if (converted == nullptr) {
    return -1;
  }
  convertStrExt(text, nativeCodeSet, converted.get(),
                multiByte ? mbGetLocaleCodeSet() : nativeCodeSet);
  unsigned sum = 0;
  for (const char* byte = converted.get(); *byte != '\0'; ++byte) {
    // Deliberate: bytes above 127 count as negative numbers.
    sum += static_cast<unsigned>(static_cast<signed char>(*byte));
  }
  return static_cast<int>(sum);
}
