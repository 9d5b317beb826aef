#include "xml/ZQXMLHandlerUtils.h"

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
