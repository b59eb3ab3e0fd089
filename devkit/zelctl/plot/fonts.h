// SPDX-License-Identifier: Apache-2.0

// Whether a picture can show a text.
#pragma once

#include <string>

namespace zelctl {

enum class FontsAnswer {
  kHaveAll,
  kLackSome,
  kUnknown,  // there is no fc-list, which would know
};

// Whether the machine's fonts have every character of `text`. ASCII they have.
FontsAnswer FontsFor(const std::string& text);

}  // namespace zelctl
