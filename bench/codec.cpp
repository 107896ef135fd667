// Throughput of the definition codec on a 1 MiB definition text.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#include "zrsimprp/host/DefinitionEntryCodec.h"

namespace zrsimprp {
namespace {

constexpr size_t kTextSize = 1 << 20;

struct Entries {
  std::vector<std::string> keys, values;
  std::vector<std::vector<std::string>> names, fields;
};

Entries MakeEntries() {
  Entries entries;
  size_t size = 0;
  for (int i = 0; size < kTextSize; ++i) {
    entries.keys.push_back(i % 3 == 0 ? "Hotspot" : "DetFuncParam");
    entries.values.push_back(i % 5 == 0 ? "Poisson N" : "");
    entries.names.push_back({"X,Y,Sig,Amp", "Formula"});
    entries.fields.push_back({std::to_string(i) + ",20,5,2", "= -100 + x*1.02 + y*1.15"});
    size += 70;
  }
  return entries;
}

std::string Write(Entries& entries) {
  std::string text;
  text.reserve(kTextSize + 1024);
  for (size_t i = 0; i < entries.keys.size(); ++i) {
    DefinitionEntryCodec::Instance().AppendEntry(text, entries.keys[i], entries.values[i], entries.names[i],
                                                 entries.fields[i], 2, 0, true);
  }
  return text;
}

void BM_CodecWrite1MiB(benchmark::State& state) {
  Entries entries = MakeEntries();
  size_t bytes = 0;
  for (auto _ : state) {
    const std::string text = Write(entries);
    bytes += text.size();
    benchmark::DoNotOptimize(text.data());
  }
  state.SetBytesProcessed(static_cast<int64_t>(bytes));
}
BENCHMARK(BM_CodecWrite1MiB)->Unit(benchmark::kMillisecond);

void BM_CodecParse1MiB(benchmark::State& state) {
  Entries entries = MakeEntries();
  const std::string text = Write(entries);
  DefinitionEntry entry;
  for (auto _ : state) {
    std::string_view rest(text);
    while (!rest.empty()) DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
    benchmark::DoNotOptimize(entry.key.data());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_CodecParse1MiB)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zrsimprp

BENCHMARK_MAIN();
