// What a mistyped word may have meant.
#pragma once

#include <string>
#include <vector>

namespace zelctl {

// "; did you mean 'render'?" for the nearest of the known words, where one is near; else
// empty.
std::string DidYouMean(const std::string& word, const std::vector<std::string>& known);

}  // namespace zelctl
