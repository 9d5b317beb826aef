// zqxml compress and zqxml decompress: the compressed data form, and gzip files of the same stream.

#include <zqxml/compress_inner.h>
#include <zqxml/zqxml.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "commands.h"
#include "input.h"
#include "messages.h"
#include "output.h"

namespace {

using Json = nlohmann::ordered_json;
using Memory = std::unique_ptr<void, void (*)(void*)>;

constexpr unsigned kMaxLevel = 9;
constexpr size_t kHeaderLength = 8;
constexpr size_t kTrailerLength = 4;
constexpr char kVersion[] = {1, 0};

struct Options {
  std::string file = "-";
  bool levels[kMaxLevel + 1] = {};
  bool strict = false;
  bool info = false;
  bool json = false;
  bool toGzip = false;
  bool fromGzip = false;
  Output output;
};

std::string as32(uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) {
    bytes += static_cast<char>(value >> shift);
  }
  return bytes;
}

uint32_t read32(std::string_view bytes) {
  uint32_t value = 0;
  for (int i = 3; i >= 0; --i) {
    value = value << 8 | static_cast<unsigned char>(bytes[static_cast<size_t>(i)]);
  }
  return value;
}

std::string hexadecimal(uint32_t value) {
  char text[16];
  snprintf(text, sizeof text, "0x%08x", static_cast<unsigned>(value));
  return text;
}

int reportFault(const std::string& path, const std::string& text) {
  std::cerr << shownName(path) << ": error: " << text << "\n";
  return kDocumentFault;
}

std::string messageText(int number) {
  const Message* message = findMessage(number);
  return std::string(message != nullptr ? message->text : "") + " [" + std::to_string(number) + "]";
}

// Compressed data, taken apart.
struct Container {
  bool isPlain = false;  // without the magic bytes: what follows holds nothing
  int status = 0;
  std::string data;
  std::string_view version;
  std::string_view stream;
  uint32_t storedLength = 0;
  uint32_t checksum = 0;                   // of the data
  std::optional<uint32_t> storedChecksum;  // if the trailer was reached
  size_t bytesBehind = 0;                  // behind the trailer
};

Container takeApart(const std::string& source) {
  Container container;
  const std::string_view bytes = source;
  const std::unique_ptr<ZipControlBlock> owner(new ZipControlBlock);
  ZipControlBlock* block = owner.get();
  InitZipControlBlock(block);
  block->inputFd = 0;
  block->outputFd = 0;
  block->inputMemory = reinterpret_cast<const unsigned char*>(source.data());
  block->inputLength = static_cast<unsigned>(source.size());
  block->sourceLength = source.size();
  block->mode = ZIP_DECOMPRESS;
  VerifyCompressedDataHeader(block, source.size());
  if (block->mode != ZIP_DECOMPRESS) {
    container.isPlain = true;
    return container;
  }
  // Left over from elsewhere it would change what is made up for missing bytes.
  errno = 0;
  container.status = ZQUnzip(block);
  const Memory memory(block->outputMemory, free);
  container.data.assign(static_cast<const char*>(memory.get()), block->outputHeld);
  container.version = bytes.substr(2, 2);
  container.storedLength = block->originalLength;
  container.checksum = block->crc;
  const bool isComplete =
      block->inputFill != 0 &&
      (container.status == 0 || container.status == ZQ_MESSAGE_COMPRESS_CHECKSUM ||
       container.status == ZQ_MESSAGE_COMPRESS_LENGTH);
  if (isComplete) {
    const size_t end = block->bytesIn - block->inputFill + block->inputPosition;
    container.stream = bytes.substr(kHeaderLength, end - kTrailerLength - kHeaderLength);
    container.storedChecksum = read32(bytes.substr(end - kTrailerLength));
    container.bytesBehind = source.size() - end;
  } else {
    container.stream = bytes.substr(kHeaderLength);
  }
  return container;
}

std::string containerOf(std::string_view stream, uint32_t length, uint32_t checksum) {
  return std::string("\x1f\x8c\x01\x00", 4) + as32(length) + std::string(stream) + as32(checksum);
}

// RFC 1952: no name, no time, an unknown system.
std::string gzipOf(std::string_view stream, uint32_t length, uint32_t checksum) {
  return std::string("\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\xff", 10) + std::string(stream) +
         as32(checksum) + as32(length);
}

