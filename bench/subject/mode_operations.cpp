// SPDX-License-Identifier: Apache-2.0

// Mode switches, software assets and the dither configuration.

#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <random>
#include <vector>

#include "bench/subject/answers.h"
#include "bench/subject/floor_copy.h"
#include "bench/subject/pairs.h"
#include "bench/subject/session.h"
#include "handlers/color_transform_matrix.h"
#include "pcc/pcc_config.h"

namespace {

using velaricolor::kVcModeRenderIntent;
using velaricolor::kVcModeSwAssets;

enum ColorState : size_t { kNoColorState, kByLibrary, kBy3x3 };

velaricolor::HwConfigOutputParams g_output;
std::optional<FloorCopy> g_copy;
std::optional<FloorFresh> g_fresh;

// Has each repetition's buffers lie elsewhere: which pages share a place in the
// caches is luck, and a run should not have the same luck throughout.
void MoveTheHeapOn() {
  static std::vector<std::unique_ptr<char[]>> gaps;
  static std::minstd_rand random(std::random_device{}());
  constexpr size_t kMostBytes = 1 << 17;  // more would not come from the heap
  gaps.push_back(std::make_unique<char[]>(random() % kMostBytes));
}

// A transform, an LTM matrix and dimming, none of them the identity.
void SetColorState() {
  velaricolor::ColorTransformMatrix transform;
  transform.matrix[0] = 0.5F;
  g_session->Set(velaricolor::kVcColorTransform, transform);
  velaricolor::PccPostBlendConfig ltm = {.enable = true, .coeffs = {}};
  ltm.coeffs.r[1] = ltm.coeffs.g[2] = ltm.coeffs.b[3] = 1.5;
  g_session->Set(velaricolor::kVcLtmPccConfig, ltm);
  g_session->Set(velaricolor::kVcDimmingPcc, 0.5);
}

void SetUp(size_t color_state) {
  MoveTheHeapOn();
  TheAnswers() = {.modes = MakeModes(8), .blocks = MakeBlocks()};
  g_session = std::make_unique<Session>(color_state == kBy3x3 ? "no algo" : "");
  if (color_state != kNoColorState) SetColorState();
  g_session->Run(kVcModeRenderIntent, &g_output);
  // Into the very buffers of the subject: other pages would have other luck in the
  // caches.
  g_copy.emplace(TheAnswers().blocks, g_output);
  g_fresh.emplace(TheAnswers().blocks);
}

void TearDown() {
  g_output = {};
  g_session.reset();
}

void RenderReused(unsigned calls) {
  for (; calls > 0; --calls) g_session->Run(kVcModeRenderIntent, &g_output);
}

void RenderFresh(unsigned calls) {
  for (; calls > 0; --calls) {
    velaricolor::HwConfigOutputParams output;
    g_session->Run(kVcModeRenderIntent, &output);
    Keep(&output);
  }
}

void SwAssets(unsigned calls) {
  for (; calls > 0; --calls) g_session->Run(kVcModeSwAssets, &g_output);
}

void Dither(unsigned calls) {
  for (; calls > 0; --calls) g_session->Get(velaricolor::kVcPbDitherHwConfig, &g_output);
}

void Copy(unsigned calls) {
  for (; calls > 0; --calls) g_copy->Run();
}

// The parser's request is a record of its own, which the plug-in fills from the host's.
void CopyWithRequest(unsigned calls) {
  static std::array<uint8_t, sizeof(velaricolor::ModeRenderInputParams)> request;
  for (; calls > 0; --calls) {
    std::memcpy(request.data(), &g_session->request, request.size());
    Keep(request.data());
    g_copy->Run();
  }
}

void CopyFresh(unsigned calls) {
  for (; calls > 0; --calls) g_fresh->Run();
}

}  // namespace

std::vector<ZelPair> ModeOperationPairs() {
  // Ten records, six gamma lists, two blobs, the output list.
  constexpr double kOwnedByResult = 19;
  const auto pair = [](const char* name, double target, double allocations, auto subject,
                       auto floor, size_t color_state) {
    return ZelPair{name,  target,  kTenth, 8,        allocations,
                   SetUp, subject, floor,  TearDown, color_state};
  };
  return {
      pair("render intent, output reused", 1.12, 0, RenderReused, Copy, kNoColorState),
      pair("render intent, and the request's copy", 0, 0, RenderReused, CopyWithRequest,
           kNoColorState),
      pair("render intent, output fresh", 1.15, kOwnedByResult, RenderFresh, CopyFresh,
           kNoColorState),
      pair("render intent, colour state by library", 0, 0, RenderReused, Copy, kByLibrary),
      pair("render intent, colour state by 3x3", 0, 0, RenderReused, Copy, kBy3x3),
      pair("software assets", 0, 0, SwAssets, Copy, kNoColorState),
      pair("dither configuration", 0, 0, Dither, Copy, kNoColorState),
  };
}
