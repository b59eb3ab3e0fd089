// Searching a dispatch table that is mostly asked for the same key again.
#pragma once

#include <string>
#include <string_view>

namespace velaricolor {

template <typename Key>
bool Same(const Key& a, const Key& b) {
  return a == b;
}
inline bool Same(const std::string& a, const std::string& b) {
  return std::string_view{a} == std::string_view{b};
}

// The handler that `table`, which is never empty, holds under `key`, or null.
// `recent`, an entry of the table, is tried first and moved to what was found:
// one comparison where a search would be a chain of them.
template <typename Table, typename Key>
typename Table::mapped_type FindHandler(const Table& table, const Key& key,
                                        typename Table::const_iterator* recent) {
  if (!Same((*recent)->first, key)) {
    const auto entry = table.find(key);
    if (entry == table.end()) return nullptr;
    *recent = entry;
  }
  return (*recent)->second;
}

}  // namespace velaricolor
