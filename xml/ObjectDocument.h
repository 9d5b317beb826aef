// The road that the Set<Object>ToXML calls share.
#ifndef ZQXML_XML_OBJECTDOCUMENT_H
#define ZQXML_XML_OBJECTDOCUMENT_H

#include "xml/ApiFrame.h"
#include "xml/ElementSink.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/documentframe.h"
#include "zqxml/status.h"

// Opens the element of an object, with the attributes that tell the namespaces.
void openObject(ElementSink& sink, int tag);

// Writes the document of one object. `body` gets the sink with the object's element open, adds
// "zqDocVersion" and the content, and returns 0 or a message number. A failure adds a record with
// an empty text; nothing is written then.
template <typename Body>
int writeObjectDocument(ZQXMLOutputDoc* outputDoc, uint32_t includeDocFrame, int tag,
                        ZQStatusList* status, Body body) {
  constexpr unsigned kError = 2;
  return guardedEntry(status, ZQ_MESSAGE_XML_PARSER, [&] {
    // Deliberate: any other number than 1 stands for no frame.
    const bool hasFrame = includeDocFrame == 1;
    ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
    if (hasFrame) {
      appendDocumentHeader(text);
    }
    TextSink sink(text, 1);
    openObject(sink, tag);
    int result = body(static_cast<ElementSink&>(sink));
    if (result == 0) {
      sink.close();
      if (hasFrame) {
        appendDocumentFooter(text);
      }
      result = WriteToXMLDoc(text, outputDoc);
    }
    return result == 0 ? 0 : ZQAddErrorMessage(status, kError, result, "");
  });
}

#endif
