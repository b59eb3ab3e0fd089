// SPDX-License-Identifier: Apache-2.0
#include "tests/support/plugin_host.h"

#include <dlfcn.h>
#include <malloc.h>

#include <stdexcept>

namespace {

struct Fakes {
  FakePlatform platform;
  FakeParser parser;
  FakeAlgo algo;
};

Fakes& TheFakes() {
  static Fakes fakes;
  return fakes;
}

}  // namespace

FakePlatform& Platform() { return TheFakes().platform; }
FakeParser& Parser() { return TheFakes().parser; }
FakeAlgo& Algo() { return TheFakes().algo; }

PluginLibrary::PluginLibrary() : handle_(dlopen(ZEL_PLUGIN, RTLD_NOW)) {
  if (handle_ == nullptr) throw std::runtime_error(dlerror());
}

PluginLibrary::~PluginLibrary() { dlclose(handle_); }

std::unique_ptr<velaricolor::VcPostBlendInterface> PluginLibrary::Create(int major,
                                                                         int minor) const {
  auto* const factory = reinterpret_cast<decltype(&GetVcPostBlendInterface)>(
      dlsym(handle_, "GetVcPostBlendInterface"));
  return std::unique_ptr<velaricolor::VcPostBlendInterface>(factory(major, minor));
}

PluginTest::PluginTest() {
  TheFakes() = Fakes();
  mallopt(M_PERTURB, 0x5A);  // new memory is never blank by luck
}

PluginTest::~PluginTest() { Unload(); }

void PluginTest::Load() {
  Unload();
  library_ = std::make_unique<PluginLibrary>();
  plugin_ = library_->Create();
}

int PluginTest::Init(const std::string& arg) { return plugin_->Init(arg); }

void PluginTest::Start() {
  Load();
  ASSERT_EQ(Init(), velaricolor::kOk);
  Platform().TakeLog();
  Platform().TakeEvents();
}

void PluginTest::Unload() {
  plugin_.reset();
  library_.reset();
}

int PluginTest::Run(velaricolor::VcOps op, const velaricolor::ModeRenderInputParams& request,
                    velaricolor::HwConfigOutputParams* output) {
  const velaricolor::VcPayload in = {
      .len = sizeof(request), .payload = const_cast<velaricolor::ModeRenderInputParams*>(&request)};
  velaricolor::VcPayload out = {.len = sizeof(*output), .payload = output};
  return plugin_->ProcessOps(op, in, &out);
}

bool PluginTest::NeedsUpdate() {
  bool needs_update = false;
  EXPECT_EQ(Get(velaricolor::kVcNeedsUpdate, &needs_update), velaricolor::kOk);
  return needs_update;
}

std::string NamesOf(const velaricolor::HwConfigOutputParams& output) {
  std::string names;
  for (const auto& payload : output.payloads) names += payload.hw_block + " ";
  return names;
}
