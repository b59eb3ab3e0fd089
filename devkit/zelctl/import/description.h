// SPDX-License-Identifier: Apache-2.0

// A panel description from facts.
#pragma once

#include <string>

#include "devkit/zelctl/import/panel_facts.h"
#include "devkit/zelctl/json_output.h"

namespace zelctl {

// Throws UsageError, which begins with the option, for a transfer function or a target
// that there is not.
void CheckOptions(const ImportOptions& options);

// A description with a native mode and those of the options, which are checked. Throws
// UsageError that names all that neither facts nor options say. Adds to `facts->source` what the
// options said and which form the transfer function took.
Json Describe(const ImportOptions& options, PanelFacts* facts);

// The value of "primaries".
Json PrimariesJson(const tarn::color::Primaries& primaries);

// As a file: pairs and short lists of numbers in one line.
std::string DescriptionText(const Json& description);

}  // namespace zelctl
