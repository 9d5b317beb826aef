#include "output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
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

// Writes into what can't be replaced, such as a device or a pipe.
int writeInto(const std::string& path, const std::string& data) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) {
    return errno;
  }
  const int error = writeAll(descriptor, data);
  return close(descriptor) != 0 && error == 0 ? errno : error;
}

int replaceFile(const std::string& path, const std::string& data, mode_t permissions) {
  std::string beside = path + ".XXXXXX";
  const int descriptor = mkstemp(beside.data());
  if (descriptor < 0) {
    return errno;
  }
  int error = writeAll(descriptor, data);
  if (error == 0 && fchmod(descriptor, permissions) != 0) {
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

bool isSameFile(const struct stat& one, const struct stat& other) {
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

int writeFile(const std::string& path, const std::string& data) {
  struct stat existing;
  if (stat(path.c_str(), &existing) != 0) {
    const mode_t mask = umask(0);
    umask(mask);
    return replaceFile(path, data, 0666 & ~mask);
  }
  // Under another name, such as /dev/stdout.
  struct stat standardOutput;
  if (fstat(STDOUT_FILENO, &standardOutput) == 0 && isSameFile(existing, standardOutput)) {
    return writeAll(STDOUT_FILENO, data);
  }
  if (!S_ISREG(existing.st_mode)) {
    return writeInto(path, data);
  }
  if (access(path.c_str(), W_OK) != 0) {
    return errno;
  }
  // A symbolic link stays, and the file that it leads to is replaced.
  char target[PATH_MAX];
  if (realpath(path.c_str(), target) == nullptr) {
    return errno;
  }
  return replaceFile(target, data, existing.st_mode & 07777);
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
  const int error = writeFile(path, data);
  return error == 0 ? static_cast<int>(kDone) : reportFileFault(path, error);
}

int Output::write(const nlohmann::ordered_json& data) const {
  constexpr int kIndent = 2;
  return write(data.dump(kIndent, ' ', false, nlohmann::ordered_json::error_handler_t::replace) +
               "\n");
}

std::string onOneLine(const std::string& text) {
  constexpr unsigned char kDelete = 0x7F;
  std::string line;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\t' || c == '\n' || c == '\r') {
      line += c == '\t' ? "\\t" : c == '\n' ? "\\n" : "\\r";
    } else if (byte < ' ' || byte == kDelete) {
      char escape[8];
      snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(byte));
      line += escape;
    } else {
      line += c;
    }
  }
  return line;
}

int reportFileFault(const std::string& subject, int error) {
  std::cerr << "zqxml: " << subject << ": " << strerror(error) << "\n";
  return kFileFault;
}
