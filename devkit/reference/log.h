// SPDX-License-Identifier: Apache-2.0

// Lines on the platform's log.
#pragma once

#include <android/log.h>

#include <string>

namespace tarn::reference {

inline void LogError(const char* tag, const std::string& line) {
  __android_log_print(ANDROID_LOG_ERROR, tag, "%s", line.c_str());
}

inline void LogInfo(const char* tag, const std::string& line) {
  __android_log_print(ANDROID_LOG_INFO, tag, "%s", line.c_str());
}

}  // namespace tarn::reference
