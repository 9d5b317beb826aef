// Files of any content, as subcommands read them; "-" is standard input.
#ifndef ZQXML_TOOLS_INPUT_H
#define ZQXML_TOOLS_INPUT_H

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

using File = std::unique_ptr<FILE, int (*)(FILE*)>;

// What messages call the file.
std::string shownName(const std::string& path);

// Null if it can't be opened, which is told.
File openFile(const std::string& path);

// The content of a file, unless it can't be read, which is told.
std::optional<std::string> readFile(const std::string& path);

#endif
