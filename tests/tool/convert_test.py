"""zqxml convert."""
import json
import os

import toolcase

# Number, name, charset.
CODE_SETS = """\
0\tWESTERN\twindows-1252
1\t8859_1\tiso-8859-1
2\t8859_15\tiso-8859-15
3\tJIS\tiso-2022-jp
4\tEUC\teuc-jp
5\tSJIS\tshift_jis
7\tGB2312\tgb2312
8\tEUC_C\teuc-cn
9\tBIG5\tbig5
10\tEUC_H\teuc-tw
11\tKSC_5601_87\teuc-kr
12\tKSC_5601_92\tcp949
13\tEUC_K\teuc-kr
14\t8859_2\tiso-8859-2
15\t8859_3\tiso-8859-3
16\t8859_4\tiso-8859-4
17\t8859_5\tiso-8859-5
18\t8859_6\tiso-8859-6
19\t8859_7\tiso-8859-7
20\t8859_8\tiso-8859-8
21\t8859_9\tiso-8859-9
22\t8859_10\t
23\t1250\twindows-1250
24\t1251\twindows-1251
25\t1253\twindows-1253
26\t1254\twindows-1254
27\t1255\twindows-1255
28\t1256\twindows-1256
29\t1257\twindows-1257
30\t1258\twindows-1258
40\t874\twindows-874
41\tISO_2022_CN\tiso-2022-cn
42\tISO_2022_KR\tiso-2022-kr
64\tUTF16\tutf-16
65\tUTF8\tutf-8
"""

JAPANESE = "漢字とかな、ABC\nカタカナ\n"


