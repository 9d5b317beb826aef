// The bad documents of tests/data/bad: each is refused with its number, text and place, and the
// handle that has read it reads a good one.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>

#include "fault/FailingAllocations.h"
#include "xml/handlers/Parsed.h"

namespace {

const std::string kFolder = std::string(ZQXML_TEST_DATA_DIR) + "/bad/";

std::string fileText(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(kFolder + name, std::ios::binary).rdbuf();
  return text.str();
}

nlohmann::json expectations() {
  return nlohmann::json::parse(fileText("expected.json"));
}

TEST(BadDocuments, AllAreListed) {
  std::set<std::string> listed;
  for (const auto& row : expectations()) {
    EXPECT_TRUE(listed.insert(row["file"]).second);
  }
  std::set<std::string> there;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    if (entry.path().extension() == ".xml") {
      there.insert(entry.path().filename());
    }
  }
  EXPECT_EQ(listed, there);
  EXPECT_GE(listed.size(), 300U);
}

TEST(BadDocuments, AreRefusedWithNumberTextAndPlace) {
  for (const auto& row : expectations()) {
    const std::string file = row["file"];
    const std::string document = fileText(file);
    const Parsed parsed(sharedHandle(), document);
    EXPECT_EQ(parsed.result, 2) << file;
    const std::string start = "2/" + std::to_string(row["number"].get<int>()) + " ";
    if (row["text"].is_null()) {
      EXPECT_EQ(parsed.status.substr(0, start.size()), start) << file;
      EXPECT_GT(parsed.status.size(), start.size()) << file;
    } else {
      EXPECT_EQ(parsed.status, start + row["text"].get<std::string>()) << file;
    }
    EXPECT_EQ(parsed.line, row["line"].get<uint64_t>()) << file;
    EXPECT_EQ(parsed.column, row["column"].get<uint64_t>()) << file;
    EXPECT_EQ(outcomeOf("<root/>"), "0 |  | ") << file;
  }
}

// Whatever a refused document left goes with its handle.
TEST(BadDocuments, LeaveNoBlocks) {
  const nlohmann::json rows = expectations();
  { ParserHandle first; }
  const long before = fault::liveBlocks();
  {
    ParserHandle handle;
    for (const auto& row : rows) {
      EXPECT_EQ(Parsed(&handle, fileText(row["file"])).result, 2);
    }
  }
  EXPECT_EQ(fault::liveBlocks(), before);
}

}  // namespace
