"""zqxml check."""
import json

import toolcase


def error(path, line, column, text, number):
    return f"{path}:{line}:{column}: error: {text} [{number}]\n"


class Check(toolcase.ToolCase):
    def test_a_document_without_faults(self):
        for name in ("filters", "escalations", "assignments"):
            self.check(["check", str(self.root / f"examples/{name}.xml")], 0, "")

    def test_every_fault_of_every_object_is_told(self):
        path = self.file("a.xml", """<root>
<filter>
<bogus><deeper/></bogus>
<filterName>One</filterName><enabled>perhaps</enabled>
<executeOn>modify  submit</executeOn>
</filter>
<filter colour="red" zqDocVersion='1' shape="">
<filterName>Two</filterName><modifiedDate>yesterday</modifiedDate><ifActions><notify/></ifActions>
</filter>
<page/>
<escalation><escalationName>Three</escalationName></escalation>
</root>
""")
        self.check(["check", path], 1, "",
                   error(path, 3, 8, "The element is not allowed here: bogus", 8941) +
                   error(path, 4, 55, "The value is not one of the allowed words", 8943) +
                   error(path, 5, 38, "The value is not one of the allowed words", 8943) +
                   error(path, 7, 48, "The attribute is not allowed here: colour", 8942) +
                   error(path, 7, 48, "The attribute is not allowed here: shape", 8942) +
                   error(path, 8, 67, "The date and time is not of the ISO form: yesterday", 8957) +
                   error(path, 8, 87, "The element is not allowed here: notify", 8941) +
                   error(path, 10, 8, "The element is not allowed here: page", 8941))

    def test_a_value_that_looks_like_an_attribute_is_none(self):
        path = self.file("a.xml", "<root><filter version=' colour=\"1\" ' colour='2>'><a/></filter></root>")
        self.check(["check", path], 1, "",
                   error(path, 1, 50, "The attribute is not allowed here: colour", 8942) +
                   error(path, 1, 54, "The element is not allowed here: a", 8941))

    def test_a_fault_of_the_xml_is_the_last(self):
        path = self.file("a.xml", "<root>\n<filter><a/></filter>\n<filter>&none;</filter>\n<filter><b/></filter></root>")
        code, out, err = self.run_tool("check", path)
        lines = err.decode().splitlines()
        self.assertEqual((code, out, len(lines)), (1, b"", 2))
        self.assertEqual(lines[0] + "\n", error(path, 2, 13, "The element is not allowed here: a", 8941))
        self.assertRegex(lines[1], r":3:\d+: error: .* \[8940\]$")

    def test_places_hold_behind_characters_of_all_widths(self):
        path = self.file("a.xml", "<root><filter><filterName>\u00e9\u65e5\U0001f600</filterName><a/><!-- \u65e5 > --><b/>"
                         "</filter>\r\n<filter><c/></filter></root>")
        self.check(["check", path], 1, "",
                   error(path, 1, 48, "The element is not allowed here: a", 8941) +
                   error(path, 1, 64, "The element is not allowed here: b", 8941) +
                   error(path, 2, 13, "The element is not allowed here: c", 8941))
        path = self.file("b.xml", '<?xml version="1.0" encoding="iso-8859-1"?>\n<root><filter><filterName>\u00e9\u00c3\u00a9'
                         "</filterName><a/><b/></filter></root>".encode("latin-1").decode("latin-1"))
        (self.folder / "b.xml").write_bytes((self.folder / "b.xml").read_text().encode("latin-1"))
        self.check(["check", path], 1, "",
                   error(path, 2, 47, "The element is not allowed here: a", 8941) +
                   error(path, 2, 51, "The element is not allowed here: b", 8941))

    def test_a_document_of_16_bit_units_is_told_about_too(self):
        path = self.file("a.xml", "<root><filter><a/><b/></filter></root>".encode("utf-16"))
        self.check(["check", path], 1, "", error(path, 1, 19, "The element is not allowed here: a", 8941))

    def test_a_document_of_16_bit_units_from_a_pipe(self):
        document = "<root><filter><a/><b/></filter></root>"
        self.check(["check", "-"], 1, "", error("<stdin>", 1, 19, "The element is not allowed here: a", 8941),
                   stdin=document.encode("utf-16"))
        self.check(["check", "-"], 0, "", stdin="<root/>".encode("utf-16"))

    def test_addresses(self):
        good = self.file("a b.xml", "<root/>")
        bad = "file://" + self.file("c.xml", "<root><filter><a/><b/></filter></root>")
        self.check(["check", "file://" + good.replace(" ", "%20")], 0, "")
        self.check(["check", bad], 1, "", error(bad, 1, 19, "The element is not allowed here: a", 8941))
        self.check(["check", "http://localhost/a.xml"], 2, "",
                   "http://localhost/a.xml: error: The XML parser reports: Only local paths and \"file:\" addresses "
                   "of this host are opened: http://localhost/a.xml [8940]\n")

    def test_a_detail_stands_on_one_line(self):
        path = self.file("a.xml", "<root><filter><modifiedDate>\n&#xF8FA;[31m\x7f</modifiedDate></filter></root>")
        code, out, err = self.run_tool("check", path)
        self.assertEqual((code, out), (1, b""))
        self.assertIn(b": \\n\\u001b[31m\\u007f [8957]\n", err)

    def test_the_outermost_element_ends_it(self):
        path = self.file("a.xml", "<filter><a/></filter>")
        self.check(["check", path], 1, "", error(path, 1, 9, "The element is not allowed here: filter", 8941))

    def test_several_documents_and_standard_input(self):
        good = self.file("good.xml", "<root/>")
        bad = self.file("bad.xml", "<root><x/></root>")
        self.check(["check", good, bad], 1, "", error(bad, 1, 11, "The element is not allowed here: x", 8941))
        self.check(["check", "-"], 1, "", error("<stdin>", 1, 11, "The element is not allowed here: x", 8941),
                   stdin=b"<root><x/></root>")
        self.check(["check", str(self.folder / "none")], 4, "",
                   f"zqxml: {self.folder}/none: No such file or directory\n")

    def test_the_bad_documents_are_placed(self):
        folder = self.root / "tests/data/bad"
        for bad in json.loads((folder / "expected.json").read_text()):
            path = str(folder / bad["file"])
            code, out, err = self.run_tool("check", path)
            first = err.decode().split("\n")[0]
            self.assertEqual((code, out), (1, b""), path)
            self.assertTrue(first.startswith(f"{path}:{bad['line']}:{bad['column']}: error: "), first)
            self.assertTrue(first.endswith(f" [{bad['number']}]"), first)

    def test_round_trip_of_the_examples_loses_nothing(self):
        for name in ("filters", "escalations", "assignments"):
            self.check(["check", "--round-trip", str(self.root / f"examples/{name}.xml")], 0, "")

    def test_round_trip_names_what_the_format_loses(self):
        path = self.file("a.xml", """<root><filter><filterName>F</filterName><ifActions><action><notify><cc>x</cc>
<fieldIncludeType>none</fieldIncludeType></notify></action></ifActions></filter>
<escalation><escalationName>E</escalationName><escalationTime><hoursOfDay>1 24</hoursOfDay></escalationTime>
</escalation></root>""")
        label = f"{path}: filter F: /actionList/0/notify"
        empty = "null -> \"\" (an absent text reads back as an empty one)"
        self.check(["check", "--round-trip", path], 0,
                   f"{label}/user: {empty}\n{label}/subject: {empty}\n"
                   f"{label}/advanced: {{\"from\":null,\"replyTo\":null,\"cc\":\"x\",\"bcc\":null,\"organization\":null,"
                   "\"mailboxName\":null,\"headerTemplate\":null,\"footerTemplate\":null,\"contentTemplate\":null} -> null "
                   "(copies of a notification aren't written)\n"
                   f"{path}: escalation E: /escalationTime/date/hourmask: 16777218 -> 2 "
                   "(bits beyond the mask aren't written)\n")

    def test_what_cannot_be_read_back_is_a_fault(self):
        path = self.file("a.xml", "<root><filter><filterName>F&#10;</filterName><ifActions><action><setFieldList><setField>"
                         "<fieldID>1</fieldID><fieldValue><field/></fieldValue></setField></setFieldList></action>"
                         "</ifActions></filter></root>")
        self.check(["check", "--round-trip", path], 1, f"{path}: filter F\\n: can't be read back: message 8943\n")


if __name__ == "__main__":
    toolcase.main()
