#!/usr/bin/env python3
"""Checks that the example documents are exactly what the library's writers print.

usage: layout_test.py EXAMPLES_DIR

Each document is parsed, judged by a table of the elements that the writers know, printed again by a plain printer of
its own and compared byte by byte. Then the names that a listing must give are compared with names.json, and the list
at the end of the tables says what must occur in the examples at least once. Exit status: 0 good, 1 faults found.
"""
import base64
import json
import pathlib
import re
import sys
import xml.parsers.expat

HERE = pathlib.Path(__file__).resolve().parent
NAMESPACE = "urn:quorin:schemas:zqs"
INSTANCE = "http://www.w3.org/2001/XMLSchema-instance"
PLAIN_HEADER = b'<?xml version="1.0" encoding="windows-1252"?>' + b" " * 29 + b"\n<root>\n"
UTF8_HEADER = b'<?xml version="1.0" encoding="utf-8"?>\n<root>\n'

# The children of each element, in the writers' order. Suffixes: none always there, "?" may be missing, "!" left out
# when empty, "+" at least one, "*" any number, "~" always there and may be empty. "a=b" is element a with the content
# of row b, "(a|b)" one of several, "@a" all of row a. An element without a row holds text.
ROWS = """
root: (form|filter|activeLink|menu|escalation|distributedMapping|container|distributedPool|vui|field=loneField)*
@head: owner! lastModifiedBy! modifiedDate helpText? changeHistory? objectProperties?
@flow: enabled runIfQualification=condition?

form: formName! owner! lastModifiedBy! modifiedDate helpText! changeHistory? objectProperties? compoundForm \
      resultListFields? sortList=sorts? formIndexList? defaultVUI! viewPermissionList=viewPermissions? \
      subAdminAccessList=groups? fields views nextFieldID coreVersion upgradeVersion
compoundForm: (regularForm|joinForm|viewForm|dialogForm|vendorForm)
regularForm:
joinForm: primaryFormName secondaryFormName joinOption joinQualifier=condition?
viewForm: tableName keyFieldName
dialogForm:
vendorForm: vendorName tableName
fields: field*
field: definition
loneField: definition
definition: fieldName fieldID owner! lastModifiedBy! modifiedDate helpText? changeHistory? entryMode? createMode? \
            defaultValue=constant? fieldMapping? modifyPermissionList? displayInstanceList? limits?
fieldMapping: (regular=mapRegular|join=mapJoin|view=mapColumn|vendor=mapColumn)
mapRegular:
mapJoin: formIndex=memberIndex fieldID
mapColumn: fieldName
limits.integer: lowRange=whole highRange=whole
limits.real: lowRange=number highRange=number precision
limits.character: maximumLength fullTextOption queryByExample pattern! menuStyle menuNameReference!
limits.diary: fullTextOption
limits.enumeration: regular=choices
limits.bitmask: regular=choices
limits.decimal: lowRange=decimal highRange=decimal precision
limits.attachment: maximumLength attachmentType
limits.attachmentPool: maximumLength attachmentType
limits.currency: lowRange=decimal highRange=decimal precision allowableCurrencies functionalCurrencies
limits.date: minimumDate maximumDate
limits.table: serverName formName dataQualification=condition? numberOfColumns maximumRows!
limits.column: parentID dataFieldID dataSource columnLength!
limits.viewField: maximumLength
limits.displayField: maximumLength
choices: valueList=choiceList
choiceList: value=choice+

views: view*
view: viewName viewID owner~ lastModifiedBy~ modifiedDate helpText? changeHistory? properties? locale! vuiType
vui: formName! modifiedDate views fields=viewFields
viewFields: field=viewField*
viewField: fieldID displayInstanceList?
displayInstanceList: commonProperties? displayInstance+
displayInstance: viewID displayProperties

changeHistory: changeEntry*
changeEntry: entry~
objectProperties: property+
commonProperties: property+
displayProperties: property+
properties: property+
propertyList: property*
property: value=constant tag
resultListFields: resultListField+
resultListField: fieldID fieldSeparator! fieldWidth
sorts: sort+
sortList: sort*
sort: fieldID sortOrder
formIndexList: formIndex+
formIndex: indexName uniqueIndex fieldIDList
fieldIDList: fieldID+
viewPermissions: viewPermission+
viewPermissionList: viewPermission*
viewPermission: groupID viewRights
modifyPermissionList: modifyPermission+
modifyPermission: groupID modifyRights
groups: groupID+
groupList: groupID*
supportFileList: supportFile+
supportFile: fileType fileID content!

constant: (nullValue|keywordValue|integerValue|realValue|characterValue|diaryValue|enumValue|timeValue|maskValue|\
byteList|decimalValue|attachmentValue|currency|dateValue|timeOfDayValue|unsignedLongValue|coordinateList|viewValue|\
displayValue)
nullValue:
byteList: bytes!
attachmentValue: attachmentName (fileName|attachmentData)
currency: currencyValue~ code~ conversionDate
coordinateList: coordinate*
coordinate: X Y

condition: (and=pair|or=pair|not=condition|relationalOperation|fieldID)
pair: left=condition right=condition
relationalOperation: operation left=operand right=operand
operand: (fieldID|value=constant|arithmeticOperation|statusHistoryValue|valueList=constants|transactionValueFieldID|\
databaseValueFieldID|variable|queryValue|currentValueFieldID)
arithmeticOperation: operation left=operand? right=operand
statusHistoryValue: statusState statusInfo
constants: value=constant*
queryValue: formName~ serverName~ queryQualification=condition? valueFieldID multipleMatchOption

assignment: (value=constant|field=source|process|arithmetic|function|dde|sql=assignSQL|filterAPI)
source: serverName~ formName~ qualification=condition? (fieldID|statusHistoryValue) noMatchOption multipleMatchOption
process: command~
arithmetic: operation left=assignment? right=assignment
function: functionType functionParameterList?
functionParameterList: functionParameter=assignment+
dde: serviceName~? topic~? item~? action=ddeAction pathToProgram~? command~?
assignSQL: serverName~ sqlCommand~ valueIndex noMatchOption multipleMatchOption
filterAPI: serviceName~ inputValueList? valueIndex
inputValueList: inputValue=assignment+
setField: fieldID fieldValue=assignment
inputField: fieldID fieldValue=assignment
outputField: fieldID fieldValue=assignment

filter: filterName! @head executionOrder workflowConnect? executeOn~ @flow ifActions=filterActions? \
        elseActions=filterActions?
escalation: escalationName! @head escalationTime workflowConnect? @flow ifActions=filterActions? \
            elseActions=filterActions?
workflowConnect: formNameList
formNameList: formName+
escalationTime: (interval|time=calendar)
calendar: daysOfMonth! daysOfWeek! hoursOfDay! minute
filterActions: action=filterAction+
filterAction: (notify|message=filterMessage|logToFile|setFieldList|runProcess|pushFieldList|sql|goto|callGuide|\
exitGuide|gotoGuide)
notify: user~ notifyText! priority mechanism mechanismXRef subject~ behavior permission replyTo~? organization~? \
        mailboxName~? headerTemplate~? contentTemplate~? footerTemplate~? fieldIncludeType fieldIDList=notifyFields?
notifyFields: fieldID=paddedID+
filterMessage: messageType messageText! messageNumber
logToFile: fileName
setFieldList: setField+
runProcess: command
pushFieldList: pushField+
pushField: targetField=source targetFieldValue=assignment
sql: serverName~ sqlCommand~
goto: executionOrder=goal
goal: (fieldIDReference|absoluteOrder|offsetForward|offsetBackward)
callGuide: serverName~ guideName~ guideMode loopTableFieldID
exitGuide: closeAll
gotoGuide: label

activeLink: activeLinkName! @head executionOrder workflowConnect? accessList=groups? executeOn controlFieldID \
            focusFieldID @flow ifActions=linkActions? elseActions=linkActions? supportFileList?
linkActions: action=linkAction+
linkAction: (macro|setFieldList|runProcess|message=linkMessage|changeField|dde|pushFieldList|sql|oleAutomation|\
openWindow|commitChanges|closeWindow|callGuide|exitGuide|gotoGuide|wait|goto)
macro: macroName~ macroText~ macroParameterList
macroParameterList: macroParameter*
macroParameter: name value=macroValue
linkMessage: messageType messageText! messageNumber usePromptPane
changeField: fieldID menuNameReference! propertyList focus accessOption
openWindow: serverName~ formName~ viewLabel~ showCloseButton inputFieldList? outputFieldList? windowMode \
            targetLocation~ qualification=anyCondition noMatchContinue suppressEmptyList message=linkMessage \
            pollingInterval reportString! sortList
inputFieldList: inputField+
outputFieldList: outputField+
anyCondition: (and=pair|or=pair|not=condition|relationalOperation|fieldID)?
commitChanges: formName~
closeWindow: closeAll
wait: continueButtonLabel!
oleAutomation: automationServerName~ classID~ action=text~ visible comMethodList
comMethodList: comMethod*
comMethod: methodName~ methodIdentifier~ methodType methodReturnValue=comValue methodParameterList
methodParameterList: methodParameter*
methodParameter: parameterName~ parameterType parameterValue=comValue
comValue: valueIdentifier~ transID (fieldID|value=constant)?

@menu: menuName! owner! lastModifiedBy! modifiedDate objectProperties? changeHistory? helpText? menuRefresh
menuRefresh: refreshType
menu.characterMenu: @menu characterMenu
characterMenu: menuItem*
menuItem: itemLabel (itemValue~|menuItems)?
menuItems: menuItem+
menu.queryMenu: @menu serverName~ formName~ menuLabelFieldIDLv1? menuLabelFieldIDLv2? menuLabelFieldIDLv3? \
                menuLabelFieldIDLv4? menuLabelFieldIDLv5? menuValueFieldID sortOnLabel qualifier=condition?
menu.sqlMenu: @menu serverName~ menuLabelDBColumnIndexLv1? menuLabelDBColumnIndexLv2? menuLabelDBColumnIndexLv3? \
              menuLabelDBColumnIndexLv4? menuLabelDBColumnIndexLv5? menuValueDBColIndex sqlCommand~
menu.fileMenu: @menu fileName=menuFile
menu.dataDictionaryMenu: @menu serverName~ nameType valueFormat (formItem|fieldItem)
formItem: formType includeHidden
fieldItem: fieldType~ formName!

container: containerName! @head viewPermissionList subAdminAccessList=groupList ownerObjectList label! description! \
           containerType referenceList?
ownerObjectList: ownerObject*
ownerObject: ownerType ownerName~
referenceList: reference+
reference: (internalReference|externalReference)
internalReference: label~? description~? referenceType=objectWord referenceName
externalReference: label~? description~? referenceType accessList=groups? referenceValue=constant

@dsoHead: owner! lastModifiedBy! modifiedDate helpText! changeHistory? objectProperties?
distributedMapping: distributedMappingName! @dsoHead fromServer! fromForm! toServer! toForm! enabled updateCode \
                    transferMode mapType returnMapType defaultMap duplicateAction patternMatch requiredFields \
                    retryTime mapping! returnMapping! matchQualification!
distributedPool: distributedPoolName! @dsoHead enabled threadCount connection! defaultPool
"""

