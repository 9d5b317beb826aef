/**
 * @file
 * Dates and times as people type them, and as programs show them.
 *
 * A lenient parser tries one format after the other: those of the environment, of the locale, and a list of customary
 * ones. All formats and names are those of the process locale, as the program has set it (`setlocale`); nothing here
 * sets it. The time zone is that of the C library; a program that changes `TZ` calls `tzset` before the next call.
 *
 * Environment variables, read at each call and in effect as soon as they exist, even if empty:
 *
 * | Name | Holds a `strftime` format of | Used by |
 * |---|---|---|
 * | ZQDATE | date and time | ParseDateTime(), FormatDateTime() |
 * | ZQDATEONLY | a date | FormatDate() |
 * | ZQTIMEONLY | a time of day | FormatTime() |
 *
 * The names of months, weekdays and the halves of the day, and whether the month stands ahead of the day in a numeric
 * date, are taken once for the process, by InitDateTimeInfo() or by the first function that needs them. That isn't
 * locked: call it before threads start.
 *
 * A `tm` that is parsed into is read too: a field that the text doesn't give keeps its value, so fill it first. A null
 * `tm` counts as the start of 1 January 1900 and receives nothing. A null text or format is a failure, and a null
 * output is skipped. Digits are those of ASCII, blanks are spaces; tabs count as blanks only where that is told. A
 * number with more digits than an `int` takes counts as INT_MAX.
 */
#ifndef ZQXML_DATETIME_H
#define ZQXML_DATETIME_H

#include <stddef.h>
#include <time.h>

#include "zqxml/export.h"
#include "zqxml/records_core.h"

ZQXML_BEGIN_DECLS

/**
 * Takes the names of the locale, the order of numeric dates and the cut-off of two-digit years, unless that has been
 * done. The order is decided by the letters of ZQDATE or else of the locale's format of date and time (`D_T_FMT`):
 * the first of "B", "b", "h", "m" puts the month first, the first of "d", "e" the day; without one of them the month is
 * first. Deliberate: a "%" is not looked at, all letters count.
 *
 * @return 0, or 300 if memory runs out; the next call tries again then
 */
ZQXML_API int InitDateTimeInfo(void);

/**
 * Frees the names that InitDateTimeInfo() took. To be called last: the functions of this file work on without harm, but
 * no name of a month, weekday or half of the day is known from here on, and no environment variable is looked at.
 */
ZQXML_API void CleanupDateTimeInfo(void);

/** @name Parsing by a format */
/** @{ */

/**
 * Reads a text by a format. The letters of the format act with or without a "%" ahead of them:
 *
 * | Letter | Reads |
 * |---|---|
 * | A, a | the whole or the short name of a weekday, if one stands there |
 * | B, b, h | the whole or the short name of a month |
 * | D | as "%m/%d/%y" or "%d/%m/%y", see InitDateTimeInfo() |
 * | H, k | an hour, 0 to 23 |
 * | I, l | an hour, 0 to 12 |
 * | M, S | a minute, a second, 0 to 59 |
 * | T, X | as "%H:%M:%S" |
 * | Y, y | a year: 0 to 38 are 2000 to 2038, 39 to 100 are 1939 to 2000, above 100 it is meant as it stands |
 * | d, e | a day of the month |
 * | j | a day of the year, 0 to 365 |
 * | m | a month, 1 to 12 |
 * | p | a half of the day, applied to the hour that is known by then |
 * | w | a day of the week, 1 to 7 |
 * | . | a point; with digits behind it in the format nothing |
 *
 * Any other character has to stand in the text as it is. Deliberate: so have the letters that `strftime` knows beyond
 * these ("R", "r", "c", "x", "Z", ...). Names are compared without regard to case, and what follows a name isn't looked
 * at. Blanks are skipped ahead of everything, in text and format. A text that ends ahead of its format matches.
 *
 * @param text   the text, not empty and not only blanks
 * @param format the format
 * @param fields receives what was read, if it is a date: a month of 0 to 11 and a day that the month has. A failure
 *               leaves it alone
 * @return where in the text the match ends, with the blanks behind it; null if it doesn't match
 */
ZQXML_API char *zqstrptime(const char *text, const char *format, struct tm *fields);

/**
 * As zqstrptime(), for a time of day: the format's letters are H, k, I, l, M, S, T, X, p and ".", other characters have
 * to be punctuation, and anything else fails. A match sets day, month, year, weekday, day of the year and the summer
 * time flag to 0; no date is asked for.
 */
ZQXML_API char *zqstrptimeofday(const char *text, const char *format, struct tm *fields);

/** @} */

/** @name Parsing by the customary formats */
/** @{ */

/**
 * Reads a time by the locale's format (`T_FMT`) and by hours and minutes, with and without seconds, of 24 or of
 * twice 12 hours.
 *
 * @param text   the text
 * @param fields receives hour, minute and second; its date has to be one
 * @return where the match ends: the end of the text or, if only "%I:%M %p" or a second attempt with `T_FMT` matched,
 *         wherever that ended; null if nothing matches
 */
