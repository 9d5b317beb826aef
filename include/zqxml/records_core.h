/**
 * @file
 * The records that all others stand on: names, plain lists, status lists, values, conditions.
 * Include zqxml/records.h.
 */
#ifndef ZQXML_RECORDS_CORE_H
#define ZQXML_RECORDS_CORE_H

#include <stdint.h>

/** A truth value: 0 is false, everything else true. */
typedef unsigned char ZQBoolean;

/** The name of an object: at most 254 bytes and a zero. */
typedef char ZQNameType[255];

/** The name of a user or a group: at most 30 bytes and a zero. */
typedef char ZQAccessNameType[31];

/** The name of a server: at most 64 bytes and a zero. */
typedef char ZQServerNameType[65];

/** One part of an entry id: at most 15 bytes and a zero. */
typedef char ZQEntryIdType[16];

/** A currency code: three bytes and a zero. */
typedef char ZQCurrencyCodeType[4];

/** The number of a field, a group or a view. */
typedef uint32_t ZQInternalId;

/** Seconds since 1 January 1970, UTC. */
typedef int32_t ZQTimestamp;

typedef struct ZQQualifierStruct ZQQualifierStruct; /**< defined below */
typedef struct ZQRelOpStruct ZQRelOpStruct; /**< defined below */
typedef struct ZQArithOpStruct ZQArithOpStruct; /**< defined below */
typedef struct ZQQueryValueStruct ZQQueryValueStruct; /**< defined below */

/** One status record. */
typedef struct ZQStatusStruct {
    uint32_t messageType; /**< 0 note, 1 warning, 2 error; 3, fatal, is only ever a result */
    int32_t messageNum;   /**< catalog message number, see zqxml/messages.h */
    char *messageText;    /**< catalog text of the number, at most 255 bytes, or null */
    char *appendedText;   /**< detail that the reporter added, at most 255 bytes, or null */
} ZQStatusStruct;

/** Bytes. This is no list record: the count and the array stand behind the type. */
typedef struct ZQByteList {
    /** 0 user-defined, 1 Windows bitmap, 2 JPEG, 3 TIFF, 4 TARGA, 5 PCX, 6 localized file, 7 authentication string. */
    uint32_t byteType;
    uint32_t numItems;    /**< number of bytes */
    unsigned char *bytes; /**< the bytes, without a terminator */
} ZQByteList;

/** A point. */
typedef struct ZQCoordStruct {
    int32_t x; /**< horizontal */
    int32_t y; /**< vertical */
} ZQCoordStruct;

/** Bytes of an attachment. */
typedef struct ZQBufStruct {
    uint32_t bufferSize;       /**< number of bytes */
    unsigned char *bufferData; /**< the bytes */
} ZQBufStruct;

/** Where the content of an attachment lies. */
typedef struct ZQLocStruct {
    uint32_t locationType; /**< 1 file, 2 buffer, 0 nowhere */
    /** What `locationType` tells of. */
    union {
        char *fileName;     /**< 1: path */
        ZQBufStruct buffer; /**< 2 */
    } u; /**< what `locationType` tells of */
} ZQLocStruct;

/** An attachment. */
typedef struct ZQAttachStruct {
    char *attachmentName;   /**< name */
    int32_t originalSize;   /**< size in bytes; -1 is not yet known */
    int32_t compressedSize; /**< size in bytes as it is kept */
    ZQLocStruct location;   /**< where the content lies */
} ZQAttachStruct;

/** An amount in a functional currency. */
typedef struct ZQFuncCurrencyStruct {
    char *value;                     /**< amount, a decimal text */
    ZQCurrencyCodeType currencyCode; /**< currency */
} ZQFuncCurrencyStruct;

/** A list of amounts in functional currencies. */
typedef struct ZQFuncCurrencyList {
    uint32_t numItems;           /**< number of elements */
    ZQFuncCurrencyStruct *items; /**< the elements */
} ZQFuncCurrencyList;

