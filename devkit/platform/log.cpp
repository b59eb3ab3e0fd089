// SPDX-License-Identifier: Apache-2.0
#include <android/log.h>
#include <sys/time.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>

namespace {

constexpr size_t kMaxEntry = 1024;  // the platform cuts entries here too

char PriorityLetter(int prio) {
  constexpr std::string_view kLetters = "??VDIWEFS";
  return prio >= 0 && static_cast<size_t>(prio) < kLetters.size()
             ? kLetters[static_cast<size_t>(prio)]
             : '?';
}

// "MM-DD hh:mm:ss.mmm  pid  tid P tag     : "
std::string Prefix(int prio, const char* tag) {
  timeval now = {};
  gettimeofday(&now, nullptr);
  tm local = {};
  localtime_r(&now.tv_sec, &local);
  std::array<char, 128> text = {};
  const int size = std::snprintf(
      text.data(), text.size(), "%02d-%02d %02d:%02d:%02d.%03d %5d %5d %c %-8s: ", local.tm_mon + 1,
      local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
      static_cast<int>(now.tv_usec / 1000), getpid(), gettid(), PriorityLetter(prio), tag);
  return std::string(text.data(), std::min(static_cast<size_t>(size), text.size() - 1));
}

}  // namespace

int __android_log_print(int prio, const char* tag, const char* fmt, ...) {
  std::array<char, kMaxEntry> entry = {};
  va_list args;
  va_start(args, fmt);
  const int length = std::vsnprintf(entry.data(), entry.size(), fmt, args);
  va_end(args);
  if (length < 0) return length;

  // As logcat shows it: every line of the entry after its own prefix, a final
  // line break shown once; one write, so that threads don't mix their lines.
  const std::string prefix = Prefix(prio, tag);
  std::string_view rest = entry.data();
  std::string shown;
  do {
    const size_t end = rest.find('\n');
    shown.append(prefix).append(rest.substr(0, end)).append("\n");
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  } while (!rest.empty());
  return static_cast<int>(write(STDERR_FILENO, shown.data(), shown.size()));
}
