#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "fault/FaultySystem.h"
#include "zqxml/zqxml.h"

namespace {

using faulty::Call;

constexpr int kBuffer = 4096;

class Streams : public testing::Test {
 protected:
  void SetUp() override {
    char name[] = "/tmp/zqxml_stream_XXXXXX";
    ASSERT_NE(mkdtemp(name), nullptr);
    folder = name;
    path = folder + "/file";
    descriptors = faulty::openDescriptors();
  }
  void TearDown() override {
    EXPECT_EQ(faulty::openDescriptors(), descriptors);
    unlink(path.c_str());
    rmdir(folder.c_str());
  }

  void save(const std::string& content) const { std::ofstream(path, std::ios::binary) << content; }
  std::string load() const {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
  }
  ZQFILE* open(const char* mode) const { return ZQfopen(path.c_str(), mode); }
  ZQFILE* openWith(const std::string& content, const char* mode) const {
    save(content);
    return open(mode);
  }

  std::string folder;
  std::string path;
  int descriptors = 0;
};

// What is left of a stream.
std::string rest(ZQFILE* stream) {
  std::string text(100000, '\0');
  text.resize(static_cast<size_t>(ZQfread(text.data(), 1, text.size(), stream)));
  return text;
}

TEST_F(Streams, ModesOpenWithTheirFlags) {
  struct Mode {
    const char* mode;
    int flags;
    int append;
  };
  constexpr Mode kModes[] = {
      {"r", 0, 0},    {"rb", 0, 0},   {"r+", 2, 0},    {"rb+", 2, 0},  {"r+b", 2, 0}, {"w", 577, 0},
      {"wb", 577, 0}, {"w+", 578, 0}, {"wb+", 578, 0}, {"a", 65, 1},   {"ab", 65, 1}, {"a+", 66, 1},
      {"ab+", 66, 1}, {"", 0, 0},     {"x", 0, 0},     {"x+", 0, 0},   {"ra", 0, 1},  {"b", 0, 0},
      {"rt+", 0, 0},  {"W", 0, 0},    {"wa", 577, 1},  {"rbx+", 0, 0},
  };
  for (const Mode& row : kModes) {
    save("abc");
    ZQFILE* stream = open(row.mode);
    ASSERT_NE(stream, nullptr) << row.mode;
    EXPECT_EQ(faulty::lastOpened().flags, row.flags) << row.mode;
    EXPECT_EQ(faulty::lastOpened().mode, (row.flags & O_CREAT) != 0 ? 0777U : 0U) << row.mode;
    EXPECT_EQ(stream->magic, 0xDEADBEEF);
    EXPECT_EQ(stream->appendMode, row.append) << row.mode;
    EXPECT_EQ(stream->nextByte, stream->buffer);
    EXPECT_EQ(stream->count, 0);
    EXPECT_EQ(stream->errorNumber, 0);
    EXPECT_EQ(ZQftell(stream), 0);
    EXPECT_EQ(ZQfeof(stream), 0);
    EXPECT_EQ(ZQfileno(stream), faulty::lastOpened().result);
    EXPECT_EQ(load(), (row.flags & O_TRUNC) != 0 ? "" : "abc");
    EXPECT_EQ(ZQfclose(stream), 0);
  }
}

TEST_F(Streams, CreatedFilesHaveAllBitsButTheUmasks) {
  const mode_t mask = umask(022);
  ZQFILE* stream = open("w");
  umask(mask);
  struct stat status;
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0755U);
  ZQfclose(stream);
}

TEST_F(Streams, ThatCanNotBeOpened) {
  errno = 0;
  EXPECT_EQ(open("r"), nullptr);
  EXPECT_EQ(errno, ENOENT);
  errno = 0;
  EXPECT_EQ(ZQfopen(nullptr, "r"), nullptr);
  EXPECT_EQ(errno, EINVAL);
  errno = 0;
  EXPECT_EQ(ZQfopen("a", nullptr), nullptr);
  EXPECT_EQ(errno, EINVAL);
  errno = 0;
  EXPECT_EQ(ZQfdopen(0, nullptr), nullptr);
  EXPECT_EQ(errno, EINVAL);
  save("");
  for (const int error : {EIO, ENOSPC, EINTR, EMFILE}) {
    faulty::Failure failure(Call::Open, error);
    EXPECT_EQ(open("w"), nullptr);
    EXPECT_EQ(errno, error);
  }
}

