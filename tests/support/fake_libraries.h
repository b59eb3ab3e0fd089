// SPDX-License-Identifier: Apache-2.0

// The two run-time libraries, as a test scripts and observes them.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bridge/tarn_intf.h"
#include "convert/hw_config_payload.h"
#include "handlers/post_blend_hw_config.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_merge.h"

struct FakeParser {
  // Scripts.
  bool makes_object = true;
  int init_result = 0;
  int list_result = 0;
  int set_result = 0;
  int dither_result = 0;
  int process_result = 0;
  std::vector<tarn::ColorMode> modes = {
      {.gamut = 1, .gamma = 2, .intent = 3, .hw_assets = {"a"}, .label = "one"}};
  std::vector<tarn::HwConfigPayload> blocks;  // answered by both operations
  std::vector<tarn::HwConfigPayload> dither;
  std::function<void()> during_call;  // runs inside every operation

  // Observations of the last call that carried each.
  tarn::TarnPayload in;
  tarn::TarnPayload out;
  tarn::ModeRenderInputParams request = tarn::ModeRenderInputParams();
  tarn::PostBlendHwConfig dimensions;
  std::string thread_name;  // during Init
  int scheduling = -1;      // during Init
};

struct FakeAlgo {
  bool makes_object = true;
  int init_result = 0;
  int merge_result = 0;
  std::function<void()> during_call;          // runs inside the factory and every operation
  std::array<pcc_coeff_data, 2> merged = {};  // the answers, in turn

  std::vector<tarn::PccMergeInput> merges;  // what each was asked
  // Of the last one.
  tarn::TarnPayload in;
  tarn::TarnPayload out;
  tarn::PccMergeOutput blank;  // the output record before the answer
};

// Those of the running test.
FakeParser& Parser();
FakeAlgo& Algo();

// A block as the parser hands it out.
template <typename T>
tarn::HwConfigPayload Block(const std::string& name, std::shared_ptr<T> record) {
  return {.hw_block = name, .payload = std::move(record), .len = sizeof(T)};
}

// Called by the fakes' factories.
extern "C" {
__attribute__((visibility("default"))) tarn::ModeParserIntf* MakeFakeParser(int major_version,
                                                                            int minor_version);
__attribute__((visibility("default"))) tarn::TarnAlgoIntf* MakeFakeAlgo(int major_version,
                                                                        int minor_version);
}
