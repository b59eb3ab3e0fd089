// SPDX-License-Identifier: Apache-2.0

// A panel from measurements of it.
#pragma once

#include <string>
#include <vector>

#include "devkit/zelctl/import/measured_colors.h"
#include "devkit/zelctl/import/panel_facts.h"

namespace zelctl {

// White, primaries and black are means of their readings; black is taken off the
// primaries. The curves are those of the single-channel steps where each channel has
// some, else of the greys, else unknown. Throws UsageError
// where white or a primary is missing.
PanelFacts FactsOf(const std::vector<MeasuredColor>& colors, const DisplayReadings& readings);

}  // namespace zelctl
