// SPDX-License-Identifier: Apache-2.0

// Init and destruction against what they can't do without: opening both
// libraries, and a thread that is started, waited for and joined.

#include <dlfcn.h>

#include <condition_variable>
#include <mutex>
#include <thread>

#include "bench/subject/answers.h"
#include "bench/subject/pairs.h"
#include "interface/vc_post_blend_interface.h"

namespace {

void* g_library = nullptr;
decltype(&GetVcPostBlendInterface) g_factory = nullptr;

void SetUp(size_t /*argument*/) {
  TheAnswers() = {.modes = MakeModes(8), .blocks = {}};
  g_library = dlopen("libzeltarn.so", RTLD_NOW);
  g_factory = reinterpret_cast<decltype(g_factory)>(dlsym(g_library, "GetVcPostBlendInterface"));
}

void TearDown() { dlclose(g_library); }

void InitAndDestroy(unsigned calls) {
  for (; calls > 0; --calls) {
    const std::unique_ptr<velaricolor::VcPostBlendInterface> plugin(g_factory(2, 0));
    plugin->Init("");
  }
}

void OpenStartClose(unsigned calls) {
  for (; calls > 0; --calls) {
    std::mutex mutex;
    std::condition_variable ended;
    bool done = false;
    void* const parser = dlopen("libtarn-json-mode-parser.so", RTLD_NOW);
    void* algo = nullptr;
    std::thread thread([&] {
      const std::lock_guard lock(mutex);
      algo = dlopen("libtarn-algo.so", RTLD_NOW);
      done = true;
      ended.notify_all();
    });
    {
      std::unique_lock lock(mutex);
      ended.wait(lock, [&] { return done; });
      thread.join();
    }
    dlclose(algo);
    dlclose(parser);
  }
}

}  // namespace

std::vector<ZelPair> StartUpPairs() {
  return {{"Init and destruction", 1.3, kMedian, 4, kAnyAllocations, SetUp, InitAndDestroy,
           OpenStartClose, TearDown, 0}};
}
