// Streams over descriptors with failing system calls.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <string>

#include "fault/Support.h"
#include "fault/SystemScenario.h"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

using faulty::Call;

// More than two buffers, in lines.
const std::string& longText() {
  static const std::string made = [] {
    std::string text;
    for (int i = 0; text.size() < 10000; ++i) {
      text += "line " + std::to_string(i) + "\n";
    }
    return text;
  }();
  return made;
}

void open(SystemAttempt& attempt, const char* mode) {
  const std::string path = folder().write("stream", "abc");
  errno = 0;
  ZQFILE* stream = attempt.call([&] { return ZQfopen(path.c_str(), mode); });
  EXPECT_EQ(stream == nullptr, attempt.failed());
  if (attempt.failed()) {
    EXPECT_EQ(errno, attempt.error());
    EXPECT_EQ(contentOf(path), "abc");
    stream = ZQfopen(path.c_str(), mode);
  }
  EXPECT_EQ(ZQfclose(stream), 0);
}

// The stream is gone, and so is its descriptor.
void closeStream(SystemAttempt& attempt) {
  ZQFILE* stream = ZQfopen(folder().write("stream", "abc").c_str(), "r");
  const int fd = ZQfileno(stream);
  errno = 0;
  const int result = attempt.call([&] { return ZQfclose(stream); });
  EXPECT_EQ(result, attempt.failed() ? -1 : 0);
  EXPECT_EQ(errno, attempt.failed() ? attempt.error() : 0);
  EXPECT_EQ(ZQfileno(stream), -1);
  EXPECT_EQ(fcntl(fd, F_GETFD), -1);
}

// Reads as far as it goes; appends to `text` and returns whether the end has been reached.
using Read = std::function<bool(ZQFILE*, std::string&)>;

// What was read before a failure is delivered or read again; the rest follows once the error is
// cleared.
void readAll(SystemAttempt& attempt, const Read& read) {
  ZQFILE* stream = ZQfopen(folder().write("stream", longText()).c_str(), "r");
  std::string text;
  text.reserve(2 * longText().size());
  const bool ended = attempt.call([&] { return read(stream, text); });
  EXPECT_EQ(ended, !attempt.failed());
  EXPECT_EQ(ZQferror(stream), attempt.failed() ? attempt.error() : 0);
  EXPECT_EQ(ZQfeof(stream), attempt.failed() ? 0 : 1);
  EXPECT_EQ(ZQftell(stream), static_cast<long>(text.size()));
  EXPECT_EQ(text, longText().substr(0, text.size()));
  if (attempt.failed()) {
    ZQclearerr(stream);
    EXPECT_TRUE(read(stream, text));
  }
  EXPECT_EQ(text, longText());
  EXPECT_EQ(ZQfclose(stream), 0);
}

bool readBytes(ZQFILE* stream, std::string& text) {
  for (int byte; (byte = ZQfgetc(stream)) != EOF;) {
    text += static_cast<char>(byte);
  }
  return ZQfeof(stream) == 1;
}

bool readLines(ZQFILE* stream, std::string& text) {
  char line[64];
  while (ZQfgets(line, sizeof line, stream) != nullptr) {
    text += line;
    if (ZQferror(stream) != 0) {
      return false;
    }
  }
  return ZQfeof(stream) == 1;
}

bool readItems(ZQFILE* stream, std::string& text) {
  char items[1000];
  for (;;) {
    // An item that a failure cuts off is consumed.
    const long before = ZQftell(stream);
    const long got = ZQfread(items, 1, sizeof items, stream);
    text.append(items, static_cast<size_t>(ZQftell(stream) - before));
    if (got <= 0 || ZQfeof(stream) == 1) {
      return ZQfeof(stream) == 1;
    }
  }
}

// Writes `text` and returns whether all of it went out.
using Write = std::function<bool(ZQFILE*, const std::string& text)>;

// What has been written before a failure stays, the position tells how far it came, and the stream
// goes on there.
void write(SystemAttempt& attempt, const char* mode, const std::string& text, const Write& write) {
  const std::string path = folder().write("stream", "old");
  ZQFILE* stream = ZQfopen(path.c_str(), mode);
  const std::string old = *mode == 'w' ? "" : "old";
  const bool done = attempt.call([&] { return write(stream, text); });
  // An interrupted write is tried again.
  const bool fails =
      attempt.failed() && !(attempt.failedTo(Call::Write) && attempt.error() == EINTR);
  EXPECT_EQ(done, !fails);
  EXPECT_EQ(ZQferror(stream), fails ? attempt.error() : 0);
  const std::string found = contentOf(path);
  const std::string whole = old + text;
  EXPECT_EQ(found, whole.substr(0, found.size()));
  if (!fails) {
    EXPECT_EQ(found, whole);
    EXPECT_EQ(ZQftell(stream), static_cast<long>(whole.size()));
  } else {
    const long position = ZQftell(stream);
    EXPECT_TRUE(position == static_cast<long>(found.size()) || position == 0) << position;
    ZQclearerr(stream);
    EXPECT_TRUE(write(stream, text));
    EXPECT_EQ(ZQferror(stream), 0);
    EXPECT_EQ(contentOf(path), found + text);
  }
  EXPECT_EQ(ZQfclose(stream), 0);
}

