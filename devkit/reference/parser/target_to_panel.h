// SPDX-License-Identifier: Apache-2.0

// From light of a mode's content to light of the panel, and what the panel
// lacks of it. Light is of the three channels, relative to the panel's range.
#pragma once

#include "devkit/reference/panel/panel.h"

namespace tarn::reference {

// What the PCC block computes: matrix * light + offset.
struct LightConversion {
  color::Mat3 matrix;
  color::Vec3 offset;

  color::Vec3 operator()(const color::Vec3& light) const;
};

// The offset is other than 0 where the target states its light in cd/m2 and
// isn't adapted: what the panel's black adds is then no part of the target's.
LightConversion TargetToPanel(const Panel& panel, const Target& target);

LightConversion Inverse(const LightConversion& conversion);

}  // namespace tarn::reference
