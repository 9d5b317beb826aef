// The automation action. See values.h for what holds for all writers.
#ifndef ZQXML_XML_WRITERS_AUTOMATION_H
#define ZQXML_XML_WRITERS_AUTOMATION_H

#include "zqxml/records.h"

class ElementSink;

// The content of "oleAutomation".
int writeAutomation(ElementSink& sink, const ZQAutomationStruct* automation);

#endif
