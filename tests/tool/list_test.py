"""zqxml list."""
import json
import os
import subprocess

import toolcase

DOCUMENT = """<root>
\t<filter><filterName>Alpha</filterName></filter>
\t<container><containerName>Box</containerName><containerType>application</containerType></container>
\t<form><formName>Beta</formName></form>
\t<field><fieldName>Lone</fieldName></field>
\t<vui><formName>Beta</formName></vui>
</root>
"""


class List(toolcase.ToolCase):
    def test_kind_name_and_container_type_stand_on_a_line(self):
        self.check(["list", self.file("a.xml", DOCUMENT)], 0,
                   "filter\tAlpha\ncontainer\tBox\tapplication\nform\tBeta\nvui\tBeta\n")

    def test_control_characters_in_names_are_written_as_in_json(self):
        path = self.file("a.xml", "<root><filter><filterName>a\u00fc&#10;b&#9;c&#13;&#xF8FA;[31m\x7f\\</filterName></filter></root>")
        self.check(["list", path], 0, "filter\ta\u00fc\\nb\\tc\\r\\u001b[31m\\u007f\\\n")

    def test_standard_input(self):
        self.check(["list", "-"], 0, "filter\tAlpha\ncontainer\tBox\tapplication\nform\tBeta\nvui\tBeta\n",
                   stdin=DOCUMENT.encode())

    def test_standard_input_may_be_utf_16(self):
        self.check(["list", "-"], 0, "filter\tAlpha\n",
                   stdin='<root><filter><filterName>Alpha</filterName></filter></root>'.encode("utf-16"))

    def test_the_file_stands_ahead_if_there_are_several(self):
        one = self.file("a.xml", DOCUMENT)
        two = self.file("b.xml", "<root/>")
        self.check(["list", "-k", "filter", one, two], 0, f"{one}\tfilter\tAlpha\n")
        self.check(["list", "--count", one, two], 0, f"{one}\t4\n{two}\t0\n")

    def test_selection_by_kind_and_name(self):
        path = self.file("a.xml", DOCUMENT)
        self.check(["list", "-k", "FORM", path], 0, "form\tBeta\n")
        self.check(["list", "-k", "form", "-k", "filter", path], 0, "filter\tAlpha\nform\tBeta\n")
        self.check(["list", "-n", "B*", path], 0, "container\tBox\tapplication\nform\tBeta\nvui\tBeta\n")
        self.check(["list", "-n", "A*", "-n", "*x", path], 0, "filter\tAlpha\ncontainer\tBox\tapplication\n")
        self.check(["list", "-k", "form", "-n", "A*", path], 1, "")
        self.check(["list", "--count", "-n", "zzz", path], 1, "0\n")

    def test_an_empty_document_is_no_failure(self):
        self.check(["list", self.file("a.xml", "<root/>")], 0, "")

    def test_json(self):
        path = self.file("a.xml", DOCUMENT)
        code, out, err = self.run_tool("list", "--json", path)
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(json.loads(out), [
            {"file": path, "kind": "filter", "name": "Alpha", "containerType": None},
            {"file": path, "kind": "container", "name": "Box", "containerType": "application"},
            {"file": path, "kind": "form", "name": "Beta", "containerType": None},
            {"file": path, "kind": "vui", "name": "Beta", "containerType": None}])
        code, out, err = self.run_tool("list", "--json", "--count", path)
        self.assertEqual(json.loads(out), [{"file": path, "count": 4}])

    def test_the_examples_give_their_names(self):
        names = json.loads((self.root / "tests/examples/names.json").read_text())
        for file, objects in names.items():
            code, out, err = self.run_tool("list", "--json", str(self.root / "examples" / file))
            rows = [{key: row[key] for key in ("kind", "name", "containerType")} for row in json.loads(out)]
            self.assertEqual((code, err, rows), (0, b"", objects), file)

    def test_a_fault_has_its_place(self):
        path = self.file("bad.xml", "<root>\n<filter>")
        self.check(["list", path], 2, "",
                   f"{path}:2:9: error: The XML parser reports: input ended before all started tags were ended; "
                   "last tag started is 'filter' [8940]\n")
        path = self.file("word.xml", "<root>\n<container><containerType>box</containerType></container></root>")
        self.check(["list", path], 2, "", f"{path}:2:58: error: The value is not one of the allowed words [8943]\n")

    def test_the_place_works_without_a_catalog(self):
        env = dict(os.environ, NLSPATH="/nowhere/%N")
        code, out, err = self.run_tool("list", "-", stdin=b"<root>", env=env)
        self.assertEqual((code, out), (2, b""))
        self.assertRegex(err.decode(), r"^<stdin>:1:7: error: The XML parser reports: .* \[8940\]\n$")

    def test_a_warning_leaves_the_list(self):
        path = self.file("w.xml", '<?xml version="1.0" encoding="UTF-16"?>\n<root>'
                                  "<filter><filterName>A</filterName></filter></root>")
        code, out, err = self.run_tool("list", path)
        self.assertEqual((code, out), (0, b"filter\tA\n"))
        self.assertRegex(err.decode(), rf"^{path}:\d+:\d+: warning: The XML parser reports: .* \[8940\]\n$")

    def test_one_bad_document_does_not_hide_the_others(self):
        bad = self.file("bad.xml", "<root>")
        good = self.file("good.xml", DOCUMENT)
        code, out, err = self.run_tool("list", "-k", "form", bad, good)
        self.assertEqual((code, out), (2, f"{good}\tform\tBeta\n".encode()))

    def test_files_that_can_not_be_read(self):
        self.check(["list", "absent.xml"], 4, "", "zqxml: absent.xml: No such file or directory\n")
        self.check(["list", "."], 4, "", "zqxml: .: Is a directory\n")

    def test_addresses(self):
        path = self.file("a b.xml", DOCUMENT)
        self.check(["list", "--count", "file://" + path.replace(" ", "%20")], 0, "4\n")
        self.check(["list", "http://localhost/a.xml"], 2, "",
                   "http://localhost/a.xml: error: The XML parser reports: Only local paths and \"file:\" addresses "
                   "of this host are opened: http://localhost/a.xml [8940]\n")

    def test_output_goes_to_a_file(self):
        path = self.file("a.xml", DOCUMENT)
        target = self.file("out.txt", "old")
        os.chmod(target, 0o640)
        self.check(["list", "--count", "-o", target, path], 0, "")
        with open(target) as stream:
            self.assertEqual(stream.read(), "4\n")
        self.assertEqual(os.stat(target).st_mode & 0o777, 0o640)
        self.assertEqual(sorted(os.listdir(self.folder)), ["a.xml", "out.txt"])
        self.check(["list", "-o", "/nowhere/out", path], 4, "", "zqxml: /nowhere/out: No such file or directory\n")

    def test_a_full_disk_is_told(self):
        path = self.file("a.xml", DOCUMENT)
        with open("/dev/full", "wb") as full:
            done = subprocess.run([self.tool, "list", path], stdout=full, stderr=subprocess.PIPE)
        self.assertEqual((done.returncode, done.stderr),
                         (4, b"zqxml: standard output: No space left on device\n"))

    def test_usage(self):
        for arguments in ([], ["list"], ["list", "-k", "boat", "x"], ["sail"], ["list", "--frob", "x"]):
            code, out, err = self.run_tool(*arguments)
            self.assertEqual((code, out), (3, b""), arguments)
            self.assertNotEqual(err, b"", arguments)

    def test_help_names_what_is_not_listed(self):
        code, out, err = self.run_tool("list", "--help")
        self.assertEqual((code, err), (0, b""))
        self.assertIn(b"Standalone fields are no objects and aren't listed", out)


if __name__ == "__main__":
    toolcase.main()
