// Dates and day numbers in 64 bits, for the calendar functions.
#ifndef ZQXML_TEXT_DATETIME_DATE_H
#define ZQXML_TEXT_DATETIME_DATE_H

#include <cstdint>

namespace datetime {

struct Date {
  int64_t year;
  int64_t month;  // from 1
  int64_t day;
};

// As DateToJulianDate, JulianDateToDate and ValidateDate.
int64_t toDayNumber(const Date& date);
Date fromDayNumber(int64_t dayNumber);
bool isValid(const Date& date);

// As ConvertDateStringToJD and ConvertJDToDateString, with a format in place of the locale's. No
// pointer may be null.
bool readDateBy(const char* format, int cutoff, const char* text, int& dayNumber);
void writeDateBy(const char* format, int dayNumber, char* target);

}  // namespace datetime

#endif
