// SPDX-License-Identifier: Apache-2.0

// Hardware blocks as plain data: what the fake parser answers with, what a host
// puts into its lists, and what the model expects there.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "modes/mode_op_params.h"

namespace zeltarn::fuzz {

// What a typed record holds; of each block, only what its record has.
struct Content {
  uint8_t enable = 0;  // any byte; all but 0 are true
  pcc_coeff_data coeffs = {};
  std::array<size_t, 3> entries = {};  // of the gamma blocks' lists
  uint8_t filling = 0;                 // all bytes, or entries, of everything else
};

struct Block {
  uint32_t version = 56;
  std::string name;
  std::shared_ptr<Content> content;  // shared where the record is; null: none
  uint32_t len = 0;
};

struct List {
  uint32_t version = 32;
  std::vector<Block> blocks;
};

// Whether the plug-in converts blocks of this name.
bool IsKnown(const std::string& name);

// A block under a known, unknown or nearly known name.
Block ReadBlock(Input* input);

// The block with a record of its name's type. Under an unknown name that is a
// single byte: whoever takes it for anything else is caught.
template <typename Side>
layout::HwConfigPayload<Side> ToPayload(const Block& block);

// Equality to the bit, but for NaNs, which all count as one.
bool Same(const pcc_coeff_data& a, const pcc_coeff_data& b);

void RequireSame(const velaricolor::HwConfigOutputParams& params, const List& list);

}  // namespace zeltarn::fuzz
