#include "devkit/zelctl/errors.h"

#include <cstring>

namespace zelctl {

std::string CodeText(int code) {
  const char* name = code < 0 ? strerrorname_np(-code) : nullptr;
  return std::to_string(code) + (name == nullptr ? "" : " (" + std::string(name) + ")");
}

CallError::CallError(const std::string& call, int code)
    : std::runtime_error(call + " answered " + CodeText(code)) {}

}  // namespace zelctl
