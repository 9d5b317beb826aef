// The conversions that handlers need, as members of a base class without data.
#ifndef ZQXML_XML_ZQXMLHANDLERUTILS_H
#define ZQXML_XML_ZQXMLHANDLERUTILS_H

#include <cstdint>
#include <xercesc/sax/Locator.hpp>

#include "xml/enumerations.h"
#include "zqxml/records_core.h"

class ZQXMLHandlerUtils {
 public:
  using ENUM_VALUE_TYPE = ::ENUM_VALUE_TYPE;
  using enum ::ENUM_VALUE_TYPE;

  // The number of a word in a table. Throws ZQXMLException 8943 with the place if the text is none
  // of its words.
  static unsigned GetEnumValue(ENUM_VALUE_TYPE type, const char* text,
                               const xercesc::Locator* const* locator);

  // Tells whether a text is an ISO date and time: "2001-02-03T04:05:06", a fraction, and "Z" or a
  // zone such as "+01:00". A sign may stand ahead of the year. Days aren't checked against the
  // month, second 60 is one, and a zone lies from -12:59 to +13:59 but isn't of zero hours.
  static bool ValidateISOTimeString(const char* text);

  // Turns an ISO date and time into seconds since the epoch; without a zone it is local time. What
  // -1 would be told by, or what 32 bits don't hold, is 0. Deliberate: a text with a zone is taken
  // by the machine's standard zone even while daylight saving time is in effect, and so is an hour
  // off then, as FormatZQTimestampToISODateTime writes it. Throws ZQXMLException 8957 with the
  // text, and a result of 0, if it isn't valid.
  static void ConvertISOTimeToUnixTime(const char* text, ZQTimestamp* result);

  // Turns an ISO time of day into seconds, the low 32 bits of them. The text isn't checked: hour,
  // minute and second are the numbers at the bytes 0, 3 and 6, which are 0 behind its end. The
  // result is in the machine's standard zone and may be negative or more than a day.
  static void ConvertISOTimeToUnixTimeOfDay(const char* text, int32_t* result);

  // Turns a date into a day number, by the id of its XML Schema type: date, gDay, gMonth,
  // gMonthDay, gYear or gYearMonth. Missing parts are those of 1000-01-01. Returns 0, 8957 or 8958
  // as ConvertISODateStringToJD does, or 8959 for another type; a failure leaves the result alone.
  static int ConvertXMLDateToJDDate(int tag, const char* text, int32_t* result);

  // Tells whether a selection has an object of this kind and exactly this name; a null or empty one
  // has all. Deliberate: the chosen elements of an item aren't looked at.
  static bool IsObjectRequested(uint32_t objectKind, const char* name,
                                const ZQStructItemList* selection);
};

#endif
