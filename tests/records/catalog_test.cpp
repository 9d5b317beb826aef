#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "records/StatusLists.h"
#include "zqxml/status.h"

namespace {

namespace fs = std::filesystem;

const nl_catd kNoCatalog = reinterpret_cast<nl_catd>(-1);

std::string textOf(int number) {
  char text[ZQ_MESSAGE_TEXT_SIZE];
  memset(text, 0xA5, sizeof text);
  ZQGetTextForMessage(number, text);
  EXPECT_NE(memchr(text, 0, sizeof text), nullptr);
  // All that is not text is zero.
  for (size_t i = strlen(text); i < sizeof text; ++i) {
    EXPECT_EQ(text[i], '\0') << i;
  }
  return text;
}

std::string recordedTextOf(int number) {
  OwnedStatusList list;
  ZQAddErrorMessage(&list, 2, number, nullptr);
  return list.items[0].messageText;
}

// Catalogs of a test's own, in a folder that lives as long as the test. Whatever catalog the system
// has installed is out of sight.
class CatalogTest : public testing::Test {
 protected:
  void SetUp() override {
    char name[] = "/tmp/zqxml-catalog-XXXXXX";
    ASSERT_NE(mkdtemp(name), nullptr);
    folder = name;
    oldPath = getenv("NLSPATH");
    oldLanguage = getenv("LANG");
    setenv("LANG", "no-such-language", 1);
  }

  void TearDown() override {
    // Without a catalog to be found this closes the shared one.
    useNoCatalog();
    ZQOpenSharedCatalog();
    setenv("NLSPATH", oldPath.c_str(), 1);
    setenv("LANG", oldLanguage.c_str(), 1);
    fs::remove_all(folder);
  }

  // Makes a catalog of these messages and lets it be the one that is found.
  void useCatalog(const std::string& name, const std::string& messages) {
    const fs::path place = folder / name;
    fs::create_directory(place);
    std::ofstream(place / "list.msg") << messages;
    const std::string command =
        "gencat " + (place / "zqsystem.cat").string() + " " + (place / "list.msg").string();
    ASSERT_EQ(system(command.c_str()), 0);
    setenv("NLSPATH", (place / "%N").c_str(), 1);
  }

  void useNoCatalog() { setenv("NLSPATH", (folder / "none" / "%N").c_str(), 1); }

