// SPDX-License-Identifier: Apache-2.0

// Colour settings of the host; the next render intent folds them into the PCC
// block.

#include "handlers/color_transform_matrix.h"
#include "plugin/checks.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

namespace {

// In single precision, so that -0.0 is zero and NaN is not the identity.
bool IsIdentity(const ColorTransformMatrix& transform) {
  return transform.matrix == ColorTransformMatrix().matrix;
}

// Row `row` of the matrix, stored column by column, as a PCC row. A PCC offset
// is in units of 1/255.
zeltarn::PccRow ToPccRow(const ColorTransformMatrix& transform, size_t row) {
  const auto element = [&](size_t column) -> double { return transform.matrix[column * 4 + row]; };
  return {element(3) * 255.0, element(0), element(1), element(2)};
}

}  // namespace

int ZelTarnImpl::SetColorTransform(const VcPayload& payload) {
  if (!Carries<ColorTransformMatrix>(payload)) {
    return RefuseLength<ColorTransformMatrix>(payload, __func__);
  }
  const auto& transform = *RecordOf<const ColorTransformMatrix>(payload);
  if (const int ret = VersionCheck(&transform); ret != kOk) return ret;

  color_transform_active_ = !IsIdentity(transform);
  color_transform_pcc_ = {.reserved = {},
                          .r = ToPccRow(transform, 0),
                          .g = ToPccRow(transform, 1),
                          .b = ToPccRow(transform, 2)};
  needs_update_ = true;
  return kOk;
}

int ZelTarnImpl::SetLtmPccConfig(const VcPayload& payload) {
  if (!Carries<PccPostBlendConfig>(payload)) {
    return RefuseLength<PccPostBlendConfig>(payload, __func__);
  }
  const auto& ltm = *RecordOf<const PccPostBlendConfig>(payload);
  ltm_pcc_config_.enable = IsSet(ltm.enable);
  ltm_pcc_config_.coeffs = ltm.coeffs;
  ZEL_LOGI(2, "Set ltm PCC config enable %d", static_cast<int>(ltm_pcc_config_.enable));
  needs_update_ = true;
  return kOk;
}

int ZelTarnImpl::SetDimmingPcc(const VcPayload& payload) {
  if (!Carries<double>(payload)) return RefuseLength<double>(payload, __func__);
  pcc_attenuation_factor_ = *RecordOf<const double>(payload);
  ZEL_LOGI(2, "pcc attenuation factor is %f", pcc_attenuation_factor_);
  needs_update_ = true;
  return kOk;
}

}  // namespace velaricolor
