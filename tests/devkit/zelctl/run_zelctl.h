// SPDX-License-Identifier: Apache-2.0

// Runs the built program as a shell would.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

// The text of the file at `path`.
inline std::string ReadFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// This process's own, for ctest runs several at once; removed at its end.
struct TestFolder {
  TestFolder() {
    if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no folder for the test");
  }
  ~TestFolder() { std::filesystem::remove_all(path); }

  std::string path = testing::TempDir() + "zelctl.XXXXXX";
};

// The file of that name, which holds `text`.
inline std::string WriteFile(const std::string& name, const std::string& text) {
  static const TestFolder folder;
  std::string path = folder.path + "/" + name;
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
