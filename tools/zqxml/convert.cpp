// zqxml convert: texts of other code sets.

#include <zqxml/zqxml.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "codesets.h"
#include "commands.h"
#include "input.h"
#include "output.h"

namespace {

using Json = nlohmann::ordered_json;

// What convertStrExt() has converters for.
constexpr int kConversions[][2] = {{3, 4},  {3, 5},  {4, 3},   {4, 5},   {5, 3},   {5, 4},
                                   {9, 10}, {10, 9}, {14, 23}, {17, 24}, {23, 14}, {24, 17}};

// Code sets whose texts the library doesn't take apart.
constexpr int kNotValidated[] = {3, 41, 42, 64, 65};

constexpr int kEucOrShiftJis = 6;

struct Options {
  std::vector<std::string> files;
  std::string from;
  std::string to;
  bool list = false;
  bool validate = false;
  bool detect = false;
  bool json = false;
  Output output;
};

const char* detectedName(int code) {
  return code == 0 ? "unknown" : code == kEucOrShiftJis ? "EUC or SJIS" : nameOf(code);
}

int list(const Options& options) {
  std::string text;
  Json rows = Json::array();
  for (const CodeSet& set : allCodeSets()) {
    const std::string charset = charsetOf(set.number);
    text += std::to_string(set.number) + "\t" + set.name + "\t" + charset + "\n";
    rows.push_back({{"number", set.number}, {"name", set.name}});
    rows.back()["charset"] = charset.empty() ? Json() : Json(charset);
  }
  return options.json ? options.output.write(rows) : options.output.write(text);
}

// The library's texts end at a zero byte, so a file with such is converted in pieces.
std::string converted(const std::string& content, int from, int to) {
  std::string result;
  for (size_t start = 0; start <= content.size();) {
    const char* piece = content.c_str() + start;
    const size_t length = strlen(piece);
    std::vector<char> target(5 * length + 9);
    result += convertStrExt(piece, from, target.data(), to);
    start += length + 1;
    if (start <= content.size()) {
      result += '\0';
    }
  }
  return result;
}

int convert(const Options& options) {
  const int from = findCodeSet(options.from)->number;
  const int to = findCodeSet(options.to)->number;
  bool isPossible = from == to;
  for (const auto& [one, other] : kConversions) {
    isPossible = isPossible || (one == from && other == to);
  }
  if (!isPossible) {
    std::cerr << "zqxml: there is no conversion from " << nameOf(from) << " to " << nameOf(to)
              << "\n";
    return kUsageFault;
  }
  std::string result;
  for (const std::string& path : options.files) {
    const std::optional<std::string> content = readFile(path);
    if (!content) {
      return kFileFault;
    }
    result += converted(*content, from, to);
  }
  return options.output.write(result);
}

// Where the first invalid character is.
std::optional<size_t> firstInvalid(const std::string& content, int codeSet) {
  for (size_t start = 0; start < content.size();) {
    const char* piece = content.c_str() + start;
    int index = 0;
    if (mbvalidatestring(piece, &index, codeSet) == 0) {
      return start + static_cast<size_t>(index);
    }
    start += strlen(piece) + 1;
  }
  return std::nullopt;
}

int validate(const Options& options) {
  const int codeSet = findCodeSet(options.from)->number;
  for (const int number : kNotValidated) {
    if (number == codeSet) {
      std::cerr << "zqxml: texts of " << nameOf(codeSet) << " can't be validated\n";
      return kUsageFault;
    }
  }
  InitMbutilExt(codeSet);
  int worst = kDone;
  Json rows = Json::array();
  for (const std::string& path : options.files) {
    const std::optional<std::string> content = readFile(path);
    if (!content) {
      worst = kFileFault;
      continue;
    }
    const std::optional<size_t> place = firstInvalid(*content, codeSet);
    rows.push_back({{"file", shownName(path)}, {"valid", !place}});
    if (place) {
      const std::string before = content->substr(0, *place);
      const auto line = 1 + std::count(before.begin(), before.end(), '\n');
      const size_t column = *place - (before.rfind('\n') + 1) + 1;
      rows.back().update({{"offset", *place}, {"line", line}, {"column", column}});
      if (!options.json) {
        std::cerr << shownName(path) << ":" << line << ":" << column
                  << ": error: not a character of " << nameOf(codeSet) << "\n";
      }
      worst = std::max(worst, static_cast<int>(kAnswerIsNo));
    }
  }
  return options.json ? std::max(worst, options.output.write(rows)) : worst;
}

int detect(const Options& options) {
  int worst = kDone;
  std::string text;
  Json rows = Json::array();
  for (const std::string& path : options.files) {
    const File file = openFile(path);
    if (file == nullptr) {
      worst = kFileFault;
      continue;
    }
    const int code = DetectJPCodeType(file.get());
    if (ferror(file.get()) != 0) {
      worst = reportFileFault(shownName(path), errno);
      continue;
    }
    worst = std::max(worst, static_cast<int>(code == 0 ? kAnswerIsNo : kDone));
    text += (options.files.size() > 1 ? shownName(path) + "\t" : "") + detectedName(code) + "\n";
    rows.push_back({{"file", shownName(path)}, {"codeSet", code}, {"name", detectedName(code)}});
  }
  return std::max(worst, options.json ? options.output.write(rows) : options.output.write(text));
}

int run(const Options& options) {
  if (options.list) {
    return list(options);
  }
  if (options.validate) {
    return validate(options);
  }
  return options.detect ? detect(options) : convert(options);
}

// What is wrong with the options as a whole, or nothing.
std::string faultOf(const Options& options) {
  const int actions = options.list + options.validate + options.detect + !options.to.empty();
  if (actions != 1) {
    return "exactly one of --to, --list, --validate and --detect is required";
  }
  if ((options.validate || !options.to.empty()) && options.from.empty()) {
    return "--from is required";
  }
  return "";
}

}  // namespace

void addConvert(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("convert", "Convert, check and detect texts of other code sets");
  options->files = {"-"};
  command
      ->add_option("FILE", options->files, "Texts; - is standard input, and what is taken without")
      ->option_text("...");
  command->add_option("-f,--from", options->from, "Code set of the texts: number, name or charset")
      ->check(faultOfCodeSet)
      ->option_text("SET");
  command->add_option("-t,--to", options->to, "Convert to this code set")
      ->check(faultOfCodeSet)
      ->option_text("SET");
  command->add_flag("--list", options->list, "List the code sets: number, name and charset");
  command->add_flag("--validate", options->validate,
                    "Tell the first place of each text that is no character of --from");
  command->add_flag("--detect", options->detect,
                    "Tell which Japanese code set each text is in: JIS, EUC, SJIS");
  command->add_flag("--json", options->json, "Print JSON, except for a converted text");
  options->output.addOption(*command);
  command->footer(
      "Converts JIS, EUC and SJIS into one another, and so BIG5 and EUC_H, 8859_2 and 1250, 8859_5 "
      "and 1251.\nInvalid bytes pass; in Chinese \"??\" stands for them and for what has no "
      "counterpart. Exits with 1 if\na text isn't valid or its code set can't be told.");
  command->callback([options, &exitCode] {
    if (const std::string fault = faultOf(*options); !fault.empty()) {
      throw CLI::ValidationError("convert", fault);
    }
    checkStandardInputOnce(options->files);
    exitCode = run(*options);
  });
}