# What the text elements hold. A key is the content's name in the table above, or that of its parent, "/" and its own.
TEXTS = """
formName owner lastModifiedBy helpText defaultVUI primaryFormName secondaryFormName tableName keyFieldName vendorName
fieldName pattern menuNameReference serverName choice viewName locale entry fieldSeparator indexName characterValue
diaryValue attachmentName fileName viewValue displayValue currencyValue code command serviceName topic item
pathToProgram sqlCommand filterName escalationName activeLinkName containerName menuName distributedMappingName
distributedPoolName user notifyText subject replyTo organization mailboxName headerTemplate contentTemplate
footerTemplate messageText guideName label macroName macroText name macroValue viewLabel targetLocation reportString
continueButtonLabel automationServerName classID text methodName methodIdentifier parameterName valueIdentifier
itemLabel itemValue menuFile description ownerName referenceName fromServer fromForm toServer toForm mapping
returnMapping matchQualification connection
""".split()

UNSIGNED = """
keywordValue enumValue maskValue unsignedLongValue X Y groupID viewID fieldWidth definition/fieldID
""".split()
SIGNED = """
fieldID nextFieldID coreVersion upgradeVersion memberIndex whole precision maximumLength minimumDate maximumDate
numberOfColumns maximumRows parentID dataFieldID columnLength tag fileID integerValue timeValue dateValue
timeOfDayValue conversionDate statusState transactionValueFieldID databaseValueFieldID currentValueFieldID variable
valueFieldID valueIndex executionOrder interval minute priority mechanism mechanismXRef behavior permission
messageNumber fieldIDReference absoluteOrder offsetForward offsetBackward guideMode loopTableFieldID controlFieldID
focusFieldID pollingInterval methodType transID parameterType referenceType retryTime threadCount
menuLabelFieldIDLv1 menuLabelFieldIDLv2 menuLabelFieldIDLv3 menuLabelFieldIDLv4 menuLabelFieldIDLv5 menuValueFieldID
menuLabelDBColumnIndexLv1 menuLabelDBColumnIndexLv2 menuLabelDBColumnIndexLv3 menuLabelDBColumnIndexLv4
menuLabelDBColumnIndexLv5 menuValueDBColIndex
""".split()
FORMS = {
    "modifiedDate": r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ",
    "realValue": r"-?\d+\.\d{6}",
    "number": r"-?\d+(\.\d+)?(e[-+]\d\d)?",
    "decimal": r"-?\d+(\.\d+)?",
    "decimalValue": r"-?\d+(\.\d+)?",
    "allowableCurrencies": r"\d+\\([A-Z]{3}\\\d+\\)*",
    "functionalCurrencies": r"\d+\\([A-Z]{3}\\\d+\\)*",
    "paddedID": r"\d+ ",
    "daysOfMonth": r"\d+( \d+)*",
    "hoursOfDay": r"\d+( \d+)*",
}
BASE64 = ["bytes", "attachmentData", "content"]

