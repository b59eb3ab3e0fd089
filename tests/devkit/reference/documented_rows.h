// SPDX-License-Identifier: Apache-2.0

// What docs/panel-description.md states of each key, in the order of its tables.
#pragma once

#include <cfloat>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

using json = nlohmann::json;

// Every key stands in it, but for those of the other kinds of transfer functions.
inline const json kBase = json::parse(R"({
  "format": 1, "name": "n",
  "panel": {
    "primaries": {"red": [0.7, 0.29], "green": [0.17, 0.79], "blue": [0.14, 0.05]},
    "white": [0.31, 0.33], "luminance": {"peak": 500, "black": 1}, "transfer": {"gamma": 2.2},
    "bit_depth": 10
  },
  "dither": {"enable": false, "bits": 6, "temporal": true,
             "matrix": [1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]},
  "modes": [{
    "label": "m", "gamut": 1, "gamma": 1, "intent": 1, "hw_assets": ["a"],
    "target": {"primaries": "srgb", "white": "D50", "transfer": "srgb", "adaptation": false,
               "gamut_mapping": "nearest"},
    "blocks": {
      "pa": {"enable": false, "i_params": [1, 2, 3, 4], "f_params": [1, 2, 3, 4],
             "sub_params": [{"ints_a": [1, 2, 3], "floats": [1, 2], "ints_b": [1, 2, 3, 4, 5, 6, 7],
                             "triple0": [1, 2, 3], "triple1": [1, 2, 3], "triple2": [1, 2, 3]},
                            {}, {}],
             "tail_params": "01", "tail_table": "02"},
      "dither": {"enable": false, "bits": 5}, "pa_dither": {"enable": false, "strength": 2},
      "hdr_blob": {"hex": "01"}, "game_blob": {"enable": false, "text": "t"},
      "de": {"enable": false, "params": "03"}},
    "sw_assets": {"de": {}}
  }, {
    "label": "r", "gamut": 2, "gamma": 2, "intent": 2,
    "target": {"transfer": {"ramp": [[0, 1], [0.5, 2], [1, 5]], "full_scale": 1, "fit": "none"}}
  }]
})");

inline const std::string kMode = "/modes/0";
inline const std::string kTarget = kMode + "/target";
inline const std::string kBlocks = kMode + "/blocks";
inline const std::string kMeasured = "/modes/1/target/transfer";

inline std::string Hex(size_t bytes) { return std::string(2 * bytes, '1'); }

inline json Repeated(size_t count, const json& value) { return json(count, value); }

inline json Ramp(size_t points) {
  json ramp;
  for (size_t i = 0; i < points; ++i) {
    ramp.push_back({static_cast<double>(i) / static_cast<double>(points - 1), i});
  }
  return ramp;
}

inline json Modes(size_t count) {
  json modes;
  for (size_t i = 0; i < count; ++i) {
    modes.push_back({{"label", std::to_string(i)}, {"gamut", 0}, {"gamma", 0}, {"intent", i}});
  }
  return modes;
}

inline const json kRequired;           // null, which no key may be
inline const json kAbsent = "absent";  // says something else than any value

struct Row {
  std::string place;
  json by_default;
  std::vector<json> accepted;  // each says something of its own
  std::vector<json> refused;   // besides null and a value of another type
};

inline std::vector<Row> FileAndPanel() {
  const std::string panel = "/panel";
  return {
      {"/name", kRequired, {}, {"", std::string(257, 'n'), "two\nlines"}},
      {"/format", kRequired, {1}, {0, 2, 1.5}},
      {"/source",
       json::array(),
       {Repeated(64, "x")},
       {Repeated(65, "x"), {""}, {std::string(257, 'n')}, {"two\nlines"}, {1}}},
      {"/panel", kRequired, {}, {json::object()}},
      {"/dither", kAbsent, {json::object()}, {}},
      {"/modes", kRequired, {Modes(1), Modes(4096)}, {json::array(), Modes(4097)}},
      {panel + "/primaries", kRequired, {}, {json::object()}},
      {panel + "/primaries/red",
       kRequired,
       {{0.84, 0.16}},
       {{0.85, 0.16}, {-0.001, 0.5}, {1.001, -0.1}}},
      {panel + "/primaries/blue/0", kRequired, {0}, {-0.001}},
      {panel + "/primaries/green/1", kRequired, {0.83}, {0.8302, 1.001}},
      {panel + "/primaries/blue/1", kRequired, {0.001}, {0.0009}},
      {panel + "/white/0", kRequired, {0.2, 0.45}, {0.199, 0.451}},
      {panel + "/white/1", kRequired, {0.25, 0.45}, {0.249, 0.451}},
      {panel + "/luminance/peak", kRequired, {100, 10000}, {99.9, 10001}},  // black is 1
      {panel + "/luminance", kRequired, {{{"peak", 1}}}, {{{"peak", 0.99}}}},
      {panel + "/luminance/black", 0, {0, 5}, {-0.01, 5.01}},
      {panel + "/transfer", kRequired, {"linear", "srgb"}, {"bt1886", "hlg", "st2084", "panel"}},
      {panel + "/bit_depth", 8, {6, 16}, {5, 17, 8.5}},
  };
}

