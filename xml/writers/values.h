// Typed constants. As with all writers: what is written goes beneath the element that is open, a
// null record writes nothing, and the result is 0 or a message number. Out of memory may also be
// thrown, by the sink.
#ifndef ZQXML_XML_WRITERS_VALUES_H
#define ZQXML_XML_WRITERS_VALUES_H

#include "zqxml/records.h"

class ElementSink;

// `localized` chooses the name of the child for a character value.
int writeValue(ElementSink& sink, const ZQValueStruct* value, bool localized);

// An element that holds a value.
int writeValueElement(ElementSink& sink, int tag, const ZQValueStruct* value);

// The points, without an element around them.
int writeCoordinates(ElementSink& sink, const ZQCoordList* list);

int writeCOMValue(ElementSink& sink, const ZQCOMValueStruct* value);

#endif
