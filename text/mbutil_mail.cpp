// Texts of mail: quoted-printable (RFC 2045), subjects as encoded words (RFC 2047), and lines in
// either.

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include "text/mbutil_state.h"
#include "zqxml/base64.h"
#include "zqxml/codeset.h"

namespace {

constexpr int kJis = 3;
constexpr char kEscape = 0x1B;
constexpr size_t kMostPrintable = 49;  // of a line in quoted-printable, without its soft break
constexpr size_t kMostWord = 71;       // of an encoded word that goes on, without its "?="
constexpr int kPieceBytes = 20;        // of a subject in JIS
constexpr size_t kGroupBytes = 3;
constexpr size_t kGroupCharacters = 4;
constexpr char kJoin[] = "\n \t";

using HeapText = std::unique_ptr<char, decltype(&free)>;

// Null if memory runs out.
HeapText newText(size_t size) {
  return {static_cast<char*>(malloc(size)), free};
}

// Of a converted text: JIS may need nine bytes for two, and three to leave its mode.
size_t convertedSize(size_t length) {
  return 5 * length + 9;
}

bool endsLine(char byte) {
  return byte == '\0' || byte == '\n' || byte == '\r';
}

// -1 for no hexadecimal digit.
int digitValue(char digit) {
  if (digit >= '0' && digit <= '9') {
    return digit - '0';
  }
  if (digit >= 'A' && digit <= 'F') {
    return digit - 'A' + 10;
  }
  return digit >= 'a' && digit <= 'f' ? digit - 'a' + 10 : -1;
}

// Writes a text that always has its terminator.
class Writer {
 public:
  explicit Writer(char* target) : out(target) { *out = '\0'; }

  void put(char byte) {
    *out++ = byte;
    *out = '\0';
  }

  void put(const char* text) { out = stpcpy(out, text); }

  void put(const char* text, size_t length) {
    memcpy(out, text, length);
    out += length;
    *out = '\0';
  }

  char* place() const { return out; }

 private:
  char* out;
};

// Writes quoted-printable, and calls `breakLine` wherever there is a soft line break.
template <typename BreakLine>
void encodePrintable(Writer& writer, const char* text, BreakLine breakLine) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  size_t count = 0;
  for (; *text != '\0'; ++text) {
    const auto byte = static_cast<unsigned char>(*text);
    if (byte < 33 || byte > 126 || byte == '=') {
      const char escape[] = {'=', kDigits[byte >> 4], kDigits[byte & 15]};
      writer.put(escape, sizeof escape);
      count += sizeof escape;
    } else {
      writer.put(*text);
      ++count;
    }
    if (count > kMostPrintable) {
      breakLine(text[1] == '\0');
      count = 0;
    }
  }
}

void openWord(Writer& writer, const char* charset, const char* encoding) {
  writer.put("=?");
  writer.put(charset);
  writer.put(encoding);
}

// Encoded words in Base64, of a text in JIS.
class JisWords {
 public:
  JisWords(Writer& target, const char* charsetName) : writer(target), charset(charsetName) {}

  // Writes groups from an ESC on, with a new word at each ESC.
  void write(const char* text) {
    open();
    while (*text != '\0') {
      if (*text == kEscape && hasGroup) {
        close();
        writer.put(kJoin);
        open();
      } else if (hasGroup && length() >= kMostWord) {
        close();
        writer.put(kJoin);
        open();
        // The escape sequence that the old word began with.
        writer.put(firstGroup, kGroupCharacters);
      }
      text += putGroup(text);
    }
    close();
  }

 private:
  size_t length() const { return static_cast<size_t>(writer.place() - word); }

  void open() {
    word = writer.place();
    openWord(writer, charset, "?B?");
    hasGroup = false;
  }

  void close() { writer.put("?="); }

  // A group ends before an ESC. Returns how many bytes it has.
  size_t putGroup(const char* text) {
    const size_t count = 1 + strcspn(text + 1, "\x1B");
    const size_t length = count < kGroupBytes ? count : kGroupBytes;
    char group[kGroupCharacters + 1];
    EncodeBase64Line(text, static_cast<unsigned>(length), "", group);
    if (*text == kEscape) {
      memcpy(firstGroup, group, kGroupCharacters);
    }
    hasGroup = true;
    writer.put(group, kGroupCharacters);
    return length;
  }

  Writer& writer;
  const char* charset;
  const char* word = nullptr;
  bool hasGroup = false;
  char firstGroup[kGroupCharacters] = {};
};

void writeJisSubject(Writer& writer, const char* text, const char* charset) {
  const char* escape = strchr(text, kEscape);
  if (escape == nullptr) {
    writer.put(text);
    return;
  }
  writer.put(text, static_cast<size_t>(escape - text));
  JisWords(writer, charset).write(escape);
}

// Each piece is a subject of its own, so that words don't grow too long.
void writeJisPieces(Writer& writer, const char* text, int codeSet, const char* charset) {
  while (*text != '\0') {
    char piece[kPieceBytes + 1] = {};
    const int length = mbstrncpyi(piece, text, kPieceBytes);
    char jis[5 * kPieceBytes + 9];
    convertStrExt(piece, codeSet, jis, kJis);
    writeJisSubject(writer, jis, charset);
    text += length;
    if (*text != '\0') {
      writer.put(kJoin);
    }
  }
}

