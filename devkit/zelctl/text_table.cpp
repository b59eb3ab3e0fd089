#include "devkit/zelctl/text_table.h"

#include <algorithm>

namespace zelctl {

void TextTable::Print(std::ostream& out) const {
  std::vector<size_t> widths;
  std::vector<std::string> headings;
  for (size_t i = 0; i < columns_.size(); ++i) {
    headings.push_back(columns_[i].heading);
    widths.push_back(headings[i].size());
    for (const auto& row : rows_) widths[i] = std::max(widths[i], row[i].size());
  }

  const auto print_line = [&](const std::vector<std::string>& cells) {
    std::string line;
    for (size_t i = 0; i < cells.size(); ++i) {
      const std::string blanks(widths[i] - cells[i].size(), ' ');
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
