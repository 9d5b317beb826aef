// Reads "changeHistory" into the one coded text that the records keep: for each entry the time in
// decimal, the byte 4, the user, the byte 4, the text, the byte 3.
#ifndef ZQXML_XML_HANDLERS_ZQXMLCHANGEHISTHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLCHANGEHISTHANDLER_H

#include "xml/PendingList.h"
#include "xml/ZQGNString.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

// An entry whose text lies on the heap.
struct ZQXMLChangeEntry {
  ZQTimestamp modifiedDate;
  ZQAccessNameType userName;
  char* text;
};

inline void freeChangeEntry(ZQXMLChangeEntry* entry, ZQBoolean) {
  free(entry->text);
}

class ZQXMLChangeHistHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLChangeHistHandler(const ZQXMLHandlerInfo* info) : ZQXMLBaseHandler(info) {}

  // `diary` receives the text, which is empty, not null, for a history without entries.
  void Init(char** diary);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void ReadAttributes(const xercesc::Attributes& attributes);
  void AddChangeEntry();
  void GenChangeHistString();

  char** target = nullptr;
  ZQGNString entryText;
  ZQXMLChangeEntry head = {};
  PendingList<ZQXMLChangeEntry, freeChangeEntry> entries;
};

#endif
