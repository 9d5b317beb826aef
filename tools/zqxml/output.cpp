#include "output.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <vector>

#include "commands.h"

namespace {

constexpr char kStandardOutput[] = "-";

// Returns 0 or the errno value of the failure.
int writeAll(int descriptor, const std::string& data) {
  const char* next = data.data();
  size_t left = data.size();
  while (left > 0) {
    const ssize_t written = ::write(descriptor, next, left);
    if (written < 0) {
      if (errno == EINTR) {
        continue;
      }
      return errno;
    }
    next += written;
    left -= static_cast<size_t>(written);
  }
  return 0;
}

// The permissions that a new file gets, or those of the file that is replaced.
mode_t permissionsFor(const char* path) {
  struct stat existing;
  if (stat(path, &existing) == 0) {
    return existing.st_mode & 07777;
  }
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

int replaceFile(const std::string& path, const std::string& data) {
  std::string beside = path + ".XXXXXX";
  const int descriptor = mkstemp(beside.data());
  if (descriptor < 0) {
    return errno;
  }
  int error = writeAll(descriptor, data);
  if (error == 0 && fchmod(descriptor, permissionsFor(path.c_str())) != 0) {
    error = errno;
  }
  if (close(descriptor) != 0 && error == 0) {
    error = errno;
  }
  if (error == 0 && rename(beside.c_str(), path.c_str()) != 0) {
    error = errno;
  }
  if (error != 0) {
    unlink(beside.c_str());
  }
  return error;
}

}  // namespace

void Output::addOption(CLI::App& command) {
  command.add_option("-o,--output", path, "Write to FILE instead of standard output")
      ->option_text("FILE");
}

int Output::write(const std::string& data) const {
  if (path == kStandardOutput) {
    const int error = writeAll(STDOUT_FILENO, data);
    return error == 0 ? static_cast<int>(kDone) : reportFileFault("standard output", error);
  }
  const int error = replaceFile(path, data);
  return error == 0 ? static_cast<int>(kDone) : reportFileFault(path, error);
}

int Output::write(const nlohmann::ordered_json& data) const {
  constexpr int kIndent = 2;
  return write(data.dump(kIndent, ' ', false, nlohmann::ordered_json::error_handler_t::replace) +
               "\n");
}

int reportFileFault(const std::string& subject, int error) {
  std::cerr << "zqxml: " << subject << ": " << strerror(error) << "\n";
  return kFileFault;
}
