// Any texts to the multi-byte functions, beside the plain ones of the tests. An input is five bytes
// (what is done, the native code set, another one, a count, a byte) and two texts with a zero
// between them. With half of the inputs that allocate an allocation fails.

#include <zqxml/zqxml.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "fuzz/Failure.h"
#include "fuzz/File.h"
#include "text/Reference.h"

namespace {

using fuzz::require;
using fuzz::Text;

constexpr int kCodeSets[] = {4, 5, 9, 10, 11, 12, 13, 3, 7, 8, 0, 1, 2, 6, 14, 17, 23, 24, 65, -1};
constexpr int kJis = 3;

const Reference& referenceOf(int codeSet) {
  static std::map<int, Reference> references;
  return references.try_emplace(codeSet, codeSet).first->second;
}

bool isMultiByte(int codeSet) {
  return std::find(std::begin(kMultiByteCodeSets), std::end(kMultiByteCodeSets), codeSet) !=
         std::end(kMultiByteCodeSets);
}

int placeOf(const char* found, const char* text) {
  return found == nullptr ? -1 : static_cast<int>(found - text);
}

int signOf(int value) {
  return (value > 0) - (value < 0);
}

// What a run works on.
struct Case {
  int codeSet;
  int other;
  int count;
  int byte;
  const Text& one;
  const Text& two;
  uint32_t digest;

