"""zqxml show, extract, fmt and diff."""
import json
import os
import re

import toolcase

HEAD = ('<?xml version="1.0" encoding="utf-8"?>\n<root>\n')
OBJECT = ('\t<filter xmlns="urn:quorin:schemas:zqs" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" '
          'xsi:schemaLocation="urn:quorin:schemas:zqs zqs.xsd" zqDocVersion="0">\n')
DATE = "1970-01-01T00:00:00Z"


def filter_text(name, order=0, owner=None):
    """A filter as the library writes it."""
    owned = f"\t\t<owner>{owner}</owner>\n" if owner else ""
    return (f"{OBJECT}\t\t<filterName>{name}</filterName>\n{owned}\t\t<modifiedDate>{DATE}</modifiedDate>\n"
            f"\t\t<executionOrder>{order}</executionOrder>\n\t\t<executeOn/>\n\t\t<enabled>false</enabled>\n"
            "\t</filter>\n")


def document(*objects):
    return HEAD + "".join(objects) + "</root>\n"


LOOSE = """<root><!-- in another order -->
<filter><executionOrder>7</executionOrder><filterName>One &amp; only</filterName></filter>
<escalation><escalationName>Late</escalationName><escalationTime><interval>60</interval></escalationTime></escalation>
</root>"""


