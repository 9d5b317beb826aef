// Status lists and the message catalog: where every failure of the library ends up.
//
// The array of a list is replaced by a longer one for each record. Lists are short, and the old
// array stays whole until the new one is complete, so that a failed allocation loses nothing.

#include <nl_types.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "zqxml/multibyte.h"
#include "zqxml/status.h"

namespace {

constexpr char kCatalogName[] = "zqsystem.cat";
constexpr int kMessageSet = 1;
constexpr size_t kMaxTextLength = ZQ_MESSAGE_TEXT_SIZE - 1;
// A longer text of message 1 leaves no room for the number behind it.
constexpr size_t kMaxLengthBeforeNumber = 242;
// This message consists of its appended text alone, so the catalog isn't asked for it.
constexpr int kMessageWithoutText = 8914;
constexpr int kMaxCatalogNumber = 9999;

const nl_catd kNoCatalog = reinterpret_cast<nl_catd>(-1);

nl_catd zqSharedCatalog = kNoCatalog;

bool isEmpty(const ZQStatusList* list) {
  return list == nullptr || list->numItems == 0 || list->items == nullptr;
}

void clear(ZQStatusList* list) {
  list->numItems = 0;
  list->items = nullptr;
}

ZQStatusStruct* newStatusArray(size_t count) {
  return static_cast<ZQStatusStruct*>(malloc(count * sizeof(ZQStatusStruct)));
}

// A heap copy of at most kMaxTextLength bytes. The cut may go through a character.
char* copyCutText(const char* text) {
  return strndup(text, kMaxTextLength);
}

void copyCatalogText(char* target, const char* text) {
  mbstrncpy(target, text, static_cast<int>(kMaxTextLength));
  target[kMaxTextLength] = '\0';
}

}  // namespace

nl_catd ZQOpenSharedCatalog(void) {
  if (zqSharedCatalog != kNoCatalog) {
    catclose(zqSharedCatalog);
  }
  zqSharedCatalog = catopen(kCatalogName, 0);
  return zqSharedCatalog;
}

void ZQGetTextForMessage(int messageNum, char* text) {
  if (text == nullptr) {
    return;
  }
  memset(text, 0, ZQ_MESSAGE_TEXT_SIZE);
  const bool useShared = zqSharedCatalog != kNoCatalog;
  const nl_catd catalog = useShared ? zqSharedCatalog : catopen(kCatalogName, 0);
  if (catalog == kNoCatalog) {
    snprintf(text, ZQ_MESSAGE_TEXT_SIZE, "Cannot open catalog; Message number = %d", messageNum);
    return;
  }
  const char* found = catgets(catalog, kMessageSet, messageNum, "");
  if (*found != '\0') {
    copyCatalogText(text, found);
  } else {
    copyCatalogText(text, catgets(catalog, kMessageSet, ZQ_MESSAGE_NOT_IN_CATALOG,
                                  "Message not in catalog; Message number = "));
    const size_t length = strlen(text);
    if (length <= kMaxLengthBeforeNumber) {
      snprintf(text + length, ZQ_MESSAGE_TEXT_SIZE - length, "%d", messageNum);
    }
  }
  if (!useShared) {
    catclose(catalog);
  }
}

int ZQAddErrorMessage(ZQStatusList* list, unsigned messageType, int messageNum,
                      const char* appendedText) {
  constexpr int kNotRecorded = 3;
  if (list == nullptr) {
    return static_cast<int>(messageType);
  }
  const uint32_t oldCount = isEmpty(list) ? 0 : list->numItems;
  ZQStatusStruct* items = newStatusArray(size_t{oldCount} + 1);
  if (items == nullptr) {
    return kNotRecorded;
  }

  char text[ZQ_MESSAGE_TEXT_SIZE] = "";
  if (messageNum >= 1 && messageNum <= kMaxCatalogNumber && messageNum != kMessageWithoutText) {
    ZQGetTextForMessage(messageNum, text);
  }
  ZQStatusStruct record = {messageType, messageNum, copyCutText(text), nullptr};
  if (record.messageText == nullptr) {
    free(items);
    return kNotRecorded;
  }
  if (appendedText != nullptr) {
    record.appendedText = copyCutText(appendedText);
    if (record.appendedText == nullptr) {
      free(record.messageText);
      free(items);
      return kNotRecorded;
    }
  }

  uint32_t place = 0;
  while (place < oldCount && list->items[place].messageType > messageType) {
    items[place] = list->items[place];
    ++place;
  }
  items[place] = record;
  for (uint32_t i = place; i < oldCount; ++i) {
    items[i + 1] = list->items[i];
  }
  free(list->items);
  list->items = items;
  list->numItems = oldCount + 1;
  return static_cast<int>(items[0].messageType);
}