  fs::path folder;
  std::string oldPath;
  std::string oldLanguage;
};

TEST_F(CatalogTest, AMessageHasItsText) {
  useCatalog("a", "$set 1\n1 Unknown: \n7 Seven\n8941 Element\n");
  EXPECT_EQ(textOf(7), "Seven");
  EXPECT_EQ(recordedTextOf(8941), "Element");
}

TEST_F(CatalogTest, OnlySet1Counts) {
  useCatalog("a", "$set 1\n1 Unknown: \n$set 2\n7 Seven\n");
  EXPECT_EQ(textOf(7), "Unknown: 7");
}

TEST_F(CatalogTest, WithoutACatalogTheTextSaysSo) {
  useNoCatalog();
  EXPECT_EQ(recordedTextOf(8941), "Cannot open catalog; Message number = 8941");
  EXPECT_EQ(textOf(0), "Cannot open catalog; Message number = 0");
  EXPECT_EQ(textOf(-1), "Cannot open catalog; Message number = -1");
  EXPECT_EQ(textOf(10000), "Cannot open catalog; Message number = 10000");
  EXPECT_EQ(textOf(-2147483647 - 1), "Cannot open catalog; Message number = -2147483648");
}

TEST_F(CatalogTest, AnUnsetPathIsNoCatalogEither) {
  unsetenv("NLSPATH");
  EXPECT_EQ(textOf(300), "Cannot open catalog; Message number = 300");
}

TEST_F(CatalogTest, ANumberThatTheCatalogLacksGetsMessage1AndTheNumber) {
  useCatalog("a", "$set 1\n1 Unknown: \n7 Seven\n");
  EXPECT_EQ(textOf(8), "Unknown: 8");
  EXPECT_EQ(textOf(0), "Unknown: 0");
  EXPECT_EQ(textOf(-1), "Unknown: -1");
  EXPECT_EQ(textOf(2147483647), "Unknown: 2147483647");
  EXPECT_EQ(recordedTextOf(9999), "Unknown: 9999");
}

TEST_F(CatalogTest, ACatalogWithoutMessage1HasADefaultForIt) {
  useCatalog("a", "$set 1\n7 Seven\n");
  EXPECT_EQ(textOf(8), "Message not in catalog; Message number = 8");
  EXPECT_EQ(textOf(1), "Message not in catalog; Message number = 1");
}

TEST_F(CatalogTest, AnEmptyTextCountsAsNone) {
  useCatalog("a", "$set 1\n1 Unknown: \n7 \n");
  EXPECT_EQ(textOf(7), "Unknown: 7");
}

TEST_F(CatalogTest, TheNumberIsAppendedToAtMost242Bytes) {
  for (const size_t length : {size_t{241}, size_t{242}, size_t{243}, size_t{255}, size_t{300}}) {
    const std::string text(length, 'm');
    useCatalog(std::to_string(length), "$set 1\n1 " + text + "\n");
    const std::string number = length <= 242 ? "-2147483648" : "";
    EXPECT_EQ(textOf(-2147483647 - 1), text.substr(0, 255) + number) << length;
    EXPECT_EQ(textOf(42), text.substr(0, 255) + (length <= 242 ? "42" : "")) << length;
  }
}

TEST_F(CatalogTest, ATextIsCutAt255Bytes) {
  for (const size_t length : {size_t{254}, size_t{255}, size_t{256}, size_t{1000}}) {
    const std::string text(length, 't');
    useCatalog(std::to_string(length), "$set 1\n7 " + text + "\n");
    EXPECT_EQ(textOf(7), text.substr(0, 255)) << length;
    EXPECT_EQ(recordedTextOf(7), text.substr(0, 255)) << length;
  }
}

TEST_F(CatalogTest, ARecordAsksTheCatalogForNumbersFrom1To9999But8914) {
  useCatalog("a", "$set 1\n1 One\n2 Two\n8913 A\n8914 B\n8915 C\n9999 Last\n10000 Beyond\n");
  const struct {
    int number;
    const char* recorded;
    const char* direct;
  } cases[] = {
      {1, "One", "One"},       {2, "Two", "Two"},       {8913, "A", "A"},
      {8914, "", "B"},         {8915, "C", "C"},        {9999, "Last", "Last"},
      {10000, "", "Beyond"},   {0, "", "One0"},         {-1, "", "One-1"},
      {-8940, "", "One-8940"}, {10001, "", "One10001"}, {2147483647, "", "One2147483647"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(recordedTextOf(row.number), row.recorded) << row.number;
    EXPECT_EQ(textOf(row.number), row.direct) << row.number;
  }
}

TEST_F(CatalogTest, NumbersWithoutTextHaveAnEmptyHeapText) {
  useNoCatalog();
  for (const int number : {0, -1, 8914, 10000}) {
    OwnedStatusList list;
    ZQAddErrorMessage(&list, 2, number, "detail");
    ASSERT_NE(list.items[0].messageText, nullptr);
    EXPECT_STREQ(list.items[0].messageText, "") << number;
    EXPECT_STREQ(list.items[0].appendedText, "detail");
  }
}

TEST_F(CatalogTest, ANullBufferIsLeftAlone) {
  ZQGetTextForMessage(300, nullptr);
}

TEST_F(CatalogTest, WithoutASharedCatalogEachLookUpOpensTheOneThatIsThere) {
  useCatalog("a", "$set 1\n7 First\n");
  EXPECT_EQ(textOf(7), "First");
  useCatalog("b", "$set 1\n7 Second\n");
  EXPECT_EQ(textOf(7), "Second");
}

TEST_F(CatalogTest, LookUpsWithoutASharedCatalogLeaveNoFileOpen) {
  useCatalog("a", "$set 1\n7 First\n");
  const auto openFiles = [] {
    const fs::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
  };
  const auto before = openFiles();
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(textOf(7), "First");
    EXPECT_EQ(textOf(8), "Message not in catalog; Message number = 8");
  }
  EXPECT_EQ(openFiles(), before);
}

TEST_F(CatalogTest, TheSharedCatalogStaysOpen) {
  useCatalog("a", "$set 1\n7 First\n");
  EXPECT_NE(ZQOpenSharedCatalog(), kNoCatalog);
  useCatalog("b", "$set 1\n7 Second\n");
  EXPECT_EQ(textOf(7), "First");
  EXPECT_EQ(recordedTextOf(7), "First");
  EXPECT_EQ(textOf(7), "First");
  useNoCatalog();
  EXPECT_EQ(textOf(7), "First");
}

TEST_F(CatalogTest, OpeningAgainReplacesTheSharedCatalog) {
  useCatalog("a", "$set 1\n7 First\n");
  EXPECT_NE(ZQOpenSharedCatalog(), kNoCatalog);
  useCatalog("b", "$set 1\n7 Second\n");
  EXPECT_NE(ZQOpenSharedCatalog(), kNoCatalog);
  EXPECT_EQ(textOf(7), "Second");
}

TEST_F(CatalogTest, AFailedOpeningIsStoredToo) {
  useCatalog("a", "$set 1\n7 First\n");
  EXPECT_NE(ZQOpenSharedCatalog(), kNoCatalog);
  useNoCatalog();
  EXPECT_EQ(ZQOpenSharedCatalog(), kNoCatalog);
  EXPECT_EQ(textOf(7), "Cannot open catalog; Message number = 7");
  // There is no shared catalog any more, so each look-up searches again.
  useCatalog("b", "$set 1\n7 Second\n");
  EXPECT_EQ(textOf(7), "Second");
}

}  // namespace
