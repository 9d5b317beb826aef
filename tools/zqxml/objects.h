// The objects of a definition document, as the subcommands see them.
#ifndef ZQXML_TOOLS_OBJECTS_H
#define ZQXML_TOOLS_OBJECTS_H

#include <zqxml/zqxml.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "document.h"

// Texts of documents are UTF-8 in the tool, whatever the locale, and so are the documents that it
// writes.
void useUtf8();

// "KIND:NAME", as -s takes it: a kind of object or "*", and a pattern for its name.
class Selector {
 public:
  // Throws CLI::ValidationError if the text is none.
  explicit Selector(const std::string& text);
  bool selects(const ZQXMLObjectList& node) const;

 private:
  uint32_t kind = 0;
  std::string pattern;
};

std::string objectKind(const ZQXMLObjectList& node);
std::string objectName(const ZQXMLObjectList& node);
nlohmann::ordered_json objectJson(const ZQXMLObjectList& node);

using Stream = Owned<ZQXMLParsedStream, FreeZQXMLParsedStreamInternal>;

// The objects of a parsed document, those of a selection or, if that is empty, all.
std::vector<const ZQXMLObjectList*> objectsOf(const Stream& stream,
                                              const std::vector<Selector>& selection = {});

// Parses a document. Returns kDone, or tells the faults on standard error and returns kFileFault or
// kDocumentFault.
int parseObjects(Parser& parser, Document& document, Stream& stream);

// Writes objects as one document. Returns kDone, or tells the reason and returns kDocumentFault.
int writeObjects(const std::vector<const ZQXMLObjectList*>& objects, std::string& text);

#endif
