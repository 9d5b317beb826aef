// Files of any content, as subcommands read them; "-" is standard input.
#ifndef ZQXML_TOOLS_INPUT_H
#define ZQXML_TOOLS_INPUT_H

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using File = std::unique_ptr<FILE, int (*)(FILE*)>;

// Standard input can be read only once: if "-" stands among the files more often, that is thrown as
// a fault of the command line.
void checkStandardInputOnce(const std::vector<std::string>& files);

// What messages call the file.
std::string shownName(const std::string& path);

// Null if it can't be opened, which is told.
File openFile(const std::string& path);

// The content of a file, unless it can't be read, which is told.
std::optional<std::string> readFile(const std::string& path);

#endif
