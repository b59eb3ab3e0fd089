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

Json PccStepsJson(const std::vector<PccStep>& steps) {
  Json list = Json::array();
  for (const PccStep& step : steps) {
    Json entry = {{"label", step.label}, {"pcc", nullptr}};
    if (step.pcc) {
      entry["pcc"] = {{"enable", step.pcc->enable}, {"rows", PccRowsJson(step.pcc->coeffs)}};
    }
    list.push_back(entry);
  }
  return list;
}

void PrintPccSteps(const std::vector<PccStep>& steps, std::ostream& out) {
  TextTable table = PccTable();
  for (const PccStep& step : steps) {
    if (!step.pcc) {
      std::vector<std::string> cells = {step.label, "none"};
      cells.resize(3 + zeltarn::kPccTerms);
      table.Add(cells);
      continue;
    }
    AddRow({step.label, step.pcc->enable ? "yes" : "no", "r"}, step.pcc->coeffs.r, &table);
    AddRow({"", "", "g"}, step.pcc->coeffs.g, &table);
    AddRow({"", "", "b"}, step.pcc->coeffs.b, &table);
  }
  table.Print(out);
}

}  // namespace zelctl
