// The actions of filters and escalations, and those that active links share. See values.h for what
// holds for all writers.
#ifndef ZQXML_XML_WRITERS_FILTERACTIONS_H
#define ZQXML_XML_WRITERS_FILTERACTIONS_H

#include "zqxml/records.h"

class ElementSink;

// "action" for each.
int writeFilterActions(ElementSink& sink, const ZQFilterActionList* list);

int writeGoto(ElementSink& sink, const ZQGotoActionStruct* action);
int writeCallGuide(ElementSink& sink, const ZQCallGuideStruct* guide);
int writeExitGuide(ElementSink& sink, const ZQExitGuideStruct* guide);
int writeGotoGuide(ElementSink& sink, const ZQGotoGuideLabelStruct* label);
int writeSQLAction(ElementSink& sink, const ZQSQLStruct* sql);

#endif
