// SPDX-License-Identifier: Apache-2.0

// Curves from signal to light, brought into the form of a panel description.
#pragma once

#include <string>
#include <vector>

#include "devkit/reference/color/ramp.h"

namespace zelctl {

// `raw` (signals from 0 to 1, light in any unit) with light from 0 to 1 that rises from
// point to point. Light that falls is evened out by the nearest rising ramp, which adds
// a line to `source`. Throws UsageError, which begins with `what`, where that takes more
// than 2 % of the range, or where there is no range.
tarn::color::Ramp Rising(const tarn::color::Ramp& raw, const std::string& what,
                         std::vector<std::string>* source);

// Points between the steps of a measured ramp that rises from 0 to 1, at least 255 in
// all: monotone cubics (F. N. Fritsch, J. Butland, SIAM J. Sci. Stat. Comput. 5, 1984)
// through light^(1/2.2), in which a display's curve is nearly straight. The steps stay.
tarn::color::Ramp Smoothed(const tarn::color::Ramp& measured);

// At most `most` of the points of a ramp, chosen so that lines between them pass within
// the least tolerance that allows it, half a 16-bit step or more, of those left out.
tarn::color::Ramp Thinned(const tarn::color::Ramp& ramp, size_t most);

}  // namespace zelctl
