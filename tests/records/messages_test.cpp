// The numbers of the messages, written down a second time, beside the constants of the public
// header and the texts of the catalog.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "records/StatusLists.h"
#include "zqxml/status.h"

namespace {

// All messages that the library gives.
constexpr struct {
  int number;
  int constant;
} kMessages[] = {
    {1, ZQ_MESSAGE_NOT_IN_CATALOG},
    {131, ZQ_MESSAGE_MENU_ITEM_TYPE},
    {154, ZQ_MESSAGE_NO_MEMORY_FOR_RESULT},
    {155, ZQ_MESSAGE_MISSING_OUTPUT_ARGUMENT},
    {160, ZQ_MESSAGE_ATTACHMENT_SIZE},
    {206, ZQ_MESSAGE_MENU_TYPE},
    {300, ZQ_MESSAGE_OUT_OF_MEMORY},
    {301, ZQ_MESSAGE_WRITE_FAILED},
    {339, ZQ_MESSAGE_DIARY_MALFORMED},
    {340, ZQ_MESSAGE_STATUS_HISTORY_MALFORMED},
    {402, ZQ_MESSAGE_CURRENCY_DETAILS_MALFORMED},
    {3001, ZQ_MESSAGE_COMPRESS_READ},
    {3002, ZQ_MESSAGE_COMPRESS_END_OF_INPUT},
    {3003, ZQ_MESSAGE_COMPRESS_WRITE},
    {3004, ZQ_MESSAGE_COMPRESS_CHECKSUM},
    {3005, ZQ_MESSAGE_COMPRESS_LENGTH},
    {3006, ZQ_MESSAGE_COMPRESS_STREAM},
    {3007, ZQ_MESSAGE_COMPRESS_MEMORY},
    {3008, ZQ_MESSAGE_COMPRESS_ARGUMENT},
    {3009, ZQ_MESSAGE_COMPRESS_SEEK},
    {8936, ZQ_MESSAGE_BASE64_LENGTH},
    {8938, ZQ_MESSAGE_XML_START_UP},
    {8940, ZQ_MESSAGE_XML_PARSER},
    {8941, ZQ_MESSAGE_ELEMENT_NOT_ALLOWED},
    {8942, ZQ_MESSAGE_ATTRIBUTE_NOT_ALLOWED},
    {8943, ZQ_MESSAGE_WORD_NOT_ALLOWED},
    {8944, ZQ_MESSAGE_PARSING_FRAME},
    {8945, ZQ_MESSAGE_OBJECT_NOT_FOUND},
    {8952, ZQ_MESSAGE_DOCUMENT_KIND},
    {8954, ZQ_MESSAGE_FILE_OPEN},
    {8956, ZQ_MESSAGE_DATE_PART},
    {8957, ZQ_MESSAGE_ISO_TIME},
    {8958, ZQ_MESSAGE_DATE_INVALID},
    {8959, ZQ_MESSAGE_VALUE_CONVERSION},
    {8961, ZQ_MESSAGE_REQUIRED_ELEMENT},
    {8962, ZQ_MESSAGE_UNMAPPED_ELEMENT},
    {8963, ZQ_MESSAGE_TOO_MANY_ELEMENTS},
    {8964, ZQ_MESSAGE_TOO_FEW_ELEMENTS},
    {8966, ZQ_MESSAGE_UNEXPECTED_ELEMENT},
    {8967, ZQ_MESSAGE_MISSING_ATTRIBUTE},
    {8969, ZQ_MESSAGE_REQUIRED_ATTRIBUTE},
};

std::string catalogText(int number) {
  char text[ZQ_MESSAGE_TEXT_SIZE];
  ZQGetTextForMessage(number, text);
  return text;
}

TEST(Messages, EachConstantHasItsNumber) {
  for (const auto& message : kMessages) {
    EXPECT_EQ(message.constant, message.number);
  }
}

TEST(Messages, EachNumberHasAText) {
  for (const auto& message : kMessages) {
    const std::string text = catalogText(message.number);
    EXPECT_FALSE(text.empty()) << message.number;
    if (message.number != ZQ_MESSAGE_NOT_IN_CATALOG) {
      EXPECT_EQ(text.find("Message number = "), std::string::npos) << message.number;
    }
    OwnedStatusList list;
    ZQAddErrorMessage(&list, 2, message.number, nullptr);
    EXPECT_EQ(list.items[0].messageText, text);
  }
}

TEST(Messages, NoTwoNumbersShareAText) {
  std::set<std::string> texts;
  for (const auto& message : kMessages) {
    EXPECT_TRUE(texts.insert(catalogText(message.number)).second) << message.number;
  }
}

TEST(Messages, TheCatalogHasNoOtherNumbers) {
  std::set<int> known;
  for (const auto& message : kMessages) {
    known.insert(message.number);
  }
  for (int number = 0; number <= 10001; ++number) {
    if (known.count(number) == 0) {
      EXPECT_EQ(catalogText(number),
                "Message not in catalog; Message number = " + std::to_string(number));
    }
  }
}

}  // namespace
