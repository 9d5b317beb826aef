#include "xml/documentframe.h"

#include "text/mbutil_codeset.h"
#include "xml/ApiFrame.h"
#include "xml/ZQXMLException.h"
#include "zqxml/builders.hpp"
#include "zqxml/definitions.h"
#include "zqxml/messages.h"
#include "zqxml/status.h"

namespace {

enum OutputKind : uint32_t { kMemory = 1, kFile = 2, kDescriptor = 4 };

constexpr unsigned kError = 2;

// Writes a part of a document that `append` makes.
template <typename Append>
int writePart(ZQXMLOutputDoc* outputDoc, ZQStatusList* status, Append append) {
  return guardedEntry(status, ZQ_MESSAGE_XML_PARSER, [&] {
    ZQGNString part;
    append(part);
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

void appendDocumentHeader(ZQGNString& text) {
  char charset[ZQ_CHARSET_SIZE];
  setDocumentCharset(charset, mbGetLocaleCodeSet());
  text += "<?xml version=\"1.0\" encoding=\"";
  text += charset;
  // The blanks are room for a longer encoding, which can then be put in place.
  text += "\"?>                             \n<root>\n";
}

void appendDocumentFooter(ZQGNString& text) {
  text += "</root>\n";
}

int SetDocHeaderToXML(ZQXMLOutputDoc* outputDoc, ZQStatusList* status) {
  return writePart(outputDoc, status, appendDocumentHeader);
}

int SetDocFooterToXML(ZQXMLOutputDoc* outputDoc, ZQStatusList* status) {
  return writePart(outputDoc, status, appendDocumentFooter);
}
