// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/plot/fonts.h"

#include <array>
#include <cstdio>
#include <set>

#include "devkit/zelctl/plot/tool.h"
#include "devkit/zelctl/text_width.h"

namespace zelctl {

Fonts FontsFor(const std::string& text) {
  std::set<char32_t> characters;
  for (const char32_t character : Characters(text)) {
    if (character > 0x7e) characters.insert(character);
  }
  for (const char32_t character : characters) {
    std::array<char, 32> pattern = {};
    std::snprintf(pattern.data(), pattern.size(), ":charset=%x", static_cast<unsigned>(character));
    const ToolRun run = RunTool({"fc-list", pattern.data(), "family"}, "");
    if (!run.found || run.status != 0) return Fonts::kUnknown;
    if (run.out.empty()) return Fonts::kLackIt;
  }
  return Fonts::kHaveIt;
}

}  // namespace zelctl
