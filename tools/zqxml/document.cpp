#include "document.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <iostream>
#include <sstream>

#include "commands.h"
#include "messages.h"
#include "output.h"

namespace {

constexpr char kStandardInput[] = "/dev/stdin";

const char* severityName(uint32_t messageType) {
  switch (messageType) {
    case 0:
      return "note";
    case 1:
      return "warning";
    default:
      return "error";
  }
}

std::string orEmpty(const char* text) {
  return text != nullptr ? text : "";
}

// The detail of a record without the place, which stands ahead of the message already.
std::string withoutPlace(std::string detail, uint64_t line, uint64_t column) {
  std::ostringstream place;
  place << "line: " << line << ", column " << column;
  const std::string suffix = place.str();
  if (detail.size() >= suffix.size() &&
      detail.compare(detail.size() - suffix.size(), suffix.size(), suffix) == 0) {
    detail.resize(detail.size() - suffix.size());
    if (detail.size() >= 2 && detail.compare(detail.size() - 2, 2, ", ") == 0) {
      detail.resize(detail.size() - 2);
    }
  }
  return detail;
}

double now() {
  timespec time;
  clock_gettime(CLOCK_MONOTONIC, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// The catalog's text, or the tool's own where there is no catalog, as in a build tree.
std::string textOf(const ZQStatusStruct& record) {
  static const bool hasCatalog = ZQOpenSharedCatalog() != reinterpret_cast<nl_catd>(-1);
  const Message* message = hasCatalog ? nullptr : findMessage(record.messageNum);
  return message != nullptr ? message->text : orEmpty(record.messageText);
}

void printRecord(const std::string& place, const ZQStatusStruct& record,
                 const std::string& detail) {
  const std::string text = textOf(record);
  std::cerr << place << ": " << severityName(record.messageType) << ": " << text;
  if (!detail.empty()) {
    std::cerr << (text.empty() ? "" : ": ") << onOneLine(detail);
  }
  std::cerr << " [" << record.messageNum << "]\n";
}

}  // namespace

Document::Document(const std::string& fileName)
    : path(fileName == "-" ? kStandardInput : fileName),
      shownName(fileName == "-" ? "<stdin>" : fileName) {}

Document::Document(std::string documentPath, std::string name)
    : path(std::move(documentPath)), shownName(std::move(name)) {}

bool Document::isAddress() const {
  return path.find(':') != std::string::npos && access(path.c_str(), F_OK) != 0;
}

bool Document::isReadable() const {
  if (isAddress()) {
    return true;  // The library says what it thinks of it.
  }
  struct stat information;
  int error = stat(path.c_str(), &information) == 0 ? 0 : errno;
  if (error == 0 && S_ISDIR(information.st_mode)) {
    error = EISDIR;
  }
  // Whoever writes into a pipe would take the closing for the end of the reading.
  if (error == 0 && !S_ISFIFO(information.st_mode)) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    error = descriptor < 0 ? errno : 0;
    if (descriptor >= 0) {
      close(descriptor);
    }
  }
  if (error != 0) {
    reportFileFault(shownName, error);
  }
  return error == 0;
}

ZQXMLInputDoc Document::input() {
  return {ZQXML_INPUT_FILE, path.data()};
}

int Parser::create() {
  StatusList status;
  if (CreateXMLParserHandle(&parser, &status) == 0) {
    return kDone;
  }
  for (uint32_t i = 0; i < status->numItems; ++i) {
    printRecord("zqxml", status->items[i], orEmpty(status->items[i].appendedText));
  }
  return kDocumentFault;
}

void Parser::reportFaults(const Document& document, const StatusList& status) const {
  uint64_t line = 0;
  uint64_t column = 0;
  GetXMLParserPosition(&parser, &line, &column);
  for (uint32_t i = 0; i < status->numItems; ++i) {
    // The place is that of the message that came last. A parse ends with its first error, so that
    // is the first record.
    const bool hasPlace = i == 0 && line > 0;
    std::string place = document.name();
    std::string detail = orEmpty(status->items[i].appendedText);
    if (hasPlace) {
      place += ":" + std::to_string(line) + ":" + std::to_string(column);
      detail = withoutPlace(detail, line, column);
    }
    printRecord(place, status->items[i], detail);
  }
  if (status->numItems == 0) {
    std::cerr << document.name() << ": error: Out of memory [300]\n";
  }
}

Progress::Progress(size_t documentCount)
    : count(documentCount), started(now()), onTerminal(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
  if (shown) {
    std::cerr << "\r\033[K";
  }
}

void Progress::next() {
  constexpr double kSilence = 2.0;
  if (onTerminal && now() - started > kSilence) {
    std::cerr << "\r\033[Kzqxml: " << done << " of " << count << " documents" << std::flush;
    shown = true;
  }
  ++done;
}
