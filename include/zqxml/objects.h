/**
 * @file
 * The objects of a parsed definition document: looking them up, fetching them, freeing them.
 *
 * ParseXMLDocument (zqxml/parser.h) gives a stream, which owns the chain of its objects. Each `Get<Object>FromXML` looks
 * an object up by kind and name and hands out deep copies of those parts that the caller asks for. In this version
 * documents give filters and escalations; the other kinds are there for chains that a program builds. The first object of
 * a name and kind in the document is the one that is found; names are compared byte for byte.
 *
 * What all of the family share:
 *
 * - Arguments: the stream; the name; the outputs, in the order of the object's parts; the status list, which may be
 *   null and is added to, not cleared.
 * - Any output may be null and is skipped then.
 * - A name goes into the caller's array of 255 bytes (ZQNameType), 65 (ZQServerNameType) or 31 (ZQAccessNameType). A
 *   text is a heap copy for free(), null where the object has none. A record or list is a deep copy, freed with its own
 *   Free function (zqxml/free.h). What the outputs held before is overwritten.
 * - Result: 0, or 2 with a record: 8945 with the name if there is no such object, 300 if memory has run out. Outputs
 *   that were filled before a failure stay with the caller.
 * - Deliberate: an attachment whose data lie in a buffer moves out of the stream with the first copy; a second fetch of
 *   the same object has none (see CopyZQValueStruct).
 */
#ifndef ZQXML_OBJECTS_H
#define ZQXML_OBJECTS_H

#include "zqxml/export.h"
#include "zqxml/records.h"

ZQXML_BEGIN_DECLS

/**
 * Looks an object up in a chain.
 *
 * @param list       first node, or null
 * @param name       name of the object; null matches nothing
 * @param objectType kind, see ZQXMLObjectKind
 * @return the first node of that name and kind, which still belongs to the chain, or null
 */
ZQXML_API ZQXMLObjectList *GetXMLObject(ZQXMLObjectList *list, const char *name, uint32_t objectType);

/**
 * Lists the objects of a chain with their kinds, names and, for standalone views, the names of the views.
 *
 * @param list          first node, or null: then nothing is done
 * @param parsedObjects receives the list, free with FreeZQStructItemList; the names of views have to be freed ahead of
 *                      that, by free() of `items` of each `selectedElements`. May be null
 * @param status        receives a record on failure; may be null
 * @return 0, or 2 with message 300
 */
ZQXML_API int GetNamesFromObjectList(const ZQXMLObjectList *list, ZQStructItemList *parsedObjects,
                                     ZQStatusList *status);

/** Fetches the parts of a form; see the head of the file. */
ZQXML_API int GetSchemaFromXML(ZQXMLParsedStream *stream, const char *name, ZQCompoundSchema *schema,
                               ZQPermissionList *permissions, ZQInternalIdList *subAdmins,
                               ZQEntryListFieldList *resultListFields, ZQSortList *sortList, ZQIndexList *indexList,
                               char *defaultVui, uint32_t *nextFieldId, uint32_t *coreVersion, int32_t *upgradeVersion,
                               ZQFieldInfoList *fieldList, ZQVuiInfoList *vuiList, char *owner, char *lastChanged,
                               ZQTimestamp *modifiedDate, char **helpText, char **changeDiary, ZQPropList *objPropList,
                               int32_t *xmlDocVersion, ZQStatusList *status);

/** Fetches the parts of a filter; see the head of the file. */
ZQXML_API int GetFilterFromXML(ZQXMLParsedStream *stream, const char *name, uint32_t *executionOrder,
                               ZQWorkflowConnectStruct *workflowConnect, uint32_t *executeOn, uint32_t *enabled,
                               ZQQualifierStruct *query, ZQFilterActionList *actionList, ZQFilterActionList *elseList,
                               char *owner, char *lastChanged, ZQTimestamp *modifiedDate, char **helpText,
                               char **changeDiary, ZQPropList *objPropList, int32_t *xmlDocVersion,
                               ZQStatusList *status);

