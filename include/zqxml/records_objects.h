/**
 * @file
 * The records of definition objects, of their parts, and of documents.
 * Include zqxml/records.h.
 */
#ifndef ZQXML_RECORDS_OBJECTS_H
#define ZQXML_RECORDS_OBJECTS_H

#include "zqxml/records_actions.h"

typedef struct ZQXMLObjectList ZQXMLObjectList; /**< defined below */
typedef struct ZQCharMenuItemStruct ZQCharMenuItemStruct; /**< defined below */

/** Where a document comes from. */
typedef struct ZQXMLInputDoc {
    uint32_t docType; /**< 1 text in memory, 2 file name, 3 as 2 */
    char *doc;        /**< the zero-terminated text, or the name */
} ZQXMLInputDoc;

/** Where a document goes. */
typedef struct ZQXMLOutputDoc {
    uint32_t docType; /**< 1 text in memory, 2 file name to append to, 4 open descriptor */
    /** What `docType` tells of. */
    union {
        char *doc;          /**< kind 1: the heap text that a writer stores here; kind 2: the file name */
        int32_t fileHandle; /**< kind 4: the descriptor */
    } u; /**< what `docType` tells of */
} ZQXMLOutputDoc;

/** A parser: made by CreateXMLParserHandle, used by one thread at a time, for any number of documents in turn. */
typedef struct ZQXMLParserHandle {
    void *handle; /**< the parser behind the handle, null before it is made and after it is freed */
} ZQXMLParserHandle;

/** What a join form joins. */
typedef struct ZQJoinSchema {
    ZQNameType memberA;              /**< primary form */
    ZQNameType memberB;              /**< secondary form */
    ZQQualifierStruct joinQualifier; /**< join condition */
    uint32_t option;                 /**< 0 inner join, 1 outer join */
} ZQJoinSchema;

/** The table of a vendor form. */
typedef struct ZQVendorSchema {
    ZQNameType vendorName; /**< name of the vendor plug-in */
    char tableName[256];   /**< table, at most 255 bytes */
} ZQVendorSchema;

/** The table of a view form. */
typedef struct ZQViewSchema {
    char tableName[256]; /**< table, at most 255 bytes */
    ZQNameType keyField; /**< key column */
} ZQViewSchema;

/** The kind of a form. */
typedef struct ZQCompoundSchema {
    uint32_t schemaType; /**< 1 regular, 2 join, 3 view, 4 dialog, 5 vendor; 0 before any is set */
    /** What `schemaType` tells of. */
    union {
        ZQJoinSchema joinSchema;     /**< 2 */
        ZQViewSchema viewSchema;     /**< 3 */
        ZQVendorSchema vendorSchema; /**< 5 */
    } u; /**< what `schemaType` tells of */
} ZQCompoundSchema;

/** Limits of an attachment or an attachment pool. */
typedef struct ZQAttachLimitsStruct {
    uint32_t maxSize;        /**< greatest size in bytes */
    uint32_t attachmentType; /**< 1 embedded, otherwise a link */
} ZQAttachLimitsStruct;

/** Limits of a character field. */
typedef struct ZQCharacterLimitsStruct {
    uint32_t maxLength;      /**< greatest length in bytes */
    uint32_t menuStyle;      /**< how a menu choice is entered: 1 append, otherwise overwrite */
    uint32_t qbeMatch;       /**< query by example: 2 leading match, 3 equality, otherwise any */
    ZQNameType charMenu;     /**< menu */
    char *pattern;           /**< pattern, or null */
    uint32_t fullTextOption; /**< 1 indexed, otherwise none */
} ZQCharacterLimitsStruct;

/** What a column of a table field shows. */
typedef struct ZQColumnLimitsStruct {
    ZQInternalId parent;    /**< table field */
    ZQInternalId dataField; /**< field that is shown */
    uint32_t dataSource;    /**< 1 display field, otherwise data field */
    uint32_t colLength;     /**< width */
} ZQColumnLimitsStruct;

/** A currency and its precision. */
typedef struct ZQCurrencyDetailStruct {
    ZQCurrencyCodeType currencyCode; /**< currency */
    int32_t decimalPlaces;           /**< digits behind the decimal point */
} ZQCurrencyDetailStruct;

