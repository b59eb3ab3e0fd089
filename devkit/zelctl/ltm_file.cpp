// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/ltm_file.h"

#include "devkit/reference/panel/json_file.h"
#include "devkit/reference/panel/json_reader.h"
#include "devkit/reference/panel/panel_error.h"
#include "devkit/zelctl/errors.h"

namespace zelctl {
namespace {

using tarn::reference::JsonValue;
using tarn::reference::ObjectReader;

zeltarn::PccRow ReadRow(const JsonValue& value) {
  const std::vector<JsonValue> terms = value.Elements();
  const bool fits = terms.size() == 4 || terms.size() == zeltarn::kPccTerms;
  if (!fits) value.Refuse("expected 4 or 11 numbers");
  zeltarn::PccRow row = {};
  for (size_t i = 0; i < terms.size(); ++i) row[i] = terms[i].Number();
  return row;
}

velaricolor::PccPostBlendConfig ReadRoot(const JsonValue& value) {
  ObjectReader in(value);
  const velaricolor::PccPostBlendConfig config = {
      .enable = in.Bool("enable", true),
      .coeffs = {
          .r = ReadRow(in.Need("r")), .g = ReadRow(in.Need("g")), .b = ReadRow(in.Need("b"))}};
  in.Finish();
  return config;
}

}  // namespace

velaricolor::PccPostBlendConfig ReadLtmFile(const std::string& path) {
  try {
    const nlohmann::json root = tarn::reference::ReadJsonFile(path);
    return ReadRoot(JsonValue(root, "$"));
  } catch (const tarn::reference::PanelError& e) {
    throw UsageError(path + ": " + e.what());
  }
}

}  // namespace zelctl
