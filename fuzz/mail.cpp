// Any text to Base64, quoted-printable and the subjects and lines of mails. An input is four bytes
// that choose the native code set, two others and a size, and a text. All blocks are as long as the
// functions ask for, so that going beyond their ends is found.

#include <zqxml/base64.h>
#include <zqxml/multibyte.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "text/base64_ways.h"

namespace {

using Block = std::unique_ptr<char[]>;

constexpr int kCodeSets[] = {0, 3, 4, 5, 9, 10, 12, 14, 23, 65};

int codeSetOf(uint8_t byte) {
  return kCodeSets[byte % std::size(kCodeSets)];
}

void check(bool condition) {
  if (!condition) {
    abort();
  }
}

Block exactly(size_t size) {
  return std::make_unique<char[]>(size);
}

void encodeBytes(const uint8_t* bytes, size_t count) {
  char* text = nullptr;
  check(EncodeBase64(bytes, static_cast<unsigned>(count), &text) == 0);
  unsigned char* again = nullptr;
  unsigned length = 0;
  check(DecodeBase64(text, &again, &length) == 0);
  check(length == count && (count == 0 || memcmp(again, bytes, count) == 0));
  free(text);
  free(again);
}

void decodeText(const char* text, size_t length) {
  unsigned char* bytes = nullptr;
  unsigned count = 0;
  check(DecodeBase64(text, &bytes, &count) == 0);
  const auto target = std::make_unique<unsigned char[]>(length / 4 * 3 + length % 4 + 1);
  const unsigned char* end = portableBase64.decode(text, length, target.get());
  check(end == target.get() + count && (count == 0 || memcmp(bytes, target.get(), count) == 0));
  free(bytes);
}

void quote(const char* text, size_t length) {
  const Block encoded = exactly(4 * length + 1);
  convertToQuotedPrintable(encoded.get(), text);
  std::string joined;
  for (const char* line = encoded.get(); line != nullptr;) {
    const Block decoded = exactly(strlen(line) + 1);
    joined += convertFromQuotedPrintable(decoded.get(), line);
    line = strchr(line, '\n');
    line = line == nullptr ? nullptr : line + 1;
  }
  check(joined == text);
  const Block decoded = exactly(length + 1);
  check(strlen(convertFromQuotedPrintable(decoded.get(), text)) <= length);
}

void writeSubjects(const char* text, size_t length, int mailCodeSet, int codeSet, size_t width) {
  const std::string charset(width, 'c');
  const Block words = exactly(length * (18 + width) + 8 + width);
  convertSubjectToBase64(words.get(), text, charset.c_str());
  const Block subject = exactly(48 * length + 64);
  convertSubjectForMail(subject.get(), text, mailCodeSet, codeSet);
}

void readLines(const uint8_t* bytes, size_t count, int size, int codeSet, int targetCodeSet) {
  const Block buffer = exactly(static_cast<size_t>(size));
  for (const int kind : {0, ZQ_TRANSFER_QUOTED_PRINTABLE}) {
    FILE* stream = fmemopen(const_cast<uint8_t*>(bytes), count, "r");
    while (getLine(buffer.get(), size, stream, codeSet, kind, targetCodeSet) != nullptr) {
      check(strlen(buffer.get()) < static_cast<size_t>(size));
    }
    fclose(stream);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t count) {
  constexpr size_t kChoices = 4;
  if (count <= kChoices) {
    return 0;
  }
  const uint8_t* choices = bytes;
  bytes += kChoices;
  count -= kChoices;
  InitMbutilExt(codeSetOf(choices[0]));
  const size_t length = strnlen(reinterpret_cast<const char*>(bytes), count);
  const Block text = exactly(length + 1);
  memcpy(text.get(), bytes, length);
  encodeBytes(bytes, count);
  decodeText(text.get(), length);
  quote(text.get(), length);
  writeSubjects(text.get(), length, codeSetOf(choices[1]), codeSetOf(choices[2]), choices[3] % 100);
  readLines(bytes, count, 1 + choices[3], codeSetOf(choices[1]), codeSetOf(choices[2]));
  return 0;
}