YES_NO = "false true"
MAP_TYPE = "fieldIDs custom fieldNames"
ARITHMETIC = "add subtract multiply divide modulo negate"
WORDS = {
    "joinOption": "inner outer",
    "entryMode": "required optional system displayOnly",
    "createMode": "open protected",
    "fullTextOption": "none indexed",
    "queryByExample": "anyMatch leadingMatch equalityMatch",
    "menuStyle": "append overwrite",
    "attachmentType": "embeded link",
    "dataSource": "dataField displayField",
    "vuiType": "none windows web webFixedPosition wireless",
    "sortOrder": "ascending descending",
    "uniqueIndex": YES_NO,
    "viewRights": "none visible hidden",
    "modifyRights": "none readOnly readWrite",
    "fileType": "none externalReport",
    "relationalOperation/operation": "equal greater greaterEqual less lessEqual notEqual like in",
    "arithmeticOperation/operation": ARITHMETIC,
    "arithmetic/operation": ARITHMETIC,
    "statusInfo": "user time",
    "queryValue/multipleMatchOption": "error first set",
    "noMatchOption": "error setNull noAction submit",
    "multipleMatchOption": "error setNull useFirstMatch displayPickList modifyAll noAction",
    "functionType": "date time month day year workday hour minute second truncate round convert length upper lower "
                    "substring left right leftTrim rightTrim leftPad rightPad replace strstr min max columnSum "
                    "columnCount columnAvg columnMin columnMax dateAdd dateDiff dateName dateNum currencyConvert "
                    "currencySetDate currencySetType currencySetValue",
    "ddeAction": "execute poke request",
    "enabled": YES_NO,
    "fieldIncludeType": "none all selected changed",
    "filterMessage/messageType": "note warning error",
    "linkMessage/messageType": "note warning error prompt",
    "usePromptPane": YES_NO,
    "closeAll": YES_NO,
    "focus": "unchanged setToField",
    "accessOption": "unchanged readOnly readWrite disabled",
    "showCloseButton": YES_NO,
    "windowMode": "dialog search submit modifyListOnly modifyDetailOnly modifySplitWindow displayListOnly "
                  "displayDetailOnly displaySplitWindow report",
    "noMatchContinue": YES_NO,
    "suppressEmptyList": YES_NO,
    "visible": YES_NO,
    "refreshType": "onFormConnect onFormOpen every15Minutes",
    "sortOnLabel": YES_NO,
    "nameType": "databaseName localName identifier",
    # "identifier" is a word of the format too, but it is printed as "none".
    "valueFormat": "none name nameQuotes nameDollarSigns IDName local localQuotes localDollarSigns IDLocal nameLocal "
                   "localName",
    "formType": "all regular join view dialog vendor",
    "includeHidden": YES_NO,
    "containerType": "activeLinkGuide application packingList filterGuide webService",
    "ownerType": "none all form",
    # "none" and "all" can be printed but not read.
    "objectWord": "form filter escalation activeLink container menu",
    "updateCode": "immediately hourly daily onReturn noUpdate",
    "transferMode": "dataOnly ownership copy copyDelete",
    "mapType": MAP_TYPE,
    "returnMapType": MAP_TYPE,
    "defaultMap": YES_NO,
    "duplicateAction": "error overwrite createNew",
    "patternMatch": YES_NO,
    "requiredFields": YES_NO,
    "defaultPool": YES_NO,
    "definition xsi:type": "integer real character diary enumeration dateTime bitmask decimal attachment currency "
                           "date timeOfDayValue joinField trim control table column page pageHolder attachmentPool "
                           "viewField displayField",
    "byteList type": "userDefined windowsBitmap JPEG TIFF TARGA PCX localizedFile authenticationString",
    "menu xsi:type": "characterMenu queryMenu fileMenu sqlMenu dataDictionaryMenu",
    "menuFile fileLocation": "server client",
}
# Several words in one text, in this order, one blank between two; a field mask has a blank behind each word.
WORD_LISTS = {
    "filter/executeOn": "getEntry modify submit delete merge guide",
    "activeLink/executeOn": "none button return submit modify display modifyAll menuChoice menuOpen loseFocus setDefault "
                            "query afterModify afterSubmit gainFocus windowOpen windowClose undisplay copySubmit "
                            "windowLoaded onInterval",
    "daysOfWeek": "sunday monday tuesday wednesday thursday friday saturday",
    "fieldType": "data trim control page pageHolder table column attachment attachmentPool",
}

