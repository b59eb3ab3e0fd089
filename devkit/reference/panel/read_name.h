// SPDX-License-Identifier: Apache-2.0

// Values that are one of several names.
#pragma once

#include <map>
#include <string>

#include "devkit/reference/panel/json_reader.h"

namespace tarn::reference {

// The entry that a text names. `other` says what else may stand there.
template <typename T>
T Named(const JsonValue& value, const std::map<std::string, T>& names,
        const std::string& other = "") {
  const auto found = names.find(value.Text());
  if (found != names.end()) return found->second;
  std::string known;
  for (const auto& [name, unused] : names) known += (known.empty() ? "" : ", ") + name;
  value.Refuse("expected one of " + known + (other.empty() ? "" : ", or " + other));
}

// Whether the value is a name. Where it is not, it must be what else may stand
// in the name's place.
inline bool IsName(const JsonValue& value, bool is_other, const char* other) {
  if (!value.IsString() && !is_other) value.Refuse(std::string("expected a name or ") + other);
  return value.IsString();
}

}  // namespace tarn::reference
