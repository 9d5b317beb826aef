"""zqxml compress and zqxml decompress."""
import gzip
import json
import struct
import zlib

import toolcase

TEXT = "".join(f"line {i % 37} of {i}\n" for i in range(3000)).encode()


def raw_deflate(data, level=6):
    deflater = zlib.compressobj(level, zlib.DEFLATED, -15)
    return deflater.compress(data) + deflater.flush()


def container(data, stream=None, length=None, checksum=None):
    stream = raw_deflate(data) if stream is None else stream
    return (b"\x1f\x8c\x01\x00" + struct.pack("<I", len(data) if length is None else length) + stream +
            struct.pack("<I", zlib.crc32(data) if checksum is None else checksum))


class Compress(toolcase.ToolCase):
    def output(self, *arguments, stdin=b""):
        code, out, err = self.run_tool(*arguments, stdin=stdin)
        self.assertEqual((code, err), (0, b""), arguments)
        return out

    def test_levels(self):
        sizes = {}
        for level in range(1, 10):
            packed = self.output("compress", f"-{level}", stdin=TEXT)
            self.assertEqual(packed[:8], b"\x1f\x8c\x01\x00" + struct.pack("<I", len(TEXT)))
            self.assertEqual(packed[-4:], struct.pack("<I", zlib.crc32(TEXT)))
            self.assertEqual(zlib.decompress(packed[8:-4], -15), TEXT)
            sizes[level] = packed
        self.assertLess(len(sizes[9]), len(sizes[1]))
        self.assertNotEqual(sizes[5], sizes[6])
        self.assertEqual(self.output("compress", stdin=TEXT), sizes[6])

    def test_exact_bytes(self):
        for data, expected in ((b"", "1f8c010000000000030000000000"), (b"a", "1f8c0100010000004b040043beb7e8")):
            self.assertEqual(self.output("compress", stdin=data).hex(), expected)
            self.assertEqual(self.output("decompress", "--strict", stdin=bytes.fromhex(expected)), data)

    def test_files(self):
        plain = self.file("plain", TEXT)
        packed = self.file("packed", "old")
        self.check(["compress", "-9", plain, "-o", packed], 0, "")
        self.check(["decompress", packed], 0, TEXT.decode())
        self.check(["decompress", "-", "-o", plain], 0, "", stdin=container(b"other"))
        with open(plain, "rb") as stream:
            self.assertEqual(stream.read(), b"other")
        self.assertEqual(self.output("compress", "-", stdin=b""), container(b"", b"\x03\x00"))

    def test_plain_data_pass_unless_strict(self):
        for data in (b"", b"1234567", b"plain text", gzip.compress(TEXT), b"\x1f\x8c\x01\x00\x00\x00\x00"):
            self.assertEqual(self.output("decompress", stdin=data), data)
            self.check(["decompress", "--strict"], 2, "", "<stdin>: error: Not compressed data\n", stdin=data)

    def test_strict(self):
        good = container(TEXT)
        for source, text in ((b"\x1f\x8c\x02\x00" + good[4:], "The version is not 1.0"),
                             (b"\x1f\x8c\x01\x01" + good[4:], "The version is not 1.0"),
                             (good + b"\0", "Bytes stand behind the trailer"),
                             (good + good, "Bytes stand behind the trailer")):
            self.assertEqual(self.output("decompress", stdin=source), TEXT)
            self.check(["decompress", "--strict"], 2, "", f"<stdin>: error: {text}\n", stdin=source)
        self.assertEqual(self.output("decompress", "--strict", stdin=good), TEXT)

    def test_damage(self):
        target = self.file("target", "old")
        stored = b"\x01\x01\x00\xff\xff"  # the complement is wrong
        texts = {3004: "The checksum of the decompressed data is wrong",
                 3005: "The length of the decompressed data is wrong", 3006: "The compressed data are invalid"}
        for number, source in ((3004, container(TEXT, checksum=1)), (3005, container(TEXT, length=1)),
                               (3006, container(TEXT, stream=stored)), (3004, container(TEXT)[:-1]),
                               (3005, container(TEXT, length=0xffffffff))):
            for arguments in ([], ["--strict"], ["--to-gzip"], ["-o", target]):
                path = self.file("source", source)
                self.check(["decompress", *arguments, path], 2, "", f"{path}: error: {texts[number]} [{number}]\n")
        with open(target) as stream:
            self.assertEqual(stream.read(), "old")

    def test_info(self):
        stream = raw_deflate(TEXT)
        checksum = f"0x{zlib.crc32(TEXT):08x}"
        self.check(["decompress", "--info"], 0,
                   f"Kind:     compressed, version 1.0\nSize:     {len(stream) + 12} bytes\n"
                   f"Stream:   {len(stream)} bytes\nData:     {len(TEXT)} bytes, stored {len(TEXT)}\n"
                   f"Checksum: {checksum}, stored {checksum}\nBehind:   0 bytes\nState:    good\n",
                   stdin=container(TEXT))
        self.check(["decompress", "--info"], 1, "Kind:     plain\nSize:     5 bytes\n", stdin=b"plain")
        code, out, err = self.run_tool("decompress", "--info", stdin=container(TEXT, length=7) + b"xyz")
        self.assertEqual((code, err), (1, b""))
        self.assertIn(f"Data:     {len(TEXT)} bytes, stored 7\n", out.decode())
        self.assertIn("Behind:   3 bytes\nState:    The length of the decompressed data is wrong [3005]\n", out.decode())

    def test_info_as_json(self):
        stream = raw_deflate(TEXT)
        path = self.file("packed", b"\x1f\x8c\x07\x08" + container(TEXT, checksum=1)[4:] + b"more")
        code, out, err = self.run_tool("decompress", "--info", "--json", path)
        self.assertEqual((code, err), (1, b""))
        self.assertEqual(json.loads(out), {
            "file": path, "size": len(stream) + 16, "kind": "compressed", "version": [7, 8], "storedLength": len(TEXT),
            "length": len(TEXT), "streamLength": len(stream), "storedChecksum": "0x00000001",
            "checksum": f"0x{zlib.crc32(TEXT):08x}", "bytesBehind": 4, "message": 3004})
        code, out, err = self.run_tool("decompress", "--info", "--json", stdin=container(TEXT)[:-2])
        description = json.loads(out)
        self.assertEqual((code, description["storedChecksum"], description["message"]), (1, None, 3004))
        code, out, err = self.run_tool("decompress", "--info", "--json", stdin=b"plain")
        self.assertEqual((code, json.loads(out)), (1, {"file": "<stdin>", "size": 5, "kind": "plain"}))

    def test_to_gzip(self):
        for data in (b"", b"a", TEXT):
            stream = raw_deflate(data)
            packed = self.output("decompress", "--to-gzip", stdin=container(data) + b"behind")
            self.assertEqual(gzip.decompress(packed), data)
            self.assertIn(stream, packed)
            packed = self.output("compress", "-3", "--to-gzip", stdin=data)
            self.assertEqual(gzip.decompress(packed), data)
            self.assertEqual(packed[10:-8], self.output("compress", "-3", stdin=data)[8:-4])
        self.check(["decompress", "--to-gzip"], 2, "", "<stdin>: error: Not compressed data\n", stdin=b"plain")
        self.check(["decompress", "--to-gzip", "--strict"], 2, "", "<stdin>: error: Bytes stand behind the trailer\n",
                   stdin=container(TEXT) + b"behind")

    def test_from_gzip(self):
        stream = raw_deflate(TEXT)
        trailer = struct.pack("<II", zlib.crc32(TEXT), len(TEXT))
        headers = [(0, b""), (1, b""), (2, b"xy"), (4, b"\x03\x00abc"), (4, b"\x00\x01" + b"e" * 256), (8, b"name\0"),
                   (16, b"comment\0"), (30, b"\x01\x00emy name\0and more\0xy")]
        for flags, fields in headers:
            source = b"\x1f\x8b\x08" + bytes([flags]) + b"timex\3" + fields + stream + trailer
            self.assertEqual(self.output("compress", "--from-gzip", stdin=source), container(TEXT), flags)
            self.assertEqual(self.output("decompress", "--from-gzip", stdin=source), TEXT, flags)
        self.assertEqual(self.output("decompress", "--from-gzip", stdin=gzip.compress(b"")), b"")

    def test_no_gzip(self):
        good = gzip.compress(TEXT)
        ten = b"\x1f\x8b\x08"
        cases = [(b"", "Not a gzip file"), (container(TEXT), "Not a gzip file"), (good[:17], "Not a gzip file"),
                 (b"\x1f\x8b\x07" + good[3:], "Not a gzip file"), (b"\x1f\x8b\x08\x20" + good[4:], "Not a gzip file"),
                 (ten + b"\x08" + bytes(6) + b"name without end", "Not a gzip file"),
                 (ten + b"\x04" + bytes(6) + b"\xff", "Not a gzip file"),
                 (ten + b"\x04" + bytes(6) + b"\xff\xff" + bytes(20), "Not a gzip file"),
                 (ten + b"\x0c" + bytes(6) + b"\xff\xff" + bytes(20), "Not a gzip file"),
                 (good + good, "More than one gzip member, or bytes behind it"),
                 (good + b"\0", "More than one gzip member, or bytes behind it"),
                 (good[:-4] + b"\0\0\0\0", "The length of the decompressed data is wrong [3005]"),
                 (good[:-8] + b"\0\0\0\0" + good[-4:], "The checksum of the decompressed data is wrong [3004]"),
                 (good[:10] + b"\xff" + good[11:], "The compressed data are invalid [3006]")]
        for source, text in cases:
            for command in ("compress", "decompress"):
                self.check([command, "--from-gzip"], 2, "", f"<stdin>: error: {text}\n", stdin=source)

    def test_large_data_that_do_not_shrink(self):
        data = b"".join(zlib.crc32(struct.pack("<I", i)).to_bytes(4, "little") for i in range(300000))
        packed = self.output("compress", "-1", stdin=data)
        self.assertGreater(len(packed), len(data))
        self.assertEqual(self.output("decompress", stdin=packed), data)

    def test_files_that_fail(self):
        for command in ("compress", "decompress"):
            self.check([command, "absent"], 4, "", "zqxml: absent: No such file or directory\n")
            self.check([command, "."], 4, "", "zqxml: .: Is a directory\n")
            code, out, err = self.run_tool(command, "-o", "absent/file", stdin=b"x")
            self.assertEqual((code, out, err), (4, b"", b"zqxml: absent/file: No such file or directory\n"))
            code, out, err = self.run_tool(command, "-o", "/dev/full/x", stdin=b"x")
            self.assertEqual((code, out), (4, b""))

    def test_usage(self):
        for arguments in (["compress", "-0"], ["compress", "-10"], ["decompress", "-6"], ["compress", "-1", "-9"], ["compress", "-1", "--from-gzip"],
                          ["compress", "--to-gzip", "--from-gzip"], ["compress", "a", "b"],
                          ["decompress", "-1"], ["decompress", "--info", "--to-gzip"], ["decompress", "--json"],
                          ["decompress", "--from-gzip", "--to-gzip"], ["decompress", "--info", "--strict"],
                          ["decompress", "--from-gzip", "--strict"], ["decompress", "--info", "--from-gzip"]):
            code, out, err = self.run_tool(*arguments)
            self.assertEqual((code, out), (3, b""), arguments)
            self.assertNotEqual(err, b"")


if __name__ == "__main__":
    toolcase.main()
