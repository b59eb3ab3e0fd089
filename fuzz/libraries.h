// SPDX-License-Identifier: Apache-2.0

// The two run-time libraries, as the input scripts them.
#pragma once

#include "fuzz/block.h"

namespace zeltarn::fuzz {

struct Library {
  enum Lack { kNothing, kFile, kFactory, kObject };
  Lack lacks = kNothing;
  int init_result = 0;

  int opened = 0;   // handles that are open
  int objects = 0;  // objects that live
};

// Scripts of the next call, and what happened since the session began.
struct Libraries {
  Library parser;
  Library algo;
  size_t modes = 1;
  int list_result = 0;
  uint32_t asked = 0;         // id that the parser may be asked for
  uint32_t entries = 0;       // that it may be told
  int result = 0;             // its result, but for Init and the modes
  std::vector<Block> blocks;  // its answer
  std::array<int, 2> merge_results = {};

  int calls = 0;                              // of both libraries' operations
  size_t merges = 0;                          // in this call
  std::vector<std::weak_ptr<void>> answered;  // records handed out in this call
};

Libraries& TheLibraries();

// What the algorithm library merges to: the order of the operands matters.
pcc_coeff_data Merged(const pcc_coeff_data& trans, const pcc_coeff_data& active);

}  // namespace zeltarn::fuzz
