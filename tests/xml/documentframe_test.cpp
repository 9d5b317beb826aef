// Header, footer, the ways out, and the forms of times and bytes.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>

#include "fault/FailingAllocations.h"
#include "zqxml/builders.hpp"
#include "zqxml/zqxml.h"

namespace {

const std::string kHeader =
    "<?xml version=\"1.0\" encoding=\"windows-1252\"?>" + std::string(29, ' ') + "\n<root>\n";

std::string readFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

class DocumentFrame : public testing::Test {
 protected:
  DocumentFrame() {
    char pattern[] = "/tmp/documentframeXXXXXX";
    folder = mkdtemp(pattern);
    path = folder + "/document.xml";
  }
  ~DocumentFrame() override {
    FreeZQStatusList(&status, 0);
    unlink(path.c_str());
    rmdir(folder.c_str());
  }

  void expectRecord(int number) {
    ASSERT_EQ(status.numItems, 1U);
    EXPECT_EQ(status.items[0].messageType, 2U);
    EXPECT_EQ(status.items[0].messageNum, number);
    EXPECT_STREQ(status.items[0].appendedText, "");
    FreeZQStatusList(&status, 0);
  }

  std::string folder;
  std::string path;
  ZQStatusList status = {};
};

TEST_F(DocumentFrame, HeaderAndFooterInMemory) {
  ZQXMLOutputDoc doc = {1, {}};
  EXPECT_EQ(SetDocHeaderToXML(&doc, &status), 0);
  EXPECT_EQ(doc.u.doc, kHeader);
  FreeZQXMLOutputDocInternal(&doc, 0);
  EXPECT_EQ(SetDocFooterToXML(&doc, &status), 0);
  EXPECT_STREQ(doc.u.doc, "</root>\n");
  FreeZQXMLOutputDocInternal(&doc, 0);
  EXPECT_EQ(status.numItems, 0U);
}

TEST_F(DocumentFrame, AFileIsAppendedTo) {
  std::ofstream(path) << "before\n";
  ZQXMLOutputDoc doc = {2, {path.data()}};
  EXPECT_EQ(SetDocHeaderToXML(&doc, &status), 0);
  EXPECT_EQ(SetDocFooterToXML(&doc, &status), 0);
  EXPECT_EQ(readFile(path), "before\n" + kHeader + "</root>\n");
}

TEST_F(DocumentFrame, ADescriptorIsWrittenTo) {
  const int descriptor = open(path.c_str(), O_CREAT | O_WRONLY, 0600);
  ZQXMLOutputDoc doc = {4, {}};
  doc.u.fileHandle = descriptor;
  EXPECT_EQ(SetDocHeaderToXML(&doc, &status), 0);
  EXPECT_EQ(SetDocFooterToXML(&doc, &status), 0);
  close(descriptor);
  EXPECT_EQ(readFile(path), kHeader + "</root>\n");
}

TEST_F(DocumentFrame, FailuresAreRecorded) {
  const std::string nowhere = folder + "/absent/document.xml";
  ZQXMLOutputDoc doc = {2, {const_cast<char*>(nowhere.c_str())}};
  EXPECT_EQ(SetDocHeaderToXML(&doc, &status), 2);
  expectRecord(8954);
  doc.u.doc = nullptr;
  EXPECT_EQ(SetDocFooterToXML(&doc, &status), 2);
  expectRecord(8954);
  doc.docType = 4;
  doc.u.fileHandle = -1;
  EXPECT_EQ(SetDocHeaderToXML(&doc, &status), 2);
  expectRecord(301);
  for (const uint32_t kind : {0U, 3U, 5U, 0xFFFFFFFFU}) {
    doc.docType = kind;
    EXPECT_EQ(SetDocFooterToXML(&doc, &status), 2);
    expectRecord(8952);
  }
  EXPECT_EQ(SetDocHeaderToXML(nullptr, &status), 2);
  expectRecord(8952);
  EXPECT_EQ(SetDocHeaderToXML(nullptr, nullptr), 2);
}

TEST_F(DocumentFrame, ARecordIsAddedToTheListAsItIs) {
  ZQAddErrorMessage(&status, 1, 8940, "before");
  EXPECT_EQ(SetDocHeaderToXML(nullptr, &status), 2);
  ASSERT_EQ(status.numItems, 2U);
  EXPECT_EQ(status.items[0].messageNum, 8952);
  EXPECT_STREQ(status.items[1].appendedText, "before");
}

TEST_F(DocumentFrame, AFullDeviceIsNoFailureForAFileAndOneForADescriptor) {
  char full[] = "/dev/full";
  ZQXMLOutputDoc doc = {2, {full}};
  EXPECT_EQ(SetDocHeaderToXML(&doc, &status), 0);
  const int descriptor = open(full, O_WRONLY);
  doc = {4, {}};
  doc.u.fileHandle = descriptor;
  EXPECT_EQ(SetDocHeaderToXML(&doc, &status), 2);
  close(descriptor);
  expectRecord(301);
}

TEST_F(DocumentFrame, AnEmptyTextWritesNothing) {
  ZQGNString text;
  ZQXMLOutputDoc doc = {2, {path.data()}};
  EXPECT_EQ(WriteToXMLDoc(text, &doc), 0);
  EXPECT_EQ(readFile(path), "");
  doc = {4, {}};
  doc.u.fileHandle = -1;
  EXPECT_EQ(WriteToXMLDoc(text, &doc), 0);
  doc = {1, {}};
  EXPECT_EQ(WriteToXMLDoc(text, &doc), 0);
  EXPECT_STREQ(doc.u.doc, "");
  FreeZQXMLOutputDocInternal(&doc, 0);
}

TEST_F(DocumentFrame, ALongTextReachesFileAndDescriptorWhole) {
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  std::string expected;
  for (int i = 0; i < 30000; ++i) {
    const std::string piece = std::to_string(i) + ";";
    text += piece.c_str();
    expected += piece;
  }
  ZQXMLOutputDoc doc = {2, {path.data()}};
  EXPECT_EQ(WriteToXMLDoc(text, &doc), 0);
  EXPECT_EQ(readFile(path), expected);
  EXPECT_EQ(text.GetLength(), static_cast<int>(expected.size()));
}

TEST_F(DocumentFrame, FailingAllocations) {
  const long injected = fault::forEachFailure([](auto arm) {
    ZQXMLOutputDoc doc = {1, {}};
    ZQStatusList list = {};
    int result = 0;
    bool failed = false;
    {
      const auto failing = arm();
      result = SetDocHeaderToXML(&doc, &list);
      failed = fault::FailingAllocations::happened();
    }
    if (!failed) {
      EXPECT_EQ(result, 0);
    } else if (result == 2) {
      EXPECT_EQ(list.items[0].messageNum, 300);
    } else {
      EXPECT_EQ(result, 3);
    }
    EXPECT_EQ(doc.u.doc != nullptr, !failed);
    FreeZQXMLOutputDocInternal(&doc, 0);
    FreeZQStatusList(&list, 0);
    return failed;
  });
  EXPECT_GE(injected, 4);
}

class Zone {
 public:
  explicit Zone(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
  ~Zone() {
    setenv("TZ", "UTC", 1);
    tzset();
  }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;
};

std::string timestamp(ZQTimestamp stamp, int size = 64) {
  char text[64] = "untouched";
  EXPECT_EQ(FormatZQTimestampToISODateTime(stamp, size, text), 0);
  return text;
}

std::string timeOfDay(int32_t seconds, int size = 64) {
  char text[64] = "untouched";
  EXPECT_EQ(FormatZQTimeOfDayToISOTime(seconds, size, text), 0);
  return text;
}

TEST(Formats, TimesHaveTheStandardZone) {
  struct Case {
    const char* zone;
    ZQTimestamp stamp;
    const char* dateTime;
    const char* time;
  };
  constexpr ZQTimestamp kWinter = 1705312800;  // 2024-01-15T10:00:00Z
  constexpr ZQTimestamp kSummer = 1721037600;  // 2024-07-15T10:00:00Z
  for (const Case& each : {
           Case{"UTC", kWinter, "2024-01-15T10:00:00Z", "10:00:00Z"},
           Case{"CET-1CEST,M3.5.0,M10.5.0/3", kWinter, "2024-01-15T11:00:00+01:00",
                "10:00:00+01:00"},
           Case{"CET-1CEST,M3.5.0,M10.5.0/3", kSummer, "2024-07-15T12:00:00+01:00",
                "10:00:00+01:00"},
           Case{"EST5EDT,M3.2.0,M11.1.0", kWinter, "2024-01-15T05:00:00-05:00", "10:00:00-05:00"},
           Case{"IST-5:30", kWinter, "2024-01-15T15:30:00+05:30", "10:00:00+05:30"},
           Case{"NST3:30", kWinter, "2024-01-15T06:30:00-03:30", "10:00:00-03:30"},
           Case{"XXX0:30", kWinter, "2024-01-15T09:30:00+00:30", "10:00:00+00:30"},
           Case{"XXX-14", kWinter, "2024-01-16T00:00:00+14:00", "10:00:00+14:00"},
       }) {
    const Zone zone(each.zone);
    EXPECT_EQ(timestamp(each.stamp), each.dateTime) << each.zone;
    EXPECT_EQ(timeOfDay(36000), each.time) << each.zone;
  }
}

TEST(Formats, AStampOfAllBitsCountsAsZero) {
  EXPECT_EQ(timestamp(-1), "1970-01-01T00:00:00Z");
  EXPECT_EQ(timestamp(0), "1970-01-01T00:00:00Z");
  EXPECT_EQ(timestamp(-2), "1969-12-31T23:59:58Z");
  EXPECT_EQ(timestamp(INT32_MAX), "2038-01-19T03:14:07Z");
  EXPECT_EQ(timestamp(INT32_MIN), "1901-12-13T20:45:52Z");
}

TEST(Formats, TimesOfDayLeaveOutWholeDays) {
  EXPECT_EQ(timeOfDay(0), "00:00:00Z");
  EXPECT_EQ(timeOfDay(86399), "23:59:59Z");
  EXPECT_EQ(timeOfDay(86400), "00:00:00Z");
  EXPECT_EQ(timeOfDay(-1), "23:59:59Z");
}

TEST(Formats, NeverMoreThanTheSize) {
  EXPECT_EQ(timestamp(0, 0), "untouched");
  EXPECT_EQ(timestamp(0, -5), "untouched");
  EXPECT_EQ(timestamp(0, 1), "");
  EXPECT_EQ(timestamp(0, 19), "");
  EXPECT_EQ(timestamp(0, 20), "1970-01-01T00:00:00");
  EXPECT_EQ(timestamp(0, 21), "1970-01-01T00:00:00Z");
  const Zone zone("CET-1");
  EXPECT_EQ(timeOfDay(0, 12), "00:00:00+01");
  EXPECT_EQ(FormatZQTimestampToISODateTime(0, 20, nullptr), 0);
}

TEST(Formats, BytesAsHexadecimalText) {
  struct Case {
    std::string bytes;
    const char* text;
  };
  for (const Case& each : {
           Case{std::string(1, '\0'), "!"},
           Case{"\xFF", "~"},
           Case{"%/", "%/"},
           Case{":`", ":`"},
           Case{"g}", "g}"},
           Case{"09", "3039"},
           Case{"af", "6166"},
           Case{"~$!", "7e2421"},
           Case{"\x01\x24\x30\x66\x80\xFE", "0124306680fe"},
           Case{"A b",
                "A20"
                "62"},
       }) {
    char* text = nullptr;
    EXPECT_EQ(ConvertToHexFormat(reinterpret_cast<const unsigned char*>(each.bytes.data()),
                                 static_cast<unsigned>(each.bytes.size()), &text),
              0);
    EXPECT_STREQ(text, each.text);
    free(text);
  }
  char old = 'x';
  char* text = &old;
  EXPECT_EQ(ConvertToHexFormat(nullptr, 5, &text), 0);
  EXPECT_EQ(text, nullptr);
  text = &old;
  const unsigned char byte = 1;
  EXPECT_EQ(ConvertToHexFormat(&byte, 0, &text), 0);
  EXPECT_EQ(text, nullptr);
  EXPECT_EQ(ConvertToHexFormat(&byte, 1, nullptr), 0);
  text = &old;
  int result = 0;
  {
    const fault::FailingAllocations armed(0);
    result = ConvertToHexFormat(&byte, 1, &text);
  }
  EXPECT_EQ(result, 300);
  EXPECT_EQ(text, nullptr);
}

TEST(Formats, LocalisedTagsStayOff) {
  EXPECT_EQ(IsL10nVUITagPrintingEnabled(20), 0);
  EnableL10nVUITagPrinting();
  EXPECT_EQ(IsL10nVUITagPrintingEnabled(20), 0);
}

}  // namespace
