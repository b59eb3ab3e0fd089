// SPDX-License-Identifier: Apache-2.0

// Runs the pairs under Google Benchmark, repetitions in random order, and prints
// each figure beside its floor. Subject and floor alternate within a repetition,
// so that both see the same machine.

#include <benchmark/benchmark.h>

#include <cstring>

#include "bench/bench_api.h"
#include "bench/runner/samples.h"

namespace {

// One iteration is a sample: subject and floor once each, in alternating order.
void RunPair(benchmark::State& state, size_t index) {
  const ZelPair& pair = *ZelPairAt(index);
  pair.set_up(pair.argument);
  pair.subject(pair.calls);  // warm both
  pair.floor(pair.calls);
  Samples& samples = SamplesOf(index);
  bool floor_first = false;
  for (auto iteration : state) {
    static_cast<void>(iteration);
    const Sample sample = Measure(pair, floor_first);
    floor_first = !floor_first;
    state.SetIterationTime((sample.subject + sample.floor) * pair.calls);
    samples.Add(sample);
  }
  if (pair.allocations >= 0) samples.allocations = CountAllocations(pair);
  pair.tear_down();
}

// Google Benchmark's own lines are per repetition; the table below sums up.
class QuietReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }
  void ReportRuns(const std::vector<Run>& /*runs*/) override {}
};

}  // namespace

int main(int argc, char** argv) {
  bool check = false;
  int kept = 1;
  if (argc == 2 && std::strcmp(argv[1], "--tail") == 0) {
    ZelPrintTail();
    return 0;
  }
  if (argc == 2 && std::strcmp(argv[1], "--footprint") == 0) {
    ZelPrintFootprint();
    return 0;
  }
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--check") == 0) {
      check = true;
    } else {
      argv[kept++] = argv[i];
    }
  }
  benchmark::Initialize(&kept, argv);
  if (benchmark::ReportUnrecognizedArguments(kept, argv)) return 2;

  for (size_t i = 0; i < ZelPairCount(); ++i) {
    benchmark::RegisterBenchmark(ZelPairAt(i)->name, RunPair, i)->UseManualTime();
  }
  QuietReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return PrintTable(check);
}
