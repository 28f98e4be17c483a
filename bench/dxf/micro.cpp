// The DXF reader and writer on a mid-sized drawing held in memory, no disk involved.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "db/text_lines.h"
#include "drawing_maker.h"
#include "dxf/reader.h"
#include "dxf/writer.h"

namespace {

constexpr size_t kEntities = 10000;

struct Fixture {
  korva::bench::MadeDrawing built;
  std::string text;
  std::unique_ptr<korva::db::Database> read;
};

const Fixture& fixture() {
  static Fixture* made = [] {
    auto* f = new Fixture;
    f->built = korva::bench::makeDrawing(kEntities);
    f->text = korva::dxf::writeToString(*f->built.database);
    f->read = korva::dxf::readBuffer(f->text).database;
    return f;
  }();
  return *made;
}

void setCounters(benchmark::State& state, size_t bytes) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
  state.counters["entities/s"] = benchmark::Counter(
      static_cast<double>(state.iterations() * kEntities), benchmark::Counter::kIsRate);
}

void ReadBuffer(benchmark::State& state) {
  const Fixture& f = fixture();
  for (auto _ : state) {
    korva::dxf::ReadResult result = korva::dxf::readBuffer(f.text);
    benchmark::DoNotOptimize(result.database.get());
  }
  setCounters(state, f.text.size());
}
BENCHMARK(ReadBuffer)->Unit(benchmark::kMillisecond);

void WriteReadDrawing(benchmark::State& state) {
  const Fixture& f = fixture();
  for (auto _ : state) {
    std::string out = korva::dxf::writeToString(*f.read);
    benchmark::DoNotOptimize(out.data());
  }
  setCounters(state, f.text.size());
}
BENCHMARK(WriteReadDrawing)->Unit(benchmark::kMillisecond);

void WriteBuiltDrawing(benchmark::State& state) {
  const Fixture& f = fixture();
  for (auto _ : state) {
    std::string out = korva::dxf::writeToString(*f.built.database);
    benchmark::DoNotOptimize(out.data());
  }
  setCounters(state, f.text.size());
}
BENCHMARK(WriteBuiltDrawing)->Unit(benchmark::kMillisecond);

// Every group of every entity through the record's group iterator.
void IterateGroups(benchmark::State& state) {
  const Fixture& f = fixture();
  auto& records = *f.read->entities();
  for (auto _ : state) {
    size_t sum = 0;
    for (const korva::db::Record* record : records) {
      for (const korva::db::Group& group : record->groups()) sum += group.value.size();
    }
    benchmark::DoNotOptimize(sum);
  }
  setCounters(state, f.text.size());
}
BENCHMARK(IterateGroups)->Unit(benchmark::kMillisecond);

// The pairs and nothing more: what any text reader has to pay.
void ScanPairs(benchmark::State& state) {
  const Fixture& f = fixture();
  for (auto _ : state) {
    const char* pos = f.text.data();
    const char* end = pos + f.text.size();
    int sum = 0;
    while (pos < end) {
      sum += korva::db::parseGroupCode(korva::db::nextLine(pos, end)).value_or(0);
      benchmark::DoNotOptimize(korva::db::nextLine(pos, end));
    }
    benchmark::DoNotOptimize(sum);
  }
  setCounters(state, f.text.size());
}
BENCHMARK(ScanPairs)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
