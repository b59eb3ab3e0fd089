// SPDX-License-Identifier: Apache-2.0

// Sums of products of doubles without rounding.
//
// A sum is held as an expansion: doubles, from small to large, that don't
// overlap and whose sum is the value (J. R. Shewchuk, Adaptive Precision
// Floating-Point Arithmetic, 1997, sections 2.3 to 2.5). It needs a compiler
// that neither contracts nor reorders floating-point operations.
#pragma once

#include <vector>

namespace tarn::reference {

class ExactSum {
 public:
  ExactSum() = default;
  explicit ExactSum(double value) { Add(value); }

  void Add(double value);
  void Add(const ExactSum& other);

  ExactSum Times(double factor) const;

  bool IsZero() const { return parts_.empty(); }

  // False when a step overflowed or lost bits to underflow: the value is then
  // not to be used.
  bool IsExact() const { return exact_; }

  // The value, rounded once: to the nearest double, of two equally near ones to the even one.
  double Value() const;

 private:
  std::vector<double> parts_;  // none of them zero
  bool exact_ = true;
};

}  // namespace tarn::reference