OBJECT_ATTRIBUTES = ["xmlns", "xmlns:xsi", "xsi:schemaLocation", "zqDocVersion"]
ATTRIBUTES = {
    "menu": ["xmlns", "xmlns:xsi", "xsi:schemaLocation", "xsi:type", "zqDocVersion"],
    "definition": ["xsi:type"],
    "byteList": ["type"],
    "attachmentValue": ["compressedSize", "originalSize"],
    "changeEntry": ["modifiedDate", "userName"],
    "menuFile": ["fileLocation"],
}
ATTRIBUTES.update({kind: OBJECT_ATTRIBUTES for kind in
                   "form filter activeLink escalation distributedMapping container distributedPool vui loneField".split()})

# A reader keeps no more bytes of these than said.
SIZES = {254: "formName defaultVUI primaryFormName secondaryFormName keyFieldName vendorName fieldName choice viewName "
              "indexName filterName escalationName activeLinkName containerName menuName distributedMappingName "
              "distributedPoolName guideName name macroName viewLabel itemLabel ownerName referenceName fromForm toForm "
              "menuNameReference filterAPI/serviceName",
         255: "tableName", 64: "serverName fromServer toServer", 30: "owner lastModifiedBy userName", 15: "locale",
         9: "fieldSeparator", 3: "code"}

