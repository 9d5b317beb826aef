// Texts that need memory: Base64, mails, conversions of streams and files, dates, currencies.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <memory>
#include <string>

#include "fault/Scenario.h"
#include "fault/Support.h"
#include "text/datetime_state.h"
#include "xml/Listing.h"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

constexpr int kEuc = 4;
constexpr int kShiftJis = 5;

// A character in two code sets.
const std::string kInEuc = "\xA5\xBD";
const std::string kInShiftJis = "\x83\x5C";

// A stream over a text that belongs to the C library alone.
class Stream {
 public:
  explicit Stream(std::string text) : content(std::move(text)) {
    stream = fmemopen(content.data(), content.size(), "r+");
  }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  ~Stream() { fclose(stream); }
  operator FILE*() { return stream; }

  std::string text() {
    fflush(stream);
    return content;
  }

 private:
  std::string content;
  FILE* stream;
};

void encode(Attempt& attempt) {
  char* text = nullptr;
  const auto call = [&] { return EncodeBase64("foobar", 6, &text); };
  const int result = attempt.call(call);
  EXPECT_EQ(result, attempt.failed() ? 300 : 0);
  EXPECT_EQ(text == nullptr, attempt.failed());
  if (attempt.failed()) {
    EXPECT_EQ(call(), 0);
  }
  EXPECT_STREQ(text, "Zm9vYmFy\n");
  free(text);
}

void decode(Attempt& attempt) {
  unsigned char* bytes = nullptr;
  unsigned length = 77;
  const auto call = [&] { return DecodeBase64("Zm9v\nYmFy\n", &bytes, &length); };
  const int result = attempt.call(call);
  EXPECT_EQ(result, attempt.failed() ? 300 : 0);
  EXPECT_EQ(bytes == nullptr, attempt.failed());
  EXPECT_EQ(length, attempt.failed() ? 0U : 6U);
  if (attempt.failed()) {
    EXPECT_EQ(call(), 0);
  }
  EXPECT_EQ(std::string(reinterpret_cast<char*>(bytes), length), "foobar");
  free(bytes);
}

// A subject is empty if memory runs out.
void subject(Attempt& attempt) {
  const NativeCodeSet native(kEuc);
  char target[256] = "old";
  const auto call = [&] { return convertSubjectForMail(target, "ab", 0, kEuc); };
  EXPECT_EQ(attempt.call(call), target);
  EXPECT_STREQ(target, attempt.failed() ? "" : "=?iso-8859-1?Q?ab?=");
  EXPECT_EQ(call(), target);
  EXPECT_STREQ(target, "=?iso-8859-1?Q?ab?=");
}

// A line that finds no memory is lost, and the stream goes on.
void line(Attempt& attempt, int kind, const std::string& text, const std::string& whole) {
  const NativeCodeSet native(kEuc);
  Stream stream(text);
  char buffer[128];
  const auto call = [&] { return getLine(buffer, sizeof buffer, stream, kShiftJis, kind, kEuc); };
  const char* result = attempt.call(call);
  EXPECT_EQ(result, attempt.failed() ? nullptr : buffer);
  if (attempt.failed()) {
    rewind(stream);
    EXPECT_EQ(call(), buffer);
  }
  EXPECT_EQ(buffer, whole);
}

void readLine(Attempt& attempt) {
  const NativeCodeSet native(kEuc);
  Stream stream("a" + kInShiftJis + "\n");
  char buffer[16];
  const auto call = [&] { return mbfgets(buffer, sizeof buffer, stream, kShiftJis); };
  const char* result = attempt.call(call);
  EXPECT_EQ(result, attempt.failed() ? nullptr : buffer);
  if (attempt.failed()) {
    rewind(stream);
    EXPECT_EQ(call(), buffer);
  }
  EXPECT_EQ(buffer, "a" + kInEuc + "\n");
}

void writeText(Attempt& attempt) {
  const NativeCodeSet native(kEuc);
  Stream stream("....");
  const std::string text = "a" + kInEuc;
  const auto call = [&] { return mbfputs(text.c_str(), stream, kShiftJis); };
  const int result = attempt.call(call);
  EXPECT_EQ(result < 0, attempt.failed());
  EXPECT_EQ(stream.text(), attempt.failed() ? "...." : "a" + kInShiftJis + ".");
  if (attempt.failed()) {
    EXPECT_GE(call(), 0);
    EXPECT_EQ(stream.text(), "a" + kInShiftJis + ".");
  }
}

void addUp(Attempt& attempt) {
  const NativeCodeSet native(kEuc);
  const int sum = attempt.call([] { return AccumulateAsciiForStr("abc"); });
  EXPECT_EQ(sum, attempt.failed() ? -1 : 'a' + 'b' + 'c');
}

