// SPDX-License-Identifier: Apache-2.0

// The contents of hardware blocks as JSON, from which the tables are made too.
#pragma once

#include <cstdint>
#include <string>

#include "convert/hw_config_payload.h"
#include "devkit/zelctl/json_output.h"
#include "pcc/pcc_config.h"

namespace zelctl {

// The three rows as "r", "g" and "b".
Json PccRowsJson(const pcc_coeff_data& coeffs);

// "name", "bytes" and the fields of the record, opaque bytes as hexadecimal
// text; "problem" instead of fields where there is no such record.
Json BlockJson(const velaricolor::HwConfigPayload& payload);
Json BlockJson(const tarn::HwConfigPayload& payload);

// Bytes of the record that belongs to the block, which are its version too; 0 for
// a name that the plug-in's converters don't know.
uint32_t RecordBytes(const std::string& block);

}  // namespace zelctl
