// SPDX-License-Identifier: Apache-2.0

// The plug-in with the reference libraries, against the same with libraries that lend
// the same records and merge nothing.

#include "bench/subject/end_to_end.h"

#include <memory>

#include "bench/subject/answers.h"
#include "bench/subject/pairs.h"
#include "bench/subject/reference_libraries.h"
#include "bench/subject/session.h"
#include "handlers/color_transform_matrix.h"
#include "modes/color_mode.h"
#include "pcc/pcc_arithmetic.h"
#include "pcc/pcc_merge.h"

namespace {

using velaricolor::kVcModeRenderIntent;

struct Side {
  velaricolor::HwConfigOutputParams output;  // which goes before the library
  std::unique_ptr<Session> session;
  float warmth = 0;  // of the animation

  void Render(unsigned calls) {
    for (; calls > 0; --calls) session->Run(kVcModeRenderIntent, &output);
  }

  // Each frame a little warmer.
  void Animate(unsigned calls) {
    for (; calls > 0; --calls) {
      warmth = warmth < 0.5F ? warmth + 0.001F : 0;
      velaricolor::ColorTransformMatrix transform;
      transform.matrix[10] = 1 - warmth;
      session->Set(velaricolor::kVcColorTransform, transform);
      session->Run(kVcModeRenderIntent, &output);
    }
  }
};

constexpr size_t kAllBlocks = 6;  // the mode that has them

Side g_full;
Side g_lent;

std::unique_ptr<Session> FullSession() {
  g_reference = &TheReference();
  auto session = std::make_unique<Session>(g_reference->panel);
  g_reference = nullptr;
  return session;
}

velaricolor::ModeRenderInputParams Request(Session* session, size_t mode) {
  velaricolor::ColorModeList list;
  session->Get(velaricolor::kVcModesList, &list);
  velaricolor::ModeRenderInputParams request = {};
  request.mode = list.modes.at(mode);
  return request;
}

// Records of both sides have one layout.
std::vector<tarn::HwConfigPayload> Lent(const velaricolor::HwConfigOutputParams& output) {
  std::vector<tarn::HwConfigPayload> blocks;
  for (const auto& payload : output.payloads) {
    blocks.push_back({.hw_block = payload.hw_block,
                      .payload = {std::shared_ptr<void>(), payload.payload.get()},
                      .len = payload.len});
  }
  return blocks;
}

velaricolor::HwConfigOutputParams g_lent_records;

void SetUp(size_t /*argument*/) {
  TheAnswers() = {.modes = MakeModes(8), .blocks = {}};
  g_full = {.session = FullSession()};
  g_lent = {.session = std::make_unique<Session>()};
  g_full.session->request = Request(g_full.session.get(), kAllBlocks);
  g_lent.session->request = g_full.session->request;
  g_full.session->Run(kVcModeRenderIntent, &g_lent_records);
  TheAnswers().blocks = Lent(g_lent_records);
  g_full.Render(1);
  g_lent.Render(1);
}

void TearDown() {
  g_lent_records = {};
  g_lent = {};
  g_full = {};
}

std::unique_ptr<tarn::TarnAlgoIntf> g_algo;
tarn::PccMergeInput g_operands;
tarn::PccMergeOutput g_merged;

void SetUpMerge(size_t /*argument*/) {
  g_algo.reset(TheReference().algo(tarn::kTarnMajorVersion, tarn::kTarnMinorVersion));
  g_algo->Init("");
  g_operands.trans = {
      .reserved = {}, .r = {1, 0.9, 0.1, 0}, .g = {2, 0, 1, 0}, .b = {3, 0, 0.1, 0.9}};
  g_operands.active = g_operands.trans;
}

void TearDownMerge() {
  g_algo->DeInit();
  g_algo.reset();
}

void Merge(unsigned calls) {
  const tarn::TarnPayload in = {.len = sizeof(g_operands), .payload = &g_operands};
  tarn::TarnPayload out = {.len = sizeof(g_merged), .payload = &g_merged};
  for (; calls > 0; --calls) g_algo->ProcessOps(tarn::kZelPccMerge, in, &out);
}

void Multiply(unsigned calls) {
  for (; calls > 0; --calls) {
    velaricolor::Multiply3x3(g_operands.trans, g_operands.active, &g_merged.result);
    Keep(&g_merged);
  }
}

void InitFull(unsigned calls) {
  for (; calls > 0; --calls) FullSession();
}

void InitLent(unsigned calls) {
  for (; calls > 0; --calls) const Session session;
}

}  // namespace

void RenderReference(size_t mode,
                     const std::function<void(const velaricolor::HwConfigOutputParams&)>& use) {
  const auto session = FullSession();
  session->request = Request(session.get(), mode);
  velaricolor::HwConfigOutputParams output;
  session->Run(kVcModeRenderIntent, &output);
  use(output);
}

std::vector<ZelPair> EndToEndPairs() {
  constexpr double kTarget = 1.6;
  return {
      {"end to end: mode switch", kTarget, kMedian, 8, kAnyAllocations, SetUp,
       [](unsigned calls) { g_full.Render(calls); }, [](unsigned calls) { g_lent.Render(calls); },
       TearDown, 0},
      {"end to end: frame of an animation", 0, kMedian, 8, kAnyAllocations, SetUp,
       [](unsigned calls) { g_full.Animate(calls); }, [](unsigned calls) { g_lent.Animate(calls); },
       TearDown, 0},
      {"end to end: Init and destruction", 0, kMedian, 1, kAnyAllocations, SetUp, InitFull,
       InitLent, TearDown, 0},
      {"exact merge of two matrices with offsets", 0, kMedian, 1000, kAnyAllocations, SetUpMerge,
       Merge, Multiply, TearDownMerge, 0},
  };
}
