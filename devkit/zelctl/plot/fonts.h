// SPDX-License-Identifier: Apache-2.0

// Whether a picture can show a text.
#pragma once

#include <string>

namespace zelctl {

enum class Fonts { kHaveIt, kLackIt, kUnknown };

// Whether the machine's fonts have every character of `text`: unknown where fontconfig's
// fc-list is missing, but for ASCII.
Fonts FontsFor(const std::string& text);

}  // namespace zelctl