// The length of a gzip header with all that its flags tell of; nothing if it is none.
std::optional<size_t> gzipHeaderLength(std::string_view file) {
  enum Flag { kHeaderChecksum = 2, kExtraField = 4, kName = 8, kComment = 16, kReserved = 0xE0 };
  size_t length = 10;
  if (file.size() < length || !file.starts_with("\x1f\x8b\x08")) {
    return std::nullopt;
  }
  const unsigned flags = static_cast<unsigned char>(file[3]);
  if ((flags & kReserved) != 0) {
    return std::nullopt;
  }
  if ((flags & kExtraField) != 0) {
    if (file.size() < length + 2) {
      return std::nullopt;
    }
    length += 2 + static_cast<unsigned char>(file[length]) +
              static_cast<size_t>(static_cast<unsigned char>(file[length + 1])) * 256;
  }
  for (const Flag text : {kName, kComment}) {
    if ((flags & text) != 0) {
      const size_t end = file.find('\0', length);
      if (end == std::string_view::npos) {
        return std::nullopt;
      }
      length = end + 1;
    }
  }
  return length + ((flags & kHeaderChecksum) != 0 ? 2 : 0);
}

// Reads a file that the library's calls can take at once.
std::optional<std::string> readSource(const Options& options, int* exitCode) {
  std::optional<std::string> source = readFile(options.file);
  if (!source) {
    *exitCode = kFileFault;
  } else if (source->size() > std::numeric_limits<uint32_t>::max()) {
    *exitCode = reportFileFault(shownName(options.file), EFBIG);
    source.reset();
  }
  return source;
}

// The container with the stream of a gzip file of one member, which is taken apart on the way.
std::optional<std::string> fromGzip(const std::string& path, std::string_view file,
                                    Container* container) {
  constexpr size_t kGzipTrailerLength = 8;
  const std::optional<size_t> start = gzipHeaderLength(file);
  if (!start || *start + kGzipTrailerLength > file.size()) {
    reportFault(path, "Not a gzip file");
    return std::nullopt;
  }
  const size_t end = file.size() - kGzipTrailerLength;
  std::string source = containerOf(file.substr(*start, end - *start), read32(file.substr(end + 4)),
                                   read32(file.substr(end)));
  *container = takeApart(source);
  if (container->bytesBehind > 0) {
    reportFault(path, "More than one gzip member, or bytes behind it");
    return std::nullopt;
  }
  if (container->status != 0) {
    reportFault(path, messageText(container->status));
    return std::nullopt;
  }
  return source;
}

int compress(const Options& options) {
  int exitCode = kDone;
  const std::optional<std::string> source = readSource(options, &exitCode);
  if (!source) {
    return exitCode;
  }
  if (options.fromGzip) {
    Container container;
    const std::optional<std::string> result = fromGzip(options.file, *source, &container);
    return result ? options.output.write(*result) : static_cast<int>(kDocumentFault);
  }
  unsigned level = 0;
  for (unsigned i = 1; i <= kMaxLevel; ++i) {
    level = options.levels[i] ? i : level;
  }
  void* block = nullptr;
  unsigned length = 0;
  const int status = ZQCompressMemToMem(level, source->data(),
                                        static_cast<unsigned>(source->size()), &block, &length);
  const Memory memory(block, free);
  if (status != 0) {
    return reportFault(options.file, messageText(status));
  }
  const std::string_view result(static_cast<const char*>(block), length);
  if (options.toGzip) {
    const size_t streamLength = length - kHeaderLength - kTrailerLength;
    return options.output.write(gzipOf(result.substr(kHeaderLength, streamLength),
                                       read32(result.substr(4)),
                                       read32(result.substr(length - kTrailerLength))));
  }
  return options.output.write(std::string(result));
}

Json describe(const Options& options, const std::string& source, const Container& container) {
  Json result = {{"file", shownName(options.file)}, {"size", source.size()}};
  result["kind"] = container.isPlain ? "plain" : "compressed";
  if (container.isPlain) {
    return result;
  }
  result["version"] = {static_cast<unsigned char>(container.version[0]),
                       static_cast<unsigned char>(container.version[1])};
  result["storedLength"] = container.storedLength;
  result["length"] = container.data.size();
  result["streamLength"] = container.stream.size();
  result["storedChecksum"] =
      container.storedChecksum ? Json(hexadecimal(*container.storedChecksum)) : Json();
  result["checksum"] = hexadecimal(container.checksum);
  result["bytesBehind"] = container.bytesBehind;
  result["message"] = container.status;
  return result;
}

std::string asText(const Json& description, int status) {
  const auto number = [&](const char* name) {
    return std::to_string(description[name].get<uint64_t>());
  };
  const auto text = [&](const char* name) { return description[name].get<std::string>(); };
  if (!description.contains("length")) {
    return "Kind:     plain\nSize:     " + number("size") + " bytes\n";
  }
  const Json& checksum = description["storedChecksum"];
  const std::string stored = checksum.is_null() ? "none" : checksum.get<std::string>();
  return "Kind:     compressed, version " + description["version"][0].dump() + "." +
         description["version"][1].dump() + "\nSize:     " + number("size") +
         " bytes\nStream:   " + number("streamLength") + " bytes\nData:     " + number("length") +
         " bytes, stored " + number("storedLength") + "\nChecksum: " + text("checksum") +
         ", stored " + stored + "\nBehind:   " + number("bytesBehind") +
         " bytes\nState:    " + (status == 0 ? "good" : messageText(status)) + "\n";
}

