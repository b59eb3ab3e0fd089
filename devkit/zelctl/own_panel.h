// SPDX-License-Identifier: Apache-2.0

// Whose description the panel has.
#pragma once

#include "devkit/zelctl/commands.h"

namespace zelctl {

// Primaries and targets are no part of any block: they are read from the description. Throws
// UsageError where none is named, and the one that is used then is not known to be that of
// the parser's panel. `purpose` ends the message.
void RequireOwnPanel(const GlobalOptions& globals, const std::string& purpose);

}  // namespace zelctl
