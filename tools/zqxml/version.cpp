// zqxml version: the library, the parser under it, and the limits of documents.

#include <zqxml/zqxml.h>

#include <memory>
#include <string>

#include "commands.h"
#include "output.h"

namespace {

using Json = nlohmann::ordered_json;

struct Options {
  bool json = false;
  Output output;
};

int run(const Options& options) {
  const std::string library = GetZQXMLVersion();
  const std::string parser = GetXMLParserVersion();
  const unsigned entities = GetXMLEntityExpansionLimit();
  if (options.json) {
    return options.output.write(Json{{"library", library},
                                     {"parser", {{"name", "Xerces-C"}, {"version", parser}}},
                                     {"limits",
                                      {{"elementDepth", ZQXML_MAX_ELEMENT_DEPTH},
                                       {"handlers", ZQXML_MAX_HANDLERS},
                                       {"entityExpansions", entities}}}});
  }
  return options.output.write(
      "libzqxml " + library + "\nXerces-C " + parser +
      "\nElements inside one another: " + std::to_string(ZQXML_MAX_ELEMENT_DEPTH) +
      "\nHandlers inside one another: " + std::to_string(ZQXML_MAX_HANDLERS) +
      "\nEntity references: " + std::to_string(entities) + "\n");
}

}  // namespace

void addVersion(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("version", "Tell the versions of library and parser, and the limits");
  command->add_flag("--json", options->json, "Print JSON");
  options->output.addOption(*command);
  command->callback([options, &exitCode] { exitCode = run(*options); });
}