void seek(SystemAttempt& attempt) {
  ZQFILE* stream = ZQfopen(folder().write("stream", "abcdef").c_str(), "r");
  EXPECT_EQ(ZQfgetc(stream), 'a');
  const int result = attempt.call([&] { return ZQfseek(stream, 2, SEEK_CUR); });
  EXPECT_EQ(result, attempt.failed() ? -1 : 0);
  EXPECT_EQ(ZQferror(stream), attempt.failed() ? attempt.error() : 0);
  // A failure leaves the position and the buffer alone.
  EXPECT_EQ(ZQftell(stream), attempt.failed() ? 1 : 3);
  EXPECT_EQ(ZQfgetc(stream), attempt.failed() ? 'b' : 'd');
  EXPECT_EQ(ZQfseek(stream, -1, SEEK_END), 0);
  EXPECT_EQ(ZQfgetc(stream), 'f');
  EXPECT_EQ(ZQfclose(stream), 0);
}

// Position, mark and error are cleared also if the seek fails.
void rewind(SystemAttempt& attempt) {
  ZQFILE* stream = ZQfopen(folder().write("stream", "abcdef").c_str(), "r");
  EXPECT_EQ(ZQfgetc(stream), 'a');
  attempt.call([&] { ZQrewind(stream); });
  EXPECT_EQ(ZQftell(stream), 0);
  EXPECT_EQ(ZQferror(stream), 0);
  EXPECT_EQ(ZQfseek(stream, 0, SEEK_SET), 0);
  EXPECT_EQ(ZQfgetc(stream), 'a');
  EXPECT_EQ(ZQfclose(stream), 0);
}

// A descriptor that is handed over.
void handOver(SystemAttempt& attempt) {
  const int fd = ::open(folder().write("stream", "abc").c_str(), O_RDWR);
  char buffer[8] = "";
  long got = 0;
  const int result = attempt.call([&] {
    ZQFILE* stream = ZQfdopen(fd, "r+");
    got = ZQfread(buffer, 1, 3, stream);
    return ZQfclose(stream);
  });
  EXPECT_EQ(result, attempt.failedTo(Call::Close) ? -1 : 0);
  EXPECT_EQ(got, attempt.failedTo(Call::Read) ? 0 : 3);
  EXPECT_STREQ(buffer, attempt.failedTo(Call::Read) ? "" : "abc");
}

}  // namespace

void addSystemStreamScenarios(SystemScenarios& table) {
  for (const char* mode : {"r", "r+", "a"}) {
    table.push_back({std::string("ZQfopen ") + mode, {"ZQfopen"}, [mode](SystemAttempt& attempt) {
                       open(attempt, mode);
                     }});
  }
  table.push_back({"ZQfclose", {"ZQfclose"}, closeStream});
  const auto addRead = [&table](const char* function, const Read& read) {
    table.push_back(
        {function, {function}, [read](SystemAttempt& attempt) { readAll(attempt, read); }});
  };
  addRead("ZQfgetc", readBytes);
  addRead("ZQfgets", readLines);
  addRead("ZQfread", readItems);
  const auto addWrite = [&table](const char* function, const std::string& text,
                                 const Write& writing) {
    for (const char* mode : {"w", "a"}) {
      table.push_back(
          {std::string(function) + " " + mode,
           {function},
           [mode, text, writing](SystemAttempt& attempt) { write(attempt, mode, text, writing); }});
    }
  };
  addWrite("ZQfwrite", longText(), [](ZQFILE* stream, const std::string& text) {
    return ZQfwrite(text.data(), 1, text.size(), stream) == text.size();
  });
  addWrite("ZQfputs", longText(), [](ZQFILE* stream, const std::string& text) {
    return ZQfputs(text.c_str(), stream) == static_cast<int>(text.size());
  });
  addWrite("ZQfprintf", longText(), [](ZQFILE* stream, const std::string& text) {
    return ZQfprintf(stream, "%s", text.c_str()) == static_cast<int>(text.size());
  });
  addWrite("ZQfputc", "x", [](ZQFILE* stream, const std::string& text) {
    return ZQfputc(text[0], stream) == text[0];
  });
  table.push_back({"ZQfseek", {"ZQfseek"}, seek});
  table.push_back({"ZQrewind", {"ZQrewind"}, rewind});
  table.push_back({"ZQfdopen", {"ZQfdopen"}, handOver});
}

}  // namespace fault
