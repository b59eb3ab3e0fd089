// SPDX-License-Identifier: Apache-2.0

// Texts within HTML, SVG and XML.
#pragma once

#include <string>

namespace zelctl {

// Nothing in `text` is markup, neither between tags nor within a quoted attribute.
// Control characters and bytes that are not UTF-8, which XML can't hold, become
// replacement characters.
std::string Escaped(const std::string& text);

}  // namespace zelctl
