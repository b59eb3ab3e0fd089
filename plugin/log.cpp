// SPDX-License-Identifier: Apache-2.0
#include "plugin/log.h"

#include <cutils/properties.h>

#include <array>
#include <cstdlib>

// Included before the level's definition: inline variables defined earlier in
// this file are constructed before it, so the names exist once the level does.
#include "plugin/block_names.h"

namespace velaricolor {

namespace {

constexpr const char* kLevelProperty = "vendor.display.zelloglevel";
constexpr int32_t kDefaultLevel = 1;
constexpr uint32_t kHighestLevel = 2;

int32_t ReadLogLevel() {
  std::array<char, PROPERTY_VALUE_MAX> value = {};
  if (property_get(kLevelProperty, value.data(), nullptr) < 1) return kDefaultLevel;

  // Text that isn't a number counts as 0; as unsigned, negative ones are too large.
  const int level = std::atoi(value.data());  // NOLINT(cert-err34-c)
  return static_cast<uint32_t>(level) <= kHighestLevel ? level : kDefaultLevel;
}

}  // namespace

const int32_t g_log_level = ReadLogLevel();

}  // namespace velaricolor
