// The description of all records in one place: member, type, and the rule of a list or a tag.
// Whatever walks records of any kind (building them, comparing, printing) stands on it. The Free
// and Copy functions don't: each of them is written out under its own name, and the two are held
// against one another by the tests.
#ifndef ZQXML_RECORDS_DESCRIBE_H
#define ZQXML_RECORDS_DESCRIBE_H

#include "records/describe_actions.h"
#include "records/describe_core.h"
#include "records/describe_entries.h"
#include "records/describe_objects.h"

#endif
