// SPDX-License-Identifier: Apache-2.0

// A panel description from a file of another kind.
#pragma once

#include <string>

#include "devkit/zelctl/import/panel_facts.h"
#include "devkit/zelctl/json_output.h"

namespace zelctl {

// The description, as the mode parser takes it without a note, from the contents of the
// file at `path`: an ICC display profile, or CGATS measurements of a display. Throws
// UsageError, which begins with `path`.
Json ImportPanel(const std::string& path, const std::string& bytes, const ImportOptions& options);

}  // namespace zelctl
