// Streams over descriptors, and files that are written by them. Their records are kept for the next
// stream when they are closed, so only one stream more than ever were open at a time allocates.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "fault/Scenario.h"
#include "fault/Support.h"
#include "zqxml/builders.hpp"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

// Takes all records that are kept. The record that makes the next stream allocate is kept for good
// when that stream is closed.
class AllRecordsTaken {
 public:
  AllRecordsTaken() {
    streams.reserve(100);
    bool allocated = false;
    while (!allocated) {
      const FailingAllocations none(0, Mode::FromThere);
      ZQFILE* stream = ZQfdopen(-1, "r");
      allocated = stream == nullptr;
      if (!allocated) {
        streams.push_back(stream);
      }
    }
  }
  AllRecordsTaken(const AllRecordsTaken&) = delete;
  AllRecordsTaken& operator=(const AllRecordsTaken&) = delete;
  ~AllRecordsTaken() {
    for (ZQFILE* stream : streams) {
      ZQfclose(stream);
    }
  }

 private:
  std::vector<ZQFILE*> streams;
};

// The number that the next descriptor will have.
int nextDescriptor() {
  const int fd = dup(0);
  close(fd);
  return fd;
}

void openFile(Attempt& attempt) {
  const std::string path = folder().write("stream", "abc");
  const AllRecordsTaken taken;
  const int next = nextDescriptor();
  ZQFILE* stream = attempt.call([&] { return ZQfopen(path.c_str(), "r"); });
  EXPECT_EQ(stream == nullptr, attempt.failed());
  if (attempt.failed()) {
    // Deliberate: the descriptor stays open.
    EXPECT_EQ(close(next), 0);
    stream = ZQfopen(path.c_str(), "r");
  }
  // Kept for the next stream from here on.
  attempt.keeps(1);
  EXPECT_EQ(ZQfgetc(stream), 'a');
  EXPECT_EQ(ZQfclose(stream), 0);
}

void openDescriptor(Attempt& attempt) {
  const std::string path = folder().write("stream", "abc");
  const AllRecordsTaken taken;
  const int fd = open(path.c_str(), O_RDONLY);
  ZQFILE* stream = attempt.call([&] { return ZQfdopen(fd, "r"); });
  EXPECT_EQ(stream == nullptr, attempt.failed());
  if (attempt.failed()) {
    // It still belongs to the caller.
    stream = ZQfdopen(fd, "r");
  }
  attempt.keeps(1);
  EXPECT_EQ(ZQfgetc(stream), 'a');
  EXPECT_EQ(ZQfclose(stream), 0);
}

void appendToFile(Attempt& attempt, bool asDocument) {
  const std::string path = folder().write("stream", "abc");
  std::string name = path;
  const AllRecordsTaken taken;
  const int next = nextDescriptor();
  ZQGNString text;
  text += "def";
  ZQXMLOutputDoc doc = {2, {name.data()}};
  const auto call = [&] {
    return asDocument ? WriteToXMLDoc(text, &doc) : text.AppendToFile(path.c_str());
  };
  const int result = attempt.call(call);
  EXPECT_EQ(result, attempt.failed() ? 8954 : 0);
  EXPECT_EQ(contentOf(path), attempt.failed() ? "abc" : "abcdef");
  if (attempt.failed()) {
    EXPECT_EQ(close(next), 0);
    EXPECT_EQ(call(), 0);
    EXPECT_EQ(contentOf(path), "abcdef");
  }
  attempt.keeps(1);
}

void print(Attempt& attempt) {
  const std::string path = folder().write("stream", "");
  ZQFILE* stream = ZQfopen(path.c_str(), "w");
  const int written = attempt.call([&] { return ZQfprintf(stream, "%20000d", 1); });
  EXPECT_EQ(written, attempt.failed() ? 0 : 20000);
  EXPECT_EQ(ZQftell(stream), written);
  EXPECT_EQ(ZQferror(stream), 0);
  EXPECT_EQ(ZQfprintf(stream, "%d", 22), 2);
  EXPECT_EQ(ZQfclose(stream), 0);
  EXPECT_EQ(contentOf(path).size(), static_cast<size_t>(written) + 2);
}

// A stream that is there needs no memory.
void useStream(Attempt& attempt) {
  const std::string path = folder().write("stream", "line 1\nline 2\n");
  ZQFILE* stream = ZQfopen(path.c_str(), "r+");
  char buffer[32];
  char text[32];
  unsigned position = 0;
  ZQCurrencyDetailStruct item = {"USD", 2};
  const ZQCurrencyDetailList list = {1, &item};
  const bool good = attempt.call([&] {
    return ZQfgetc(stream) == 'l' && ZQungetc('L', stream) == 'L' &&
           ZQfgets(buffer, sizeof buffer, stream) == buffer && strcmp(buffer, "Line 1\n") == 0 &&
           ZQfread(buffer, 1, sizeof buffer, stream) == 7 && ZQfeof(stream) == 1 &&
           ZQferror(stream) == 0 && (ZQclearerr(stream), ZQfeof(stream) == 0) &&
           ZQfseek(stream, 0, SEEK_SET) == 0 && ZQfputs("abc", stream) == 3 &&
           ZQfputc('d', stream) == 'd' && ZQfwrite("ef", 1, 2, stream) == 2 &&
           ZQftell(stream) == 6 && (ZQrewind(stream), ZQftell(stream) == 0) &&
           ZQfflush(stream) == 0 && ZQfileno(stream) > 2 && ZQfclose(stream) == 0 &&
           ZQCurrencyDetailListToText(&list, &position, sizeof text, text) == 0;
  });
  EXPECT_TRUE(good);
  EXPECT_STREQ(text, "1\\USD\\2\\");
  EXPECT_EQ(contentOf(path), "abcdef\nline 2\n");
}

}  // namespace

void addStreamScenarios(Scenarios& table) {
  table.push_back({"ZQfopen", {"ZQfopen"}, openFile});
  table.push_back({"ZQfdopen", {"ZQfdopen"}, openDescriptor});
  table.push_back({"ZQGNString to a file", {"ZQGNString::AppendToFile"}, [](Attempt& attempt) {
                     appendToFile(attempt, false);
                   }});
  table.push_back({"WriteToXMLDoc to a file", {"WriteToXMLDoc"}, [](Attempt& attempt) {
                     appendToFile(attempt, true);
                   }});
  table.push_back({"ZQfprintf of a long text", {"ZQfprintf"}, print});
  table.push_back({"A stream that is there",
                   {"ZQclearerr", "ZQfclose", "ZQfeof", "ZQferror", "ZQfflush", "ZQfgetc",
                    "ZQfgets", "ZQfileno", "ZQfputc", "ZQfputs", "ZQfread", "ZQfseek", "ZQftell",
                    "ZQfwrite", "ZQrewind", "ZQungetc", "ZQCurrencyDetailListToText"},
                   useStream,
                   Memory::NotNeeded});
}

}  // namespace fault
