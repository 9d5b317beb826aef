// Conversion between code sets beside iconv of the C library, and the walks that all names and
// searches take.

#include <benchmark/benchmark.h>
#include <iconv.h>

#include <cstring>
#include <string>
#include <vector>

#include "zqxml/zqxml.h"

namespace {

constexpr size_t kSize = 1 << 20;
constexpr int kEuc = 4;
constexpr int kShiftJis = 5;

// Characters of EUC, and as many percent of ASCII, in runs of eight bytes. All are assigned, so
// that the peer doesn't stop.
std::string eucText(unsigned asciiPercent) {
  std::string text;
  unsigned state = 1;
  const auto next = [&state] { return (state = state * 1103515245 + 12345) >> 16; };
  while (text.size() < kSize) {
    if (next() % 100 < asciiPercent) {
      text += "ascii   ";
    } else {
      for (int i = 0; i < 4; ++i) {
        text += static_cast<char>(0xB0 + next() % 0x1F);
        text += static_cast<char>(0xA1 + next() % 94);
      }
    }
  }
  return text;
}

void setBytes(benchmark::State& state, size_t size) {
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}

void BM_EucToShiftJis(benchmark::State& state) {
  const std::string source = eucText(static_cast<unsigned>(state.range(0)));
  std::vector<char> target(3 * source.size() + 1);
  for (auto _ : state) {
    benchmark::DoNotOptimize(euc2shiftx(source.c_str(), target.data()));
  }
  setBytes(state, source.size());
}

void BM_IconvEucToShiftJis(benchmark::State& state) {
  std::string source = eucText(static_cast<unsigned>(state.range(0)));
  std::vector<char> target(3 * source.size() + 1);
  const iconv_t converter = iconv_open("SHIFT_JIS", "EUC-JP");
  for (auto _ : state) {
    char* in = source.data();
    char* out = target.data();
    size_t inLeft = source.size();
    size_t outLeft = target.size();
    if (iconv(converter, &in, &inLeft, &out, &outLeft) == static_cast<size_t>(-1)) {
      state.SkipWithError("iconv stopped");
    }
  }
  iconv_close(converter);
  setBytes(state, source.size());
}

void BM_ShiftJisToEuc(benchmark::State& state) {
  const std::string euc = eucText(static_cast<unsigned>(state.range(0)));
  std::vector<char> source(euc.size() + 1);
  euc2shiftx(euc.c_str(), source.data());
  std::vector<char> target(3 * euc.size() + 1);
  for (auto _ : state) {
    benchmark::DoNotOptimize(shift2eucx(source.data(), target.data()));
  }
  setBytes(state, euc.size());
}

// The copy of a name into its array, which every record that is read has many of.
void BM_CopyName(benchmark::State& state) {
  InitMbutilExt(static_cast<int>(state.range(0)));
  char name[255];
  for (auto _ : state) {
    benchmark::DoNotOptimize(mbstrncpy(name, "Requests of a help desk", sizeof name - 1));
  }
  InitMbutilExt(0);
}

void BM_FindInCharacters(benchmark::State& state) {
  InitMbutilExt(kShiftJis);
  std::string text = eucText(50);
  std::vector<char> source(text.size() + 1);
  convertStrExt(text.c_str(), kEuc, source.data(), kShiftJis);
  for (auto _ : state) {
    benchmark::DoNotOptimize(mbstrchr(source.data(), '\\'));
  }
  InitMbutilExt(0);
  setBytes(state, text.size());
}

BENCHMARK(BM_EucToShiftJis)->Arg(0)->Arg(95);
BENCHMARK(BM_IconvEucToShiftJis)->Arg(0)->Arg(95);
BENCHMARK(BM_ShiftJisToEuc)->Arg(0)->Arg(95);
BENCHMARK(BM_CopyName)->Arg(0)->Arg(kShiftJis);
BENCHMARK(BM_FindInCharacters);

}  // namespace
