/**
 * @file
 * The records of workflow: assignments, the actions of filters and active links, what fires them.
 * Include zqxml/records.h.
 */
#ifndef ZQXML_RECORDS_ACTIONS_H
#define ZQXML_RECORDS_ACTIONS_H

#include "zqxml/records_core.h"

typedef struct ZQArithOpAssignStruct ZQArithOpAssignStruct; /**< defined below */
typedef struct ZQFunctionAssignStruct ZQFunctionAssignStruct; /**< defined below */
typedef struct ZQAssignFilterApiStruct ZQAssignFilterApiStruct; /**< defined below */

/** A value of automation. */
typedef struct ZQCOMValueStruct {
    char *valueIdentifier; /**< identifier, or null */
    uint32_t transId;      /**< transaction */
    uint32_t valueType;    /**< 0 none, 1 field, 2 value */
    /** What `valueType` tells of. */
    union {
        ZQInternalId fieldId; /**< 1: a field */
        ZQValueStruct value;  /**< 2: a value */
    } u; /**< what `valueType` tells of */
} ZQCOMValueStruct;

/** A field of some entry of a form. */
typedef struct ZQAssignFieldStruct {
    ZQServerNameType serverName; /**< server */
    ZQNameType formName;         /**< form */
    ZQQualifierStruct qualifier; /**< condition; `operation` 0 is none */
    uint32_t tag;                /**< 1 field, 4 status history, 6 currency part */
    /** What `tag` tells of. */
    union {
        ZQInternalId fieldId;                /**< 1 */
        ZQStatHistoryValue statHistory;      /**< 4 */
        ZQCurrencyPartStruct *currencyField; /**< 6 */
    } u; /**< what `tag` tells of */
    uint32_t noMatchOption; /**< what to do without a match: 1 error, 2 set null, 3 no action, 4 submit */
    /** What to do with several: 1 error, 2 set null, 3 use the first, 4 pick list, 5 modify all, 6 no action. */
    uint32_t multipleMatchOption;
} ZQAssignFieldStruct;

/** A value by an SQL statement. */
typedef struct ZQAssignSQLStruct {
    ZQServerNameType serverName;  /**< server */
    char *sqlCommand;             /**< SQL statement */
    uint32_t valueIndex;          /**< column of the result that gives the value */
    uint32_t noMatchOption;       /**< as of ZQAssignFieldStruct */
    uint32_t multipleMatchOption; /**< as of ZQAssignFieldStruct */
} ZQAssignSQLStruct;

/** A DDE conversation. */
typedef struct ZQDDEStruct {
    char *serviceName;   /**< service */
    char *topic;         /**< topic */
    char *item;          /**< item */
    uint32_t action;     /**< 1 execute, 2 poke, 3 request */
    char *pathToProgram; /**< program to start */
    char *command;       /**< command */
} ZQDDEStruct;

/** Where a new value comes from. */
typedef struct ZQAssignStruct {
    uint32_t assignType; /**< 0 none, otherwise the member of the union, from 1 on */
    /** What `assignType` tells of. */
    union {
        ZQValueStruct value;                /**< 1: a constant */
        ZQAssignFieldStruct *field;         /**< 2: a field of another form */
        char *process;                      /**< 3: the output of a process */
        ZQArithOpAssignStruct *arithOp;     /**< 4: arithmetic */
        ZQFunctionAssignStruct *function;   /**< 5: a function */
        ZQDDEStruct *dde;                   /**< 6: a DDE conversation */
        ZQAssignSQLStruct *sql;             /**< 7: an SQL statement */
        ZQAssignFilterApiStruct *filterApi; /**< 8: a filter API call */
    } u; /**< what `assignType` tells of */
} ZQAssignStruct;

/** Arithmetic of two assignments. */
struct ZQArithOpAssignStruct {
    uint32_t operation;          /**< 1 add, 2 subtract, 3 multiply, 4 divide, 5 modulo, 6 negate */
    ZQAssignStruct operandLeft;  /**< left operand; without meaning for 6 */
    ZQAssignStruct operandRight; /**< right operand */
};

/** A function call. */
struct ZQFunctionAssignStruct {
    uint32_t functionCode;         /**< 1 to 39 */
    uint32_t numItems;             /**< number of parameters */
    ZQAssignStruct *parameterList; /**< array of the parameters */
};

