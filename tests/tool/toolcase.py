"""The base of the tool's tests: runs the tool and compares everything that it does."""
import pathlib
import subprocess
import sys
import tempfile
import unittest


class ToolCase(unittest.TestCase):
    tool = ""
    root = pathlib.Path()
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def file(self, name, content):
        path = self.folder / name
        path.write_bytes(content.encode() if isinstance(content, str) else content)
        return str(path)

    def run_tool(self, *arguments, stdin=b"", env=None):
        """Exit code, standard output and standard error (as bytes)."""
        done = subprocess.run([self.tool, *arguments], input=stdin, capture_output=True, env=env, cwd=self.folder)
        return done.returncode, done.stdout, done.stderr

    def check(self, arguments, code, stdout, stderr="", stdin=b"", env=None):
        got = self.run_tool(*arguments, stdin=stdin, env=env)
        self.assertEqual((code, stdout, stderr), (got[0], got[1].decode(), got[2].decode()))


def main():
    ToolCase.tool, root = sys.argv[1:3]
    ToolCase.root = pathlib.Path(root)
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=1)