/** Fetches the parts of an active link; see the head of the file. */
ZQXML_API int GetActiveLinkFromXML(ZQXMLParsedStream *stream, const char *name, uint32_t *executionOrder,
                                   ZQWorkflowConnectStruct *workflowConnect, ZQInternalIdList *groupList,
                                   uint32_t *executeOn, ZQInternalId *controlFieldId, ZQInternalId *focusFieldId,
                                   uint32_t *enabled, ZQQualifierStruct *query, ZQActiveLinkActionList *actionList,
                                   ZQActiveLinkActionList *elseList, ZQSupportFileInfoList *supportFileList,
                                   char *owner, char *lastChanged, ZQTimestamp *modifiedDate, char **helpText,
                                   char **changeDiary, ZQPropList *objPropList, int32_t *xmlDocVersion,
                                   ZQStatusList *status);

/** Fetches the parts of an escalation; see the head of the file. */
ZQXML_API int GetEscalationFromXML(ZQXMLParsedStream *stream, const char *name, ZQEscalationTmStruct *escalationTime,
                                   ZQWorkflowConnectStruct *workflowConnect, uint32_t *enabled,
                                   ZQQualifierStruct *query, ZQFilterActionList *actionList,
                                   ZQFilterActionList *elseList, char *owner, char *lastChanged,
                                   ZQTimestamp *modifiedDate, char **helpText, char **changeDiary,
                                   ZQPropList *objPropList, int32_t *xmlDocVersion, ZQStatusList *status);

/** Fetches the parts of a container; see the head of the file. */
ZQXML_API int GetContainerFromXML(ZQXMLParsedStream *stream, const char *name, ZQPermissionList *permissions,
                                  ZQInternalIdList *subAdmins, ZQContainerOwnerObjList *ownerObjList, char **label,
                                  char **description, uint32_t *containerType, ZQReferenceList *references, char *owner,
                                  char *lastChanged, ZQTimestamp *modifiedDate, char **helpText, char **changeDiary,
                                  ZQPropList *objPropList, int32_t *xmlDocVersion, ZQStatusList *status);

/** Fetches the parts of a menu; see the head of the file. */
ZQXML_API int GetMenuFromXML(ZQXMLParsedStream *stream, const char *name, uint32_t *refreshCode,
                             ZQCharMenuStruct *menuDefn, char *owner, char *lastChanged, ZQTimestamp *modifiedDate,
                             char **helpText, char **changeDiary, ZQPropList *objPropList, int32_t *xmlDocVersion,
                             ZQStatusList *status);

/** Fetches the parts of a standalone set of views, named by its form; see the head of the file. */
ZQXML_API int GetVUIFromXML(ZQXMLParsedStream *stream, const char *name, ZQVuiInfoList *vuiList,
                            ZQFieldInfoList *fieldList, ZQTimestamp *modifiedDate, int32_t *xmlDocVersion,
                            ZQStatusList *status);

/** Fetches the parts of a DSO mapping; see the head of the file. */
ZQXML_API int GetDSOMappingFromXML(ZQXMLParsedStream *stream, const char *name, char *fromForm, char *fromServer,
                                   char *toForm, char *toServer, uint32_t *enabled, uint32_t *updateCode,
                                   uint32_t *transferMode, uint32_t *mapType, uint32_t *returnMapType,
                                   uint32_t *defaultMap, uint32_t *duplicateAction, uint32_t *patternMatch,
                                   uint32_t *requiredFields, uint32_t *retryTime, char **mapping, char **returnMapping,
                                   char **matchQualification, char *owner, char *lastChanged, ZQTimestamp *modifiedDate,
                                   char **helpText, char **changeDiary, ZQPropList *objPropList, int32_t *xmlDocVersion,
                                   ZQStatusList *status);

