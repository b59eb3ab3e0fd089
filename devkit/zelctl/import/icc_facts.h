// SPDX-License-Identifier: Apache-2.0

// A panel from its display profile.
#pragma once

#include "devkit/zelctl/import/icc_profile.h"
#include "devkit/zelctl/import/panel_facts.h"

namespace zelctl {

// The adaptation to D50 is undone: by the chad tag, or without one by the Bradford
// transform from the media white point, which is what profiles of version 2 hold. The
// black is the black point's; where that is absent or 0, what the curves have at signal
// 0. Throws UsageError.
PanelFacts FactsOf(const IccProfile& profile);

}  // namespace zelctl
