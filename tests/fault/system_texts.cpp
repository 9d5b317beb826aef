// Streams of the C library and message catalogs with failing system calls.

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

#include "fault/Support.h"
#include "fault/SystemScenario.h"
#include "records/StatusLists.h"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

using faulty::Call;

constexpr int kEuc = 4;
constexpr int kShiftJis = 5;

// So many characters, with line ends among them.
std::string textOf(const std::string& character, size_t count) {
  std::string text;
  for (size_t i = 0; i < count; ++i) {
    text += i % 20 == 19 ? "\n" : character;
  }
  return text;
}
const std::string kInShiftJis = "\x83\x5C";
const std::string kInEuc = "\xA5\xBD";

// What is read up to a failure is right, and the failure is known to the stream.
using Read = std::function<std::string(FILE*)>;
void readAll(SystemAttempt& attempt, const Read& read, const std::string& content,
             const std::string& whole) {
  const NativeCodeSet native(kEuc);
  const std::string path = folder().write("text", content);
  FILE* stream = faulty::openFile(path.c_str(), "r");
  const std::string text = attempt.call([&] { return read(stream); });
  if (attempt.failed()) {
    EXPECT_EQ(text, whole.substr(0, text.size()));
    EXPECT_TRUE(text == whole || ferror(stream) != 0);
    clearerr(stream);
    EXPECT_EQ(fseek(stream, 0, SEEK_SET), 0);
    EXPECT_EQ(read(stream), whole);
  } else {
    EXPECT_EQ(text, whole);
  }
  fclose(stream);
}

std::string linesBy(FILE* stream, char* (*next)(char*, int, FILE*)) {
  std::string text;
  char line[100];
  while (next(line, sizeof line, stream) != nullptr) {
    text += line;
  }
  return text;
}

std::string blocksBy(FILE* stream, int (*next)(char*, int, FILE*)) {
  std::string text;
  char block[102];
  for (int got; (got = next(block, 101, stream)) > 0;) {
    text.append(block, static_cast<size_t>(got));
  }
  return text;
}

void writeText(SystemAttempt& attempt) {
  const NativeCodeSet native(kEuc);
  const std::string path = folder().write("text", "");
  const std::string source = textOf(kInEuc, 3000);
  const std::string whole = textOf(kInShiftJis, 3000);
  FILE* stream = faulty::openFile(path.c_str(), "w");
  setvbuf(stream, nullptr, _IONBF, 0);
  const int result = attempt.call([&] { return mbfputs(source.c_str(), stream, kShiftJis); });
  EXPECT_EQ(result < 0, attempt.failedTo(Call::Write));
  EXPECT_EQ(ferror(stream) != 0, attempt.failedTo(Call::Write));
  fclose(stream);
  EXPECT_EQ(contentOf(path), attempt.failedTo(Call::Write) ? "" : whole);
}

// A file is converted, or the call says that it isn't.
void convertFile(SystemAttempt& attempt, const std::string& source, bool appends) {
  const NativeCodeSet native(kEuc);
  const std::string converted = [&] {
    std::string text;
    for (size_t i = 0; i < source.size(); ++i) {
      const bool isWide = source.compare(i, 2, kInShiftJis) == 0;
      text += isWide ? kInEuc : source.substr(i, 1);
      i += isWide ? 1 : 0;
    }
    return text;
  }();
  const std::string from = folder().write("source", source);
  const std::string to = folder().write("target", "old");
  const std::string old = appends ? "old" : "";
  const auto call = [&](bool continues) {
    return mbconvertfile2native_ex(from.c_str(), to.c_str(), continues ? 1 : 0, kShiftJis);
  };
  const int result = attempt.call([&] { return call(appends); });
  const std::string found = contentOf(to);
  if (result == 1) {
    EXPECT_EQ(found, old + converted);
  } else {
    EXPECT_TRUE(attempt.failed());
  }
  // A source that is only read closes well enough.
  if (!attempt.failed()) {
    EXPECT_EQ(result, 1);
  } else if (attempt.failedTo(Call::Open)) {
    EXPECT_EQ(found, attempt.index() == 0 ? "old" : found);
    EXPECT_EQ(result, 0);
  } else if (attempt.failedTo(Call::Read) || attempt.failedTo(Call::Write)) {
    EXPECT_EQ(result, 0);
  }
  EXPECT_EQ(call(false), 1);
  EXPECT_EQ(contentOf(to), converted);
}

void detect(SystemAttempt& attempt) {
  const std::string path = folder().write("text", std::string(9000, 'a') + "\x1B$B");
  FILE* stream = faulty::openFile(path.c_str(), "r");
  const int code = attempt.call([&] { return DetectJPCodeType(stream); });
  EXPECT_EQ(code, attempt.failed() ? 0 : 3);
  clearerr(stream);
  rewind(stream);
  EXPECT_EQ(DetectJPCodeType(stream), 3);
  fclose(stream);
}

// The catalog that the process keeps open is closed for the time of a scenario.
class WithoutSharedCatalog {
 public:
  WithoutSharedCatalog() {
    const faulty::Failure none(Call::CatalogOpen, ENOENT, 0, Mode::FromThere);
    ZQOpenSharedCatalog();
  }
  WithoutSharedCatalog(const WithoutSharedCatalog&) = delete;
  WithoutSharedCatalog& operator=(const WithoutSharedCatalog&) = delete;
};

