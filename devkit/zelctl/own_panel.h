// SPDX-License-Identifier: Apache-2.0

// Whose description the panel's file is.
#pragma once

#include <string>

#include "devkit/zelctl/commands.h"

namespace zelctl {

// Primaries and targets are no part of any block: they are read from the description. Throws
// UsageError where none is named, and the sample is not known to be that of the parser's
// panel. `needed_for` ends the complaint: "targets and primaries".
void RequireOwnPanel(const GlobalOptions& globals, const std::string& needed_for);

}  // namespace zelctl
