// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/block_report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <string>
#include <utility>

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

// Replaces what is long by its length.
void Shorten(Json* block) {
  constexpr size_t kLongList = 32;
  constexpr size_t kLongText = 256;
  for (auto& [key, value] : block->items()) {
    if (value.is_array() && value.size() > kLongList) {
      value = {{"entries", value.size()}, {"first", value.front()}, {"last", value.back()}};
    } else if (value.is_string() && value.get_ref<const std::string&>().size() > kLongText) {
      value = {{"bytes", value.get_ref<const std::string&>().size() / 2}};
    }
  }
}

}  // namespace

Json BlocksJson(const velaricolor::HwConfigOutputParams& output, bool tables) {
  Json blocks = Json::array();
  for (const auto& payload : output.payloads) {
    Json block = BlockJson(payload);
    const std::string hash = Hash(block);
    if (!tables) Shorten(&block);
    block["hash"] = hash;
    blocks.push_back(std::move(block));
  }
  return blocks;
}

void PrintBlocks(const velaricolor::HwConfigOutputParams& output, std::ostream& out) {
  TextTable table({{"BLOCK"}, {"ON"}, {"HASH"}, {"CONTENTS"}});
  for (const auto& payload : output.payloads) {
    const Json block = BlockJson(payload);
    table.Add({block["name"], Enabled(block), Hash(block), Contents(block)});
  }
  table.Print(out);
}

void ReportBlocks(const GlobalOptions& globals, const velaricolor::HwConfigOutputParams& output) {
  if (globals.json) {
    PrintJson({{"blocks", BlocksJson(output, globals.tables)}, {"problems", globals.problems}},
              std::cout);
  } else if (output.payloads.empty()) {
    std::cout << "no blocks\n";
  } else {
    PrintBlocks(output, std::cout);
  }
}

}  // namespace zelctl