TEST_F(Streams, OfADescriptor) {
  save("abcdef");
  const int fd = ::open(path.c_str(), O_RDWR);
  lseek(fd, 2, SEEK_SET);
  ZQFILE* stream = ZQfdopen(fd, "r+");
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(ZQfileno(stream), fd);
  // Reads begin where the descriptor stands, the position at 0.
  EXPECT_EQ(ZQftell(stream), 0);
  EXPECT_EQ(ZQfgetc(stream), 'c');
  EXPECT_EQ(ZQftell(stream), 1);
  EXPECT_EQ(ZQfputc('X', stream), 'X');
  EXPECT_EQ(load(), "aXcdef");
  EXPECT_EQ(stream->appendMode, 0);
  EXPECT_EQ(ZQfclose(stream), 0);
  EXPECT_EQ(fcntl(fd, F_GETFD), -1);
  const int other = ::open(path.c_str(), O_RDWR);
  stream = ZQfdopen(other, "xa");
  EXPECT_EQ(stream->appendMode, 1);
  EXPECT_EQ(ZQfclose(stream), 0);
}

// What each function gives for a stream that it refuses.
void expectRefused(ZQFILE* stream) {
  char buffer[4] = "abc";
  const auto refused = [](auto call) {
    errno = 0;
    const auto result = call();
    EXPECT_EQ(errno, EBADF);
    return result;
  };
  EXPECT_EQ(refused([&] { return ZQfclose(stream); }), -1);
  EXPECT_EQ(refused([&] { return ZQfgetc(stream); }), -1);
  EXPECT_EQ(refused([&] { return ZQungetc('a', stream); }), -1);
  EXPECT_EQ(refused([&] { return ZQfread(buffer, 1, 1, stream); }), -1);
  EXPECT_EQ(refused([&] { return ZQfread(buffer, 0, 1, stream); }), -1);
  EXPECT_EQ(refused([&] { return ZQfgets(buffer, 4, stream); }), nullptr);
  EXPECT_EQ(refused([&] { return ZQfgets(buffer, 1, stream); }), nullptr);
  EXPECT_EQ(refused([&] { return ZQfwrite(buffer, 1, 1, stream); }), 0U);
  EXPECT_EQ(refused([&] { return ZQfwrite(buffer, 0, 1, stream); }), 0U);
  EXPECT_EQ(refused([&] { return ZQfprintf(stream, "%d", 1); }), 0);
  EXPECT_EQ(refused([&] { return ZQfputc('a', stream); }), -1);
  EXPECT_EQ(refused([&] { return ZQfputs("a", stream); }), -1);
  EXPECT_EQ(refused([&] { return ZQftell(stream); }), -1);
  EXPECT_EQ(refused([&] { return ZQfeof(stream); }), 0);
  EXPECT_EQ(refused([&] { return ZQferror(stream); }), -1);
  EXPECT_EQ(refused([&] { return ZQfseek(stream, 0, SEEK_SET); }), -1);
  EXPECT_EQ(refused([&] { return ZQfflush(stream); }), -1);
  refused([&] { return ZQclearerr(stream), 0; });
  refused([&] { return ZQrewind(stream), 0; });
  errno = 7;
  EXPECT_EQ(ZQfileno(stream), -1);
  EXPECT_EQ(errno, 7);
  EXPECT_STREQ(buffer, "abc");
}

TEST_F(Streams, NullAndClosedOnesAreRefused) {
  expectRefused(nullptr);
  ZQFILE* stream = openWith("abc", "r+");
  EXPECT_EQ(ZQfclose(stream), 0);
  EXPECT_EQ(stream->magic, 0U);
  expectRefused(stream);
  EXPECT_EQ(load(), "abc");
}

TEST_F(Streams, TheRecordOfAClosedOneStartsAfresh) {
  ZQFILE* stream = openWith("abc", "r");
  EXPECT_EQ(rest(stream), "abc");
  EXPECT_EQ(ZQfputc('x', stream), -1);
  EXPECT_EQ(ZQferror(stream), EBADF);
  ZQfclose(stream);
  ZQFILE* next = open("r");
  EXPECT_EQ(next, stream);
  EXPECT_EQ(ZQfeof(next), 0);
  EXPECT_EQ(ZQferror(next), 0);
  EXPECT_EQ(ZQftell(next), 0);
  // The stale byte behind a pushed one is 0 in a fresh buffer.
  EXPECT_EQ(ZQungetc('z', next), 'z');
  EXPECT_EQ(ZQfgetc(next), 'z');
  EXPECT_EQ(ZQfgetc(next), 0);
  ZQfclose(next);
}

