// Parsers of different threads share nothing that is written.

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>

#include "zqxml/zqxml.h"

namespace {

constexpr int kParses = 10000;

// Lists a document over and over, every third time with a fault in it, and counts what came out
// wrong.
void listOften(const std::string& name, int* wrong) {
  ZQXMLParserHandle handle;
  if (CreateXMLParserHandle(&handle, nullptr) != 0) {
    *wrong = kParses;
    return;
  }
  std::string good =
      "<root><form><formName>" + name + " \xC3\xA9&amp;</formName></form><x a='1'/></root>";
  std::string bad = "<!DOCTYPE root><root><form></root>";
  for (int i = 0; i < kParses; ++i) {
    const bool isBad = i % 3 == 2;
    ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, isBad ? bad.data() : good.data()};
    ZQNameList names;
    ZQStatusList status;
    const int result = GetListXMLObjects(&handle, &input, nullptr, &names, nullptr, &status);
    const bool right =
        isBad ? result == 2 && status.numItems == 1 && status.items[0].messageNum == 8940
              : result == 0 && names.numItems == 1 && name + " \xC3\xA9&" == names.items[0];
    *wrong += right ? 0 : 1;
    FreeZQNameList(&names, 0);
    FreeZQStatusList(&status, 0);
  }
  FreeZQXMLParserHandleInternal(&handle, 0);
}

TEST(Threads, TwoParseTenThousandDocumentsEach) {
  InitMbutil();
  ZQOpenSharedCatalog();
  int wrong[2] = {0, 0};
  std::thread first(listOften, "First", &wrong[0]);
  std::thread second(listOften, "Second", &wrong[1]);
  first.join();
  second.join();
  EXPECT_EQ(wrong[0], 0);
  EXPECT_EQ(wrong[1], 0);
}

}  // namespace
