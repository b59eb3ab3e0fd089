#include "devkit/zelctl/json_output.h"

namespace zelctl {

Json ModeJson(const velaricolor::ColorModeList& list, size_t index) {
  const auto& mode = list.modes[index];
  return {{"index", index},        {"gamut", mode.gamut}, {"gamma", mode.gamma},
          {"intent", mode.intent}, {"label", mode.label}, {"hw_assets", mode.hw_assets}};
}

void PrintJson(const Json& value, std::ostream& out) {
  out << value.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace zelctl