class Convert(toolcase.ToolCase):
    def converted(self, source, target, content):
        code, out, err = self.run_tool("convert", "-f", source, "-t", target, stdin=content)
        self.assertEqual((code, err), (0, b""))
        return out

    def test_list(self):
        self.check(["convert", "--list"], 0, CODE_SETS)

    def test_list_as_json(self):
        code, out, err = self.run_tool("convert", "--list", "--json")
        rows = [f"{row['number']}\t{row['name']}\t{row['charset'] or ''}\n" for row in json.loads(out)]
        self.assertEqual((code, "".join(rows)), (0, CODE_SETS))

    def test_japanese(self):
        euc, sjis, jis = (JAPANESE.encode(name) for name in ("euc_jp", "shift_jis", "iso2022_jp"))
        ours = jis.replace(b"\x1b(B", b"\x1b(J")
        for source, target, content, expected in (
                ("EUC", "SJIS", euc, sjis), ("SJIS", "EUC", sjis, euc), ("JIS", "EUC", jis, euc),
                ("JIS", "SJIS", jis, sjis), ("EUC", "JIS", euc, ours), ("SJIS", "JIS", sjis, ours)):
            self.assertEqual(self.converted(source, target, content), expected, f"{source} {target}")

    def test_chinese_cyrillic_and_latin(self):
        self.assertEqual(self.converted("BIG5", "EUC_H", "一乙".encode("big5")), b"\xc4\xa1\xc4\xa2")
        self.assertEqual(self.converted("EUC_H", "BIG5", b"\xc4\xa1\xc4\xa2"), "一乙".encode("big5"))
        for one, other in (("8859_5", "1251"), ("8859_2", "1250")):
            text = "Привет" if one == "8859_5" else "Příliš žluťoučký"
            iso, windows = (text.encode(name) for name in (f"iso{one}", f"cp{other}"))
            self.assertEqual(self.converted(one, other, iso), windows)
            self.assertEqual(self.converted(other, one, windows), iso)

    def test_code_sets_have_several_names(self):
        content, expected = "漢字".encode("euc_jp"), "漢字".encode("shift_jis")
        for source in ("4", "EUC", "euc", "euc-jp", "EUC-JP"):
            self.assertEqual(self.converted(source, "shift_jis", content), expected)
        self.assertEqual(self.converted("22", "8859_10", b"\xe4"), b"\xe4")

    def test_every_conversion_of_the_library_is_there(self):
        conversions = {(3, 4), (3, 5), (4, 3), (4, 5), (5, 3), (5, 4), (9, 10), (10, 9), (14, 23), (17, 24), (23, 14),
                       (24, 17)}
        rows = [line.split("\t")[:2] for line in CODE_SETS.splitlines()]
        rows = [row for row in rows if int(row[0]) in (0, 3, 4, 5, 9, 10, 14, 17, 23, 24)]
        for source, source_name in rows:
            for target, target_name in rows:
                possible = source == target or (int(source), int(target)) in conversions
                self.check(["convert", "-f", source, "-t", target], 0 if possible else 3, "a" if possible else "",
                           "" if possible else f"zqxml: there is no conversion from {source_name} to {target_name}\n",
                           stdin=b"a")

    def test_files_are_joined(self):
        one = self.file("one", "漢".encode("euc_jp"))
        two = self.file("two", "字".encode("euc_jp"))
        target = self.file("target", "old")
        self.check(["convert", "-f", "4", "-t", "5", "-o", target, one, two], 0, "")
        with open(target, "rb") as stream:
            self.assertEqual(stream.read(), "漢字".encode("shift_jis"))

    def test_zeros_and_long_texts_pass(self):
        content = "漢\0字\0\0".encode("euc_jp") + b"\xb1\xa1A" * 100000 + b"\0"
        self.assertEqual(self.converted("4", "5", content),
                         "漢\0字\0\0".encode("shift_jis") + b"\x89\x40A" * 100000 + b"\0")
        self.assertEqual(self.converted("4", "5", b""), b"")

    def test_the_locale_does_not_matter(self):
        code, out, err = self.run_tool("convert", "-f", "4", "-t", "5", stdin="漢字".encode("euc_jp"),
                                       env={**os.environ, "LC_ALL": "C.UTF-8"})
        self.assertEqual((code, out, err), (0, "漢字".encode("shift_jis"), b""))

    def test_validate(self):
        good = self.file("good", JAPANESE.encode("shift_jis"))
        bad = self.file("bad", b"a\n\x83\x5cb\x83\n")
        self.check(["convert", "--validate", "-f", "SJIS", good], 0, "")
        self.check(["convert", "--validate", "-f", "SJIS", good, bad], 1, "",
                   f"{bad}:2:4: error: not a character of SJIS\n")
        self.check(["convert", "--validate", "-f", "5"], 1, "", "<stdin>:1:3: error: not a character of SJIS\n",
                   stdin=b"a\0\x83")
        self.check(["convert", "--validate", "-f", "1251", bad], 0, "")
        code, out, err = self.run_tool("convert", "--validate", "--json", "-f", "5", good, bad)
        self.assertEqual((code, err), (1, b""))
        self.assertEqual(json.loads(out), [{"file": good, "valid": True},
                                           {"file": bad, "valid": False, "offset": 5, "line": 2, "column": 4}])

    def test_validate_needs_characters(self):
        for name in ("JIS", "UTF8", "UTF16", "ISO_2022_CN", "ISO_2022_KR"):
            self.check(["convert", "--validate", "-f", name], 3, "", f"zqxml: texts of {name} can't be validated\n")

    def test_detect(self):
        names = {"JIS": "iso2022_jp", "EUC": "euc_jp", "SJIS": "shift_jis"}
        files = [self.file(name, JAPANESE.encode(codec)) for name, codec in names.items()]
        self.check(["convert", "--detect", *files], 0,
                   "".join(f"{file}\t{name}\n" for file, name in zip(files, names)))
        self.check(["convert", "--detect"], 1, "unknown\n", stdin=b"plain")
        self.check(["convert", "--detect"], 0, "EUC or SJIS\n", stdin=b"\xb1\xa1")
        code, out, err = self.run_tool("convert", "--detect", "--json", stdin=b"\x81\x40")
        self.assertEqual((code, json.loads(out)), (0, [{"file": "<stdin>", "codeSet": 5, "name": "SJIS"}]))

    def test_files_that_can_not_be_read(self):
        for action in (["--detect"], ["--validate", "-f", "4"], ["-f", "4", "-t", "5"]):
            code, out, err = self.run_tool("convert", *action, "absent")
            self.assertEqual((code, err), (4, b"zqxml: absent: No such file or directory\n"))
            code, out, err = self.run_tool("convert", *action, ".")
            self.assertEqual((code, err), (4, b"zqxml: .: Is a directory\n"))

    def test_usage(self):
        for arguments in ([], ["--list", "--detect"], ["-t", "5"], ["--validate"], ["-f", "4"],
                          ["-f", "nothing", "-t", "4"], ["-f", "6", "-t", "4"]):
            code, out, err = self.run_tool("convert", *arguments)
            self.assertEqual((code, out), (3, b""), arguments)
            self.assertNotEqual(err, b"")


if __name__ == "__main__":
    toolcase.main()