/** A list of currencies. */
typedef struct ZQCurrencyDetailList {
    uint32_t numItems;             /**< number of elements */
    ZQCurrencyDetailStruct *items; /**< the elements */
} ZQCurrencyDetailList;

/** Limits of a currency field. */
typedef struct ZQCurrencyLimitsStruct {
    char *rangeLow;                            /**< lowest value, a decimal text */
    char *rangeHigh;                           /**< highest value, a decimal text */
    int32_t precision;                         /**< digits behind the decimal point */
    ZQCurrencyDetailList functionalCurrencies; /**< functional currencies */
    ZQCurrencyDetailList allowableCurrencies;  /**< currencies that may be entered */
} ZQCurrencyLimitsStruct;

/** Limits of a date field. */
typedef struct ZQDateLimitsStruct {
    int32_t minDate; /**< earliest day number */
    int32_t maxDate; /**< latest day number */
} ZQDateLimitsStruct;

/** Limits of a decimal field. */
typedef struct ZQDecimalLimitsStruct {
    char *rangeLow;    /**< lowest value, a decimal text */
    char *rangeHigh;   /**< highest value, a decimal text */
    int32_t precision; /**< digits behind the decimal point */
} ZQDecimalLimitsStruct;

/** Limits of a diary field. */
typedef struct ZQDiaryLimitsStruct {
    uint32_t fullTextOption; /**< 1 indexed, otherwise none */
} ZQDiaryLimitsStruct;

/** Limits of an enumeration or a bit mask. */
typedef struct ZQEnumLimitsStruct {
    uint32_t listStyle;   /**< 1 regular */
    ZQNameList valueList; /**< names of the values */
} ZQEnumLimitsStruct;

/** Limits of an integer field. */
typedef struct ZQIntegerLimitsStruct {
    int32_t rangeLow;  /**< lowest value */
    int32_t rangeHigh; /**< highest value */
} ZQIntegerLimitsStruct;

/** Limits of a real field. */
typedef struct ZQRealLimitsStruct {
    double rangeLow;   /**< lowest value */
    double rangeHigh;  /**< highest value */
    int32_t precision; /**< digits behind the decimal point */
} ZQRealLimitsStruct;

/** What a table field shows. */
typedef struct ZQTableLimitsStruct {
    uint32_t numColumns;         /**< number of columns */
    ZQQualifierStruct qualifier; /**< condition; `operation` 0 is none */
    uint32_t maxRetrieve;        /**< greatest number of rows */
    ZQNameType schema;           /**< form that the rows come from */
    ZQServerNameType server;     /**< its server */
} ZQTableLimitsStruct;

/** Limits of a view or display field. */
typedef struct ZQViewLimitsStruct {
    uint32_t maxLength; /**< greatest length in bytes */
} ZQViewLimitsStruct;

/** Limits of a field, by its data type. */
typedef struct ZQFieldLimitStruct {
    uint32_t dataType; /**< data type of the field, 0 for no limits */
    /** What `dataType` tells of. */
    union {
        ZQIntegerLimitsStruct integerLimits;     /**< 2 */
        ZQRealLimitsStruct realLimits;           /**< 3 */
        ZQCharacterLimitsStruct characterLimits; /**< 4 */
        ZQDiaryLimitsStruct diaryLimits;         /**< 5 */
        ZQEnumLimitsStruct enumLimits;           /**< 6 and 8 */
        ZQDecimalLimitsStruct decimalLimits;     /**< 10 */
        ZQAttachLimitsStruct attachLimits;       /**< 11 and 37 */
        ZQCurrencyLimitsStruct currencyLimits;   /**< 12 */
        ZQDateLimitsStruct dateLimits;           /**< 13 */
        ZQTableLimitsStruct tableLimits;         /**< 33 */
        ZQColumnLimitsStruct columnLimits;       /**< 34 */
        ZQViewLimitsStruct viewLimits;           /**< 42 and 43 */
    } u; /**< what `dataType` tells of */
} ZQFieldLimitStruct;

/** Where a field of a join form comes from. */
typedef struct ZQFieldMappingJoin {
    int32_t formIndex; /**< index of the member form */
    uint32_t realId;   /**< field id in that form */
} ZQFieldMappingJoin;