# What the examples show: a sentence, the place, and what must occur there.
SHOWN = [
    ("every object kind", "root", "form filter activeLink menu escalation distributedMapping container distributedPool "
                                  "vui field"),
    ("every kind of form", "compoundForm", "regularForm joinForm viewForm dialogForm vendorForm"),
    ("every data type of a field", "definition xsi:type", WORDS["definition xsi:type"]),
    ("limits of every data type that has some", "limits", "integer real character diary enumeration bitmask decimal "
     "attachment attachmentPool currency date table column viewField displayField"),
    ("every way to map a field", "fieldMapping", "regular join view vendor"),
    ("every kind of view", "vuiType", WORDS["vuiType"]),
    ("every list of a form", "form", "resultListFields sortList formIndexList viewPermissionList subAdminAccessList "
                                     "changeHistory objectProperties"),
    ("every view permission", "viewRights", WORDS["viewRights"]),
    ("every change permission", "modifyRights", WORDS["modifyRights"]),
    ("every type of constant", "constant", "nullValue keywordValue integerValue realValue characterValue diaryValue "
     "enumValue timeValue maskValue byteList decimalValue attachmentValue currency dateValue timeOfDayValue "
     "unsignedLongValue coordinateList viewValue displayValue"),
    ("every type of byte list", "byteList type", WORDS["byteList type"]),
    ("an attachment by name and one by content", "attachmentValue", "fileName attachmentData"),
    ("every form of a condition", "condition", "and or not relationalOperation fieldID"),
    ("every relation", "relationalOperation/operation", WORDS["relationalOperation/operation"]),
    ("every operand", "operand", "fieldID value arithmeticOperation statusHistoryValue valueList "
     "transactionValueFieldID databaseValueFieldID variable queryValue currentValueFieldID"),
    ("every arithmetic of a condition", "arithmeticOperation/operation", ARITHMETIC),
    ("every query match", "queryValue/multipleMatchOption", WORDS["queryValue/multipleMatchOption"]),
    ("both parts of the status history", "statusInfo", "user time"),
    ("every source of an assignment", "assignment", "value field process arithmetic function dde sql filterAPI"),
    ("every arithmetic of an assignment", "arithmetic/operation", ARITHMETIC),
    ("every function", "functionType", WORDS["functionType"]),
    ("every choice without a match", "noMatchOption", WORDS["noMatchOption"]),
    ("every choice with several matches", "multipleMatchOption", WORDS["multipleMatchOption"]),
    ("every filter action", "filterAction", "notify message logToFile setFieldList runProcess pushFieldList sql goto "
                                            "callGuide exitGuide gotoGuide"),
    ("every active link action", "linkAction", "macro setFieldList runProcess message changeField dde pushFieldList sql "
     "oleAutomation openWindow commitChanges closeWindow callGuide exitGuide gotoGuide wait goto"),
    ("actions for both outcomes of a filter", "filter", "ifActions elseActions"),
    ("actions for both outcomes of an escalation", "escalation", "ifActions elseActions"),
    ("actions for both outcomes of an active link", "activeLink", "ifActions elseActions supportFileList"),
    ("every goal of a goto", "goal", "fieldIDReference absoluteOrder offsetForward offsetBackward"),
    ("every window", "windowMode", WORDS["windowMode"]),
    ("every part of an automation value", "comValue", "fieldID value"),
    ("an interval and a calendar", "escalationTime", "interval time"),
    ("every occasion of a filter", "filter/executeOn", WORD_LISTS["filter/executeOn"]),
    ("every occasion of an active link", "activeLink/executeOn", WORD_LISTS["activeLink/executeOn"]),
    ("every kind of menu", "menu xsi:type", WORDS["menu xsi:type"]),
    ("values and menus within a menu", "menuItem", "itemValue menuItems"),
    ("both lists of the data dictionary", "menu.dataDictionaryMenu", "formItem fieldItem"),
    ("every kind of container", "containerType", WORDS["containerType"]),
    ("every owner of a container", "ownerType", WORDS["ownerType"]),
    ("both kinds of reference", "reference", "internalReference externalReference"),
    ("every object that a reference names", "objectWord", WORDS["objectWord"]),
    ("every moment of a transfer", "updateCode", WORDS["updateCode"]),
    ("every manner of a transfer", "transferMode", WORDS["transferMode"]),
    ("every kind of mapping", "mapType", MAP_TYPE),
    ("every answer to a duplicate", "duplicateAction", WORDS["duplicateAction"]),
    ("every escape, a control character, a tab, a line break, other letters", "text",
     "& < > \" control tab newline non-ascii"),
]


class Element:
    def __init__(self, name, attributes, line):
        self.name, self.attributes, self.line = name, attributes, line
        self.children, self.text = [], ""