void convertFile(Attempt& attempt, bool appends) {
  const NativeCodeSet native(kEuc);
  static const std::string source = folder().write("source", "a" + kInShiftJis + "\n");
  const std::string target = folder().write("target", "old");
  const auto call = [&](bool continues) {
    return mbconvertfile2native_ex(source.c_str(), target.c_str(), continues ? 1 : 0, kShiftJis);
  };
  const int result = attempt.call([&] { return call(appends); });
  const std::string converted = "a" + kInEuc + "\n";
  EXPECT_EQ(result, attempt.failed() ? 0 : 1);
  EXPECT_EQ(contentOf(target), (appends ? "old" : "") + (attempt.failed() ? "" : converted));
  EXPECT_EQ(call(false), 1);
  EXPECT_EQ(contentOf(target), converted);
}

void loadCurrencies(Attempt& attempt) {
  ZQCurrencyDetailList list;
  const auto call = [&] { return LoadCurrencyDetailList("2\\USD\\2\\JPY\\0\\", &list); };
  const int result = attempt.call(call);
  EXPECT_EQ(result, attempt.failed() ? 300 : 0);
  if (attempt.failed()) {
    EXPECT_EQ(list.numItems, 0U);
    EXPECT_EQ(list.items, nullptr);
    EXPECT_EQ(call(), 0);
  }
  EXPECT_EQ(list.numItems, 2U);
  EXPECT_STREQ(list.items[1].currencyCode, "JPY");
  free(list.items);
}

void setEncoding(Attempt& attempt) {
  const char document[] = "<?xml version=\"1.0\" encoding=\"windows-1252\"?>   \n<root/>";
  char* result = nullptr;
  const auto call = [&] { SetEncodingForXMLDoc(document, 65, &result); };
  attempt.call(call);
  EXPECT_EQ(result == nullptr, attempt.failed());
  if (attempt.failed()) {
    call();
  }
  EXPECT_STREQ(result, "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<root/>");
  free(result);
}

// What a call of the date functions gave, as a text that takes no memory.
struct Shown {
  char text[80] = "";

  static Shown of(const char* whole) { return of("%s", whole); }
  template <typename... Values>
  static Shown of(const char* format, Values... values) {
    Shown shown;
    snprintf(shown.text, sizeof shown.text, format, values...);
    return shown;
  }
};

// The names of the locale are taken by the first call that needs them. If there is no memory for
// them the call fails, or takes them a little later; the next one works.
struct DateCall {
  const char* function;
  Shown (*run)();
  const char* good;
  const char* failure;
};

struct tm morning() {
  struct tm fields = {};
  fields.tm_year = 104;
  fields.tm_mday = 5;
  fields.tm_hour = 10;
  fields.tm_min = 15;
  return fields;
}

// The time that a parser reads on top of 5 January 2004, 10:15, and what it leaves of the text.
template <typename Parse>
Shown parsed(Parse parse) {
  struct tm fields = morning();
  const char* rest = parse(&fields);
  if (rest == nullptr) {
    return Shown::of("none");
  }
  char text[40];
  strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &fields);
  return Shown::of("%s|%s", text, rest);
}

template <size_t (*kFormat)(char*, size_t, const struct tm*)>
Shown formatted() {
  char text[40] = "";
  const struct tm fields = morning();
  const size_t length = kFormat(text, sizeof text, &fields);
  return length == 300 ? Shown::of("300") : Shown::of("%zu %s", length, text);
}

Shown timeValue(const char* text) {
  ZQTimestamp value = 77;
  ZQBoolean isDuration = 7;
  const int result = ConvertTimeValue(text, 0, &value, &isDuration);
  return Shown::of("%d %d", result, value);
}

