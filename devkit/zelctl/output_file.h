// SPDX-License-Identifier: Apache-2.0

// Files that the user asks for.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace zelctl {

// The one of `endings` that `path` has. Throws UsageError where it has none.
std::string_view RequireEnding(const std::string& path,
                               std::initializer_list<std::string_view> endings);

// Throws UsageError with the system's reason. What a file held before is replaced
// as a whole or not at all; what is no regular file (a pipe) is written to.
void WriteOutput(const std::string& path, std::string_view bytes);

}  // namespace zelctl
