#include "xml/ZQXMLException.h"

#include <cstdarg>
#include <cstdio>

#include "xml/ZQXMLText.h"

namespace {

// The formatter gets one byte less than there is, so a text is cut at 254 bytes.
[[gnu::format(printf, 2, 3)]] void formatCut(char (&target)[256], const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  vsnprintf(target, sizeof target - 1, format, arguments);
  va_end(arguments);
}

bool isThere(const xercesc::Locator* const* locator) {
  return locator != nullptr && *locator != nullptr;
}

int lineOf(const xercesc::Locator* const* locator) {
  return static_cast<int>((*locator)->getLineNumber());
}

int columnOf(const xercesc::Locator* const* locator) {
  return static_cast<int>((*locator)->getColumnNumber());
}

const char* orEmpty(const char* text) {
  return text != nullptr ? text : "";
}

}  // namespace

ZQXMLException::ZQXMLException(int number) : errorNumber(number) {}

ZQXMLException::ZQXMLException(int number, const xercesc::Locator* const* locator)
    : errorNumber(number) {
  if (isThere(locator)) {
    formatCut(errorMsg, "line: %d, column %d", lineOf(locator), columnOf(locator));
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
  formatCut(errorMsg, "%s", orEmpty(text));
}

ZQXMLException::ZQXMLException(int number, const XMLCh* domText) : errorNumber(number) {
  const ZQXMLShortText text(domText);
  formatCut(errorMsg, "<%s>", text.get());
}

void ZQXMLException::format(const char* text, const xercesc::Locator* const* locator) {
  if (isThere(locator)) {
    formatCut(errorMsg, "%s, line: %d, column %d", text, lineOf(locator), columnOf(locator));
  }
}
