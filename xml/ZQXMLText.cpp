#include "xml/ZQXMLText.h"

#include <langinfo.h>

#include <cstring>
#include <memory>
#include <new>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLString.hpp>

#include "text/mbutil_state.h"
#include "xml/ZQXMLException.h"
#include "zqxml/codeset.h"
#include "zqxml/messages.h"
#include "zqxml/multibyte.h"

namespace {

constexpr size_t kMaxCharsetName = 64;
constexpr char kUtf8[] = "UTF-8";
constexpr char16_t kReplacement = 0xFFFD;

// The code set that texts of the process are in at this moment.
void nameLocalCodeSet(char (&name)[kMaxCharsetName]) {
  if (MBUTIL_Initialized == 0) {
    InitMbutil();
  }
  name[0] = '\0';
  if (codeSetChosenByHost && nativeCodeSet != 0) {
    SetCharset(name, nativeCodeSet);
    // No code set of zero-terminated texts.
    if (strcasecmp(name, "utf-16") == 0) {
      name[0] = '\0';
    }
  }
  if (name[0] == '\0') {
    strncpy(name, nl_langinfo(CODESET), kMaxCharsetName - 1);
    name[kMaxCharsetName - 1] = '\0';
  }
  if (strcmp(name, "ANSI_X3.4-1968") == 0 || strcasecmp(name, kUtf8) == 0) {
    memcpy(name, kUtf8, sizeof kUtf8);
  }
}

// Whether texts of the code set switch between character sets by escape sequences.
bool hasStates(const char* name) {
  constexpr char kPrefix[] = "iso-2022";
  return strncasecmp(name, kPrefix, sizeof kPrefix - 1) == 0;
}

// Null for a code set that the XML parser does not know.
std::unique_ptr<xercesc::XMLTranscoder> makeTranscoder(const char* name) {
  constexpr XMLSize_t kBlockSize = 4096;
  xercesc::XMLTransService::Codes result;
  try {
    return std::unique_ptr<xercesc::XMLTranscoder>(
        xercesc::XMLPlatformUtils::fgTransService->makeNewTranscoderFor(name, result, kBlockSize));
  } catch (const xercesc::OutOfMemoryException&) {
    // It is no standard exception, and nobody expects it of a text.
    throw std::bad_alloc();
  }
}

// The transcoder of the calling thread for the local code page; null means UTF-8. It is made anew
// when the code page has changed, and for each text of one whose texts have states. A code set that
// the parser does not know is taken as UTF-8.
xercesc::XMLTranscoder* localTranscoder() {
  struct State {
    char name[kMaxCharsetName] = "UTF-8";
    std::unique_ptr<xercesc::XMLTranscoder> transcoder;
  };
  static thread_local State state;
  char name[kMaxCharsetName];
  nameLocalCodeSet(name);
  if (strcmp(name, state.name) != 0 || hasStates(name)) {
    state.transcoder = strcmp(name, kUtf8) != 0 ? makeTranscoder(name) : nullptr;
    memcpy(state.name, name, sizeof name);
  }
  return state.transcoder.get();
}

bool isHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Encodes UTF-16 as UTF-8 (RFC 3629, RFC 2781) and returns the number of bytes. `target` has three
// bytes per unit.
size_t encodeUtf8(const XMLCh* text, size_t length, char* target) {
  auto* out = reinterpret_cast<unsigned char*>(target);
  const auto put = [&out](uint32_t byte) { *out++ = static_cast<unsigned char>(byte); };
  for (size_t i = 0; i < length; ++i) {
    uint32_t code = text[i];
    if (code < 0x80) {
      put(code);
      continue;
    }
    if (code < 0x800) {
      put(0xC0 | code >> 6);
      put(0x80 | (code & 0x3F));
      continue;
    }
    if (isHighSurrogate(text[i]) && i + 1 < length && isLowSurrogate(text[i + 1])) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00U);
      put(0xF0 | code >> 18);
      put(0x80 | (code >> 12 & 0x3F));
    } else {
      if (isHighSurrogate(text[i]) || isLowSurrogate(text[i])) {
        code = kReplacement;
      }
      put(0xE0 | code >> 12);
    }
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  }
  return static_cast<size_t>(reinterpret_cast<char*>(out) - target);
}

// Narrows ASCII and returns whether all of it was. Without a branch in the loop the compiler makes
// vectors of it.
bool narrowAscii(const XMLCh* text, size_t length, char* target) {
  unsigned seen = 0;
  for (size_t i = 0; i < length; ++i) {
    seen |= text[i];
    target[i] = static_cast<char>(text[i]);
  }
  return seen < 0x80;
}

// What a unit takes at most: a character of two bytes between two escape sequences.
constexpr size_t kMaxBytesPerUnit = 8;

// A transcoder keeps half a character that ends a text for the one that comes next, and does not
// leave the character set that the text ended in. A zero behind the text brings both to an end.
constexpr XMLCh kEndOfText = 0;

// Transcodes as much of the text as there is room for and returns the number of bytes.
size_t encodePart(xercesc::XMLTranscoder& transcoder, const XMLCh* text, size_t length,
                  char* target, size_t capacity) {
  size_t written = 0;
  while (length > 0) {
    XMLSize_t eaten = 0;
    written +=
        transcoder.transcodeTo(text, length, reinterpret_cast<XMLByte*>(target) + written,
                               capacity - written, eaten, xercesc::XMLTranscoder::UnRep_RepChar);
    if (eaten == 0) {
      break;
    }
    text += eaten;
    length -= eaten;
  }
  return written;
}