/** An amount of money. */
typedef struct ZQCurrencyStruct {
    char *value;                             /**< amount, a decimal text */
    ZQCurrencyCodeType currencyCode;         /**< currency */
    ZQTimestamp conversionDate;              /**< time of the conversion */
    ZQFuncCurrencyList functionalCurrencies; /**< amounts in functional currencies */
} ZQCurrencyStruct;

/** A list of points. */
typedef struct ZQCoordList {
    uint32_t numItems;    /**< number of elements */
    ZQCoordStruct *items; /**< the elements */
} ZQCoordList;

/** A tagged value. */
typedef struct ZQValueStruct {
    uint32_t dataType; /**< 0 null, otherwise the member of the union; an unknown number owns nothing */
    /** What `dataType` tells of. */
    union {
        uint32_t keywordValue;           /**< 1 */
        int32_t integerValue;            /**< 2 */
        double realValue;                /**< 3 */
        char *characterValue;            /**< 4: text, or null */
        char *diaryValue;                /**< 5: coded diary, or null */
        uint32_t enumValue;              /**< 6 */
        ZQTimestamp timeValue;           /**< 7 */
        uint32_t maskValue;              /**< 8: bit mask */
        ZQByteList *byteList;            /**< 9 */
        char *decimalValue;              /**< 10: decimal text, or null */
        ZQAttachStruct *attachmentValue; /**< 11 */
        ZQCurrencyStruct *currencyValue; /**< 12 */
        int32_t dateValue;               /**< 13: day number */
        int32_t timeOfDayValue;          /**< 14: seconds since midnight */
        uint32_t unsignedLongValue;      /**< 40 */
        ZQCoordList *coordinateList;     /**< 41 */
        char *viewValue;                 /**< 42: text, or null */
        char *displayValue;              /**< 43: text, or null */
    } u; /**< what `dataType` tells of */
} ZQValueStruct;

/** A field and its value. */
typedef struct ZQFieldValueStruct {
    ZQInternalId fieldId; /**< field */
    ZQValueStruct value;  /**< the value */
} ZQFieldValueStruct;

/** A property. */
typedef struct ZQPropStruct {
    uint32_t property;   /**< tag of the property */
    ZQValueStruct value; /**< the value */
} ZQPropStruct;

/** The permission of a group. */
typedef struct ZQPermissionStruct {
    ZQInternalId groupId; /**< group */
    uint32_t permissions; /**< 0 none, 1 read only or visible, 2 read and write or hidden */
} ZQPermissionStruct;

/** A field to sort by. */
typedef struct ZQSortStruct {
    ZQInternalId fieldId; /**< field */
    uint32_t sortOrder;   /**< 1 ascending, otherwise descending */
} ZQSortStruct;

/** An index of a form. */
typedef struct ZQIndexStruct {
    uint32_t numFields;        /**< number of fields that count */
    ZQInternalId fieldIds[16]; /**< the fields */
    ZQBoolean uniqueIndex;     /**< whether values may stand only once */
    ZQNameType indexName;      /**< name of the index */
} ZQIndexStruct;

/** A list of names; its stride is 255 bytes. */
typedef struct ZQNameList {
    uint32_t numItems; /**< number of elements */
    ZQNameType *items; /**< the elements */
} ZQNameList;

/** Names an object. */
typedef struct ZQStructItemStruct {
    uint32_t itemType;           /**< kind of the object */
    ZQNameType name;             /**< name of the object */
    ZQNameList selectedElements; /**< names of the chosen views of a view object; otherwise empty */
} ZQStructItemStruct;

/** A column of an entry list. */
typedef struct ZQEntryListFieldStruct {
    ZQInternalId fieldId;    /**< field */
    uint32_t fieldWidth;     /**< width in characters */
    char fieldSeparator[11]; /**< text behind the column, at most 10 bytes */
} ZQEntryListFieldStruct;

/** A list of parts of an entry id; its stride is 16 bytes. */
typedef struct ZQEntryIdList {
    uint32_t numItems;    /**< number of elements */
    ZQEntryIdType *items; /**< the elements */
} ZQEntryIdList;

