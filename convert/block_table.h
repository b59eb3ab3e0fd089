// SPDX-License-Identifier: Apache-2.0

// The hardware blocks that reach the host: each name with its typed record. Whoever
// needs all of them walks this table; tests spell them out a second time.
#pragma once

#include <string>

#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "pcc/pcc_config.h"
#include "plugin/block_names.h"

namespace zeltarn::layout {

// Calls visit.operator()<Config>(name) for each block, with its record's template.
template <typename Visit>
void ForEachBlock(Visit visit) {
  visit.template operator()<GamutPostBlendConfig>(velaricolor::kPostBlendGamut);
  visit.template operator()<GammaPostBlendConfig>(velaricolor::kPostBlendIGC);
  visit.template operator()<GammaPostBlendConfig>(velaricolor::kPostBlendGC);
  visit.template operator()<PccPostBlendConfig>(velaricolor::kPostBlendPCC);
  visit.template operator()<PaPostBlendConfig>(velaricolor::kPostBlendPa);
  visit.template operator()<DitherPostBlendConfig>(velaricolor::kPostBlendDither);
  visit.template operator()<PaDitherPostBlendConfig>(velaricolor::kPostBlendPaDither);
  visit.template operator()<HdrBlobPostBlendConfig>(velaricolor::kPostBlendHdrBlob);
  visit.template operator()<GameBlobPostBlendConfig>(velaricolor::kPostBlendGameBlob);
  visit.template operator()<DePostBlendConfig>(velaricolor::kPostBlendDE);
}

}  // namespace zeltarn::layout
