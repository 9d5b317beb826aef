/**
 * @file
 * Deep free of records: everything a record owns is given back.
 *
 * All functions have one pattern: `Free<Record>(record, freeStruct)`. A null record is ignored. With `freeStruct` 0 the
 * record itself stays and is reset, so that a second call does nothing; otherwise it is a heap block and freed too.
 */
#ifndef ZQXML_FREE_H
#define ZQXML_FREE_H

#include "zqxml/export.h"
#include "zqxml/records.h"

ZQXML_BEGIN_DECLS

/** Frees a list of unsigned numbers. */
ZQXML_API void FreeZQUnsignedIntList(ZQUnsignedIntList *list, ZQBoolean freeStruct);

/** Frees a list of names. */
ZQXML_API void FreeZQNameList(ZQNameList *list, ZQBoolean freeStruct);

ZQXML_END_DECLS

#endif
