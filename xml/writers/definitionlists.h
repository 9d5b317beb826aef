// The small lists that several objects share, each without the element around it. See values.h for
// what holds for all writers.
#ifndef ZQXML_XML_WRITERS_DEFINITIONLISTS_H
#define ZQXML_XML_WRITERS_DEFINITIONLISTS_H

#include "zqxml/records.h"

class ElementSink;

int writeModifyPermissions(ElementSink& sink, const ZQPermissionList* list);
int writeViewPermissions(ElementSink& sink, const ZQPermissionList* list);
int writeProperties(ElementSink& sink, const ZQPropList* list);
int writeSortList(ElementSink& sink, const ZQSortList* list);
int writeIndexList(ElementSink& sink, const ZQIndexList* list);
int writeEntryListFields(ElementSink& sink, const ZQEntryListFieldList* list);

// An element of `tag` for each id.
int writeIds(ElementSink& sink, int tag, const ZQInternalIdList* list);

// Deliberate: the text is consumed, that is, each separator of it becomes a zero.
int writeChangeHistory(ElementSink& sink, char* diary);

// The content of one "supportFile". Deliberate: the time is not written.
int writeSupportFile(ElementSink& sink, uint32_t fileType, ZQInternalId fileId,
                     const unsigned char* fileContent, uint32_t fileSize);

#endif
