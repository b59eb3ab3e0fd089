// SPDX-License-Identifier: Apache-2.0

// Reading what the user typed. Everything here throws UsageError.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zelctl {

// A finite number; nothing may follow it.
double ParseNumber(const std::string& text);

// One from `low` to `high`.
double ParseNumber(const std::string& text, double low, double high);

// The same, rounded to single precision once.
float ParseFloat(const std::string& text);

// Decimal digits alone, for a value from `low` to `high`.
uint32_t ParseWholeNumber(const std::string& text, uint32_t low, uint32_t high);

// The parts of `text` between `separators`; empty parts are dropped.
std::vector<std::string> Split(const std::string& text, const char* separators);

// Refuses a path that is not a readable file. `what` names the file's role.
void RequireReadable(const std::string& path, const std::string& what);

// The same for what the loader opens, which would wait for ever at a pipe.
void RequireLibrary(const std::string& path, const std::string& what);

// The contents of a file of at most 16 MiB.
std::string ReadWhole(const std::string& path, const std::string& what);

}  // namespace zelctl
