#include "devkit/zelctl/ltm_file.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"

namespace zelctl {
namespace {

using nlohmann::json;

json Load(const std::string& path) {
  RequireReadable(path, "LTM file");
  std::ifstream file(path);
  try {
    return json::parse(file);
  } catch (const json::exception& e) {
    const std::string reason = e.what();  // behind a tag in brackets
    const size_t tag = reason.find("] ");
    throw UsageError(path + ": " + (tag == std::string::npos ? reason : reason.substr(tag + 2)));
  }
}

PccRow Row(const json& value) {
  const bool numbers =
      value.is_array() &&
      std::all_of(value.begin(), value.end(), [](const json& term) { return term.is_number(); });
  if (!numbers || (value.size() != 4 && value.size() != kPccTerms)) {
    throw UsageError("needs 4 or 11 numbers");
  }
  PccRow row = {};
  std::copy(value.begin(), value.end(), row.begin());
  return row;
}

bool Flag(const json& value) {
  if (!value.is_boolean()) throw UsageError("needs true or false");
  return value.get<bool>();
}

void ReadMember(const std::string& key, const json& value,
                velaricolor::PccPostBlendConfig* config) {
  if (key == "enable") {
    config->enable = Flag(value);
  } else if (key == "r") {
    config->coeffs.r = Row(value);
  } else if (key == "g") {
    config->coeffs.g = Row(value);
  } else if (key == "b") {
    config->coeffs.b = Row(value);
  } else {
    throw UsageError("unknown key");
  }
}

}  // namespace

velaricolor::PccPostBlendConfig ReadLtmFile(const std::string& path) {
  const json document = Load(path);
  if (!document.is_object()) throw UsageError(path + ": needs an object");
  for (const char* row : {"r", "g", "b"}) {
    if (!document.contains(row)) throw UsageError(path + ": /" + row + " is missing");
  }
  velaricolor::PccPostBlendConfig config = {.enable = true, .coeffs = {}};
  for (const auto& [key, value] : document.items()) {
    try {
      ReadMember(key, value, &config);
    } catch (const UsageError& e) {
      throw UsageError(path + ": /" + key + ": " + e.what());
    }
  }
  return config;
}

}  // namespace zelctl
