"""zqxml message and zqxml version."""
import json
import re

import toolcase


class Message(toolcase.ToolCase):
    def test_text_cause_and_cure(self):
        self.check(["message", "8941"], 0,
                   "8941  The element is not allowed here\n"
                   "Cause: An element stands where the format has no place for it.\n"
                   "Cure:  Remove or rename the element; names are case-sensitive.\n")

    def test_json(self):
        code, out, err = self.run_tool("message", "--json", "300")
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(json.loads(out), {
            "number": 300, "name": "OUT_OF_MEMORY", "text": "Out of memory", "cause": "An allocation failed.",
            "cure": "Free memory and call again; check a document's size."})

    def test_all_messages_of_the_list(self):
        listed = [int(line.split()[0]) for line in (self.root / "catalog/zqsystem.msg").read_text().splitlines()
                  if line[:1].isdigit()]
        code, out, err = self.run_tool("message", "--json")
        self.assertEqual([row["number"] for row in json.loads(out)], listed)
        code, out, err = self.run_tool("message")
        self.assertEqual(out.decode().count("Cure:"), len(listed))

    def test_an_unknown_number(self):
        self.check(["message", "8914"], 1, "", "zqxml: the library has no message 8914\n")

    def test_usage(self):
        for word in ("abc", "8941x", "99999999999"):
            self.assertEqual(self.run_tool("message", word)[0], 3, word)


class Version(toolcase.ToolCase):
    def test_text(self):
        code, out, err = self.run_tool("version")
        self.assertEqual((code, err), (0, b""))
        self.assertRegex(out.decode(), re.compile(
            r"\Alibzqxml 1\.0\.0\nXerces-C 3\.2\.\d+\nElements inside one another: 1000\n"
            r"Handlers inside one another: 128\nEntity references: 64\n\Z"))
        self.check(["--version"], 0, "zqxml 1.0.0\n")

    def test_json(self):
        code, out, err = self.run_tool("version", "--json")
        version = json.loads(out)
        self.assertEqual(version["library"], "1.0.0")
        self.assertEqual(version["parser"]["name"], "Xerces-C")
        self.assertEqual(version["limits"], {"elementDepth": 1000, "handlers": 128, "entityExpansions": 64})


if __name__ == "__main__":
    toolcase.main()
