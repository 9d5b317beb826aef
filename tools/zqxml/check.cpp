// zqxml check: all faults of documents.

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "commands.h"
#include "compare.h"
#include "input.h"
#include "markup.h"
#include "objects.h"
#include "output.h"

namespace {

using Json = nlohmann::ordered_json;

struct Options {
  std::vector<std::string> files;
  bool roundTrip = false;
  Output output;
};

// A document in memory, parsed.
int parseText(Parser& parser, std::string& text, Stream& stream, StatusList& status) {
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, text.data()};
  return ParseXMLDocument(parser.handle(), &input, nullptr, &stream, nullptr, &status);
}

// The name of the attribute that a record refuses, otherwise empty.
std::string refusedAttribute(const ZQStatusStruct& record) {
  if (record.messageNum != ZQ_MESSAGE_ATTRIBUTE_NOT_ALLOWED || record.appendedText == nullptr) {
    return {};
  }
  const std::string detail = record.appendedText;
  return detail.substr(0, detail.find(", line: "));
}

// Tells every fault of a document: the part that is at fault is taken out and the rest parsed
// again. A fault of the XML itself is the last one, and so is one whose place can't be found.
// Returns how many there were.
int reportAllFaults(Parser& parser, const Document& document, const std::string& content) {
  Markup markup(content);
  int faults = 0;
  for (;;) {
    std::string text = markup.text();
    Stream stream;
    StatusList status;
    if (parseText(parser, text, stream, status) == 0 && status->numItems == 0) {
      return faults;
    }
    parser.reportFaults(document, status);
    ++faults;
    uint64_t line = 0;
    uint64_t column = 0;
    GetXMLParserPosition(parser.handle(), &line, &column);
    const bool ofXML =
        status->numItems == 0 || status->items[0].messageNum == ZQ_MESSAGE_XML_PARSER;
    if (ofXML || !markup.takeOut(line, column, refusedAttribute(status->items[0]))) {
      return faults;
    }
  }
}

// What writing is known to change, or null if the difference is none of that.
const char* toldLoss(const Difference& difference) {
  const auto endsWith = [&](const char* name) { return difference.path.ends_with(name); };
  if (endsWith("/advanced/cc") || endsWith("/advanced/bcc") ||
      (endsWith("/advanced") && difference.right.is_null())) {
    return "copies of a notification aren't written";
  }
  if (difference.left.is_null() && difference.right == "") {
    return "an absent text reads back as an empty one";
  }
  if (difference.left.is_null() && difference.right.is_object()) {
    return "an absent branch reads back as an empty one";
  }
  if (endsWith("/executeOn") || endsWith("/monthday") || endsWith("/weekday") ||
      endsWith("/hourmask")) {
    return "bits beyond the mask aren't written";
  }
  if (difference.path.find("/location/") != std::string::npos) {
    return "an attachment is written as long as its compressed size";
  }
  return nullptr;
}

// Whether objects are what they were after they have been written and read.
int checkRoundTrip(Parser& parser, const Document& document, const std::string& content,
                   std::string& report) {
  std::string text = content;
  Stream stream;
  StatusList status;
  parseText(parser, text, stream, status);
  int result = kDone;
  for (const ZQXMLObjectList* node : objectsOf(stream)) {
    const std::string label =
        document.name() + ": " + objectKind(*node) + " " + onOneLine(objectName(*node)) + ": ";
    std::string written;
    Stream again;
    StatusList faults;
    if (writeObjects({node}, written) != kDone) {
      result = std::max<int>(result, kAnswerIsNo);
      continue;
    }
    if (parseText(parser, written, again, faults) != 0) {
      report += label + "can't be read back: message " +
                std::to_string(faults->numItems > 0 ? faults->items[0].messageNum : 0) + "\n";
      result = kAnswerIsNo;
      continue;
    }
    for (const Difference& each :
         compare(objectJson(*node), objectJson(*objectsOf(again).front()))) {
      const char* loss = toldLoss(each);
      report += label + each.path + ": " + shown(each.left) + " -> " + shown(each.right) +
                (loss != nullptr ? std::string(" (") + loss + ")" : "") + "\n";
      result = loss != nullptr ? result : std::max<int>(result, kAnswerIsNo);
    }
  }
  return result;
}

// Documents that can't be taken apart as text (of 16-bit units, or found by an address) are told
// about as far as one parse goes.
bool isPlainText(const std::string& content) {
  return content.find('\0') == std::string::npos;
}

int checkOnce(Parser& parser, Document& document) {
  Stream stream;
  const int result = parseObjects(parser, document, stream);
  uint64_t line = 0;
  GetXMLParserPosition(parser.handle(), &line, nullptr);
  // Without a place there was nothing to read.
  return result == kDone || line == 0 ? result : static_cast<int>(kAnswerIsNo);
}

// The file that the content was read from may be a pipe, which has no more of it.
int checkContent(Parser& parser, const std::string& name, const std::string& content) {
  const int descriptor = memfd_create("document", MFD_CLOEXEC);
  const File file(descriptor < 0 ? nullptr : fdopen(descriptor, "wb"), fclose);
  if (file == nullptr || fwrite(content.data(), 1, content.size(), file.get()) != content.size() ||
      fflush(file.get()) != 0) {
    return reportFileFault(name, errno);
  }
  Document document("/proc/self/fd/" + std::to_string(descriptor), name);
  return checkOnce(parser, document);
}

int check(Parser& parser, const std::string& file, bool roundTrip, std::string& report) {
  Document document(file);
  if (!document.isReadable()) {
    return kFileFault;
  }
  if (document.isAddress()) {
    return checkOnce(parser, document);
  }
  const std::optional<std::string> content = readFile(file);
  if (!content.has_value()) {
    return kFileFault;
  }
  if (!isPlainText(*content)) {
    return checkContent(parser, document.name(), *content);
  }
  if (reportAllFaults(parser, document, *content) > 0) {
    return kAnswerIsNo;
  }
  return roundTrip ? checkRoundTrip(parser, document, *content, report) : kDone;
}

int run(const Options& options) {
  useUtf8();
  Parser parser;
  int worst = parser.create();
  std::string report;
  if (worst == kDone) {
    Progress progress(options.files.size());
    for (const std::string& file : options.files) {
      progress.next();
      worst = std::max(worst, check(parser, file, options.roundTrip, report));
    }
  }
  return std::max(worst, options.output.write(report));
}

}  // namespace

void addCheck(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("check", "Find all faults of documents");
  command->footer(
      "Every fault is told with its place: what is at fault is left out and the rest read on, up "
      "to "
      "a fault of the XML itself.\nWith --round-trip each object of a document without faults is "
      "written, read and compared; what the format is known\nto lose is named, and any other "
      "difference is a fault. Exits with 1 if there are faults.");
  command->add_option("FILE", options->files, "Documents; - is standard input")
      ->required()
      ->option_text("...");
  command->add_flag("--round-trip", options->roundTrip,
                    "Write and read each object, and print what changes");
  options->output.addOption(*command);
  command->callback([options, &exitCode] {
    checkStandardInputOnce(options->files);
    exitCode = run(*options);
  });
}
