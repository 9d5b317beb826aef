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

// A line per member; what is inside another member stands deeper.
void appendText(std::string& text, const Json& json, const std::string& name, int depth) {
  const std::string indent(static_cast<size_t>(depth) * 2, ' ');
  if (json.is_structured() && !json.empty()) {
    if (depth >= 0) {
      text += indent + name + ":\n";
    }
    size_t index = 0;
    for (const auto& [key, value] : json.items()) {
      appendText(text, value, json.is_array() ? "[" + std::to_string(index++) + "]" : key,
                 depth + 1);
    }
  } else {
    text += indent + name + ": " + shown(json) + "\n";
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
  appendText(text, json, "", -1);
  return options.output.write(text);
}

}  // namespace

void addShow(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("show", "Show one object with all that it holds");
  command->footer(
      "Members have the names of the records in C; bytes are Base64. Exits with 1 if no object or "
      "more than one is selected.");
  command->add_option("FILE", options->file, "The document; - is standard input")->required();
  command
      ->add_option("-s,--select", options->selection,
                   "The object; not needed if the document has only one")
      ->option_text("KIND:GLOB");
  command->add_flag("--json", options->json, "Print JSON");
  options->output.addOption(*command);
  command->callback([options, &exitCode] { exitCode = run(*options); });
}