def parse(data):
    """Returns the document element; attributes stay in the order of the text."""
    top, stack = [], []

    def start(name, flat):
        element = Element(name, list(zip(flat[::2], flat[1::2])), parser.CurrentLineNumber)
        (stack[-1].children if stack else top).append(element)
        stack.append(element)

    def text(data):
        stack[-1].text += data

    parser = xml.parsers.expat.ParserCreate()
    parser.ordered_attributes = True
    parser.StartElementHandler = start
    parser.EndElementHandler = lambda name: stack.pop()
    parser.CharacterDataHandler = text
    parser.Parse(data, True)
    return top[0]


def escaped(text):
    """The text as the writers print it: four characters by name, control characters as U+F8E0 to U+F8FE."""
    named = {"&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;"}
    return "".join(named.get(c) or ("&#x%X;" % ord(c) if "\uf8e0" <= c <= "\uf8fe" else c) for c in text)


def printed(element, level, parent=""):
    tabs = "\t" * level
    names = sorted(element.attributes, key=lambda pair: pair[0].encode("utf-16-be"))
    start = tabs + "<" + element.name + "".join(' %s="%s"' % pair for pair in names)
    end = "</" + element.name + ">\n"
    if element.children:
        return start + ">\n" + "".join(printed(c, level + 1, element.name) for c in element.children) + tabs + end
    # The parts of a currency have their text node even when it is empty.
    if element.text or parent == "currency":
        return start + ">" + escaped(element.text) + end
    return start + "/>\n"


def printed_document(root, header):
    return header + "".join(printed(c, 1) for c in root.children).encode() + b"</root>\n"


def base64_lines(data):
    return "".join(base64.b64encode(data[i:i + 57]).decode() + "\n" for i in range(0, len(data), 57))


def read_rows():
    """Makes of each row a pattern over the children's names, and the content of each child."""
    raw = dict(row.split(":", 1) for row in ROWS.replace("\\\n", "").strip().splitlines() if row)
    shapes, left_out, may_be_empty = {}, {}, {}
    for row, items in raw.items():
        if row[0] == "@":
            continue
        while "@" in items:
            items = re.sub(r"@\w+", lambda m: raw[m[0]], items)
        pattern, contents, filled, empty = "", {}, set(), set()
        for item in items.split():
            body, suffix = re.fullmatch(r"(.*?)([?!+*~]*)", item).groups()
            choices = body.strip("()").split("|")
            for choice in choices:
                name, _, content = choice.rstrip("~").partition("=")
                contents[name] = content or name
                if "!" in suffix:
                    filled.add(name)
                if "~" in suffix or choice.endswith("~"):
                    empty.add(name)
            repeat = {"": "", "~": "", "?": "?", "~?": "?", "!": "?", "+": "+", "*": "*"}[suffix]
            pattern += "(?:" + "|".join(re.escape(c.rstrip("~").split("=")[0]) + " " for c in choices) + ")" + repeat
        shapes[row], left_out[row], may_be_empty[row] = (re.compile(pattern), contents), filled, empty
    return shapes, left_out, may_be_empty


SHAPES, LEFT_OUT, MAY_BE_EMPTY = read_rows()
# Words and numbers stand in these elements even when they are written empty.
FREE_EMPTY = {"helpText", "characterValue", "diaryValue", "viewValue", "displayValue", "attachmentName"}
SIZE_OF = {name: size for size, names in SIZES.items() for name in names.split()}


