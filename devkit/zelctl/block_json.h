// The contents of hardware blocks as JSON: the one place that reads the blocks'
// typed records, and what the tables are made from.
#pragma once

#include "convert/hw_config_payload.h"
#include "devkit/zelctl/json_output.h"
#include "pcc/pcc_config.h"

namespace zelctl {

// The payload's record, or null where it is not a T.
template <typename T>
const T* RecordOf(const velaricolor::HwConfigPayload& payload) {
  const auto* record = static_cast<const T*>(payload.payload.get());
  const bool matches =
      record != nullptr && payload.len == sizeof(T) && record->version == T::kVersion;
  return matches ? record : nullptr;
}

// The three rows as "r", "g" and "b".
Json PccRowsJson(const pcc_coeff_data& coeffs);

// "name", "bytes" and the fields of the record, opaque bytes as hexadecimal
// text; "problem" instead of fields where there is no such record.
Json BlockJson(const velaricolor::HwConfigPayload& payload);

}  // namespace zelctl