class Objects(toolcase.ToolCase):
    def test_fmt_writes_the_fixed_form_and_keeps_it(self):
        code, out, err = self.run_tool("fmt", self.file("a.xml", LOOSE))
        self.assertEqual((code, err), (0, b""))
        self.assertTrue(out.decode().startswith(document(filter_text("One &amp; only", 7))[:-len("</root>\n")]))
        self.assertIn("\t\t<escalationTime>\n\t\t\t<interval>60</interval>\n\t\t</escalationTime>\n", out.decode())
        self.check(["fmt", "-"], 0, out.decode(), stdin=out)

    def test_fmt_of_the_examples_changes_the_declaration_alone(self):
        for name in ("filters", "escalations", "assignments"):
            given = (self.root / f"examples/{name}.xml").read_text()
            expected = re.sub(r'encoding="[^"]*"\?> *', 'encoding="utf-8"?>', given, count=1)
            self.check(["fmt", str(self.root / f"examples/{name}.xml")], 0, expected)

    def test_texts_are_utf_8_in_every_locale(self):
        name = "caf\u00e9 \u65e5\u672c \U0001f600"
        for locale in ("C", "C.UTF-8", "POSIX"):
            self.check(["fmt", "-"], 0, document(filter_text(name)), stdin=document(filter_text(name)).encode(),
                       env={**os.environ, "LC_ALL": locale})

    def test_a_faulty_document_is_not_written(self):
        path = self.file("a.xml", "<root><filter><bogus/></filter></root>")
        for command in (["fmt"], ["show"], ["extract", "-s", "*"]):
            self.check([*command, path], 2, "", f"{path}:1:23: error: The element is not allowed here: bogus [8941]\n")
        self.check(["fmt", str(self.folder / "none.xml")], 4, "",
                   f"zqxml: {self.folder}/none.xml: No such file or directory\n")

    def test_extract_selects_by_kind_and_pattern(self):
        path = self.file("a.xml", document(*(filter_text(name) for name in ("Aa", "Ab", "Bb"))))
        other = self.file("b.xml", LOOSE)
        self.check(["extract", "-s", "filter:A*", path], 0, document(filter_text("Aa"), filter_text("Ab")))
        self.check(["extract", "-s", "*:Bb", "-s", "FILTER:Aa", path], 0, document(filter_text("Aa"), filter_text("Bb")))
        self.check(["extract", "-s", "filter:One*", "-s", "filter:Bb", path, other], 0,
                   document(filter_text("Bb"), filter_text("One &amp; only", 7)))
        self.check(["extract", "-s", "escalation:Aa", path], 1, "")

    def test_a_wrong_kind_is_a_fault_of_usage(self):
        code, out, err = self.run_tool("extract", "-s", "filtre:x", self.file("a.xml", LOOSE))
        self.assertEqual((code, out), (3, b""))
        self.assertIn(b"filtre", err)

    def test_extract_writes_a_file_whole_or_not_at_all(self):
        path = self.file("a.xml", LOOSE)
        target = self.folder / "out.xml"
        target.write_text("before")
        self.check(["extract", "-s", "filter:nothing", path, "-o", str(target)], 1, "")
        self.assertEqual(target.read_text(), "before")
        self.check(["extract", "-s", "filter:One*", path, "-o", str(target)], 0, "")
        self.assertEqual(target.read_text(), document(filter_text("One &amp; only", 7)))

    def test_show_prints_one_object(self):
        path = self.file("a.xml", LOOSE)
        code, out, err = self.run_tool("show", "-s", "escalation:Late", path)
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(out.decode(), "\n".join([
            'kind: "escalation"', 'name: "Late"', "xmlDocVersion: 0", 'owner: ""', 'lastChanged: ""', "modifiedDate: 0",
            "helpText: null", "changeDiary: null", "objPropList: []", "escalationTime:", "  escalationTmType: 1",
            "  interval: 60", "workflowConnect:", "  type: 0", "enabled: 0", "query:", "  operation: 0", "actionList: []",
            "elseList: []", ""]))
        code, out, err = self.run_tool("show", "--json", "-s", "filter:*", path)
        self.assertEqual((code, err), (0, b""))
        shown = json.loads(out)
        self.assertEqual((shown["kind"], shown["name"], shown["executionOrder"], shown["actionList"]),
                         ("filter", "One & only", 7, []))

    def test_show_of_none_or_several_is_no_answer(self):
        path = self.file("a.xml", LOOSE)
        self.check(["show", path], 1, "", f"zqxml: {path}: 2 objects are selected; choose one by -s KIND:NAME\n")
        self.check(["show", "-s", "filter:none", path], 1, "")

    def test_show_has_bytes_as_base64(self):
        text = document(filter_text("B")).replace("<executeOn/>", "<executeOn/>" + (
            "<runIfQualification><relationalOperation><operation>equal</operation><left><fieldID>8</fieldID></left>"
            '<right><value><byteList type="JPEG"><bytes>AAEC/w==</bytes></byteList></value></right>'
            "</relationalOperation></runIfQualification>"))
        code, out, err = self.run_tool("show", "--json", self.file("a.xml", text))
        self.assertEqual((code, err), (0, b""))
        relation = json.loads(out)["query"]["relationalOperation"]
        self.assertEqual(relation["operandRight"],
                         {"tag": 2, "value": {"dataType": 9, "byteList": {"byteType": 2, "bytes": "AAEC/w=="}}})

    def test_diff(self):
        old = self.file("old.xml", document(filter_text("Same"), filter_text("Gone"), filter_text("Changed", 1, "ann")))
        new = self.file("new.xml", document(filter_text("New"), filter_text("Changed", 2, "bob"), filter_text("Same")))
        self.check(["diff", old, old], 0, "")
        self.check(["diff", old, new], 1,
                   "- filter Gone\n~ filter Changed: /owner: \"ann\" -> \"bob\"\n"
                   "~ filter Changed: /executionOrder: 1 -> 2\n+ filter New\n")
        self.check(["diff", "--ignore-meta", old, new], 1,
                   "- filter Gone\n~ filter Changed: /executionOrder: 1 -> 2\n+ filter New\n")
        code, out, err = self.run_tool("diff", "--json", old, new)
        self.assertEqual((code, err), (1, b""))
        self.assertEqual(json.loads(out), [
            {"kind": "filter", "name": "Gone", "change": "removed"},
            {"kind": "filter", "name": "Changed", "change": "changed", "members": [
                {"path": "/owner", "old": "ann", "new": "bob"}, {"path": "/executionOrder", "old": 1, "new": 2}]},
            {"kind": "filter", "name": "New", "change": "added"}])
        code, out, err = self.run_tool("diff", "--json", old, old)
        self.assertEqual((code, json.loads(out)), (0, []))

    def test_diff_tells_objects_of_one_name_apart(self):
        old = self.file("old.xml", document(filter_text("Twice", 1), filter_text("Twice", 2)))
        new = self.file("new.xml", document(filter_text("Twice", 1), filter_text("Twice", 3)))
        self.check(["diff", old, new], 1, "~ filter Twice (2): /executionOrder: 2 -> 3\n")

    def test_diff_writes_a_name_on_one_line(self):
        old = self.file("old.xml", document(filter_text("a&#10;b", 1)))
        new = self.file("new.xml", document(filter_text("a&#10;b", 2)))
        self.check(["diff", old, new], 1, "~ filter a\\nb: /executionOrder: 1 -> 2\n")

    def test_diff_of_members_that_one_side_lacks(self):
        old = document(filter_text("F")).replace("<executeOn/>", "<executeOn/><ifActions><action><runProcess><command>a"
                                                 "</command></runProcess></action></ifActions>")
        new = old.replace("</ifActions>", "<action><logToFile><fileName>b</fileName></logToFile></action></ifActions>")
        self.check(["diff", self.file("old.xml", old), self.file("new.xml", new)], 1,
                   '~ filter F: /actionList/1: (none) -> {"action":3,"logFile":"b"}\n')


if __name__ == "__main__":
    toolcase.main()
