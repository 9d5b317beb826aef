// Growable text: the class is public. Out of memory is ZQXMLException 300.
#ifndef ZQXML_XML_ZQGNSTRING_H
#define ZQXML_XML_ZQGNSTRING_H

#include "zqxml/builders.hpp"

#endif
