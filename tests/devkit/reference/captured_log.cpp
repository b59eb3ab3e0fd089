#include "tests/devkit/reference/captured_log.h"

#include <android/log.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <utility>

namespace {
std::vector<std::string>& Lines() {
  static std::vector<std::string> lines;
  return lines;
}
}  // namespace

std::vector<std::string> TakeLog() { return std::exchange(Lines(), {}); }

// Found before the log library's own, since the program comes first.
int __android_log_print(int prio, const char* tag, const char* fmt, ...) {
  std::array<char, 4096> text;
  va_list args;
  va_start(args, fmt);
  const int length = std::vsnprintf(text.data(), text.size(), fmt, args);
  va_end(args);
  Lines().push_back(std::to_string(prio) + " " + tag + " " + text.data());
  return length;
}
