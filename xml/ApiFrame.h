// The frame of every exported entry of the XML code: nothing that is thrown gets past it.
#ifndef ZQXML_XML_APIFRAME_H
#define ZQXML_XML_APIFRAME_H

#include <xercesc/dom/DOMException.hpp>

#include "zqxml/messages.h"
#include "zqxml/records.h"

// Called while an exception is handled: adds the record of severity 2 that stands for it, and
// returns 2, or 3 if the record could not be allocated. An exception of the XML parser has the
// number `xmlNumber` and its own text, out of memory has 300 and the empty text, and what is not
// known has `xmlNumber` and the empty text.
int reportCurrentException(ZQStatusList* status, int xmlNumber);

// Adds the record of a DOM exception, 8940 with "DOMCode: %s; %s": the text of its code and its own
// message. Returns as reportCurrentException does.
int reportDOMException(ZQStatusList* status, const xercesc::DOMException& exception);

// The result of `body`, or that of reportCurrentException.
template <typename Body>
int guardedEntry(ZQStatusList* status, int xmlNumber, Body body) {
  try {
    return body();
  } catch (...) {
    return reportCurrentException(status, xmlNumber);
  }
}

#endif