TEST_F(Streams, AFailedCloseClosesAllTheSame) {
  ZQFILE* stream = openWith("abc", "r");
  {
    faulty::Failure failure(Call::Close, EIO);
    EXPECT_EQ(ZQfclose(stream), -1);
    EXPECT_EQ(errno, EIO);
  }
  expectRefused(stream);
}

TEST_F(Streams, BytesAreSigned) {
  ZQFILE* stream = openWith("a\xFF\x80\n", "r");
  EXPECT_EQ(ZQfgetc(stream), 'a');
  EXPECT_EQ(ZQfgetc(stream), -1);
  EXPECT_EQ(ZQfeof(stream), 0);
  EXPECT_EQ(ZQferror(stream), 0);
  EXPECT_EQ(ZQfgetc(stream), -128);
  EXPECT_EQ(ZQfgetc(stream), '\n');
  EXPECT_EQ(ZQftell(stream), 4);
  EXPECT_EQ(ZQfgetc(stream), -1);
  EXPECT_EQ(ZQfeof(stream), 1);
  EXPECT_EQ(stream->count, 0);
  EXPECT_EQ(ZQftell(stream), 4);
  ZQclearerr(stream);
  EXPECT_EQ(ZQfeof(stream), 0);
  ZQfclose(stream);
}

TEST_F(Streams, BytesArePushedBack) {
  ZQFILE* stream = openWith("abc", "r");
  EXPECT_EQ(ZQfgetc(stream), 'a');
  EXPECT_EQ(ZQungetc('x', stream), 'x');
  EXPECT_EQ(ZQftell(stream), 0);
  EXPECT_EQ(rest(stream), "xbc");
  EXPECT_EQ(ZQfeof(stream), 1);
  EXPECT_EQ(ZQftell(stream), 3);
  ZQfclose(stream);
  // Four below the buffer, and no more.
  stream = openWith("abc", "r");
  EXPECT_EQ(ZQfgetc(stream), 'a');
  for (const char byte : {'1', '2', '3', '4', '5'}) {
    EXPECT_EQ(ZQungetc(byte, stream), byte);
  }
  EXPECT_EQ(ZQungetc('6', stream), -1);
  EXPECT_EQ(ZQftell(stream), -4);
  EXPECT_EQ(rest(stream), "54321bc");
  ZQfclose(stream);
  // A full buffer has the same room.
  stream = openWith(std::string(kBuffer, 'a'), "r");
  EXPECT_EQ(ZQfgetc(stream), 'a');
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(ZQungetc(0x1FF, stream), 0x1FF);
  }
  EXPECT_EQ(stream->count, kBuffer + 4);
  EXPECT_EQ(ZQungetc('6', stream), -1);
  EXPECT_EQ(rest(stream), "\xFF\xFF\xFF\xFF\xFF" + std::string(kBuffer - 1, 'a'));
  ZQfclose(stream);
}

TEST_F(Streams, AStaleByteFollowsOneThatIsPushedBackOnAnEmptyBuffer) {
  ZQFILE* stream = openWith("abc", "r");
  EXPECT_EQ(rest(stream), "abc");
  EXPECT_EQ(ZQfeof(stream), 1);
  EXPECT_EQ(ZQungetc('x', stream), 'x');
  EXPECT_EQ(ZQfeof(stream), 0);
  EXPECT_EQ(stream->count, 2);
  EXPECT_EQ(ZQftell(stream), 2);
  EXPECT_EQ(ZQfgetc(stream), 'x');
  EXPECT_EQ(ZQfgetc(stream), 0);  // what the buffer held four bytes before its end
  EXPECT_EQ(ZQftell(stream), 4);
  EXPECT_EQ(ZQfgetc(stream), -1);
  EXPECT_EQ(ZQfeof(stream), 1);
  ZQfclose(stream);
  std::string text(kBuffer, '-');
  text[kBuffer - 4] = 'S';
  stream = openWith(text, "r");
  EXPECT_EQ(rest(stream), text);
  EXPECT_EQ(ZQungetc('x', stream), 'x');
  EXPECT_EQ(rest(stream), "xS");
  ZQfclose(stream);
}