int info(const Options& options, const std::string& source, const Container& container) {
  const Json description = describe(options, source, container);
  const int written = options.json ? options.output.write(description)
                                   : options.output.write(asText(description, container.status));
  const bool isGood = !container.isPlain && container.status == 0;
  return written != kDone ? written : isGood ? kDone : kAnswerIsNo;
}

// What --strict refuses, or nothing.
std::string strictFault(const Container& container) {
  if (container.version != std::string_view(kVersion, sizeof kVersion)) {
    return "The version is not 1.0";
  }
  return container.bytesBehind > 0 ? "Bytes stand behind the trailer" : "";
}

int decompress(const Options& options) {
  int exitCode = kDone;
  const std::optional<std::string> source = readSource(options, &exitCode);
  if (!source) {
    return exitCode;
  }
  if (options.fromGzip) {
    Container container;
    return fromGzip(options.file, *source, &container) ? options.output.write(container.data)
                                                       : static_cast<int>(kDocumentFault);
  }
  const Container container = takeApart(*source);
  if (options.info) {
    return info(options, *source, container);
  }
  if (container.isPlain) {
    return options.strict || options.toGzip ? reportFault(options.file, "Not compressed data")
                                            : options.output.write(*source);
  }
  if (container.status != 0) {
    return reportFault(options.file, messageText(container.status));
  }
  if (const std::string fault = options.strict ? strictFault(container) : ""; !fault.empty()) {
    return reportFault(options.file, fault);
  }
  return options.output.write(
      options.toGzip ? gzipOf(container.stream, container.storedLength, container.checksum)
                     : container.data);
}

void addFile(CLI::App& command, Options& options, const char* description) {
  // A number behind a hyphen is taken for a file otherwise.
  const auto isFile = [](const std::string& word) {
    return word.size() > 1 && word[0] == '-' && word.find_first_not_of("0123456789", 1) == word.npos
               ? "no option: " + word
               : "";
  };
  command.add_option("FILE", options.file, description)->check(isFile)->option_text(" ");
}

}  // namespace

void addCompress(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("compress", "Compress data as attachments travel");
  addFile(*command, *options, "Data; - is standard input, and what is taken without");
  for (unsigned level = 1; level <= kMaxLevel; ++level) {
    const std::string digit = std::to_string(level);
    const bool isShown = level == 1 || level == kMaxLevel;
    command
        ->add_flag("-" + digit, options->levels[level],
                   level == 1           ? "Compress fast; -2 to -8 lie between, -6 if not told"
                   : level == kMaxLevel ? "Compress most"
                                        : "Compress at level " + digit)
        ->group(isShown ? "Options" : "");
  }
  command->add_flag("--from-gzip", options->fromGzip,
                    "Take a gzip file of one member and keep its stream");
  command->add_flag("--to-gzip", options->toGzip, "Write a gzip file");
  options->output.addOption(*command);
  command->callback([options, &exitCode] {
    const auto levels = std::count(std::begin(options->levels), std::end(options->levels), true);
    if (levels + options->fromGzip > 1 || (options->fromGzip && options->toGzip)) {
      throw CLI::ValidationError(
          "compress", "one of -1 to -9 is allowed, and none, nor --to-gzip, with --from-gzip");
    }
    exitCode = compress(*options);
  });
}

void addDecompress(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("decompress", "Decompress such data, or tell about them");
  addFile(*command, *options, "Compressed data; - is standard input, and what is taken without");
  command->add_flag("--strict", options->strict,
                    "Refuse what isn't compressed, other versions, and bytes behind the trailer");
  command->add_flag("--info", options->info, "Tell lengths, checksums and state instead");
  command->add_flag("--json", options->json, "Print JSON, with --info");
  command->add_flag("--to-gzip", options->toGzip, "Write a gzip file with the same stream");
  command->add_flag("--from-gzip", options->fromGzip, "Decompress a gzip file of one member");
  options->output.addOption(*command);
  command->footer(
      "Data that aren't compressed are written as they stand. Of damaged data nothing is written; "
      "they exit\nwith 2. --info exits with 1 if the data are damaged or not compressed.");
  command->callback([options, &exitCode] {
    if (options->info + options->toGzip + options->fromGzip > 1 ||
        (options->strict && (options->info || options->fromGzip)) ||
        (options->json && !options->info)) {
      throw CLI::ValidationError("decompress",
                                 "--info, --to-gzip and --from-gzip exclude one another, --strict "
                                 "goes alone or with --to-gzip, and --json with --info");
    }
    exitCode = decompress(*options);
  });
}
