#include "xml/ZQXMLException.h"

#include <cstdio>

#include "xml/ZQXMLText.h"

namespace {

// The formatter gets one byte less than there is: a text has at most 254 bytes.
constexpr size_t kFormatLimit = 255;

bool isThere(const xercesc::Locator* const* locator) {
  return locator != nullptr && *locator != nullptr;
}

int lineOf(const xercesc::Locator* const* locator) {
  return static_cast<int>((*locator)->getLineNumber());
}

int columnOf(const xercesc::Locator* const* locator) {
  return static_cast<int>((*locator)->getColumnNumber());
}

const char* orEmpty(const char* text) { return text != nullptr ? text : ""; }

}  // namespace

ZQXMLException::ZQXMLException(int number) : errorNumber(number) {}

ZQXMLException::ZQXMLException(int number, const xercesc::Locator* const* locator)
    : errorNumber(number) {
  if (isThere(locator)) {
    snprintf(errorMsg, kFormatLimit, "line: %d, column %d", lineOf(locator), columnOf(locator));
  }
}

ZQXMLException::ZQXMLException(int number, const XMLCh* const* elementName,
                               const xercesc::Locator* const* locator)
    : errorNumber(number) {
  const ZQXMLShortText name(elementName != nullptr ? *elementName : nullptr);
  format(name.get(), locator);
}

ZQXMLException::ZQXMLException(int number, const char* text, const xercesc::Locator* const* locator)
    : errorNumber(number) {
  format(orEmpty(text), locator);
}

ZQXMLException::ZQXMLException(int number, const char* text) : errorNumber(number) {
  snprintf(errorMsg, kFormatLimit, "%s", orEmpty(text));
}

ZQXMLException::ZQXMLException(int number, const XMLCh* domText) : errorNumber(number) {
  const ZQXMLShortText text(domText);
  snprintf(errorMsg, kFormatLimit, "<%s>", text.get());
}

void ZQXMLException::format(const char* text, const xercesc::Locator* const* locator) {
  if (isThere(locator)) {
    snprintf(errorMsg, kFormatLimit, "%s, line: %d, column %d", text, lineOf(locator),
             columnOf(locator));
  }
}
