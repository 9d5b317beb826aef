#include "xml/OutputContent.h"

#include <array>
#include <cstdio>
#include <new>

#include "xml/ZQXMLException.h"
#include "zqxml/builders.hpp"
#include "zqxml/messages.h"

namespace {

// By byte: whether it is escaped.
constexpr auto kEscaped = [] {
  std::array<bool, 256> escaped{};
  for (size_t byte = 1; byte < 0x20; ++byte) {
    escaped[byte] = byte != '\t' && byte != '\n' && byte != '\r';
  }
  for (const char c : {'&', '<', '>', '"'}) {
    escaped[static_cast<unsigned char>(c)] = true;
  }
  return escaped;
}();

void appendEscape(unsigned char byte, std::string& text) {
  switch (byte) {
    case '&':
      text += "&amp;";
      break;
    case '<':
      text += "&lt;";
      break;
    case '>':
      text += "&gt;";
      break;
    case '"':
      text += "&quot;";
      break;
    default: {
      constexpr unsigned kControlOffset = 0xF8DF;
      char reference[16];
      snprintf(reference, sizeof reference, "&#x%X;", byte + kControlOffset);
      text += reference;
      break;
    }
  }
}

}  // namespace

void appendEscaped(const char* content, std::string& text) {
  const char* begin = content;
  const char* end = content;
  for (; *end != '\0'; ++end) {
    const auto byte = static_cast<unsigned char>(*end);
    if (kEscaped[byte]) {
      text.append(begin, end);
      appendEscape(byte, text);
      begin = end + 1;
    }
  }
  text.append(begin, end);
}

int OutputContent(const char* content, ZQGNString& text) {
  try {
    std::string escaped;
    appendEscaped(content != nullptr ? content : "", escaped);
    text += escaped.c_str();
    return 0;
  } catch (const ZQXMLException& exception) {
    return exception.GetErrorNumber();
  } catch (const std::bad_alloc&) {
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  }
}