/** A line of an entry list. */
typedef struct ZQEntryListStruct {
    ZQEntryIdList entryId;  /**< id of the entry, in parts */
    char *shortDescription; /**< line of the result list */
} ZQEntryListStruct;

/** A list of fields with values. */
typedef struct ZQFieldValueList {
    uint32_t numItems;         /**< number of elements */
    ZQFieldValueStruct *items; /**< the elements */
} ZQFieldValueList;

/** A line of an entry list, by values. */
typedef struct ZQEntryListFieldValueStruct {
    ZQEntryIdList entryId;         /**< id of the entry, in parts */
    ZQFieldValueList *entryValues; /**< values of the columns */
} ZQEntryListFieldValueStruct;

/** An entry of a diary. */
typedef struct ZQDiaryStruct {
    ZQAccessNameType user; /**< who wrote it */
    ZQTimestamp timestamp; /**< when */
    char *value;           /**< text */
} ZQDiaryStruct;

/** When and by whom a status was set. */
typedef struct ZQStatusHistoryStruct {
    ZQAccessNameType user; /**< who set the status; empty for one that never was entered */
    ZQTimestamp timestamp; /**< when; 0 for one that never was entered */
} ZQStatusHistoryStruct;

/** A list of properties. */
typedef struct ZQPropList {
    uint32_t numItems;   /**< number of elements */
    ZQPropStruct *items; /**< the elements */
} ZQPropList;

/** The look of a field in a view. */
typedef struct ZQDisplayInstanceStruct {
    ZQInternalId vuiId;           /**< id of the view */
    ZQPropList displayProperties; /**< properties in that view */
} ZQDisplayInstanceStruct;

/** The look of a field in all views. This is no list record. */
typedef struct ZQDisplayInstanceList {
    ZQPropList commonProperties;        /**< properties in all views */
    uint32_t numInstances;              /**< number of instances */
    ZQDisplayInstanceStruct *instances; /**< array of the instances */
} ZQDisplayInstanceList;

/** The two sides of an "and" or "or". */
typedef struct ZQQualifierBranches {
    ZQQualifierStruct *left;  /**< left branch */
    ZQQualifierStruct *right; /**< right branch */
} ZQQualifierBranches;

/** A node of a condition. */
struct ZQQualifierStruct {
    uint32_t operation; /**< 0 no condition, 1 and, 2 or, 3 not, 4 relation, 5 bare field */
    /** What `operation` tells of. */
    union {
        ZQQualifierBranches branches;       /**< 1 and 2 */
        ZQQualifierStruct *notQualifier;    /**< 3 */
        ZQRelOpStruct *relationalOperation; /**< 4 */
        ZQInternalId fieldId;               /**< 5 */
    } u; /**< what `operation` tells of */
};

/** A part of the status history. */
typedef struct ZQStatHistoryValue {
    uint32_t statusState; /**< number of the status */
    uint32_t statusInfo;  /**< 1 user, 2 time */
} ZQStatHistoryValue;

/** A part of a currency field, for the server's use. */
typedef struct ZQCurrencyPartStruct {
    uint32_t words[3]; /**< carried as they are */
} ZQCurrencyPartStruct;

/** A list of values. */
typedef struct ZQValueList {
    uint32_t numItems;    /**< number of elements */
    ZQValueStruct *items; /**< the elements */
} ZQValueList;

/** An operand. */
typedef struct ZQFieldValueOrArithStruct {
    uint32_t tag; /**< which member of the union */
    /** What `tag` tells of. */
    union {
        /** 1 field of the form, 50 in the transaction, 51 in the database, 99 current value. */
        ZQInternalId fieldId;
        ZQValueStruct value;                 /**< 2: literal */
        ZQArithOpStruct *arithOp;            /**< 3 */
        ZQStatHistoryValue statHistory;      /**< 4 */
        ZQValueList valueSet;                /**< 5: set of values */
        /** 6 part of a currency field, 54 in the transaction, 55 in the database, 56 current. */
        ZQCurrencyPartStruct *currencyField;
        uint32_t variable;                   /**< 52: number of a variable */
        ZQQueryValueStruct *queryValue;      /**< 53 */
    } u; /**< what `tag` tells of */
} ZQFieldValueOrArithStruct;