ZQXML_API char *ParseTimeOnly(const char *text, struct tm *fields);

/**
 * As ParseTimeOnly(), by zqstrptimeofday(). A text of digits alone is a number of seconds since the epoch, whose time
 * of day in UTC is meant; deliberate: so "10" isn't an hour.
 *
 * Deliberate: the time is passed through `mktime` as standard time, on 31 December 1899 or, for seconds, on the date
 * that `fields` has; if that is summer time there, as it is south of the equator, an hour is taken off and the result
 * is told in UTC.
 */
ZQXML_API char *ParseTimeOfDayOnly(const char *text, struct tm *fields);

/**
 * @param year  the year, or what a `tm` has: below 1000 it is raised by 1900. Deliberate: the `tm` of a year from 2900
 *              on isn't raised
 * @param month 0 to 11
 * @return the days of the month in the Gregorian calendar; 0 for another month
 */
ZQXML_API int ZqDayInMonth(int year, int month);

/**
 * Finds a weekday at the start of a text, by its whole or short name, behind any blanks and tabs.
 *
 * @param text the text
 * @param rest receives a pointer behind the name and the blanks, tabs and commas that follow it; left alone if there is
 *             no weekday
 * @return 1 for a weekday, 0 without one
 */
ZQXML_API int StripLeadWeekday(const char *text, char **rest);

/**
 * Reads a date and time, a date alone, or a text of digits, which is a number of seconds since the epoch. Only blanks
 * and tabs may follow.
 *
 * The formats of the environment and the locale come first, then dates with a named month ("Jan 5, 2004 10:15 PM", "5
 * Jan 2004"), then numeric ones in the order of zqstrptime()'s "D". A weekday ahead of all that is skipped.
 * Deliberate: the first format that matches decides, even if more text follows than it can read; years come first
 * where a format with slashes has a time ("04/1/5 10:15:00") and the locale's own format doesn't match.
 *
 * Without a time, the fields keep theirs if the format of the environment or one of the locale's, or one that could
 * have gone on with a time behind year, month and day, takes the text; from the formats of a date alone on, it is
 * midnight.
 *
 * The time is then taken as standard time. A time that a summer time skips is read as an hour earlier, and of an hour
 * that comes twice the second pass is meant.
 *
 * @param text   the text
 * @param fields receives the local time. What one format has read stays there if the text behind it is refused and
 *               another format is tried, and so it does on a failure
 * @return 1, or 0 if the text isn't understood
 */
ZQXML_API int ParseDateTime(const char *text, struct tm *fields);

/** @} */

/** @name Values */
/** @{ */

/**
 * Reads a time by ParseDateTime(), or a duration or a time of today. What the text doesn't give is that of the start of
 * today.
 *
 * @param text       the text
 * @param timeOnly   not 0: what isn't a date is a time of today, by ParseTimeOnly(). 0: it is a duration, as one to
 *                   three numbers with colons between them, of which the first is hours; minutes and seconds may have
 *                   any size, and each number may have a sign. So are digits alone, up to 596523 hours; more are
 *                   seconds since the epoch
 * @param value      receives seconds since the epoch, or the seconds of the duration, the low 32 bits of them; 0 on
 *                   failure
 * @param isDuration receives 1 if the text began like a duration, even if the rest of it failed; otherwise 0
 * @return 1, or 0 if the text isn't understood or the time lies before 1970 or beyond what `value` takes
 */
ZQXML_API int ConvertTimeValue(const char *text, int timeOnly, ZQTimestamp *value, ZQBoolean *isDuration);

/**
 * Reads a time of day by ParseTimeOfDayOnly(), or else by ParseDateTime().
 *
 * @param text    the text
 * @param seconds receives seconds since midnight; left alone on failure
 * @return 1 or 0
 */
ZQXML_API int ConvertTimeOfDayValue(const char *text, ZQTimestamp *seconds);

/** @} */

/**
 * @name Formatting
 *
 * Each is one call of `strftime`, by the format of the environment or else of the locale.
 */
/** @{ */

/**
 * Writes a date, by ZQDATEONLY or else "%x".
 *
 * @param target receives the text; its contents are not defined if 0 is returned
 * @param size   size of the target in bytes
 * @param fields the time
 * @return the length of the text without its terminator; 0 if it doesn't fit or is empty, or for a null `fields` or
 *         `target`. Deliberate: 300 if memory runs out, which can't be told from a length
 */
ZQXML_API size_t FormatDate(char *target, size_t size, const struct tm *fields);

/** As FormatDate(), a time of day, by ZQTIMEONLY or else "%X". */
ZQXML_API size_t FormatTime(char *target, size_t size, const struct tm *fields);

/** As FormatDate(), date and time, by ZQDATE or else "%x %X". */
ZQXML_API size_t FormatDateTime(char *target, size_t size, const struct tm *fields);

/** @} */

ZQXML_END_DECLS

#endif