/** Where the data of a field come from. */
typedef struct ZQFieldMappingStruct {
    uint32_t fieldType; /**< 1 regular, 2 join, 3 view, 4 vendor */
    /** What `fieldType` tells of. */
    union {
        ZQFieldMappingJoin join; /**< 2 */
        ZQNameType name;         /**< 3 and 4: the name of the column */
    } u; /**< what `fieldType` tells of */
} ZQFieldMappingStruct;

/** A field of a form. */
typedef struct ZQFieldInfoStruct {
    ZQInternalId fieldId;                /**< field */
    ZQNameType fieldName;                /**< name of the field */
    ZQTimestamp modifiedDate;            /**< time of the last change */
    ZQFieldMappingStruct fieldMap;       /**< where the data come from */
    uint32_t dataType;                   /**< data type */
    uint32_t option;                     /**< entry mode: 1 required, 2 optional, 3 system, 4 display only */
    uint32_t createMode;                 /**< 1 open, 2 protected */
    ZQValueStruct defaultValue;          /**< default value */
    ZQPermissionList permissions;        /**< who may change it */
    ZQFieldLimitStruct limit;            /**< limits of the value */
    ZQDisplayInstanceList dInstanceList; /**< its look in the views */
    ZQAccessNameType owner;              /**< user who owns the object */
    ZQAccessNameType lastChanged;        /**< user who changed it last */
    char *helpText;                      /**< help text, or null */
    char *changeDiary;                   /**< coded change history, or null */
    int32_t xmlDocVersion;               /**< version of the definition, attribute "zqDocVersion" */
} ZQFieldInfoStruct;

/** A field that stands alone in a document; the same record as that of a field of a form. */
typedef ZQFieldInfoStruct ZQXMLField;

/** A list of fields. */
typedef struct ZQFieldInfoList {
    uint32_t numItems;        /**< number of elements */
    ZQFieldInfoStruct *items; /**< the elements */
} ZQFieldInfoList;

/** A view of a form. */
typedef struct ZQVuiInfoStruct {
    ZQInternalId vuiId;           /**< id of the view */
    ZQNameType vuiName;           /**< name of the view */
    ZQTimestamp modifiedDate;     /**< time of the last change */
    ZQPropList objPropList;       /**< properties of the object */
    ZQAccessNameType owner;       /**< user who owns the object */
    char locale[16];              /**< locale, at most 15 bytes */
    uint32_t vuiType;             /**< 0 none, 1 windows, 2 web, 3 web with fixed position, 4 wireless */
    ZQAccessNameType lastChanged; /**< user who changed it last */
    char *helpText;               /**< help text, or null */
    char *changeDiary;            /**< coded change history, or null */
} ZQVuiInfoStruct;

/** A list of views. */
typedef struct ZQVuiInfoList {
    uint32_t numItems;      /**< number of elements */
    ZQVuiInfoStruct *items; /**< the elements */
} ZQVuiInfoList;

/** A form. */
typedef struct ZQXMLSchema {
    ZQNameType name;                       /**< name of the object */
    int32_t xmlDocVersion;                 /**< version of the definition, attribute "zqDocVersion" */
    ZQAccessNameType owner;                /**< user who owns the object */
    ZQAccessNameType lastChanged;          /**< user who changed it last */
    ZQTimestamp modifiedDate;              /**< time of the last change */
    char *helpText;                        /**< help text, or null */
    char *changeDiary;                     /**< coded change history, or null */
    ZQPropList objPropList;                /**< properties of the object */
    ZQCompoundSchema schema;               /**< kind of the form */
    ZQEntryListFieldList resultListFields; /**< columns of result lists */
    ZQSortList sortList;                   /**< sort order */
    ZQIndexList indexList;                 /**< indexes */
    ZQNameType defaultVui;                 /**< name of the default view */
    ZQPermissionList permissions;          /**< who may see it and how */
    ZQInternalIdList subAdmins;            /**< groups of sub-administrators */
    ZQVuiInfoList vuiList;                 /**< views */
    ZQFieldInfoList fieldList;             /**< fields */
    uint32_t nextFieldId;                  /**< next free field id */
    uint32_t coreVersion;                  /**< version of the core fields */
    int32_t upgradeVersion;                /**< version of the last upgrade */
} ZQXMLSchema;

