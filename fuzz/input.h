// SPDX-License-Identifier: Apache-2.0

// A fuzzer's input, read from front to back. After its end every byte is 0, which
// all readings take for the ordinary case.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <span>

#include "pcc/pcc_config.h"

namespace zeltarn::fuzz {

// Prints `what` and aborts unless `holds`.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "not as expected: %s\n", what);
  std::abort();
}

class Input {
 public:
  Input(const uint8_t* data, size_t size) : rest_(data, size) {}

  bool Done() const { return rest_.empty(); }

  template <typename T>
  T Raw() {
    T value = {};
    const size_t size = std::min(sizeof(T), rest_.size());
    if (size > 0) std::memcpy(&value, rest_.data(), size);
    rest_ = rest_.subspan(size);
    return value;
  }
  uint8_t Byte() { return Raw<uint8_t>(); }
  size_t Below(size_t bound) { return Byte() % bound; }
  bool Seldom() { return Byte() >= 0xE0; }
  template <typename T, size_t N>
  const T& OneOf(const std::array<T, N>& values) {
    return values[Below(N)];
  }

  // `valid`, seldom a neighbour of it or any number.
  uint32_t Near(uint32_t valid) {
    const uint32_t choice = Byte();
    if (choice < 0xE0) return valid;
    if (choice < 0xF0) return valid + choice % 2 * 2 - 1;
    return choice == 0xFF ? Raw<uint32_t>() : valid + choice - 0xF8;
  }
  // A library's result.
  int Result() { return static_cast<int>(Near(0)); }

  double Number() {
    using Limits = std::numeric_limits<double>;
    constexpr std::array<double, 8> kSpecial = {
        -0.0, Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
        0.1,  Limits::max(),       Limits::min(),      Limits::denorm_min()};
    const uint8_t choice = Byte();
    if (choice < 0xE0) return choice / 10.0 - 2.0 * (choice % 2);
    return choice == 0xFF ? Raw<double>() : kSpecial[choice % kSpecial.size()];
  }

  // The identity, or a matrix of random 3x3 part, offsets too, or all terms.
  pcc_coeff_data Pcc() {
    constexpr std::array<size_t, 4> kEnd = {0, 4, 4, zeltarn::kPccTerms};
    const size_t kind = Below(kEnd.size());
    pcc_coeff_data pcc = {.reserved = {Byte()}, .r = {0, 1}, .g = {0, 0, 1}, .b = {0, 0, 0, 1}};
    for (zeltarn::PccRow* row : {&pcc.r, &pcc.g, &pcc.b}) {
      for (size_t term = kind == 1 ? 1 : 0; term < kEnd[kind]; ++term) (*row)[term] = Number();
    }
    return pcc;
  }

 private:
  std::span<const uint8_t> rest_;
};

}  // namespace zeltarn::fuzz
