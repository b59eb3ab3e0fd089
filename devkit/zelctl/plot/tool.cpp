// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/plot/tool.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace zelctl {
namespace {

struct FileCloser {
  void operator()(FILE* file) const { std::fclose(file); }
};
using TempFile = std::unique_ptr<FILE, FileCloser>;

// Files instead of pipes: a program may write while it still reads.
TempFile MakeTempFile(const std::string& contents = "") {
  TempFile file(std::tmpfile());
  if (file == nullptr ||
      std::fwrite(contents.data(), 1, contents.size(), file.get()) != contents.size()) {
    throw std::runtime_error(std::string("can't write a temporary file: ") + std::strerror(errno));
  }
  std::rewind(file.get());
  return file;
}

std::string Contents(const TempFile& file) {
  std::rewind(file.get());
  std::string contents;
  std::array<char, 4096> buffer;
  while (const size_t size = std::fread(buffer.data(), 1, buffer.size(), file.get())) {
    contents.append(buffer.data(), size);
  }
  return contents;
}

}  // namespace

ToolRun RunTool(std::vector<std::string> words, const std::string& input) {
  const TempFile in = MakeTempFile(input);
  const TempFile out = MakeTempFile();
  const TempFile err = MakeTempFile();
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(in.get()), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fileno(out.get()), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fileno(err.get()), STDERR_FILENO);
  pid_t child = 0;
  ToolRun run;
  const int problem =
      posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (problem != 0) return run;
  while (waitpid(child, &run.status, 0) < 0 && errno == EINTR) continue;
  constexpr int kNotFound = 127;  // where starting it can fail only in the child
  run.found = !WIFEXITED(run.status) || WEXITSTATUS(run.status) != kNotFound;
  run.out = Contents(out);
  run.err = Contents(err);
  return run;
}

}  // namespace zelctl
