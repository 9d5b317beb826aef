// Runs all scenarios with failing system calls: each call of each kind fails once, and together
// with all that follow it, with several reasons; and reads and writes move a few bytes only.

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "fault/SystemScenario.h"
#include "zqxml/zqxml.h"

namespace {

using fault::Mode;
using fault::SystemAttempt;
using fault::SystemFault;
using fault::SystemScenario;
using faulty::Call;

struct Figures {
  long scenarios = 0;
  long injected = 0;
  long leaks = 0;
  long wrong = 0;
};
Figures figures;

// An interruption that never ends is none: what is tried again then goes on for ever.
struct Reason {
  Call call;
  int error;
  bool lasts;
};
constexpr Reason kReasons[] = {
    {Call::Open, EMFILE, true},        {Call::Open, EACCES, true},
    {Call::Open, EINTR, false},        {Call::Read, EIO, true},
    {Call::Read, EINTR, false},        {Call::Write, ENOSPC, true},
    {Call::Write, EIO, true},          {Call::Write, EINTR, false},
    {Call::Seek, EINVAL, true},        {Call::Close, EIO, true},
    {Call::Close, EINTR, false},       {Call::Stat, EIO, true},
    {Call::CatalogOpen, ENOENT, true}, {Call::CatalogGet, EINTR, true},
    {Call::CatalogClose, EBADF, true},
};
constexpr int kShortCounts[] = {1, 2, 3, 7, 100, 4095};

long openDescriptors() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return std::distance(begin(all), end(all));
}

class SystemTest : public testing::Test {
 public:
  explicit SystemTest(const SystemScenario& tested) : scenario(tested) {}

  void TestBody() override {
    for (int i = 0; i < 2; ++i) {
      SystemAttempt good;
      scenario.run(good);
    }
    if (HasFailure()) {
      ++figures.wrong;
      return;
    }
    long injected = 0;
    for (const Reason& reason : kReasons) {
      for (const Mode mode : {Mode::Once, Mode::FromThere}) {
        if (mode == Mode::FromThere && !reason.lasts) {
          continue;
        }
        SystemFault fault = {reason.call, reason.error, 0, mode, 0};
        for (; attempt(fault); ++fault.index) {
          ++injected;
        }
      }
    }
    for (const int count : kShortCounts) {
      SystemFault fault;
      fault.shortCount = count;
      attempt(fault);
      ++injected;
    }
    ++figures.scenarios;
    figures.injected += injected;
    EXPECT_GT(injected, static_cast<long>(std::size(kShortCounts)));
  }

 private:
  // Whether a call failed and the next one is to be tried.
  bool attempt(const SystemFault& fault) {
    if (HasFailure()) {
      return false;
    }
    const long blocks = fault::liveBlocks();
    const long descriptors = openDescriptors();
    SystemAttempt tried(fault);
    scenario.run(tried);
    if (HasFailure()) {
      ++figures.wrong;
    } else {
      EXPECT_EQ(fault::liveBlocks(), blocks) << "blocks";
      EXPECT_EQ(openDescriptors(), descriptors) << "descriptors";
      figures.leaks += HasFailure();
    }
    if (HasFailure()) {
      ADD_FAILURE() << "with " << describe(fault);
      return false;
    }
    return tried.failed();
  }

  static std::string describe(const SystemFault& fault) {
    static constexpr const char* kNames[] = {"open",  "read",    "write",   "lseek",   "close",
                                             "fstat", "catopen", "catgets", "catclose"};
    static_assert(std::size(kNames) == faulty::kCalls);
    if (fault.shortCount > 0) {
      return "counts of at most " + std::to_string(fault.shortCount);
    }
    return std::string(kNames[static_cast<int>(fault.call)]) + " " + std::to_string(fault.index) +
           (fault.mode == Mode::Once ? "" : " and all behind it") +
           " failing: " + strerror(fault.error);
  }

  const SystemScenario& scenario;
};

// Stands behind all scenarios.
class FiguresTest : public testing::Test {
 public:
  explicit FiguresTest(size_t count) : scenarios(static_cast<long>(count)) {}

  void TestBody() override {
    printf(
        "failing system calls: %ld scenarios, %ld injected failures, %ld leaks, %ld wrong "
        "results\n",
        figures.scenarios, figures.injected, figures.leaks, figures.wrong);
    if (figures.scenarios == scenarios) {
      EXPECT_GE(figures.scenarios, 40);
      EXPECT_GE(figures.injected, 1000);
    }
  }

 private:
  long scenarios;
};

// All exported functions that make system calls.
constexpr const char* kFunctions[] = {
    "DetectJPCodeType",
    "FileRead",
    "FillInbuf",
    "FlushOutbuf",
    "FlushWindow",
    "GetListXMLObjects",
    "ParseXMLDocument",
    "SetDocFooterToXML",
    "SetDocHeaderToXML",
    "SetEscalationToXML",
    "SetFilterToXML",
    "WriteBuf",
    "WriteToXMLDoc",
    "ZQAddErrorMessage",
    "ZQAddErrorMessageId",
    "ZQCompressFileToFile",
    "ZQCompressFileToMem",
    "ZQCompressMemToFile",
    "ZQCopy",
    "ZQDecompressFileToFile",
    "ZQDecompressFileToMem",
    "ZQDecompressMemToFile",
    "ZQGNString::AppendToFile",
    "ZQGNString::WriteToFileHandle",
    "ZQGetTextForMessage",
    "ZQOpenSharedCatalog",
    "ZQProcessInput",
    "ZQfclose",
    "ZQfdopen",
    "ZQfgetc",
    "ZQfgets",
    "ZQfopen",
    "ZQfprintf",
    "ZQfputc",
    "ZQfputs",
    "ZQfread",
    "ZQfseek",
    "ZQfwrite",
    "ZQrewind",
    "getLine",
    "mbconvertfile2native_ex",
    "mbfgets",
    "mbfputs",
    "mbfreadstring",
    "mbfreadstringtype",
};

class CoverageTest : public testing::Test {
 public:
  explicit CoverageTest(const fault::SystemScenarios& tested) : table(tested) {}

  void TestBody() override {
    for (const std::string function : kFunctions) {
      bool isTried = false;
      for (const SystemScenario& scenario : table) {
        for (const std::string& tried : scenario.functions) {
          isTried = isTried || tried == function;
        }
      }
      EXPECT_TRUE(isTried) << function;
    }
  }

 private:
  const fault::SystemScenarios& table;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  InitXMLParser(nullptr);
  fault::SystemScenarios table;
  fault::addSystemStreamScenarios(table);
  fault::addSystemTextScenarios(table);
  fault::addSystemDataScenarios(table);
  fault::addSystemDocumentScenarios(table);
  testing::RegisterTest("Exports", "HaveAScenario", nullptr, nullptr, __FILE__, __LINE__,
                        [&table]() -> testing::Test* { return new CoverageTest(table); });
  for (const SystemScenario& scenario : table) {
    testing::RegisterTest("SystemCalls", scenario.name.c_str(), nullptr, nullptr, __FILE__,
                          __LINE__,
                          [&scenario]() -> testing::Test* { return new SystemTest(scenario); });
  }
  testing::RegisterTest("Figures", "SystemCalls", nullptr, nullptr, __FILE__, __LINE__,
                        [&table]() -> testing::Test* { return new FiguresTest(table.size()); });
  return RUN_ALL_TESTS();
}