/** A filter. */
typedef struct ZQXMLFilter {
    ZQNameType name;                         /**< name of the object */
    int32_t xmlDocVersion;                   /**< version of the definition, attribute "zqDocVersion" */
    ZQAccessNameType owner;                  /**< user who owns the object */
    ZQAccessNameType lastChanged;            /**< user who changed it last */
    ZQTimestamp modifiedDate;                /**< time of the last change */
    char *helpText;                          /**< help text, or null */
    char *changeDiary;                       /**< coded change history, or null */
    ZQPropList objPropList;                  /**< properties of the object */
    uint32_t executionOrder;                 /**< order among the workflow of a form */
    ZQWorkflowConnectStruct workflowConnect; /**< forms that the object is bound to */
    uint32_t executeOn;                      /**< bit mask: 1 get, 2 modify, 4 submit, 8 delete, 16 merge, 32 guide */
    uint32_t enabled;                        /**< 0 switched off, 1 switched on */
    ZQQualifierStruct query;                 /**< run condition; `operation` 0 is none */
    ZQFilterActionList actionList;           /**< actions when the condition holds */
    ZQFilterActionList elseList;             /**< actions when it does not */
} ZQXMLFilter;

/** A support file of an active link. */
typedef struct ZQSupportFileInfoStruct {
    uint32_t fileType;          /**< 0 none, 1 external report */
    ZQInternalId fileId;        /**< id of the file */
    ZQTimestamp timestamp;      /**< time */
    uint32_t fileSize;          /**< number of bytes */
    unsigned char *fileContent; /**< the bytes, without a terminator, or null */
} ZQSupportFileInfoStruct;

/** A list of support files. */
typedef struct ZQSupportFileInfoList {
    uint32_t numItems;              /**< number of elements */
    ZQSupportFileInfoStruct *items; /**< the elements */
} ZQSupportFileInfoList;

/** An active link. */
typedef struct ZQXMLActiveLink {
    ZQNameType name;                         /**< name of the object */
    int32_t xmlDocVersion;                   /**< version of the definition, attribute "zqDocVersion" */
    ZQAccessNameType owner;                  /**< user who owns the object */
    ZQAccessNameType lastChanged;            /**< user who changed it last */
    ZQTimestamp modifiedDate;                /**< time of the last change */
    char *helpText;                          /**< help text, or null */
    char *changeDiary;                       /**< coded change history, or null */
    ZQPropList objPropList;                  /**< properties of the object */
    uint32_t executionOrder;                 /**< order among the workflow of a form */
    ZQWorkflowConnectStruct workflowConnect; /**< forms that the object is bound to */
    ZQInternalIdList groupList;              /**< groups that may run it */
    uint32_t executeOn;                      /**< bit mask of the events that run it */
    ZQInternalId controlFieldId;             /**< control field that runs it */
    ZQInternalId focusFieldId;               /**< field whose focus runs it */
    uint32_t enabled;                        /**< 0 switched off, 1 switched on */
    ZQQualifierStruct query;                 /**< run condition; `operation` 0 is none */
    ZQActiveLinkActionList actionList;       /**< actions when the condition holds */
    ZQActiveLinkActionList elseList;         /**< actions when it does not */
    ZQSupportFileInfoList supportFileList;   /**< support files */
} ZQXMLActiveLink;

/** An escalation. */
typedef struct ZQXMLEscalation {
    ZQNameType name;                         /**< name of the object */
    int32_t xmlDocVersion;                   /**< version of the definition, attribute "zqDocVersion" */
    ZQAccessNameType owner;                  /**< user who owns the object */
    ZQAccessNameType lastChanged;            /**< user who changed it last */
    ZQTimestamp modifiedDate;                /**< time of the last change */
    char *helpText;                          /**< help text, or null */
    char *changeDiary;                       /**< coded change history, or null */
    ZQPropList objPropList;                  /**< properties of the object */
    ZQEscalationTmStruct escalationTime;     /**< when it fires */
    ZQWorkflowConnectStruct workflowConnect; /**< forms that the object is bound to */
    uint32_t enabled;                        /**< 0 switched off, 1 switched on */
    ZQQualifierStruct query;                 /**< run condition; `operation` 0 is none */
    ZQFilterActionList actionList;           /**< actions when the condition holds */
    ZQFilterActionList elseList;             /**< actions when it does not */
} ZQXMLEscalation;

