// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/option_kinds.h"

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"

namespace zelctl {

CLI::Validator WholeNumber(uint32_t low, uint32_t high) {
  const auto check = [low, high](std::string& text) -> std::string {
    try {
      text = std::to_string(ParseWholeNumber(text, low, high));
    } catch (const UsageError& e) {
      return e.what();
    }
    return "";
  };
  return {check, ""};
}

}  // namespace zelctl
