// Where the new value of a field comes from. See values.h for what holds for all writers.
#ifndef ZQXML_XML_WRITERS_ASSIGNMENTS_H
#define ZQXML_XML_WRITERS_ASSIGNMENTS_H

#include "zqxml/records.h"

class ElementSink;

// Deliberate: only the failures of a constant and of a field are handed on; those of the other
// sources, which come from constants deeper in them, are dropped.
int writeAssignment(ElementSink& sink, const ZQAssignStruct* assignment);

// A part of a currency field has no element: the reference is left out.
int writeAssignField(ElementSink& sink, const ZQAssignFieldStruct* field);

int writeArithOpAssign(ElementSink& sink, const ZQArithOpAssignStruct* arithmetic);
int writeFunctionAssign(ElementSink& sink, const ZQFunctionAssignStruct* function);
int writeDDE(ElementSink& sink, const ZQDDEStruct* dde);
int writeAssignSQL(ElementSink& sink, const ZQAssignSQLStruct* sql);
int writeFilterApi(ElementSink& sink, const ZQAssignFilterApiStruct* api);
int writeFieldAssign(ElementSink& sink, const ZQFieldAssignStruct* assign);
int writePushField(ElementSink& sink, const ZQPushFieldsStruct* push);

// A list of fields with their new values: the element of each is `tag`.
int writeFieldAssignList(ElementSink& sink, int tag, const ZQFieldAssignList* list);

// "pushField" for each.
int writePushFieldList(ElementSink& sink, const ZQPushFieldsList* list);

// The words of options, as tags; 0 for a number without a word.
int noMatchWord(uint32_t option);
int multipleMatchWord(uint32_t option);

#endif
