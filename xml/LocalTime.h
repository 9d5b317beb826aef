// The time zone of the process as the C library knows it, at a fraction of the cost of asking it
// each time. Each thread remembers what it has seen; nothing is shared.
#ifndef ZQXML_XML_LOCALTIME_H
#define ZQXML_XML_LOCALTIME_H

#include <ctime>

// Minutes west of Greenwich of the standard zone, without daylight saving time: `timezone` behind
// tzset(), in whole minutes.
long zoneMinutesWest();

// What mktime makes of a local time whose tm_isdst is -1, that is all its other fields being looked
// at but the weekday and the day of the year.
//
// mktime itself is asked for the days around a change of the clock, where a time may come twice or
// never; for times beyond 32 bits; and always in a zone that is not one of the zone database: a
// rule written out in TZ, a file given by its path, or any zone if TZDIR is set. Everywhere else
// the answer follows from the offset of the zone, since only one is in effect there.
//
// TZ may change between any two calls: the zone is that of TZ at the moment of the call, as it is
// for mktime. The files of the database are taken not to change while the program runs.
time_t localToUnixTime(tm local);

#endif