std::string wantedText(const SystemAttempt& attempt) {
  if (attempt.failedTo(Call::CatalogOpen)) {
    return "Cannot open catalog; Message number = 300";
  }
  if (attempt.failedTo(Call::CatalogGet)) {
    // The text of the message that says so comes from the catalog too, or is the default.
    return "Message not in catalog; Message number = 300";
  }
  return "Out of memory";
}

void lookUp(SystemAttempt& attempt) {
  const WithoutSharedCatalog none;
  char text[ZQ_MESSAGE_TEXT_SIZE];
  attempt.call([&] { ZQGetTextForMessage(300, text); });
  EXPECT_EQ(text, wantedText(attempt));
  ZQGetTextForMessage(300, text);
  EXPECT_STREQ(text, "Out of memory");
}

using Add = int (*)(ZQStatusList*);

void addRecord(SystemAttempt& attempt, Add add) {
  const WithoutSharedCatalog none;
  OwnedStatusList list;
  EXPECT_EQ(attempt.call([&] { return add(&list); }), 2);
  EXPECT_EQ(list.numItems, 1U);
  EXPECT_EQ(list.items[0].messageText, wantedText(attempt));
  EXPECT_EQ(describe(list), "2/300 7");
}

// A catalog that can't be opened is looked for by each text again.
void openCatalog(SystemAttempt& attempt) {
  const nl_catd catalog = attempt.call([] { return ZQOpenSharedCatalog(); });
  const bool isOpen = catalog != reinterpret_cast<nl_catd>(-1);
  EXPECT_EQ(isOpen, !attempt.failedTo(Call::CatalogOpen));
  char text[ZQ_MESSAGE_TEXT_SIZE];
  ZQGetTextForMessage(300, text);
  EXPECT_STREQ(text, "Out of memory");
  const WithoutSharedCatalog none;
}

// By the shared catalog.
void lookUpInOpen(SystemAttempt& attempt) {
  ZQOpenSharedCatalog();
  char text[ZQ_MESSAGE_TEXT_SIZE];
  attempt.call([&] { ZQGetTextForMessage(300, text); });
  EXPECT_EQ(text, wantedText(attempt));
  const WithoutSharedCatalog none;
}

}  // namespace

void addSystemTextScenarios(SystemScenarios& table) {
  const std::string shift = textOf(kInShiftJis, 6000);
  const std::string euc = textOf(kInEuc, 6000);
  const auto addRead = [&](const char* name, const char* function, const Read& read,
                           const std::string& content, const std::string& whole) {
    table.push_back({name, {function}, [read, content, whole](SystemAttempt& attempt) {
                       readAll(attempt, read, content, whole);
                     }});
  };
  addRead(
      "mbfgets", "mbfgets",
      [](FILE* stream) {
        return linesBy(stream, [](char* line, int size, FILE* from) {
          return mbfgets(line, size, from, kShiftJis);
        });
      },
      shift, euc);
  addRead(
      "getLine", "getLine",
      [](FILE* stream) {
        return linesBy(stream, [](char* line, int size, FILE* from) {
          return getLine(line, size, from, kShiftJis, 0, kEuc);
        });
      },
      shift, euc);
  addRead(
      "getLine of joined lines", "getLine",
      [](FILE* stream) {
        return linesBy(stream, [](char* line, int size, FILE* from) {
          return getLine(line, size, from, kShiftJis, ZQ_TRANSFER_QUOTED_PRINTABLE, kEuc);
        });
      },
      "a=\nb\n", "ab\n");
  addRead(
      "mbfreadstring", "mbfreadstring",
      [](FILE* stream) { return blocksBy(stream, mbfreadstring); }, euc, euc);
  addRead(
      "mbfreadstringtype", "mbfreadstringtype",
      [](FILE* stream) {
        return blocksBy(stream, [](char* block, int size, FILE* from) {
          return mbfreadstringtype(block, size, from, kShiftJis);
        });
      },
      shift, shift);
  table.push_back({"mbfputs", {"mbfputs"}, writeText});
  for (const bool appends : {false, true}) {
    const std::string how = appends ? " that appends" : "";
    table.push_back({"mbconvertfile2native_ex" + how,
                     {"mbconvertfile2native_ex"},
                     [appends](SystemAttempt& attempt) {
                       convertFile(attempt, "a" + kInShiftJis + "\n", appends);
                     }});
    // A character stands across the end of a block.
    table.push_back({"mbconvertfile2native_ex of blocks" + how,
                     {"mbconvertfile2native_ex"},
                     [appends](SystemAttempt& attempt) {
                       convertFile(attempt, "a" + textOf(kInShiftJis, 24000), appends);
                     }});
  }
  table.push_back({"DetectJPCodeType", {"DetectJPCodeType"}, detect});
  table.push_back({"ZQGetTextForMessage", {"ZQGetTextForMessage"}, lookUp});
  table.push_back(
      {"ZQGetTextForMessage by an open catalog", {"ZQGetTextForMessage"}, lookUpInOpen});
  table.push_back({"ZQOpenSharedCatalog", {"ZQOpenSharedCatalog"}, openCatalog});
  table.push_back({"ZQAddErrorMessage", {"ZQAddErrorMessage"}, [](SystemAttempt& attempt) {
                     addRecord(attempt, [](ZQStatusList* list) {
                       return ZQAddErrorMessage(list, 2, 300, "7");
                     });
                   }});
  table.push_back({"ZQAddErrorMessageId", {"ZQAddErrorMessageId"}, [](SystemAttempt& attempt) {
                     addRecord(attempt, [](ZQStatusList* list) {
                       return ZQAddErrorMessageId(list, 2, 300, 7);
                     });
                   }});
}

}  // namespace fault
