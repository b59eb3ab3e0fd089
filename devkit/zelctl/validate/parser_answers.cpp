// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/parser_answers.h"

#include <algorithm>

#include "convert/gamut_gamma_config.h"

namespace zelctl {
namespace {

// What a host may set: short tables, the longest, the usual ones at last.
const std::vector<TableSizes>& SizesToTry() {
  static const std::vector<TableSizes> sizes = {
      {{33, 8}, {65, 10}},
      {{zeltarn::kMaxGammaEntries, 12}, {zeltarn::kMaxGammaEntries, 12}},
      {zeltarn::kDefaultInverseGamma, zeltarn::kDefaultGamma}};
  return sizes;
}

std::string Entries(const TableSizes& sizes) {
  return std::to_string(sizes.igc.num_of_entries) + " IGC and " +
         std::to_string(sizes.gc.num_of_entries) + " GC entries";
}

int SetSizes(ParserSubject& parser, const TableSizes& sizes) {
  constexpr uint32_t kGamma = tarn::GammaPostBlendConfig::kVersion;
  parser.sizes = sizes;  // they count even if the parser refuses them
  const int igc = parser.SetSize(tarn::kZelPostBlendInverseGammaHwConfig, kGamma, sizes.igc);
  const int gc = parser.SetSize(tarn::kZelPostBlendGammaHwConfig, kGamma, sizes.gc);
  const int gamut = parser.SetSize(tarn::kZelPostBlendGamutHwConfig,
                                   tarn::GamutPostBlendConfig::kVersion, zeltarn::kDefaultGamut);
  return igc != 0 ? igc : gc != 0 ? gc : gamut;
}

// Asks `op` of every mode. `at` ends the title of what is seen.
void AskModes(ParserSubject& parser, tarn::ZelOps op, const std::string& at, bool remember,
              Tally* codes) {
  for (const auto& mode : parser.modes.modes) {
    const Question question = {op, mode};
    const std::string title = question.Title() + at;
    tarn::HwConfigOutputParams answer;
    const int code = parser.Ask(question, &answer);
    codes->See(code == 0, title, "answered " + CodeText(code));
    CheckAnswer({title, answer, parser.sizes}, &parser.tallies);
    if (remember) parser.asked.push_back({question, code, BlockTexts(answer), answer});
  }
}

}  // namespace

Finding AskRenderIntents(ParserSubject& parser) {
  Tally codes;
  AskModes(parser, tarn::kZelModeRenderIntent, "", false, &codes);
  for (const TableSizes& sizes : SizesToTry()) {
    const int code = SetSizes(parser, sizes);
    parser.size_codes.See(code == 0, Entries(sizes), "SetProperty answered " + CodeText(code));
    const bool last = &sizes == &SizesToTry().back();
    AskModes(parser, tarn::kZelModeRenderIntent, " at " + Entries(sizes), last, &codes);
  }
  return codes.Sum(Verdict::kFailed, "requests answered 0");
}

Finding AskSwAssets(ParserSubject& parser) {
  Tally codes;
  AskModes(parser, tarn::kZelModeSwAssets, "", true, &codes);
  return codes.Sum(Verdict::kFailed, "requests answered 0");
}

Finding AskDither(ParserSubject& parser) {
  const Question question;
  tarn::HwConfigOutputParams answer;
  const int code = parser.Ask(question, &answer);
  if (code != 0) return {Verdict::kPassed, "answered " + CodeText(code) + ": no configuration"};
  CheckAnswer({question.Title(), answer, parser.sizes}, &parser.tallies);
  parser.asked.push_back({question, code, BlockTexts(answer), answer});
  return {Verdict::kPassed, "answered 0; blocks: " + std::to_string(answer.payloads.size())};
}

Finding AskAgain(ParserSubject& parser) {
  Tally tally;
  for (const auto& asked : parser.asked) {
    tarn::HwConfigOutputParams answer;
    const int code = OnOwnThread([&] { return parser.Ask(asked.question, &answer); });
    const auto& blocks = asked.blocks;
    const auto again = BlockTexts(answer);
    const auto [was, is] = std::mismatch(blocks.begin(), blocks.end(), again.begin(), again.end());
    const auto at = static_cast<size_t>(is - again.begin());
    const std::string block = is == again.end() ? "" : ", " + answer.payloads[at].hw_block;
    tally.See(code == asked.code && was == blocks.end() && is == again.end(),
              asked.question.Title() + block, "another answer the second time");
  }
  return tally.Sum(Verdict::kFailed, "answers from another thread");
}

Finding CompareRecords(ParserSubject& parser) {
  Tally tally;
  for (auto& asked : parser.asked) {
    const auto now = BlockTexts(asked.answer);
    for (size_t i = 0; i < now.size(); ++i) {
      tally.See(now[i] == asked.blocks[i],
                asked.question.Title() + ", " + asked.answer.payloads[i].hw_block,
                "its record changed after it was handed out");
    }
    asked.answer.payloads.clear();  // before the library goes
  }
  return tally.Sum(Verdict::kFailed, "records as they were");
}

Finding AskUnknownMode(ParserSubject& parser) {
  const auto& modes = parser.modes.modes;
  tarn::ColorMode mode = {.gamut = 4'000'000'000, .gamma = 0, .intent = 0, .label = "no mode"};
  while (std::any_of(modes.begin(), modes.end(),
                     [&](const auto& known) { return known.gamut == mode.gamut; })) {
    ++mode.gamut;
  }
  Tally tally;
  for (const auto op : {tarn::kZelModeRenderIntent, tarn::kZelModeSwAssets}) {
    const Question question = {op, mode};
    tarn::HwConfigOutputParams answer;
    const int code = parser.Ask(question, &answer);
    tally.See(code != 0 && answer.payloads.empty(), question.Title(),
              "answered " + CodeText(code) + " with " + std::to_string(answer.payloads.size()) +
                  " blocks");
  }
  return tally.Sum(Verdict::kWarning, "requests answered by an error");
}

}  // namespace zelctl