void writePrintableWords(Writer& writer, const char* text, const char* charset) {
  if (*text == '\0') {
    return;
  }
  openWord(writer, charset, "?Q?");
  encodePrintable(writer, text, [&](bool isLast) {
    if (!isLast) {
      writer.put("?=");
      writer.put(kJoin);
      openWord(writer, charset, "?Q?");
    }
  });
  writer.put("?=");
}

class GrowingText {
 public:
  // Makes room for so many bytes and a terminator behind what there is. False if memory runs out.
  bool reserve(size_t more) {
    if (length + more + 1 <= size) {
      return true;
    }
    const size_t wanted = 2 * (length + more + 1);
    auto* grown = static_cast<char*>(realloc(text.get(), wanted));
    if (grown == nullptr) {
      return false;
    }
    static_cast<void>(text.release());
    text.reset(grown);
    size = wanted;
    return true;
  }

  // Where what there is ends.
  char* end() { return text.get() + length; }
  void add(size_t more) { length += more; }
  HeapText take() { return std::move(text); }

 private:
  HeapText text = {nullptr, free};
  size_t length = 0;
  size_t size = 0;
};

// Whether a line ends in "=", ahead of its line end.
bool isContinued(const char* line) {
  size_t length = strlen(line);
  length -= length > 0 && line[length - 1] == '\n' ? 1 : 0;
  length -= length > 0 && line[length - 1] == '\r' ? 1 : 0;
  return length > 0 && line[length - 1] == '=';
}

HeapText readPlainLine(int size, FILE* stream) {
  HeapText line = newText(static_cast<size_t>(size));
  if (line != nullptr && fgets(line.get(), size, stream) == nullptr) {
    line.reset();
  }
  return line;
}

HeapText readPrintableLine(int size, FILE* stream) {
  GrowingText joined;
  bool hasAny = false;
  bool goesOn = true;
  while (goesOn) {
    if (!joined.reserve(static_cast<size_t>(size))) {
      return {nullptr, free};
    }
    char* line = joined.end();
    *line = '\0';
    goesOn = fgets(line, size, stream) != nullptr;
    if (goesOn) {
      hasAny = true;
      goesOn = isContinued(line);
      joined.add(strlen(convertFromQuotedPrintable(line, line)));
    }
  }
  strcpy(joined.end(), "\n");
  return hasAny ? joined.take() : HeapText(nullptr, free);
}

}  // namespace

char* convertToQuotedPrintable(char* target, const char* text) {
  if (target != nullptr && text != nullptr) {
    Writer writer(target);
    encodePrintable(writer, text, [&](bool) { writer.put("=\r\n"); });
  }
  return target;
}

char* convertFromQuotedPrintable(char* target, const char* line) {
  if (target == nullptr || line == nullptr) {
    return target;
  }
  char* out = target;
  while (!endsLine(*line)) {
    const char byte = *line++;
    if (byte != '=') {
      if ((byte >= ' ' && byte <= '~') || byte == '\t') {
        *out++ = byte;
      }
    } else if (!endsLine(*line)) {
      const char first = *line++;
      const int high = digitValue(first);
      const int low = high < 0 ? -1 : digitValue(*line);
      if (low >= 0) {
        ++line;
        *out++ = static_cast<char>(high << 4 | low);
      } else {
        *out++ = first;
        if (high >= 0 && !endsLine(*line)) {
          *out++ = *line++;
        }
      }
    }
  }
  *out = '\0';
  return target;
}

char* convertSubjectToBase64(char* target, const char* text, const char* charset) {
  if (target != nullptr && text != nullptr && charset != nullptr) {
    Writer writer(target);
    writeJisSubject(writer, text, charset);
  }
  return target;
}

char* convertSubjectForMail(char* target, const char* text, int mailCodeSet, int codeSet) {
  initialiseMbutil();
  if (target == nullptr || text == nullptr) {
    return target;
  }
  Writer writer(target);
  const char* charset = mbGetMIMECharset(mailCodeSet);
  if (mailCodeSet == kJis) {
    writeJisPieces(writer, text, codeSet, charset);
    return target;
  }
  const HeapText converted = newText(convertedSize(strlen(text)));
  if (converted != nullptr) {
    convertStrExt(text, codeSet, converted.get(), mailCodeSet);
    writePrintableWords(writer, converted.get(), charset);
  }
  return target;
}

char* getLine(char* buffer, int size, FILE* stream, int codeSet, int transferKind,
              int targetCodeSet) {
  initialiseMbutil();
  if (transferKind == ZQ_TRANSFER_UNREAD) {
    return buffer;
  }
  if (buffer == nullptr || size < 2 || stream == nullptr) {
    return nullptr;
  }
  const HeapText line = transferKind == ZQ_TRANSFER_QUOTED_PRINTABLE
                            ? readPrintableLine(size, stream)
                            : readPlainLine(size, stream);
  if (line == nullptr) {
    return nullptr;
  }
  const HeapText converted = newText(convertedSize(strlen(line.get())));
  if (converted == nullptr) {
    return nullptr;
  }
  convertStrExt(line.get(), codeSet, converted.get(), targetCodeSet);
  mbstrncpyi(buffer, converted.get(), size - 1);
  buffer[size - 1] = '\0';
  return buffer;
}

const char* getTransferEncodingFromCodeSet(int codeSet) {
  return codeSet == kJis ? "7bit" : "8bit";
}
