// Conditions. See values.h for what holds for all writers.
#ifndef ZQXML_XML_WRITERS_QUALIFIERS_H
#define ZQXML_XML_WRITERS_QUALIFIERS_H

#include "zqxml/records.h"

class ElementSink;

// A condition that is none writes nothing.
int writeQualifier(ElementSink& sink, const ZQQualifierStruct* qualifier);

// An element that holds a condition.
int writeQualifierElement(ElementSink& sink, int tag, const ZQQualifierStruct* qualifier);

// Parts of a currency field have no element and write nothing.
int writeOperand(ElementSink& sink, const ZQFieldValueOrArithStruct* operand);

int writeArithmetic(ElementSink& sink, const ZQArithOpStruct* arithmetic);

int writeQueryValue(ElementSink& sink, const ZQQueryValueStruct* query);

int writeStatusHistory(ElementSink& sink, const ZQStatHistoryValue* history);

// The element "operation" with the word of an arithmetic operation.
void writeArithmeticOperation(ElementSink& sink, uint32_t operation);

// The arithmetic operation of one operand, the right one.
constexpr uint32_t kNegate = 6;

#endif
