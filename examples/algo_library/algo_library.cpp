// SPDX-License-Identifier: Apache-2.0

// The smallest algorithm library that keeps every promise: it merges wherever the
// transform has no higher-order terms, which is what hosts send.
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <string>

#include "bridge/library.h"

namespace {

using zeltarn::PccRow;

constexpr size_t kAffineTerms = 4;  // the offset and the factors of red, green and blue

bool IsFinite(const pcc_coeff_data& pcc) {
  const auto finite = [](double term) { return std::isfinite(term); };
  return std::all_of(pcc.r.begin(), pcc.r.end(), finite) &&
         std::all_of(pcc.g.begin(), pcc.g.end(), finite) &&
         std::all_of(pcc.b.begin(), pcc.b.end(), finite);
}

bool IsAffine(const pcc_coeff_data& pcc) {
  const auto affine = [](const PccRow& row) {
    return std::all_of(row.begin() + kAffineTerms, row.end(), [](double t) { return t == 0; });
  };
  return affine(pcc.r) && affine(pcc.g) && affine(pcc.b);
}

bool IsIdentity(const pcc_coeff_data& pcc) {
  return pcc.r == PccRow{0, 1} && pcc.g == PccRow{0, 0, 1} && pcc.b == PccRow{0, 0, 0, 1};
}

// An affine row of the transform applied to the colour that `active` gives.
PccRow Apply(const PccRow& trans, const pcc_coeff_data& active) {
  PccRow row;
  for (size_t i = 0; i < row.size(); ++i) {
    row[i] = trans[1] * active.r[i] + trans[2] * active.g[i] + trans[3] * active.b[i];
  }
  row[0] += trans[0];
  return row;
}

// `active` first, then `trans`. An error where the result has no exact form: the plug-in
// then uses `trans` alone.
int Merge(const pcc_coeff_data& trans, const pcc_coeff_data& active, pcc_coeff_data* result) {
  if (!IsFinite(trans) || !IsFinite(active)) return -EINVAL;
  pcc_coeff_data merged = {};
  if (IsAffine(trans)) {
    merged.r = Apply(trans.r, active);
    merged.g = Apply(trans.g, active);
    merged.b = Apply(trans.b, active);
  } else if (IsIdentity(active)) {
    merged = trans;
  } else {
    return -EDOM;
  }
  if (!IsFinite(merged)) return -ERANGE;
  *result = merged;
  return 0;
}

class AlgoLibrary : public tarn::TarnAlgoIntf {
 public:
  int Init(const std::string& /*arg*/) override { return 0; }
  int DeInit() override { return 0; }
  int SetProperty(const tarn::TarnPayload& /*payload*/) override { return -EOPNOTSUPP; }
  int GetProperty(tarn::TarnPayload* /*payload*/) override { return -EOPNOTSUPP; }

  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override {
    if (op != tarn::kZelPccMerge) return -EOPNOTSUPP;
    if (in.len != sizeof(tarn::PccMergeInput) || out->len != sizeof(tarn::PccMergeOutput)) {
      return -EINVAL;
    }
    const auto& operands = *static_cast<const tarn::PccMergeInput*>(in.payload);
    auto* const output = static_cast<tarn::PccMergeOutput*>(out->payload);
    if (operands.version != tarn::PccMergeInput::kVersion) return -EINVAL;
    return Merge(operands.trans, operands.active, &output->result);
  }
};

}  // namespace

// The one name that the library exports.
extern "C" __attribute__((visibility("default"))) tarn::TarnAlgoIntf* GetTarnAlgoInterface(
    int major_version, int minor_version) {
  const bool known =
      major_version == tarn::kTarnMajorVersion && minor_version == tarn::kTarnMinorVersion;
  return known ? new AlgoLibrary : nullptr;
}
