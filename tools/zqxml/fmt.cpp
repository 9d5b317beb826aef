// zqxml fmt: documents in the form in which the library writes them.

#include <memory>
#include <string>

#include "commands.h"
#include "objects.h"
#include "output.h"

namespace {

struct Options {
  std::string file;
  Output output;
};

int run(const Options& options) {
  useUtf8();
  Parser parser;
  Document document(options.file);
  Stream stream;
  int result = parser.create();
  if (result == kDone) {
    result = parseObjects(parser, document, stream);
  }
  std::string text;
  if (result == kDone) {
    result = writeObjects(objectsOf(stream), text);
  }
  return result == kDone ? options.output.write(text) : result;
}

}  // namespace

void addFmt(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("fmt", "Rewrite a document in the library's own form");
  command->footer(
      "Elements come in their fixed order, with tabs, in UTF-8; comments and what the format "
      "doesn't "
      "hold go away.\nA document in this form stays as it is.");
  command->add_option("FILE", options->file, "The document; - is standard input")
      ->required()
      ->option_text(" ");
  options->output.addOption(*command);
  command->callback([options, &exitCode] { exitCode = run(*options); });
}
