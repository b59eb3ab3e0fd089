// SPDX-License-Identifier: Apache-2.0

// Texts and numbers as a page shows them.
#pragma once

#include <string>

namespace zelctl {

// Nothing in `text` is markup, neither between tags nor within a quoted attribute.
// Bytes that are not UTF-8 become replacement characters.
std::string Escaped(const std::string& text);

// With that many places; a dash where it is no finite number.
std::string Fixed(double value, int places);

// Four digits that count: "812", "0.0005", "11.65".
std::string Significant(double value);

}  // namespace zelctl
