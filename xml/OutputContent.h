// The escapes of text in documents.
#ifndef ZQXML_XML_OUTPUTCONTENT_H
#define ZQXML_XML_OUTPUTCONTENT_H

#include <string>

class ZQGNString;

// Appends a text with its markup characters escaped. A control character but tab, line feed and
// carriage return, which XML 1.0 can't hold, becomes a reference into the private use area, U+F8E0
// to U+F8FE, that the reader undoes. The apostrophe isn't escaped. Null is the empty text. Returns
// 0, or message 300.
int OutputContent(const char* content, ZQGNString& text);

// The same for the writers' own buffer.
void appendEscaped(const char* content, std::string& text);

#endif
