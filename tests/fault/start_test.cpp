// Starting the XML platform with failing allocations. It is started once for a process, so each
// attempt has a process of its own.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <xercesc/util/PlatformUtils.hpp>

#include "fault/FailingAllocations.h"
#include "records/StatusLists.h"
#include "xml/XMLReader.h"
#include "zqxml/zqxml.h"

namespace {

using fault::FailingAllocations;
using fault::Mode;

enum Outcome { kGood, kFailedAndWorksAgain, kFailedForGood, kWrongStatus, kWorksWrongly };

bool listsADocument() {
  ZQXMLParserHandle handle = {};
  if (CreateXMLParserHandle(&handle, nullptr) != 0) {
    return false;
  }
  std::string text = "<root><form><formName>A</formName></form></root>";
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, text.data()};
  ZQNameList names = {};
  const int result = GetListXMLObjects(&handle, &input, nullptr, &names, nullptr, nullptr);
  const bool good = result == 0 && names.numItems == 1 && strcmp(names.items[0], "A") == 0;
  FreeZQNameList(&names, 0);
  FreeZQXMLParserHandleInternal(&handle, 0);
  return good;
}

Outcome start(long index, Mode mode) {
  OwnedStatusList status;
  ZQXMLParserHandle handle = {};
  int result = 0;
  bool failed = false;
  {
    const FailingAllocations armed(index, mode);
    result = InitXMLParser(&status);
    failed = FailingAllocations::happened();
  }
  if (!failed) {
    return result == 0 && listsADocument() ? kGood : kWorksWrongly;
  }
  const std::string told = describe(status);
  if (!(result == 2 && (told == "2/300 " || told == "2/8938 Unknown reason")) &&
      !(result == 3 && told.empty())) {
    return kWrongStatus;
  }
  if (InitXMLParser(nullptr) == 0) {
    return listsADocument() ? kFailedAndWorksAgain : kWorksWrongly;
  }
  OwnedStatusList later;
  OwnedStatusList ofHandle;
  const bool isRefused = InitXMLParser(&later) == 2 && describe(later) == "2/8938 " &&
                         CreateXMLParserHandle(&handle, &ofHandle) == 2 &&
                         handle.handle == nullptr && describe(ofHandle) == "2/8938 ";
  return isRefused ? kFailedForGood : kWorksWrongly;
}

Outcome startInAProcess(long index, Mode mode) {
  const pid_t child = fork();
  if (child == 0) {
    _exit(start(index, mode));
  }
  int how = 0;
  EXPECT_EQ(waitpid(child, &how, 0), child);
  EXPECT_TRUE(WIFEXITED(how)) << "signal " << WTERMSIG(how);
  return WIFEXITED(how) ? static_cast<Outcome>(WEXITSTATUS(how)) : kWorksWrongly;
}

// A start for which there is no memory at all can be tried again; one that has failed halfway is
// refused from then on, without harm.
TEST(Start, IsTriedAgainOrRefused) {
  // Each start takes a process, so not all of its thousands of allocations fail.
  const auto behind = [](long index) { return index + (index == 0 ? 1 : index < 300 ? 3 : 61); };
  long injected = 0;
  for (const Mode mode : {Mode::Once, Mode::FromThere}) {
    for (long index = 0;; index = behind(index)) {
      const Outcome outcome = startInAProcess(index, mode);
      if (outcome == kGood) {
        break;
      }
      ++injected;
      ASSERT_EQ(outcome, index == 0 ? kFailedAndWorksAgain : kFailedForGood) << index;
    }
  }
  printf("starts with failing allocations: %ld\n", injected);
  EXPECT_GT(injected, 100);
}

// What the XML parser allocates is counted and fails like everything else: its process-wide memory
// and that of a reader.
TEST(Start, TheMemoryOfTheXmlParserIsCounted) {
  ASSERT_EQ(InitXMLParser(nullptr), 0);
  ReaderMemory ofReader;
  for (xercesc::MemoryManager* memory : {xercesc::XMLPlatformUtils::fgMemoryManager,
                                         static_cast<xercesc::MemoryManager*>(&ofReader)}) {
    const long allocations = fault::allocationCount();
    const long blocks = fault::liveBlocks();
    void* block = memory->allocate(100);
    EXPECT_EQ(fault::allocationCount(), allocations + 1);
    EXPECT_EQ(fault::liveBlocks(), blocks + 1);
    memory->deallocate(block);
    EXPECT_EQ(fault::liveBlocks(), blocks);
    bool thrown = false;
    {
      const FailingAllocations armed(0);
      try {
        block = memory->allocate(100);
      } catch (...) {
        thrown = true;
      }
    }
    EXPECT_TRUE(thrown);
  }
}

}  // namespace
