// The words of the format's enumerations and their numbers.
//
// A table may merge words of several enumerations whose callers never meet, so that one number can
// belong to several words: a writer never looks a word up by its number here.
#ifndef ZQXML_XML_ENUMERATIONS_H
#define ZQXML_XML_ENUMERATIONS_H

#include <span>

// The tables, by number. Any other number is a table without words.
enum ENUM_VALUE_TYPE : int {
  ENUM_MENU = 1,                  // menu type, refresh, file location and data dictionary words
  ENUM_BOOLEAN = 2,               // every "true" or "false" element of definition objects
  ENUM_OPERATION = 3,             // arithmetic and relational operators
  ENUM_STATUS_TAG = 4,            // status history part: user or time
  ENUM_QUERY_MULTI = 5,           // multi-match of a query value
  ENUM_UNUSED_6 = 6,              // no words: every text is refused
  ENUM_UNUSED_7 = 7,              // no words: every text is refused
  ENUM_BYTE_LIST_TYPE = 8,        // type of a byte list value
  ENUM_PERMISSION = 9,            // permission entry
  ENUM_UNIQUE_INDEX = 10,         // index entry
  ENUM_SORT_ORDER = 11,           // sort entry
  ENUM_VUI_TYPE = 12,             // view list
  ENUM_FIELD = 13,                // field: data type, option, create mode, field type
  ENUM_FIELD_LIMIT = 14,          // limit records of a field
  ENUM_NO_MATCH = 15,             // no-match option of an assignment
  ENUM_MULTI_MATCH = 16,          // multiple-match option of an assignment
  ENUM_FUNCTION = 17,             // function of an assignment
  ENUM_DDE = 18,                  // DDE action
  ENUM_UNUSED_19 = 19,            // no words: every text is refused
  ENUM_FILTER_EXECUTE = 20,       // bits of a filter's execute mask
  ENUM_ACTIVE_LINK_EXECUTE = 21,  // bits of an active link's execute mask
  ENUM_ACTIVE_LINK_MESSAGE = 22,  // message action of an active link
  ENUM_FILTER_MESSAGE = 23,       // message action of a filter
  ENUM_WINDOW_MODE = 24,          // open window action
  ENUM_NOTIFY_FIELDS = 25,        // notify action
  ENUM_FOCUS = 26,                // change field action: focus
  ENUM_ACCESS_OPTION = 27,        // change field action: access option
  ENUM_DAY_OF_WEEK = 28,          // bits of the days of an escalation time
  ENUM_CONTAINER_TYPE = 29,       // container and the names list
  ENUM_OWNER_TYPE = 30,           // container owner
  ENUM_REFERENCE_TYPE = 31,       // container reference
  ENUM_DSO_UPDATE = 32,           // DSO mapping
  ENUM_DSO_TRANSFER = 33,         // DSO mapping
  ENUM_DSO_DUPLICATE = 34,        // DSO mapping
  ENUM_DSO_MAP_TYPE = 35,         // DSO mapping, both map types
  ENUM_SUPPORT_FILE = 36,         // support file type
  ENUM_JOIN_OPTION = 37,          // join form
  ENUM_FORM_TYPE = 38,            // no caller in the library; kept in the table
  ENUM_DD_NAME = 39,              // data dictionary menu
  ENUM_DD_FIELD = 40,             // data dictionary menu, bits
  ENUM_DD_FORM = 41,              // data dictionary menu
  ENUM_MAP_KIND = 42,             // complex entry input
};

struct EnumWord {
  int tag;
  unsigned value;
};

// The words of a table, none for a number that is no table.
std::span<const EnumWord> enumWords(ENUM_VALUE_TYPE type);

#endif