/** A value by a filter API call. */
struct ZQAssignFilterApiStruct {
    ZQNameType serviceName;      /**< name of the plug-in */
    uint32_t numItems;           /**< number of inputs */
    ZQAssignStruct *inputValues; /**< array of the inputs */
    uint32_t valueIndex;         /**< output that gives the value */
};

/** A field and its new value. */
typedef struct ZQFieldAssignStruct {
    ZQInternalId fieldId;      /**< field */
    ZQAssignStruct assignment; /**< new value */
} ZQFieldAssignStruct;

/** A field of another form and its new value. */
typedef struct ZQPushFieldsStruct {
    ZQAssignFieldStruct field; /**< field that is set */
    ZQAssignStruct assignment; /**< new value */
} ZQPushFieldsStruct;

/** What workflow is bound to. */
typedef struct ZQWorkflowConnectStruct {
    uint32_t type;        /**< 0 none, 1 a list of forms */
    ZQNameList *formList; /**< 1: the forms */
} ZQWorkflowConnectStruct;

/** Points of time in the calendar. */
typedef struct ZQDayStruct {
    uint32_t monthday; /**< bit mask of the days of the month, bit 0 is day 1 */
    uint32_t weekday;  /**< bit mask of the days of the week, bit 0 is Sunday */
    uint32_t hourmask; /**< bit mask of the hours, bit 0 is midnight */
    int32_t minute;    /**< minute of the hour */
} ZQDayStruct;

/** When an escalation fires. */
typedef struct ZQEscalationTmStruct {
    uint32_t escalationTmType; /**< 1 interval, 2 calendar */
    /** What `escalationTmType` tells of. */
    union {
        int32_t interval; /**< 1: seconds */
        ZQDayStruct date; /**< 2 */
    } u; /**< what `escalationTmType` tells of */
} ZQEscalationTmStruct;

/** Settings of a mail notification; each text may be null. */
typedef struct ZQFilterActionNotifyAdvanced {
    char *from;            /**< sender. Deliberate: written, but a document with it is refused with 300 */
    char *replyTo;         /**< address for replies */
    char *cc;              /**< copies; read, never written */
    char *bcc;             /**< blind copies; read, never written */
    char *organization;    /**< organization */
    char *mailboxName;     /**< mailbox */
    char *headerTemplate;  /**< template of the header */
    char *footerTemplate;  /**< template of the footer */
    char *contentTemplate; /**< template of the content */
} ZQFilterActionNotifyAdvanced;

/** A notification. */
typedef struct ZQFilterActionNotify {
    char *user;                             /**< who is notified */
    char *notifyText;                       /**< text */
    int32_t priority;                       /**< priority */
    int32_t mechanism;                      /**< way of delivery */
    int32_t mechanismXRef;                  /**< field that gives the way of delivery */
    char *subject;                          /**< subject */
    uint32_t fieldIncludeType;              /**< fields in the message: 0 none, 1 all, 2 selected, 3 changed */
    ZQInternalIdList fieldIdList;           /**< the selected fields */
    int32_t behavior;                       /**< behavior */
    int32_t permission;                     /**< permission */
    ZQFilterActionNotifyAdvanced *advanced; /**< settings of mail, or null */
} ZQFilterActionNotify;

/** A message of a filter. */
typedef struct ZQFilterStatusStruct {
    uint32_t messageType;  /**< 0 note, 1 warning, 2 error */
    int32_t messageNumber; /**< number of the message */
    char *messageText;     /**< text, or null */
} ZQFilterStatusStruct;

/** An SQL action. */
typedef struct ZQSQLStruct {
    ZQServerNameType serverName; /**< server */
    char *sqlCommand;            /**< SQL statement */
} ZQSQLStruct;

/** A jump in the execution order. */
typedef struct ZQGotoActionStruct {
    uint32_t tag;  /**< 1 field that holds the order, 2 order, 3 forward, 4 backward */
    int32_t value; /**< the field id, the order, or the number of steps */
} ZQGotoActionStruct;

/** A call of a guide. */
typedef struct ZQCallGuideStruct {
    ZQServerNameType serverName;   /**< server */
    ZQNameType guideName;          /**< guide */
    int32_t guideMode;             /**< mode */
    ZQInternalId loopTableFieldId; /**< table field that the guide loops over */
} ZQCallGuideStruct;

