/**
 * @file
 * The records of complex entries, and those that the server fills for its client interface.
 * Include zqxml/records.h.
 */
#ifndef ZQXML_RECORDS_ENTRIES_H
#define ZQXML_RECORDS_ENTRIES_H

#include "zqxml/records_core.h"
#include "zqxml/records_objects.h"

typedef struct ZQComplexEntryCreate ZQComplexEntryCreate; /**< defined below */
typedef struct ZQComplexEntrySet ZQComplexEntrySet; /**< defined below */
typedef struct ZQComplexEntryGetIn ZQComplexEntryGetIn; /**< defined below */
typedef struct ZQComplexEntryGetOutList ZQComplexEntryGetOutList; /**< defined below */

/** A list of entries to create. */
typedef struct ZQComplexEntryCreateList {
    uint32_t numItems;           /**< number of elements */
    ZQComplexEntryCreate *items; /**< the elements */
} ZQComplexEntryCreateList;

/** An entry to create, with the entries below it. */
struct ZQComplexEntryCreate {
    ZQNameType formName;                  /**< form */
    ZQServerNameType serverName;          /**< never set by the library */
    uint32_t foreignKeyId;                /**< field of the foreign key */
    ZQComplexEntryCreate *parent;         /**< entry above, or null; not owned */
    ZQComplexEntryCreateList children;    /**< entries of the forms below */
    ZQFieldValueList fieldValues;         /**< values of the fields */
    uint32_t primaryKeyId;                /**< field of the primary key */
    ZQValueStruct primaryKeyValue;        /**< value of the primary key */
    uint32_t distinguishingKeyId;         /**< field of the distinguishing key */
    ZQValueStruct distinguishingKeyValue; /**< value of the distinguishing key */
};

/** A list of entries to set. */
typedef struct ZQComplexEntrySetList {
    uint32_t numItems;        /**< number of elements */
    ZQComplexEntrySet *items; /**< the elements */
} ZQComplexEntrySetList;

/** An entry to set, with the entries below it. */
struct ZQComplexEntrySet {
    ZQNameType formName;                  /**< form */
    ZQServerNameType serverName;          /**< never set by the library */
    uint32_t primaryKeyId;                /**< field of the primary key */
    ZQValueStruct primaryKeyValue;        /**< value of the primary key */
    uint32_t distinguishingKeyId;         /**< field of the distinguishing key */
    ZQValueStruct distinguishingKeyValue; /**< value of the distinguishing key */
    uint32_t foreignKeyId;                /**< field of the foreign key */
    ZQComplexEntrySet *parent;            /**< entry above, or null; not owned */
    ZQComplexEntrySetList children;       /**< entries of the forms below */
    ZQFieldValueList fieldValues;         /**< values of the fields */
};

/** A retrieved entry, with the entries below it. */
typedef struct ZQComplexEntryGetOut {
    ZQEntryIdList entryId;                /**< id of the entry, in parts */
    ZQFieldValueList fieldValues;         /**< values of the fields */
    uint32_t numChildLists;               /**< number of child lists */
    ZQComplexEntryGetOutList *childLists; /**< array of the lists of the forms below, in mapping order */
} ZQComplexEntryGetOut;

/** A value that a mapping asks for by its tag. */
typedef struct ZQXMLValueInfoStruct {
    uint32_t tag;        /**< 1 user name, 2 password */
    ZQValueStruct value; /**< the value */
} ZQXMLValueInfoStruct;

/** A list of what to fetch, form by form. */
typedef struct ZQComplexEntryGetInList {
    uint32_t numItems;          /**< number of elements */
    ZQComplexEntryGetIn *items; /**< the elements */
} ZQComplexEntryGetInList;

/** What to fetch of a form and of the forms below it. */
struct ZQComplexEntryGetIn {
    ZQQualifierStruct qualifier;      /**< condition; `operation` 0 is none */
    ZQNameType formName;              /**< form */
    uint32_t mapType;                 /**< 1 embedded, 2 reference */
    uint32_t primaryKeyId;            /**< field of the primary key */
    uint32_t distinguishingKeyId;     /**< field of the distinguishing key */
    uint32_t foreignKeyId;            /**< field of the foreign key */
    ZQInternalIdList fieldIdList;     /**< fields to fetch */
    ZQComplexEntryGetInList children; /**< what to fetch of the forms below */
};

/** Options of a complex operation. */
typedef struct ZQComplexEntryOptions {
    uint32_t maxReturnEntries; /**< greatest number of entries */
    uint32_t setOption;        /**< 1 set all, 2 set the first */
    uint32_t documentType;     /**< 1 full, 2 partial */
} ZQComplexEntryOptions;

/** A view and its label. */
typedef struct ZQDisplayStruct {
    ZQInternalId vuiId; /**< id of the view */
    ZQNameType label;   /**< label */
} ZQDisplayStruct;

/** An owner of a container, by its id. */
typedef struct ZQContainerOwnerObjIdStruct {
    uint32_t ownerType;   /**< kind of the owner */
    ZQInternalId ownerId; /**< id of the owner */
} ZQContainerOwnerObjIdStruct;

/** What the server tells of a container. */
typedef struct ZQContainerInfoStruct {
    ZQNameType name;                      /**< name */
    /** 1 active link guide, 2 application, 3 packing list, 4 filter guide, 5 web service. */
    uint32_t containerType;
    ZQContainerOwnerObjList ownerObjList; /**< objects that own the container */
} ZQContainerInfoStruct;

