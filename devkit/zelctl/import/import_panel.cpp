// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/import/import_panel.h"

#include <filesystem>

#include "devkit/reference/panel/panel_error.h"
#include "devkit/reference/panel/read_panel.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/description.h"
#include "devkit/zelctl/import/icc_facts.h"
#include "devkit/zelctl/import/line_text.h"
#include "devkit/zelctl/import/measured_facts.h"

namespace zelctl {
namespace {

using tarn::reference::Panel;

Panel PanelOf(const Json& description) {
  try {
    return tarn::reference::ReadPanel(nlohmann::json(description));
  } catch (const tarn::reference::PanelError& e) {
    throw UsageError("it makes no panel that can be described: " + std::string(e.what()));
  }
}

// `colors` are those of a measurement, with which the description is compared.
Json Complete(const ImportOptions& options, const std::vector<MeasuredColor>& colors,
              PanelFacts facts) {
  Json description = Describe(options, &facts);
  const Panel panel = PanelOf(description);
  if (!panel.notes.empty()) {  // of primaries, whose rounding the reader took off
    description["panel"]["primaries"] = PrimariesJson(panel.primaries);
    facts.source.insert(facts.source.end(), panel.notes.begin(), panel.notes.end());
  }
  if (!colors.empty()) {
    for (const std::string& line : ResidualTexts(colors, panel)) facts.source.push_back(line);
  }
  description["source"] = facts.source;
  PanelOf(description);
  return description;
}

Json ImportProfile(const std::string& bytes, const std::string& name,
                   const ImportOptions& options) {
  PanelFacts facts = FactsOf(ReadIccProfile(bytes));
  facts.source.front().insert(0, name + ": ");
  if (facts.name.empty()) facts.name = name;
  return Complete(options, {}, std::move(facts));
}

Json ImportMeasurements(const CgatsTable& table, const DisplayReadings& readings,
                        const std::string& name, const ImportOptions& options) {
  const std::vector<MeasuredColor> colors = Averaged(readings.readings);
  PanelFacts facts = FactsOf(colors, readings);
  facts.source.front().insert(0, name + ": ");
  if (const auto meter = table.keywords.find("TARGET_INSTRUMENT"); meter != table.keywords.end()) {
    facts.source.front() += ", by " + PlainText(meter->second);
  }
  if (table.next == "CAL") facts.source.emplace_back(kCalibrated);
  facts.name = name;
  return Complete(options, colors, std::move(facts));
}

bool IsCgats(const std::string& bytes) {
  const size_t start = bytes.find_first_not_of(" \t\r\n");
  if (start == std::string::npos) return false;
  return bytes.compare(start, 3, "CTI") == 0 || bytes.compare(start, 5, "CGATS") == 0;
}

}  // namespace

Json ImportPanel(const std::string& path, const std::string& bytes, const ImportOptions& options) {
  const std::string name = PlainText(std::filesystem::path(path).filename().string());
  if (IsCgats(bytes)) {
    const CgatsTable table = ReadCgats(path, bytes);
    const DisplayReadings readings = ReadingsOf(table, std::nullopt);
    try {
      return ImportMeasurements(table, readings, name, options);
    } catch (const UsageError& e) {
      throw UsageError(path + ": " + e.what());
    }
  }
  try {
    if (IsIccProfile(bytes)) return ImportProfile(bytes, name, options);
    throw UsageError(bytes.empty() ? "empty"
                                   : "neither an ICC profile nor a file of CGATS measurements "
                                     "(CTI3)");
  } catch (const UsageError& e) {
    throw UsageError(path + ": " + e.what());
  }
}

}  // namespace zelctl
