// Reading a JSON file, with errors that name the line.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace tarn::reference {

// Throws PanelError, without the file's name, when the file can't be read, is
// not JSON, repeats a key within an object, or nests deeper than any panel
// description does.
nlohmann::json ReadJsonFile(const std::string& path);

}  // namespace tarn::reference
