// SPDX-License-Identifier: Apache-2.0

// The polynomial colour-correction (PCC) block, "PostBlendPCC".
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "interface/record.h"

namespace zeltarn {

inline constexpr size_t kPccTerms = 11;

// One output channel as a polynomial of the input red, green and blue:
//   term 0       constant offset
//   terms 1 to 3 coefficients of red, green and blue
//   terms 4 to 10 higher-order terms, in the algorithm library's order
using PccRow = std::array<double, kPccTerms>;

}  // namespace zeltarn

// The host, the plug-in and both libraries share this record, so it is outside their
// namespaces. The identity has 1.0 at r term 1, g term 2 and b term 3. Offsets
// are in units of 1/255: a colour transform's are stored scaled by 255.
struct pcc_coeff_data {
  std::array<uint8_t, 8> reserved;  // the algorithm library's; zero where we build one
  zeltarn::PccRow r;
  zeltarn::PccRow g;
  zeltarn::PccRow b;
};
ZEL_PIN(sizeof(pcc_coeff_data) == 272 && alignof(pcc_coeff_data) == 8, "pcc_coeff_data changed");
static_assert(offsetof(pcc_coeff_data, reserved) == 0);
static_assert(offsetof(pcc_coeff_data, r) == 8);
static_assert(offsetof(pcc_coeff_data, g) == 96);
static_assert(offsetof(pcc_coeff_data, b) == 184);

namespace zeltarn::layout {

// Also the record of kVcLtmPccConfig, where `enable` (any byte but 0 is true) says
// whether the local-tone-mapping (LTM) matrix is applied and `version` is not
// looked at.
template <typename Side>
struct PccPostBlendConfig {
  static constexpr uint32_t kVersion = 280;

  uint32_t version = kVersion;
  bool enable = false;
  std::array<uint8_t, 3> padding = {};
  pcc_coeff_data coeffs;
};

}  // namespace zeltarn::layout

ZEL_DECLARE_SIDES(PccPostBlendConfig)
ZEL_PIN_SIZE(PccPostBlendConfig, tarn::PccPostBlendConfig::kVersion);
ZEL_PIN_ALIGNMENT(PccPostBlendConfig, 8);
ZEL_PIN_FIELD(PccPostBlendConfig, version, 0);
ZEL_PIN_FIELD(PccPostBlendConfig, enable, 4);
ZEL_PIN_FIELD(PccPostBlendConfig, coeffs, 8);
