// SPDX-License-Identifier: Apache-2.0

// The slowest mode switches while four host threads get properties, beside a mutex and a
// copy of the same bytes with four threads on that mutex. Prints both in microseconds.

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <mutex>
#include <thread>

#include "bench/bench_api.h"
#include "bench/subject/answers.h"
#include "bench/subject/floor_copy.h"
#include "bench/subject/session.h"

namespace {

constexpr size_t kThreads = 4;
constexpr size_t kSwitches = 20000;
constexpr auto kFrame = std::chrono::microseconds(100);  // between two switches
constexpr auto kPause = std::chrono::microseconds(20);   // between two gets

// Microseconds of each call, while `beside` runs in the threads.
std::vector<double> Measure(const std::function<void()>& call,
                            const std::function<void()>& beside) {
  std::atomic<bool> done = false;
  std::vector<std::thread> threads;
  for (size_t i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      while (!done) {
        beside();
        std::this_thread::sleep_for(kPause);
      }
    });
  }
  std::vector<double> times;
  for (size_t i = 0; i < kSwitches; ++i) {
    std::this_thread::sleep_for(kFrame);
    const auto start = std::chrono::steady_clock::now();
    call();
    times.push_back(
        std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
            .count());
  }
  done = true;
  for (std::thread& thread : threads) thread.join();
  std::sort(times.begin(), times.end());
  return times;
}

void Print(const char* what, const std::vector<double>& times) {
  std::printf("%-24s", what);
  for (const double share : {0.5, 0.99, 0.999}) {
    std::printf(" %8.1f", times[static_cast<size_t>(share * static_cast<double>(times.size()))]);
  }
  std::printf(" %8.1f\n", times.back());
}

}  // namespace

void ZelPrintTail() {
  TheAnswers() = {.modes = MakeModes(8), .blocks = MakeBlocks()};
  Session session;
  velaricolor::HwConfigOutputParams output;
  const auto render = [&] { session.Run(velaricolor::kVcModeRenderIntent, &output); };
  render();
  const auto get = [&] {
    bool supported = false;
    session.Get(velaricolor::kVcSupportToneMap, &supported);
  };
  std::mutex mutex;
  const FloorCopy copy(TheAnswers().blocks, output);
  const auto locked_copy = [&] {
    const std::lock_guard lock(mutex);
    copy.Run();
  };
  const auto lock_alone = [&] { const std::lock_guard lock(mutex); };
  std::printf("%-24s %8s %8s %8s %8s\n", "microseconds", "median", "99 %", "99.9 %", "longest");
  for (int round = 0; round < 3; ++round) {
    Print("mode switch", Measure(render, get));
    Print("copy under a mutex", Measure(locked_copy, lock_alone));
  }
  output = {};
}
