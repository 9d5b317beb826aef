"""Where the tool reads and writes: pipes, devices, links, files that are protected, standard input and output."""
import os
import subprocess
import threading
import unittest

import toolcase

DOCUMENT = "<root><filter><filterName>one</filterName></filter></root>"
NOBODY = 65534


class Streams(toolcase.ToolCase):
    def test_a_named_pipe_is_read(self):
        pipe = str(self.folder / "pipe")
        os.mkfifo(pipe)

        def feed():
            with open(pipe, "wb") as stream:
                stream.write(DOCUMENT.encode())

        writer = threading.Thread(target=feed, daemon=True)
        writer.start()
        done = subprocess.run([self.tool, "list", pipe], capture_output=True, timeout=20)
        writer.join(20)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"filter\tone\n", b""))

    def test_a_pipe_is_written_into_and_not_replaced(self):
        path = self.file("a.xml", DOCUMENT)
        pipe = str(self.folder / "pipe")
        os.mkfifo(pipe)
        descriptor = os.open(pipe, os.O_RDWR | os.O_NONBLOCK)
        self.addCleanup(os.close, descriptor)
        self.check(["list", path, "-o", pipe], 0, "")
        self.assertEqual(sorted(os.listdir(self.folder)), ["a.xml", "pipe"])
        self.assertEqual(os.read(descriptor, 100), b"filter\tone\n")

    def test_a_device_tells_that_it_is_full(self):
        # By a link: were the device replaced, it would be the link.
        path = self.file("a.xml", DOCUMENT)
        link = self.folder / "full"
        link.symlink_to("/dev/full")
        self.check(["list", path, "-o", str(link)], 4, "", f"zqxml: {link}: No space left on device\n")
        self.assertTrue(link.is_symlink())

    def test_standard_output_by_its_other_name(self):
        path = self.file("a.xml", DOCUMENT)
        link = self.folder / "stdout"
        link.symlink_to("/proc/self/fd/1")
        self.check(["list", path, "-o", str(link)], 0, "filter\tone\n")
        # What is in the file already stays: a shell may have written it.
        with open(self.folder / "out", "wb") as out:
            out.write(b"before\n")
            out.flush()
            subprocess.run([self.tool, "list", path, "-o", str(link)], stdout=out, check=True)
            subprocess.run(["echo", "behind"], stdout=out, check=True)
        self.assertEqual((self.folder / "out").read_bytes(), b"before\nfilter\tone\nbehind\n")

    def test_a_link_stays_and_its_file_is_replaced(self):
        path = self.file("a.xml", DOCUMENT)
        (self.folder / "data").mkdir()
        target = self.folder / "data" / "out"
        target.write_text("old")
        link = self.folder / "link"
        link.symlink_to("data/out")
        self.check(["list", path, "-o", str(link)], 0, "")
        self.assertEqual(os.readlink(link), "data/out")
        self.assertEqual(target.read_text(), "filter\tone\n")
        self.assertEqual(os.listdir(self.folder / "data"), ["out"])

    def test_a_folder_is_no_output(self):
        path = self.file("a.xml", DOCUMENT)
        (self.folder / "data").mkdir()
        self.check(["list", path, "-o", "data"], 4, "", "zqxml: data: Is a directory\n")
        self.assertEqual(sorted(os.listdir(self.folder)), ["a.xml", "data"])

    def test_a_protected_file_stays(self):
        path = self.file("a.xml", DOCUMENT)
        target = self.folder / "out"
        target.write_text("old")
        target.chmod(0o444)
        self.folder.chmod(0o777)
        user = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.geteuid() == 0 else {}
        try:
            subprocess.run([self.tool, "version"], capture_output=True, check=True, **user)
        except (OSError, subprocess.CalledProcessError):
            self.skipTest("another user can't run the tool")
        done = subprocess.run([self.tool, "list", path, "-o", str(target)], capture_output=True, **user)
        self.assertEqual((done.returncode, done.stdout, done.stderr),
                         (4, b"", f"zqxml: {target}: Permission denied\n".encode()))
        self.assertEqual(target.read_text(), "old")
        self.assertEqual(sorted(os.listdir(self.folder)), ["a.xml", "out"])

    def test_standard_input_can_stand_only_once(self):
        for arguments in (["list", "-", "-"], ["check", "-", "a.xml", "-"], ["extract", "-s", "*:*", "-", "-"],
                          ["diff", "-", "-"], ["convert", "-f", "EUC", "-t", "SJIS", "-", "-"]):
            self.check(arguments, 3, "", "-: standard input can stand only once\nRun with --help for more information.\n",
                       stdin=DOCUMENT.encode())

    def test_either_side_of_a_comparison_may_be_standard_input(self):
        path = self.file("a.xml", DOCUMENT)
        self.check(["diff", "-", path], 0, "", stdin=DOCUMENT.encode())
        self.check(["diff", path, "-"], 0, "", stdin=DOCUMENT.encode())

    def test_help_on_a_full_disk(self):
        for arguments in (["--help"], ["--version"], ["list", "--help"]):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([self.tool, *arguments], stdout=full, stderr=subprocess.PIPE)
            self.assertEqual((done.returncode, done.stderr),
                             (4, b"zqxml: standard output: No space left on device\n"), arguments)


if __name__ == "__main__":
    toolcase.main()
