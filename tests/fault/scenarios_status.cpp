// Status lists and the message catalog.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "fault/Scenario.h"
#include "records/StatusLists.h"

namespace fault {

namespace {

using Add = int (*)(ZQStatusList*);

// A record is added to a list with two; a failure leaves the list as it is, and the next one goes
// in.
void addRecord(Attempt& attempt, Add add, const std::string& added) {
  OwnedStatusList list;
  ZQAddErrorMessage(&list, 2, 8945, "first");
  ZQAddErrorMessage(&list, 0, 8940, nullptr);
  const int result = attempt.call([&] { return add(&list); });
  const std::string before = "2/8945 first; 0/8940 <null>";
  const std::string whole = "2/8945 first; " + added + "; 0/8940 <null>";
  EXPECT_EQ(result, attempt.failed() ? 3 : 2);
  EXPECT_EQ(describe(list), attempt.failed() ? before : whole);
  if (attempt.failed()) {
    EXPECT_EQ(add(&list), 2);
    EXPECT_EQ(describe(list), whole);
  }
  EXPECT_STREQ(list.items[0].messageText, "The object is not in the parsed document");
}

void merge(Attempt& attempt) {
  OwnedStatusList first;
  OwnedStatusList second;
  OwnedStatusList result;
  ZQAddErrorMessage(&first, 1, 8940, "a");
  ZQAddErrorMessage(&second, 2, 8945, "b");
  attempt.call([&] { MergeZQStatusLists(&first, &second, &result); });
  EXPECT_EQ(first.numItems + second.numItems, 0U);
  const std::string merged = "2/8945 b; 1/8940 a";
  if (!attempt.failed()) {
    EXPECT_EQ(describe(result), merged);
  } else {
    // The more severe list stays, and the record of the failure joins it if there is memory again.
    const std::string found = describe(result);
    EXPECT_TRUE(found == "2/154 ; 2/8945 b" || found == "2/8945 b") << found;
  }
}

void texts(Attempt& attempt) {
  char text[ZQ_MESSAGE_TEXT_SIZE];
  const bool good = attempt.call([&] {
    ZQGetTextForMessage(300, text);
    return ZQGetMessage() == nullptr && strcmp(GetDOMExceptionErrorText(8), "Not found error") == 0;
  });
  EXPECT_TRUE(good);
  EXPECT_STREQ(text, "Out of memory");
}

}  // namespace

void addStatusScenarios(Scenarios& table) {
  table.push_back({"ZQAddErrorMessage", {"ZQAddErrorMessage"}, [](Attempt& attempt) {
                     addRecord(
                         attempt,
                         [](ZQStatusList* list) { return ZQAddErrorMessage(list, 1, 8941, "x"); },
                         "1/8941 x");
                   }});
  table.push_back(
      {"ZQAddErrorMessage without a detail", {"ZQAddErrorMessage"}, [](Attempt& attempt) {
         addRecord(
             attempt, [](ZQStatusList* list) { return ZQAddErrorMessage(list, 1, 0, nullptr); },
             "1/0 <null>");
       }});
  table.push_back({"ZQAddErrorMessageId", {"ZQAddErrorMessageId"}, [](Attempt& attempt) {
                     addRecord(
                         attempt,
                         [](ZQStatusList* list) { return ZQAddErrorMessageId(list, 1, 8952, 42); },
                         "1/8952 42");
                   }});
  table.push_back({"MergeZQStatusLists", {"MergeZQStatusLists"}, merge});
  table.push_back({"Message texts",
                   {"ZQGetTextForMessage", "ZQGetMessage", "GetDOMExceptionErrorText"},
                   texts,
                   Memory::NotNeeded});
  table.push_back({"ZQOpenSharedCatalog",
                   {"ZQOpenSharedCatalog"},
                   [](Attempt& attempt) {
                     const nl_catd catalog = attempt.call([] { return ZQOpenSharedCatalog(); });
                     EXPECT_NE(catalog, reinterpret_cast<nl_catd>(-1));
                   },
                   Memory::NotNeeded});
}

}  // namespace fault