/** A relation. */
struct ZQRelOpStruct {
    /** 1 equal, 2 greater, 3 greater or equal, 4 less, 5 less or equal, 6 not equal, 7 like, 8 in. */
    uint32_t operation;
    ZQFieldValueOrArithStruct operandLeft;  /**< left operand */
    ZQFieldValueOrArithStruct operandRight; /**< right operand */
};

/** Arithmetic of two operands. */
struct ZQArithOpStruct {
    uint32_t operation;                     /**< 1 add, 2 subtract, 3 multiply, 4 divide, 5 modulo, 6 negate */
    ZQFieldValueOrArithStruct operandLeft;  /**< left operand; without meaning for 6 */
    ZQFieldValueOrArithStruct operandRight; /**< right operand */
};

/** A value by a query. */
struct ZQQueryValueStruct {
    ZQNameType formName;                   /**< form */
    ZQServerNameType serverName;           /**< server */
    /** Condition; FreeZQFieldValueOrArithStruct leaves this one node allocated. */
    ZQQualifierStruct *queryQualification;
    ZQInternalId valueFieldId;             /**< field that gives the value */
    uint32_t multipleMatchOption;          /**< 1 error, 2 first, 3 set */
};

/** A value of an enumeration. */
typedef struct ZQEnumItemStruct {
    uint32_t itemNumber; /**< number */
    ZQNameType itemName; /**< name */
} ZQEnumItemStruct;

/** How a call went: the most severe record first, and of equal ones the newest first. */
typedef struct ZQStatusList {
    uint32_t numItems;     /**< number of elements */
    ZQStatusStruct *items; /**< the elements */
} ZQStatusList;

/** A list of ids. */
typedef struct ZQInternalIdList {
    uint32_t numItems;   /**< number of elements */
    ZQInternalId *items; /**< the elements */
} ZQInternalIdList;

/** A list of id lists. */
typedef struct ZQInternalIdListList {
    uint32_t numItems;       /**< number of elements */
    ZQInternalIdList *items; /**< the elements */
} ZQInternalIdListList;

/** A list of unsigned numbers. */
typedef struct ZQUnsignedIntList {
    uint32_t numItems; /**< number of elements */
    uint32_t *items;   /**< the elements */
} ZQUnsignedIntList;

/** A list of times. */
typedef struct ZQTimestampList {
    uint32_t numItems;  /**< number of elements */
    ZQTimestamp *items; /**< the elements */
} ZQTimestampList;

/** A list of truth values. */
typedef struct ZQBooleanList {
    uint32_t numItems; /**< number of elements */
    ZQBoolean *items;  /**< the elements */
} ZQBooleanList;

/** A list of lists of truth values. */
typedef struct ZQBooleanListList {
    uint32_t numItems;    /**< number of elements */
    ZQBooleanList *items; /**< the elements */
} ZQBooleanListList;

/** A list of user or group names; its stride is 31 bytes. */
typedef struct ZQAccessNameList {
    uint32_t numItems;       /**< number of elements */
    ZQAccessNameType *items; /**< the elements */
} ZQAccessNameList;

/** A list of server names; its stride is 65 bytes. */
typedef struct ZQServerNameList {
    uint32_t numItems;       /**< number of elements */
    ZQServerNameType *items; /**< the elements */
} ZQServerNameList;

/** A list of entry ids. */
typedef struct ZQEntryIdListList {
    uint32_t numItems;    /**< number of elements */
    ZQEntryIdList *items; /**< the elements */
} ZQEntryIdListList;

/** A list of texts, each owned or null. */
typedef struct ZQTextStringList {
    uint32_t numItems; /**< number of elements */
    char **items;      /**< the elements */
} ZQTextStringList;

/** A list of amounts of money. */
typedef struct ZQCurrencyList {
    uint32_t numItems;       /**< number of elements */
    ZQCurrencyStruct *items; /**< the elements */
} ZQCurrencyList;

