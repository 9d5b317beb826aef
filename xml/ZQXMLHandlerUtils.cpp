#include "xml/ZQXMLHandlerUtils.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "xml/ZQXMLException.h"
#include "xml/ZQXMLTagHash.h"
#include "zqxml/messages.h"

unsigned ZQXMLHandlerUtils::GetEnumValue(ENUM_VALUE_TYPE type, const char* text,
                                         const xercesc::Locator* const* locator) {
  const int tag = gTagHash.Get(text);
  for (const EnumWord& word : enumWords(type)) {
    if (word.tag == tag) {
      return word.value;
    }
  }
  throw ZQXMLException(ZQ_MESSAGE_WORD_NOT_ALLOWED, locator);
}

bool ZQXMLHandlerUtils::IsObjectRequested(uint32_t objectKind, const char* name,
                                          const ZQStructItemList* selection) {
  if (selection == nullptr || selection->numItems == 0 || selection->items == nullptr) {
    return true;
  }
  return name != nullptr &&
         std::ranges::any_of(std::span(selection->items, selection->numItems),
                             [=](const ZQStructItemStruct& item) {
                               return item.itemType == objectKind &&
                                      strncmp(item.name, name, sizeof item.name) == 0;
                             });
}
