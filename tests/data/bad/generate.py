#!/usr/bin/env python3
"""Makes the bad documents of this folder, and expected.json, which tells what reading each of them gives.

usage: generate.py [--check]

What is expected comes from the rules of the format, which this script knows: which elements hold which, where a fault is
found, and what it is called. "@" in the text of a document stands at the place of the fault, which is just behind the
tag that shows it. --check compares with the files that are there, and changes nothing.

A row has the file, the number of the message, its text, line and column. The text is null where it is the XML parser's
own.
"""
import json
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent

PARSER = 8940
ELEMENT = 8941
ATTRIBUTE = 8942
WORD = 8943
FRAME = 8944
TIME = 8957
NO_MEMORY = 300

rows = []
files = {}


def place(text):
    """The document without its mark, and the line and column of that."""
    assert text.count("@") == 1, text
    before = text[:text.index("@")]
    return text.replace("@", ""), before.count("\n") + 1, len(before) - (before.rfind("\n") + 1) + 1


def add(name, text, number, message):
    """`message` is the text in which {place} tells line and column, or None for the parser's own."""
    document, line, column = place(text)
    file = name + ".xml"
    assert file not in files, file
    files[file] = document
    if message is not None:
        message = message.format(place=f"line: {line}, column {column}")
    rows.append({"file": file, "number": number, "text": message, "line": line, "column": column})


def within(path, content):
    """The content below the elements of a path, each on a line of its own."""
    names = path.split("/")
    begin = "".join("\t" * depth + f"<{name}>\n" for depth, name in enumerate(names))
    end = "".join("\t" * depth + f"</{name}>\n" for depth, name in reversed(list(enumerate(names))))
    return begin + "\t" * len(names) + content + "\n" + end


def label(path):
    return path.replace("root/", "").replace("/", "-")


FILTER = "root/filter"
ESCALATION = "root/escalation"
ACTION = FILTER + "/ifActions/action"
VALUE = FILTER + "/objectProperties/property/value"
RUN_IF = FILTER + "/runIfQualification"
OPERAND = RUN_IF + "/relationalOperation/left"
ASSIGN = ACTION + "/setFieldList/setField/fieldValue"

# Every element that holds others, and some that hold a text: none of them holds these.
HOSTS = [
    "root", FILTER, ESCALATION, FILTER + "/owner", ESCALATION + "/enabled",
    FILTER + "/changeHistory", FILTER + "/changeHistory/changeEntry", FILTER + "/changeHistory/changeEntry/entry",
    FILTER + "/objectProperties", FILTER + "/objectProperties/property", VALUE, VALUE + "/byteList",
    VALUE + "/attachmentValue", VALUE + "/attachmentValue/location", VALUE + "/currency", VALUE + "/coordinateList",
    VALUE + "/coordinateList/coordinate", VALUE + "/characterValue",
    FILTER + "/workflowConnect", FILTER + "/workflowConnect/formNameList",
    FILTER + "/workflowConnect/formNameList/formName",
    ESCALATION + "/escalationTime", ESCALATION + "/escalationTime/time", ESCALATION + "/escalationTime/time/minute",
    RUN_IF, RUN_IF + "/and", RUN_IF + "/or/left", RUN_IF + "/not", RUN_IF + "/relationalOperation", OPERAND,
    OPERAND + "/value", OPERAND + "/arithmeticOperation", OPERAND + "/arithmeticOperation/left",
    OPERAND + "/valueList", OPERAND + "/valueList/value", OPERAND + "/statusHistoryValue", OPERAND + "/queryValue",
    FILTER + "/ifActions", FILTER + "/elseActions", ACTION, ACTION + "/notify", ACTION + "/notify/subject",
    ACTION + "/notify/cc", ACTION + "/notify/fieldIDList", ACTION + "/notify/fieldIDList/fieldID", ACTION + "/message",
    ACTION + "/message/messageText", ACTION + "/logToFile", ACTION + "/logToFile/fileName", ACTION + "/setFieldList",
    ACTION + "/setFieldList/setField", ASSIGN, ASSIGN + "/value", ASSIGN + "/field", ASSIGN + "/field/qualification",
    ASSIGN + "/process", ASSIGN + "/process/command", ASSIGN + "/arithmetic", ASSIGN + "/arithmetic/left",
    ASSIGN + "/function", ASSIGN + "/function/functionParameterList",
    ASSIGN + "/function/functionParameterList/functionParameter", ASSIGN + "/dde", ASSIGN + "/sql",
    ASSIGN + "/filterAPI", ACTION + "/runProcess", ACTION + "/runProcess/command", ACTION + "/pushFieldList",
    ACTION + "/pushFieldList/pushField", ACTION + "/pushFieldList/pushField/targetField",
    ACTION + "/pushFieldList/pushField/targetFieldValue", ACTION + "/sql", ACTION + "/goto",
    ACTION + "/goto/executionOrder", ACTION + "/callGuide", ACTION + "/exitGuide", ACTION + "/gotoGuide",
]
for index, host in enumerate(HOSTS):
    # A name that is no tag, one that is a tag of other objects, and one that differs by the case of a letter.
    add(f"element-unknown-{label(host)}", within(host, "<bogus>@</bogus>"), ELEMENT, "bogus, {place}")
    strange = ("menuItem", "viewLabel", "IfActions")[index % 3]
    add(f"element-misplaced-{label(host)}", within(host, f"text <{strange}/>@"), ELEMENT, strange + ", {place}")

