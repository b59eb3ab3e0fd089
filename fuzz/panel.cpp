// SPDX-License-Identifier: Apache-2.0

// Panel descriptions, through the reference mode parser: each is refused or
// taken, and what is taken answers for its modes.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <memory>
#include <string>

#include "bridge/tarn_intf.h"
#include "convert/gamut_gamma_config.h"
#include "devkit/reference/gamut_lut.h"
#include "fuzz/input.h"
#include "modes/mode_op_params.h"

using zeltarn::fuzz::Require;

namespace {

constexpr size_t kModesAsked = 3;  // each takes a while

template <typename T>
const T& RecordAt(const tarn::HwConfigOutputParams& answer, size_t place) {
  return *static_cast<const T*>(answer.payloads[place].payload.get());
}

void RequireAnswer(tarn::ModeParserIntf* parser, const tarn::ColorMode& mode) {
  tarn::ModeRenderInputParams request = {.mode = mode, .aux_data = {}};
  tarn::HwConfigOutputParams answer;
  const tarn::TarnPayload in = tarn::Wrap(&request);
  tarn::TarnPayload out = tarn::Wrap(&answer);
  Require(parser->ProcessOps(tarn::kZelModeSwAssets, in, &out) == 0, "software assets");
  answer = {};
  Require(parser->ProcessOps(tarn::kZelModeRenderIntent, in, &out) == 0, "render intent");
  Require(answer.payloads.size() >= 4, "gamut, IGC, GC and PCC");
  Require(RecordAt<tarn::GammaPostBlendConfig>(answer, 1).c2.size() == 257, "IGC table");
  Require(RecordAt<tarn::GammaPostBlendConfig>(answer, 2).c2.size() == 1024, "GC table");
  const auto& gamut = RecordAt<tarn::GamutPostBlendConfig>(answer, 0).lut_data;
  const auto lut = std::bit_cast<tarn::reference::GamutLut>(gamut);
  for (const auto& node : lut.nodes) {
    Require(*std::max_element(node.begin(), node.end()) <= 4095, "gamut codes of 12 bits");
  }
  const pcc_coeff_data& pcc = RecordAt<tarn::PccPostBlendConfig>(answer, 3).coeffs;
  for (const zeltarn::PccRow* row : {&pcc.r, &pcc.g, &pcc.b}) {
    for (const double term : *row) Require(std::isfinite(term), "PCC matrix");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const int file = memfd_create("panel", 0);
  Require(ftruncate(file, 0) == 0 && pwrite(file, data, size, 0) == static_cast<ssize_t>(size),
          "file in memory");
  const std::unique_ptr<tarn::ModeParserIntf> parser(GetTarnZelInterface(2, 0));
  if (parser->Init("/proc/self/fd/" + std::to_string(file)) != 0) return 0;

  tarn::ColorModeList list;
  tarn::TarnPayload envelope = tarn::Wrap(&list, tarn::kZelModesList);
  Require(parser->GetProperty(&envelope) == 0 && !list.modes.empty(), "a panel has modes");
  list.modes.resize(std::min(list.modes.size(), kModesAsked));
  for (const tarn::ColorMode& mode : list.modes) RequireAnswer(parser.get(), mode);
  return 0;
}
