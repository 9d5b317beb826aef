// The command line tool.

#include <zqxml/zqxml.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <exception>
#include <iostream>

#include "commands.h"
#include "output.h"

namespace {

int run(int argc, char** argv) {
  CLI::App app("Reads and writes the definition documents of workflow applications.", "zqxml");
  app.require_subcommand(1);
  app.option_defaults()->ignore_case(false);
  app.set_version_flag("--version", [] { return std::string("zqxml ") + GetZQXMLVersion(); });
  int exitCode = kDone;
  addList(app, exitCode);
  addCheck(app, exitCode);
  addShow(app, exitCode);
  addDiff(app, exitCode);
  addFmt(app, exitCode);
  addExtract(app, exitCode);
  addCompress(app, exitCode);
  addDecompress(app, exitCode);
  addConvert(app, exitCode);
  addBase64(app, exitCode);
  addQp(app, exitCode);
  addDate(app, exitCode);
  addMessage(app, exitCode);
  addVersion(app, exitCode);
  addCompletion(app, exitCode);
  addManual(app, exitCode);
  // Behind the subcommands, which would inherit it.
  app.footer(
      "Data go to standard output, all else to standard error. Exit codes: 0 done; 1 done and the "
      "answer is no;\n2 the document can't be read or written; 3 usage; 4 file or stream.");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    errno = 0;
    if (app.exit(error) != 0) {
      return kUsageFault;
    }
    if (std::cout.flush()) {
      return kDone;
    }
    return reportFileFault("standard output", errno != 0 ? errno : EIO);
  }
  return exitCode;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "zqxml: " << error.what() << "\n";
    return kFileFault;
  }
}
