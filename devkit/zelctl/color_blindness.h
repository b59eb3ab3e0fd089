// SPDX-License-Identifier: Apache-2.0

// Corrections for anomalous colour vision.
#pragma once

#include "devkit/reference/color/matrix.h"

namespace zelctl {

// What the viewer would not see is moved to where it is seen; greys stay.
tarn::color::Mat3 ProtanomalyCorrection();
tarn::color::Mat3 DeuteranomalyCorrection();
tarn::color::Mat3 TritanomalyCorrection();

}  // namespace zelctl