/** The end of a guide. */
typedef struct ZQExitGuideStruct {
    ZQBoolean closeAll; /**< whether all guides are left */
} ZQExitGuideStruct;

/** A jump to a label of a guide. */
typedef struct ZQGotoGuideLabelStruct {
    char *label; /**< label to go to */
} ZQGotoGuideLabelStruct;

/** A list of fields with their new values. */
typedef struct ZQFieldAssignList {
    uint32_t numItems;          /**< number of elements */
    ZQFieldAssignStruct *items; /**< the elements */
} ZQFieldAssignList;

/** A list of fields of other forms with their new values. */
typedef struct ZQPushFieldsList {
    uint32_t numItems;         /**< number of elements */
    ZQPushFieldsStruct *items; /**< the elements */
} ZQPushFieldsList;

/** An action of a filter or an escalation. */
typedef struct ZQFilterActionStruct {
    uint32_t action; /**< kind of the action, 1 to 11 */
    /** What `action` tells of. */
    union {
        ZQFilterActionNotify notify;      /**< 1 */
        ZQFilterStatusStruct message;     /**< 2 */
        char *logFile;                    /**< 3: file to log to */
        ZQFieldAssignList setFields;      /**< 4 */
        char *process;                    /**< 5: command line of the process */
        ZQPushFieldsList pushFields;      /**< 6 */
        ZQSQLStruct sql;                  /**< 7 */
        ZQGotoActionStruct gotoAction;    /**< 8 */
        ZQCallGuideStruct callGuide;      /**< 9 */
        ZQExitGuideStruct exitGuide;      /**< 10 */
        ZQGotoGuideLabelStruct gotoGuide; /**< 11 */
    } u; /**< what `action` tells of */
} ZQFilterActionStruct;

/** A parameter of a macro. */
typedef struct ZQMacroParmStruct {
    ZQNameType name; /**< name of the parameter */
    char *value;     /**< its value */
} ZQMacroParmStruct;

/** A list of macro parameters. */
typedef struct ZQMacroParmList {
    uint32_t numItems;        /**< number of elements */
    ZQMacroParmStruct *items; /**< the elements */
} ZQMacroParmList;

/** A macro. */
typedef struct ZQActiveLinkMacroStruct {
    ZQNameType macroName;       /**< name; 255 bytes may come without a terminator */
    char *macroText;            /**< text */
    ZQMacroParmList macroParms; /**< parameters */
} ZQActiveLinkMacroStruct;

/** A message of an active link. */
typedef struct ZQMessageStruct {
    uint32_t messageType;    /**< 0 note, 1 warning, 2 error, 5 prompt */
    int32_t messageNumber;   /**< number of the message */
    char *messageText;       /**< text, or null */
    ZQBoolean usePromptPane; /**< whether the prompt pane shows it */
} ZQMessageStruct;

/** A change of a field. */
typedef struct ZQFieldCharacteristics {
    ZQInternalId fieldId;  /**< field */
    char *charMenu;        /**< menu, or null */
    ZQPropList props;      /**< display properties */
    uint32_t focus;        /**< 0 unchanged, 1 set to the field */
    uint32_t accessOption; /**< 0 unchanged, 1 read only, 2 read and write, 3 disabled */
} ZQFieldCharacteristics;

/** A window to open. */
typedef struct ZQOpenDlgStruct {
    ZQServerNameType serverName;    /**< server */
    ZQNameType formName;            /**< form */
    ZQNameType viewLabel;           /**< view */
    ZQBoolean showCloseButton;      /**< whether there is a close button */
    ZQFieldAssignList inputFields;  /**< fields set when the window opens */
    ZQFieldAssignList outputFields; /**< fields set when it closes */
    /** 0 dialog, 1 search, 2 submit, 3 to 5 modify, 6 to 8 display (list, detail, split), 9 report. */
    uint32_t windowMode;
    char *targetLocation;           /**< target window, or null */
    ZQQualifierStruct query;        /**< condition; `operation` 0 is none */
    ZQBoolean noMatchContinue;      /**< whether to go on without a match */
    ZQBoolean suppressEmptyList;    /**< whether an empty list is not shown */
    ZQMessageStruct message;        /**< message without a match */
    uint32_t pollingInterval;       /**< polling interval */
    char *reportString;             /**< report, or null */
    ZQSortList sortList;            /**< sort order */
} ZQOpenDlgStruct;

