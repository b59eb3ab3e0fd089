// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/mode_selection.h"

#include <vector>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/suggestion.h"

namespace zelctl {
namespace {

std::string Titles(const velaricolor::ColorModeList& list) {
  std::string text;
  for (size_t i = 0; i < list.modes.size(); ++i) {
    text += (i == 0 ? "" : ", ") + ModeTitle(list, i);
  }
  return text;
}

}  // namespace

std::string ModeTitle(const velaricolor::ColorModeList& list, size_t index) {
  const auto& mode = list.modes[index];
  return std::to_string(index) + " " + mode.label + " (" + ModeIds(mode) + ")";
}

size_t SelectMode(const velaricolor::ColorModeList& list, const std::string& text) {
  std::vector<size_t> labelled;
  for (size_t i = 0; i < list.modes.size(); ++i) {
    if (text == std::to_string(i) || text == ModeIds(list.modes[i])) return i;
    if (text == list.modes[i].label) labelled.push_back(i);
  }
  if (labelled.size() == 1) return labelled.front();
  if (!labelled.empty()) {
    throw UsageError("label '" + text + "' names " + std::to_string(labelled.size()) +
                     " modes; valid modes: " + Titles(list));
  }
  std::vector<std::string> labels;
  for (const auto& mode : list.modes) labels.push_back(mode.label);
  throw UsageError("no mode '" + text + "'" +
                   (labels.empty() ? "; the panel has none"
                                   : DidYouMean(text, labels, "valid modes", Titles(list))));
}

}  // namespace zelctl
