// SPDX-License-Identifier: Apache-2.0

// A host: loads the plug-in, creates its object, calls it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "interface/vc_post_blend_interface.h"
#include "modes/mode_op_params.h"
#include "tests/support/fake_libraries.h"
#include "tests/support/fake_platform.h"

// The plug-in's library, loaded anew, so that it reads its log level again.
class PluginLibrary {
 public:
  PluginLibrary();
  ~PluginLibrary();
  PluginLibrary(const PluginLibrary&) = delete;
  PluginLibrary& operator=(const PluginLibrary&) = delete;

  std::unique_ptr<velaricolor::VcPostBlendInterface> Create(int major = 2, int minor = 0) const;

 private:
  void* handle_;
};

// A test of the plug-in. Platform and libraries are scripted afresh; scripts
// that matter at load or Init go before Load() or Start().
class PluginTest : public testing::Test {
 protected:
  PluginTest();
  ~PluginTest() override;

  void Load();                                 // library and object
  int Init(const std::string& arg = "panel");  // of the loaded object
  void Start();                                // both; expects success, forgets its log
  void Unload();                               // object, then library

  PluginLibrary& Library() { return *library_; }
  velaricolor::VcPostBlendInterface& Plugin() { return *plugin_; }

  // Calls with an envelope around `record`. `len` is the record's size unless
  // said otherwise.
  template <typename T>
  int Set(uint32_t prop, const T& record, uint32_t len = sizeof(T)) {
    return plugin_->SetProperty({.len = len, .prop = prop, .payload = const_cast<T*>(&record)});
  }
  template <typename T>
  int Get(uint32_t prop, T* record, uint32_t len = sizeof(T)) {
    velaricolor::VcPayload envelope = {.len = len, .prop = prop, .payload = record};
    return plugin_->GetProperty(&envelope);
  }
  int Run(velaricolor::VcOps op, const velaricolor::ModeRenderInputParams& request,
          velaricolor::HwConfigOutputParams* output);
  int Render(velaricolor::HwConfigOutputParams* output) {
    return Run(velaricolor::kVcModeRenderIntent, velaricolor::ModeRenderInputParams(), output);
  }
  bool NeedsUpdate();

 private:
  std::unique_ptr<PluginLibrary> library_;
  std::unique_ptr<velaricolor::VcPostBlendInterface> plugin_;
};

using Lines = std::vector<std::string>;

// The blocks of `output`, each followed by a blank.
std::string NamesOf(const velaricolor::HwConfigOutputParams& output);

// The typed record of the output's entry `name`. Without one the test has failed.
template <typename T>
T* RecordNamed(const velaricolor::HwConfigOutputParams& output, const std::string& name) {
  for (const auto& payload : output.payloads) {
    if (payload.hw_block != name || payload.payload == nullptr) continue;
    return static_cast<T*>(payload.payload.get());
  }
  throw std::runtime_error("no record of " + name);
}