class Judge:
    """Walks one document, collects its faults and adds what occurs to `seen`."""

    def __init__(self, file, vocabulary, seen):
        self.file, self.vocabulary, self.seen, self.faults = file, vocabulary, seen, []

    def fault(self, element, text):
        self.faults.append("%s:%d: %s: %s" % (self.file, element.line, element.name, text))

    def occurs(self, place, what):
        self.seen.setdefault(place, set()).add(what)

    def element(self, element, shape, parent, parent_shape):
        if element.name not in self.vocabulary:
            self.fault(element, "not a name of the format")
        self.attributes(element, shape)
        if shape == "menu":
            shape = "menu." + dict(element.attributes).get("xsi:type", "")
        if shape == "limits":
            shape = "limits." + dict(parent.attributes).get("xsi:type", "")
            self.occurs("limits", shape[7:])
        if shape in SHAPES:
            self.inner(element, shape)
        elif element.children or "." in shape:
            self.fault(element, "can't hold elements")
        else:
            self.leaf(element, shape, parent_shape)

    def inner(self, element, shape):
        if element.text.strip():
            self.fault(element, "can't hold text")
        pattern, contents = SHAPES[shape]
        if not pattern.fullmatch("".join(c.name + " " for c in element.children)):
            self.fault(element, "wrong order or number of " + " ".join(c.name for c in element.children))
            return
        if shape in ("arithmetic", "arithmeticOperation"):
            unary = element.children[0].text == "negate"
            if unary == (element.children[1].name == "left"):
                self.fault(element, '"left" is left out for "negate" and for nothing else')
        if shape == "attachmentValue":
            self.attachment(element)
        if shape == "limits.real":
            self.real_limits(element)
        if shape == "vui":
            self.instances_of_views(element)
        for child in element.children:
            self.occurs(shape, child.name)
            if not child.children and not child.text and child.name in LEFT_OUT[shape]:
                self.fault(child, "is left out when empty")
            self.element(child, contents[child.name], element, shape)

    def attributes(self, element, shape):
        names = [name for name, _ in element.attributes]
        if names != ATTRIBUTES.get(shape, []):
            self.fault(element, "wrong attributes " + " ".join(names))
            return
        for name, value in element.attributes:
            if name not in self.vocabulary:
                self.fault(element, name + " is not a name of the format")
            if re.search(r'[&<>"\t\r\n]', value):
                self.fault(element, name + " needs an escape, and none is printed in attributes")
            key = shape + " " + name
            if key in WORDS:
                self.word(element, key, value, WORDS[key].split())
            elif name in ("zqDocVersion", "originalSize", "compressedSize"):
                self.number(element, value, -2 ** 31, 2 ** 31)
            elif name == "modifiedDate":
                self.form(element, name, value)
            elif name == "userName":
                self.size(element, name, value)
            elif value != {"xmlns": NAMESPACE, "xmlns:xsi": INSTANCE, "xsi:schemaLocation": NAMESPACE + " zqs.xsd"}[name]:
                self.fault(element, "wrong " + name)

    def leaf(self, element, shape, parent_shape):
        text = element.text
        paired = parent_shape + "/" + shape
        key = paired if paired in WORDS or paired in WORD_LISTS or paired in UNSIGNED else shape
        if not text and not (element.name in MAY_BE_EMPTY[parent_shape] or element.name in FREE_EMPTY):
            self.fault(element, "is empty")
            return
        if key in WORDS:
            self.word(element, key, text, WORDS[key].split())
        elif key in WORD_LISTS:
            self.word_list(element, key, text, WORD_LISTS[key].split(), " " if key == "fieldType" else "")
        elif key in UNSIGNED:
            self.number(element, text, 0, 2 ** 32)
        elif key in SIGNED:
            self.number(element, text, -2 ** 31, 2 ** 31)
        elif key in FORMS:
            self.form(element, key, text)
        elif key in BASE64:
            if base64_lines(base64.b64decode(text)) != text:
                self.fault(element, "not in lines of 57 bytes")
        elif key in TEXTS:
            self.text(element, text)
            self.size(element, paired if paired in SIZE_OF else shape, text)
        else:
            self.fault(element, "unknown content " + key)

    def text(self, element, text):
        if "\r" in text:
            self.fault(element, "a carriage return doesn't survive reading")
        if re.search("[\uf8e8\uf8e9\uf8ec]", text):
            self.fault(element, "not the code of a control character")
        for c in text:
            kind = {"\t": "tab", "\n": "newline"}.get(c) or (c if c in '&<>"' else "")
            if not kind and ord(c) > 126:
                kind = "control" if "\uf8e0" <= c <= "\uf8fe" else "non-ascii"
            if kind:
                self.occurs("text", kind)

    def word(self, element, key, word, words):
        if word not in words:
            self.fault(element, "unknown word " + word)
        if word not in self.vocabulary:
            self.fault(element, word + " is not a word of the format")
        self.occurs(key, word)

    def word_list(self, element, key, text, words, behind):
        found = text.split()
        for word in found:
            self.word(element, key, word, words)
        ordered = sorted(set(found), key=lambda w: words.index(w) if w in words else -1)
        if text != " ".join(ordered) + (behind if found else "") or ("none" in found and len(found) > 1):
            self.fault(element, "words out of order")

    def number(self, element, text, low, behind):
        if not re.fullmatch(r"0|-?[1-9]\d*", text) or not low <= int(text) < behind:
            self.fault(element, "not a number in its plain form: " + text)

    def form(self, element, key, text):
        if not re.fullmatch(FORMS[key], text):
            self.fault(element, "not in its form: " + text)
        if key == "daysOfMonth" or key == "hoursOfDay":
            numbers = [int(n) for n in text.split()]
            low, high = (1, 31) if key == "daysOfMonth" else (0, 23)
            if numbers != sorted(set(numbers)) or numbers[0] < low or numbers[-1] > high:
                self.fault(element, "numbers out of order")
        if key.endswith("Currencies") and int(text.split("\\")[0]) * 2 + 2 != len(text.split("\\")):
            self.fault(element, "wrong count")

    def size(self, element, key, text):
        if key in SIZE_OF and len(text.encode()) > SIZE_OF[key]:
            self.fault(element, "is cut to %d bytes in reading" % SIZE_OF[key])

    def attachment(self, element):
        if element.children[1].name == "attachmentData":
            size = len(base64.b64decode(element.children[1].text))
            if dict(element.attributes)["compressedSize"] != str(size):
                self.fault(element, "compressedSize isn't the size of the data")

    def real_limits(self, element):
        low, high, precision = (child.text for child in element.children)
        digits = int(precision)
        for text in low, high:
            if text != ("%.*f" % (digits, float(text)) if 0 <= digits <= 16 else "%.10g" % float(text)):
                self.fault(element, text + " isn't printed with this precision")

    def instances_of_views(self, vui):
        parts = {child.name: child for child in vui.children}
        views = {view.children[1].text for view in parts["views"].children}
        for field in parts["fields"].children:
            for instance in (i for part in field.children[1:] for i in part.children if i.name == "displayInstance"):
                if instance.children[0].text not in views:
                    self.fault(instance, "belongs to no view of this object and is not written")


