// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/panel/read_panel.h"

#include <algorithm>
#include <tuple>

#include "devkit/reference/panel/json_file.h"
#include "devkit/reference/panel/json_reader.h"
#include "devkit/reference/panel/panel_error.h"
#include "devkit/reference/panel/read_blocks.h"
#include "devkit/reference/panel/read_color.h"

namespace tarn::reference {
namespace {

// 255, 255 and 65535 stand for "no mode".
constexpr int64_t kMaxShortId = 254;
constexpr int64_t kMaxIntentId = 65534;
constexpr size_t kMaxModes = 4096;

constexpr size_t kMaxLabel = 64;
constexpr size_t kMaxName = 256;
constexpr size_t kMaxSource = 64;  // lines

// Those of ASCII and, as UTF-8, of Unicode: they break the lines of lists and logs.
bool HasControlCharacter(const std::string& text) {
  uint8_t before = 0;
  for (const char c : text) {
    const auto byte = static_cast<uint8_t>(c);
    if (byte < 0x20 || byte == 0x7f || (before == 0xc2 && byte < 0xa0)) return true;
    before = byte;
  }
  return false;
}

// A text that people read, in one line.
std::string ReadLine(const JsonValue& value, size_t max) {
  std::string text = value.Text();
  const auto length = static_cast<size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<uint8_t>(c) & 0xc0) != 0x80; }));
  if (length < 1 || length > max || HasControlCharacter(text)) {
    value.Refuse("expected 1 to " + std::to_string(max) + " characters, none a control character");
  }
  return text;
}

ColorMode ReadId(ObjectReader* in) {
  ColorMode id;
  id.label = ReadLine(in->Need("label"), kMaxLabel);
  id.gamut = static_cast<uint32_t>(in->Need("gamut").Integer(0, kMaxShortId));
  id.gamma = static_cast<uint32_t>(in->Need("gamma").Integer(0, kMaxShortId));
  id.intent = static_cast<uint32_t>(in->Need("intent").Integer(0, kMaxIntentId));
  if (const auto assets = in->Find("hw_assets")) {
    for (const JsonValue& asset : assets->Elements(0, 64)) {
      id.hw_assets.push_back(ReadLine(asset, kMaxLabel));
    }
  }
  return id;
}

Mode ReadMode(const JsonValue& value, const Panel& panel, std::vector<std::string>* notes) {
  ObjectReader in(value);
  Mode mode = {.id = ReadId(&in),
               .target = {.primaries = panel.primaries, .transfer = panel.transfer},
               .blocks = {},
               .sw_assets = {}};
  if (const auto target = in.Find("target")) mode.target = ReadTarget(*target, panel, notes);
  if (const auto blocks = in.Find("blocks")) mode.blocks = ReadBlocks(*blocks, panel.bit_depth);
  if (const auto assets = in.Find("sw_assets")) {
    mode.sw_assets = ReadBlocks(*assets, panel.bit_depth);
  }
  in.Finish();
  return mode;
}

// Modes are asked for by their ids, and people choose them by their labels.
void CheckUnique(const Mode& mode, const std::vector<Mode>& others, const JsonValue& value) {
  const auto ids = [](const ColorMode& m) { return std::tie(m.gamut, m.gamma, m.intent); };
  for (const Mode& other : others) {
    if (ids(other.id) == ids(mode.id)) {
      value.Refuse("has the ids of mode " + ShownText(other.id.label));
    }
    if (other.id.label == mode.id.label) value.Refuse("has the label of an earlier mode");
  }
}

Panel ReadRoot(const JsonValue& value) {
  ObjectReader in(value);
  in.Need("format").Integer(1, 1);
  Panel panel;
  panel.name = ReadLine(in.Need("name"), kMaxName);
  if (const auto source = in.Find("source")) {
    for (const JsonValue& line : source->Elements(0, kMaxSource)) ReadLine(line, kMaxName);
  }
  ReadCalibration(in.Need("panel"), &panel);
  if (const auto dither = in.Find("dither")) {
    panel.dither.push_back(ReadDither(*dither, panel.bit_depth));
  }
  for (const JsonValue& element : in.Need("modes").Elements(1, kMaxModes)) {
    Mode mode = ReadMode(element, panel, &panel.notes);
    CheckUnique(mode, panel.modes, element);
    panel.modes.push_back(std::move(mode));
  }
  in.Finish();
  return panel;
}

}  // namespace

Panel ReadPanel(const nlohmann::json& root) { return ReadRoot(JsonValue(root, "$")); }

Panel ReadPanel(const std::string& path) {
  try {
    Panel panel = ReadPanel(ReadJsonFile(path));
    for (std::string& note : panel.notes) note.insert(0, path + ": ");
    return panel;
  } catch (const PanelError& error) {
    throw PanelError(path + ": " + error.what());
  }
}

}  // namespace tarn::reference