TEST_F(Streams, ItemsAreRead) {
  ZQFILE* stream = openWith("abcdefgh", "r");
  char buffer[16];
  EXPECT_EQ(ZQfread(buffer, 2, 2, stream), 2);
  EXPECT_EQ(memcmp(buffer, "abcd", 4), 0);
  EXPECT_EQ(ZQfread(buffer, 0, 5, stream), 0);
  EXPECT_EQ(ZQfread(buffer, 5, 0, stream), 0);
  EXPECT_EQ(ZQfread(nullptr, 1, 1, stream), 0);
  EXPECT_EQ(ZQftell(stream), 4);
  // Of the second item only a byte is there; it is gone.
  EXPECT_EQ(ZQfread(buffer, 3, 2, stream), 1);
  EXPECT_EQ(memcmp(buffer, "efgh", 4), 0);
  EXPECT_EQ(ZQfeof(stream), 1);
  EXPECT_EQ(ZQftell(stream), 8);
  EXPECT_EQ(ZQfread(buffer, 1, 1, stream), 0);
  ZQclearerr(stream);
  EXPECT_EQ(ZQfread(buffer, SIZE_MAX / 2, 3, stream), 0);
  EXPECT_EQ(ZQferror(stream), EINVAL);
  EXPECT_EQ(ZQfeof(stream), 0);
  ZQfclose(stream);
}

TEST_F(Streams, LinesAreRead) {
  ZQFILE* stream = openWith("ab\n\ncdef", "r");
  char line[16];
  memset(line, '#', sizeof line);
  EXPECT_EQ(ZQfgets(line, 16, stream), line);
  EXPECT_EQ(memcmp(line, "ab\n\0#", 5), 0);
  EXPECT_EQ(ZQftell(stream), 3);
  EXPECT_EQ(ZQfgets(line, 16, stream), line);
  EXPECT_STREQ(line, "\n");
  EXPECT_EQ(ZQfgets(line, 1, stream), nullptr);
  EXPECT_EQ(ZQfgets(line, 0, stream), nullptr);
  EXPECT_EQ(ZQfgets(line, -5, stream), nullptr);
  EXPECT_EQ(ZQfgets(nullptr, 5, stream), nullptr);
  memset(line, '#', sizeof line);
  EXPECT_EQ(ZQfgets(line, 4, stream), line);
  EXPECT_EQ(memcmp(line, "cde\0#", 5), 0);
  EXPECT_EQ(ZQfeof(stream), 0);
  EXPECT_EQ(ZQfgets(line, 16, stream), line);
  EXPECT_STREQ(line, "f");
  EXPECT_EQ(ZQfeof(stream), 1);
  EXPECT_EQ(ZQftell(stream), 8);
  EXPECT_EQ(ZQfgets(line, 16, stream), nullptr);
  EXPECT_STREQ(line, "f");
  ZQfclose(stream);
}

TEST_F(Streams, LinesGoAcrossTheBuffer) {
  for (const int length : {kBuffer - 2, kBuffer - 1, kBuffer, kBuffer + 1, 3 * kBuffer}) {
    const std::string line(static_cast<size_t>(length), 'x');
    ZQFILE* stream = openWith(line + "\nnext\n", "r");
    std::vector<char> buffer(static_cast<size_t>(length) + 2);
    EXPECT_EQ(ZQfgets(buffer.data(), length + 2, stream), buffer.data());
    EXPECT_TRUE(line + "\n" == buffer.data()) << length;
    EXPECT_EQ(ZQftell(stream), length + 1);
    EXPECT_EQ(rest(stream), "next\n");
    // With room for all but the new line.
    ZQrewind(stream);
    EXPECT_EQ(ZQfgets(buffer.data(), length + 1, stream), buffer.data());
    EXPECT_TRUE(line == buffer.data()) << length;
    EXPECT_EQ(ZQfgetc(stream), '\n');
    ZQfclose(stream);
  }
}

TEST_F(Streams, ItemsAreWritten) {
  ZQFILE* stream = open("w");
  EXPECT_EQ(ZQfwrite("abcdef", 2, 3, stream), 3U);
  EXPECT_EQ(ZQftell(stream), 6);
  EXPECT_EQ(ZQfwrite("x", 0, 3, stream), 0U);
  EXPECT_EQ(ZQfwrite("x", 3, 0, stream), 0U);
  EXPECT_EQ(ZQfwrite(nullptr, 1, 1, stream), 0U);
  EXPECT_EQ(ZQferror(stream), 0);
  EXPECT_EQ(ZQfwrite("x", SIZE_MAX / 2, 3, stream), 0U);
  EXPECT_EQ(ZQferror(stream), EINVAL);
  EXPECT_EQ(ZQfputc('g', stream), 'g');
  EXPECT_EQ(ZQfputc(0x168, stream), 0x168);
  EXPECT_EQ(ZQfputs("ij", stream), 2);
  EXPECT_EQ(ZQfputs("", stream), -1);
  EXPECT_EQ(ZQfputs(nullptr, stream), -1);
  EXPECT_EQ(ZQfflush(stream), 0);
  EXPECT_EQ(load(), "abcdefghij");  // without a close
  EXPECT_EQ(ZQftell(stream), 10);
  ZQfclose(stream);
}

