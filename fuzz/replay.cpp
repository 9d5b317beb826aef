// Stands in for libFuzzer in the test run: each file of the folders given is an input.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/Input.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) __attribute__((weak));

namespace {

// A block of its exact size, as libFuzzer gives it, so that reading beyond its end is found.
void replay(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(stream), {}};
  const std::vector<uint8_t> input(content.begin(), content.end());
  LLVMFuzzerTestOneInput(input.data(), input.size());
}

}  // namespace

int main(int argc, char** argv) {
  if (LLVMFuzzerInitialize != nullptr) {
    LLVMFuzzerInitialize(&argc, &argv);
  }
  size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
      files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    for (const auto& file : files) {
      // An input that stops the run is the last one named.
      printf("%s\n", file.c_str());
      fflush(stdout);
      replay(file);
      ++count;
    }
  }
  return count > 0 ? 0 : 1;
}
