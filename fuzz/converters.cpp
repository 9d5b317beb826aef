// Any text to the converters, beside the plain ones of the tests, from and to blocks that are
// exactly as long as told. An input is a byte that chooses what is done, one that chooses the
// native code set, and a text.

#include <zqxml/zqxml.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "fuzz/Input.h"
#include "text/PlainConverters.h"
#include "text/Reference.h"

namespace {

using fuzz::require;
using fuzz::Text;
using Converter = char* (*)(const char*, char*);

bool isWithin(int byte, int first, int last) {
  return byte >= first && byte <= last;
}

void compare(const PlainConverter& row, const Text& text) {
  const std::string expected = row.converted(text.get());
  const std::unique_ptr<char[]> target(new char[row.targetSize(text.length())]);
  require(row.converter(text, target.get()) == target.get(), row.name);
  require(target.get() == expected, row.name);
  if (row.measure != nullptr) {
    require(row.measure(text) == static_cast<int>(expected.size()), "a length is measured");
  }
}

std::string paged(Converter converter, const Text& text) {
  const std::unique_ptr<char[]> target(new char[text.length() + 1]);
  require(converter(text, target.get()) == target.get(), "the target is given");
  return target.get();
}

// Each byte by itself gives what it gives among others.
void comparePages(const Text& text) {
  const std::string whole = text.get();
  for (const Converter converter :
       {c8859_5To1251x, c1251To8859_5x, c8859_2To1250x, c1250To8859_2x}) {
    std::string joined;
    for (const char byte : whole) {
      joined += paged(converter, Text(std::string(1, byte)));
    }
    require(paged(converter, text) == joined && joined.size() == whole.size(),
            "bytes are converted one by one");
  }
  const bool hasControls = std::any_of(whole.begin(), whole.end(), [](char byte) {
    return isWithin(static_cast<unsigned char>(byte), 1, 14);
  });
  if (!hasControls) {
    require(paged(c8859_5To1251x, Text(paged(c1251To8859_5x, text))) == whole, "1251 comes back");
    require(paged(c8859_2To1250x, Text(paged(c1250To8859_2x, text))) == whole, "1250 comes back");
  }
}

std::string withAsciiSigns(const Text& text) {
  const std::unique_ptr<char[]> target(new char[text.length() + 1]);
  require(ConvertMBNumberToSBNumber(text, target.get()) == 0, "signs are converted");
  return target.get();
}

void compareSigns(const Text& text, int codeSet) {
  InitMbutilExt(codeSet);
  std::string joined;
  for (const std::string& character : Reference(codeSet).split(text.get())) {
    joined += withAsciiSigns(Text(character));
  }
  require(withAsciiSigns(text) == joined, "signs are converted character by character");
}

void compareChineseOrders(const Text& text) {
  unsigned char pair[2];
  for (const char* place = text; *place != '\0' && place[1] != '\0'; ++place) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(place);
    if (const int order = Big5Order(bytes); order >= 0) {
      Big5Code(order, pair);
      require(memcmp(pair, bytes, 2) == 0, "an order in Big5 tells its character");
      char wide[3 * 2 + 1];
      big2euchx(Text(std::string(place, 2)), wide);
      const bool isKnown = Big5ToCnsCodeConvert(bytes, pair) == 0;
      const size_t length = strlen(wide);
      require(isKnown ? memcmp(wide + length - 2, pair, 2) == 0 : strcmp(wide, "\?\?") == 0,
              "a character is converted as the text is");
    } else {
      require(Big5ToCnsCodeConvert(bytes, pair) == -1, "what is none has no counterpart");
    }
    if (const int order = CnsOrder(bytes); order >= 0) {
      CnsCode(order, pair);
      require(memcmp(pair, bytes, 2) == 0, "an order in CNS tells its character");
    }
  }
}

void compareJapaneseBytes(const Text& text) {
  auto* bytes = reinterpret_cast<unsigned char*>(text.get());
  const int lead = bytes[0];
  const int invalid = lead > 0x7F ? -1 : lead == 0 ? 0 : 1;
  const bool leadsEuc = isWithin(lead, 0xA1, 0xFE) || lead == 0x8E;
  require(bytesInEucChar(text) == (lead == 0x8F ? 3 : leadsEuc ? 2 : invalid), "bytesInEucChar");
  const bool leadsShift = isWithin(lead, 0x81, 0x9F) || isWithin(lead, 0xE0, 0xEF);
  const bool isKatakana = isWithin(lead, 0xA1, 0xDF);
  require(bytesInShiftChar(text) == (leadsShift   ? 2
                                     : isKatakana ? 1
                                                  : invalid),
          "bytesInShiftChar");
  if (text.length() < 2) {
    return;
  }
  unsigned char first = bytes[0];
  unsigned char second = bytes[1];
  sjis2jis(&first, &second);
  const bool isCharacter = leadsShift && isWithin(bytes[1], 0x40, 0xFC) && bytes[1] != 0x7F;
  if (isCharacter) {
    require(isWithin(first, 0x21, 0x7E) && isWithin(second, 0x21, 0x7E), "sjis2jis");
    jis2sjis(&first, &second);
    require(first == bytes[0] && second == bytes[1], "jis2sjis undoes sjis2jis");
  }
  for (const int kind : {4, 5, 0}) {
    first = bytes[0];
    unsigned char* place = bytes + 1;
    han2zen(&place, &first, &second, kind);
    require(isKatakana ? first == 0x81 || first == 0x83 : first == lead, "han2zen");
    require(place - bytes - 1 <= (kind == 4 ? 2 : kind == 5 ? 1 : 0), "han2zen joins one mark");
  }
  unsigned char* place = bytes + 1;
  int mode = bytes[1] & 1;
  const int before = mode;
  require(SkipESCSeq(&place, lead, &mode) == (mode != before ? 1 : 0), "SkipESCSeq tells a change");
  require(mode == (lead == '$' || lead == 'K' ? 1 : 0), "SkipESCSeq");
  require(place - bytes - 1 == (lead == '$' || lead == '(' ? 1 : 0), "SkipESCSeq moves");
}

void detect(const fuzz::Input& input) {
  if (input.atEnd()) {
    return;
  }
  FILE* stream = fmemopen(const_cast<uint8_t*>(input.data()), input.size(), "r");
  const int code = DetectJPCodeType(stream);
  fclose(stream);
  require(code == 0 || isWithin(code, 3, 6), "the code is one of the told ones");
  const bool isAscii = std::all_of(input.data(), input.data() + input.size(),
                                   [](uint8_t byte) { return byte < 0x80 && byte != 0x1B; });
  require(!isAscii || code == 0, "ASCII is none of them");
}

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  fuzz::Input input(data, size);
  const int choice = input.below(static_cast<int>(kPlainConverterCount) + 5);
  const int codeSet = kMultiByteCodeSets[input.below(std::size(kMultiByteCodeSets))];
  const fuzz::Input raw = input;
  const Text text = input.text();
  switch (choice - static_cast<int>(kPlainConverterCount)) {
    case 0:
      comparePages(text);
      break;
    case 1:
      compareSigns(text, codeSet);
      break;
    case 2:
      compareChineseOrders(text);
      break;
    case 3:
      compareJapaneseBytes(text);
      break;
    case 4:
      detect(raw);
      break;
    default:
      compare(kPlainConverters[choice], text);
  }
}
