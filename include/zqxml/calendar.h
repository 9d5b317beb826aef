/**
 * @file
 * Calendar arithmetic on day numbers.
 *
 * A day number is a Julian day number: a count of days that runs through the change from the Julian to the Gregorian
 * calendar in October 1582. Day 0 is 1 January of the year -4712, a Monday; the greatest one of the calendar is
 * 5,373,484, 31 December 9999. A date is three ints in a row: year, month from 1, day. Year 0 is 1 BC, year -1 is 2 BC.
 *
 * No date, day number or amount does harm: everything is computed in 64 bits, with divisions that cut towards zero, and
 * the low 32 bits are the result. A function that returns a message number leaves its output alone on failure. A null
 * output is skipped; a null date does nothing and gives 0, a null text is one that isn't understood.
 */
#ifndef ZQXML_CALENDAR_H
#define ZQXML_CALENDAR_H

#include "zqxml/export.h"

ZQXML_BEGIN_DECLS

/** The parts of a date, as the functions take them. */
enum ZQDatePart {
    ZQ_DATE_PART_YEAR = 1,   /**< the year */
    ZQ_DATE_PART_MONTH = 2,  /**< the month */
    ZQ_DATE_PART_DAY = 3,    /**< the day of the month */
    ZQ_DATE_PART_WEEK = 4,   /**< the week of the year */
    ZQ_DATE_PART_WEEKDAY = 5 /**< the day of the week */
};

/** A size for the target of ConvertJDToISODateString() that takes any day number. */
#define ZQ_ISO_DATE_SIZE 32

/** @name Dates and day numbers */
/** @{ */

/**
 * Turns a date into a day number. The date isn't checked, and months and days outside their range count on by
 * arithmetic. Deliberate: the Gregorian calendar begins with 5 October 1582, so the ten days that the change left out
 * have numbers, the same as those of ten other days.
 *
 * @param date      the date
 * @param dayNumber receives the day number
 */
ZQXML_API void DateToJulianDate(const int *date, int *dayNumber);

/**
 * Turns a day number into a date, of the Julian calendar up to 2,299,160 (4 October 1582). Nothing is clamped; below 0
 * the result need not be a date.
 *
 * @param dayNumber the day number
 * @param date      receives the date
 */
ZQXML_API void JulianDateToDate(int dayNumber, int *date);

/** Raises a day number below 0 to 0, and cuts one above 5,373,484 to that. */
ZQXML_API void TruncateDate(int *dayNumber);

/**
 * Tells whether a date is valid: a year of -4712 to 9999, a month and a day that this month has. February has 29 days
 * if IsLeapYear() says so, and it says no for all years that 100 divides: so 29 February 2000 is not valid.
 * Deliberate: of 1582 the days 5 to 14 of August are not valid, and those of October are.
 *
 * @return 1 or 0
 */
ZQXML_API int ValidateDate(const int *date);

/**
 * Tells whether the year of a date is a leap year. Deliberate: the Gregorian rule holds only from 1582 on and for dates
 * whose month is above 9 and whose day is above 14; for all others a year is a leap year if 4 divides it and 100
 * doesn't, the years of the Julian calendar too.
 *
 * @return 1 or 0
 */
ZQXML_API int IsLeapYear(const int *date);

/** @return the week of the year by ISO 8601, 1 to 53, for a day number of the calendar */
ZQXML_API int GetWeekNumber(int dayNumber);

/** @return the day of the week, 1 Sunday to 7 Saturday, for a day number of the calendar */
ZQXML_API int GetWeekday(int dayNumber);

/** @} */

/** @name Parts of dates */
/** @{ */

/**
 * Adds to a date.
 *
 * Years leave month and day alone: 29 February and a year is 1 March. Months leave the day alone too, as far as the
 * month has it. Deliberate: 29 January and a month is 28 February even in a leap year, and only from 30 January on it
 * is 29; and an amount that leads below January leaves the day unlimited. The result is clamped as by TruncateDate().
 *
 * @param part      a ZQDatePart, 1 to 4
 * @param amount    how many of them, also negative
 * @param dayNumber the day number
 * @param result    receives the sum
 * @return 0, or 8956 for another part
 */
ZQXML_API int DateAdd(int part, int amount, int dayNumber, int *result);