TEST_F(Streams, WritesGoToThePosition) {
  ZQFILE* stream = openWith("0123456789", "r+");
  char buffer[4];
  EXPECT_EQ(ZQfread(buffer, 1, 3, stream), 3);
  EXPECT_EQ(ZQfputs("ab", stream), 2);
  EXPECT_EQ(ZQftell(stream), 5);
  EXPECT_EQ(ZQfgetc(stream), '5');
  EXPECT_EQ(ZQungetc('x', stream), 'x');
  EXPECT_EQ(ZQfputs("c", stream), 1);  // drops the pushed byte
  EXPECT_EQ(ZQfgetc(stream), '6');
  EXPECT_EQ(load(), "012abc6789");
  ZQfclose(stream);
}

TEST_F(Streams, AppendingGoesToTheEnd) {
  ZQFILE* stream = openWith("abc", "a+");
  EXPECT_EQ(ZQfgetc(stream), 'a');
  EXPECT_EQ(ZQfputs("d", stream), 1);
  EXPECT_EQ(ZQftell(stream), 4);
  EXPECT_EQ(ZQfseek(stream, 1, SEEK_SET), 0);
  EXPECT_EQ(ZQfgetc(stream), 'b');
  // Another writer makes it longer.
  std::ofstream(path, std::ios::app) << "EF";
  EXPECT_EQ(ZQfputs("g", stream), 1);
  EXPECT_EQ(ZQftell(stream), 7);
  EXPECT_EQ(load(), "abcdEFg");
  ZQfclose(stream);
  // An "a" behind the "r" appends too, but the file can't be written to.
  stream = open("ra");
  EXPECT_EQ(ZQfputs("x", stream), -1);
  EXPECT_EQ(ZQferror(stream), EBADF);
  EXPECT_EQ(ZQftell(stream), 7);
  ZQfclose(stream);
}

TEST_F(Streams, ReadOnlyAndWriteOnlyOnes) {
  ZQFILE* stream = openWith("abc", "r");
  EXPECT_EQ(ZQfwrite("x", 1, 1, stream), 0U);
  EXPECT_EQ(ZQferror(stream), EBADF);
  EXPECT_EQ(ZQfputc('x', stream), -1);
  EXPECT_EQ(ZQfputs("x", stream), -1);
  EXPECT_EQ(ZQfprintf(stream, "x"), 0);
  ZQclearerr(stream);
  EXPECT_EQ(rest(stream), "abc");
  ZQfclose(stream);
  EXPECT_EQ(load(), "abc");
  stream = open("w");
  char buffer[4];
  EXPECT_EQ(ZQfgetc(stream), -1);
  EXPECT_EQ(ZQferror(stream), EBADF);
  EXPECT_EQ(ZQfeof(stream), 0);
  EXPECT_EQ(ZQfread(buffer, 1, 1, stream), 0);
  EXPECT_EQ(ZQfgets(buffer, 4, stream), nullptr);
  ZQfclose(stream);
}

TEST_F(Streams, FormattedTexts) {
  ZQFILE* stream = open("w+");
  EXPECT_EQ(ZQfprintf(stream, "%d %s|", 42, "text"), 8);
  EXPECT_EQ(ZQfprintf(stream, "%s", ""), 0);
  const char* none = nullptr;
  EXPECT_EQ(ZQfprintf(stream, none, 1), 0);
  EXPECT_EQ(load(), "42 text|");
  for (const int length : {16382, 16383, 16384, 16385, 50000}) {
    ZQfclose(stream);
    stream = open("w");
    EXPECT_EQ(ZQfprintf(stream, "%*d%s", length - 2, 7, "ab"), length);
    EXPECT_TRUE(load() == std::string(static_cast<size_t>(length) - 3, ' ') + "7ab") << length;
    EXPECT_EQ(ZQftell(stream), length);
  }
  // A wide character that the locale doesn't have fails.
  EXPECT_EQ(ZQfprintf(stream, "%lc", static_cast<wint_t>(0x20AC)), 0);
  ZQfclose(stream);
}

