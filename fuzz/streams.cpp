// Any sequence of calls to a stream over a file or a pipe, beside a plain model of it; and any text
// to the calls that stand with the streams: lists of currencies, and the encoding that a document
// declares. An input is a byte that chooses what is done and how the stream is opened, the size of
// the file, and a byte for each call with those that it takes.

#include <fcntl.h>
#include <zqxml/zqxml.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <string>

#include "fuzz/Failure.h"
#include "fuzz/File.h"

namespace {

using fuzz::Input;
using fuzz::require;
using fuzz::Text;

constexpr int kBuffer = 4096;
constexpr int kRoom = 4;  // to push bytes back, in front of the buffer
constexpr size_t kNowhere = std::string::npos;

// What a stream has to do, told byte by byte.
class Model {
 public:
  std::string content;
  bool canRead = true;
  bool canWrite = true;
  bool canSeek = true;
  bool appends = false;
  long offset = 0;    // of the descriptor
  long position = 0;  // of the stream
  int error = 0;
  bool atEnd = false;

  // How many bytes can be taken at once; if none, why not is noted.
  size_t fill() {
    if (head < buffer.size()) {
      return buffer.size() - head;
    }
    empty();
    place = kRoom;
    if (!canRead) {
      error = EBADF;
      return 0;
    }
    if (offset < static_cast<long>(content.size())) {
      buffer.assign(content, static_cast<size_t>(offset), kBuffer);
      offset += static_cast<long>(buffer.size());
    }
    atEnd = atEnd || buffer.empty();
    return buffer.size();
  }

  // Takes bytes and tells whether they are these.
  bool takes(const char* bytes, size_t count) {
    bool isSame = true;
    if (undefined >= head && undefined < head + count) {
      buffer[undefined] = bytes[undefined - head];
      undefined = kNowhere;
    }
    isSame = memcmp(buffer.data() + head, bytes, count) == 0;
    head += count;
    place += static_cast<int>(count);
    position += static_cast<long>(count);
    return isSame;
  }

  // What can be taken at once, up to a length.
  std::string ahead(size_t length) const { return buffer.substr(head, length); }
  bool holdsUndefined() const { return undefined != kNowhere; }

  bool pushBack(int byte) {
    const size_t count = buffer.size() - head;
    if (count > kBuffer + kRoom - 1 || (count > 0 && place == 0)) {
      return false;
    }
    if (count == 0) {
      // Deliberate: one byte follows that nobody has put there.
      buffer.assign(1, '#');
      head = 0;
      undefined = 0;
      place = kBuffer;
    }
    if (head == 0) {
      buffer.insert(0, 1, ' ');
      undefined += undefined == kNowhere ? 0 : 1;
      head = 1;
    }
    buffer[--head] = static_cast<char>(byte);
    --place;
    --position;
    atEnd = false;
    return true;
  }

  bool write(const std::string& bytes) {
    empty();
    if (canSeek) {
      const long target = appends ? static_cast<long>(content.size()) : position;
      if (target < 0) {
        error = EINVAL;
        return false;
      }
      offset = position = target;
    }
    if (!bytes.empty() && !canWrite) {
      error = EBADF;
      return false;
    }
    const auto begin = static_cast<size_t>(offset);
    if (!bytes.empty()) {
      content.resize(std::max(content.size(), begin + bytes.size()));
      content.replace(begin, bytes.size(), bytes);
    }
    offset += static_cast<long>(bytes.size());
    position += static_cast<long>(bytes.size());
    return true;
  }

  bool seek(long distance, int whence) {
    const long from = whence == SEEK_CUR ? position : static_cast<long>(content.size());
    const long target = whence == SEEK_SET ? distance : from + distance;
    if (!canSeek || target < 0 || whence > SEEK_END) {
      error = canSeek || whence > SEEK_END ? EINVAL : ESPIPE;
      return false;
    }
    atEnd = false;
    offset = position = target;
    empty();
    return true;
  }

  void rewind() {
    offset = canSeek ? 0 : offset;
    position = 0;
    error = 0;
    atEnd = false;
    empty();
  }

 private:
  void empty() {
    buffer.clear();
    head = 0;
    undefined = kNowhere;
  }

