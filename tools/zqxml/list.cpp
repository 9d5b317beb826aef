// zqxml list: the objects of definition documents.

#include <fnmatch.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "commands.h"
#include "document.h"
#include "input.h"
#include "kinds.h"
#include "output.h"

namespace {

using Json = nlohmann::ordered_json;
using NumberList = Owned<ZQUnsignedIntList, FreeZQUnsignedIntList>;
using NameList = Owned<ZQNameList, FreeZQNameList>;

constexpr int kUtf8CodeSet = 65;

struct Options {
  std::vector<std::string> files;
  std::vector<uint32_t> kinds;
  std::vector<std::string> globs;
  bool count = false;
  bool json = false;
  Output output;

  bool selects(uint32_t kind, const char* name) const {
    const bool ofKind = kinds.empty() || std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
    const auto matches = [name](const std::string& glob) {
      return fnmatch(glob.c_str(), name, 0) == 0;
    };
    return ofKind && (globs.empty() || std::any_of(globs.begin(), globs.end(), matches));
  }
  bool selectsAll() const { return kinds.empty() && globs.empty(); }
};

struct Object {
  std::string kind;
  std::string name;
  std::string containerType;
};

// The selected objects of one document; `result` is kDone or the fault that was told.
std::vector<Object> listObjects(Parser& parser, Document& document, const Options& options,
                                int& result) {
  NumberList types;
  NameList names;
  NumberList subTypes;
  StatusList status;
  const ZQXMLInputDoc input = document.input();
  const int severity =
      GetListXMLObjects(parser.handle(), &input, &types, &names, &subTypes, &status);
  if (severity != 0 || status->numItems > 0) {
    parser.reportFaults(document, status);
  }
  if (severity != 0) {
    result = kDocumentFault;
    return {};
  }
  std::vector<Object> objects;
  for (uint32_t i = 0; i < types->numItems; ++i) {
    if (options.selects(types->items[i], names->items[i])) {
      objects.push_back(
          {kindWord(types->items[i]), names->items[i], containerTypeWord(subTypes->items[i])});
    }
  }
  return objects;
}

std::string asText(const std::string& file, const std::vector<Object>& objects, bool showFile,
                   bool count) {
  const std::string prefix = showFile ? file + "\t" : "";
  if (count) {
    return prefix + std::to_string(objects.size()) + "\n";
  }
  std::string text;
  for (const Object& object : objects) {
    text += prefix + object.kind + "\t" + onOneLine(object.name);
    if (!object.containerType.empty()) {
      text += "\t" + object.containerType;
    }
    text += "\n";
  }
  return text;
}

void appendJson(Json& list, const std::string& file, const std::vector<Object>& objects,
                bool count) {
  if (count) {
    list.push_back({{"file", file}, {"count", objects.size()}});
    return;
  }
  for (const Object& object : objects) {
    Json row = {{"file", file}, {"kind", object.kind}, {"name", object.name}};
    row["containerType"] = object.containerType.empty() ? Json() : Json(object.containerType);
    list.push_back(row);
  }
}

int run(const Options& options) {
  if (options.json) {
    InitMbutilExt(kUtf8CodeSet);  // JSON is UTF-8, whatever the locale.
  }
  Parser parser;
  if (const int result = parser.create(); result != kDone) {
    return result;
  }
  int worst = kDone;
  size_t found = 0;
  std::string text;
  Json list = Json::array();
  {
    Progress progress(options.files.size());
    for (const std::string& file : options.files) {
      progress.next();
      Document document(file);
      int result = document.isReadable() ? kDone : kFileFault;
      if (result == kDone) {
        const std::vector<Object> objects = listObjects(parser, document, options, result);
        if (result == kDone) {
          found += objects.size();
          text += asText(document.name(), objects, options.files.size() > 1, options.count);
          appendJson(list, document.name(), objects, options.count);
        }
      }
      worst = std::max(worst, result);
    }
  }
  const int written = options.json ? options.output.write(list) : options.output.write(text);
  worst = std::max(worst, written);
  return worst == kDone && found == 0 && !options.selectsAll() ? kAnswerIsNo : worst;
}

}  // namespace

void addList(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("list", "List the objects of definition documents");
  command->footer(
      "A line per object: kind, name and, for containers, type, with tabs between them; ahead of "
      "them the file\nif there are several. Standalone fields are no objects and aren't listed; a "
      "vui has the name of its form.\nControl characters in names are written as in JSON. Exits "
      "with 1 if -k or -n select "
      "nothing.");
  std::map<std::string, uint32_t> words;
  for (const Kind& kind : listedKinds()) {
    words[kind.word] = kind.number;
  }
  command->add_option("FILE", options->files, "Documents; - is standard input")
      ->required()
      ->option_text("...");
  command->add_option("-k,--kind", options->kinds, "Only objects of this kind; may be repeated")
      ->transform(CLI::CheckedTransformer(words, CLI::ignore_case))
      ->allow_extra_args(false)
      ->option_text("KIND");
  command
      ->add_option("-n,--name", options->globs, "Only objects whose name matches; may be repeated")
      ->allow_extra_args(false)
      ->option_text("GLOB");
  command->add_flag("--count", options->count, "Print how many objects there are");
  command->add_flag("--json", options->json, "Print JSON");
  options->output.addOption(*command);
  command->callback([options, &exitCode] {
    checkStandardInputOnce(options->files);
    exitCode = run(*options);
  });
}
