// SPDX-License-Identifier: Apache-2.0

// A plug-in that does what the real one never would: modes of the same label,
// blocks that no one knows, failures. The environment variable FAIL names the
// call that is to fail, and its code: "SetProperty-95".
#include <cstdlib>
#include <iostream>
#include <string>

#include "interface/vc_post_blend_interface.h"
#include "modes/mode_op_params.h"

namespace velaricolor {
namespace {

int Answer(const std::string& call) {
  const char* fail = std::getenv("FAIL");
  const std::string text = fail == nullptr ? "" : fail;
  return text.starts_with(call) ? std::stoi(text.substr(call.size())) : 0;
}

class FakePlugin : public VcPostBlendInterface {
 public:
  ~FakePlugin() override { std::cerr << "destroyed\n"; }
  int Init(const std::string&) override { return Answer("Init"); }
  int SetProperty(const VcPayload&) override { return Answer("SetProperty"); }

  int DeInit() override {
    std::cerr << "DeInit\n";
    return 0;
  }

  int GetProperty(VcPayload* payload) override {
    if (payload->prop == kVcModesList) {
      static_cast<ColorModeList*>(payload->payload)->modes = {
          {.gamut = 1, .gamma = 2, .intent = 3, .hw_assets = {"a", "b"}, .label = "srgb"},
          {.gamut = 4, .gamma = 5, .intent = 0, .label = "twin"},
          {.gamut = 4, .gamma = 5, .intent = 1, .label = "twin"}};
    }
    return Answer("GetProperty");
  }

  int ProcessOps(VcOps op, const VcPayload& in, VcPayload* out) override {
    const auto* request = static_cast<ModeRenderInputParams*>(in.payload);
    auto& blocks = static_cast<HwConfigOutputParams*>(out->payload)->payloads;
    const auto& mode = request->mode;
    std::cerr << "op " << op << ", " << mode.label << ' ' << mode.intent << ", assets "
              << request->hw_assets.size() << ", blocks before " << blocks.size() << '\n';
    blocks = {{.hw_block = "Strange"}, {.hw_block = "PostBlendDE"}};
    return Answer("ProcessOps");
  }
};

}  // namespace
}  // namespace velaricolor

__attribute__((visibility("default"))) velaricolor::VcPostBlendInterface* GetVcPostBlendInterface(
    int, int) {
  return velaricolor::Answer("Factory") == 0 ? new velaricolor::FakePlugin : nullptr;
}