/** A list of value lists. */
typedef struct ZQValueListList {
    uint32_t numItems;  /**< number of elements */
    ZQValueList *items; /**< the elements */
} ZQValueListList;

/** A list of lists of fields with values. */
typedef struct ZQFieldValueListList {
    uint32_t numItems;       /**< number of elements */
    ZQFieldValueList *items; /**< the elements */
} ZQFieldValueListList;

/** A list of property lists. */
typedef struct ZQPropListList {
    uint32_t numItems; /**< number of elements */
    ZQPropList *items; /**< the elements */
} ZQPropListList;

/** A list of permissions. */
typedef struct ZQPermissionList {
    uint32_t numItems;         /**< number of elements */
    ZQPermissionStruct *items; /**< the elements */
} ZQPermissionList;

/** A list of permission lists. */
typedef struct ZQPermissionListList {
    uint32_t numItems;       /**< number of elements */
    ZQPermissionList *items; /**< the elements */
} ZQPermissionListList;

/** A list of fields to sort by. */
typedef struct ZQSortList {
    uint32_t numItems;   /**< number of elements */
    ZQSortStruct *items; /**< the elements */
} ZQSortList;

/** A list of sort lists. */
typedef struct ZQSortListList {
    uint32_t numItems; /**< number of elements */
    ZQSortList *items; /**< the elements */
} ZQSortListList;

/** A list of indexes. */
typedef struct ZQIndexList {
    uint32_t numItems;    /**< number of elements */
    ZQIndexStruct *items; /**< the elements */
} ZQIndexList;

/** A list of index lists. */
typedef struct ZQIndexListList {
    uint32_t numItems;  /**< number of elements */
    ZQIndexList *items; /**< the elements */
} ZQIndexListList;

/** A list of names of objects. */
typedef struct ZQStructItemList {
    uint32_t numItems;         /**< number of elements */
    ZQStructItemStruct *items; /**< the elements */
} ZQStructItemList;

/** A list of columns of an entry list. */
typedef struct ZQEntryListFieldList {
    uint32_t numItems;             /**< number of elements */
    ZQEntryListFieldStruct *items; /**< the elements */
} ZQEntryListFieldList;

/** A list of lists of columns. */
typedef struct ZQEntryListFieldListList {
    uint32_t numItems;           /**< number of elements */
    ZQEntryListFieldList *items; /**< the elements */
} ZQEntryListFieldListList;

/** A list of lines of an entry list. */
typedef struct ZQEntryListList {
    uint32_t numItems;        /**< number of elements */
    ZQEntryListStruct *items; /**< the elements */
} ZQEntryListList;

/** A list of lines of an entry list, by values. */
typedef struct ZQEntryListFieldValueList {
    uint32_t numItems;                  /**< number of elements */
    ZQEntryListFieldValueStruct *items; /**< the elements */
} ZQEntryListFieldValueList;

/** A list of diary entries. */
typedef struct ZQDiaryList {
    uint32_t numItems;    /**< number of elements */
    ZQDiaryStruct *items; /**< the elements */
} ZQDiaryList;

/** A list of times of statuses, by the number of the status. */
typedef struct ZQStatusHistoryList {
    uint32_t numItems;            /**< number of elements */
    ZQStatusHistoryStruct *items; /**< the elements */
} ZQStatusHistoryList;

/** A list of conditions. */
typedef struct ZQQualifierList {
    uint32_t numItems;        /**< number of elements */
    ZQQualifierStruct *items; /**< the elements */
} ZQQualifierList;

/** A list of values of an enumeration. */
typedef struct ZQEnumItemList {
    uint32_t numItems;       /**< number of elements */
    ZQEnumItemStruct *items; /**< the elements */
} ZQEnumItemList;

/** A list of looks of fields. */
typedef struct ZQDisplayInstanceListList {
    uint32_t numItems;            /**< number of elements */
    ZQDisplayInstanceList *items; /**< the elements */
} ZQDisplayInstanceListList;

#endif
