// SPDX-License-Identifier: Apache-2.0

// Searching a dispatch table that is mostly asked for the same key again.
#pragma once

#include <string>

#include "plugin/same_name.h"

namespace velaricolor {

template <typename Key>
bool Same(const Key& a, const Key& b) {
  return a == b;
}
inline bool Same(const std::string& block, const std::string& name) {
  return SameName(name, block);
}

// The entry of `Table`, which is never empty, that was found last. It is a copy,
// for the table's nodes lie apart and have left the cache by the next mode switch:
// looking at them instead cost a fiftieth of one.
template <typename Table>
class RecentEntry {
 public:
  explicit RecentEntry(const Table& table)
      : key_(table.begin()->first), handler_(table.begin()->second) {}

  // The handler that `table` holds under `key`, or null. Asked for again, a key
  // takes one comparison where a search would be a chain of them.
  typename Table::mapped_type Find(const Table& table, const typename Table::key_type& key) {
    if (Same(key_, key)) return handler_;
    const auto entry = table.find(key);
    if (entry == table.end()) return nullptr;
    key_ = entry->first;
    return handler_ = entry->second;
  }

 private:
  typename Table::key_type key_;
  typename Table::mapped_type handler_;
};

}  // namespace velaricolor