inline std::vector<Row> ModesAndTargets() {
  return {
      {kMode + "/label", kRequired, {"l", std::string(64, 'l')}, {"", std::string(65, 'l')}},
      {kMode + "/gamut", kRequired, {0, 254}, {-1, 255}},
      {kMode + "/gamma", kRequired, {0, 254}, {-1, 255}},
      {kMode + "/intent", kRequired, {0, 65534}, {-1, 65535}},
      {kMode + "/hw_assets",
       json::array(),
       {Repeated(64, "x"), {std::string(64, 'x')}},
       {Repeated(65, "x"), {""}, {std::string(65, 'x')}}},
      {kTarget, json::object(), {{{"adaptation", false}}}, {}},
      {kBlocks, json::object(), {{{"de", json::object()}}}, {}},
      {kMode + "/sw_assets", json::object(), {{{"de", {{"enable", false}}}}}, {}},
      {kTarget + "/primaries",
       "panel",
       {"srgb", "display_p3", "bt2020"},
       {"bt709", json::object()}},
      {kTarget + "/white", "D65", {"panel", "D50", "DCI", {0.3, 0.3}}, {"D60", {0.19, 0.3}}},
      {kTarget + "/transfer",
       "panel",
       {"linear",
        "srgb",
        "bt1886",
        "hlg",
        "st2084",
        {{"gamma", 1}},
        {{"gamma", 4}},
        {{"st2084", {{"peak", 1}}}},
        {{"st2084", {{"peak", 10000}, {"black", 100}}}}},
       {{{"gamma", 0.999}},
        {{"gamma", 4.001}},
        {{"st2084", {{"peak", 0.9}}}},
        {{"st2084", json::object()}}}},
      {kTarget + "/adaptation", true, {true, false}, {1}},
      {kTarget + "/gamut_mapping", "none", {"none", "desaturate", "nearest", "compress"}, {"clip"}},
      {kMeasured + "/ramp",
       kRequired,
       {Ramp(2), Ramp(1024), {{"red", Ramp(2)}, {"green", Ramp(3)}, {"blue", Ramp(4)}}},
       {Ramp(1025), {{0, 0}}, {{"red", Ramp(2)}, {"green", Ramp(2)}}}},
      {kMeasured + "/full_scale", 1, {}, {0.9, 2}},
      {kMeasured + "/fit", "none", {}, {"linear"}},
  };
}

inline std::vector<Row> StatedBlocks() {
  const std::string pa = kBlocks + "/pa";
  const std::string sub = pa + "/sub_params/0";
  const std::string dither = kBlocks + "/dither";
  const std::string pa_dither = kBlocks + "/pa_dither";
  const json bayer = {0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
  const json none = Repeated(16, 0);
  const json full = Repeated(16, 15);
  return {
      {pa, kAbsent, {json::object()}, {}},
      {pa + "/enable", true, {true, false}, {0}},
      {pa + "/i_params",
       Repeated(4, 0),
       {{INT32_MIN, 0, 0, INT32_MAX}},
       {Repeated(3, 0), Repeated(5, 0), {INT32_MIN - 1LL, 0, 0, 0}, {INT32_MAX + 1LL, 0, 0, 0}}},
      {pa + "/f_params",
       Repeated(4, 0),
       {{FLT_MAX, 0, 0, -FLT_MAX}},
       {Repeated(3, 0), {4e38, 0, 0, 0}}},
      {pa + "/sub_params", Repeated(3, json::object()), {}, {Repeated(2, json::object())}},
      {sub + "/ints_a", Repeated(3, 0), {Repeated(3, -1)}, {Repeated(2, 0)}},
      {sub + "/floats", Repeated(2, 0), {Repeated(2, 0.5)}, {Repeated(3, 0)}},
      {sub + "/ints_b", Repeated(7, 0), {Repeated(7, -1)}, {Repeated(8, 0)}},
      {sub + "/triple0", Repeated(3, 0), {Repeated(3, UINT32_MAX)}, {Repeated(3, -1)}},
      {sub + "/triple1", Repeated(3, 0), {Repeated(3, UINT32_MAX)}, {Repeated(3, 1LL << 32)}},
      {sub + "/triple2", Repeated(3, 0), {Repeated(3, UINT32_MAX)}, {Repeated(2, 0)}},
      {pa + "/tail_params", "", {Hex(44)}, {Hex(45), "0g"}},
      {pa + "/tail_table", "", {Hex(9224)}, {Hex(9225)}},
      {dither, kAbsent, {json::object()}, {}},
      {pa_dither, kAbsent, {json::object()}, {}},
      {kBlocks + "/hdr_blob", kAbsent, {{{"hex", "02"}}, {{"text", "x"}}}, {json::object()}},
      {kBlocks + "/game_blob", kAbsent, {{{"hex", "02"}}}, {{{"hex", "02"}, {"text", "x"}}}},
      {kBlocks + "/game_blob/enable", true, {true, false}, {0}},
      {kBlocks + "/game_blob/text", kRequired, {""}, {}},
      {kBlocks + "/hdr_blob/hex", kRequired, {Hex(1 << 20)}, {Hex((1 << 20) + 1)}},
      {kBlocks + "/de", kAbsent, {json::object()}, {}},
      {kBlocks + "/de/enable", true, {true, false}, {0}},
      {kBlocks + "/de/params", "", {Hex(40)}, {Hex(41)}},
      {dither + "/enable", true, {true, false}, {0}},
      {dither + "/bits", 10, {1, 16}, {0, 17}},  // the panel's
      {dither + "/matrix", bayer, {none, full}, {Repeated(15, 0), Repeated(16, 16)}},
      {dither + "/temporal", false, {true, false}, {0}},
      {pa_dither + "/enable", true, {true, false}, {0}},
      {pa_dither + "/bits", 10, {1, 16}, {0, 17}},
      {pa_dither + "/matrix", bayer, {none, full}, {Repeated(17, 0), Repeated(16, -1)}},
      {pa_dither + "/strength", 8, {0, 15}, {-1, 16}},
  };
}

inline std::vector<Row> AllRows() {
  std::vector<Row> rows = FileAndPanel();
  for (const auto& more : {ModesAndTargets(), StatedBlocks()}) {
    rows.insert(rows.end(), more.begin(), more.end());
  }
  return rows;
}
