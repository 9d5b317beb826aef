// What all objects begin with.
#ifndef ZQXML_XML_WRITERS_OBJECTHEAD_H
#define ZQXML_XML_WRITERS_OBJECTHEAD_H

#include "zqxml/records.h"

class ElementSink;

// A null part is left out, and so is an empty text but the help text.
struct HeadParts {
  int nameTag;
  const char* name;
  const char* owner;
  const char* lastChanged;
  const ZQTimestamp* modifiedDate;
  const char* helpText;
  char* changeDiary;  // consumed
  const ZQPropList* objPropList;
  const int32_t* xmlDocVersion;
};

// The attribute "zqDocVersion", then the elements from the name to "objectProperties".
int writeObjectHead(ElementSink& sink, const HeadParts& head);

#endif