TEST_F(Streams, Seeks) {
  ZQFILE* stream = openWith("0123456789", "r");
  EXPECT_EQ(ZQfgetc(stream), '0');
  EXPECT_EQ(ZQfseek(stream, 2, SEEK_CUR), 0);  // from the position, not from the descriptor's
  EXPECT_EQ(ZQftell(stream), 3);
  EXPECT_EQ(ZQfgetc(stream), '3');
  EXPECT_EQ(ZQfseek(stream, -2, SEEK_CUR), 0);
  EXPECT_EQ(ZQfgetc(stream), '2');
  EXPECT_EQ(ZQfseek(stream, -3, SEEK_END), 0);
  EXPECT_EQ(ZQftell(stream), 7);
  EXPECT_EQ(rest(stream), "789");
  EXPECT_EQ(ZQfeof(stream), 1);
  EXPECT_EQ(ZQfseek(stream, 5, SEEK_SET), 0);
  EXPECT_EQ(ZQfeof(stream), 0);
  EXPECT_EQ(rest(stream), "56789");
  EXPECT_EQ(ZQfseek(stream, -1, SEEK_SET), -1);
  EXPECT_EQ(ZQferror(stream), EINVAL);
  EXPECT_EQ(ZQftell(stream), 10);
  EXPECT_EQ(ZQfeof(stream), 1);
  EXPECT_EQ(ZQfseek(stream, 0, 99), -1);
  ZQclearerr(stream);
  EXPECT_EQ(ZQfseek(stream, LONG_MAX, SEEK_CUR), -1);
  EXPECT_EQ(ZQferror(stream), EOVERFLOW);
  EXPECT_EQ(rest(stream), "");
  ZQrewind(stream);
  EXPECT_EQ(ZQfeof(stream), 0);
  EXPECT_EQ(ZQferror(stream), 0);
  EXPECT_EQ(ZQftell(stream), 0);
  EXPECT_EQ(rest(stream), "0123456789");
  ZQfclose(stream);
}

TEST_F(Streams, AFailedSeekKeepsWhatIsRead) {
  ZQFILE* stream = openWith("0123456789", "r");
  EXPECT_EQ(ZQfgetc(stream), '0');
  {
    faulty::Failure failure(Call::Seek, EIO);
    EXPECT_EQ(ZQfseek(stream, 5, SEEK_SET), -1);
  }
  EXPECT_EQ(ZQferror(stream), EIO);
  EXPECT_EQ(ZQfgetc(stream), '1');
  EXPECT_EQ(ZQftell(stream), 2);
  {
    faulty::Failure failure(Call::Seek, EIO);
    ZQrewind(stream);
  }
  // The position is 0 all the same, and the error cleared.
  EXPECT_EQ(ZQferror(stream), 0);
  EXPECT_EQ(ZQftell(stream), 0);
  EXPECT_EQ(ZQfgetc(stream), -1);
  ZQfclose(stream);
}

TEST_F(Streams, FailedReads) {
  char buffer[8];
  for (const int error : {EIO, EINTR, ENOSPC}) {
    ZQFILE* stream = openWith("ab\ncd", "r");
    {
      faulty::Failure failure(Call::Read, error);
      EXPECT_EQ(ZQfgetc(stream), -1);
    }
    EXPECT_EQ(ZQferror(stream), error);
    EXPECT_EQ(ZQfeof(stream), 0);
    EXPECT_EQ(ZQftell(stream), 0);
    EXPECT_EQ(ZQfgetc(stream), 'a');
    EXPECT_EQ(ZQferror(stream), error);
    ZQrewind(stream);
    {
      faulty::Failure failure(Call::Read, error);
      EXPECT_EQ(ZQfread(buffer, 1, 3, stream), 0);
    }
    EXPECT_EQ(ZQferror(stream), error);
    {
      faulty::Failure failure(Call::Read, error);
      EXPECT_EQ(ZQfgets(buffer, 8, stream), nullptr);
    }
    EXPECT_EQ(ZQfgets(buffer, 8, stream), buffer);
    EXPECT_STREQ(buffer, "ab\n");
    ZQfclose(stream);
  }
}

TEST_F(Streams, FailedReadsBehindTheBuffer) {
  const std::string text(kBuffer + 10, 'x');
  ZQFILE* stream = openWith(text, "r");
  std::vector<char> buffer(2 * kBuffer);
  {
    faulty::Failure failure(Call::Read, EIO, 1);
    EXPECT_EQ(ZQfread(buffer.data(), 1, buffer.size(), stream), 0);
  }
  EXPECT_EQ(ZQferror(stream), EIO);
  EXPECT_EQ(ZQftell(stream), kBuffer);
  ZQrewind(stream);
  {
    // A line that a failure ends is delivered.
    faulty::Failure failure(Call::Read, EIO, 1);
    EXPECT_EQ(ZQfgets(buffer.data(), 2 * kBuffer, stream), buffer.data());
  }
  EXPECT_EQ(strlen(buffer.data()), static_cast<size_t>(kBuffer));
  EXPECT_EQ(ZQferror(stream), EIO);
  ZQfclose(stream);
}