/** An owner of a container. */
typedef struct ZQContainerOwnerObjStruct {
    uint32_t ownerType;   /**< 0 none, 1 all, 2 form */
    ZQNameType ownerName; /**< name of the owner */
} ZQContainerOwnerObjStruct;

/** A list of owners of a container. */
typedef struct ZQContainerOwnerObjList {
    uint32_t numItems;                /**< number of elements */
    ZQContainerOwnerObjStruct *items; /**< the elements */
} ZQContainerOwnerObjList;

/** An external reference. */
typedef struct ZQReferenceExternal {
    ZQInternalIdList accessList;  /**< groups that may use it */
    ZQValueStruct referenceValue; /**< the value */
} ZQReferenceExternal;

/** A reference of a container. */
typedef struct ZQReferenceStruct {
    char *label;            /**< label, or null */
    char *description;      /**< description, or null */
    uint32_t referenceType; /**< kind of the reference */
    uint32_t dataSource;    /**< 0 internal, 1 external */
    /** What `dataSource` tells of. */
    union {
        ZQNameType referenceName;     /**< 0: name of the object */
        ZQReferenceExternal external; /**< 1 */
    } u; /**< what `dataSource` tells of */
} ZQReferenceStruct;

/** A list of references. */
typedef struct ZQReferenceList {
    uint32_t numItems;        /**< number of elements */
    ZQReferenceStruct *items; /**< the elements */
} ZQReferenceList;

/** A container. */
typedef struct ZQXMLContainer {
    ZQNameType name;                      /**< name of the object */
    int32_t xmlDocVersion;                /**< version of the definition, attribute "zqDocVersion" */
    ZQAccessNameType owner;               /**< user who owns the object */
    ZQAccessNameType lastChanged;         /**< user who changed it last */
    ZQTimestamp modifiedDate;             /**< time of the last change */
    char *helpText;                       /**< help text, or null */
    char *changeDiary;                    /**< coded change history, or null */
    ZQPropList objPropList;               /**< properties of the object */
    ZQPermissionList permissions;         /**< who may see it and how */
    ZQInternalIdList subAdmins;           /**< groups of sub-administrators */
    char *label;                          /**< label, or null */
    char *description;                    /**< description, or null */
    ZQContainerOwnerObjList ownerObjList; /**< objects that own the container */
    /** 1 active link guide, 2 application, 3 packing list, 4 filter guide, 5 web service. */
    uint32_t containerType;
    ZQReferenceList references;           /**< objects that the container refers to */
} ZQXMLContainer;

/** The fields that a data dictionary menu lists. */
typedef struct ZQCharMenuDDField {
    /**
     * Bit mask: 1 data, 2 trim, 4 control, 8 page, 16 page holder, 32 table, 64 column, 128 attachment, 256
     * attachment pool.
     */
    uint32_t fieldType;
    ZQNameType formName; /**< form */
} ZQCharMenuDDField;

/** The forms that a data dictionary menu lists. */
typedef struct ZQCharMenuDDForm {
    uint32_t formType;       /**< 0 all, 1 regular, 2 join, 3 view, 6 dialog, 8 vendor */
    ZQBoolean includeHidden; /**< whether hidden forms are listed */
} ZQCharMenuDDForm;

/** A menu drawn from the data dictionary. */
typedef struct ZQCharMenuDDStruct {
    ZQServerNameType serverName; /**< server */
    uint32_t nameType;           /**< 0 database name, 1 local name, 2 identifier */
    uint32_t valueFormat;        /**< form of the values, 0 to 11 */
    uint32_t structType;         /**< 1 forms, 2 fields */
    /** What `structType` tells of. */
    union {
        ZQCharMenuDDForm form;   /**< 1 */
        ZQCharMenuDDField field; /**< 2 */
    } u; /**< what `structType` tells of */
} ZQCharMenuDDStruct;

/** A menu read from a file. */
typedef struct ZQCharMenuFileStruct {
    uint32_t fileLocation; /**< 1 server, 2 client */
    char *fileName;        /**< path */
} ZQCharMenuFileStruct;

/** A list of menu items. */
typedef struct ZQCharMenuList {
    uint32_t numItems;           /**< number of elements */
    ZQCharMenuItemStruct *items; /**< the elements */
} ZQCharMenuList;

