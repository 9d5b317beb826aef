// Any text to quoted-printable, from it, and to subjects and lines of mails. An input is a byte
// that chooses what is done, three that choose the native code set and two others, a size, and a
// text. All blocks are as long as the functions ask for, so that going beyond their ends is found.
// With half of the inputs an allocation fails.

#include <zqxml/base64.h>
#include <zqxml/multibyte.h>

#include <iterator>
#include <string>

#include "fuzz/Failure.h"

namespace {

using fuzz::require;
using fuzz::Text;
using Block = std::unique_ptr<char[]>;

constexpr int kCodeSets[] = {0, 3, 4, 5, 9, 10, 12, 14, 23, 65};

Block exactly(size_t size) {
  return Block(new char[size]);
}

// The value of a hexadecimal digit at a place, or -1.
int digitAt(const std::string& text, size_t place) {
  constexpr char kDigits[] = "0123456789abcdef";
  const int lower = place < text.size() ? tolower(text[place]) : '\0';
  const char* found = lower == '\0' ? nullptr : strchr(kDigits, lower);
  return found == nullptr ? -1 : static_cast<int>(found - kDigits);
}

std::string plainlyDecoded(const std::string& text) {
  const std::string line = text.substr(0, text.find_first_of("\r\n"));
  std::string result;
  for (size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '=') {
      const bool passes = (line[i] >= ' ' && line[i] <= '~') || line[i] == '\t';
      result += passes ? line.substr(i, 1) : "";
    } else if (digitAt(line, i + 1) >= 0 && digitAt(line, i + 2) >= 0) {
      result += static_cast<char>(digitAt(line, i + 1) * 16 + digitAt(line, i + 2));
      i += 2;
    } else if (digitAt(line, i + 1) >= 0) {
      result += line.substr(i + 1, 2);
      i += 2;
    } else {
      result += line.substr(i + 1, 1);
      ++i;
    }
  }
  return result;
}

std::string decoded(const char* line) {
  const Block target = exactly(strlen(line) + 1);
  require(convertFromQuotedPrintable(target.get(), line) == target.get(), "the target is given");
  // "=00" makes a zero byte, behind which nothing is seen.
  require(strcmp(target.get(), plainlyDecoded(line).c_str()) == 0, "a line is decoded as plainly");
  return target.get();
}

void code(const Text& text) {
  decoded(text);
  const Block encoded = exactly(4 * text.length() + 1);
  convertToQuotedPrintable(encoded.get(), text);
  std::string joined;
  for (const char* line = encoded.get(); line != nullptr;) {
    joined += decoded(line);
    const char* end = strchr(line, '\n');
    require((end == nullptr ? strlen(line) : static_cast<size_t>(end - line)) <= 49 + 3 + 2,
            "a line is short");
    line = end == nullptr ? nullptr : end + 1;
  }
  require(joined == text.get(), "what is encoded can be decoded");
}

void writeSubjectInBase64(const Text& text, size_t width) {
  const std::string charset(width, 'c');
  const Block words = exactly(text.length() * (18 + width) + 8 + width);
  convertSubjectToBase64(words.get(), text, charset.c_str());
  const std::string plain = std::string(text).substr(0, strcspn(text, "\x1B"));
  require(std::string(words.get()).starts_with(plain),
          "what stands before the first ESC is copied");
  require(plain.size() < text.length() || plain == words.get(), "a text without ESC stays");
}

void writeSubject(const Text& text, int mailCodeSet, int codeSet, uint32_t digest) {
  const size_t size = 48 * text.length() + 64;
  const Block subject = exactly(size);
  const long before = fault::allocationCount();
  convertSubjectForMail(subject.get(), text, mailCodeSet, codeSet);
  const long count = fault::allocationCount() - before;
  if (fuzz::isFailing(digest)) {
    fuzz::withFailure(digest, count, [&](auto arm) {
      const Block failed = exactly(size);
      {
        const auto armed = arm();
        convertSubjectForMail(failed.get(), text, mailCodeSet, codeSet);
      }
      require(*failed.get() == '\0' || strcmp(failed.get(), subject.get()) == 0,
              "a subject is whole or empty");
    });
  }
}

struct Lines {
  const fuzz::Input& input;
  int size;
  int codeSet;
  int kind;
  int targetCodeSet;

  template <typename Arm>
  void read(Arm arm) const {
    const Block buffer = exactly(static_cast<size_t>(size));
    FILE* stream = fmemopen(const_cast<uint8_t*>(input.data()), input.size(), "r");
    {
      [[maybe_unused]] const auto armed = arm();
      while (getLine(buffer.get(), size, stream, codeSet, kind, targetCodeSet) != nullptr) {
        const size_t length = strnlen(buffer.get(), static_cast<size_t>(size));
        require(length < static_cast<size_t>(size), "a line has its end");
        for (auto i = static_cast<int>(length); i < size; ++i) {
          require(buffer[static_cast<size_t>(i)] == '\0', "the rest of the buffer is zero");
        }
      }
    }
    fclose(stream);
  }
};

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  const uint32_t digest = fuzz::digestOf(data, size);
  fuzz::Input input(data, size);
  const int choice = input.below(5);
  InitMbutilExt(kCodeSets[input.below(std::size(kCodeSets))]);
  const int codeSet = kCodeSets[input.below(std::size(kCodeSets))];
  const int other = kCodeSets[input.below(std::size(kCodeSets))];
  const int width = input.byte();
  if (input.atEnd()) {
    return;
  }
  if (choice > 2) {
    const int kind = choice == 3 ? 0 : ZQ_TRANSFER_QUOTED_PRINTABLE;
    const Lines lines = {input, 1 + width, codeSet, kind, other};
    const long before = fault::allocationCount();
    lines.read(fuzz::unarmed);
    const long count = fault::allocationCount() - before;
    if (fuzz::isFailing(digest)) {
      fuzz::withFailure(digest, count, [&](auto arm) { lines.read(arm); });
    }
    return;
  }
  const Text text = input.text();
  if (choice == 0) {
    code(text);
  } else if (choice == 1) {
    writeSubjectInBase64(text, static_cast<size_t>(width % 100));
  } else {
    writeSubject(text, codeSet, other, digest);
  }
}
