// Corrections for anomalous colour vision.
#pragma once

#include "devkit/zelctl/matrix3.h"

namespace zelctl {

// What the viewer would not see is moved to where it is seen; greys stay.
Matrix3 ProtanomalyCorrection();
Matrix3 DeuteranomalyCorrection();
Matrix3 TritanomalyCorrection();

}  // namespace zelctl