// The bytes that all of a text may take.
size_t roomFor(const xercesc::XMLTranscoder* transcoder, size_t length) {
  constexpr size_t kMaxUtf8BytesPerUnit = 3;
  return transcoder != nullptr ? (length + 1) * kMaxBytesPerUnit : length * kMaxUtf8BytesPerUnit;
}

// Transcodes all of a text into `target`, which has that room, and returns the number of bytes.
size_t encode(xercesc::XMLTranscoder* transcoder, const XMLCh* text, size_t length, char* target) {
  if (transcoder == nullptr) {
    return encodeUtf8(text, length, target);
  }
  const size_t capacity = roomFor(transcoder, length);
  size_t written = encodePart(*transcoder, text, length, target, capacity);
  written += encodePart(*transcoder, &kEndOfText, 1, target + written, capacity - written);
  return written > 0 ? written - 1 : 0;
}

// Decodes UTF-8 (RFC 3629). Each byte that is no part of a character becomes U+FFFD.
std::u16string decodeUtf8(const char* text) {
  std::u16string result;
  const auto* in = reinterpret_cast<const unsigned char*>(text);
  const auto isTrail = [](unsigned char byte) { return (byte & 0xC0) == 0x80; };
  while (*in != 0) {
    const unsigned lead = *in;
    const int trails = lead < 0x80   ? 0
                       : lead < 0xC2 ? -1
                       : lead < 0xE0 ? 1
                       : lead < 0xF0 ? 2
                       : lead < 0xF5 ? 3
                                     : -1;
    uint32_t code = trails <= 0 ? lead : lead & (0x3FU >> trails);
    int read = 1;
    while (read <= trails && isTrail(in[read])) {
      code = code << 6 | (in[read++] & 0x3FU);
    }
    constexpr uint32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
    const bool whole = trails >= 0 && read == trails + 1 && code >= kSmallest[trails] &&
                       code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    if (!whole) {
      result += kReplacement;
      ++in;
      continue;
    }
    in += read;
    if (code < 0x10000) {
      result += static_cast<char16_t>(code);
    } else {
      result += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
      result += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    }
  }
  return result;
}

// Whether a text is the same in all code sets. Escape sequences consist of ASCII, too: they begin
// with one of two control characters.
bool isPlainAscii(const char* text) {
  constexpr unsigned char kEscape = 0x1B;
  constexpr unsigned char kShiftOut = 0x0E;
  unsigned others = 0;
  for (; *text != '\0'; ++text) {
    const auto byte = static_cast<unsigned char>(*text);
    others |= (byte & 0x80U) | (byte == kEscape ? 1U : 0U) | (byte == kShiftOut ? 1U : 0U);
  }
  return others == 0;
}

std::u16string decode(xercesc::XMLTranscoder& transcoder, const char* text) {
  std::u16string result;
  size_t left = strlen(text) + sizeof *text;
  while (left > 0) {
    XMLCh units[256];
    unsigned char sizes[256];
    XMLSize_t eaten = 0;
    const XMLSize_t count = transcoder.transcodeFrom(reinterpret_cast<const XMLByte*>(text), left,
                                                     units, 256, eaten, sizes);
    result.append(units, count);
    if (eaten == 0) {
      break;
    }
    text += eaten;
    left -= eaten;
  }
  if (!result.empty() && result.back() == kEndOfText) {
    result.pop_back();
  }
  return result;
}

}  // namespace

bool ZQXMLAsciiToLocal(const XMLCh* text, size_t length, std::string& target) {
  target.resize(length);
  return narrowAscii(text, length, target.data());
}

void ZQXMLToLocal(const XMLCh* text, size_t length, std::string& target) {
  if (ZQXMLAsciiToLocal(text, length, target)) {
    return;
  }
  xercesc::XMLTranscoder* transcoder = localTranscoder();
  target.resize(roomFor(transcoder, length));
  target.resize(encode(transcoder, text, length, target.data()));
}

std::string ZQXMLToLocal(const XMLCh* text) {
  std::string result;
  if (text != nullptr) {
    ZQXMLToLocal(text, xercesc::XMLString::stringLen(text), result);
  }
  return result;
}

std::u16string ZQXMLFromLocal(const char* text) {
  if (text == nullptr) {
    return {};
  }
  if (isPlainAscii(text)) {
    return std::u16string(text, text + strlen(text));
  }
  xercesc::XMLTranscoder* transcoder = localTranscoder();
  if (transcoder != nullptr) {
    return decode(*transcoder, text);
  }
  return decodeUtf8(text);
}

const char* ZQXMLThroughUnits(const char* text, std::string& room) {
  if (isPlainAscii(text)) {
    return text;
  }
  room = ZQXMLToLocal(ZQXMLFromLocal(text).c_str());
  return room.c_str();
}

ZQXMLShortText::ZQXMLShortText(const XMLCh* text) noexcept {
  if (text == nullptr) {
    return;
  }
  size_t length = 0;
  while (length < kMaxUnits && text[length] != 0) {
    ++length;
  }
  try {
    if (!narrowAscii(text, length, bytes)) {
      bytes[encode(localTranscoder(), text, length, bytes)] = '\0';
    }
  } catch (...) {
    bytes[0] = '\0';
  }
}
