// SPDX-License-Identifier: Apache-2.0

// Reading a JSON file, with errors that name the line.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace tarn::reference {

// Throws PanelError, without the file's name, when the file can't be read, is
// not JSON, repeats a key within an object, or nests deeper than any panel
// description does. What is wrong within the text begins with its line. A byte
// order mark at the start is passed over.
nlohmann::json ReadJsonFile(const std::string& path);

// A text of the file as an error shows it: quoted, escaped, cut short. It may
// hold anything and be of any length.
std::string ShownText(const std::string& text);

}  // namespace tarn::reference
