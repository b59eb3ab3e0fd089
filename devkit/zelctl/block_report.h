// SPDX-License-Identifier: Apache-2.0

// The blocks of an answer, as a table and as JSON.
#pragma once

#include <ostream>

#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/json_output.h"
#include "modes/mode_op_params.h"

namespace zelctl {

// With a hash over all fields of each; without `tables`, of what is long only how long it
// is, and a list's ends.
Json BlocksJson(const velaricolor::HwConfigOutputParams& output, bool tables);

// One line per block, with a hash over all its fields: equal where nothing changed.
void PrintBlocks(const velaricolor::HwConfigOutputParams& output, std::ostream& out);

// What the commands without options of their own end with.
void ReportBlocks(const GlobalOptions& globals, const velaricolor::HwConfigOutputParams& output);

}  // namespace zelctl
