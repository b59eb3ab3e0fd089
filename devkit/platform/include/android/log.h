// SPDX-License-Identifier: Apache-2.0

// The part of the Android log that the plug-in calls.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

typedef enum android_LogPriority {  // NOLINT(modernize-use-using): the platform's C header
  ANDROID_LOG_INFO = 4,
  ANDROID_LOG_ERROR = 6,
} android_LogPriority;

// Writes one entry to standard error in logcat's `threadtime` form. `prio` is
// an android_LogPriority. Returns the number of bytes written, or a negative
// number. [any thread]
__attribute__((visibility("default"), format(printf, 3, 4))) int __android_log_print(
    int prio, const char* tag, const char* fmt, ...);

#ifdef __cplusplus
}
#endif
