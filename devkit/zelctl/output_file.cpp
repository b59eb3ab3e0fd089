// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/output_file.h"

#include <strings.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "devkit/zelctl/errors.h"

namespace zelctl {
namespace {

namespace fs = std::filesystem;

// The error number, or 0.
int Write(const fs::path& path, std::string_view bytes) {
  errno = 0;
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file.good() ? 0 : errno;
}

// By way of a file beside `target`, which takes its place once it is complete.
// The error number, or 0.
int Replace(const fs::path& target, std::string_view bytes) {
  std::error_code error;
  const fs::path beside = target.string() + "." + std::to_string(getpid()) + ".tmp";
  int failure = Write(beside, bytes);
  if (failure == 0) {
    const fs::file_status before = fs::status(target, error);
    if (fs::exists(before)) fs::permissions(beside, before.permissions(), error);
    fs::rename(beside, target, error);
    failure = error.value();
  }
  if (failure != 0) fs::remove(beside, error);
  return failure;
}

// The error number, or 0.
int WriteOrReplace(const fs::path& path, std::string_view bytes) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::status_known(status)) return error.value();
  const bool link = fs::is_symlink(fs::symlink_status(path, error));
  if (!fs::exists(status) && !link) return Replace(path, bytes);
  // A link stays a link, also one to a pipe, which has no name, or to nothing yet.
  const fs::path target = fs::canonical(path, error);
  if (error || !fs::is_regular_file(status)) return Write(path, bytes);
  return access(target.c_str(), W_OK) == 0 ? Replace(target, bytes) : errno;
}

// In capitals or not.
bool EndsWith(const std::string& path, std::string_view ending) {
  return path.size() >= ending.size() &&
         strcasecmp(path.c_str() + path.size() - ending.size(), ending.data()) == 0;
}

}  // namespace

std::string_view RequireEnding(const std::string& path,
                               std::initializer_list<std::string_view> endings,
                               const std::string& option) {
  std::string known;
  for (const std::string_view ending : endings) {
    if (EndsWith(path, ending)) return ending;
    known += (known.empty() ? "" : " or ") + std::string(ending);
  }
  throw UsageError(option + ": " + NameText(path) + " must end in " + known);
}

void WriteOutput(const std::string& path, std::string_view bytes) {
  if (path == "-") throw UsageError("can't write -: standard output is /dev/stdout");
  const int failure = WriteOrReplace(path, bytes);
  if (failure == 0) return;
  throw UsageError("can't write " + NameText(path) + ": " + std::strerror(failure));
}

}  // namespace zelctl
