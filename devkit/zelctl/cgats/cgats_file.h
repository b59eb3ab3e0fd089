// SPDX-License-Identifier: Apache-2.0

// Text files of measurements: the keywords, field names and data of CGATS.17.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace zelctl {

// The first table of a file.
struct CgatsTable {
  std::string path;                             // for messages
  std::string identifier;                       // "CTI3": measurements of a device
  std::map<std::string, std::string> keywords;  // without those that shape the table
  std::vector<std::string> fields;              // names of the columns
  std::vector<std::vector<std::string>> rows;   // as many texts as there are fields
  std::vector<size_t> lines;                    // of each row's first text
  std::string next;  // identifier of the table after it; empty: there is none
};

// Throws UsageError with the file and the line. A file may be 16 MiB long, a table
// have 4096 fields and 65536 sets. Of what follows the first table, the identifier alone
// is looked at.
CgatsTable ReadCgatsFile(const std::string& path);

// The same, of `text`, which is the contents of the file at `path`.
CgatsTable ReadCgats(const std::string& path, const std::string& text);

// A text of a file in quotes, as a message shows it: the file's may hold anything and be
// of any length.
std::string Shown(const std::string& text);

}  // namespace zelctl
