// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/text_table.h"

#include <algorithm>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/text_width.h"

namespace zelctl {

void TextTable::Add(std::vector<std::string> row) {
  std::transform(row.begin(), row.end(), row.begin(), OneLine);
  rows_.push_back(std::move(row));
}

void TextTable::Print(std::ostream& out) const {
  std::vector<size_t> widths;
  std::vector<std::string> headings;
  for (size_t i = 0; i < columns_.size(); ++i) {
    headings.push_back(columns_[i].heading);
    widths.push_back(headings[i].size());
    for (const auto& row : rows_) widths[i] = std::max(widths[i], DisplayWidth(row[i]));
  }

  const auto print_line = [&](const std::vector<std::string>& cells) {
    std::string line;
    for (size_t i = 0; i < cells.size(); ++i) {
      const std::string blanks(widths[i] - DisplayWidth(cells[i]), ' ');
      if (i > 0) line += "  ";
      line += columns_[i].align == Align::kRight ? blanks + cells[i] : cells[i] + blanks;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  };
  print_line(headings);
  for (const auto& row : rows_) print_line(row);
}

}  // namespace zelctl
