// SPDX-License-Identifier: Apache-2.0

// Files that the user asks for.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace zelctl {

// The one of `endings` that `path`, the value of `option`, has, in capitals or not. Throws
// UsageError where it has none.
std::string_view RequireEnding(const std::string& path,
                               std::initializer_list<std::string_view> endings,
                               const std::string& option = "--output");

// Throws UsageError with the system's reason. What a file held before is replaced
// as a whole or not at all; what is no regular file (a pipe) is written to,
// and a link stays a link.
void WriteOutput(const std::string& path, std::string_view bytes);

}  // namespace zelctl
