// Status lists for tests: an owner, and a text form that makes expectations one line.
#ifndef ZQXML_TESTS_RECORDS_STATUSLISTS_H
#define ZQXML_TESTS_RECORDS_STATUSLISTS_H

#include <string>

#include "zqxml/status.h"

struct OwnedStatusList : ZQStatusList {
  OwnedStatusList() : ZQStatusList{} {}
  OwnedStatusList(const OwnedStatusList&) = delete;
  OwnedStatusList& operator=(const OwnedStatusList&) = delete;
  ~OwnedStatusList() { FreeZQStatusList(this, 0); }
};

// "severity/number appended; ..." with <null> for a missing appended text.
inline std::string describe(const ZQStatusList& list) {
  std::string text;
  for (uint32_t i = 0; i < list.numItems; ++i) {
    const ZQStatusStruct& record = list.items[i];
    text += (i > 0 ? "; " : "") + std::to_string(record.messageType) + "/" +
            std::to_string(record.messageNum) + " " +
            (record.appendedText != nullptr ? record.appendedText : "<null>");
  }
  return text;
}

#endif
