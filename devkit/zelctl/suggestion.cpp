// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/suggestion.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace zelctl {
namespace {

// Letters to insert, drop, change or swap with their neighbour (optimal string alignment).
size_t Distance(const std::string& a, const std::string& b) {
  std::vector<std::vector<size_t>> steps(a.size() + 1, std::vector<size_t>(b.size() + 1));
  for (size_t i = 0; i <= a.size(); ++i) steps[i][0] = i;
  std::iota(steps[0].begin(), steps[0].end(), size_t{0});
  for (size_t i = 1; i <= a.size(); ++i) {
    for (size_t j = 1; j <= b.size(); ++j) {
      const size_t change = steps[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      steps[i][j] = std::min({steps[i - 1][j] + 1, steps[i][j - 1] + 1, change});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) steps[i][j] = std::min(steps[i][j], steps[i - 2][j - 2] + 1);
    }
  }
  return steps[a.size()][b.size()];
}

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

std::string DidYouMean(const std::string& word, const std::vector<std::string>& known) {
  constexpr size_t kLongest = 64;  // nobody mistypes more
  const auto away = [&word](const std::string& other) {
    return Distance(Lower(word), Lower(other));
  };
  if (word.size() > kLongest || known.empty()) return "";
  const auto nearest = *std::min_element(
      known.begin(), known.end(), [&](const auto& a, const auto& b) { return away(a) < away(b); });
  const size_t most = std::max<size_t>(1, std::min(word.size(), nearest.size()) / 3);
  return away(nearest) > most ? "" : "; did you mean '" + nearest + "'?";
}

std::string DidYouMean(const std::string& word, const std::vector<std::string>& known,
                       const std::string& heading, const std::string& list) {
  const std::string meant = DidYouMean(word, known);
  if (meant.empty()) return "; " + heading + ": " + list;
  return meant + " (" + heading + ": " + list + ")";
}

std::string UnknownWord(const std::vector<std::string>& words, const KnownWords& known) {
  const std::string word = words.empty() ? "" : words.front();
  if (word.starts_with("-")) {
    const std::string name = word.substr(0, word.find('='));
    return "no option '" + word + "'" + DidYouMean(name, known.options);
  }
  if (known.command_given) return "nothing takes '" + word + "'";
  const std::string meant = DidYouMean(word, known.commands);
  return "no command '" + word + "'" + (meant.empty() ? "; see zelctl --help" : meant);
}

}  // namespace zelctl
