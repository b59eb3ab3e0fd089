#include "devkit/zelctl/output_file.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "devkit/zelctl/errors.h"

namespace zelctl {

std::string_view RequireEnding(const std::string& path,
                               std::initializer_list<std::string_view> endings) {
  std::string known;
  for (const std::string_view ending : endings) {
    if (path.ends_with(ending)) return ending;
    known += (known.empty() ? "" : " or ") + std::string(ending);
  }
  throw UsageError("--output: " + path + " must end in " + known);
}

void WriteOutput(const std::string& path, std::string_view bytes) {
  errno = 0;
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw UsageError("can't write " + path + ": " + std::strerror(errno));
}

}  // namespace zelctl
