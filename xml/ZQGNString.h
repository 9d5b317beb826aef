// Growable text: the class is public. Out of memory is ZQXMLException 300.
#ifndef ZQXML_XML_ZQGNSTRING_H
#define ZQXML_XML_ZQGNSTRING_H

#include <cstdint>

#include "zqxml/builders.hpp"

// The bytes of all texts that the calling thread has been given as one piece. Whoever asks for a
// text goes through it, so this is what work on texts costs.
uint64_t textBytesRead();

#endif
