// zqxml show: one object with all that it holds.

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "commands.h"
#include "compare.h"
#include "objects.h"
#include "output.h"

namespace {

using Json = nlohmann::ordered_json;

struct Options {
  std::string file;
  std::string selection;
  bool json = false;
  Output output;
};

// A line per member of an object or array; what is inside a member stands deeper.
void appendMembers(std::string& text, const Json& json, const std::string& indent) {
  for (const auto& [key, value] : json.items()) {
    const std::string name = json.is_array() ? "[" + key + "]" : key;
    if (value.is_structured() && !value.empty()) {
      text += indent + name + ":\n";
      appendMembers(text, value, indent + "  ");
    } else {
      text += indent + name + ": " + shown(value) + "\n";
    }
  }
}

int run(const Options& options) {
  useUtf8();
  std::vector<Selector> selection;
  if (!options.selection.empty()) {
    selection.emplace_back(options.selection);
  }
  Parser parser;
  Document document(options.file);
  Stream stream;
  int result = parser.create();
  if (result == kDone) {
    result = parseObjects(parser, document, stream);
  }
  if (result != kDone) {
    return result;
  }
  const auto objects = objectsOf(stream, selection);
  if (objects.empty()) {
    return kAnswerIsNo;
  }
  if (objects.size() > 1) {
    std::cerr << "zqxml: " << document.name() << ": " << objects.size()
              << " objects are selected; choose one by -s KIND:NAME\n";
    return kAnswerIsNo;
  }
  const Json json = objectJson(*objects.front());
  if (options.json) {
    return options.output.write(json);
  }
  std::string text;
  appendMembers(text, json, "");
  return options.output.write(text);
}

}  // namespace

void addShow(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("show", "Show one object with all that it holds");
  command->footer(
      "Members have the names of the records in C; bytes are Base64. Exits with 1 if no object or "
      "more than one is selected.");
  command->add_option("FILE", options->file, "The document; - is standard input")
      ->required()
      ->option_text(" ");
  command
      ->add_option("-s,--select", options->selection,
                   "The object; not needed if the document has only one")
      ->option_text("KIND:GLOB");
  command->add_flag("--json", options->json, "Print JSON");
  options->output.addOption(*command);
  command->callback([options, &exitCode] { exitCode = run(*options); });
}
