// SPDX-License-Identifier: Apache-2.0

// Numbers as a page shows them.
#pragma once

#include <string>

namespace zelctl {

// With that many places; a dash where it is no finite number.
std::string Fixed(double value, int places);

// Four digits that count: "812", "0.0005", "11.65".
std::string Significant(double value);

}  // namespace zelctl