/** Fetches the parts of a DSO pool; see the head of the file. */
ZQXML_API int GetDSOPoolFromXML(ZQXMLParsedStream *stream, const char *name, uint32_t *enabled, uint32_t *defaultPool,
                                uint32_t *threadCount, char **connection, char *owner, char *lastChanged,
                                ZQTimestamp *modifiedDate, char **helpText, char **changeDiary, ZQPropList *objPropList,
                                int32_t *xmlDocVersion, ZQStatusList *status);

/** Fetches the parts of a standalone field, looked up by its field name; see the head of the file. */
ZQXML_API int GetFieldFromXML(ZQXMLParsedStream *stream, const char *name, ZQInternalId *fieldId,
                              ZQFieldMappingStruct *fieldMap, uint32_t *dataType, uint32_t *option,
                              uint32_t *createMode, ZQValueStruct *defaultValue, ZQPermissionList *permissions,
                              ZQFieldLimitStruct *limit, ZQDisplayInstanceList *dInstanceList, char *owner,
                              char *lastChanged, ZQTimestamp *modifiedDate, char **helpText, char **changeDiary,
                              int32_t *xmlDocVersion, ZQStatusList *status);

/**
 * Frees the chain of a stream; null is ignored.
 *
 * Deliberate: the contents of containers and of standalone fields are left alone, see FreeZQXMLObjectList, and so is the
 * one node of each query in a condition that FreeZQFieldValueOrArithStruct leaves.
 *
 * @param stream     the stream, which is empty afterwards
 * @param freeStruct 0: the stream record stays; otherwise it is a heap block and freed too
 */
ZQXML_API void FreeZQXMLParsedStreamInternal(ZQXMLParsedStream *stream, ZQBoolean freeStruct);

/**
 * Frees a chain of objects; null is ignored. Deliberate: what a container or a standalone field owns isn't freed.
 *
 * @param list      first node
 * @param freeNodes 0: the nodes stay, with empty objects; otherwise they are freed too
 */
ZQXML_API void FreeZQXMLObjectList(ZQXMLObjectList *list, ZQBoolean freeNodes);

/**
 * Frees what a form owns, and leaves the record without it; null is ignored. The other functions below do the same for
 * their records.
 *
 * @param schema     the record
 * @param freeStruct 0: the record stays; otherwise it is a heap block and freed too
 */
ZQXML_API void FreeZQXMLSchema(ZQXMLSchema *schema, ZQBoolean freeStruct);

/** Frees what a filter owns; see FreeZQXMLSchema. */
ZQXML_API void FreeZQXMLFilter(ZQXMLFilter *filter, ZQBoolean freeStruct);

/** Frees what an active link owns; see FreeZQXMLSchema. */
ZQXML_API void FreeZQXMLActiveLink(ZQXMLActiveLink *activeLink, ZQBoolean freeStruct);

/** Frees what an escalation owns; see FreeZQXMLSchema. */
ZQXML_API void FreeZQXMLEscalation(ZQXMLEscalation *escalation, ZQBoolean freeStruct);

/** Frees what a container owns; see FreeZQXMLSchema. */
ZQXML_API void FreeZQXMLContainer(ZQXMLContainer *container, ZQBoolean freeStruct);

/** Frees what a menu owns; see FreeZQXMLSchema. */
ZQXML_API void FreeZQXMLMenu(ZQXMLMenu *menu, ZQBoolean freeStruct);

/** Frees what a set of views owns; see FreeZQXMLSchema. */
ZQXML_API void FreeZQXMLVUI(ZQXMLVUI *vui, ZQBoolean freeStruct);

/** Frees what a DSO mapping owns; see FreeZQXMLSchema. */
ZQXML_API void FreeZQXMLDSOMapping(ZQXMLDSOMapping *mapping, ZQBoolean freeStruct);

/** Frees what a DSO pool owns; see FreeZQXMLSchema. */
ZQXML_API void FreeZQXMLDSOPool(ZQXMLDSOPool *pool, ZQBoolean freeStruct);

ZQXML_END_DECLS

#endif
