// SPDX-License-Identifier: Apache-2.0

// Property calls: alone, with other host threads, and the mode list.

#include <mutex>
#include <thread>

#include "bench/subject/answers.h"
#include "bench/subject/pairs.h"
#include "bench/subject/session.h"

namespace {

// What a property call can't do without: a virtual call and a mutex.
class BareCall {
 public:
  virtual ~BareCall() = default;
  virtual int Get(velaricolor::VcPayload* payload) = 0;
};

class LockedAnswer final : public BareCall {
 public:
  int Get(velaricolor::VcPayload* payload) override {
    const std::lock_guard lock(lock_);
    *static_cast<bool*>(payload->payload) = answer_;
    return 0;
  }

 private:
  std::mutex lock_;
  bool answer_ = false;
};

std::unique_ptr<BareCall> g_bare;
velaricolor::ColorModeList g_list;
std::vector<velaricolor::ColorMode> g_stored;
std::vector<velaricolor::ColorMode> g_copied;
size_t g_threads = 1;

void SetUp(size_t argument) {
  TheAnswers() = {.modes = MakeModes(8), .blocks = {}};
  g_session = std::make_unique<Session>();
  g_bare = std::make_unique<LockedAnswer>();
  Keep(&g_bare);  // its type must stay unknown to the compiler
  g_threads = argument;
}

void SetUpModes(size_t argument) {
  TheAnswers() = {.modes = MakeModes(argument), .blocks = {}};
  g_session = std::make_unique<Session>();
  g_session->Get(velaricolor::kVcModesList, &g_list);
  g_stored = g_list.modes;
  g_copied = g_stored;
}

void TearDown() {
  g_list = {};
  g_stored.clear();
  g_copied.clear();
  g_session.reset();
}

void Get(unsigned calls) {
  velaricolor::VcPostBlendInterface& plugin = g_session->Plugin();
  bool needs_update = false;
  for (; calls > 0; --calls) {
    velaricolor::VcPayload envelope = {
        .len = sizeof(needs_update), .prop = velaricolor::kVcNeedsUpdate, .payload = &needs_update};
    plugin.GetProperty(&envelope);
  }
  Keep(&needs_update);
}

void Set(unsigned calls) {
  velaricolor::VcPostBlendInterface& plugin = g_session->Plugin();
  double factor = 0.5;
  for (; calls > 0; --calls) {
    plugin.SetProperty(
        {.len = sizeof(factor), .prop = velaricolor::kVcDimmingPcc, .payload = &factor});
  }
}

void BareGet(unsigned calls) {
  BareCall& bare = *g_bare;
  bool answer = false;
  for (; calls > 0; --calls) {
    velaricolor::VcPayload envelope = {.len = sizeof(answer), .payload = &answer};
    bare.Get(&envelope);
  }
  Keep(&answer);
}

void OnThreads(void (*body)(unsigned), unsigned calls) {
  std::vector<std::thread> threads;
  for (size_t i = 0; i < g_threads; ++i) threads.emplace_back(body, calls);
  for (auto& thread : threads) thread.join();
}

void GetOnThreads(unsigned calls) { OnThreads(Get, calls); }
void BareGetOnThreads(unsigned calls) { OnThreads(BareGet, calls); }

void ModesList(unsigned calls) {
  for (; calls > 0; --calls) g_session->Get(velaricolor::kVcModesList, &g_list);
}

void CopyModes(unsigned calls) {
  for (; calls > 0; --calls) {
    g_copied = g_stored;
    Keep(&g_copied);
  }
}

}  // namespace

std::vector<ZelPair> PropertyPairs() {
  const auto on_threads = [](const char* name, size_t threads) {
    return ZelPair{
        name,     0,      kMedian, 20000, kAnyAllocations, SetUp, GetOnThreads, BareGetOnThreads,
        TearDown, threads};
  };
  const auto modes = [](const char* name, unsigned calls, size_t count) {
    return ZelPair{name,       0,         kMedian,   calls,    kAnyAllocations,
                   SetUpModes, ModesList, CopyModes, TearDown, count};
  };
  return {
      // A constant handler in the place of the look-up takes it to 1.2 as well.
      {"property get", 1.25, kMedian, 2000, 0, SetUp, Get, BareGet, TearDown, 1},
      {"property set", 0, kMedian, 2000, 0, SetUp, Set, BareGet, TearDown, 1},
      on_threads("property get, 1 host thread", 1),
      on_threads("property get, 2 host threads", 2),
      on_threads("property get, 4 host threads", 4),
      on_threads("property get, 8 host threads", 8),
      modes("mode list, 8 modes", 500, 8),
      modes("mode list, 64 modes", 100, 64),
      modes("mode list, 4096 modes", 1, 4096),
  };
}
