// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/errors.h"

#include <algorithm>
#include <cstring>

namespace zelctl {

std::string CodeText(int code) {
  const char* name = code < 0 ? strerrorname_np(-code) : nullptr;
  return std::to_string(code) + (name == nullptr ? "" : " (" + std::string(name) + ")");
}

std::string NameText(const std::string& path) { return path.empty() ? "''" : path; }

std::string OneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 0x7f; }, '?');
  return text;
}

CallError::CallError(const std::string& call, int code)
    : std::runtime_error(call + " answered " + CodeText(code)) {}

}  // namespace zelctl
