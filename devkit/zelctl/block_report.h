// The blocks of an answer, as a table and as JSON.
#pragma once

#include <ostream>

#include "devkit/zelctl/json_output.h"
#include "modes/mode_op_params.h"

namespace zelctl {

Json BlocksJson(const velaricolor::HwConfigOutputParams& output);

// One line per block, with a hash over all its fields: equal where nothing changed.
void PrintBlocks(const velaricolor::HwConfigOutputParams& output, std::ostream& out);

// What the commands without options of their own end with.
void ReportBlocks(const velaricolor::HwConfigOutputParams& output, bool json, std::ostream& out);

}  // namespace zelctl
