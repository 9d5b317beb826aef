// The header and the footer of definition documents, and where documents go.

#include <initializer_list>

#include "text/mbutil_codeset.h"
#include "xml/ApiFrame.h"
#include "xml/WriteToXMLDoc.h"
#include "xml/ZQGNString.h"
#include "xml/ZQXMLException.h"
#include "zqxml/definitions.h"
#include "zqxml/messages.h"
#include "zqxml/status.h"

namespace {

enum OutputKind : uint32_t { kMemory = 1, kFile = 2, kDescriptor = 4 };

// Writes a part of a document that consists of these texts.
int writePart(std::initializer_list<const char*> texts, ZQXMLOutputDoc* outputDoc,
              ZQStatusList* status) {
  constexpr unsigned kError = 2;
  return guardedEntry(status, ZQ_MESSAGE_XML_PARSER, [&] {
    ZQGNString part;
    for (const char* text : texts) {
      part += text;
    }
    const int result = WriteToXMLDoc(part, outputDoc);
    return result == 0 ? 0 : ZQAddErrorMessage(status, kError, result, "");
  });
}

}  // namespace

int WriteToXMLDoc(ZQGNString& text, ZQXMLOutputDoc* outputDoc) {
  if (outputDoc == nullptr) {
    return ZQ_MESSAGE_DOCUMENT_KIND;
  }
  switch (outputDoc->docType) {
    case kMemory:
      outputDoc->u.doc = nullptr;
      try {
        return text.DetachStrReference(&outputDoc->u.doc);
      } catch (const ZQXMLException& exception) {
        return exception.GetErrorNumber();
      }
    case kFile:
      return text.AppendToFile(outputDoc->u.doc);
    case kDescriptor:
      return text.WriteToFileHandle(outputDoc->u.fileHandle);
    default:
      return ZQ_MESSAGE_DOCUMENT_KIND;
  }
}

int SetDocHeaderToXML(ZQXMLOutputDoc* outputDoc, ZQStatusList* status) {
  char charset[ZQ_CHARSET_SIZE];
  setDocumentCharset(charset, mbGetLocaleCodeSet());
  // The blanks are room for a longer encoding, which can then be put in place.
  return writePart(
      {"<?xml version=\"1.0\" encoding=\"", charset, "\"?>                             \n<root>\n"},
      outputDoc, status);
}

int SetDocFooterToXML(ZQXMLOutputDoc* outputDoc, ZQStatusList* status) {
  return writePart({"</root>\n"}, outputDoc, status);
}