/** A menu drawn from a form. */
typedef struct ZQCharMenuQueryStruct {
    ZQNameType formName;           /**< form */
    ZQServerNameType serverName;   /**< server */
    ZQQualifierStruct qualifier;   /**< condition; `operation` 0 is none */
    ZQInternalId labelFieldIds[5]; /**< fields that give the labels of the levels, 0 for none */
    ZQInternalId valueFieldId;     /**< field that gives the value */
    ZQBoolean sortOnLabel;         /**< whether labels are sorted */
} ZQCharMenuQueryStruct;

/** A menu drawn by an SQL statement. */
typedef struct ZQCharMenuSQLStruct {
    ZQServerNameType serverName; /**< server */
    char *sqlCommand;            /**< SQL statement */
    int32_t labelIndexes[5];     /**< columns that give the labels of the levels, 0 for none */
    int32_t valueIndex;          /**< column that gives the value */
} ZQCharMenuSQLStruct;

/** A menu for the server's use alone. */
typedef struct ZQCharMenuSSStruct {
    ZQNameType name;               /**< name */
    ZQFieldValueList fieldValues1; /**< first list of values */
    ZQFieldValueList fieldValues2; /**< second list of values */
    ZQQualifierList qualifiers;    /**< conditions */
    char *text1;                   /**< first text, or null */
    char *text2;                   /**< second text, or null */
} ZQCharMenuSSStruct;

/** A menu. */
typedef struct ZQCharMenuStruct {
    uint32_t menuType; /**< kind of the menu, 0 for none */
    /** What `menuType` tells of. */
    union {
        ZQCharMenuList menuList;         /**< 1: typed in */
        ZQCharMenuQueryStruct menuQuery; /**< 2: drawn from a form */
        ZQCharMenuFileStruct menuFile;   /**< 3: read from a file */
        ZQCharMenuSQLStruct menuSQL;     /**< 4: drawn by an SQL statement */
        ZQCharMenuSSStruct menuSS;       /**< 5: the server's own */
        ZQCharMenuDDStruct menuDD;       /**< 6: drawn from the data dictionary */
    } u; /**< what `menuType` tells of */
} ZQCharMenuStruct;

/** A menu. Unlike in the other objects the diary stands ahead of the help text. */
typedef struct ZQXMLMenu {
    ZQNameType name;              /**< name of the object */
    int32_t xmlDocVersion;        /**< version of the definition, attribute "zqDocVersion" */
    ZQAccessNameType owner;       /**< user who owns the object */
    ZQAccessNameType lastChanged; /**< user who changed it last */
    ZQTimestamp modifiedDate;     /**< time of the last change */
    ZQPropList objPropList;       /**< properties of the object */
    char *changeDiary;            /**< coded change history, or null */
    char *helpText;               /**< help text, or null */
    uint32_t refreshCode;         /**< 1 on form connect, 2 on form open, 3 every 15 minutes */
    ZQCharMenuStruct menuDefn;    /**< the menu itself */
} ZQXMLMenu;

/** The views of a form, without the rest of it. */
typedef struct ZQXMLVUI {
    ZQNameType name;           /**< name of the form */
    int32_t xmlDocVersion;     /**< version of the definition, attribute "zqDocVersion" */
    ZQTimestamp modifiedDate;  /**< time of the last change */
    ZQVuiInfoList vuiList;     /**< views */
    ZQFieldInfoList fieldList; /**< fields */
} ZQXMLVUI;

/** A DSO pool. */
typedef struct ZQXMLDSOPool {
    ZQNameType name;              /**< name of the object */
    int32_t xmlDocVersion;        /**< version of the definition, attribute "zqDocVersion" */
    uint32_t enabled;             /**< 0 switched off, 1 switched on */
    uint32_t defaultPool;         /**< 1 for the default pool */
    uint32_t threadCount;         /**< number of threads */
    char *connection;             /**< connection, or null */
    ZQAccessNameType owner;       /**< user who owns the object */
    ZQAccessNameType lastChanged; /**< user who changed it last */
    ZQTimestamp modifiedDate;     /**< time of the last change */
    char *helpText;               /**< help text, or null */
    char *changeDiary;            /**< coded change history, or null */
    ZQPropList objPropList;       /**< properties of the object */
} ZQXMLDSOPool;

