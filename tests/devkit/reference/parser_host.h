// SPDX-License-Identifier: Apache-2.0

// A mode parser on the panels that ship, called as the plug-in calls it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bridge/tarn_intf.h"
#include "devkit/reference/gamma_lut.h"
#include "handlers/post_blend_hw_config.h"
#include "modes/mode_op_params.h"

using Lines = std::vector<std::string>;

inline constexpr auto kIgc = tarn::kZelPostBlendInverseGammaHwConfig;
inline constexpr auto kGc = tarn::kZelPostBlendGammaHwConfig;
inline constexpr auto kGamut = tarn::kZelPostBlendGamutHwConfig;

// Lines of the log, which the test program takes over.
inline Lines logged;
inline Lines TakeLog() { return std::exchange(logged, {}); }

class ModeParser : public testing::Test {
 protected:
  ModeParser() { Start("phone-oled"); }

  void Start(const std::string& panel) { EXPECT_EQ(parser_->Init(PANELS + panel + ".json"), 0); }

  std::vector<tarn::ColorMode> Modes() {
    tarn::ColorModeList list;
    tarn::TarnPayload payload = tarn::Wrap(&list, tarn::kZelModesList);
    EXPECT_EQ(parser_->GetProperty(&payload), 0);
    return list.modes;
  }

  // Result of an operation for the mode of this label, whose answer is kept.
  int Ask(tarn::ZelOps op, const std::string& label) {
    tarn::ModeRenderInputParams request = {};
    for (const tarn::ColorMode& mode : Modes()) {
      if (mode.label == label) request.mode = mode;
    }
    tarn::TarnPayload out = tarn::Wrap(&answer_);
    return parser_->ProcessOps(op, tarn::Wrap(&request), &out);
  }

  int SetDimensions(tarn::ZelProperty prop, const zeltarn::TableDimensions& size) {
    const uint32_t version = prop == kGamut ? 117936 : 88;
    tarn::PostBlendHwConfig config = {version, size.num_of_entries, size.bit_depth, 0, {}};
    return parser_->SetProperty(tarn::Wrap(&config, prop));
  }

  // The typed record of the answer's block `name`. Without it the test has failed.
  template <typename T>
  const T& Block(const std::string& name) const {
    const auto block = std::find_if(answer_.payloads.begin(), answer_.payloads.end(),
                                    [&](const auto& b) { return b.hw_block == name; });
    if (block == answer_.payloads.end()) throw std::runtime_error("no block " + name);
    const T& record = *static_cast<const T*>(block->payload.get());
    EXPECT_EQ(block->len, sizeof(T)) << name;
    EXPECT_EQ(record.version, sizeof(T)) << name;
    return record;
  }

  std::unique_ptr<tarn::ModeParserIntf> parser_{GetTarnZelInterface(2, 0)};
  tarn::HwConfigOutputParams answer_;
};