TEST_F(Streams, FailedWrites) {
  for (const int error : {EIO, ENOSPC}) {
    for (const int limit : {3, 100}) {
      ZQFILE* stream = openWith("", "w");
      faulty::ShortCounts counts(limit);
      {
        faulty::Failure failure(Call::Write, error, 2);
        // Of ten bytes in pieces of three two pieces are out before the failure.
        const std::string text = "0123456789";
        const bool fails = limit == 3;
        EXPECT_EQ(ZQfwrite(text.data(), 2, 5, stream), fails ? 0U : 5U);
        EXPECT_EQ(ZQferror(stream), fails ? error : 0);
        EXPECT_EQ(ZQftell(stream), fails ? 6 : 10);
        EXPECT_EQ(load(), fails ? "012345" : text);
      }
      ZQfclose(stream);
    }
  }
  ZQFILE* full = ZQfopen("/dev/full", "w");
  EXPECT_EQ(ZQfputs("abc", full), -1);
  EXPECT_EQ(ZQferror(full), ENOSPC);
  EXPECT_EQ(ZQftell(full), 0);
  ZQfclose(full);
}

TEST_F(Streams, InterruptedWritesGoOn) {
  for (int interrupted = 0; interrupted < 4; ++interrupted) {
    ZQFILE* stream = open("w");
    faulty::ShortCounts counts(3);
    {
      faulty::Failure failure(Call::Write, EINTR, interrupted);
      EXPECT_EQ(ZQfputs("0123456789", stream), 10);
    }
    EXPECT_EQ(load(), "0123456789");
    EXPECT_EQ(ZQferror(stream), 0);
    ZQfclose(stream);
  }
}

TEST_F(Streams, AWriteWithoutProgressFails) {
  ZQFILE* stream = open("w");
  {
    faulty::ShortCounts counts(0);
    EXPECT_EQ(ZQfputs("abc", stream), -1);
  }
  EXPECT_EQ(ZQferror(stream), EIO);
  ZQfclose(stream);
}

TEST_F(Streams, FailedSeeksBeforeAWrite) {
  for (const char* mode : {"r+", "a"}) {
    ZQFILE* stream = openWith("abc", mode);
    {
      faulty::Failure failure(Call::Seek, EIO);
      EXPECT_EQ(ZQfputs("x", stream), -1);
    }
    EXPECT_EQ(ZQferror(stream), EIO);
    EXPECT_EQ(ZQftell(stream), 0);
    EXPECT_EQ(load(), "abc");
    ZQfclose(stream);
  }
  ZQFILE* stream = openWith("abc", "r+");
  EXPECT_EQ(ZQfgetc(stream), 'a');
  {
    faulty::Failure failure(Call::Seek, EIO);
    EXPECT_EQ(ZQfputs("x", stream), -1);
  }
  EXPECT_EQ(stream->count, 0);  // dropped all the same
  ZQfclose(stream);
}

TEST_F(Streams, ReadsInPieces) {
  const std::string text = "first\nsecond line\nthird";
  for (const int limit : {1, 2, 5, 100}) {
    ZQFILE* stream = openWith(text, "r");
    faulty::ShortCounts counts(limit);
    char line[64];
    EXPECT_STREQ(ZQfgets(line, 64, stream), "first\n");
    EXPECT_STREQ(ZQfgets(line, 64, stream), "second line\n");
    EXPECT_STREQ(ZQfgets(line, 64, stream), "third");
    ZQrewind(stream);
    EXPECT_EQ(ZQfread(line, 5, 4, stream), 4);
    EXPECT_EQ(memcmp(line, text.data(), 20), 0);
    ZQfclose(stream);
  }
}

TEST_F(Streams, APipe) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  ZQFILE* out = ZQfdopen(ends[1], "a");
  ZQFILE* in = ZQfdopen(ends[0], "r");
  EXPECT_EQ(ZQfputs("ab\n", out), 3);
  EXPECT_EQ(ZQfputs("c", out), 1);
  EXPECT_EQ(ZQftell(out), 4);
  EXPECT_EQ(ZQferror(out), 0);
  char line[8];
  EXPECT_STREQ(ZQfgets(line, 8, in), "ab\n");
  EXPECT_EQ(ZQfseek(in, 0, SEEK_CUR), -1);
  EXPECT_EQ(ZQferror(in), ESPIPE);
  EXPECT_EQ(ZQfclose(out), 0);
  EXPECT_EQ(rest(in), "c");
  EXPECT_EQ(ZQfclose(in), 0);
  descriptors -= 2;  // they were not opened by a path
}

