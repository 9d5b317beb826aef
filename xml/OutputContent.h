// The escapes of text in documents, for the writers' own buffers.
#ifndef ZQXML_XML_OUTPUTCONTENT_H
#define ZQXML_XML_OUTPUTCONTENT_H

#include <string>

// Appends a text as OutputContent does.
void appendEscaped(const char* content, std::string& text);

#endif
