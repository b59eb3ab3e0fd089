// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/panel/json_file.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string_view>
#include <vector>

#include "devkit/reference/panel/panel_error.h"

namespace tarn::reference {
namespace {

using nlohmann::json;

constexpr std::uintmax_t kMaxFileBytes = 16 << 20;
constexpr size_t kMaxDepth = 32;

std::string LineOf(std::string_view text, size_t position) {
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(position, text.size()));
  return "line " + std::to_string(1 + std::count(text.begin(), end, '\n'));
}

// The library's reason, without its own account of the place.
std::string ReasonOf(const std::string& message) {
  constexpr size_t kMaxReason = 160;
  size_t start = message.find("] ");
  start = start == std::string::npos ? 0 : start + 2;
  if (message.compare(start, 11, "parse error") == 0) start = message.find(": ", start) + 2;
  return message.substr(start, kMaxReason);
}

// Looks a text over before it is parsed: the parser itself takes the last of
// two equal keys, and tells the position of some errors only.
class Checker : public nlohmann::json_sax<json> {
 public:
  // Throws PanelError unless `text` is good JSON.
  static void Check(const std::string& text) {
    // The parser would take it for the end.
    if (const size_t nul = text.find('\0'); nul != std::string::npos) {
      throw PanelError(LineOf(text, nul) + ": holds a NUL byte");
    }
    Checker checker(text);
    json::sax_parse(checker.stream_, &checker);
  }

  bool null() override { return true; }
  bool boolean(bool /*value*/) override { return true; }
  bool number_integer(number_integer_t /*value*/) override { return true; }
  bool number_unsigned(number_unsigned_t /*value*/) override { return true; }
  bool number_float(number_float_t /*value*/, const string_t& /*text*/) override { return true; }
  bool string(string_t& /*value*/) override { return true; }
  bool binary(binary_t& /*value*/) override { return true; }
  bool start_object(size_t /*elements*/) override { return Enter(); }
  bool end_object() override { return Leave(); }
  bool start_array(size_t /*elements*/) override { return Enter(); }
  bool end_array() override { return Leave(); }

  bool key(string_t& name) override {
    if (keys_.back().insert(name).second) return true;
    Refuse("key " + ShownText(name) + " stands twice in one object");
  }

  bool parse_error(size_t position, const std::string& /*token*/,
                   const json::exception& error) override {
    throw PanelError(LineOf(text_, position) + ": " + ReasonOf(error.what()));
  }

 private:
  explicit Checker(const std::string& text) : text_(text), stream_(text) {}

  // Of what has just been read.
  [[noreturn]] void Refuse(const std::string& reason) {
    const std::streamoff read = stream_.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in);
    throw PanelError(LineOf(text_, static_cast<size_t>(read)) + ": " + reason);
  }

  bool Enter() {
    if (keys_.size() == kMaxDepth) Refuse("nested too deeply");
    keys_.emplace_back();
    return true;
  }
  bool Leave() {
    keys_.pop_back();
    return true;
  }

  std::string_view text_;
  std::istringstream stream_;                // over the same text, as far as it has been read
  std::vector<std::set<std::string>> keys_;  // of the objects that are open
};

std::string ReadText(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    throw PanelError(error ? error.message() : "not a file");
  }
  if (std::filesystem::file_size(path, error) > kMaxFileBytes) {
    throw PanelError("larger than 16 MiB");
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) throw PanelError("can't be opened");
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

json ReadJsonFile(const std::string& path) {
  const std::string text = ReadText(path);
  Checker::Check(text);
  return json::parse(text);
}

std::string ShownText(const std::string& text) {
  constexpr size_t kMaxShown = 40;
  const std::string quoted = json(text).dump(-1, ' ', true);
  return quoted.size() <= kMaxShown ? quoted : quoted.substr(0, kMaxShown) + "...";
}

}  // namespace tarn::reference
