// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/answer_checks.h"

#include <algorithm>
#include <cmath>

#include "convert/gamut_gamma_config.h"
#include "devkit/zelctl/block_json.h"
#include "devkit/zelctl/blocks/block_record.h"
#include "pcc/pcc_config.h"
#include "plugin/names.h"

namespace zelctl {
namespace {

std::string Instead(const std::string& what, uint64_t found, uint64_t expected) {
  return what + " " + std::to_string(found) + " instead of " + std::to_string(expected);
}

void CheckEntryVersion(const Entry& entry, Tally* tally) {
  const auto version = entry.Block().version;
  constexpr auto kExpected = tarn::HwConfigPayload::kVersion;
  tally->See(version == kExpected, entry.Place(), Instead("version", version, kExpected));
}

// The plug-in stops at the first name that it doesn't know.
void CheckName(const Entry& entry, Tally* tally) {
  const auto& blocks = entry.answer.output.payloads;
  std::string lost;
  for (size_t i = entry.index + 1; i < blocks.size(); ++i) lost += " " + blocks[i].hw_block;
  tally->See(RecordBytes(entry.Block().hw_block) != 0, entry.Place(),
             "not a block; lost after it:" + (lost.empty() ? " none" : lost));
}

void CheckNameOnce(const Entry& entry, Tally* tally) {
  const auto& blocks = entry.answer.output.payloads;
  const auto last = blocks.begin() + static_cast<std::ptrdiff_t>(entry.index);
  const bool again = std::any_of(blocks.begin(), last, [&](const auto& block) {
    return block.hw_block == entry.Block().hw_block;
  });
  tally->See(!again, entry.Place(), "for the second time, converted onto the first");
}

void CheckRecordThere(const Entry& entry, Tally* tally) {
  tally->See(entry.Block().payload != nullptr, entry.Place(), "no record");
}

void CheckLength(const Entry& entry, Tally* tally) {
  const uint32_t bytes = RecordBytes(entry.Block().hw_block);
  if (bytes == 0) return;
  tally->See(entry.Block().len == bytes, entry.Place(), Instead("len", entry.Block().len, bytes));
}

// Every record begins with its version.
void CheckRecordVersion(const Entry& entry, Tally* tally) {
  const uint32_t bytes = RecordBytes(entry.Block().hw_block);
  const void* record = entry.Block().payload.get();
  if (bytes == 0 || record == nullptr) return;
  const auto version = *static_cast<const uint32_t*>(record);
  tally->See(version == bytes, entry.Place(), Instead("version", version, bytes));
}

// Calls `check` for the three lists of a gamma block with a sound record.
template <typename Check>
void ForGammaLists(const Entry& entry, Check check) {
  const bool igc = entry.Block().hw_block == velaricolor::kPostBlendIGC;
  if (!igc && entry.Block().hw_block != velaricolor::kPostBlendGC) return;
  const auto* record = RecordOf<tarn::GammaPostBlendConfig>(entry.Block());
  if (record == nullptr) return;
  const zeltarn::TableDimensions& size = igc ? entry.answer.sizes.igc : entry.answer.sizes.gc;
  check(record->c0, size, entry.Place() + " c0");
  check(record->c1, size, entry.Place() + " c1");
  check(record->c2, size, entry.Place() + " c2");
}

using Codes = std::vector<uint32_t>;

// The part of a list that reaches the host.
Codes::const_iterator EndOfUsed(const Codes& codes, const zeltarn::TableDimensions& size) {
  return codes.begin() +
         static_cast<std::ptrdiff_t>(std::min<size_t>(codes.size(), size.num_of_entries));
}

void CheckListLengths(const Entry& entry, Tally* tally) {
  ForGammaLists(entry,
                [&](const Codes& codes, const zeltarn::TableDimensions& size, const auto& place) {
                  tally->See(codes.size() >= size.num_of_entries, place,
                             Instead("entries", codes.size(), size.num_of_entries));
                });
}

void CheckCodeDepth(const Entry& entry, Tally* tally) {
  ForGammaLists(entry,
                [&](const Codes& codes, const zeltarn::TableDimensions& size, const auto& place) {
                  const auto end = EndOfUsed(codes, size);
                  const auto largest = std::max_element(codes.begin(), end);
                  if (largest == end) return;
                  tally->See((uint64_t{*largest} >> size.bit_depth) == 0, place,
                             "code " + std::to_string(*largest) + " for " +
                                 std::to_string(size.bit_depth) + " bits");
                });
}

void CheckCodesRise(const Entry& entry, Tally* tally) {
  ForGammaLists(
      entry, [&](const Codes& codes, const zeltarn::TableDimensions& size, const auto& place) {
        const auto end = EndOfUsed(codes, size);
        const auto fall = std::is_sorted_until(codes.begin(), end);
        tally->See(fall == end, place,
                   "falls at entry " + std::to_string(std::distance(codes.begin(), fall)));
      });
}

void CheckPccFinite(const Entry& entry, Tally* tally) {
  if (entry.Block().hw_block != velaricolor::kPostBlendPCC) return;
  const auto* record = RecordOf<tarn::PccPostBlendConfig>(entry.Block());
  if (record == nullptr) return;
  for (const zeltarn::PccRow& row : {record->coeffs.r, record->coeffs.g, record->coeffs.b}) {
    tally->See(std::all_of(row.begin(), row.end(), [](double c) { return std::isfinite(c); }),
               entry.Place(), "a coefficient is no finite number");
  }
}

}  // namespace

std::string Entry::Place() const { return answer.place + ", " + Block().hw_block; }

const std::vector<AnswerCheck>& AnswerChecks() {
  constexpr auto kFailed = Verdict::kFailed;
  constexpr auto kWarning = Verdict::kWarning;
  static const std::vector<AnswerCheck> checks = {
      {"entry versions", kFailed, "entries", CheckEntryVersion},
      {"block names", kFailed, "entries", CheckName},
      {"no block twice", kFailed, "entries", CheckNameOnce},
      {"records there", kFailed, "entries", CheckRecordThere},
      {"record lengths", kFailed, "entries", CheckLength},
      {"record versions", kFailed, "records", CheckRecordVersion},
      {"gamma list lengths", kFailed, "lists", CheckListLengths},
      {"gamma codes fit depth", kWarning, "lists", CheckCodeDepth},
      {"gamma codes don't fall", kWarning, "lists", CheckCodesRise},
      {"PCC numbers finite", kFailed, "rows", CheckPccFinite},
  };
  return checks;
}

void CheckAnswer(const Answer& answer, AnswerTallies* tallies) {
  tallies->resize(AnswerChecks().size());
  for (size_t index = 0; index < answer.output.payloads.size(); ++index) {
    for (size_t i = 0; i < tallies->size(); ++i) {
      AnswerChecks()[i].check({answer, index}, &(*tallies)[i]);
    }
  }
}

}  // namespace zelctl
