// The conversions that handlers need, as members of a base class without data.
#ifndef ZQXML_XML_ZQXMLHANDLERUTILS_H
#define ZQXML_XML_ZQXMLHANDLERUTILS_H

#include <xercesc/sax/Locator.hpp>

#include "xml/enumerations.h"

class ZQXMLHandlerUtils {
 public:
  using ENUM_VALUE_TYPE = ::ENUM_VALUE_TYPE;
  using enum ::ENUM_VALUE_TYPE;

  // The number of a word in a table. Throws ZQXMLException 8943 with the place if the text is none
  // of its words.
  static unsigned GetEnumValue(ENUM_VALUE_TYPE type, const char* text,
                               const xercesc::Locator* const* locator);
};

#endif
