// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/cgats/cgats_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"

namespace zelctl {
namespace {

// More than any measurement has; they keep a hostile file from taking time and memory.
constexpr size_t kMostFields = 4096;
constexpr size_t kMostSets = 65536;

struct Token {
  std::string text;
  size_t line = 0;
  bool quoted = false;
};

class Reader {
 public:
  Reader(const std::string& path, const std::string& text) : path_(path), text_(text) {}

  [[noreturn]] void Refuse(size_t line, const std::string& reason) const {
    throw UsageError(path_ + ": line " + std::to_string(line) + ": " + reason);
  }

  // The next text; none at the end.
  std::optional<Token> Next() {
    SkipBlanks();
    if (at_ == text_.size()) return std::nullopt;
    if (text_[at_] == '"') return Quoted();
    const size_t start = at_;
    while (at_ < text_.size() && !IsBlank(text_[at_])) ++at_;
    return Token{text_.substr(start, at_ - start), line_};
  }

  // Where the file must go on.
  Token Need(const std::string& what) {
    const std::optional<Token> token = Next();
    if (!token) Refuse(line_, "the file ends where " + what + " should follow");
    return *token;
  }

 private:
  static bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

  // Blanks, and comments to the end of their line.
  void SkipBlanks() {
    while (at_ < text_.size() && (IsBlank(text_[at_]) || text_[at_] == '#')) {
      if (text_[at_] == '#') {
        at_ = std::min(text_.find('\n', at_), text_.size());
      } else {
        if (text_[at_] == '\n') ++line_;
        ++at_;
      }
    }
  }

  Token Quoted() {
    const size_t end = text_.find_first_of("\"\n", at_ + 1);
    if (end == std::string::npos || text_[end] == '\n') Refuse(line_, "a quote isn't closed");
    Token token = {text_.substr(at_ + 1, end - at_ - 1), line_, true};
    at_ = end + 1;
    return token;
  }

  const std::string& path_;
  const std::string& text_;
  size_t at_ = 0;
  size_t line_ = 1;
};

size_t Count(const Reader& reader, const Token& token) {
  size_t count = 0;
  const char* end = token.text.data() + token.text.size();
  const auto [last, error] = std::from_chars(token.text.data(), end, count);
  if (error != std::errc() || last != end) {
    reader.Refuse(token.line, Shown(token.text) + " is no count");
  }
  return count;
}

void ReadFields(Reader* reader, CgatsTable* table) {
  for (Token token = reader->Need("END_DATA_FORMAT"); token.text != "END_DATA_FORMAT";
       token = reader->Need("END_DATA_FORMAT")) {
    if (std::count(table->fields.begin(), table->fields.end(), token.text) != 0) {
      reader->Refuse(token.line, "field " + Shown(token.text) + " stands twice");
    }
    if (table->fields.size() == kMostFields) reader->Refuse(token.line, "more than 4096 fields");
    table->fields.push_back(token.text);
  }
}

void ReadRows(Reader* reader, size_t line, CgatsTable* table) {
  if (table->fields.empty()) reader->Refuse(line, "data without BEGIN_DATA_FORMAT and its fields");
  std::vector<std::string> row;
  Token token = reader->Need("END_DATA");
  for (; token.quoted || token.text != "END_DATA"; token = reader->Need("END_DATA")) {
    if (row.empty()) table->lines.push_back(token.line);
    if (table->lines.size() > kMostSets) reader->Refuse(token.line, "more than 65536 sets");
    row.push_back(token.text);
    if (row.size() < table->fields.size()) continue;
    table->rows.push_back(std::move(row));
    row.clear();
  }
  if (!row.empty()) {
    reader->Refuse(token.line, "the last set has " + std::to_string(row.size()) + " of " +
                                   std::to_string(table->fields.size()) + " fields");
  }
}

// What the header said the table would be.
struct Sizes {
  std::optional<size_t> fields;
  std::optional<size_t> sets;
};

void CheckSizes(const Reader& reader, const Sizes& sizes, size_t line, const CgatsTable& table) {
  const auto check = [&](const char* keyword, const std::optional<size_t>& said, size_t found) {
    if (!said || *said == found) return;
    reader.Refuse(line, std::string(keyword) + " says " + std::to_string(*said) + ", there are " +
                            std::to_string(found));
  };
  check("NUMBER_OF_FIELDS", sizes.fields, table.fields.size());
  check("NUMBER_OF_SETS", sizes.sets, table.rows.size());
}

CgatsTable ReadTable(Reader* reader) {
  CgatsTable table;
  table.identifier = reader->Need("the kind of file (CTI3)").text;
  Sizes sizes;
  while (true) {
    const Token token = reader->Need("BEGIN_DATA");
    if (token.text == "BEGIN_DATA_FORMAT") {
      ReadFields(reader, &table);
    } else if (token.text == "BEGIN_DATA") {
      ReadRows(reader, token.line, &table);
      CheckSizes(*reader, sizes, token.line, table);
      if (const auto next = reader->Next()) table.next = next->text;
      return table;
    } else if (token.text == "NUMBER_OF_FIELDS") {
      sizes.fields = Count(*reader, reader->Need("a count"));
    } else if (token.text == "NUMBER_OF_SETS") {
      sizes.sets = Count(*reader, reader->Need("a count"));
    } else {
      const Token value = reader->Need("the value of " + Shown(token.text));
      if (token.text != "KEYWORD") table.keywords[token.text] = value.text;
    }
  }
}

}  // namespace

std::string Shown(const std::string& text) {
  constexpr size_t kLongest = 40;
  std::string shown = text.substr(0, kLongest);
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < ' ' || static_cast<unsigned char>(c) > '~') c = '?';
  }
  return "'" + shown + (text.size() > kLongest ? "...'" : "'");
}

CgatsTable ReadCgatsFile(const std::string& path) {
  return ReadCgats(path, ReadWhole(path, "measurements"));
}

CgatsTable ReadCgats(const std::string& path, const std::string& text) {
  Reader reader(path, text);
  CgatsTable table = ReadTable(&reader);
  table.path = path;
  return table;
}

}  // namespace zelctl
