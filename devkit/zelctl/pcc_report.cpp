// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/pcc_report.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "devkit/zelctl/block_json.h"
#include "devkit/zelctl/text_table.h"

namespace zelctl {
namespace {

std::string Coefficient(double value) {
  if (value == 0) return "0";
  const double size = std::abs(value);
  std::array<char, 32> text = {};
  std::snprintf(text.data(), text.size(), size >= 1e-4 && size < 1e6 ? "%.6f" : "%.1e", value);
  return text.data();
}

TextTable PccTable() {
  std::vector<TextColumn> columns = {{"PCC AFTER"}, {"ON"}, {"ROW"}, {"1/255", Align::kRight}};
  for (const char* input : {"R", "G", "B"}) columns.push_back({input, Align::kRight});
  for (size_t term = 4; term < zeltarn::kPccTerms; ++term) {
    columns.push_back({"t" + std::to_string(term), Align::kRight});
  }
  return TextTable(columns);
}

void AddRow(std::vector<std::string> cells, const zeltarn::PccRow& row, TextTable* table) {
  for (const double value : row) cells.push_back(Coefficient(value));
  table->Add(std::move(cells));
}

}  // namespace

Json PccRoundsJson(const std::vector<PccRound>& rounds) {
  Json list = Json::array();
  for (const PccRound& round : rounds) {
    Json entry = {{"label", round.label}, {"pcc", nullptr}};
    if (round.pcc) {
      entry["pcc"] = {{"enable", round.pcc->enable}, {"rows", PccRowsJson(round.pcc->coeffs)}};
    }
    list.push_back(entry);
  }
  return list;
}

void PrintPccRounds(const std::vector<PccRound>& rounds, std::ostream& out) {
  TextTable table = PccTable();
  for (const PccRound& round : rounds) {
    if (!round.pcc) {
      std::vector<std::string> cells = {round.label, "none"};
      cells.resize(3 + zeltarn::kPccTerms);
      table.Add(cells);
      continue;
    }
    AddRow({round.label, round.pcc->enable ? "yes" : "no", "r"}, round.pcc->coeffs.r, &table);
    AddRow({"", "", "g"}, round.pcc->coeffs.g, &table);
    AddRow({"", "", "b"}, round.pcc->coeffs.b, &table);
  }
  table.Print(out);
}

}  // namespace zelctl
