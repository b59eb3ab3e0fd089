// SPDX-License-Identifier: Apache-2.0

// Every log line of the plug-in: tag "PXL", class name, function and source line
// in front of the message. Formats are checked against their arguments at
// compile time.
#pragma once

#include <android/log.h>

#include <cstdint>

namespace velaricolor {

inline constexpr const char* kLogTag = "PXL";
inline constexpr const char* kLogClass = "ZelTarnImpl";

// 0: errors only, 1 (default): main events, 2: everything. Read from the system
// property vendor.display.zelloglevel while the library is loaded; constant
// afterwards, so it needs no lock.
extern const int32_t g_log_level;

}  // namespace velaricolor

#define ZEL_LOG(priority, function, format, ...)                               \
  __android_log_print(priority, ::velaricolor::kLogTag, "%s::%s():%d " format, \
                      ::velaricolor::kLogClass, function, __LINE__ __VA_OPT__(, ) __VA_ARGS__)

// Errors print at every level. The _AS forms log under another function's name.
#define ZEL_LOGE_AS(function, format, ...) \
  ZEL_LOG(ANDROID_LOG_ERROR, function, format __VA_OPT__(, ) __VA_ARGS__)
#define ZEL_LOGE(format, ...) ZEL_LOGE_AS(__func__, format __VA_OPT__(, ) __VA_ARGS__)

// Information prints from the level `threshold` on.
#define ZEL_LOGI_AS(threshold, function, format, ...)                         \
  do {                                                                        \
    if (::velaricolor::g_log_level >= (threshold))                            \
      ZEL_LOG(ANDROID_LOG_INFO, function, format __VA_OPT__(, ) __VA_ARGS__); \
  } while (false)
#define ZEL_LOGI(threshold, format, ...) \
  ZEL_LOGI_AS(threshold, __func__, format __VA_OPT__(, ) __VA_ARGS__)
