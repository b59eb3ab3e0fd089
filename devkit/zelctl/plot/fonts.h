// SPDX-License-Identifier: Apache-2.0

// Whether a picture can show a text.
#pragma once

#include <string>

namespace zelctl {

// Whether the machine's fonts have every character of `text`. Where nothing can tell
// (fontconfig's fc-list is missing), only ASCII is taken for sure.
bool FontsHave(const std::string& text);

}  // namespace zelctl
