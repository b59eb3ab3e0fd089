// SPDX-License-Identifier: Apache-2.0

// The files that a run reads are not those that it writes.
#pragma once

#include <string>

#include "devkit/zelctl/commands.h"

namespace zelctl {

// Throws UsageError where `output` is the file `input`, by whatever name: it would be lost.
void RefuseInput(const std::string& output, const std::string& input);

// The same for all files that the options name, and for `input`, if any.
void KeepInputs(const std::string& output, const GlobalOptions& globals,
                const RenderOptions& options, const std::string& input = "");

}  // namespace zelctl
