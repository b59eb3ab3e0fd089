// SPDX-License-Identifier: Apache-2.0

// Tables for a terminal.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zelctl {

enum class Align { kLeft, kRight };

struct TextColumn {
  std::string heading;
  Align align = Align::kLeft;
};

// Columns are as wide as their widest cell is on the terminal, two blanks apart.
class TextTable {
 public:
  explicit TextTable(std::vector<TextColumn> columns) : columns_(std::move(columns)) {}

  // `row` has one cell per column.
  void Add(std::vector<std::string> row);
  void Print(std::ostream& out) const;

 private:
  std::vector<TextColumn> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace zelctl
