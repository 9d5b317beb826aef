// Text between the XML parser's 16-bit units and the local code page: the one place where the
// library transcodes.
//
// The local code page is UTF-8 where the locale's code set is UTF-8 or plain ASCII (the C locale),
// the locale's own code set otherwise, and the charset of the native code set where the host has
// chosen one with InitMbutilExt. Nearly all text is ASCII, which is the same in all of them and
// takes a short road without a transcoder or a lock.
#ifndef ZQXML_XML_ZQXMLTEXT_H
#define ZQXML_XML_ZQXMLTEXT_H

#include <cstddef>
#include <string>
#include <xercesc/util/XercesDefs.hpp>

static_assert(sizeof(XMLCh) == sizeof(char16_t));

// Replaces `target` by `length` units of `text` in the local code page. What the code page lacks
// becomes its substitute character (U+FFFD in UTF-8 for half of a surrogate pair).
void ZQXMLToLocal(const XMLCh* text, size_t length, std::string& target);

// The same for a text that is plain ASCII, as nearly all are; false for any other, and then
// `target` is worth nothing.
bool ZQXMLAsciiToLocal(const XMLCh* text, size_t length, std::string& target);

// As the first, for a zero-terminated text; null gives the empty text.
std::string ZQXMLToLocal(const XMLCh* text);

// The other way round. Bytes that are no characters become the transcoder's substitute character.
std::u16string ZQXMLFromLocal(const char* text);

// A text as it comes back when it has been in the parser's units: bytes that are no characters have
// become the substitute. The result is `text` itself, or what `room` holds.
const char* ZQXMLThroughUnits(const char* text, std::string& room);

// The beginning of a text in the local code page, as much as a message can show. It never throws:
// what can't be transcoded, for want of memory, reads as the empty text.
class ZQXMLShortText {
 public:
  explicit ZQXMLShortText(const XMLCh* text) noexcept;
  const char* get() const { return bytes; }

 private:
  static constexpr size_t kMaxUnits = 256;
  char bytes[(kMaxUnits + 1) * 8] = {};
};

#endif
