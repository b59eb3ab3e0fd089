// SPDX-License-Identifier: Apache-2.0

// How much room a text takes on a terminal.
#pragma once

#include <cstddef>
#include <string>

namespace zelctl {

// In columns: a CJK character takes two, a combining mark none. A byte that is no UTF-8
// counts as one.
size_t DisplayWidth(const std::string& text);

// `text`, or its beginning and an ellipsis where it takes more than `columns`.
std::string Shortened(const std::string& text, size_t columns);

bool IsUtf8(const std::string& text);

// One for each byte that is no UTF-8 is U+FFFD.
std::u32string Characters(const std::string& text);

}  // namespace zelctl
