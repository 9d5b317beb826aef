// Compression, decompression and CRC-32 beside zlib, which gets a CRC of its own to compute, and
// libdeflate. All results lie in a fresh heap block.

#include <benchmark/benchmark.h>
#include <libdeflate.h>
#include <zlib.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "compress/crc32.h"
#include "tests/compress/inputs.h"
#include "zqxml/compress.h"

namespace {

using inputs::Bytes;
using inputs::Kind;

struct FreeBlock {
  void operator()(void* block) const { free(block); }
};
using Block = std::unique_ptr<void, FreeBlock>;

constexpr int kRaw = -15;
constexpr int kMemoryLevel = 8;

const Bytes& dataOf(Kind kind, size_t megabytes) {
  static std::map<std::pair<Kind, size_t>, Bytes> cache;
  Bytes& data = cache[{kind, megabytes}];
  if (data.empty()) {
    data = inputs::make(kind, megabytes << 20);
  }
  return data;
}

void require(bool good) {
  if (!good) {
    throw std::runtime_error("a call failed");
  }
}

unsigned sizeOf(const Bytes& data) {
  return static_cast<unsigned>(data.size());
}

Bytes compressed(const Bytes& data, unsigned level) {
  void* block = nullptr;
  unsigned length = 0;
  require(ZQCompressMemToMem(level, data.data(), sizeOf(data), &block, &length) == 0);
  const Block owner(block);
  const auto* bytes = static_cast<const unsigned char*>(block);
  return Bytes(bytes, bytes + length);
}

Bytes compressedByZlib(const Bytes& data, int level) {
  z_stream stream = {};
  require(deflateInit2(&stream, level, Z_DEFLATED, kRaw, kMemoryLevel, Z_DEFAULT_STRATEGY) == Z_OK);
  Bytes out(deflateBound(&stream, sizeOf(data)));
  stream.next_in = const_cast<unsigned char*>(data.data());
  stream.avail_in = sizeOf(data);
  stream.next_out = out.data();
  stream.avail_out = sizeOf(out);
  require(::deflate(&stream, Z_FINISH) == Z_STREAM_END);
  out.resize(stream.total_out);
  deflateEnd(&stream);
  return out;
}

void compress(benchmark::State& state, Kind kind, size_t megabytes, unsigned level) {
  const Bytes& data = dataOf(kind, megabytes);
  size_t result = 0;
  for (auto _ : state) {
    void* block = nullptr;
    unsigned length = 0;
    require(ZQCompressMemToMem(level, data.data(), sizeOf(data), &block, &length) == 0);
    const Block owner(block);
    result = length;
  }
  state.counters["size"] = static_cast<double>(result) / static_cast<double>(data.size());
}

void compressZlib(benchmark::State& state, Kind kind, size_t megabytes, int level) {
  const Bytes& data = dataOf(kind, megabytes);
  size_t result = 0;
  for (auto _ : state) {
    z_stream stream = {};
    require(deflateInit2(&stream, level, Z_DEFLATED, kRaw, kMemoryLevel, Z_DEFAULT_STRATEGY) ==
            Z_OK);
    const size_t bound = deflateBound(&stream, sizeOf(data));
    const Block owner(malloc(bound));
    stream.next_in = const_cast<unsigned char*>(data.data());
    stream.avail_in = sizeOf(data);
    stream.next_out = static_cast<unsigned char*>(owner.get());
    stream.avail_out = static_cast<unsigned>(bound);
    benchmark::DoNotOptimize(crc32(0, data.data(), sizeOf(data)));
    require(::deflate(&stream, Z_FINISH) == Z_STREAM_END);
    result = stream.total_out;
    deflateEnd(&stream);
  }
  state.counters["size"] = static_cast<double>(result) / static_cast<double>(data.size());
}

void compressLibdeflate(benchmark::State& state, Kind kind, size_t megabytes, int level) {
  const Bytes& data = dataOf(kind, megabytes);
  size_t result = 0;
  for (auto _ : state) {
    libdeflate_compressor* compressor = libdeflate_alloc_compressor(level);
    const size_t bound = libdeflate_deflate_compress_bound(compressor, data.size());
    const Block owner(malloc(bound));
    benchmark::DoNotOptimize(libdeflate_crc32(0, data.data(), data.size()));
    result = libdeflate_deflate_compress(compressor, data.data(), data.size(), owner.get(), bound);
    libdeflate_free_compressor(compressor);
  }
  state.counters["size"] = static_cast<double>(result) / static_cast<double>(data.size());
}

// All decoders get the stream that zlib writes at level 6.
Bytes streamOf(const Bytes& data) {
  return compressedByZlib(data, 6);
}

Bytes containerOf(const Bytes& data) {
  const Bytes empty = compressed(data, 1);
  const Bytes stream = streamOf(data);
  Bytes container(empty.begin(), empty.begin() + 8);
  container.insert(container.end(), stream.begin(), stream.end());
  container.insert(container.end(), empty.end() - 4, empty.end());
  return container;
}

void decompress(benchmark::State& state, Kind kind, size_t megabytes) {
  const Bytes container = containerOf(dataOf(kind, megabytes));
  for (auto _ : state) {
    void* block = nullptr;
    unsigned length = 0;
    require(ZQDecompressMemToMem(container.data(), sizeOf(container), &block, &length) == 0);
    const Block owner(block);
  }
}

void decompressZlib(benchmark::State& state, Kind kind, size_t megabytes) {
  const Bytes& data = dataOf(kind, megabytes);
  const Bytes input = streamOf(data);
  for (auto _ : state) {
    const Block owner(malloc(data.size() + 1));
    z_stream stream = {};
    require(inflateInit2(&stream, kRaw) == Z_OK);
    stream.next_in = const_cast<unsigned char*>(input.data());
    stream.avail_in = sizeOf(input);
    stream.next_out = static_cast<unsigned char*>(owner.get());
    stream.avail_out = sizeOf(data);
    require(::inflate(&stream, Z_FINISH) == Z_STREAM_END);
    inflateEnd(&stream);
    benchmark::DoNotOptimize(
        crc32(0, static_cast<const unsigned char*>(owner.get()), sizeOf(data)));
  }
}

void decompressLibdeflate(benchmark::State& state, Kind kind, size_t megabytes) {
  const Bytes& data = dataOf(kind, megabytes);
  const Bytes input = streamOf(data);
  for (auto _ : state) {
    const Block owner(malloc(data.size() + 1));
    libdeflate_decompressor* decompressor = libdeflate_alloc_decompressor();
    size_t length = 0;
    require(libdeflate_deflate_decompress(decompressor, input.data(), input.size(), owner.get(),
                                          data.size(), &length) == LIBDEFLATE_SUCCESS);
    libdeflate_free_decompressor(decompressor);
    benchmark::DoNotOptimize(libdeflate_crc32(0, owner.get(), data.size()));
  }
}

template <typename Function>
void checksum(benchmark::State& state, Function function) {
  const Bytes& data = dataOf(Kind::Text, static_cast<size_t>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(function(data));
  }
}

void BM_Crc32(benchmark::State& state) {
  checksum(state, [](const Bytes& data) { return updateCrc32(~0u, data.data(), data.size()); });
}
void BM_Crc32Slicing(benchmark::State& state) {
  checksum(state,
           [](const Bytes& data) { return updateCrc32Slicing(~0u, data.data(), data.size()); });
}
void BM_Crc32Zlib(benchmark::State& state) {
  checksum(state, [](const Bytes& data) { return crc32(0, data.data(), sizeOf(data)); });
}
void BM_Crc32Libdeflate(benchmark::State& state) {
  checksum(state, [](const Bytes& data) { return libdeflate_crc32(0, data.data(), data.size()); });
}
BENCHMARK(BM_Crc32)->Arg(1)->Arg(20);
BENCHMARK(BM_Crc32Slicing)->Arg(1)->Arg(20);
BENCHMARK(BM_Crc32Zlib)->Arg(1)->Arg(20);
BENCHMARK(BM_Crc32Libdeflate)->Arg(1)->Arg(20);

template <typename Function, typename... Arguments>
void add(const std::string& name, Kind kind, size_t megabytes, Function function,
         Arguments... arguments) {
  benchmark::RegisterBenchmark(
      (name + "/" + inputs::nameOf(kind) + "/" + std::to_string(megabytes)).c_str(),
      [=](benchmark::State& state) {
        function(state, kind, megabytes, arguments...);
        state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                                static_cast<int64_t>(megabytes << 20));
      })
      ->Unit(benchmark::kMillisecond);
}

const bool kRegistered = [] {
  for (const Kind kind : {Kind::Text, Kind::Xml, Kind::Binary, Kind::Base64, Kind::Random}) {
    for (const size_t megabytes : {1u, 20u}) {
      for (const int level : {1, 6, 9}) {
        const std::string suffix = std::to_string(level);
        add("BM_Compress" + suffix, kind, megabytes, compress, static_cast<unsigned>(level));
        add("BM_CompressZlib" + suffix, kind, megabytes, compressZlib, level);
        add("BM_CompressLibdeflate" + suffix, kind, megabytes, compressLibdeflate, level);
      }
      add("BM_Decompress", kind, megabytes, decompress);
      add("BM_DecompressZlib", kind, megabytes, decompressZlib);
      add("BM_DecompressLibdeflate", kind, megabytes, decompressLibdeflate);
    }
  }
  return true;
}();

}  // namespace
