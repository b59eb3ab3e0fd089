#include "devkit/zelctl/block_report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "devkit/zelctl/block_json.h"
#include "devkit/zelctl/text_table.h"

namespace zelctl {
namespace {

constexpr size_t kShownInFull = 4;

// FNV-1a, 32 bits, of all fields.
std::string Hash(const Json& block) {
  uint32_t hash = 2166136261U;
  for (const char c : block.dump(-1, ' ', false, Json::error_handler_t::replace)) {
    hash = (hash ^ static_cast<uint8_t>(c)) * 16777619U;
  }
  std::array<char, 9> shown = {};
  std::snprintf(shown.data(), shown.size(), "%08x", hash);
  return shown.data();
}

std::string SummariseArray(const Json& values) {
  if (values.empty()) return "empty";
  std::string text;
  if (values.size() <= kShownInFull) {
    for (const Json& value : values) text += (text.empty() ? "" : " ") + value.dump();
    return text;
  }
  return std::to_string(values.size()) + ": " + values.front().dump() + ".." + values.back().dump();
}

std::string SummariseObject(const Json& object) {
  std::string keys;
  for (const auto& [key, value] : object.items()) keys += (keys.empty() ? "" : " ") + key;
  return keys;
}

std::string Summarise(const Json& value) {
  if (value.is_array()) return SummariseArray(value);
  if (value.is_object()) return SummariseObject(value);
  if (value.is_string()) {  // opaque bytes, in hexadecimal
    return std::to_string(value.get_ref<const std::string&>().size() / 2) + " B";
  }
  return value.dump();
}

std::string Contents(const Json& block) {
  if (block.contains("problem")) return block["problem"].get<std::string>();
  std::string text;
  for (const auto& [key, value] : block.items()) {
    if (key == "name" || key == "bytes" || key == "enable" || key == "sub_params") continue;
    text += (text.empty() ? "" : ", ") + key + " " + Summarise(value);
  }
  return text;
}

std::string Enabled(const Json& block) {
  if (!block.contains("enable")) return "-";
  return block["enable"].get<bool>() ? "yes" : "no";
}

}  // namespace

Json BlocksJson(const velaricolor::HwConfigOutputParams& output) {
  Json blocks = Json::array();
  for (const auto& payload : output.payloads) blocks.push_back(BlockJson(payload));
  return blocks;
}

void PrintBlocks(const velaricolor::HwConfigOutputParams& output, std::ostream& out) {
  TextTable table({{"BLOCK"}, {"ON"}, {"HASH"}, {"CONTENTS"}});
  for (const Json& block : BlocksJson(output)) {
    table.Add({block["name"], Enabled(block), Hash(block), Contents(block)});
  }
  table.Print(out);
}

void ReportBlocks(const velaricolor::HwConfigOutputParams& output, bool json, std::ostream& out) {
  if (json) {
    PrintJson({{"blocks", BlocksJson(output)}}, out);
  } else if (output.payloads.empty()) {
    out << "no blocks\n";
  } else {
    PrintBlocks(output, out);
  }
}

}  // namespace zelctl
