"""zqxml base64."""
import base64
import email
import email.policy
import random

import toolcase


class Base64(toolcase.ToolCase):
    def encoded(self, content):
        code, out, err = self.run_tool("base64", stdin=content)
        self.assertEqual((code, err), (0, b""))
        return out

    def decoded(self, content):
        code, out, err = self.run_tool("base64", "-d", stdin=content)
        self.assertEqual((code, err), (0, b""))
        return out

    def test_both_ways(self):
        for content, text in ((b"", ""), (b"f", "Zg==\n"), (b"\0\xff\n", "AP8K\n"),
                              (b"a" * 58, "YWFh" * 19 + "\nYQ==\n")):
            self.check(["base64"], 0, text, stdin=content)
            self.assertEqual(self.decoded(text.encode()), content)

    def test_python_agrees(self):
        source = random.Random(1)
        for length in (*range(0, 6), 56, 57, 58, 114, 1000, 4096, 300000):
            content = source.randbytes(length)
            text = self.encoded(content)
            self.assertEqual(text, base64.encodebytes(content))
            self.assertEqual(self.decoded(text), content)
            self.assertEqual(self.decoded(base64.b64encode(content)), content)

    def test_an_attachment_of_a_mail_comes_out(self):
        content = random.Random(2).randbytes(1000)
        mail = (b"MIME-Version: 1.0\nContent-Type: application/octet-stream\nContent-Transfer-Encoding: base64\n\n"
                + self.encoded(content))
        message = email.message_from_bytes(mail, policy=email.policy.default)
        self.assertEqual(message.get_content(), content)
        self.assertEqual(message.defects, [])
        message.set_content(content, "application", "octet-stream")
        self.assertEqual(self.decoded(message.get_payload().encode()), content)

    def test_decoding_skips_what_is_no_character(self):
        self.assertEqual(self.decoded(b"\xefZ\r\n\0m\n 9-v_\xff"), b"foo")
        self.assertEqual(self.decoded(b"\0\0"), b"")

    def test_files(self):
        source = self.file("source", b"\0foo")
        target = str(self.folder / "target")
        self.check(["base64", source, "-o", target], 0, "")
        self.check(["base64", target], 0, "QUdadmJ3PT0K\n")
        self.check(["base64", "-", "--decode"], 0, "foo", stdin=b"Zm9v")
        self.check(["base64", target, "-d"], 0, "\0foo")

    def test_files_that_can_not_be_read(self):
        self.check(["base64", "absent"], 4, "", "zqxml: absent: No such file or directory\n")
        self.check(["base64", "-d", "."], 4, "", "zqxml: .: Is a directory\n")

    def test_usage(self):
        for arguments in (["one", "two"], ["--subject"]):
            code, out, err = self.run_tool("base64", *arguments)
            self.assertEqual((code, out), (3, b""), arguments)
            self.assertNotEqual(err, b"")


if __name__ == "__main__":
    toolcase.main()
