// Times as the text of an element or an attribute.
#ifndef ZQXML_XML_WRITERS_ISOTIME_H
#define ZQXML_XML_WRITERS_ISOTIME_H

#include "zqxml/definitions.h"

class ISOTime {
 public:
  explicit ISOTime(ZQTimestamp stamp) { FormatZQTimestampToISODateTime(stamp, sizeof text, text); }
  const char* get() const { return text; }

 private:
  char text[40];
};

#endif
