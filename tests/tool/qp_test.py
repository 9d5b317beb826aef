"""zqxml qp."""
import email
import email.header
import email.policy
import quopri
import random

import toolcase

JAPANESE = ("添付ファイルの件名は、とても長いので幾つかの語に分けられます。", "Re: 漢字", "カタカナとABC、and so on",
            "plain text which is longer than twenty characters")


class QuotedPrintable(toolcase.ToolCase):
    def converted(self, *arguments, stdin):
        code, out, err = self.run_tool("qp", *arguments, stdin=stdin)
        self.assertEqual((code, err), (0, b""))
        return out

    def test_lines_are_encoded_each_by_itself(self):
        for content, text in ((b"", b""), (b"a=b\tc\n\xe4", b"a=3Db=09c\n=E4"), (b"a\r\nb\n\n", b"a=0D\nb\n\n"),
                              (b"\n", b"\n"), (b"x" * 49 + b"\n", b"x" * 49 + b"\n"),
                              (b"x" * 50 + b"\ny", b"x" * 50 + b"=\r\n\ny"), (b"a\0b\0", b"a=00=\r\nb=00=\r\n")):
            self.assertEqual(self.converted(stdin=content), text)
            self.assertEqual(self.converted("-d", stdin=text), content)

    def test_decoding(self):
        for text, content in ((b"=e3=81=82", "あ".encode()), (b"one=\ntwo=\r\nthree\r\nfour", b"onetwothree\r\nfour"),
                              (b"=zz=4z=", b"zz4z"), (b"a\rb=\rc", b"a\rbc"), (b"a\0\xe4\x01b", b"ab"),
                              (b"=00", b"\0"), (b"=00=00=41=00", b"\0\0A\0"), (b"=\n=\n", b"")):
            self.assertEqual(self.converted("--decode", stdin=text), content)

    def test_python_agrees(self):
        source = random.Random(3)
        for length in (*range(0, 200, 9), 3000):
            content = source.randbytes(length)
            text = self.converted(stdin=content)
            self.assertTrue(all(len(line) <= 56 for line in text.split(b"\n")))
            self.assertEqual(quopri.decodestring(text), content)
            self.assertEqual(self.converted("-d", stdin=text), content)
            text = quopri.encodestring(content, quotetabs=True)
            self.assertEqual(self.converted("-d", stdin=text), quopri.decodestring(text))

    def test_a_body_of_a_mail_comes_out(self):
        content = "Grüße, 100 % = alles?\n" * 20
        mail = (b"MIME-Version: 1.0\nContent-Type: text/plain; charset=utf-8\n"
                b"Content-Transfer-Encoding: quoted-printable\n\n" + self.converted(stdin=content.encode()))
        message = email.message_from_bytes(mail, policy=email.policy.default)
        self.assertEqual(message.get_content(), content)
        self.assertEqual(message.defects, [])

    def subject(self, text, codec, *arguments):
        """What a mail program reads in the subject, and the subject."""
        written = self.converted("--subject", *arguments, stdin=text.encode(codec)).decode("ascii")
        message = email.message_from_string(f"Subject: {written}\n\n")
        return str(email.header.make_header(email.header.decode_header(message["subject"]))), written

    def test_subjects(self):
        self.check(["qp", "--subject"], 0, "=?iso-8859-1?Q?plain?=\n", stdin=b"plain\n")
        self.check(["qp", "--subject"], 0, "=?iso-8859-1?Q?a?=\r\n\n=?iso-8859-1?Q?b?=", stdin=b"a\r\n\n\0b")
        self.check(["qp", "--subject", "-f", "1250"], 0, "=?iso-8859-2?Q?=A9?=", stdin=b"\x8a")
        self.check(["qp", "--subject", "-f", "EUC"], 0, "=?iso-2022-jp?B?GyRCJT0=?=\n \t=?iso-2022-jp?B?GyhK?=",
                   stdin=b"\xa5\xbd")
        self.check(["qp", "--subject", "-f", "EUC", "-t", "0"], 0, "=?iso-8859-1?Q?=A5=BD?=", stdin=b"\xa5\xbd")

    # "?" and "_" mean something else in an encoded word, and are left alone.
    def test_mail_programs_read_latin_subjects(self):
        source = random.Random(4)
        letters = "".join(chr(code) for code in range(0xA1, 0x100)) + "ab c=\"(),.!"
        for length in range(1, 120, 7):
            text = "".join(source.choice(letters) for _ in range(length - 1)) + "x"
            self.assertEqual(self.subject(text, "latin-1")[0], text)
        for text, codec, code_set in (("Příliš žluťoučký kůň", "cp1250", "1250"),
                                      ("Привет, как дела", "cp1251", "1251"),
                                      ("Příliš žluťoučký kůň", "iso8859_2", "8859_2")):
            self.assertEqual(self.subject(text, codec, "-f", code_set)[0], text)

    # Each piece of 20 bytes is joined by a fold, which mail programs drop between encoded words alone.
    def test_mail_programs_read_japanese_subjects(self):
        for text in JAPANESE:
            for codec, code_set in (("euc_jp", "EUC"), ("shift_jis", "SJIS"), ("iso2022_jp", "JIS")):
                read, written = self.subject(text, codec, "-f", code_set)
                self.assertEqual("".join(read.split()), "".join(text.split()), written)
                self.assertTrue(all(len(line) <= 76 for line in written.split("\n")), written)

    def test_files(self):
        source = self.file("source", b"a b")
        target = str(self.folder / "target")
        self.check(["qp", source, "-o", target], 0, "")
        self.check(["qp", "-d", target], 0, "a b")
        self.check(["qp", "-", "--decode"], 0, "a", stdin=b"=61")

    def test_files_that_can_not_be_read(self):
        self.check(["qp", "absent"], 4, "", "zqxml: absent: No such file or directory\n")
        self.check(["qp", "-d", "."], 4, "", "zqxml: .: Is a directory\n")

    def test_usage(self):
        for arguments in (["one", "two"], ["-d", "--subject"], ["-f", "EUC"], ["-t", "EUC"],
                          ["--subject", "-f", "nothing"], ["--subject", "-t", "6"]):
            code, out, err = self.run_tool("qp", *arguments)
            self.assertEqual((code, out), (3, b""), arguments)
            self.assertNotEqual(err, b"")


if __name__ == "__main__":
    toolcase.main()
