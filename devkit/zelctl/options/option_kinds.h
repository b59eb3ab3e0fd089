// SPDX-License-Identifier: Apache-2.0

// Options whose text is read by zelctl's own rules.
#pragma once

#include <CLI/App.hpp>
#include <cstdint>
#include <string>

#include "devkit/zelctl/errors.h"

namespace zelctl {

// As decimal: the command line's library takes 010 for 8.
CLI::Validator WholeNumber(uint32_t low, uint32_t high);

// An option whose text `parse` turns into a value; its complaint names the option.
template <typename Value, typename T>
CLI::Option* AddParsedOption(CLI::App& command, const std::string& name, Value* value,
                             const char* type, T (*parse)(const std::string&), const char* help) {
  return command
      .add_option_function<std::string>(
          name,
          [=](const std::string& text) {
            try {
              *value = parse(text);
            } catch (const UsageError& e) {
              throw UsageError(name + ": " + e.what());
            }
          },
          help)
      ->type_name(type);
}

}  // namespace zelctl
