"""zqxml completion and zqxml manual."""
import re
import subprocess

import toolcase


class SelfDescription(toolcase.ToolCase):
    def commands(self):
        help_text = self.run_tool("--help")[1].decode()
        return re.findall(r"^  (\w+) ", help_text.split("Subcommands:")[1], re.M)

    def complete(self, *words):
        script = self.file("completion.bash", self.run_tool("completion", "bash")[1])
        line = " ".join(f"'{word}'" for word in words)
        done = subprocess.run(
            ["bash", "-c", f". {script}; COMP_WORDS=({line}); COMP_CWORD={len(words) - 1}; _zqxml; "
             'printf "%s\\n" "${COMPREPLY[@]}"'], capture_output=True, text=True, check=True, cwd=self.folder)
        return done.stdout.split()

    def test_bash_completes_subcommands_and_options(self):
        self.assertEqual(self.complete("zqxml", "mes"), ["message"])
        self.assertEqual(set(self.commands()) - set(self.complete("zqxml", "")), set())
        self.assertEqual(self.complete("zqxml", "list", "--co"), ["--count"])

    def test_bash_completes_names_of_files_by_itself(self):
        # Only the shell's own completion gets names with blanks, quotes and folders right.
        self.file("some file.xml", "")
        self.assertEqual(self.complete("zqxml", "list", "so"), [])
        script = self.file("completion.bash", self.run_tool("completion", "bash")[1])
        done = subprocess.run(["bash", "-c", f". {script}; complete -p zqxml"], capture_output=True, text=True, check=True)
        self.assertEqual(done.stdout, "complete -o default -F _zqxml zqxml\n")

    def test_fish_names_every_subcommand(self):
        text = self.run_tool("completion", "fish")[1].decode()
        for command in self.commands():
            self.assertIn(f"-a {command} ", text)
        self.assertIn("'__fish_seen_subcommand_from list' -l count ", text)

    def test_the_manual_tells_every_option(self):
        code, out, err = self.run_tool("manual")
        self.assertEqual((code, err), (0, b""))
        page = out.decode()
        self.assertTrue(page.startswith(".TH ZQXML 1\n.SH NAME\nzqxml \\- "))
        for command in self.commands():
            self.assertIn(f".SH ZQXML {command.upper()}\n", page)
            for flag in re.findall(r"--[a-z-]+", self.run_tool(command, "--help")[1].decode()):
                self.assertIn(flag.replace("-", "\\-"), page, command)

    def test_unknown_shell(self):
        self.assertEqual(self.run_tool("completion", "csh")[0], 3)


if __name__ == "__main__":
    toolcase.main()
