// SPDX-License-Identifier: Apache-2.0

// The plug-in under measurement, loaded and initialised as a host does.
#pragma once

#include <memory>
#include <string>

#include "interface/vc_post_blend_interface.h"
#include "modes/mode_op_params.h"

class Session {
 public:
  // `arg` "no algo" leaves the plug-in without its algorithm library.
  explicit Session(const std::string& arg = "");
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  velaricolor::VcPostBlendInterface& Plugin() { return *plugin_; }

  template <typename T>
  void Set(velaricolor::VcProperty prop, T record) {
    plugin_->SetProperty(
        {.len = sizeof(T), .prop = static_cast<uint32_t>(prop), .payload = &record});
  }
  template <typename T>
  void Get(velaricolor::VcProperty prop, T* record) {
    velaricolor::VcPayload envelope = {
        .len = sizeof(T), .prop = static_cast<uint32_t>(prop), .payload = record};
    plugin_->GetProperty(&envelope);
  }
  void Run(velaricolor::VcOps op, velaricolor::HwConfigOutputParams* output);

  // What a mode operation is asked; set up once.
  velaricolor::ModeRenderInputParams request = velaricolor::ModeRenderInputParams();

 private:
  void* library_;
  std::unique_ptr<velaricolor::VcPostBlendInterface> plugin_;
};

// The one that the running pair measures.
extern std::unique_ptr<Session> g_session;
