// zqxml extract: some objects of documents as a document of their own.

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "commands.h"
#include "input.h"
#include "objects.h"
#include "output.h"

namespace {

struct Options {
  std::vector<std::string> files;
  std::vector<std::string> selection;
  Output output;
};

int run(const Options& options) {
  useUtf8();
  const std::vector<Selector> selection(options.selection.begin(), options.selection.end());
  Parser parser;
  if (const int result = parser.create(); result != kDone) {
    return result;
  }
  // The streams own the objects until these are written.
  std::vector<std::unique_ptr<Stream>> streams;
  std::vector<const ZQXMLObjectList*> objects;
  int worst = kDone;
  for (const std::string& file : options.files) {
    Document document(file);
    streams.push_back(std::make_unique<Stream>());
    worst = std::max(worst, parseObjects(parser, document, *streams.back()));
    const auto found = objectsOf(*streams.back(), selection);
    objects.insert(objects.end(), found.begin(), found.end());
  }
  if (worst != kDone || objects.empty()) {
    return std::max<int>(worst, kAnswerIsNo);
  }
  std::string text;
  const int result = writeObjects(objects, text);
  return result == kDone ? options.output.write(text) : result;
}

}  // namespace

void addExtract(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("extract", "Write some objects of documents as a document of their own");
  command->footer(
      "The objects stand in the order of the documents, in the form of \"zqxml fmt\". Exits with "
      "1, "
      "and writes nothing,\nif none is selected.");
  command->add_option("FILE", options->files, "Documents; - is standard input")
      ->required()
      ->option_text("...");
  command
      ->add_option("-s,--select", options->selection,
                   "Objects of this kind (* for any) whose name matches; may be repeated")
      ->required()
      ->allow_extra_args(false)
      ->option_text("KIND:GLOB");
  options->output.addOption(*command);
  command->callback([options, &exitCode] {
    checkStandardInputOnce(options->files);
    exitCode = run(*options);
  });
}
