// SPDX-License-Identifier: Apache-2.0
#include "tests/support/fake_platform.h"

#include <android/log.h>
#include <cutils/properties.h>
#include <dlfcn.h>
#include <pthread.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <map>
#include <mutex>
#include <utility>

#include "tests/support/allocations.h"

#define ZEL_TAKE_OVER extern "C" __attribute__((visibility("default")))

namespace {

std::mutex log_mutex;
std::map<void*, std::string> opened;  // handles of the run-time libraries

template <typename Function>
Function* Original(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

std::vector<std::string> FakePlatform::TakeLog() {
  const std::lock_guard lock(log_mutex);
  std::vector<std::string> lines;
  for (const LogLine& line : std::exchange(log, {})) {
    lines.push_back((line.priority == ANDROID_LOG_ERROR ? "E " : "I ") + line.function + ": " +
                    line.text);
  }
  return lines;
}

std::vector<std::string> FakePlatform::TakeEvents() { return std::exchange(events, {}); }

ZEL_TAKE_OVER int __android_log_print(int prio, const char* tag, const char* fmt, ...) {
  const NeverFailing never_failing;
  constexpr const char* kPrefix = "%s::%s():%d ";
  std::array<char, 2048> text = {};
  va_list args;
  va_start(args, fmt);
  const int length = std::vsnprintf(text.data(), text.size(), fmt, args);
  va_end(args);

  // "class::function():line message"
  std::array<char, 256> function = {};
  int line = 0;
  int message = 0;
  std::sscanf(text.data(), "ZelTarnImpl::%255[^(]():%d %n", function.data(), &line, &message);
  const bool prefixed = std::strncmp(fmt, kPrefix, std::strlen(kPrefix)) == 0 && line > 0;
  const std::lock_guard lock(log_mutex);
  Platform().log.push_back({.priority = prio,
                            .tag = tag,
                            .function = prefixed ? function.data() : "(no prefix)",
                            .line = line,
                            .text = text.data() + message});
  return length;
}

ZEL_TAKE_OVER int property_get(const char* key, char* value, const char* default_value) {
  Platform().properties_read.emplace_back(key);
  const char* text = Platform().log_level != nullptr ? Platform().log_level : default_value;
  return std::snprintf(value, PROPERTY_VALUE_MAX, "%s", text == nullptr ? "" : text);
}

ZEL_TAKE_OVER void* dlopen(const char* file, int mode) {
  const NeverFailing never_failing;
  FakePlatform& platform = Platform();
  const bool parser = file != nullptr && std::strcmp(file, "libtarn-json-mode-parser.so") == 0;
  const bool algo = file != nullptr && std::strcmp(file, "libtarn-algo.so") == 0;
  static auto* const original = Original<void*(const char*, int)>("dlopen");
  if (!parser && !algo) return original(file, mode);

  const std::string name = parser ? "parser" : "algo";
  platform.events.push_back((mode == RTLD_NOW ? "open " : "open lazily ") + name);
  if (!(parser ? platform.parser_opens : platform.algo_opens)) return nullptr;
  const std::string& other = parser ? platform.parser_path : platform.algo_path;
  void* const handle =
      original(other.empty() ? (ZEL_FAKES + std::string(file)).c_str() : other.c_str(), mode);
  opened[handle] = name;
  return handle;
}

ZEL_TAKE_OVER int dlclose(void* handle) {
  const NeverFailing never_failing;
  if (const auto library = opened.find(handle); library != opened.end()) {
    Platform().events.push_back("close " + library->second);
    opened.erase(library);
  }
  static auto* const original = Original<int(void*)>("dlclose");
  return original(handle);
}

#if !__has_feature(thread_sanitizer)
ZEL_TAKE_OVER int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                                 void* (*body)(void*), void* argument) {
  if (!Platform().threads_start) return EAGAIN;
  static auto* const original =
      Original<int(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*)>("pthread_create");
  return original(thread, attributes, body, argument);
}
#endif
