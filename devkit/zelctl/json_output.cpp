// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/json_output.h"

#include <cmath>

namespace zelctl {

Json ModeJson(const velaricolor::ColorModeList& list, size_t index) {
  const auto& mode = list.modes[index];
  return {{"index", index},        {"gamut", mode.gamut}, {"gamma", mode.gamma},
          {"intent", mode.intent}, {"label", mode.label}, {"hw_assets", mode.hw_assets}};
}

namespace {

// JSON has no number that is not finite.
void WriteNonFiniteAsText(Json* value) {
  if (value->is_structured()) {
    for (auto& part : *value) WriteNonFiniteAsText(&part);
  } else if (value->is_number_float() && !std::isfinite(value->get<double>())) {
    const double number = value->get<double>();
    *value = std::isnan(number) ? "nan" : number > 0 ? "inf" : "-inf";
  }
}

}  // namespace

void PrintJson(Json value, std::ostream& out) {
  WriteNonFiniteAsText(&value);
  out << value.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace zelctl
