// Random records that can be written.
#ifndef ZQXML_TESTS_XML_WRITERS_TAMER_H
#define ZQXML_TESTS_XML_WRITERS_TAMER_H

#include <cstdint>
#include <type_traits>

#include "records/RecordWalk.h"

// Makes a random record one that can be written: the size of an attachment is that of its buffer,
// and arrays of characters are ASCII, which the transcoding of a tree leaves as it is.
class Tamer : public RecordWalk<Tamer> {
 public:
  template <size_t Size>
  void chars(const char*, char (&array)[Size]) {
    for (char& c : array) {
      c = static_cast<char>(c & 0x7F);
    }
  }

  template <typename Record>
  void record(const char*, Record& member) {
    if constexpr (std::is_same_v<Record, ZQAttachStruct>) {
      if (member.location.locationType == 2) {
        member.compressedSize = static_cast<int32_t>(member.location.u.buffer.bufferSize);
      }
    }
    records::visit(*this, member);
  }
};

#endif
