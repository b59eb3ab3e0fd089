// SPDX-License-Identifier: Apache-2.0

// The rows of a table as tests of their own, each by the name it has.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <string>

// "parser not found" as ParserNotFound.
inline std::string NameOfTest(const std::string& text) {
  std::string name;
  bool capital = true;
  for (const char c : text) {
    const bool kept = std::isalnum(static_cast<unsigned char>(c)) != 0;
    if (kept) name += capital ? static_cast<char>(std::toupper(c)) : c;
    capital = !kept;
  }
  return name;
}

// Of rows with a member `name`, for a suite of tests with a Row as their parameter.
#define ZEL_TEST_ROWS(Suite, rows)                           \
  INSTANTIATE_TEST_SUITE_P(, Suite, testing::ValuesIn(rows), \
                           [](const auto& row) { return NameOfTest(row.param.name); })
