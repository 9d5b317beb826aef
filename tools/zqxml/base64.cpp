// zqxml base64: bytes as text.

#include <zqxml/zqxml.h>
#include <algorithm>

#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "commands.h"
#include "input.h"
#include "output.h"

namespace {

struct Options {
  std::string file = "-";
  bool decode = false;
  Output output;
};

using Bytes = std::unique_ptr<unsigned char, decltype(&free)>;
using Text = std::unique_ptr<char, decltype(&free)>;

std::string encoded(const std::string& content) {
  // Pieces of whole lines, as the library counts in 32 bits.
  constexpr size_t kPiece = size_t{ZQ_BASE64_LINE_BYTES} << 20;
  std::string result;
  for (size_t begin = 0; begin < content.size(); begin += kPiece) {
    const size_t length = std::min(kPiece, content.size() - begin);
    char* text = nullptr;
    if (EncodeBase64(content.data() + begin, static_cast<unsigned>(length), &text) != 0) {
      throw std::bad_alloc();
    }
    result += Text(text, free).get();
  }
  return result;
}

std::string decoded(std::string content) {
  // The library's texts end at a zero byte, and it would skip it if it could.
  std::erase(content, '\0');
  unsigned char* bytes = nullptr;
  unsigned length = 0;
  if (DecodeBase64(content.c_str(), &bytes, &length) != 0) {
    throw std::bad_alloc();
  }
  const Bytes owner(bytes, free);
  return {reinterpret_cast<const char*>(bytes), length};
}

int run(const Options& options) {
  std::optional<std::string> content = readFile(options.file);
  if (!content) {
    return kFileFault;
  }
  return options.output.write(options.decode ? decoded(std::move(*content)) : encoded(*content));
}

}  // namespace

void addBase64(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("base64", "Encode and decode Base64");
  command
      ->add_option("FILE", options->file,
                   "What to encode or decode; - is standard input, and what is taken without")
      ->option_text(" ");
  command->add_flag("-d,--decode", options->decode, "Decode");
  options->output.addOption(*command);
  command->footer(
      "Writes lines of 76 characters, as in attachments of documents. Decoding skips all but the "
      "64 characters\nof Base64.");
  command->callback([options, &exitCode] { exitCode = run(*options); });
}