constexpr DateCall kDateCalls[] = {
    {"InitDateTimeInfo", [] { return Shown::of("%d", InitDateTimeInfo()); }, "0", "300"},
    {"FormatDate", formatted<FormatDate>, "8 01/05/04", "300"},
    {"FormatTime", formatted<FormatTime>, "8 10:15:00", "300"},
    {"FormatDateTime", formatted<FormatDateTime>, "17 01/05/04 10:15:00", "300"},
    {"zqstrptime",
     [] { return parsed([](struct tm* t) { return zqstrptime("Feb 7", "%b %d", t); }); },
     "2004-02-07 10:15:00|", "none"},
    {"zqstrptimeofday",
     [] { return parsed([](struct tm* t) { return zqstrptimeofday("11:30", "%H:%M", t); }); },
     "1900-01-00 11:30:00|", "none"},
    {"ParseTimeOnly",
     [] { return parsed([](struct tm* t) { return ParseTimeOnly("9:45 PM", t); }); },
     "2004-01-05 21:45:00|", "none"},
    {"ParseTimeOnly",
     [] { return parsed([](struct tm* t) { return ParseTimeOnly("09:45:30", t); }); },
     "2004-01-05 09:45:30|", "none"},
    {"ParseTimeOfDayOnly",
     [] { return parsed([](struct tm* t) { return ParseTimeOfDayOnly("9:45 PM", t); }); },
     "1899-12-31 21:45:00|", "none"},
    {"ParseTimeOfDayOnly",
     [] { return parsed([](struct tm* t) { return ParseTimeOfDayOnly("09:45:30", t); }); },
     "1899-12-31 09:45:30|", "none"},
    {"StripLeadWeekday",
     [] {
       char* rest = nullptr;
       return StripLeadWeekday("Monday, 5", &rest) == 1 ? Shown::of("%s", rest) : Shown::of("none");
     },
     "5", "none"},
    {"ParseDateTime",
     [] {
       return parsed([](struct tm* t) {
         return ParseDateTime("Feb 7, 2005 11:30:00", t) == 1 ? "" : nullptr;
       });
     },
     "2005-02-07 11:30:00|", "none"},
    {"ConvertTimeValue", [] { return timeValue("Jan 5, 2004 10:15:00"); }, "1 1073297700", "0 0"},
    {"ConvertTimeValue", [] { return timeValue("1:30"); }, "1 5400", "0 0"},
    {"ConvertTimeOfDayValue",
     [] {
       ZQTimestamp seconds = 77;
       const int result = ConvertTimeOfDayValue("9:45 PM", &seconds);
       return Shown::of("%d %d", result, seconds);
     },
     "1 78300", "0 77"},
    {"ConvertTimeOfDayValue",
     [] {
       ZQTimestamp seconds = 77;
       const int result = ConvertTimeOfDayValue("09:45:30", &seconds);
       return Shown::of("%d %d", result, seconds);
     },
     "1 35130", "0 77"},
    {"ConvertDateStringToJD",
     [] {
       int dayNumber = 77;
       const int result = ConvertDateStringToJD(-1, "1/5/04", &dayNumber);
       return Shown::of("%d %d", result, dayNumber);
     },
     "0 2453010", "300 77"},
};

void forgetNames() {
  CleanupDateTimeInfo();
  datetime::state = datetime::State();
}

void date(Attempt& attempt, const DateCall& call) {
  forgetNames();
  const Shown found = attempt.call(call.run);
  if (attempt.failed()) {
    EXPECT_TRUE(strcmp(found.text, call.failure) == 0 || strcmp(found.text, call.good) == 0)
        << found.text;
  } else {
    EXPECT_STREQ(found.text, call.good);
  }
  EXPECT_STREQ(call.run().text, call.good);
  forgetNames();
}

}  // namespace

void addTextScenarios(Scenarios& table) {
  table.push_back({"EncodeBase64", {"EncodeBase64"}, encode});
  table.push_back({"DecodeBase64", {"DecodeBase64"}, decode});
  table.push_back({"convertSubjectForMail", {"convertSubjectForMail"}, subject});
  table.push_back({"getLine of plain lines", {"getLine"}, [](Attempt& attempt) {
                     line(attempt, 0, "a" + kInShiftJis + "\n", "a" + kInEuc + "\n");
                   }});
  table.push_back({"getLine of joined lines", {"getLine"}, [](Attempt& attempt) {
                     line(attempt, ZQ_TRANSFER_QUOTED_PRINTABLE,
                          std::string(60, 'a') + "=\n" + std::string(60, 'b') + "=\nc\n",
                          std::string(60, 'a') + std::string(60, 'b') + "c\n");
                   }});
  table.push_back({"mbfgets", {"mbfgets"}, readLine});
  table.push_back({"mbfputs", {"mbfputs"}, writeText});
  table.push_back({"AccumulateAsciiForStr", {"AccumulateAsciiForStr"}, addUp});
  for (const bool appends : {false, true}) {
    table.push_back({std::string("mbconvertfile2native_ex") + (appends ? " that appends" : ""),
                     {"mbconvertfile2native_ex"},
                     [appends](Attempt& attempt) { convertFile(attempt, appends); }});
  }
  table.push_back({"LoadCurrencyDetailList", {"LoadCurrencyDetailList"}, loadCurrencies});
  table.push_back({"SetEncodingForXMLDoc", {"SetEncodingForXMLDoc"}, setEncoding});
  int number = 0;
  for (const DateCall& call : kDateCalls) {
    table.push_back({std::string(call.function) + " as call of dates " + std::to_string(++number),
                     {call.function, "CleanupDateTimeInfo"},
                     [&call](Attempt& attempt) { date(attempt, call); }});
  }
}

}  // namespace fault