# Elements that stand only where an entry is open.
for host, children in {
    FILTER + "/ifActions": ("notify message logToFile setFieldList runProcess pushFieldList sql goto callGuide exitGuide "
                            "gotoGuide fileName command"),
    ACTION + "/pushFieldList": "targetField targetFieldValue",
}.items():
    for child in children.split():
        add(f"entry-none-{label(host)}-{child}", within(host, f"<{child}>@</{child}>"), ELEMENT, child + ", {place}")
for child in ("sql", "goto", "command"):
    add(f"entry-closed-action-{child}", within(FILTER + "/elseActions", f"<action></action>\n<{child}/>@"), ELEMENT,
        child + ", {place}")

# What ends a child early: its parent finds the end tag of an element that it doesn't read itself.
for host, inner in (
    (FILTER + "/workflowConnect", "workflowConnect"), (FILTER + "/ifActions", "elseActions"),
    (FILTER + "/elseActions", "ifActions"), (FILTER + "/changeHistory", "changeHistory"),
    (FILTER + "/objectProperties", "properties"), (FILTER + "/objectProperties", "propertyList"),
    (RUN_IF, "qualification"), (RUN_IF, "qualifier"), (ESCALATION + "/escalationTime", "escalationTime"),
    (ACTION + "/notify", "notify"), (ACTION + "/notify/fieldIDList", "accessList"), (ACTION + "/message", "message"),
    (ACTION + "/setFieldList", "inputFieldList"), (ACTION + "/pushFieldList", "pushFieldList"), (ACTION + "/sql", "sql"),
    (ACTION + "/goto", "goto"), (ACTION + "/callGuide", "callGuide"), (ACTION + "/exitGuide", "exitGuide"),
    (ACTION + "/gotoGuide", "gotoGuide"), (FILTER, "filter"), (ESCALATION, "escalation"),
):
    name = host.split("/")[-1]
    document = within(host, f"<{inner}></{inner}>")
    add(f"end-early-{label(host)}-{inner}", document.replace(f"</{name}>\n", f"</{name}>@\n", 1)
        if inner != name else document.replace(f"\n{chr(9) * host.count('/')}</{name}>",
                                               f"\n{chr(9) * host.count('/')}</{name}>@", 1),
        ELEMENT, name + ", {place}")
# Behind the end of "root" there is nothing that could read on, be it a tag or a text.
add("end-early-root", "<root>\n<root/></root>@\n", FRAME, "{place}")
add("root-in-root", "<root>\n<root></root><filter>@</filter></root>\n", FRAME, "{place}")
add("root-in-root-text", "<root>\n<root/>text @</root>\n", FRAME, "{place}")

# The outermost element.
for name in ("Root", "roots", "filter", "filterName", "bogus"):
    add(f"outermost-{name}", f"<?xml version=\"1.0\"?>\n<{name}>@</{name}>\n", ELEMENT, name + ", {place}")

# Attributes.
for host, names in {
    "filter": "xmlns:xsd xsi:nil filterName zqFieldId bogus Version",
    "escalation": "xmlns:xsd xsi:nil type owner bogus zqdocversion",
}.items():
    for name in names.split():
        add(f"attribute-{host}-{name.replace(':', '-')}",
            within("root", f"<{host} zqDocVersion=\"1\"\n {name}=\"1\">@</{host}>"), ATTRIBUTE, name + ", {place}")
for host, element, names in (
    (FILTER + "/changeHistory", "changeEntry", "version xmlns zqDocVersion owner bogus ModifiedDate"),
    (VALUE, "byteList", "version name bogus"),
    (VALUE, "attachmentValue", "type version bogus"),
):
    for name in names.split():
        add(f"attribute-{element}-{name}", within(host, f"<{element} {name}=\"1\">@</{element}>"), ATTRIBUTE,
            name + ", {place}")

