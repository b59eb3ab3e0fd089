// SPDX-License-Identifier: Apache-2.0

// What a mistyped word may have meant.
#pragma once

#include <string>
#include <vector>

namespace zelctl {

// "; did you mean 'render'?" for the nearest of the known words, where one is near, in
// capitals or not; else empty.
std::string DidYouMean(const std::string& word, const std::vector<std::string>& known);

// The same, and then "valid modes: " and the like with its list, as a further clause.
std::string DidYouMean(const std::string& word, const std::vector<std::string>& known,
                       const std::string& heading, const std::string& list);

// What the command line could have been made of.
struct KnownWords {
  std::vector<std::string> commands;
  std::vector<std::string> options;  // "--panel"
  bool command_given = false;
};

// The complaint about `words`, the ones that nothing takes. The first is the mistake: an
// unknown option's value is left over after it.
std::string UnknownWord(const std::vector<std::string>& words, const KnownWords& known);

}  // namespace zelctl