/** Changes to commit. */
typedef struct ZQCommitChangesStruct {
    ZQNameType formName; /**< form */
} ZQCommitChangesStruct;

/** Windows to close. */
typedef struct ZQCloseWndStruct {
    ZQBoolean closeAll; /**< whether all are closed */
} ZQCloseWndStruct;

/** A pause. */
typedef struct ZQWaitStruct {
    char *continueButtonLabel; /**< label of the button */
} ZQWaitStruct;

/** A parameter of an automation method. */
typedef struct ZQCOMMethodParmStruct {
    char *parameterName;             /**< name */
    int32_t parameterType;           /**< type */
    ZQCOMValueStruct parameterValue; /**< value */
} ZQCOMMethodParmStruct;

/** A list of method parameters. */
typedef struct ZQCOMMethodParmList {
    uint32_t numItems;            /**< number of elements */
    ZQCOMMethodParmStruct *items; /**< the elements */
} ZQCOMMethodParmList;

/** An automation method. */
typedef struct ZQCOMMethodStruct {
    char *methodName;               /**< name */
    char *methodIdentifier;         /**< identifier */
    int32_t methodType;             /**< type */
    ZQCOMValueStruct returnValue;   /**< what it returns */
    ZQCOMMethodParmList parameters; /**< parameters */
} ZQCOMMethodStruct;

/** A list of methods. */
typedef struct ZQCOMMethodList {
    uint32_t numItems;        /**< number of elements */
    ZQCOMMethodStruct *items; /**< the elements */
} ZQCOMMethodList;

/** An automation action. */
typedef struct ZQAutomationStruct {
    char *automationServerName; /**< automation server */
    char *classID;              /**< class */
    char *action;               /**< action */
    ZQBoolean visible;          /**< whether it is shown */
    ZQCOMMethodList methods;    /**< methods to call */
} ZQAutomationStruct;

/** An action of an active link. */
typedef struct ZQActiveLinkActionStruct {
    uint32_t action; /**< kind of the action, 1 to 17; the numbers differ from those of a filter */
    /** What `action` tells of. */
    union {
        ZQActiveLinkMacroStruct macro;          /**< 1 */
        ZQFieldAssignList setFields;            /**< 2 */
        char *process;                          /**< 3: command line of the process */
        ZQMessageStruct message;                /**< 4 */
        ZQFieldCharacteristics characteristics; /**< 5 */
        ZQDDEStruct dde;                        /**< 6 */
        ZQPushFieldsList pushFields;            /**< 7 */
        ZQSQLStruct sql;                        /**< 8 */
        ZQAutomationStruct automation;          /**< 9 */
        ZQOpenDlgStruct openDialog;             /**< 10 */
        ZQCommitChangesStruct commitChanges;    /**< 11 */
        ZQCloseWndStruct closeWindow;           /**< 12 */
        ZQCallGuideStruct callGuide;            /**< 13 */
        ZQExitGuideStruct exitGuide;            /**< 14 */
        ZQGotoGuideLabelStruct gotoGuide;       /**< 15 */
        ZQWaitStruct wait;                      /**< 16 */
        ZQGotoActionStruct gotoAction;          /**< 17 */
    } u; /**< what `action` tells of */
} ZQActiveLinkActionStruct;

/** A list of bindings of workflow. */
typedef struct ZQWorkflowConnectList {
    uint32_t numItems;              /**< number of elements */
    ZQWorkflowConnectStruct *items; /**< the elements */
} ZQWorkflowConnectList;

/** A list of filter actions. */
typedef struct ZQFilterActionList {
    uint32_t numItems;           /**< number of elements */
    ZQFilterActionStruct *items; /**< the elements */
} ZQFilterActionList;

/** A list of active link actions. */
typedef struct ZQActiveLinkActionList {
    uint32_t numItems;               /**< number of elements */
    ZQActiveLinkActionStruct *items; /**< the elements */
} ZQActiveLinkActionList;

/** A list of lists of active link actions. */
typedef struct ZQActiveLinkActionListList {
    uint32_t numItems;             /**< number of elements */
    ZQActiveLinkActionList *items; /**< the elements */
} ZQActiveLinkActionListList;

#endif