# Words: found out at the end of the element.
for host, element, words in (
    (FILTER, "enabled", ["", "1", "True", "yes", "true "]),
    (ESCALATION, "enabled", ["", "0", "FALSE"]),
    (FILTER, "executeOn", [" ", "modify  submit", "submit ", "update", "monday", "modify,submit"]),
    (ESCALATION + "/escalationTime/time", "daysOfWeek", [" ", "Monday", "day", "monday  friday", "1"]),
    (ACTION + "/message", "messageType", ["", "Note", "fatal", "none"]),
    (ACTION + "/notify", "fieldIncludeType", ["", "some", "unchanged", "ALL"]),
    (ACTION + "/exitGuide", "closeAll", ["", "TRUE", "2"]),
    (ASSIGN + "/field", "noMatchOption", ["", "bogus"]),
    (ASSIGN + "/field", "multipleMatchOption", ["", "bogus"]),
    (ASSIGN + "/function", "functionType", ["", "bogus"]),
):
    for index, word in enumerate(words):
        add(f"word-{label(host)}-{element}-{index}", within(host, f"<{element}>{word}</{element}>@"), WORD, "{place}")
# This one at the end of its host.
for index, content in enumerate(("", "<operation>bogus</operation>")):
    add(f"word-arithmetic-operation-{index}", within(ASSIGN, f"<arithmetic>{content}</arithmetic>@"), WORD, "{place}")

# Times.
BAD_TIMES = ["", "soon", "2024-13-01T00:00:00Z", "2024-01-01", "2024-01-01T25:00:00Z", "2024-01-01T00:00:00+00:30"]
for host in (FILTER, ESCALATION):
    for index, text in enumerate(BAD_TIMES):
        add(f"time-{label(host)}-{index}", within(host, f"<modifiedDate>{text}</modifiedDate>@"), TIME, text)
for index, text in enumerate(BAD_TIMES):
    add(f"time-changeEntry-{index}",
        within(FILTER + "/changeHistory", f"<changeEntry modifiedDate=\"{text}\" userName=\"u\">@</changeEntry>"), TIME,
        text)

# A sender is refused as if memory had run out.
for index, text in enumerate(("", "maren", "a &amp; b")):
    add(f"from-{index}", within(ACTION + "/notify", f"<from>{text}</from>@"), NO_MEMORY, "")

# What the XML parser refuses.
for name, text in {
    "empty": "@",
    "blank": "   @",
    # Told where the text begins.
    "text-before-root": "@text<root/>",
    "no-root": "<?xml version=\"1.0\"?>\n@",
}.items():
    add(f"parser-{name}", text, PARSER, None)


def tags_of(text):
    """The begin and end of each tag."""
    at = text.find("<")
    while at >= 0:
        end = text.index(">", at) + 1
        yield at, end
        at = text.find("<", end)


# A whole document that ends too early: ahead of each tag and behind it, all of them but the end.
WHOLE = """<root>
\t<filter zqDocVersion="1">
\t\t<filterName>A</filterName>
\t\t<helpText>H</helpText>
\t\t<changeHistory>
\t\t\t<changeEntry userName="u">
\t\t\t\t<entry>E</entry>
\t\t\t</changeEntry>
\t\t</changeHistory>
\t\t<workflowConnect>
\t\t\t<formNameList>
\t\t\t\t<formName>F</formName>
\t\t\t</formNameList>
\t\t</workflowConnect>
\t\t<ifActions>
\t\t\t<action>
\t\t\t\t<notify>
\t\t\t\t\t<user>U</user>
\t\t\t\t\t<cc>C</cc>
\t\t\t\t\t<fieldIDList>
\t\t\t\t\t\t<fieldID>1</fieldID>
\t\t\t\t\t</fieldIDList>
\t\t\t\t</notify>
\t\t\t</action>
\t\t\t<action>
\t\t\t\t<pushFieldList>
\t\t\t\t\t<pushField>
\t\t\t\t\t\t<targetField/>
\t\t\t\t\t</pushField>
\t\t\t\t</pushFieldList>
\t\t\t</action>
\t\t</ifActions>
\t</filter>
</root>
"""
for index, (begin, end) in enumerate(list(tags_of(WHOLE))[:-1]):
    add(f"cut-{index:02}-behind", WHOLE[:end] + "@", PARSER, None)
    # The text that stands ahead of a tag is known to be whole only at the tag.
    if index > 0:
        add(f"cut-{index:02}-ahead", WHOLE[:begin] + "@", PARSER, None)

rows.sort(key=lambda row: row["file"])
files["expected.json"] = "[\n" + ",\n".join(json.dumps(row) for row in rows) + "\n]\n"

if sys.argv[1:] == ["--check"]:
    there = {path.name: path.read_text() for path in HERE.iterdir() if path.suffix in (".xml", ".json")}
    wrong = sorted(name for name in there.keys() | files.keys() if there.get(name) != files.get(name))
    if wrong:
        sys.exit("not as generated: " + ", ".join(wrong))
else:
    for path in HERE.glob("*.xml"):
        path.unlink()
    for name, text in files.items():
        (HERE / name).write_text(text)
    print(len(rows), "documents")