/** A DSO mapping. */
typedef struct ZQXMLDSOMapping {
    ZQNameType name;              /**< name of the object */
    int32_t xmlDocVersion;        /**< version of the definition, attribute "zqDocVersion" */
    ZQNameType fromForm;          /**< form that entries come from */
    ZQServerNameType fromServer;  /**< its server */
    ZQNameType toForm;            /**< form that entries go to */
    ZQServerNameType toServer;    /**< its server */
    uint32_t enabled;             /**< 0 switched off, 1 switched on */
    uint32_t updateCode;          /**< 0 immediately, 1 hourly, 2 daily, 3 on return, 4 no update */
    uint32_t transferMode;        /**< 0 data only, 1 ownership, 2 copy, 3 copy and delete */
    uint32_t mapType;             /**< 0 field ids, 1 custom, 2 field names */
    uint32_t returnMapType;       /**< as `mapType`, for the way back */
    uint32_t defaultMap;          /**< 1 for the default mapping */
    uint32_t duplicateAction;     /**< 0 error, 1 overwrite, 2 create new */
    uint32_t patternMatch;        /**< whether patterns are matched */
    uint32_t requiredFields;      /**< whether required fields are checked */
    uint32_t retryTime;           /**< time of retries */
    char *mapping;                /**< custom mapping, or null */
    char *returnMapping;          /**< custom mapping for the way back, or null */
    char *matchQualification;     /**< condition for a match, or null */
    ZQAccessNameType owner;       /**< user who owns the object */
    ZQAccessNameType lastChanged; /**< user who changed it last */
    ZQTimestamp modifiedDate;     /**< time of the last change */
    char *helpText;               /**< help text, or null */
    char *changeDiary;            /**< coded change history, or null */
    ZQPropList objPropList;       /**< properties of the object */
} ZQXMLDSOMapping;

/** One object of a parsed document, in a chain. */
struct ZQXMLObjectList {
    uint32_t objectType; /**< kind of the object, 0 while the node is unused */
    /** What `objectType` tells of. */
    union {
        ZQXMLSchema schema;         /**< 0x40000001 */
        ZQXMLFilter filter;         /**< 0x40000005 */
        ZQXMLActiveLink activeLink; /**< 0x40000006 */
        ZQXMLMenu menu;             /**< 0x40000008 */
        ZQXMLEscalation escalation; /**< 0x40000009 */
        ZQXMLDSOMapping dsoMapping; /**< 0x4000000A */
        ZQXMLContainer container;   /**< 0x4000000C */
        ZQXMLDSOPool dsoPool;       /**< 0x4000000D */
        ZQXMLVUI vui;               /**< 0x4000000E */
        ZQXMLField field;           /**< 0x4000000F */
    } object; /**< what `objectType` tells of */
    ZQXMLObjectList *next; /**< next object of the document, or null */
};

/** A parsed document, which owns the chain of its objects. */
typedef struct ZQXMLParsedStream {
    ZQXMLObjectList *objectList; /**< first object, or null */
} ZQXMLParsedStream;

/** An item of a menu. */
struct ZQCharMenuItemStruct {
    ZQNameType itemLabel; /**< label */
    uint32_t itemType;    /**< 0 none, 1 value, 2 sub-menu */
    /** What `itemType` tells of. */
    union {
        char *itemValue;             /**< 1 */
        ZQCharMenuStruct *childMenu; /**< 2 */
    } u; /**< what `itemType` tells of */
};

/** A list of kinds of forms. */
typedef struct ZQCompoundSchemaList {
    uint32_t numItems;       /**< number of elements */
    ZQCompoundSchema *items; /**< the elements */
} ZQCompoundSchemaList;

/** A list of field mappings. */
typedef struct ZQFieldMappingList {
    uint32_t numItems;           /**< number of elements */
    ZQFieldMappingStruct *items; /**< the elements */
} ZQFieldMappingList;

/** A list of limits. */
typedef struct ZQFieldLimitList {
    uint32_t numItems;         /**< number of elements */
    ZQFieldLimitStruct *items; /**< the elements */
} ZQFieldLimitList;

/** A list of menus. */
typedef struct ZQCharMenuStructList {
    uint32_t numItems;       /**< number of elements */
    ZQCharMenuStruct *items; /**< the elements */
} ZQCharMenuStructList;

#endif
