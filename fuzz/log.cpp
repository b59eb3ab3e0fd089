// SPDX-License-Identifier: Apache-2.0

// A log that formats every line and shows none.
#include <android/log.h>
#include <cutils/properties.h>

#include <array>
#include <cstdarg>
#include <cstdio>

__attribute__((visibility("default"))) int __android_log_print(int /*prio*/, const char* /*tag*/,
                                                               const char* fmt, ...) {
  std::array<char, 1024> line;
  va_list args;
  va_start(args, fmt);
  const int length = std::vsnprintf(line.data(), line.size(), fmt, args);
  va_end(args);
  return length;
}

// The level at which every line is formatted.
__attribute__((visibility("default"))) int property_get(const char* /*key*/, char* value,
                                                        const char* /*default_value*/) {
  return std::snprintf(value, PROPERTY_VALUE_MAX, "2");
}
