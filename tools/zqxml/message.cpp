// zqxml message: what the library's messages mean.

#include <iostream>
#include <memory>
#include <string>

#include "commands.h"
#include "messages.h"
#include "output.h"

namespace {

using Json = nlohmann::ordered_json;

struct Options {
  int number = 0;
  bool json = false;
  Output output;
};

std::string asText(const Message& message) {
  return std::to_string(message.number) + "  " + message.text + "\nCause: " + message.cause +
         "\nCure:  " + message.cure + "\n";
}

Json asJson(const Message& message) {
  return {{"number", message.number},
          {"name", message.name},
          {"text", message.text},
          {"cause", message.cause},
          {"cure", message.cure}};
}

int printAll(const Options& options) {
  std::string text;
  Json list = Json::array();
  for (const Message& message : allMessages()) {
    text += (text.empty() ? "" : "\n") + asText(message);
    list.push_back(asJson(message));
  }
  return options.json ? options.output.write(list) : options.output.write(text);
}

int run(const Options& options, bool all) {
  if (all) {
    return printAll(options);
  }
  const Message* message = findMessage(options.number);
  if (message == nullptr) {
    std::cerr << "zqxml: the library has no message " << options.number << "\n";
    return kAnswerIsNo;
  }
  return options.json ? options.output.write(asJson(*message))
                      : options.output.write(asText(*message));
}

}  // namespace

void addMessage(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("message", "Tell the text, cause and cure of a message of the library");
  const CLI::Option* number =
      command->add_option("NUMBER", options->number, "Number of the message; all without it");
  command->add_flag("--json", options->json, "Print JSON");
  options->output.addOption(*command);
  command->callback([options, number, &exitCode] { exitCode = run(*options, number->empty()); });
}
