// The frame of the exported builders.
#ifndef ZQXML_XML_BUILDERS_H
#define ZQXML_XML_BUILDERS_H

#include <new>
#include <xercesc/util/OutOfMemoryException.hpp>

#include "xml/ElementSink.h"
#include "xml/ZQXMLException.h"
#include "zqxml/builders.hpp"
#include "zqxml/messages.h"

// Writes beneath `parent`. Returns what `write` does, or the number for out of memory; exceptions
// of the DOM pass through.
template <typename Write>
int buildNodes(xercesc::DOMDocument* document, xercesc::DOMElement* parent, Write write) {
  if (document == nullptr || parent == nullptr) {
    return 0;
  }
  try {
    DOMSink sink(document, parent);
    return write(static_cast<ElementSink&>(sink));
  } catch (const ZQXMLException& exception) {
    return exception.GetErrorNumber();
  } catch (const xercesc::OutOfMemoryException&) {
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  } catch (const std::bad_alloc&) {
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  }
}

// The same for a writer of one record.
template <typename Record>
int buildRecord(xercesc::DOMDocument* document, xercesc::DOMElement* parent,
                int (*write)(ElementSink&, const Record*), const Record* record) {
  return buildNodes(document, parent, [&](ElementSink& sink) { return write(sink, record); });
}

#endif
