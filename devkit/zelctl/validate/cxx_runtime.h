// Which C++ standard library a library was linked to.
#pragma once

#include <string>

namespace zelctl {

// The name of another C++ runtime than libc++ that the loaded library `file` needs, as
// it stands in its dynamic section (DT_NEEDED); empty where there is none.
std::string ForeignCxxRuntime(const std::string& file);

}  // namespace zelctl