/**
 * Tells how far two dates lie apart.
 *
 * @param part   3 for days, or 4 for the weeks that begin between them; deliberate: here they begin on Sunday
 * @param first  a day number
 * @param second a day number
 * @param result receives the second less the first
 * @return 0, or 8956 for another part
 */
ZQXML_API int DateDiff(int part, int first, int second, int *result);

/**
 * Finds a part by its name, without regard to case: "year", "yy", "yyyy"; "month", "mm", "m"; "day", "dd", "md";
 * "week", "wk", "ww"; "weekday", "wd".
 *
 * @param name the name
 * @param part receives the ZQDatePart
 * @return 0, or 8956 for another name
 */
ZQXML_API int GetNumericDateParts(const char *name, int *part);

/**
 * Tells a part of a date as a number.
 *
 * @param part      a ZQDatePart
 * @param dayNumber the day number
 * @param value     receives the number
 * @return 0, or 8956 for another part
 */
ZQXML_API int GetDatePartNum(int part, int dayNumber, int *value);

/**
 * Tells the English name of a month or weekday. Deliberate: the months are one off, so that January is called
 * "February" and December "Sunday", and November bears the name "Decemeber". Weekdays are right.
 *
 * @param part      2 or 5
 * @param dayNumber the day number; below 0, where it may have no such month or weekday, the name may be empty
 * @param target    receives the name, 10 bytes at most
 * @return 0, or 8956 for another part
 */
ZQXML_API int GetDatePartName(int part, int dayNumber, char *target);

/** @} */

/** @name Dates as text */
/** @{ */

/**
 * Reads an ISO date: an optional "-", four digits of the year, "-", two of the month, "-", two of the day. What follows
 * is not looked at. The date is one of ValidateDate(), so "2000-02-29" is refused.
 *
 * @param text      the text
 * @param dayNumber receives the day number
 * @return 0, 8957 for another form, 8958 for a date that isn't valid
 */
ZQXML_API int ConvertISODateStringToJD(const char *text, int *dayNumber);

/**
 * Writes a date in ISO form.
 *
 * @param dayNumber the day number
 * @param target    receives the text: 12 bytes at most for a day number of the calendar, `ZQ_ISO_DATE_SIZE` for any
 * @return 0
 */
ZQXML_API int ConvertJDToISODateString(int dayNumber, char *target);

/**
 * Gives a two-digit year its century, so that it lies in the hundred years that end with a cut-off.
 *
 * @param cutoff       the last of these years
 * @param twoDigitYear the year, 0 to 99
 * @return the year
 */
ZQXML_API int ConvertToFourDigitYear(int cutoff, int twoDigitYear);

/**
 * Reads a date in the order of the locale's date format (`D_FMT`): a number for each conversion of year, month and day,
 * whatever stands between them. A year of two digits gets its century by ConvertToFourDigitYear(). "BC" or "B.C."
 * behind the last number, in any case, counts the year backwards: 1 BC is year 0. Missing numbers are 0. What follows
 * is not looked at. Digits alone that are no date are the day number itself.
 *
 * The multi-byte functions are initialised first, which sets the process locale from the environment unless that has
 * been done (see InitMbutil()).
 *
 * @param cutoff    last year of the hundred that two-digit years belong to; -1 for this year plus 29, taken once by
 *                  InitDateTimeInfo()
 * @param text      the text
 * @param dayNumber receives the day number
 * @return 0, 8958 if the text is no valid date, or 300 if memory runs out
 */
ZQXML_API int ConvertDateStringToJD(int cutoff, const char *text, int *dayNumber);

/**
 * Writes a date in the locale's date format (`D_FMT`), as far as it asks for year, month and day: each number and the
 * one character that follows its conversion. Deliberate: the month has no leading zero, and what else the format holds
 * is left out. Years up to 0 are told as BC, with " BC" at the end. The multi-byte functions are initialised as by
 * ConvertDateStringToJD().
 *
 * @param dayNumber the day number
 * @param target    receives the text: at most 16 bytes for each conversion of the format, and 4
 * @return 0
 */
ZQXML_API int ConvertJDToDateString(int dayNumber, char *target);

/** @} */

ZQXML_END_DECLS

#endif
