#include "devkit/zelctl/plot/gnuplot.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "devkit/zelctl/errors.h"

namespace zelctl {
namespace {

struct FileCloser {
  void operator()(FILE* file) const { std::fclose(file); }
};
using TempFile = std::unique_ptr<FILE, FileCloser>;

// Files instead of pipes: gnuplot may write while it still reads.
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

// Runs gnuplot to its end and returns its wait status.
int Run(const TempFile& in, const TempFile& out, const TempFile& err) {
  std::array<std::string, 2> words = {"gnuplot", "-d"};  // -d: without the user's start-up files
  const std::array<char*, 3> arguments = {words[0].data(), words[1].data(), nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(in.get()), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fileno(out.get()), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fileno(err.get()), STDERR_FILENO);
  pid_t child = 0;
  const int problem =
      posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (problem == 0) {
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
  }
  constexpr int kNotFound = 127;  // where starting it can fail only in the child
  if (problem != 0 || (WIFEXITED(status) && WEXITSTATUS(status) == kNotFound)) {
    throw UsageError("can't run gnuplot, of the package gnuplot-nox");
  }
  return status;
}

// gnuplot repeats the line of the script, and marks the place, before it complains.
std::string LastLine(std::string text) {
  text.erase(text.find_last_not_of(" \n") + 1);
  const size_t break_before = text.rfind('\n');
  return break_before == std::string::npos ? text : text.substr(break_before + 1);
}

}  // namespace

std::string RunGnuplot(const std::string& script) {
  const TempFile in = MakeTempFile(script);
  const TempFile out = MakeTempFile();
  const TempFile err = MakeTempFile();
  const int status = Run(in, out, err);
  std::string picture = Contents(out);
  if (status != 0 || picture.empty()) {
    throw std::runtime_error("gnuplot failed: " + LastLine(Contents(err)));
  }
  return picture;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') quoted += c;
    const bool control = static_cast<unsigned char>(c) < ' ' || c == '\x7f';
    quoted += control ? ' ' : c;
  }
  return quoted + "'";
}

}  // namespace zelctl
