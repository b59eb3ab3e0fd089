// SPDX-License-Identifier: Apache-2.0

// The "PostBlendPCC" block of a host's output list.
#pragma once

#include "convert/hw_config_payload.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_config.h"

namespace velaricolor {

// The first such entry of the list, or null. It may hold no record.
HwConfigPayload* FindPccPayload(HwConfigOutputParams* params);

// The entry's record, or null.
PccPostBlendConfig* PccRecordOf(const HwConfigPayload& payload);

// Gives `payload` a new record: disabled, all coefficients zero.
PccPostBlendConfig* ResetPccRecord(HwConfigPayload* payload);

// Appends an entry with such a record.
PccPostBlendConfig* AppendPccBlock(HwConfigOutputParams* params);

}  // namespace velaricolor
