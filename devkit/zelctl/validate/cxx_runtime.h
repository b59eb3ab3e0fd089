// SPDX-License-Identifier: Apache-2.0

// Which C++ standard library a library was linked to.
#pragma once

#include <string>

namespace zelctl {

// Why the loaded library `file` can't be called: the other C++ runtime than libc++ that it
// needs, as it stands in its dynamic section (DT_NEEDED). Empty where there is none.
std::string ForeignCxxRuntime(const std::string& file);

}  // namespace zelctl
