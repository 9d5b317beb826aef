#include "input.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>

#include "output.h"

void checkStandardInputOnce(const std::vector<std::string>& files) {
  if (std::count(files.begin(), files.end(), "-") > 1) {
    throw CLI::ValidationError("-", "standard input can stand only once");
  }
}

std::string shownName(const std::string& path) {
  return path == "-" ? "<stdin>" : path;
}

File openFile(const std::string& path) {
  if (path == "-") {
    return {stdin, [](FILE*) { return 0; }};
  }
  File file(fopen(path.c_str(), "rb"), fclose);
  if (file == nullptr) {
    reportFileFault(path, errno);
  }
  return file;
}

std::optional<std::string> readFile(const std::string& path) {
  const File file = openFile(path);
  if (file == nullptr) {
    return std::nullopt;
  }
  std::string content;
  char block[65536];
  for (size_t got; (got = fread(block, 1, sizeof block, file.get())) > 0;) {
    content.append(block, got);
  }
  if (ferror(file.get()) != 0) {
    reportFileFault(shownName(path), errno);
    return std::nullopt;
  }
  return content;
}
