// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/import/description.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/line_text.h"
#include "devkit/zelctl/import/transfer_form.h"
#include "devkit/zelctl/suggestion.h"
#include "devkit/zelctl/text_width.h"

namespace zelctl {
namespace {

using tarn::color::Chromaticity;

// A mode that content of a standard is shown in. The ids are those of the sample panels.
struct Target {
  const char* name;
  int gamut, gamma;
  const char* primaries;
  const char* transfer;  // as ParseTransfer reads it, or one of HDR's
  bool adaptation;
  tarn::color::Primaries colors;
};

const std::array<Target, 5> kTargets = {{
    {"srgb", 1, 1, "srgb", "srgb", true, tarn::color::kSrgb},
    {"display_p3", 3, 1, "display_p3", "srgb", true, tarn::color::kDisplayP3},
    {"dcip3", 2, 2, "dcip3", "2.6", false, tarn::color::kDciP3},
    {"bt2020_hlg", 4, 3, "bt2020", "hlg", true, tarn::color::kBt2020},
    {"bt2020_st2084", 4, 4, "bt2020", "st2084", true, tarn::color::kBt2020},
}};

// Whether content may hold colours that the panel can't show.
bool Exceeds(const Target& target, const tarn::color::Primaries& panel) {
  constexpr double kRounding = 1e-4;
  const auto matrix = ConversionMatrix(target.colors, panel, target.adaptation);
  return std::any_of(matrix.begin(), matrix.end(), [](const tarn::color::Vec3& row) {
    return *std::min_element(row.begin(), row.end()) < -kRounding;
  });
}

const Target* FindTarget(const std::string& name) {
  const auto target = std::find_if(kTargets.begin(), kTargets.end(),
                                   [&name](const Target& t) { return name == t.name; });
  return target == kTargets.end() ? nullptr : &*target;
}

Json TargetMode(const std::string& name, const tarn::color::Primaries& panel) {
  const Target* target = FindTarget(name);
  Json mode = {{"label", name},
               {"gamut", target->gamut},
               {"gamma", target->gamma},
               {"intent", 0},
               {"hw_assets", {"PostBlendIGC", "PostBlendGC"}}};
  const std::string transfer = target->transfer;
  const bool hdr = transfer == "hlg" || transfer == "st2084";
  Json content = {{"primaries", target->primaries},
                  {"transfer", hdr ? Json(transfer) : ParseTransfer(transfer)}};
  if (!target->adaptation) content["adaptation"] = false;
  if (hdr || Exceeds(*target, panel)) {
    mode["hw_assets"].push_back("PostBlendGamut");
    content["gamut_mapping"] = "nearest";
  }
  mode["target"] = content;
  return mode;
}

Json Modes(const std::vector<std::string>& targets, const tarn::color::Primaries& panel) {
  Json modes = {{{"label", "native"}, {"gamut", 0}, {"gamma", 0}, {"intent", 0}}};
  for (const std::string& name : targets) modes.push_back(TargetMode(name, panel));
  return modes;
}

double Rounded(double value, double places) { return std::round(places * value) / places; }

Json Pair(const Chromaticity& xy) {
  const double x = Rounded(xy.x, 1e6);
  const double y = Rounded(xy.y, 1e6);
  // Rounding must not make a sum of 1 more than that.
  return {x, xy.x + xy.y <= 1 ? std::min(y, Rounded(1 - x, 1e6)) : y};
}

// The value of an option, or else of the file, or else a line of what is missing.
double Chosen(const std::optional<double>& option, const std::optional<double>& file,
              const std::string& what, const char* name, std::vector<std::string>* missing,
              std::vector<std::string>* source) {
  if (!option && !file) missing->push_back(what + " (" + name + ")");
  const double value = option.value_or(file.value_or(0));
  std::string line = what + ": " + NumberText(value) + " cd/m2";
  if (option) line += std::string(", by ") + name;
  if (option && file) line += "; the file says " + NumberText(*file);
  if (option || file) source->push_back(line);
  return value;
}

Json Transfer(const ImportOptions& options, std::vector<std::string>* missing, PanelFacts* facts) {
  const bool known = !facts->ramps[0].empty();
  if (options.transfer) {
    facts->source.push_back("transfer: " + *options.transfer + ", by --transfer" +
                            (known ? " instead of the file's" : ""));
    return ParseTransfer(*options.transfer);
  }
  if (known) return TransferJson(facts->ramps, &facts->source);
  missing->emplace_back("the transfer function (--transfer)");
  return nullptr;
}

std::string Joined(const std::vector<std::string>& parts) {
  std::string joined;
  for (const std::string& part : parts) joined += (joined.empty() ? "" : ", ") + part;
  return joined;
}

}  // namespace

void CheckOptions(const ImportOptions& options) {
  if (options.name && !IsUtf8(*options.name)) throw UsageError("--name: it is no UTF-8");
  if (options.name && options.name->empty()) throw UsageError("--name: it is empty");
  std::vector<std::string> names(kTargets.size());
  std::transform(kTargets.begin(), kTargets.end(), names.begin(),
                 [](const Target& target) { return target.name; });
  for (const std::string& name : options.targets) {
    if (std::count(options.targets.begin(), options.targets.end(), name) > 1) {
      throw UsageError("--targets: '" + name + "' is named twice");
    }
    if (FindTarget(name) != nullptr) continue;
    throw UsageError("--targets: no target '" + name + "'" +
                     DidYouMean(name, names, "there are", Joined(names)));
  }
  try {
    if (options.transfer) ParseTransfer(*options.transfer);
  } catch (const UsageError& e) {
    throw UsageError(std::string("--transfer: ") + e.what());
  }
}

Json PrimariesJson(const tarn::color::Primaries& primaries) {
  return {{"red", Pair(primaries.red)},
          {"green", Pair(primaries.green)},
          {"blue", Pair(primaries.blue)}};
}

Json Describe(const ImportOptions& options, PanelFacts* facts) {
  std::vector<std::string> missing;
  const double peak = Chosen(options.peak, facts->peak, "peak", "--peak", &missing, &facts->source);
  std::optional<double> black;
  if (facts->black) black = *facts->black * peak;
  const double black_chosen =
      Chosen(options.black, black, "black", "--black", &missing, &facts->source);
  if (!options.bit_depth) missing.emplace_back("the depth of the panel's signal (--bit-depth)");
  const Json transfer = Transfer(options, &missing, facts);
  if (!missing.empty()) {
    throw UsageError("not in the file, so give it by an option: " + Joined(missing));
  }

  const auto& primaries = facts->primaries;
  facts->source.push_back("bit depth: " + std::to_string(*options.bit_depth) + ", by --bit-depth");
  Json panel = {
      {"primaries", PrimariesJson(primaries)},
      {"white", Pair(primaries.white)},
      {"luminance", {{"peak", Rounded(peak, 1e6)}, {"black", Rounded(black_chosen, 1e6)}}},
      {"transfer", transfer},
      {"bit_depth", *options.bit_depth}};
  return {{"format", 1},
          {"name", options.name.value_or(facts->name)},
          {"source", Json::array()},
          {"panel", panel},
          {"modes", Modes(options.targets, primaries)}};
}

std::string DescriptionText(const Json& description) {
  const auto print = [](const auto& self, const Json& value, const std::string& indent,
                        std::string* text) -> void {
    constexpr size_t kWidth = 90;
    const std::string line = value.dump();
    const bool flat = line.size() + indent.size() <= kWidth && indent.size() > 2;
    if (!value.is_structured() || value.empty() || flat) {
      *text += line;
      return;
    }
    const std::string inner = indent + "  ";
    *text += value.is_object() ? "{" : "[";
    const char* separator = "\n";
    for (const auto& [key, member] : value.items()) {
      *text += separator + inner;
      if (value.is_object()) *text += Json(key).dump() + ": ";
      self(self, member, inner, text);
      separator = ",\n";
    }
    *text += "\n" + indent + (value.is_object() ? "}" : "]");
  };
  std::string text;
  print(print, description, "", &text);
  return text + "\n";
}

}  // namespace zelctl
