// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/input.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include "devkit/zelctl/errors.h"

namespace zelctl {
namespace {

template <typename Number>
Number Parse(const std::string& text, Number (*convert)(const char*, char**)) {
  char* end = nullptr;
  const Number value = convert(text.c_str(), &end);
  if (text.empty() || *end != '\0') throw UsageError("'" + text + "' is not a number");
  if (!std::isfinite(value)) throw UsageError("'" + text + "' is not a finite number");
  return value;
}

}  // namespace

double ParseNumber(const std::string& text) { return Parse(text, std::strtod); }

double ParseNumber(const std::string& text, double low, double high) {
  const double number = ParseNumber(text);
  if (number >= low && number <= high) return number;
  std::ostringstream range;
  range << "'" << text << "' is not from " << low << " to " << high;
  throw UsageError(range.str());
}

float ParseFloat(const std::string& text) { return Parse(text, std::strtof); }

uint32_t ParseWholeNumber(const std::string& text, uint32_t low, uint32_t high) {
  uint64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < low || value > high) {
    throw UsageError("'" + text + "' is not a whole number from " + std::to_string(low) + " to " +
                     std::to_string(high));
  }
  return static_cast<uint32_t>(value);
}

std::vector<std::string> Split(const std::string& text, const char* separators) {
  std::vector<std::string> parts;
  size_t start = text.find_first_not_of(separators);
  while (start != std::string::npos) {
    const size_t end = text.find_first_of(separators, start);
    parts.push_back(text.substr(start, end - start));
    start = text.find_first_not_of(separators, end);
  }
  return parts;
}

void RequireReadable(const std::string& path, const std::string& what) {
  const std::string complaint = "can't read " + what + " " + NameText(path) + ": ";
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) throw UsageError(complaint + "Is a directory");
  if (access(path.c_str(), R_OK) != 0) throw UsageError(complaint + std::strerror(errno));
}

void RequireLibrary(const std::string& path, const std::string& what) {
  RequireReadable(path, what);
  std::error_code ignored;
  if (std::filesystem::is_regular_file(path, ignored)) return;
  throw UsageError("can't read " + what + " " + path + ": not a file");
}

std::string ReadWhole(const std::string& path, const std::string& what) {
  constexpr size_t kLargest = size_t{16} << 20;
  RequireReadable(path, what);
  std::ifstream file(path, std::ios::binary);
  std::string text;
  std::array<char, size_t{1} << 16> chunk;
  while (text.size() <= kLargest && !file.eof()) {
    file.read(chunk.data(), chunk.size());
    if (file.bad() || file.gcount() == 0) break;
    text.append(chunk.data(), static_cast<size_t>(file.gcount()));
  }
  if (file.bad()) throw UsageError("can't read " + what + " " + path);
  if (text.size() > kLargest) throw UsageError(path + ": larger than 16 MiB");
  return text;
}

}  // namespace zelctl
