// Documents for scenarios: small ones that have an element of each kind, so that each of their
// allocations can fail, and those of the examples.
#ifndef ZQXML_TESTS_FAULT_DOCUMENTS_H
#define ZQXML_TESTS_FAULT_DOCUMENTS_H

#include <string>

namespace fault {

// "root" with objects of all kinds, for lists: "A", "B", ... by their names.
std::string documentOfAllKinds();

// "root" with a filter that has conditions, values and actions of every kind.
std::string documentOfAFilter();

// "root" with an escalation.
std::string documentOfAnEscalation();

// A file of examples/.
std::string exampleDocument(const std::string& name);

}  // namespace fault

#endif