TEST_F(Streams, ExhaustedMemory) {
  save("abc");
  const auto openArmed = [this] {
    fault::FailingAllocations armed(0);
    return open("r");
  };
  // As long as records of closed streams are left nothing is allocated.
  std::vector<ZQFILE*> streams;
  ZQFILE* stream = openArmed();
  for (; stream != nullptr; stream = openArmed()) {
    streams.push_back(stream);
  }
  // The descriptor stays open.
  EXPECT_EQ(fcntl(faulty::lastOpened().result, F_GETFD), 0);
  EXPECT_EQ(close(faulty::lastOpened().result), 0);
  for (ZQFILE* one : streams) {
    ZQfclose(one);
  }
  stream = open("w");
  const long blocks = fault::liveBlocks();
  {
    fault::FailingAllocations armed(0);
    EXPECT_EQ(ZQfprintf(stream, "%20000d", 1), 0);
  }
  EXPECT_EQ(ZQfprintf(stream, "%20000d", 1), 20000);
  EXPECT_EQ(fault::liveBlocks(), blocks);
  EXPECT_EQ(load().size(), 20000U);
  ZQfclose(stream);
}

// A file as a text and a position, against streams that read, write and seek at random.
TEST_F(Streams, AgainstATextWithAPosition) {
  std::mt19937 random(1);
  const auto below = [&random](size_t limit) { return static_cast<size_t>(random()) % limit; };
  for (int round = 0; round < 200; ++round) {
    std::string content;
    for (size_t i = below(12000); i > 0; --i) {
      content += below(60) == 0 ? '\n' : static_cast<char>(below(256));
    }
    const bool appends = round % 4 == 0;
    ZQFILE* stream = openWith(content, appends ? "a+" : "r+");
    ASSERT_NE(stream, nullptr);
    size_t position = 0;
    std::vector<char> buffer(9000);
    for (int step = 0; step < 60 && !HasFailure(); ++step) {
      const size_t left = content.size() - position;
      const size_t length = 1 + below(step % 3 == 0 ? 6000 : 50);
      switch (below(6)) {
        case 0: {
          const int byte = ZQfgetc(stream);
          EXPECT_EQ(byte, left == 0 ? -1 : static_cast<signed char>(content[position]));
          position += left == 0 ? 0 : 1;
          break;
        }
        case 1: {
          const size_t expected = std::min(length, left);
          EXPECT_EQ(ZQfread(buffer.data(), 1, length, stream), static_cast<long>(expected));
          EXPECT_EQ(content.compare(position, expected, buffer.data(), expected), 0);
          position += expected;
          break;
        }
        case 2: {
          const size_t newLine = content.find('\n', position);
          const size_t line = newLine == std::string::npos ? left : newLine + 1 - position;
          const size_t expected = std::min(length, line);
          const char* result = ZQfgets(buffer.data(), static_cast<int>(length) + 1, stream);
          EXPECT_EQ(result, left == 0 ? nullptr : buffer.data());
          if (result != nullptr) {
            EXPECT_EQ(content.compare(position, expected, buffer.data(), expected), 0);
            EXPECT_EQ(buffer[expected], '\0');
          }
          position += expected;
          break;
        }
        case 3: {
          const std::string text(length, static_cast<char>('a' + below(26)));
          position = appends ? content.size() : position;
          EXPECT_EQ(ZQfwrite(text.data(), 1, length, stream), length);
          content.replace(position, std::min(length, content.size() - position), text);
          position += length;
          break;
        }
        case 4: {
          const size_t target = below(content.size() + 1);
          const long distance = static_cast<long>(target) - static_cast<long>(position);
          EXPECT_EQ(ZQfseek(stream, distance, SEEK_CUR), 0);
          position = target;
          break;
        }
        default: {
          const size_t target = below(content.size() + 1);
          const bool fromEnd = below(2) == 0;
          const long offset = static_cast<long>(target) - static_cast<long>(content.size());
          EXPECT_EQ(fromEnd ? ZQfseek(stream, offset, SEEK_END)
                            : ZQfseek(stream, static_cast<long>(target), SEEK_SET),
                    0);
          position = target;
          break;
        }
      }
      EXPECT_EQ(ZQftell(stream), static_cast<long>(position));
    }
    EXPECT_EQ(ZQferror(stream), 0);
    ZQfclose(stream);
    ASSERT_TRUE(load() == content);
  }
}

}  // namespace