def cut_pieces(text):
    """Stretches of text between tags and references that a reader cuts: more than two bytes for each character."""
    pieces = re.split(r"<[^>]*>|&[^;]*;", text)
    return [piece for piece in pieces if len(piece.encode()) > 2 * len(piece)]


def listed(root):
    """What a listing gives: kind, name and kind of container of each object; a standalone field isn't listed."""
    names = {"form": "formName", "vui": "formName"}
    objects = []
    for element in root.children:
        if element.name == "field":
            continue
        texts = {child.name: child.text for child in reversed(element.children)}
        objects.append({"kind": element.name, "name": texts[names.get(element.name, element.name + "Name")],
                        "containerType": texts.get("containerType")})
    return objects


def read_vocabulary():
    faults, texts = [], {}
    for line in (HERE / "vocabulary.txt").read_text("utf-8").splitlines():
        number, text = line.split(" ")
        texts[text] = int(number)
    if sorted(texts.values()) != list(range(1, 657)):
        faults.append("vocabulary.txt: the ids are not 1 to 656")
    for text, number in {"absoluteOrder": 1, "uniqueIndex": 591, "unsignedByte": 592, "use": 600, "user": 603,
                         "userDefined": 604, "userName": 605, "year": 656}.items():
        if texts.get(text) != number:
            faults.append("vocabulary.txt: %s is not %d" % (text, number))
    for row, (_, contents) in SHAPES.items():
        faults += ["%s: %s is in the table but not in vocabulary.txt" % (row, n) for n in contents if n not in texts]
    for key, words in {**WORDS, **WORD_LISTS}.items():
        faults += ["%s: %s is in the table but not in vocabulary.txt" % (key, w) for w in words.split() if w not in texts]
    return texts, faults


def check_document(path, vocabulary, seen, names):
    data = path.read_bytes()
    faults = []
    header = PLAIN_HEADER if data.isascii() else UTF8_HEADER
    if not data.startswith(header):
        faults.append("%s:1: wrong header" % path.name)
    root = parse(data)
    judge = Judge(path.name, vocabulary, seen)
    judge.element(root, "root", None, "")
    faults += judge.faults
    again = printed_document(root, header)
    if again != data:
        for number, pair in enumerate(zip(data.split(b"\n"), again.split(b"\n")), 1):
            if pair[0] != pair[1]:
                faults.append("%s:%d: %r should be %r" % (path.name, number, *pair))
                break
        else:
            faults.append("%s: %d bytes should be %d" % (path.name, len(data), len(again)))
    faults += ["%s: %r is cut in reading" % (path.name, piece) for piece in cut_pieces(data.decode())]
    if listed(root) != names:
        faults.append("%s: its objects are not those of names.json" % path.name)
    lines = data.count(b"\n")
    print("%-18s %5d lines, %2d objects, %s" % (path.name, lines, len(root.children), "bad" if faults else "good"))
    return faults


def check_shown(seen):
    faults = []
    for sentence, place, wanted in SHOWN:
        missing = [what for what in wanted.split() if what not in seen.get(place, set())]
        faults += ["not shown: %s: %s" % (sentence, what) for what in missing]
        print("%-70s %2d of %2d" % (sentence, len(wanted.split()) - len(missing), len(wanted.split())))
    for row, (_, contents) in SHAPES.items():
        faults += ["not shown: %s in %s" % (name, row) for name in contents if name not in seen.get(row, set())]
    for key, words in {**WORDS, **WORD_LISTS}.items():
        faults += ["not shown: %s in %s" % (word, key) for word in words.split() if word not in seen.get(key, set())]
    return faults


def main(folder):
    vocabulary, faults = read_vocabulary()
    names = json.loads((HERE / "names.json").read_text("utf-8"))
    files = sorted(pathlib.Path(folder).glob("*.xml"))
    if sorted(names) != [path.name for path in files]:
        faults.append("names.json tells other files than the folder holds")
    seen = {}
    for path in files:
        try:
            faults += check_document(path, vocabulary, seen, names.get(path.name))
        except (xml.parsers.expat.ExpatError, ValueError, LookupError) as error:
            faults.append("%s: %s: %s" % (path.name, type(error).__name__, error))
    faults += check_shown(seen)
    print("every row of the table and every word:", "shown" if not any("not shown" in f for f in faults) else "missing")
    for fault in faults:
        print("fault:", fault)
    print("%d documents, %d faults" % (len(files), len(faults)))
    return 1 if faults or not files else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
