// zqxml qp: quoted-printable and subjects of mails.

#include <zqxml/zqxml.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "codesets.h"
#include "commands.h"
#include "input.h"
#include "output.h"

namespace {

constexpr int kJis = 3;
constexpr int kEuc = 4;

struct Options {
  std::string file = "-";
  bool decode = false;
  bool subject = false;
  std::string from = "WESTERN";
  std::string to;
  Output output;
};

struct Line {
  std::string text;
  std::string end;
};

// Lines end as `ends` tells; the last one perhaps without.
std::vector<Line> linesOf(const std::string& content, const char* ends) {
  std::vector<Line> lines;
  for (size_t start = 0; start < content.size();) {
    const size_t end = std::min(content.find_first_of(ends, start), content.size());
    size_t next = std::min(end + 1, content.size());
    if (content.compare(end, 2, "\r\n") == 0) {
      ++next;
    }
    lines.push_back({content.substr(start, end - start), content.substr(end, next - end)});
    start = next;
  }
  return lines;
}

// The library's texts end at a zero byte, so it is written here.
std::string encodedLine(const std::string& line) {
  std::string result;
  for (size_t start = 0; start <= line.size();) {
    const char* piece = line.c_str() + start;
    const size_t length = std::min(line.find('\0', start), line.size()) - start;
    std::vector<char> target(4 * length + 1);
    result += convertToQuotedPrintable(target.data(), piece);
    start += length + 1;
    if (start <= line.size()) {
      result += "=00=\r\n";
    }
  }
  return result;
}

std::string encoded(const std::string& content) {
  std::string result;
  for (const Line& line : linesOf(content, "\n")) {
    result += encodedLine(line.text) + line.end;
  }
  return result;
}

std::string decodedLine(std::string line) {
  std::erase(line, '\0');
  // "=00" puts zero bytes into the text; the last zero is its terminator.
  std::string target(line.size() + 1, '#');
  convertFromQuotedPrintable(target.data(), line.c_str());
  return target.substr(0, target.rfind('\0'));
}

std::string decoded(const std::string& content) {
  std::string result;
  for (const Line& line : linesOf(content, "\r\n")) {
    const bool goesOn = line.text.ends_with('=');
    result += decodedLine(line.text) + (goesOn ? "" : line.end);
  }
  return result;
}

// Texts in JIS can't be cut, and subjects are.
std::string eucOfJis(const std::string& text) {
  std::vector<char> euc(3 * text.size() + 1);
  return convertStrExt(text.c_str(), kJis, euc.data(), kEuc);
}

std::string subjects(const Options& options, const std::string& content) {
  const int told = findCodeSet(options.from)->number;
  const int from = told == kJis ? kEuc : told;
  const int to = options.to.empty() ? mbGetCodeSetForMail(from) : findCodeSet(options.to)->number;
  InitMbutilExt(from);
  std::string result;
  for (Line& line : linesOf(content, "\r\n")) {
    std::erase(line.text, '\0');
    const std::string text = told == kJis ? eucOfJis(line.text) : line.text;
    std::vector<char> target(48 * text.size() + 64);
    result += convertSubjectForMail(target.data(), text.c_str(), to, from) + line.end;
  }
  return result;
}

int run(const Options& options) {
  const std::optional<std::string> content = readFile(options.file);
  if (!content) {
    return kFileFault;
  }
  return options.output.write(options.subject  ? subjects(options, *content)
                              : options.decode ? decoded(*content)
                                               : encoded(*content));
}

}  // namespace

void addQp(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("qp", "Encode and decode quoted-printable, write subjects of mails");
  command
      ->add_option("FILE", options->file,
                   "What to encode or decode; - is standard input, and what is taken without")
      ->option_text(" ");
  command->add_flag("-d,--decode", options->decode, "Decode");
  CLI::Option* subject = command->add_flag(
      "--subject", options->subject, "Write each line as the subject of a mail, in encoded words");
  command
      ->add_option("-f,--from", options->from,
                   "Code set of the subjects: number, name or charset; WESTERN without")
      ->check(faultOfCodeSet)
      ->needs(subject)
      ->option_text("SET");
  command
      ->add_option("-t,--to", options->to,
                   "Code set of the mail; without, the one that mails have for --from")
      ->check(faultOfCodeSet)
      ->needs(subject)
      ->option_text("SET");
  options->output.addOption(*command);
  command->footer(
      "Line ends stay, and each line is encoded by itself; soft line breaks are a carriage return "
      "and a new line.\n`zqxml convert --list` lists the code sets.");
  command->callback([options, &exitCode] {
    if (options->decode && options->subject) {
      throw CLI::ValidationError("qp", "--decode and --subject exclude each other");
    }
    exitCode = run(*options);
  });
}
