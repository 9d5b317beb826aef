// Base64 text as the bytes of a record.
#ifndef ZQXML_XML_DECODEBYTES_H
#define ZQXML_XML_DECODEBYTES_H

#include <cstdlib>

#include "xml/ZQXMLException.h"
#include "zqxml/base64.h"

// Stores the bytes of a text in place of those that the record has, which are freed. No bytes are
// null. Throws ZQXMLException with the number of a failure.
inline void decodeBytes(const char* text, unsigned char*& bytes, uint32_t& count) {
  free(bytes);
  bytes = nullptr;
  if (const int number = DecodeBase64(text, &bytes, &count); number != 0) {
    throw ZQXMLException(number);
  }
  if (count == 0) {
    free(bytes);
    bytes = nullptr;
  }
}

#endif
