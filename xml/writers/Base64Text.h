// Bytes as the text of an element.
#ifndef ZQXML_XML_WRITERS_BASE64TEXT_H
#define ZQXML_XML_WRITERS_BASE64TEXT_H

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "zqxml/base64.h"

class Base64Text {
 public:
  // No bytes, or a size that is not above 0, have the empty text.
  Base64Text(const unsigned char* bytes, int64_t size) {
    if (bytes != nullptr && size > 0) {
      char* encoded = nullptr;
      result = EncodeBase64(bytes, static_cast<unsigned>(size), &encoded);
      block.reset(encoded);
    }
  }

  // 0, or the message number of the failure: then the text is empty.
  int status() const { return result; }
  bool isEmpty() const { return block == nullptr || *block == '\0'; }
  const char* get() const { return block.get(); }

 private:
  struct Free {
    void operator()(char* text) const { free(text); }
  };

  std::unique_ptr<char, Free> block;
  int result = 0;
};

#endif
