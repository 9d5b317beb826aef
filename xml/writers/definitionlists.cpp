#include "xml/writers/definitionlists.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "xml/ElementSink.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/Base64Text.h"
#include "xml/writers/ISOTime.h"
#include "xml/writers/lists.h"
#include "xml/writers/values.h"
#include "xml/writers/words.h"
#include "zqxml/definitions.h"

namespace {

// The words of a permission and the elements that hold it.
struct PermissionTags {
  int entry;
  int rights;
  int words[2];  // of 1 and 2
};

constexpr PermissionTags kModify = {
    tag_modifyPermission, tag_modifyRights, {tag_readOnly, tag_readWrite}};
constexpr PermissionTags kView = {tag_viewPermission, tag_viewRights, {tag_visible, tag_hidden}};
constexpr int kFileTypes[] = {tag_none, tag_externalReport};

int writePermissions(ElementSink& sink, const PermissionTags& tags, const ZQPermissionList* list) {
  for (const ZQPermissionStruct& permission : itemsOf(list)) {
    sink.within(tags.entry, [&] {
      sink.unsignedElement(tag_groupID, permission.groupId);
      const int word = wordOf(tags.words, permission.permissions);
      sink.wordElement(tags.rights, word != 0 ? word : tag_none);
    });
  }
  return 0;
}

// Ends a part of the diary at its separator and steps behind it; null if there is none.
char* endPart(char* part, char separator) {
  char* end = strchr(part, separator);
  if (end == nullptr) {
    return nullptr;
  }
  *end = '\0';
  return end + 1;
}

}  // namespace

int writeModifyPermissions(ElementSink& sink, const ZQPermissionList* list) {
  return writePermissions(sink, kModify, list);
}

int writeViewPermissions(ElementSink& sink, const ZQPermissionList* list) {
  return writePermissions(sink, kView, list);
}

int writeProperties(ElementSink& sink, const ZQPropList* list) {
  return writeEach(itemsOf(list), [&](const ZQPropStruct& property) {
    return sink.within(tag_property, [&] {
      const auto id = static_cast<int32_t>(property.property);
      const bool localized = IsL10nVUITagPrintingEnabled(id) != 0;
      const int status =
          sink.within(tag_value, [&] { return writeValue(sink, &property.value, localized); });
      if (status == 0) {
        sink.signedElement(tag_tag, id);
      }
      return status;
    });
  });
}

int writeSortList(ElementSink& sink, const ZQSortList* list) {
  constexpr uint32_t kAscending = 1;
  for (const ZQSortStruct& sort : itemsOf(list)) {
    sink.within(tag_sort, [&] {
      sink.signedElement(tag_fieldID, sort.fieldId);
      sink.wordElement(tag_sortOrder,
                       sort.sortOrder == kAscending ? tag_ascending : tag_descending);
    });
  }
  return 0;
}

int writeIndexList(ElementSink& sink, const ZQIndexList* list) {
  for (const ZQIndexStruct& index : itemsOf(list)) {
    const auto fields = static_cast<uint32_t>(std::size(index.fieldIds));
    sink.within(tag_formIndex, [&] {
      sink.arrayElement(tag_indexName, index.indexName);
      sink.booleanElement(tag_uniqueIndex, index.uniqueIndex != 0);
      sink.within(tag_fieldIDList, [&] {
        for (const ZQInternalId id : itemsOf(index.fieldIds, std::min(index.numFields, fields))) {
          sink.signedElement(tag_fieldID, id);
        }
      });
    });
  }
  return 0;
}

int writeEntryListFields(ElementSink& sink, const ZQEntryListFieldList* list) {
  for (const ZQEntryListFieldStruct& field : itemsOf(list)) {
    sink.within(tag_resultListField, [&] {
      sink.signedElement(tag_fieldID, field.fieldId);
      if (field.fieldSeparator[0] != '\0') {
        sink.arrayElement(tag_fieldSeparator, field.fieldSeparator);
      }
      sink.unsignedElement(tag_fieldWidth, field.fieldWidth);
    });
  }
  return 0;
}

int writeIds(ElementSink& sink, int tag, const ZQInternalIdList* list) {
  for (const ZQInternalId id : itemsOf(list)) {
    sink.signedElement(tag, id);
  }
  return 0;
}

int writeChangeHistory(ElementSink& sink, char* diary) {
  constexpr char kEndOfPart = 4;
  constexpr char kEndOfEntry = 3;
  char* next = diary;
  while (next != nullptr) {
    const char* stamp = next;
    char* user = endPart(next, kEndOfPart);
    char* text = user != nullptr ? endPart(user, kEndOfPart) : nullptr;
    next = text != nullptr ? endPart(text, kEndOfEntry) : nullptr;
    if (next != nullptr) {
      sink.within(tag_changeEntry, [&] {
        // Deliberate: the number is the low 32 bits.
        const auto seconds = static_cast<ZQTimestamp>(strtol(stamp, nullptr, 10));
        sink.attribute(tag_modifiedDate, ISOTime(seconds).get());
        sink.attribute(tag_userName, user);
        sink.element(tag_entry, text);
      });
    }
  }
  return 0;
}

int writeSupportFile(ElementSink& sink, uint32_t fileType, ZQInternalId fileId,
                     const unsigned char* fileContent, uint32_t fileSize) {
  sink.wordElement(tag_fileType, wordOf(kFileTypes, fileType, 0));
  sink.signedElement(tag_fileID, fileId);
  const Base64Text text(fileContent, fileSize);
  if (!text.isEmpty()) {
    sink.element(tag_content, text.get());
  }
  return text.status();
}
