// Base64 beside EVP of OpenSSL, on the same data. Both write lines, of 76 and of 64 characters.

#include <benchmark/benchmark.h>
#include <openssl/evp.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "text/base64_ways.h"
#include "zqxml/base64.h"

namespace {

constexpr size_t kSize = 1 << 20;

const std::vector<unsigned char>& data() {
  static const std::vector<unsigned char> bytes = [] {
    std::mt19937 random(1);
    std::vector<unsigned char> made(kSize);
    for (unsigned char& byte : made) {
      byte = static_cast<unsigned char>(random());
    }
    return made;
  }();
  return bytes;
}

const std::string& text() {
  static const std::string encoded = [] {
    char* made = nullptr;
    EncodeBase64(data().data(), kSize, &made);
    const std::unique_ptr<char, decltype(&free)> owner(made, free);
    return std::string(made);
  }();
  return encoded;
}

void setBytes(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(kSize));
}

void BM_Encode(benchmark::State& state) {
  for (auto _ : state) {
    char* made = nullptr;
    EncodeBase64(data().data(), kSize, &made);
    benchmark::DoNotOptimize(made);
    free(made);
  }
  setBytes(state);
}

void BM_EncodePortable(benchmark::State& state) {
  std::vector<char> target(2 * kSize);
  for (auto _ : state) {
    benchmark::DoNotOptimize(portableBase64.encode(data().data(), kSize, target.data()));
  }
  setBytes(state);
}

void BM_EvpEncode(benchmark::State& state) {
  std::vector<unsigned char> target(2 * kSize);
  EVP_ENCODE_CTX* context = EVP_ENCODE_CTX_new();
  for (auto _ : state) {
    int length = 0;
    EVP_EncodeInit(context);
    EVP_EncodeUpdate(context, target.data(), &length, data().data(), kSize);
    EVP_EncodeFinal(context, target.data() + length, &length);
    benchmark::DoNotOptimize(target.data());
  }
  EVP_ENCODE_CTX_free(context);
  setBytes(state);
}

void BM_Decode(benchmark::State& state) {
  const char* source = text().c_str();
  for (auto _ : state) {
    unsigned char* bytes = nullptr;
    unsigned length = 0;
    DecodeBase64(source, &bytes, &length);
    benchmark::DoNotOptimize(bytes);
    free(bytes);
    if (length != kSize) {
      state.SkipWithError("wrong length");
    }
  }
  setBytes(state);
}

void BM_DecodePortable(benchmark::State& state) {
  std::vector<unsigned char> target(2 * kSize);
  for (auto _ : state) {
    benchmark::DoNotOptimize(portableBase64.decode(text().data(), text().size(), target.data()));
  }
  setBytes(state);
}

void BM_EvpDecode(benchmark::State& state) {
  std::vector<unsigned char> target(2 * kSize);
  const auto* source = reinterpret_cast<const unsigned char*>(text().data());
  EVP_ENCODE_CTX* context = EVP_ENCODE_CTX_new();
  for (auto _ : state) {
    int length = 0;
    int rest = 0;
    EVP_DecodeInit(context);
    EVP_DecodeUpdate(context, target.data(), &length, source, static_cast<int>(text().size()));
    EVP_DecodeFinal(context, target.data() + length, &rest);
    benchmark::DoNotOptimize(target.data());
    if (length + rest != static_cast<int>(kSize)) {
      state.SkipWithError("wrong length");
    }
  }
  EVP_ENCODE_CTX_free(context);
  setBytes(state);
}

BENCHMARK(BM_Encode);
BENCHMARK(BM_EncodePortable);
BENCHMARK(BM_EvpEncode);
BENCHMARK(BM_Decode);
BENCHMARK(BM_DecodePortable);
BENCHMARK(BM_EvpDecode);

}  // namespace
