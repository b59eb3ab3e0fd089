// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/algo/exact_sum.h"

#include <cfloat>
#include <cmath>

namespace tarn::reference {
namespace {

// Whether `product` is the exact one of its factors, or lacks only what a double
// can hold. It may lack more where its last bits underflow.
bool KeepsEveryBit(double a, double b, double product) {
  if (std::abs(product) >= DBL_MIN * 0x1p54) return true;
  int unused = 0;
  const double a_digits = std::frexp(a, &unused);
  const double b_digits = std::frexp(b, &unused);
  return std::abs(product) >= DBL_MIN && std::fma(a_digits, b_digits, -a_digits * b_digits) == 0;
}

}  // namespace

void ExactSum::Add(double value) {
  std::vector<double> parts;
  parts.reserve(parts_.size() + 1);
  for (const double part : parts_) {
    const double sum = value + part;
    const double rounded_part = sum - value;
    const double error = (value - (sum - rounded_part)) + (part - rounded_part);
    if (error != 0) parts.push_back(error);
    value = sum;
  }
  if (value != 0) parts.push_back(value);
  exact_ = exact_ && std::isfinite(value);
  parts_ = std::move(parts);
}

void ExactSum::Add(const ExactSum& other) {
  exact_ = exact_ && other.exact_;
  for (const double part : other.parts_) Add(part);
}

ExactSum ExactSum::Times(double factor) const {
  ExactSum result;
  result.exact_ = exact_;
  if (factor == 0) return result;
  for (const double part : parts_) {
    const double product = part * factor;
    result.exact_ = result.exact_ && KeepsEveryBit(part, factor, product);
    result.Add(std::fma(part, factor, -product));
    result.Add(product);
  }
  return result;
}

double ExactSum::Value() const {
  double sum = 0;
  double error = 0;  // of `sum`, until a part is lost to rounding
  auto part = parts_.rbegin();
  while (part != parts_.rend() && error == 0) {
    const double before = sum;
    sum = before + *part;
    error = *part - (sum - before);
    ++part;
  }
  // Halfway between two doubles the even one was taken. Smaller parts, if there are any, tell
  // which is nearer: the next has their sign.
  if (part != parts_.rend() && std::signbit(*part) == std::signbit(error)) {
    const double other = sum + 2 * error;
    if (other - sum == 2 * error) sum = other;
  }
  return sum;
}

}  // namespace tarn::reference
