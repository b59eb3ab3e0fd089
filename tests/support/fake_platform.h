// SPDX-License-Identifier: Apache-2.0

// The platform, as a test scripts and observes it. The test program defines the
// platform's functions itself, and so takes over from the real ones.
#pragma once

#include <string>
#include <vector>

struct LogLine {
  int priority;
  std::string tag;
  std::string function;  // of the prefix
  int line;
  std::string text;  // after the common prefix
};

// The thread sanitizer must see threads start itself; there they always do.
#if __has_feature(thread_sanitizer)
inline constexpr bool kThreadsCanFail = false;
#else
inline constexpr bool kThreadsCanFail = true;
#endif

struct FakePlatform {
  // Scripts.
  const char* log_level = nullptr;  // text of the property, null where absent
  bool parser_opens = true;         // else dlopen fails
  bool algo_opens = true;
  std::string parser_path;  // another library in the parser's place
  std::string algo_path;
  bool threads_start = true;  // else pthread_create fails, if kThreadsCanFail

  // Observations.
  std::vector<LogLine> log;
  std::vector<std::string> properties_read;
  // What happened to libraries and their objects, in order: "open parser",
  // "parser factory 2 0", "parser Init ARG", "delete parser", "close parser" ...
  std::vector<std::string> events;

  // Messages logged since the last call, without their prefix; errors as
  // "E function: text", information as "I function: text".
  std::vector<std::string> TakeLog();
  std::vector<std::string> TakeEvents();
};

// The one of the running test.
FakePlatform& Platform();
