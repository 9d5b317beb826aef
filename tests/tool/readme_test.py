"""The README shows what the tool says of itself, and the program of the consumer test."""
import re

import toolcase


class Readme(toolcase.ToolCase):
    def test_help_texts_are_those_of_the_tool(self):
        readme = (self.root / "README.md").read_text()
        shown = re.findall(r"^\$ zqxml (.*--help)\n((?:(?!^\$ |^```).*\n)*)", readme, re.M)
        self.assertEqual(shown[0][0], "--help")
        for arguments, text in shown:
            code, out, err = self.run_tool(*arguments.split())
            said = "\n".join(line.rstrip() for line in out.decode().splitlines())
            self.assertEqual(text.strip(), said.strip(), arguments)

    def test_the_program_is_the_one_that_is_tested(self):
        readme = (self.root / "README.md").read_text()
        program = (self.root / "tests/consumer/consumer.c").read_text().split("\n", 1)[1]
        self.assertIn("```c\n" + program + "```", readme)


if __name__ == "__main__":
    toolcase.main()
