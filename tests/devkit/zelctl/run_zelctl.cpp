#include "tests/devkit/zelctl/run_zelctl.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>

namespace {

// Of this process: ctest runs several at once.
std::string TempPath(const std::string& name) {
  return testing::TempDir() + "zelctl." + std::to_string(getpid()) + "." + name;
}

}  // namespace

std::string ReadFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

std::string WriteFile(const std::string& name, const std::string& text) {
  std::string path = TempPath(name);
  std::ofstream(path) << text;
  return path;
}

ZelctlRun RunZelctl(const std::string& arguments, const std::string& environment) {
  const std::string errors = TempPath("stderr");
  const std::string command = environment + " " ZELCTL " " + arguments + " 2>" + errors;
  ZelctlRun run;
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return run;
  std::array<char, 4096> buffer = {};
  while (const size_t size = fread(buffer.data(), 1, buffer.size(), pipe)) {
    run.out.append(buffer.data(), size);
  }
  run.status = WEXITSTATUS(pclose(pipe));
  run.err = ReadFile(errors);
  std::remove(errors.c_str());
  return run;
}

ZelctlRun RunWithFake(const std::string& arguments, const std::string& environment) {
  return RunZelctl("--plugin " FAKE_PLUGIN " --panel /dev/null " + arguments, environment);
}
