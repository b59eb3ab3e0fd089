// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/export/export_format.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/export/formats.h"
#include "devkit/zelctl/suggestion.h"

namespace zelctl {
namespace {

constexpr std::array<ExportFormat, 6> kFormats = {{{"clf", false, WriteClf},
                                                   {"cube", false, WriteCube},
                                                   {"icc", true, WriteIcc},
                                                   {"ti3", true, WriteTi3},
                                                   {"csv", false, WriteCsv},
                                                   {"json", false, WriteJson}}};

constexpr auto kReplace = Json::error_handler_t::replace;

}  // namespace

std::string ExportedMode::Title() const {
  std::string title =
      "mode " + mode.label + " of panel " + std::filesystem::path(panel_path).stem().string();
  if (!settings.empty()) title += ", " + settings;
  // What is no UTF-8 is replaced.
  return Json::parse(Json(OneLine(title)).dump(-1, ' ', false, kReplace)).get<std::string>();
}

std::string ExportedMode::Id() const {
  uint64_t hash = 14695981039346656037U;  // FNV-1a
  for (const char c : blocks.dump(-1, ' ', false, kReplace)) {
    hash = (hash ^ static_cast<uint8_t>(c)) * 1099511628211U;
  }
  std::array<char, 17> text = {};
  std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(hash));
  return std::string("zeltarn-") + text.data();
}

const ExportFormat& FindExportFormat(const std::string& name) {
  std::vector<std::string> known;
  for (const ExportFormat& format : kFormats) {
    if (name == format.name) return format;
    known.emplace_back(format.name);
  }
  std::string list;
  for (const std::string& one : known) list += (list.empty() ? "" : ", ") + one;
  throw UsageError("--format: no format '" + name + "'" + DidYouMean(name, known, "known", list));
}

void RefuseOtherFormatsOptions(const ExportFormat& format, const FormatOptions& options) {
  const struct {
    bool is_set;
    const char* option;
    std::string_view format;
  } owned[] = {{options.size.has_value(), "--size", "cube"},
               {options.icc_version.has_value(), "--icc-version", "icc"},
               {options.target, "--target", "ti3"}};
  for (const auto& [is_set, option, owner] : owned) {
    if (is_set && owner != format.name) {
      throw UsageError(std::string(option) + " belongs to --format " + std::string(owner));
    }
  }
}

void RefuseOtherFormatsEnding(const ExportFormat& format, const std::string& path) {
  const std::string ending = std::filesystem::path(path).extension().string();
  for (const ExportFormat& other : kFormats) {
    if (&other == &format ||
        strcasecmp(ending.c_str(), (std::string(".") + other.name).c_str()) != 0) {
      continue;
    }
    throw UsageError("--output: " + path + " ends as files of --format " + other.name +
                     " do, not " + format.name);
  }
}

}  // namespace zelctl
