// Runs all scenarios with failing allocations: the first, the second, ... each fails once, and each
// fails together with all that follow it. What a scenario finds wrong is a failure of its test, and
// so are blocks that are not given back.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "fault/FailingAllocations.h"
#include "fault/Scenario.h"
#include "zqxml/parser.h"

namespace {

using fault::FailingAllocations;
using fault::Failures;
using fault::Memory;
using fault::Mode;
using fault::Scenario;
using fault::Scenarios;

// Of the allocations of a large document about so many fail.
constexpr long kSomeFailures = 100;

class AllocationAttempt : public fault::Attempt {
 public:
  AllocationAttempt() = default;
  AllocationAttempt(long index, Mode mode) : failing({index, mode}) {}

  long allocations() const { return counted; }

 private:
  struct Which {
    long index;
    Mode mode;
  };

  void arm() override {
    if (failing.has_value()) {
      failure.emplace(failing->index, failing->mode);
    }
    counted = -fault::allocationCount();
  }
  bool disarm() override {
    counted += fault::allocationCount();
    const bool happened = failure.has_value() && FailingAllocations::happened();
    failure.reset();
    return happened;
  }

  std::optional<Which> failing;
  std::optional<FailingAllocations> failure;
  long counted = 0;
};

struct Figures {
  long scenarios = 0;
  long injected = 0;
  long leaks = 0;
  long wrong = 0;
  long plain = 0;
};
Figures figures;

Scenarios allScenarios() {
  Scenarios table;
  fault::addRecordScenarios(table);
  fault::addStatusScenarios(table);
  fault::addParserScenarios(table);
  fault::addObjectScenarios(table);
  fault::addDefinitionScenarios(table);
  fault::addBuilderScenarios(table);
  fault::addCompressScenarios(table);
  fault::addTextScenarios(table);
  fault::addStreamScenarios(table);
  fault::addPlainScenarios(table);
  return table;
}

class AllocationTest : public testing::Test {
 public:
  explicit AllocationTest(const Scenario& tested) : scenario(tested) {}

  void TestBody() override {
    // What is made once for the process, or kept for the next call, is there after these.
    AllocationAttempt first;
    scenario.run(first);
    AllocationAttempt second;
    scenario.run(second);
    if (HasFailure()) {
      ++figures.wrong;
      return;
    }
    const long step =
        scenario.failures == Failures::Each ? 1 : 1 + second.allocations() / kSomeFailures;
    long injected = 0;
    for (const Mode mode : {Mode::Once, Mode::FromThere}) {
      for (long index = 0; attempt(index, mode); index += step) {
        ++injected;
      }
    }
    (scenario.memory == Memory::Needed ? figures.scenarios : figures.plain) += 1;
    figures.injected += injected;
    if (scenario.memory == Memory::Needed) {
      EXPECT_GT(injected, 0);
    } else {
      EXPECT_EQ(injected, 0);
    }
  }

 private:
  // Whether an allocation failed and the next one is to be tried.
  bool attempt(long index, Mode mode) {
    const long before = fault::liveBlocks();
    AllocationAttempt tried(index, mode);
    scenario.run(tried);
    if (HasFailure()) {
      ++figures.wrong;
      ADD_FAILURE() << "with allocation " << index << " failing"
                    << (mode == Mode::Once ? "" : " and all behind it");
      return false;
    }
    const long leaked = fault::liveBlocks() - before - tried.kept();
    if (leaked != 0) {
      ++figures.leaks;
      ADD_FAILURE() << leaked << " blocks left with allocation " << index << " failing"
                    << (mode == Mode::Once ? "" : " and all behind it");
      return false;
    }
    return tried.failed();
  }

  const Scenario& scenario;
};

// Stands behind all scenarios.
class FiguresTest : public testing::Test {
 public:
  explicit FiguresTest(size_t count) : scenarios(static_cast<long>(count)) {}

  void TestBody() override {
    printf(
        "failing allocations: %ld scenarios, %ld injected failures, %ld leaks, %ld wrong "
        "results; %ld scenarios that allocate nothing\n",
        figures.scenarios, figures.injected, figures.leaks, figures.wrong, figures.plain);
    if (figures.scenarios + figures.plain == scenarios) {
      EXPECT_GE(figures.scenarios, 150);
      EXPECT_GE(figures.injected, 5000);
    }
  }

 private:
  long scenarios;
};

// The exported names, without the arguments of those of C++.
std::set<std::string> exportedNames() {
  std::set<std::string> names;
  for (const char* family :
       {"base64", "builders", "calendar", "codeset", "compress", "convert", "copy", "datetime",
        "definitions", "free", "multibyte", "objects", "os", "parser", "status", "stream"}) {
    std::ifstream list(std::string(ZQXML_EXPORT_LISTS) + "/" + family + ".txt");
    EXPECT_TRUE(list.is_open()) << family;
    for (std::string line; std::getline(list, line);) {
      names.insert(line.substr(0, line.find('(')));
    }
  }
  return names;
}

// What has no scenario, and why.
const std::map<std::string, std::string>& withoutScenario() {
  static const std::map<std::string, std::string> reasons = {
      {"_ConvToCharsetTable", "data"},
      {"typeinfo for ZQGNString", "data"},
      {"typeinfo name for ZQGNString", "data"},
      {"vtable for ZQGNString", "data"},
  };
  return reasons;
}

class CoverageTest : public testing::Test {
 public:
  explicit CoverageTest(const Scenarios& tested) : table(tested) {}

  void TestBody() override {
    const std::set<std::string> exported = exportedNames();
    EXPECT_GT(exported.size(), 500U);
    std::set<std::string> tried;
    std::set<std::string> names;
    for (const Scenario& scenario : table) {
      EXPECT_TRUE(names.insert(scenario.name).second) << scenario.name << " is there twice";
      for (const std::string& function : scenario.functions) {
        EXPECT_TRUE(exported.contains(function)) << function << " is not exported";
        tried.insert(function);
      }
    }
    for (const std::string& function : exported) {
      EXPECT_NE(tried.contains(function), withoutScenario().contains(function)) << function;
    }
  }

 private:
  const Scenarios& table;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  InitXMLParser(nullptr);
  const Scenarios table = allScenarios();
  testing::RegisterTest("Exports", "HaveAScenario", nullptr, nullptr, __FILE__, __LINE__,
                        [&table]() -> testing::Test* { return new CoverageTest(table); });
  for (const Scenario& scenario : table) {
    testing::RegisterTest("Allocations", scenario.name.c_str(), nullptr, nullptr, __FILE__,
                          __LINE__,
                          [&scenario]() -> testing::Test* { return new AllocationTest(scenario); });
  }
  testing::RegisterTest("Figures", "Allocations", nullptr, nullptr, __FILE__, __LINE__,
                        [&table]() -> testing::Test* { return new FiguresTest(table.size()); });
  return RUN_ALL_TESTS();
}
