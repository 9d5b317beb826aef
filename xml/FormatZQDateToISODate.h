#ifndef ZQXML_XML_FORMATZQDATETOISODATE_H
#define ZQXML_XML_FORMATZQDATETOISODATE_H

#include <cstdint>
#include <xercesc/util/XercesDefs.hpp>

// Writes a date in the form of an XML Schema type: "date" 2001-02-03, "gDay" ---03, "gMonth"
// --02--, "gMonthDay" --02-03, "gYear" and "gYearMonth". Deliberate: gYear has only the first three
// digits of the year, and gYearMonth the first six characters of the date; a sign ahead of them
// doesn't count.
//
// `julianDay` is the day number, `size` the size of `text` in bytes; more is cut, and 0 writes
// nothing. Returns 0, or 8959 for another type: then the text is left alone.
int FormatZQDateToISODate(const XMLCh* typeName, int32_t julianDay, int size, char* text);

#endif
