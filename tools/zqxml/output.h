// Where a subcommand's data go: standard output, or a file that is replaced only when all is
// written.
#ifndef ZQXML_TOOLS_OUTPUT_H
#define ZQXML_TOOLS_OUTPUT_H

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <string>

class Output {
 public:
  // Gives the subcommand its "-o FILE".
  void addOption(CLI::App& command);

  // Writes everything and returns kDone, or tells the reason on standard error and returns
  // kFileFault. A file is written beside its place and renamed, so that a failure leaves the old
  // one; a device or a pipe is written into.
  int write(const std::string& data) const;
  int write(const nlohmann::ordered_json& data) const;

 private:
  std::string path = "-";
};

// A text of a document as it can stand in a line and on a terminal: control characters as JSON has
// them.
std::string onOneLine(const std::string& text);

// Writes "zqxml: subject: reason" on standard error, with the reason of an errno value, and returns
// kFileFault.
int reportFileFault(const std::string& subject, int error);

#endif
