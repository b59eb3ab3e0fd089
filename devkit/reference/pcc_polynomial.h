// SPDX-License-Identifier: Apache-2.0

// The polynomials of the PCC block: the order of their terms, their value for a
// colour, and their composition.
//
// Components of a colour go from 0 to 255 on both sides, so that a colour
// transform's offset, which is stored scaled by 255, moves them by its share of
// the range. The linear terms are the same in any such unit; a higher-order
// coefficient is divided by 255 for each degree above the first.
#pragma once

#include <array>
#include <cstdint>

#include "pcc/pcc_config.h"

namespace tarn::reference {

// Component of a colour at full range.
inline constexpr double kPccRange = 255;

// Exponents of red, green and blue.
using Exponents = std::array<uint8_t, 3>;

inline constexpr std::array<Exponents, zeltarn::kPccTerms> kPccExponents = {{
    {0, 0, 0},  //  0: 1
    {1, 0, 0},  //  1: R
    {0, 1, 0},  //  2: G
    {0, 0, 1},  //  3: B
    {1, 1, 0},  //  4: R G
    {0, 1, 1},  //  5: G B
    {1, 0, 1},  //  6: R B
    {2, 0, 0},  //  7: R^2
    {0, 2, 0},  //  8: G^2
    {0, 0, 2},  //  9: B^2
    {1, 1, 1},  // 10: R G B
}};

// Value of the block for one colour.
std::array<double, 3> Evaluate(const pcc_coeff_data& pcc, const std::array<double, 3>& rgb);

enum class ComposeError {
  kNone,
  kNotFinite,         // a coefficient of an operand is infinite or not a number
  kNotRepresentable,  // the composition has other terms than the eleven
  kOutOfRange,        // an intermediate value exceeds a double, or loses bits to underflow
};

// Sets `result` to the polynomial that gives trans(active(colour)) for every
// colour. Each coefficient is the exact one, rounded to a double; a term outside
// the eleven is accepted only when it vanishes exactly. `result` is written
// only on success.
ComposeError Compose(const pcc_coeff_data& trans, const pcc_coeff_data& active,
                     pcc_coeff_data* result);

}  // namespace tarn::reference