  std::string buffer;
  size_t head = 0;              // what is before has been taken
  size_t undefined = kNowhere;  // where a byte is that may be any
  int place = kRoom;            // of the head, in the layer's room and buffer
};

void readByte(ZQFILE* stream, Model& model) {
  const bool hasByte = model.fill() > 0;
  const int byte = ZQfgetc(stream);
  const char delivered = static_cast<char>(byte);
  require(byte == static_cast<signed char>(delivered), "ZQfgetc gives a signed byte");
  require(hasByte ? model.takes(&delivered, 1) : byte == -1, "ZQfgetc");
}

void readItems(ZQFILE* stream, Model& model, size_t size, size_t count) {
  const std::unique_ptr<char[]> target(new char[size * count]);
  const long items = ZQfread(target.get(), size, count, stream);
  if (size == 0) {
    require(items == 0, "ZQfread of nothing");
    return;
  }
  size_t done = 0;
  for (size_t left = size * count; left > 0;) {
    const size_t length = std::min(left, model.fill());
    if (length == 0) {
      break;
    }
    require(model.takes(target.get() + done, length), "ZQfread delivers");
    done += length;
    left -= length;
  }
  const bool failed = done < size * count && !model.canRead;
  require(items == (failed ? 0 : static_cast<long>(done / size)), "ZQfread");
}

void readLine(ZQFILE* stream, Model& model, int size) {
  if (model.holdsUndefined()) {
    return;
  }
  const std::unique_ptr<char[]> target(new char[static_cast<size_t>(size)]);
  const char* line = ZQfgets(target.get(), size, stream);
  std::string expected;
  while (size > 1 && static_cast<int>(expected.size()) < size - 1 && !expected.ends_with('\n') &&
         model.fill() > 0) {
    std::string part = model.ahead(static_cast<size_t>(size) - 1 - expected.size());
    part.resize(std::min(part.find('\n'), part.size() - 1) + 1);
    model.takes(part.data(), part.size());
    expected += part;
  }
  require(expected.empty()
              ? line == nullptr
              : line == target.get() && memcmp(line, expected.c_str(), expected.size() + 1) == 0,
          "ZQfgets");
}

std::string takenText(Input& input, size_t length) {
  std::string text;
  while (text.size() < length && !input.atEnd()) {
    text += static_cast<char>(input.byte());
  }
  return text;
}

void writeItems(ZQFILE* stream, Model& model, const std::string& bytes, size_t repetitions) {
  std::string all;
  for (size_t i = 0; i < repetitions; ++i) {
    all += bytes;
  }
  const size_t result = ZQfwrite(all.data(), bytes.size(), repetitions, stream);
  const bool isWritten = !bytes.empty() && model.write(all);
  require(result == (isWritten ? repetitions : 0), "ZQfwrite");
}

void writeText(ZQFILE* stream, Model& model, const Text& text) {
  const int length = static_cast<int>(text.length());
  const int result = ZQfputs(text, stream);
  const bool isWritten = model.write(text.get());
  require(result == (isWritten && length > 0 ? length : -1), "ZQfputs");
}

void writeFormatted(ZQFILE* stream, Model& model, const Text& text, int number) {
  // Often longer than the layer's own room for a text.
  const int width = number % 64 == 5 ? 16390 : number % 20;
  const int result = ZQfprintf(stream, "%s%*d", text.get(), width, number);
  const std::string digits = std::to_string(number);
  const std::string padding(
      std::max<size_t>(static_cast<size_t>(width), digits.size()) - digits.size(), ' ');
  const std::string expected = text.get() + padding + digits;
  require(result == (model.write(expected) ? static_cast<int>(expected.size()) : 0), "ZQfprintf");
}

void seek(ZQFILE* stream, Model& model, long distance, int choice) {
  constexpr int kPlaces[] = {SEEK_SET, SEEK_CUR, SEEK_END, 99};
  const int whence = kPlaces[choice % 4];
  require(ZQfseek(stream, distance, whence) == (model.seek(distance, whence) ? 0 : -1), "ZQfseek");
}

void call(ZQFILE* stream, Model& model, Input& input) {
  const int choice = input.byte();
  switch (choice % 16) {
    case 0:
    case 1:
      readByte(stream, model);
      break;
    case 2:
    case 3: {
      const int byte = choice * 7 % 256;
      const bool isPushed = model.pushBack(byte);
      require(ZQungetc(byte, stream) == (isPushed ? byte : -1), "ZQungetc");
      break;
    }
    case 4: {
      const auto size = static_cast<size_t>(input.byte() % 9);
      readItems(stream, model, size, static_cast<size_t>(input.byte()));
      break;
    }
    case 5:
      readItems(stream, model, 31, static_cast<size_t>(input.byte()));
      break;
    case 6:
    case 7:
      readLine(stream, model, input.byte() * (choice % 32 < 16 ? 1 : 32));
      break;
    case 8: {
      const size_t repetitions = static_cast<size_t>(input.byte() % 64);
      writeItems(stream, model, takenText(input, static_cast<size_t>(choice / 16)), repetitions);
      break;
    }
    case 9: {
      const bool isWritten = model.write(std::string(1, static_cast<char>(choice)));
      require(ZQfputc(choice, stream) == (isWritten ? choice : -1), "ZQfputc");
      break;
    }
    case 10:
      writeText(stream, model, Text(takenText(input, static_cast<size_t>(choice / 16))));
      break;
    case 11: {
      const int number = input.byte();
      writeFormatted(stream, model, Text(takenText(input, static_cast<size_t>(choice / 16))),
                     number);
      break;
    }
    case 12:
    case 13:
      seek(stream, model, (input.byte() << 8 | input.byte()) % 20000 - 6000, choice / 16);
      break;
    case 14:
      ZQrewind(stream);
      model.rewind();
      break;
    default:
      ZQclearerr(stream);
      model.atEnd = false;
      model.error = 0;
  }
  require(ZQftell(stream) == model.position, "ZQftell");
  require(ZQfeof(stream) == (model.atEnd ? 1 : 0), "ZQfeof");
  require(ZQferror(stream) == model.error, "ZQferror");
  require(ZQfflush(stream) == 0, "ZQfflush");
}

// Mostly small, and at times a little more or less than the layer reads at once.
std::string contentOf(Input& input) {
  constexpr size_t kLeast[] = {0, 0, 0, 0, 0, kBuffer - 128, 2 * kBuffer - 128};
  static const std::string all = [] {
    std::string bytes(size_t{2} * kBuffer + 128, '\0');
    for (size_t i = 0; i < bytes.size(); ++i) {
      bytes[i] = static_cast<char>(i % 61 == 60 ? '\n' : i * 7);
    }
    return bytes;
  }();
  const size_t least = kLeast[input.below(std::size(kLeast))];
  return all.substr(0, least + static_cast<size_t>(input.byte()));
}

struct Mode {
  const char* text;
  bool canRead;
  bool canWrite;
  bool empties;
  bool appends;
};

constexpr Mode kModes[] = {
    {"r", true, false, false, false},  {"r+", true, true, false, false},
    {"rb+", true, true, false, false}, {"w", false, true, true, false},
    {"w+", true, true, true, false},   {"a", false, true, false, true},
    {"ab+", true, true, false, true},  {"ra", true, false, false, true},
    {"x", true, false, false, false},
};

void checkClosed(ZQFILE* stream) {
  errno = 0;
  require(ZQfgetc(stream) == -1 && errno == EBADF, "a closed stream is refused");
  require(ZQfclose(stream) == -1 && ZQftell(stream) == -1 && ZQfileno(stream) == -1,
          "a closed stream is refused by all");
}

void useFile(Input& input, const Mode* mode) {
  static const fuzz::File file;
  Model model;
  model.content = contentOf(input);
  file.store(model.content.data(), model.content.size());
  ZQFILE* stream;
  if (mode != nullptr) {
    stream = ZQfopen(file.path().c_str(), mode->text);
    model.canRead = mode->canRead;
    model.canWrite = mode->canWrite;
    model.appends = mode->appends;
    if (mode->empties) {
      model.content.clear();
    }
  } else {
    model.offset = input.byte() * 16;
    lseek(file.descriptor(), model.offset, SEEK_SET);
    model.appends = model.offset % 64 == 0;
    stream = ZQfdopen(dup(file.descriptor()), model.appends ? "a" : "r");
  }
  require(stream != nullptr, "a file can be opened");
  for (int calls = 0; calls < 32 && !input.atEnd(); ++calls) {
    call(stream, model, input);
  }
  require(ZQfclose(stream) == 0, "ZQfclose");
  checkClosed(stream);
  require(file.content() == model.content, "the file holds what was written");
}

void usePipe(Input& input) {
  int ends[2];
  require(pipe2(ends, O_CLOEXEC) == 0, "a pipe can be made");
  Model model;
  model.content = contentOf(input);
  model.canWrite = false;
  model.canSeek = false;
  require(write(ends[1], model.content.data(), model.content.size()) ==
              static_cast<ssize_t>(model.content.size()),
          "the pipe takes it all");
  close(ends[1]);
  ZQFILE* stream = ZQfdopen(ends[0], "r");
  require(ZQfileno(stream) == ends[0], "ZQfileno");
  for (int calls = 0; calls < 32 && !input.atEnd(); ++calls) {
    call(stream, model, input);
  }
  require(ZQfclose(stream) == 0, "ZQfclose");
}

// A list that was read is written and read again.
void loadCurrencies(const Text& text, unsigned size) {
  constexpr long kMostItems = 1000;
  const long count = static_cast<int32_t>(strtol(text, nullptr, 10));
  if (count > kMostItems) {
    return;
  }
  ZQCurrencyDetailList list;
  const int result = LoadCurrencyDetailList(text, &list);
  const bool hasSeparator = strchr(text, '\\') != nullptr;
  require(result == (!hasSeparator ? 402 : count < 0 ? 300 : 0), "LoadCurrencyDetailList");
  require(list.numItems == (result == 0 ? static_cast<uint32_t>(count) : 0), "the count is taken");
  std::string expected = std::to_string(list.numItems) + "\\";
  for (uint32_t i = 0; i < list.numItems; ++i) {
    require(strnlen(list.items[i].currencyCode, sizeof list.items[i].currencyCode) <= 3,
            "a code is cut");
    expected += list.items[i].currencyCode + std::string("\\") +
                std::to_string(list.items[i].decimalPlaces) + "\\";
  }
  const std::unique_ptr<char[]> target(new char[size]);
  unsigned position = 0;
  const int written = ZQCurrencyDetailListToText(&list, &position, size, target.get());
  if (size > 0) {
    require(strlen(target.get()) == position && expected.starts_with(target.get()),
            "currencies are written as far as there is room");
    require(written == (target.get() == expected ? 0 : -3), "missing room is told");
  }
  const Text whole(expected);
  ZQCurrencyDetailList again;
  require(LoadCurrencyDetailList(whole, &again) == 0 && again.numItems == list.numItems,
          "what was written is read");
  for (uint32_t i = 0; i < list.numItems; ++i) {
    require(strcmp(again.items[i].currencyCode, list.items[i].currencyCode) == 0 &&
                again.items[i].decimalPlaces == list.items[i].decimalPlaces,
            "what was written is read the same");
  }
  free(list.items);
  free(again.items);
}

void setEncoding(const Text& document, int codeSet, uint32_t digest) {
  const auto set = [&](auto arm) {
    char* result = nullptr;
    {
      [[maybe_unused]] const auto armed = arm();
      SetEncodingForXMLDoc(document, codeSet, &result);
    }
    std::string copy = result == nullptr ? "" : result;
    free(result);
    return copy;
  };
  const std::string once = set(fuzz::unarmed);
  require(once.empty() || once.find("encoding=\"") != std::string::npos, "an encoding is declared");
  if (fuzz::isFailing(digest)) {
    fuzz::withFailure(digest, 1, [&](auto arm) {
      require(set(arm).empty(), "nothing is given if memory runs out");
    });
  }
}

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  constexpr int kFiles = static_cast<int>(std::size(kModes));
  const uint32_t digest = fuzz::digestOf(data, size);
  Input input(data, size);
  const int choice = input.below(kFiles + 7);
  InitMbutilExt(0);
  switch (choice - kFiles) {
    case 0:
    case 1:
    case 2:
      useFile(input, nullptr);
      break;
    case 3:
    case 4:
      usePipe(input);
      break;
    case 5: {
      const auto room = static_cast<unsigned>(input.byte());
      loadCurrencies(input.text(), room);
      break;
    }
    case 6: {
      const int codeSet = input.byte() % 70 - 1;
      setEncoding(input.text(), codeSet, digest);
      break;
    }
    default:
      useFile(input, &kModes[choice]);
  }
}
