// A plug-in for the tests of zelctl: writes on standard error what it was asked,
// and answers with every kind of block. The environment variable FAKE_FAIL names
// the call that is to fail, and its code: "SetProperty -95".
#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "handlers/color_transform_matrix.h"
#include "handlers/post_blend_hw_config.h"
#include "interface/vc_post_blend_interface.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_config.h"
#include "plugin/names.h"

namespace velaricolor {
namespace {

int Answer(const std::string& call) {
  const char* fail = std::getenv("FAKE_FAIL");
  std::istringstream words(fail == nullptr ? "" : fail);
  std::string name;
  int code = 0;
  words >> name >> code;
  return name == call ? code : 0;
}

template <typename T>
void Add(const std::string& block, const T& record, HwConfigOutputParams* out) {
  out->payloads.push_back(
      {.hw_block = block, .payload = std::make_shared<T>(record), .len = sizeof(T)});
}

void AddAll(HwConfigOutputParams* out) {
  GammaPostBlendConfig gamma;
  gamma.enable = true;
  gamma.c0 = {0, 1, 2, 3, 4, 5};
  gamma.c1 = {7, 8};
  gamma.aux_flag = 1;
  gamma.aux_value = 9;
  PaPostBlendConfig pa = {};
  pa.i_params = {1, -2, 3, 4};
  pa.f_params = {0.5F, 0, 0, -1};
  pa.sub_params[2].triple2[1] = 77;
  pa.tail_table.back() = 0xfe;
  Add(kPostBlendGamut, GamutPostBlendConfig{.enable = true, .lut_data = {0xab}}, out);
  Add(kPostBlendIGC, gamma, out);
  Add(kPostBlendGC, GammaPostBlendConfig(), out);
  Add(kPostBlendPCC,
      PccPostBlendConfig{.enable = true,
                         .coeffs = {.r = {20, 1, 0, 0, 0, 0, 0, 0, 0, 0, 1e-7},
                                    .g = {0, 0, 1.0 / 3},
                                    .b = {0, 0, 0, -0.25}}},
      out);
  Add(kPostBlendPa, pa, out);
  Add(kPostBlendDither, DitherPostBlendConfig{.params = {1, 0x20}}, out);
  Add(kPostBlendPaDither, PaDitherPostBlendConfig{.enable = true, .words = {5}}, out);
  Add(kPostBlendHdrBlob, HdrBlobPostBlendConfig{.blob = std::string("h\0\xff", 3)}, out);
  Add(kPostBlendGameBlob, GameBlobPostBlendConfig{.enable = true, .blob = "g"}, out);
  Add(kPostBlendDE, DePostBlendConfig{.params = {3}}, out);
}

// As the plug-in does with a block that no one wrote anew.
void Halve(HwConfigOutputParams* out) {
  for (auto& payload : out->payloads) {
    if (payload.hw_block != kPostBlendPCC) continue;
    static_cast<PccPostBlendConfig*>(payload.payload.get())->coeffs.r[1] *= 0.5;
  }
}

class FakePlugin : public VcPostBlendInterface {
 public:
  ~FakePlugin() override { std::cerr << "destroyed\n"; }

  int Init(const std::string&) override { return Answer("Init"); }

  int DeInit() override {
    std::cerr << "DeInit\n";
    return 0;
  }

  int SetProperty(const VcPayload& payload) override {
    std::cerr << "set " << payload.prop << " len " << payload.len << ":";
    if (payload.prop == kVcColorTransform) {
      for (const float m : static_cast<ColorTransformMatrix*>(payload.payload)->matrix) Show(m);
    } else if (payload.prop == kVcDimmingPcc) {
      Show(*static_cast<double*>(payload.payload));
    } else if (payload.prop == kVcLtmPccConfig) {
      const auto* ltm = static_cast<PccPostBlendConfig*>(payload.payload);
      Show(ltm->enable);
      for (const PccRow& row : {ltm->coeffs.r, ltm->coeffs.g, ltm->coeffs.b}) {
        for (const double term : row) Show(term);
      }
    } else if (payload.prop != kVcDisplayCalibrationMode) {
      const auto* size = static_cast<PostBlendHwConfig*>(payload.payload);
      Show(size->num_of_entries);
      Show(size->bit_depth);
    }
    std::cerr << '\n';
    return Answer("SetProperty");
  }

  int GetProperty(VcPayload* payload) override {
    void* record = payload->payload;
    if (payload->prop == kVcModesList) {
      static_cast<ColorModeList*>(record)->modes = {
          {.gamut = 0, .gamma = 0, .intent = 0, .label = "native"},
          {.gamut = 1, .gamma = 2, .intent = 3, .hw_assets = {"a", "b"}, .label = "srgb"},
          {.gamut = 4, .gamma = 5, .intent = 0, .label = "twin"},
          {.gamut = 4, .gamma = 5, .intent = 1, .label = "twin"}};
    } else if (payload->prop == kVcPbDitherHwConfig) {
      Add(kPostBlendDither, DitherPostBlendConfig{.params = {}},
          static_cast<HwConfigOutputParams*>(record));
    } else if (payload->prop == kVcSupportHwAssets) {
      *static_cast<std::vector<std::string>*>(record) = {"One", "Two"};
    } else {
      *static_cast<bool*>(record) = payload->prop == kVcDimmingSupport;
    }
    return Answer("GetProperty");
  }

  int ProcessOps(VcOps op, const VcPayload& in, VcPayload* out) override {
    const auto* request = static_cast<ModeRenderInputParams*>(in.payload);
    auto* output = static_cast<HwConfigOutputParams*>(out->payload);
    std::cerr << "op " << op << " len " << in.len << "/" << out->len << " mode "
              << request->mode.label << ' ' << request->mode.gamut << ':' << request->mode.gamma
              << ':' << request->mode.intent << " assets " << request->hw_assets.size() << '\n';
    if (op == kVcModeSwAssets) {
      output->payloads = {{.hw_block = "Strange"}, {.hw_block = kPostBlendDE}};
    } else if (output->payloads.empty()) {
      AddAll(output);
    } else {
      Halve(output);
    }
    return Answer("ProcessOps");
  }

 private:
  template <typename T>
  static void Show(T value) {
    std::cerr << ' ' << value;
  }
};

}  // namespace
}  // namespace velaricolor

__attribute__((visibility("default"))) velaricolor::VcPostBlendInterface* GetVcPostBlendInterface(
    int major_version, int minor_version) {
  const bool known = major_version == 2 && minor_version == 0;
  return known && velaricolor::Answer("Factory") == 0 ? new velaricolor::FakePlugin : nullptr;
}
