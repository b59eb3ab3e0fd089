// SPDX-License-Identifier: Apache-2.0

// Comparing names, which a mode switch does for every block it finds.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>

namespace velaricolor {

// Whether `name` is that of a hardware block: name == block, inline, word by word and
// the last word first, for block names begin alike and end differently. A call of
// memcmp would cost more than it compares. Every block name is a word long at least.
inline bool SameName(const std::string& name, const std::string& block) {
  const size_t size = block.size();
  if (size != name.size()) return false;

  const auto same_word = [x = name.data(), y = block.data()](size_t place) {
    uint64_t word_x = 0;
    uint64_t word_y = 0;
    std::memcpy(&word_x, x + place, sizeof word_x);
    std::memcpy(&word_y, y + place, sizeof word_y);
    return word_x == word_y;
  };
  if (!same_word(size - sizeof(uint64_t))) return false;
  for (size_t place = 0; place + sizeof(uint64_t) < size; place += sizeof(uint64_t)) {
    if (!same_word(place)) return false;
  }
  return true;
}

}  // namespace velaricolor
