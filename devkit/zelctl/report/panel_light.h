// SPDX-License-Identifier: Apache-2.0

// What a panel emits for the signal that drives it, as its description states.
#pragma once

#include "devkit/reference/panel/panel.h"

namespace zelctl {

// XYZ in cd/m2 of light of the panel's primaries: per channel a share of its range,
// 0 its black, 1 its peak. Black has the colour of the panel's white. Not clipped.
tarn::color::Vec3 LightToXyz(const tarn::reference::Panel& panel, const tarn::color::Vec3& light);

// XYZ in cd/m2 of a signal from 0 to 1 per channel.
tarn::color::Vec3 Emitted(const tarn::reference::Panel& panel, const tarn::color::Vec3& signal);

// The nearest signal that `bits` bits per channel can tell apart.
tarn::color::Vec3 Quantized(const tarn::color::Vec3& signal, uint32_t bits);

}  // namespace zelctl
