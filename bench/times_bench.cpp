// ISO times of documents beside plain mktime, which does not even read a text.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "xml/LocalTime.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/zqxml.h"

namespace {

constexpr const char* kZones[] = {"Europe/Berlin", "America/New_York", "UTC"};

// Times all over ten years, as the objects of an application were last changed.
std::vector<ZQTimestamp> stamps() {
  std::vector<ZQTimestamp> result(4096);
  uint32_t state = 1;
  for (ZQTimestamp& stamp : result) {
    state = state * 1664525 + 1013904223;
    stamp = static_cast<ZQTimestamp>(1000000000 + state / 14);
  }
  return result;
}

void useZone(benchmark::State& state) {
  const char* zone = kZones[state.range(0)];
  setenv("TZ", zone, 1);
  tzset();
  state.SetLabel(zone);
}

std::vector<tm> localTimes() {
  std::vector<tm> result;
  for (const time_t stamp : stamps()) {
    tm local = {};
    localtime_r(&stamp, &local);
    local.tm_isdst = -1;
    result.push_back(local);
  }
  return result;
}

void BM_ISOTime(benchmark::State& state) {
  useZone(state);
  std::vector<std::string> texts;
  for (const ZQTimestamp stamp : stamps()) {
    char text[64];
    FormatZQTimestampToISODateTime(stamp, sizeof text, text);
    texts.emplace_back(text);
  }
  size_t i = 0;
  for (auto _ : state) {
    ZQTimestamp result = 0;
    ZQXMLHandlerUtils::ConvertISOTimeToUnixTime(texts[i++ % texts.size()].c_str(), &result);
    benchmark::DoNotOptimize(result);
  }
}

void BM_LocalToUnixTime(benchmark::State& state) {
  useZone(state);
  const auto times = localTimes();
  size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(localToUnixTime(times[i++ % times.size()]));
  }
}

void BM_Mktime(benchmark::State& state) {
  useZone(state);
  const auto times = localTimes();
  size_t i = 0;
  for (auto _ : state) {
    tm local = times[i++ % times.size()];
    benchmark::DoNotOptimize(mktime(&local));
  }
}

BENCHMARK(BM_ISOTime)->DenseRange(0, 2);
BENCHMARK(BM_LocalToUnixTime)->DenseRange(0, 2);
BENCHMARK(BM_Mktime)->DenseRange(0, 2);

}  // namespace
