// SPDX-License-Identifier: Apache-2.0
#include "bench/runner/samples.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <string>

namespace {

double SecondsPerCall(void (*body)(unsigned), unsigned calls) {
  const auto start = std::chrono::steady_clock::now();
  body(calls);
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  return elapsed.count() / calls;
}

double Percentile(std::vector<double> values, double percentile) {
  const auto place =
      values.begin() + static_cast<long>(percentile * static_cast<double>(values.size() - 1));
  std::nth_element(values.begin(), place, values.end());
  return *place;
}

template <typename Value>
std::vector<double> Collect(const Samples& samples, Value value) {
  std::vector<double> values;
  for (const Sample& sample : samples.all) values.push_back(value(sample));
  return values;
}

// "12.3 us"
std::string Shown(double seconds) {
  char text[32];
  const double ns = seconds * 1e9;
  std::snprintf(text, sizeof text, ns < 1000 ? "%.1f ns" : "%.2f us", ns < 1000 ? ns : ns / 1000);
  return text;
}

}  // namespace

Samples& SamplesOf(size_t pair) {
  static std::map<size_t, Samples> samples;
  return samples[pair];
}

Sample Measure(const ZelPair& pair, bool floor_first) {
  Sample sample = {};
  if (floor_first) sample.floor = SecondsPerCall(pair.floor, pair.calls);
  sample.subject = SecondsPerCall(pair.subject, pair.calls);
  if (!floor_first) sample.floor = SecondsPerCall(pair.floor, pair.calls);
  return sample;
}

double CountAllocations(const ZelPair& pair) {
  ZelStartCount();
  pair.subject(pair.calls);
  return static_cast<double>(ZelStopCount()) / pair.calls;
}

int PrintTable(bool check) {
  std::printf("%-40s %11s %11s %7s %7s %7s %7s\n", "", "median", "floor", "ratio", "10th %",
              "target", "allocs");
  int missed = 0;
  for (size_t i = 0; i < ZelPairCount(); ++i) {
    const ZelPair& pair = *ZelPairAt(i);
    const Samples& samples = SamplesOf(i);
    if (samples.all.empty()) {
      if (check) std::printf("%-40s not measured\n", pair.name);
      missed += check ? 1 : 0;
      continue;
    }
    const auto ratios = Collect(samples, [](const Sample& s) { return s.subject / s.floor; });
    std::printf(
        "%-40s %11s %11s %7.3f %7.3f", pair.name,
        Shown(Percentile(Collect(samples, [](const Sample& s) { return s.subject; }), 0.5)).c_str(),
        Shown(Percentile(Collect(samples, [](const Sample& s) { return s.floor; }), 0.5)).c_str(),
        Percentile(ratios, 0.5), Percentile(ratios, 0.1));
    if (pair.target > 0) {
      std::printf(" %7.2f", pair.target);
    } else {
      std::printf(" %7s", "");
    }
    if (samples.allocations >= 0) std::printf(" %7.0f", samples.allocations);

    const bool slow = pair.target > 0 && Percentile(ratios, pair.percentile) > pair.target;
    // Fewer would say that the count is broken.
    const bool other_count = pair.allocations >= 0 && samples.allocations != pair.allocations;
    if (check && (slow || other_count)) {
      std::printf("  MISSED%s%s", slow ? " ratio" : "", other_count ? " allocations" : "");
      ++missed;
    }
    std::printf("\n");
  }
  if (check) std::printf("%s\n", missed == 0 ? "all targets met" : "targets missed");
  return missed == 0 ? 0 : 1;
}
