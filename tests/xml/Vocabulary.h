// The vocabulary of the definition format, from a list that was written down apart from the
// library's own.
#ifndef ZQXML_TESTS_XML_VOCABULARY_H
#define ZQXML_TESTS_XML_VOCABULARY_H

#include <map>
#include <string>

// The ids by text.
const std::map<std::string, int>& vocabulary();

#endif
