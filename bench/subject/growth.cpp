// SPDX-License-Identifier: Apache-2.0

// How cost grows with what a parser or host may make large. The floor does the
// same amount of bare work, so a ratio that stays flat means linear growth.

#include <cstring>
#include <optional>

#include "bench/subject/answers.h"
#include "bench/subject/floor_copy.h"
#include "bench/subject/pairs.h"
#include "bench/subject/session.h"
#include "convert/dither_config.h"
#include "handlers/post_blend_hw_config.h"

namespace {

velaricolor::HwConfigOutputParams g_output;
std::vector<velaricolor::HwConfigPayload> g_listed;
std::vector<std::string> g_names;
std::vector<std::string> g_copied;
std::optional<FloorCopy> g_tables;

void SetUpAnswer(size_t blocks) {
  TheAnswers() = {.modes = MakeModes(1), .blocks = MakeManyBlocks(blocks)};
  g_session = std::make_unique<Session>();
}

void SetUpBlocks(size_t blocks) {
  SetUpAnswer(blocks);
  g_session->Run(velaricolor::kVcModeSwAssets, &g_output);
}

// Entries of the host's own, which stand before those of the parser's blocks.
void SetUpHostEntries(size_t entries) {
  SetUpAnswer(1);
  g_output.payloads.assign(entries, {.hw_block = "HostBlock", .payload = nullptr});
  g_session->Run(velaricolor::kVcModeSwAssets, &g_output);
  g_listed = g_output.payloads;
}

void SetUpTables(size_t entries) {
  SetUpAnswer(0);
  const auto length = static_cast<uint32_t>(entries);
  TheAnswers().blocks = MakeGammaBlock(length);
  g_session->Set(velaricolor::kVcPostBlendGammaHwConfig,
                 velaricolor::PostBlendHwConfig{.num_of_entries = length, .attributes = {}});
  g_session->Run(velaricolor::kVcModeSwAssets, &g_output);
  g_tables.emplace(TheAnswers().blocks, g_output);
}

void SetUpAssets(size_t names) {
  SetUpAnswer(1);
  g_names.assign(names, "gamut_asset");
  g_copied = g_names;
  g_session->request.hw_assets = g_names;
  g_session->Run(velaricolor::kVcModeSwAssets, &g_output);
}

void TearDown() {
  g_output = {};
  g_listed.clear();
  g_names.clear();
  g_copied.clear();
  g_session.reset();
}

void SwAssets(unsigned calls) {
  for (; calls > 0; --calls) g_session->Run(velaricolor::kVcModeSwAssets, &g_output);
}

// The parser's list built and dropped, and one dither record moved per entry.
void HandOutAndCopy(unsigned calls) {
  auto* const to = static_cast<char*>(g_output.payloads.back().payload.get());
  for (; calls > 0; --calls) {
    const std::vector<tarn::HwConfigPayload> handed_out = TheAnswers().blocks;
    for (const auto& payload : handed_out) {
      std::memcpy(to, payload.payload.get(), sizeof(tarn::DitherPostBlendConfig));
      Keep(to);
    }
  }
}

void CopyTables(unsigned calls) {
  for (; calls > 0; --calls) g_tables->Run();
}

void CompareNames(unsigned calls) {
  const std::string wanted = g_listed.back().hw_block;
  for (; calls > 0; --calls) {
    size_t place = 0;
    while (g_listed[place].hw_block != wanted) ++place;
    Keep(&place);
  }
}

void CopyNames(unsigned calls) {
  for (; calls > 0; --calls) {
    const std::vector<std::string> copy = g_names;
    Keep(&copy);
  }
}

}  // namespace

std::vector<ZelPair> GrowthPairs() {
  const auto pair = [](const char* name, unsigned calls, auto set_up, auto floor, size_t size) {
    return ZelPair{name,   0,        kMedian, calls,    kAnyAllocations,
                   set_up, SwAssets, floor,   TearDown, size};
  };
  return {
      pair("blocks returned, 10", 500, SetUpBlocks, HandOutAndCopy, 10),
      pair("blocks returned, 100", 50, SetUpBlocks, HandOutAndCopy, 100),
      pair("blocks returned, 10000", 1, SetUpBlocks, HandOutAndCopy, 10000),
      pair("entries of the host, 100", 500, SetUpHostEntries, CompareNames, 100),
      pair("entries of the host, 10000", 5, SetUpHostEntries, CompareNames, 10000),
      pair("table entries, 1", 500, SetUpTables, CopyTables, 1),
      pair("table entries, 64", 500, SetUpTables, CopyTables, 64),
      pair("table entries, 1024", 500, SetUpTables, CopyTables, 1024),
      pair("asset names, 100", 100, SetUpAssets, CopyNames, 100),
      pair("asset names, 10000", 1, SetUpAssets, CopyNames, 10000),
  };
}
