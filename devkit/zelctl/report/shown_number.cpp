// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/shown_number.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace zelctl {
namespace {

constexpr const char* kNoNumber = "–";
}  // namespace

std::string Fixed(double value, int places) {
  if (!std::isfinite(value)) return kNoNumber;
  std::array<char, 352> text = {};  // the largest double has 309 digits
  std::snprintf(text.data(), text.size(), "%.*f", places, value);
  const std::string result = text.data();
  const bool is_zero = result.find_first_not_of("-0.") == std::string::npos;
  return is_zero && result[0] == '-' ? result.substr(1) : result;
}

std::string Significant(double value) {
  if (!std::isfinite(value)) return kNoNumber;
  std::array<char, 32> text = {};
  std::snprintf(text.data(), text.size(), "%.4g", value);
  return text.data();
}

}  // namespace zelctl
