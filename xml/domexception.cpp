// The texts of DOM exception codes.

#include "zqxml/status.h"

const char* GetDOMExceptionErrorText(int code) {
  static constexpr const char* kTexts[] = {
      "",
      "Index size error",
      "DOMString size error",
      "Hierarchy request error",
      "Wrong document error",
      "Invalid character error",
      "No data allowed error",
      "No modification allowed error",
      "Not found error",
      "Not supported error",
      "Inuse attribute error",
      "Invalid state error",
      "Syntax error",
      "Invalid modification error",
      "Namespace error",
      "Invalid access error",
  };
  constexpr int kCount = sizeof kTexts / sizeof kTexts[0];
  return code > 0 && code < kCount ? kTexts[code] : "";
}
