// Texts that pass through the stream layer's callers: the list of currencies that a definition
// keeps as one text, and the encoding that a document declares.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "text/mbutil_codeset.h"
#include "zqxml/messages.h"
#include "zqxml/multibyte.h"
#include "zqxml/stream.h"

namespace {

constexpr char kSeparator = '\\';
constexpr int kNoRoom = -3;
// The declaration has to stand here.
constexpr int kDeclarationReach = 80;

// A piece of a text that is written at a position, if it fits.
struct TextRoom {
  char* target;
  unsigned* position;
  uint64_t size;

  // Each piece is expected to need this much.
  bool isFull() const { return uint64_t{*position} + 5 >= size; }

  bool append(const char* piece, int length) {
    if (uint64_t{*position} + static_cast<uint64_t>(length) >= size) {
      return false;
    }
    memcpy(target + *position, piece, static_cast<size_t>(length) + 1);
    *position += static_cast<unsigned>(length);
    return true;
  }
};

// The number that a text begins with; what exceeds 32 bits loses its upper half.
int32_t numberOf(const char* text) {
  return static_cast<int32_t>(strtol(text, nullptr, 10));
}

const char* find(const char* text, const char* wanted) {
  const char* found = text == nullptr ? nullptr : strstr(text, wanted);
  return found == nullptr ? nullptr : found + strlen(wanted);
}

}  // namespace

int ZQCurrencyDetailListToText(const ZQCurrencyDetailList* list, unsigned* position, unsigned size,
                               char* target) {
  if (position == nullptr || target == nullptr) {
    return kNoRoom;
  }
  TextRoom room = {target, position, size};
  if (*position < size) {
    target[*position] = '\0';
  }
  if (list == nullptr) {
    return 0;
  }
  char piece[32];
  int length = snprintf(piece, sizeof piece, "%u%c", list->numItems, kSeparator);
  if (room.isFull() || !room.append(piece, length)) {
    return kNoRoom;
  }
  for (uint32_t i = 0; list->items != nullptr && i < list->numItems; ++i) {
    const ZQCurrencyDetailStruct& item = list->items[i];
    constexpr int kCodeLength = sizeof item.currencyCode - 1;
    length = snprintf(piece, sizeof piece, "%.*s%c%d%c", kCodeLength, item.currencyCode, kSeparator,
                      item.decimalPlaces, kSeparator);
    if (room.isFull() || !room.append(piece, length)) {
      return kNoRoom;
    }
  }
  return 0;
}

int LoadCurrencyDetailList(const char* text, ZQCurrencyDetailList* list) {
  if (list == nullptr) {
    return 0;
  }
  list->numItems = 0;
  list->items = nullptr;
  const char* separator = mbstrchr(text, kSeparator);
  if (separator == nullptr) {
    return ZQ_MESSAGE_CURRENCY_DETAILS_MALFORMED;
  }
  const int32_t count = numberOf(text);
  if (count == 0) {
    return 0;
  }
  auto* items = count < 0 ? nullptr
                          : static_cast<ZQCurrencyDetailStruct*>(
                                calloc(static_cast<size_t>(count), sizeof *list->items));
  if (items == nullptr) {
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  }
  list->items = items;
  list->numItems = static_cast<uint32_t>(count);
  for (int32_t i = 0; separator != nullptr && i < count; ++i) {
    const char* code = separator + 1;
    const char* codeEnd = mbstrchr(code, kSeparator);
    if (codeEnd == nullptr) {
      break;
    }
    constexpr ptrdiff_t kCodeLength = sizeof items->currencyCode - 1;
    const ptrdiff_t length = codeEnd - code;
    mbstrncpy(items[i].currencyCode, code,
              static_cast<int>(length < kCodeLength ? length : kCodeLength));
    items[i].decimalPlaces = numberOf(codeEnd + 1);
    separator = mbstrchr(codeEnd + 1, kSeparator);
  }
  return 0;
}

void SetEncodingForXMLDoc(const char* document, int codeSet, char** result) {
  if (result == nullptr) {
    return;
  }
  *result = nullptr;
  if (document == nullptr) {
    return;
  }
  char reach[kDeclarationReach + 1] = "";
  mbstrncpy(reach, document, kDeclarationReach);
  constexpr char kEncoding[] = "encoding=";
  const char* attribute = find(find(reach, "?xml version="), kEncoding);
  const char* value = find(find(attribute, "\""), "\"");
  const char* end = find(value, "?>");
  if (end == nullptr) {
    return;
  }
  const size_t head = static_cast<size_t>(attribute - reach) - strlen(kEncoding);
  char charset[ZQ_CHARSET_SIZE];
  setDocumentCharset(charset, codeSet);
  const char* rest = document + (end - reach);
  rest += strspn(rest, " ");
  const size_t restLength = strlen(rest);
  const size_t size = head + strlen(kEncoding) + strlen(charset) + 2 +
                      static_cast<size_t>(end - value) + restLength + 1;
  char* text = static_cast<char*>(malloc(size));
  if (text == nullptr) {
    return;
  }
  snprintf(text, size, "%.*s%s\"%s\"%.*s", static_cast<int>(head), document, kEncoding, charset,
           static_cast<int>(end - value), value);
  memcpy(text + size - restLength - 1, rest, restLength + 1);
  *result = text;
}