/** A localized text that is asked for. */
typedef struct ZQLocalizedRequestStruct {
    ZQNameType name;         /**< name of the object */
    uint32_t messageType;    /**< kind of text */
    ZQInternalId internalId; /**< id of the text */
} ZQLocalizedRequestStruct;

/** A setting of the server. */
typedef struct ZQServerInfoStruct {
    uint32_t operation;  /**< number of the setting */
    ZQValueStruct value; /**< the value */
} ZQServerInfoStruct;

/** A statistical result. */
typedef struct ZQStatisticsResultStruct {
    ZQValueList groupByValues; /**< values that name the group */
    ZQValueStruct result;      /**< the result */
} ZQStatisticsResultStruct;

/** A setting of the full text search. */
typedef struct ZQFullTextInfoStruct {
    uint32_t tag; /**< 1 to 6 */
    /** What `tag` tells of. */
    union {
        ZQValueStruct value;   /**< 1 and 3 to 6 */
        ZQValueList valueList; /**< 2 */
    } u; /**< what `tag` tells of */
} ZQFullTextInfoStruct;

/** A signal of the server. */
typedef struct ZQSignalStruct {
    uint32_t signalType; /**< kind of the signal */
    char *signalText;    /**< text, or null */
} ZQSignalStruct;

/** What the server tells of a group. */
typedef struct ZQGroupInfoStruct {
    ZQInternalId groupId; /**< group */
    uint32_t groupType;   /**< kind of the group */
    char *groupName;      /**< its names, or null */
} ZQGroupInfoStruct;

/** What the server tells of a user. */
typedef struct ZQUserInfoStruct {
    ZQAccessNameType userName; /**< user */
    uint32_t userType;         /**< kind of the licence */
    char *emailAddress;        /**< mail address, or null */
} ZQUserInfoStruct;

/** A list of views with their labels. */
typedef struct ZQDisplayList {
    uint32_t numItems;      /**< number of elements */
    ZQDisplayStruct *items; /**< the elements */
} ZQDisplayList;

/** A list of container types. */
typedef struct ZQContainerTypeList {
    uint32_t numItems; /**< number of elements */
    uint32_t *items;   /**< the elements */
} ZQContainerTypeList;

/** A list of owners of a container, by their ids. */
typedef struct ZQContainerOwnerObjIdList {
    uint32_t numItems;                  /**< number of elements */
    ZQContainerOwnerObjIdStruct *items; /**< the elements */
} ZQContainerOwnerObjIdList;

/** A list of containers. */
typedef struct ZQContainerInfoList {
    uint32_t numItems;            /**< number of elements */
    ZQContainerInfoStruct *items; /**< the elements */
} ZQContainerInfoList;

/** A list of localized texts that are asked for. */
typedef struct ZQLocalizedRequestList {
    uint32_t numItems;               /**< number of elements */
    ZQLocalizedRequestStruct *items; /**< the elements */
} ZQLocalizedRequestList;

/** A list of numbers of settings that are asked for. */
typedef struct ZQServerInfoRequestList {
    uint32_t numItems; /**< number of elements */
    uint32_t *items;   /**< the elements */
} ZQServerInfoRequestList;

/** A list of settings of the server. */
typedef struct ZQServerInfoList {
    uint32_t numItems;         /**< number of elements */
    ZQServerInfoStruct *items; /**< the elements */
} ZQServerInfoList;

/** A list of statistical results. */
typedef struct ZQStatisticsResultList {
    uint32_t numItems;               /**< number of elements */
    ZQStatisticsResultStruct *items; /**< the elements */
} ZQStatisticsResultList;

/** A list of operands of statistics. */
typedef struct ZQStatisticsList {
    uint32_t numItems;                /**< number of elements */
    ZQFieldValueOrArithStruct *items; /**< the elements */
} ZQStatisticsList;

/** A list of tags of settings that are asked for. */
typedef struct ZQFullTextInfoRequestList {
    uint32_t numItems; /**< number of elements */
    uint32_t *items;   /**< the elements */
} ZQFullTextInfoRequestList;

/** A list of settings of the full text search. */
typedef struct ZQFullTextInfoList {
    uint32_t numItems;           /**< number of elements */
    ZQFullTextInfoStruct *items; /**< the elements */
} ZQFullTextInfoList;

/** A list of signals. */
typedef struct ZQSignalList {
    uint32_t numItems;     /**< number of elements */
    ZQSignalStruct *items; /**< the elements */
} ZQSignalList;

/** A list of groups. */
typedef struct ZQGroupInfoList {
    uint32_t numItems;        /**< number of elements */
    ZQGroupInfoStruct *items; /**< the elements */
} ZQGroupInfoList;

/** A list of users. */
typedef struct ZQUserInfoList {
    uint32_t numItems;       /**< number of elements */
    ZQUserInfoStruct *items; /**< the elements */
} ZQUserInfoList;

/** A list of retrieved entries. */
struct ZQComplexEntryGetOutList {
    uint32_t numItems;           /**< number of elements */
    ZQComplexEntryGetOut *items; /**< the elements */
};

/** A list of values by tag. */
typedef struct ZQXMLValueInfoList {
    uint32_t numItems;           /**< number of elements */
    ZQXMLValueInfoStruct *items; /**< the elements */
} ZQXMLValueInfoList;

#endif
