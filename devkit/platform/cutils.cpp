// SPDX-License-Identifier: Apache-2.0
#include <cutils/properties.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

int property_get(const char* key, char* value, const char* default_value) {
  const char* text = std::getenv(key);
  if (text == nullptr || *text == '\0') text = default_value;

  std::string_view shown = text == nullptr ? "" : text;
  shown = shown.substr(0, PROPERTY_VALUE_MAX - 1);
  *std::copy(shown.begin(), shown.end(), value) = '\0';
  return static_cast<int>(shown.size());
}
