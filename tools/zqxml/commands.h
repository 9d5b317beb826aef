// The subcommands. Each `add...` function describes one to the parser of the command line and
// leaves a callback there that runs it.
#ifndef ZQXML_TOOLS_COMMANDS_H
#define ZQXML_TOOLS_COMMANDS_H

#include <CLI/CLI.hpp>

enum ExitCode {
  kDone = 0,
  kAnswerIsNo = 1,     // done, and what was asked for is not there
  kDocumentFault = 2,  // the document can't be read or written
  kUsageFault = 3,     // the command line is wrong
  kFileFault = 4,      // a file or stream failed
};

// `exitCode` receives the result when the callback has run.
void addBase64(CLI::App& app, int& exitCode);
void addCheck(CLI::App& app, int& exitCode);
void addCompletion(CLI::App& app, int& exitCode);
void addCompress(CLI::App& app, int& exitCode);
void addConvert(CLI::App& app, int& exitCode);
void addDate(CLI::App& app, int& exitCode);
void addDecompress(CLI::App& app, int& exitCode);
void addDiff(CLI::App& app, int& exitCode);
void addExtract(CLI::App& app, int& exitCode);
void addFmt(CLI::App& app, int& exitCode);
void addList(CLI::App& app, int& exitCode);
void addManual(CLI::App& app, int& exitCode);
void addMessage(CLI::App& app, int& exitCode);
void addQp(CLI::App& app, int& exitCode);
void addShow(CLI::App& app, int& exitCode);
void addVersion(CLI::App& app, int& exitCode);

#endif