int ZQAddErrorMessageId(ZQStatusList* list, unsigned messageType, int messageNum,
                        unsigned long id) {
  char text[24];
  snprintf(text, sizeof text, "%lu", id);
  return ZQAddErrorMessage(list, messageType, messageNum, text);
}

void MergeZQStatusLists(ZQStatusList* first, ZQStatusList* second, ZQStatusList* result) {
  if (result == nullptr) {
    return;
  }
  const bool firstEmpty = isEmpty(first);
  const bool secondEmpty = isEmpty(second) || second == first;
  if (firstEmpty && secondEmpty) {
    if (result != second) {
      clear(result);
    }
    return;
  }
  if (firstEmpty || secondEmpty) {
    const ZQStatusList* filled = firstEmpty ? second : first;
    if (result != filled) {
      *result = *filled;
    }
    return;
  }

  const ZQStatusList one = *first;
  const ZQStatusList two = *second;
  ZQStatusStruct* items = newStatusArray(size_t{one.numItems} + two.numItems);
  clear(first);
  clear(second);
  if (items == nullptr) {
    const bool keepFirst = one.items[0].messageType > two.items[0].messageType;
    ZQStatusList dropped = keepFirst ? two : one;
    FreeZQStatusList(&dropped, 0);
    *result = keepFirst ? one : two;
    ZQAddErrorMessage(result, 2, ZQ_MESSAGE_NO_MEMORY_FOR_RESULT, "");
    return;
  }

  uint32_t count = 0;
  uint32_t fromOne = 0;
  uint32_t fromTwo = 0;
  for (const uint32_t lowestOfBand : {2U, 1U, 0U}) {
    while (fromTwo < two.numItems && two.items[fromTwo].messageType >= lowestOfBand) {
      items[count++] = two.items[fromTwo++];
    }
    while (fromOne < one.numItems && one.items[fromOne].messageType >= lowestOfBand) {
      items[count++] = one.items[fromOne++];
    }
  }
  free(one.items);
  free(two.items);
  result->numItems = count;
  result->items = items;
}

char* ZQGetMessage(void) {
  return nullptr;
}

unsigned CopyZQStatusStruct(ZQStatusStruct* dest, const ZQStatusStruct* source) {
  if (dest == nullptr || source == nullptr) {
    return 0;
  }
  *dest = *source;
  dest->messageText = nullptr;
  dest->appendedText = nullptr;
  if (source->messageText != nullptr) {
    dest->messageText = strdup(source->messageText);
    if (dest->messageText == nullptr) {
      return ZQ_MESSAGE_OUT_OF_MEMORY;
    }
  }
  if (source->appendedText != nullptr) {
    dest->appendedText = strdup(source->appendedText);
    if (dest->appendedText == nullptr) {
      free(dest->messageText);
      dest->messageText = nullptr;
      return ZQ_MESSAGE_OUT_OF_MEMORY;
    }
  }
  return 0;
}

unsigned CopyZQStatusList(ZQStatusList* dest, const ZQStatusList* source) {
  if (dest == nullptr) {
    return 0;
  }
  clear(dest);
  if (isEmpty(source)) {
    return 0;
  }
  dest->items = newStatusArray(source->numItems);
  if (dest->items == nullptr) {
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  }
  for (uint32_t i = 0; i < source->numItems; ++i) {
    // Counted in any case: a record that failed owns nothing, and a list without records would keep
    // its array.
    dest->numItems = i + 1;
    const unsigned result = CopyZQStatusStruct(&dest->items[i], &source->items[i]);
    if (result != 0) {
      FreeZQStatusList(dest, 0);
      return result;
    }
  }
  return 0;
}

void FreeZQStatusList(ZQStatusList* list, ZQBoolean freeStruct) {
  if (list == nullptr) {
    return;
  }
  if (!isEmpty(list)) {
    for (uint32_t i = 0; i < list->numItems; ++i) {
      free(list->items[i].messageText);
      free(list->items[i].appendedText);
    }
    free(list->items);
  }
  if (freeStruct != 0) {
    free(list);
  } else {
    clear(list);
  }
}
