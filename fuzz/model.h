// SPDX-License-Identifier: Apache-2.0

// What the plug-in promises its host, written down a second time, as plainly as
// can be: results, settings, and what a list holds after a call.
#pragma once

#include "fuzz/libraries.h"
#include "handlers/color_transform_matrix.h"
#include "interface/payload.h"

namespace zeltarn::fuzz {

class Model {
 public:
  // Each returns what the plug-in is to return. `list` stands for the host's
  // list that the envelope carries.
  int Init();
  int DeInit();
  int SetProperty(const velaricolor::VcPayload& payload);
  int GetProperty(const velaricolor::VcPayload* payload, List* list);
  int ProcessOps(uint32_t op, const velaricolor::VcPayload& in, const velaricolor::VcPayload* out,
                 List* list);

  bool NeedsUpdate() const { return needs_update_; }
  size_t Modes() const { return modes_; }
  int Calls() const { return calls_; }  // of library operations

 private:
  int SetDimensions(const velaricolor::VcPayload& payload, uint32_t* entries);
  void SetTransform(const velaricolor::ColorTransformMatrix& transform);
  void Fold(bool enable, const pcc_coeff_data& transform, List* list);
  int Convert(List* list) const;
  int ConvertBlock(const Block& from, Block* to) const;

  bool init_done_ = false;
  bool parser_ = false;
  bool algo_ = false;
  bool algo_ready_ = false;
  size_t modes_ = 0;
  int calls_ = 0;
  size_t merges_ = 0;  // in this call

  bool needs_update_ = false;
  bool transform_active_ = false;
  pcc_coeff_data transform_ = {};
  velaricolor::PccPostBlendConfig ltm_ = {.coeffs = {}};
  bool last_ltm_enable_ = false;
  double dimming_ = 1.0;
  uint32_t igc_entries_ = 257;
  uint32_t gc_entries_ = 1024;
};

}  // namespace zeltarn::fuzz
