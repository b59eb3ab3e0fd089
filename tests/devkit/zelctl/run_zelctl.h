// Runs the built program as a shell would.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

// The text of the file at `path`.
inline std::string ReadFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// A file of this test program, which holds `text`.
inline std::string WriteFile(const std::string& name, const std::string& text) {
  // Of this process: ctest runs several at once.
  std::string path = testing::TempDir() + "zelctl." + std::to_string(getpid()) + "." + name;
  std::ofstream(path) << text;
  return path;
}

struct ZelctlRun {
  int status = -1;
  std::string out;
  std::string err;
};

// `arguments` is shell text; `before` is put before the program ("NAME=value").
inline ZelctlRun RunZelctl(const std::string& arguments, const std::string& before = "") {
  const std::string out = WriteFile("stdout", "");
  const std::string err = WriteFile("stderr", "");
  const std::string streams = ">" + out + " 2>" + err + " ";
  const int status = std::system((before + " " ZELCTL " " + streams + arguments).c_str());
  return {WEXITSTATUS(status), ReadFile(out), ReadFile(err)};
}

// With the fake plug-in instead of the real one.
inline ZelctlRun RunWithFake(const std::string& arguments, const std::string& before = "") {
  return RunZelctl("--plugin " FAKE_PLUGIN " --panel /dev/null " + arguments, before);
}