  const Reference& reference = referenceOf(codeSet);
  const Reference& otherReference = referenceOf(other);
  const bool multiByte = isMultiByte(codeSet);
  const std::string text = one.get();
  const std::string second = two.get();
  const int length = static_cast<int>(text.size());
};

void compareState(const Case& c) {
  require(mbIsMultiByte() == (c.multiByte ? 1 : 0), "mbIsMultiByte");
  require(mbIsJapanese() == (c.codeSet >= 3 && c.codeSet <= 5 ? 1 : 0), "mbIsJapanese");
  require(InitMbutil() == c.codeSet, "InitMbutil gives the code set before it");
  InitMbutilExt(c.codeSet);
}

void compareLengths(const Case& c) {
  require(mbmaxcharlen() == c.reference.longest(), "mbmaxcharlen");
  require(mbmaxcharlenExt(c.other) == c.otherReference.longest(), "mbmaxcharlenExt");
  require(mb_isleadbyte(c.byte) == (c.reference.leads(c.byte) ? 1 : 0), "mb_isleadbyte");
  require(isleadbyteExt(c.byte, c.other) == (c.otherReference.leads(c.byte) ? 1 : 0),
          "isleadbyteExt");
  require(mb_mblen(c.one, c.count) == c.reference.length(c.text, 0, c.count), "mb_mblen");
  require(mblenExt(c.one, c.count, c.other) == c.otherReference.length(c.text, 0, c.count),
          "mblenExt");
  const bool beginsCharacter =
      c.reference.length(std::string(1, static_cast<char>(c.byte)), 0, 1) > 0;
  require((ismbcprint(c.byte) != 0) ==
              (c.byte < 0x80 || !c.multiByte ? isprint(c.byte) != 0 : beginsCharacter),
          "ismbcprint");
  const auto first = [&c](const Reference& reference) {
    return std::max(reference.length(c.text, 0, 8), 1);
  };
  require(mbbytesinchar(c.one) == first(c.reference), "mbbytesinchar");
  require(mbbytesinchartype(c.one, c.other) == first(c.otherReference), "mbbytesinchartype");
}

void compareIndexes(const Case& c) {
  const int start = c.multiByte ? c.reference.index(c.text, c.count) : c.count;
  require(mbidx(c.one, c.count) == start, "mbidx");
  require(mbidxtype(c.one, c.count, c.other) ==
              (c.multiByte ? c.otherReference.index(c.text, c.count) : c.count),
          "mbidxtype");
  if (start < c.length) {
    const int next = start + std::max(c.reference.length(c.text, static_cast<size_t>(start), 8), 1);
    require(mbnextidx(c.one, start) == next, "mbnextidx");
    require(mbnextchar(c.one, start) == c.one + next, "mbnextchar");
  }
  require(mbnextidx(c.one, c.length) == 0, "mbnextidx at the end");
  require(mbnextchar(c.one, c.length) == nullptr, "mbnextchar at the end");
}

void compareCopies(const Case& c) {
  int length = 0;
  const std::string expected = c.reference.copied(c.text, c.count, &length);
  const std::unique_ptr<char[]> target(new char[static_cast<size_t>(c.count)]);
  require(mbstrncpyi(target.get(), c.one, c.count) == length, "mbstrncpyi");
  require(memcmp(target.get(), expected.data(), expected.size()) == 0, "mbstrncpyi copies");
  memset(target.get(), '#', expected.size());
  require(mbstrncpy(target.get(), c.one, c.count) == target.get(), "mbstrncpy");
  require(memcmp(target.get(), expected.data(), expected.size()) == 0, "mbstrncpy copies");
}

void compareComparisons(const Case& c) {
  require(mbstricmp(c.one, c.two) == c.reference.compared(c.text, c.second), "mbstricmp");
  require(signOf(mbstrnicmp(c.one, c.two, c.count)) ==
              c.reference.comparedUpTo(c.text, c.second, c.count),
          "mbstrnicmp");
  const auto firstByte = [](const Text& text) { return static_cast<unsigned char>(*text.get()); };
  require(mbcharcmp(c.one, c.two, c.count) ==
              (c.multiByte ? c.reference.comparedExactly(c.text, c.second, c.count)
                           : signOf(firstByte(c.one) - firstByte(c.two))),
          "mbcharcmp");
}

void compareCase(const Case& c) {
  const int first = c.reference.length(c.text, 0, 8);
  const auto firstLength = static_cast<size_t>(c.multiByte ? std::max(first, 1) : 1);
  const auto checkFirst = [&](int (*function)(char*), const std::string& changed,
                              const char* what) {
    const Text text(c.text);
    require(function(text) == static_cast<int>(firstLength), what);
    const std::string expected =
        c.text.empty() ? "" : changed.substr(0, firstLength) + c.text.substr(firstLength);
    require(text.get() == expected, what);
  };
  const auto checkAll = [&](int (*function)(char*), const std::string& changed, const char* what) {
    const Text text(c.text);
    require(function(text) == c.length, what);
    require(text.get() == changed, what);
  };
  const std::string upper = c.reference.upper(c.text);
  const std::string lower = c.reference.lower(c.text);
  checkFirst(mbtoupper, upper, "mbtoupper");
  checkFirst(mbtolower, lower, "mbtolower");
  checkAll(mbstrtoupper, upper, "mbstrtoupper");
  checkAll(mbstrtolower, lower, "mbstrtolower");
}

void compareSearches(const Case& c) {
  const char byte = static_cast<char>(c.byte);
  const int end = c.multiByte ? -1 : c.length;
  const int first = byte == '\0' ? end : c.reference.firstThatBeginsWith(c.text, byte);
  const int last = byte == '\0' ? end : c.reference.lastThatBeginsWith(c.text, byte);
  require(placeOf(mbstrchr(c.one, c.byte), c.one) == first, "mbstrchr");
  require(placeOf(mbstrchrEncr(c.one, byte), c.one) == first, "mbstrchrEncr");
  require(placeOf(mbstrrchr(c.one, c.byte), c.one) == last, "mbstrrchr");
  const int found = c.reference.firstOf(c.text, c.second);
  require(placeOf(mbstrpbrk(c.one, c.two), c.one) == found, "mbstrpbrk");
  require(mbstrcspn(c.one, c.two) == (found < 0 ? c.length : found), "mbstrcspn");
}

void compareFinds(const Case& c) {
  // The second text, or a piece of the first.
  const auto start = static_cast<size_t>(c.byte) % (c.text.size() + 1);
  const std::string needle =
      c.count % 2 == 0 ? c.second : c.text.substr(start, static_cast<size_t>(c.count) / 2);
  const Text bytes(needle);
  const int atOnce = c.multiByte ? -1 : 0;
  require(placeOf(mbstrstr(c.one, bytes), c.one) ==
              (needle.empty() ? atOnce : c.reference.find(c.text, needle)),
          "mbstrstr");
  require(placeOf(mbstrrstr(c.one, bytes), c.one) == c.reference.findLast(c.text, needle),
          "mbstrrstr");
}

std::vector<std::string> tokensOfBytes(const std::string& text, const std::string& delimiters) {
  std::vector<std::string> tokens;
  for (size_t begin = text.find_first_not_of(delimiters); begin != std::string::npos;
       begin = text.find_first_not_of(delimiters, begin)) {
    const size_t end = std::min(text.find_first_of(delimiters, begin), text.size());
    tokens.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return tokens;
}

void compareTokens(const Case& c) {
  const std::vector<std::string> expected =
      c.multiByte ? c.reference.tokens(c.text, c.second) : tokensOfBytes(c.text, c.second);
  const Text one(c.text);
  const Text two(c.text);
  std::vector<std::string> tokens;
  for (char* token = mbstrtok(one, c.two); token != nullptr; token = mbstrtok(nullptr, c.two)) {
    tokens.push_back(token);
  }
  require(tokens == expected, "mbstrtok");
  tokens.clear();
  char* position = nullptr;
  for (char* token = mbstrtok_r(two, c.two, &position); token != nullptr;
       token = mbstrtok_r(nullptr, c.two, &position)) {
    tokens.push_back(token);
  }
  require(tokens == expected, "mbstrtok_r");
  require(position == nullptr, "mbstrtok_r leaves no position");
}

void compareValidity(const Case& c) {
  const int promised = c.otherReference.length(c.text, 0, 1);
  const int whole = c.otherReference.length(c.text, 0, 8);
  const bool isValid = promised >= 0 && (promised < 2 || whole > 1);
  int length = 99;
  require(mbvalidchar(c.one, &length, c.other) == (isValid ? 1 : 0), "mbvalidchar");
  require(length == promised, "mbvalidchar tells the length");
  int index = -1;
  const int invalid = c.multiByte ? c.otherReference.firstInvalid(c.text) : -1;
  require(mbvalidatestring(c.one, &index, c.other) == (invalid < 0 ? 1 : 0), "mbvalidatestring");
  require(index == invalid, "mbvalidatestring tells the place");
  const int type = 103 + c.count % 5;
  index = -1;
  const int unfit = c.reference.firstInvalid(c.text, type);
  require(mbvalidatestringtype(c.one, &index, type) == (unfit < 0 ? 1 : 0), "mbvalidatestringtype");
  require(index == unfit, "mbvalidatestringtype tells the place");
  length = 99;
  const bool fits =
      c.otherReference.firstInvalid(c.text, type) != 0 && (!c.text.empty() || type != 104);
  require(mbvalidchartype(c.one, &length, c.other, type) == (fits ? 1 : 0), "mbvalidchartype");
  require(length == promised, "mbvalidchartype tells the length");
}

// Into a block of the size that is told.
std::string converted(const std::string& text, int from, int to) {
  const Text source(text);
  const std::unique_ptr<char[]> target(
      new char[to == kJis ? 5 * text.size() + 9 : 3 * text.size() + 1]);
  require(convertStrExt(source, from, target.get(), to) == target.get(), "convertStrExt");
  return target.get();
}

void compareConversions(const Case& c) {
  const std::string expected = converted(c.text, c.codeSet, c.other);
  const bool hasConverter = c.codeSet != c.other;
  require(hasConverter || expected == c.text, "one code set is copied");
  const std::unique_ptr<char[]> target(new char[5 * c.text.size() + 9]);
  require(mbconvertnativestring(target.get(), c.one, c.other) == 1, "mbconvertnativestring");
  require(target.get() == expected, "mbconvertnativestring converts");
  const bool isShared = c.codeSet == 4 || c.codeSet == 5;
  require(UnixCodingToWindowsCodingExt(c.one, target.get()) == target.get() &&
              target.get() == (isShared ? converted(c.text, 4, 5) : c.text),
          "UnixCodingToWindowsCodingExt");
  require(WindowsCodingToUnixCodingExt(c.one, target.get()) == target.get() &&
              target.get() == (isShared ? converted(c.text, 5, 4) : c.text),
          "WindowsCodingToUnixCodingExt");
  const int counterpart = c.codeSet == 5    ? 4
                          : c.codeSet == 9  ? 10
                          : c.codeSet == 10 ? 9
                                            : c.codeSet;
  require(
      MaxStringLengthOnWinAndUnix(c.one) ==
          std::max(c.length, static_cast<int>(converted(c.text, c.codeSet, counterpart).size())),
      "MaxStringLengthOnWinAndUnix");
  const auto language = [](int codeSet) {
    constexpr int kLanguages[] = {1, 1, 1, 0, 2, 2, 2, 2, 3, 3, 3};
    return codeSet >= 3 && codeSet <= 13 ? kLanguages[codeSet - 3] : 0;
  };
  require(sameLanguage(c.codeSet, c.other) ==
              (language(c.codeSet) == language(c.other) && language(c.other) != 0 ? 1 : 0),
          "sameLanguage");
}

// A stream over a text, whose bytes may be none.
FILE* streamOf(const Text& text) {
  FILE* stream = fmemopen(text.get(), std::max<size_t>(text.length(), 1), "r");
  if (text.length() == 0) {
    fgetc(stream);
  }
  return stream;
}

void compareBlocks(const Case& c) {
  const auto check = [&c](const Reference& reference, auto read, const char* what) {
    const std::unique_ptr<char[]> block(new char[static_cast<size_t>(c.count) + 1]);
    FILE* stream = streamOf(c.one);
    const int whole = std::min(c.length, c.count);
    const int expected = c.multiByte && c.count > 0 ? reference.delivered(c.text, c.count) : whole;
    require(read(block.get(), stream) == expected, what);
    require(memcmp(block.get(), c.text.data(), static_cast<size_t>(expected)) == 0, what);
    require(!c.multiByte || c.count == 0 || block[static_cast<size_t>(expected)] == '\0', what);
    require(c.length == 0 || ftell(stream) == expected, what);
    fclose(stream);
  };
  check(
      c.reference, [&](char* block, FILE* stream) { return mbfreadstring(block, c.count, stream); },
      "mbfreadstring");
  check(
      c.otherReference,
      [&](char* block, FILE* stream) { return mbfreadstringtype(block, c.count, stream, c.other); },
      "mbfreadstringtype");
}

// What mbfgets makes of the first line; nothing at all if there is none.
std::string plainLine(const Case& c, bool* hasLine) {
  const auto room = static_cast<size_t>(std::max(c.count, 1)) - 1;
  const std::string line = c.text.substr(0, std::min(c.text.find('\n'), c.text.size() - 1) + 1);
  const std::string taken = line.substr(0, room);
  // `fgets` of no room gives an empty line.
  *hasLine = c.count > 0 && (!taken.empty() || room == 0);
  if (!c.multiByte || c.other == 0) {
    return taken;
  }
  int length = 0;
  const std::string whole = converted(taken, c.other, c.codeSet);
  return c.reference.copied(whole, static_cast<int>(room), &length).c_str();
}

void compareLines(const Case& c) {
  if (c.text.empty()) {
    return;
  }
  bool hasLine = false;
  const std::string expected = plainLine(c, &hasLine);
  const auto read = [&](auto arm) {
    const std::unique_ptr<char[]> buffer(new char[static_cast<size_t>(c.count)]);
    FILE* stream = streamOf(c.one);
    char* line = nullptr;
    {
      [[maybe_unused]] const auto armed = arm();
      line = mbfgets(buffer.get(), c.count, stream, c.other);
    }
    require(line == nullptr || (hasLine && line == expected), "mbfgets");
    fclose(stream);
    return line != nullptr;
  };
  const long before = fault::allocationCount();
  require(read(fuzz::unarmed) == hasLine, "mbfgets reads");
  const long count = fault::allocationCount() - before;
  if (fuzz::isFailing(c.digest)) {
    fuzz::withFailure(c.digest, count, read);
  }
}

void comparePuts(const Case& c) {
  const std::string expected =
      c.multiByte && c.other != 0 ? converted(c.text, c.codeSet, c.other) : c.text;
  const auto write = [&](auto arm) {
    char buffer[4096] = "";
    FILE* stream = fmemopen(buffer, sizeof buffer, "w");
    int result = 0;
    {
      [[maybe_unused]] const auto armed = arm();
      result = mbfputs(c.one, stream, c.other);
    }
    fclose(stream);
    require(result < 0 || buffer == expected, "mbfputs writes");
    return result >= 0;
  };
  const long before = fault::allocationCount();
  require(write(fuzz::unarmed), "mbfputs");
  const long count = fault::allocationCount() - before;
  if (fuzz::isFailing(c.digest)) {
    fuzz::withFailure(c.digest, count, write);
  }
}

void compareFiles(const Case& c) {
  static const fuzz::File source;
  static const fuzz::File target;
  source.store(c.text.data(), c.text.size());
  const int append = c.count % 2;
  const bool isSupported = IsConversionSupport(c.other, c.codeSet) != 0;
  const std::string kept = append != 0 || !isSupported ? c.second : "";
  const std::string added = isSupported ? converted(c.text, c.other, c.codeSet) : "";
  target.store(c.second.data(), c.second.size());
  require(mbconvertfile2native_ex(source.path().c_str(), target.path().c_str(), append, c.other) ==
              (isSupported ? 1 : 0),
          "mbconvertfile2native_ex");
  require(target.content() == kept + added, "mbconvertfile2native_ex converts");
}

// Names of code sets, charsets and locales: whatever the text, the result is one of the told ones.
void compareNames(const Case& c) {
  const auto isNumber = [](int codeSet) { return codeSet >= 0 && codeSet <= 65; };
  require(isNumber(mbGetCodeSet(c.one)), "mbGetCodeSet");
  require(isNumber(mbGetMIMECodeSet(c.one)), "mbGetMIMECodeSet");
  require(isNumber(mbGetLocaleCodeSet()), "mbGetLocaleCodeSet");
  require(*mbGetMIMECharset(c.other) != '\0', "mbGetMIMECharset");
  require(isNumber(mbGetCodeSetForMail(c.other)), "mbGetCodeSetForMail");
  const int chosen = mbGetCodeSetForData(c.codeSet, c.other);
  require(chosen == c.codeSet || chosen == c.other, "mbGetCodeSetForData");
  char page[ZQ_CODE_PAGE_SIZE];
  require(SetCodePage(c.one, page) == page && isNumber(mbGetCodeSet(page)), "SetCodePage");
  char charset[ZQ_CHARSET_SIZE];
  SetCharset(charset, c.other);
  require(memchr(charset, '\0', sizeof charset) != nullptr, "SetCharset");
  const std::unique_ptr<char[]> locale(new char[c.text.size() + 8 + 1]);
  const char* inside = mbGetCorrectedLocaleForUnix(c.one, locale.get());
  require(inside >= locale.get() && inside <= locale.get() + strlen(locale.get()),
          "mbGetCorrectedLocaleForUnix");
  AccumulateAsciiForStr(c.one);
}

constexpr void (*kComparisons[])(const Case&) = {
    compareLengths,  compareIndexes,     compareCopies, compareComparisons,
    compareCase,     compareSearches,    compareFinds,  compareTokens,
    compareValidity, compareConversions, compareBlocks, compareLines,
    comparePuts,     compareFiles,       compareNames,  compareState,
};

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  const uint32_t digest = fuzz::digestOf(data, size);
  fuzz::Input input(data, size);
  const auto compare = kComparisons[input.below(std::size(kComparisons))];
  const int codeSet = kCodeSets[input.below(std::size(kCodeSets))];
  const int other = kCodeSets[input.below(std::size(kCodeSets))];
  const int count = input.below(64);
  const int byte = input.byte();
  const Text one = input.text();
  const Text two = input.text();
  InitMbutilExt(codeSet);
  compare({codeSet, other, count, byte, one, two, digest});
}
