// Reading a text by a format. A format may come in two pieces, which are read as if a blank joined
// them.
#ifndef ZQXML_TEXT_DATETIME_STRPTIME_H
#define ZQXML_TEXT_DATETIME_STRPTIME_H

#include <ctime>

namespace datetime {

// As zqstrptime and zqstrptimeofday, of which these are the general forms. No pointer may be null
// but that of the second piece.
const char* matchDateTime(const char* text, const char* format, const char* behind,
                          struct tm& fields);
const char* matchTimeOfDay(const char* text, const char* format, const char* behind,
                           struct tm& fields);

// What a null `tm` stands for.
struct tm firstOfJanuary1900();

}  // namespace datetime

#endif
