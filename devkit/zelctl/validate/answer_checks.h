// SPDX-License-Identifier: Apache-2.0

// The rules for every list of blocks that a parser answers with.
#pragma once

#include <string>
#include <vector>

#include "devkit/zelctl/validate/finding.h"
#include "handlers/post_blend_hw_config.h"
#include "modes/mode_op_params.h"

namespace zelctl {

// What the plug-in needs of the two gamma blocks' tables.
struct TableSizes {
  // Until it sets any it states no depth: every code fits.
  zeltarn::TableDimensions igc = {zeltarn::kDefaultInverseGamma.num_of_entries, 32};
  zeltarn::TableDimensions gc = {zeltarn::kDefaultGamma.num_of_entries, 32};
};

struct Answer {
  std::string place;
  const tarn::HwConfigOutputParams& output;
  TableSizes sizes;
};

// One entry of an answer.
struct Entry {
  const Answer& answer;
  size_t index;

  const tarn::HwConfigPayload& Block() const { return answer.output.payloads[index]; }
  std::string Place() const;
};

struct AnswerCheck {
  const char* rule;
  Verdict otherwise;
  const char* things;  // that it looks at
  void (*check)(const Entry&, Tally*);
};

const std::vector<AnswerCheck>& AnswerChecks();

using AnswerTallies = std::vector<Tally>;  // one for each check, in their order; or none yet

// Looks at the answer at once: its records are gone when the next is asked for.
void CheckAnswer(const Answer& answer, AnswerTallies* tallies);

}  // namespace zelctl
