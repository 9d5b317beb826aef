/**
 * @file
 * The plain records of the interface. Member order, widths and array sizes are a contract with the server's client
 * interface: nothing is packed, everything has its natural alignment.
 *
 * A list record holds `numItems` and `items`, a heap array of that many elements; an empty list has 0 and null.
 * Every pointer in a record is an owned heap block, which may be null, unless its comment says otherwise: the C heap,
 * block by block, `malloc` and `free`. A record that stands in another one by value is no block of its own.
 *
 * A record with a tag and a union `u` holds the member that the comments give the tag's number. Any other number is
 * legal: the record then owns nothing, and its bits are carried along.
 *
 * Free a record with its function of zqxml/free.h, copy it with its function of zqxml/copy.h.
 */
#ifndef ZQXML_RECORDS_H
#define ZQXML_RECORDS_H

#include "zqxml/records_actions.h"
#include "zqxml/records_core.h"
#include "zqxml/records_entries.h"
#include "zqxml/records_objects.h"
#include "zqxml/records_platform.h"

#endif
